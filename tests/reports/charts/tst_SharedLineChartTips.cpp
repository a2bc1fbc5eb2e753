#include "reports/charts/LineChartWindow.h"
#include "reports/charts/TipReaders.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "support/surroundings/DefaultLocale.h"

#include <QLocale>
#include <QMouseEvent>
#include <QTest>
#include <QToolTip>
#include <QWindow>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// A chart that the mouse is not on yet.
struct HoveredChart : LineChartWindow
{
    explicit HoveredChart(const QList<ChartPoint> &points)
        : LineChartWindow(points)
    {
        // The mouse may rest where another test left it, and there a move would be none.
        QTest::mouseMove(window.windowHandle(), {890, 590});
    }

    /// Moves the mouse, no button held, and gives the tooltip that comes up.
    [[nodiscard]] QString pointsAt(const QPoint &position) const { return tipAt(window, position); }
};

} // namespace

/// What a line chart tells of its points under the mouse.
class tst_SharedLineChartTips : public QObject
{
    Q_OBJECT

    const DefaultLocale american{u"en_US"_s};

private Q_SLOTS:
    void cleanup()
    {
        QToolTip::hideText();
        QTRY_VERIFY(!QToolTip::isVisible());
    }

    void tooltipTellsLabelAndValueAsCurrency_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<QString>("tip");
        QTest::newRow("United States")
            << QLocale(QLocale::English, QLocale::UnitedStates) << u"01/10/2026\n$1,234.50"_s;
        QTest::newRow("Germany") << QLocale(QLocale::German, QLocale::Germany)
                                 << u"01/10/2026\n1.234,50\u00A0\u20AC"_s;
    }

    void tooltipTellsLabelAndValueAsCurrency()
    {
        QFETCH(const QLocale, locale);
        const Workspace workspace;
        const DefaultLocale shown(locale);
        const HoveredChart chart(weekly({0.0, 1234.5, 0.0}));
        QTEST(chart.pointsAt({256, 22}), "tip");
    }

    void tooltipComesUpWithinReachOfAPointOnly()
    {
        const Workspace workspace;
        const HoveredChart chart(weekly({0.0, 9.0, 0.0}));
        QCOMPARE(chart.pointsAt({256, 33}), QString());
        QCOMPARE(chart.pointsAt({256, 32}), u"01/10/2026\n$9.00"_s);
        QCOMPARE(chart.pointsAt({418, 166}), u"01/17/2026\n$0.00"_s);
        QTest::mouseMove(chart.window.windowHandle(), {300, 150});
        QTRY_VERIFY(!QToolTip::isVisible());
    }

    void tooltipIsWhereThePointIsAfterAResize()
    {
        const Workspace workspace;
        const HoveredChart chart(weekly({0.0, 9.0, 0.0}));
        chart.widget->resize(600, 360);
        QCoreApplication::processEvents();
        QCOMPARE(chart.pointsAt({256, 22}), QString());
        QCOMPARE(chart.pointsAt({306, 22}), u"01/10/2026\n$9.00"_s);
    }

    void mouseThatLeavesTheChartHidesTheTooltip()
    {
        const Workspace workspace;
        const HoveredChart chart(weekly({0.0, 9.0, 0.0}));
        QCOMPARE(chart.pointsAt({426, 172}), u"01/17/2026\n$0.00"_s);
        QTest::mouseMove(chart.window.windowHandle(), {700, 400});
        QTRY_VERIFY(!QToolTip::isVisible());
    }

    // Qt takes a tooltip down by itself wherever it sees a mouse leave, so it is not to see this.
    void chartThatTheMouseLeftHidesTheTooltipItself()
    {
        const Workspace workspace;
        const HoveredChart chart(weekly({0.0, 9.0, 0.0}));
        QCOMPARE(chart.pointsAt({426, 172}), u"01/17/2026\n$0.00"_s);
        QEvent leave(QEvent::Leave);
        static_cast<QObject *>(chart.widget)->event(&leave);
        QTRY_VERIFY(!QToolTip::isVisible());
    }

    void noTooltipComesUpBeforeTheFirstPaint()
    {
        const Workspace workspace;
        SharedLineChartWidget chart(weekly({5}));
        chart.resize(500, 260);
        QMouseEvent move(QEvent::MouseMove, QPointF(256, 22), QPointF(256, 22), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&chart, &move);
        QVERIFY(!QToolTip::isVisible());
        chart.grab();
        QApplication::sendEvent(&chart, &move);
        QVERIFY(QToolTip::isVisible());
    }

    // The chart lies away from the corner of its window, and the window from that of the screen.
    void tooltipComesUpBesideTheMouse()
    {
        const Workspace workspace;
        HoveredChart chart(weekly({0.0, 9.0, 0.0}));
        chart.window.move(250, 300);
        chart.widget->move(100, 50);
        QCoreApplication::processEvents();
        QCOMPARE(chart.pointsAt({356, 72}), u"01/10/2026\n$9.00"_s);
        const QPoint distance = tipDistance(chart.window, {356, 72});
        QVERIFY2(QRect(0, 0, 40, 40).contains(distance),
                 qPrintable(u"%1, %2"_s.arg(distance.x()).arg(distance.y())));
    }

    void everyOneOfFiftyTwoPointsHasItsTooltip()
    {
        const Workspace workspace;
        const HoveredChart chart(wavesOf(52));
        QCOMPARE(chart.pointsAt({199, 122}), u"05/02/2026\n$100.00"_s);
        QStringList tips;
        for (int week = 0; week < 52; ++week)
            tips.append(chart.pointsAt({86 + week * 340 / 51, 172 - 50 * (week % 4)}));
        tips.removeDuplicates();
        QCOMPARE(tips.size(), 52);
    }

    void valueThatIsNoNumberIsToldAsZero()
    {
        const Workspace workspace;
        const HoveredChart chart(weekly({8.0, std::numeric_limits<double>::quiet_NaN(),
                                         std::numeric_limits<double>::infinity()}));
        QCOMPARE(chart.pointsAt({256, 172}), u"01/10/2026\n$0.00"_s);
        QCOMPARE(chart.pointsAt({426, 172}), u"01/17/2026\n$0.00"_s);
    }

    void withoutPointsNoTooltipComesUp()
    {
        const Workspace workspace;
        const HoveredChart chart(QList<ChartPoint>{});
        QCOMPARE(chart.pointsAt({250, 97}), QString());
    }
};

TEST_CLASS(tst_SharedLineChartTips)
#include "tst_SharedLineChartTips.moc"
