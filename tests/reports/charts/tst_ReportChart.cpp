#include "reports/charts/ReportPicture.h"
#include "support/TestProgram.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QRect plot(86, 54, 638, 416);

const QColor plotGround(250, 250, 250);
const QColor red(190, 70, 40);
const QColor green(30, 150, 80);

QColor lighter(const QColor &color)
{
    return QColor(color.lighter(135).rgb());
}

/// The grid, the frame, the zero line and the texts are grey; only a series has a hue.
bool hasHue(const QColor &color)
{
    const auto [low, high] = std::minmax({color.red(), color.green(), color.blue()});
    return high - low > 60;
}

} // namespace

/// The canvas, the plot, the lines and the bars of a report as they are painted, and what lies
/// under the mouse.
class tst_ReportChart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void canvasIsWhiteAndAsLargeAsAsked()
    {
        const Workspace workspace;
        const QImage image = picture(lines(dollars({{u"A"_s, {5.0}}})));
        QCOMPARE(image.size(), least);
        for (const QPoint &corner :
             {QPoint(0, 0), QPoint(759, 0), QPoint(0, 619), QPoint(759, 619)})
            QCOMPARE(image.pixelColor(corner), white);
        QCOMPARE(image.pixelColor(740, 300), white);
    }

    void sixGridLinesCrossThePlot()
    {
        const Workspace workspace;
        const QImage image = picture(lines(dollars({{u"A"_s, {5.0}}})));
        // A fifth of the plot is 83.2 pixels.
        for (const int y : {137, 220, 303, 386}) {
            QVERIFY2(image.pixelColor(150, y).lightness() < 240, qPrintable(QString::number(y)));
            QCOMPARE(image.pixelColor(150, y - 5), plotGround);
            QCOMPARE(image.pixelColor(150, y + 5), plotGround);
        }
        QCOMPARE(extent(image, QRect(150, 60, 1, 405), isDark), QRect());
    }

    void blackFrameSurroundsThePlot()
    {
        const Workspace workspace;
        const QImage image = picture(lines(dollars({{u"A"_s, {5.0}}})));
        QCOMPARE(extent(image, QRect(80, 280, 10, 1), isDark).width(), 2);
        QVERIFY(isDark(image.pixelColor(86, 280)));
        QVERIFY(isDark(image.pixelColor(724, 280)));
        QVERIFY(isDark(image.pixelColor(150, 54)));
        QVERIFY(isDark(image.pixelColor(150, 470)));
        QCOMPARE(image.pixelColor(88, 280), plotGround);
        QCOMPARE(image.pixelColor(726, 280), white);
    }

    void dashedLineMarksZeroBetweenValuesOfBothSigns()
    {
        const Workspace workspace;
        // From -14.8 to 34.8: zero stands at 345.9.
        const QImage image = picture(lines(dollars({{u"A"_s, {-10.0, 30.0}}})));
        bool dash = false;
        bool gap = false;
        for (int x = 500; x < 540; ++x) {
            dash = dash || image.pixelColor(x, 345).lightness() < 190;
            gap = gap || image.pixelColor(x, 345) == plotGround;
        }
        QVERIFY(dash);
        QVERIFY(gap);
    }

    // On a fine screen, and where a line of one pixel fills two of the screen's.
    void gridIsLightGreyAndTheZeroLineADarkerOne()
    {
        const Workspace workspace;
        // The plot is 420 high: a fifth is 84, and zero stands at 369.
        const QImage image = picture(ReportChart::draw(dollars({{u"A"_s, {30.0, -10.0}}}),
                                                       u"miles"_s, {760, 624}, textFont(), 2.0));
        QCOMPARE(image.pixelColor(810, 2 * 138 - 1), QColor(220, 220, 220));
        QCOMPARE(image.pixelColor(810, 2 * 138), QColor(220, 220, 220));
        QCOMPARE(image.pixelColor(810, 2 * 138 + 1), plotGround);
        QList<int> greys;
        for (int x = 790; x < 830; ++x)
            greys.append(image.pixelColor(x, 2 * 369).red());
        QCOMPARE(*std::min_element(greys.cbegin(), greys.cend()), 120);
        QCOMPARE(*std::max_element(greys.cbegin(), greys.cend()), 250);
    }

    void noLineMarksZeroWhereItIsTheEdgeOrOutside_data()
    {
        QTest::addColumn<QList<double>>("values");
        QTest::newRow("above zero") << QList<double>{10.0, 30.0};
        QTest::newRow("below zero") << QList<double>{-90.0, -60.0};
    }

    void noLineMarksZeroWhereItIsTheEdgeOrOutside()
    {
        QFETCH(const QList<double>, values);
        const Workspace workspace;
        const QImage image = picture(lines(dollars({{u"A"_s, values}})));
        const QRect strip(500, 230, 40, 230);
        const auto isDash = [](const QColor &color) { return color.lightness() < 200; };
        QCOMPARE(extent(image, strip, isDash), QRect());
    }

    void singlePayweekOfALineReportStandsInTheMiddleOfThePlot()
    {
        const Workspace workspace;
        const QImage image = picture(lines(dollars({{u"A"_s, {5.0}}})));
        QCOMPARE(extent(image, plot, hasHue).center(), QPoint(404, 261));
        QCOMPARE(image.pixelColor(405, 262), white);
    }

    void pointIsAWhiteDotInAColouredRing()
    {
        const Workspace workspace;
        const QImage image = picture(lines(dollars({{u"A"_s, {5.0}}})));
        for (const QPoint &ring :
             {QPoint(408, 262), QPoint(401, 262), QPoint(405, 258), QPoint(405, 265)})
            QCOMPARE(image.pixelColor(ring), blue);
        QCOMPARE(image.pixelColor(403, 262), white);
        QCOMPARE(image.pixelColor(406, 261), white);
        const QRect dot = extent(image, plot, hasHue);
        QVERIFY2(dot.width() == 10 && dot.height() == 10, qPrintable(QString::number(dot.width())));
    }

    void pointsOfALineAreJoined()
    {
        const Workspace workspace;
        // From 44 to 106 either end: the middle of the line is the middle of the plot.
        const QImage image = picture(lines(dollars({{u"A"_s, {100.0, 50.0}}})));
        const QRect line = extent(image, QRect(400, 54, 10, 416), hasHue);
        QVERIFY(line.isValid());
        QVERIFY(std::abs(line.center().y() - 262) <= 2);
        const QRect whole = extent(image, plot.adjusted(-10, 0, 10, 0), hasHue);
        QCOMPARE(whole.left(), 81);
        QCOMPARE(whole.right(), 728);
    }

    void coloursFollowTheSortedNames()
    {
        const Workspace workspace;
        const QImage image = picture(bars(dollars({{u"Total Revenue"_s, {30.0}},
                                                   {u"Net Revenue"_s, {30.0}},
                                                   {u"Total Cost"_s, {30.0}}})));
        // Three bars of 17 pixels side by side around 405.
        QCOMPARE(image.pixelColor(387, 300), lighter(blue));
        QCOMPARE(image.pixelColor(405, 300), lighter(red));
        QCOMPARE(image.pixelColor(422, 300), lighter(green));
        QCOMPARE(image.pixelColor(375, 300), plotGround);
        QCOMPARE(image.pixelColor(435, 300), plotGround);
    }

    void sixthSeriesHasTheColourOfTheFirst()
    {
        const Workspace workspace;
        QMap<QString, QList<double>> series;
        for (const char name : {'a', 'b', 'c', 'd', 'e', 'f'})
            series.insert(QString(QLatin1Char(name)), {5.0});
        const ReportChart chart =
            ReportChart::draw(dollars(series), u"cpms"_s, {1200, 620}, textFont(), 1.0);
        const QImage image = picture(chart);
        // 1200 over 7 is 171.4 from one to the next.
        const QList<QColor> colors = {blue, red, green, {130, 80, 180}, {210, 150, 20}, blue};
        for (int i = 0; i < 6; ++i)
            QCOMPARE(image.pixelColor(92 + i * 1200 / 7, 572), colors.at(i));
    }

    void barIsFilledLighterThanItsRim()
    {
        const Workspace workspace;
        const QImage image = picture(bars(dollars({{u"A"_s, {30.0}}})));
        // From 379 to 430, and from zero at the bottom up to the top of the plot.
        QCOMPARE(image.pixelColor(405, 300), lighter(blue));
        QCOMPARE(image.pixelColor(378, 300), blue);
        QCOMPARE(image.pixelColor(430, 300), blue);
        QCOMPARE(image.pixelColor(376, 300), plotGround);
        QCOMPARE(image.pixelColor(432, 300), plotGround);
        QCOMPARE(image.pixelColor(405, 57), lighter(blue));
        QCOMPARE(image.pixelColor(405, 467), lighter(blue));
    }

    void barsBelowZeroHangFromTheZeroLine()
    {
        const Workspace workspace;
        // From -10 to 30: zero stands at 366.
        const QImage image = picture(bars(dollars({{u"A"_s, {30.0, -10.0}}})));
        QCOMPARE(image.pixelColor(246, 360), lighter(blue));
        QCOMPARE(image.pixelColor(246, 375), plotGround);
        QCOMPARE(image.pixelColor(565, 375), lighter(blue));
        QCOMPARE(image.pixelColor(565, 460), lighter(blue));
        QCOMPARE(image.pixelColor(565, 355), plotGround);
    }

    void reportKeyDecidesBetweenBarsAndLines_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<bool>("isBars");
        QTest::newRow("cpms") << u"cpms"_s << false;
        QTest::newRow("money") << u"rev_cost_net"_s << true;
        QTest::newRow("miles") << u"miles"_s << true;
        QTest::newRow("both") << u"revenue_vs_miles"_s << false;
        QTest::newRow("any other") << u"Miles"_s << false;
    }

    void reportKeyDecidesBetweenBarsAndLines()
    {
        QFETCH(const QString, key);
        const Workspace workspace;
        const QImage image =
            picture(ReportChart::draw(dollars({{u"A"_s, {5.0}}}), key, least, textFont(), 1.0));
        const bool reachesTheTop = image.pixelColor(405, 100) == lighter(blue);
        QTEST(reachesTheTop, "isBars");
    }

    void nothingOfASeriesLiesOutsideThePlot_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<int>("weeks");
        for (const char *key : {"cpms", "miles"}) {
            for (const int weeks : {1, 2, 3, 53})
                QTest::addRow("%s, %d weeks", key, weeks) << QString::fromLatin1(key) << weeks;
        }
    }

    void nothingOfASeriesLiesOutsideThePlot()
    {
        QFETCH(const QString, key);
        QFETCH(const int, weeks);
        const Workspace workspace;
        const ReportSeriesData report =
            dollars({{u"A"_s, zigzag(weeks)}, {u"B"_s, zigzag(weeks)}, {u"C"_s, zigzag(weeks)}});
        const QImage image = picture(ReportChart::draw(report, key, least, textFont(), 1.0));
        const QRect aboveTheLegend(0, 0, 760, 560);
        const QRect found = extent(image, aboveTheLegend, hasHue);
        QVERIFY(found.isValid());
        // A point at the edge shows whole: its ring reaches 5 pixels from its middle.
        QVERIFY2(plot.adjusted(-5, -1, 5, 1).contains(found),
                 qPrintable(u"%1 to %2"_s.arg(found.left()).arg(found.right())));
    }

    void legendHasASwatchForEachSeries()
    {
        const Workspace workspace;
        const QImage image =
            picture(lines(dollars({{u"Alpha"_s, {5.0}}, {u"Beta"_s, {5.0}}, {u"Gamma"_s, {5.0}}})));
        const QList<QColor> colors = {blue, red, green};
        for (int i = 0; i < 3; ++i) {
            const int left = 86 + 190 * i;
            QCOMPARE(extent(image, QRect(left - 20, 560, 60, 60), hasHue), QRect(left, 568, 12, 8));
            QCOMPARE(image.pixelColor(left + 5, 571), colors.at(i));
            QVERIFY(extent(image, QRect(left + 28, 565, 100, 15), isDark).isValid());
        }
    }

    void hitRegionsOfPointsTellThemInOrder()
    {
        const Workspace workspace;
        const ReportChart chart = lines(dollars({{u"B"_s, {30.0}}, {u"A"_s, {-10.0, 30.0}}}));
        QCOMPARE(chart.hitRegions.size(), 3);
        QCOMPARE(chart.hitRegions.at(0).text, u"A\nPayweek: 01/02/2026\nValue: $-10.00"_s);
        QCOMPARE(chart.hitRegions.at(1).text, u"A\nPayweek: 01/09/2026\nValue: $30.00"_s);
        QCOMPARE(chart.hitRegions.at(2).text, u"B\nPayweek: 01/02/2026\nValue: $30.00"_s);
        QCOMPARE(chart.hitRegions.at(1).rect.size(), QSizeF(28, 28));
        QCOMPARE(chart.hitRegions.at(0).rect.center().x(), 86.0);
        QCOMPARE(chart.hitRegions.at(1).rect.center().x(), 724.0);
    }

    void hitRegionsOfBarsSurroundThem()
    {
        const Workspace workspace;
        const ReportChart chart = bars(dollars({{u"A"_s, {30.0, 0.0}}}));
        QCOMPARE(chart.hitRegions.size(), 2);
        // 52 wide around 245.5 and 564.5; zero is a line of one pixel at the bottom.
        QCOMPARE(chart.hitRegions.at(0).rect, QRectF(211.5, 46, 67, 432));
        QCOMPARE(chart.hitRegions.at(1).rect, QRectF(530.5, 458.5, 67, 24));
        QCOMPARE(chart.hitRegions.at(1).text, u"A\nPayweek: 01/09/2026\nValue: $0.00"_s);
    }

    void valuesBeyondThePayweeksAreNotDrawn()
    {
        const Workspace workspace;
        ReportSeriesData report = dollars({{u"A"_s, {5.0, 5.0, 5.0}}});
        report.payweeks.resize(1);
        QCOMPARE(lines(report).hitRegions.size(), 1);
        QCOMPARE(bars(report).hitRegions.size(), 1);
    }

    void chartIsCrispOnAFineScreen()
    {
        const Workspace workspace;
        const ReportSeriesData report = dollars({{u"A"_s, {5.0}}});
        const ReportChart plain = lines(report);
        const ReportChart fine = ReportChart::draw(report, u"cpms"_s, least, textFont(), 2.0);
        QCOMPARE(fine.pixmap.size(), QSize(1520, 1240));
        QCOMPARE(fine.pixmap.deviceIndependentSize(), QSizeF(760, 620));
        QCOMPARE(fine.hitRegions.size(), 1);
        QCOMPARE(fine.hitRegions.at(0).rect, plain.hitRegions.at(0).rect);
        QCOMPARE(fine.hitRegions.at(0).text, plain.hitRegions.at(0).text);
        const QImage image = picture(fine);
        QCOMPARE(image.pixelColor(810, 524), white);
        QCOMPARE(image.pixelColor(817, 524), blue);
        QCOMPARE(extent(image, QRect(780, 500, 60, 50), hasHue).width(), 20);
    }
};

TEST_CLASS(tst_ReportChart)
#include "tst_ReportChart.moc"
