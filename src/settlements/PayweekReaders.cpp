#include "settlements/PayweekReaders.h"

#include "data/MoneyText.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto selectTrips = R"(
SELECT id, trip_no, payweek, total_miles, total_revenue, total_cost, net_revenue, cpm, trip_hours,
       net_per_hour
FROM trips
WHERE TRIM(COALESCE(payweek,'')) = ?
ORDER BY id ASC)"_L1;

constexpr auto selectItems = R"(
SELECT id, settlement_date, kind, name, amount
FROM settlement_non_trip_items
WHERE TRIM(COALESCE(settlement_date,'')) = ?
ORDER BY kind ASC, id ASC)"_L1;

constexpr auto selectFundRows = R"(
SELECT kind, name, SUM(CAST(amount AS REAL)) AS total
FROM settlement_non_trip_items
WHERE TRIM(COALESCE(settlement_date,'')) = ?
GROUP BY kind, name)"_L1;

constexpr auto selectApr = R"(
SELECT CAST(COALESCE(apr,0) AS REAL)
FROM settlement_meta
WHERE TRIM(COALESCE(settlement_date,'')) = ?
LIMIT 1)"_L1;

} // namespace

double FundRules::signedAmount(const QString &kind, const QString &name, double amount) const
{
    if (adds(kind, name))
        return amount;
    return withdraws(kind, name) ? -amount : 0.0;
}

PayweekTripsReader::PayweekTripsReader(const QSqlDatabase &database)
    : statement(database, selectTrips)
{
}

bool PayweekTripsReader::load(const QString &payweek, QList<QStringList> *rows,
                              PayweekTripTotals &totals, QString &error)
{
    totals = {};
    return statement.forEachRow({payweek.trimmed()}, error, [&](const SqlStatement &row) {
        if (rows)
            rows->append(row.texts());
        totals.miles += row.number(3);
        totals.revenue += row.number(4);
        totals.cost += row.number(5);
        totals.net += row.number(6);
        ++totals.tripCount;
    });
}

PayweekItemsReader::PayweekItemsReader(const QSqlDatabase &database)
    : statement(database, selectItems)
{
}

bool PayweekItemsReader::load(const QString &payweek, QList<QStringList> *rows,
                              PayweekSettlementTotals &totals, QString &error)
{
    totals = {};
    return statement.forEachRow({payweek.trimmed()}, error, [&](const SqlStatement &row) {
        if (rows)
            rows->append(row.texts());
        const QString kind = row.text(2).trimmed().toLower();
        if (kind == "revenue"_L1)
            totals.revenue += row.number(4);
        else if (kind == "expense"_L1)
            totals.expense += row.number(4);
        ++totals.itemCount;
    });
}

PayweekFundReader::PayweekFundReader(const QSqlDatabase &database)
    : statement(database, selectFundRows)
{
}

bool PayweekFundReader::load(
    const QString &payweek, std::initializer_list<std::pair<FundRules, PayweekFundSummary *>> funds,
    QString &error)
{
    const bool ran =
        statement.forEachRow({payweek.trimmed()}, error, [&funds](const SqlStatement &row) {
            const QString kind = row.text(0);
            const QString name = row.text(1);
            for (const auto &[rules, summary] : funds) {
                if (rules.adds(kind, name))
                    summary->added += row.number(2);
                else if (rules.withdraws(kind, name))
                    summary->withdrawn += row.number(2);
            }
        });
    for (const auto &[rules, summary] : funds)
        summary->netChange = roundTo(summary->added - summary->withdrawn, 2);
    return ran;
}

PayweekAprReader::PayweekAprReader(const QSqlDatabase &database)
    : statement(database, selectApr)
{
}

double PayweekAprReader::load(const QString &payweek)
{
    QVariant apr;
    QString error;
    statement.firstValue({payweek.trimmed()}, apr, error);
    return apr.toDouble();
}
