#pragma once

#include "reports/ReportSeriesData.h"

#include <QWidget>

#include <functional>

class ChartHover;
class QBoxLayout;
class QComboBox;
class QGraphicsView;
class QLabel;
class ReportTable;

/// One report for one year, as a chart and in figures. The page opens no file: it reads on whatever
/// connection to the trips is open. The chart keeps its size until the report is refreshed.
class ReportsPage : public QWidget
{
    Q_OBJECT

public:
    /// Builds the page and shows the latest year, if a connection is open already.
    explicit ReportsPage(QWidget *parent = nullptr);

    /// Takes a text for the status line. It may stay empty.
    std::function<void(const QString &text)> statusCallback;

    /// Reads all afresh once the other pages have opened their files.
    void autoOpen();

public Q_SLOTS:
    /// Reads the years afresh, and then the report.
    void refresh();

private:
    void buildLayout();
    QBoxLayout *buildSelectors();
    QWidget *buildChartAndDetails();
    QWidget *buildChart();
    QWidget *buildDetails();

    void reloadYears();
    void refreshReport();
    void drawChart(const QString &reportKey);
    void report(const QString &text);

    ReportSeriesData currentReport;
    QComboBox *yearBox = nullptr;
    QComboBox *reportBox = nullptr;
    QGraphicsView *chartView = nullptr;
    ChartHover *hover = nullptr;
    ReportTable *table = nullptr;
    QLabel *statusLabel = nullptr;
};
