#pragma once

#include "reports/ReportSeriesData.h"

/// Reads what the Reports page shows, from the trips alone: settlement items are in no report. It
/// opens no file but borrows the connection that some page holds open on `trips.db`; see
/// DatabaseLocator::findTripsConnection(). It reports no error: whatever fails gives no data.
namespace ReportsRepository {

/// The last four characters of the payweeks, ascending: the years, where payweeks end with one.
QStringList listReportYears();

/// The series of a report by payweek, nothing rounded. The key is "cpm" or "cpms", "miles",
/// "revenue_vs_miles" or "revenue miles"; any other text gives revenue, cost and net. Without
/// data the series are there but empty; without a connection or a year all is as default.
ReportSeriesData loadReportSeries(const QString &year, const QString &reportKey);

} // namespace ReportsRepository
