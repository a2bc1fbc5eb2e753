#include "reports/totals/PayTotalsPopups.h"

#include "data/MoneyText.h"
#include "reports/charts/SharedLineChartWidget.h"
#include "reports/totals/BreakdownDialog.h"
#include "reports/totals/PayTotalsText.h"
#include "reports/totals/TotalsTable.h"
#include "ui/PageParts.h"
#include "ui/UiScale.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace PayTotalsPopups {

namespace {

// One row below the header. Any more, and the dialog could not be as small as at 75 percent.
constexpr int leastTableHeight = 48;

enum PurchaseColumn { PayweekColumn, TripColumn, TypeColumn, CostColumn };
enum ItemColumn { DateColumn, CategoryColumn, KindColumn, NameColumn, AmountColumn };

QString tr(const char *text)
{
    return QCoreApplication::translate("PayTotalsPopups", text);
}

/// Fills the table and gives it the looks of those on the page.
void fillTable(TotalsTable *table, const QList<QStringList> &rows)
{
    UiScale::applyTableScale(table, table->font(), UiScale::savedUiScalePercent());
    table->setMinimumHeight(leastTableHeight);
    table->showRows(rows);
}

void addCloseButton(QDialog *dialog, QBoxLayout *layout)
{
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
    buttons->setObjectName(u"buttons"_s);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    layout->addWidget(buttons);
}

bool passes(const NonTripRow &item, const ItemFilter *filter)
{
    return !filter
           || (item.category == filter->category && item.kind == filter->kind
               && PayTotalsText::nameOrBlank(item.name) == filter->name);
}

QList<NonTripRow> matchingItems(const NonTripTotals &totals, const ItemFilter *filter)
{
    QList<NonTripRow> items;
    std::copy_if(totals.rows.cbegin(), totals.rows.cend(), std::back_inserter(items),
                 [filter](const NonTripRow &item) { return passes(item, filter); });
    return items;
}

/// What the items of each settlement do to it, in the order in which the dates come.
QList<ChartPoint> impactByDate(const QList<NonTripRow> &items)
{
    QList<ChartPoint> points;
    for (const NonTripRow &item : items) {
        const auto point =
            std::find_if(points.begin(), points.end(), [&item](const ChartPoint &candidate) {
                return candidate.label == item.settlementDate;
            });
        if (point == points.end())
            points.append({item.settlementDate, item.signedAmount});
        else
            point->value += item.signedAmount;
    }
    return points;
}

QString totalsLine(const QList<NonTripRow> &items)
{
    double total = 0.0;
    double impact = 0.0;
    for (const NonTripRow &item : items) {
        total += item.amount;
        impact += item.signedAmount;
    }
    return tr("Rows: %1    Total: %2    Net impact: %3")
        .arg(QString::number(items.size()), moneyText(total), moneyText(impact));
}

} // namespace

QDialog *makeFuelDialog(const FuelTotals &totals, const QString &type, QWidget *page)
{
    QList<QStringList> rows;
    for (const FuelDetailRow &purchase : totals.rows) {
        if (type.isEmpty() || purchase.itemType == type)
            rows.append(PayTotalsText::purchaseRow(purchase));
    }
    if (rows.isEmpty())
        return nullptr;
    auto *dialog = new QDialog(page);
    dialog->setWindowTitle(type.isEmpty() ? tr("Fuel Breakdown") : type + tr(" Breakdown"));
    sizeDialogForScale(dialog, 900, 520, UiScale::savedUiScalePercent());
    auto *table =
        new TotalsTable(u"fuelBreakdownTable"_s, tr("Fuel purchases"),
                        {tr("Payweek"), tr("Trip #"), tr("Type"), tr("Cost"), tr("Discount"),
                         tr("Net Cost"), tr("Gallons"), tr("Avg Net $/Gal")},
                        CostColumn, dialog);
    fillTable(table, rows);
    auto *layout = new QVBoxLayout(dialog);
    layout->addWidget(table);
    addCloseButton(dialog, layout);
    return dialog;
}

QDialog *makeItemsDialog(const NonTripTotals &totals, const ItemFilter *filter, QWidget *page)
{
    const QList<NonTripRow> items = matchingItems(totals, filter);
    if (items.isEmpty())
        return nullptr;
    auto *dialog = new QDialog(page);
    dialog->setWindowTitle(filter ? filter->category + u" — "_s + filter->name
                                  : tr("Non-Trip Settlement Breakdown"));
    sizeDialogForScale(dialog, 980, 560, UiScale::savedUiScalePercent());
    auto *table = new TotalsTable(
        u"itemBreakdownTable"_s, tr("Settlement items"),
        {tr("Date"), tr("Category"), tr("Kind"), tr("Item Name"), tr("Amount"), tr("Net Impact")},
        AmountColumn, dialog);
    QList<QStringList> rows;
    for (const NonTripRow &item : items)
        rows.append(PayTotalsText::itemRow(item));
    fillTable(table, rows);
    auto *layout = new QVBoxLayout(dialog);
    layout->addWidget(new QLabel(totalsLine(items), dialog));
    layout->addWidget(PageParts::makeHeading(tr("Net impact by settlement date"), dialog, 0));
    layout->addWidget(new SharedLineChartWidget(impactByDate(items), dialog));
    layout->addWidget(table, 1);
    addCloseButton(dialog, layout);
    return dialog;
}

} // namespace PayTotalsPopups
