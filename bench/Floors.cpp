#include "bench/Floors.h"

#include "bench/BareParts.h"
#include "data/DatabaseLocator.h"
#include "data/SqlStatement.h"

using namespace Qt::StringLiterals;
using namespace BareParts;

namespace {

constexpr auto tripPayweeks = R"(
SELECT DISTINCT TRIM(COALESCE(payweek,'')) AS pw FROM trips
WHERE TRIM(COALESCE(payweek,'')) <> '' ORDER BY pw DESC)"_L1;

constexpr auto allTrips = R"(
SELECT id, trip_no, payweek, empty_miles, loaded_miles, total_miles, linehaul, fusu, carrier_pct,
       total_revenue, total_cost, net_revenue, cpm, trip_hours, net_per_hour
FROM trips ORDER BY id DESC)"_L1;

constexpr auto stopsOfTrip = R"(
SELECT stop_type, appt, COALESCE(has_appointment_window, 0), COALESCE(appt_latest, '')
FROM trip_stops WHERE trip_id = ? ORDER BY stop_order ASC, id ASC)"_L1;

constexpr auto allPayweeks = R"(
SELECT DISTINCT TRIM(COALESCE(payweek,'')) AS pw FROM trips
WHERE TRIM(COALESCE(payweek,'')) <> ''
UNION SELECT DISTINCT TRIM(COALESCE(settlement_date,'')) AS pw FROM settlement_non_trip_items
WHERE TRIM(COALESCE(settlement_date,'')) <> ''
UNION SELECT DISTINCT TRIM(COALESCE(settlement_date,'')) AS pw FROM settlement_meta
WHERE TRIM(COALESCE(settlement_date,'')) <> ''
ORDER BY pw ASC)"_L1;

constexpr auto tripsOfPayweek = R"(
SELECT id, trip_no, payweek, total_miles, total_revenue, total_cost, net_revenue, cpm, trip_hours,
       net_per_hour
FROM trips WHERE TRIM(COALESCE(payweek,'')) = ? ORDER BY id ASC)"_L1;

constexpr auto itemsOfPayweek = R"(
SELECT id, settlement_date, kind, name, amount FROM settlement_non_trip_items
WHERE TRIM(COALESCE(settlement_date,'')) = ? ORDER BY kind ASC, id ASC)"_L1;

constexpr auto fundRowsOfPayweek = R"(
SELECT kind, name, SUM(CAST(amount AS REAL)) AS total FROM settlement_non_trip_items
WHERE TRIM(COALESCE(settlement_date,'')) = ? GROUP BY kind, name)"_L1;

constexpr auto fundRowsThroughPayweek = R"(
SELECT kind, name, amount FROM settlement_non_trip_items
WHERE TRIM(COALESCE(settlement_date,'')) <> ''
  AND (? <= 0 OR CAST(substr(TRIM(settlement_date),7,4) AS INTEGER) = ?)
  AND date(substr(TRIM(settlement_date),7,4) || '-' || substr(TRIM(settlement_date),1,2)
           || '-' || substr(TRIM(settlement_date),4,2))
      <= date(substr(?,7,4) || '-' || substr(?,1,2) || '-' || substr(?,4,2)))"_L1;

constexpr auto fuelOfPayweek = R"(
SELECT tdi.item_type, SUM(CAST(COALESCE(tdi.cost, 0) AS REAL)) AS cost_total,
       SUM(CAST(COALESCE(tdi.discount, 0) AS REAL)) AS discount_total,
       SUM(CAST(COALESCE(tdi.gallons, 0) AS REAL)) AS gallons_total, COUNT(*) AS row_count
FROM trip_detail_items tdi JOIN trips t ON t.id = tdi.trip_id
WHERE TRIM(COALESCE(t.payweek,'')) = ?
  AND LOWER(TRIM(COALESCE(tdi.group_name,''))) = 'fuel'
GROUP BY TRIM(COALESCE(tdi.item_type,'')) ORDER BY tdi.item_type COLLATE NOCASE)"_L1;

constexpr auto aprOfPayweek = R"(
SELECT CAST(COALESCE(apr,0) AS REAL) FROM settlement_meta
WHERE TRIM(COALESCE(settlement_date,'')) = ? LIMIT 1)"_L1;

void readOnce(const QString &connection, const QString &file, const QStringList &statements)
{
    QSqlDatabase database;
    QString error;
    if (DatabaseLocator::openNamedConnection(database, connection, file, error)) {
        for (const QString &sql : statements)
            rowsOf(database, sql);
    }
    DatabaseLocator::releaseNamedConnection(database, connection);
}

} // namespace

namespace Floors {

void tripList(const QSqlDatabase &database, QTableWidget &table)
{
    rowsOf(database, tripPayweeks);
    const QList<QStringList> rows = rowsOf(database, allTrips);
    SqlStatement stops(database, stopsOfTrip);
    for (const QStringList &row : rows)
        readAll(stops, {row.constFirst()});
    fill(table, rows, 15);
}

void payweek(const QSqlDatabase &database, const QString &payweek, const QStringList &earlier)
{
    SqlStatement trips(database, tripsOfPayweek);
    SqlStatement items(database, itemsOfPayweek);
    SqlStatement fundRows(database, fundRowsOfPayweek);
    SqlStatement throughRows(database, fundRowsThroughPayweek);
    SqlStatement apr(database, aprOfPayweek);
    const auto readFunds = [&](const QString &week, int funds) {
        const int year = week.right(4).toInt();
        for (int fund = 0; fund < funds; ++fund) {
            readAll(fundRows, {week});
            readAll(throughRows, {year, year, week, week, week});
        }
    };
    readAll(trips, {payweek});
    readAll(items, {payweek});
    readFunds(payweek, 3);
    SqlStatement fuel(database, fuelOfPayweek);
    readAll(fuel, {payweek});
    rowsOf(database, allPayweeks);
    for (const QString &week : earlier) {
        readAll(trips, {week});
        readAll(items, {week});
        readFunds(week, 2);
        readAll(apr, {week});
    }
    readAll(apr, {payweek});
}

void startScreen()
{
    const QString probe =
        u"SELECT name FROM sqlite_master WHERE type = 'table' AND name = 'trips'"_s;
    const QString trips = DatabaseLocator::tripsFileName;
    readOnce(u"floor_count"_s, trips, {probe, u"SELECT COUNT(*) FROM trips"_s});
    readOnce(u"floor_locations"_s, DatabaseLocator::locationsFileName,
             {probe, u"SELECT COUNT(*) FROM locations"_s});
    readOnce(u"floor_payweek"_s, trips,
             {probe, u"SELECT payweek FROM trips WHERE TRIM(COALESCE(payweek,'')) <> '' "
                     "ORDER BY substr(payweek,7,4) || substr(payweek,1,2) || substr(payweek,4,2) "
                     "DESC, id DESC LIMIT 1"_s});
    readOnce(u"floor_activity"_s, trips,
             {probe, probe,
              u"SELECT trip_no FROM trips WHERE TRIM(COALESCE(trip_no,'')) <> '' "
              "ORDER BY id DESC LIMIT 1"_s});
}

} // namespace Floors
