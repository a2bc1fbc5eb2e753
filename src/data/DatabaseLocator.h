#pragma once

#include <QSqlDatabase>
#include <QString>
#include <QStringList>

/// Finds the two database files near the application, and opens and releases the named
/// connections to them. A page keeps one handle under one fixed name; everything else uses an
/// OneCallConnection. Nothing here creates a file, and no pragma is ever set.
namespace DatabaseLocator {

inline const QString tripsFileName = QStringLiteral("trips.db");
inline const QString locationsFileName = QStringLiteral("locations.db");

/// The absolute path of `fileName` in the first of these folders that has it: the working
/// directory, the application's directory, and one, two and three levels above that. A directory
/// of that name counts as found. Empty if none has it.
QString findDatabaseNearApplication(const QString &fileName);

/// The same, or, if nothing was found, `fileName` in the application's directory.
QString findDatabaseOrDefaultPath(const QString &fileName);

/// The path of the trips file in use: the one that some connection holds open, wherever it lies,
/// or else the one found near the application. Of several held open it is the Trips page's, then
/// that of the other pages in their order, then any other by name. Empty if there is none.
QString currentTripsDatabasePath();

/// The same for the locations file.
QString currentLocationsDatabasePath();

/// Whether two paths lead to the same file, there or not. An empty path leads to none.
bool isSameFile(const QString &path, const QString &otherPath);

/// The absolute paths of all files that connections hold open, and of the two that the program
/// finds near the application.
QStringList databasesInUse();

/// Opens `path` under `connectionName`; whatever `handle` and that name held is closed first.
/// On failure returns false with the driver's text, or "Database path is blank.", in `error`.
/// After a driver's failure the name stays registered and closed, and the next open replaces it.
/// A missing file is such a failure; it is never made.
bool openNamedConnection(QSqlDatabase &handle, const QString &connectionName, const QString &path,
                         QString &error);

/// Closes `handle`, empties it and unregisters `connectionName`.
void releaseNamedConnection(QSqlDatabase &handle, const QString &connectionName);

/// Closes every open SQLite connection of the process. Names stay registered, and the handles
/// that pages hold read as closed.
void closeAllSqliteConnections();

/// Whether the connection that a page lends to a repository is open; if not, `error` says
/// "Trips database is not open.", else it is cleared.
bool isTripsDatabaseOpen(const QSqlDatabase &database, QString &error);

/// Opens a new connection to currentTripsDatabasePath(), replacing `connectionName` if it is
/// registered. Gives an invalid handle, with the reason in `error`, if there is no such file or
/// it does not open.
QSqlDatabase openTripsDatabaseConnection(const QString &connectionName, QString &error);

/// The same on currentLocationsDatabasePath().
QSqlDatabase openLocationsDatabaseConnection(const QString &connectionName, QString &error);

/// The connection that reports borrow: the first open one among the names that a trips file goes
/// by, or else the first open one of all, the pages' before others, whatever file it is on. Invalid
/// if none is open.
QSqlDatabase findTripsConnection();

/// Keeps only letters and digits (in Unicode's sense) and underscores, in order.
QString sanitizeSqlIdentifier(const QString &text);

/// Whether the file has the table. A failed probe counts as absent.
bool tableExists(const QSqlDatabase &database, const QString &table);

} // namespace DatabaseLocator
