#include "data/DatabaseLocator.h"
#include "reports/totals/TotalsWindow.h"
#include "support/DialogRobot.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"

#include <QTest>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace {

const QString coreBox = u"Pay Totals Breakdown"_s;
const QString fuelBox = u"Fuel Breakdown"_s;
const QString itemsBox = u"Non-Trip Settlement Breakdown"_s;

QString weeklyTitle(const QString &label)
{
    return label + u" \u2014 Weekly Breakdown \u2014 2026"_s;
}

/// The page on the worked year, and whoever closes what comes up.
class WorkedTotals
{
public:
    /// Expects a dialog and closes it again.
    void expects(const QString &title) { robot.expectDialog(title).press(u"Close"_s); }
    void expectsBox(const QString &title, const QString &text)
    {
        robot.expect(DialogRobot::Information, title, text);
    }

    /// The table of the dialog opened last.
    [[nodiscard]] QTableWidget *table() const
    {
        return view.dialogs().constLast()->findChild<QTableWidget *>();
    }

    /// What the dialog opened last says below its table.
    [[nodiscard]] QString summary() const
    {
        return view.dialogs().constLast()->findChild<QTextEdit *>()->toPlainText();
    }

    [[nodiscard]] const Workspace &workspace() const { return file.workspace; }

    WorkedFile file;
    TotalsWindow view = TotalsWindow(file.path);
    DialogRobot robot;
};

/// A file with one trip that bought no fuel and a settlement without items.
struct BareFile
{
    BareFile() { trip().payweek(week).totals(900.0, 300.0).insert(workspace); }

    Workspace workspace;
    QString path = workspace.makeTrips();
};

} // namespace

/// What a click on a figure or on a button opens, and the boxes where there is nothing to open.
class tst_PayTotalsPageBreakdowns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clickOnACoreRowShowsItWeekByWeek()
    {
        WorkedTotals totals;
        totals.expects(weeklyTitle(u"Trip Revenue"_s));
        totals.view.clicksRow(totals.view.core(), u"Trip Revenue"_s);
        QCOMPARE(texts(totals.table()),
                 QList<QStringList>({{week, u"1500.5000"_s}, {nextWeek, u"900.0000"_s}}));
        QCOMPARE(totals.summary(), u"Trip Revenue weekly breakdown\nYear: 2026\n\n"
                                   "01/02/2026  \u2014  1500.5000\n"
                                   "01/09/2026  \u2014  900.0000\n\n"
                                   "Total: 2400.5000\n"_s);
    }

    void columnOfTheClickDoesNotMatter()
    {
        WorkedTotals totals;
        totals.expects(weeklyTitle(u"Trip Count"_s));
        Person::clicksCell(totals.view.core(), 0, 1);
        QCOMPARE(column(totals.table(), u"Value"_s), QStringList({u"2.0000"_s, u"1.0000"_s}));
    }

    void clickAmongSelectedRowsOpensItsOwnRowOnce()
    {
        WorkedTotals totals;
        QTableWidget *core = totals.view.core();
        core->setCurrentCell(0, 0);
        for (int row = 0; row < 3; ++row)
            QTest::keyClick(core, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(core->selectionModel()->selectedRows().size(), 4);
        QCOMPARE(totals.view.dialogs().size(), 0);
        totals.expects(weeklyTitle(u"Trip Revenue"_s));
        totals.view.clicksRow(core, u"Trip Revenue"_s);
        QCOMPARE(totals.view.dialogs().size(), 1);
        QCOMPARE(core->selectionModel()->selectedRows().size(), 1);
    }

    void everyCoreRowOpensUnderItsOwnName()
    {
        WorkedTotals totals;
        for (const QString &label : column(totals.view.core(), u"Metric"_s)) {
            totals.expects(weeklyTitle(label));
            totals.view.clicksRow(totals.view.core(), label);
        }
        QCOMPARE(totals.view.dialogs().size(), 19);
    }

    // The last item is of a payweek without a trip, so the weeks do not come to the whole year.
    void nonTripTotalsAreBrokenDownByTheItems()
    {
        WorkedTotals totals;
        totals.expects(weeklyTitle(u"Total Non-Trip Expenses"_s));
        totals.view.clicksRow(totals.view.core(), u"Total Non-Trip Expenses"_s);
        QCOMPARE(column(totals.table(), u"Value"_s), QStringList({u"175.2500"_s, u"10.0000"_s}));
    }

    void onePayweekSelectedStillShowsAllOfTheYear()
    {
        WorkedTotals totals;
        totals.view.choosesPayweek(nextWeek);
        totals.expects(weeklyTitle(u"Total Revenue"_s));
        totals.view.clicksRow(totals.view.core(), u"Total Revenue"_s);
        QCOMPARE(texts(totals.table()),
                 QList<QStringList>({{week, u"1550.5000"_s}, {nextWeek, u"930.0000"_s}}));
        totals.expects(weeklyTitle(u"Truck Fuel"_s));
        totals.view.clicksRow(totals.view.fuel(), u"Truck Fuel"_s);
        QCOMPARE(texts(totals.table()),
                 QList<QStringList>({{week, u"360.0000"_s}, {nextWeek, u"100.0000"_s}}));
    }

    void everyFuelRowShowsItsNetCostWeekByWeek_data()
    {
        QTest::addColumn<QString>("label");
        QTest::addColumn<QStringList>("values");
        QTest::newRow("all") << u"All Fuel / DEF"_s << QStringList({u"476.0000"_s, u"100.0000"_s});
        QTest::newRow("truck") << u"Truck Fuel"_s << QStringList({u"360.0000"_s, u"100.0000"_s});
        QTest::newRow("reefer") << u"Reefer Fuel"_s << QStringList({u"75.0000"_s, u"0.0000"_s});
        QTest::newRow("def") << u"DEF"_s << QStringList({u"29.0000"_s, u"0.0000"_s});
    }

    void everyFuelRowShowsItsNetCostWeekByWeek()
    {
        QFETCH(const QString, label);
        WorkedTotals totals;
        totals.expects(weeklyTitle(label));
        totals.view.clicksRow(totals.view.fuel(), label);
        QTEST(column(totals.table(), u"Value"_s), "values");
    }

    void summaryOfAFuelRowSaysThatItIsTheNetCost()
    {
        WorkedTotals totals;
        totals.expects(weeklyTitle(u"DEF"_s));
        totals.view.clicksRow(totals.view.fuel(), u"DEF"_s);
        QCOMPARE(totals.summary(), u"DEF Net Cost weekly breakdown\nYear: 2026\n\n"
                                   "01/02/2026  \u2014  29.0000\n"
                                   "01/09/2026  \u2014  0.0000\n\n"
                                   "Total: 29.0000\n"_s);
    }

    void weeklyBreakdownReadsTheFileAnew()
    {
        WorkedTotals totals;
        trip().payweek(nextWeek).totals(100.0, 0.0).insert(totals.workspace());
        totals.expects(weeklyTitle(u"Trip Revenue"_s));
        totals.view.clicksRow(totals.view.core(), u"Trip Revenue"_s);
        QCOMPARE(column(totals.table(), u"Value"_s), QStringList({u"1500.5000"_s, u"1000.0000"_s}));
        QCOMPARE(totals.view.figure(u"Trip Revenue"_s), u"$2400.50"_s);
        QCOMPARE(totals.view.statuses, QStringList());
    }

    void clickOnAClosedFileAsksForOne()
    {
        WorkedTotals totals;
        DatabaseLocator::closeAllSqliteConnections();
        totals.expectsBox(coreBox, u"Open trips.db first."_s);
        totals.view.clicksRow(totals.view.core(), u"Trip Count"_s);
        totals.expectsBox(fuelBox, u"Open trips.db first."_s);
        totals.view.clicksRow(totals.view.fuel(), u"DEF"_s);
        QCOMPARE(totals.robot.seen().size(), 2);
        QCOMPARE(totals.view.dialogs().size(), 0);
    }

    void clickWithoutAYearAsksForOne()
    {
        Workspace workspace;
        DialogRobot robot;
        const TotalsWindow view(workspace.makeTrips());
        robot.expect(DialogRobot::Information, coreBox, u"Select a year first."_s);
        view.clicksRow(view.core(), u"Total Revenue"_s);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(view.dialogs().size(), 0);
    }

    void clickOnAFuelRowWithoutAYearDoesNothing()
    {
        Workspace workspace;
        const DialogRobot robot;
        const TotalsWindow view(workspace.makeTrips());
        for (int row = 0; row < 4; ++row)
            Person::clicksCell(view.fuel(), row, 2);
        QCOMPARE(robot.seen().size(), 0);
        QCOMPARE(view.dialogs().size(), 0);
    }

    void clickOnAFuelRowWithoutAYearAsksForAFileThatWasClosed()
    {
        Workspace workspace;
        DialogRobot robot;
        const TotalsWindow view(workspace.makeTrips());
        DatabaseLocator::closeAllSqliteConnections();
        robot.expect(DialogRobot::Information, fuelBox, u"Open trips.db first."_s);
        Person::clicksCell(view.fuel(), 0, 2);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(view.dialogs().size(), 0);
    }

    void yearThatLostItsTripsHasNoWeeklyData()
    {
        WorkedTotals totals;
        totals.workspace().execute(u"DELETE FROM trips"_s);
        totals.expectsBox(coreBox, u"No weekly data found for Net Revenue."_s);
        totals.view.clicksRow(totals.view.core(), u"Net Revenue"_s);
        totals.expectsBox(fuelBox, u"No weekly fuel data found for All Fuel / DEF."_s);
        totals.view.clicksRow(totals.view.fuel(), u"All Fuel / DEF"_s);
        QCOMPARE(totals.view.dialogs().size(), 0);
    }

    void fuelButtonListsEveryPurchase()
    {
        WorkedTotals totals;
        totals.expects(fuelBox);
        totals.view.clicks(u"Open Fuel Breakdown"_s);
        QCOMPARE(
            column(totals.table(), u"Type"_s),
            QStringList({u"Truck Fuel"_s, u"Reefer Fuel"_s, u"DEF"_s, u"Oil"_s, u"Truck Fuel"_s}));
    }

    void fuelTypeButtonListsItsOwnPurchases_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QStringList>("costs");
        QTest::newRow("truck") << u"Truck Fuel"_s << QStringList({u"$400.00"_s, u"$100.00"_s});
        QTest::newRow("reefer") << u"Reefer Fuel"_s << QStringList({u"$80.00"_s});
        QTest::newRow("def") << u"DEF"_s << QStringList({u"$30.00"_s});
    }

    void fuelTypeButtonListsItsOwnPurchases()
    {
        QFETCH(const QString, type);
        WorkedTotals totals;
        totals.expects(type + u" Breakdown"_s);
        totals.view.clicks(type);
        QTEST(column(totals.table(), u"Cost"_s), "costs");
    }

    void fuelButtonsShowTheSelectedPayweekAlone()
    {
        WorkedTotals totals;
        totals.view.choosesPayweek(nextWeek);
        totals.expects(fuelBox);
        totals.view.clicks(u"Open Fuel Breakdown"_s);
        QCOMPARE(column(totals.table(), u"Payweek"_s), QStringList({nextWeek}));
    }

    void fuelTypeThatWasNotBoughtIsToldInABox()
    {
        WorkedTotals totals;
        totals.view.choosesPayweek(nextWeek);
        totals.expectsBox(fuelBox, u"No matching fuel detail rows found for Reefer Fuel."_s);
        totals.view.clicks(u"Reefer Fuel"_s);
        QCOMPARE(totals.view.dialogs().size(), 0);
    }

    void scopeWithoutFuelIsToldInABox_data()
    {
        QTest::addColumn<QString>("button");
        QTest::newRow("all") << u"Open Fuel Breakdown"_s;
        QTest::newRow("truck") << u"Truck Fuel"_s;
        QTest::newRow("reefer") << u"Reefer Fuel"_s;
        QTest::newRow("def") << u"DEF"_s;
    }

    void scopeWithoutFuelIsToldInABox()
    {
        QFETCH(const QString, button);
        const BareFile file;
        DialogRobot robot;
        const TotalsWindow view(file.path);
        robot.expect(DialogRobot::Information, fuelBox,
                     u"No fuel detail rows found for the current scope."_s);
        view.clicks(button);
        QCOMPARE(view.dialogs().size(), 0);
    }

    void itemsButtonListsEveryItem()
    {
        WorkedTotals totals;
        totals.expects(itemsBox);
        totals.view.clicks(u"Open Non-Trip Settlement Breakdown"_s);
        QCOMPARE(column(totals.table(), u"Item Name"_s),
                 QStringList({u"Emergency Fund"_s, u"Permit"_s, u"Tire Fund"_s, u"Correction"_s,
                              u"Bonus"_s, u"Performance Bond"_s, u"Emergency Fund Withdrawal"_s,
                              u"Permit"_s}));
    }

    void clickOnAGroupListsItsItems()
    {
        WorkedTotals totals;
        totals.expects(u"Other Non-Trip Expense \u2014 Permit"_s);
        Person::clicksCell(totals.view.items(), 2, 5);
        QCOMPARE(texts(totals.table()),
                 QList<QStringList>({{week, u"Other Non-Trip Expense"_s, u"expense"_s, u"Permit"_s,
                                      u"$25.25"_s, u"$-25.25"_s},
                                     {u"01/16/2026"_s, u"Other Non-Trip Expense"_s, u"expense"_s,
                                      u"Permit"_s, u"$10.00"_s, u"$-10.00"_s}}));
    }

    void clickOnAGroupWithoutANameListsItemsWithoutAName()
    {
        WorkedTotals totals;
        totals.view.choosesPayweek(week);
        expense(week, u""_s, 7.0).insert(totals.workspace());
        totals.view.clicks(u"Refresh"_s);
        totals.expects(u"Other Non-Trip Expense \u2014 (blank)"_s);
        totals.view.clicksRow(totals.view.items(), u"Other Non-Trip Expense"_s);
        QCOMPARE(column(totals.table(), u"Item Name"_s), QStringList({u"(blank)"_s}));
        QCOMPARE(column(totals.table(), u"Amount"_s), QStringList({u"$7.00"_s}));
    }

    void scopeWithoutItemsIsToldInABox()
    {
        const BareFile file;
        DialogRobot robot;
        const TotalsWindow view(file.path);
        robot.expect(DialogRobot::Information, itemsBox,
                     u"No non-trip settlement rows found for the current scope."_s);
        view.clicks(u"Open Non-Trip Settlement Breakdown"_s);
        QCOMPARE(view.dialogs().size(), 0);
    }

    // Only a table that no longer shows what the page read can ask for what is not there.
    void groupThatMatchesNothingIsToldInABox()
    {
        WorkedTotals totals;
        totals.view.items()->setItem(0, 2, new QTableWidgetItem(u"Another name"_s));
        totals.expectsBox(itemsBox, u"No matching non-trip settlement rows found."_s);
        Person::clicksCell(totals.view.items(), 0, 0);
        QCOMPARE(totals.view.dialogs().size(), 0);
    }

    void buttonsOfAClosedPageFindNothing()
    {
        WorkedTotals totals;
        DatabaseLocator::closeAllSqliteConnections();
        totals.view.clicks(u"Refresh"_s);
        totals.expectsBox(fuelBox, u"No fuel detail rows found for the current scope."_s);
        totals.view.clicks(u"DEF"_s);
        totals.expectsBox(itemsBox, u"No non-trip settlement rows found for the current scope."_s);
        totals.view.clicks(u"Open Non-Trip Settlement Breakdown"_s);
        QCOMPARE(totals.robot.seen().size(), 2);
    }

    void popupShowsTheLastRefreshAndNotTheFile()
    {
        WorkedTotals totals;
        totals.workspace().execute(u"DELETE FROM trip_detail_items"_s);
        totals.workspace().execute(u"DELETE FROM settlement_non_trip_items"_s);
        totals.expects(fuelBox);
        totals.view.clicks(u"Open Fuel Breakdown"_s);
        QCOMPARE(totals.table()->rowCount(), 5);
        totals.expects(itemsBox);
        totals.view.clicks(u"Open Non-Trip Settlement Breakdown"_s);
        QCOMPARE(totals.table()->rowCount(), 8);
    }

    void popupsOfAFileThatWasClosedStillOpen()
    {
        WorkedTotals totals;
        DatabaseLocator::closeAllSqliteConnections();
        totals.expects(u"DEF Breakdown"_s);
        totals.view.clicks(u"DEF"_s);
        QCOMPARE(totals.table()->rowCount(), 1);
    }

    void everyClickMakesANewDialogAndKeepsTheClosedOne()
    {
        WorkedTotals totals;
        for (int click = 0; click < 2; ++click) {
            totals.expects(fuelBox);
            totals.view.clicks(u"Open Fuel Breakdown"_s);
            totals.expects(itemsBox);
            totals.view.clicks(u"Open Non-Trip Settlement Breakdown"_s);
            totals.expects(weeklyTitle(u"Trip Count"_s));
            totals.view.clicksRow(totals.view.core(), u"Trip Count"_s);
        }
        QCOMPARE(totals.view.dialogs().size(), 6);
        for (const QDialog *dialog : totals.view.dialogs()) {
            QVERIFY(dialog->isHidden());
            QCOMPARE(dialog->parentWidget(), totals.view.page);
        }
    }
};

TEST_CLASS(tst_PayTotalsPageBreakdowns)
#include "tst_PayTotalsPageBreakdowns.moc"
