// Pay Totals and Reports beside their floors. Run it in a folder with the 20-year sample, whose
// year 2025 it fills to 53 payweeks.

#include "bench/BareParts.h"
#include "bench/Ratio.h"
#include "bench/ShownPage.h"
#include "bench/TotalsFloors.h"
#include "data/DatabaseLocator.h"
#include "data/OneCallConnection.h"
#include "reports/ReportsRepository.h"
#include "reports/charts/ChartHover.h"
#include "reports/charts/ReportChartGeometry.h"
#include "reports/totals/PayTotalsPage.h"
#include "reports/totals/PayTotalsRepository.h"
#include "reports/totals/WeeklyMetrics.h"
#include "samples/SampleBusiness.h"
#include "samples/SampleWriter.h"

#include <QComboBox>
#include <QDate>
#include <QGraphicsPixmapItem>
#include <QGraphicsView>
#include <QMouseEvent>
#include <QPushButton>
#include <QSqlDatabase>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using BareParts::execute;
using TotalsFloors::Record;

namespace {

const QString year = u"2025"_s;
constexpr int rounds = 25;
constexpr int mouseMoves = 1000;

void addPayweek(const QSqlDatabase &trips, const QString &payweek)
{
    execute(trips,
            u"INSERT INTO trips (trip_no, payweek, empty_miles, loaded_miles, total_miles, "
            "total_revenue, total_cost, net_revenue) VALUES ('9100001', ?, 120, 880, 1000, 2100, "
            "900, 1200)"_s,
            {payweek});
    execute(trips, u"INSERT INTO trip_detail_items (trip_id, group_name, item_type, cost, "
                   "discount, gallons) SELECT MAX(id), 'fuel', 'Truck Fuel', 400, 25, 100 FROM "
                   "trips"_s);
    execute(trips,
            u"INSERT INTO settlement_non_trip_items (settlement_date, kind, name, amount) VALUES "
            "(?, 'expense', 'Truck Lease', 800)"_s,
            {payweek});
}

// The weeks without a load, and one more than the year has: a settlement that came early.
void fillYear(const QSqlDatabase &trips)
{
    const QStringList present = PayTotalsRepository::listTotalsPayweeks(trips, year);
    QStringList wanted = {u"12/31/2025"_s};
    for (QDate friday(2025, 1, 3); friday.year() == 2025; friday = friday.addDays(7))
        wanted.append(friday.toString(u"MM/dd/yyyy"_s));
    for (const QString &payweek : std::as_const(wanted)) {
        if (!present.contains(payweek))
            addPayweek(trips, payweek);
    }
}

void benchPage(const BrindlepathApp &window, const QSqlDatabase &trips)
{
    auto *page = shownPage<PayTotalsPage>(window);
    page->findChild<QComboBox *>(u"totalsYear"_s)->setCurrentText(year);
    auto *refresh = page->findChild<QPushButton *>(u"refreshTotalsButton"_s);
    print(measured(
        u"Refresh of the totals of a year"_s, 2.0, rounds, [refresh] { refresh->click(); },
        [&trips] { TotalsFloors::year(trips, year); }));
}

Ratio breakdown(const QSqlDatabase &trips, const QString &key, Record record, const QString &file)
{
    const QStringList payweeks = PayTotalsRepository::listTotalsPayweeks(trips, year);
    return measured(
        u"Breakdown of %1 by %2 weeks, %3"_s.arg(key).arg(payweeks.size()).arg(file), 2.0, rounds,
        [&] {
            WeeklyMetrics::text(PayTotalsRepository::weeklyMetricLabel(key), year,
                                PayTotalsRepository::loadWeeklyMetric(trips, year, key));
        },
        [&] { TotalsFloors::payweeks(trips, record, payweeks); });
}

void benchBreakdowns(const QSqlDatabase &twentyYears, const QSqlDatabase &threeYears)
{
    const QList<std::pair<QString, Record>> metrics = {{u"net_revenue"_s, Record::Summary},
                                                       {u"tire_fund_net"_s, Record::Items},
                                                       {u"truck_fuel_net"_s, Record::Fuel}};
    for (const auto &[key, record] : metrics) {
        const Ratio many = breakdown(twentyYears, key, record, u"20 years"_s);
        const Ratio few = breakdown(threeYears, key, record, u"3 years"_s);
        print(many);
        print(few);
        print(
            {u"Breakdown of %1, 20 years beside 3"_s.arg(key), 2.0, many.productMs, few.productMs});
    }
}

void benchBreakdowns(const QSqlDatabase &twentyYears)
{
    const QTemporaryDir folder;
    QString error;
    if (!writeSampleFiles(folder.path(), makeSampleBusiness(3, 1), error))
        qFatal("%s", qPrintable(error));
    const OneCallConnection threeYears(u"three_years"_s,
                                       folder.filePath(DatabaseLocator::tripsFileName), error);
    fillYear(threeYears.database());
    benchBreakdowns(twentyYears, threeYears.database());
}

ReportChart drawn(const ReportSeriesData &report, const QString &key, const QSize &canvas)
{
    return ReportChart::draw(report, key, canvas, QApplication::font(), 1.0);
}

void benchChart(const ReportSeriesData &report, const QString &key, const QSize &canvas)
{
    const TotalsFloors::Chart floor(report, key != "cpms"_L1, canvas, QApplication::font());
    print(measured(
        u"Chart of %1, %2 weeks"_s.arg(key).arg(report.payweeks.size()), 1.5, rounds,
        [&] { drawn(report, key, canvas); }, [&floor] { floor.draw(); }));
}

// A thousand of them, because one takes less than a clock tells.
void moveMouse(QWidget *viewport, const QPointF &from, const QPointF &to)
{
    for (int i = 0; i < mouseMoves; ++i) {
        const QPointF point = from + (to - from) * i / mouseMoves;
        QMouseEvent move(QEvent::MouseMove, point, viewport->mapToGlobal(point), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &move);
    }
}

void benchHover(const ReportSeriesData &report, const QString &key, const QSize &canvas)
{
    const ReportChart chart = drawn(report, key, canvas);
    QGraphicsScene scene;
    scene.addPixmap(chart.pixmap);
    QGraphicsView view(&scene);
    view.setFrameShape(QFrame::NoFrame);
    view.resize(canvas);
    view.show();
    ChartHover hover(&view);
    hover.setHitRegions(chart.hitRegions);
    const QPointF point = view.mapFromScene(chart.hitRegions.at(20).rect.center());
    const QPointF left(0, point.y());
    const QPointF right(canvas.width(), point.y());
    const auto repaint = [&] { drawn(report, key, canvas); };
    print(measured(
        u"1,000 mouse moves on one point of %1, beside a repaint"_s.arg(key), 1.0, rounds,
        [&] { moveMouse(view.viewport(), point, point + QPointF(1, 1)); }, repaint));
    print(measured(
        u"1,000 mouse moves across %1, beside a repaint"_s.arg(key), 1.0, rounds,
        [&] { moveMouse(view.viewport(), left, right); }, repaint));
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    BrindlepathApp window;
    show(window);
    printHeader();
    const QSqlDatabase trips = QSqlDatabase::database(u"pay_totals_trips_connection"_s);
    fillYear(trips);
    benchPage(window, trips);
    benchBreakdowns(trips);
    const QSize canvas = ReportChartGeometry::canvasSize({1000, 700});
    for (const QString &key : {u"cpms"_s, u"rev_cost_net"_s}) {
        const ReportSeriesData report = ReportsRepository::loadReportSeries(year, key);
        benchChart(report, key, canvas);
        benchHover(report, key, canvas);
    }
    return 0;
}
