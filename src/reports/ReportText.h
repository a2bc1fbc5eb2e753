#pragma once

#include "reports/ReportSeriesData.h"

/// What the Reports page writes of a report, beside its chart and in it.
namespace ReportText {

/// Whole miles; dollars as "$1234.50" with the minus behind the dollar sign; any other value with
/// two decimals.
QString valueText(const ReportSeriesData &report, double value);

/// What the series is made of.
QString seriesTip(const QString &seriesName);

/// Whether the last row averages dollars over miles instead of weeks.
bool isWeighted(const ReportSeriesData &report, const QString &reportKey);

/// Dollars over the miles of all weeks; 0 without miles.
double weightedAverage(const ReportSeriesData &report, const QString &seriesName);

/// The mean of the weeks; 0 without any.
double plainAverage(const QList<double> &values);

/// What a chart says of one point: a series' value at a payweek.
QString pointTip(const ReportSeriesData &report, const QString &seriesName, qsizetype payweek,
                 double value);

/// Month and day of a payweek, for the axis: "01-02" of "01/02/2026".
QString axisLabel(const QString &payweek);

} // namespace ReportText
