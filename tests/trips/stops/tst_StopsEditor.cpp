#include "data/DatabaseLocator.h"
#include "support/DialogRobot.h"
#include "support/RowMakers.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "trips/TripsRows.h"
#include "trips/stops/StopsEditor.h"
#include "trips/stops/StopsWindow.h"

#include <QDir>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const QString removeButton = u"Remove Selected Stop"_s;

/// What the grid shows of a worked trip.
const QList<QStringList> workedStops = {
    {u"shipper"_s, u""_s, u""_s, u"04/17/2026 08:00"_s, u""_s, u"0"_s},
    {u"receiver"_s, u""_s, u""_s, u"04/17/2026 18:00"_s, u""_s, u"1"_s}};

QStringList emptyStop(const QString &order)
{
    return {u"shipper"_s, u""_s, u""_s, u""_s, u""_s, order};
}

QString makeWorkedTrip(Workspace &workspace)
{
    const QString path = workspace.makeTrips();
    insertWorkedTrip(workspace, u"4471203"_s);
    return path;
}

} // namespace

/// The stops as a person enters and reads them; what a save writes is tst_StopsEditorSaving's.
class tst_StopsEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sectionStartsWithoutStops()
    {
        Workspace workspace;
        const StopsWindow window(workspace.makeTrips());
        const auto *section = window.named<StopsEditor>("stops");
        QCOMPARE(section->title(), u"Stops"_s);
        QStringList buttons;
        for (const QPushButton *button : section->findChildren<QPushButton *>())
            buttons.append(button->text());
        QCOMPARE(buttons,
                 QStringList({u"Add Stop Row"_s, u"Remove Selected Stop"_s, u"Save Stops"_s}));
        QCOMPARE(window.named<QLabel>("stopsFormat")->text(),
                 u"Appointment format: MM/DD/YYYY HH:MM  (example: 04/18/2026 21:56). Use Window "
                 "when the stop has earliest/latest appointment times."_s);
        QCOMPARE(window.summary(), u"Stops: no rows"_s);
        QCOMPARE(window.stops(), QList<QStringList>());
        QCOMPARE(window.grid()->accessibleName(), u"Stops"_s);
    }

    void addedStopIsAnEmptyShipper()
    {
        Workspace workspace;
        makeCodes(workspace, {u"DAL4"_s, u"KC1"_s});
        const QString path = workspace.makeTrips();
        const QByteArray before = workspace.bytes(u"trips.db"_s);
        const StopsWindow window(path);
        window.clicks(u"Add Stop Row"_s);
        window.clicks(u"Add Stop Row"_s);
        QCOMPARE(window.stops(), QList<QStringList>({emptyStop(u"0"_s), emptyStop(u"1"_s)}));
        QCOMPARE(offeredBy(window.codeBox(0)), QStringList({u"DAL4"_s, u"KC1"_s}));
        QVERIFY(!window.latest(0)->flags().testFlag(Qt::ItemIsEditable));
        QCOMPARE(window.summary(), u"Stops: Rows 2 | Total Hours 0.00"_s);
        QCOMPARE(window.statuses, QStringList({u"Added stop row."_s, u"Added stop row."_s}));
        QCOMPARE(workspace.bytes(u"trips.db"_s), before);
    }

    void stopIsAddedWithoutAFileToo()
    {
        const Workspace workspace;
        const DialogRobot robot;
        const StopsWindow window;
        window.clicks(u"Add Stop Row"_s);
        QCOMPARE(window.stops(), QList<QStringList>({emptyStop(u"0"_s)}));
        QCOMPARE(window.statuses, QStringList({u"Added stop row."_s}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void removalNeedsAChosenRow()
    {
        Workspace workspace;
        DialogRobot robot;
        StopsWindow window(makeWorkedTrip(workspace));
        window.clicksTrip(0);
        window.statuses.clear();
        robot.expect(DialogRobot::Information, u"Remove Stop"_s, u"Select a stop row first."_s);
        window.clicks(removeButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(robot.seen().first().buttons, QStringList({u"OK"_s}));
        QCOMPARE(window.stops(), workedStops);
        QCOMPARE(window.statuses, QStringList());
    }

    void removedStopLeavesTheOthersRenumbered()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        trip().insert(workspace);
        for (const int order : {5, 7, 9})
            stop(1).at(u"2026-04-17T08:00:00"_s).order(order).insert(workspace);
        const QList<QStringList> stored = storedStops(workspace);
        StopsWindow window(path);
        window.clicksTrip(0);
        QCOMPARE(column(window.grid(), u"Order"_s), QStringList({u"5"_s, u"7"_s, u"9"_s}));
        window.statuses.clear();
        Person::clicksCell(window.grid(), 1, StopsGrid::EarliestColumn);
        window.clicks(removeButton);
        QCOMPARE(column(window.grid(), u"Order"_s), QStringList({u"0"_s, u"1"_s}));
        QCOMPARE(window.summary(), u"Stops: Rows 2 | Total Hours 0.00"_s);
        QCOMPARE(window.statuses, QStringList({u"Removed selected stop row."_s}));
        QCOMPARE(storedStops(workspace), stored);
    }

    void lastStopRemovedLeavesNoRows()
    {
        Workspace workspace;
        const StopsWindow window(workspace.makeTrips());
        window.clicks(u"Add Stop Row"_s);
        Person::clicksCell(window.grid(), 0, StopsGrid::OrderColumn);
        window.clicks(removeButton);
        QCOMPARE(window.stops(), QList<QStringList>());
        QCOMPARE(window.summary(), u"Stops: no rows"_s);
    }

    void loadedStopsShowWhatIsStored()
    {
        Workspace workspace;
        const DialogRobot robot;
        makeCodes(workspace, {u"DAL4"_s, u"KC1"_s});
        const QString path = workspace.makeTrips();
        trip().insert(workspace);
        stop(1).type(u"drop yard"_s).at(u" call ahead "_s).order(2).insert(workspace);
        stop(1)
            .type(u" RECEIVER "_s)
            .window(u"2026-04-18T21:56:00"_s, u"2026-04-18T23:00:00"_s)
            .set(u"location_code"_s, u"kc1"_s)
            .order(1)
            .insert(workspace);
        stop(1).at({}).set(u"location_code"_s, u" JOP2 "_s).order(1).insert(workspace);
        const StopsWindow window(path);
        window.clicksTrip(0);
        QCOMPARE(
            window.stops(),
            QList<QStringList>({{u"receiver"_s, u"KC1"_s, u"window"_s, u"04/18/2026 21:56"_s,
                                 u"04/18/2026 23:00"_s, u"1"_s},
                                {u"shipper"_s, u"JOP2"_s, u""_s, u""_s, u""_s, u"1"_s},
                                {u"shipper"_s, u""_s, u""_s, u"call ahead"_s, u""_s, u"2"_s}}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void loadChangesNothingInTheFile()
    {
        Workspace workspace;
        makeCodes(workspace, {u"KC1"_s});
        const StopsWindow window(makeWorkedTrip(workspace));
        const QByteArray trips = workspace.bytes(u"trips.db"_s);
        const QByteArray locations = workspace.bytes(u"locations.db"_s);
        window.clicksTrip(0);
        QCOMPARE(window.stops(), workedStops);
        QCOMPARE(workspace.bytes(u"trips.db"_s), trips);
        QCOMPARE(workspace.bytes(u"locations.db"_s), locations);
    }

    void otherTripOrNewTripTakesTheUnsavedRowsAway()
    {
        Workspace workspace;
        const DialogRobot robot;
        const QString path = makeWorkedTrip(workspace);
        trip().no(u"2"_s).insert(workspace);
        const StopsWindow window(path);
        window.clicksTrip(1);
        window.clicks(u"Add Stop Row"_s);
        QCOMPARE(window.grid()->rowCount(), 3);
        window.clicksTrip(0);
        QCOMPARE(window.stops(), QList<QStringList>());
        QCOMPARE(window.summary(), u"Stops: no rows"_s);
        window.clicksTrip(1);
        QCOMPARE(window.stops(), workedStops);
        window.clicks(u"New Trip"_s);
        QCOMPARE(window.stops(), QList<QStringList>());
        QCOMPARE(window.summary(), u"Stops: no rows"_s);
        QCOMPARE(robot.seen().size(), 0);
    }

    void summaryFollowsWhatIsTypedAndChosen()
    {
        Workspace workspace;
        const StopsWindow window(workspace.makeTrips());
        window.addsStop(u"shipper"_s, {}, u"4/17/2026 8:00 AM"_s);
        window.addsStop(u"shipper"_s, {}, u"2026-04-17 18:00"_s);
        QCOMPARE(window.summary(), u"Stops: Rows 2 | Total Hours 0.00"_s);
        window.choosesType(1, u"receiver"_s);
        QCOMPARE(window.summary(), u"Stops: Rows 2 | Total Hours 13.00"_s);
        window.typesEarliest(1, u"04/17/2026 17:30"_s);
        QCOMPARE(window.summary(), u"Stops: Rows 2 | Total Hours 12.50"_s);
        window.typesEarliest(1, u"late"_s);
        QCOMPARE(window.summary(), u"Stops: Rows 2 | Total Hours 0.00"_s);
    }

    void summaryFollowsTheWindow()
    {
        Workspace workspace;
        const StopsWindow window(makeWorkedTrip(workspace));
        window.clicksTrip(0);
        QCOMPARE(window.summary(), u"Stops: Rows 2 | Total Hours 13.00"_s);
        window.clicksWindow(0);
        window.typesLatest(0, u"04/17/2026 10:00"_s);
        QCOMPARE(window.summary(), u"Stops: Rows 2 | Total Hours 11.00 - 13.00"_s);
        window.clicksWindow(0);
        QCOMPARE(window.summary(), u"Stops: Rows 2 | Total Hours 13.00"_s);
    }

    void uncheckedWindowTakesTheLatestAwayAtOnce()
    {
        Workspace workspace;
        const DialogRobot robot;
        const StopsWindow window(workspace.makeTrips());
        window.addsStop(u"shipper"_s, {}, u"04/17/2026 08:00"_s);
        window.clicksWindow(0);
        window.typesLatest(0, u"04/17/2026 10:00"_s);
        QCOMPARE(window.latest(0)->text(), u"04/17/2026 10:00"_s);
        window.clicksWindow(0);
        QCOMPARE(window.latest(0)->text(), u""_s);
        QCOMPARE(window.grid()->item(0, StopsGrid::EarliestColumn)->text(), u"04/17/2026 08:00"_s);
        window.clicksWindow(0);
        QCOMPARE(window.latest(0)->text(), u""_s);
        QCOMPARE(robot.seen().size(), 0);
    }

    void latestCannotBeTypedWithoutAWindow()
    {
        Workspace workspace;
        const StopsWindow window(workspace.makeTrips());
        window.clicks(u"Add Stop Row"_s);
        QCOMPARE(opensCell(window.grid(), 0, StopsGrid::LatestColumn), nullptr);
        QTest::keyClicks(window.grid()->viewport(), u"10:00"_s);
        QCOMPARE(window.latest(0)->text(), u""_s);
        QCOMPARE(window.grid()->currentRow(), 0);
        QVERIFY(window.latest(0)->flags().testFlag(Qt::ItemIsSelectable));
        QVERIFY(window.latest(0)->flags().testFlag(Qt::ItemIsEnabled));
        QVERIFY(opensCell(window.grid(), 0, StopsGrid::EarliestColumn));
    }

    void windowBelongsToItsStopAfterAnotherIsRemoved()
    {
        Workspace workspace;
        const StopsWindow window(workspace.makeTrips());
        for (int row = 0; row < 3; ++row)
            window.clicks(u"Add Stop Row"_s);
        Person::clicksCell(window.grid(), 0, StopsGrid::OrderColumn);
        window.clicks(removeButton);
        window.clicksWindow(1);
        QVERIFY(!window.latest(0)->flags().testFlag(Qt::ItemIsEditable));
        QVERIFY(window.latest(1)->flags().testFlag(Qt::ItemIsEditable));
    }

    void newCodeIsOfferedInItsPlaceFromTheNextRowOn()
    {
        Workspace workspace;
        makeCodes(workspace, {u"B1"_s, u"d4"_s});
        const StopsWindow window(makeWorkedTrip(workspace));
        window.clicksTrip(0);
        window.typesCode(0, u"C3"_s);
        window.savesStops();
        window.clicks(u"Add Stop Row"_s);
        QCOMPARE(offeredBy(window.codeBox(0)), QStringList({u"B1"_s, u"d4"_s}));
        QCOMPARE(window.codeBox(0)->currentText(), u"C3"_s);
        QCOMPARE(offeredBy(window.codeBox(2)), QStringList({u"B1"_s, u"C3"_s, u"d4"_s}));
        window.clicksTrip(0);
        QCOMPARE(offeredBy(window.codeBox(0)), QStringList({u"B1"_s, u"C3"_s, u"d4"_s}));
        QCOMPARE(window.codeBox(0)->currentText(), u"C3"_s);
    }

    void typedCodeReachesNoFileBeforeASave()
    {
        Workspace workspace;
        makeCodes(workspace, {u"KC1"_s});
        const StopsWindow window(makeWorkedTrip(workspace));
        window.clicksTrip(0);
        window.typesCode(0, u"JOP2"_s);
        QTest::keyClick(window.codeBox(0)->lineEdit(), Qt::Key_Return);
        QCOMPARE(window.codeBox(0)->currentText(), u"JOP2"_s);
        QCOMPARE(offeredBy(window.codeBox(0)), QStringList({u"KC1"_s}));
        QCOMPARE(storedCodes(workspace), u"KC1"_s);
    }

    void missingLocationsDbOffersNothingWithoutAWord()
    {
        Workspace workspace;
        const DialogRobot robot;
        StopsWindow window;
        const QString path = workspace.makeTrips();
        window.page->openDatabase(path);
        QCOMPARE(window.statuses,
                 QStringList({u"Loaded 0 trips"_s, u"Opened trips DB: "_s + path}));
        window.clicks(u"Add Stop Row"_s);
        QCOMPARE(offeredBy(window.codeBox(0)), QStringList());
        QCOMPARE(robot.seen().size(), 0);
        QVERIFY(!QFile::exists(workspace.path(u"locations.db"_s)));
    }

    void locationsDbThatDoesNotOpenIsToldInTheStatusLineOnly()
    {
        Workspace workspace;
        const DialogRobot robot;
        QVERIFY(QDir().mkdir(u"locations.db"_s)); // a folder of that name counts as found
        StopsWindow window;
        window.page->openDatabase(workspace.makeTrips());
        QCOMPARE(window.statuses.first(), u"Could not open locations DB for stop code dropdown: "
                                          "unable to open database file Error opening database"_s);
        window.clicks(u"Add Stop Row"_s);
        QCOMPARE(offeredBy(window.codeBox(0)), QStringList());
        QCOMPARE(robot.seen().size(), 0);
    }

    void locationsDbThatCannotBeReadIsToldInTheStatusLineOnly()
    {
        Workspace workspace;
        const DialogRobot robot;
        TestConnection(workspace.makeLocations()).execute(u"DROP TABLE locations"_s);
        StopsWindow window;
        window.page->openDatabase(workspace.makeTrips());
        QCOMPARE(window.statuses.first(), u"Could not load location codes: "
                                          "no such table: locations Unable to execute statement"_s);
        QCOMPARE(robot.seen().size(), 0);
    }

    void stopsThatCannotBeReadAreTold()
    {
        Workspace workspace;
        DialogRobot robot;
        const StopsWindow window(makeWorkedTrip(workspace));
        workspace.execute(u"ALTER TABLE trip_stops RENAME COLUMN appt TO appointment"_s);
        // A click on another row loads it twice: it is selected, and then it is clicked.
        for (int load = 0; load < 2; ++load)
            robot.expectContaining(DialogRobot::Critical, u"Load Stops Failed"_s,
                                   u"no such column: appt"_s);
        window.clicksTrip(0);
        QCOMPARE(robot.seen().size(), 2);
        QCOMPARE(window.stops(), QList<QStringList>());
        QCOMPARE(window.summary(), u"Stops: no rows"_s);
        QCOMPARE(window.form().first(2), QStringList({u"1"_s, u"4471203"_s}));
    }

    void fileThatCannotTakeWindowsIsStillLookedAt()
    {
        Workspace workspace;
        DialogRobot robot;
        const StopsWindow window(makeWorkedTrip(workspace));
        workspace.execute(u"DROP TABLE trip_stops"_s);
        for (int load = 0; load < 2; ++load) {
            robot.expectContaining(DialogRobot::Critical, u"Trip Stop Setup Error"_s,
                                   u"no such table: trip_stops"_s);
            robot.expectContaining(DialogRobot::Critical, u"Load Stops Failed"_s,
                                   u"no such table: trip_stops"_s);
        }
        window.clicksTrip(0);
        QCOMPARE(robot.seen().size(), 4);
        QCOMPARE(window.stops(), QList<QStringList>());
    }

    void loadFromAClosedFileShowsNoStops()
    {
        Workspace workspace;
        const DialogRobot robot;
        const StopsWindow window(makeWorkedTrip(workspace));
        window.clicksTrip(0);
        DatabaseLocator::closeAllSqliteConnections();
        window.clicksTrip(0);
        QCOMPARE(window.stops(), QList<QStringList>());
        QCOMPARE(window.summary(), u"Stops: no rows"_s);
        QCOMPARE(robot.seen().size(), 0);
    }

    void wheelOverTheBoxesChangesNothing()
    {
        Workspace workspace;
        makeCodes(workspace, {u"DAL4"_s, u"KC1"_s});
        const StopsWindow window(makeWorkedTrip(workspace));
        window.clicksTrip(0);
        Person::turnsWheelOver(window.typeBox(0));
        Person::turnsWheelOver(window.codeBox(0));
        QCOMPARE(window.stops(), workedStops);
    }

    void boxesHaveTheirRoomInTheirColumnsAtAnyScale_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("typeColumn");
        QTest::addColumn<int>("codeColumn");
        QTest::addColumn<int>("codeBox");
        QTest::newRow("75") << 75 << 120 << 135 << 135;
        QTest::newRow("100") << 100 << 120 << 180 << 180;
        QTest::newRow("175") << 175 << 210 << 315 << 180;
    }

    void boxesHaveTheirRoomInTheirColumnsAtAnyScale()
    {
        Workspace workspace;
        QFETCH(const int, percent);
        Workspace::saveScale(percent);
        const StopsWindow window(makeWorkedTrip(workspace));
        window.page->makeReady(percent);
        window.clicksTrip(0);
        window.clicks(u"Add Stop Row"_s);
        QTEST(window.grid()->columnWidth(StopsGrid::TypeColumn), "typeColumn");
        QTEST(window.grid()->columnWidth(StopsGrid::LocationColumn), "codeColumn");
        QCoreApplication::processEvents(); // the grid lays its boxes out late
        for (int row = 0; row < 3; ++row) {
            QCOMPARE(window.typeBox(row)->minimumWidth(), 110);
            QTEST(window.codeBox(row)->minimumWidth(), "codeBox");
            QVERIFY(window.typeBox(row)->width()
                    <= window.grid()->columnWidth(StopsGrid::TypeColumn));
            QVERIFY(window.codeBox(row)->width()
                    <= window.grid()->columnWidth(StopsGrid::LocationColumn));
        }
    }
};

TEST_CLASS(tst_StopsEditor)
#include "tst_StopsEditor.moc"
