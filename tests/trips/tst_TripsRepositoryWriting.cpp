#include "support/RowMakers.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "trips/TripsRepository.h"

using namespace Qt::StringLiterals;
using namespace TripsRepository;

namespace {

/// A trip whose every value differs from every other.
TripRecord fullRecord()
{
    TripRecord trip;
    trip.tripNo = u"4471203"_s;
    trip.payweek = u"04/18/2026"_s;
    trip.emptyMiles = 1.5;
    trip.loadedMiles = 2.5;
    trip.linehaul = 4.25;
    trip.fusu = 5.25;
    trip.carrierPercent = 6.5;
    trip.totals = {3.5, 7.25, 8.25, 9.25, 10.25, 11.25};
    trip.hours = {12.25, 13.25, true, 14.25, 15.25, 16.25, 17.25};
    return trip;
}

/// The columns of that trip, as the file holds them.
const QStringList fullRow = {u"4471203"_s, u"04/18/2026"_s, u"1.5"_s,   u"2.5"_s,   u"3.5"_s,
                             u"4.25"_s,    u"5.25"_s,       u"6.5"_s,   u"7.25"_s,  u"8.25"_s,
                             u"9.25"_s,    u"10.25"_s,      u"11.25"_s, u"12.25"_s, u"13.25"_s};

const QString selectRow = u"SELECT trip_no, payweek, empty_miles, loaded_miles, total_miles, "
                          "linehaul, fusu, carrier_pct, carrier_make, total_revenue, total_cost, "
                          "net_revenue, cpm, trip_hours, net_per_hour FROM trips WHERE id = ?"_s;

const QStringList tablesOfATrip = {u"trip_stops"_s,    u"trip_pay_items"_s,    u"trip_cost_items"_s,
                                   u"trip_trailers"_s, u"trip_detail_items"_s, u"trips"_s};

/// A trip with a row in each of its tables.
int insertWholeTrip(const Workspace &workspace)
{
    const qint64 id = trip().insert(workspace);
    stop(id).insert(workspace);
    payItem(id, u"Layover"_s, 100.0).insert(workspace);
    costItem(id, u"Lumper"_s, 20.0).insert(workspace);
    workspace.execute(u"INSERT INTO trip_trailers (trip_id) VALUES (?)"_s, {id});
    fuel(id, u"Truck Fuel"_s, 400.0, 20.0, 100.0).insert(workspace);
    return static_cast<int>(id);
}

int rowCount(const Workspace &workspace, const QString &table)
{
    return workspace.value(u"SELECT COUNT(*) FROM "_s + table).toInt();
}

} // namespace

class tst_TripsRepositoryWriting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void insertedTripHasAllItsValues()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        trip().set(u"id"_s, 41).insert(workspace);
        int id = 0;
        QString error = u"an older error"_s;
        QVERIFY(insertTrip(trips.database(), fullRecord(), id, error));
        QCOMPARE(error, u""_s);
        QCOMPARE(id, 42);
        QCOMPARE(workspace.rows(selectRow, {42}), QList<QStringList>({fullRow}));
    }

    void insertedTripTellsWhenItWasMade()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        const QDateTime before = QDateTime::currentDateTimeUtc().addSecs(-1);
        int id = 0;
        QString error;
        QVERIFY(insertTrip(trips.database(), fullRecord(), id, error));
        QDateTime made =
            QDateTime::fromString(workspace.value(u"SELECT created_at FROM trips"_s).toString(),
                                  u"yyyy-MM-dd HH:mm:ss"_s);
        made.setTimeSpec(Qt::UTC);
        QVERIFY(made >= before);
        QVERIFY(made <= QDateTime::currentDateTimeUtc());
    }

    void tripThatCannotBeInsertedTellsWhy()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        workspace.execute(u"CREATE TRIGGER full BEFORE INSERT ON trips "
                          "BEGIN SELECT RAISE(FAIL, 'the book is full'); END"_s);
        int id = 7;
        QString error;
        QVERIFY(!insertTrip(trips.database(), fullRecord(), id, error));
        QCOMPARE(error, u"the book is full Unable to fetch row"_s);
        QCOMPARE(id, 7);
        QCOMPARE(rowCount(workspace, u"trips"_s), 0);
    }

    void updateRewritesTheTripAndNothingElse()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        trip().no(u"1"_s).set(u"created_at"_s, u"2026-04-01 10:00:00"_s).insert(workspace);
        trip().no(u"2"_s).insert(workspace);
        const auto other = workspace.rows(selectRow, {2});
        TripRecord record = fullRecord();
        record.id = 1;
        QString error = u"an older error"_s;
        QVERIFY(updateTrip(trips.database(), record, error));
        QCOMPARE(error, u""_s);
        QCOMPARE(workspace.rows(selectRow, {1}), QList<QStringList>({fullRow}));
        QCOMPARE(workspace.rows(selectRow, {2}), other);
        QCOMPARE(workspace.value(u"SELECT created_at FROM trips WHERE id = 1"_s).toString(),
                 u"2026-04-01 10:00:00"_s);
    }

    void tripThatCannotBeUpdatedTellsWhy()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        TripRecord record = fullRecord();
        record.id = static_cast<int>(trip().no(u"1"_s).insert(workspace));
        workspace.execute(u"CREATE TRIGGER closed BEFORE UPDATE ON trips "
                          "BEGIN SELECT RAISE(FAIL, 'the book is closed'); END"_s);
        QString error;
        QVERIFY(!updateTrip(trips.database(), record, error));
        QCOMPARE(error, u"the book is closed Unable to fetch row"_s);
        QCOMPARE(workspace.value(u"SELECT trip_no FROM trips"_s).toString(), u"1"_s);
    }

    void deletedTripTakesItsRowsAlong()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        const int gone = insertWholeTrip(workspace);
        const int kept = insertWholeTrip(workspace);
        fuel(gone, u"Reefer Fuel"_s, 5.0, 0.0, 1.0)
            .set(u"group_name"_s, u"FUEL"_s)
            .insert(workspace);
        QString error = u"an older error"_s;
        QVERIFY(deleteTripRows(trips.database(), gone, error));
        QCOMPARE(error, u""_s);
        for (const QString &table : tablesOfATrip) {
            const QString key = table == "trips"_L1 ? u"id"_s : u"trip_id"_s;
            QCOMPARE(workspace.rows(u"SELECT %1 FROM %2"_s.arg(key, table)),
                     QList<QStringList>({{QString::number(kept)}}));
        }
    }

    void detailRowsOfOtherGroupsSurvive()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        const int id = insertWholeTrip(workspace);
        for (const char *group : {"toll", "", "fuel "}) {
            fuel(id, u"Toll"_s, 5.0, 0.0, 0.0)
                .set(u"group_name"_s, QString::fromLatin1(group))
                .insert(workspace);
        }
        QString error;
        QVERIFY(deleteTripRows(trips.database(), id, error));
        QCOMPARE(workspace.rows(u"SELECT group_name FROM trip_detail_items ORDER BY id"_s),
                 QList<QStringList>({{u"toll"_s}, {u""_s}, {u"fuel "_s}}));
    }

    void stepThatFailsNamesItsTableAndIsTheLast_data()
    {
        QTest::addColumn<QString>("missing");
        QTest::addColumn<QString>("words");
        QTest::addColumn<QStringList>("emptied");
        const QStringList words = {u"Could not delete stops"_s,
                                   u"Could not delete pay items"_s,
                                   u"Could not delete cost items"_s,
                                   u"Could not delete trailers"_s,
                                   u"Could not delete fuel/detail rows"_s,
                                   u"Could not delete trip"_s};
        for (qsizetype step = 0; step < words.size(); ++step)
            QTest::newRow(qPrintable(tablesOfATrip.at(step)))
                << tablesOfATrip.at(step) << words.at(step) << tablesOfATrip.first(step);
    }

    void stepThatFailsNamesItsTableAndIsTheLast()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        const int id = insertWholeTrip(workspace);
        QFETCH(const QString, missing);
        QFETCH(const QString, words);
        QFETCH(const QStringList, emptied);
        workspace.execute(u"DROP TABLE "_s + missing);
        QString error;
        QVERIFY(!deleteTripRows(trips.database(), id, error));
        QCOMPARE(error,
                 u"%1:\nno such table: %2 Unable to execute statement"_s.arg(words, missing));
        for (const QString &table : tablesOfATrip) {
            if (table != missing)
                QCOMPARE(rowCount(workspace, table), emptied.contains(table) ? 0 : 1);
        }
    }

    void closedDatabaseIsNotWrittenTo()
    {
        const Workspace workspace;
        const QString text = u"The database is not open."_s;
        int id = 7;
        QString error;
        QVERIFY(!insertTrip({}, fullRecord(), id, error));
        QCOMPARE(error, text);
        QCOMPARE(id, 7);
        QVERIFY(!updateTrip({}, fullRecord(), error));
        QCOMPARE(error, text);
        QVERIFY(!deleteTripRows({}, 7, error));
        QCOMPARE(error, u"Could not delete stops:\nThe database is not open."_s);
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_TripsRepositoryWriting)
#include "tst_TripsRepositoryWriting.moc"
