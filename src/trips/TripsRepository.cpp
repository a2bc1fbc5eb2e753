#include "trips/TripsRepository.h"

#include "data/DatabaseLocator.h"

#include <array>

using namespace Qt::StringLiterals;

namespace TripsRepository {

namespace {

// SQLite keeps this text in the file as it stands here, so it has no line breaks.
constexpr auto createTripDetailItems =
    "CREATE TABLE IF NOT EXISTS trip_detail_items (id INTEGER PRIMARY KEY AUTOINCREMENT, "
    "trip_id INTEGER NOT NULL, group_name TEXT NOT NULL DEFAULT '', "
    "item_type TEXT NOT NULL DEFAULT '', cost REAL NOT NULL DEFAULT 0, "
    "discount REAL NOT NULL DEFAULT 0, gallons REAL NOT NULL DEFAULT 0, "
    "created_at TEXT NOT NULL DEFAULT '', FOREIGN KEY(trip_id) REFERENCES trips(id))"_L1;

constexpr auto selectPayweeks = R"(
SELECT DISTINCT TRIM(COALESCE(payweek,'')) AS pw
FROM trips
WHERE TRIM(COALESCE(payweek,'')) <> ''
ORDER BY pw DESC)"_L1;

constexpr auto selectTrips = R"(
SELECT id, trip_no, payweek, empty_miles, loaded_miles, total_miles, linehaul, fusu, carrier_pct,
       total_revenue, total_cost, net_revenue, cpm, trip_hours, net_per_hour
FROM trips%1
ORDER BY id DESC)"_L1;

constexpr auto ofPayweek = R"(
WHERE TRIM(COALESCE(payweek,'')) = ?)"_L1;

constexpr auto selectItemNames = R"(
SELECT DISTINCT TRIM(COALESCE(name,'')) AS item_name
FROM %1
WHERE TRIM(COALESCE(name,'')) <> ''
ORDER BY item_name COLLATE NOCASE ASC)"_L1;

constexpr auto selectStopTimings = R"(
SELECT stop_type, appt, COALESCE(has_appointment_window, 0), COALESCE(appt_latest, '')
FROM trip_stops
WHERE trip_id = ?
ORDER BY stop_order ASC, id ASC)"_L1;

constexpr auto insertTripSql = R"(
INSERT INTO trips (
  trip_no, payweek, empty_miles, loaded_miles, total_miles, linehaul, fusu, carrier_pct,
  carrier_make, total_revenue, total_cost, net_revenue, cpm, trip_hours, net_per_hour, created_at)
VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, datetime('now')))"_L1;

constexpr auto updateTripSql = R"(
UPDATE trips
SET trip_no = ?, payweek = ?, empty_miles = ?, loaded_miles = ?, total_miles = ?, linehaul = ?,
    fusu = ?, carrier_pct = ?, carrier_make = ?, total_revenue = ?, total_cost = ?,
    net_revenue = ?, cpm = ?, trip_hours = ?, net_per_hour = ?
WHERE id = ?)"_L1;

struct DeleteStep
{
    QLatin1StringView sql;
    QLatin1StringView failure;
    bool mustFindARow = false;
};

// No pragma turns foreign keys on, so the rows of a trip are deleted by hand, children first.
constexpr std::array deleteSteps = {
    DeleteStep{"DELETE FROM trip_stops WHERE trip_id = ?"_L1, "Could not delete stops"_L1},
    DeleteStep{"DELETE FROM trip_pay_items WHERE trip_id = ?"_L1, "Could not delete pay items"_L1},
    DeleteStep{"DELETE FROM trip_cost_items WHERE trip_id = ?"_L1,
               "Could not delete cost items"_L1},
    DeleteStep{"DELETE FROM trip_trailers WHERE trip_id = ?"_L1, "Could not delete trailers"_L1},
    DeleteStep{"DELETE FROM trip_detail_items "
               "WHERE trip_id = ? AND LOWER(COALESCE(group_name,'')) = 'fuel'"_L1,
               "Could not delete fuel/detail rows"_L1},
    DeleteStep{"DELETE FROM trips WHERE id = ?"_L1, "Could not delete trip"_L1, true},
};

// Only these names are ever set into a statement as text.
bool isItemTable(const QString &table)
{
    return table == "trip_pay_items"_L1 || table == "trip_cost_items"_L1;
}

bool readTexts(const QSqlDatabase &database, const QString &sql, QStringList &texts, QString &error)
{
    return SqlStatement(database, sql).forEachRow({}, error, [&texts](const SqlStatement &row) {
        const QString text = row.text(0).trimmed();
        if (!text.isEmpty())
            texts.append(text);
    });
}

QVariantList boundValues(const TripRecord &trip)
{
    return {trip.tripNo,
            trip.payweek,
            trip.emptyMiles,
            trip.loadedMiles,
            trip.totals.totalMiles,
            trip.linehaul,
            trip.fusu,
            trip.carrierPercent,
            trip.totals.carrierMake,
            trip.totals.totalRevenue,
            trip.totals.totalCost,
            trip.totals.netRevenue,
            trip.totals.cpm,
            trip.hours.hours,
            trip.hours.netPerHour};
}

} // namespace

bool columnExists(const QSqlDatabase &database, const QString &table, const QString &column,
                  QString &error)
{
    bool found = false;
    SqlStatement info(database, "PRAGMA table_info("_L1 + table + u')');
    const bool ran = info.forEachRow({}, error, [&](const SqlStatement &row) {
        found = found || row.text(1).compare(column, Qt::CaseInsensitive) == 0;
    });
    return ran && found;
}

bool ensureColumn(const QSqlDatabase &database, const QString &table, const QString &column,
                  const QString &definition, QString &error)
{
    if (columnExists(database, table, column, error) || !error.isEmpty())
        return error.isEmpty();
    return runSql(database, u"ALTER TABLE %1 ADD COLUMN %2 %3"_s.arg(table, column, definition), {},
                  error);
}

bool ensureTripDetailItems(const QSqlDatabase &database, QString &error)
{
    return runSql(database, createTripDetailItems, {}, error);
}

bool ensureStopWindowColumns(const QSqlDatabase &database, QString &error)
{
    const QString stops = u"trip_stops"_s;
    return ensureColumn(database, stops, u"has_appointment_window"_s,
                        u"INTEGER NOT NULL DEFAULT 0"_s, error)
           && ensureColumn(database, stops, u"appt_latest"_s, u"TEXT NOT NULL DEFAULT ''"_s, error);
}

bool listTripPayweeks(const QSqlDatabase &database, QStringList &payweeks, QString &error)
{
    payweeks.clear();
    return DatabaseLocator::isTripsDatabaseOpen(database, error)
           && readTexts(database, selectPayweeks, payweeks, error);
}

bool loadTrips(const QSqlDatabase &database, const QString &payweekFilter, QList<QStringList> &rows,
               QString &error, const std::function<void(QStringList &row)> &complete)
{
    rows.clear();
    if (!DatabaseLocator::isTripsDatabaseOpen(database, error))
        return false;
    const QString payweek = payweekFilter.trimmed();
    const bool all = payweek.isEmpty() || payweekFilter == "All Payweeks"_L1;
    const QString sql = QString(selectTrips).arg(all ? QString() : QString(ofPayweek));
    return SqlStatement(database, sql)
        .forEachRow(all ? QVariantList() : QVariantList{payweek}, error,
                    [&rows, &complete](const SqlStatement &row) {
                        rows.append(row.texts());
                        if (complete)
                            complete(rows.last());
                    });
}

bool listItemNames(const QSqlDatabase &database, const QString &table, QStringList &names,
                   QString &error)
{
    names.clear();
    if (!DatabaseLocator::isTripsDatabaseOpen(database, error))
        return false;
    if (!isItemTable(table)) {
        error = u"Unsupported item history table."_s;
        return false;
    }
    return readTexts(database, QString(selectItemNames).arg(table), names, error);
}

StopTimings::StopTimings(const QSqlDatabase &database)
    : statement(database, selectStopTimings)
{
}

QList<TripArithmetic::TripStopTiming> StopTimings::ofTrip(int tripId)
{
    QList<TripArithmetic::TripStopTiming> stops;
    QString error;
    if (tripId > 0)
        statement.forEachRow({tripId}, error, [&stops](const SqlStatement &row) {
            stops.append(TripArithmetic::stopTiming(row.text(0), row.text(1), row.integer(2) != 0,
                                                    row.text(3)));
        });
    return stops;
}

bool insertTrip(const QSqlDatabase &database, const TripRecord &trip, int &id, QString &error)
{
    SqlStatement insert(database, insertTripSql);
    if (!insert.run(boundValues(trip), error))
        return false;
    id = insert.lastInsertId().toInt();
    return true;
}

bool updateTrip(const QSqlDatabase &database, const TripRecord &trip, QString &error)
{
    SqlStatement update(database, updateTripSql);
    if (!update.run(boundValues(trip) << trip.id, error))
        return false;
    if (update.rowsAffected() < 1)
        error = u"No trip was updated. It may have already been deleted."_s;
    return error.isEmpty();
}

bool deleteTripRows(const QSqlDatabase &database, int tripId, QString &error)
{
    for (const DeleteStep &step : deleteSteps) {
        SqlStatement deletion(database, step.sql);
        if (deletion.run({tripId}, error) && step.mustFindARow && deletion.rowsAffected() < 1)
            error = u"No trip was deleted. It may have already been deleted."_s;
        if (!error.isEmpty()) {
            error = step.failure + ":\n"_L1 + error;
            return false;
        }
    }
    return true;
}

} // namespace TripsRepository
