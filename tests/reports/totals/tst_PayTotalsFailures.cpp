#include "reports/totals/PayTotalsRepository.h"
#include "reports/totals/TotalsFile.h"
#include "support/FailingStatement.h"
#include "support/TestProgram.h"

using namespace Qt::StringLiterals;
using namespace PayTotalsRepository;

namespace {

// What a scope without anything gives.
const QList<double> noFigures(11, 0.0);
const QList<double> noItems(8, 0.0);

void compareWithNothing(const FuelTotals &totals, const QStringList &labels)
{
    QCOMPARE(fixedLabels(totals), labels);
    for (const FuelBucket &bucket :
         {totals.allFuel, totals.truckFuel, totals.reeferFuel, totals.def})
        QCOMPARE(figuresOf(bucket), QList<double>(6, 0.0));
    QCOMPARE(totals.types.size(), 0);
    QCOMPARE(totals.rows.size(), 0);
}

void compareWithNothing(const NonTripTotals &totals)
{
    QCOMPARE(figuresOf(totals), noItems);
    QCOMPARE(totals.groups.size(), 0);
    QCOMPARE(totals.rows.size(), 0);
}

void compareAllWithNothing(const QSqlDatabase &database, const QStringList &fuelLabels,
                           const QString &yearAsked, const QString &payweek)
{
    QCOMPARE(listTotalsPayweeks(database, yearAsked), QStringList());
    QCOMPARE(figuresOf(loadYearTotals(database, yearAsked)), noFigures);
    QCOMPARE(figuresOf(loadPayweekTotals(database, payweek)), noFigures);
    compareWithNothing(loadYearNonTripTotals(database, yearAsked));
    compareWithNothing(loadPayweekNonTripTotals(database, payweek));
    compareWithNothing(loadYearFuelTotals(database, yearAsked), fuelLabels);
    compareWithNothing(loadPayweekFuelTotals(database, payweek), fuelLabels);
    QCOMPARE(loadWeeklyMetric(database, yearAsked, u"trip_count"_s).size(), 0);
}

// Lets a number below minus nine quintillion fail the statement that reads it: SQLite has no
// absolute value of its least integer. The table stays a table, which a view would not be.
void makeHugeNumbersUnreadable(const TestConnection &trips, const QString &table,
                               const QString &column)
{
    trips.execute(u"ALTER TABLE %1 RENAME COLUMN %2 TO stored"_s.arg(table, column));
    trips.execute(
        u"ALTER TABLE %1 ADD COLUMN %2 REAL GENERATED ALWAYS AS (CASE WHEN stored < -9e18 "
        "THEN abs(CAST(stored AS INTEGER)) ELSE stored END) VIRTUAL"_s.arg(table, column));
}

} // namespace

/// What is left of Pay Totals where the file is closed, a table missing or a statement failing.
class tst_PayTotalsFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void connectionThatIsNotThereGivesNothing()
    {
        const Workspace workspace;
        QCOMPARE(listTotalsYears({}), QStringList());
        compareAllWithNothing({}, labelsOfFuelTotals, year, week);
        QCOMPARE(formatWeeklyMetricText({}, year, u"trip_count"_s),
                 u"Trip Count weekly breakdown\nYear: 2026\n\n(no data)\n"_s);
    }

    void closedFileGivesNothing()
    {
        TotalsFile file;
        insertWorkedYear(file.workspace);
        QCOMPARE(loadYearTotals(file.database(), year).tripCount, 3);
        file.trips.database().close();
        QCOMPARE(listTotalsYears(file.database()), QStringList());
        compareAllWithNothing(file.database(), labelsOfFuelTotals, year, week);
    }

    void blankScopeGivesNothingAndNoFuelLabels()
    {
        const TotalsFile file;
        for (const QString &blank : {u""_s, u"  "_s}) {
            const qint64 id = trip().payweek(blank).totals(100.0, 0.0).insert(file.workspace);
            fuel(id, u"DEF"_s, 10.0, 0.0, 1.0).insert(file.workspace);
            expense(blank, u"Permit"_s, 5.0).insert(file.workspace);
        }
        const QStringList noLabels = {QString(), QString(), QString(), QString()};
        for (const QString &blank : {QString(), u""_s, u"  "_s, u"\t"_s})
            compareAllWithNothing(file.database(), noLabels, blank, blank);
    }

    void fileWithoutTripsStillHasItsItems()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        file.trips.execute(u"DROP TABLE trips"_s);
        QCOMPARE(listTotalsYears(file.database()), QStringList());
        QCOMPARE(listTotalsPayweeks(file.database(), year), QStringList());
        QCOMPARE(
            figuresOf(loadYearTotals(file.database(), year)),
            QList<double>({0.0, 0.0, 80.0, 80.0, 0.0, 195.25, 195.25, -115.25, 0.0, 0.0, 0.0}));
        QCOMPARE(loadYearNonTripTotals(file.database(), year).rows.size(), 8);
        compareWithNothing(loadYearFuelTotals(file.database(), year), labelsOfFuelTotals);
        QCOMPARE(loadWeeklyMetric(file.database(), year, u"settlement_revenue"_s).size(), 0);
    }

    void fileWithoutPurchasesHasNoFuel()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        file.trips.execute(u"DROP TABLE trip_detail_items"_s);
        compareWithNothing(loadYearFuelTotals(file.database(), year), labelsOfFuelTotals);
        compareWithNothing(loadPayweekFuelTotals(file.database(), week), labelsOfFuelTotals);
        QCOMPARE(valuesOf(loadWeeklyMetric(file.database(), year, u"all_fuel_net"_s)),
                 QList<double>({0.0, 0.0}));
        QCOMPARE(loadYearTotals(file.database(), year).tripExpenses, 800.25);
    }

    void fileWithoutItemsStillHasItsTrips()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        file.trips.execute(u"DROP TABLE settlement_non_trip_items"_s);
        QCOMPARE(
            figuresOf(loadPayweekTotals(file.database(), nextWeek)),
            QList<double>({1.0, 900.0, 0.0, 900.0, 300.0, 0.0, 300.0, 600.0, 200.0, 4.5, 3.0}));
        compareWithNothing(loadYearNonTripTotals(file.database(), year));
        compareWithNothing(loadPayweekNonTripTotals(file.database(), week));
        QCOMPARE(valuesOf(loadWeeklyMetric(file.database(), year, u"tire_fund_net"_s)),
                 QList<double>({0.0, 0.0}));
    }

    void viewIsNoTable()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        file.trips.execute(u"ALTER TABLE settlement_non_trip_items RENAME TO stored"_s);
        file.trips.execute(u"CREATE VIEW settlement_non_trip_items AS SELECT * FROM stored"_s);
        QCOMPARE(loadYearTotals(file.database(), year).settlementRevenue, 0.0);
        compareWithNothing(loadYearNonTripTotals(file.database(), year));
    }

    void missingColumnLeavesItsOwnFigureAtZero_data()
    {
        QTest::addColumn<QString>("column");
        QTest::addColumn<QList<double>>("figures");
        using Figures = QList<double>;
        QTest::newRow("revenue") << u"total_revenue"_s
                                 << Figures({1.0, 0.0, 30.0, 30.0, 300.0, 10.0, 310.0, -280.0,
                                             200.0, 0.15, -1.4});
        QTest::newRow("cost") << u"total_cost"_s
                              << Figures({1.0, 900.0, 30.0, 930.0, 0.0, 10.0, 10.0, 920.0, 200.0,
                                          4.65, 4.6});
        QTest::newRow("miles") << u"total_miles"_s
                               << Figures({1.0, 900.0, 30.0, 930.0, 300.0, 10.0, 310.0, 620.0, 0.0,
                                           0.0, 0.0});
    }

    void missingColumnLeavesItsOwnFigureAtZero()
    {
        QFETCH(const QString, column);
        QFETCH(const QList<double>, figures);
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        file.trips.execute(u"ALTER TABLE trips RENAME COLUMN %1 TO other"_s.arg(column));
        QCOMPARE(figuresOf(loadPayweekTotals(file.database(), nextWeek)), figures);
    }

    void statementThatFailsLeavesItsOwnFigureAtZero_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<QList<double>>("sums");
        // Count, revenue, cost and miles of the trips, revenue and expense of the items.
        using Sums = QList<double>;
        QTest::newRow("look for the items") << 0 << Sums({1.0, 900.0, 300.0, 200.0, 0.0, 0.0});
        QTest::newRow("count") << 1 << Sums({0.0, 900.0, 300.0, 200.0, 30.0, 10.0});
        QTest::newRow("trip revenue") << 2 << Sums({1.0, 0.0, 300.0, 200.0, 30.0, 10.0});
        QTest::newRow("trip cost") << 3 << Sums({1.0, 900.0, 0.0, 200.0, 30.0, 10.0});
        QTest::newRow("miles") << 4 << Sums({1.0, 900.0, 300.0, 0.0, 30.0, 10.0});
        QTest::newRow("item revenue") << 5 << Sums({1.0, 900.0, 300.0, 200.0, 0.0, 10.0});
        QTest::newRow("item expense") << 6 << Sums({1.0, 900.0, 300.0, 200.0, 30.0, 0.0});
        QTest::newRow("none") << 7 << Sums({1.0, 900.0, 300.0, 200.0, 30.0, 10.0});
    }

    void statementThatFailsLeavesItsOwnFigureAtZero()
    {
        QFETCH(const int, before);
        QFETCH(const QList<double>, sums);
        Workspace workspace;
        workspace.makeTrips();
        insertWorkedYear(workspace);
        FailingStatement failing;
        const TestConnection trips(workspace.path(u"trips.db"_s));
        failing.comesAfter(before);
        const PayTotalsSummary totals = loadPayweekTotals(trips.database(), nextWeek);
        QCOMPARE(
            QList<double>({double(totals.tripCount), totals.tripRevenue, totals.tripExpenses,
                           totals.totalMiles, totals.settlementRevenue, totals.settlementExpenses}),
            sums);
    }

    void listThatFailsIsEmpty()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        file.trips.execute(u"ALTER TABLE trips RENAME COLUMN payweek TO paid"_s);
        QCOMPARE(listTotalsYears(file.database()), QStringList());
        QCOMPARE(listTotalsPayweeks(file.database(), year), QStringList());
        QCOMPARE(loadYearTotals(file.database(), year).tripCount, 0);
    }

    void itemsThatFailAreAllLeftOut()
    {
        const TotalsFile file;
        expense(week, u"Permit"_s, 5.0).insert(file.workspace);
        expense(week, u"Permit"_s, -1e19).insert(file.workspace);
        expense(nextWeek, u"Permit"_s, 7.0).insert(file.workspace);
        makeHugeNumbersUnreadable(file.trips, u"settlement_non_trip_items"_s, u"amount"_s);
        compareWithNothing(loadPayweekNonTripTotals(file.database(), week));
        compareWithNothing(loadYearNonTripTotals(file.database(), year));
        QCOMPARE(loadPayweekNonTripTotals(file.database(), nextWeek).totalExpenses, 7.0);
    }

    void itemsThatFailHalfWayAreAllLeftOut()
    {
        const TotalsFile file;
        expense(week, u"Permit"_s, 5.0).insert(file.workspace);
        expense(nextWeek, u"Permit"_s, 6.0).insert(file.workspace);
        expense(u"01/16/2026"_s, u"Permit"_s, -1e19).insert(file.workspace);
        makeHugeNumbersUnreadable(file.trips, u"settlement_non_trip_items"_s, u"amount"_s);
        // By the index of dates SQLite gives out the first week before it reads the third.
        const QString byDate = u"AND TRIM(COALESCE(settlement_date,'')) >= ?"_s;
        compareWithNothing(loadNonTripTotals(file.database(), byDate, {week}));
        file.trips.execute(u"UPDATE settlement_non_trip_items SET stored = 7 WHERE stored < 0"_s);
        QCOMPARE(loadNonTripTotals(file.database(), byDate, {week}).totalExpenses, 18.0);
    }

    void purchasesThatFailAreAllLeftOutButTheLabels()
    {
        const TotalsFile file;
        const qint64 first = trip().payweek(week).insert(file.workspace);
        const qint64 second = trip().payweek(nextWeek).insert(file.workspace);
        fuel(first, u"DEF"_s, 5.0, 0.0, 1.0).insert(file.workspace);
        fuel(first, u"DEF"_s, -1e19, 0.0, 1.0).insert(file.workspace);
        fuel(second, u"DEF"_s, 7.0, 0.0, 1.0).insert(file.workspace);
        makeHugeNumbersUnreadable(file.trips, u"trip_detail_items"_s, u"cost"_s);
        compareWithNothing(loadPayweekFuelTotals(file.database(), week), labelsOfFuelTotals);
        compareWithNothing(loadYearFuelTotals(file.database(), year), labelsOfFuelTotals);
        // A week that fails counts as nothing, and the next is read.
        QCOMPARE(valuesOf(loadWeeklyMetric(file.database(), year, u"def_net"_s)),
                 QList<double>({0.0, 7.0}));
    }

    void clauseThatIsNoSqlGivesNothing()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        compareWithNothing(loadNonTripTotals(file.database(), u"AND nonsense = ?"_s, {week}));
        compareWithNothing(loadFuelTotals(file.database(), u"AND nonsense = ?"_s, {week}),
                           labelsOfFuelTotals);
    }
};

TEST_CLASS(tst_PayTotalsFailures)
#include "tst_PayTotalsFailures.moc"
