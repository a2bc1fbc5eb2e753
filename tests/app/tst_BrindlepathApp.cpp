#include "app/DeskWindow.h"
#include "pdfimport/ImportPdfPage.h"
#include "support/DialogRobot.h"
#include "support/Person.h"
#include "support/RowMakers.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTextEdit>
#include <QToolBar>

using namespace Qt::StringLiterals;

/// A person goes from page to page.
class tst_BrindlepathApp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fontBefore = QApplication::font(); }
    // Each window sets the font of the saved scale.
    void cleanup() { QApplication::setFont(fontBefore); }

    void pagesStandInTheOrderOfTheNavigation();
    void formLeavesOnlyItsBars();
    void firstRowIsSelectedWithoutATitleChange();
    void choosingAPageWritesTitleAndStatus();
    void pageChosenShowsItselfAndItsName_data();
    void pageChosenShowsItselfAndItsName();
    void historyIsReadAfreshWhenItIsShown();
    void historyThatCannotBeReadStillBecomesThePage();
    void importRefreshesTheHistory();
    void importPageIsNeverShown();
    void whatPagesReportStandsInTheStatusLine();
    void locationSavedByHandIsCountedOnTheStartScreen();
    void startScreenRefreshesWhenShown();
    void startScreenTellsTheFileHeldOpenFromAnotherFolder();
    void ofSeveralFilesTheStartScreenTellsTheOneOfTheTripsPage();
    void pageStandsBesideTheNavigationAndGrows();
    void statusTextStandsInLabelAndBar();
    void statusTextIsShownOnce();
    void markupInATextIsShownAsItStands();
    void rowThatIsNoPageChangesNothing();
    void tripsKeepTheirListWhileAnotherPageIsShown();
    void pagesKeepWhatTheyLoadedUntilTheyAreTold();
    void importLeavesThePagesWithoutTheirFiles();
    void helpMenuShowsTheAboutDialog();

private:
    QFont fontBefore;
};

void tst_BrindlepathApp::pagesStandInTheOrderOfTheNavigation()
{
    const Workspace workspace;
    const BrindlepathApp window;
    const auto *navigation = named<QListWidget>(window, "navigationList");
    const auto *stack = named<QStackedWidget>(window, "pageStack");
    QStringList rows;
    QStringList pages;
    for (int row = 0; row < navigation->count(); ++row)
        rows.append(navigation->item(row)->text());
    for (int index = 0; index < stack->count(); ++index)
        pages.append(stack->widget(index)->objectName());
    QCOMPARE(rows, QStringList({u"Start Screen"_s, u"Trips"_s, u"Locations"_s, u"Edit Settlement"_s,
                                u"View Payweek"_s, u"Totals"_s, u"Reports"_s,
                                u"Database Activity History"_s, u"Settings"_s}));
    QCOMPARE(pages, QStringList({u"startPage"_s, u"tripsPage"_s, u"locationsPage"_s,
                                 u"editSettlementPage"_s, u"viewPayweekPage"_s, u"payTotalsPage"_s,
                                 u"reportsPage"_s, u"importHistoryPage"_s, u"settingsPage"_s}));
    QCOMPARE(navigation->minimumWidth(), 190);
    QCOMPARE(navigation->maximumWidth(), 260);
}

void tst_BrindlepathApp::formLeavesOnlyItsBars()
{
    const Workspace workspace;
    const BrindlepathApp window;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!named<QPushButton>(window, "openDbButton"));
    QVERIFY(!named<QTableWidget>(window, "tripsTable"));
    QVERIFY(!named<QTextEdit>(window, "detailsText"));
    QVERIFY(named<QMenuBar>(window, "menuBar"));
    QVERIFY(named<QStatusBar>(window, "statusBar"));
    const auto *toolBar = named<QToolBar>(window, "mainToolBar");
    QVERIFY(toolBar);
    QCOMPARE(toolBar->actions().size(), 0);
    QCOMPARE(window.toolBarArea(toolBar), Qt::TopToolBarArea);
    QVERIFY(!toolBar->isMovable());
    QVERIFY(!toolBar->isFloatable());
    // Its menu, which a right click on it or the menu bar opens, could hide it for good.
    QCOMPARE(window.contextMenuPolicy(), Qt::NoContextMenu);
    QCOMPARE(window.size(), QSize(600, 400));
}

void tst_BrindlepathApp::firstRowIsSelectedWithoutATitleChange()
{
    Workspace workspace;
    workspace.makeTrips();
    const BrindlepathApp window;
    QCOMPARE(named<QListWidget>(window, "navigationList")->currentRow(), 0);
    QCOMPARE(named<QStackedWidget>(window, "pageStack")->currentIndex(), 0);
    QCOMPARE(window.windowTitle(), u"Brindlepath Desk"_s);
    QCOMPARE(status(window), u"Reports refreshed."_s);
}

void tst_BrindlepathApp::choosingAPageWritesTitleAndStatus()
{
    const Workspace workspace;
    BrindlepathApp window;
    Person::shows(window);
    goTo(window, u"Trips"_s);
    QCOMPARE(window.windowTitle(), u"Brindlepath Desk - Trips"_s);
    QCOMPARE(status(window), u"Current Page: Trips"_s);
    QCOMPARE(named<QStackedWidget>(window, "pageStack")->currentIndex(), 1);
    goTo(window, u"Start Screen"_s);
    QCOMPARE(window.windowTitle(), u"Brindlepath Desk"_s);
    QCOMPARE(status(window), u"Current Page: Start Screen"_s);
}

void tst_BrindlepathApp::pageChosenShowsItselfAndItsName_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<int>("index");
    QTest::newRow("trips") << u"Trips"_s << 1;
    QTest::newRow("locations") << u"Locations"_s << 2;
    QTest::newRow("edit settlement") << u"Edit Settlement"_s << 3;
    QTest::newRow("view payweek") << u"View Payweek"_s << 4;
    QTest::newRow("totals, whatever their heading") << u"Totals"_s << 5;
    QTest::newRow("reports") << u"Reports"_s << 6;
    QTest::newRow("settings") << u"Settings"_s << 8;
}

void tst_BrindlepathApp::pageChosenShowsItselfAndItsName()
{
    QFETCH(const QString, page);
    const Workspace workspace;
    const DialogRobot robot;
    BrindlepathApp window;
    Person::shows(window);
    goTo(window, page);
    QTEST(named<QStackedWidget>(window, "pageStack")->currentIndex(), "index");
    QCOMPARE(window.windowTitle(), "Brindlepath Desk - "_L1 + page);
    QCOMPARE(status(window), "Current Page: "_L1 + page);
    QCOMPARE(robot.seen().size(), 0);
}

void tst_BrindlepathApp::historyIsReadAfreshWhenItIsShown()
{
    Workspace workspace;
    workspace.makeTrips();
    BrindlepathApp window;
    Person::shows(window);
    QCOMPARE(named<QTableWidget>(window, "importHistoryGrid")->rowCount(), 0);
    workspace.execute(u"INSERT INTO settlement_import_log (import_mode) VALUES ('Export')"_s);
    goTo(window, u"Database Activity History"_s);
    QCOMPARE(named<QTableWidget>(window, "importHistoryGrid")->rowCount(), 1);
    QCOMPARE(window.windowTitle(), u"Brindlepath Desk - Database Activity History"_s);
    QCOMPARE(status(window), u"Current Page: Database Activity History"_s);
}

void tst_BrindlepathApp::historyThatCannotBeReadStillBecomesThePage()
{
    const Workspace workspace;
    DialogRobot robot;
    BrindlepathApp window;
    Person::shows(window);
    robot.expect(DialogRobot::Warning, u"Import History"_s,
                 u"trips.db was not found near the application."_s);
    goTo(window, u"Database Activity History"_s);
    QCOMPARE(named<QStackedWidget>(window, "pageStack")->currentIndex(), 7);
    QCOMPARE(status(window), u"Current Page: Database Activity History"_s);
}

void tst_BrindlepathApp::importRefreshesTheHistory()
{
    Workspace workspace;
    workspace.makeTrips();
    const BrindlepathApp window;
    workspace.execute(u"INSERT INTO settlement_import_log (import_mode) VALUES ('Export')"_s);
    auto *import = window.findChild<ImportPdfPage *>();
    Q_EMIT import->importAppliedSuccessfully();
    QCOMPARE(named<QTableWidget>(window, "importHistoryGrid")->rowCount(), 1);
    QCOMPARE(status(window), u"Loaded 1 database activity rows."_s);
}

void tst_BrindlepathApp::importPageIsNeverShown()
{
    Workspace workspace;
    workspace.makeTrips();
    BrindlepathApp window;
    Person::shows(window);
    const auto *import = window.findChild<ImportPdfPage *>();
    auto *navigation = named<QListWidget>(window, "navigationList");
    QCOMPARE(import->parentWidget(), window.centralWidget());
    QCOMPARE(named<QStackedWidget>(window, "pageStack")->indexOf(import), -1);
    for (int row = 0; row < navigation->count(); ++row) {
        goTo(window, navigation->item(row)->text());
        QVERIFY(!import->isVisible());
    }
}

void tst_BrindlepathApp::whatPagesReportStandsInTheStatusLine()
{
    Workspace workspace;
    workspace.makeTrips();
    workspace.makeLocations();
    expense(u"04/18/2026"_s, u"Permit"_s, 12.0).insert(workspace);
    BrindlepathApp window;
    Person::shows(window);
    goTo(window, u"Locations"_s);
    Person::clicks(window, u"Refresh"_s);
    QCOMPARE(status(window), u"Loaded 0 locations"_s);
    goTo(window, u"Edit Settlement"_s);
    Person::clicks(window, u"Refresh"_s);
    QCOMPARE(status(window), u"Loaded 1 settlement rows for 04/18/2026"_s);
    goTo(window, u"Totals"_s);
    Person::clicks(window, u"Refresh"_s);
    QCOMPARE(status(window), u"Pay Totals refreshed: No scope selected"_s);
}

void tst_BrindlepathApp::locationSavedByHandIsCountedOnTheStartScreen()
{
    Workspace workspace;
    workspace.makeLocations();
    BrindlepathApp window;
    Person::shows(window);
    goTo(window, u"Locations"_s);
    Person::clicks(window, u"New / Clear"_s);
    Person::types(named<QLineEdit>(window, "locationCodeField"), u"DAL-01"_s);
    Person::clicks(window, u"Save Location"_s);
    QCOMPARE(textOf(window, "startLocationsValue"), u"0"_s);
    goTo(window, u"Start Screen"_s);
    QCOMPARE(textOf(window, "startLocationsValue"), u"1"_s);
}

void tst_BrindlepathApp::startScreenRefreshesWhenShown()
{
    Workspace workspace;
    workspace.makeTrips();
    BrindlepathApp window;
    Person::shows(window);
    goTo(window, u"Trips"_s);
    trip().no(u"4471203"_s).payweek(u"12/28/2025"_s).insert(workspace);
    trip().no(u"4471204"_s).payweek(u"01/04/2026"_s).insert(workspace);
    QCOMPARE(textOf(window, "startTripsValue"), u"0"_s);
    goTo(window, u"Start Screen"_s);
    QCOMPARE(textOf(window, "startTripsValue"), u"2"_s);
    QCOMPARE(textOf(window, "startPayweekValue"), u"01/04/2026"_s);
    QCOMPARE(textOf(window, "startActivityLabel"), u"\u2022 Latest trip: 4471204"_s);
}

void tst_BrindlepathApp::startScreenTellsTheFileHeldOpenFromAnotherFolder()
{
    Workspace workspace;
    const QString elsewhere = workspace.makeTrips(u"old/TRIPS.DB"_s);
    DialogRobot robot;
    BrindlepathApp window;
    Person::shows(window);
    goTo(window, u"Trips"_s);
    robot.expectFileDialog(u"Open trips.db"_s).choose(elsewhere);
    Person::clicks(window, u"Open trips.db"_s);
    goTo(window, u"Start Screen"_s);
    QCOMPARE(textOf(window, "startDatabaseValue"), u"TRIPS.DB"_s);
    QCOMPARE(textOf(window, "startTripsValue"), u"0"_s);
}

void tst_BrindlepathApp::ofSeveralFilesTheStartScreenTellsTheOneOfTheTripsPage()
{
    Workspace workspace;
    const QString elsewhere = workspace.makeTrips(u"old/trips.db"_s);
    workspace.makeTrips();
    trip().no(u"4471203"_s).insert(workspace);
    DialogRobot robot;
    BrindlepathApp window;
    Person::shows(window);
    const auto opensElsewhereOn = [&](const QString &page) {
        goTo(window, page);
        robot.expectFileDialog(u"Open trips.db"_s).choose(elsewhere);
        Person::clicks(window, u"Open trips.db"_s);
        goTo(window, u"Start Screen"_s);
    };
    opensElsewhereOn(u"Totals"_s);
    QCOMPARE(textOf(window, "startTripsValue"), u"1"_s);
    opensElsewhereOn(u"View Payweek"_s);
    QCOMPARE(textOf(window, "startTripsValue"), u"1"_s);
    opensElsewhereOn(u"Edit Settlement"_s);
    QCOMPARE(textOf(window, "startTripsValue"), u"1"_s);
    opensElsewhereOn(u"Trips"_s);
    QCOMPARE(textOf(window, "startTripsValue"), u"0"_s);
}

void tst_BrindlepathApp::pageStandsBesideTheNavigationAndGrows()
{
    const Workspace workspace;
    BrindlepathApp window;
    const QLayout *layout = window.centralWidget()->layout();
    QCOMPARE(layout->contentsMargins(), QMargins(8, 8, 8, 8));
    QCOMPARE(layout->spacing(), 8);
    const auto *splitter = window.centralWidget()->findChild<QSplitter *>();
    QCOMPARE(splitter->widget(0)->objectName(), u"navigationList"_s);
    QCOMPARE(splitter->widget(1)->objectName(), u"pageStack"_s);
    Person::shows(window);
    const int listWidth = splitter->sizes().at(0);
    window.resize(1500, 800);
    QTRY_COMPARE(splitter->width(), 1500 - 16);
    QCOMPARE(splitter->sizes().at(0), listWidth);
}

void tst_BrindlepathApp::statusTextStandsInLabelAndBar()
{
    const Workspace workspace;
    BrindlepathApp window;
    window.setStatusText(u"Loaded 3 trips"_s);
    QCOMPARE(status(window), u"Loaded 3 trips"_s);
    QCOMPARE(window.statusBar()->currentMessage(), u"Loaded 3 trips"_s);
}

void tst_BrindlepathApp::statusTextIsShownOnce()
{
    const Workspace workspace;
    BrindlepathApp window;
    Person::shows(window);
    window.setStatusText(u"Loaded 3 trips"_s);
    // The label fills the bar, so that the bar's own message has no room beside it.
    const auto *label = named<QLabel>(window, "statusLabel");
    QVERIFY(label->isVisible());
    QVERIFY(label->x() <= 4);
    QVERIFY(label->width() > window.statusBar()->width() - 40);
}

void tst_BrindlepathApp::markupInATextIsShownAsItStands()
{
    Workspace workspace;
    workspace.makeTrips();
    trip().no(u"<i>7"_s).payweek(u"<b>1/4/2026"_s).insert(workspace);
    BrindlepathApp window;
    window.setStatusText(u"Opened <b>trips.db"_s);
    for (const char *label : {"statusLabel", "startDatabaseValue", "startPayweekValue",
                              "startActivityLabel", "payweekNote"})
        QCOMPARE(named<QLabel>(window, label)->textFormat(), Qt::PlainText);
}

void tst_BrindlepathApp::rowThatIsNoPageChangesNothing()
{
    const Workspace workspace;
    BrindlepathApp window;
    Person::shows(window);
    goTo(window, u"Trips"_s);
    auto *navigation = named<QListWidget>(window, "navigationList");
    navigation->setCurrentRow(-1);
    navigation->addItem(u"Surplus"_s);
    navigation->setCurrentRow(navigation->count() - 1);
    QCOMPARE(named<QStackedWidget>(window, "pageStack")->currentIndex(), 1);
    QCOMPARE(window.windowTitle(), u"Brindlepath Desk - Trips"_s);
    QCOMPARE(status(window), u"Current Page: Trips"_s);
}

void tst_BrindlepathApp::tripsKeepTheirListWhileAnotherPageIsShown()
{
    Workspace workspace;
    workspace.makeTrips();
    BrindlepathApp window;
    Person::shows(window);
    goTo(window, u"Trips"_s);
    trip().no(u"4471203"_s).insert(workspace);
    goTo(window, u"Start Screen"_s);
    goTo(window, u"Trips"_s);
    QCOMPARE(named<QTableWidget>(window, "tripList")->rowCount(), 0);
}

void tst_BrindlepathApp::pagesKeepWhatTheyLoadedUntilTheyAreTold()
{
    Workspace workspace;
    workspace.makeTrips();
    workspace.makeLocations();
    trip().payweek(u"04/18/2026"_s).insert(workspace);
    BrindlepathApp window;
    Person::shows(window);
    const auto shown = [&window] {
        return QList<QStringList>{column(named<QTableWidget>(window, "locationTable"), u"Code"_s),
                                  column(named<QTableWidget>(window, "settlementItems"), u"Name"_s),
                                  column(named<QTableWidget>(window, "payweekItems"), u"Name"_s),
                                  column(named<QTableWidget>(window, "coreTotals"), u"Value"_s),
                                  {textOf(window, "reportStatus")}};
    };
    const QList<QStringList> before = shown();
    TestConnection(workspace.path(u"locations.db"_s))
        .execute(u"INSERT INTO locations (code) VALUES ('DAL-01')"_s);
    expense(u"04/18/2026"_s, u"Permit"_s, 12.0).insert(workspace);
    trip().payweek(u"04/11/2026"_s).insert(workspace);
    for (const auto &page : {u"Locations"_s, u"Edit Settlement"_s, u"View Payweek"_s, u"Totals"_s,
                             u"Reports"_s, u"Settings"_s}) {
        goTo(window, page);
        QCOMPARE(shown(), before);
    }
}

void tst_BrindlepathApp::importLeavesThePagesWithoutTheirFiles()
{
    Workspace workspace;
    workspace.makeTrips();
    const QString copy = workspace.makeTrips(u"july/copy.db"_s);
    BrindlepathApp window;
    Person::shows(window);
    DialogRobot robot;
    robot.expectFileDialog(u"Import Trips Database"_s).choose(copy);
    robot.expectContaining(DialogRobot::Warning, u"Confirm Trips Database Import"_s, copy)
        .press(u"Yes"_s);
    robot.expectContaining(DialogRobot::Information, u"Trips Database Imported"_s, u"Restart"_s);
    goTo(window, u"Settings"_s);
    Person::clicks(window, u"Import Trips Database"_s);
    goTo(window, u"Trips"_s);
    robot.expect(DialogRobot::Warning, u"No Database"_s, u"Open trips.db first."_s);
    Person::clicks(window, u"Refresh"_s);
    // The history opens the file for each of its calls.
    goTo(window, u"Database Activity History"_s);
    QCOMPARE(textOf(window, "importHistoryStatus"), u"Loaded 1 database activity rows."_s);
}

void tst_BrindlepathApp::helpMenuShowsTheAboutDialog()
{
    const Workspace workspace;
    DialogRobot robot;
    const BrindlepathApp window;
    QCOMPARE(window.menuBar()->actions().size(), 1);
    const QAction *help = window.menuBar()->actions().constFirst();
    QCOMPARE(help->text(), u"&Help"_s);
    QCOMPARE(help->menu()->actions().size(), 1);
    QAction *about = help->menu()->actions().constFirst();
    QCOMPARE(about->text(), u"&About Brindlepath Desk"_s);
    robot.expectDialog(u"About Brindlepath Desk"_s).press(u"Close"_s);
    about->trigger();
    QCOMPARE(robot.seen().size(), 1);
}

TEST_CLASS(tst_BrindlepathApp)

#include "tst_BrindlepathApp.moc"
