#pragma once

#include "reports/charts/SharedLineChartWidget.h"
#include "support/Person.h"

#include <QDate>

/// A point for each value: the Saturdays of 2026.
inline QList<ChartPoint> weekly(const QList<double> &values)
{
    QList<ChartPoint> points;
    for (const double value : values)
        points.append(
            {QDate(2026, 1, 3).addDays(7 * points.size()).toString(QStringLiteral("MM/dd/yyyy")),
             value});
    return points;
}

/// From 0 over 100 and 200 up to 300, and anew from 0.
inline QList<ChartPoint> wavesOf(int weeks)
{
    QList<double> values;
    for (int week = 0; week < weeks; ++week)
        values.append(100.0 * (week % 4));
    return weekly(values);
}

/// A chart in the corner of a window that has room beside it. At 100 percent its plot reaches from
/// 86 to 426 and from 22 to 172.
struct LineChartWindow
{
    explicit LineChartWindow(const QList<ChartPoint> &points, const QSize &size = {500, 260})
        : widget(new SharedLineChartWidget(points, &window))
    {
        widget->resize(size);
        Person::shows(window);
    }

    QWidget window;
    SharedLineChartWidget *widget;
};
