#include "reports/charts/SharedLineChartWidget.h"

#include "ui/UiScale.h"

#include <QLocale>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;
using LineChartGeometry::ValueRange;

namespace {

constexpr double dotRadius = 3.5;
constexpr QRectF axisBox(8.0, 0.0, 82.0, 20.0);

/// The middle of the pixel at a coordinate: a straight line of one pixel drawn between two of them
/// comes out as two grey ones.
double pixelMiddle(double coordinate)
{
    return std::floor(coordinate) + 0.5;
}

QFont resized(QFont font, double factor)
{
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * factor);
    else
        font.setPixelSize(std::max(1, static_cast<int>(font.pixelSize() * factor)));
    return font;
}

void drawFrame(QPainter &painter, const QRectF &plot)
{
    painter.drawRect(QRectF(QPointF(pixelMiddle(plot.left()), pixelMiddle(plot.top())),
                            QPointF(pixelMiddle(plot.right()), pixelMiddle(plot.bottom()))));
}

void drawLineAcross(QPainter &painter, const QRectF &plot, double y)
{
    painter.drawLine(QPointF(plot.left(), pixelMiddle(y)), QPointF(plot.right(), pixelMiddle(y)));
}

void drawGridLines(QPainter &painter, const QRectF &plot, const QColor &color)
{
    painter.setPen(QPen(color, 1.0, Qt::DashLine));
    for (const double part : {0.25, 0.5, 0.75})
        drawLineAcross(painter, plot, plot.top() + part * plot.height());
}

void drawZeroLine(QPainter &painter, const QRectF &plot, const ValueRange &range,
                  const QColor &color)
{
    if (range.min < 0 && range.max > 0) {
        painter.setPen(QPen(color, 1.0, Qt::DashLine));
        drawLineAcross(painter, plot, LineChartGeometry::verticalPosition(0.0, range, plot));
    }
}

/// The boxes of the axis have one width at every scale. Figures too long for it get smaller
/// letters: cut off, one would read as another figure.
QFont axisFont(const QPainter &painter, const QStringList &texts)
{
    double widest = axisBox.width();
    for (const QString &text : texts)
        widest = std::max<double>(widest, painter.fontMetrics().horizontalAdvance(text));
    return resized(painter.font(), axisBox.width() / widest);
}

void drawAxisValues(QPainter &painter, const QRectF &plot, const ValueRange &range,
                    const QColor &color)
{
    constexpr int flags = Qt::AlignRight | Qt::AlignVCenter | Qt::TextDontClip;
    const QString top = QString::number(range.max, 'f', 2);
    const QString bottom = QString::number(range.min, 'f', 2);
    painter.save();
    painter.setPen(QPen(color, 1.0));
    painter.setFont(axisFont(painter, {top, bottom}));
    painter.drawText(axisBox.translated(0.0, plot.top() - 8.0), flags, top);
    painter.drawText(axisBox.translated(0.0, plot.bottom() - 12.0), flags, bottom);
    painter.restore();
}

void drawSeries(QPainter &painter, const QList<ChartHoverPoint> &points, const QColor &color)
{
    painter.setPen(QPen(color, 2.0));
    for (qsizetype i = 1; i < points.size(); ++i)
        painter.drawLine(QPointF(points[i - 1].x, points[i - 1].y),
                         QPointF(points[i].x, points[i].y));
    painter.setBrush(color);
    for (const ChartHoverPoint &point : points)
        painter.drawEllipse(QPointF(point.x, point.y), dotRadius, dotRadius);
}

/// A label in the box that rises to the right from its corner.
void drawLabel(QPainter &painter, const QPointF &corner, const QRectF &box, const QString &label)
{
    const int width = static_cast<int>(box.width());
    painter.save();
    painter.translate(corner);
    painter.rotate(-45.0);
    // At the top of the box its end would touch the plot.
    painter.drawText(box, Qt::AlignLeft | Qt::AlignBottom | Qt::TextDontClip,
                     painter.fontMetrics().elidedText(label, Qt::ElideRight, width));
    painter.restore();
}

} // namespace

SharedLineChartWidget::SharedLineChartWidget(const QList<ChartPoint> &series, QWidget *parent)
    : QWidget(parent)
    , points(series)
    , uiScalePercent(UiScale::clampedPercent(UiScale::savedUiScalePercent()))
{
    setObjectName(u"lineChart"_s);
    setAccessibleName(tr("Line chart"));
    setMinimumHeight(LineChartGeometry::leastHeight(uiScalePercent));
    setMouseTracking(true);
}

SharedLineChartWidget::~SharedLineChartWidget() = default;

void SharedLineChartWidget::mouseMoveEvent(QMouseEvent *event)
{
    const ChartHoverPoint *point =
        LineChartGeometry::pointNear(event->position(), hoverPoints, uiScalePercent);
    if (point) {
        const QString text = point->label + u'\n' + QLocale().toCurrencyString(point->value);
        QToolTip::showText(event->globalPosition().toPoint(), text, this, {});
    } else {
        QToolTip::hideText();
    }
    QWidget::mouseMoveEvent(event);
}

void SharedLineChartWidget::leaveEvent(QEvent *event)
{
    QToolTip::hideText();
    QWidget::leaveEvent(event);
}

void SharedLineChartWidget::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), palette().base());
    const QRectF plot = LineChartGeometry::plotRect(rect(), uiScalePercent);
    painter.setPen(QPen(palette().color(QPalette::Mid), 1.0));
    drawFrame(painter, plot);
    if (points.isEmpty()) {
        painter.drawText(rect(), Qt::AlignCenter, tr("No chart data"));
        return;
    }
    const ValueRange range = LineChartGeometry::valueRange(points);
    hoverPoints = LineChartGeometry::plottedPoints(points, plot);
    drawGridLines(painter, plot, palette().color(QPalette::Mid));
    drawZeroLine(painter, plot, range, palette().color(QPalette::Text));
    drawAxisValues(painter, plot, range, palette().color(QPalette::Text));
    drawSeries(painter, hoverPoints, palette().color(QPalette::Highlight));
    drawLabels(painter, plot);
}

void SharedLineChartWidget::drawLabels(QPainter &painter, const QRectF &plot) const
{
    painter.setPen(QPen(palette().color(QPalette::Text), 1.0));
    painter.setFont(resized(painter.font(), 0.95));
    const QRectF box = LineChartGeometry::labelBox(uiScalePercent);
    const qsizetype step =
        LineChartGeometry::labelStep(hoverPoints.size(), plot.width(), uiScalePercent);
    for (qsizetype i = 0; i < hoverPoints.size(); i += step) {
        const ChartHoverPoint &point = hoverPoints[i];
        drawLabel(painter, LineChartGeometry::labelCorner(point.x, rect(), plot, uiScalePercent),
                  box, point.label);
    }
}
