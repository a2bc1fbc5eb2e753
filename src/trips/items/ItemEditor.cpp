#include "trips/items/ItemEditor.h"

#include "data/MoneyText.h"
#include "trips/TripsRepository.h"
#include "trips/grids/TripContext.h"
#include "trips/grids/TripEditorLayout.h"
#include "trips/items/ItemGrid.h"

#include <QLabel>
#include <QMessageBox>

#include <utility>

using namespace Qt::StringLiterals;

ItemEditor::ItemEditor(ItemTexts itemTexts, const TripContext &tripContext, QWidget *parent)
    : QGroupBox(parent)
    , texts(std::move(itemTexts))
    , context(tripContext)
{
    buildLayout();
    connect(grid, &QTableWidget::itemChanged, this, &ItemEditor::updateItemTotals);
    updateItemTotals();
}

void ItemEditor::buildLayout()
{
    setTitle(texts.title);
    setObjectName(texts.objectNamePrefix + "s"_L1);
    TripEditorLayout layout(this);
    layout.addButton(texts.addButton, "Add"_L1, &ItemEditor::addItemRow);
    layout.addButton(texts.removeButton, "Remove"_L1, &ItemEditor::removeSelectedItem);
    layout.addButton(texts.saveButton, "Save"_L1, &ItemEditor::saveItemsClicked);
    grid = layout.addGrid(new ItemGrid(this));
    totalLine = layout.addLabel("Totals"_L1);
}

void ItemEditor::loadNames()
{
    QStringList names;
    QString error;
    if (context.tripsDatabase.isOpen()
        && !TripsRepository::listItemNames(context.tripsDatabase, TripRows::tableName(texts.table),
                                           names, error))
        QMessageBox::critical(this, texts.namesFailed, error);
    grid->offerNames(names);
}

void ItemEditor::loadItems(int tripId)
{
    grid->setRowCount(0);
    storedRows.startReading(tripId);
    updateItemTotals();
    if (!context.tripsDatabase.isOpen() || tripId <= 0)
        return;
    QList<TripRows::ItemRow> items;
    QString error;
    if (!TripRows::loadItems(context.tripsDatabase, texts.table, tripId, items, error)) {
        QMessageBox::critical(this, texts.loadFailed, error);
        return;
    }
    storedRows.finishReading();
    grid->setUpdatesEnabled(false);
    for (const TripRows::ItemRow &item : std::as_const(items))
        grid->appendItem(item);
    grid->rescaleColumns();
    grid->setUpdatesEnabled(true);
    updateItemTotals();
}

void ItemEditor::saveItems(int tripId)
{
    if (!context.tripsDatabase.isOpen() || tripId <= 0
        || !storedRows.allowsSave(this, texts.saveFailed))
        return;
    TripRows::Writer writer(context.tripsDatabase, texts.table, tripId);
    QString error;
    if (!writer.deleteAll(error)) {
        QMessageBox::critical(this, texts.saveFailed, error);
        return;
    }
    for (int row = 0; row < grid->rowCount(); ++row) {
        if (!writeItem(writer, grid->itemAt(row)))
            return;
    }
    Q_EMIT itemsSaved();
    updateItemTotals();
}

bool ItemEditor::writeItem(TripRows::Writer &writer, const TripRows::ItemRow &item)
{
    if (item.name.isEmpty()) {
        if (item.amount == 0.0)
            return true;
        QMessageBox::warning(this, texts.missingNameTitle, texts.missingName);
        return false;
    }
    QString error;
    if (!writer.append(item, error)) {
        QMessageBox::critical(this, texts.saveFailed, error);
        return false;
    }
    return true;
}

double ItemEditor::itemTotal() const
{
    return grid->itemTotal();
}

void ItemEditor::replaceItems(bool (*isReplaced)(const QString &name),
                              const QMap<QString, double> &items)
{
    for (int row = grid->rowCount() - 1; row >= 0; --row) {
        if (isReplaced(grid->itemName(row)))
            grid->removeRow(row);
    }
    for (auto item = items.cbegin(); item != items.cend(); ++item)
        grid->appendItem({item.key(), item.value()}, ItemGrid::ItsOwn);
    grid->rescaleColumns();
    updateItemTotals();
}

void ItemEditor::applyScale(const QFont &font, int percent)
{
    grid->applyScale(font, percent);
}

void ItemEditor::addItemRow()
{
    grid->appendItem({});
    context.report(texts.added);
    updateItemTotals();
}

void ItemEditor::removeSelectedItem()
{
    if (grid->currentRow() < 0) {
        QMessageBox::information(this, texts.removeTitle, texts.nothingSelected);
        return;
    }
    grid->removeRow(grid->currentRow());
    updateItemTotals();
    context.report(texts.removed);
}

// The report comes whatever became of the save, which has told of its own failure.
void ItemEditor::saveItemsClicked()
{
    const int tripId = context.currentTripId();
    if (tripId <= 0) {
        QMessageBox::information(this, texts.saveButton, texts.noTrip);
        return;
    }
    saveItems(tripId);
    context.report(texts.saved);
}

void ItemEditor::updateItemTotals()
{
    totalLine->setText(
        grid->rowCount() == 0
            ? texts.noRows
            : texts.totalLine.arg(QString::number(grid->rowCount()), moneyText(grid->itemTotal())));
}
