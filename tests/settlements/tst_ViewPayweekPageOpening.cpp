#include "data/DatabaseLocator.h"
#include "settlements/PayweekRows.h"
#include "settlements/PayweekWindow.h"
#include "support/DialogRobot.h"
#include "support/ReadingOrder.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"

#include <QDir>
#include <QScrollArea>
#include <QSqlDatabase>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

/// How a file comes onto the page, and what the page is without one.
class tst_ViewPayweekPageOpening : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pageWithoutAFileAsksForOne()
    {
        const Workspace workspace;
        const DialogRobot robot;
        const PayweekWindow view;
        QCOMPARE(view.note(), u"Open trips.db and choose a payweek."_s);
        QCOMPARE(view.summary(), QString());
        QCOMPARE(view.offered(), QStringList());
        QCOMPARE(view.page->currentPayweek(), QString());
        QCOMPARE(view.tableSizes(), clearedTables);
        QCOMPARE(view.statuses, QStringList());
        QCOMPARE(view.announced, QStringList());
        QCOMPARE(robot.seen().size(), 0);
    }

    void partsOfThePageHaveRoom()
    {
        const Workspace workspace;
        const PayweekWindow view;
        QCOMPARE(view.box()->minimumWidth(), 160);
        QCOMPARE(view.named<QTextEdit>("payweekSummary")->minimumHeight(), 170);
        QCOMPARE(view.trips()->minimumHeight(), 260);
        QCOMPARE(view.items()->minimumHeight(), 220);
        QVERIFY(view.named<QTextEdit>("payweekSummary")->isReadOnly());
        QVERIFY(view.named<QLabel>("payweekNote")->wordWrap());
    }

    void partsStandFromTopToBottom()
    {
        const Workspace workspace;
        const PayweekWindow view;
        const auto *area = view.page->findChild<QScrollArea *>();
        QCOMPARE(
            partsInReadingOrder(area->widget()),
            QStringList({u"View Payweek"_s, u"Open trips.db"_s, u"Payweek:"_s, u"payweekBox"_s,
                         u"Refresh"_s, u"Open trips.db and choose a payweek."_s,
                         u"payweekSummary"_s, u"Trips in Selected Payweek"_s, u"payweekTrips"_s,
                         u"Non-Trip Settlement Items"_s, u"payweekItems"_s}));
    }

    void pageScrollsWithinItsMargins()
    {
        const Workspace workspace;
        const PayweekWindow view;
        const auto *area = view.page->findChild<QScrollArea *>();
        QVERIFY(area->widgetResizable());
        QCOMPARE(area->geometry(), view.page->rect());
        const QLayout *parts = area->widget()->layout();
        QCOMPARE(parts->contentsMargins(), QMargins(12, 12, 12, 12));
        QCOMPARE(parts->spacing(), 10);
    }

    void headingIsBoldAndLarger()
    {
        const Workspace workspace;
        const PayweekWindow view;
        const QLabel *heading = view.page->findChild<QLabel *>();
        QCOMPARE(heading->text(), u"View Payweek"_s);
        QCOMPARE(heading->font().pointSize(), QFont().pointSize() + 4);
        QVERIFY(heading->font().bold());
    }

    void refreshWithoutAFileAsksForOne()
    {
        const Workspace workspace;
        const DialogRobot robot;
        const PayweekWindow view;
        view.clicks(u"Refresh"_s);
        QCOMPARE(view.summary(), u"Open trips.db first."_s);
        QCOMPARE(view.tableSizes(), clearedTables);
        QCOMPARE(view.announced, QStringList({u""_s}));
        QCOMPARE(view.statuses, QStringList());
        QCOMPARE(robot.seen().size(), 0);
    }

    void openedFileShowsItsNewestPayweek()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertWorkedWeeks(workspace);
        const PayweekWindow view;
        view.page->openDatabase(path);
        QCOMPARE(view.offered(), QStringList({u"01/16/2026"_s, u"01/09/2026"_s, u"01/02/2026"_s}));
        QCOMPARE(view.page->currentPayweek(), u"01/16/2026"_s);
        QCOMPARE(view.note(), u"Opened: "_s + path);
        QCOMPARE(view.statuses, QStringList({u"Opened View Payweek DB: "_s + path,
                                             u"Loaded 3 payweeks for View Payweek"_s,
                                             u"Loaded View Payweek summary for 01/16/2026"_s}));
        QCOMPARE(view.announced, QStringList({u"01/16/2026"_s}));
    }

    void fileWithoutPayweeksShowsNone()
    {
        Workspace workspace;
        const DialogRobot robot;
        const PayweekWindow view;
        const QString path = workspace.makeTrips();
        view.page->openDatabase(path);
        QCOMPARE(view.summary(), u"No payweek selected."_s);
        QCOMPARE(view.tableSizes(), clearedTables);
        QCOMPARE(view.announced, QStringList({u""_s}));
        QCOMPARE(view.statuses, QStringList({u"Opened View Payweek DB: "_s + path,
                                             u"Loaded 0 payweeks for View Payweek"_s}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void buttonAsksForAFile()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips(u"older/trips 2025.db"_s);
        const PayweekWindow view;
        robot.expectFileDialog(u"Open trips.db"_s).choose(path);
        view.clicks(u"Open trips.db"_s);
        QCOMPARE(view.note(), u"Opened: "_s + path);
        QCOMPARE(view.summary(), u"No payweek selected."_s);
    }

    void noChoiceOpensNothing()
    {
        Workspace workspace;
        DialogRobot robot;
        workspace.makeTrips();
        const PayweekWindow view;
        robot.expectFileDialog(u"Open trips.db"_s).dismiss();
        view.clicks(u"Open trips.db"_s);
        QCOMPARE(view.note(), u"Open trips.db and choose a payweek."_s);
        QCOMPARE(view.statuses, QStringList());
        QCOMPARE(view.announced, QStringList());
    }

    void anotherFileTakesThePlaceOfTheFirst()
    {
        Workspace workspace;
        const QString other = workspace.makeTrips(u"other.db"_s);
        const QString path = workspace.makeTrips();
        insertWorkedWeeks(workspace);
        const PayweekWindow view(path);
        view.page->openDatabase(other);
        QCOMPARE(view.offered(), QStringList());
        QCOMPARE(view.summary(), u"No payweek selected."_s);
        QCOMPARE(view.tableSizes(), clearedTables);
        QCOMPARE(view.note(), u"Opened: "_s + other);
    }

    void blankPathIsToldInABox()
    {
        const Workspace workspace;
        DialogRobot robot;
        const PayweekWindow view;
        robot.expect(DialogRobot::Critical, u"Database Error"_s, u"Database path is blank."_s);
        view.page->openDatabase(u"  "_s);
        QCOMPARE(view.note(), u"Open trips.db and choose a payweek."_s);
        QCOMPARE(view.statuses, QStringList());
        QCOMPARE(view.announced, QStringList());
    }

    void directoryOfThatNameGivesOneBox()
    {
        const Workspace workspace;
        DialogRobot robot;
        QVERIFY(QDir().mkdir(u"trips.db"_s));
        const PayweekWindow view;
        robot.expect(DialogRobot::Critical, u"Database Error"_s,
                     u"unable to open database file Error opening database"_s);
        view.page->openDatabase(workspace.path(u"trips.db"_s));
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(view.summary(), QString());
        QCOMPARE(view.statuses, QStringList());
    }

    void fileThatFailsToOpenLeavesThePageClosed()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertWorkedWeeks(workspace);
        PayweekWindow view(path);
        robot.expectContaining(DialogRobot::Critical, u"Database Error"_s,
                               u"unable to open database file"_s);
        view.page->openDatabase(workspace.path(u"no such folder/trips.db"_s));
        QCOMPARE(view.statuses, QStringList());
        QCOMPARE(view.announced, QStringList());
        QCOMPARE(view.note(), u"Opened: "_s + path);
        view.clicks(u"Refresh"_s);
        QCOMPARE(view.summary(), u"Open trips.db first."_s);
        view.page->openDatabase(path);
        QCOMPARE(view.announced, QStringList({u""_s, u"01/16/2026"_s}));
    }

    void zeroByteFileGivesOneBox()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeFile(u"trips.db"_s, {});
        const PayweekWindow view;
        robot.expect(DialogRobot::Critical, u"Payweek Load Error"_s,
                     u"no such table: settlement_non_trip_items Unable to execute statement"_s);
        view.page->openDatabase(path);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(view.summary(), u"No payweek selected."_s);
        QCOMPARE(view.tableSizes(), clearedTables);
        QCOMPARE(view.statuses, QStringList({u"Opened View Payweek DB: "_s + path}));
        QCOMPARE(workspace.bytes(u"trips.db"_s), QByteArray());
    }

    void fileOfRandomBytesGivesOneBox()
    {
        Workspace workspace;
        DialogRobot robot;
        const QByteArray bytes =
            QByteArray("\x7f\x45\x02\x13 no database at all \x00\xff", 26).repeated(200);
        const QString path = workspace.makeFile(u"trips.db"_s, bytes);
        const PayweekWindow view;
        robot.expect(DialogRobot::Critical, u"Payweek Load Error"_s,
                     u"file is not a database Unable to execute statement"_s);
        view.page->openDatabase(path);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(view.summary(), u"No payweek selected."_s);
        QCOMPARE(view.statuses, QStringList({u"Opened View Payweek DB: "_s + path}));
        QCOMPARE(workspace.bytes(u"trips.db"_s), bytes);
    }

    void fileClosedBehindThePageLeavesNothingOfIt()
    {
        Workspace workspace;
        const DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertWorkedWeeks(workspace);
        const PayweekWindow view(path);
        QCOMPARE(view.tableSizes(), QList<int>({1, 9, 2, 5}));
        DatabaseLocator::closeAllSqliteConnections();
        view.clicks(u"Refresh"_s);
        QCOMPARE(view.summary(), u"Open trips.db first."_s);
        QCOMPARE(view.tableSizes(), clearedTables);
        QCOMPARE(view.announced, QStringList({u""_s}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void pageThatGoesUnregistersItsConnection()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        const QString name = u"view_payweek_trips_connection"_s;
        {
            const PayweekWindow view(path);
            QVERIFY(QSqlDatabase::contains(name));
        }
        QVERIFY(!QSqlDatabase::contains(name));
    }

    void fileClosedFromOutsideCanBeOpenedAgain()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertWorkedWeeks(workspace);
        const PayweekWindow view(path);
        DatabaseLocator::closeAllSqliteConnections();
        view.page->openDatabase(path);
        QCOMPARE(view.announced, QStringList({u"01/16/2026"_s}));
        QCOMPARE(view.tableSizes(), QList<int>({1, 9, 2, 5}));
    }

    void anotherFileKeepsThePayweekIfItHasIt()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertWorkedWeeks(workspace);
        const QString copy = workspace.makeFile(u"copy.db"_s, workspace.bytes(u"trips.db"_s));
        const PayweekWindow view(path);
        view.chooses(u"01/09/2026"_s);
        view.page->openDatabase(copy);
        QCOMPARE(view.note(), u"Opened: "_s + copy);
        QCOMPARE(view.page->currentPayweek(), u"01/09/2026"_s);
    }

    void pageThatGoesTellsNoOne()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertWorkedWeeks(workspace);
        QStringList told;
        auto page = std::make_unique<ViewPayweekPage>();
        page->openDatabase(path);
        page->statusCallback = [&told](const QString &text) { told.append(text); };
        page->payweekChangedCallback = [&told](const QString &week) { told.append(week); };
        page->openTripCallback = [&told](int, const QString &number) { told.append(number); };
        page.reset();
        QCOMPARE(told, QStringList());
    }

    void pageThatFailedToOpenUnregistersItsConnection()
    {
        const Workspace workspace;
        DialogRobot robot;
        const QString name = u"view_payweek_trips_connection"_s;
        auto page = std::make_unique<ViewPayweekPage>();
        robot.expectContaining(DialogRobot::Critical, u"Database Error"_s,
                               u"unable to open database file"_s);
        page->openDatabase(u"no such folder/trips.db"_s);
        QVERIFY(QSqlDatabase::contains(name));
        page.reset();
        QVERIFY(!QSqlDatabase::contains(name));
    }

    void nothingIsWritten()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertWorkedWeeks(workspace);
        const QByteArray before = workspace.bytes(u"trips.db"_s);
        const PayweekWindow view(path);
        view.chooses(u"01/02/2026"_s);
        view.clicks(u"Refresh"_s);
        QCOMPARE(workspace.bytes(u"trips.db"_s), before);
    }

    void pageWorksWithoutAWindowThatListens()
    {
        Workspace workspace;
        const DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertWorkedWeeks(workspace);
        PayweekWindow view;
        view.page->statusCallback = {};
        view.page->openTripCallback = {};
        view.page->payweekChangedCallback = {};
        view.page->openDatabase(path);
        view.page->showPayweek(u"01/02/2026"_s);
        view.page->showPayweek(u"12/31/2030"_s);
        Person::clicksCell(view.trips(), 0, 0);
        QCOMPARE(view.figures(u"Trip revenue"_s), QStringList({u"$1,000.00"_s}));
        QCOMPARE(view.statuses, QStringList());
        QCOMPARE(robot.seen().size(), 0);
    }
};

TEST_CLASS(tst_ViewPayweekPageOpening)
#include "tst_ViewPayweekPageOpening.moc"
