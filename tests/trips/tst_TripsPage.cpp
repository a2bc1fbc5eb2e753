#include "data/DatabaseLocator.h"
#include "support/DialogRobot.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "trips/TripsPage.h"
#include "trips/TripsRows.h"
#include "trips/TripsWindow.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// The page as the driver looks through their trips. Its layout, opening, saving and deleting have
/// classes of their own.
class tst_TripsPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowWithoutATripIdShowsItsStoredHours()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        trip().set(u"id"_s, -1).set(u"trip_hours"_s, 99).insert(workspace);
        const TripsWindow trips(path);
        QCOMPARE(column(trips.list(), u"Trip Hours"_s), QStringList({u"99"_s}));
    }

    void hoursOfTheListComeFromTheStops()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertWorkedTrip(workspace, u"1"_s);
        insertWorkedTrip(workspace, u"2"_s);
        workspace.execute(u"UPDATE trips SET trip_hours = 99, net_per_hour = 1"_s);
        workspace.execute(u"UPDATE trip_stops SET has_appointment_window = 1, "
                          "appt_latest = '2026-04-17T10:00:00' "
                          "WHERE trip_id = 2 AND stop_type = 'shipper'"_s);
        trip().no(u"3"_s).totals(500.0, 0.0).set(u"trip_hours"_s, 99).insert(workspace);
        const TripsWindow trips(path);
        QCOMPARE(column(trips.list(), u"Trip Hours"_s),
                 QStringList({u"0.00"_s, u"11.00 - 13.00"_s, u"13.00"_s}));
        QCOMPARE(column(trips.list(), u"Net/Hour"_s),
                 QStringList({u"$0.00"_s, u"$73.08 - $86.36"_s, u"$73.08"_s}));
    }

    void filterOffersThePayweeksInTextOrder()
    {
        Workspace workspace;
        const QString path = makeTwoWeeks(workspace);
        trip().no(u"4"_s).payweek(u"12/27/2025"_s).insert(workspace);
        const TripsWindow trips(path);
        QCOMPARE(entries(trips.filter()), QStringList({u"All Payweeks"_s, u"12/27/2025"_s,
                                                       u"04/18/2026"_s, u"04/11/2026"_s}));
        QCOMPARE(trips.filter()->currentText(), u"All Payweeks"_s);
    }

    void chosenPayweekListsItsTrips()
    {
        Workspace workspace;
        const TripsWindow trips(makeTwoWeeks(workspace));
        Person::chooses(trips.filter(), u"04/18/2026"_s);
        QCOMPARE(column(trips.list(), u"Trip #"_s), QStringList({u"3"_s, u"2"_s}));
        QCOMPARE(trips.statuses, QStringList({u"Loaded 2 trips"_s}));
        Person::chooses(trips.filter(), u"All Payweeks"_s);
        QCOMPARE(column(trips.list(), u"Trip #"_s), QStringList({u"3"_s, u"2"_s, u"1"_s}));
        QCOMPARE(trips.statuses.last(), u"Loaded 3 trips"_s);
    }

    void wheelOverTheFilterChangesNothing()
    {
        Workspace workspace;
        const TripsWindow trips(makeTwoWeeks(workspace));
        trips.line("tripNoField")->setFocus();
        Person::turnsWheelOver(trips.filter());
        QCOMPARE(trips.filter()->currentIndex(), 0);
        QCOMPARE(trips.statuses, QStringList());
    }

    void refreshKeepsTheChosenPayweek()
    {
        Workspace workspace;
        TripsWindow trips(makeTwoWeeks(workspace));
        Person::chooses(trips.filter(), u"04/11/2026"_s);
        trip().no(u"4"_s).payweek(u"04/11/2026"_s).insert(workspace);
        trip().no(u"5"_s).payweek(u"04/25/2026"_s).insert(workspace);
        trips.statuses.clear();
        trips.clicks(u"Refresh"_s);
        QCOMPARE(trips.filter()->currentText(), u"04/11/2026"_s);
        QCOMPARE(column(trips.list(), u"Trip #"_s), QStringList({u"4"_s, u"1"_s}));
        QCOMPARE(entries(trips.filter()).at(1), u"04/25/2026"_s);
        QCOMPARE(trips.statuses, QStringList({u"Loaded 2 trips"_s}));
    }

    void refreshFallsBackToAllWhenThePayweekIsGone()
    {
        Workspace workspace;
        const TripsWindow trips(makeTwoWeeks(workspace));
        Person::chooses(trips.filter(), u"04/11/2026"_s);
        workspace.execute(u"UPDATE trips SET payweek = '4/11/2026' WHERE trip_no = '1'"_s);
        trips.clicks(u"Refresh"_s);
        QCOMPARE(trips.filter()->currentIndex(), 0);
        QCOMPARE(trips.list()->rowCount(), 3);
    }

    void refreshOfAnEmptyFileListsNothing()
    {
        Workspace workspace;
        const TripsWindow trips(workspace.makeTrips());
        trips.clicks(u"Refresh"_s);
        QCOMPARE(trips.list()->rowCount(), 0);
        QCOMPARE(trips.statuses, QStringList({u"Loaded 0 trips"_s}));
        QCOMPARE(entries(trips.filter()), QStringList({u"All Payweeks"_s}));
    }

    void refreshWithoutADatabaseAsksForOne()
    {
        const Workspace workspace;
        DialogRobot robot;
        const TripsWindow trips;
        robot.expect(DialogRobot::Warning, u"No Database"_s, u"Open trips.db first."_s);
        trips.clicks(u"Refresh"_s);
        QCOMPARE(trips.statuses, QStringList());
    }

    void filterOfAFileThatWasClosedAsksForOne()
    {
        Workspace workspace;
        DialogRobot robot;
        const TripsWindow trips(makeTwoWeeks(workspace));
        DatabaseLocator::closeAllSqliteConnections();
        robot.expect(DialogRobot::Warning, u"No Database"_s, u"Open trips.db first."_s);
        Person::chooses(trips.filter(), u"04/18/2026"_s);
        QCOMPARE(trips.list()->rowCount(), 3);
        QCOMPARE(trips.statuses, QStringList());
    }

    void fileClosedFromOutsideCanBeOpenedAgain()
    {
        Workspace workspace;
        const QString path = makeTwoWeeks(workspace);
        const TripsWindow trips(path);
        DatabaseLocator::closeAllSqliteConnections();
        trip().no(u"4471299"_s).insert(workspace);
        trips.page->openDatabase(path);
        QCOMPARE(trips.list()->rowCount(), 4);
    }

    void tripsThatCannotBeReadGiveTwoBoxesAndStayListed()
    {
        Workspace workspace;
        DialogRobot robot;
        const TripsWindow trips(makeTwoWeeks(workspace));
        workspace.execute(u"DROP TABLE trips"_s);
        const QString text = u"no such table: trips"_s;
        robot.expectContaining(DialogRobot::Critical, u"Payweek Query Error"_s, text);
        robot.expectContaining(DialogRobot::Critical, u"Query Error"_s, text);
        trips.clicks(u"Refresh"_s);
        QCOMPARE(trips.list()->rowCount(), 3);
        QCOMPARE(entries(trips.filter()), QStringList({u"All Payweeks"_s}));
        QCOMPARE(trips.statuses, QStringList());
    }

    void clickedTripFillsTheForm()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertWorkedTrip(workspace, u"4471203"_s);
        const TripsWindow trips(path);
        trips.clicksTrip(0);
        QCOMPARE(trips.form(),
                 QStringList({u"1"_s, u"4471203"_s, u"04/18/2026"_s, u"100"_s, u"500"_s,
                              u"$1000.00"_s, u"$200.00"_s, u"25"_s, u"13.00"_s, u"$73.08"_s}));
        QCOMPARE(trips.window.windowTitle(), u"Brindlepath Desk - 4471203"_s);
        QCOMPARE(trips.statuses, QStringList());
        QCOMPARE(trips.openedPayweeks, QStringList());
    }

    void clickedTripIsToldInDetail()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertWorkedTrip(workspace, u"4471203"_s);
        const TripsWindow trips(path);
        trips.clicksTrip(0);
        QCOMPARE(trips.details(), u"ID: 1\nTrip #: 4471203\nPayweek: 04/18/2026\nEmpty: 100\n"
                                  "Loaded: 500\nTotal Miles: 600.00\nLinehaul: $1000.00\n"
                                  "FUSU: $200.00\nTotal Revenue: $1250.00\nTotal Cost: $300.00\n"
                                  "Net Revenue: $950.00\nCarrier %: 25\nCarrier Make: $250.00\n"
                                  "Carrier earns 26.32%% of driver net\nCPM: 158.33\n"
                                  "Trip Hours: 13.00\nNet/Hour: $73.08\n"_s);
    }

    void detailsAreOfTheItemsAsTheyAreNow()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        const qint64 id = insertWorkedTrip(workspace, u"4471203"_s);
        const TripsWindow trips(path);
        costItem(id, u"Engine repair"_s, 1000.0).insert(workspace);
        trips.clicksTrip(0);
        const QStringList lines = trips.details().split(u'\n');
        QVERIFY(lines.contains(u"Total Cost: $1300.00"_s));
        QVERIFY(lines.contains(u"Net Revenue: $-50.00"_s));
        QVERIFY(lines.contains(u"Carrier earns N/A of driver net"_s));
        QCOMPARE(trips.form().last(), u"$-3.85"_s);
        QCOMPARE(column(trips.list(), u"Net Revenue"_s), QStringList({u"$950.00"_s}));
        QCOMPARE(workspace.value(u"SELECT net_revenue FROM trips"_s).toDouble(), 950.0);
    }

    void tripChosenByKeyFillsTheForm()
    {
        Workspace workspace;
        const TripsWindow trips(makeTwoWeeks(workspace));
        trips.clicksTrip(0);
        QCOMPARE(trips.form().at(1), u"3"_s);
        QTest::keyClick(trips.list(), Qt::Key_Down);
        QCOMPARE(trips.form().first(3), QStringList({u"2"_s, u"2"_s, u"04/18/2026"_s}));
        QCOMPARE(trips.window.windowTitle(), u"Brindlepath Desk - 2"_s);
    }

    void anotherTripDiscardsWhatWasTyped()
    {
        Workspace workspace;
        const DialogRobot robot;
        const TripsWindow trips(makeTwoWeeks(workspace));
        trips.clicksTrip(0);
        trips.types("tripNoField", u"half typed"_s);
        trips.clicksTrip(1);
        QCOMPARE(trips.form().at(1), u"2"_s);
        trips.clicksTrip(0);
        QCOMPARE(trips.form().at(1), u"3"_s);
        QCOMPARE(robot.seen().size(), 0);
    }

    void sameTripClickedAgainDiscardsWhatWasTyped()
    {
        Workspace workspace;
        const TripsWindow trips(makeTwoWeeks(workspace));
        trips.clicksTrip(0);
        trips.types("tripNoField", u"half typed"_s);
        trips.clicksTrip(0);
        QCOMPARE(trips.form().at(1), u"3"_s);
    }

    void tripWithoutANumberLeavesThePageInTheTitle()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        trip().set(u"trip_no"_s, QVariant()).insert(workspace);
        const TripsWindow trips(path);
        trips.clicksTrip(0);
        QCOMPARE(trips.form().first(), u"1"_s);
        QCOMPARE(trips.window.windowTitle(), u"Brindlepath Desk - Trips"_s);
    }

    void clickOnAPayweekOpensIt()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertWorkedTrip(workspace, u"4471203"_s, u" 04/18/2026 "_s);
        const TripsWindow trips(path);
        Person::clicksCell(trips.list(), 0, PayweekColumn);
        QCOMPARE(trips.openedPayweeks, QStringList({u"04/18/2026"_s}));
        QCOMPARE(trips.form().at(1), u"4471203"_s);
    }

    void clickOnAnotherColumnOpensNoPayweek()
    {
        Workspace workspace;
        const TripsWindow trips(makeTwoWeeks(workspace));
        for (int column = TripNoColumn; column < TripColumnCount; ++column) {
            if (column != PayweekColumn)
                Person::clicksCell(trips.list(), 0, column);
        }
        QTest::keyClick(trips.list(), Qt::Key_Down);
        QCOMPARE(trips.openedPayweeks, QStringList());
    }

    void blankPayweekOpensNothing()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        trip().no(u"4471203"_s).payweek(u"  "_s).insert(workspace);
        const TripsWindow trips(path);
        Person::clicksCell(trips.list(), 0, PayweekColumn);
        QCOMPARE(trips.openedPayweeks, QStringList());
        QCOMPARE(trips.form().at(1), u"4471203"_s);
    }

    void clickOnAPayweekOnlyLoadsTheTripWhereNoOneOpensIt()
    {
        Workspace workspace;
        const TripsWindow trips(makeTwoWeeks(workspace));
        trips.page->openPayweekCallback = {};
        Person::clicksCell(trips.list(), 2, PayweekColumn);
        QCOMPARE(trips.form().at(1), u"1"_s);
        QCOMPARE(trips.openedPayweeks, QStringList());
    }

    void sortedListLoadsTheTripThatIsSeen()
    {
        Workspace workspace;
        const TripsWindow trips(makeTwoWeeks(workspace));
        Person::clicksHeader(trips.list(), PayweekColumn);
        QCOMPARE(column(trips.list(), u"Payweek"_s).first(), u"04/11/2026"_s);
        trips.clicksTrip(0);
        QCOMPARE(trips.form().at(1), u"1"_s);
        trips.clicks(u"Refresh"_s);
        QCOMPARE(column(trips.list(), u"Payweek"_s).first(), u"04/11/2026"_s);
    }

    void newTripEmptiesThePage()
    {
        Workspace workspace;
        const TripsWindow trips(makeTwoWeeks(workspace));
        trips.clicksTrip(0);
        trips.clicks(u"New Trip"_s);
        QCOMPARE(trips.form(), emptyForm());
        QCOMPARE(trips.details(), u""_s);
        QCOMPARE(trips.window.focusWidget(), trips.line("tripNoField"));
        QCOMPARE(trips.window.windowTitle(), u"Brindlepath Desk - Trips"_s);
        QCOMPARE(trips.statuses, QStringList({u"New Trip mode."_s}));
        QCOMPARE(trips.list()->rowCount(), 3);
    }

    void everyCallbackMayBeUnset()
    {
        Workspace workspace;
        const DialogRobot robot;
        const TripsWindow trips(makeTwoWeeks(workspace));
        trips.page->statusCallback = {};
        trips.page->openPayweekCallback = {};
        trips.page->makeReady(100);
        trips.clicks(u"Refresh"_s);
        Person::clicksCell(trips.list(), 0, PayweekColumn);
        trips.clicks(u"Save Trip / Changes"_s);
        trips.page->openTripById(1);
        trips.page->openTripById(99);
        trips.clicks(u"New Trip"_s);
        QCOMPARE(trips.list()->rowCount(), 3);
        QCOMPARE(trips.statuses, QStringList());
    }

private:
    static QStringList entries(const QComboBox *box)
    {
        QStringList texts;
        for (int index = 0; index < box->count(); ++index)
            texts.append(box->itemText(index));
        return texts;
    }
};

TEST_CLASS(tst_TripsPage)
#include "tst_TripsPage.moc"
