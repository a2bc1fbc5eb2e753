#pragma once

#include "support/TestConnection.h"
#include "support/Workspace.h"

/// A database of 2000 trips of the same number. It takes more than one page, but not many.
inline QString makeManyTrips(const Workspace &workspace, const QString &fileName,
                             const QString &number)
{
    const QString path = workspace.path(fileName);
    const TestConnection trips(path, QStringLiteral("many trips"));
    trips.execute(QStringLiteral(
        "CREATE TABLE trips (id INTEGER PRIMARY KEY, trip_no TEXT, created_at TEXT)"));
    trips.execute(
        QStringLiteral("INSERT INTO trips (trip_no) WITH RECURSIVE row (i) AS (SELECT 1 UNION ALL "
                       "SELECT i + 1 FROM row WHERE i < 2000) SELECT ? FROM row"),
        {number});
    return path;
}

/// What SQLite says of the file, and how many trips there are of which number: "ok: 2000 kept" if
/// all is as it should be.
inline QString tripsIn(const QString &path)
{
    const TestConnection trips(path, QStringLiteral("trips in a file"));
    return trips.value(QStringLiteral("PRAGMA integrity_check")).toString() + QStringLiteral(": ")
           + trips
                 .value(QStringLiteral(
                     "SELECT group_concat(trips, ', ') FROM (SELECT COUNT(*) || ' ' || trip_no AS "
                     "trips FROM trips GROUP BY trip_no)"))
                 .toString();
}

/// What an export works on: the database in use, with trips "kept", and an older copy.
struct ExportFiles
{
    Workspace workspace;
    QString source = makeManyTrips(workspace, QStringLiteral("trips.db"), QStringLiteral("kept"));
    QString target = makeManyTrips(workspace, QStringLiteral("copy.db"), QStringLiteral("old"));
};

/// What an import works on: a backup, with trips "imported", and the database in use.
struct ImportFiles
{
    Workspace workspace;
    QString source =
        makeManyTrips(workspace, QStringLiteral("july.db"), QStringLiteral("imported"));
    QString target = makeManyTrips(workspace, QStringLiteral("trips.db"), QStringLiteral("kept"));
};
