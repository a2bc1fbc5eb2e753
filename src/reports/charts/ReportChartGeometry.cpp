#include "reports/charts/ReportChartGeometry.h"

#include <algorithm>
#include <cmath>

namespace ReportChartGeometry {

namespace {

// A span this many times smaller than its values is rounding, not a difference to draw.
constexpr double meaningfulSpan = 1000000000000.0;

ValueRange extremes(const QMap<QString, QList<double>> &series)
{
    QList<double> values;
    for (const QList<double> &list : series)
        values += list;
    if (values.isEmpty())
        return {.bottom = 0.0, .top = 1.0};
    const auto [smallest, largest] = std::minmax_element(values.cbegin(), values.cend());
    return {.bottom = *smallest, .top = *largest};
}

ValueRange withZero(const ValueRange &range)
{
    return {.bottom = std::min(range.bottom, 0.0), .top = std::max(range.top, 0.0)};
}

ValueRange withMargin(const ValueRange &range)
{
    const double span = range.top - range.bottom;
    if (span <= 0.0)
        return range;
    const double margin = std::max(span * 0.12, std::abs(range.top) * 0.05);
    return {.bottom = range.bottom - margin, .top = range.top + margin};
}

double slotWidth(qsizetype payweeks, const QRectF &plot)
{
    return plot.width() / static_cast<double>(std::max<qsizetype>(payweeks, 1));
}

QRectF widenedTo(const QRectF &rect, double least)
{
    const double x = std::max(0.0, least - rect.width()) / 2.0;
    const double y = std::max(0.0, least - rect.height()) / 2.0;
    return rect.adjusted(-x, -y, x, y);
}

} // namespace

QSize canvasSize(const QSize &viewport)
{
    return QSize(viewport.width() - 8, viewport.height() - 8).expandedTo({760, 620});
}

QRectF plotRect(const QSize &canvas)
{
    return {86.0, 54.0, canvas.width() - 122.0, canvas.height() - 204.0};
}

ValueRange valueRange(const QMap<QString, QList<double>> &series, bool bars)
{
    const ValueRange values = extremes(series);
    ValueRange range = bars ? withZero(values) : withMargin(values);
    const double smaller = std::min(std::abs(range.bottom), std::abs(range.top));
    if ((range.top - range.bottom) * meaningfulSpan <= smaller) {
        const double margin = std::max(0.1 * std::abs(range.top), 1.0);
        range = {.bottom = range.top - margin, .top = range.top + margin};
        if (bars)
            range.bottom = std::min(range.bottom, 0.0);
    }
    return range;
}

double heightOf(double value, const ValueRange &range, const QRectF &plot)
{
    return plot.top() + plot.height()
           - (value - range.bottom) / (range.top - range.bottom) * plot.height();
}

double gridValue(int line, const ValueRange &range)
{
    const double span = range.top - range.bottom;
    const double value = range.top - line * span / (gridLines - 1);
    // What rounding leaves of zero may be below it, and would read as minus zero.
    return std::abs(value) * meaningfulSpan <= span ? 0.0 : value;
}

double lineX(qsizetype payweek, qsizetype payweeks, const QRectF &plot)
{
    if (payweeks < 2)
        return plot.left() + plot.width() * 0.5;
    return plot.left()
           + static_cast<double>(payweek) * plot.width() / static_cast<double>(payweeks - 1);
}

double slotCentre(qsizetype payweek, qsizetype payweeks, const QRectF &plot)
{
    return plot.left() + (static_cast<double>(payweek) + 0.5) * slotWidth(payweeks, plot);
}

QRectF barRect(qsizetype payweek, qsizetype payweeks, qsizetype seriesIndex, qsizetype seriesCount,
               double value, const ValueRange &range, const QRectF &plot)
{
    const double groupWidth = std::clamp(slotWidth(payweeks, plot) * 0.76, 14.0, 52.0);
    const double barWidth = std::max(groupWidth / static_cast<double>(seriesCount), 3.0);
    const double x = slotCentre(payweek, payweeks, plot) - groupWidth * 0.5
                     + static_cast<double>(seriesIndex) * barWidth;
    const double valueHeight = heightOf(value, range, plot);
    const double zeroHeight = heightOf(0.0, range, plot);
    return {x, std::min(valueHeight, zeroHeight), barWidth - 1.0,
            std::max(std::abs(zeroHeight - valueHeight), 1.0)};
}

QRectF pointHitRect(const QPointF &point)
{
    return {point.x() - 14.0, point.y() - 14.0, 28.0, 28.0};
}

QRectF barHitRect(const QRectF &bar)
{
    return widenedTo(bar.adjusted(-8.0, -8.0, 8.0, 8.0), 24.0);
}

QList<qsizetype> labelledPayweeks(qsizetype payweeks, double plotWidth)
{
    const auto fitting = std::max<qsizetype>(static_cast<qsizetype>(plotWidth / 70.0), 1);
    const auto step = std::max<qsizetype>((payweeks + fitting - 1) / fitting, 1);
    QList<qsizetype> labelled;
    for (qsizetype payweek = 0; payweek < payweeks; ++payweek) {
        if (payweek % step == 0 || payweek == payweeks - 1)
            labelled.append(payweek);
    }
    return labelled;
}

double legendDistance(int canvasWidth, qsizetype seriesCount)
{
    return std::max(static_cast<double>(canvasWidth)
                        / static_cast<double>(std::max<qsizetype>(2, seriesCount + 1)),
                    145.0);
}

} // namespace ReportChartGeometry
