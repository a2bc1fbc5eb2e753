#include "reports/ReportsPage.h"

#include "reports/ReportTable.h"
#include "reports/ReportsRepository.h"
#include "reports/charts/ChartHover.h"
#include "reports/charts/ReportChartGeometry.h"
#include "ui/PageParts.h"
#include "ui/WheelGuard.h"

#include <QComboBox>
#include <QGraphicsPixmapItem>
#include <QGraphicsView>
#include <QGroupBox>
#include <QLabel>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSplitter>

using namespace Qt::StringLiterals;

namespace {

constexpr int leastChartHeight = 620;

QComboBox *makeSelector(const QString &objectName, int leastWidth, QWidget *page)
{
    auto *box = new QComboBox(page);
    box->setObjectName(objectName);
    box->setMinimumWidth(leastWidth);
    guardFromWheel(box);
    return box;
}

} // namespace

ReportsPage::ReportsPage(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(u"reportsPage"_s);
    buildLayout();
    connect(yearBox, &QComboBox::currentTextChanged, this, &ReportsPage::refreshReport);
    connect(reportBox, &QComboBox::currentIndexChanged, this, &ReportsPage::refreshReport);
    reloadYears();
}

void ReportsPage::buildLayout()
{
    QWidget *inner = PageParts::makeScrollingContent(this);
    auto *sections = new QVBoxLayout(inner);
    sections->setContentsMargins(12, 12, 12, 12);
    sections->setSpacing(10);
    sections->addWidget(PageParts::makeHeading(tr("Reports"), inner, 5));
    sections->addLayout(buildSelectors());
    sections->addWidget(buildChartAndDetails(), 1);
    statusLabel = PageParts::makeNote(tr("Ready."), inner);
    statusLabel->setObjectName(u"reportStatus"_s);
    sections->addWidget(statusLabel);
}

QBoxLayout *ReportsPage::buildSelectors()
{
    yearBox = makeSelector(u"reportYear"_s, 110, this);
    reportBox = makeSelector(u"reportKind"_s, 260, this);
    reportBox->addItem(tr("Compare CPMs"), QString(ReportKey::compareCpms));
    reportBox->addItem(tr("Revenue vs Cost vs Net"), QString(ReportKey::revenueCostNet));
    reportBox->addItem(tr("Miles (Loaded / Empty / Total)"), QString(ReportKey::miles));
    reportBox->addItem(tr("Revenue vs Miles"), QString(ReportKey::revenueAndMiles));
    auto *row = new QHBoxLayout;
    row->addWidget(PageParts::makeCaption(tr("Year:"), yearBox));
    row->addWidget(yearBox);
    row->addWidget(PageParts::makeCaption(tr("Report:"), reportBox));
    row->addWidget(reportBox);
    PageParts::addButton(row, tr("Refresh Report"), u"refreshReportButton"_s, this,
                         &ReportsPage::refreshReport);
    row->addStretch();
    return row;
}

QWidget *ReportsPage::buildChartAndDetails()
{
    auto *splitter = new QSplitter(Qt::Vertical, this);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(buildChart());
    splitter->addWidget(buildDetails());
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    splitter->setSizes({680, 260});
    return splitter;
}

QWidget *ReportsPage::buildChart()
{
    auto *group = new QGroupBox(tr("Chart"), this);
    chartView = new QGraphicsView(new QGraphicsScene(this), group);
    chartView->setObjectName(u"reportChart"_s);
    chartView->setAccessibleName(tr("Chart"));
    chartView->setMinimumHeight(leastChartHeight);
    // At its least height the view holds the least canvas whole; a frame would make it scroll.
    chartView->setFrameShape(QFrame::NoFrame);
    chartView->setRenderHint(QPainter::Antialiasing);
    hover = new ChartHover(chartView);
    auto *layout = new QVBoxLayout(group);
    layout->addWidget(chartView);
    return group;
}

QWidget *ReportsPage::buildDetails()
{
    auto *group = new QGroupBox(tr("Details"), this);
    table = new ReportTable(group);
    auto *layout = new QVBoxLayout(group);
    layout->addWidget(table);
    return group;
}

void ReportsPage::autoOpen()
{
    reloadYears(); // and with them the report, once: drawing it a second time would slow the start
    report(tr("Reports refreshed."));
}

void ReportsPage::refresh()
{
    reloadYears();
    refreshReport();
}

void ReportsPage::reloadYears()
{
    const QString year = yearBox->currentText();
    const QStringList years = ReportsRepository::listReportYears();
    {
        const QSignalBlocker quiet(yearBox);
        yearBox->clear();
        yearBox->addItems(years);
        const qsizetype remembered = year.isEmpty() ? -1 : years.indexOf(year);
        yearBox->setCurrentIndex(static_cast<int>(remembered >= 0 ? remembered : years.size() - 1));
    }
    report(tr("Loaded %1 report year(s).").arg(years.size()));
    refreshReport();
}

void ReportsPage::refreshReport()
{
    const QString year = yearBox->currentText();
    if (year.trimmed().isEmpty()) {
        chartView->scene()->clear();
        hover->setHitRegions({});
        table->showNote(tr("No report years found. Open or auto-load trips.db first."));
        report(tr("No report years found."));
        return;
    }
    const QString key = reportBox->currentData().toString();
    currentReport = ReportsRepository::loadReportSeries(year, key);
    drawChart(key);
    table->showReport(currentReport, key, year);
    report(tr("Report refreshed: %1 | %2 week(s)")
               .arg(currentReport.title, QString::number(currentReport.payweeks.size())));
}

void ReportsPage::drawChart(const QString &reportKey)
{
    const QSize canvas = ReportChartGeometry::canvasSize(chartView->viewport()->size());
    const ReportChart chart = ReportChart::draw(currentReport, reportKey, canvas, chartView->font(),
                                                chartView->devicePixelRatioF());
    QGraphicsScene *scene = chartView->scene();
    scene->clear();
    chartView->resetTransform();
    scene->addPixmap(chart.pixmap);
    scene->setSceneRect(QRectF(QPointF(), canvas));
    chartView->setSceneRect(scene->sceneRect());
    hover->setHitRegions(chart.hitRegions);
    if (!chart.hitRegions.isEmpty()) {
        chartView->horizontalScrollBar()->setValue(0);
        chartView->verticalScrollBar()->setValue(0);
    }
}

void ReportsPage::report(const QString &text)
{
    statusLabel->setText(text);
    if (statusCallback)
        statusCallback(text);
}
