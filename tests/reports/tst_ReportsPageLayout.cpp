#include "reports/ReportRows.h"
#include "reports/ReportsWindow.h"
#include "support/Person.h"
#include "support/ReadingOrder.h"
#include "support/TestProgram.h"

#include <QApplication>
#include <QComboBox>
#include <QGraphicsView>
#include <QLabel>
#include <QLayout>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QTableWidget>

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

/// Where the parts of the page stand, how large they are, and how they scroll.
class tst_ReportsPageLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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

TEST_CLASS(tst_ReportsPageLayout)
#include "tst_ReportsPageLayout.moc"
