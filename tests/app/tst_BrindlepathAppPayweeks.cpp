#include "app/DeskWindow.h"
#include "support/Person.h"
#include "support/RowMakers.h"
#include "support/TestProgram.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QStackedWidget>
#include <QTableWidget>
#include <QTextEdit>

using namespace Qt::StringLiterals;

/// A payweek in the title, and the ways from a trip to its payweek and back.
class tst_BrindlepathAppPayweeks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fontBefore = QApplication::font(); }
    // Each window sets the font of the saved scale.
    void cleanup() { QApplication::setFont(fontBefore); }

    void emptyPayweekLeavesNoSeparatorInTheTitle();
    void chosenPayweekStandsInTheTitle();
    void payweekChosenBehindAnotherPageLeavesTheTitle();
    void clickOnAPayweekOpensIt();
    void clickOnATripOfAPayweekOpensItOnTrips();
    void tripWithoutNumberOpensWithoutAStatusOfTheWindow();
    void payweekThatIsNotThereLeavesTheSelection();
    void tripThatIsGoneStillGetsTheWindowsStatus();
    void payweekInTheTitleIsTrimmed();

private:
    QFont fontBefore;
};

void tst_BrindlepathAppPayweeks::emptyPayweekLeavesNoSeparatorInTheTitle()
{
    const Workspace workspace;
    BrindlepathApp window;
    Person::shows(window);
    goTo(window, u"View Payweek"_s);
    QCOMPARE(window.windowTitle(), u"Brindlepath Desk - View Payweek"_s);
    QCOMPARE(status(window), u"Current Page: View Payweek"_s);
    Person::clicks(window, u"Refresh"_s);
    QCOMPARE(named<QTextEdit>(window, "payweekSummary")->toPlainText(), u"Open trips.db first."_s);
}

void tst_BrindlepathAppPayweeks::chosenPayweekStandsInTheTitle()
{
    Workspace workspace;
    workspace.makeTrips();
    trip().payweek(u"04/18/2026"_s).insert(workspace);
    trip().payweek(u"04/11/2026"_s).insert(workspace);
    BrindlepathApp window;
    Person::shows(window);
    goTo(window, u"View Payweek"_s);
    QCOMPARE(window.windowTitle(), u"Brindlepath Desk - View Payweek - 04/18/2026"_s);
    Person::chooses(named<QComboBox>(window, "payweekBox"), u"04/11/2026"_s);
    QCOMPARE(window.windowTitle(), u"Brindlepath Desk - View Payweek - 04/11/2026"_s);
}

void tst_BrindlepathAppPayweeks::payweekChosenBehindAnotherPageLeavesTheTitle()
{
    Workspace workspace;
    workspace.makeTrips();
    trip().payweek(u"04/18/2026"_s).insert(workspace);
    trip().payweek(u"04/11/2026"_s).insert(workspace);
    const BrindlepathApp window;
    Person::chooses(named<QComboBox>(window, "payweekBox"), u"04/11/2026"_s);
    QCOMPARE(window.windowTitle(), u"Brindlepath Desk"_s);
}

void tst_BrindlepathAppPayweeks::clickOnAPayweekOpensIt()
{
    Workspace workspace;
    workspace.makeTrips();
    trip().no(u"4471203"_s).payweek(u"04/11/2026"_s).insert(workspace);
    trip().no(u"4471204"_s).payweek(u"04/18/2026"_s).insert(workspace);
    BrindlepathApp window;
    Person::shows(window);
    goTo(window, u"Trips"_s);
    Person::clicksCell(named<QTableWidget>(window, "tripList"), 1, 2);
    QCOMPARE(named<QListWidget>(window, "navigationList")->currentRow(), 4);
    QCOMPARE(named<QStackedWidget>(window, "pageStack")->currentIndex(), 4);
    QCOMPARE(named<QComboBox>(window, "payweekBox")->currentText(), u"04/11/2026"_s);
    QCOMPARE(window.windowTitle(), u"Brindlepath Desk - View Payweek - 04/11/2026"_s);
    QCOMPARE(status(window), u"Opened View Payweek for 04/11/2026"_s);
}

void tst_BrindlepathAppPayweeks::clickOnATripOfAPayweekOpensItOnTrips()
{
    Workspace workspace;
    workspace.makeTrips();
    trip().no(u"4471203"_s).payweek(u"04/18/2026"_s).insert(workspace);
    BrindlepathApp window;
    Person::shows(window);
    goTo(window, u"View Payweek"_s);
    Person::clicksCell(named<QTableWidget>(window, "payweekTrips"), 0, 0);
    QCOMPARE(named<QListWidget>(window, "navigationList")->currentRow(), 1);
    QCOMPARE(named<QLabel>(window, "tripIdLabel")->text(), u"1"_s);
    QCOMPARE(named<QLineEdit>(window, "tripNoField")->text(), u"4471203"_s);
    QCOMPARE(window.windowTitle(), u"Brindlepath Desk - 4471203"_s);
    QCOMPARE(status(window), u"Opened trip 4471203 from View Payweek"_s);
}

void tst_BrindlepathAppPayweeks::tripWithoutNumberOpensWithoutAStatusOfTheWindow()
{
    Workspace workspace;
    workspace.makeTrips();
    trip().no(u""_s).payweek(u"04/18/2026"_s).insert(workspace);
    BrindlepathApp window;
    Person::shows(window);
    goTo(window, u"View Payweek"_s);
    Person::clicksCell(named<QTableWidget>(window, "payweekTrips"), 0, 0);
    QCOMPARE(window.windowTitle(), u"Brindlepath Desk - Trips"_s);
    // What the Trips page itself reports stays.
    QCOMPARE(status(window), u"Opened trip  from View Payweek"_s);
}

void tst_BrindlepathAppPayweeks::payweekThatIsNotThereLeavesTheSelection()
{
    Workspace workspace;
    workspace.makeTrips();
    trip().payweek(u"04/18/2026"_s).insert(workspace);
    BrindlepathApp window;
    Person::shows(window);
    goTo(window, u"Trips"_s);
    workspace.execute(u"UPDATE trips SET payweek = '04/25/2026'"_s);
    Person::clicks(window, u"Refresh"_s);
    Person::clicksCell(named<QTableWidget>(window, "tripList"), 0, 2);
    QCOMPARE(named<QListWidget>(window, "navigationList")->currentRow(), 4);
    QCOMPARE(window.windowTitle(), u"Brindlepath Desk - View Payweek - 04/18/2026"_s);
    QCOMPARE(status(window), u"Payweek not found in View Payweek selector: 04/25/2026"_s);
}

void tst_BrindlepathAppPayweeks::tripThatIsGoneStillGetsTheWindowsStatus()
{
    Workspace workspace;
    workspace.makeTrips();
    trip().no(u"4471203"_s).payweek(u"04/18/2026"_s).insert(workspace);
    BrindlepathApp window;
    Person::shows(window);
    goTo(window, u"View Payweek"_s);
    workspace.execute(u"DELETE FROM trips"_s);
    Person::clicksCell(named<QTableWidget>(window, "payweekTrips"), 0, 0);
    QCOMPARE(named<QLabel>(window, "tripIdLabel")->text(), u"(new trip)"_s);
    QCOMPARE(status(window), u"Opened trip 4471203 from View Payweek"_s);
}

void tst_BrindlepathAppPayweeks::payweekInTheTitleIsTrimmed()
{
    const Workspace workspace;
    BrindlepathApp window;
    window.updateViewPayweekTitle(u"  04/18/2026 "_s);
    QCOMPARE(window.windowTitle(), u"Brindlepath Desk - View Payweek - 04/18/2026"_s);
    window.updateViewPayweekTitle(u"   "_s);
    QCOMPARE(window.windowTitle(), u"Brindlepath Desk - View Payweek"_s);
}

TEST_CLASS(tst_BrindlepathAppPayweeks)

#include "tst_BrindlepathAppPayweeks.moc"
