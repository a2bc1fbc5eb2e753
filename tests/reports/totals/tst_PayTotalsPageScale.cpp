#include "reports/totals/TotalsWindow.h"
#include "support/DialogRobot.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// The page on the worked year, at a scale.
class ScaledTotals
{
public:
    explicit ScaledTotals(int percent = 100) { view.page->applyUiScale(percent); }

    WorkedFile file;
    TotalsWindow view = TotalsWindow(file.path);
};

template <typename Widget>
QList<int> leastHeights(const QWidget *page)
{
    QList<int> heights;
    for (const Widget *widget : page->findChildren<Widget *>())
        heights.append(widget->minimumHeight());
    return heights;
}

const QLabel *labelWith(const TotalsWindow &view, const QString &text)
{
    for (const QLabel *label : view.page->findChildren<QLabel *>()) {
        if (label->text() == text)
            return label;
    }
    return nullptr;
}

} // namespace

/// How the page follows the scale, and how its tables sort from then on.
class tst_PayTotalsPageScale : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fontsAndHeightsFollowTheScale_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("points");
        QTest::addColumn<int>("titlePoints");
        QTest::addColumn<int>("rowHeight");
        QTest::addColumn<int>("headerHeight");
        QTest::addColumn<int>("buttonHeight");
        QTest::newRow("40 counts as 75") << 40 << 8 << 11 << 22 << 24 << 28;
        QTest::newRow("75") << 75 << 8 << 11 << 22 << 24 << 28;
        QTest::newRow("100") << 100 << 10 << 14 << 24 << 26 << 32;
        QTest::newRow("175") << 175 << 17 << 24 << 42 << 45 << 56;
        QTest::newRow("500 counts as 175") << 500 << 17 << 24 << 42 << 45 << 56;
    }

    void fontsAndHeightsFollowTheScale()
    {
        QFETCH(const int, percent);
        QFETCH(const int, buttonHeight);
        const ScaledTotals totals(percent);
        const TotalsWindow &view = totals.view;
        QTEST(view.page->font().pointSize(), "points");
        QTEST(view.named<QLabel>("totalsScope")->font().pointSize(), "points");
        QTEST(view.page->findChild<QGroupBox *>()->font().pointSize(), "points");
        QTEST(labelWith(view, u"Pay Totals"_s)->font().pointSize(), "titlePoints");
        QCOMPARE(leastHeights<QPushButton>(view.page), QList<int>(7, buttonHeight));
        QCOMPARE(leastHeights<QComboBox>(view.page), QList<int>(2, buttonHeight));
        for (const QTableWidget *table : view.tables()) {
            QTEST(table->font().pointSize(), "points");
            QTEST(table->item(0, 0)->font().pointSize(), "points");
            QTEST(table->rowHeight(0), "rowHeight");
            QTEST(table->horizontalHeader()->minimumHeight(), "headerHeight");
        }
    }

    // The rule goes by the words "Pay Totals", wherever a label has them.
    void labelsWithTheTitleInThemAreBold()
    {
        const ScaledTotals totals;
        const TotalsWindow &view = totals.view;
        QVERIFY(labelWith(view, u"Pay Totals"_s)->font().bold());
        QVERIFY(view.named<QLabel>("coreTotalsSummary")->font().bold());
        QCOMPARE(view.named<QLabel>("coreTotalsSummary")->font().pointSize(), 14);
        QVERIFY(!view.named<QLabel>("nonTripTotalsSummary")->font().bold());
        QVERIFY(!view.named<QLabel>("fuelTotalsSummary")->font().bold());
        QVERIFY(!view.named<QLabel>("totalsScope")->font().bold());
    }

    void rowsOfALaterRefreshHaveTheScaleToo()
    {
        const ScaledTotals totals(175);
        totals.view.choosesPayweek(nextWeek);
        for (const QTableWidget *table : totals.view.tables()) {
            QCOMPARE(table->rowHeight(table->rowCount() - 1), 42);
            QCOMPARE(table->font().pointSize(), 17);
        }
    }

    void columnsHaveRoomForALargerFont()
    {
        const ScaledTotals totals;
        const int before = totals.view.core()->columnWidth(0);
        totals.view.page->applyUiScale(175);
        QVERIFY(totals.view.core()->columnWidth(0) > before);
        for (const QTableWidget *table : totals.view.tables())
            QCOMPARE(table->horizontalHeader()->length(), table->viewport()->width());
    }

    void lastColumnsReachTheEdgeAfterEveryRefresh()
    {
        const ScaledTotals totals;
        totals.view.clicks(u"Refresh"_s);
        QCoreApplication::processEvents();
        for (const QTableWidget *table : totals.view.tables())
            QCOMPARE(table->horizontalHeader()->length(), table->viewport()->width());
    }

    void coreAndFuelRowsNeedNoScrollingInTheirTables_data()
    {
        QTest::addColumn<int>("percent");
        QTest::newRow("75") << 75;
        QTest::newRow("100") << 100;
        QTest::newRow("175") << 175;
    }

    void coreAndFuelRowsNeedNoScrollingInTheirTables()
    {
        QFETCH(const int, percent);
        const ScaledTotals totals(percent);
        QCoreApplication::processEvents();
        for (const QTableWidget *table : {totals.view.core(), totals.view.fuel()}) {
            const QTableWidgetItem *last = table->item(table->rowCount() - 1, 0);
            QVERIFY(table->viewport()->rect().contains(table->visualItemRect(last)));
        }
    }

    void scaleReadsNothing()
    {
        ScaledTotals totals;
        totals.view.page->applyUiScale(175);
        QCOMPARE(totals.view.statuses, QStringList());
    }

    void pageWithoutAFileTakesAScale()
    {
        const Workspace workspace;
        const TotalsWindow view;
        view.page->applyUiScale(175);
        QCOMPARE(view.rowCounts(), QList<int>({0, 0, 0}));
        QCOMPARE(headers(view.core()), QStringList({u"Metric \u2195"_s, u"Value \u2195"_s}));
    }

    void headersSortAndTellHow()
    {
        const ScaledTotals totals;
        QTableWidget *fuel = totals.view.fuel();
        Person::clicksHeader(fuel, 4);
        QCOMPARE(headers(fuel), QStringList({u"Type \u2195"_s, u"Rows \u2195"_s, u"Cost \u2195"_s,
                                             u"Discount \u2195"_s, u"Net Cost \u25B2"_s,
                                             u"Gallons \u2195"_s, u"Avg Net $/Gal \u2195"_s}));
        QCOMPARE(column(fuel, u"Net Cost"_s),
                 QStringList({u"$29.00"_s, u"$75.00"_s, u"$460.00"_s, u"$576.00"_s}));
        Person::clicksHeader(fuel, 4);
        QCOMPARE(headers(fuel).at(4), u"Net Cost \u25BC"_s);
        QCOMPARE(column(fuel, u"Net Cost"_s),
                 QStringList({u"$576.00"_s, u"$460.00"_s, u"$75.00"_s, u"$29.00"_s}));
    }

    void figuresBelowZeroSortAsNumbers()
    {
        const ScaledTotals totals;
        Person::clicksHeader(totals.view.items(), 5);
        QCOMPARE(column(totals.view.items(), u"Net Impact"_s),
                 QStringList({u"$-100.00"_s, u"$-50.00"_s, u"$-35.25"_s, u"$-10.00"_s, u"$5.00"_s,
                              u"$30.00"_s, u"$50.00"_s}));
    }

    void sortIsKeptAfterARefreshAndANewScale()
    {
        const ScaledTotals totals;
        QTableWidget *items = totals.view.items();
        Person::clicksHeader(items, 4);
        totals.view.choosesPayweek(week);
        const QStringList sorted = {u"$5.00"_s, u"$25.25"_s, u"$50.00"_s, u"$50.00"_s,
                                    u"$100.00"_s};
        QCOMPARE(column(items, u"Total"_s), sorted);
        totals.view.page->applyUiScale(75);
        QCOMPARE(column(items, u"Total"_s), sorted);
        QCOMPARE(headers(items).at(4), u"Total \u25B2"_s);
    }

    void beforeAScaleIsSetAClickOnAHeaderSortsNothing()
    {
        const WorkedFile file;
        const TotalsWindow view(file.path);
        Person::clicksHeader(view.core(), 0);
        QCOMPARE(view.core()->item(0, 0)->text(), u"Trip Count"_s);
    }

    void clickOnASortedCoreRowOpensItsOwnBreakdown()
    {
        const ScaledTotals totals;
        DialogRobot robot;
        Person::clicksHeader(totals.view.core(), 0);
        totals.view.clicks(u"Refresh"_s);
        QCOMPARE(totals.view.core()->item(0, 0)->text(), u"CPM (Net Revenue / Total Miles)"_s);
        robot.expectDialog(u"CPM (Net Revenue / Total Miles) \u2014 Weekly Breakdown \u2014 2026"_s)
            .press(u"Close"_s);
        Person::clicksCell(totals.view.core(), 0, 1);
    }

    void clickOnASortedGroupOpensItsOwnItems()
    {
        const ScaledTotals totals;
        DialogRobot robot;
        Person::clicksHeader(totals.view.items(), 0);
        Person::clicksHeader(totals.view.items(), 0);
        robot.expectDialog(u"Tire Fund \u2014 Tire Fund"_s).press(u"Close"_s);
        Person::clicksCell(totals.view.items(), 0, 3);
    }

    void clickOnASortedFuelRowOpensItsOwnBreakdown()
    {
        const ScaledTotals totals;
        DialogRobot robot;
        Person::clicksHeader(totals.view.fuel(), 4);
        robot.expectDialog(u"DEF \u2014 Weekly Breakdown \u2014 2026"_s).press(u"Close"_s);
        Person::clicksCell(totals.view.fuel(), 0, 6);
    }
};

TEST_CLASS(tst_PayTotalsPageScale)
#include "tst_PayTotalsPageScale.moc"
