#include "reports/charts/ChartHover.h"

#include <QGraphicsView>
#include <QMouseEvent>
#include <QToolTip>

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto repeatInterval = 1200ms;
constexpr int tipMilliseconds = 3000;
constexpr QChar zeroWidthSpace(0x200B);
constexpr double reach = 14.0;
constexpr double keep = 28.0;

QRectF grown(const QRectF &rect, double by)
{
    return rect.adjusted(-by, -by, by, by);
}

double squaredDistance(const QPointF &a, const QPointF &b)
{
    const QPointF between = a - b;
    return QPointF::dotProduct(between, between);
}

} // namespace

ChartHover::ChartHover(QGraphicsView *chartView)
    : QObject(chartView)
    , view(chartView)
    , hoverTimer(this)
{
    hoverTimer.setInterval(repeatInterval);
    connect(&hoverTimer, &QTimer::timeout, this, &ChartHover::showTip);
    view->setMouseTracking(true);
    view->viewport()->setMouseTracking(true);
    view->viewport()->installEventFilter(this);
}

void ChartHover::setHitRegions(const QList<ChartHitRegion> &regions)
{
    clear();
    chartHitRegions = regions;
}

const ChartHitRegion *ChartHover::regionNear(const QList<ChartHitRegion> &regions,
                                             const QPointF &point)
{
    const ChartHitRegion *nearest = nullptr;
    double least = 0.0;
    for (const ChartHitRegion &region : regions) {
        if (!grown(region.rect, reach).contains(point))
            continue;
        const double distance = squaredDistance(region.rect.center(), point);
        if (!nearest || distance < least) {
            nearest = &region;
            least = distance;
        }
    }
    return nearest;
}

bool ChartHover::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseMove)
        followMouse(static_cast<QMouseEvent *>(event));
    else if (event->type() == QEvent::Leave)
        clear();
    return QObject::eventFilter(watched, event);
}

void ChartHover::followMouse(const QMouseEvent *event)
{
    const QPointF point = view->mapToScene(event->position().toPoint());
    if (const ChartHitRegion *region = regionNear(chartHitRegions, point)) {
        holdTip(event);
        hoverKeepRect = grown(region->rect, keep);
        if (region->text != hoverTipText) {
            hoverTipText = region->text;
            showTip();
        }
    } else if (!hoverTipText.isEmpty() && hoverKeepRect.contains(point)) {
        holdTip(event);
    } else if (!hoverTipText.isEmpty()) {
        clear();
    }
}

void ChartHover::holdTip(const QMouseEvent *event)
{
    const QPoint mouse = event->position().toPoint();
    hoverAnchorRect = QRect(mouse.x() - 36, mouse.y() - 28, 72, 56);
    hoverGlobalPos = event->globalPosition().toPoint();
    if (!hoverTimer.isActive())
        hoverTimer.start();
}

void ChartHover::showTip()
{
    // Qt lets a tip go in its time if it is shown again with the same text, so a tip that still
    // stands gets a mark that no one sees.
    const bool stands = QToolTip::isVisible() && QToolTip::text() == hoverTipText;
    const QString text = stands ? hoverTipText + zeroWidthSpace : hoverTipText;
    QToolTip::showText(hoverGlobalPos, text, view->viewport(), hoverAnchorRect, tipMilliseconds);
}

void ChartHover::clear()
{
    hoverTimer.stop();
    hoverTipText.clear();
    hoverKeepRect = {};
    hoverGlobalPos = {};
    hoverAnchorRect = {};
    QToolTip::hideText();
}
