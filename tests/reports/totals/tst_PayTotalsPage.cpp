#include "reports/totals/TotalsWindow.h"
#include "support/DialogRobot.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// The page on the worked year.
struct WorkedTotals
{
    WorkedFile file;
    TotalsWindow view = TotalsWindow(file.path);
};

/// All that can be read on the page.
QString wholeText(const TotalsWindow &view)
{
    QStringList parts = view.summaries();
    for (const QTableWidget *table : view.tables()) {
        for (const QStringList &row : texts(table))
            parts.append(row.join(u' '));
    }
    return parts.join(u'\n');
}

/// A trip and an item of each payweek, all with this in place of a figure.
void insertOddFigures(const Workspace &workspace, const QVariant &figure)
{
    const qint64 id = trip()
                          .payweek(week)
                          .set(u"total_revenue"_s, figure)
                          .set(u"total_cost"_s, figure)
                          .set(u"total_miles"_s, figure)
                          .insert(workspace);
    expense(week, u"Permit"_s, 0.0).set(u"amount"_s, figure).insert(workspace);
    const QVariant bought = figure.isNull() ? QVariant(u""_s) : figure;
    fuel(id, u"DEF"_s, 0.0, 0.0, 0.0)
        .set(u"cost"_s, bought)
        .set(u"gallons"_s, bought)
        .insert(workspace);
}

} // namespace

/// What the page shows of a year and of a payweek.
class tst_PayTotalsPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // 2026 has trips of 1000.50, 500.00 and 900.00 over 1000 miles.
    void yearHasItsNineteenFigures()
    {
        const WorkedTotals totals;
        QCOMPARE(texts(totals.view.core()),
                 QList<QStringList>({{u"Trip Count"_s, u"3"_s},
                                     {u"Trip Revenue"_s, u"$2400.50"_s},
                                     {u"Settlement Revenue"_s, u"$80.00"_s},
                                     {u"Total Non-Trip Revenue"_s, u"$80.00"_s},
                                     {u"Total Revenue"_s, u"$2480.50"_s},
                                     {u"Trip Expenses"_s, u"$800.25"_s},
                                     {u"Settlement Expenses"_s, u"$195.25"_s},
                                     {u"Total Non-Trip Expenses"_s, u"$195.25"_s},
                                     {u"Total Expenses"_s, u"$995.50"_s},
                                     {u"Net Revenue"_s, u"$1485.00"_s},
                                     {u"Net Non-Trip Settlement Impact"_s, u"$-110.25"_s},
                                     {u"Emergency Fund Net Impact"_s, u"$-70.00"_s},
                                     {u"Tire Fund Net Impact"_s, u"$-50.00"_s},
                                     {u"Performance Bond Net Impact"_s, u"$-10.00"_s},
                                     {u"Other Non-Trip Revenue"_s, u"$50.00"_s},
                                     {u"Other Non-Trip Expense"_s, u"$35.25"_s},
                                     {u"Total Miles"_s, u"1000.00"_s},
                                     {u"CPM (Total Revenue / Total Miles)"_s, u"$2.4805/mi"_s},
                                     {u"CPM (Net Revenue / Total Miles)"_s, u"$1.4850/mi"_s}}));
    }

    void payweekHasItsNineteenFigures()
    {
        const WorkedTotals totals;
        totals.view.choosesPayweek(week);
        QCOMPARE(column(totals.view.core(), u"Value"_s),
                 QStringList({u"2"_s, u"$1500.50"_s, u"$50.00"_s, u"$50.00"_s, u"$1550.50"_s,
                              u"$500.25"_s, u"$175.25"_s, u"$175.25"_s, u"$675.50"_s, u"$875.00"_s,
                              u"$-120.25"_s, u"$-100.00"_s, u"$-50.00"_s, u"$0.00"_s, u"$50.00"_s,
                              u"$25.25"_s, u"800.00"_s, u"$1.9381/mi"_s, u"$1.0938/mi"_s}));
    }

    void itemsAreGroupedByCategoryKindAndName()
    {
        const WorkedTotals totals;
        QCOMPARE(
            texts(totals.view.items()),
            QList<QStringList>({{u"Emergency Fund"_s, u"expense"_s, u"Emergency Fund"_s, u"1"_s,
                                 u"$100.00"_s, u"$-100.00"_s},
                                {u"Emergency Fund"_s, u"revenue"_s, u"Emergency Fund Withdrawal"_s,
                                 u"1"_s, u"$30.00"_s, u"$30.00"_s},
                                {u"Other Non-Trip Expense"_s, u"expense"_s, u"Permit"_s, u"2"_s,
                                 u"$35.25"_s, u"$-35.25"_s},
                                {u"Other Non-Trip Revenue"_s, u"revenue"_s, u"Bonus"_s, u"1"_s,
                                 u"$50.00"_s, u"$50.00"_s},
                                {u"Other Non-Trip Settlement"_s, u"other"_s, u"Correction"_s,
                                 u"1"_s, u"$5.00"_s, u"$5.00"_s},
                                {u"Performance Bond"_s, u"expense"_s, u"Performance Bond"_s, u"1"_s,
                                 u"$10.00"_s, u"$-10.00"_s},
                                {u"Tire Fund"_s, u"expense"_s, u"Tire Fund"_s, u"1"_s, u"$50.00"_s,
                                 u"$-50.00"_s}}));
    }

    // The oil is a purchase of a type of its own, so only the first row counts it.
    void fuelIsListedByTypeBelowAllOfIt()
    {
        const WorkedTotals totals;
        QCOMPARE(texts(totals.view.fuel()),
                 QList<QStringList>({{u"All Fuel / DEF"_s, u"5"_s, u"$622.00"_s, u"$46.00"_s,
                                      u"$576.00"_s, u"155.000"_s, u"$3.7161/gal"_s},
                                     {u"Truck Fuel"_s, u"2"_s, u"$500.00"_s, u"$40.00"_s,
                                      u"$460.00"_s, u"125.000"_s, u"$3.6800/gal"_s},
                                     {u"Reefer Fuel"_s, u"1"_s, u"$80.00"_s, u"$5.00"_s,
                                      u"$75.00"_s, u"20.000"_s, u"$3.7500/gal"_s},
                                     {u"DEF"_s, u"1"_s, u"$30.00"_s, u"$1.00"_s, u"$29.00"_s,
                                      u"10.000"_s, u"$2.9000/gal"_s}}));
    }

    void summariesTellTheScopeAndItsFigures()
    {
        const WorkedTotals totals;
        totals.view.choosesPayweek(nextWeek);
        QCOMPARE(totals.view.scope(), u"Scope: Payweek 01/09/2026"_s);
        QCOMPARE(totals.view.summaries(),
                 QStringList({u"Repository-backed Pay Totals are active.\n\n"
                              "Current scope: Payweek 01/09/2026"_s,
                              u"Non-trip settlement totals for Payweek 01/09/2026\n\n"
                              "Total Non-Trip Revenue: $30.00\n"
                              "Total Non-Trip Expenses: $10.00\n"
                              "Net Non-Trip Settlement Impact: $20.00\n\n"
                              "Emergency Fund net: $30.00\n"
                              "Tire Fund net: $0.00\n"
                              "Performance Bond net: $-10.00\n"
                              "Other non-trip revenue: $0.00\n"
                              "Other non-trip expense: $0.00"_s,
                              u"Fuel analytics for Payweek 01/09/2026\n\n"
                              "Net fuel / DEF cost: $100.00\n"
                              "Total gallons: 25.000\n"
                              "Total discounts: $0.00\n"
                              "Weighted avg net $/gal: $4.0000/gal"_s}));
    }

    void rowWithoutGallonsShowsNoAverageAndSummaryLikewise()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        fuel(trip().payweek(week).insert(workspace), u"DEF"_s, 30.0, 1.0, 0.0).insert(workspace);
        const TotalsWindow view(path);
        QCOMPARE(column(view.fuel(), u"Avg Net $/Gal"_s), QStringList(4, u"n/a"_s));
        QCOMPARE(column(view.fuel(), u"Net Cost"_s),
                 QStringList({u"$29.00"_s, u"$0.00"_s, u"$0.00"_s, u"$29.00"_s}));
        QVERIFY(view.summaries().at(2).endsWith("Weighted avg net $/gal: n/a"_L1));
    }

    void negativeFigureHasItsMinusBehindTheDollarSign()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        trip().payweek(week).totals(0.0, 12.34).insert(workspace);
        const TotalsWindow view(path);
        QCOMPARE(view.figure(u"Net Revenue"_s), u"$-12.34"_s);
        QCOMPARE(view.figure(u"Total Expenses"_s), u"$12.34"_s);
    }

    void groupWithoutANameShowsAsBlank()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        trip().payweek(week).insert(workspace);
        expense(week, u"  "_s, 7.0).insert(workspace);
        const TotalsWindow view(path);
        QCOMPARE(column(view.items(), u"Item Name"_s), QStringList({u"(blank)"_s}));
    }

    void payweekIsRefreshedOnce()
    {
        WorkedTotals totals;
        totals.view.choosesPayweek(nextWeek);
        QCOMPARE(totals.view.statuses,
                 QStringList({u"Pay Totals refreshed: Payweek 01/09/2026"_s}));
        totals.view.choosesPayweek(wholeYear);
        QCOMPARE(totals.view.statuses.size(), 2);
        QCOMPARE(totals.view.statuses.last(), u"Pay Totals refreshed: Year 2026"_s);
    }

    void otherYearIsRefreshedOnceAndStartsAsAWhole()
    {
        WorkedTotals totals;
        totals.view.choosesPayweek(nextWeek);
        totals.view.statuses.clear();
        totals.view.choosesYear(u"2025"_s);
        QCOMPARE(totals.view.statuses, QStringList({u"Pay Totals refreshed: Year 2025"_s}));
        QCOMPARE(entries(totals.view.payweeks()), QStringList({wholeYear, u"12/26/2025"_s}));
        QCOMPARE(totals.view.payweeks()->currentText(), wholeYear);
        QCOMPARE(totals.view.figure(u"Trip Revenue"_s), u"$7777.00"_s);
    }

    void sameYearAgainRefreshesNothing()
    {
        WorkedTotals totals;
        totals.view.choosesYear(year);
        totals.view.choosesPayweek(wholeYear);
        QCOMPARE(totals.view.statuses, QStringList());
    }

    void refreshCalculatesAnew()
    {
        WorkedTotals totals;
        totals.view.choosesPayweek(nextWeek);
        totals.view.statuses.clear();
        expense(nextWeek, u"Permit"_s, 20.0).insert(totals.file.workspace);
        QCOMPARE(totals.view.figure(u"Total Expenses"_s), u"$310.00"_s);
        totals.view.clicks(u"Refresh"_s);
        QCOMPARE(totals.view.figure(u"Total Expenses"_s), u"$330.00"_s);
        QCOMPARE(totals.view.payweeks()->currentText(), nextWeek);
        QCOMPARE(totals.view.statuses,
                 QStringList({u"Pay Totals refreshed: Payweek 01/09/2026"_s}));
    }

    void newYearIsListedOnlyAfterTheFileIsOpenedAgain()
    {
        const WorkedTotals totals;
        trip().payweek(u"01/01/2027"_s).insert(totals.file.workspace);
        totals.view.clicks(u"Refresh"_s);
        QCOMPARE(entries(totals.view.years()), QStringList({u"2025"_s, u"2026"_s}));
        totals.view.page->openDatabase(totals.file.path);
        QCOMPARE(entries(totals.view.years()), QStringList({u"2025"_s, u"2026"_s, u"2027"_s}));
        QCOMPARE(totals.view.scope(), u"Scope: Year 2027"_s);
    }

    void newPayweekIsListedWhenTheFileIsOpenedAgain()
    {
        const WorkedTotals totals;
        trip().payweek(u"03/06/2026"_s).insert(totals.file.workspace);
        totals.view.page->openDatabase(totals.file.path);
        QCOMPARE(entries(totals.view.payweeks()),
                 QStringList({wholeYear, week, nextWeek, u"03/06/2026"_s}));
    }

    void newPayweekIsNotListedByARefreshButWhenTheYearIsChanged()
    {
        const WorkedTotals totals;
        trip().payweek(u"03/06/2026"_s).insert(totals.file.workspace);
        totals.view.clicks(u"Refresh"_s);
        QCOMPARE(entries(totals.view.payweeks()), QStringList({wholeYear, week, nextWeek}));
        totals.view.choosesYear(u"2025"_s);
        totals.view.choosesYear(year);
        QCOMPARE(entries(totals.view.payweeks()),
                 QStringList({wholeYear, week, nextWeek, u"03/06/2026"_s}));
    }

    void showingThePageReadsNothing()
    {
        WorkedTotals totals;
        trip().payweek(week).totals(5000.0, 0.0).insert(totals.file.workspace);
        totals.view.window.hide();
        totals.view.window.show();
        QCOMPARE(totals.view.figure(u"Trip Revenue"_s), u"$2400.50"_s);
        QCOMPARE(totals.view.statuses, QStringList());
    }

    void wheelOverASelectorChangesNothing()
    {
        const WorkedTotals totals;
        totals.view.named<QWidget>("refreshTotalsButton")->setFocus();
        Person::turnsWheelOver(totals.view.payweeks());
        Person::turnsWheelOver(totals.view.years());
        QCOMPARE(totals.view.scope(), u"Scope: Year 2026"_s);
        QCOMPARE(totals.view.statuses, QStringList());
    }

    // A payweek is a text, and the year stands in characters 7 to 10 of it or nowhere.
    void oddPayweeksBelongToTheYearThatTheirPlaceSays()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        for (const QString &payweek :
             {u"1/2/2026"_s, u"2026-01-02"_s, u"soon"_s, u" 01/02/2026 "_s, u"99/99/2026 B"_s})
            trip().payweek(payweek).totals(1.0, 0.0).insert(workspace);
        const TotalsWindow view(path);
        QCOMPARE(entries(view.years()), QStringList({u"2026"_s}));
        QCOMPARE(entries(view.payweeks()), QStringList({wholeYear, week, u"99/99/2026 B"_s}));
        QCOMPARE(view.figure(u"Trip Count"_s), u"2"_s);
        view.choosesPayweek(u"99/99/2026 B"_s);
        QCOMPARE(view.figure(u"Trip Revenue"_s), u"$1.00"_s);
    }

    void payweekThatEndsWithATabIsMeantWithoutIt()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        trip().payweek(week).totals(1.0, 0.0).insert(workspace);
        trip().payweek(week + u'\t').totals(20.0, 0.0).insert(workspace);
        const TotalsWindow view(path);
        QCOMPARE(entries(view.payweeks()), QStringList({wholeYear, week, week + u'\t'}));
        view.choosesPayweek(week + u'\t');
        QCOMPARE(view.scope(), u"Scope: Payweek 01/02/2026"_s);
        QCOMPARE(view.figure(u"Trip Revenue"_s), u"$1.00"_s);
    }

    void oddFiguresShowAsNumbers_data()
    {
        QTest::addColumn<QVariant>("figure");
        QTest::addColumn<QString>("revenue");
        QTest::addColumn<QString>("perMile");
        QTest::addColumn<QString>("average");
        QTest::newRow("none") << QVariant() << u"$0.00"_s << u"$0.0000/mi"_s << u"n/a"_s;
        QTest::newRow("text") << QVariant(u"abc"_s) << u"$0.00"_s << u"$0.0000/mi"_s << u"n/a"_s;
        QTest::newRow("text that starts as a number")
            << QVariant(u"12.5 or so"_s) << u"$12.50"_s << u"$1.0000/mi"_s << u"$1.0000/gal"_s;
        QTest::newRow("nan") << QVariant(u"nan"_s) << u"$0.00"_s << u"$0.0000/mi"_s << u"n/a"_s;
        QTest::newRow("large") << QVariant(1e12) << u"$1000000000000.00"_s << u"$1.0000/mi"_s
                               << u"$1.0000/gal"_s;
        QTest::newRow("less than a cent")
            << QVariant(0.004) << u"$0.00"_s << u"$0.0000/mi"_s << u"n/a"_s;
    }

    void oddFiguresShowAsNumbers()
    {
        QFETCH(const QVariant, figure);
        Workspace workspace;
        const DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertOddFigures(workspace, figure);
        const TotalsWindow view(path);
        QTEST(view.figure(u"Trip Revenue"_s), "revenue");
        QTEST(view.figure(u"CPM (Total Revenue / Total Miles)"_s), "perMile");
        QTEST(view.fuel()->item(3, 6)->text(), "average");
        QVERIFY(!wholeText(view).contains("nan"_L1, Qt::CaseInsensitive));
        QVERIFY(!wholeText(view).contains(QRegularExpression(u"\\binf"_s)));
        QCOMPARE(robot.seen().size(), 0);
    }

    void yearOfOnePayweekShowsTheSameForBoth()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        trip().payweek(week).totals(900.0, 300.0).insert(workspace);
        expense(week, u"Permit"_s, 25.0).insert(workspace);
        const TotalsWindow view(path);
        const QList<QStringList> ofTheYear = texts(view.core());
        QCOMPARE(view.figure(u"Net Revenue"_s), u"$575.00"_s);
        view.choosesPayweek(week);
        QCOMPARE(texts(view.core()), ofTheYear);
    }

    void emptiedFileShowsZerosAfterARefresh()
    {
        const WorkedTotals totals;
        totals.file.workspace.execute(u"DROP TABLE trips"_s);
        totals.file.workspace.execute(u"DROP TABLE settlement_non_trip_items"_s);
        const DialogRobot robot;
        totals.view.clicks(u"Refresh"_s);
        QCOMPARE(totals.view.rowCounts(), QList<int>({19, 0, 4}));
        QCOMPARE(totals.view.figure(u"Total Revenue"_s), u"$0.00"_s);
        QCOMPARE(column(totals.view.fuel(), u"Type"_s), labelsOfFuelTotals);
        QCOMPARE(robot.seen().size(), 0);
    }
};

TEST_CLASS(tst_PayTotalsPage)
#include "tst_PayTotalsPage.moc"
