#pragma once

#include "reports/ReportRows.h"
#include "reports/charts/ReportChart.h"

#include <QImage>

/// The least canvas: its plot reaches from 86 to 724 and from 54 to 470.
inline constexpr QSize least(760, 620);

inline constexpr QColor white(255, 255, 255);
inline constexpr QColor blue(30, 90, 180);

inline QFont textFont(int pointSize = 10)
{
    QFont font;
    font.setPointSize(pointSize);
    return font;
}

inline ReportChart lines(const ReportSeriesData &report, int pointSize = 10)
{
    return ReportChart::draw(report, QStringLiteral("cpms"), least, textFont(pointSize), 1.0);
}

inline ReportChart bars(const ReportSeriesData &report)
{
    return ReportChart::draw(report, QStringLiteral("rev_cost_net"), least, textFont(), 1.0);
}

inline QImage picture(const ReportChart &chart)
{
    return chart.pixmap.toImage().convertToFormat(QImage::Format_RGB32);
}

inline bool isDark(const QColor &color)
{
    return color.lightness() < 140;
}

/// The smallest rectangle that holds all pixels of `area` that are `wanted`.
inline QRect extent(const QImage &image, const QRect &area, bool (*wanted)(const QColor &))
{
    QRect found;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (wanted(image.pixelColor(x, y)))
                found |= QRect(x, y, 1, 1);
        }
    }
    return found;
}

inline QList<double> zigzag(int weeks)
{
    QList<double> values;
    for (int week = 0; week < weeks; ++week)
        values.append(week % 2 == 0 ? 900.0 : -300.0);
    return values;
}
