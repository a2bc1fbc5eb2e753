#include "data/DatabaseLocator.h"
#include "support/DialogRobot.h"
#include "support/TestProgram.h"
#include "trips/TripsRows.h"
#include "trips/stops/StopsRows.h"
#include "trips/stops/StopsWindow.h"

#include <QSqlQuery>

using namespace Qt::StringLiterals;

namespace {

const QString invalidEarliest =
    u"Earliest appointment must be in MM/DD/YYYY HH:MM format.\n\n"
    "Example: 04/18/2026 21:56\n\n"
    "Existing ISO values such as 2026-04-18T21:56:00 are also accepted."_s;
const QString invalidLatest =
    u"Latest appointment must be in MM/DD/YYYY HH:MM format.\n\n"
    "Example: 04/18/2026 21:56\n\n"
    "Existing ISO values such as 2026-04-18T21:56:00 are also accepted."_s;
const QString refused = u"the book is full Unable to fetch row"_s;
const QString saved = u"Saved stops for current trip."_s;

/// From now on the page's connection writes nothing, as to a file that may only be read.
void makeReadOnly(const QString &connectionName)
{
    QSqlQuery(QSqlDatabase::database(connectionName)).exec(u"PRAGMA query_only = ON"_s);
}

} // namespace

/// What a save of the stops that fails leaves behind, in the file and in the grid.
class tst_StopsEditorFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void timeThatCannotBeReadIsRefused_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::newRow("two-digit year") << u"04/18/26 21:56"_s;
        QTest::newRow("no such day") << u"02/30/2026 08:00"_s;
        QTest::newRow("no such hour") << u"04/18/2026 25:00"_s;
        QTest::newRow("words") << u"call ahead"_s;
    }

    void timeThatCannotBeReadIsRefused()
    {
        Workspace workspace;
        DialogRobot robot;
        QFETCH(const QString, typed);
        const StopsWindow window(makeTrip(workspace));
        window.clicksTrip(0);
        window.addsStop(u"shipper"_s, {}, typed);
        robot.expect(DialogRobot::Warning, u"Invalid Appointment"_s, invalidEarliest);
        window.savesStops();
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(storedStops(workspace), QList<QStringList>());
    }

    void badEarliestTakesItselfAndTheStopsBehindItOutOfTheFile()
    {
        Workspace workspace;
        DialogRobot robot;
        makeCodes(workspace, {});
        StopsWindow window(makeTripOfThreeStops(workspace));
        window.clicksTrip(0);
        window.typesEarliest(1, u"noon"_s);
        const QList<QStringList> typed = window.stops();
        window.statuses.clear();
        robot.expect(DialogRobot::Warning, u"Invalid Appointment"_s, invalidEarliest);
        window.savesStops();
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(storedStops(workspace), QList<QStringList>({firstStored}));
        QCOMPARE(window.stops(), typed);
        QCOMPARE(window.statuses, QStringList({saved}));
        QCOMPARE(storedCodes(workspace), u"KC1"_s); // was added ahead of the look at the time
    }

    void correctedSaveBringsTheStopsBack()
    {
        Workspace workspace;
        DialogRobot robot;
        makeCodes(workspace, {});
        const StopsWindow window(makeTripOfThreeStops(workspace));
        window.clicksTrip(0);
        window.typesEarliest(1, u"noon"_s);
        robot.expect(DialogRobot::Warning, u"Invalid Appointment"_s, invalidEarliest);
        window.savesStops();
        window.typesEarliest(1, u"4/17/2026 12:00"_s);
        window.savesStops();
        QCOMPARE(storedStops(workspace), allStored);
        QCOMPARE(robot.seen().size(), 1);
    }

    void badLatestEndsTheSaveLikewise()
    {
        Workspace workspace;
        DialogRobot robot;
        makeCodes(workspace, {});
        StopsWindow window(makeTripOfThreeStops(workspace));
        window.clicksTrip(0);
        window.clicksWindow(1);
        window.typesLatest(1, u"04/17/26 13:00"_s);
        const QList<QStringList> typed = window.stops();
        window.statuses.clear();
        robot.expect(DialogRobot::Warning, u"Invalid Appointment"_s, invalidLatest);
        window.savesStops();
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(storedStops(workspace), QList<QStringList>({firstStored}));
        QCOMPARE(window.stops(), typed);
        QCOMPARE(window.statuses, QStringList({saved}));
        window.clicksWindow(1);
        window.savesStops();
        QCOMPARE(storedStops(workspace), allStored);
    }

    void earliestIsToldAheadOfTheLatest()
    {
        Workspace workspace;
        DialogRobot robot;
        const StopsWindow window(makeTrip(workspace));
        window.clicksTrip(0);
        window.addsStop(u"shipper"_s, {}, u"early"_s);
        window.clicksWindow(0);
        window.typesLatest(0, u"late"_s);
        robot.expect(DialogRobot::Warning, u"Invalid Appointment"_s, invalidEarliest);
        window.savesStops();
        QCOMPARE(robot.seen().size(), 1);
    }

    void stopWithACodeNeedsLocationsDb()
    {
        Workspace workspace;
        DialogRobot robot;
        StopsWindow window(makeTripOfThreeStops(workspace));
        window.clicksTrip(0);
        const QList<QStringList> shown = window.stops();
        window.statuses.clear();
        robot.expect(DialogRobot::Warning, u"Locations Database Not Open"_s,
                     u"The stop location code could not be added because locations.db is not "
                     "open:\n\nKC1"_s);
        window.savesStops();
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(storedStops(workspace), QList<QStringList>({firstStored}));
        QCOMPARE(window.stops(), shown);
        QCOMPARE(window.statuses, QStringList({saved}));
        QVERIFY(!QFile::exists(workspace.path(u"locations.db"_s)));
    }

    void locationsDbThatMayOnlyBeReadIsTold()
    {
        Workspace workspace;
        DialogRobot robot;
        makeCodes(workspace, {u"DAL4"_s});
        StopsWindow window(makeTripOfThreeStops(workspace));
        window.clicksTrip(0);
        window.statuses.clear();
        makeReadOnly(u"trips_page_locations_connection"_s);
        robot.expect(DialogRobot::Critical, u"Save Location Code Failed"_s,
                     u"attempt to write a readonly database Unable to fetch row"_s);
        window.savesStops();
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(storedStops(workspace), QList<QStringList>({firstStored}));
        QCOMPARE(window.grid()->rowCount(), 3);
        QCOMPARE(window.statuses, QStringList({saved}));
        QCOMPARE(storedCodes(workspace), u"DAL4"_s);
    }

    void locationsDbWithoutItsTableIsTold()
    {
        Workspace workspace;
        DialogRobot robot;
        TestConnection(workspace.makeLocations()).execute(u"DROP TABLE locations"_s);
        StopsWindow window(makeTripOfThreeStops(workspace));
        window.clicksTrip(0);
        window.statuses.clear();
        const QString noTable = u"no such table: locations Unable to execute statement"_s;
        robot.expect(DialogRobot::Critical, u"Save Location Code Failed"_s, noTable);
        window.savesStops();
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(storedStops(workspace), QList<QStringList>({firstStored}));
        QCOMPARE(window.grid()->rowCount(), 3);
        QCOMPARE(window.statuses,
                 QStringList({u"Could not load location codes: "_s + noTable, saved}));
    }

    void refusedDeleteChangesNothing()
    {
        Workspace workspace;
        DialogRobot robot;
        makeCodes(workspace, {});
        StopsWindow window(makeTripOfThreeStops(workspace));
        window.clicksTrip(0);
        window.typesEarliest(0, u"04/17/2026 07:00"_s);
        workspace.execute(u"CREATE TRIGGER full BEFORE DELETE ON trip_stops "
                          "BEGIN SELECT RAISE(FAIL, 'the book is full'); END"_s);
        window.statuses.clear();
        robot.expect(DialogRobot::Critical, u"Save Stops Failed"_s, refused);
        window.savesStops();
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(storedStops(workspace), allStored);
        QCOMPARE(storedCodes(workspace), u""_s);
        QCOMPARE(window.grid()->rowCount(), 3);
        QCOMPARE(window.statuses, QStringList({saved}));
    }

    void refusedInsertLeavesTheStopsBeforeIt()
    {
        Workspace workspace;
        DialogRobot robot;
        makeCodes(workspace, {});
        StopsWindow window(makeTripOfThreeStops(workspace));
        window.clicksTrip(0);
        workspace.execute(u"CREATE TRIGGER full BEFORE INSERT ON trip_stops "
                          "WHEN NEW.stop_order = 1 "
                          "BEGIN SELECT RAISE(FAIL, 'the book is full'); END"_s);
        window.statuses.clear();
        robot.expect(DialogRobot::Critical, u"Save Stops Failed"_s, refused);
        window.savesStops();
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(storedStops(workspace), QList<QStringList>({firstStored}));
        QCOMPARE(window.grid()->rowCount(), 3);
        QCOMPARE(window.statuses, QStringList({saved}));
        workspace.execute(u"DROP TRIGGER full"_s);
        window.savesStops();
        QCOMPARE(storedStops(workspace), allStored);
    }

    void saveIntoAClosedFileDoesNothingButReport()
    {
        Workspace workspace;
        const DialogRobot robot;
        makeCodes(workspace, {});
        StopsWindow window(makeTripOfThreeStops(workspace));
        window.clicksTrip(0);
        window.typesCode(0, u"JOP2"_s);
        window.statuses.clear();
        DatabaseLocator::closeAllSqliteConnections();
        window.savesStops();
        QCOMPARE(robot.seen().size(), 0);
        QCOMPARE(window.statuses, QStringList({saved}));
        QCOMPARE(window.grid()->rowCount(), 3);
        QCOMPARE(storedStops(workspace), allStored);
        QCOMPARE(storedCodes(workspace), u""_s);
    }

    void fileThatVanishedIsToldAndNotMadeAnew()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeTripOfThreeStops(workspace);
        StopsWindow window(path);
        window.clicksTrip(0);
        window.statuses.clear();
        QVERIFY(QFile::remove(path));
        robot.expectContaining(DialogRobot::Critical, u"Save Stops Failed"_s,
                               u"attempt to write a readonly database"_s);
        window.savesStops();
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(window.grid()->rowCount(), 3);
        QCOMPARE(window.statuses, QStringList({saved}));
        QVERIFY(!QFile::exists(path));
    }

    void fileThatCannotTakeWindowsKeepsItsStops()
    {
        Workspace workspace;
        DialogRobot robot;
        StopsWindow window(makeTrip(workspace));
        window.clicksTrip(0);
        window.addsStop(u"shipper"_s, {}, u"04/17/2026 07:00"_s);
        makeStopsFromBeforeWindows(workspace);
        makeReadOnly(u"trips_connection"_s);
        window.statuses.clear();
        robot.expectContaining(DialogRobot::Critical, u"Trip Stop Setup Error"_s,
                               u"attempt to write a readonly database"_s);
        window.savesStops();
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(workspace.value(u"SELECT COUNT(*) FROM trip_stops"_s).toInt(), 2);
        QCOMPARE(window.grid()->rowCount(), 1);
        QCOMPARE(window.statuses, QStringList({saved}));
    }

    void stopsThatFailDoNotKeepTheRestOfTheTripFromBeingSaved()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeTripOfThreeStops(workspace);
        payItem(1, u"Layover"_s, 50.0).insert(workspace);
        StopsWindow window(path);
        window.clicksTrip(0);
        window.types("tripNoField", u"changed"_s);
        window.typesEarliest(0, u"early"_s);
        window.statuses.clear();
        workspace.execute(u"DELETE FROM trip_pay_items"_s);
        robot.expect(DialogRobot::Warning, u"Invalid Appointment"_s, invalidEarliest);
        window.clicks(u"Save Trip / Changes"_s);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(storedStops(workspace), QList<QStringList>());
        QCOMPARE(workspace.value(u"SELECT trip_no FROM trips"_s), u"changed"_s);
        QCOMPARE(workspace.value(u"SELECT name FROM trip_pay_items"_s), u"Layover"_s);
        QCOMPARE(window.statuses, QStringList({u"Updated trip: changed"_s, u"Loaded 1 trips"_s}));
    }
};

TEST_CLASS(tst_StopsEditorFailures)
#include "tst_StopsEditorFailures.moc"
