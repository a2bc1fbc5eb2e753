#include "bench/SettlementFloors.h"

#include "bench/BareParts.h"

using namespace Qt::StringLiterals;
using namespace BareParts;

namespace {

constexpr auto tripPayweeks = R"(
SELECT DISTINCT TRIM(COALESCE(payweek,'')) AS pw FROM trips
WHERE TRIM(COALESCE(payweek,'')) <> '')"_L1;

constexpr auto itemPayweeks = R"(
SELECT DISTINCT TRIM(COALESCE(settlement_date,'')) AS pw FROM settlement_non_trip_items
WHERE TRIM(COALESCE(settlement_date,'')) <> '')"_L1;

constexpr auto itemNames = R"(
SELECT DISTINCT TRIM(COALESCE(settlement_date,'')), TRIM(COALESCE(name,''))
FROM settlement_non_trip_items WHERE TRIM(COALESCE(name,'')) <> ''
ORDER BY TRIM(COALESCE(name,'')) COLLATE NOCASE ASC)"_L1;

constexpr auto aprOfPayweek = R"(
SELECT CAST(COALESCE(apr,0) AS REAL) FROM settlement_meta
WHERE TRIM(COALESCE(settlement_date,'')) = ? LIMIT 1)"_L1;

constexpr auto itemsOfPayweek = R"(
SELECT id, settlement_date, kind, name, amount FROM settlement_non_trip_items
WHERE settlement_date = ? ORDER BY kind ASC, id ASC)"_L1;

constexpr auto allLocations = R"(
SELECT code, name, street, city, state, zip, lat, lon, notes FROM locations
ORDER BY code COLLATE NOCASE)"_L1;

} // namespace

namespace SettlementFloors {

void payweeks(const QSqlDatabase &trips)
{
    rowsOf(trips, tripPayweeks);
    rowsOf(trips, itemPayweeks);
}

void payweek(const QSqlDatabase &trips, const QString &payweek, QTableWidget &table)
{
    rowsOf(trips, itemNames);
    rowsOf(trips, aprOfPayweek, {payweek});
    fill(table, rowsOf(trips, itemsOfPayweek, {payweek}), 5);
}

void locations(const QSqlDatabase &database, QTableWidget &table)
{
    fill(table, rowsOf(database, allLocations), 9);
}

} // namespace SettlementFloors
