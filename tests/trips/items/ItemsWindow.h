#pragma once

#include "support/TableReaders.h"
#include "trips/TripsWindow.h"
#include "trips/grids/GridHands.h"
#include "trips/items/ItemGrid.h"

#include <QTest>

/// The words in which the pay and the cost grid differ.
struct ItemTwin
{
    QString table;
    QString otherTable;
    QString objectName;
    QString otherObjectName;
    QString title;
    QString addButton;
    QString removeButton;
    QString saveButton;
    QString noRows;
    /// With the number of rows as %1 and the total as %2.
    QString totalLine;
    QString added;
    QString removed;
    QString removeTitle;
    QString nothingSelected;
    QString loadFailed;
    QString saveFailed;
    QString missingNameTitle;
    QString missingName;
    QString noTrip;
    QString saved;
    QString namesFailed;
};

/// To be called by initTestCase_data(): each test function then runs for both grids, with
/// QFETCH_GLOBAL(const ItemTwin, twin).
inline void addItemTwins()
{
    using namespace Qt::StringLiterals;
    QTest::addColumn<ItemTwin>("twin");
    QTest::newRow("pay") << ItemTwin{
        .table = u"trip_pay_items"_s,
        .otherTable = u"trip_cost_items"_s,
        .objectName = u"payItems"_s,
        .otherObjectName = u"costItems"_s,
        .title = u"Pay Items"_s,
        .addButton = u"Add Pay Item Row"_s,
        .removeButton = u"Remove Selected Pay Item"_s,
        .saveButton = u"Save Pay Items"_s,
        .noRows = u"Pay totals: no rows"_s,
        .totalLine = u"Pay totals: Rows %1 | Total Pay %2"_s,
        .added = u"Added pay item row."_s,
        .removed = u"Removed selected pay item row."_s,
        .removeTitle = u"Remove Pay Item"_s,
        .nothingSelected = u"Select a pay item row first."_s,
        .loadFailed = u"Load Pay Items Failed"_s,
        .saveFailed = u"Save Pay Items Failed"_s,
        .missingNameTitle = u"Pay Item Missing Name"_s,
        .missingName = u"A pay item row has an amount but no name. Add a name or remove the row."_s,
        .noTrip = u"Load or save a trip before saving pay items."_s,
        .saved = u"Saved pay items for current trip."_s,
        .namesFailed = u"Pay Item Name Query Error"_s,
    };
    QTest::newRow("cost") << ItemTwin{
        .table = u"trip_cost_items"_s,
        .otherTable = u"trip_pay_items"_s,
        .objectName = u"costItems"_s,
        .otherObjectName = u"payItems"_s,
        .title = u"Cost Items"_s,
        .addButton = u"Add Cost Item Row"_s,
        .removeButton = u"Remove Selected Cost Item"_s,
        .saveButton = u"Save Cost Items"_s,
        .noRows = u"Cost totals: no rows"_s,
        .totalLine = u"Cost totals: Rows %1 | Total Cost %2"_s,
        .added = u"Added cost item row."_s,
        .removed = u"Removed selected cost item row."_s,
        .removeTitle = u"Remove Cost Item"_s,
        .nothingSelected = u"Select a cost item row first."_s,
        .loadFailed = u"Load Cost Items Failed"_s,
        .saveFailed = u"Save Cost Items Failed"_s,
        .missingNameTitle = u"Cost Item Missing Name"_s,
        .missingName =
            u"A cost item row has an amount but no name. Add a name or remove the row."_s,
        .noTrip = u"Load or save a trip before saving cost items."_s,
        .saved = u"Saved cost items for current trip."_s,
        .namesFailed = u"Cost Item Name Query Error"_s,
    };
}

/// The Trips page before a person who works on one of the two grids.
class ItemsWindow : public TripsWindow
{
public:
    ItemsWindow(const ItemTwin &itemTwin, const QString &path)
        : TripsWindow(path)
        , twin(itemTwin)
    {
    }
    explicit ItemsWindow(const ItemTwin &itemTwin)
        : twin(itemTwin)
    {
    }

    [[nodiscard]] ItemGrid *grid() const { return gridOf(twin.objectName); }
    [[nodiscard]] ItemGrid *otherGrid() const { return gridOf(twin.otherObjectName); }
    [[nodiscard]] QComboBox *nameBox(int row) const
    {
        return boxAt(grid(), row, ItemGrid::NameColumn);
    }
    [[nodiscard]] QString totals() const
    {
        return page->findChild<QLabel *>(twin.objectName + QLatin1StringView("Totals"))->text();
    }

    /// Names and amounts as they stand in the grid.
    [[nodiscard]] QList<QStringList> items() const
    {
        QList<QStringList> rows;
        for (int row = 0; row < grid()->rowCount(); ++row)
            rows.append(
                {nameBox(row)->currentText(), grid()->item(row, ItemGrid::AmountColumn)->text()});
        return rows;
    }

    void typesName(int row, const QString &name) const
    {
        Person::types(nameBox(row)->lineEdit(), name);
    }
    void typesAmount(int row, const QString &amount) const
    {
        typesIntoCell(grid(), row, ItemGrid::AmountColumn, amount);
    }
    /// Adds a row and fills it; what is empty is not typed.
    void addsItem(const QString &name, const QString &amount) const
    {
        clicks(twin.addButton);
        const int row = grid()->rowCount() - 1;
        if (!name.isEmpty())
            typesName(row, name);
        if (!amount.isEmpty())
            typesAmount(row, amount);
    }

    ItemTwin twin;

private:
    [[nodiscard]] ItemGrid *gridOf(const QString &objectName) const
    {
        return page->findChild<ItemGrid *>(objectName + QLatin1StringView("Grid"));
    }
};

/// What the file holds of the grid's table: trip, name and amount, as entered.
inline QList<QStringList> storedItems(const Workspace &workspace, const QString &table)
{
    return workspace.rows(
        QStringLiteral("SELECT trip_id, name, amount FROM %1 ORDER BY id").arg(table));
}
