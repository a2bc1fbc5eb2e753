#include "support/DialogRobot.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "trips/TripsPage.h"
#include "trips/TripsRows.h"
#include "trips/TripsWindow.h"

#include <QDir>
#include <QSqlDatabase>
#include <QTest>

using namespace Qt::StringLiterals;

/// How a file, and a single trip, come onto the page.
class tst_TripsPageOpening : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void opensTheFileInTheWorkingDirectory()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertWorkedTrip(workspace, u"4471203"_s);
        const TripsWindow trips;
        trips.page->autoOpen();
        QCOMPARE(column(trips.list(), u"Trip #"_s), QStringList({u"4471203"_s}));
        QCOMPARE(trips.statuses, QStringList({u"Loaded 1 trips"_s, u"Opened trips DB: "_s + path}));
        QCOMPARE(trips.form(), emptyForm());
    }

    void withoutAFileNothingIsSaidOrMade()
    {
        const Workspace workspace;
        const DialogRobot robot;
        const TripsWindow trips;
        trips.page->autoOpen();
        QCOMPARE(robot.seen().size(), 0);
        QCOMPARE(trips.statuses, QStringList());
        QCOMPARE(QDir(workspace.path(u"."_s)).entryList(QDir::Files), QStringList());
    }

    void locationsAreLookedForEvenWithoutTrips()
    {
        const Workspace workspace;
        QVERIFY(QDir().mkdir(workspace.path(u"locations.db"_s)));
        const DialogRobot robot;
        const TripsWindow trips;
        trips.page->autoOpen();
        QCOMPARE(trips.statuses,
                 QStringList({u"Could not open locations DB for stop code dropdown: "
                              "unable to open database file Error opening database"_s}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void buttonAsksForAFile()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips(u"older/trips 2025.db"_s);
        const TripsWindow trips;
        robot.expectFileDialog(u"Open trips.db"_s).choose(path);
        trips.clicks(u"Open trips.db"_s);
        QCOMPARE(trips.statuses, QStringList({u"Loaded 0 trips"_s, u"Opened trips DB: "_s + path}));
    }

    void noChoiceOpensNothing()
    {
        Workspace workspace;
        DialogRobot robot;
        workspace.makeTrips();
        const TripsWindow trips;
        robot.expectFileDialog(u"Open trips.db"_s).dismiss();
        trips.clicks(u"Open trips.db"_s);
        QCOMPARE(trips.statuses, QStringList());
    }

    void blankPathIsToldInABox()
    {
        const Workspace workspace;
        DialogRobot robot;
        const TripsWindow trips;
        robot.expect(DialogRobot::Critical, u"Database Error"_s, u"Database path is blank."_s);
        trips.page->openDatabase(u"  "_s);
        QCOMPARE(trips.statuses, QStringList());
    }

    void directoryOfThatNameGivesOneBox()
    {
        const Workspace workspace;
        DialogRobot robot;
        QVERIFY(QDir().mkdir(u"trips.db"_s));
        const TripsWindow trips;
        robot.expect(DialogRobot::Critical, u"Database Error"_s,
                     u"unable to open database file Error opening database"_s);
        trips.page->autoOpen();
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(trips.statuses, QStringList());
    }

    void fileThatFailsToOpenLeavesThePageClosed()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertWorkedTrip(workspace, u"4471203"_s);
        const TripsWindow trips(path);
        robot.expectContaining(DialogRobot::Critical, u"Database Error"_s,
                               u"unable to open database file"_s);
        trips.page->openDatabase(workspace.path(u"no such folder/trips.db"_s));
        robot.expect(DialogRobot::Warning, u"No Database"_s, u"Open trips.db first."_s);
        trips.clicks(u"Refresh"_s);
        QCOMPARE(trips.statuses, QStringList());
        trips.page->openDatabase(path);
        QCOMPARE(trips.statuses.first(), u"Loaded 1 trips"_s);
    }

    void zeroByteFileGivesABoxForEachMissingTable()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeFile(u"trips.db"_s, {});
        const TripsWindow trips;
        const QString noTrips = u"no such table: trips Unable to execute statement"_s;
        robot.expect(DialogRobot::Critical, u"Trip Stop Setup Error"_s,
                     u"no such table: trip_stops Unable to execute statement"_s);
        robot.expect(DialogRobot::Critical, u"Pay Item Name Query Error"_s,
                     u"no such table: trip_pay_items Unable to execute statement"_s);
        robot.expect(DialogRobot::Critical, u"Cost Item Name Query Error"_s,
                     u"no such table: trip_cost_items Unable to execute statement"_s);
        robot.expect(DialogRobot::Critical, u"Payweek Query Error"_s, noTrips);
        robot.expect(DialogRobot::Critical, u"Query Error"_s, noTrips);
        trips.page->autoOpen();
        QCOMPARE(robot.seen().size(), 5);
        QCOMPARE(trips.list()->rowCount(), 0);
        QCOMPARE(trips.statuses, QStringList({u"Opened trips DB: "_s + path}));
    }

    void fileOfRandomBytesGivesABoxForEachStep()
    {
        Workspace workspace;
        DialogRobot robot;
        const QByteArray bytes =
            QByteArray("\x7f\x45\x02\x13 no database at all \x00\xff", 26).repeated(200);
        const QString path = workspace.makeFile(u"trips.db"_s, bytes);
        const TripsWindow trips;
        const QString text = u"file is not a database Unable to execute statement"_s;
        robot.expect(DialogRobot::Critical, u"Trip Detail Setup Error"_s, text);
        robot.expect(DialogRobot::Critical, u"Trip Stop Setup Error"_s, text);
        robot.expect(DialogRobot::Critical, u"Pay Item Name Query Error"_s, text);
        robot.expect(DialogRobot::Critical, u"Cost Item Name Query Error"_s, text);
        robot.expect(DialogRobot::Critical, u"Payweek Query Error"_s, text);
        robot.expect(DialogRobot::Critical, u"Query Error"_s, text);
        trips.page->autoOpen();
        QCOMPARE(robot.seen().size(), 6);
        QCOMPARE(trips.statuses, QStringList({u"Opened trips DB: "_s + path}));
        QCOMPARE(workspace.bytes(u"trips.db"_s), bytes);
    }

    void fileWithoutStopsStillListsItsTrips()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        trip().no(u"4471203"_s).insert(workspace);
        workspace.execute(u"DROP TABLE trip_stops"_s);
        const TripsWindow trips;
        robot.expectContaining(DialogRobot::Critical, u"Trip Stop Setup Error"_s,
                               u"no such table: trip_stops"_s);
        trips.page->openDatabase(path);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(column(trips.list(), u"Trip #"_s), QStringList({u"4471203"_s}));
        QCOMPARE(column(trips.list(), u"Trip Hours"_s), QStringList({u"0.00"_s}));
    }

    void fileThatTakesNoFuelTableStillListsItsTrips()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        trip().no(u"4471203"_s).insert(workspace);
        workspace.execute(u"DROP TABLE trip_detail_items"_s);
        workspace.execute(u"CREATE INDEX trip_detail_items ON trips(cpm)"_s);
        const TripsWindow trips;
        robot.expectContaining(DialogRobot::Critical, u"Trip Detail Setup Error"_s,
                               u"there is already an index named trip_detail_items"_s);
        trips.page->openDatabase(path);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(trips.list()->rowCount(), 1);
    }

    void oldFileGetsWhatItLacks()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        trip().no(u"4471203"_s).insert(workspace);
        makeStopsFromBeforeWindows(workspace);
        workspace.execute(u"DROP TABLE trip_detail_items"_s);
        const TripsWindow trips(path);
        QCOMPARE(workspace.rows(u"SELECT has_appointment_window, appt_latest FROM trip_stops"_s),
                 QList<QStringList>({{u"0"_s, u""_s}, {u"0"_s, u""_s}}));
        QCOMPARE(workspace.value(u"SELECT COUNT(*) FROM trip_detail_items"_s), QVariant(0));
        QCOMPARE(column(trips.list(), u"Trip Hours"_s), QStringList({u"13.00"_s}));
    }

    void newerFileIsLeftAsItIs()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertWorkedTrip(workspace, u"4471203"_s);
        const QByteArray before = workspace.bytes(u"trips.db"_s);
        const TripsWindow trips(path);
        QCOMPARE(workspace.bytes(u"trips.db"_s), before);
    }

    void anotherFileTakesThePlaceOfTheFirst()
    {
        Workspace workspace;
        const QString older = workspace.makeTrips(u"older.db"_s);
        const QString path = workspace.makeTrips();
        insertWorkedTrip(workspace, u"4471203"_s);
        const TripsWindow trips(path);
        Person::chooses(trips.filter(), u"04/18/2026"_s);
        trips.page->openDatabase(older);
        QCOMPARE(trips.list()->rowCount(), 0);
        QCOMPARE(trips.filter()->currentText(), u"All Payweeks"_s);
        QCOMPARE(QSqlDatabase::database(u"trips_connection"_s, false).databaseName(), older);
    }

    void pageThatGoesClosesItsFileAndLeavesTheName()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        {
            const TripsWindow trips(path);
            QVERIFY(QSqlDatabase::database(u"trips_connection"_s, false).isOpen());
        }
        QVERIFY(QSqlDatabase::contains(u"trips_connection"_s));
        QVERIFY(!QSqlDatabase::database(u"trips_connection"_s, false).isOpen());
    }

    void tripOpensByItsId()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertWorkedTrip(workspace, u"1"_s);
        insertWorkedTrip(workspace, u"2"_s);
        const TripsWindow trips(path);
        trips.page->openTripById(1);
        QCOMPARE(trips.list()->currentRow(), 1);
        QCOMPARE(trips.list()->currentColumn(), int(TripNoColumn));
        QCOMPARE(trips.list()->selectionModel()->selectedRows(TripNoColumn).size(), 1);
        QVERIFY(trips.list()->item(1, NetPerHourColumn)->isSelected());
        QCOMPARE(trips.form().first(2), QStringList({u"1"_s, u"1"_s}));
        QCOMPARE(trips.window.windowTitle(), u"Brindlepath Desk - 1"_s);
        QCOMPARE(trips.statuses,
                 QStringList({u"Loaded 2 trips"_s, u"Opened trip 1 from View Payweek"_s}));
    }

    void tripOpensWithTheFileIfThatIsClosed()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertWorkedTrip(workspace, u"4471203"_s);
        const TripsWindow trips;
        trips.page->openTripById(1);
        QCOMPARE(trips.form().at(1), u"4471203"_s);
        QCOMPARE(trips.statuses,
                 QStringList({u"Loaded 1 trips"_s, u"Opened trips DB: "_s + path,
                              u"Loaded 1 trips"_s, u"Opened trip 4471203 from View Payweek"_s}));
    }

    void tripEnteredMeanwhileIsFound()
    {
        Workspace workspace;
        const TripsWindow trips(workspace.makeTrips());
        insertWorkedTrip(workspace, u"4471203"_s);
        trips.page->openTripById(1);
        QCOMPARE(trips.form().at(1), u"4471203"_s);
    }

    void filterThatHidesTheTripIsLifted()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertWorkedTrip(workspace, u"1"_s, u"04/11/2026"_s);
        insertWorkedTrip(workspace, u"2"_s, u"04/18/2026"_s);
        TripsWindow trips(path);
        Person::chooses(trips.filter(), u"04/18/2026"_s);
        trips.statuses.clear();
        trips.page->openTripById(1);
        QCOMPARE(trips.filter()->currentText(), u"All Payweeks"_s);
        QCOMPARE(trips.list()->currentRow(), 1);
        QCOMPARE(trips.form().at(1), u"1"_s);
        QCOMPARE(trips.statuses, QStringList({u"Loaded 1 trips"_s, u"Loaded 2 trips"_s,
                                              u"Opened trip 1 from View Payweek"_s}));
    }

    void filterThatShowsTheTripStays()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertWorkedTrip(workspace, u"1"_s, u"04/11/2026"_s);
        insertWorkedTrip(workspace, u"2"_s, u"04/18/2026"_s);
        const TripsWindow trips(path);
        Person::chooses(trips.filter(), u"04/11/2026"_s);
        trips.page->openTripById(1);
        QCOMPARE(trips.filter()->currentText(), u"04/11/2026"_s);
        QCOMPARE(trips.list()->rowCount(), 1);
    }

    void tripThatIsNotThereIsToldInTheStatus()
    {
        Workspace workspace;
        const DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertWorkedTrip(workspace, u"1"_s);
        const TripsWindow trips(path);
        Person::chooses(trips.filter(), u"04/18/2026"_s);
        trips.page->openTripById(99);
        QCOMPARE(trips.statuses.last(), u"Trip ID 99 was not found in the Trips table"_s);
        QCOMPARE(trips.form(), emptyForm());
        QCOMPARE(trips.filter()->currentIndex(), 0);
        QCOMPARE(robot.seen().size(), 0);
    }

    void tripWithoutANumberOpensToo()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        trip().set(u"trip_no"_s, QVariant()).insert(workspace);
        const TripsWindow trips(path);
        trips.page->openTripById(1);
        QCOMPARE(trips.form().first(), u"1"_s);
        QCOMPARE(trips.statuses.last(), u"Opened trip  from View Payweek"_s);
    }

    void noTripOpensWithoutAFile()
    {
        const Workspace workspace;
        const DialogRobot robot;
        const TripsWindow trips;
        trips.page->openTripById(7);
        QCOMPARE(trips.statuses,
                 QStringList({u"Unable to open trip 7 because trips.db is not open"_s}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void noTripOpensFromAFileThatDoesNot()
    {
        const Workspace workspace;
        DialogRobot robot;
        QVERIFY(QDir().mkdir(u"trips.db"_s));
        const TripsWindow trips;
        robot.expectContaining(DialogRobot::Critical, u"Database Error"_s,
                               u"unable to open database file"_s);
        trips.page->openTripById(7);
        QCOMPARE(trips.statuses,
                 QStringList({u"Unable to open trip 7 because trips.db is not open"_s}));
    }

    void noIdOpensNothing_data()
    {
        QTest::addColumn<int>("id");
        QTest::newRow("zero") << 0;
        QTest::newRow("negative") << -1;
    }

    void noIdOpensNothing()
    {
        Workspace workspace;
        workspace.makeTrips();
        const TripsWindow trips;
        QFETCH(const int, id);
        trips.page->openTripById(id);
        QCOMPARE(trips.statuses, QStringList());
        QVERIFY(!QSqlDatabase::database(u"trips_connection"_s, false).isOpen());
    }
};

TEST_CLASS(tst_TripsPageOpening)
#include "tst_TripsPageOpening.moc"
