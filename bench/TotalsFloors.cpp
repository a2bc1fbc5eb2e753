#include "bench/TotalsFloors.h"

#include "bench/BareParts.h"
#include "data/SqlStatement.h"
#include "reports/charts/ReportChartGeometry.h"

#include <QPainter>
#include <QPainterPath>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;
using namespace BareParts;
using namespace ReportChartGeometry;

namespace {

constexpr auto countTrips = "SELECT COUNT(*) FROM trips WHERE %1"_L1;

constexpr auto sumTrips = "SELECT SUM(CAST(COALESCE(%1,0) AS REAL)) FROM trips WHERE %2"_L1;

constexpr auto sumItems = R"(
SELECT SUM(CAST(COALESCE(amount,0) AS REAL)) FROM settlement_non_trip_items
WHERE %1 AND LOWER(TRIM(COALESCE(kind,''))) = '%2')"_L1;

constexpr auto selectItems = R"(
SELECT TRIM(COALESCE(settlement_date,'')) AS settlement_date,
       LOWER(TRIM(COALESCE(kind,''))) AS kind, TRIM(COALESCE(name,'')) AS name,
       CAST(COALESCE(amount,0) AS REAL) AS amount
FROM settlement_non_trip_items WHERE 1=1 AND %1
ORDER BY settlement_date ASC, kind ASC, name ASC, id ASC)"_L1;

constexpr auto selectPurchases = R"(
SELECT TRIM(COALESCE(t.payweek,'')) AS payweek, TRIM(COALESCE(t.trip_no,'')) AS trip_no,
       TRIM(COALESCE(tdi.item_type,'')) AS item_type,
       CAST(COALESCE(tdi.cost,0) AS REAL) AS cost,
       CAST(COALESCE(tdi.discount,0) AS REAL) AS discount,
       CAST(COALESCE(tdi.gallons,0) AS REAL) AS gallons
FROM trip_detail_items tdi JOIN trips t ON t.id = tdi.trip_id
WHERE LOWER(TRIM(COALESCE(tdi.group_name,''))) = 'fuel' AND %1
ORDER BY t.payweek ASC, t.trip_no ASC, tdi.id ASC)"_L1;

constexpr auto tableProbe = R"(
SELECT name FROM sqlite_master WHERE type = 'table' AND name = ?)"_L1;

constexpr auto isOfYear = "SUBSTR(TRIM(COALESCE(%1,'')), 7, 4) = ?"_L1;
constexpr auto isOfPayweek = "TRIM(COALESCE(%1,'')) = ?"_L1;

QString itemsTable()
{
    return u"settlement_non_trip_items"_s;
}

QStringList statementsOf(TotalsFloors::Record record, const QString &scope)
{
    const QString trips = scope.arg("payweek"_L1);
    const QString items = scope.arg("settlement_date"_L1);
    switch (record) {
    case TotalsFloors::Record::Summary:
        return {QString(countTrips).arg(trips),
                QString(sumTrips).arg("total_revenue"_L1, trips),
                QString(sumTrips).arg("total_cost"_L1, trips),
                QString(sumTrips).arg("total_miles"_L1, trips),
                QString(sumItems).arg(items, "revenue"_L1),
                QString(sumItems).arg(items, "expense"_L1)};
    case TotalsFloors::Record::Items:
        return {QString(selectItems).arg(items)};
    case TotalsFloors::Record::Fuel:
        break;
    }
    return {QString(selectPurchases).arg(scope.arg("t.payweek"_L1))};
}

QStringList tablesOf(TotalsFloors::Record record)
{
    return record == TotalsFloors::Record::Fuel ? QStringList{u"trips"_s, u"trip_detail_items"_s}
                                                : QStringList{itemsTable()};
}

void read(const QSqlDatabase &trips, TotalsFloors::Record record, const QString &scope,
          const QStringList &keys)
{
    for (const QString &table : tablesOf(record))
        rowsOf(trips, tableProbe, {table});
    std::vector<std::unique_ptr<SqlStatement>> statements;
    for (const QString &sql : statementsOf(record, scope))
        statements.push_back(std::make_unique<SqlStatement>(trips, sql));
    for (const QString &key : keys) {
        for (const std::unique_ptr<SqlStatement> &statement : statements)
            readAll(*statement, {key});
    }
}

} // namespace

namespace TotalsFloors {

void year(const QSqlDatabase &trips, const QString &year)
{
    for (const Record record : {Record::Summary, Record::Items, Record::Items, Record::Fuel})
        read(trips, record, isOfYear, {year});
}

void payweeks(const QSqlDatabase &trips, Record record, const QStringList &payweeks)
{
    read(trips, record, isOfPayweek, payweeks);
}

Chart::Chart(const ReportSeriesData &report, bool drawsBars, const QSize &canvasSize,
             const QFont &chartFont)
    : bars(drawsBars)
    , canvas(canvasSize)
    , font(chartFont)
    , plot(plotRect(canvasSize))
    , names(report.series.keys())
{
    for (const qsizetype payweek : labelledPayweeks(report.payweeks.size(), plot.width()))
        labels.append(report.payweeks.at(payweek).left(5));
    addSeries(report);
}

void Chart::addSeries(const ReportSeriesData &report)
{
    const ValueRange range = valueRange(report.series, bars);
    const qsizetype count = report.payweeks.size();
    for (const QList<double> &values : report.series) {
        QList<QPointF> points;
        QList<QRectF> rects;
        for (qsizetype i = 0; i < count; ++i) {
            points.append({lineX(i, count, plot), heightOf(values.at(i), range, plot)});
            rects.append(barRect(i, count, barsOfSeries.size(), report.series.size(), values.at(i),
                                 range, plot));
        }
        lines.append(points);
        barsOfSeries.append(rects);
    }
}

void Chart::draw() const
{
    QPixmap pixmap(canvas);
    pixmap.fill(Qt::white);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(font);
    painter.drawText(QRectF(0, 14, canvas.width(), 30), Qt::AlignCenter, u"Compare CPMs - 2025"_s);
    painter.fillRect(plot, QColor(250, 250, 250));
    for (int i = 0; i < 6; ++i)
        painter.drawLine(QPointF(plot.left(), 60 + 50 * i), QPointF(plot.right(), 60 + 50 * i));
    painter.drawRect(plot);
    drawSeries(painter);
    drawTexts(painter);
}

void Chart::drawSeries(QPainter &painter) const
{
    for (qsizetype series = 0; series < names.size(); ++series) {
        painter.setPen(QPen(Qt::darkBlue, 2));
        if (bars) {
            painter.setBrush(Qt::lightGray);
            for (const QRectF &bar : barsOfSeries.at(series))
                painter.drawRect(bar);
            continue;
        }
        QPainterPath path;
        for (qsizetype i = 1; i < lines.at(series).size(); ++i) {
            path.moveTo(lines.at(series).at(i - 1));
            path.lineTo(lines.at(series).at(i));
        }
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(path);
        painter.setBrush(Qt::white);
        for (const QPointF &point : lines.at(series))
            painter.drawEllipse(point, 4.0, 4.0);
    }
}

// The values of the axis, the turned labels of the weeks, and the legend.
void Chart::drawTexts(QPainter &painter) const
{
    painter.setPen(Qt::black);
    for (int i = 0; i < 6; ++i)
        painter.drawText(QRectF(4, 50 + 50 * i, 74, 18), Qt::AlignRight, u"$12345.67"_s);
    for (qsizetype i = 0; i < labels.size(); ++i) {
        painter.save();
        painter.translate(plot.left() + 70.0 * static_cast<double>(i), plot.bottom() + 46);
        painter.rotate(-45);
        painter.drawText(QPointF(), labels.at(i));
        painter.restore();
    }
    for (qsizetype i = 0; i < names.size(); ++i) {
        const double x = plot.left() + 300.0 * static_cast<double>(i);
        painter.fillRect(QRectF(x, canvas.height() - 52, 12, 8), Qt::darkBlue);
        painter.drawText(QPointF(x + 28, canvas.height() - 42), names.at(i));
    }
}

} // namespace TotalsFloors
