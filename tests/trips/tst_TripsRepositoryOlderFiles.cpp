#include "support/RowMakers.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "trips/TripsRepository.h"
#include "trips/TripsRows.h"

#include <QTest>

#include <utility>

using namespace Qt::StringLiterals;
using namespace TripsRepository;

/// What an older file gets: the table and the columns that it lacks.
class tst_TripsRepositoryOlderFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void columnIsFoundInAnyCase_data()
    {
        QTest::addColumn<QString>("table");
        QTest::addColumn<QString>("column");
        QTest::addColumn<bool>("exists");
        QTest::newRow("as it is spelled") << u"trip_stops"_s << u"appt_latest"_s << true;
        QTest::newRow("in another case") << u"Trip_Stops"_s << u"APPT_Latest"_s << true;
        QTest::newRow("first column") << u"trip_stops"_s << u"id"_s << true;
        QTest::newRow("part of a name") << u"trip_stops"_s << u"appt_late"_s << false;
        QTest::newRow("blank behind") << u"trip_stops"_s << u"appt "_s << false;
        QTest::newRow("missing column") << u"trip_stops"_s << u"gate"_s << false;
        QTest::newRow("missing table") << u"trip_gates"_s << u"id"_s << false;
    }

    void columnIsFoundInAnyCase()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        QFETCH(const QString, table);
        QFETCH(const QString, column);
        QString error = staleError;
        QTEST(columnExists(trips.database(), table, column, error), "exists");
        QCOMPARE(error, u""_s);
    }

    void failedStatementIsToldApartFromAMissingColumn()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        QString error;
        QVERIFY(!columnExists(trips.database(), u"trip stops"_s, u"id"_s, error));
        QCOMPARE(error, u"near \"stops\": syntax error Unable to execute statement"_s);
    }

    void missingColumnIsAdded()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        stop(1).insert(workspace);
        QString error = staleError;
        QVERIFY(ensureColumn(trips.database(), u"trip_stops"_s, u"gate"_s,
                             u"TEXT NOT NULL DEFAULT 'north'"_s, error));
        QCOMPARE(error, u""_s);
        QCOMPARE(workspace.value(u"SELECT gate FROM trip_stops"_s).toString(), u"north"_s);
    }

    void columnInAnotherCaseIsNotAddedAgain()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        const QByteArray before = workspace.bytes(u"trips.db"_s);
        QString error = staleError;
        QVERIFY(
            ensureColumn(trips.database(), u"trip_stops"_s, u"APPT_LATEST"_s, u"TEXT"_s, error));
        QCOMPARE(error, u""_s);
        QCOMPARE(workspace.bytes(u"trips.db"_s), before);
    }

    void columnThatCannotBeAddedTellsWhy()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        QString error;
        QVERIFY(!ensureColumn(trips.database(), u"trip_gates"_s, u"gate"_s, u"TEXT"_s, error));
        QCOMPARE(error, u"no such table: trip_gates Unable to execute statement"_s);
    }

    void nothingIsAddedWhereTheColumnsCannotBeRead()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        const QByteArray before = workspace.bytes(u"trips.db"_s);
        QString error;
        QVERIFY(!ensureColumn(trips.database(), u"trip stops"_s, u"gate"_s, u"TEXT"_s, error));
        QCOMPARE(error, u"near \"stops\": syntax error Unable to execute statement"_s);
        QCOMPARE(workspace.bytes(u"trips.db"_s), before);
    }

    void oldFileGetsTheTableOfFuelRows()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        workspace.execute(u"DROP TABLE trip_detail_items"_s);
        QString error = staleError;
        QVERIFY(ensureTripDetailItems(trips.database(), error));
        QCOMPARE(error, u""_s);
        workspace.execute(u"INSERT INTO trip_detail_items (trip_id) VALUES (7)"_s);
        QCOMPARE(
            workspace.rows(u"SELECT * FROM trip_detail_items"_s),
            QList<QStringList>({{u"1"_s, u"7"_s, u""_s, u""_s, u"0"_s, u"0"_s, u"0"_s, u""_s}}));
        QCOMPARE(workspace.rows(u"SELECT \"table\", \"from\", \"to\" "
                                "FROM pragma_foreign_key_list('trip_detail_items')"_s),
                 QList<QStringList>({{u"trips"_s, u"trip_id"_s, u"id"_s}}));
    }

    void fuelRowsThatAreThereStay()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        fuel(7, u"Truck Fuel"_s, 100.0, 10.0, 30.0).insert(workspace);
        QString error;
        QVERIFY(ensureTripDetailItems(trips.database(), error));
        QCOMPARE(workspace.value(u"SELECT COUNT(*) FROM trip_detail_items"_s).toInt(), 1);
    }

    void nameTakenByAnIndexLeavesNoTableOfFuelRows()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        workspace.execute(u"DROP TABLE trip_detail_items"_s);
        workspace.execute(u"CREATE INDEX trip_detail_items ON trips(cpm)"_s);
        QString error;
        QVERIFY(!ensureTripDetailItems(trips.database(), error));
        QCOMPARE(
            error,
            u"there is already an index named trip_detail_items Unable to execute statement"_s);
    }

    void stopsFromBeforeWindowsReadAsWithoutOne()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        makeStopsFromBeforeWindows(workspace);
        QString error = staleError;
        QVERIFY(ensureStopWindowColumns(trips.database(), error));
        QCOMPARE(error, u""_s);
        QCOMPARE(workspace.rows(u"SELECT appt, has_appointment_window, appt_latest "
                                "FROM trip_stops"_s),
                 QList<QStringList>({{u"2026-04-17T08:00:00"_s, u"0"_s, u""_s},
                                     {u"2026-04-17T18:00:00"_s, u"0"_s, u""_s}}));
    }

    void oneMissingWindowColumnIsAddedAlone()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        workspace.execute(u"ALTER TABLE trip_stops DROP COLUMN appt_latest"_s);
        stop(1).set(u"has_appointment_window"_s, 1).insert(workspace);
        QString error;
        QVERIFY(ensureStopWindowColumns(trips.database(), error));
        QCOMPARE(workspace.rows(u"SELECT has_appointment_window, appt_latest FROM trip_stops"_s),
                 QList<QStringList>({{u"1"_s, u""_s}}));
    }

    void fileWithoutStopsGetsNoWindowColumns()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        workspace.execute(u"DROP TABLE trip_stops"_s);
        QString error;
        QVERIFY(!ensureStopWindowColumns(trips.database(), error));
        QCOMPARE(error, u"no such table: trip_stops Unable to execute statement"_s);
    }

    // SQLite does not list a generated column, but refuses another of its name.
    void secondWindowColumnWaitsForTheFirst()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        workspace.execute(u"DROP TABLE trip_stops"_s);
        workspace.execute(u"CREATE TABLE trip_stops (id INTEGER PRIMARY KEY, trip_id INTEGER, "
                          "has_appointment_window INTEGER AS (0) VIRTUAL)"_s);
        QString error;
        QVERIFY(!ensureStopWindowColumns(trips.database(), error));
        QVERIFY(error.contains("duplicate column name: has_appointment_window"_L1));
        QVERIFY(!columnExists(trips.database(), u"trip_stops"_s, u"appt_latest"_s, error));
    }

    void whatAnOlderFileGetsIsDeclaredInFull()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        workspace.execute(u"DROP TABLE trip_detail_items"_s);
        workspace.execute(u"ALTER TABLE trip_stops DROP COLUMN has_appointment_window"_s);
        workspace.execute(u"ALTER TABLE trip_stops DROP COLUMN appt_latest"_s);
        QString error;
        QVERIFY(ensureTripDetailItems(trips.database(), error));
        QVERIFY(ensureStopWindowColumns(trips.database(), error));
        QCOMPARE(
            workspace.value(u"SELECT sql FROM sqlite_master WHERE name = 'trip_detail_items'"_s)
                .toString(),
            u"CREATE TABLE trip_detail_items (id INTEGER PRIMARY KEY AUTOINCREMENT, trip_id "
            "INTEGER NOT NULL, group_name TEXT NOT NULL DEFAULT '', item_type TEXT NOT NULL "
            "DEFAULT '', cost REAL NOT NULL DEFAULT 0, discount REAL NOT NULL DEFAULT 0, "
            "gallons REAL NOT NULL DEFAULT 0, created_at TEXT NOT NULL DEFAULT '', FOREIGN "
            "KEY(trip_id) REFERENCES trips(id))"_s);
        QCOMPARE(workspace.rows(u"SELECT name, type, \"notnull\", dflt_value FROM "
                                "pragma_table_info('trip_stops') ORDER BY cid DESC LIMIT 2"_s),
                 QList<QStringList>({{u"appt_latest"_s, u"TEXT"_s, u"1"_s, u"''"_s},
                                     {u"has_appointment_window"_s, u"INTEGER"_s, u"1"_s, u"0"_s}}));
    }

    void closedDatabaseCannotBeBroughtUpToDate()
    {
        const Workspace workspace;
        const QSqlDatabase closed;
        const QString text = u"The database is not open."_s;
        QString error;
        QVERIFY(!columnExists(closed, u"trip_stops"_s, u"id"_s, error));
        QCOMPARE(std::exchange(error, {}), text);
        QVERIFY(!ensureColumn(closed, u"trip_stops"_s, u"id"_s, u"TEXT"_s, error));
        QCOMPARE(std::exchange(error, {}), text);
        QVERIFY(!ensureTripDetailItems(closed, error));
        QCOMPARE(std::exchange(error, {}), text);
        QVERIFY(!ensureStopWindowColumns(closed, error));
        QCOMPARE(error, text);
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_TripsRepositoryOlderFiles)
#include "tst_TripsRepositoryOlderFiles.moc"
