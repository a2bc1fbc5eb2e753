#include "reports/ReportTable.h"

#include "reports/ReportText.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace {

constexpr int leastHeight = 220;

QTableWidgetItem *makeCell(const QString &text, Qt::Alignment alignment)
{
    auto *cell = new QTableWidgetItem(text);
    cell->setTextAlignment(alignment);
    return cell;
}

QStringList valueTexts(const ReportSeriesData &report, qsizetype payweek)
{
    QStringList texts;
    for (const QList<double> &values : report.series)
        texts.append(ReportText::valueText(report, values.value(payweek)));
    return texts;
}

QStringList averageTexts(const ReportSeriesData &report, bool weighted)
{
    QStringList texts;
    for (auto series = report.series.cbegin(); series != report.series.cend(); ++series) {
        const double average = weighted ? ReportText::weightedAverage(report, series.key())
                                        : ReportText::plainAverage(*series);
        texts.append(ReportText::valueText(report, average));
    }
    return texts;
}

} // namespace

ReportTable::ReportTable(QWidget *parent)
    : DataTable(u"reportTable"_s, tr("Details"), leastHeight, parent)
{
    setAlternatingRowColors(true);
    horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
    horizontalHeader()->setStretchLastSection(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

void ReportTable::showNote(const QString &text)
{
    clear();
    setColumnCount(1);
    setHorizontalHeaderLabels({tr("Details")});
    setRowCount(1);
    showRow(0, text, {});
}

void ReportTable::showReport(const ReportSeriesData &report, const QString &reportKey,
                             const QString &year)
{
    if (report.payweeks.isEmpty() || report.series.isEmpty()) {
        showNote(tr("%1 - Year %2: No data.").arg(report.title, year));
        return;
    }
    clear();
    showHeader(report);
    const auto payweeks = static_cast<int>(report.payweeks.size());
    setRowCount(payweeks + 1);
    for (int row = 0; row < payweeks; ++row)
        showRow(row, report.payweeks.at(row), valueTexts(report, row));
    const bool weighted = ReportText::isWeighted(report, reportKey);
    showRow(payweeks, weighted ? tr("Weighted Avg") : tr("Average"),
            averageTexts(report, weighted));
    if (weighted)
        item(payweeks, 0)
            ->setToolTip(
                tr("Total dollars across displayed weeks ÷ Total miles across displayed weeks"));
}

void ReportTable::showHeader(const ReportSeriesData &report)
{
    setColumnCount(static_cast<int>(report.series.size()) + 1);
    setHorizontalHeaderItem(0, new QTableWidgetItem(tr("Payweek")));
    int column = 1;
    for (const QString &name : report.series.keys()) {
        auto *header = new QTableWidgetItem(name + u" ⓘ"_s);
        header->setToolTip(ReportText::seriesTip(name));
        setHorizontalHeaderItem(column++, header);
    }
}

void ReportTable::showRow(int row, const QString &label, const QStringList &values)
{
    setItem(row, 0, makeCell(label, Qt::AlignLeft | Qt::AlignVCenter));
    int column = 1;
    for (const QString &text : values)
        setItem(row, column++, makeCell(text, Qt::AlignCenter));
}
