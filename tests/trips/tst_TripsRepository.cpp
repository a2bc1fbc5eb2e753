#include "support/RowMakers.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "trips/TripsRepository.h"
#include "trips/TripsRows.h"

#include <utility>

using namespace Qt::StringLiterals;
using namespace TripsRepository;

namespace {

const QString closedText = u"Trips database is not open."_s;
const QString noTripsText = u"no such table: trips Unable to execute statement"_s;

} // namespace

/// The reading of trips. What an older file gets, and the writing, have classes of their own.
class tst_TripsRepository : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void payweeksStandInTextOrder()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        const QStringList weeks = {
            u"01/02/2027"_s,   u"04/18/2026"_s, u"12/27/2025"_s, u"4/18/2026"_s,
            u" 04/18/2026 "_s, u""_s,           u"  "_s,         u"\t"_s};
        for (const QString &week : weeks)
            trip().payweek(week).insert(workspace);
        trip().set(u"payweek"_s, QVariant()).insert(workspace);
        QStringList payweeks = {u"an older week"_s};
        QString error = staleError;
        QVERIFY(listTripPayweeks(trips.database(), payweeks, error));
        QCOMPARE(error, u""_s);
        QCOMPARE(payweeks,
                 QStringList({u"4/18/2026"_s, u"12/27/2025"_s, u"04/18/2026"_s, u"01/02/2027"_s}));
    }

    void payweeksOfAFileWithoutTripsTellWhy()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        workspace.execute(u"DROP TABLE trips"_s);
        QStringList payweeks = {u"an older week"_s};
        QString error;
        QVERIFY(!listTripPayweeks(trips.database(), payweeks, error));
        QCOMPARE(error, noTripsText);
        QCOMPARE(payweeks, QStringList());
    }

    void tripReadsAsItsFifteenTexts()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        workspace.execute(
            u"INSERT INTO trips VALUES (7, ' A-12 ', '04/18/2026 ', 1, 2.5, 3, 4.25, 5,"
            " 6, 99, 7, 8, 9, 10, 11, 12, 'now')"_s);
        QList<QStringList> rows;
        QString error = staleError;
        QVERIFY(loadTrips(trips.database(), {}, rows, error));
        QCOMPARE(error, u""_s);
        QCOMPARE(rows, QList<QStringList>({{u"7"_s, u" A-12 "_s, u"04/18/2026 "_s, u"1"_s, u"2.5"_s,
                                            u"3"_s, u"4.25"_s, u"5"_s, u"6"_s, u"7"_s, u"8"_s,
                                            u"9"_s, u"10"_s, u"11"_s, u"12"_s}}));
    }

    void missingValuesReadAsBlank()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        workspace.execute(u"INSERT INTO trips (id) VALUES (7)"_s);
        QList<QStringList> rows;
        QString error;
        QVERIFY(loadTrips(trips.database(), {}, rows, error));
        QCOMPARE(rows, QList<QStringList>({QStringList({u"7"_s}) + QStringList(14, u""_s)}));
    }

    void filterChoosesTheTrips_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QStringList>("numbers");
        const QStringList all = {u"4"_s, u"3"_s, u"2"_s, u"1"_s};
        QTest::newRow("blank") << u"  "_s << all;
        QTest::newRow("empty") << u""_s << all;
        QTest::newRow("all") << u"All Payweeks"_s << all;
        QTest::newRow("all, with a leading blank") << u" All Payweeks"_s << QStringList();
        QTest::newRow("all, in another case") << u"all payweeks"_s << QStringList();
        QTest::newRow("a week") << u"04/18/2026"_s << QStringList({u"3"_s, u"1"_s});
        QTest::newRow("a week with blanks") << u" 04/18/2026 "_s << QStringList({u"3"_s, u"1"_s});
        QTest::newRow("the same day, spelled otherwise") << u"4/18/2026"_s << QStringList({u"2"_s});
        QTest::newRow("a week without trips") << u"04/25/2026"_s << QStringList();
        QTest::newRow("text that would end a literal") << u"' OR '1' = '1"_s << QStringList();
    }

    void filterChoosesTheTrips()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        trip().no(u"1"_s).payweek(u"04/18/2026"_s).insert(workspace);
        trip().no(u"2"_s).payweek(u"4/18/2026"_s).insert(workspace);
        trip().no(u"3"_s).payweek(u"04/18/2026 "_s).insert(workspace);
        trip().no(u"4"_s).set(u"payweek"_s, QVariant()).insert(workspace);
        QFETCH(const QString, filter);
        QList<QStringList> rows = {{u"an older row"_s}};
        QString error;
        QVERIFY(loadTrips(trips.database(), filter, rows, error));
        QStringList numbers;
        for (const QStringList &row : std::as_const(rows))
            numbers.append(row.at(1));
        QTEST(numbers, "numbers");
    }

    void newestTripComesFirst()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        for (const int id : {9, 100, 10})
            trip().set(u"id"_s, id).insert(workspace);
        QList<QStringList> rows;
        QString error;
        QVERIFY(loadTrips(trips.database(), {}, rows, error));
        QCOMPARE(rows.size(), 3);
        QCOMPARE(rows.at(0).at(0), u"100"_s);
        QCOMPARE(rows.at(1).at(0), u"10"_s);
        QCOMPARE(rows.at(2).at(0), u"9"_s);
    }

    void eachTripIsCompletedOnceAsItIsRead()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        trip().no(u"1"_s).insert(workspace);
        trip().no(u"2"_s).insert(workspace);
        QList<QStringList> rows;
        QString error;
        const auto complete = [](QStringList &row) { row[1] += u" done"_s; };
        QVERIFY(loadTrips(trips.database(), {}, rows, error, complete));
        QCOMPARE(rows.size(), 2);
        QCOMPARE(rows.at(0).at(1), u"2 done"_s);
        QCOMPARE(rows.at(1).at(1), u"1 done"_s);
    }

    void tripsOfAFileWithoutThemTellWhy()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        workspace.execute(u"DROP TABLE trips"_s);
        QList<QStringList> rows = {{u"an older row"_s}};
        QString error;
        QVERIFY(!loadTrips(trips.database(), u"04/18/2026"_s, rows, error));
        QCOMPARE(error, noTripsText);
        QCOMPARE(rows.size(), 0);
    }

    void itemNamesStandInOrderWithoutRegardToCase_data() { namesTheTwoItemTables(); }

    void itemNamesStandInOrderWithoutRegardToCase()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        QFETCH(const QString, table);
        const QStringList used = {u"Layover"_s,   u"detention"_s, u"Lumper"_s, u" Lumper "_s,
                                  u"Detention"_s, u""_s,          u"  "_s,     u"\t"_s};
        for (const QString &name : used)
            TripItemMaker(table, 1, name, 5.0).insert(workspace);
        TripItemMaker(table, 1, {}, 5.0).set(u"name"_s, QVariant()).insert(workspace);
        QStringList names = {u"an older name"_s};
        QString error = staleError;
        QVERIFY(listItemNames(trips.database(), table, names, error));
        QCOMPARE(error, u""_s);
        QCOMPARE(names.size(), 4);
        QCOMPARE(names.first(2).join(u'|').toLower(), u"detention|detention"_s);
        QVERIFY(names.at(0) != names.at(1));
        QCOMPARE(names.last(2), QStringList({u"Layover"_s, u"Lumper"_s}));
    }

    void itemNamesComeFromTheTwoTablesAlone_data()
    {
        QTest::addColumn<QString>("table");
        QTest::newRow("trips") << u"trips"_s;
        QTest::newRow("another case") << u"TRIP_PAY_ITEMS"_s;
        QTest::newRow("a blank behind") << u"trip_cost_items "_s;
        QTest::newRow("none") << u""_s;
        QTest::newRow("a second statement") << u"trip_pay_items; DROP TABLE trips"_s;
    }

    void itemNamesComeFromTheTwoTablesAlone()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        payItem(1, u"Layover"_s, 5.0).insert(workspace);
        QFETCH(const QString, table);
        QStringList names = {u"an older name"_s};
        QString error;
        QVERIFY(!listItemNames(trips.database(), table, names, error));
        QCOMPARE(error, u"Unsupported item history table."_s);
        QCOMPARE(names, QStringList());
    }

    void itemNamesOfAMissingTableTellWhy()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        workspace.execute(u"DROP TABLE trip_pay_items"_s);
        QStringList names = {u"an older name"_s};
        QString error;
        QVERIFY(!listItemNames(trips.database(), u"trip_pay_items"_s, names, error));
        QCOMPARE(error, u"no such table: trip_pay_items Unable to execute statement"_s);
        QCOMPARE(names, QStringList());
    }

    void stopsComeInTheirOrder()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        stop(1).type(u"third"_s).order(2).insert(workspace);
        stop(1).type(u"first"_s).order(1).insert(workspace);
        stop(1).type(u"fourth"_s).order(2).insert(workspace);
        stop(2).type(u"of another trip"_s).order(0).insert(workspace);
        StopTimings timings(trips.database());
        QCOMPARE(typesOf(timings.ofTrip(1)), QStringList({u"first"_s, u"third"_s, u"fourth"_s}));
        QCOMPARE(typesOf(timings.ofTrip(2)), QStringList({u"of another trip"_s}));
        QCOMPARE(typesOf(timings.ofTrip(3)), QStringList());
    }

    void stopHasAWindowOnlyWhereItIsMarked_data()
    {
        QTest::addColumn<int>("marked");
        QTest::addColumn<QString>("appt");
        QTest::addColumn<QString>("latestText");
        QTest::addColumn<bool>("hasWindow");
        QTest::addColumn<QDateTime>("earliest");
        QTest::addColumn<QDateTime>("latest");
        const QDateTime eight(QDate(2026, 4, 17), QTime(8, 0));
        const QDateTime ten(QDate(2026, 4, 17), QTime(10, 0));
        const QString eightText = u"2026-04-17T08:00:00"_s;
        const QString tenText = u"04/17/2026 10:00"_s;
        QTest::newRow("marked") << 1 << eightText << tenText << true << eight << ten;
        QTest::newRow("not marked") << 0 << eightText << tenText << false << eight << eight;
        QTest::newRow("no latest") << 1 << eightText << u""_s << true << eight << eight;
        QTest::newRow("latest is no time")
            << 1 << eightText << u"by noon"_s << true << eight << eight;
        QTest::newRow("no earliest") << 1 << u""_s << tenText << true << QDateTime() << ten;
        QTest::newRow("no time at all")
            << 0 << u"tomorrow"_s << u""_s << false << QDateTime() << QDateTime();
    }

    void stopHasAWindowOnlyWhereItIsMarked()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        QFETCH(const int, marked);
        QFETCH(const QString, appt);
        QFETCH(const QString, latestText);
        QFETCH(const QDateTime, earliest);
        stop(1).window(appt, latestText).set(u"has_appointment_window"_s, marked).insert(workspace);
        const auto stops = StopTimings(trips.database()).ofTrip(1);
        QCOMPARE(stops.size(), 1);
        QTEST(stops.first().hasWindow, "hasWindow");
        QCOMPARE(stops.first().earliest, earliest);
        QCOMPARE(stops.first().appointment, earliest);
        QTEST(stops.first().latest, "latest");
    }

    void stopsThatCannotBeReadAreNone()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        makeStopsFromBeforeWindows(workspace);
        QCOMPARE(StopTimings(trips.database()).ofTrip(1).size(), 0);
        QCOMPARE(StopTimings(QSqlDatabase()).ofTrip(1).size(), 0);
    }

    void newTripOwnsNoStrayStops()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        stop(0).at(u"2026-04-18T08:00:00"_s).insert(workspace);
        QCOMPARE(StopTimings(trips.database()).ofTrip(0).size(), 0);
    }

    void closedDatabaseIsToldInWords()
    {
        const Workspace workspace;
        const QSqlDatabase closed;
        QString error;
        QStringList texts = {u"an older text"_s};
        QList<QStringList> rows = {texts};
        QVERIFY(!listTripPayweeks(closed, texts, error));
        QCOMPARE(std::exchange(error, {}), closedText);
        QCOMPARE(texts, QStringList());
        QVERIFY(!loadTrips(closed, {}, rows, error));
        QCOMPARE(std::exchange(error, {}), closedText);
        QCOMPARE(rows.size(), 0);
        QVERIFY(!listItemNames(closed, u"trip_pay_items"_s, texts, error));
        QCOMPARE(std::exchange(error, {}), closedText);
        QVERIFY(!listItemNames(closed, u"trips"_s, texts, error));
        QCOMPARE(error, closedText);
    }

private:
    static void namesTheTwoItemTables()
    {
        QTest::addColumn<QString>("table");
        QTest::newRow("pay") << u"trip_pay_items"_s;
        QTest::newRow("cost") << u"trip_cost_items"_s;
    }

    static QStringList typesOf(const QList<TripArithmetic::TripStopTiming> &stops)
    {
        QStringList types;
        for (const auto &stop : stops)
            types.append(stop.stopType);
        return types;
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_TripsRepository)
#include "tst_TripsRepository.moc"
