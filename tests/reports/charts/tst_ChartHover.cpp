#include "reports/charts/ChartHover.h"
#include "reports/charts/TipReaders.h"
#include "support/Person.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QGraphicsView>
#include <QMouseEvent>
#include <QTest>
#include <QToolTip>
#include <QWindow>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const ChartHitRegion left = {{100, 100, 28, 28}, u"left"_s};
const ChartHitRegion right = {{160, 100, 28, 28}, u"right"_s};

/// A view whose pixels are those of its scene, in the corner of a window that has room beside it.
struct HoveredView
{
    HoveredView()
        : view(new QGraphicsView(&scene, &window))
        , hover(new ChartHover(view))
        , timer(hover->findChild<QTimer *>())
    {
        view->setFrameShape(QFrame::NoFrame);
        view->setSceneRect(0, 0, 400, 300);
        view->resize(400, 300);
        Person::shows(window);
        // The mouse may rest where another test left it, and there a move would be none.
        QTest::mouseMove(window.windowHandle(), {890, 590});
        hover->setHitRegions({left, right});
    }

    /// Moves the mouse, no button held, and gives the tooltip that is up then.
    QString pointsAt(const QPoint &position) { return tipAt(window, position); }

    /// What happens each time the timer runs out.
    void timeRunsOut() const
    {
        QTimerEvent event(timer->timerId());
        QApplication::sendEvent(timer, &event);
    }

    QWidget window;
    QGraphicsScene scene;
    QGraphicsView *view;
    ChartHover *hover;
    QTimer *timer;
};

/// In how many milliseconds the tooltip is to go: at the end of its time, and before that once Qt
/// saw the mouse leave its place.
QList<int> timesToGo()
{
    QList<int> times;
    for (const auto &timer : QAbstractEventDispatcher::instance()->registeredTimers(tipWindow()))
        times.append(timer.interval);
    std::sort(times.begin(), times.end());
    return times;
}

} // namespace

class tst_ChartHover : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        QToolTip::hideText();
        QTRY_VERIFY(!QToolTip::isVisible());
    }

    void nearestMiddleWithinReachIsMeant_data()
    {
        QTest::addColumn<QPointF>("point");
        QTest::addColumn<QString>("meant");
        QTest::newRow("in the middle") << QPointF(114, 114) << u"left"_s;
        QTest::newRow("at the end of its reach") << QPointF(86, 86) << u"left"_s;
        QTest::newRow("beyond its reach to the left") << QPointF(85.9, 114) << QString();
        QTest::newRow("beyond its reach above") << QPointF(114, 85.9) << QString();
        QTest::newRow("at the lower end of its reach") << QPointF(114, 142) << u"left"_s;
        QTest::newRow("beyond its reach below") << QPointF(114, 142.1) << QString();
        QTest::newRow("beyond the reach of both") << QPointF(144, 114) << QString();
        QTest::newRow("at the reach of the second") << QPointF(146, 114) << u"right"_s;
        QTest::newRow("between both, nearer to the first") << QPointF(142, 114) << u"left"_s;
        QTest::newRow("inside of the second") << QPointF(170, 120) << u"right"_s;
        QTest::newRow("far away") << QPointF(0, 0) << QString();
    }

    void nearestMiddleWithinReachIsMeant()
    {
        QFETCH(const QPointF, point);
        const QList<ChartHitRegion> regions = {left, right};
        const ChartHitRegion *region = ChartHover::regionNear(regions, point);
        QTEST(region ? region->text : QString(), "meant");
    }

    void tieStaysWithTheEarlierRegion()
    {
        const QList<ChartHitRegion> regions = {{{100, 100, 28, 28}, u"earlier"_s},
                                               {{120, 100, 28, 28}, u"later"_s},
                                               {{100, 100, 28, 28}, u"last"_s}};
        QCOMPARE(ChartHover::regionNear(regions, {124, 114})->text, u"earlier"_s);
        QCOMPARE(ChartHover::regionNear(regions, {124.1, 114})->text, u"later"_s);
        QCOMPARE(ChartHover::regionNear(regions, {114, 114})->text, u"earlier"_s);
    }

    void nearerMiddleCountsEvenInsideOfAnotherRegion()
    {
        const QList<ChartHitRegion> regions = {{{0, 0, 28, 400}, u"tall"_s},
                                               {{36, 10, 28, 28}, u"small"_s}};
        QCOMPARE(ChartHover::regionNear(regions, {24, 24})->text, u"small"_s);
        QCOMPARE(ChartHover::regionNear(regions, {14, 190})->text, u"tall"_s);
    }

    void noRegionMeansNone() { QVERIFY(!ChartHover::regionNear({}, {0, 0})); }

    void tipComesUpOverARegionAndTheTimerStarts()
    {
        const Workspace workspace;
        HoveredView hovered;
        QVERIFY(hovered.view->hasMouseTracking());
        QVERIFY(hovered.view->viewport()->hasMouseTracking());
        QCOMPARE(hovered.timer->interval(), 1200);
        QVERIFY(!hovered.timer->isSingleShot());
        QCOMPARE(hovered.pointsAt({300, 250}), QString());
        QVERIFY(!hovered.timer->isActive());
        QCOMPARE(hovered.pointsAt({114, 114}), u"left"_s);
        QVERIFY(hovered.timer->isActive());
    }

    void tipFollowsTheMouseFromRegionToRegion()
    {
        const Workspace workspace;
        HoveredView hovered;
        QCOMPARE(hovered.pointsAt({114, 114}), u"left"_s);
        QCOMPARE(hovered.pointsAt({174, 114}), u"right"_s);
        QCOMPARE(hovered.pointsAt({114, 114}), u"left"_s);
        QVERIFY(hovered.timer->isActive());
    }

    void runningTimerIsNotStartedAnew()
    {
        const Workspace workspace;
        HoveredView hovered;
        QCOMPARE(hovered.pointsAt({114, 114}), u"left"_s);
        const int id = hovered.timer->timerId();
        QCOMPARE(hovered.pointsAt({120, 114}), u"left"_s);
        QCOMPARE(hovered.timer->timerId(), id);
    }

    void movingWithinTheKeptRectKeepsTheTip()
    {
        const Workspace workspace;
        HoveredView hovered;
        QCOMPARE(hovered.pointsAt({114, 100}), u"left"_s);
        hovered.timer->stop();
        // 84 is beyond the reach, which ends at 86, and within what is kept, which ends at 72.
        QCOMPARE(hovered.pointsAt({114, 84}), u"left"_s);
        QVERIFY(hovered.timer->isActive());
    }

    void tipGoesBeyondTheKeptRect()
    {
        const Workspace workspace;
        HoveredView hovered;
        QCOMPARE(hovered.pointsAt({114, 100}), u"left"_s);
        QCOMPARE(hovered.pointsAt({114, 84}), u"left"_s);
        hovered.pointsAt({114, 71});
        QVERIFY(!hovered.timer->isActive());
        QTRY_VERIFY(!QToolTip::isVisible());
        // And nothing is kept any more where it was.
        hovered.pointsAt({114, 84});
        QVERIFY(!hovered.timer->isActive());
        QVERIFY(!QToolTip::isVisible());
    }

    void mouseThatLeavesTheViewHidesTheTip()
    {
        const Workspace workspace;
        HoveredView hovered;
        QCOMPARE(hovered.pointsAt({114, 114}), u"left"_s);
        hovered.pointsAt({700, 400});
        QVERIFY(!hovered.timer->isActive());
        QTRY_VERIFY(!QToolTip::isVisible());
        QCOMPARE(hovered.pointsAt({114, 114}), u"left"_s);
    }

    void timerShowsTheTipAgain()
    {
        const Workspace workspace;
        HoveredView hovered;
        QCOMPARE(hovered.pointsAt({114, 114}), u"left"_s);
        QToolTip::hideText();
        QTRY_VERIFY(!QToolTip::isVisible());
        QVERIFY(hovered.timer->isActive());
        hovered.timeRunsOut();
        QVERIFY(QToolTip::isVisible());
        QCOMPARE(QToolTip::text(), u"left"_s);
        QVERIFY(hovered.timer->isActive());
    }

    void tipThatStandsIsGivenItsTimeAnew()
    {
        const Workspace workspace;
        HoveredView hovered;
        QCOMPARE(hovered.pointsAt({114, 114}), u"left"_s);
        hovered.timeRunsOut();
        QVERIFY(QToolTip::text() != u"left"_s); // or Qt would not count anew
        QCOMPARE(QToolTip::text().remove(QChar(0x200B)), u"left"_s);
        hovered.timeRunsOut();
        QCOMPARE(QToolTip::text(), u"left"_s);
    }

    // The view lies away from the corner of its window, and the window from that of the screen.
    void tipStandsBesideTheMouse()
    {
        const Workspace workspace;
        HoveredView hovered;
        hovered.window.move(250, 300);
        hovered.view->move(60, 40);
        QCoreApplication::processEvents();
        QCOMPARE(hovered.pointsAt({174, 154}), u"left"_s);
        const QPoint distance = tipDistance(hovered.window, {174, 154});
        QVERIFY2(QRect(0, 0, 40, 40).contains(distance),
                 qPrintable(u"%1, %2"_s.arg(distance.x()).arg(distance.y())));
        QCOMPARE(hovered.pointsAt({234, 144}), u"right"_s);
        QCOMPARE(tipDistance(hovered.window, {234, 144}), distance);
    }

    void tipLastsThreeSeconds()
    {
        const Workspace workspace;
        HoveredView hovered;
        QCOMPARE(hovered.pointsAt({114, 114}), u"left"_s);
        QCOMPARE(timesToGo(), QList<int>({3000}));
        hovered.timeRunsOut();
        QCOMPARE(timesToGo(), QList<int>({3000}));
    }

    void tipGoesWhereTheMouseIsTooFarFromWhereItCameUp_data()
    {
        QTest::addColumn<QPoint>("mouse");
        QTest::addColumn<QList<int>>("times");
        const QList<int> stays = {3000};
        const QList<int> goes = {300, 3000};
        QTest::newRow("36 to the left") << QPoint(164, 200) << stays;
        QTest::newRow("further to the left") << QPoint(163, 200) << goes;
        QTest::newRow("35 to the right") << QPoint(235, 200) << stays;
        QTest::newRow("further to the right") << QPoint(236, 200) << goes;
        QTest::newRow("28 above") << QPoint(200, 172) << stays;
        QTest::newRow("further above") << QPoint(200, 171) << goes;
        QTest::newRow("27 below") << QPoint(200, 227) << stays;
        QTest::newRow("further below") << QPoint(200, 228) << goes;
    }

    void tipGoesWhereTheMouseIsTooFarFromWhereItCameUp()
    {
        QFETCH(const QPoint, mouse);
        const Workspace workspace;
        HoveredView hovered;
        hovered.hover->setHitRegions({{{100, 100, 200, 200}, u"wide"_s}});
        QCOMPARE(hovered.pointsAt({200, 200}), u"wide"_s);
        QCOMPARE(hovered.pointsAt(mouse), u"wide"_s);
        QTEST(timesToGo(), "times");
    }

    void keptTipIsShownAgainWhereTheMouseIsNow()
    {
        const Workspace workspace;
        HoveredView hovered;
        QCOMPARE(hovered.pointsAt({114, 100}), u"left"_s);
        const QPoint besideTheMouse = tipDistance(hovered.window, {114, 100});
        QCOMPARE(hovered.pointsAt({114, 84}), u"left"_s);
        hovered.timeRunsOut();
        QCOMPARE(tipDistance(hovered.window, {114, 84}), besideTheMouse);
        // From 56 to 111 around the mouse, and no longer to 127.
        hovered.pointsAt({114, 111});
        QCOMPARE(timesToGo(), QList<int>({3000}));
        hovered.pointsAt({114, 112});
        QCOMPARE(timesToGo(), QList<int>({300, 3000}));
    }

    void newChartForgetsTheTipOfTheOldOne()
    {
        const Workspace workspace;
        HoveredView hovered;
        QCOMPARE(hovered.pointsAt({114, 114}), u"left"_s);
        hovered.hover->setHitRegions({right});
        QVERIFY(!hovered.timer->isActive());
        QTRY_VERIFY(!QToolTip::isVisible());
        QCOMPARE(hovered.pointsAt({115, 114}), QString());
        QCOMPARE(hovered.pointsAt({174, 114}), u"right"_s);
    }

    void regionsAreThoseOfTheSceneWhereTheViewIsScrolled()
    {
        const Workspace workspace;
        HoveredView hovered;
        hovered.view->setSceneRect(50, 40, 400, 300);
        QCOMPARE(hovered.pointsAt({64, 74}), u"left"_s);
        QCOMPARE(hovered.pointsAt({124, 74}), u"right"_s);
    }

    void eventsGoOnToTheView()
    {
        const Workspace workspace;
        HoveredView hovered;
        QWidget *viewport = hovered.view->viewport();
        QMouseEvent over(QEvent::MouseMove, {114, 114}, {114, 114}, Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QMouseEvent beside(QEvent::MouseMove, {300, 250}, {300, 250}, Qt::NoButton, Qt::NoButton,
                           Qt::NoModifier);
        QEvent leave(QEvent::Leave);
        for (QEvent *event : {static_cast<QEvent *>(&over), static_cast<QEvent *>(&beside), &leave})
            QVERIFY(!hovered.hover->eventFilter(viewport, event));
    }
};

TEST_CLASS(tst_ChartHover)
#include "tst_ChartHover.moc"
