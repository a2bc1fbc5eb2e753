#pragma once

#include "reports/charts/ChartPoint.h"

#include <QList>
#include <QPointF>
#include <QRect>
#include <QRectF>

/// A point of a chart where it was drawn last, in widget coordinates.
struct ChartHoverPoint
{
    double x = 0.0;
    double y = 0.0;
    QString label = {};
    double value = 0.0;
};

/// Where everything of a line chart stands. Lengths are pixels; `percent` is the scale, 75 to 175.
namespace LineChartGeometry {

/// The values at the bottom and at the top of the plot; `min` is less than `max`.
struct ValueRange
{
    double min = 0.0;
    double max = 0.0;
};

/// `base` pixels at `percent`, rounded down. A small scale never goes below `base`: it makes texts
/// smaller, but lines and gaps would only run together.
int scaledLength(int base, int percent);

/// The height below which labels and line no longer have room.
int leastHeight(int percent);

/// The frame that the line is drawn in; a line or a point where the margins leave no room.
QRectF plotRect(const QRect &widget, int percent);

/// The smallest range that holds zero and all values; -1 to 1 if all of them are zero.
ValueRange valueRange(const QList<ChartPoint> &points);

/// How far below the top of the widget `value` stands.
double verticalPosition(double value, const ValueRange &range, const QRectF &plot);

/// The points spread evenly from edge to edge, whatever their dates; a single one stands in the
/// middle.
QList<ChartHoverPoint> plottedPoints(const QList<ChartPoint> &points, const QRectF &plot);

/// Every how many points one label has room, at least 1.
qsizetype labelStep(qsizetype pointCount, double plotWidth, int percent);

/// The box of a label before it is turned about its corner.
QRectF labelBox(int percent);

/// Where the corner of the label of a point at `pointX` stands. It stays within the widget, and
/// within its left edge before its right one.
QPointF labelCorner(double pointX, const QRect &widget, const QRectF &plot, int percent);

/// The point nearest to `mouse` within reach, a point at the very edge of reach included, and of
/// equally near ones the later. Null if there is none.
const ChartHoverPoint *pointNear(const QPointF &mouse, const QList<ChartHoverPoint> &points,
                                 int percent);

} // namespace LineChartGeometry
