#include "settlements/FundLedger.h"

#include "settlements/PayweekReaders.h"

using namespace Qt::StringLiterals;

namespace {

// Dates are SQLite's own, as in the balance of a single payweek: the two must never disagree.
constexpr auto selectMovements = R"(
SELECT kind, name, amount, CAST(substr(TRIM(settlement_date),7,4) AS INTEGER),
       date(substr(TRIM(settlement_date),7,4) || '-' || substr(TRIM(settlement_date),1,2)
            || '-' || substr(TRIM(settlement_date),4,2)) AS day
FROM settlement_non_trip_items
WHERE TRIM(COALESCE(settlement_date,'')) <> ''
  AND (? <= 0 OR CAST(substr(TRIM(settlement_date),7,4) AS INTEGER) = ?)
  AND day IS NOT NULL)"_L1;

constexpr auto selectDate = R"(
SELECT date(substr(?,7,4) || '-' || substr(?,1,2) || '-' || substr(?,4,2)))"_L1;

} // namespace

FundLedger::FundLedger(const QSqlDatabase &database, int year)
    : dateOfPayweek(database, selectDate)
{
    QString error;
    const bool read =
        SqlStatement(database, selectMovements)
            .forEachRow({year, year}, error, [this](const SqlStatement &row) {
                const QString kind = row.text(0);
                const QString name = row.text(1);
                const double amount = row.number(2);
                movements.append({row.integer(3), row.text(4),
                                  emergencyFundRules.signedAmount(kind, name, amount),
                                  performanceBondRules.signedAmount(kind, name, amount)});
            });
    // Part of the movements would pass for a balance; the single payweek has none then either.
    if (!read)
        movements.clear();
}

FundLedger::Balance FundLedger::through(const QString &payweek, int payweekYear)
{
    QVariant day;
    QString error;
    const QString key = payweek.trimmed();
    if (!dateOfPayweek.firstValue({key, key, key}, day, error) || day.isNull())
        return {};
    const QString last = day.toString();
    Balance balance;
    for (const Movement &movement : std::as_const(movements)) {
        if ((payweekYear > 0 && movement.year != payweekYear) || movement.date > last)
            continue;
        balance.emergencyFund += movement.emergencyFund;
        balance.performanceBond += movement.performanceBond;
    }
    return balance;
}
