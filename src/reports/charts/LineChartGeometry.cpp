#include "reports/charts/LineChartGeometry.h"

#include "data/MoneyText.h"

#include <algorithm>

namespace LineChartGeometry {

namespace {

constexpr double gapBesideLabel = 8.0;

// What a turned label takes of its own width to its right.
constexpr double turnedWidth = 0.72;

double horizontalPosition(qsizetype index, qsizetype count, const QRectF &plot)
{
    if (count < 2)
        return plot.center().x();
    return plot.left() + static_cast<double>(index) * plot.width() / static_cast<double>(count - 1);
}

double squaredDistance(const QPointF &mouse, const ChartHoverPoint &point)
{
    const double dx = mouse.x() - point.x;
    const double dy = mouse.y() - point.y;
    return dx * dx + dy * dy;
}

} // namespace

int scaledLength(int base, int percent)
{
    return std::max(base, percent * base / 100);
}

int leastHeight(int percent)
{
    return scaledLength(260, percent);
}

QRectF plotRect(const QRect &widget, int percent)
{
    const QRect inner = widget.adjusted(scaledLength(86, percent), scaledLength(22, percent),
                                        -scaledLength(74, percent), -scaledLength(88, percent));
    return QRectF(inner.topLeft(), inner.size().expandedTo(QSize(0, 0)));
}

ValueRange valueRange(const QList<ChartPoint> &points)
{
    ValueRange range;
    for (const ChartPoint &point : points) {
        const double value = amountOrZero(point.value);
        range.min = std::min(range.min, value);
        range.max = std::max(range.max, value);
    }
    return range.min < range.max ? range : ValueRange{-1.0, 1.0};
}

double verticalPosition(double value, const ValueRange &range, const QRectF &plot)
{
    return plot.bottom() - (value - range.min) / (range.max - range.min) * plot.height();
}

QList<ChartHoverPoint> plottedPoints(const QList<ChartPoint> &points, const QRectF &plot)
{
    const ValueRange range = valueRange(points);
    QList<ChartHoverPoint> plotted;
    plotted.reserve(points.size());
    for (const ChartPoint &point : points) {
        const double value = amountOrZero(point.value);
        plotted.append({horizontalPosition(plotted.size(), points.size(), plot),
                        verticalPosition(value, range, plot), point.label, value});
    }
    return plotted;
}

qsizetype labelStep(qsizetype pointCount, double plotWidth, int percent)
{
    const int width = std::max(1, static_cast<int>(plotWidth));
    const int fitting = std::max(1, width / scaledLength(92, percent));
    return std::max<qsizetype>(1, (pointCount + fitting - 1) / fitting);
}

QRectF labelBox(int percent)
{
    return {0.0, 0.0, static_cast<double>(scaledLength(96, percent)),
            static_cast<double>(scaledLength(20, percent))};
}

QPointF labelCorner(double pointX, const QRect &widget, const QRectF &plot, int percent)
{
    const double leftmost = widget.left() + gapBesideLabel;
    const double rightmost =
        widget.right() - labelBox(percent).width() * turnedWidth - gapBesideLabel;
    const double x = std::max(leftmost, std::min(rightmost, pointX - gapBesideLabel));
    return {x, plot.bottom() + scaledLength(46, percent)};
}

const ChartHoverPoint *pointNear(const QPointF &mouse, const QList<ChartHoverPoint> &points,
                                 int percent)
{
    const int reach = scaledLength(10, percent);
    double best = reach * reach;
    const ChartHoverPoint *nearest = nullptr;
    for (const ChartHoverPoint &point : points) {
        const double distance = squaredDistance(mouse, point);
        if (distance <= best) {
            best = distance;
            nearest = &point;
        }
    }
    return nearest;
}

} // namespace LineChartGeometry
