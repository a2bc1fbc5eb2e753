#include "trips/fuel/FuelEditor.h"

#include "data/MoneyText.h"
#include "trips/TripsRepository.h"
#include "trips/fuel/FuelGrid.h"
#include "trips/fuel/FuelRowRules.h"
#include "trips/fuel/FuelScan.h"
#include "trips/grids/TripContext.h"
#include "trips/grids/TripEditorLayout.h"
#include "trips/items/ItemEditor.h"

#include <QMessageBox>

#include <utility>

using namespace Qt::StringLiterals;

FuelEditor::FuelEditor(const TripContext &tripContext, ItemEditor *costEditor, QWidget *parent)
    : QGroupBox(parent)
    , context(tripContext)
    , costItems(costEditor)
{
    buildLayout();
    connect(grid, &FuelGrid::rowEdited, this, &FuelEditor::updateFuelTotals);
    setFuelEditMode(false);
}

void FuelEditor::buildLayout()
{
    setTitle(tr("Fuel / DEF Details"));
    setObjectName(u"fuel"_s);
    TripEditorLayout layout(this);
    editButton = layout.addButton(tr("Edit Fuel Rows"), "Edit"_L1, &FuelEditor::editFuelRows);
    editingButtons = {
        layout.addButton(tr("Add Row"), "Add"_L1, &FuelEditor::addFuelRow),
        layout.addButton(tr("Delete Selected Row"), "Remove"_L1, &FuelEditor::removeFuelRow),
        layout.addButton(tr("Save Fuel Rows"), "Save"_L1, &FuelEditor::saveFuelRowsClicked)};
    layout.addButton(tr("Scan Fuel From Settlement PDF"), "Scan"_L1, &FuelEditor::scanFuelFromPdf);
    grid = layout.addGrid(new FuelGrid(this));
    totalLine = layout.addLabel("Totals"_L1, tr("Fuel totals: no rows"));
}

void FuelEditor::editFuelRows()
{
    setFuelEditMode(true);
}

void FuelEditor::setFuelEditMode(bool on)
{
    grid->setFuelEditMode(on);
    editButton->setEnabled(!on);
    for (QPushButton *button : editingButtons)
        button->setEnabled(on);
}

void FuelEditor::loadFuelRows(int tripId)
{
    grid->setRowCount(0);
    storedRows.startReading(tripId);
    updateFuelTotals();
    if (!context.tripsDatabase.isOpen() || tripId <= 0)
        return;
    ensureTable();
    QList<TripRows::FuelRow> rows;
    QString error;
    if (!TripRows::loadFuel(context.tripsDatabase, tripId, rows, error)) {
        QMessageBox::critical(this, tr("Load Fuel Details Failed"), error);
        return;
    }
    storedRows.finishReading();
    grid->setUpdatesEnabled(false);
    for (const TripRows::FuelRow &row : std::as_const(rows))
        grid->appendRow(row);
    grid->rescaleColumns();
    grid->setUpdatesEnabled(true);
    updateFuelTotals();
}

void FuelEditor::saveFuelRows(int tripId)
{
    if (!context.tripsDatabase.isOpen() || tripId <= 0
        || !storedRows.allowsSave(this, tr("Save Fuel Details Failed")) || !ensureTable()
        || !hasOnlyFuelTypes())
        return;
    TripRows::Writer writer(context.tripsDatabase, TripRows::Table::Fuel, tripId);
    QString error;
    bool written = writer.deleteAll(error);
    for (const DomainRules::FuelRowValues &row : grid->values())
        written = written && (FuelRowRules::isBlank(row) || writer.append(row, error));
    if (!written)
        QMessageBox::critical(this, tr("Save Fuel Details Failed"), error);
}

bool FuelEditor::hasOnlyFuelTypes()
{
    for (const DomainRules::FuelRowValues &row : grid->values()) {
        if (FuelRowRules::isBlank(row) || FuelRowRules::isFuelType(row.itemType))
            continue;
        if (row.itemType.isEmpty())
            QMessageBox::warning(this, tr("Fuel Detail Missing Type"),
                                 tr("A fuel/detail row has values but no item type. Add an item "
                                    "type or remove the row."));
        else
            QMessageBox::warning(this, tr("Fuel Detail Invalid Type"),
                                 tr("Fuel/detail item type must be Truck Fuel, Reefer Fuel, or "
                                    "Def."));
        return false;
    }
    return true;
}

bool FuelEditor::ensureTable()
{
    QString error;
    if (TripsRepository::ensureTripDetailItems(context.tripsDatabase, error))
        return true;
    QMessageBox::critical(this, tr("Trip Detail Setup Error"), error);
    return false;
}

void FuelEditor::syncFuelCostItems()
{
    costItems->replaceItems(FuelRowRules::ownsCostItem,
                            FuelRowRules::costByItemName(grid->values()));
}

void FuelEditor::applyScale(const QFont &font, int percent)
{
    grid->applyScale(font, percent);
}

void FuelEditor::addFuelRow()
{
    grid->appendRow({DomainRules::fuelDetailTypeList().constFirst(), 0.0, 0.0, gallonsText(0.0)});
    context.report(tr("Added fuel/detail row."));
    updateFuelTotals();
}

void FuelEditor::removeFuelRow()
{
    if (grid->currentRow() < 0) {
        QMessageBox::information(this, tr("Remove Fuel Detail"),
                                 tr("Select a fuel/detail row first."));
        return;
    }
    grid->removeRow(grid->currentRow());
    context.report(tr("Removed selected fuel/detail row."));
    updateFuelTotals();
}

// The stored totals of the trip follow only at "Save Trip / Changes".
void FuelEditor::saveFuelRowsClicked()
{
    const int tripId = context.currentTripId();
    if (tripId <= 0) {
        QMessageBox::information(this, tr("Save Fuel Rows"),
                                 tr("Load or save a trip before saving fuel rows."));
        return;
    }
    // The rows and the costs that follow from them are saved together or not at all.
    const QString refused = tr("Save Fuel Details Failed");
    if (!storedRows.allowsSave(this, refused) || !costItems->guard().allowsSave(this, refused))
        return;
    grid->updatePrices();
    syncFuelCostItems();
    costItems->saveItems(tripId);
    saveFuelRows(tripId);
    updateFuelTotals();
    setFuelEditMode(false);
    context.report(tr("Saved fuel/detail rows."));
}

void FuelEditor::scanFuelFromPdf()
{
    const QString tripNo = context.tripNo().trimmed();
    if (context.currentTripId() < 1 || tripNo.isEmpty()) {
        QMessageBox::information(this, tr("Scan Fuel From Settlement PDF"),
                                 tr("Load or save a trip before scanning fuel details. The scanner "
                                    "needs the current trip number."));
        return;
    }
    const QList<FuelReviewRow> rows = scanSettlementForFuel(this, tripNo, context.report);
    if (rows.isEmpty() || !mayAddScannedRows())
        return;
    setFuelEditMode(true);
    const QString count = QString::number(addScannedRows(rows));
    QMessageBox::information(this, tr("Fuel Rows Added"),
                             tr("Added %1 scanned fuel/detail row(s) for trip %2.\n\nReview the "
                                "rows, then click Save Fuel Rows to write them to the trip.")
                                 .arg(count, tripNo));
    context.report(tr("Added %1 scanned fuel/detail row(s) for trip %2.").arg(count, tripNo));
}

// Empties the grid if the person wants the scanned rows instead of those that are there.
bool FuelEditor::mayAddScannedRows()
{
    if (grid->rowCount() == 0)
        return true;
    const auto answer = QMessageBox::question(
        this, tr("Existing Fuel Rows"),
        tr("This trip already has %1 fuel/detail row(s).\n\nChoose Yes to replace them with the "
           "scanned rows.\nChoose No to append the scanned rows.\nChoose Cancel to make no "
           "changes.")
            .arg(grid->rowCount()),
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Cancel);
    if (answer == QMessageBox::Yes) {
        grid->setRowCount(0);
        updateFuelTotals();
    }
    if (answer == QMessageBox::Yes || answer == QMessageBox::No)
        return true;
    context.report(tr("Fuel scan canceled before applying rows."));
    return false;
}

// A settlement prints a discount below zero, and it is taken as it stands: the row shows it, and
// the driver turns it.
int FuelEditor::addScannedRows(const QList<FuelReviewRow> &rows)
{
    int added = 0;
    for (const FuelReviewRow &row : rows) {
        const QString type = DomainRules::normalizeFuelDetailType(row.description);
        if (!FuelRowRules::isFuelType(type))
            continue;
        grid->appendRow({type, row.cost, row.discount, gallonsText(row.gallons)});
        ++added;
    }
    grid->rescaleColumns();
    updateFuelTotals();
    return added;
}

void FuelEditor::updateFuelTotals()
{
    grid->updatePrices();
    totalLine->setText(FuelRowRules::totalLine(grid->values()));
}
