#pragma once

#include "support/TableReaders.h"
#include "trips/TripsWindow.h"
#include "trips/fuel/FuelGrid.h"
#include "trips/grids/GridHands.h"
#include "trips/items/ItemGrid.h"

#include <QPushButton>
#include <QTest>

/// The Trips page before a person who works on the fuel grid.
class FuelWindow : public TripsWindow
{
public:
    using TripsWindow::TripsWindow;

    [[nodiscard]] FuelGrid *grid() const { return named<FuelGrid>("fuelGrid"); }
    [[nodiscard]] QString totals() const { return named<QLabel>("fuelTotals")->text(); }
    [[nodiscard]] QComboBox *typeBox(int row) const
    {
        return boxAt(grid(), row, FuelGrid::TypeColumn);
    }

    /// The rows as a person reads them: type, cost, discount, gallons, price.
    [[nodiscard]] QList<QStringList> rows() const
    {
        QList<QStringList> shown = texts(grid());
        for (int row = 0; row < grid()->rowCount(); ++row)
            shown[row].first() = typeBox(row)->currentText();
        return shown;
    }

    /// The texts of the section's buttons that can be pressed.
    [[nodiscard]] QStringList enabledButtons() const
    {
        QStringList enabled;
        for (const QPushButton *button : named<QWidget>("fuel")->findChildren<QPushButton *>()) {
            if (button->isEnabled())
                enabled.append(button->text());
        }
        return enabled;
    }

    /// The cost items beside the fuel rows: name and amount.
    [[nodiscard]] QList<QStringList> costItems() const
    {
        auto *costs = named<ItemGrid>("costItemsGrid");
        QList<QStringList> shown = texts(costs);
        for (int row = 0; row < costs->rowCount(); ++row)
            shown[row].first() = boxAt(costs, row, ItemGrid::NameColumn)->currentText();
        return shown;
    }

    /// Adds a row and fills it. The rows must be open for editing.
    void addsFuel(const QString &type, const QString &cost, const QString &discount,
                  const QString &gallons) const
    {
        clicks(QStringLiteral("Add Row"));
        const int row = grid()->rowCount() - 1;
        Person::chooses(typeBox(row), type);
        typesIntoCell(grid(), row, FuelGrid::CostColumn, cost);
        typesIntoCell(grid(), row, FuelGrid::DiscountColumn, discount);
        typesIntoCell(grid(), row, FuelGrid::GallonsColumn, gallons);
    }
};

/// What the file holds of fuel: trip, group, type, cost, discount and gallons, as entered.
inline QList<QStringList> storedFuel(const Workspace &workspace)
{
    return workspace.rows(
        QStringLiteral("SELECT trip_id, group_name, item_type, cost, discount, gallons "
                       "FROM trip_detail_items ORDER BY id"));
}

/// What the file holds of cost items: trip, name and amount, as entered.
inline QList<QStringList> storedCosts(const Workspace &workspace)
{
    return workspace.rows(
        QStringLiteral("SELECT trip_id, name, amount FROM trip_cost_items ORDER BY id"));
}
