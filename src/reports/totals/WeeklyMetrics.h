#pragma once

#include "reports/charts/ChartPoint.h"
#include "reports/totals/PayTotalsRecords.h"

#include <QLatin1StringView>

#include <variant>

/// The figures of which Pay Totals shows a weekly breakdown.
namespace WeeklyMetrics {

/// Takes a figure out of one of the three records of a payweek.
using Figure = std::variant<double (*)(const PayTotalsSummary &), double (*)(const NonTripTotals &),
                            double (*)(const FuelTotals &)>;

struct Metric
{
    QLatin1StringView key;
    QLatin1StringView label;
    Figure figure;
};

/// A key as the metrics are known by: trimmed and in lower case.
QString normalizedKey(const QString &key);

/// Null for an unknown key.
const Metric *find(const QString &key);

/// The series as plain text under the name of its metric, with the plain sum of its values; of
/// rates too.
QString text(const QString &label, const QString &year, const QList<ChartPoint> &series);

} // namespace WeeklyMetrics
