#include "samples/SampleWriter.h"

#include "data/DatabaseLocator.h"
#include "data/SqlStatement.h"
#include "data/SqlTransaction.h"
#include "samples/SqlScript.h"

#include <QDir>
#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString insertLocation = uR"(
    INSERT INTO locations (code, name, street, city, state, zip, lat, lon, notes)
    VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?))"_s;

const QString insertTrip = uR"(
    INSERT INTO trips (trip_no, payweek, empty_miles, loaded_miles, total_miles, linehaul, fusu,
        carrier_pct, carrier_make, total_revenue, total_cost, net_revenue, cpm, trip_hours,
        net_per_hour, created_at)
    VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?))"_s;

const QString insertStop = uR"(
    INSERT INTO trip_stops (trip_id, stop_type, location_code, appt, stop_order,
        has_appointment_window, appt_latest)
    VALUES (?, ?, ?, ?, ?, ?, ?))"_s;

const QString insertItem = u"INSERT INTO %1 (trip_id, name, amount) VALUES (?, ?, ?)"_s;

const QString insertFuel = uR"(
    INSERT INTO trip_detail_items (trip_id, group_name, item_type, cost, discount, gallons,
        created_at)
    VALUES (?, 'fuel', ?, ?, ?, ?, ?))"_s;

const QString insertSettlementItem = uR"(
    INSERT INTO settlement_non_trip_items (settlement_date, kind, name, amount)
    VALUES (?, ?, ?, ?))"_s;

const QString insertApr = u"INSERT INTO settlement_meta (settlement_date, apr) VALUES (?, ?)"_s;

QString payweekText(const QDate &payweek)
{
    return payweek.toString(u"MM/dd/yyyy"_s);
}

// Without the "Z" that Qt::ISODate puts behind a time in UTC: stops are in the local time of the
// dock.
QString appointmentText(const QDateTime &time)
{
    return time.isValid() ? time.toString(u"yyyy-MM-dd'T'HH:mm:ss"_s) : u""_s;
}

// The driver enters the week on the Tuesday evening before the settlement; the files keep UTC.
QString createdAt(const QDate &payweek)
{
    return payweek.addDays(-2).toString(u"yyyy-MM-dd"_s) + " 01:30:00"_L1;
}

template <typename Rows, typename Write>
bool writeAll(const Rows &rows, Write write)
{
    return std::all_of(rows.cbegin(), rows.cend(), write);
}

class TripsWriter
{
public:
    TripsWriter(const QSqlDatabase &database, QString &errorText)
        : error(errorText)
        , trip(database, insertTrip)
        , stop(database, insertStop)
        , payItem(database, insertItem.arg("trip_pay_items"_L1))
        , costItem(database, insertItem.arg("trip_cost_items"_L1))
        , fuel(database, insertFuel)
        , settlementItem(database, insertSettlementItem)
        , apr(database, insertApr)
    {
    }

    bool writeWeek(const SampleWeek &week)
    {
        payweek = payweekText(week.payweek);
        created = createdAt(week.payweek);
        return writeAll(week.trips, [this](const SampleTrip &row) { return writeTrip(row); })
               && writeAll(
                   week.items,
                   [this](const SampleSettlementItem &row) {
                       return settlementItem.run({payweek, row.kind, row.name, row.amount}, error);
                   })
               && (!week.apr || apr.run({payweek, *week.apr}, error));
    }

private:
    bool writeTrip(const SampleTrip &row)
    {
        const QVariantList values = {
            row.number,
            payweek,
            row.emptyMiles,
            row.loadedMiles,
            row.totals.totalMiles,
            row.linehaul,
            row.fuelSurcharge,
            row.carrierPercent,
            row.totals.carrierMake,
            row.totals.totalRevenue,
            row.totals.totalCost,
            row.totals.netRevenue,
            row.totals.cpm,
            row.hours.hours,
            row.hours.netPerHour,
            created,
        };
        if (!trip.run(values, error))
            return false;
        const QVariant id = trip.lastInsertId();
        return writeStops(row.stops, id) && writeItems(payItem, row.payItems, id)
               && writeItems(costItem, row.costItems, id) && writeFuel(row.fuel, id);
    }

    bool writeStops(const QList<SampleStop> &stops, const QVariant &tripId)
    {
        int order = 0;
        return writeAll(stops, [&](const SampleStop &row) {
            return stop.run({tripId, row.type, row.locationCode, appointmentText(row.appointment),
                             order++, row.latest.isValid() ? 1 : 0, appointmentText(row.latest)},
                            error);
        });
    }

    bool writeItems(SqlStatement &statement, const QList<SampleItem> &items, const QVariant &tripId)
    {
        return writeAll(items, [&](const SampleItem &row) {
            return statement.run({tripId, row.name, row.amount}, error);
        });
    }

    bool writeFuel(const QList<DomainRules::FuelRowValues> &purchases, const QVariant &tripId)
    {
        return writeAll(purchases, [&](const DomainRules::FuelRowValues &row) {
            return fuel.run({tripId, row.itemType, row.cost, row.discount, row.gallons, created},
                            error);
        });
    }

    QString &error;
    SqlStatement trip;
    SqlStatement stop;
    SqlStatement payItem;
    SqlStatement costItem;
    SqlStatement fuel;
    SqlStatement settlementItem;
    SqlStatement apr;
    QString payweek;
    QString created;
};

bool writeTrips(const QSqlDatabase &database, const SampleBusiness &business, QString &error)
{
    TripsWriter writer(database, error);
    return writeAll(business.weeks,
                    [&writer](const SampleWeek &week) { return writer.writeWeek(week); });
}

bool writeLocations(const QSqlDatabase &database, const SampleBusiness &business, QString &error)
{
    SqlStatement insert(database, insertLocation);
    return writeAll(business.locations, [&](const SampleLocation &row) {
        return insert.run({row.code, row.name, row.street, row.city, row.state, row.zip,
                           row.latitude, row.longitude, row.notes},
                          error);
    });
}

using WriteRows = bool (*)(const QSqlDatabase &, const SampleBusiness &, QString &);

bool fillDatabase(const QString &path, const SampleBusiness &business, WriteRows writeRows,
                  QString &error)
{
    const QString connection = u"sample_writer"_s;
    QSqlDatabase database;
    bool ok = DatabaseLocator::openNamedConnection(database, connection, path, error);
    if (ok) {
        SqlTransaction transaction(database);
        ok = transaction.begin(error) && writeRows(database, business, error)
             && transaction.commit(error);
    }
    DatabaseLocator::releaseNamedConnection(database, connection);
    return ok;
}

bool makeDatabase(const QString &path, const QString &schema, const SampleBusiness &business,
                  WriteRows writeRows, QString &error)
{
    const QString script = QStringLiteral(BRINDLEPATH_SCHEMA_DIR) + u'/' + schema;
    return runSqlScript(script, path, error) && fillDatabase(path, business, writeRows, error);
}

} // namespace

bool writeSampleFiles(const QString &folder, const SampleBusiness &business, QString &error)
{
    const QString trips = QDir(folder).filePath(DatabaseLocator::tripsFileName);
    const QString locations = QDir(folder).filePath(DatabaseLocator::locationsFileName);
    for (const QString &path : {trips, locations}) {
        if (QFile::exists(path)) {
            error = path + " is there already and is not overwritten."_L1;
            return false;
        }
    }
    if (!QDir().mkpath(folder)) {
        error = folder + " could not be made."_L1;
        return false;
    }
    const bool ok = makeDatabase(trips, u"trips.sql"_s, business, writeTrips, error)
                    && makeDatabase(locations, u"locations.sql"_s, business, writeLocations, error);
    if (!ok) {
        QFile::remove(trips);
        QFile::remove(locations);
    }
    return ok;
}
