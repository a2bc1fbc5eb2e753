#pragma once

#include "pdfimport/SettlementParser.h"
#include "trips/TripRows.h"
#include "trips/grids/StoredRowsGuard.h"

#include <QGroupBox>

#include <array>

class FuelGrid;
class ItemEditor;
class QLabel;
class QPushButton;
struct TripContext;

/// The fuel and DEF purchases of the current trip, typed or scanned from a settlement PDF. They can
/// be edited only after a click on "Edit Fuel Rows", and they drive the cost items: the net cost of
/// each kind of fuel is a cost item, which is how fuel reaches the trip's total cost.
class FuelEditor : public QGroupBox
{
    Q_OBJECT

public:
    /// `costEditor` takes the cost items that follow from the rows.
    FuelEditor(const TripContext &tripContext, ItemEditor *costEditor, QWidget *parent = nullptr);

    /// Shows the rows of a trip; none without an open file or for an id below 1. Whether they can
    /// be edited stays as it was.
    void loadFuelRows(int tripId);

    /// Rewrites the rows of a trip in the file. Rows of no fuel type are refused before anything
    /// is written; a statement that fails later leaves the rows before it written and the rest gone
    /// from the file. The grid keeps all of them.
    /// Rows that could not be read are not rewritten.
    void saveFuelRows(int tripId);

    /// Whether the fuel rows of the trip were read, so that a save may take their place.
    [[nodiscard]] const StoredRowsGuard &guard() const { return storedRows; }

    /// Replaces the cost items that belong to fuel by those that follow from the rows.
    void syncFuelCostItems();

    void applyScale(const QFont &font, int percent);

private:
    void buildLayout();
    void editFuelRows();
    void setFuelEditMode(bool on);
    void addFuelRow();
    void removeFuelRow();
    void saveFuelRowsClicked();
    void scanFuelFromPdf();
    bool ensureTable();
    bool hasOnlyFuelTypes();
    bool mayAddScannedRows();
    int addScannedRows(const QList<FuelReviewRow> &rows);
    void updateFuelTotals();

    const TripContext &context;
    StoredRowsGuard storedRows;
    ItemEditor *costItems;
    QPushButton *editButton = nullptr;
    std::array<QPushButton *, 3> editingButtons = {};
    FuelGrid *grid = nullptr;
    QLabel *totalLine = nullptr;
};
