#include "support/RowMakers.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "trips/TripRows.h"

#include <QTest>

using namespace Qt::StringLiterals;
using TripRows::Table;

Q_DECLARE_METATYPE(TripRows::Table)

namespace {

/// A stop as text, to compare.
QStringList asTexts(const TripRows::StopRow &stop)
{
    return {stop.type,
            stop.locationCode,
            stop.appointment,
            stop.order,
            stop.hasWindow ? u"window"_s : u""_s,
            stop.latest};
}

/// The stops of a trip as the file gives them; a failure fails the test.
QList<QStringList> loadedStops(const QSqlDatabase &database, int tripId)
{
    QList<TripRows::StopRow> stops;
    QString error;
    if (!TripRows::loadStops(database, tripId, stops, error))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    QList<QStringList> rows;
    for (const TripRows::StopRow &stop : std::as_const(stops))
        rows.append(asTexts(stop));
    return rows;
}

QStringList namesOf(const QList<TripRows::ItemRow> &items)
{
    QStringList names;
    for (const TripRows::ItemRow &item : items)
        names.append(item.name);
    return names;
}

/// A row of each trip in each table, with a note that is no fuel on trip 1.
void makeRowsOfTwoTrips(const Workspace &workspace)
{
    for (const qint64 tripId : {1, 2}) {
        trip().insert(workspace);
        stop(tripId).insert(workspace);
        payItem(tripId, u"Layover"_s, 50.0).insert(workspace);
        costItem(tripId, u"Repair"_s, 300.0).insert(workspace);
        fuel(tripId, u"Truck Fuel"_s, 400.0, 20.0, 100.0).insert(workspace);
    }
    fuel(1, u"Seal 12"_s, 0.0, 0.0, 0.0).set(u"group_name"_s, u"note"_s).insert(workspace);
}

int rowCount(const Workspace &workspace, const QString &table)
{
    return workspace.value(u"SELECT COUNT(*) FROM "_s + table).toInt();
}

} // namespace

class tst_TripRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyTableHasItsName()
    {
        const Workspace workspace;
        QCOMPARE(TripRows::tableName(Table::Stops), u"trip_stops"_s);
        QCOMPARE(TripRows::tableName(Table::PayItems), u"trip_pay_items"_s);
        QCOMPARE(TripRows::tableName(Table::CostItems), u"trip_cost_items"_s);
        QCOMPARE(TripRows::tableName(Table::Fuel), u"trip_detail_items"_s);
    }

    void stopsAreReadInTheirOrderThenAsEntered()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        stop(1).set(u"location_code"_s, u"LAST"_s).order(10).insert(workspace);
        stop(1).set(u"location_code"_s, u"B"_s).order(2).insert(workspace);
        stop(2).set(u"location_code"_s, u"OTHER"_s).insert(workspace);
        stop(1).set(u"location_code"_s, u"A"_s).order(2).insert(workspace);
        const QString type = u"shipper"_s;
        QCOMPARE(loadedStops(trips.database(), 1),
                 QList<QStringList>({{type, u"B"_s, u""_s, u"2"_s, u""_s, u""_s},
                                     {type, u"A"_s, u""_s, u"2"_s, u""_s, u""_s},
                                     {type, u"LAST"_s, u""_s, u"10"_s, u""_s, u""_s}}));
        QCOMPARE(loadedStops(trips.database(), 3), QList<QStringList>());
    }

    void stopIsReadAsStored()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        stop(1)
            .type(u" Drop Yard "_s)
            .window(u"2026-04-18T08:00:00"_s, u" noon "_s)
            .set(u"stop_order"_s, u"first"_s)
            .insert(workspace);
        stop(1)
            .type({})
            .at({})
            .set(u"location_code"_s, QVariant())
            .set(u"stop_order"_s, u"second"_s)
            .insert(workspace);
        QCOMPARE(loadedStops(trips.database(), 1),
                 QList<QStringList>({{u" Drop Yard "_s, u""_s, u"2026-04-18T08:00:00"_s, u"first"_s,
                                      u"window"_s, u" noon "_s},
                                     {u""_s, u""_s, u""_s, u"second"_s, u""_s, u""_s}}));
    }

    void itemsAreReadAsEntered()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        payItem(1, u"Layover"_s, 50.0).insert(workspace);
        payItem(2, u"Other trip"_s, 1.0).insert(workspace);
        payItem(1, u"Detention"_s, -12.25).insert(workspace);
        costItem(1, u"Repair"_s, 300.0).insert(workspace);
        QList<TripRows::ItemRow> items;
        QString error;
        QVERIFY(TripRows::loadItems(trips.database(), Table::PayItems, 1, items, error));
        QCOMPARE(namesOf(items), QStringList({u"Layover"_s, u"Detention"_s}));
        QCOMPARE(items.at(0).amount, 50.0);
        QCOMPARE(items.at(1).amount, -12.25);
        QVERIFY(TripRows::loadItems(trips.database(), Table::CostItems, 1, items, error));
        QCOMPARE(namesOf(items), QStringList({u"Repair"_s}));
        QCOMPARE(items.first().amount, 300.0);
    }

    void fuelIsReadAsEnteredWithoutOtherDetails()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        makeRowsOfTwoTrips(workspace);
        fuel(1, u"Def"_s, 30.0, 1.5, 0.0)
            .set(u"group_name"_s, u"FUEL"_s)
            .set(u"gallons"_s, u"about 10"_s)
            .insert(workspace);
        QList<TripRows::FuelRow> rows;
        QString error;
        QVERIFY(TripRows::loadFuel(trips.database(), 1, rows, error));
        QCOMPARE(rows.size(), 2);
        QCOMPARE(rows.at(0).itemType, u"Truck Fuel"_s);
        QCOMPARE(rows.at(0).cost, 400.0);
        QCOMPARE(rows.at(0).discount, 20.0);
        QCOMPARE(rows.at(0).gallons.toDouble(), 100.0);
        QCOMPARE(rows.at(1).itemType, u"Def"_s);
        QCOMPARE(rows.at(1).discount, 1.5);
        QCOMPARE(rows.at(1).gallons, u"about 10"_s);
    }

    void failedReadLeavesNoRows_data()
    {
        QTest::addColumn<Table>("table");
        QTest::newRow("stops") << Table::Stops;
        QTest::newRow("pay items") << Table::PayItems;
        QTest::newRow("cost items") << Table::CostItems;
        QTest::newRow("fuel") << Table::Fuel;
    }

    void failedReadLeavesNoRows()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        QFETCH(const Table, table);
        workspace.execute(u"DROP TABLE "_s + TripRows::tableName(table));
        QList<TripRows::StopRow> stops(1);
        QList<TripRows::ItemRow> items(1);
        QList<TripRows::FuelRow> fuelRows(1);
        QString error;
        if (table == Table::Stops)
            QVERIFY(!TripRows::loadStops(trips.database(), 1, stops, error));
        else if (table == Table::Fuel)
            QVERIFY(!TripRows::loadFuel(trips.database(), 1, fuelRows, error));
        else
            QVERIFY(!TripRows::loadItems(trips.database(), table, 1, items, error));
        QCOMPARE(stops.size() + items.size() + fuelRows.size(), 2);
        QCOMPARE(error, u"no such table: %1 Unable to execute statement"_s.arg(
                            TripRows::tableName(table)));
    }

    void deleteTakesTheTripsRowsOfItsTableAlone_data()
    {
        QTest::addColumn<Table>("table");
        QTest::addColumn<QList<int>>("left");
        QTest::newRow("stops") << Table::Stops << QList<int>({1, 2, 2, 3});
        QTest::newRow("pay items") << Table::PayItems << QList<int>({2, 1, 2, 3});
        QTest::newRow("cost items") << Table::CostItems << QList<int>({2, 2, 1, 3});
        QTest::newRow("fuel") << Table::Fuel << QList<int>({2, 2, 2, 2});
    }

    void deleteTakesTheTripsRowsOfItsTableAlone()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        makeRowsOfTwoTrips(workspace);
        QFETCH(const Table, table);
        QString error;
        TripRows::Writer writer(trips.database(), table, 1);
        QVERIFY(writer.deleteAll(error));
        QCOMPARE(error, u""_s);
        QTEST(QList<int>({rowCount(workspace, u"trip_stops"_s),
                          rowCount(workspace, u"trip_pay_items"_s),
                          rowCount(workspace, u"trip_cost_items"_s),
                          rowCount(workspace, u"trip_detail_items"_s)}),
              "left");
        QCOMPARE(
            workspace.value(u"SELECT item_type FROM trip_detail_items WHERE group_name = 'note'"_s),
            u"Seal 12"_s);
    }

    void rowsOfATripThatIsNotThereAreLeftAsTheyAre_data()
    {
        QTest::addColumn<Table>("table");
        QTest::newRow("stops") << Table::Stops;
        QTest::newRow("pay items") << Table::PayItems;
        QTest::newRow("cost items") << Table::CostItems;
        QTest::newRow("fuel") << Table::Fuel;
    }

    void rowsOfATripThatIsNotThereAreLeftAsTheyAre()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        makeRowsOfTwoTrips(workspace);
        workspace.execute(u"DELETE FROM trips"_s);
        QFETCH(const Table, table);
        const int before = rowCount(workspace, TripRows::tableName(table));
        QString error;
        QVERIFY(!TripRows::Writer(trips.database(), table, 1).deleteAll(error));
        QCOMPARE(error, u"The trip is not in the file. It may have already been deleted."_s);
        QCOMPARE(rowCount(workspace, TripRows::tableName(table)), before);
    }

    void stopIsWrittenWithAllItsColumns()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        TripRows::Writer writer(trips.database(), Table::Stops, 7);
        QString error;
        QVERIFY(writer.append(TripRows::StopRow{u"receiver"_s, u"KC1"_s, u"2026-04-18T08:00:00"_s,
                                                u"3"_s, true, u"2026-04-18T10:00:00"_s},
                              error));
        QVERIFY(writer.append(TripRows::StopRow{u"shipper"_s, u""_s, u""_s, u"-1"_s, false, u""_s},
                              error));
        QCOMPARE(
            workspace.rows(u"SELECT trip_id, stop_type, location_code, appt, stop_order, "
                           "has_appointment_window, appt_latest FROM trip_stops ORDER BY id"_s),
            QList<QStringList>({{u"7"_s, u"receiver"_s, u"KC1"_s, u"2026-04-18T08:00:00"_s, u"3"_s,
                                 u"1"_s, u"2026-04-18T10:00:00"_s},
                                {u"7"_s, u"shipper"_s, u""_s, u""_s, u"-1"_s, u"0"_s, u""_s}}));
        QCOMPARE(workspace
                     .value(u"SELECT COUNT(*) FROM trip_stops "
                            "WHERE typeof(stop_order) = 'integer' AND appt IS NOT NULL"_s)
                     .toInt(),
                 2);
    }

    void itemIsWrittenIntoItsOwnTable_data()
    {
        QTest::addColumn<Table>("table");
        QTest::addColumn<QString>("other");
        QTest::newRow("pay") << Table::PayItems << u"trip_cost_items"_s;
        QTest::newRow("cost") << Table::CostItems << u"trip_pay_items"_s;
    }

    void itemIsWrittenIntoItsOwnTable()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        QFETCH(const Table, table);
        QFETCH(const QString, other);
        TripRows::Writer writer(trips.database(), table, 7);
        QString error;
        QVERIFY(writer.append(TripRows::ItemRow{u"Layover"_s, 50.25}, error));
        QCOMPARE(
            workspace.rows(u"SELECT trip_id, name, amount FROM "_s + TripRows::tableName(table)),
            QList<QStringList>({{u"7"_s, u"Layover"_s, u"50.25"_s}}));
        QCOMPARE(rowCount(workspace, other), 0);
    }

    void fuelIsWrittenAsSuchWithItsTime()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        TripRows::Writer writer(trips.database(), Table::Fuel, 7);
        QString error;
        QVERIFY(writer.append(DomainRules::FuelRowValues{u"Def"_s, 30.0, 1.5, 8.125}, error));
        QCOMPARE(workspace.rows(u"SELECT trip_id, group_name, item_type, cost, discount, gallons, "
                                "LENGTH(created_at) FROM trip_detail_items"_s),
                 QList<QStringList>(
                     {{u"7"_s, u"fuel"_s, u"Def"_s, u"30"_s, u"1.5"_s, u"8.125"_s, u"19"_s}}));
    }

    void rowsWrittenBeforeAFailureStay()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        trip().insert(workspace);
        payItem(1, u"Layover"_s, 50.0).insert(workspace);
        workspace.execute(u"CREATE TRIGGER full BEFORE INSERT ON trip_pay_items "
                          "WHEN NEW.name = 'Scale' "
                          "BEGIN SELECT RAISE(FAIL, 'the book is full'); END"_s);
        TripRows::Writer writer(trips.database(), Table::PayItems, 1);
        QString error;
        QVERIFY(writer.deleteAll(error));
        QVERIFY(writer.append(TripRows::ItemRow{u"Detention"_s, 7.0}, error));
        QVERIFY(!writer.append(TripRows::ItemRow{u"Scale"_s, 12.0}, error));
        QCOMPARE(error, u"the book is full Unable to fetch row"_s);
        QCOMPARE(workspace.rows(u"SELECT name FROM trip_pay_items"_s),
                 QList<QStringList>({{u"Detention"_s}}));
    }

    void missingTableIsToldAtTheFirstUse()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        trip().insert(workspace);
        workspace.execute(u"DROP TABLE trip_cost_items"_s);
        TripRows::Writer writer(trips.database(), Table::CostItems, 1);
        QString error;
        QVERIFY(!writer.deleteAll(error));
        QCOMPARE(error, u"no such table: trip_cost_items Unable to execute statement"_s);
    }
};

TEST_CLASS(tst_TripRows)
#include "tst_TripRows.moc"
