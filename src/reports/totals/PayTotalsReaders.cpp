#include "reports/totals/PayTotalsReaders.h"

#include "data/DatabaseLocator.h"
#include "reports/totals/PayTotalsRules.h"

using namespace Qt::StringLiterals;

namespace PayTotalsReaders {

namespace {

constexpr auto countTrips = "SELECT COUNT(*) FROM trips WHERE %1"_L1;

constexpr auto sumTrips = "SELECT SUM(CAST(COALESCE(%1,0) AS REAL)) FROM trips WHERE %2"_L1;

constexpr auto sumItems = R"(
SELECT SUM(CAST(COALESCE(amount,0) AS REAL))
FROM settlement_non_trip_items
WHERE %1
  AND LOWER(TRIM(COALESCE(kind,''))) = '%2')"_L1;

constexpr auto selectItems = R"(
SELECT TRIM(COALESCE(settlement_date,'')) AS settlement_date,
       LOWER(TRIM(COALESCE(kind,''))) AS kind,
       TRIM(COALESCE(name,'')) AS name,
       CAST(COALESCE(amount,0) AS REAL) AS amount
FROM settlement_non_trip_items
WHERE 1=1 %1
ORDER BY settlement_date ASC, kind ASC, name ASC, id ASC)"_L1;

constexpr auto selectPurchases = R"(
SELECT TRIM(COALESCE(t.payweek,'')) AS payweek,
       TRIM(COALESCE(t.trip_no,'')) AS trip_no,
       TRIM(COALESCE(tdi.item_type,'')) AS item_type,
       CAST(COALESCE(tdi.cost,0) AS REAL) AS cost,
       CAST(COALESCE(tdi.discount,0) AS REAL) AS discount,
       CAST(COALESCE(tdi.gallons,0) AS REAL) AS gallons
FROM trip_detail_items tdi
JOIN trips t ON t.id = tdi.trip_id
WHERE LOWER(TRIM(COALESCE(tdi.group_name,''))) = 'fuel' %1
ORDER BY t.payweek ASC, t.trip_no ASC, tdi.id ASC)"_L1;

// SQLite trims blanks alone, so tabs are left to be trimmed here.
NonTripRow nonTripRow(const SqlStatement &row)
{
    return PayTotalsRules::withEffect({.settlementDate = row.text(0),
                                       .category = {},
                                       .kind = row.text(1).trimmed().toLower(),
                                       .name = row.text(2).trimmed(),
                                       .amount = row.number(3)});
}

FuelDetailRow fuelDetailRow(const SqlStatement &row)
{
    return PayTotalsRules::withNetCost({.payweek = row.text(0),
                                        .tripNo = row.text(1),
                                        .itemType = row.text(2),
                                        .cost = row.number(3),
                                        .discount = row.number(4),
                                        .gallons = row.number(5)});
}

QVariant firstValue(SqlStatement &statement, const QVariantList &key)
{
    QVariant value;
    QString error;
    return statement.firstValue(key, value, error) ? value : QVariant();
}

template <typename Row>
QList<Row> allRows(SqlStatement &statement, const QVariantList &bindValues,
                   Row (*rowOf)(const SqlStatement &))
{
    QList<Row> rows;
    QString error;
    const bool ran = statement.forEachRow(
        bindValues, error, [&rows, rowOf](const SqlStatement &row) { rows.append(rowOf(row)); });
    return ran ? rows : QList<Row>();
}

bool hasTable(const QSqlDatabase &database, const QString &table)
{
    return DatabaseLocator::tableExists(database, table);
}

} // namespace

SummaryReader::SummaryReader(const QSqlDatabase &database, const Scope &scope)
    : hasItems(hasTable(database, u"settlement_non_trip_items"_s))
    , tripCount(database, QString(countTrips).arg(scope.trips))
    , tripRevenue(database, QString(sumTrips).arg("total_revenue"_L1, scope.trips))
    , tripExpenses(database, QString(sumTrips).arg("total_cost"_L1, scope.trips))
    , totalMiles(database, QString(sumTrips).arg("total_miles"_L1, scope.trips))
    , settlementRevenue(database, QString(sumItems).arg(scope.items, "revenue"_L1))
    , settlementExpenses(database, QString(sumItems).arg(scope.items, "expense"_L1))
{
}

PayTotalsSummary SummaryReader::load(const QVariantList &key)
{
    PayTotalsSummary summary;
    summary.tripCount = firstValue(tripCount, key).toInt();
    summary.tripRevenue = firstValue(tripRevenue, key).toDouble();
    summary.tripExpenses = firstValue(tripExpenses, key).toDouble();
    summary.totalMiles = firstValue(totalMiles, key).toDouble();
    if (hasItems) {
        summary.settlementRevenue = firstValue(settlementRevenue, key).toDouble();
        summary.settlementExpenses = firstValue(settlementExpenses, key).toDouble();
    }
    return PayTotalsRules::withTotals(summary);
}

NonTripReader::NonTripReader(const QSqlDatabase &database, const QString &scopeClause)
    : hasItems(hasTable(database, u"settlement_non_trip_items"_s))
    , statement(database, QString(selectItems).arg(scopeClause))
{
}

NonTripTotals NonTripReader::load(const QVariantList &bindValues)
{
    if (!hasItems)
        return {};
    return PayTotalsRules::nonTripTotals(allRows(statement, bindValues, nonTripRow));
}

FuelReader::FuelReader(const QSqlDatabase &database, const QString &scopeClause)
    : hasPurchases(hasTable(database, u"trips"_s) && hasTable(database, u"trip_detail_items"_s))
    , statement(database, QString(selectPurchases).arg(scopeClause))
{
}

FuelTotals FuelReader::load(const QVariantList &bindValues)
{
    if (!hasPurchases)
        return PayTotalsRules::fuelTotals({});
    return PayTotalsRules::fuelTotals(allRows(statement, bindValues, fuelDetailRow));
}

} // namespace PayTotalsReaders
