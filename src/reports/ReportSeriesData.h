#pragma once

#include <QList>
#include <QMap>
#include <QStringList>

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
