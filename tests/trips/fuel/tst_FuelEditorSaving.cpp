#include "data/DatabaseLocator.h"
#include "support/DialogRobot.h"
#include "support/RowMakers.h"
#include "support/TestProgram.h"
#include "trips/fuel/FuelWindow.h"

using namespace Qt::StringLiterals;

namespace {

const QString editButton = u"Edit Fuel Rows"_s;
const QString deleteButton = u"Delete Selected Row"_s;
const QString saveButton = u"Save Fuel Rows"_s;
const QString saveTripButton = u"Save Trip / Changes"_s;
const QString saved = u"Saved fuel/detail rows."_s;
const QString refused = u"the book is full Unable to fetch row"_s;

/// Makes trips.db with trip 1, which bought 100 gallons for $387.80.
QString makeTripWithFuel(Workspace &workspace)
{
    const QString path = workspace.makeTrips();
    const qint64 id = trip().no(u"4471203"_s).payweek(u"04/18/2026"_s).insert(workspace);
    fuel(id, u"Truck Fuel"_s, 412.80, 25.0, 100.0).insert(workspace);
    return path;
}

/// From now on the file refuses this change to a table.
void refuse(const Workspace &workspace, const QString &change)
{
    static int count = 0;
    workspace.execute(u"CREATE TRIGGER full%1 BEFORE %2 "
                      "BEGIN SELECT RAISE(FAIL, 'the book is full'); END"_s.arg(
                          QString::number(++count), change));
}

/// Makes the type of a row what no person can choose.
void setType(const FuelWindow &window, int row, const QString &type)
{
    window.grid()->removeCellWidget(row, FuelGrid::TypeColumn);
    window.grid()->item(row, FuelGrid::TypeColumn)->setData(Qt::UserRole, type);
}

const QStringList truckFuelRow = {u"1"_s,     u"fuel"_s, u"Truck Fuel"_s,
                                  u"412.8"_s, u"25"_s,   u"100"_s};

} // namespace

/// What the fuel grid writes, and the cost items that follow from it.
class tst_FuelEditorSaving : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsNeedATripThatIsInTheFile()
    {
        Workspace workspace;
        DialogRobot robot;
        FuelWindow window(workspace.makeTrips());
        window.types("tripNoField", u"4471203"_s);
        window.clicks(editButton);
        window.addsFuel(u"Def"_s, u"21.35"_s, u"0"_s, u"5"_s);
        window.statuses.clear();
        robot.expect(DialogRobot::Information, saveButton,
                     u"Load or save a trip before saving fuel rows."_s);
        window.clicks(saveButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(window.costItems(), QList<QStringList>());
        QCOMPARE(window.statuses, QStringList());
        QCOMPARE(window.named<QPushButton>("fuelSaveButton")->isEnabled(), true);
        QCOMPARE(storedFuel(workspace), QList<QStringList>());
    }

    void rowsAndTheirCostsAreWrittenAndEditingEnds()
    {
        Workspace workspace;
        const DialogRobot robot;
        const QString path = makeTripWithFuel(workspace);
        FuelWindow window(path);
        window.clicksTrip(0);
        window.clicks(editButton);
        window.addsFuel(u"Def"_s, u"$1,021.35"_s, u"-1"_s, u"5.5"_s);
        window.statuses.clear();
        window.clicks(saveButton);
        QCOMPARE(storedFuel(workspace), QList<QStringList>({truckFuelRow,
                                                            {u"1"_s, u"fuel"_s, u"Def"_s,
                                                             u"1021.35"_s, u"-1"_s, u"5.5"_s}}));
        QCOMPARE(storedCosts(workspace),
                 QList<QStringList>(
                     {{u"1"_s, u"DEF"_s, u"1022.35"_s}, {u"1"_s, u"Truck Fuel"_s, u"387.8"_s}}));
        QCOMPARE(window.statuses, QStringList({saved}));
        QCOMPARE(window.enabledButtons(),
                 QStringList({editButton, u"Scan Fuel From Settlement PDF"_s}));
        QCOMPARE(window.typeBox(1)->isEnabled(), false);
        QCOMPARE(robot.seen().size(), 0);
        QCOMPARE(workspace
                     .value(u"SELECT COUNT(*) FROM trip_detail_items "
                            "WHERE LENGTH(created_at) = 19"_s)
                     .toInt(),
                 2);
    }

    void tripItselfIsUntouchedUntilItIsSaved()
    {
        Workspace workspace;
        const QString path = makeTripWithFuel(workspace);
        const QList<QStringList> before = workspace.rows(u"SELECT * FROM trips"_s);
        const FuelWindow window(path);
        window.clicksTrip(0);
        window.clicks(editButton);
        window.clicks(saveButton);
        QCOMPARE(workspace.rows(u"SELECT * FROM trips"_s), before);
        QCOMPARE(column(window.list(), u"Total Cost"_s), QStringList({u"$0.00"_s}));
        window.clicks(saveTripButton);
        QCOMPARE(workspace.rows(u"SELECT total_cost, net_revenue FROM trips"_s),
                 QList<QStringList>({{u"387.8"_s, u"-387.8"_s}}));
        QCOMPARE(column(window.list(), u"Total Cost"_s), QStringList({u"$387.80"_s}));
    }

    void saveOfTheTripCarriesFuelIntoItsCost()
    {
        Workspace workspace;
        const FuelWindow window(workspace.makeTrips());
        window.types("tripNoField", u"4471203"_s);
        window.types("payweekField", u"04/18/2026"_s);
        window.clicks(editButton);
        window.addsFuel(u"Truck Fuel"_s, u"412.80"_s, u"25"_s, u"100"_s);
        window.clicks(saveTripButton);
        QCOMPARE(storedFuel(workspace), QList<QStringList>({truckFuelRow}));
        QCOMPARE(storedCosts(workspace),
                 QList<QStringList>({{u"1"_s, u"Truck Fuel"_s, u"387.8"_s}}));
        QCOMPARE(workspace.value(u"SELECT total_cost FROM trips"_s).toDouble(), 387.8);
        QCOMPARE(window.named<QLabel>("costItemsTotals")->text(),
                 u"Cost totals: Rows 1 | Total Cost $387.80"_s);
        QCOMPARE(window.named<QPushButton>("fuelSaveButton")->isEnabled(), true);
    }

    void eachKindOfFuelIsOneCostItem()
    {
        Workspace workspace;
        const QString path = makeTripWithFuel(workspace);
        fuel(1, u"Truck Fuel"_s, 100.0, 0.0, 25.0).insert(workspace);
        fuel(1, u"Def"_s, 21.35, 0.0, 5.0).insert(workspace);
        const FuelWindow window(path);
        window.clicksTrip(0);
        window.clicks(editButton);
        window.clicks(saveButton);
        QCOMPARE(window.costItems(),
                 QList<QStringList>({{u"DEF"_s, u"$21.35"_s}, {u"Truck Fuel"_s, u"$487.80"_s}}));
    }

    void fuelThatCameToNothingIsNoCostItem()
    {
        Workspace workspace;
        const QString path = makeTripWithFuel(workspace);
        fuel(1, u"Reefer Fuel"_s, 25.0, 25.0, 10.0).insert(workspace);
        const FuelWindow window(path);
        window.clicksTrip(0);
        window.clicks(editButton);
        window.clicks(saveButton);
        QCOMPARE(window.costItems(), QList<QStringList>({{u"Truck Fuel"_s, u"$387.80"_s}}));
        QCOMPARE(storedFuel(workspace).size(), 2);
    }

    void typedCostItemsOfFuelAreReplacedAndTheOthersStay()
    {
        Workspace workspace;
        const QString path = makeTripWithFuel(workspace);
        for (const QString &name : {u"TRUCK wash"_s, u"Scale"_s, u"Truck Fuel"_s, u"Reefer Fuel"_s,
                                    u"def"_s, u"Truck Fuel Tax"_s})
            costItem(1, name, 12.0).insert(workspace);
        const FuelWindow window(path);
        window.clicksTrip(0);
        window.clicks(saveTripButton);
        QCOMPARE(storedCosts(workspace),
                 QList<QStringList>({{u"1"_s, u"Scale"_s, u"12"_s},
                                     {u"1"_s, u"Truck Fuel Tax"_s, u"12"_s},
                                     {u"1"_s, u"Truck Fuel"_s, u"387.8"_s}}));
        QCOMPARE(workspace.value(u"SELECT total_cost FROM trips"_s).toDouble(), 411.8);
    }

    void costItemOfFuelKeepsItsSpellingThoughTheFileHasAnother()
    {
        Workspace workspace;
        const QString path = makeTripWithFuel(workspace);
        costItem(7, u"truck fuel"_s, 12.0).insert(workspace);
        const FuelWindow window(path);
        window.clicksTrip(0);
        window.clicks(saveTripButton);
        QCOMPARE(window.costItems(), QList<QStringList>({{u"Truck Fuel"_s, u"$387.80"_s}}));
        QCOMPARE(workspace.value(u"SELECT name FROM trip_cost_items WHERE trip_id = 1"_s),
                 u"Truck Fuel"_s);
    }

    void typedTruckWashGoesAtEverySaveOfATrip()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        trip().no(u"4471203"_s).payweek(u"04/18/2026"_s).insert(workspace);
        costItem(1, u"Truck Wash"_s, 40.0).insert(workspace);
        const FuelWindow window(path);
        window.clicksTrip(0);
        window.clicks(u"Save Cost Items"_s);
        QCOMPARE(storedCosts(workspace).size(), 1);
        window.clicks(saveTripButton);
        QCOMPARE(storedCosts(workspace), QList<QStringList>());
        QCOMPARE(window.costItems(), QList<QStringList>());
        QCOMPARE(window.named<QLabel>("costItemsTotals")->text(), u"Cost totals: no rows"_s);
    }

    void deletedFuelTakesItsCostItemsAlong()
    {
        Workspace workspace;
        const QString path = makeTripWithFuel(workspace);
        costItem(1, u"Truck Fuel"_s, 387.8).insert(workspace);
        costItem(1, u"Scale"_s, 12.0).insert(workspace);
        const FuelWindow window(path);
        window.clicksTrip(0);
        window.clicks(editButton);
        Person::clicksCell(window.grid(), 0, FuelGrid::CostColumn);
        window.clicks(deleteButton);
        QCOMPARE(window.costItems().size(), 2);
        window.clicks(saveButton);
        QCOMPARE(storedFuel(workspace), QList<QStringList>());
        QCOMPARE(storedCosts(workspace), QList<QStringList>({{u"1"_s, u"Scale"_s, u"12"_s}}));
        QCOMPARE(window.totals(),
                 u"Fuel totals: Rows 0 | Cost $0.00 | Discount $0.00 | Net $0.00 | "
                 "Gallons 0.000 | Truck avg n/a | Reefer avg n/a"_s);
    }

    void onlyTheTripsOwnFuelIsRewritten()
    {
        Workspace workspace;
        const QString path = makeTripWithFuel(workspace);
        fuel(1, u"Toll"_s, 3.0, 0.0, 0.0).set(u"group_name"_s, u"toll"_s).insert(workspace);
        fuel(2, u"Def"_s, 21.35, 0.0, 5.0).insert(workspace);
        const FuelWindow window(path);
        window.clicksTrip(0);
        window.clicks(editButton);
        window.clicks(saveButton);
        QCOMPARE(storedFuel(workspace),
                 QList<QStringList>({{u"1"_s, u"toll"_s, u"Toll"_s, u"3"_s, u"0"_s, u"0"_s},
                                     {u"2"_s, u"fuel"_s, u"Def"_s, u"21.35"_s, u"0"_s, u"5"_s},
                                     truckFuelRow}));
    }

    void refusedTypeStopsTheSaveBeforeAnythingIsWritten_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");
        QTest::newRow("none") << u""_s << u"Fuel Detail Missing Type"_s
                              << u"A fuel/detail row has values but no item type. Add an item type "
                                 "or remove the row."_s;
        QTest::newRow("no fuel") << u"Truck Wash"_s << u"Fuel Detail Invalid Type"_s
                                 << u"Fuel/detail item type must be Truck Fuel, Reefer Fuel, or "
                                    "Def."_s;
    }

    void refusedTypeStopsTheSaveBeforeAnythingIsWritten()
    {
        Workspace workspace;
        DialogRobot robot;
        QFETCH(const QString, type);
        QFETCH(const QString, title);
        QFETCH(const QString, text);
        const QString path = makeTripWithFuel(workspace);
        FuelWindow window(path);
        window.clicksTrip(0);
        window.clicks(editButton);
        typesIntoCell(window.grid(), 0, FuelGrid::CostColumn, u"500"_s);
        window.addsFuel(u"Def"_s, u"21.35"_s, u"0"_s, u"5"_s);
        setType(window, 1, type);
        window.statuses.clear();
        robot.expect(DialogRobot::Warning, title, text);
        window.clicks(saveButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(storedFuel(workspace), QList<QStringList>({truckFuelRow}));
        QCOMPARE(storedCosts(workspace).first(), QStringList({u"1"_s, u"Truck Fuel"_s, u"475"_s}));
        QCOMPARE(window.grid()->rowCount(), 2);
        QCOMPARE(window.statuses, QStringList({saved}));
    }

    void rowThatSaysNothingIsPassedOver()
    {
        Workspace workspace;
        const DialogRobot robot;
        const QString path = makeTripWithFuel(workspace);
        const FuelWindow window(path);
        window.clicksTrip(0);
        window.clicks(editButton);
        window.clicks(u"Add Row"_s);
        setType(window, 1, {});
        window.clicks(saveButton);
        QCOMPARE(storedFuel(workspace), QList<QStringList>({truckFuelRow}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void rowWithOnlyATypeIsStored()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        trip().insert(workspace);
        const FuelWindow window(path);
        window.clicksTrip(0);
        window.clicks(editButton);
        window.clicks(u"Add Row"_s);
        window.clicks(saveButton);
        QCOMPARE(storedFuel(workspace), QList<QStringList>({{u"1"_s, u"fuel"_s, u"Truck Fuel"_s,
                                                             u"0"_s, u"0"_s, u"0"_s}}));
        QCOMPARE(storedCosts(workspace), QList<QStringList>());
    }

    void rowThatTheFileRefusesStopsTheSave()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeTripWithFuel(workspace);
        FuelWindow window(path);
        window.clicksTrip(0);
        window.clicks(editButton);
        window.addsFuel(u"Def"_s, u"21.35"_s, u"0"_s, u"5"_s);
        window.addsFuel(u"Reefer Fuel"_s, u"88.40"_s, u"0"_s, u"22.5"_s);
        window.statuses.clear();
        refuse(workspace, u"INSERT ON trip_detail_items WHEN NEW.item_type = 'Def'"_s);
        robot.expect(DialogRobot::Critical, u"Save Fuel Details Failed"_s, refused);
        window.clicks(saveButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(storedFuel(workspace), QList<QStringList>({truckFuelRow}));
        QCOMPARE(window.rows().size(), 3);
        QCOMPARE(storedCosts(workspace).size(), 3);
        QCOMPARE(window.statuses, QStringList({saved}));
    }

    void failedDeleteWritesNothing()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeTripWithFuel(workspace);
        const FuelWindow window(path);
        window.clicksTrip(0);
        window.clicks(editButton);
        window.addsFuel(u"Def"_s, u"21.35"_s, u"0"_s, u"5"_s);
        refuse(workspace, u"DELETE ON trip_detail_items"_s);
        robot.expect(DialogRobot::Critical, u"Save Fuel Details Failed"_s, refused);
        window.clicks(saveButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(storedFuel(workspace), QList<QStringList>({truckFuelRow}));
        QCOMPARE(window.rows().size(), 2);
    }

    void costItemsAreWrittenBeforeTheRowsAndOneFailureKeepsNoOther()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeTripWithFuel(workspace);
        FuelWindow window(path);
        window.clicksTrip(0);
        window.clicks(editButton);
        window.statuses.clear();
        refuse(workspace, u"INSERT ON trip_cost_items"_s);
        refuse(workspace, u"INSERT ON trip_detail_items"_s);
        robot.expect(DialogRobot::Critical, u"Save Cost Items Failed"_s, refused);
        robot.expect(DialogRobot::Critical, u"Save Fuel Details Failed"_s, refused);
        window.clicks(saveButton);
        QCOMPARE(robot.seen().size(), 2);
        QCOMPARE(window.costItems(), QList<QStringList>({{u"Truck Fuel"_s, u"$387.80"_s}}));
        QCOMPARE(window.enabledButtons().first(), editButton);
        QCOMPARE(window.statuses, QStringList({saved}));
    }

    void tableThatCannotBeMadeStopsTheSave()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeTripWithFuel(workspace);
        const FuelWindow window(path);
        window.clicksTrip(0);
        window.clicks(editButton);
        workspace.execute(u"DROP TABLE trip_detail_items"_s);
        workspace.execute(u"CREATE INDEX trip_detail_items ON trips(trip_no)"_s);
        robot.expectContaining(DialogRobot::Critical, u"Trip Detail Setup Error"_s,
                               u"already an index named trip_detail_items"_s);
        window.clicks(saveButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(window.rows().size(), 1);
    }

    void fileThatIsNoLongerOpenIsLeftAlone()
    {
        Workspace workspace;
        const QString path = makeTripWithFuel(workspace);
        const QByteArray before = workspace.bytes(u"trips.db"_s);
        FuelWindow window(path);
        window.clicksTrip(0);
        window.clicks(editButton);
        typesIntoCell(window.grid(), 0, FuelGrid::CostColumn, u"500"_s);
        DatabaseLocator::closeAllSqliteConnections();
        window.statuses.clear();
        window.clicks(saveButton);
        QCOMPARE(column(window.grid(), u"Cost"_s), QStringList({u"$500.00"_s}));
        QCOMPARE(window.costItems(), QList<QStringList>({{u"Truck Fuel"_s, u"$475.00"_s}}));
        QCOMPARE(window.statuses, QStringList({saved}));
        QCOMPARE(workspace.bytes(u"trips.db"_s), before);
    }
};

TEST_CLASS(tst_FuelEditorSaving)
#include "tst_FuelEditorSaving.moc"
