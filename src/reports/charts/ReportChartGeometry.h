#pragma once

#include <QList>
#include <QMap>
#include <QRectF>
#include <QSize>
#include <QString>

/// Where everything of a report's chart stands, in pixels of its canvas.
namespace ReportChartGeometry {

/// The values at the bottom and at the top of the plot; the bottom is less than the top.
struct ValueRange
{
    double bottom = 0.0;
    double top = 0.0;
};

/// The viewport with a little room around it, and at least 760 by 620, below which labels collide.
QSize canvasSize(const QSize &viewport);

QRectF plotRect(const QSize &canvas);

/// The range of all values. Bars stand on zero; a line has room above and below it. Values that
/// are all the same still get a range.
ValueRange valueRange(const QMap<QString, QList<double>> &series, bool bars);

double heightOf(double value, const ValueRange &range, const QRectF &plot);

/// The lines of the grid, from line 0 at the top to the last at the bottom.
inline constexpr int gridLines = 6;

/// The value that the axis reads beside a line of the grid.
double gridValue(int line, const ValueRange &range);

/// Where the point of a payweek stands; a single one in the middle.
double lineX(qsizetype payweek, qsizetype payweeks, const QRectF &plot);

/// The middle of a payweek's bars.
double slotCentre(qsizetype payweek, qsizetype payweeks, const QRectF &plot);

/// The bar of a series at a payweek, from its value to zero.
QRectF barRect(qsizetype payweek, qsizetype payweeks, qsizetype seriesIndex, qsizetype seriesCount,
               double value, const ValueRange &range, const QRectF &plot);

/// How near the mouse must come to a point or a bar.
QRectF pointHitRect(const QPointF &point);
QRectF barHitRect(const QRectF &bar);

/// The payweeks that have room for a label, the last always among them.
QList<qsizetype> labelledPayweeks(qsizetype payweeks, double plotWidth);

/// Between one entry of the legend and the next.
double legendDistance(int canvasWidth, qsizetype seriesCount);

} // namespace ReportChartGeometry
