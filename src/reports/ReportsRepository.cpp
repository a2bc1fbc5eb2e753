#include "reports/ReportsRepository.h"

#include "data/DatabaseLocator.h"
#include "data/MoneyText.h"
#include "data/SqlStatement.h"

using namespace Qt::StringLiterals;

namespace ReportsRepository {

namespace {

constexpr auto selectYears = R"(
SELECT DISTINCT SUBSTR(TRIM(COALESCE(payweek,'')), -4) AS y
FROM trips
WHERE TRIM(COALESCE(payweek,'')) <> ''
  AND LENGTH(TRIM(COALESCE(payweek,''))) >= 4
ORDER BY y)"_L1;

constexpr auto selectPayweeks = R"(
SELECT TRIM(COALESCE(payweek,'')) AS pw,
       SUM(COALESCE(linehaul,0) + COALESCE(fusu,0)) AS trip_revenue,
       SUM(COALESCE(total_revenue,0)) AS total_revenue,
       SUM(COALESCE(total_cost,0)) AS total_cost,
       SUM(COALESCE(net_revenue,0)) AS net_revenue,
       SUM(COALESCE(loaded_miles,0)) AS loaded_miles,
       SUM(COALESCE(empty_miles,0)) AS empty_miles,
       SUM(COALESCE(total_miles,0)) AS total_miles
FROM trips
WHERE SUBSTR(TRIM(COALESCE(payweek,'')), -4) = ?
GROUP BY TRIM(COALESCE(payweek,''))
ORDER BY pw)"_L1;

/// The sums of one payweek: dollars and miles.
struct PayweekSums
{
    QString payweek;
    double tripRevenue = 0.0;
    double totalRevenue = 0.0;
    double totalCost = 0.0;
    double netRevenue = 0.0;
    double loadedMiles = 0.0;
    double emptyMiles = 0.0;
    double totalMiles = 0.0;
};

struct Series
{
    QString name;
    double PayweekSums::*sum;
    /// Dollars per mile of `sum` instead of the sum itself.
    bool isPerMile = false;
};

struct Report
{
    QString title;
    QString yAxisLabel;
    QList<Series> series;
    bool valuesAreDollars = false;
    bool valuesAreMiles = false;
};

Report reportOf(const QString &key)
{
    if (key == "cpm"_L1 || key == ReportKey::compareCpms)
        return {.title = u"Compare CPMs"_s,
                .yAxisLabel = u"$/mile"_s,
                .series = {{u"Trip Revenue CPM"_s, &PayweekSums::tripRevenue, true},
                           {u"Total Revenue CPM"_s, &PayweekSums::totalRevenue, true},
                           {u"Net Revenue CPM"_s, &PayweekSums::netRevenue, true}},
                .valuesAreDollars = true};
    if (key == ReportKey::miles)
        return {.title = u"Miles (Loaded / Empty / Total)"_s,
                .yAxisLabel = u"Miles"_s,
                .series = {{u"Loaded Miles"_s, &PayweekSums::loadedMiles},
                           {u"Empty Miles"_s, &PayweekSums::emptyMiles},
                           {u"Total Miles"_s, &PayweekSums::totalMiles}},
                .valuesAreMiles = true};
    if (key == ReportKey::revenueAndMiles || key == "revenue miles"_L1)
        return {.title = u"Revenue vs Miles"_s,
                .yAxisLabel = u"Scaled values"_s,
                .series = {{u"Total Revenue"_s, &PayweekSums::totalRevenue},
                           {u"Total Miles"_s, &PayweekSums::totalMiles}}};
    return {.title = u"Revenue vs Cost vs Net"_s,
            .yAxisLabel = u"Dollars"_s,
            .series = {{u"Total Revenue"_s, &PayweekSums::totalRevenue},
                       {u"Total Cost"_s, &PayweekSums::totalCost},
                       {u"Net Revenue"_s, &PayweekSums::netRevenue}},
            .valuesAreDollars = true};
}

// A damaged file may hold figures beyond any amount.
PayweekSums sumsOf(const SqlStatement &row)
{
    PayweekSums sums{.payweek = row.text(0).trimmed(),
                     .tripRevenue = amountOrZero(row.number(1)),
                     .totalRevenue = amountOrZero(row.number(2)),
                     .totalCost = amountOrZero(row.number(3)),
                     .netRevenue = amountOrZero(row.number(4)),
                     .loadedMiles = amountOrZero(row.number(5)),
                     .emptyMiles = amountOrZero(row.number(6)),
                     .totalMiles = amountOrZero(row.number(7))};
    if (sums.totalMiles <= 0.0 && (sums.loadedMiles > 0.0 || sums.emptyMiles > 0.0))
        sums.totalMiles = sums.loadedMiles + sums.emptyMiles;
    return sums;
}

ReportSeriesData emptyReport(const Report &report)
{
    ReportSeriesData data;
    data.title = report.title;
    data.yAxisLabel = report.yAxisLabel;
    data.valuesAreDollars = report.valuesAreDollars;
    data.valuesAreMiles = report.valuesAreMiles;
    for (const Series &series : report.series) {
        data.series.insert(series.name, {});
        if (series.isPerMile) {
            data.weightedNumerators.insert(series.name, 0.0);
            data.weightedDenominators.insert(series.name, 0.0);
        }
    }
    return data;
}

void append(const PayweekSums &sums, const Report &report, ReportSeriesData &data)
{
    data.payweeks.append(sums.payweek);
    const bool hasMiles = sums.totalMiles > 0.0;
    for (const Series &series : report.series) {
        const double sum = sums.*series.sum;
        if (!series.isPerMile) {
            data.series[series.name].append(sum);
            continue;
        }
        data.series[series.name].append(hasMiles ? amountOrZero(sum / sums.totalMiles) : 0.0);
        data.weightedNumerators[series.name] += hasMiles ? sum : 0.0;
        data.weightedDenominators[series.name] += hasMiles ? sums.totalMiles : 0.0;
    }
}

} // namespace

QStringList listReportYears()
{
    const QSqlDatabase trips = DatabaseLocator::findTripsConnection();
    QStringList years;
    QString ignored;
    const bool listed =
        SqlStatement(trips, selectYears).forEachRow({}, ignored, [&years](const auto &row) {
            if (const QString year = row.text(0).trimmed(); !year.isEmpty())
                years.append(year);
        });
    years.removeDuplicates();
    return listed ? years : QStringList();
}

ReportSeriesData loadReportSeries(const QString &year, const QString &reportKey)
{
    const QSqlDatabase trips = DatabaseLocator::findTripsConnection();
    const QString wanted = year.trimmed();
    if (!trips.isOpen() || wanted.isEmpty())
        return {};
    QList<PayweekSums> payweeks;
    QString ignored;
    if (!SqlStatement(trips, selectPayweeks)
             .forEachRow({wanted}, ignored,
                         [&payweeks](const auto &row) { payweeks.append(sumsOf(row)); }))
        return {};
    const Report report = reportOf(reportKey.trimmed().toLower());
    ReportSeriesData data = emptyReport(report);
    for (const PayweekSums &sums : std::as_const(payweeks)) {
        if (!sums.payweek.isEmpty())
            append(sums, report, data);
    }
    return data;
}

} // namespace ReportsRepository
