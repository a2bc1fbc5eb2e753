#include "reports/charts/ReportChart.h"

#include "reports/ReportText.h"
#include "reports/charts/ReportChartGeometry.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;
using namespace ReportChartGeometry;

namespace {

constexpr double pointRadius = 4.0;
constexpr int smallestPointSize = 8;
constexpr int smallestFittedSize = 5;
constexpr double axisValueWidth = 74.0;
// A turned label that is longer reaches into the plot.
constexpr double longestAxisLabel = 48.0;
constexpr double swatchWidth = 12.0;
constexpr double gapBesideSwatch = 16.0;
constexpr double leastGap = 8.0;

QColor seriesColor(qsizetype index)
{
    static const std::array<QColor, 5> colors = {QColor(30, 90, 180), QColor(190, 70, 40),
                                                 QColor(30, 150, 80), QColor(130, 80, 180),
                                                 QColor(210, 150, 20)};
    return colors.at(static_cast<std::size_t>(index) % colors.size());
}

/// Paints one report on a canvas that is white already.
class ChartPainter
{
public:
    ChartPainter(QPainter &target, const ReportSeriesData &series, const QString &reportKey,
                 const QSize &canvasSize)
        : painter(target)
        , report(series)
        , canvas(canvasSize)
        , plot(plotRect(canvasSize))
        , bars(reportKey == ReportKey::revenueCostNet || reportKey == ReportKey::miles)
        , range(valueRange(series.series, bars))
    {
    }

    QList<ChartHitRegion> paint();

private:
    void drawTitle();
    void drawGrid();
    void drawAxisValues();
    [[nodiscard]] double gridHeight(int line) const;
    void drawZeroAndFrame();
    void drawSeries();
    void drawLine(const QString &name, const QList<double> &values, qsizetype count);
    void drawBars(const QString &name, const QList<double> &values, qsizetype index,
                  qsizetype count);
    void drawAxisLabels();
    void drawLegend();
    void shrinkFont(const QStringList &texts, double room);
    void addHitRegion(const QRectF &rect, const QString &name, qsizetype payweek, double value);

    QPainter &painter;
    const ReportSeriesData &report;
    QSize canvas;
    QRectF plot;
    bool bars;
    ValueRange range;
    QList<ChartHitRegion> hitRegions;
};

QList<ChartHitRegion> ChartPainter::paint()
{
    drawTitle();
    if (report.payweeks.isEmpty() || report.series.isEmpty()) {
        painter.drawText(QRect(QPoint(), canvas), Qt::AlignCenter,
                         QCoreApplication::translate("ReportChart", "No data"));
        return {};
    }
    drawGrid();
    drawAxisValues();
    drawZeroAndFrame();
    drawSeries();
    drawAxisLabels();
    drawLegend();
    return hitRegions;
}

void ChartPainter::drawTitle()
{
    QFont font = painter.font();
    font.setBold(true);
    font.setPointSize(font.pointSize() + 2);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(QRectF(0, 14, canvas.width(), 30), Qt::AlignCenter, report.title);
    font.setBold(false);
    font.setPointSize(std::max(font.pointSize() - 1, smallestPointSize));
    painter.setFont(font);
}

void ChartPainter::drawGrid()
{
    painter.fillRect(plot, QColor(250, 250, 250));
    painter.setPen(QPen(QColor(220, 220, 220), 1));
    for (int i = 0; i < gridLines; ++i)
        painter.drawLine(QPointF(plot.left(), gridHeight(i)), QPointF(plot.right(), gridHeight(i)));
}

void ChartPainter::drawAxisValues()
{
    QStringList texts;
    for (int i = 0; i < gridLines; ++i)
        texts.append(ReportText::valueText(report, gridValue(i, range)));
    painter.save();
    painter.setPen(Qt::black);
    shrinkFont(texts, axisValueWidth);
    for (int i = 0; i < gridLines; ++i)
        painter.drawText(QRectF(4, gridHeight(i) - 9, axisValueWidth, 18),
                         static_cast<int>(Qt::AlignRight | Qt::AlignVCenter) | Qt::TextDontClip,
                         texts.at(i));
    painter.restore();
}

double ChartPainter::gridHeight(int line) const
{
    return plot.top() + plot.height() * line / (gridLines - 1);
}

void ChartPainter::drawZeroAndFrame()
{
    if (range.bottom < 0.0 && range.top > 0.0) {
        const double zero = heightOf(0.0, range, plot);
        painter.setPen(QPen(QColor(120, 120, 120), 1, Qt::DashLine));
        painter.drawLine(QPointF(plot.left(), zero), QPointF(plot.right(), zero));
    }
    painter.setPen(QPen(Qt::black, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(plot);
}

void ChartPainter::drawSeries()
{
    qsizetype index = 0;
    for (auto series = report.series.cbegin(); series != report.series.cend(); ++series, ++index) {
        const qsizetype count = std::min(series->size(), report.payweeks.size());
        painter.setPen(QPen(seriesColor(index), 2));
        if (bars)
            drawBars(series.key(), *series, index, count);
        else
            drawLine(series.key(), *series, count);
    }
}

void ChartPainter::drawLine(const QString &name, const QList<double> &values, qsizetype count)
{
    QList<QPointF> points;
    for (qsizetype i = 0; i < count; ++i)
        points.append(
            {lineX(i, report.payweeks.size(), plot), heightOf(values.at(i), range, plot)});
    // Each stretch starts anew under the dot that ends the last one: as one long outline, a zigzag
    // of 53 weeks takes Qt two hundred times as long.
    QPainterPath path;
    for (qsizetype i = 1; i < count; ++i) {
        path.moveTo(points.at(i - 1));
        path.lineTo(points.at(i));
    }
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path);
    painter.setBrush(Qt::white);
    for (qsizetype i = 0; i < count; ++i) {
        painter.drawEllipse(points.at(i), pointRadius, pointRadius);
        addHitRegion(pointHitRect(points.at(i)), name, i, values.at(i));
    }
}

void ChartPainter::drawBars(const QString &name, const QList<double> &values, qsizetype index,
                            qsizetype count)
{
    painter.setBrush(seriesColor(index).lighter(135));
    for (qsizetype i = 0; i < count; ++i) {
        const QRectF bar = barRect(i, report.payweeks.size(), index, report.series.size(),
                                   values.at(i), range, plot);
        painter.drawRect(bar);
        addHitRegion(barHitRect(bar), name, i, values.at(i));
    }
}

void ChartPainter::addHitRegion(const QRectF &rect, const QString &name, qsizetype payweek,
                                double value)
{
    hitRegions.append({rect, ReportText::pointTip(report, name, payweek, value)});
}

void ChartPainter::drawAxisLabels()
{
    const qsizetype payweeks = report.payweeks.size();
    const QList<qsizetype> labelled = labelledPayweeks(payweeks, plot.width());
    QStringList labels;
    for (const qsizetype i : labelled)
        labels.append(ReportText::axisLabel(report.payweeks.at(i)));
    painter.save();
    painter.setPen(Qt::black);
    shrinkFont(labels, longestAxisLabel);
    for (qsizetype i = 0; i < labels.size(); ++i) {
        const qsizetype payweek = labelled.at(i);
        const double x =
            bars ? slotCentre(payweek, payweeks, plot) : lineX(payweek, payweeks, plot);
        painter.save();
        painter.translate(x - 10, plot.bottom() + 46);
        painter.rotate(-45);
        painter.drawText(QPointF(), labels.at(i));
        painter.restore();
    }
    painter.restore();
}

void ChartPainter::drawLegend()
{
    const QStringList names = report.series.keys();
    const double distance = legendDistance(canvas.width(), names.size());
    const double nameOffset = swatchWidth + gapBesideSwatch;
    painter.setPen(Qt::black);
    shrinkFont(names, distance - nameOffset - leastGap);
    for (qsizetype index = 0; index < names.size(); ++index) {
        const double x = plot.left() + static_cast<double>(index) * distance;
        painter.fillRect(QRectF(x, canvas.height() - 52, swatchWidth, 8), seriesColor(index));
        painter.drawText(QPointF(x + nameOffset, canvas.height() - 42), names.at(index));
    }
}

// The room for these texts is fixed in pixels, but at a large scale they outgrow it. All of a kind
// keep one size.
void ChartPainter::shrinkFont(const QStringList &texts, double room)
{
    QFont font = painter.font();
    const auto fits = [&font, room](const QString &text) {
        return QFontMetricsF(font).horizontalAdvance(text) <= room;
    };
    while (font.pointSize() > smallestFittedSize
           && !std::all_of(texts.cbegin(), texts.cend(), fits))
        font.setPointSize(font.pointSize() - 1);
    painter.setFont(font);
}

} // namespace

ReportChart ReportChart::draw(const ReportSeriesData &report, const QString &reportKey,
                              const QSize &canvas, const QFont &font, double pixelRatio)
{
    ReportChart chart;
    chart.pixmap = QPixmap(canvas * pixelRatio);
    chart.pixmap.setDevicePixelRatio(pixelRatio);
    chart.pixmap.fill(Qt::white);
    QPainter painter(&chart.pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(font);
    chart.hitRegions = ChartPainter(painter, report, reportKey, canvas).paint();
    return chart;
}
