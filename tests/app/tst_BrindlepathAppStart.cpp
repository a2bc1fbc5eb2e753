#include "app/DeskWindow.h"
#include "support/DialogRobot.h"
#include "support/Person.h"
#include "support/RowMakers.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QTextEdit>

using namespace Qt::StringLiterals;

/// What the program finds when it starts.
class tst_BrindlepathAppStart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fontBefore = QApplication::font(); }
    // Each window sets the font of the saved scale.
    void cleanup() { QApplication::setFont(fontBefore); }

    void startWithoutDatabasesIsSilentAndMakesNoFile();
    void startOpensTripsAndThePayweek();
    void startShowsTotalsReportsAndHistory();
    void startOpensLocationsAndTheSettlement();
    void startWithLocationsAloneIsSilent();
    void emptyTablesShowTheirCounts();
    void damagedFileGivesItsBoxesAndAUsableWindow();
    void damagedLocationsGiveTheirOwnBox();
    void pagesOpenTheirFilesInTheirOrder();
    void directoryNamedTripsDbGivesOneBoxAPage();
    void zeroByteFileGivesTheBoxesOfEachPageOnce();

private:
    QFont fontBefore;
};

void tst_BrindlepathAppStart::startWithoutDatabasesIsSilentAndMakesNoFile()
{
    const Workspace workspace;
    const DialogRobot robot;
    const BrindlepathApp window;
    QCOMPARE(robot.seen().size(), 0);
    QCOMPARE(status(window), u"Reports refreshed."_s);
    QCOMPARE(textOf(window, "startDatabaseValue"), u"No database open"_s);
    QCOMPARE(textOf(window, "startTripsValue"), u"Not available"_s);
    QCOMPARE(textOf(window, "startLocationsValue"), u"0"_s);
    QCOMPARE(textOf(window, "startPayweekValue"), u"None"_s);
    QCOMPARE(textOf(window, "startBackupValue"), u"Not Available"_s);
    QCOMPARE(textOf(window, "startActivityLabel"), u"No recent activity available."_s);
    QCOMPARE(QDir(workspace.path(u"."_s)).entryList(QDir::Files), QStringList());
}

void tst_BrindlepathAppStart::startOpensTripsAndThePayweek()
{
    Workspace workspace;
    workspace.makeTrips();
    workspace.makeLocations();
    trip().no(u"4471203"_s).payweek(u"04/18/2026"_s).insert(workspace);
    const BrindlepathApp window;
    QCOMPARE(column(named<QTableWidget>(window, "tripList"), u"Trip #"_s),
             QStringList({u"4471203"_s}));
    QVERIFY(named<QTextEdit>(window, "payweekSummary")
                ->toPlainText()
                .startsWith("Payweek: 04/18/2026\n"_L1));
    QCOMPARE(textOf(window, "startDatabaseValue"), u"trips.db"_s);
    QCOMPARE(textOf(window, "startTripsValue"), u"1"_s);
    QCOMPARE(textOf(window, "startPayweekValue"), u"04/18/2026"_s);
    QCOMPARE(textOf(window, "startActivityLabel"), u"\u2022 Latest trip: 4471203"_s);
    QCOMPARE(status(window), u"Reports refreshed."_s);
}

void tst_BrindlepathAppStart::startShowsTotalsReportsAndHistory()
{
    Workspace workspace;
    workspace.makeTrips();
    trip().no(u"4471203"_s).payweek(u"04/18/2026"_s).insert(workspace);
    workspace.execute(u"INSERT INTO settlement_import_log (source_hash) "
                      "VALUES ('database_activity')"_s);
    const BrindlepathApp window;
    QCOMPARE(textOf(window, "totalsScope"), u"Scope: Year 2026"_s);
    QCOMPARE(named<QComboBox>(window, "reportYear")->currentText(), u"2026"_s);
    QCOMPARE(textOf(window, "reportStatus"), u"Reports refreshed."_s);
    QCOMPARE(column(named<QTableWidget>(window, "importHistoryGrid"), u"Action"_s),
             QStringList({u"Database Activity"_s}));
    QCOMPARE(textOf(window, "importHistoryStatus"), u"Loaded 1 database activity rows."_s);
}

void tst_BrindlepathAppStart::startOpensLocationsAndTheSettlement()
{
    Workspace workspace;
    workspace.makeTrips();
    makeLocationsWith(workspace, u"('MEM-02'), ('DAL-01')"_s);
    expense(u"04/18/2026"_s, u"Permit"_s, 12.0).insert(workspace);
    const BrindlepathApp window;
    QCOMPARE(column(named<QTableWidget>(window, "locationTable"), u"Code"_s),
             QStringList({u"DAL-01"_s, u"MEM-02"_s}));
    QCOMPARE(column(named<QTableWidget>(window, "settlementItems"), u"Name"_s),
             QStringList({u"Permit"_s}));
    QCOMPARE(textOf(window, "startLocationsValue"), u"2"_s);
    QVERIFY(QSqlDatabase::database(u"locations_connection"_s, false).isOpen());
    QVERIFY(QSqlDatabase::database(u"settlement_trips_connection"_s, false).isOpen());
}

void tst_BrindlepathAppStart::startWithLocationsAloneIsSilent()
{
    Workspace workspace;
    const DialogRobot robot;
    makeLocationsWith(workspace, u"('MEM-02')"_s);
    const BrindlepathApp window;
    QCOMPARE(status(window), u"Reports refreshed."_s);
    QCOMPARE(textOf(window, "startDatabaseValue"), u"No database open"_s);
    QCOMPARE(textOf(window, "startLocationsValue"), u"1"_s);
    QCOMPARE(robot.seen().size(), 0);
}

void tst_BrindlepathAppStart::emptyTablesShowTheirCounts()
{
    Workspace workspace;
    workspace.makeTrips();
    makeLocationsWith(workspace, u"('DAL-01'), ('MEM-02')"_s);
    const BrindlepathApp window;
    QCOMPARE(textOf(window, "startDatabaseValue"), u"trips.db"_s);
    QCOMPARE(textOf(window, "startTripsValue"), u"0"_s);
    QCOMPARE(textOf(window, "startLocationsValue"), u"2"_s);
    QCOMPARE(textOf(window, "startPayweekValue"), u"None"_s);
    QCOMPARE(textOf(window, "startBackupValue"), u"Not Available"_s);
    QCOMPARE(textOf(window, "startActivityLabel"), u"No recent activity available."_s);
}

void tst_BrindlepathAppStart::damagedFileGivesItsBoxesAndAUsableWindow()
{
    const Workspace workspace;
    const QByteArray noise("this is no database, whatever its name says; "
                           "it only has to be longer than a header of one hundred bytes.....");
    workspace.makeFile(u"trips.db"_s, noise);
    DialogRobot robot;
    const QString reason = u"file is not a database"_s;
    robot.expectContaining(DialogRobot::Warning, u"Import History"_s, reason);
    robot.expectContaining(DialogRobot::Critical, u"Trip Detail Setup Error"_s, reason);
    robot.expectContaining(DialogRobot::Critical, u"Trip Stop Setup Error"_s, reason);
    robot.expectContaining(DialogRobot::Critical, u"Pay Item Name Query Error"_s, reason);
    robot.expectContaining(DialogRobot::Critical, u"Cost Item Name Query Error"_s, reason);
    robot.expectContaining(DialogRobot::Critical, u"Payweek Query Error"_s, reason);
    robot.expectContaining(DialogRobot::Critical, u"Query Error"_s, reason);
    robot.expectContaining(DialogRobot::Critical, u"Settlement Payweek Error"_s, reason);
    robot.expectContaining(DialogRobot::Critical, u"Payweek Load Error"_s, reason);
    BrindlepathApp window;
    Person::shows(window);
    goTo(window, u"Trips"_s);
    QCOMPARE(window.windowTitle(), u"Brindlepath Desk - Trips"_s);
    QCOMPARE(workspace.bytes(u"trips.db"_s), noise);
}

void tst_BrindlepathAppStart::damagedLocationsGiveTheirOwnBox()
{
    Workspace workspace;
    workspace.makeTrips();
    const QByteArray noise(200, 'n');
    workspace.makeFile(u"locations.db"_s, noise);
    DialogRobot robot;
    robot.expectContaining(DialogRobot::Critical, u"Query Error"_s, u"file is not a database"_s);
    const BrindlepathApp window;
    QCOMPARE(robot.seen().size(), 1);
    QCOMPARE(status(window), u"Reports refreshed."_s);
    QCOMPARE(workspace.bytes(u"locations.db"_s), noise);
}

void tst_BrindlepathAppStart::pagesOpenTheirFilesInTheirOrder()
{
    const Workspace workspace;
    QVERIFY(QDir().mkdir(workspace.path(u"trips.db"_s)));
    workspace.makeFile(u"locations.db"_s, QByteArray(200, 'n'));
    DialogRobot robot;
    robot.expectContaining(DialogRobot::Warning, u"Import History"_s, u"unable to open"_s);
    robot.expectContaining(DialogRobot::Critical, u"Database Error"_s, u"unable to open"_s);
    robot.expectContaining(DialogRobot::Critical, u"Query Error"_s, u"file is not a database"_s);
    robot.expectContaining(DialogRobot::Critical, u"Database Error"_s, u"unable to open"_s);
    robot.expectContaining(DialogRobot::Critical, u"Database Error"_s, u"unable to open"_s);
    robot.expectContaining(DialogRobot::Critical, u"Database Error"_s, u"unable to open"_s);
    const BrindlepathApp window;
    QCOMPARE(robot.seen().size(), 6);
}

void tst_BrindlepathAppStart::directoryNamedTripsDbGivesOneBoxAPage()
{
    const Workspace workspace;
    QVERIFY(QDir().mkdir(workspace.path(u"trips.db"_s)));
    DialogRobot robot;
    const QString reason = u"unable to open database file"_s;
    robot.expectContaining(DialogRobot::Warning, u"Import History"_s, reason);
    for (int page = 0; page < 4; ++page) // Trips, Edit Settlement, View Payweek, Totals
        robot.expectContaining(DialogRobot::Critical, u"Database Error"_s, reason);
    const BrindlepathApp window;
    QCOMPARE(textOf(window, "startDatabaseValue"), u"trips.db"_s);
    QCOMPARE(textOf(window, "startTripsValue"), u"Not available"_s);
    QCOMPARE(status(window), u"Reports refreshed."_s);
    QVERIFY(QDir(workspace.path(u"trips.db"_s)).isEmpty());
}

void tst_BrindlepathAppStart::zeroByteFileGivesTheBoxesOfEachPageOnce()
{
    const Workspace workspace;
    workspace.makeFile(u"trips.db"_s, {});
    DialogRobot robot;
    robot.expectContaining(DialogRobot::Critical, u"Trip Stop Setup Error"_s, u"trip_stops"_s);
    robot.expectContaining(DialogRobot::Critical, u"Pay Item Name Query Error"_s, u"pay"_s);
    robot.expectContaining(DialogRobot::Critical, u"Cost Item Name Query Error"_s, u"cost"_s);
    robot.expectContaining(DialogRobot::Critical, u"Payweek Query Error"_s, u"trips"_s);
    robot.expectContaining(DialogRobot::Critical, u"Query Error"_s, u"trips"_s);
    robot.expectContaining(DialogRobot::Critical, u"Settlement Payweek Error"_s,
                           u"no such table"_s);
    robot.expectContaining(DialogRobot::Critical, u"Payweek Load Error"_s,
                           u"settlement_non_trip_items"_s);
    const BrindlepathApp window;
    QCOMPARE(textOf(window, "startTripsValue"), u"Not available"_s);
    QCOMPARE(workspace.rows(u"SELECT name FROM sqlite_master WHERE type = 'table' "
                            "AND name NOT LIKE 'sqlite_%' ORDER BY name"_s),
             QList<QStringList>({{u"settlement_import_log"_s}, {u"trip_detail_items"_s}}));
}

TEST_CLASS(tst_BrindlepathAppStart)

#include "tst_BrindlepathAppStart.moc"
