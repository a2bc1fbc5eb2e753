#include "reports/charts/LineChartGeometry.h"
#include "reports/charts/TipReaders.h"
#include "reports/totals/PayTotalsPopups.h"
#include "support/DialogRobot.h"
#include "support/Person.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

using PayTotalsPopups::ItemFilter;

const QString firstDate = u"01/02/2026"_s;
const QString secondDate = u"01/09/2026"_s;
const QString fund = u"Emergency Fund"_s;
const QString cost = u"Other Non-Trip Expense"_s;
const QString expense = u"expense"_s;

FuelTotals purchases()
{
    FuelTotals totals;
    totals.rows = {{firstDate, u"4471203"_s, u"Truck Fuel"_s, 400.0, 40.0, 360.0, 100.0, 3.6},
                   {firstDate, u"4471203"_s, u"DEF"_s, 30.0, 1.0, 29.0, 0.0, 0.0},
                   {secondDate, u""_s, u"Oil"_s, 12.0, 0.0, 12.0, 2.0, 6.0}};
    return totals;
}

NonTripTotals items()
{
    NonTripTotals totals;
    totals.rows = {{firstDate, fund, expense, fund, 100.0, -100.0},
                   {firstDate, cost, expense, u""_s, 12.34, -12.34},
                   {secondDate, fund, u"revenue"_s, fund, 30.0, 30.0},
                   {secondDate, fund, expense, fund, 50.0, -50.0},
                   {firstDate, cost, expense, u"Permit"_s, 7.0, -7.0}};
    return totals;
}

/// A dialog as a person has it open.
class OpenPopup
{
public:
    explicit OpenPopup(QDialog *popup)
        : dialog(popup)
    {
        dialog->show();
        if (!QTest::qWaitForWindowActive(dialog.get()))
            QTest::qFail("The dialog never came up.", __FILE__, __LINE__);
    }

    [[nodiscard]] QTableWidget *table() const { return dialog->findChild<QTableWidget *>(); }
    [[nodiscard]] QWidget *chart() const { return dialog->findChild<QWidget *>(u"lineChart"_s); }

    /// The first line of its text: how many rows there are, and what they come to.
    [[nodiscard]] QString totalsLine() const { return dialog->findChild<QLabel *>()->text(); }

    /// What the chart tells of its points, from left to right, if there are as many as `labels`.
    [[nodiscard]] QStringList chartTexts(const QStringList &labels,
                                         const QList<double> &values) const
    {
        QList<ChartPoint> points;
        for (qsizetype i = 0; i < labels.size(); ++i)
            points.append({labels.at(i), values.at(i)});
        QStringList told;
        const QRectF plot = LineChartGeometry::plotRect(chart()->rect(), 100);
        for (const ChartHoverPoint &point : LineChartGeometry::plottedPoints(points, plot)) {
            const QPoint place = QPointF(point.x, point.y).toPoint();
            QTest::mouseMove(dialog->windowHandle(), {1, 1});
            told.append(tipAt(*dialog, chart()->mapTo(dialog.get(), place)));
        }
        return told;
    }

    std::unique_ptr<QDialog> dialog;
};

} // namespace

/// The listings behind the figures of the Totals page.
class tst_PayTotalsPopups : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void purchasesAreListedInTheirOrder()
    {
        const Workspace workspace;
        const OpenPopup popup(PayTotalsPopups::makeFuelDialog(purchases(), {}, nullptr));
        QCOMPARE(popup.dialog->windowTitle(), u"Fuel Breakdown"_s);
        QCOMPARE(headers(popup.table()),
                 QStringList({u"Payweek"_s, u"Trip #"_s, u"Type"_s, u"Cost"_s, u"Discount"_s,
                              u"Net Cost"_s, u"Gallons"_s, u"Avg Net $/Gal"_s}));
        QCOMPARE(texts(popup.table()),
                 QList<QStringList>({{firstDate, u"4471203"_s, u"Truck Fuel"_s, u"$400.00"_s,
                                      u"$40.00"_s, u"$360.00"_s, u"100.000"_s, u"$3.6000/gal"_s},
                                     {firstDate, u"4471203"_s, u"DEF"_s, u"$30.00"_s, u"$1.00"_s,
                                      u"$29.00"_s, u"0.000"_s, u"n/a"_s},
                                     {secondDate, u""_s, u"Oil"_s, u"$12.00"_s, u"$0.00"_s,
                                      u"$12.00"_s, u"2.000"_s, u"$6.0000/gal"_s}}));
    }

    void purchasesOfATypeAreListedAlone()
    {
        const Workspace workspace;
        const OpenPopup popup(PayTotalsPopups::makeFuelDialog(purchases(), u"DEF"_s, nullptr));
        QCOMPARE(popup.dialog->windowTitle(), u"DEF Breakdown"_s);
        QCOMPARE(column(popup.table(), u"Type"_s), QStringList({u"DEF"_s}));
    }

    void typeIsMatchedExactly_data()
    {
        QTest::addColumn<QString>("type");
        QTest::newRow("another case") << u"def"_s;
        QTest::newRow("a part of it") << u"Truck"_s;
        QTest::newRow("not bought") << u"Reefer Fuel"_s;
    }

    void typeIsMatchedExactly()
    {
        QFETCH(const QString, type);
        const Workspace workspace;
        QWidget page;
        QCOMPARE(PayTotalsPopups::makeFuelDialog(purchases(), type, &page), nullptr);
        QCOMPARE(page.findChildren<QDialog *>().size(), 0);
    }

    void noRowsMakeNoDialog()
    {
        const Workspace workspace;
        QWidget page;
        QCOMPARE(PayTotalsPopups::makeFuelDialog({}, {}, &page), nullptr);
        QCOMPARE(PayTotalsPopups::makeItemsDialog({}, nullptr, &page), nullptr);
        QCOMPARE(page.findChildren<QDialog *>().size(), 0);
    }

    void itemsAreListedBelowTotalsAndChart()
    {
        const Workspace workspace;
        const OpenPopup popup(PayTotalsPopups::makeItemsDialog(items(), nullptr, nullptr));
        QCOMPARE(popup.dialog->windowTitle(), u"Non-Trip Settlement Breakdown"_s);
        QCOMPARE(headers(popup.table()),
                 QStringList({u"Date"_s, u"Category"_s, u"Kind"_s, u"Item Name"_s, u"Amount"_s,
                              u"Net Impact"_s}));
        QCOMPARE(
            texts(popup.table()),
            QList<QStringList>({{firstDate, fund, expense, fund, u"$100.00"_s, u"$-100.00"_s},
                                {firstDate, cost, expense, u"(blank)"_s, u"$12.34"_s, u"$-12.34"_s},
                                {secondDate, fund, u"revenue"_s, fund, u"$30.00"_s, u"$30.00"_s},
                                {secondDate, fund, expense, fund, u"$50.00"_s, u"$-50.00"_s},
                                {firstDate, cost, expense, u"Permit"_s, u"$7.00"_s, u"$-7.00"_s}}));
        QCOMPARE(popup.totalsLine(), u"Rows: 5    Total: $199.34    Net impact: $-139.34"_s);
    }

    void itemsOfAGroupShareCategoryKindAndName()
    {
        const Workspace workspace;
        const ItemFilter filter{.category = fund, .kind = expense, .name = fund};
        const OpenPopup popup(PayTotalsPopups::makeItemsDialog(items(), &filter, nullptr));
        QCOMPARE(popup.dialog->windowTitle(), u"Emergency Fund \u2014 Emergency Fund"_s);
        QCOMPARE(column(popup.table(), u"Amount"_s), QStringList({u"$100.00"_s, u"$50.00"_s}));
        QCOMPARE(popup.totalsLine(), u"Rows: 2    Total: $150.00    Net impact: $-150.00"_s);
    }

    void itemsWithoutANameAreFoundAsBlank()
    {
        const Workspace workspace;
        const ItemFilter filter{.category = cost, .kind = expense, .name = u"(blank)"_s};
        const OpenPopup popup(PayTotalsPopups::makeItemsDialog(items(), &filter, nullptr));
        QCOMPARE(popup.dialog->windowTitle(), u"Other Non-Trip Expense \u2014 (blank)"_s);
        QCOMPARE(column(popup.table(), u"Amount"_s), QStringList({u"$12.34"_s}));
    }

    void filterIsMatchedExactly_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::newRow("another category") << QStringList({cost, expense, fund});
        QTest::newRow("another kind") << QStringList({cost, u"revenue"_s, u"Permit"_s});
        QTest::newRow("another name") << QStringList({fund, expense, u"Permit"_s});
        QTest::newRow("another case") << QStringList({fund, expense, u"emergency fund"_s});
        QTest::newRow("no name") << QStringList({cost, expense, QString()});
    }

    void filterIsMatchedExactly()
    {
        QFETCH(const QStringList, words);
        const Workspace workspace;
        QWidget page;
        const ItemFilter filter{.category = words.at(0), .kind = words.at(1), .name = words.at(2)};
        QCOMPARE(PayTotalsPopups::makeItemsDialog(items(), &filter, &page), nullptr);
        QCOMPARE(page.findChildren<QDialog *>().size(), 0);
    }

    // 100.00, 12.34 and 7.00 left the first settlement; 30.00 came into the second and 50.00 left.
    void chartAddsUpEachDateInTheOrderOfItsFirstItem()
    {
        const Workspace workspace;
        const OpenPopup popup(PayTotalsPopups::makeItemsDialog(items(), nullptr, nullptr));
        QCOMPARE(popup.chartTexts({firstDate, secondDate}, {-119.34, -20.0}),
                 QStringList({u"01/02/2026\n-119.34"_s, u"01/09/2026\n-20.00"_s}));
    }

    void chartOfOneDateHasOnePoint()
    {
        const Workspace workspace;
        const ItemFilter filter{.category = cost, .kind = expense, .name = u"Permit"_s};
        const OpenPopup popup(PayTotalsPopups::makeItemsDialog(items(), &filter, nullptr));
        QCOMPARE(popup.chartTexts({firstDate}, {-7.0}), QStringList({u"01/02/2026\n-7.00"_s}));
    }

    void itemsDialogReadsFromTopToBottom()
    {
        const Workspace workspace;
        const OpenPopup popup(PayTotalsPopups::makeItemsDialog(items(), nullptr, nullptr));
        const auto *layout = qobject_cast<QVBoxLayout *>(popup.dialog->layout());
        QVERIFY(layout);
        const QList<QLabel *> labels = popup.dialog->findChildren<QLabel *>();
        const QWidgetList widgets = {labels.at(0), labels.at(1), popup.chart(), popup.table(),
                                     popup.dialog->findChild<QDialogButtonBox *>()};
        QCOMPARE(layout->count(), 5);
        for (int i = 0; i < layout->count(); ++i)
            QCOMPARE(layout->itemAt(i)->widget(), widgets.at(i));
        QCOMPARE(layout->stretch(3), 1);
        QCOMPARE(labels.at(1)->text(), u"Net impact by settlement date"_s);
        QVERIFY(labels.at(1)->font().bold());
        QVERIFY(!labels.at(0)->font().bold());
    }

    void dialogsFollowTheSavedScale_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<QSize>("fuelSize");
        QTest::addColumn<QSize>("itemsSize");
        QTest::newRow("40 counts as 75") << 40 << QSize(675, 390) << QSize(735, 420);
        QTest::newRow("100") << 100 << QSize(900, 520) << QSize(980, 560);
        QTest::newRow("175") << 175 << QSize(1575, 910) << QSize(1715, 980);
        QTest::newRow("500 counts as 175") << 500 << QSize(1575, 910) << QSize(1715, 980);
    }

    void dialogsFollowTheSavedScale()
    {
        QFETCH(const int, percent);
        const Workspace workspace;
        Workspace::saveScale(percent);
        const OpenPopup fuel(PayTotalsPopups::makeFuelDialog(purchases(), {}, nullptr));
        const OpenPopup nonTrip(PayTotalsPopups::makeItemsDialog(items(), nullptr, nullptr));
        QTEST(fuel.dialog->size(), "fuelSize");
        QTEST(nonTrip.dialog->size(), "itemsSize");
    }

    void rowsFollowTheSavedScaleAsOnThePage_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("rowHeight");
        QTest::newRow("75") << 75 << 22;
        QTest::newRow("100") << 100 << 24;
        QTest::newRow("175") << 175 << 42;
    }

    void rowsFollowTheSavedScaleAsOnThePage()
    {
        QFETCH(const int, percent);
        const Workspace workspace;
        Workspace::saveScale(percent);
        const OpenPopup fuel(PayTotalsPopups::makeFuelDialog(purchases(), {}, nullptr));
        const OpenPopup nonTrip(PayTotalsPopups::makeItemsDialog(items(), nullptr, nullptr));
        for (const QTableWidget *table : {fuel.table(), nonTrip.table()}) {
            QTEST(table->rowHeight(0), "rowHeight");
            QVERIFY(table->viewport()->rect().contains(table->visualItemRect(table->item(0, 0))));
        }
    }

    void tablesAreThoseOfThePage()
    {
        const Workspace workspace;
        const OpenPopup fuel(PayTotalsPopups::makeFuelDialog(purchases(), {}, nullptr));
        const OpenPopup nonTrip(PayTotalsPopups::makeItemsDialog(items(), nullptr, nullptr));
        for (const QTableWidget *table : {fuel.table(), nonTrip.table()}) {
            QCOMPARE(table->selectionBehavior(), QAbstractItemView::SelectRows);
            QCOMPARE(table->editTriggers(), QAbstractItemView::NoEditTriggers);
            QVERIFY(table->verticalHeader()->isHidden());
            QCOMPARE(table->horizontalHeader()->length(), table->viewport()->width());
            QVERIFY(!table->accessibleName().isEmpty());
        }
    }

    void closeAndEscapeEndThemWithRejection()
    {
        const Workspace workspace;
        DialogRobot robot;
        const std::unique_ptr<QDialog> fuel(
            PayTotalsPopups::makeFuelDialog(purchases(), {}, nullptr));
        robot.expectDialog(u"Fuel Breakdown"_s).press(u"Close"_s);
        QCOMPARE(fuel->exec(), int(QDialog::Rejected));
        const std::unique_ptr<QDialog> nonTrip(
            PayTotalsPopups::makeItemsDialog(items(), nullptr, nullptr));
        robot.expectDialog(u"Non-Trip Settlement Breakdown"_s).press(u"Close"_s);
        QCOMPARE(nonTrip->exec(), int(QDialog::Rejected));
        robot.expectDialog(u"Non-Trip Settlement Breakdown"_s).dismiss();
        QCOMPARE(nonTrip->exec(), int(QDialog::Rejected));
        QCOMPARE(nonTrip->findChild<QDialogButtonBox *>()->buttons().size(), 1);
    }

    void dialogBelongsToThePage()
    {
        const Workspace workspace;
        QWidget page;
        const QDialog *fuel = PayTotalsPopups::makeFuelDialog(purchases(), {}, &page);
        const QDialog *nonTrip = PayTotalsPopups::makeItemsDialog(items(), nullptr, &page);
        QCOMPARE(fuel->parentWidget(), &page);
        QCOMPARE(nonTrip->parentWidget(), &page);
        QVERIFY(fuel->isHidden());
    }

    void tabGoesFromTheTableToTheButton()
    {
        const Workspace workspace;
        const OpenPopup popup(PayTotalsPopups::makeItemsDialog(items(), nullptr, nullptr));
        Person::clicksCell(popup.table(), 0, 0);
        QTest::keyClick(popup.table(), Qt::Key_Tab);
        const auto *buttons = popup.dialog->findChild<QDialogButtonBox *>();
        QVERIFY(buttons->button(QDialogButtonBox::Close)->hasFocus());
    }

    void largeAndTinyAmountsAreNumbersToo()
    {
        const Workspace workspace;
        NonTripTotals totals;
        totals.rows = {{u"soon"_s, cost, expense, u"Permit"_s, 1e12, -1e12},
                       {u""_s, cost, expense, u"Permit"_s, 0.004, 0.0}};
        const OpenPopup popup(PayTotalsPopups::makeItemsDialog(totals, nullptr, nullptr));
        QCOMPARE(column(popup.table(), u"Amount"_s),
                 QStringList({u"$1000000000000.00"_s, u"$0.00"_s}));
        QCOMPARE(popup.totalsLine(),
                 u"Rows: 2    Total: $1000000000000.00    Net impact: $-1000000000000.00"_s);
    }
};

TEST_CLASS(tst_PayTotalsPopups)
#include "tst_PayTotalsPopups.moc"
