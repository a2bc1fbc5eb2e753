#include "support/Person.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "trips/fuel/FuelGrid.h"

#include <QComboBox>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QComboBox *typeBox(const FuelGrid &grid, int row)
{
    return qobject_cast<QComboBox *>(grid.cellWidget(row, FuelGrid::TypeColumn));
}

/// Whether each cell of the row can be edited, from left to right.
QList<bool> editable(const FuelGrid &grid, int row)
{
    QList<bool> cells;
    for (int column = 0; column < grid.columnCount(); ++column)
        cells.append(grid.item(row, column)->flags().testFlag(Qt::ItemIsEditable));
    return cells;
}

TripRows::FuelRow truckFuel()
{
    return {u"Truck Fuel"_s, 412.80, 25.0, u"100"_s};
}

} // namespace

class tst_FuelGrid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void columnsAreThoseOfAPurchase()
    {
        const Workspace workspace;
        const FuelGrid grid;
        QCOMPARE(headers(&grid),
                 QStringList({u"Item Type"_s, u"Cost"_s, u"Discount"_s, u"Gallons"_s, u"$/Gal"_s}));
        QCOMPARE(grid.columnWidth(FuelGrid::TypeColumn), 150);
        for (int column = FuelGrid::CostColumn; column <= FuelGrid::PriceColumn; ++column)
            QCOMPARE(grid.columnWidth(column), 120);
        QCOMPARE(grid.minimumHeight(), 100);
        QCOMPARE(grid.selectionBehavior(), QAbstractItemView::SelectRows);
        QCOMPARE(grid.selectionMode(), QAbstractItemView::SingleSelection);
        QCOMPARE(grid.rowCount(), 0);
    }

    void purchaseShowsItsPricePerGallon()
    {
        const Workspace workspace;
        FuelGrid grid;
        grid.appendRow(truckFuel());
        QCOMPARE(texts(&grid),
                 QList<QStringList>({{u""_s, u"$412.80"_s, u"$25.00"_s, u"100"_s, u"$3.8780"_s}}));
        for (int column : {FuelGrid::CostColumn, FuelGrid::DiscountColumn, FuelGrid::PriceColumn})
            QCOMPARE(Qt::Alignment(grid.item(0, column)->textAlignment()),
                     Qt::AlignRight | Qt::AlignVCenter);
        QCOMPARE(grid.item(0, FuelGrid::CostColumn)->data(Qt::UserRole), QVariant(412.8));
        QCOMPARE(grid.item(0, FuelGrid::DiscountColumn)->data(Qt::UserRole), QVariant(25.0));
    }

    void defHasNoPricePerGallon()
    {
        const Workspace workspace;
        FuelGrid grid;
        grid.appendRow({u"Def"_s, 21.35, 0.0, u"5.000"_s});
        grid.appendRow({u"Reefer Fuel"_s, 88.40, 0.0, u"22.5"_s});
        grid.appendRow({u"Truck Fuel"_s, 50.0, 0.0, u"0.000"_s});
        QCOMPARE(column(&grid, u"$/Gal"_s), QStringList({u""_s, u"$3.9289"_s, u""_s}));
    }

    void typeStandsInABoxOnABlankCell()
    {
        const Workspace workspace;
        FuelGrid grid;
        grid.appendRow({u"reefer_fuel"_s, 88.40, 0.0, u"22.5"_s});
        const QComboBox *box = typeBox(grid, 0);
        QCOMPARE(box->currentText(), u"Reefer Fuel"_s);
        QCOMPARE(box->isEditable(), false);
        QCOMPARE(box->minimumContentsLength(), 12);
        QCOMPARE(box->minimumWidth(), 150);
        QCOMPARE(box->accessibleName(), u"Item Type"_s);
        QCOMPARE(box->count(), 3);
        QCOMPARE(box->itemText(0), u"Truck Fuel"_s);
        QCOMPARE(box->itemText(1), u"Reefer Fuel"_s);
        QCOMPARE(box->itemText(2), u"Def"_s);
        QCOMPARE(grid.item(0, FuelGrid::TypeColumn)->text(), u""_s);
        QCOMPARE(grid.item(0, FuelGrid::TypeColumn)->data(Qt::UserRole).toString(),
                 u"Reefer Fuel"_s);
    }

    void everyTypeShowsAsOneOfTheList_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("shown");
        QTest::newRow("truck fuel") << u"Truck Fuel"_s << u"Truck Fuel"_s;
        QTest::newRow("another spelling") << u"tractor fuel"_s << u"Truck Fuel"_s;
        QTest::newRow("another case") << u"REEFER FUEL"_s << u"Reefer Fuel"_s;
        QTest::newRow("as the cost item") << u"DEF"_s << u"Def"_s;
        QTest::newRow("in words") << u"Diesel Exhaust Fluid"_s << u"Def"_s;
        QTest::newRow("not of the list") << u"Truck Wash"_s << u"Truck Fuel"_s;
        QTest::newRow("blank") << u""_s << u"Truck Fuel"_s;
    }

    void everyTypeShowsAsOneOfTheList()
    {
        const Workspace workspace;
        FuelGrid grid;
        QFETCH(const QString, stored);
        grid.appendRow({stored, 10.0, 0.0, u"4"_s});
        QTEST(typeBox(grid, 0)->currentText(), "shown");
        QTEST(grid.valuesAt(0).itemType, "shown");
    }

    void gridIsReadOnlyUntilItIsToBeEdited()
    {
        const Workspace workspace;
        FuelGrid grid;
        grid.appendRow(truckFuel());
        QCOMPARE(grid.editTriggers(), QAbstractItemView::NoEditTriggers);
        QCOMPARE(editable(grid, 0), QList<bool>({false, false, false, false, false}));
        QCOMPARE(typeBox(grid, 0)->isEnabled(), false);
    }

    void allButThePriceCanBeEdited()
    {
        const Workspace workspace;
        FuelGrid grid;
        grid.appendRow(truckFuel());
        grid.setFuelEditMode(true);
        grid.appendRow(truckFuel());
        QCOMPARE(grid.editTriggers(), QAbstractItemView::DoubleClicked
                                          | QAbstractItemView::EditKeyPressed
                                          | QAbstractItemView::AnyKeyPressed);
        for (int row = 0; row < 2; ++row) {
            QCOMPARE(editable(grid, row), QList<bool>({true, true, true, true, false}));
            QCOMPARE(typeBox(grid, row)->isEnabled(), true);
        }
    }

    void editingEndsForAllRows()
    {
        const Workspace workspace;
        FuelGrid grid;
        grid.setFuelEditMode(true);
        grid.appendRow(truckFuel());
        grid.setFuelEditMode(false);
        grid.appendRow(truckFuel());
        QCOMPARE(grid.editTriggers(), QAbstractItemView::NoEditTriggers);
        for (int row = 0; row < 2; ++row) {
            QCOMPARE(editable(grid, row), QList<bool>({false, false, false, false, false}));
            QCOMPARE(typeBox(grid, row)->isEnabled(), false);
        }
    }

    void changingTheModeIsNoEdit()
    {
        const Workspace workspace;
        FuelGrid grid;
        const QSignalSpy edits(&grid, &FuelGrid::rowEdited);
        grid.appendRow(truckFuel());
        grid.setFuelEditMode(true);
        grid.setFuelEditMode(false);
        grid.updatePrices();
        QCOMPARE(edits.size(), 0);
    }

    void typedNumberMovesThePrice_data()
    {
        QTest::addColumn<int>("cell");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QStringList>("row");
        const QString cost = u"$412.80"_s;
        const QString discount = u"$25.00"_s;
        const QString gallons = u"100"_s;
        QTest::newRow("cost") << int(FuelGrid::CostColumn) << u"$1,025.5"_s
                              << QStringList(
                                     {u""_s, u"$1025.50"_s, discount, gallons, u"$10.0050"_s});
        QTest::newRow("words as cost")
            << int(FuelGrid::CostColumn) << u"abc"_s
            << QStringList({u""_s, u"$0.00"_s, discount, gallons, u"$-0.2500"_s});
        QTest::newRow("discount") << int(FuelGrid::DiscountColumn) << u"12.8"_s
                                  << QStringList({u""_s, cost, u"$12.80"_s, gallons, u"$4.0000"_s});
        QTest::newRow("discount below zero")
            << int(FuelGrid::DiscountColumn) << u"-25"_s
            << QStringList({u""_s, cost, u"$-25.00"_s, gallons, u"$4.3780"_s});
        QTest::newRow("gallons") << int(FuelGrid::GallonsColumn) << u"77.56"_s
                                 << QStringList({u""_s, cost, discount, u"77.56"_s, u"$5.0000"_s});
        QTest::newRow("no gallons") << int(FuelGrid::GallonsColumn) << u"0"_s
                                    << QStringList({u""_s, cost, discount, u"0"_s, u""_s});
        QTest::newRow("words as gallons") << int(FuelGrid::GallonsColumn) << u"full"_s
                                          << QStringList({u""_s, cost, discount, u"full"_s, u""_s});
    }

    void typedNumberMovesThePrice()
    {
        const Workspace workspace;
        FuelGrid grid;
        QFETCH(const int, cell);
        QFETCH(const QString, typed);
        QFETCH(const QStringList, row);
        grid.appendRow(truckFuel());
        const QSignalSpy edits(&grid, &FuelGrid::rowEdited);
        grid.item(0, cell)->setText(typed);
        QCOMPARE(texts(&grid), QList<QStringList>({row}));
        QCOMPARE(edits.size(), 1);
    }

    void chosenTypeMovesThePrice()
    {
        const Workspace workspace;
        FuelGrid grid;
        grid.setFuelEditMode(true);
        grid.appendRow(truckFuel());
        const QSignalSpy edits(&grid, &FuelGrid::rowEdited);
        Person::chooses(typeBox(grid, 0), u"Def"_s);
        QCOMPARE(column(&grid, u"$/Gal"_s), QStringList({u""_s}));
        QCOMPARE(grid.item(0, FuelGrid::TypeColumn)->data(Qt::UserRole).toString(), u"Def"_s);
        QCOMPARE(edits.size(), 1);
        Person::chooses(typeBox(grid, 0), u"Reefer Fuel"_s);
        QCOMPARE(column(&grid, u"$/Gal"_s), QStringList({u"$3.8780"_s}));
        QCOMPARE(edits.size(), 2);
    }

    void typeFollowsItsBoxWhenRowsMove()
    {
        const Workspace workspace;
        FuelGrid grid;
        grid.setFuelEditMode(true);
        grid.appendRow({u"Def"_s, 21.35, 0.0, u"5"_s});
        grid.appendRow(truckFuel());
        grid.removeRow(0);
        Person::chooses(typeBox(grid, 0), u"Def"_s);
        QCOMPARE(grid.item(0, FuelGrid::TypeColumn)->data(Qt::UserRole).toString(), u"Def"_s);
        QCOMPARE(column(&grid, u"$/Gal"_s), QStringList({u""_s}));
    }

    void boxThatHasLeftTheGridMovesNothing()
    {
        const Workspace workspace;
        FuelGrid grid;
        grid.setFuelEditMode(true);
        grid.appendRow({u"Def"_s, 21.35, 0.0, u"5"_s});
        grid.appendRow(truckFuel());
        const QPointer<QComboBox> box = typeBox(grid, 0);
        grid.removeRow(0);
        const QSignalSpy edits(&grid, &FuelGrid::rowEdited);
        QVERIFY(box); // it is deleted only later
        Person::chooses(box, u"Reefer Fuel"_s);
        QCOMPARE(grid.valuesAt(0).itemType, u"Truck Fuel"_s);
        QCOMPARE(edits.size(), 0);
    }

    void wheelOverATypeChangesNothing()
    {
        const Workspace workspace;
        FuelGrid grid;
        Person::shows(grid);
        grid.setFuelEditMode(true);
        grid.appendRow(truckFuel());
        grid.setFocus();
        Person::turnsWheelOver(typeBox(grid, 0));
        QCOMPARE(typeBox(grid, 0)->currentText(), u"Truck Fuel"_s);
    }

    void rowIsReadAsNumbers()
    {
        const Workspace workspace;
        FuelGrid grid;
        grid.appendRow({u"def"_s, 21.35, -1.5, u" 1,005.5 "_s});
        const DomainRules::FuelRowValues row = grid.valuesAt(0);
        QCOMPARE(row.itemType, u"Def"_s);
        QCOMPARE(row.cost, 21.35);
        QCOMPARE(row.discount, -1.5);
        QCOMPARE(row.gallons, 1005.5);
        QCOMPARE(grid.values().size(), 1);
    }

    void typeWithoutABoxIsThatOfTheCell()
    {
        const Workspace workspace;
        FuelGrid grid;
        grid.appendRow(truckFuel());
        grid.removeCellWidget(0, FuelGrid::TypeColumn);
        QTableWidgetItem *below = grid.item(0, FuelGrid::TypeColumn);
        QCOMPARE(grid.valuesAt(0).itemType, u"Truck Fuel"_s);
        below->setData(Qt::UserRole, u" reefer_fuel "_s);
        QCOMPARE(grid.valuesAt(0).itemType, u"Reefer Fuel"_s);
        below->setData(Qt::UserRole, u" "_s);
        below->setText(u" DEF "_s);
        QCOMPARE(grid.valuesAt(0).itemType, u"Def"_s);
        QCOMPARE(column(&grid, u"$/Gal"_s), QStringList({u""_s}));
    }

    void gridGrowsWithTheScaleButIsNeverLower_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("leastHeight");
        QTest::addColumn<int>("costWidth");
        QTest::newRow("75") << 75 << 100 << 90;
        QTest::newRow("100") << 100 << 100 << 120;
        QTest::newRow("175") << 175 << 175 << 210;
    }

    void gridGrowsWithTheScaleButIsNeverLower()
    {
        const Workspace workspace;
        FuelGrid grid;
        QFETCH(const int, percent);
        grid.applyScale(grid.font(), percent);
        QTEST(grid.minimumHeight(), "leastHeight");
        QTEST(grid.columnWidth(FuelGrid::CostColumn), "costWidth");
    }
};

TEST_CLASS(tst_FuelGrid)
#include "tst_FuelGrid.moc"
