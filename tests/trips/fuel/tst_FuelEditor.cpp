#include "support/DialogRobot.h"
#include "support/RowMakers.h"
#include "support/TestProgram.h"
#include "trips/fuel/FuelWindow.h"

#include <QGroupBox>

using namespace Qt::StringLiterals;

namespace {

const QString editButton = u"Edit Fuel Rows"_s;
const QString addButton = u"Add Row"_s;
const QString deleteButton = u"Delete Selected Row"_s;
const QString saveButton = u"Save Fuel Rows"_s;
const QString scanButton = u"Scan Fuel From Settlement PDF"_s;

const QString zeroTotals = u"Fuel totals: Rows 0 | Cost $0.00 | Discount $0.00 | Net $0.00 | "
                           "Gallons 0.000 | Truck avg n/a | Reefer avg n/a"_s;

} // namespace

class tst_FuelEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sectionStartsReadOnlyWithoutRows()
    {
        const Workspace workspace;
        const FuelWindow window;
        const auto *section = window.named<QGroupBox>("fuel");
        QStringList buttons;
        for (const QPushButton *button : section->findChildren<QPushButton *>())
            buttons.append(button->text());
        QCOMPARE(section->title(), u"Fuel / DEF Details"_s);
        QCOMPARE(buttons,
                 QStringList({editButton, addButton, deleteButton, saveButton, scanButton}));
        QCOMPARE(window.enabledButtons(), QStringList({editButton, scanButton}));
        QCOMPARE(window.grid()->accessibleName(), u"Fuel / DEF Details"_s);
        QCOMPARE(window.rows(), QList<QStringList>());
        QCOMPARE(window.totals(), u"Fuel totals: no rows"_s);
    }

    void emptyGridReadsAsZerosAfterTheFirstLoad()
    {
        Workspace workspace;
        const FuelWindow window(workspace.makeTrips());
        QCOMPARE(window.totals(), u"Fuel totals: no rows"_s);
        window.clicks(u"New Trip"_s);
        QCOMPARE(window.totals(), zeroTotals);
    }

    void rowCannotBeAddedBeforeTheRowsAreEdited()
    {
        Workspace workspace;
        const FuelWindow window(workspace.makeTrips());
        QTest::mouseClick(window.named<QPushButton>("fuelAddButton"), Qt::LeftButton);
        QCOMPARE(window.rows(), QList<QStringList>());
        window.clicks(editButton);
        QCOMPARE(window.enabledButtons(),
                 QStringList({addButton, deleteButton, saveButton, scanButton}));
        QTest::mouseClick(window.named<QPushButton>("fuelAddButton"), Qt::LeftButton);
        QCOMPARE(window.rows().size(), 1);
    }

    void cellsOpenOnlyWhileTheRowsAreEdited()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        fuel(trip().insert(workspace), u"Truck Fuel"_s, 412.80, 25.0, 100.0).insert(workspace);
        const FuelWindow window(path);
        window.clicksTrip(0);
        for (int column = FuelGrid::CostColumn; column <= FuelGrid::PriceColumn; ++column)
            QVERIFY(!opensCell(window.grid(), 0, column));
        QCOMPARE(window.typeBox(0)->isEnabled(), false);
        window.clicks(editButton);
        QVERIFY(!opensCell(window.grid(), 0, FuelGrid::PriceColumn));
        QVERIFY(opensCell(window.grid(), 0, FuelGrid::GallonsColumn));
        QCOMPARE(window.typeBox(0)->isEnabled(), true);
    }

    void addedRowIsTruckFuelWithoutNumbers()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        const QByteArray before = workspace.bytes(u"trips.db"_s);
        const FuelWindow window(path);
        window.clicks(editButton);
        window.clicks(addButton);
        QCOMPARE(window.rows(), QList<QStringList>({{u"Truck Fuel"_s, u"$0.00"_s, u"$0.00"_s,
                                                     u"0.000"_s, u""_s}}));
        QCOMPARE(window.totals(),
                 u"Fuel totals: Rows 1 | Cost $0.00 | Discount $0.00 | Net $0.00 | "
                 "Gallons 0.000 | Truck avg n/a | Reefer avg n/a"_s);
        QCOMPARE(window.statuses, QStringList({u"Added fuel/detail row."_s}));
        QCOMPARE(workspace.bytes(u"trips.db"_s), before);
    }

    void typedPurchasesShowTheirPricesAndTotals()
    {
        Workspace workspace;
        const FuelWindow window(workspace.makeTrips());
        window.clicks(editButton);
        window.addsFuel(u"Truck Fuel"_s, u"$412.8"_s, u"25"_s, u"100"_s);
        window.addsFuel(u"Reefer Fuel"_s, u"88.40"_s, u"0"_s, u"22.5"_s);
        QCOMPARE(window.rows(),
                 QList<QStringList>(
                     {{u"Truck Fuel"_s, u"$412.80"_s, u"$25.00"_s, u"100"_s, u"$3.8780"_s},
                      {u"Reefer Fuel"_s, u"$88.40"_s, u"$0.00"_s, u"22.5"_s, u"$3.9289"_s}}));
        QCOMPARE(window.totals(),
                 u"Fuel totals: Rows 2 | Cost $501.20 | Discount $25.00 | Net $476.20 | "
                 "Gallons 122.500 | Truck avg $3.8780/gal | Reefer avg $3.9289/gal"_s);
        QCOMPARE(window.costItems(), QList<QStringList>());
    }

    void defHasNoPriceAndCountsInNoAverage()
    {
        Workspace workspace;
        const FuelWindow window(workspace.makeTrips());
        window.clicks(editButton);
        window.addsFuel(u"Truck Fuel"_s, u"400"_s, u"0"_s, u"100"_s);
        window.addsFuel(u"Def"_s, u"21.35"_s, u"0"_s, u"5"_s);
        QCOMPARE(column(window.grid(), u"$/Gal"_s), QStringList({u"$4.0000"_s, u""_s}));
        QCOMPARE(window.totals(),
                 u"Fuel totals: Rows 2 | Cost $421.35 | Discount $0.00 | Net $421.35 | "
                 "Gallons 105.000 | Truck avg $4.0000/gal | Reefer avg n/a"_s);
    }

    void chosenTypeMovesPriceAndTotals()
    {
        Workspace workspace;
        const FuelWindow window(workspace.makeTrips());
        window.clicks(editButton);
        window.addsFuel(u"Truck Fuel"_s, u"400"_s, u"0"_s, u"100"_s);
        Person::chooses(window.typeBox(0), u"Reefer Fuel"_s);
        QCOMPARE(window.totals(),
                 u"Fuel totals: Rows 1 | Cost $400.00 | Discount $0.00 | Net $400.00 | "
                 "Gallons 100.000 | Truck avg n/a | Reefer avg $4.0000/gal"_s);
        Person::chooses(window.typeBox(0), u"Def"_s);
        QCOMPARE(column(window.grid(), u"$/Gal"_s), QStringList({u""_s}));
        QCOMPARE(window.totals(),
                 u"Fuel totals: Rows 1 | Cost $400.00 | Discount $0.00 | Net $400.00 | "
                 "Gallons 100.000 | Truck avg n/a | Reefer avg n/a"_s);
    }

    void nothingSelectedIsNothingToDelete()
    {
        Workspace workspace;
        DialogRobot robot;
        const FuelWindow window(workspace.makeTrips());
        window.clicks(editButton);
        window.clicks(addButton);
        robot.expect(DialogRobot::Information, u"Remove Fuel Detail"_s,
                     u"Select a fuel/detail row first."_s);
        window.clicks(deleteButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(robot.seen().first().buttons, QStringList({u"OK"_s}));
        QCOMPARE(window.rows().size(), 1);
        QCOMPARE(window.statuses, QStringList({u"Added fuel/detail row."_s}));
    }

    void selectedRowIsDeletedFromTheGridAlone()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        fuel(trip().insert(workspace), u"Truck Fuel"_s, 412.80, 25.0, 100.0).insert(workspace);
        fuel(1, u"Def"_s, 21.35, 0.0, 5.0).insert(workspace);
        const QByteArray before = workspace.bytes(u"trips.db"_s);
        FuelWindow window(path);
        window.clicksTrip(0);
        window.statuses.clear();
        window.clicks(editButton);
        Person::clicksCell(window.grid(), 0, FuelGrid::CostColumn);
        window.clicks(deleteButton);
        QCOMPARE(window.rows(),
                 QList<QStringList>({{u"Def"_s, u"$21.35"_s, u"$0.00"_s, u"5"_s, u""_s}}));
        QCOMPARE(window.totals(),
                 u"Fuel totals: Rows 1 | Cost $21.35 | Discount $0.00 | Net $21.35 | "
                 "Gallons 5.000 | Truck avg n/a | Reefer avg n/a"_s);
        QCOMPARE(window.statuses, QStringList({u"Removed selected fuel/detail row."_s}));
        QCOMPARE(workspace.bytes(u"trips.db"_s), before);
    }

    void rowsOfTheTripAreShownAsTheyWereEntered()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        const qint64 id = trip().insert(workspace);
        fuel(id, u"tractor fuel"_s, 412.8, -25.0, 100.1234).insert(workspace);
        fuel(id + 1, u"Reefer Fuel"_s, 1.0, 0.0, 1.0).insert(workspace);
        fuel(id, u"Toll"_s, 1.0, 0.0, 1.0).set(u"group_name"_s, u"toll"_s).insert(workspace);
        fuel(id, u"DEF"_s, 21.35, 0.0, 5.0).set(u"group_name"_s, u"Fuel"_s).insert(workspace);
        const FuelWindow window(path);
        window.clicksTrip(0);
        QCOMPARE(window.rows(),
                 QList<QStringList>(
                     {{u"Truck Fuel"_s, u"$412.80"_s, u"$-25.00"_s, u"100.1234"_s, u"$4.3726"_s},
                      {u"Def"_s, u"$21.35"_s, u"$0.00"_s, u"5"_s, u""_s}}));
        QCOMPARE(window.totals(),
                 u"Fuel totals: Rows 2 | Cost $434.15 | Discount $-25.00 | Net $459.15 | "
                 "Gallons 105.123 | Truck avg $4.3726/gal | Reefer avg n/a"_s);
    }

    void storedTypeThatIsNoFuelShowsAsTruckFuel()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        fuel(trip().insert(workspace), u"Truck Wash"_s, 40.0, 0.0, 10.0).insert(workspace);
        const FuelWindow window(path);
        window.clicksTrip(0);
        QCOMPARE(window.rows(), QList<QStringList>({{u"Truck Fuel"_s, u"$40.00"_s, u"$0.00"_s,
                                                     u"10"_s, u"$4.0000"_s}}));
    }

    void anotherTripLeavesTheModeAsItWas()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        fuel(trip().insert(workspace), u"Truck Fuel"_s, 412.80, 25.0, 100.0).insert(workspace);
        const FuelWindow window(path);
        window.clicks(editButton);
        window.clicksTrip(0);
        QCOMPARE(window.typeBox(0)->isEnabled(), true);
        QCOMPARE(window.enabledButtons(),
                 QStringList({addButton, deleteButton, saveButton, scanButton}));
        window.clicks(u"New Trip"_s);
        QCOMPARE(window.rows(), QList<QStringList>());
        QCOMPARE(window.totals(), zeroTotals);
        QCOMPARE(window.enabledButtons(),
                 QStringList({addButton, deleteButton, saveButton, scanButton}));
    }

    void fileWithoutTheTableIsGivenOne()
    {
        Workspace workspace;
        const DialogRobot robot;
        const QString path = workspace.makeTrips();
        trip().insert(workspace);
        const FuelWindow window(path);
        workspace.execute(u"DROP TABLE trip_detail_items"_s);
        window.clicksTrip(0);
        QCOMPARE(storedFuel(workspace), QList<QStringList>());
        QCOMPARE(robot.seen().size(), 0);
    }

    void rowsThatCannotBeReadAreTold()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        trip().insert(workspace);
        const FuelWindow window(path);
        window.clicks(editButton);
        window.clicks(addButton);
        workspace.execute(u"ALTER TABLE trip_detail_items RENAME COLUMN cost TO price"_s);
        robot.expectContaining(DialogRobot::Critical, u"Load Fuel Details Failed"_s,
                               u"no such column: cost"_s);
        window.page->openTripById(1);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(window.rows(), QList<QStringList>());
        QCOMPARE(window.totals(), zeroTotals);
    }

    void tableThatCannotBeMadeIsTold()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        trip().insert(workspace);
        const FuelWindow window(path);
        workspace.execute(u"DROP TABLE trip_detail_items"_s);
        workspace.execute(u"CREATE INDEX trip_detail_items ON trips(trip_no)"_s);
        robot.expectContaining(DialogRobot::Critical, u"Trip Detail Setup Error"_s,
                               u"already an index named trip_detail_items"_s);
        robot.expectContaining(DialogRobot::Critical, u"Load Fuel Details Failed"_s,
                               u"no such table: trip_detail_items"_s);
        window.page->openTripById(1);
        QCOMPARE(robot.seen().size(), 2);
    }
};

TEST_CLASS(tst_FuelEditor)
#include "tst_FuelEditor.moc"
