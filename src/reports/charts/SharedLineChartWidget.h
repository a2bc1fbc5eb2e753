#pragma once

#include "reports/charts/LineChartGeometry.h"

#include <QCoreApplication>
#include <QList>
#include <QWidget>

/// Draws one series as a line with a dot for each point. Over a dot, a tooltip tells its label and
/// value; the value reads as currency whatever the series, for the chart knows no units.
/// All colours are the palette's. The scale is the one saved when the chart was built.
class SharedLineChartWidget : public QWidget
{
    Q_DECLARE_TR_FUNCTIONS(SharedLineChartWidget)

public:
    explicit SharedLineChartWidget(const QList<ChartPoint> &series, QWidget *parent = nullptr);
    ~SharedLineChartWidget() override;

protected:
    void mouseMoveEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void drawLabels(QPainter &painter, const QRectF &plot) const;

    QList<ChartPoint> points;
    QList<ChartHoverPoint> hoverPoints;
    int uiScalePercent;
};
