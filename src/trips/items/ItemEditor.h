#pragma once

#include "trips/grids/StoredRowsGuard.h"
#include "trips/items/ItemTexts.h"

#include <QGroupBox>
#include <QMap>

class ItemGrid;
class QLabel;
struct TripContext;

/// The pay items or the cost items of the current trip: money beyond linehaul and FUSU. Nothing
/// typed here reaches the file before a save.
class ItemEditor : public QGroupBox
{
    Q_OBJECT

public:
    ItemEditor(ItemTexts itemTexts, const TripContext &tripContext, QWidget *parent = nullptr);

    /// Reads the names ever used in the file and offers them.
    void loadNames();

    /// Shows the items of a trip; none without an open file or for an id below 1.
    void loadItems(int tripId);

    /// Rewrites the items of a trip in the file. A save that fails tells so, leaves the rows before
    /// the failing one written and the rest gone from the file; the grid keeps all of them. Items
    /// that could not be read are not rewritten.
    void saveItems(int tripId);

    /// Whether the items of the trip were read, so that a save may take their place.
    [[nodiscard]] const StoredRowsGuard &guard() const { return storedRows; }

    /// The sum of the grid in dollars, not rounded.
    [[nodiscard]] double itemTotal() const;

    /// Takes the items away whose name `isReplaced` accepts, and adds those of `items`: name and
    /// dollars.
    void replaceItems(bool (*isReplaced)(const QString &name), const QMap<QString, double> &items);

    void applyScale(const QFont &font, int percent);

Q_SIGNALS:
    /// A save went through, so that there may be new names in the file.
    void itemsSaved();

private:
    void buildLayout();
    void addItemRow();
    void removeSelectedItem();
    void saveItemsClicked();
    bool writeItem(TripRows::Writer &writer, const TripRows::ItemRow &item);
    void updateItemTotals();

    const ItemTexts texts;
    const TripContext &context;
    StoredRowsGuard storedRows;
    ItemGrid *grid = nullptr;
    QLabel *totalLine = nullptr;
};
