#pragma once

#include "reports/charts/ReportChart.h"

#include <QObject>
#include <QPoint>
#include <QRect>
#include <QTimer>

class QGraphicsView;
class QMouseEvent;

/// Tells what stands under the mouse on a chart, and keeps telling it while the mouse rests there:
/// a tooltip of Qt alone goes after a while.
class ChartHover : public QObject
{
    Q_OBJECT

public:
    explicit ChartHover(QGraphicsView *chartView);

    /// Takes the regions of a new chart and forgets what was told of the old one.
    void setHitRegions(const QList<ChartHitRegion> &regions);

    /// The region whose own middle is nearest to the point, among those within reach of it; the
    /// earlier of equally near ones. Null if there is none.
    static const ChartHitRegion *regionNear(const QList<ChartHitRegion> &regions,
                                            const QPointF &point);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void followMouse(const QMouseEvent *event);
    void holdTip(const QMouseEvent *event);
    void showTip();
    void clear();

    QGraphicsView *view;
    QList<ChartHitRegion> chartHitRegions;
    QString hoverTipText;
    QRectF hoverKeepRect; // on the canvas
    QPoint hoverGlobalPos;
    QRect hoverAnchorRect; // on the viewport
    QTimer hoverTimer;
};
