#include "reports/ReportChart.h"

#include "reports/ReportChartGeometry.h"
#include "reports/ReportText.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPainterPath>

#include <array>

using namespace Qt::StringLiterals;
using namespace ReportChartGeometry;

namespace {

constexpr int gridLines = 6;
constexpr double pointRadius = 4.0;
constexpr int smallestPointSize = 8;

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
        , bars(reportKey == "rev_cost_net"_L1 || reportKey == "miles"_L1)
        , range(valueRange(series.series, bars))
    {
    }

    QList<ChartHitRegion> paint();

private:
    void drawTitle();
    void drawGrid();
    void drawZeroAndFrame();
    void drawSeries();
    void drawLine(const QString &name, const QList<double> &values, qsizetype count);
    void drawBars(const QString &name, const QList<double> &values, qsizetype index,
                  qsizetype count);
    void drawAxisLabels();
    void drawLegend();
    void drawFitted(const QRectF &box, Qt::Alignment alignment, const QString &text);
    void addHitRegion(const QRectF &rect, const QString &name, qsizetype payweek);

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
    for (int i = 0; i < gridLines; ++i) {
        const double part = static_cast<double>(i) / (gridLines - 1);
        const double y = plot.top() + plot.height() * part;
        painter.setPen(QPen(QColor(220, 220, 220), 1));
        painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
        painter.setPen(Qt::black);
        drawFitted(QRectF(4, y - 9, 74, 18), Qt::AlignRight | Qt::AlignVCenter,
                   ReportText::valueText(report, range.top - part * (range.top - range.bottom)));
    }
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
    QPainterPath path;
    path.addPolygon(QPolygonF(points));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path);
    painter.setBrush(Qt::white);
    for (qsizetype i = 0; i < count; ++i) {
        painter.drawEllipse(points.at(i), pointRadius, pointRadius);
        addHitRegion(pointHitRect(points.at(i)), name, i);
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
        addHitRegion(barHitRect(bar), name, i);
    }
}

void ChartPainter::addHitRegion(const QRectF &rect, const QString &name, qsizetype payweek)
{
    hitRegions.append({rect, ReportText::pointTip(report, name, payweek)});
}

void ChartPainter::drawAxisLabels()
{
    painter.setPen(Qt::black);
    const qsizetype payweeks = report.payweeks.size();
    for (const qsizetype i : labelledPayweeks(payweeks, plot.width())) {
        const double x = bars ? slotCentre(i, payweeks, plot) : lineX(i, payweeks, plot);
        painter.save();
        painter.translate(x - 10, plot.bottom() + 46);
        painter.rotate(-45);
        painter.drawText(QPointF(), ReportText::axisLabel(report.payweeks.at(i)));
        painter.restore();
    }
}

void ChartPainter::drawLegend()
{
    const double distance = legendDistance(canvas.width(), report.series.size());
    qsizetype index = 0;
    for (const QString &name : report.series.keys()) {
        const double x = plot.left() + static_cast<double>(index) * distance;
        painter.fillRect(QRectF(x, canvas.height() - 52, 12, 8), seriesColor(index));
        painter.setPen(Qt::black);
        painter.drawText(QPointF(x + 12 + 16, canvas.height() - 42), name);
        ++index;
    }
}

// The room beside the axis is fixed, but large amounts at a large scale need more of it.
void ChartPainter::drawFitted(const QRectF &box, Qt::Alignment alignment, const QString &text)
{
    const QFont usual = painter.font();
    QFont fitted = usual;
    while (fitted.pointSize() > smallestPointSize
           && QFontMetricsF(fitted).horizontalAdvance(text) > box.width())
        fitted.setPointSize(fitted.pointSize() - 1);
    painter.setFont(fitted);
    painter.drawText(box, static_cast<int>(alignment) | Qt::TextDontClip, text);
    painter.setFont(usual);
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
