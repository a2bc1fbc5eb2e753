#pragma once

#include <QList>
#include <QMap>
#include <QStringList>

/// The reports of the Reports page. The repository knows some by a second name.
namespace ReportKey {

inline constexpr QLatin1StringView compareCpms("cpms");
inline constexpr QLatin1StringView revenueCostNet("rev_cost_net");
inline constexpr QLatin1StringView miles("miles");
inline constexpr QLatin1StringView revenueAndMiles("revenue_vs_miles");

} // namespace ReportKey

/// One report of one year: a value for each payweek in each series. Series come sorted by name, as
/// columns and colours do.
struct ReportSeriesData
{
    QString title = QStringLiteral("Reports");
    QString yAxisLabel = QStringLiteral("Value");
    QStringList payweeks;
    QMap<QString, QList<double>> series;
    /// Dollars and miles of the whole year, for a weighted average of dollars per mile. Weeks
    /// without miles take no part. Empty for any other report.
    QMap<QString, double> weightedNumerators;
    QMap<QString, double> weightedDenominators;
    bool valuesAreDollars = false;
    bool valuesAreMiles = false;
};
