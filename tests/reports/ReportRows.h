#pragma once

#include "reports/ReportSeriesData.h"
#include "support/RowMakers.h"
#include "support/TestConnection.h"

/// An empty trips.db, open as the Trips page has it.
struct ReportFile
{
    Workspace workspace;
    TestConnection trips =
        TestConnection(workspace.makeTrips(), QStringLiteral("trips_connection"));
};

/// A trip with no empty miles, whose linehaul and fuel surcharge are nine tenths of its revenue.
inline TripMaker haul(const QString &payweek, double revenue, double cost, double miles)
{
    return trip()
        .payweek(payweek)
        .totals(revenue, cost)
        .set(QStringLiteral("linehaul"), revenue * 0.8)
        .set(QStringLiteral("fusu"), revenue * 0.1)
        .set(QStringLiteral("loaded_miles"), miles)
        .set(QStringLiteral("empty_miles"), 0.0)
        .set(QStringLiteral("total_miles"), miles);
}

/// A report of dollars, with a payweek for each value of the longest series: the Fridays of 2026.
inline ReportSeriesData dollars(const QMap<QString, QList<double>> &series)
{
    ReportSeriesData report;
    report.title = QStringLiteral("Dollars");
    report.valuesAreDollars = true;
    report.series = series;
    for (const QList<double> &values : series) {
        while (report.payweeks.size() < values.size())
            report.payweeks.append(QDate(2026, 1, 2)
                                       .addDays(7 * report.payweeks.size())
                                       .toString(QStringLiteral("MM/dd/yyyy")));
    }
    return report;
}
