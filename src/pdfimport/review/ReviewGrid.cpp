#include "pdfimport/review/ReviewGrid.h"

#include "data/MoneyText.h"
#include "pdfimport/SettlementParser.h"

#include <QHeaderView>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

constexpr int leastHeight = 220;
constexpr int idRole = Qt::UserRole;

enum Column { UseColumn = 0, AmountColumn = 5, GallonsColumn = 8 };

QTableWidgetItem *makeCell(int column, const QString &text)
{
    auto *cell = new QTableWidgetItem(text);
    if (column >= AmountColumn && column <= GallonsColumn)
        cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return cell;
}

} // namespace

ReviewGrid::ReviewGrid(QWidget *parent)
    : QTableWidget(parent)
{
    setObjectName(u"reviewGrid"_s);
    setAccessibleName(tr("Fuel/DEF rows"));
    const QStringList labels = {tr("Use"),     tr("Dataset"),    tr("Trip #"), tr("Description"),
                                tr("Route"),   tr("Amount"),     tr("Cost"),   tr("Discount"),
                                tr("Gallons"), tr("Source Line")};
    setColumnCount(static_cast<int>(labels.size()));
    setHorizontalHeaderLabels(labels);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    horizontalHeader()->setStretchLastSection(true);
    verticalHeader()->hide();
    setTabKeyNavigation(false);
    setMinimumHeight(leastHeight);
}

void ReviewGrid::showRows(const QList<FuelReviewRow> &rows)
{
    const QSignalBlocker quiet(this);
    setRowCount(0);
    setRowCount(static_cast<int>(rows.size()));
    int line = 0;
    for (const FuelReviewRow &row : rows)
        showRow(line++, row);
    resizeColumnsToContents();
}

void ReviewGrid::showRow(int line, const FuelReviewRow &row)
{
    const QStringList texts = {row.enabled ? tr("Yes") : tr("No"),
                               row.dataset,
                               row.tripNo,
                               row.description,
                               row.route,
                               number2Text(row.amount),
                               number2Text(row.cost),
                               number2Text(row.discount),
                               gallonsText(row.gallons),
                               row.sourceLine};
    for (int column = 0; column < columnCount(); ++column)
        setItem(line, column, makeCell(column, texts.at(column)));
    item(line, UseColumn)->setData(idRole, row.id);
}

int ReviewGrid::selectedId() const
{
    const QList<QTableWidgetItem *> selected = selectedItems();
    return selected.isEmpty() ? 0 : item(selected.first()->row(), UseColumn)->data(idRole).toInt();
}

void ReviewGrid::selectId(int id)
{
    for (int line = 0; line < rowCount(); ++line) {
        if (item(line, UseColumn)->data(idRole).toInt() == id) {
            selectRow(line);
            return;
        }
    }
}
