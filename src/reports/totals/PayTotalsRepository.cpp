#include "reports/totals/PayTotalsRepository.h"

#include "data/DatabaseLocator.h"
#include "reports/totals/PayTotalsReaders.h"
#include "reports/totals/WeeklyMetrics.h"

using namespace Qt::StringLiterals;

namespace PayTotalsRepository {

using namespace PayTotalsReaders;

namespace {

constexpr auto selectYears = R"(
SELECT DISTINCT SUBSTR(TRIM(COALESCE(payweek,'')), 7, 4) AS year_value
FROM trips
WHERE LENGTH(TRIM(COALESCE(payweek,''))) >= 10
  AND SUBSTR(TRIM(COALESCE(payweek,'')), 7, 4) GLOB '[0-9][0-9][0-9][0-9]'
ORDER BY year_value)"_L1;

constexpr auto selectPayweeks = R"(
SELECT DISTINCT TRIM(COALESCE(payweek,'')) AS payweek_value
FROM trips
WHERE SUBSTR(TRIM(COALESCE(payweek,'')), 7, 4) = ?
  AND TRIM(COALESCE(payweek,'')) <> ''
ORDER BY payweek_value)"_L1;

QStringList firstColumn(const QSqlDatabase &database, const QString &sql,
                        const QVariantList &bindValues)
{
    QStringList values;
    QString error;
    const bool ran = SqlStatement(database, sql)
                         .forEachRow(bindValues, error, [&values](const SqlStatement &row) {
                             values.append(row.text(0));
                         });
    return ran ? values : QStringList();
}

QString clauseOf(QLatin1StringView condition)
{
    return "AND "_L1 + condition;
}

PayTotalsSummary loadTotals(const QSqlDatabase &database, const Scope &scope, const QString &key)
{
    if (!database.isOpen() || key.isEmpty())
        return {};
    return SummaryReader(database, scope).load({key});
}

// What reads the record that a figure is taken from.
SummaryReader payweekReader(const QSqlDatabase &database, double (*)(const PayTotalsSummary &))
{
    return {database, payweekScope};
}

NonTripReader payweekReader(const QSqlDatabase &database, double (*)(const NonTripTotals &))
{
    return {database, clauseOf(payweekScope.items)};
}

FuelReader payweekReader(const QSqlDatabase &database, double (*)(const FuelTotals &))
{
    return {database, clauseOf(payweekScope.fuel)};
}

void fillSeries(const QSqlDatabase &database, const WeeklyMetrics::Figure &metricFigure,
                QList<ChartPoint> &series)
{
    std::visit(
        [&](auto figure) {
            auto reader = payweekReader(database, figure);
            for (ChartPoint &point : series)
                point.value = figure(reader.load({point.label.trimmed()}));
        },
        metricFigure);
}

} // namespace

QStringList listTotalsYears(const QSqlDatabase &database)
{
    if (!DatabaseLocator::tableExists(database, u"trips"_s))
        return {};
    return firstColumn(database, selectYears, {});
}

QStringList listTotalsPayweeks(const QSqlDatabase &database, const QString &year)
{
    const QString key = year.trimmed();
    if (key.isEmpty() || !DatabaseLocator::tableExists(database, u"trips"_s))
        return {};
    return firstColumn(database, selectPayweeks, {key});
}

PayTotalsSummary loadYearTotals(const QSqlDatabase &database, const QString &year)
{
    return loadTotals(database, yearScope, year.trimmed());
}

PayTotalsSummary loadPayweekTotals(const QSqlDatabase &database, const PayweekKey &payweek)
{
    return loadTotals(database, payweekScope, payweek.trimmed());
}

NonTripTotals loadYearNonTripTotals(const QSqlDatabase &database, const QString &year)
{
    const QString key = year.trimmed();
    if (key.isEmpty())
        return {};
    return loadNonTripTotals(database, clauseOf(yearScope.items), {key});
}

NonTripTotals loadPayweekNonTripTotals(const QSqlDatabase &database, const PayweekKey &payweek)
{
    const QString key = payweek.trimmed();
    if (key.isEmpty())
        return {};
    return loadNonTripTotals(database, clauseOf(payweekScope.items), {key});
}

NonTripTotals loadNonTripTotals(const QSqlDatabase &database, const QString &scopeClause,
                                const QVariantList &bindValues)
{
    return NonTripReader(database, scopeClause).load(bindValues);
}

FuelTotals loadYearFuelTotals(const QSqlDatabase &database, const QString &year)
{
    const QString key = year.trimmed();
    if (key.isEmpty())
        return {};
    return loadFuelTotals(database, clauseOf(yearScope.fuel), {key});
}

FuelTotals loadPayweekFuelTotals(const QSqlDatabase &database, const PayweekKey &payweek)
{
    const QString key = payweek.trimmed();
    if (key.isEmpty())
        return {};
    return loadFuelTotals(database, clauseOf(payweekScope.fuel), {key});
}

FuelTotals loadFuelTotals(const QSqlDatabase &database, const QString &scopeClause,
                          const QVariantList &bindValues)
{
    return FuelReader(database, scopeClause).load(bindValues);
}

QString weeklyMetricLabel(const QString &key)
{
    const WeeklyMetrics::Metric *metric = WeeklyMetrics::find(key);
    return metric ? QString(metric->label) : key;
}

QList<ChartPoint> loadWeeklyMetric(const QSqlDatabase &database, const QString &year,
                                   const QString &key)
{
    if (WeeklyMetrics::normalizedKey(key).isEmpty())
        return {};
    QList<ChartPoint> series;
    for (const QString &payweek : listTotalsPayweeks(database, year))
        series.append({payweek, 0.0});
    if (const WeeklyMetrics::Metric *metric = WeeklyMetrics::find(key))
        fillSeries(database, metric->figure, series);
    return series;
}

QString formatWeeklyMetricText(const QSqlDatabase &database, const QString &year,
                               const QString &key)
{
    return WeeklyMetrics::text(weeklyMetricLabel(key), year, loadWeeklyMetric(database, year, key));
}

} // namespace PayTotalsRepository
