#include "reports/ReportRows.h"
#include "reports/ReportsWindow.h"
#include "support/Person.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"

#include <QApplication>
#include <QComboBox>
#include <QGraphicsView>
#include <QMouseEvent>
#include <QTableWidget>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

const QString week = u"01/02/2026"_s;
const QString nextWeek = u"01/09/2026"_s;

using Rows = QList<QStringList>;

void compareWithNoYears(const ReportsWindow &window)
{
    QCOMPARE(window.years(), QStringList());
    QCOMPARE(headers(window.table), QStringList(u"Details"_s));
    QCOMPARE(texts(window.table),
             Rows({{u"No report years found. Open or auto-load trips.db first."_s}}));
    QCOMPARE(window.status(), u"No report years found."_s);
    QVERIFY(window.view->scene()->items().isEmpty());
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
};

TEST_CLASS(tst_ReportsPage)
#include "tst_ReportsPage.moc"
