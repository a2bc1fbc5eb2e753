#include "locations/LocationRows.h"
#include "locations/LocationsWindow.h"
#include "support/DialogRobot.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QStringList codes(const LocationsWindow &places)
{
    return column(places.table(), u"Code"_s);
}

void expectNoDatabase(DialogRobot &robot)
{
    robot.expect(DialogRobot::Warning, u"No Database"_s, u"Open locations.db first."_s);
}

} // namespace

/// A person opens files of all kinds and lists what they hold.
class tst_LocationsPageOpening : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutADatabaseThereIsNothingToRefresh()
    {
        const Workspace workspace;
        DialogRobot robot;
        const LocationsWindow places;
        expectNoDatabase(robot);
        places.clicks(u"Refresh"_s);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(places.statuses, QStringList());
    }

    void openedFileIsListedByCode()
    {
        Workspace workspace;
        LocationsWindow places;
        const QString path = makeLocations(workspace, {dallas, albany, locationWith(0, u"c1"_s)});
        places.page->openDatabase(path);
        QCOMPARE(texts(places.table()),
                 QList<QStringList>({albany, locationWith(0, u"c1"_s), dallas}));
        QCOMPARE(places.statuses,
                 QStringList({u"Loaded 3 locations"_s, "Opened locations DB: "_L1 + path}));
        QCOMPARE(places.form(), nothing);
        QCOMPARE(places.mode(), u"neither"_s);
        QCOMPARE(places.table()->rowHeight(0), 32);
    }

    void anySqliteFileCanBeChosenByHand()
    {
        Workspace workspace;
        DialogRobot robot;
        const LocationsWindow places;
        const QString path = workspace.makeLocations(u"old/places.sqlite"_s);
        addLocations(path, {albany});
        robot.expectFileDialog(u"Open locations.db"_s).choose(path);
        places.clicks(u"Open locations.db"_s);
        QCOMPARE(codes(places), QStringList({u"ALB1"_s}));
        QCOMPARE(places.statuses.last(), "Opened locations DB: "_L1 + path);
        QCOMPARE(robot.seen().constFirst().nameFilters,
                 QStringList({u"SQLite Database (*.db)"_s, u"All Files (*.*)"_s}));
    }

    void dismissedFileDialogLeavesTheOpenFile()
    {
        Workspace workspace;
        DialogRobot robot;
        const LocationsWindow places(makeLocations(workspace, {albany}));
        robot.expectFileDialog(u"Open locations.db"_s).dismiss();
        places.clicks(u"Open locations.db"_s);
        QCOMPARE(places.statuses, QStringList());
        places.clicks(u"Refresh"_s);
        QCOMPARE(codes(places), QStringList({u"ALB1"_s}));
    }

    void anotherFileTakesThePlaceOfTheFirst()
    {
        Workspace workspace;
        LocationsWindow places(makeLocations(workspace, {albany}));
        const QString other = workspace.makeLocations(u"other.db"_s);
        addLocations(other, {dallas});
        places.page->openDatabase(other);
        QCOMPARE(codes(places), QStringList({u"DAL4"_s}));
    }

    void anotherFileLeavesTheFormAsItStands()
    {
        Workspace workspace;
        const LocationsWindow places(makeLocations(workspace, {albany}));
        places.edits(0);
        places.types("locationNameField", u"Gate 9"_s);
        places.page->openDatabase(workspace.makeLocations(u"other.db"_s));
        QCOMPARE(places.table()->rowCount(), 0);
        QCOMPARE(places.form().first(2), QStringList({u"ALB1"_s, u"Gate 9"_s}));
        QCOMPARE(places.mode(), u"Save"_s);
    }

    void fileThatDoesNotOpenLeavesNoneOpen()
    {
        Workspace workspace;
        DialogRobot robot;
        LocationsWindow places(makeLocations(workspace, {albany}));
        robot.expectContaining(DialogRobot::Critical, u"Database Error"_s,
                               u"unable to open database file"_s);
        places.page->openDatabase(u"no such folder/locations.db"_s);
        QCOMPARE(places.statuses, QStringList());
        QCOMPARE(codes(places), QStringList({u"ALB1"_s}));
        expectNoDatabase(robot);
        places.clicks(u"Refresh"_s);
        QCOMPARE(codes(places), QStringList({u"ALB1"_s}));
        QCOMPARE(robot.seen().size(), 2);
    }

    void blankPathIsTold()
    {
        const Workspace workspace;
        DialogRobot robot;
        const LocationsWindow places;
        robot.expect(DialogRobot::Critical, u"Database Error"_s, u"Database path is blank."_s);
        places.page->openDatabase(u"  "_s);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(places.statuses, QStringList());
    }

    void blankPathLeavesTheFileThatWasOpen()
    {
        Workspace workspace;
        DialogRobot robot;
        const LocationsWindow places(makeLocations(workspace, {albany}));
        robot.expect(DialogRobot::Critical, u"Database Error"_s, u"Database path is blank."_s);
        places.page->openDatabase(u"  "_s);
        QCOMPARE(places.statuses, QStringList());
        places.clicks(u"Refresh"_s);
        QCOMPARE(places.statuses, QStringList({u"Loaded 1 locations"_s}));
    }

    void fileThatCannotBeListedIsToldAndStaysOpen_data()
    {
        QTest::addColumn<QString>("sql");
        QTest::addColumn<QString>("reason");
        QTest::newRow("no table") << u"DROP TABLE locations"_s << u"no such table: locations"_s;
        QTest::newRow("no column")
            << u"ALTER TABLE locations DROP COLUMN notes"_s << u"no such column: notes"_s;
        QTest::newRow("another table")
            << u"ALTER TABLE locations RENAME TO places"_s << u"no such table: locations"_s;
    }

    void fileThatCannotBeListedIsToldAndStaysOpen()
    {
        QFETCH(const QString, sql);
        QFETCH(const QString, reason);
        Workspace workspace;
        DialogRobot robot;
        const LocationsWindow places;
        const QString path = workspace.makeLocations();
        TestConnection(path).execute(sql);
        robot.expectContaining(DialogRobot::Critical, u"Query Error"_s, reason);
        places.page->openDatabase(path);
        QCOMPARE(places.statuses, QStringList({"Opened locations DB: "_L1 + path}));
        QCOMPARE(places.table()->rowCount(), 0);
        robot.expectContaining(DialogRobot::Critical, u"Query Error"_s, reason);
        places.clicks(u"Refresh"_s);
        QCOMPARE(robot.seen().size(), 2);
    }

    void fileThatIsNoDatabaseIsToldAndLeftAlone()
    {
        const Workspace workspace;
        DialogRobot robot;
        const LocationsWindow places;
        const QByteArray noise(200, 'n');
        const QString path = workspace.makeFile(u"locations.db"_s, noise);
        robot.expectContaining(DialogRobot::Critical, u"Query Error"_s,
                               u"file is not a database"_s);
        places.page->openDatabase(path);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(workspace.bytes(u"locations.db"_s), noise);
    }

    void fileThatCannotBeListedAnyMoreKeepsTheListAndTheForm()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeLocations(workspace, {albany, dallas});
        const LocationsWindow places(path);
        places.edits(1);
        places.types("locationNameField", u"Gate 9"_s);
        TestConnection(path).execute(u"DROP TABLE locations"_s);
        robot.expectContaining(DialogRobot::Critical, u"Query Error"_s,
                               u"no such table: locations"_s);
        places.clicks(u"Refresh"_s);
        QCOMPARE(texts(places.table()), QList<QStringList>({albany, dallas}));
        QCOMPARE(places.form().first(2), QStringList({u"DAL4"_s, u"Gate 9"_s}));
        QCOMPARE(places.mode(), u"Save"_s);
        QCOMPARE(places.selection(), QList<int>({1, 1}));
    }

    void lockedFileKeepsTheListUntilItIsFree()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeLocations(workspace, {albany});
        const LocationsWindow places(path);
        onThePagesConnection(u"PRAGMA busy_timeout = 0"_s); // and not the driver's five seconds
        {
            const TestConnection other(path);
            other.execute(u"BEGIN EXCLUSIVE"_s);
            robot.expectContaining(DialogRobot::Critical, u"Query Error"_s,
                                   u"database is locked"_s);
            places.clicks(u"Refresh"_s);
        }
        QCOMPARE(codes(places), QStringList({u"ALB1"_s}));
        QCOMPARE(places.statuses, QStringList());
        places.clicks(u"Refresh"_s);
        QCOMPARE(places.statuses, QStringList({u"Loaded 1 locations"_s}));
    }

    void fileIsClosedWithThePage()
    {
        Workspace workspace;
        {
            const LocationsWindow places(makeLocations(workspace, {albany}));
            QVERIFY(QSqlDatabase::database(u"locations_connection"_s, false).isOpen());
        }
        QVERIFY(!QSqlDatabase::database(u"locations_connection"_s, false).isOpen());
        const LocationsWindow again(workspace.path(u"locations.db"_s));
        QCOMPARE(codes(again), QStringList({u"ALB1"_s}));
    }
};

TEST_CLASS(tst_LocationsPageOpening)
#include "tst_LocationsPageOpening.moc"
