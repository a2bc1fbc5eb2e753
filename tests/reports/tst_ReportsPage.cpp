#include "reports/ReportRows.h"
#include "reports/ReportsPage.h"
#include "support/Person.h"
#include "support/ReadingOrder.h"
#include "support/TableReaders.h"

#include <QApplication>
#include <QComboBox>
#include <QGraphicsPixmapItem>
#include <QGraphicsView>
#include <QLayout>
#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QTableWidget>
#include <QToolTip>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

const QString week = u"01/02/2026"_s;
const QString nextWeek = u"01/09/2026"_s;

using Rows = QList<QStringList>;

/// The page in a window, with all that it says on the status line from now on.
struct ReportsWindow
{
    ReportsWindow()
    {
        page.statusCallback = [this](const QString &text) { said.append(text); };
        Person::shows(page);
    }

    [[nodiscard]] QStringList years() const
    {
        QStringList shown;
        for (int i = 0; i < yearBox->count(); ++i)
            shown.append(yearBox->itemText(i));
        return shown;
    }

    [[nodiscard]] QString status() const
    {
        return page.findChild<QLabel *>(u"reportStatus"_s)->text();
    }

    /// The chart as it lies in the scene; a null one if there is none.
    [[nodiscard]] QPixmap chart() const
    {
        const QList<QGraphicsItem *> items = view->scene()->items();
        if (items.size() != 1)
            return {};
        return qgraphicsitem_cast<QGraphicsPixmapItem *>(items.constFirst())->pixmap();
    }

    /// What has been said since this was asked last.
    QStringList news() { return std::exchange(said, {}); }

    ReportsPage page;
    QStringList said;
    QComboBox *yearBox = page.findChild<QComboBox *>(u"reportYear"_s);
    QComboBox *reportBox = page.findChild<QComboBox *>(u"reportKind"_s);
    QGraphicsView *view = page.findChild<QGraphicsView *>(u"reportChart"_s);
    QTableWidget *table = page.findChild<QTableWidget *>(u"reportTable"_s);
};

void compareWithNoYears(const ReportsWindow &window)
{
    QCOMPARE(window.years(), QStringList());
    QCOMPARE(headers(window.table), QStringList(u"Details"_s));
    QCOMPARE(texts(window.table),
             Rows({{u"No report years found. Open or auto-load trips.db first."_s}}));
    QCOMPARE(window.status(), u"No report years found."_s);
    QVERIFY(window.view->scene()->items().isEmpty());
}

/// Two weeks of 2026 and one of 2025.
void insertTwoYears(const Workspace &workspace)
{
    haul(week, 1000.0, 400.0, 500.0).insert(workspace);
    haul(nextWeek, 1000.0, 700.0, 2000.0).insert(workspace);
    haul(u"12/26/2025"_s, 600.0, 900.0, 300.0).insert(workspace);
}

/// Moves the mouse over the chart and gives the tooltip that is up then.
QString tipAt(const ReportsWindow &window, const QPointF &canvasPoint)
{
    const QPointF point = window.view->mapFromScene(canvasPoint);
    QWidget *viewport = window.view->viewport();
    QMouseEvent move(QEvent::MouseMove, point, viewport->mapToGlobal(point), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(viewport, &move);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

} // namespace

class tst_ReportsPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        QToolTip::hideText();
        QTRY_VERIFY(!QToolTip::isVisible());
    }

    void withoutAConnectionThePageSaysThatThereAreNoYears()
    {
        Workspace workspace;
        workspace.makeTrips();
        insertTwoYears(workspace);
        ReportsWindow window;
        compareWithNoYears(window);
        QCOMPARE(window.reportBox->currentText(), u"Compare CPMs"_s);
        QCOMPARE(window.news(), QStringList());
        window.page.refresh();
        compareWithNoYears(window);
        QCOMPARE(window.news(),
                 QStringList({u"Loaded 0 report year(s)."_s, u"No report years found."_s,
                              u"No report years found."_s}));
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
    }

    void fileWithoutTripsShowsAsNoYears_data()
    {
        QTest::addColumn<QString>("sql");
        QTest::newRow("no table") << u"DROP TABLE trips"_s;
        QTest::newRow("no column") << u"ALTER TABLE trips RENAME COLUMN payweek TO week"_s;
        QTest::newRow("no rows") << u"DELETE FROM trips"_s;
    }

    void fileWithoutTripsShowsAsNoYears()
    {
        QFETCH(const QString, sql);
        const ReportFile file;
        file.trips.execute(sql);
        const ReportsWindow window;
        compareWithNoYears(window);
    }

    void pageOpensOnTheLatestYearAndTheCpms()
    {
        const ReportFile file;
        insertTwoYears(file.workspace);
        const ReportsWindow window;
        QCOMPARE(window.years(), QStringList({u"2025"_s, u"2026"_s}));
        QCOMPARE(window.yearBox->currentText(), u"2026"_s);
        QCOMPARE(window.reportBox->currentData().toString(), u"cpms"_s);
        QCOMPARE(window.status(), u"Report refreshed: Compare CPMs | 2 week(s)"_s);
        QVERIFY(!window.chart().isNull());
    }

    void refreshReadsTheYearsAndTheReportTwice()
    {
        const ReportFile file;
        insertTwoYears(file.workspace);
        ReportsWindow window;
        window.page.refresh();
        const QString refreshed = u"Report refreshed: Compare CPMs | 2 week(s)"_s;
        QCOMPARE(window.news(), QStringList({u"Loaded 2 report year(s)."_s, refreshed, refreshed}));
        QCOMPARE(window.status(), refreshed);
    }

    void readingAtTheStartTellsSoAtTheEnd()
    {
        const Workspace workspace;
        ReportsWindow window;
        window.page.autoOpen();
        QCOMPARE(window.news(),
                 QStringList({u"Loaded 0 report year(s)."_s, u"No report years found."_s,
                              u"Reports refreshed."_s}));
        QCOMPARE(window.status(), u"Reports refreshed."_s);
    }

    void pageWorksWithoutAStatusLine()
    {
        const ReportFile file;
        insertTwoYears(file.workspace);
        ReportsWindow window;
        window.page.statusCallback = nullptr;
        window.page.autoOpen();
        QCOMPARE(window.status(), u"Reports refreshed."_s);
    }

    void chosenYearIsKeptByARefresh()
    {
        const ReportFile file;
        insertTwoYears(file.workspace);
        ReportsWindow window;
        Person::chooses(window.yearBox, u"2025"_s);
        haul(u"01/01/2027"_s, 1.0, 1.0, 1.0).insert(file.workspace);
        window.page.refresh();
        QCOMPARE(window.years(), QStringList({u"2025"_s, u"2026"_s, u"2027"_s}));
        QCOMPARE(window.yearBox->currentText(), u"2025"_s);
        QCOMPARE(column(window.table, u"Payweek"_s).constFirst(), u"12/26/2025"_s);
    }

    void yearThatIsGoneGivesWayToTheLatest()
    {
        const ReportFile file;
        insertTwoYears(file.workspace);
        ReportsWindow window;
        Person::chooses(window.yearBox, u"2025"_s);
        file.trips.execute(u"DELETE FROM trips WHERE payweek LIKE '%2025'"_s);
        window.page.refresh();
        QCOMPARE(window.years(), QStringList(u"2026"_s));
        QCOMPARE(window.yearBox->currentText(), u"2026"_s);
        QCOMPARE(column(window.table, u"Payweek"_s).constFirst(), week);
    }

    void yearIsRememberedWithRegardToCase()
    {
        const ReportFile file;
        haul(u"week fy26"_s, 1.0, 1.0, 1.0).insert(file.workspace);
        haul(u"week z"_s, 1.0, 1.0, 1.0).insert(file.workspace);
        ReportsWindow window;
        Person::chooses(window.yearBox, u"fy26"_s);
        file.trips.execute(u"UPDATE trips SET payweek = 'week FY26' WHERE payweek = 'week fy26'"_s);
        window.page.refresh();
        QCOMPARE(window.years(), QStringList({u"FY26"_s, u"ek z"_s}));
        QCOMPARE(window.yearBox->currentText(), u"ek z"_s);
    }

    void eachChoiceRefreshesTheReportOnceAndNeverTheYears()
    {
        const ReportFile file;
        insertTwoYears(file.workspace);
        ReportsWindow window;
        haul(u"01/01/2027"_s, 1.0, 1.0, 1.0).insert(file.workspace);
        Person::chooses(window.yearBox, u"2025"_s);
        QCOMPARE(window.news(), QStringList(u"Report refreshed: Compare CPMs | 1 week(s)"_s));
        Person::chooses(window.reportBox, u"Revenue vs Miles"_s);
        QCOMPARE(window.news(), QStringList(u"Report refreshed: Revenue vs Miles | 1 week(s)"_s));
        Person::clicks(window.page, u"Refresh Report"_s);
        QCOMPARE(window.news(), QStringList(u"Report refreshed: Revenue vs Miles | 1 week(s)"_s));
        QCOMPARE(window.years(), QStringList({u"2025"_s, u"2026"_s}));
    }

    void reportsHaveTheirKeys()
    {
        const Workspace workspace;
        const ReportsWindow window;
        QStringList entries;
        for (int i = 0; i < window.reportBox->count(); ++i)
            entries.append(window.reportBox->itemText(i) + u": "_s
                           + window.reportBox->itemData(i).toString());
        QCOMPARE(entries,
                 QStringList({u"Compare CPMs: cpms"_s, u"Revenue vs Cost vs Net: rev_cost_net"_s,
                              u"Miles (Loaded / Empty / Total): miles"_s,
                              u"Revenue vs Miles: revenue_vs_miles"_s}));
    }

    void eachReportHasItsTable_data()
    {
        QTest::addColumn<QString>("report");
        QTest::addColumn<QStringList>("header");
        QTest::addColumn<Rows>("rows");
        QTest::newRow("cpms") << u"Compare CPMs"_s
                              << QStringList{u"Payweek"_s, u"Net Revenue CPM ⓘ"_s,
                                             u"Total Revenue CPM ⓘ"_s, u"Trip Revenue CPM ⓘ"_s}
                              << Rows{{week, u"$1.20"_s, u"$2.00"_s, u"$1.80"_s},
                                      {nextWeek, u"$0.15"_s, u"$0.50"_s, u"$0.45"_s},
                                      {u"Weighted Avg"_s, u"$0.36"_s, u"$0.80"_s, u"$0.72"_s}};
        QTest::newRow("money") << u"Revenue vs Cost vs Net"_s
                               << QStringList{u"Payweek"_s, u"Net Revenue ⓘ"_s, u"Total Cost ⓘ"_s,
                                              u"Total Revenue ⓘ"_s}
                               << Rows{{week, u"$600.00"_s, u"$400.00"_s, u"$1000.00"_s},
                                       {nextWeek, u"$300.00"_s, u"$700.00"_s, u"$1000.00"_s},
                                       {u"Average"_s, u"$450.00"_s, u"$550.00"_s, u"$1000.00"_s}};
        QTest::newRow("miles") << u"Miles (Loaded / Empty / Total)"_s
                               << QStringList{u"Payweek"_s, u"Empty Miles ⓘ"_s, u"Loaded Miles ⓘ"_s,
                                              u"Total Miles ⓘ"_s}
                               << Rows{{week, u"0"_s, u"500"_s, u"500"_s},
                                       {nextWeek, u"0"_s, u"2000"_s, u"2000"_s},
                                       {u"Average"_s, u"0"_s, u"1250"_s, u"1250"_s}};
        QTest::newRow("both") << u"Revenue vs Miles"_s
                              << QStringList{u"Payweek"_s, u"Total Miles ⓘ"_s, u"Total Revenue ⓘ"_s}
                              << Rows{{week, u"500.00"_s, u"1000.00"_s},
                                      {nextWeek, u"2000.00"_s, u"1000.00"_s},
                                      {u"Average"_s, u"1250.00"_s, u"1000.00"_s}};
    }

    void eachReportHasItsTable()
    {
        QFETCH(const QString, report);
        const ReportFile file;
        insertTwoYears(file.workspace);
        const ReportsWindow window;
        Person::chooses(window.reportBox, report);
        QTEST(headers(window.table), "header");
        QTEST(texts(window.table), "rows");
        QCOMPARE(window.status(), u"Report refreshed: %1 | 2 week(s)"_s.arg(report));
    }

    void weightedCpmOfAShortAndALongWeekIsEightyCents()
    {
        const ReportFile file;
        haul(week, 1000.0, 0.0, 500.0).insert(file.workspace);
        haul(nextWeek, 1000.0, 0.0, 2000.0).insert(file.workspace);
        const ReportsWindow window;
        QCOMPARE(column(window.table, u"Total Revenue CPM ⓘ"_s),
                 QStringList({u"$2.00"_s, u"$0.50"_s, u"$0.80"_s}));
    }

    void payweekWithoutMilesReadsZeroAndDoesNotChangeTheWeightedAverage()
    {
        const ReportFile file;
        haul(week, 1000.0, 400.0, 500.0).insert(file.workspace);
        haul(nextWeek, 7000.0, 100.0, 0.0).insert(file.workspace);
        const ReportsWindow window;
        QCOMPARE(texts(window.table),
                 Rows({{week, u"$1.20"_s, u"$2.00"_s, u"$1.80"_s},
                       {nextWeek, u"$0.00"_s, u"$0.00"_s, u"$0.00"_s},
                       {u"Weighted Avg"_s, u"$1.20"_s, u"$2.00"_s, u"$1.80"_s}}));
    }

    void yearThatLostItsRowsSaysSo()
    {
        const ReportFile file;
        insertTwoYears(file.workspace);
        ReportsWindow window;
        file.trips.execute(u"DELETE FROM trips"_s);
        Person::clicks(window.page, u"Refresh Report"_s);
        QCOMPARE(texts(window.table), Rows({{u"Compare CPMs - Year 2026: No data."_s}}));
        QCOMPARE(window.news(), QStringList(u"Report refreshed: Compare CPMs | 0 week(s)"_s));
        QVERIFY(!window.chart().isNull());
        QCOMPARE(tipAt(window, {86, 262}), QString());
    }

    void connectionThatIsGoneLeavesNoReport()
    {
        ReportFile file;
        insertTwoYears(file.workspace);
        ReportsWindow window;
        file.trips.database().close();
        Person::clicks(window.page, u"Refresh Report"_s);
        QCOMPARE(texts(window.table), Rows({{u"Reports - Year 2026: No data."_s}}));
        QCOMPARE(window.news(), QStringList(u"Report refreshed: Reports | 0 week(s)"_s));
        window.page.refresh();
        compareWithNoYears(window);
    }

    void oddFiguresNeverShowAsNoNumber_data()
    {
        QTest::addColumn<double>("revenue");
        QTest::addColumn<double>("cost");
        QTest::addColumn<double>("miles");
        QTest::addColumn<QString>("average");
        QTest::newRow("zeros") << 0.0 << 0.0 << 0.0 << u"$0.00"_s;
        QTest::newRow("losses") << -500.0 << 700.0 << 1000.0 << u"$-500.00"_s;
        QTest::newRow("miles below zero") << 500.0 << 700.0 << -1000.0 << u"$500.00"_s;
        QTest::newRow("trillions") << 1e12 << 0.004 << 1e12 << u"$1000000000000.00"_s;
        QTest::newRow("beyond any amount") << 1e308 << -1e308 << 1e308 << u"$0.00"_s;
    }

    void oddFiguresNeverShowAsNoNumber()
    {
        QFETCH(const double, revenue);
        QFETCH(const double, cost);
        QFETCH(const double, miles);
        const ReportFile file;
        haul(week, revenue, cost, miles).insert(file.workspace);
        const ReportsWindow window;
        for (int report = 0; report < 4; ++report) {
            window.reportBox->setCurrentIndex(report);
            const QString all = window.table->item(0, 1)->text() + window.table->item(1, 1)->text()
                                + tipAt(window, {405, 262});
            QVERIFY2(!all.contains(u"nan"_s) && !all.contains(u"inf"_s), qPrintable(all));
            QVERIFY(!window.chart().isNull());
        }
        Person::chooses(window.reportBox, u"Revenue vs Cost vs Net"_s);
        QTEST(column(window.table, u"Total Revenue ⓘ"_s).constLast(), "average");
    }

    void changingTheWindowSizeLeavesTheChartAsItIsUntilTheNextRefresh()
    {
        const ReportFile file;
        insertTwoYears(file.workspace);
        ReportsWindow window;
        Person::clicks(window.page, u"Refresh Report"_s);
        const QSize before = window.chart().size();
        window.page.resize(1680, 1400);
        QCoreApplication::processEvents();
        QCOMPARE(window.chart().size(), before);
        Person::clicks(window.page, u"Refresh Report"_s);
        QCOMPARE(window.chart().size(), window.view->viewport()->size() - QSize(8, 8));
        QVERIFY(window.chart().width() >= before.width() + 300);
        QCOMPARE(window.view->sceneRect(), QRectF(QPointF(), window.chart().size()));
    }

    void smallPageScrollsAsAWholeAndItsChartDoesNot()
    {
        const ReportFile file;
        insertTwoYears(file.workspace);
        ReportsWindow window;
        window.page.resize(1000, 600);
        Person::clicks(window.page, u"Refresh Report"_s);
        QCOMPARE(window.view->height(), 620);
        QCOMPARE(window.chart().height(), 620);
        QCOMPARE(window.view->verticalScrollBar()->maximum(), 0);
        QCOMPARE(window.view->horizontalScrollBar()->maximum(), 0);
        QVERIFY(window.page.findChild<QScrollArea *>()->verticalScrollBar()->maximum() > 0);
    }

    void refreshShowsTheChartFromItsCorner()
    {
        const ReportFile file;
        insertTwoYears(file.workspace);
        ReportsWindow window;
        window.page.resize(500, 600);
        QCoreApplication::processEvents();
        const QList<QScrollBar *> bars = {window.view->horizontalScrollBar(),
                                          window.view->verticalScrollBar()};
        for (QScrollBar *bar : bars) {
            bar->setValue(bar->maximum());
            QVERIFY(bar->value() > 0);
        }
        Person::clicks(window.page, u"Refresh Report"_s);
        for (const QScrollBar *bar : bars) {
            QVERIFY(bar->maximum() > 0);
            QCOMPARE(bar->value(), 0);
        }
    }

    void refreshShowsTheChartInItsOwnSize()
    {
        const ReportFile file;
        insertTwoYears(file.workspace);
        const ReportsWindow window;
        window.view->scale(2.0, 2.0);
        Person::clicks(window.page, u"Refresh Report"_s);
        QVERIFY(window.view->transform().isIdentity());
    }

    void chartTellsWhatStandsUnderTheMouse()
    {
        const ReportFile file;
        haul(week, 1000.0, 400.0, 500.0).insert(file.workspace);
        ReportsWindow window;
        Person::chooses(window.reportBox, u"Miles (Loaded / Empty / Total)"_s);
        const QRectF canvas = window.view->sceneRect();
        // The last of three bars, 17 pixels to the right of the plot's middle.
        const QPointF lastBar(86 + (canvas.width() - 122) / 2 + 17, 200);
        QCOMPARE(tipAt(window, lastBar), u"Total Miles\nPayweek: 01/02/2026\nValue: 500"_s);
        Person::clicks(window.page, u"Refresh Report"_s);
        QTRY_VERIFY(!QToolTip::isVisible());
    }

    void pageReadsFromTopToBottom()
    {
        const ReportFile file;
        insertTwoYears(file.workspace);
        const ReportsWindow window;
        const auto *area = window.page.findChild<QScrollArea *>();
        const QStringList parts = partsInReadingOrder(area->widget());
        QCOMPARE(parts.size(), 8);
        QCOMPARE(parts.mid(0, 6),
                 QStringList({u"Reports"_s, u"Year:"_s, u"reportYear"_s, u"Report:"_s,
                              u"reportKind"_s, u"Refresh Report"_s}));
        QCOMPARE(parts.constLast(), window.status());
        const auto *splitter = window.page.findChild<QSplitter *>();
        QCOMPARE(nameOf(splitter->widget(0)), u"Chart"_s);
        QCOMPARE(nameOf(splitter->widget(1)), u"Details"_s);
        QCOMPARE(splitter->orientation(), Qt::Vertical);
        QVERIFY(!splitter->childrenCollapsible());
    }

    // At twice these heights, for the lower part cannot be as low as 260.
    void chartAndTableStartAs680To260()
    {
        const Workspace workspace;
        ReportsWindow window;
        const auto *splitter = window.page.findChild<QSplitter *>();
        window.page.resize(1280, 1400); // and nothing scrolls
        QCoreApplication::processEvents();
        const int rest = 1400 - splitter->height();
        window.page.resize(1280, rest + 1360 + splitter->handleWidth() + 520);
        QCoreApplication::processEvents();
        const QList<int> heights = splitter->sizes();
        QCOMPARE(heights.at(0) + heights.at(1), 1880);
        QVERIFY2(std::abs(heights.at(0) - 1360) <= 3, qPrintable(QString::number(heights.at(0))));
    }

    void chartTakesMoreOfATallPageThanTheTable()
    {
        const Workspace workspace;
        ReportsWindow window;
        const auto *splitter = window.page.findChild<QSplitter *>();
        QCOMPARE(splitter->widget(0)->sizePolicy().verticalStretch(), 3);
        QCOMPARE(splitter->widget(1)->sizePolicy().verticalStretch(), 2);
        window.page.resize(1280, 1400);
        QCoreApplication::processEvents();
        const QList<int> before = splitter->sizes();
        window.page.resize(1280, 1900);
        QCoreApplication::processEvents();
        const QList<int> more = {splitter->sizes().at(0) - before.at(0),
                                 splitter->sizes().at(1) - before.at(1)};
        QCOMPARE(more.at(0) + more.at(1), 500);
        QVERIFY(more.at(0) > more.at(1));
        QVERIFY(more.at(1) > 0);
    }

    void partsHaveTheirLeastSizes()
    {
        const Workspace workspace;
        const ReportsWindow window;
        QCOMPARE(window.yearBox->minimumWidth(), 110);
        QCOMPARE(window.reportBox->minimumWidth(), 260);
        QCOMPARE(window.view->minimumHeight(), 620);
        QCOMPARE(window.table->minimumHeight(), 220);
        const auto *area = window.page.findChild<QScrollArea *>();
        QCOMPARE(area->frameShape(), QFrame::NoFrame);
        QVERIFY(area->widgetResizable());
        QCOMPARE(window.page.layout()->contentsMargins(), QMargins());
        QCOMPARE(area->widget()->layout()->contentsMargins(), QMargins(12, 12, 12, 12));
        QCOMPARE(area->widget()->layout()->spacing(), 10);
        QVERIFY(window.view->renderHints().testFlag(QPainter::Antialiasing));
    }

    void headingIsBoldAndFivePointsLarger()
    {
        const Workspace workspace;
        const ReportsWindow window;
        const auto labels = window.page.findChildren<QLabel *>();
        const auto heading = std::find_if(labels.cbegin(), labels.cend(), [](const QLabel *label) {
            return label->text() == u"Reports"_s;
        });
        QVERIFY(heading != labels.cend());
        QVERIFY((*heading)->font().bold());
        QCOMPARE((*heading)->font().pointSize(), QApplication::font().pointSize() + 5);
    }

    void wheelOverABoxScrollsThePageAndChangesNoReport()
    {
        const ReportFile file;
        insertTwoYears(file.workspace);
        ReportsWindow window;
        window.view->setFocus();
        Person::turnsWheelOver(window.yearBox);
        Person::turnsWheelOver(window.reportBox);
        QCOMPARE(window.yearBox->currentText(), u"2026"_s);
        QCOMPARE(window.reportBox->currentText(), u"Compare CPMs"_s);
        QCOMPARE(window.news(), QStringList());
    }

    void wheelOverTheChartScrollsThePage()
    {
        const ReportFile file;
        insertTwoYears(file.workspace);
        const ReportsWindow window;
        const auto *bar = window.page.findChild<QScrollArea *>()->verticalScrollBar();
        QCOMPARE(bar->value(), 0);
        Person::turnsWheelOver(window.view->viewport());
        QVERIFY(bar->value() > 0);
    }
};

QTEST_MAIN(tst_ReportsPage)
#include "tst_ReportsPage.moc"
