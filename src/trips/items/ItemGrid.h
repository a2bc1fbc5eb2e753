#pragma once

#include "trips/TripRows.h"
#include "trips/grids/OfferedTexts.h"
#include "trips/grids/TripGrid.h"

class EditableHistoryComboDelegate;

/// Names and amounts. Every amount is shown as money as soon as it is typed.
class ItemGrid : public TripGrid
{
    Q_OBJECT

public:
    enum GridColumn { NameColumn, AmountColumn };

    explicit ItemGrid(QWidget *parent = nullptr);

    /// How a name shows that the list of names has in another case: as the list has it, or as it
    /// is.
    enum Spelling { OfTheList, ItsOwn };

    void appendItem(const TripRows::ItemRow &item, Spelling spelling = OfTheList);
    [[nodiscard]] TripRows::ItemRow itemAt(int row) const;

    /// The name in a row: that of its box, or else that of the cell below. Empty for no such row.
    [[nodiscard]] QString itemName(int row) const;

    /// The sum of the amounts in dollars, not rounded.
    [[nodiscard]] double itemTotal() const;

    /// Offers these names from now on, in the rows that are there too.
    void offerNames(const QStringList &newNames);

private:
    void putName(int row, const QString &name, Spelling spelling);

    OfferedTexts names;
    EditableHistoryComboDelegate *nameDelegate = nullptr;
};
