#include "reports/charts/LineChartWindow.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QImage>
#include <QPainter>
#include <QSet>
#include <QTest>

#include <algorithm>
#include <array>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

/// What a pixel was drawn with; at the rim of a line, what it has most of.
enum Ink { Base, Mid, Text, Highlight };
const std::array<QColor, 4> colors = {QColor(255, 255, 255), QColor(0, 160, 0), QColor(0, 0, 0),
                                      QColor(0, 0, 255)};

QPalette paletteOfFour()
{
    QPalette palette;
    palette.setColor(QPalette::Base, colors[Base]);
    palette.setColor(QPalette::Mid, colors[Mid]);
    palette.setColor(QPalette::Text, colors[Text]);
    palette.setColor(QPalette::Highlight, colors[Highlight]);
    return palette;
}

Ink inkAt(const QImage &picture, int x, int y)
{
    const auto squaredDistance = [pixel = picture.pixelColor(x, y)](const QColor &color) {
        const int red = pixel.red() - color.red();
        const int green = pixel.green() - color.green();
        const int blue = pixel.blue() - color.blue();
        return red * red + green * green + blue * blue;
    };
    const auto nearest = std::min_element(colors.begin(), colors.end(),
                                          [&squaredDistance](const QColor &a, const QColor &b) {
                                              return squaredDistance(a) < squaredDistance(b);
                                          });
    return Ink(std::distance(colors.begin(), nearest));
}

int pixels(const QImage &picture, Ink ink, const QRect &area)
{
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            count += inkAt(picture, x, y) == ink ? 1 : 0;
    }
    return count;
}

/// The smallest rectangle that holds all of `ink` within `area`.
QRect extent(const QImage &picture, Ink ink, const QRect &area)
{
    QRect found;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (inkAt(picture, x, y) == ink)
                found |= QRect(x, y, 1, 1);
        }
    }
    return found;
}

/// The labels under a plot that ends at row 172: ink with blank columns between.
int labelsIn(const QImage &picture)
{
    int labels = 0;
    int blankColumns = 30;
    for (int x = 0; x < picture.width(); ++x) {
        const bool blank = pixels(picture, Text, QRect(x, 185, 1, 40)) == 0;
        labels += !blank && blankColumns >= 30 ? 1 : 0;
        blankColumns = blank ? blankColumns + 1 : 0;
    }
    return labels;
}

/// A chart whose colours tell the inks apart.
class Chart : public LineChartWindow
{
public:
    explicit Chart(const QList<ChartPoint> &points, const QSize &size = {500, 260})
        : LineChartWindow(points, size)
    {
        widget->setPalette(paletteOfFour());
    }

    [[nodiscard]] QImage picture() const
    {
        QImage image(widget->size(), QImage::Format_RGB32);
        widget->render(&image);
        return image;
    }
};

const QRect insideThePlot(95, 30, 325, 110);
const QRect underThePlot(0, 180, 500, 80);

/// What stands left of the plot at 175 percent when the axis has these texts.
QImage axis(const Chart &chart, const QString &top, const QString &bottom)
{
    QImage image(chart.widget->size(), QImage::Format_RGB32);
    image.fill(colors[Base]);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(chart.widget->font());
    painter.setPen(colors[Text]);
    painter.drawText(QRectF(8, 30, 82, 20), Qt::AlignRight | Qt::AlignVCenter, top);
    painter.drawText(QRectF(8, 289, 82, 20), Qt::AlignRight | Qt::AlignVCenter, bottom);
    painter.end();
    return image.copy(0, 0, 130, image.height());
}

/// What stands under the plot of a chart of 500 by 260 when these labels begin at these places.
QImage labelsAt(const Chart &chart, const QList<int> &places, const QStringList &labels)
{
    QImage image(500, 260, QImage::Format_RGB32);
    image.fill(colors[Base]);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(colors[Text]);
    QFont font = chart.widget->font();
    font.setPointSizeF(font.pointSizeF() * 0.95);
    painter.setFont(font);
    for (qsizetype i = 0; i < labels.size(); ++i) {
        painter.save();
        painter.translate(places.at(i), 218);
        painter.rotate(-45);
        painter.drawText(QRectF(0, 0, 96, 20), Qt::AlignLeft | Qt::AlignBottom, labels.at(i));
        painter.restore();
    }
    painter.end();
    return image.copy(underThePlot);
}

} // namespace

class tst_SharedLineChartWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onePointStandsAtTheHorizontalCentreAsOneDotWithoutALine()
    {
        const Workspace workspace;
        const QImage picture = Chart(weekly({5.0})).picture();
        QCOMPARE(inkAt(picture, 256, 22), Highlight);
        const QRect dot = extent(picture, Highlight, picture.rect());
        QVERIFY2(QRect(251, 17, 10, 10).contains(dot), qPrintable(QString::number(dot.width())));
        QVERIFY(dot.width() >= 8);
        QCOMPARE(labelsIn(picture), 1);
    }

    void axisReadsTheEndsOfTheRange_data()
    {
        QTest::addColumn<QList<double>>("values");
        QTest::addColumn<QString>("top");
        QTest::addColumn<QString>("bottom");
        using Values = QList<double>;
        QTest::newRow("one point") << Values{5} << u"5.00"_s << u"0.00"_s;
        QTest::newRow("equal positive values") << Values{7.5, 7.5} << u"7.50"_s << u"0.00"_s;
        QTest::newRow("all zero") << Values{0, 0} << u"1.00"_s << u"-1.00"_s;
        QTest::newRow("all negative") << Values{-3, -8} << u"0.00"_s << u"-8.00"_s;
        QTest::newRow("mixed signs") << Values{-3, 812.345} << u"812.35"_s << u"-3.00"_s;
        QTest::newRow("parts of a cent") << Values{0.004, 0} << u"0.00"_s << u"0.00"_s;
        QTest::newRow("not a number") << Values{notANumber, 4} << u"4.00"_s << u"0.00"_s;
        QTest::newRow("infinite") << Values{infinite, -infinite} << u"1.00"_s << u"-1.00"_s;
    }

    // At 175 percent, where the frame stands clear of the texts.
    void axisReadsTheEndsOfTheRange()
    {
        QFETCH(const QList<double>, values);
        QFETCH(const QString, top);
        QFETCH(const QString, bottom);
        const Workspace workspace;
        Workspace::saveScale(175);
        const Chart chart(weekly(values), {800, 455});
        QCOMPARE(chart.picture().copy(0, 0, 130, 455), axis(chart, top, bottom));
    }

    void longFigureOnTheAxisIsMadeSmallerAndNotCutOff()
    {
        const Workspace workspace;
        Workspace::saveScale(175);
        const QImage picture = Chart(weekly({1e12, -1e12}), {800, 455}).picture();
        for (const QRect box : {QRect(0, 20, 130, 40), QRect(0, 279, 130, 40)}) {
            const QRect figure = extent(picture, Text, box);
            QVERIFY2(figure.left() >= 6, qPrintable(QString::number(figure.left())));
            QVERIFY2(figure.right() <= 90, qPrintable(QString::number(figure.right())));
            QVERIFY(figure.width() > 60);
        }
    }

    void equalPositiveValuesMakeAFlatLineAlongTheTopEdge()
    {
        const Workspace workspace;
        const QImage picture = Chart(weekly({7.0, 7.0, 7.0})).picture();
        QCOMPARE(pixels(picture, Highlight, QRect(86, 21, 340, 2)), 680);
        QVERIFY(extent(picture, Highlight, picture.rect()).bottom() <= 26);
        QCOMPARE(pixels(picture, Text, insideThePlot), 0);
    }

    void zerosMakeALineAtMidHeight()
    {
        const Workspace workspace;
        const QImage picture = Chart(weekly({0.0, 0.0, 0.0})).picture();
        QCOMPARE(pixels(picture, Highlight, QRect(86, 96, 340, 2)), 680);
        const QRect line = extent(picture, Highlight, picture.rect());
        QVERIFY(line.top() >= 92 && line.bottom() <= 101);
    }

    // A line of points would hide it.
    void zeroLineIsDrawnThroughZeros()
    {
        const Workspace workspace;
        const QImage picture = Chart(weekly({0.0})).picture();
        QVERIFY(pixels(picture, Text, QRect(90, 97, 150, 1)) > 75);
        QCOMPARE(extent(picture, Text, insideThePlot).height(), 1);
    }

    void zeroLineOfMixedSignsIsDashedInTheTextColour()
    {
        const Workspace workspace;
        const QImage picture = Chart(weekly({-100.0, 200.0, 200.0})).picture();
        const QRect line = extent(picture, Text, insideThePlot);
        QCOMPARE(line.top(), 122);
        QCOMPARE(line.height(), 1);
        QCOMPARE(picture.pixelColor(line.topLeft()), colors[Text]);
        const QRect stretch(200, 122, 200, 1);
        QVERIFY(pixels(picture, Text, stretch) > 100);
        QVERIFY(pixels(picture, Base, stretch) > 30);
    }

    void negativeValuesHangFromTheTopEdgeWithoutAZeroLine()
    {
        const Workspace workspace;
        const QImage picture = Chart(weekly({-2.0, -8.0})).picture();
        QCOMPARE(pixels(picture, Text, insideThePlot), 0);
        QCOMPARE(pixels(picture, Mid, QRect(100, 22, 300, 1)), 300);
        QCOMPARE(inkAt(picture, 86, 59), Highlight);
        QCOMPARE(inkAt(picture, 426, 172), Highlight);
    }

    void frameStandsCrispAroundThePlot()
    {
        const Workspace workspace;
        const QImage picture = Chart(weekly({5.0})).picture();
        for (const QPoint edge :
             {QPoint(300, 22), QPoint(300, 172), QPoint(86, 60), QPoint(426, 60)})
            QCOMPARE(picture.pixelColor(edge), colors[Mid]);
        QCOMPARE(picture.pixelColor(300, 21), colors[Base]);
        QCOMPARE(picture.pixelColor(300, 23), colors[Base]);
        QCOMPARE(picture.pixelColor(427, 60), colors[Base]);
    }

    void threeDashedGridLinesCrossThePlotAndNoneGoesDown()
    {
        const Workspace workspace;
        const QImage picture = Chart(weekly({5.0})).picture();
        QList<int> rows;
        for (int y = 30; y < 165; ++y) {
            if (pixels(picture, Mid, QRect(90, y, 330, 1)) > 0)
                rows.append(y);
        }
        QCOMPARE(rows, QList<int>({59, 97, 134}));
        QVERIFY(pixels(picture, Mid, QRect(90, 59, 330, 1)) > 165);
        QVERIFY(pixels(picture, Base, QRect(90, 59, 330, 1)) > 50);
    }

    void everyPointHasItsDotAndALineToTheNext()
    {
        const Workspace workspace;
        const QImage picture = Chart(weekly({-100.0, 200.0, 50.0, 0.0, 200.0})).picture();
        for (const QPoint dot :
             {QPoint(86, 172), QPoint(171, 22), QPoint(256, 97), QPoint(341, 122), QPoint(426, 22)})
            QCOMPARE(pixels(picture, Highlight, QRect(dot - QPoint(3, 3), QSize(6, 6))), 36);
        for (const int x : {100, 128, 150, 213, 298, 383, 410})
            QVERIFY(pixels(picture, Highlight, QRect(x, 23, 1, 149)) > 0);
    }

    void nothingIsDrawnRightOfThePlotOrAboveIt()
    {
        const Workspace workspace;
        const QImage picture = Chart(weekly({-100.0, 200.0, 50.0, 0.0, 200.0})).picture();
        QCOMPARE(pixels(picture, Base, QRect(431, 0, 69, 150)), 69 * 150);
        QCOMPARE(pixels(picture, Base, QRect(95, 0, 405, 17)), 405 * 17);
    }

    void onlyEveryStepthOfFiftyTwoLabelsIsDrawnInANarrowPlot()
    {
        const Workspace workspace;
        const QImage picture = Chart(wavesOf(52)).picture();
        QCOMPARE(labelsIn(picture), 3);
        QCOMPARE(labelsIn(Chart(wavesOf(3)).picture()), 3);
        QCOMPARE(labelsIn(Chart(wavesOf(4)).picture()), 2);
    }

    // Point 17 stands between the labelled ones, at a third of the width.
    void everyOneOfFiftyTwoPointsKeepsItsDot()
    {
        const Workspace workspace;
        const QImage picture = Chart(wavesOf(52)).picture();
        QCOMPARE(inkAt(picture, 199, 122), Highlight);
        for (int week = 0; week < 52; ++week)
            QCOMPARE(inkAt(picture, 86 + week * 340 / 51, 172 - 50 * (week % 4)), Highlight);
    }

    void labelRisesToTheRightInSlightlySmallerLetters()
    {
        const Workspace workspace;
        const Chart chart(weekly({5.0}));
        QCOMPARE(chart.picture().copy(underThePlot),
                 labelsAt(chart, {248}, QStringList(u"01/03/2026"_s)));
    }

    void everyLabelIsThatOfItsOwnPoint()
    {
        const Workspace workspace;
        const Chart chart(weekly({5.0, 6.0, 7.0}));
        QCOMPARE(
            chart.picture().copy(underThePlot),
            labelsAt(chart, {78, 248, 418}, {u"01/03/2026"_s, u"01/10/2026"_s, u"01/17/2026"_s}));
    }

    void slopingLineIsSmooth()
    {
        const Workspace workspace;
        const QImage picture = Chart(weekly({0.0, 9.0})).picture();
        QSet<QRgb> shades;
        for (int x = 150; x < 200; ++x)
            shades.insert(picture.pixel(x, 120));
        for (const Ink ink : {Base, Highlight})
            shades.remove(colors[ink].rgb());
        QVERIFY(!shades.isEmpty());
    }

    void rightmostLabelIsPulledLeftByTheRightBound()
    {
        const Workspace workspace;
        const QImage picture = Chart(weekly({5.0}), {120, 260}).picture();
        const QRect label = extent(picture, Text, QRect(0, 185, 120, 75));
        QVERIFY(label.left() >= 41 && label.left() < 60);
        QCOMPARE(pixels(picture, Base, QRect(115, 130, 5, 100)), 5 * 100);
    }

    void labelTooLongForItsBoxEndsWithinIt()
    {
        const Workspace workspace;
        const QImage picture =
            Chart(QList<ChartPoint>{{u"a week without end "_s.repeated(9), 5.0}}).picture();
        const QRect label = extent(picture, Text, QRect(100, 30, 400, 230));
        QVERIFY2(label.top() >= 148, qPrintable(QString::number(label.top())));
        QVERIFY2(label.right() <= 335, qPrintable(QString::number(label.right())));
    }

    void lengthsNeitherShrinkBelow100NorGrowBeyond175_data()
    {
        QTest::addColumn<int>("saved");
        QTest::addColumn<int>("same");
        QTest::addColumn<int>("height");
        QTest::newRow("50 looks as 100") << 50 << 100 << 260;
        QTest::newRow("75 looks as 100") << 75 << 100 << 260;
        QTest::newRow("300 looks as 175") << 300 << 175 << 455;
    }

    void lengthsNeitherShrinkBelow100NorGrowBeyond175()
    {
        QFETCH(const int, saved);
        QFETCH(const int, same);
        QFETCH(const int, height);
        const Workspace workspace;
        Workspace::saveScale(saved);
        const Chart chart(wavesOf(9), {600, 500});
        Workspace::saveScale(same);
        const Chart other(wavesOf(9), {600, 500});
        QCOMPARE(chart.picture(), other.picture());
        QCOMPARE(chart.widget->minimumHeight(), height);
    }

    void laterScaleDoesNotReachAChartThatIsThere()
    {
        const Workspace workspace;
        const Chart chart(wavesOf(9), {600, 500});
        const QImage before = chart.picture();
        Workspace::saveScale(175);
        QCOMPARE(chart.picture(), before);
        QCOMPARE(chart.widget->minimumHeight(), 260);
    }

    void withoutPointsItSaysSoInAnEmptyFrame()
    {
        const Workspace workspace;
        const QImage picture = Chart(QList<ChartPoint>{}).picture();
        QCOMPARE(inkAt(picture, 300, 22), Mid);
        const QPoint centre = extent(picture, Mid, QRect(95, 100, 320, 60)).center();
        QVERIFY(QRect(246, 126, 8, 8).contains(centre));
        QCOMPARE(pixels(picture, Text, picture.rect()), 0);
        QCOMPARE(pixels(picture, Highlight, picture.rect()), 0);
    }

    void coloursFollowThePalette()
    {
        const Workspace workspace;
        const Chart chart(weekly({-100.0, 200.0, 200.0}));
        QPalette dark;
        dark.setColor(QPalette::Base, QColor(20, 20, 30));
        dark.setColor(QPalette::Mid, QColor(90, 90, 90));
        dark.setColor(QPalette::Text, QColor(240, 240, 230));
        dark.setColor(QPalette::Highlight, QColor(250, 120, 0));
        chart.widget->setPalette(dark);
        const QImage picture = chart.picture();
        QCOMPARE(picture.pixelColor(490, 10), QColor(20, 20, 30));
        QCOMPARE(picture.pixelColor(300, 172), QColor(90, 90, 90));
        QCOMPARE(picture.pixelColor(256, 22), QColor(250, 120, 0));
        QSet<QRgb> zeroLine;
        for (int x = 300; x < 320; ++x)
            zeroLine.insert(picture.pixel(x, 122));
        QVERIFY(zeroLine.contains(qRgb(240, 240, 230)));
        QVERIFY(zeroLine.contains(qRgb(20, 20, 30)));
    }

    void valueThatIsNoNumberIsDrawnAsZero()
    {
        const Workspace workspace;
        QCOMPARE(Chart(weekly({8.0, notANumber, infinite})).picture(),
                 Chart(weekly({8.0, 0.0, 0.0})).picture());
    }

    void fontMeasuredInPixelsServesToo()
    {
        const Workspace workspace;
        const Chart chart(weekly({1e12}));
        QFont font = chart.widget->font();
        font.setPixelSize(14);
        chart.widget->setFont(font);
        const QImage picture = chart.picture();
        QCOMPARE(labelsIn(picture), 1);
        QVERIFY(extent(picture, Text, QRect(0, 10, 80, 25)).left() >= 6);
    }
};

TEST_CLASS(tst_SharedLineChartWidget)
#include "tst_SharedLineChartWidget.moc"
