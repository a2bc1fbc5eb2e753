#include "reports/charts/LineChartGeometry.h"
#include "support/TestProgram.h"

#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

/// The plot of a chart of 500 by 260 pixels at 100 percent: from 86 to 426 and from 22 to 172.
const QRectF plot(86, 22, 340, 150);

QList<ChartPoint> series(const QList<double> &values)
{
    QList<ChartPoint> points;
    for (const double value : values)
        points.append({u"week %1"_s.arg(points.size() + 1), value});
    return points;
}

using Values = QList<double>;
using Positions = QList<QPointF>;

} // namespace

class tst_LineChartGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lengthsGrowWithTheScaleAndNeverFallBelowTheirBase_data()
    {
        QTest::addColumn<int>("base");
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("length");
        QTest::newRow("smallest scale") << 86 << 75 << 86;
        QTest::newRow("just below the usual scale") << 86 << 99 << 86;
        QTest::newRow("usual scale") << 86 << 100 << 86;
        QTest::newRow("a larger scale") << 86 << 150 << 129;
        QTest::newRow("parts of a pixel are dropped") << 86 << 175 << 150;
        QTest::newRow("less than a pixel more") << 10 << 109 << 10;
    }

    void lengthsGrowWithTheScaleAndNeverFallBelowTheirBase()
    {
        QFETCH(const int, base);
        QFETCH(const int, percent);
        QTEST(LineChartGeometry::scaledLength(base, percent), "length");
    }

    void leastHeightIs260AtTheUsualScale()
    {
        QCOMPARE(LineChartGeometry::leastHeight(75), 260);
        QCOMPARE(LineChartGeometry::leastHeight(100), 260);
        QCOMPARE(LineChartGeometry::leastHeight(175), 455);
    }

    void plotLeavesMarginsForTheTexts_data()
    {
        QTest::addColumn<QRect>("widget");
        QTest::addColumn<int>("percent");
        QTest::addColumn<QRectF>("plotRect");
        QTest::newRow("usual scale") << QRect(0, 0, 500, 260) << 100 << plot;
        QTest::newRow("small scale") << QRect(0, 0, 500, 260) << 75 << plot;
        QTest::newRow("large scale") << QRect(0, 0, 800, 455) << 175 << QRectF(150, 38, 521, 263);
        QTest::newRow("no wider than its margins")
            << QRect(0, 0, 160, 260) << 100 << QRectF(86, 22, 0, 150);
        QTest::newRow("smaller than its margins")
            << QRect(0, 0, 100, 50) << 100 << QRectF(86, 22, 0, 0);
    }

    void plotLeavesMarginsForTheTexts()
    {
        QFETCH(const QRect, widget);
        QFETCH(const int, percent);
        QTEST(LineChartGeometry::plotRect(widget, percent), "plotRect");
    }

    void rangeHoldsZeroAndAllValues_data()
    {
        QTest::addColumn<Values>("values");
        QTest::addColumn<double>("min");
        QTest::addColumn<double>("max");
        QTest::newRow("one value") << Values{5} << 0.0 << 5.0;
        QTest::newRow("several equal positive values") << Values{7, 7, 7} << 0.0 << 7.0;
        QTest::newRow("mixed signs") << Values{4, -3, 2} << -3.0 << 4.0;
        QTest::newRow("all negative") << Values{-3, -8, -5} << -8.0 << 0.0;
        QTest::newRow("all zero") << Values{0, 0, 0} << -1.0 << 1.0;
        QTest::newRow("zeros of both signs") << Values{-0.0, 0.0} << -1.0 << 1.0;
        QTest::newRow("parts of a cent") << Values{0.004, 0.001} << 0.0 << 0.004;
        QTest::newRow("large amounts") << Values{1e12, -1e12} << -1e12 << 1e12;
        QTest::newRow("not a number among numbers") << Values{2, notANumber, 7} << 0.0 << 7.0;
        QTest::newRow("not a number alone") << Values{notANumber} << -1.0 << 1.0;
        QTest::newRow("infinite") << Values{-2, infinite, -infinite} << -2.0 << 0.0;
        QTest::newRow("no values") << Values{} << -1.0 << 1.0;
    }

    void rangeHoldsZeroAndAllValues()
    {
        QFETCH(const Values, values);
        QFETCH(const double, min);
        QFETCH(const double, max);
        const auto range = LineChartGeometry::valueRange(series(values));
        QCOMPARE(range.min, min);
        QCOMPARE(range.max, max);
    }

    void zeroAtTheTopOfNegativeValuesHasNoSign()
    {
        const auto range = LineChartGeometry::valueRange(series({-0.0, -4}));
        QCOMPARE(QString::number(range.max, 'f', 2), u"0.00"_s);
    }

    void valuesRiseFromTheBottomToTheTop_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("y");
        QTest::newRow("least") << -100.0 << 172.0;
        QTest::newRow("zero") << 0.0 << 122.0;
        QTest::newRow("between") << 50.0 << 97.0;
        QTest::newRow("greatest") << 200.0 << 22.0;
    }

    void valuesRiseFromTheBottomToTheTop()
    {
        QFETCH(const double, value);
        QTEST(LineChartGeometry::verticalPosition(value, {-100, 200}, plot), "y");
    }

    void pointsFillThePlotFromEdgeToEdge_data()
    {
        QTest::addColumn<Values>("values");
        QTest::addColumn<Positions>("positions");
        QTest::newRow("no point") << Values{} << Positions{};
        QTest::newRow("one point in the middle") << Values{5} << Positions{{256, 22}};
        QTest::newRow("two") << Values{0, 3} << Positions{{86, 172}, {426, 22}};
        QTest::newRow("five") << Values{-100, 200, 50, 0, 200}
                              << Positions{{86, 172}, {171, 22}, {256, 97}, {341, 122}, {426, 22}};
        QTest::newRow("equal values along the top")
            << Values{7, 7, 7} << Positions{{86, 22}, {256, 22}, {426, 22}};
        QTest::newRow("zeros at mid height") << Values{0, 0} << Positions{{86, 97}, {426, 97}};
        QTest::newRow("negative values hang from the top")
            << Values{-2, -8} << Positions{{86, 59.5}, {426, 172}};
        QTest::newRow("large amounts") << Values{1e300, -1e300} << Positions{{86, 22}, {426, 172}};
        QTest::newRow("parts of a cent") << Values{0.004, 0.002} << Positions{{86, 22}, {426, 97}};
        QTest::newRow("not a number stands at zero")
            << Values{8, notANumber, infinite} << Positions{{86, 22}, {256, 172}, {426, 172}};
    }

    void pointsFillThePlotFromEdgeToEdge()
    {
        QFETCH(const Values, values);
        Positions found;
        for (const auto &point : LineChartGeometry::plottedPoints(series(values), plot))
            found.append({point.x, point.y});
        QTEST(found, "positions");
    }

    void pointsKeepTheirLabelsValuesAndOrder()
    {
        const auto points =
            LineChartGeometry::plottedPoints({{u"later"_s, 9}, {u"earlier"_s, notANumber}}, plot);
        QCOMPARE(points.size(), 2);
        QCOMPARE(points[0].label, u"later"_s);
        QCOMPARE(points[0].value, 9.0);
        QCOMPARE(points[1].label, u"earlier"_s);
        QCOMPARE(points[1].value, 0.0);
    }

    void labelsAreThinnedToThoseThatHaveRoom_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<double>("width");
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("step");
        QTest::newRow("all have room") << 5 << 460.0 << 100 << 1;
        QTest::newRow("one too many") << 6 << 460.0 << 100 << 2;
        QTest::newRow("fifty-two in a narrow plot") << 52 << 340.0 << 100 << 18;
        QTest::newRow("fifty-three in the dialog") << 53 << 718.0 << 100 << 8;
        QTest::newRow("one point") << 1 << 340.0 << 100 << 1;
        QTest::newRow("just no room for two") << 10 << 183.9 << 100 << 10;
        QTest::newRow("just room for two") << 10 << 184.0 << 100 << 5;
        QTest::newRow("a large scale needs more room") << 10 << 321.0 << 175 << 10;
        QTest::newRow("room for two at a large scale") << 10 << 322.0 << 175 << 5;
        QTest::newRow("a small scale needs as much") << 10 << 183.0 << 75 << 10;
        QTest::newRow("no room for any") << 52 << 91.0 << 100 << 52;
        QTest::newRow("no width") << 52 << 0.0 << 100 << 52;
        QTest::newRow("no points") << 0 << 340.0 << 100 << 1;
    }

    void labelsAreThinnedToThoseThatHaveRoom()
    {
        QFETCH(const int, count);
        QFETCH(const double, width);
        QFETCH(const int, percent);
        QFETCH(const int, step);
        QCOMPARE(LineChartGeometry::labelStep(count, width, percent), qsizetype(step));
    }

    void labelBoxGrowsWithTheScale()
    {
        QCOMPARE(LineChartGeometry::labelBox(75), QRectF(0, 0, 96, 20));
        QCOMPARE(LineChartGeometry::labelBox(100), QRectF(0, 0, 96, 20));
        QCOMPARE(LineChartGeometry::labelBox(175), QRectF(0, 0, 168, 35));
    }

    void labelStartsUnderItsPointAndStaysInTheWidget_data()
    {
        QTest::addColumn<double>("pointX");
        QTest::addColumn<int>("widgetWidth");
        QTest::addColumn<double>("x");
        QTest::newRow("in the middle") << 256.0 << 500 << 248.0;
        QTest::newRow("last point of a wide chart") << 426.0 << 500 << 418.0;
        QTest::newRow("just at the right bound") << 429.88 << 500 << 421.88;
        QTest::newRow("rightmost is pulled left") << 440.0 << 500 << 421.88;
        QTest::newRow("rightmost of a narrow chart is pulled left") << 86.0 << 120 << 41.88;
        QTest::newRow("leftmost is pulled right") << 10.0 << 500 << 8.0;
        QTest::newRow("left bound wins where they cross") << 86.0 << 60 << 8.0;
    }

    void labelStartsUnderItsPointAndStaysInTheWidget()
    {
        QFETCH(const double, pointX);
        QFETCH(const int, widgetWidth);
        QFETCH(const double, x);
        const QRect widget(0, 0, widgetWidth, 260);
        QCOMPARE(LineChartGeometry::labelCorner(pointX, widget, plot, 100), QPointF(x, 218));
    }

    void labelStandsLowerAndEndsEarlierAtALargeScale()
    {
        const QRect widget(0, 0, 800, 455);
        const QRectF largePlot(150, 38, 521, 263);
        QCOMPARE(LineChartGeometry::labelCorner(300, widget, largePlot, 175), QPointF(292, 381));
        QCOMPARE(LineChartGeometry::labelCorner(790, widget, largePlot, 175), QPointF(670.04, 381));
    }

    void nearestPointWithinReachIsFound_data()
    {
        QTest::addColumn<QPointF>("mouse");
        QTest::addColumn<int>("percent");
        QTest::addColumn<QString>("label");
        QTest::newRow("on a point") << QPointF(100, 50) << 100 << u"first"_s;
        QTest::newRow("nearer to the first") << QPointF(107, 50) << 100 << u"first"_s;
        QTest::newRow("nearer to the second") << QPointF(109, 50) << 100 << u"second"_s;
        QTest::newRow("as near to both, the later") << QPointF(108, 50) << 100 << u"second"_s;
        QTest::newRow("exactly in reach") << QPointF(94, 42) << 100 << u"first"_s;
        QTest::newRow("just out of reach") << QPointF(94, 41.9) << 100 << QString();
        QTest::newRow("as near at a small scale") << QPointF(94, 42) << 75 << u"first"_s;
        QTest::newRow("exactly in reach of a large scale") << QPointF(83, 50) << 175 << u"first"_s;
        QTest::newRow("just out of it") << QPointF(82.9, 50) << 175 << QString();
        QTest::newRow("points on one spot, the later") << QPointF(203, 60) << 100 << u"fourth"_s;
        QTest::newRow("far away") << QPointF(400, 200) << 100 << QString();
    }

    void nearestPointWithinReachIsFound()
    {
        QFETCH(const QPointF, mouse);
        QFETCH(const int, percent);
        const QList<ChartHoverPoint> points = {{100, 50, u"first"_s, 1},
                                               {116, 50, u"second"_s, 2},
                                               {200, 60, u"third"_s, 3},
                                               {200, 60, u"fourth"_s, 4}};
        const ChartHoverPoint *point = LineChartGeometry::pointNear(mouse, points, percent);
        QTEST(point ? point->label : QString(), "label");
    }

    void noPointIsNearInAnEmptyChart()
    {
        QCOMPARE(LineChartGeometry::pointNear({0, 0}, {}, 100), nullptr);
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_LineChartGeometry)
#include "tst_LineChartGeometry.moc"
