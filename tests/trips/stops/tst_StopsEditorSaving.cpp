#include "support/DialogRobot.h"
#include "support/TestProgram.h"
#include "support/surroundings/TimeZone.h"
#include "trips/TripsRows.h"
#include "trips/stops/StopsRows.h"
#include "trips/stops/StopsWindow.h"

using namespace Qt::StringLiterals;

/// What a save of the stops writes.
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
        QCOMPARE(window.statuses, QStringList({u"Saved stops for current trip."_s}));
        QCOMPARE(window.summary(), u"Stops: Rows 2 | Total Hours 11.00 - 13.00"_s);
        QCOMPARE(robot.seen().size(), 0);
    }

    void timeThatTheClockSkipsIsSavedAndShownAsWritten()
    {
        Workspace workspace;
        const DialogRobot robot;
        const TimeZone clock(u"America/Chicago"_s);
        const StopsWindow window(makeTrip(workspace));
        window.clicksTrip(0);
        window.addsStop(u"shipper"_s, {}, u"03/08/2026 02:30"_s);
        window.addsStop(u"receiver"_s, {}, u"03/08/2026 10:00"_s);
        window.savesStops();
        QCOMPARE(workspace.rows(u"SELECT appt FROM trip_stops ORDER BY id"_s),
                 QList<QStringList>({{u"2026-03-08T02:30:00"_s}, {u"2026-03-08T10:00:00"_s}}));
        window.clicksTrip(0);
        QCOMPARE(window.stops().at(0).at(3), u"03/08/2026 02:30"_s);
        QCOMPARE(window.summary(), u"Stops: Rows 2 | Total Hours 10.50"_s);
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
        window.latest(0)->setText(u"left over"_s); // which no person can type there
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
};

TEST_CLASS(tst_StopsEditorSaving)
#include "tst_StopsEditorSaving.moc"
