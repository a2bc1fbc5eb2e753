#pragma once

#include "reports/ReportSeriesData.h"
#include "ui/DataTable.h"

/// A report in figures: a row for each payweek, and their average below.
class ReportTable : public DataTable
{
    Q_OBJECT

public:
    explicit ReportTable(QWidget *parent = nullptr);

    /// Shows the report, or that the year has no data.
    void showReport(const ReportSeriesData &report, const QString &reportKey, const QString &year);

    /// Shows one line of text in place of a report.
    void showNote(const QString &text);

private:
    void showHeader(const ReportSeriesData &report);
    void showRow(int row, const QString &label, const QStringList &values);
};
