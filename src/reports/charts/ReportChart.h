#pragma once

#include "reports/ReportSeriesData.h"

#include <QFont>
#include <QPixmap>
#include <QRectF>

/// A part of a chart that answers the mouse, in canvas coordinates, and what it says.
struct ChartHitRegion
{
    QRectF rect;
    QString text;
};

/// A report drawn once: bars for dollars and miles that stand side by side, lines for the others.
struct ReportChart
{
    QPixmap pixmap;
    /// A point's region may lie over another's; the earlier series comes first.
    QList<ChartHitRegion> hitRegions;

    /// Draws the report, or "No data". `canvas` is in pixels of the page, of which the screen has
    /// `pixelRatio` each way. The report key is that of the Reports page.
    static ReportChart draw(const ReportSeriesData &report, const QString &reportKey,
                            const QSize &canvas, const QFont &font, double pixelRatio);
};
