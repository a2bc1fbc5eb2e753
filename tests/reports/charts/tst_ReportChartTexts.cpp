#include "reports/charts/ReportPicture.h"
#include "support/TestProgram.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

/// A blank canvas with what `write` puts on it.
template <typename Write>
QImage canvasWith(int pointSize, Write write)
{
    QPixmap canvas(least);
    canvas.fill(Qt::white);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(textFont(pointSize));
    write(painter);
    painter.end();
    return canvas.toImage().convertToFormat(QImage::Format_RGB32);
}

const QRect axisArea(0, 40, 80, 445);
const QString zero = u"$0.00"_s;

/// What stands beside the grid lines when these are the texts of the axis.
QImage axisWith(const QStringList &texts, int pointSize)
{
    const QImage canvas = canvasWith(pointSize, [&texts](QPainter &painter) {
        for (qsizetype line = 0; line < texts.size(); ++line)
            painter.drawText(QRectF(4, 45.0 + 416.0 * double(line) / 5.0, 74, 18),
                             Qt::AlignRight | Qt::AlignVCenter, texts.at(line));
    });
    return canvas.copy(axisArea);
}

const QRect labelArea(0, 485, 760, 60);

/// What stands under the plot when these are the labels of payweeks at these places.
QImage labelsAt(const QList<double> &payweekX, const QStringList &labels)
{
    const QImage canvas = canvasWith(11, [&payweekX, &labels](QPainter &painter) {
        for (qsizetype i = 0; i < labels.size(); ++i) {
            painter.save();
            painter.translate(payweekX.at(i) - 10, 470 + 46);
            painter.rotate(-45);
            painter.drawText(QPointF(), labels.at(i));
            painter.restore();
        }
    });
    return canvas.copy(labelArea);
}

} // namespace

/// What is written on a report: its title, its axes and its legend.
class tst_ReportChartTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void titleStandsInTheMiddleAboveThePlot()
    {
        const Workspace workspace;
        const QImage image = picture(lines(dollars({{u"A"_s, {5.0}}})));
        const QRect title = extent(image, QRect(0, 0, 760, 44), isDark);
        QVERIFY(QRect(0, 14, 760, 30).contains(title));
        QVERIFY(title.width() > 20);
        QVERIFY(std::abs(title.center().x() - 380) <= 2);
    }

    void titleIsThatOfTheReportInBold()
    {
        const Workspace workspace;
        ReportSeriesData report = dollars({{u"A"_s, {5.0}}});
        report.title = u"Revenue vs Cost"_s;
        const QRect top(0, 0, 760, 44);
        const QImage expected = canvasWith(12, [](QPainter &painter) {
            QFont bold = painter.font();
            bold.setBold(true);
            painter.setFont(bold);
            painter.drawText(QRectF(0, 14, 760, 30), Qt::AlignCenter, u"Revenue vs Cost"_s);
        });
        QCOMPARE(picture(lines(report)).copy(top), expected.copy(top));
    }

    void axisReadsSixValues()
    {
        const Workspace workspace;
        const QImage image = picture(lines(dollars({{u"A"_s, {5.0}}})));
        for (const int y : {54, 137, 220, 303, 386, 470}) {
            const QRect text = extent(image, QRect(0, y - 20, 80, 40), isDark);
            QVERIFY2(QRect(4, y - 10, 76, 20).contains(text), qPrintable(QString::number(y)));
            QVERIFY(text.right() >= 74);
        }
    }

    void axisFallsFromTheLargestValueToTheSmallest_data()
    {
        QTest::addColumn<QList<double>>("values");
        QTest::addColumn<QStringList>("axis");
        QTest::addColumn<int>("pointSize");
        using Values = QList<double>;
        QTest::newRow("above zero")
            << Values{50.0}
            << QStringList{u"$50.00"_s, u"$40.00"_s, u"$30.00"_s, u"$20.00"_s, u"$10.00"_s, zero}
            << 11;
        QTest::newRow("down to a zero that rounding misses")
            << Values{1.62}
            << QStringList{u"$1.62"_s, u"$1.30"_s, u"$0.97"_s, u"$0.65"_s, u"$0.32"_s, zero} << 11;
        QTest::newRow("on both sides of zero")
            << Values{-1000.0, 4000.0} << QStringList{u"$4000.00"_s, u"$3000.00"_s, u"$2000.00"_s,
                                                      u"$1000.00"_s, zero,          u"$-1000.00"_s}
            << 10;
    }

    void axisFallsFromTheLargestValueToTheSmallest()
    {
        QFETCH(const QList<double>, values);
        QFETCH(const QStringList, axis);
        QFETCH(const int, pointSize);
        const Workspace workspace;
        const QImage image = picture(bars(dollars({{u"A"_s, values}})));
        QCOMPARE(image.copy(axisArea), axisWith(axis, pointSize));
    }

    void textsAreNoSmallerThanEightPoints()
    {
        const Workspace workspace;
        const QImage image = picture(
            ReportChart::draw(dollars({{u"A"_s, {50.0}}}), u"miles"_s, least, textFont(6), 1.0));
        QCOMPARE(
            image.copy(axisArea),
            axisWith({u"$50.00"_s, u"$40.00"_s, u"$30.00"_s, u"$20.00"_s, u"$10.00"_s, zero}, 8));
    }

    void reportWithoutDataSaysSo_data()
    {
        QTest::addColumn<ReportSeriesData>("report");
        QTest::newRow("no payweeks") << dollars({{u"A"_s, {}}});
        ReportSeriesData report = dollars({});
        report.payweeks = QStringList(u"01/02/2026"_s);
        QTest::newRow("no series") << report;
    }

    void reportWithoutDataSaysSo()
    {
        QFETCH(const ReportSeriesData, report);
        const Workspace workspace;
        const ReportChart chart = lines(report);
        const QImage image = picture(chart);
        QVERIFY(extent(image, QRect(0, 14, 760, 30), isDark).isValid());
        const QRect text = extent(image, QRect(0, 50, 760, 570), isDark);
        QVERIFY(text.width() > 30);
        QVERIFY((text.center() - QPoint(380, 310)).manhattanLength() <= 4);
        QCOMPARE(image.pixelColor(100, 100), white);
        QCOMPARE(chart.hitRegions.size(), 0);
    }

    void everySwatchHasItsOwnNameBesideIt()
    {
        const Workspace workspace;
        const QImage image =
            picture(lines(dollars({{u"Gamma"_s, {5.0}}, {u"Alpha"_s, {5.0}}, {u"Beta"_s, {5.0}}})));
        const QImage expected = canvasWith(11, [](QPainter &painter) {
            painter.drawText(QPointF(114, 578), u"Alpha"_s);
            painter.drawText(QPointF(304, 578), u"Beta"_s);
            painter.drawText(QPointF(494, 578), u"Gamma"_s);
        });
        for (const QRect name :
             {QRect(100, 560, 170, 50), QRect(290, 560, 170, 50), QRect(480, 560, 170, 50)})
            QCOMPARE(image.copy(name), expected.copy(name));
    }

    void everyPayweekHasItsOwnLabel_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QList<double>>("payweekX");
        QTest::newRow("bars") << u"miles"_s << QList<double>{86 + 638 / 6.0, 405, 86 + 638 / 1.2};
        QTest::newRow("lines") << u"cpms"_s << QList<double>{86, 405, 724};
    }

    void everyPayweekHasItsOwnLabel()
    {
        QFETCH(const QString, key);
        QFETCH(const QList<double>, payweekX);
        const Workspace workspace;
        const ReportSeriesData report = dollars({{u"A"_s, {5.0, 6.0, 7.0}}});
        const QImage image = picture(ReportChart::draw(report, key, least, textFont(), 1.0));
        QCOMPARE(image.copy(labelArea), labelsAt(payweekX, {u"01-02"_s, u"01-09"_s, u"01-16"_s}));
    }

    void onlyEverySixthAndTheLastOfFiftyThreePayweeksHaveALabel_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<double>("first");
        QTest::addColumn<double>("distance");
        QTest::newRow("bars") << u"miles"_s << 86 + 638 / 106.0 << 638 / 53.0;
        QTest::newRow("lines") << u"cpms"_s << 86.0 << 638 / 52.0;
    }

    void onlyEverySixthAndTheLastOfFiftyThreePayweeksHaveALabel()
    {
        QFETCH(const QString, key);
        QFETCH(const double, first);
        QFETCH(const double, distance);
        const Workspace workspace;
        const ReportSeriesData report = dollars({{u"A"_s, zigzag(53)}});
        const QImage image = picture(ReportChart::draw(report, key, least, textFont(), 1.0));
        QList<double> labelX;
        for (const int payweek : {0, 6, 12, 18, 24, 30, 36, 42, 48, 52})
            labelX.append(first + payweek * distance);
        QCOMPARE(image.copy(labelArea),
                 labelsAt(labelX, {u"01-02"_s, u"02-13"_s, u"03-27"_s, u"05-08"_s, u"06-19"_s,
                                   u"07-31"_s, u"09-11"_s, u"10-23"_s, u"12-04"_s, u"01-01"_s}));
    }

    void labelsStandBelowTheirPayweeks()
    {
        const Workspace workspace;
        const QRect below(0, 480, 760, 60);
        const QImage line = picture(lines(dollars({{u"A"_s, {5.0}}})));
        const QRect label = extent(line, below, isDark);
        QVERIFY2(QRect(385, 480, 50, 40).contains(label), qPrintable(QString::number(label.top())));
        QVERIFY(label.height() > 15);
        const QImage bar = picture(bars(dollars({{u"A"_s, {5.0, 6.0}}})));
        QVERIFY(extent(bar, QRect(225, 480, 50, 40), isDark).isValid());
        QVERIFY(extent(bar, QRect(544, 480, 50, 40), isDark).isValid());
        QCOMPARE(extent(bar, QRect(300, 480, 220, 40), isDark), QRect());
    }

    void textsKeepApartAtALargeScale()
    {
        const Workspace workspace;
        const QImage image = picture(lines(dollars({{u"Net Revenue CPM"_s, zigzag(53)},
                                                    {u"Total Revenue CPM"_s, zigzag(53)},
                                                    {u"Trip Revenue CPM"_s, zigzag(53)}}),
                                           17));
        // In front of the swatches at 276 and 466, and inside of the plot's lower edge.
        QCOMPARE(extent(image, QRect(270, 560, 5, 30), isDark), QRect());
        QCOMPARE(extent(image, QRect(460, 560, 5, 30), isDark), QRect());
        const auto isBlack = [](const QColor &color) { return color.lightness() < 20; };
        QCOMPARE(extent(image, QRect(90, 450, 630, 18), isBlack), QRect());
    }

    void trillionsAreNotCutOff_data()
    {
        QTest::addColumn<int>("pointSize");
        QTest::newRow("small scale") << 8;
        QTest::newRow("large scale") << 17;
    }

    void trillionsAreNotCutOff()
    {
        QFETCH(const int, pointSize);
        const Workspace workspace;
        const QImage image = picture(lines(dollars({{u"A"_s, {-1e12, 1e12}}}), pointSize));
        const QRect text = extent(image, QRect(0, 40, 82, 440), isDark);
        QVERIFY2(text.left() >= 2, qPrintable(QString::number(text.left())));
        QVERIFY(text.width() > 50);
    }
};

TEST_CLASS(tst_ReportChartTexts)
#include "tst_ReportChartTexts.moc"
