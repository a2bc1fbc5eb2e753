#include "trips/items/ItemGrid.h"

#include "trips/items/EditableHistoryComboDelegate.h"
#include "ui/FieldText.h"

#include <QComboBox>
#include <QSignalBlocker>

namespace {

constexpr int leastGridHeight = 90;

} // namespace

ItemGrid::ItemGrid(QWidget *parent)
    : TripGrid({{tr("Name"), 260, leastNameBoxWidth}, {tr("Amount"), 120}}, leastGridHeight, parent)
{
    offerNames({});
    connect(this, &QTableWidget::itemChanged, this, [this](const QTableWidgetItem *cell) {
        if (cell->column() == AmountColumn)
            normalizeMoney(cell->row(), AmountColumn);
    });
}

void ItemGrid::appendItem(const TripRows::ItemRow &item, Spelling spelling)
{
    const QSignalBlocker blocker(this);
    const int row = rowCount();
    insertRow(row);
    putName(row, item.name, spelling);
    putMoney(row, AmountColumn, item.amount);
}

void ItemGrid::putName(int row, const QString &name, Spelling spelling)
{
    QComboBox *box = makeNameBox(names, name);
    if (spelling == ItsOwn)
        FieldText::show(box, name);
    putBox(row, NameColumn, box, name);
    connect(box, &QComboBox::currentTextChanged, this,
            [this, box](const QString &text) { keepBelow(box, NameColumn, text.trimmed()); });
}

TripRows::ItemRow ItemGrid::itemAt(int row) const
{
    return {itemName(row), money(row, AmountColumn)};
}

QString ItemGrid::itemName(int row) const
{
    return boxText(row, NameColumn);
}

double ItemGrid::itemTotal() const
{
    double total = 0.0;
    for (int row = 0; row < rowCount(); ++row)
        total += money(row, AmountColumn);
    return total;
}

void ItemGrid::offerNames(const QStringList &newNames)
{
    names.setList(newNames);
    auto *previous = nameDelegate;
    nameDelegate = new EditableHistoryComboDelegate(names, this);
    setItemDelegateForColumn(NameColumn, nameDelegate);
    if (previous)
        previous->deleteLater();
    const QSignalBlocker blocker(this);
    for (int row = 0; row < rowCount(); ++row)
        putName(row, itemName(row), ItsOwn);
}
