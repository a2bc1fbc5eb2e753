#include "data/DatabaseLocator.h"

#include "data/SqlStatement.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSqlError>

using namespace Qt::StringLiterals;

namespace DatabaseLocator {

namespace {

constexpr auto sqliteDriver = "QSQLITE"_L1;

bool isOpenSqlite(const QSqlDatabase &database)
{
    return database.isValid() && database.isOpen()
           && database.driverName().compare(sqliteDriver, Qt::CaseInsensitive) == 0;
}

// Qt lists connections as its hash has them, which is another way at every start. With files of the
// same name in use on several pages, the one of the Trips page is meant, then that of the others.
QStringList connectionNamesInOrder()
{
    QStringList ordered = {
        u"trips_connection"_s,
        u"settlement_trips_connection"_s,
        u"view_payweek_trips_connection"_s,
        u"pay_totals_trips_connection"_s,
        u"trips_page_locations_connection"_s,
        u"locations_connection"_s,
    };
    ordered.removeIf([](const QString &name) { return !QSqlDatabase::contains(name); });
    QStringList others = QSqlDatabase::connectionNames();
    others.removeIf([&ordered](const QString &name) { return ordered.contains(name); });
    others.sort();
    return ordered + others;
}

QList<QFileInfo> filesHeldOpen()
{
    QList<QFileInfo> files;
    for (const QString &name : connectionNamesInOrder()) {
        const QSqlDatabase database = QSqlDatabase::database(name, false);
        if (isOpenSqlite(database) && !database.databaseName().trimmed().isEmpty())
            files.append(QFileInfo(database.databaseName()));
    }
    return files;
}

QString pathHeldOpen(const QString &fileName)
{
    for (const QFileInfo &file : filesHeldOpen()) {
        if (file.fileName().compare(fileName, Qt::CaseInsensitive) == 0)
            return file.absoluteFilePath();
    }
    return {};
}

QString currentPath(const QString &fileName)
{
    const QString held = pathHeldOpen(fileName);
    return held.isEmpty() ? findDatabaseNearApplication(fileName) : held;
}

QSqlDatabase openForOneCall(const QString &connectionName, const QString &path,
                            const QString &notFound, QString &error)
{
    error.clear();
    if (path.trimmed().isEmpty()) {
        error = notFound;
        return {};
    }
    QSqlDatabase database;
    if (!openNamedConnection(database, connectionName, path, error))
        return {};
    return database;
}

} // namespace

QString findDatabaseNearApplication(const QString &fileName)
{
    const QString application = QCoreApplication::applicationDirPath();
    const QStringList folders = {QDir::currentPath(), application, application + "/.."_L1,
                                 application + "/../.."_L1, application + "/../../.."_L1};
    for (const QString &folder : folders) {
        const QFileInfo candidate(QDir(folder), fileName);
        if (candidate.exists())
            return candidate.absoluteFilePath();
    }
    return {};
}

QString findDatabaseOrDefaultPath(const QString &fileName)
{
    const QString found = findDatabaseNearApplication(fileName);
    return found.isEmpty() ? QDir(QCoreApplication::applicationDirPath()).absoluteFilePath(fileName)
                           : found;
}

QString currentTripsDatabasePath()
{
    return currentPath(tripsFileName);
}

QString currentLocationsDatabasePath()
{
    return currentPath(locationsFileName);
}

bool isSameFile(const QString &path, const QString &otherPath)
{
    if (path.isEmpty() || otherPath.isEmpty())
        return false;
    const QFileInfo file(path);
    const QFileInfo other(otherPath);
    return file.absoluteFilePath() == other.absoluteFilePath()
           || (file.exists() && file.canonicalFilePath() == other.canonicalFilePath());
}

QStringList databasesInUse()
{
    QStringList paths;
    for (const QFileInfo &file : filesHeldOpen())
        paths.append(file.absoluteFilePath());
    for (const QString &fileName : {tripsFileName, locationsFileName})
        paths.append(findDatabaseNearApplication(fileName));
    paths.removeAll(QString());
    paths.removeDuplicates();
    return paths;
}

bool openNamedConnection(QSqlDatabase &handle, const QString &connectionName, const QString &path,
                         QString &error)
{
    error.clear();
    if (path.trimmed().isEmpty()) {
        error = u"Database path is blank."_s;
        return false;
    }
    releaseNamedConnection(handle, connectionName);
    handle = QSqlDatabase::addDatabase(sqliteDriver, connectionName);
    handle.setDatabaseName(path);
    // To write, the driver would open a missing file by making an empty one.
    if (!QFileInfo::exists(path))
        handle.setConnectOptions(u"QSQLITE_OPEN_READONLY"_s);
    if (!handle.open()) {
        error = handle.lastError().text();
        return false;
    }
    return true;
}

void releaseNamedConnection(QSqlDatabase &handle, const QString &connectionName)
{
    if (handle.isValid() && handle.isOpen())
        handle.close();
    // A name can only be removed in peace once no copy of its connection is left.
    handle = QSqlDatabase();
    if (QSqlDatabase::contains(connectionName))
        QSqlDatabase::removeDatabase(connectionName);
}

void closeAllSqliteConnections()
{
    for (const QString &name : QSqlDatabase::connectionNames()) {
        QSqlDatabase database = QSqlDatabase::database(name, false);
        if (database.isOpen() && database.driverName() == sqliteDriver)
            database.close();
    }
}

bool isTripsDatabaseOpen(const QSqlDatabase &database, QString &error)
{
    error = database.isOpen() ? QString() : u"Trips database is not open."_s;
    return error.isEmpty();
}

QSqlDatabase openTripsDatabaseConnection(const QString &connectionName, QString &error)
{
    return openForOneCall(connectionName, currentTripsDatabasePath(),
                          u"trips.db is not open or could not be found."_s, error);
}

QSqlDatabase openLocationsDatabaseConnection(const QString &connectionName, QString &error)
{
    return openForOneCall(connectionName, currentLocationsDatabasePath(),
                          u"locations.db could not be found near the application."_s, error);
}

QSqlDatabase findTripsConnection()
{
    const QStringList registered = connectionNamesInOrder();
    const QStringList preferred = {u"trips_connection"_s, u"trips"_s, u"trips_db"_s,
                                   u"BrindlepathTrips"_s, u"qt_sql_default_connection"_s};
    for (const QString &name : preferred + registered) {
        if (!registered.contains(name))
            continue;
        QSqlDatabase database = QSqlDatabase::database(name, false);
        if (database.isValid() && database.isOpen())
            return database;
    }
    return {};
}

QString sanitizeSqlIdentifier(const QString &text)
{
    QString clean;
    const QList<uint> characters = text.toUcs4();
    for (const char32_t character : characters) {
        if (QChar::isLetter(character) || QChar::isDigit(character) || character == U'_')
            clean += QString::fromUcs4(&character, 1);
    }
    return clean;
}

bool tableExists(const QSqlDatabase &database, const QString &table)
{
    SqlStatement probe(database,
                       u"SELECT name FROM sqlite_master WHERE type = 'table' AND name = ?"_s);
    QVariant name;
    QString error;
    return probe.firstValue({table}, name, error) && name.isValid();
}

} // namespace DatabaseLocator
