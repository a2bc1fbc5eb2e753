#include "settlements/PayweekRepository.h"

#include "data/DatabaseLocator.h"
#include "data/MoneyText.h"
#include "data/SqlStatement.h"
#include "settlements/CarryoverRules.h"
#include "settlements/PayweekReaders.h"

using namespace Qt::StringLiterals;

namespace PayweekRepository {

namespace {

constexpr auto selectPayweeks = R"(
SELECT DISTINCT TRIM(COALESCE(payweek,'')) AS pw
FROM trips
WHERE TRIM(COALESCE(payweek,'')) <> ''
UNION
SELECT DISTINCT TRIM(COALESCE(settlement_date,'')) AS pw
FROM settlement_non_trip_items
WHERE TRIM(COALESCE(settlement_date,'')) <> '')"_L1;

constexpr auto selectCarryoverPayweeks = R"(
UNION
SELECT DISTINCT TRIM(COALESCE(settlement_date,'')) AS pw
FROM settlement_meta
WHERE TRIM(COALESCE(settlement_date,'')) <> ''
ORDER BY pw ASC)"_L1;

// The bound takes the payweek's own rows in, the year keeps those of earlier years out. Digits are
// taken by their places, so a row in any other form than MM/DD/YYYY has no date here.
constexpr auto selectThroughPayweek = R"(
SELECT kind, name, amount
FROM settlement_non_trip_items
WHERE TRIM(COALESCE(settlement_date,'')) <> ''
  AND (? <= 0 OR CAST(substr(TRIM(settlement_date),7,4) AS INTEGER) = ?)
  AND date(substr(TRIM(settlement_date),7,4) || '-' || substr(TRIM(settlement_date),1,2)
           || '-' || substr(TRIM(settlement_date),4,2))
      <= date(substr(?,7,4) || '-' || substr(?,1,2) || '-' || substr(?,4,2)))"_L1;

constexpr auto selectFuel = R"(
SELECT tdi.item_type,
       SUM(CAST(COALESCE(tdi.cost, 0) AS REAL)) AS cost_total,
       SUM(CAST(COALESCE(tdi.discount, 0) AS REAL)) AS discount_total,
       SUM(CAST(COALESCE(tdi.gallons, 0) AS REAL)) AS gallons_total,
       COUNT(*) AS row_count
FROM trip_detail_items tdi
JOIN trips t ON t.id = tdi.trip_id
WHERE TRIM(COALESCE(t.payweek,'')) = ?
  AND LOWER(TRIM(COALESCE(tdi.group_name,''))) = 'fuel'
GROUP BY TRIM(COALESCE(tdi.item_type,''))
ORDER BY tdi.item_type COLLATE NOCASE)"_L1;

bool isOpenFor(const PayweekKey &payweek, const QSqlDatabase &database, QString &error)
{
    if (!DatabaseLocator::isTripsDatabaseOpen(database, error))
        return false;
    if (payweek.trimmed().isEmpty())
        error = u"Payweek is blank."_s;
    return error.isEmpty();
}

bool readKeys(const QSqlDatabase &database, const QString &sql, QStringList &keys, QString &error)
{
    return SqlStatement(database, sql).forEachRow({}, error, [&keys](const SqlStatement &row) {
        const QString key = row.text(0).trimmed();
        if (!key.isEmpty())
            keys.append(key);
    });
}

bool loadFundSummary(const QSqlDatabase &database, const PayweekKey &payweek,
                     const FundRules &rules, PayweekFundSummary &summary, QString &error)
{
    summary = {};
    if (!isOpenFor(payweek, database, error)
        || !PayweekFundReader(database).load(payweek, {{rules, &summary}}, error))
        return false;
    const QString key = payweek.trimmed();
    const QDate date = DomainRules::parsePayweekDate(key);
    const int year = date.isValid() ? date.year() : 0;
    double balance = 0.0;
    const bool ran =
        SqlStatement(database, selectThroughPayweek)
            .forEachRow({year, year, key, key, key}, error,
                        [&rules, &balance](const SqlStatement &row) {
                            balance += rules.signedAmount(row.text(0), row.text(1), row.number(2));
                        });
    if (ran)
        summary.balanceThroughPayweek = balance;
    return ran;
}

// One group of rows of the same item type.
void addFuelGroup(const SqlStatement &row, PayweekFuelAnalytics &analytics,
                  QList<DomainRules::FuelRowValues> &truckAndReefer)
{
    const QString type = row.text(0);
    const double cost = row.number(1);
    const double discount = row.number(2);
    const double gallons = row.number(3);
    const double net = roundTo(cost - discount, 2);
    analytics.totalCostBeforeDiscount += cost;
    analytics.totalDiscounts += discount;
    analytics.netCost += net;
    analytics.totalGallons += gallons;
    analytics.detailRowCount += row.integer(4);

    const QString group = DomainRules::payweekFuelGroup(type);
    if (!group.isEmpty())
        truckAndReefer.append({group, cost, discount, gallons});
    else if (DomainRules::isDefItemName(type))
        analytics.defNetCost += net;
}

} // namespace

bool listPayweeks(const QSqlDatabase &database, QStringList &keys, QString &error)
{
    keys.clear();
    if (!DatabaseLocator::isTripsDatabaseOpen(database, error)
        || !readKeys(database, selectPayweeks, keys, error))
        return false;
    DomainRules::sortPayweeksNewestFirst(keys);
    return true;
}

bool loadPayweekTrips(const QSqlDatabase &database, const PayweekKey &payweek,
                      QList<QStringList> &rows, PayweekTripTotals &totals, QString &error)
{
    rows.clear();
    totals = {};
    return DatabaseLocator::isTripsDatabaseOpen(database, error)
           && PayweekTripsReader(database).load(payweek, &rows, totals, error);
}

bool loadPayweekSettlementItems(const QSqlDatabase &database, const PayweekKey &payweek,
                                QList<QStringList> &rows, PayweekSettlementTotals &totals,
                                QString &error)
{
    rows.clear();
    totals = {};
    return DatabaseLocator::isTripsDatabaseOpen(database, error)
           && PayweekItemsReader(database).load(payweek, &rows, totals, error);
}

bool loadEmergencyFundSummary(const QSqlDatabase &database, const PayweekKey &payweek,
                              PayweekFundSummary &summary, QString &error)
{
    return loadFundSummary(database, payweek, emergencyFundRules, summary, error);
}

bool loadTireFundSummary(const QSqlDatabase &database, const PayweekKey &payweek,
                         PayweekFundSummary &summary, QString &error)
{
    return loadFundSummary(database, payweek, tireFundRules, summary, error);
}

bool loadPerformanceBondSummary(const QSqlDatabase &database, const PayweekKey &payweek,
                                PayweekFundSummary &summary, QString &error)
{
    return loadFundSummary(database, payweek, performanceBondRules, summary, error);
}

bool loadPayweekFuelAnalytics(const QSqlDatabase &database, const PayweekKey &payweek,
                              PayweekFuelAnalytics &analytics, QString &error)
{
    analytics = {};
    if (!isOpenFor(payweek, database, error))
        return false;
    QList<DomainRules::FuelRowValues> truckAndReefer;
    if (!SqlStatement(database, selectFuel)
             .forEachRow({payweek.trimmed()}, error, [&](const SqlStatement &row) {
                 addFuelGroup(row, analytics, truckAndReefer);
             }))
        return false;
    const DomainRules::FuelSummary summary = DomainRules::summarizeFuelRows(truckAndReefer);
    analytics.truckFuelNetCost = summary.truckNet;
    analytics.reeferFuelNetCost = summary.reeferNet;
    if (analytics.totalGallons > 0.0)
        analytics.averageNetPricePerGallon = roundTo(
            (analytics.totalCostBeforeDiscount - analytics.totalDiscounts) / analytics.totalGallons,
            4);
    return true;
}

bool listCarryoverPayweeks(const QSqlDatabase &database, QStringList &keys, QString &error)
{
    keys.clear();
    return DatabaseLocator::isTripsDatabaseOpen(database, error)
           && readKeys(database, selectPayweeks + QString(selectCarryoverPayweeks), keys, error);
}

double loadPayweekApr(const QSqlDatabase &database, const PayweekKey &payweek)
{
    return database.isOpen() ? PayweekAprReader(database).load(payweek) : 0.0;
}

bool loadPayweek(const QSqlDatabase &database, const PayweekKey &key, Payweek &payweek,
                 Reading &reading, QString &error)
{
    payweek = {};
    PayweekFigures &figures = payweek.figures;
    figures.payweek = key;
    reading = Reading::Trips;
    if (!loadPayweekTrips(database, key, payweek.trips, figures.trips, error))
        return false;
    reading = Reading::Items;
    if (!loadPayweekSettlementItems(database, key, payweek.items, figures.items, error))
        return false;
    reading = Reading::EmergencyFund;
    if (!loadEmergencyFundSummary(database, key, figures.emergencyFund, error))
        return false;
    reading = Reading::TireFund;
    if (!loadTireFundSummary(database, key, figures.tireFund, error))
        return false;
    reading = Reading::PerformanceBond;
    if (!loadPerformanceBondSummary(database, key, figures.performanceBond, error))
        return false;
    reading = Reading::Fuel;
    if (!loadPayweekFuelAnalytics(database, key, figures.fuel, error))
        return false;
    figures.basic = CarryoverRules::basicSummary(figures.trips, figures.items);
    reading = Reading::Carryover;
    return loadPayweekCarryover(database, key, figures.basic, figures.emergencyFund,
                                figures.performanceBond, figures.carryover, error);
}

} // namespace PayweekRepository
