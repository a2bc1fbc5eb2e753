#include "reports/totals/BreakdownDialog.h"

#include "data/MoneyText.h"
#include "reports/charts/SharedLineChartWidget.h"
#include "ui/DataTable.h"
#include "ui/PageParts.h"
#include "ui/UiScale.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QTextEdit>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int headingGrowth = 3;

// One row below the header. Any more, and the dialog could not be as small as at 75 percent.
constexpr int leastTableHeight = 40;

enum Column { PayweekColumn, ValueColumn, ColumnCount };

QTableWidgetItem *numberCell(double value)
{
    auto *cell = new QTableWidgetItem(QString::number(amountOrZero(value), 'f', 4));
    cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return cell;
}

QTableWidget *makeTable(const QList<ChartPoint> &points, QWidget *parent)
{
    auto *table = new DataTable(u"breakdownTable"_s, BreakdownDialog::tr("Values by payweek"),
                                leastTableHeight, parent);
    table->setSelectionMode(QTableWidget::ExtendedSelection);
    table->setColumnCount(ColumnCount);
    table->setHorizontalHeaderLabels(
        {BreakdownDialog::tr("Payweek"), BreakdownDialog::tr("Value")});
    table->horizontalHeaderItem(ValueColumn)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    table->setRowCount(static_cast<int>(points.size()));
    for (int row = 0; row < table->rowCount(); ++row) {
        table->setItem(row, PayweekColumn, new QTableWidgetItem(points[row].label));
        table->setItem(row, ValueColumn, numberCell(points[row].value));
    }
    table->resizeRowsToContents(); // lower than rows usually are: beside the chart room is scarce
    table->resizeColumnsToContents();
    table->horizontalHeader()->setStretchLastSection(true);
    return table;
}

QTextEdit *makeSummary(const QString &text, QWidget *parent)
{
    auto *summary = new QTextEdit(parent);
    summary->setObjectName(u"breakdownSummary"_s);
    summary->setAccessibleName(BreakdownDialog::tr("Summary"));
    summary->setReadOnly(true);
    summary->setMinimumHeight(120);
    summary->setPlainText(text);
    return summary;
}

} // namespace

BreakdownDialog::BreakdownDialog(const QString &title, const QList<ChartPoint> &points,
                                 const QString &summaryText, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(title);
    sizeDialogForScale(this, 900, 680, UiScale::savedUiScalePercent());
    auto *heading = PageParts::makeHeading(title, this, headingGrowth);
    heading->setTextFormat(Qt::PlainText);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->setObjectName(u"buttons"_s);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    layout->addWidget(new SharedLineChartWidget(points, this));
    layout->addWidget(makeTable(points, this), 1);
    layout->addWidget(makeSummary(summaryText, this));
    layout->addWidget(buttons);
}

BreakdownDialog::~BreakdownDialog() = default;

void sizeDialogForScale(QDialog *dialog, int baseWidth, int baseHeight, int scalePercent)
{
    if (!dialog)
        return;
    const int percent = UiScale::clampedPercent(scalePercent);
    dialog->resize(std::max(320, baseWidth * percent / 100),
                   std::max(240, baseHeight * percent / 100));
}
