#pragma once

#include "support/TestConnection.h"
#include "support/Workspace.h"

#include <QTest>

/// What the page says of one of the databases.
struct Words
{
    QString fileName;
    QString exportButton;
    QString suggestedName;
    QString noSource;
    QString exportFailed;
    QString exported;
    QString exportedText;
    QString importButton;
    QString confirmImport;
    QString confirmImportText;
    QString importFailed;
    QString imported;
    QString importedText;
};

inline const Words trips = {
    .fileName = QStringLiteral("trips.db"),
    .exportButton = QStringLiteral("Export Trips Database"),
    .suggestedName = QStringLiteral("trips_backup.db"),
    .noSource = QStringLiteral("trips.db is not open or could not be found."),
    .exportFailed = QStringLiteral("Export Trips Database Failed"),
    .exported = QStringLiteral("Trips Database Exported"),
    .exportedText = QStringLiteral("Trips database exported successfully.\n\n"),
    .importButton = QStringLiteral("Import Trips Database"),
    .confirmImport = QStringLiteral("Confirm Trips Database Import"),
    .confirmImportText = QStringLiteral(
        "Importing this file will replace the current trips.db used by the application.\n\nA "
        "safety backup of the existing database will be created before replacement.\n\nSource:\n"),
    .importFailed = QStringLiteral("Import Trips Database Failed"),
    .imported = QStringLiteral("Trips Database Imported"),
    .importedText =
        QStringLiteral("Trips database imported successfully. Restart the application before "
                       "continuing work."),
};

inline const Words locations = {
    .fileName = QStringLiteral("locations.db"),
    .exportButton = QStringLiteral("Export Locations Database"),
    .suggestedName = QStringLiteral("locations_backup.db"),
    .noSource = QStringLiteral("locations.db is not open or could not be found."),
    .exportFailed = QStringLiteral("Export Locations Database Failed"),
    .exported = QStringLiteral("Locations Database Exported"),
    .exportedText = QStringLiteral("Locations database exported successfully.\n\n"),
    .importButton = QStringLiteral("Import Locations Database"),
    .confirmImport = QStringLiteral("Confirm Locations Database Import"),
    .confirmImportText = QStringLiteral(
        "Importing this file will replace the current locations.db used by the application.\n\nA "
        "safety backup of the existing database will be created before replacement.\n\nSource:\n"),
    .importFailed = QStringLiteral("Import Locations Database Failed"),
    .imported = QStringLiteral("Locations Database Imported"),
    .importedText =
        QStringLiteral("Locations database imported successfully. Restart the application before "
                       "continuing work."),
};

Q_DECLARE_METATYPE(const Words *)

/// Rows for the one database and the other.
inline void addDatabases()
{
    QTest::addColumn<const Words *>("database");
    QTest::newRow("trips") << &trips;
    QTest::newRow("locations") << &locations;
}

/// The same, for a question that is declined in one way or the other.
inline void addDatabasesAndRefusals()
{
    QTest::addColumn<const Words *>("database");
    QTest::addColumn<bool>("dismissed");
    QTest::newRow("trips, no") << &trips << false;
    QTest::newRow("trips, closed") << &trips << true;
    QTest::newRow("locations, no") << &locations << false;
    QTest::newRow("locations, closed") << &locations << true;
}

/// The database of the row.
inline const Words &theDatabase()
{
    QFETCH(const Words *, database);
    return *database;
}

/// Both databases, with a trip and a location in them.
inline void makeDatabases(Workspace &workspace)
{
    workspace.makeTrips();
    workspace.execute(QStringLiteral("INSERT INTO trips (trip_no) VALUES ('4471203')"));
    const TestConnection places(workspace.makeLocations());
    places.execute(QStringLiteral("INSERT INTO locations (code) VALUES ('ALB1')"));
}

/// What the log says of exports and imports, the oldest first.
inline QList<QStringList> activity(const Workspace &workspace)
{
    return workspace.rows(QStringLiteral("SELECT import_mode, truck_number, pdf_name, source_hash "
                                         "FROM settlement_import_log ORDER BY id"));
}
