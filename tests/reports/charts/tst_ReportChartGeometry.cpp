#include "reports/charts/ReportChartGeometry.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace ReportChartGeometry;

namespace {

/// The plot of the least canvas, 760 by 620: from 86 to 724 and from 54 to 470.
const QRectF plot(86, 54, 638, 416);

/// Ten dollars are 104 pixels in it, and zero stands at 366.
const ValueRange tens = {.bottom = -10.0, .top = 30.0};

/// A plot that weeks divide evenly: 600 pixels wide.
const QRectF evenPlot(86, 54, 600, 416);

using Values = QList<double>;
using Series = QMap<QString, QList<double>>;

QRectF bar(int payweek, int payweeks, int series, int seriesCount, double value,
           const QRectF &inPlot = evenPlot)
{
    return barRect(payweek, payweeks, series, seriesCount, value, tens, inPlot);
}

} // namespace

class tst_ReportChartGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void canvasIsTheViewLessItsRimButNeverTooSmall_data()
    {
        QTest::addColumn<QSize>("viewport");
        QTest::addColumn<QSize>("canvas");
        QTest::newRow("large") << QSize(1200, 900) << QSize(1192, 892);
        QTest::newRow("just the least") << QSize(768, 628) << QSize(760, 620);
        QTest::newRow("too narrow") << QSize(767, 900) << QSize(760, 892);
        QTest::newRow("too low") << QSize(1200, 627) << QSize(1192, 620);
        QTest::newRow("not laid out yet") << QSize(0, 0) << QSize(760, 620);
    }

    void canvasIsTheViewLessItsRimButNeverTooSmall()
    {
        QFETCH(const QSize, viewport);
        QTEST(canvasSize(viewport), "canvas");
    }

    void plotLeavesRoomForTheTexts()
    {
        QCOMPARE(plotRect({760, 620}), plot);
        QCOMPARE(plotRect({1000, 900}), QRectF(86, 54, 878, 696));
    }

    void linesHaveRoomAboveAndBelow_data()
    {
        QTest::addColumn<Series>("series");
        QTest::addColumn<double>("bottom");
        QTest::addColumn<double>("top");
        const auto add = [](const char *name, const Series &series, double bottom, double top) {
            QTest::newRow(name) << series << bottom << top;
        };
        add("no series", {}, -0.12, 1.12);
        add("no values", {{u"a"_s, {}}}, -0.12, 1.12);
        add("far apart", {{u"a"_s, {1.0, 3.0}}}, 0.76, 3.24);
        add("close together", {{u"a"_s, {100.0, 101.0}}}, 94.95, 106.05);
        add("in two series", {{u"a"_s, {1.0}}, {u"b"_s, {3.0, 2.0}}}, 0.76, 3.24);
        add("on both sides of zero", {{u"a"_s, {-10.0, 30.0}}}, -14.8, 34.8);
        add("below zero", {{u"a"_s, {-30.0, -10.0}}}, -32.4, -7.6);
        add("one value", {{u"a"_s, {5.0}}}, 4.0, 6.0);
        add("all equal", {{u"a"_s, {50.0, 50.0}}}, 45.0, 55.0);
        add("all equal below zero", {{u"a"_s, {-50.0, -50.0}}}, -55.0, -45.0);
        add("nearly equal", {{u"a"_s, {1e12, 1e12 + 0.001}}}, 9.5e11, 1.05e12);
        add("parts of a cent", {{u"a"_s, {0.0, 0.004}}}, -0.00048, 0.00448);
        add("trillions and parts of a cent", {{u"a"_s, {1e12, 0.004}}}, -1.2e11, 1.12e12);
    }

    void linesHaveRoomAboveAndBelow()
    {
        QFETCH(const Series, series);
        const ValueRange range = valueRange(series, false);
        QTEST(range.bottom, "bottom");
        QTEST(range.top, "top");
    }

    void barsStandOnZeroAndHaveNoRoomAbove_data()
    {
        QTest::addColumn<Series>("series");
        QTest::addColumn<double>("bottom");
        QTest::addColumn<double>("top");
        const auto add = [](const char *name, const Series &series, double bottom, double top) {
            QTest::newRow(name) << series << bottom << top;
        };
        add("no values", {{u"a"_s, {}}}, 0.0, 1.0);
        add("on both sides of zero", {{u"a"_s, {-10.0}}, {u"b"_s, {30.0}}}, -10.0, 30.0);
        add("below zero", {{u"a"_s, {-30.0, -10.0}}}, -30.0, 0.0);
        add("one value", {{u"a"_s, {5.0}}}, 0.0, 5.0);
        add("all equal", {{u"a"_s, {50.0, 50.0}}}, 0.0, 50.0);
        add("all equal below zero", {{u"a"_s, {-50.0, -50.0}}}, -50.0, 0.0);
        add("nearly equal", {{u"a"_s, {1e12, 1e12 + 0.001}}}, 0.0, 1e12 + 0.001);
        add("parts of a cent", {{u"a"_s, {0.004}}}, 0.0, 0.004);
    }

    void barsStandOnZeroAndHaveNoRoomAbove()
    {
        QFETCH(const Series, series);
        const ValueRange range = valueRange(series, true);
        QTEST(range.bottom, "bottom");
        QTEST(range.top, "top");
    }

    void gridDividesTheRangeIntoFifths_data()
    {
        QTest::addColumn<double>("bottom");
        QTest::addColumn<double>("top");
        QTest::addColumn<QString>("values");
        const auto add = [](const char *name, double bottom, double top, const QString &values) {
            QTest::newRow(name) << bottom << top << values;
        };
        add("above zero", 0.0, 50.0, u"50.00 40.00 30.00 20.00 10.00 0.00"_s);
        add("below zero", -50.0, 0.0, u"0.00 -10.00 -20.00 -30.00 -40.00 -50.00"_s);
        add("on both sides", -1000.0, 4000.0, u"4000.00 3000.00 2000.00 1000.00 0.00 -1000.00"_s);
        add("fifths that are no doubles", -2.2, 3.3, u"3.30 2.20 1.10 0.00 -1.10 -2.20"_s);
        add("to a zero that rounding misses", 0.0, 1.62, u"1.62 1.30 0.97 0.65 0.32 0.00"_s);
        add("hardly below zero", -0.001, 0.004, u"0.00 0.00 0.00 0.00 0.00 -0.00"_s);
        add("away from zero", 0.76, 3.26, u"3.26 2.76 2.26 1.76 1.26 0.76"_s);
    }

    void gridDividesTheRangeIntoFifths()
    {
        QFETCH(const double, bottom);
        QFETCH(const double, top);
        QStringList values;
        for (int line = 0; line < gridLines; ++line)
            values.append(QString::number(gridValue(line, {.bottom = bottom, .top = top}), 'f', 2));
        QTEST(values.join(u' '), "values");
    }

    void barsOfValuesAboveZeroHaveZeroAsTheBottomOfTheirAxis()
    {
        QCOMPARE(valueRange({{u"a"_s, {100.0, 200.0}}}, true).bottom, 0.0);
        QCOMPARE(valueRange({{u"a"_s, {100.0, 200.0}}}, true).top, 200.0);
    }

    void allValuesEqualToZeroGiveARangeOfMinusOneToOne()
    {
        for (const bool bars : {true, false}) {
            const ValueRange range = valueRange({{u"a"_s, {0.0, 0.0}}, {u"b"_s, {0.0}}}, bars);
            QCOMPARE(range.bottom, -1.0);
            QCOMPARE(range.top, 1.0);
        }
    }

    void valueStandsInProportionToTheRange_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("height");
        QTest::newRow("top") << 30.0 << 54.0;
        QTest::newRow("bottom") << -10.0 << 470.0;
        QTest::newRow("zero") << 0.0 << 366.0;
        QTest::newRow("middle") << 10.0 << 262.0;
    }

    void valueStandsInProportionToTheRange()
    {
        QFETCH(const double, value);
        QTEST(heightOf(value, tens, plot), "height");
    }

    void singlePayweekOfALineStandsInTheMiddleOfThePlot() { QCOMPARE(lineX(0, 1, plot), 405.0); }

    void payweeksOfALineReachFromEdgeToEdge()
    {
        QCOMPARE(lineX(0, 2, plot), 86.0);
        QCOMPARE(lineX(1, 2, plot), 724.0);
        QCOMPARE(lineX(0, 53, plot), 86.0);
        QCOMPARE(lineX(26, 53, plot), 405.0);
        QCOMPARE(lineX(52, 53, plot), 724.0);
    }

    void payweeksOfBarsStandInTheMiddleOfTheirSlots()
    {
        QCOMPARE(slotCentre(0, 1, plot), 405.0);
        QCOMPARE(slotCentre(0, 2, plot), 245.5);
        QCOMPARE(slotCentre(1, 2, plot), 564.5);
        QCOMPARE(slotCentre(2, 3, evenPlot), 586.0);
    }

    void barsOfAPayweekStandSideBySide_data()
    {
        QTest::addColumn<QRectF>("rect");
        QTest::addColumn<QRectF>("expected");
        const double third = 52.0 / 3.0;
        QTest::newRow("1 week, widest group, first series")
            << bar(0, 1, 0, 3, 20.0) << QRectF(360, 158, third - 1, 208);
        QTest::newRow("1 week, widest group, last series")
            << bar(0, 1, 2, 3, 20.0) << QRectF(360 + 2 * third, 158, third - 1, 208);
        QTest::newRow("3 weeks, widest group")
            << bar(2, 3, 1, 2, 20.0) << QRectF(586, 158, 25, 208);
        QTest::newRow("12 weeks, three quarters of the slot")
            << bar(1, 12, 1, 2, 20.0) << QRectF(161, 158, 18, 208);
        QTest::newRow("50 weeks, narrowest group")
            << bar(0, 50, 0, 2, 20.0) << QRectF(85, 158, 6, 208);
        QTest::newRow("53 weeks, narrowest group")
            << bar(52, 53, 0, 2, 20.0, QRectF(86, 54, 636, 416)) << QRectF(709, 158, 6, 208);
        QTest::newRow("many series, narrowest bars")
            << bar(0, 50, 6, 7, 20.0) << QRectF(103, 158, 2, 208);
    }

    void barsOfAPayweekStandSideBySide()
    {
        QFETCH(const QRectF, rect);
        QTEST(rect, "expected");
    }

    void barReachesFromItsValueToZero_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("top");
        QTest::addColumn<double>("height");
        QTest::newRow("above zero") << 20.0 << 158.0 << 208.0;
        QTest::newRow("below zero") << -5.0 << 366.0 << 52.0;
        QTest::newRow("zero is a line") << 0.0 << 366.0 << 1.0;
        QTest::newRow("less than a pixel") << -0.05 << 366.0 << 1.0;
    }

    void barReachesFromItsValueToZero()
    {
        QFETCH(const double, value);
        const QRectF rect = bar(0, 1, 0, 1, value);
        QTEST(rect.top(), "top");
        QTEST(rect.height(), "height");
    }

    void hitRegionOfAPointIsASquareAroundIt()
    {
        QCOMPARE(pointHitRect({100.0, 200.0}), QRectF(86, 186, 28, 28));
    }

    void hitRegionOfABarIsTheBarWithARim_data()
    {
        QTest::addColumn<QRectF>("bar");
        QTest::addColumn<QRectF>("region");
        QTest::newRow("large") << QRectF(100, 200, 16, 208) << QRectF(92, 192, 32, 224);
        QTest::newRow("just large enough") << QRectF(100, 200, 8, 8) << QRectF(92, 192, 24, 24);
        QTest::newRow("narrow") << QRectF(100, 200, 4, 208) << QRectF(90, 192, 24, 224);
        QTest::newRow("low") << QRectF(100, 200, 16, 1) << QRectF(92, 188.5, 32, 24);
    }

    void hitRegionOfABarIsTheBarWithARim()
    {
        QFETCH(const QRectF, bar);
        QTEST(barHitRect(bar), "region");
    }

    void labelsStandAsFarApartAsTheyNeed_data()
    {
        QTest::addColumn<int>("payweeks");
        QTest::addColumn<double>("width");
        QTest::addColumn<QList<qsizetype>>("labelled");
        using Labelled = QList<qsizetype>;
        QTest::newRow("none") << 0 << 638.0 << Labelled{};
        QTest::newRow("one") << 1 << 638.0 << Labelled{0};
        QTest::newRow("as many as fit") << 9 << 638.0 << Labelled{0, 1, 2, 3, 4, 5, 6, 7, 8};
        QTest::newRow("one more than fits") << 10 << 638.0 << Labelled{0, 2, 4, 6, 8, 9};
        QTest::newRow("53 weeks") << 53 << 638.0 << Labelled{0, 6, 12, 18, 24, 30, 36, 42, 48, 52};
        QTest::newRow("last one on a step") << 11 << 638.0 << Labelled{0, 2, 4, 6, 8, 10};
        QTest::newRow("room for two") << 4 << 140.0 << Labelled{0, 2, 3};
        QTest::newRow("not quite for two") << 4 << 139.0 << Labelled{0, 3};
        QTest::newRow("room for none") << 3 << 69.0 << Labelled{0, 2};
    }

    void labelsStandAsFarApartAsTheyNeed()
    {
        QFETCH(const int, payweeks);
        QFETCH(const double, width);
        QTEST(labelledPayweeks(payweeks, width), "labelled");
    }

    void legendSharesTheCanvas_data()
    {
        QTest::addColumn<int>("canvasWidth");
        QTest::addColumn<int>("seriesCount");
        QTest::addColumn<double>("distance");
        QTest::newRow("three series") << 760 << 3 << 190.0;
        QTest::newRow("wide canvas") << 1010 << 3 << 252.5;
        QTest::newRow("one series") << 760 << 1 << 380.0;
        QTest::newRow("no series") << 760 << 0 << 380.0;
        QTest::newRow("many series") << 760 << 5 << 145.0;
    }

    void legendSharesTheCanvas()
    {
        QFETCH(const int, canvasWidth);
        QFETCH(const int, seriesCount);
        QTEST(legendDistance(canvasWidth, seriesCount), "distance");
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_ReportChartGeometry)
#include "tst_ReportChartGeometry.moc"
