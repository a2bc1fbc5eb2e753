#pragma once

#include "data/DomainRules.h"
#include "trips/TripRows.h"
#include "trips/grids/TripGrid.h"

/// The fuel and DEF purchases of a trip, with the price per gallon that follows from each.
class FuelGrid : public TripGrid
{
    Q_OBJECT

public:
    enum GridColumn { TypeColumn, CostColumn, DiscountColumn, GallonsColumn, PriceColumn };

    explicit FuelGrid(QWidget *parent = nullptr);

    /// Lets the rows be edited, those appended later too, or not. The price never is.
    void setFuelEditMode(bool on);

    void appendRow(const TripRows::FuelRow &fuel);

    /// The row's numbers, and its type in the spelling of the list.
    [[nodiscard]] DomainRules::FuelRowValues valuesAt(int row) const;
    [[nodiscard]] QList<DomainRules::FuelRowValues> values() const;

    void updatePrices();

Q_SIGNALS:
    /// Something was typed or chosen, and is shown as money already.
    void rowEdited();

private:
    void putType(int row, const QString &type);
    void putText(int row, int column, const QString &text);
    void updatePrice(int row);
    void followEdit(const QTableWidgetItem *cell);
    void followType(const QWidget *box, const QString &type);
    void makeEditable(int row);

    bool fuelEditMode = false;
};
