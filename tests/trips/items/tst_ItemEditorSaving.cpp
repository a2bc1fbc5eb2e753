#include "data/DatabaseLocator.h"
#include "support/DialogRobot.h"
#include "support/RowMakers.h"
#include "support/TestProgram.h"
#include "trips/items/ItemsWindow.h"

using namespace Qt::StringLiterals;

namespace {

TripItemMaker item(const ItemTwin &twin, qint64 tripId, const QString &name, double amount)
{
    return {twin.table, tripId, name, amount};
}

/// Makes trips.db with trip 1, which has a layover of $50 in the grid's table.
QString makeTripWithLayover(Workspace &workspace, const ItemTwin &twin)
{
    const QString path = workspace.makeTrips();
    item(twin, trip().no(u"4471203"_s).insert(workspace), u"Layover"_s, 50.0).insert(workspace);
    return path;
}

/// From now on the file refuses this change to the table.
void refuse(const Workspace &workspace, const QString &change)
{
    workspace.execute(u"CREATE TRIGGER full BEFORE %1 "
                      "BEGIN SELECT RAISE(FAIL, 'the book is full'); END"_s.arg(change));
}

const QString refused = u"the book is full Unable to fetch row"_s;

} // namespace

/// What the pay grid and the cost grid write: every test runs for both.
class tst_ItemEditorSaving : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { addItemTwins(); }

    void itemsNeedATripThatIsInTheFile()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        DialogRobot robot;
        ItemsWindow window(twin, workspace.makeTrips());
        window.types("tripNoField", u"4471203"_s);
        window.addsItem(u"Layover"_s, u"50"_s);
        window.statuses.clear();
        robot.expect(DialogRobot::Information, twin.saveButton, twin.noTrip);
        window.clicks(twin.saveButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(window.items(), QList<QStringList>({{u"Layover"_s, u"$50.00"_s}}));
        QCOMPARE(window.statuses, QStringList());
        QCOMPARE(storedItems(workspace, twin.table), QList<QStringList>());
    }

    void itemsAreWrittenInGridOrder()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        const DialogRobot robot;
        const QString path = makeTripWithLayover(workspace, twin);
        ItemsWindow window(twin, path);
        window.clicksTrip(0);
        window.typesAmount(0, u"$1,234.5"_s);
        window.addsItem(u" Detention "_s, u"-12.25"_s);
        window.addsItem(u"Assist"_s, u"7"_s);
        window.statuses.clear();
        window.clicks(twin.saveButton);
        QCOMPARE(storedItems(workspace, twin.table),
                 QList<QStringList>({{u"1"_s, u"Layover"_s, u"1234.5"_s},
                                     {u"1"_s, u"Detention"_s, u"-12.25"_s},
                                     {u"1"_s, u"Assist"_s, u"7"_s}}));
        QCOMPARE(window.statuses, QStringList({twin.saved}));
        QCOMPARE(window.totals(), twin.totalLine.arg(u"3"_s, u"$1229.25"_s));
        QCOMPARE(robot.seen().size(), 0);
    }

    void onlyTheTripsOwnItemsAreRewritten()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        const QString path = makeTripWithLayover(workspace, twin);
        item(twin, 2, u"Scale"_s, 12.0).insert(workspace);
        TripItemMaker(twin.otherTable, 1, u"Toll"_s, 3.0).insert(workspace);
        const QList<QStringList> trips = workspace.rows(u"SELECT * FROM trips"_s);
        const ItemsWindow window(twin, path);
        window.clicksTrip(0);
        window.clicks(twin.addButton);
        window.typesName(1, u"Detention"_s);
        window.clicks(twin.saveButton);
        QCOMPARE(storedItems(workspace, twin.table),
                 QList<QStringList>({{u"2"_s, u"Scale"_s, u"12"_s},
                                     {u"1"_s, u"Layover"_s, u"50"_s},
                                     {u"1"_s, u"Detention"_s, u"0"_s}}));
        QCOMPARE(storedItems(workspace, twin.otherTable),
                 QList<QStringList>({{u"1"_s, u"Toll"_s, u"3"_s}}));
        QCOMPARE(workspace.rows(u"SELECT * FROM trips"_s), trips);
    }

    void nameWithoutAnAmountIsStoredWithZero()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        const QString path = workspace.makeTrips();
        trip().insert(workspace);
        const ItemsWindow window(twin, path);
        window.clicksTrip(0);
        window.addsItem(u"Layover"_s, {});
        window.clicks(twin.saveButton);
        QCOMPARE(storedItems(workspace, twin.table),
                 QList<QStringList>({{u"1"_s, u"Layover"_s, u"0"_s}}));
    }

    void rowWithNeitherIsNotStoredAndStaysUntilTheNextLoad()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        const DialogRobot robot;
        const QString path = workspace.makeTrips();
        trip().insert(workspace);
        const ItemsWindow window(twin, path);
        window.clicksTrip(0);
        window.addsItem(u"   "_s, u"0"_s);
        window.addsItem(u"Scale"_s, u"12"_s);
        window.clicks(twin.saveButton);
        QCOMPARE(storedItems(workspace, twin.table),
                 QList<QStringList>({{u"1"_s, u"Scale"_s, u"12"_s}}));
        QCOMPARE(window.items(),
                 QList<QStringList>({{u""_s, u"$0.00"_s}, {u"Scale"_s, u"$12.00"_s}}));
        window.clicksTrip(0);
        QCOMPARE(window.items(), QList<QStringList>({{u"Scale"_s, u"$12.00"_s}}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void twoItemsOfOneNameAreBothStored()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        const QString path = workspace.makeTrips();
        trip().insert(workspace);
        const ItemsWindow window(twin, path);
        window.clicksTrip(0);
        window.addsItem(u"Toll"_s, u"9"_s);
        window.addsItem(u"Scale"_s, u"12"_s);
        window.addsItem(u"Toll"_s, u"3"_s);
        window.clicks(twin.saveButton);
        QCOMPARE(storedItems(workspace, twin.table),
                 QList<QStringList>({{u"1"_s, u"Toll"_s, u"9"_s},
                                     {u"1"_s, u"Scale"_s, u"12"_s},
                                     {u"1"_s, u"Toll"_s, u"3"_s}}));
    }

    void removedRowIsGoneFromTheFileAfterASave()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        const QString path = makeTripWithLayover(workspace, twin);
        const ItemsWindow window(twin, path);
        window.clicksTrip(0);
        Person::clicksCell(window.grid(), 0, ItemGrid::AmountColumn);
        window.clicks(twin.removeButton);
        QCOMPARE(storedItems(workspace, twin.table).size(), 1);
        window.clicks(twin.saveButton);
        QCOMPARE(storedItems(workspace, twin.table), QList<QStringList>());
    }

    void savedNamesAreOfferedInEveryRowOfTheirGrid()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        const QString path = makeTripWithLayover(workspace, twin);
        const ItemsWindow window(twin, path);
        window.clicksTrip(0);
        window.addsItem(u"detention"_s, u"25"_s);
        QCOMPARE(offeredBy(window.nameBox(0)), QStringList({u"Layover"_s}));
        window.clicks(twin.saveButton);
        window.clicks(twin.addButton);
        for (int row = 0; row < 3; ++row)
            QCOMPARE(offeredBy(window.nameBox(row)), QStringList({u"detention"_s, u"Layover"_s}));
        QCOMPARE(window.items(), QList<QStringList>({{u"Layover"_s, u"$50.00"_s},
                                                     {u"detention"_s, u"$25.00"_s},
                                                     {u""_s, u"$0.00"_s}}));
        window.clicks(u"Add Pay Item Row"_s);
        window.clicks(u"Add Cost Item Row"_s);
        QCOMPARE(offeredBy(boxAt(window.otherGrid(), 0, ItemGrid::NameColumn)), QStringList());
    }

    void amountWithoutANameStopsTheSave()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeTripWithLayover(workspace, twin);
        ItemsWindow window(twin, path);
        window.clicksTrip(0);
        window.addsItem(u"   "_s, u"5"_s);
        window.addsItem(u"Scale"_s, u"12"_s);
        const QList<QStringList> typed = window.items();
        window.statuses.clear();
        robot.expect(DialogRobot::Warning, twin.missingNameTitle, twin.missingName);
        window.clicks(twin.saveButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(storedItems(workspace, twin.table),
                 QList<QStringList>({{u"1"_s, u"Layover"_s, u"50"_s}}));
        QCOMPARE(window.items(), typed);
        QCOMPARE(offeredBy(window.nameBox(2)), QStringList({u"Layover"_s}));
        QCOMPARE(window.statuses, QStringList({twin.saved}));
    }

    void rowsAfterOneThatStopsTheSaveComeBackWithACorrectedSave()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeTripWithLayover(workspace, twin);
        item(twin, 1, u"Scale"_s, 12.0).insert(workspace);
        const ItemsWindow window(twin, path);
        window.clicksTrip(0);
        window.typesName(0, u""_s);
        robot.expect(DialogRobot::Warning, twin.missingNameTitle, twin.missingName);
        window.clicks(twin.saveButton);
        QCOMPARE(storedItems(workspace, twin.table), QList<QStringList>());
        window.typesName(0, u"Detention"_s);
        window.clicks(twin.saveButton);
        QCOMPARE(
            storedItems(workspace, twin.table),
            QList<QStringList>({{u"1"_s, u"Detention"_s, u"50"_s}, {u"1"_s, u"Scale"_s, u"12"_s}}));
    }

    void rowThatTheFileRefusesStopsTheSave()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeTripWithLayover(workspace, twin);
        ItemsWindow window(twin, path);
        window.clicksTrip(0);
        window.addsItem(u"Toll"_s, u"3"_s);
        window.addsItem(u"Scale"_s, u"12"_s);
        const QList<QStringList> typed = window.items();
        window.statuses.clear();
        refuse(workspace, u"INSERT ON %1 WHEN NEW.name = 'Toll'"_s.arg(twin.table));
        robot.expect(DialogRobot::Critical, twin.saveFailed, refused);
        window.clicks(twin.saveButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(storedItems(workspace, twin.table),
                 QList<QStringList>({{u"1"_s, u"Layover"_s, u"50"_s}}));
        QCOMPARE(window.items(), typed);
        QCOMPARE(window.statuses, QStringList({twin.saved}));
    }

    void failedDeleteWritesNothing()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeTripWithLayover(workspace, twin);
        ItemsWindow window(twin, path);
        window.clicksTrip(0);
        window.addsItem(u"Toll"_s, u"3"_s);
        window.statuses.clear();
        refuse(workspace, u"DELETE ON "_s + twin.table);
        robot.expect(DialogRobot::Critical, twin.saveFailed, refused);
        window.clicks(twin.saveButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(storedItems(workspace, twin.table),
                 QList<QStringList>({{u"1"_s, u"Layover"_s, u"50"_s}}));
        QCOMPARE(window.items().size(), 2);
        QCOMPARE(window.statuses, QStringList({twin.saved}));
    }

    void fileThatIsNoLongerOpenIsLeftAlone()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        const QString path = makeTripWithLayover(workspace, twin);
        const QByteArray before = workspace.bytes(u"trips.db"_s);
        ItemsWindow window(twin, path);
        window.clicksTrip(0);
        window.typesAmount(0, u"75"_s);
        DatabaseLocator::closeAllSqliteConnections();
        window.statuses.clear();
        window.clicks(twin.saveButton);
        QCOMPARE(window.items(), QList<QStringList>({{u"Layover"_s, u"$75.00"_s}}));
        QCOMPARE(window.statuses, QStringList({twin.saved}));
        QCOMPARE(workspace.bytes(u"trips.db"_s), before);
    }

    void saveOfTheTripWritesTheItemsToo()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        const ItemsWindow window(twin, workspace.makeTrips());
        window.types("tripNoField", u"4471203"_s);
        window.types("payweekField", u"04/18/2026"_s);
        window.addsItem(u"Layover"_s, u"50"_s);
        window.clicks(u"Save Trip / Changes"_s);
        QCOMPARE(storedItems(workspace, twin.table),
                 QList<QStringList>({{u"1"_s, u"Layover"_s, u"50"_s}}));
        const QStringList totals = twin.title == u"Pay Items"_s ? QStringList({u"50"_s, u"0"_s})
                                                                : QStringList({u"0"_s, u"50"_s});
        QCOMPARE(workspace.rows(u"SELECT total_revenue, total_cost FROM trips"_s),
                 QList<QStringList>({totals}));
        QCOMPARE(window.items(), QList<QStringList>({{u"Layover"_s, u"$50.00"_s}}));
    }

    void namesThatCannotBeReadAfterASaveAreTold()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        DialogRobot robot;
        ItemsWindow window(twin, makeTripWithLayover(workspace, twin));
        window.clicksTrip(0);
        workspace.execute(u"DROP TABLE "_s + twin.otherTable);
        robot.expectContaining(DialogRobot::Critical,
                               twin.otherTable == "trip_pay_items"_L1
                                   ? u"Pay Item Name Query Error"_s
                                   : u"Cost Item Name Query Error"_s,
                               u"no such table: "_s + twin.otherTable);
        window.clicks(twin.saveButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(storedItems(workspace, twin.table).size(), 1);
    }

    void saveOfTheTripGoesOnAfterItemsThatFail()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeTripWithLayover(workspace, twin);
        fuel(1, u"Def"_s, 21.35, 0.0, 5.0).insert(workspace);
        TripItemMaker(twin.otherTable, 1, u"Toll"_s, 3.0).insert(workspace);
        ItemsWindow window(twin, path);
        window.clicksTrip(0);
        window.statuses.clear();
        window.typesName(0, u""_s);
        robot.expect(DialogRobot::Warning, twin.missingNameTitle, twin.missingName);
        window.clicks(u"Save Trip / Changes"_s);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(storedItems(workspace, twin.table), QList<QStringList>());
        QCOMPARE(storedItems(workspace, twin.otherTable).first(),
                 QStringList({u"1"_s, u"Toll"_s, u"3"_s}));
        QCOMPARE(workspace.value(u"SELECT COUNT(*) FROM trip_detail_items"_s).toInt(), 1);
        QCOMPARE(window.statuses, QStringList({u"Updated trip: 4471203"_s, u"Loaded 1 trips"_s}));
    }
};

TEST_CLASS(tst_ItemEditorSaving)
#include "tst_ItemEditorSaving.moc"
