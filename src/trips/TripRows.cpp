#include "trips/TripRows.h"

using namespace Qt::StringLiterals;

namespace TripRows {

namespace {

constexpr auto selectStops = R"(
SELECT stop_type, location_code, appt, stop_order, COALESCE(has_appointment_window, 0),
       COALESCE(appt_latest, '')
FROM trip_stops
WHERE trip_id = ?
ORDER BY stop_order ASC, id ASC)"_L1;

constexpr auto selectItems = R"(
SELECT name, amount
FROM %1
WHERE trip_id = ?
ORDER BY id ASC)"_L1;

constexpr auto selectFuel = R"(
SELECT item_type, cost, discount, gallons
FROM trip_detail_items
WHERE trip_id = ? AND LOWER(COALESCE(group_name,'')) = 'fuel'
ORDER BY id ASC)"_L1;

constexpr auto deleteRows = R"(
DELETE FROM %1
WHERE trip_id = ?)"_L1;

// The table holds detail rows of other groups too, which are none of the fuel grid's business.
constexpr auto ofFuelOnly = " AND LOWER(COALESCE(group_name,'')) = 'fuel'"_L1;

constexpr auto insertStop = R"(
INSERT INTO trip_stops (
  trip_id, stop_type, location_code, appt, stop_order, has_appointment_window, appt_latest)
VALUES (?, ?, ?, ?, ?, ?, ?))"_L1;

constexpr auto insertItem = R"(
INSERT INTO %1 (trip_id, name, amount)
VALUES (?, ?, ?))"_L1;

constexpr auto insertFuel = R"(
INSERT INTO trip_detail_items (
  trip_id, group_name, item_type, cost, discount, gallons, created_at)
VALUES (?, 'fuel', ?, ?, ?, ?, datetime('now')))"_L1;

QString deleteSql(Table table)
{
    const QString sql = QString(deleteRows).arg(tableName(table));
    return table == Table::Fuel ? sql + ofFuelOnly : sql;
}

QString insertSql(Table table)
{
    switch (table) {
    case Table::Stops:
        return insertStop;
    case Table::Fuel:
        return insertFuel;
    case Table::PayItems:
    case Table::CostItems:
        break;
    }
    return QString(insertItem).arg(tableName(table));
}

StopRow stopFrom(const SqlStatement &row)
{
    return {row.text(0), row.text(1), row.text(2), row.text(3), row.integer(4) != 0, row.text(5)};
}

} // namespace

QString tableName(Table table)
{
    switch (table) {
    case Table::Stops:
        return u"trip_stops"_s;
    case Table::PayItems:
        return u"trip_pay_items"_s;
    case Table::CostItems:
        return u"trip_cost_items"_s;
    case Table::Fuel:
        break;
    }
    return u"trip_detail_items"_s;
}

bool loadStops(const QSqlDatabase &database, int tripId, QList<StopRow> &stops, QString &error)
{
    stops.clear();
    return SqlStatement(database, selectStops)
        .forEachRow({tripId}, error,
                    [&stops](const SqlStatement &row) { stops.append(stopFrom(row)); });
}

bool loadItems(const QSqlDatabase &database, Table table, int tripId, QList<ItemRow> &items,
               QString &error)
{
    items.clear();
    return SqlStatement(database, QString(selectItems).arg(tableName(table)))
        .forEachRow({tripId}, error, [&items](const SqlStatement &row) {
            items.append({row.text(0), row.number(1)});
        });
}

bool loadFuel(const QSqlDatabase &database, int tripId, QList<FuelRow> &rows, QString &error)
{
    rows.clear();
    return SqlStatement(database, selectFuel)
        .forEachRow({tripId}, error, [&rows](const SqlStatement &row) {
            rows.append({row.text(0), row.number(1), row.number(2), row.text(3)});
        });
}

Writer::Writer(const QSqlDatabase &connection, Table table, int id)
    : trip(connection, u"SELECT id FROM trips WHERE id = ?"_s)
    , deletion(connection, deleteSql(table))
    , insertion(connection, insertSql(table))
    , tripId(id)
{
}

bool Writer::deleteAll(QString &error)
{
    QVariant id;
    if (!trip.firstValue({tripId}, id, error))
        return false;
    if (!id.isValid()) {
        error = u"The trip is not in the file. It may have already been deleted."_s;
        return false;
    }
    return deletion.run({tripId}, error);
}

bool Writer::append(const StopRow &stop, QString &error)
{
    return insertion.run({tripId, stop.type, stop.locationCode, stop.appointment,
                          stop.order.toInt(), stop.hasWindow ? 1 : 0, stop.latest},
                         error);
}

bool Writer::append(const ItemRow &item, QString &error)
{
    return insertion.run({tripId, item.name, item.amount}, error);
}

bool Writer::append(const DomainRules::FuelRowValues &row, QString &error)
{
    return insertion.run({tripId, row.itemType, row.cost, row.discount, row.gallons}, error);
}

} // namespace TripRows
