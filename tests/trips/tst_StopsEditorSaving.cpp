#include "data/DatabaseLocator.h"
#include "support/DialogRobot.h"
#include "support/RowMakers.h"
#include "trips/StopsWindow.h"
#include "trips/TripsRows.h"

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

/// Trip 1 is picked up at 08:00, passes KC1 at noon and is delivered at 18:00.
QString makeTripOfThreeStops(Workspace &workspace)
{
    const QString path = workspace.makeTrips();
    const qint64 id = trip().insert(workspace);
    stop(id).at(u"2026-04-17T08:00:00"_s).insert(workspace);
    stop(id)
        .at(u"2026-04-17T12:00:00"_s)
        .set(u"location_code"_s, u"KC1"_s)
        .order(1)
        .insert(workspace);
    stop(id).type(u"receiver"_s).at(u"2026-04-17T18:00:00"_s).order(2).insert(workspace);
    return path;
}

const QStringList firstStored = {u"1"_s, u"shipper"_s, u""_s, u"2026-04-17T08:00:00"_s,
                                 u"0"_s, u"0"_s,       u""_s};
const QStringList secondStored = {u"1"_s, u"shipper"_s, u"KC1"_s, u"2026-04-17T12:00:00"_s,
                                  u"1"_s, u"0"_s,       u""_s};
const QStringList thirdStored = {u"1"_s, u"receiver"_s, u""_s, u"2026-04-17T18:00:00"_s,
                                 u"2"_s, u"0"_s,        u""_s};
const QList<QStringList> allStored = {firstStored, secondStored, thirdStored};

QString makeTrip(Workspace &workspace)
{
    const QString path = workspace.makeTrips();
    trip().insert(workspace);
    return path;
}

/// From now on the page's connection writes nothing, as to a file that may only be read.
void makeReadOnly(const QString &connectionName)
{
    QSqlQuery(QSqlDatabase::database(connectionName)).exec(u"PRAGMA query_only = ON"_s);
}

} // namespace

/// What a save of the stops writes, and what one that fails leaves behind.
class tst_StopsEditorSaving : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stopsNeedATripThatIsInTheFile()
    {
        Workspace workspace;
        DialogRobot robot;
        StopsWindow window(workspace.makeTrips());
        window.addsStop(u"shipper"_s, {}, u"04/17/2026 08:00"_s);
        const QList<QStringList> typed = window.stops();
        window.statuses.clear();
        robot.expect(DialogRobot::Information, u"Save Stops"_s,
                     u"Load or save a trip before saving stops."_s);
        window.savesStops();
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(window.stops(), typed);
        QCOMPARE(window.statuses, QStringList());
        QCOMPARE(storedStops(workspace), QList<QStringList>());
    }

    void stopsAreWrittenInGridOrder()
    {
        Workspace workspace;
        const DialogRobot robot;
        makeCodes(workspace, {u"KC1"_s});
        StopsWindow window(makeTrip(workspace));
        window.clicksTrip(0);
        window.addsStop(u"shipper"_s, u" JOP2 "_s, u"04/17/2026 08:00"_s);
        window.clicksWindow(0);
        window.typesLatest(0, u" 4/17/2026 10:00 AM "_s);
        window.addsStop(u"receiver"_s, {}, u"04/17/2026 18:00"_s);
        Person::chooses(window.codeBox(1), u"KC1"_s);
        window.typesOrder(0, u"7"_s);
        window.statuses.clear();
        window.savesStops();
        QCOMPARE(storedStops(workspace),
                 QList<QStringList>({{u"1"_s, u"shipper"_s, u"JOP2"_s, u"2026-04-17T08:00:00"_s,
                                      u"7"_s, u"1"_s, u"2026-04-17T10:00:00"_s},
                                     {u"1"_s, u"receiver"_s, u"KC1"_s, u"2026-04-17T18:00:00"_s,
                                      u"1"_s, u"0"_s, u""_s}}));
        QCOMPARE(storedCodes(workspace), u"KC1,JOP2"_s);
        QCOMPARE(window.statuses, QStringList({saved}));
        QCOMPARE(window.summary(), u"Stops: Rows 2 | Total Hours 11.00 - 13.00"_s);
        QCOMPARE(robot.seen().size(), 0);
    }

    void savedStopsStandInTheirOrderAtTheNextLoad()
    {
        Workspace workspace;
        const StopsWindow window(makeTrip(workspace));
        window.clicksTrip(0);
        window.addsStop(u"receiver"_s, {}, u"4/17/2026 18:00"_s);
        window.addsStop(u"shipper"_s, {}, u"4/17/2026 8:00"_s);
        window.typesOrder(0, u"9"_s);
        window.savesStops();
        window.clicksTrip(0);
        QCOMPARE(window.stops(),
                 QList<QStringList>(
                     {{u"shipper"_s, u""_s, u""_s, u"04/17/2026 08:00"_s, u""_s, u"1"_s},
                      {u"receiver"_s, u""_s, u""_s, u"04/17/2026 18:00"_s, u""_s, u"9"_s}}));
        QCOMPARE(window.summary(), u"Stops: Rows 2 | Total Hours 13.00"_s);
    }

    void onlyTheTripsOwnStopsAreRewritten()
    {
        Workspace workspace;
        const DialogRobot robot;
        makeCodes(workspace, {u"KC1"_s});
        const QString path = makeTripOfThreeStops(workspace);
        stop(2).at(u"tomorrow"_s).insert(workspace);
        const QList<QStringList> trips = workspace.rows(u"SELECT * FROM trips"_s);
        const StopsWindow window(path);
        window.clicksTrip(0);
        window.savesStops();
        const QStringList other = {u"2"_s, u"shipper"_s, u""_s, u"tomorrow"_s,
                                   u"0"_s, u"0"_s,       u""_s};
        QCOMPARE(storedStops(workspace),
                 QList<QStringList>({other, firstStored, secondStored, thirdStored}));
        QCOMPARE(workspace.rows(u"SELECT * FROM trips"_s), trips);
        QCOMPARE(storedCodes(workspace), u"KC1"_s);
        QCOMPARE(robot.seen().size(), 0);
    }

    void rowWithOnlyATypeIsNotStoredAndStaysUntilTheNextLoad()
    {
        Workspace workspace;
        const DialogRobot robot;
        const StopsWindow window(makeTrip(workspace));
        window.clicksTrip(0);
        window.addsStop(u"receiver"_s, u"   "_s, u"  "_s);
        window.clicksWindow(0);
        window.addsStop(u"receiver"_s, {}, u"04/17/2026 18:00"_s);
        window.savesStops();
        QCOMPARE(storedStops(workspace),
                 QList<QStringList>({{u"1"_s, u"receiver"_s, u""_s, u"2026-04-17T18:00:00"_s,
                                      u"1"_s, u"0"_s, u""_s}}));
        QCOMPARE(window.grid()->rowCount(), 2);
        window.clicksTrip(0);
        QCOMPARE(window.grid()->rowCount(), 1);
        QCOMPARE(robot.seen().size(), 0);
    }

    void codeAloneMakesAStopWithABlankAppointment()
    {
        Workspace workspace;
        const DialogRobot robot;
        makeCodes(workspace, {});
        const StopsWindow window(makeTrip(workspace));
        window.clicksTrip(0);
        window.addsStop(u"shipper"_s, u"KC1"_s, {});
        window.savesStops();
        QCOMPARE(storedStops(workspace), QList<QStringList>({{u"1"_s, u"shipper"_s, u"KC1"_s, u""_s,
                                                              u"0"_s, u"0"_s, u""_s}}));
        QCOMPARE(
            workspace.value(u"SELECT COUNT(*) FROM trip_stops WHERE appt IS NOT NULL"_s).toInt(),
            1);
        QCOMPARE(robot.seen().size(), 0);
    }

    void latestAloneMakesAStopToo()
    {
        Workspace workspace;
        const StopsWindow window(makeTrip(workspace));
        window.clicksTrip(0);
        window.addsStop(u"shipper"_s, {}, {});
        window.clicksWindow(0);
        window.typesLatest(0, u"04/17/2026 10:00"_s);
        window.savesStops();
        QCOMPARE(storedStops(workspace),
                 QList<QStringList>({{u"1"_s, u"shipper"_s, u""_s, u""_s, u"0"_s, u"1"_s,
                                      u"2026-04-17T10:00:00"_s}}));
    }

    void windowMayHaveNoLatest()
    {
        Workspace workspace;
        const DialogRobot robot;
        const StopsWindow window(makeTrip(workspace));
        window.clicksTrip(0);
        window.addsStop(u"shipper"_s, {}, u"04/17/2026 08:00"_s);
        window.clicksWindow(0);
        window.savesStops();
        QCOMPARE(storedStops(workspace),
                 QList<QStringList>({{u"1"_s, u"shipper"_s, u""_s, u"2026-04-17T08:00:00"_s, u"0"_s,
                                      u"1"_s, u""_s}}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void leftoverLatestIsNotStoredWithoutAWindow()
    {
        Workspace workspace;
        const DialogRobot robot;
        const QString path = makeTrip(workspace);
        stop(1)
            .window(u"2026-04-17T08:00:00"_s, u"no time at all"_s)
            .set(u"has_appointment_window"_s, 0)
            .insert(workspace);
        const StopsWindow window(path);
        window.clicksTrip(0);
        window.savesStops();
        QCOMPARE(storedStops(workspace), QList<QStringList>({firstStored}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void typeThatIsNeitherIsSavedAsShipper()
    {
        Workspace workspace;
        const QString path = makeTrip(workspace);
        stop(1).type(u"drop yard"_s).at(u"2026-04-17T08:00:00"_s).insert(workspace);
        const StopsWindow window(path);
        window.clicksTrip(0);
        window.savesStops();
        QCOMPARE(storedStops(workspace), QList<QStringList>({firstStored}));
    }

    void orderThatIsNoNumberIsThatOfTheRow()
    {
        Workspace workspace;
        const StopsWindow window(makeTrip(workspace));
        window.clicksTrip(0);
        window.addsStop(u"shipper"_s, {}, {}); // is not stored, and counts
        window.addsStop(u"shipper"_s, {}, u"04/17/2026 08:00"_s);
        window.typesOrder(1, u"first"_s);
        window.addsStop(u"shipper"_s, {}, u"04/17/2026 09:00"_s);
        window.typesOrder(2, u""_s);
        window.savesStops();
        QCOMPARE(workspace.rows(u"SELECT stop_order FROM trip_stops ORDER BY id"_s),
                 QList<QStringList>({{u"1"_s}, {u"2"_s}}));
    }

    void timeIsStoredAsISOText_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("stored");
        QTest::newRow("two digits") << u"04/18/2026 21:56"_s << u"2026-04-18T21:56:00"_s;
        QTest::newRow("one digit") << u"4/18/2026 9:56"_s << u"2026-04-18T09:56:00"_s;
        QTest::newRow("twelve hours") << u"04/18/2026 9:56 PM"_s << u"2026-04-18T21:56:00"_s;
        QTest::newRow("year first") << u"2026-04-18 21:56"_s << u"2026-04-18T21:56:00"_s;
        QTest::newRow("ISO") << u"2026-04-18T21:56:00"_s << u"2026-04-18T21:56:00"_s;
        QTest::newRow("blanks around") << u"  04/18/2026 21:56 "_s << u"2026-04-18T21:56:00"_s;
    }

    void timeIsStoredAsISOText()
    {
        Workspace workspace;
        const DialogRobot robot;
        QFETCH(const QString, typed);
        QFETCH(const QString, stored);
        const StopsWindow window(makeTrip(workspace));
        window.clicksTrip(0);
        window.addsStop(u"shipper"_s, {}, typed);
        window.clicksWindow(0);
        window.typesLatest(0, typed);
        window.savesStops();
        QCOMPARE(workspace.rows(u"SELECT appt, appt_latest FROM trip_stops"_s),
                 QList<QStringList>({{stored, stored}}));
        QCOMPARE(window.grid()->item(0, StopsGrid::EarliestColumn)->text(), typed);
        QCOMPARE(robot.seen().size(), 0);
    }

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

    void stopWithoutACodeNeedsNoLocationsDb()
    {
        Workspace workspace;
        const DialogRobot robot;
        const StopsWindow window(makeTripOfThreeStops(workspace));
        window.clicksTrip(0);
        window.typesCode(1, u""_s);
        window.savesStops();
        QCOMPARE(workspace.rows(u"SELECT location_code FROM trip_stops"_s),
                 QList<QStringList>({{u""_s}, {u""_s}, {u""_s}}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void locationsDbThatComesLaterIsFoundByTheSave()
    {
        Workspace workspace;
        const DialogRobot robot;
        const StopsWindow window(makeTripOfThreeStops(workspace));
        window.clicksTrip(0);
        makeCodes(workspace, {});
        window.savesStops();
        QCOMPARE(storedStops(workspace), allStored);
        QCOMPARE(storedCodes(workspace), u"KC1"_s);
        QCOMPARE(robot.seen().size(), 0);
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

    void fileFromBeforeWindowsTakesThem()
    {
        Workspace workspace;
        const DialogRobot robot;
        const QString path = makeTrip(workspace);
        const StopsWindow window(path);
        makeStopsFromBeforeWindows(workspace); // another program puts an older file in its place
        window.clicksTrip(0);
        window.clicksWindow(0);
        window.typesLatest(0, u"04/17/2026 10:00"_s);
        window.savesStops();
        QCOMPARE(workspace.rows(u"SELECT appt, has_appointment_window, appt_latest "
                                "FROM trip_stops ORDER BY id"_s),
                 QList<QStringList>({{u"2026-04-17T08:00:00"_s, u"1"_s, u"2026-04-17T10:00:00"_s},
                                     {u"2026-04-17T18:00:00"_s, u"0"_s, u""_s}}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void saveBringsTheFileUpToDateByItself()
    {
        Workspace workspace;
        const DialogRobot robot;
        const StopsWindow window(makeTrip(workspace));
        window.clicksTrip(0);
        window.addsStop(u"shipper"_s, {}, u"04/17/2026 08:00"_s);
        makeStopsFromBeforeWindows(workspace);
        window.savesStops();
        QCOMPARE(storedStops(workspace), QList<QStringList>({firstStored}));
        QCOMPARE(robot.seen().size(), 0);
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

    void saveWithoutRowsEmptiesTheTrip()
    {
        Workspace workspace;
        StopsWindow window(makeTripOfThreeStops(workspace));
        window.clicksTrip(0);
        for (int row = 0; row < 3; ++row) {
            Person::clicksCell(window.grid(), 0, StopsGrid::OrderColumn);
            window.clicks(u"Remove Selected Stop"_s);
        }
        QCOMPARE(storedStops(workspace), allStored);
        window.savesStops();
        QCOMPARE(storedStops(workspace), QList<QStringList>());
        QCOMPARE(window.summary(), u"Stops: no rows"_s);
    }

    void tripIsSavedWithItsStops()
    {
        Workspace workspace;
        StopsWindow window(workspace.makeTrips());
        window.types("tripNoField", u"4471203"_s);
        window.types("payweekField", u"04/18/2026"_s);
        window.addsStop(u"shipper"_s, {}, u"04/17/2026 08:00"_s);
        window.addsStop(u"receiver"_s, {}, u"04/17/2026 18:00"_s);
        window.clicks(u"Save Trip / Changes"_s);
        QCOMPARE(workspace.value(u"SELECT trip_hours FROM trips"_s).toDouble(), 13.0);
        QCOMPARE(storedStops(workspace),
                 QList<QStringList>({firstStored,
                                     {u"1"_s, u"receiver"_s, u""_s, u"2026-04-17T18:00:00"_s,
                                      u"1"_s, u"0"_s, u""_s}}));
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

QTEST_MAIN(tst_StopsEditorSaving)
#include "tst_StopsEditorSaving.moc"
