#pragma once

#include "data/SqlStatement.h"
#include "trips/TripArithmetic.h"

#include <QSqlDatabase>
#include <QString>
#include <QStringList>

#include <functional>

/// The SQL of trips, on the connection that the Trips page holds open. Results are cleared first;
/// on failure a function returns false with the driver's text in `error`, or with
/// "Trips database is not open.".
namespace TripsRepository {

/// One trip as the form saves it. Miles, dollars, percent, cents per mile, hours.
struct TripRecord
{
    int id = 0;
    QString tripNo;
    QString payweek;
    double emptyMiles = 0.0;
    double loadedMiles = 0.0;
    double linehaul = 0.0;
    double fusu = 0.0;
    double carrierPercent = 0.0;
    TripArithmetic::TripTotals totals;
    TripArithmetic::TripHoursResult hours;
};

/// Whether the table has the column, in any case. A failed statement gives false and fills
/// `error`; a missing column leaves it empty.
bool columnExists(const QSqlDatabase &database, const QString &table, const QString &column,
                  QString &error);

/// Adds the column if the table lacks it. A column that is there already is success.
bool ensureColumn(const QSqlDatabase &database, const QString &table, const QString &column,
                  const QString &definition, QString &error);

/// Makes the table of fuel rows if the file has none.
bool ensureTripDetailItems(const QSqlDatabase &database, QString &error);

/// Adds the two columns of appointment windows to a file from before windows.
bool ensureStopWindowColumns(const QSqlDatabase &database, QString &error);

/// The payweeks that have a trip, in descending text order: month first, not by date.
bool listTripPayweeks(const QSqlDatabase &database, QStringList &payweeks, QString &error);

/// The trips of a payweek, or all for a blank filter and for "All Payweeks", the newest first.
/// A row has the texts of the TripColumn columns as stored. Each row is passed to `complete`, if
/// there is one, while the trips are still being read: statements that it runs then find the file
/// locked already, which spares SQLite half of its work.
bool loadTrips(const QSqlDatabase &database, const QString &payweekFilter, QList<QStringList> &rows,
               QString &error, const std::function<void(QStringList &row)> &complete = {});

/// Every name ever used in `trip_pay_items` or `trip_cost_items`; another table is refused.
bool listItemNames(const QSqlDatabase &database, const QString &table, QStringList &names,
                   QString &error);

/// Reads the stops of one trip after another with one prepared statement.
class StopTimings
{
public:
    explicit StopTimings(const QSqlDatabase &database);
    /// The stops in their order; none for a new trip (id below 1) or if the statement fails.
    QList<TripArithmetic::TripStopTiming> ofTrip(int tripId);

private:
    SqlStatement statement;
};

/// Inserts the trip and gives its new id.
bool insertTrip(const QSqlDatabase &database, const TripRecord &trip, int &id, QString &error);

/// Rewrites the row of `trip.id`. A trip that is not in the file is a failure.
bool updateTrip(const QSqlDatabase &database, const TripRecord &trip, QString &error);

/// Deletes the trip and the rows that hang on it, table after table; the first failure ends it and
/// names its table. A trip that is not in the file is a failure. The caller holds the transaction.
/// Rows of trip_detail_items in other groups than fuel stay.
bool deleteTripRows(const QSqlDatabase &database, int tripId, QString &error);

} // namespace TripsRepository
