#include "app/DashboardStats.h"

#include "data/DatabaseLocator.h"
#include "data/OneCallConnection.h"
#include "data/SqlStatement.h"

using namespace Qt::StringLiterals;

namespace DashboardStats {

namespace {

constexpr auto countRows = "SELECT COUNT(*) FROM %1"_L1;

// Ordered by the column as it is stored, so a leading space moves a week too.
constexpr auto selectLatestPayweek = R"(
SELECT payweek
FROM trips
WHERE TRIM(COALESCE(payweek,'')) <> ''
ORDER BY substr(payweek,7,4) || substr(payweek,1,2) || substr(payweek,4,2) DESC, id DESC
LIMIT 1)"_L1;

constexpr auto selectLatestTrip = R"(
SELECT trip_no
FROM trips
WHERE TRIM(COALESCE(trip_no,'')) <> ''
ORDER BY id DESC
LIMIT 1)"_L1;

// Invalid where the file, the table or a row is missing, and where the statement fails.
QVariant firstValue(const OneCallConnection &connection, const QString &table, const QString &sql)
{
    QVariant value;
    QString error;
    if (DatabaseLocator::tableExists(connection.database(), table))
        SqlStatement(connection.database(), sql).firstValue({}, value, error);
    return value;
}

int rowCount(const OneCallConnection &connection, const QString &table)
{
    const QVariant count = firstValue(connection, table, QString(countRows).arg(table));
    return count.isValid() ? count.toInt() : unknownCount;
}

} // namespace

int countTableRows(const QString &tableName)
{
    const QString table = DatabaseLocator::sanitizeSqlIdentifier(tableName);
    if (table.isEmpty())
        return unknownCount;
    QString error;
    const OneCallConnection connection(u"dashboard_count_"_s + table,
                                       DatabaseLocator::openTripsDatabaseConnection, error);
    return rowCount(connection, table);
}

int countLocations()
{
    QString error;
    const OneCallConnection connection(u"dashboard_locations_count"_s,
                                       DatabaseLocator::openLocationsDatabaseConnection, error);
    return rowCount(connection, u"locations"_s);
}

QString currentPayweek()
{
    QString error;
    const OneCallConnection connection(u"dashboard_current_payweek"_s,
                                       DatabaseLocator::openTripsDatabaseConnection, error);
    return firstValue(connection, u"trips"_s, selectLatestPayweek).toString().trimmed();
}

QStringList recentActivity()
{
    QString error;
    const OneCallConnection connection(u"dashboard_recent_activity"_s,
                                       DatabaseLocator::openTripsDatabaseConnection, error);
    QStringList activity;
    // The table of older files; the import log of today has another name and is not counted.
    const int imports = rowCount(connection, u"import_history"_s);
    if (imports > 0)
        activity.append(u"Import history contains %1 records"_s.arg(imports));
    const QString tripNo =
        firstValue(connection, u"trips"_s, selectLatestTrip).toString().trimmed();
    if (!tripNo.isEmpty())
        activity.append(u"Latest trip: "_s + tripNo);
    return activity;
}

} // namespace DashboardStats
