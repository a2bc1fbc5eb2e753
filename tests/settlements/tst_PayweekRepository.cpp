#include "settlements/PayweekFile.h"
#include "settlements/PayweekRepository.h"
#include "support/TestProgram.h"

using namespace Qt::StringLiterals;
using namespace PayweekRepository;

/// The lists and rows of payweeks, and what a failure leaves. Funds and fuel have classes of their
/// own.
class tst_PayweekRepository : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void payweeksAreListedNewestFirstWithThoseThatAreNoDateBehind()
    {
        const Payweeks payweeks;
        for (const auto &key : {u"12/26/2025"_s, u"01/09/2026"_s, u"abc"_s, u" 01/09/2026 "_s})
            trip().payweek(key).insert(payweeks.workspace);
        for (const auto &key : {u"1/2/2026"_s, u"2026-01-16"_s, u"zulu"_s, u"12/26/2025"_s})
            expense(key, u"Permit"_s, 1.0).insert(payweeks.workspace);
        QCOMPARE(payweeks.listed(), QStringList({u"2026-01-16"_s, u"01/09/2026"_s, u"1/2/2026"_s,
                                                 u"12/26/2025"_s, u"zulu"_s, u"abc"_s}));
    }

    void blankPayweeksAreNotListed()
    {
        const Payweeks payweeks;
        for (const QVariant &blank : {QVariant(), QVariant(u""_s), QVariant(u"  "_s)}) {
            trip().set(u"payweek"_s, blank).insert(payweeks.workspace);
            expense(week, u"Permit"_s, 1.0)
                .set(u"settlement_date"_s, blank)
                .insert(payweeks.workspace);
        }
        trip().payweek(u"\t"_s).insert(payweeks.workspace);
        QCOMPARE(payweeks.listed(), QStringList());
    }

    void payweekWithNothingButARateIsWalkedAndNotListed()
    {
        const Payweeks payweeks;
        trip().payweek(u"01/09/2026"_s).insert(payweeks.workspace);
        expense(u"12/26/2025"_s, u"Permit"_s, 1.0).insert(payweeks.workspace);
        apr(u" 01/02/2026"_s, 5.2).insert(payweeks.workspace);
        apr(u"  "_s, 5.2).insert(payweeks.workspace);
        QCOMPARE(payweeks.listed(), QStringList({u"01/09/2026"_s, u"12/26/2025"_s}));
        QStringList walked = {u"left over"_s};
        QVERIFY(listCarryoverPayweeks(payweeks.trips.database(), walked, payweeks.error));
        QCOMPARE(walked, QStringList({u"01/02/2026"_s, u"01/09/2026"_s, u"12/26/2025"_s}));
        QCOMPARE(payweeks.error, QString());
    }

    void tripRowsHoldTheColumnsAsStoredInOrderOfEntry()
    {
        const Payweeks payweeks;
        trip()
            .no(u"200"_s)
            .payweek(u" 01/02/2026 "_s)
            .totals(1000.5, 400.25)
            .set(u"cpm"_s, 1.25)
            .set(u"trip_hours"_s, 10.5)
            .set(u"net_per_hour"_s, QVariant())
            .insert(payweeks.workspace);
        trip()
            .no(u"100"_s)
            .payweek(week)
            .set(u"total_miles"_s, u"n/a"_s)
            .insert(payweeks.workspace);
        trip().no(u"300"_s).payweek(u"1/2/2026"_s).insert(payweeks.workspace);
        QList<QStringList> rows = {{u"left over"_s}};
        PayweekTripTotals totals;
        QVERIFY(loadPayweekTrips(payweeks.trips.database(), week, rows, totals, payweeks.error));
        QCOMPARE(rows,
                 QList<QStringList>({{u"1"_s, u"200"_s, u" 01/02/2026 "_s, u"600"_s, u"1000.5"_s,
                                      u"400.25"_s, u"600.25"_s, u"1.25"_s, u"10.5"_s, u""_s},
                                     {u"2"_s, u"100"_s, week, u"n/a"_s, u"0"_s, u"0"_s, u"0"_s,
                                      u"0"_s, u"0"_s, u"0"_s}}));
    }

    void tripTotalsAddTheStoredColumns()
    {
        const Payweeks payweeks;
        trip().payweek(week).totals(1000.0, 400.0).insert(payweeks.workspace);
        trip()
            .payweek(week)
            .totals(500.25, 100.5)
            .set(u"net_revenue"_s, 7.0)
            .insert(payweeks.workspace);
        trip()
            .payweek(week)
            .set(u"total_miles"_s, QVariant())
            .set(u"total_revenue"_s, u"abc"_s)
            .set(u"total_cost"_s, u"1,000"_s)
            .insert(payweeks.workspace);
        trip().payweek(u"01/09/2026"_s).totals(9999.0, 0.0).insert(payweeks.workspace);
        QCOMPARE(figuresOf(payweeks.tripTotals()),
                 QList<double>({1200.0, 1500.25, 500.5, 607.0, 3.0}));
    }

    void blanksAroundAPayweekMakeNoDifference_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("asked");
        QTest::newRow("blanks in the file") << u"  01/02/2026 "_s << u"01/02/2026"_s;
        QTest::newRow("blanks in the request") << u"01/02/2026"_s << u" 01/02/2026\t"_s;
        QTest::newRow("blanks in both") << u" 01/02/2026"_s << u"01/02/2026 "_s;
    }

    void blanksAroundAPayweekMakeNoDifference()
    {
        QFETCH(const QString, stored);
        QFETCH(const QString, asked);
        const Payweeks payweeks;
        const qint64 id = trip().payweek(stored).insert(payweeks.workspace);
        fuel(id, u"DEF"_s, 10.0, 0.0, 2.0).insert(payweeks.workspace);
        expense(stored, u"Emergency Fund"_s, 100.0).insert(payweeks.workspace);
        apr(stored, 5.2).insert(payweeks.workspace);
        QCOMPARE(payweeks.tripTotals(asked).tripCount, 1);
        QCOMPARE(payweeks.itemTotals(asked).expense, 100.0);
        QCOMPARE(figuresOf(payweeks.fund(loadEmergencyFundSummary, asked)),
                 QList<double>({100.0, 0.0, 100.0, 100.0}));
        QCOMPARE(payweeks.fuelOf(asked).defNetCost, 10.0);
        QCOMPARE(loadPayweekApr(payweeks.trips.database(), asked), 5.2);
    }

    void blankPayweekReadsTheRowsThatHaveNone()
    {
        const Payweeks payweeks;
        trip().set(u"payweek"_s, QVariant()).insert(payweeks.workspace);
        trip().payweek(u"  "_s).insert(payweeks.workspace);
        trip().payweek(week).insert(payweeks.workspace);
        expense(u" "_s, u"Permit"_s, 3.0).insert(payweeks.workspace);
        QCOMPARE(payweeks.tripTotals(u"  "_s).tripCount, 2);
        QCOMPARE(payweeks.itemTotals(u""_s).itemCount, 1);
    }

    void itemRowsHoldTheColumnsAsStoredByKindAndOrderOfEntry()
    {
        const Payweeks payweeks;
        revenue(week, u"Bonus"_s, 25.5).insert(payweeks.workspace);
        expense(week, u"Permit"_s, 0.0).set(u"amount"_s, u"$4"_s).insert(payweeks.workspace);
        expense(u" 01/02/2026"_s, u"Fine"_s, 0.0)
            .set(u"amount"_s, QVariant())
            .insert(payweeks.workspace);
        expense(u"01/09/2026"_s, u"Fine"_s, 5.0).insert(payweeks.workspace);
        QList<QStringList> rows = {{u"left over"_s}};
        PayweekSettlementTotals totals;
        QVERIFY(loadPayweekSettlementItems(payweeks.trips.database(), week, rows, totals,
                                           payweeks.error));
        QCOMPARE(rows,
                 QList<QStringList>({{u"2"_s, week, u"expense"_s, u"Permit"_s, u"$4"_s},
                                     {u"3"_s, u" 01/02/2026"_s, u"expense"_s, u"Fine"_s, u""_s},
                                     {u"1"_s, week, u"revenue"_s, u"Bonus"_s, u"25.5"_s}}));
    }

    void kindDecidesTheSumOfAnItem()
    {
        const Payweeks payweeks;
        revenue(week, u"Bonus"_s, 100.0).insert(payweeks.workspace);
        revenue(week, u"Bonus"_s, 20.0).set(u"kind"_s, u" Revenue\t"_s).insert(payweeks.workspace);
        expense(week, u"Permit"_s, 7.0).insert(payweeks.workspace);
        expense(week, u"Permit"_s, 0.5).set(u"kind"_s, u"EXPENSE "_s).insert(payweeks.workspace);
        expense(week, u"Permit"_s, 9.0).set(u"amount"_s, u"abc"_s).insert(payweeks.workspace);
        expense(week, u"Permit"_s, 9.0).set(u"amount"_s, QVariant()).insert(payweeks.workspace);
        QCOMPARE(figuresOf(payweeks.itemTotals()), QList<double>({120.0, 7.5, 6.0}));
    }

    void itemOfAnyOtherKindCountsInNeitherSum()
    {
        const Payweeks payweeks;
        for (const QVariant &kind : {QVariant(u"other"_s), QVariant(), QVariant(u"revenues"_s)})
            revenue(week, u"Bonus"_s, 100.0).set(u"kind"_s, kind).insert(payweeks.workspace);
        QCOMPARE(figuresOf(payweeks.itemTotals()), QList<double>({0.0, 0.0, 3.0}));
    }

    void aprIsThatOfThePayweekAlone()
    {
        const Payweeks payweeks;
        apr(u"01/02/2026"_s, 5.2).insert(payweeks.workspace);
        apr(u"01/09/2026"_s, 0.0).set(u"apr"_s, QVariant()).insert(payweeks.workspace);
        apr(u"01/16/2026"_s, 0.0).set(u"apr"_s, u"abc"_s).insert(payweeks.workspace);
        const QSqlDatabase &database = payweeks.trips.database();
        QCOMPARE(loadPayweekApr(database, u"01/02/2026"_s), 5.2);
        QCOMPARE(loadPayweekApr(database, u"01/09/2026"_s), 0.0);
        QCOMPARE(loadPayweekApr(database, u"01/16/2026"_s), 0.0);
        QCOMPARE(loadPayweekApr(database, u"01/23/2026"_s), 0.0);
        payweeks.trips.execute(u"DROP TABLE settlement_meta"_s);
        QCOMPARE(loadPayweekApr(database, u"01/02/2026"_s), 0.0);
    }

    void closedFileFailsEachOperationAndLeavesNothing()
    {
        const Workspace workspace;
        const QSqlDatabase closed;
        const QString notOpen = u"Trips database is not open."_s;
        QStringList keys = {u"left over"_s};
        QString error;
        QVERIFY(!listPayweeks(closed, keys, error));
        QCOMPARE(error, notOpen);
        QCOMPARE(keys, QStringList());
        keys = QStringList({u"left over"_s});
        error.clear();
        QVERIFY(!listCarryoverPayweeks(closed, keys, error));
        QCOMPARE(error, notOpen);
        QCOMPARE(keys, QStringList());
        QCOMPARE(loadPayweekApr(closed, week), 0.0);
    }

    void closedFileGivesNoRows()
    {
        const Workspace workspace;
        QList<QStringList> rows = {{u"left over"_s}};
        PayweekTripTotals trips = {.miles = 1.0, .tripCount = 1};
        QString error;
        QVERIFY(!loadPayweekTrips({}, week, rows, trips, error));
        QCOMPARE(error, u"Trips database is not open."_s);
        QCOMPARE(rows, QList<QStringList>());
        QCOMPARE(figuresOf(trips), QList<double>(5, 0.0));

        rows = {{u"left over"_s}};
        PayweekSettlementTotals items = {.revenue = 1.0, .itemCount = 1};
        error.clear();
        QVERIFY(!loadPayweekSettlementItems({}, week, rows, items, error));
        QCOMPARE(error, u"Trips database is not open."_s);
        QCOMPARE(rows, QList<QStringList>());
        QCOMPARE(figuresOf(items), QList<double>(3, 0.0));
    }

    void closedFileIsToldBeforeABlankPayweek()
    {
        const Workspace workspace;
        QString error;
        for (const FundLoader load : fundLoaders) {
            PayweekFundSummary fund = filledFund();
            QVERIFY(!load({}, u""_s, fund, error));
            QCOMPARE(error, u"Trips database is not open."_s);
            QCOMPARE(figuresOf(fund), QList<double>(4, 0.0));
        }
        PayweekFuelAnalytics fuel = {.netCost = 1.0};
        error.clear();
        QVERIFY(!loadPayweekFuelAnalytics({}, u""_s, fuel, error));
        QCOMPARE(error, u"Trips database is not open."_s);
        QCOMPARE(figuresOf(fuel), QList<double>(9, 0.0));
    }

    void blankPayweekFailsFundsAndFuel()
    {
        const Payweeks payweeks;
        expense(u""_s, u"Emergency Fund"_s, 100.0).insert(payweeks.workspace);
        for (const FundLoader load : fundLoaders) {
            PayweekFundSummary fund = filledFund();
            payweeks.error.clear();
            QVERIFY(!load(payweeks.trips.database(), u" \t"_s, fund, payweeks.error));
            QCOMPARE(payweeks.error, u"Payweek is blank."_s);
            QCOMPARE(figuresOf(fund), QList<double>(4, 0.0));
        }
        PayweekFuelAnalytics fuel = {.netCost = 1.0};
        payweeks.error.clear();
        QVERIFY(
            !loadPayweekFuelAnalytics(payweeks.trips.database(), u"  "_s, fuel, payweeks.error));
        QCOMPARE(payweeks.error, u"Payweek is blank."_s);
        QCOMPARE(figuresOf(fuel), QList<double>(9, 0.0));
    }

    void failedListTellsTheDriversText()
    {
        const Payweeks payweeks;
        trip().payweek(week).insert(payweeks.workspace);
        payweeks.trips.execute(u"DROP TABLE settlement_non_trip_items"_s);
        QStringList keys = {u"left over"_s};
        QVERIFY(!listPayweeks(payweeks.trips.database(), keys, payweeks.error));
        QCOMPARE(payweeks.error,
                 u"no such table: settlement_non_trip_items Unable to execute statement"_s);
        QCOMPARE(keys, QStringList());
    }

    void failedRowsTellTheDriversText()
    {
        const Payweeks payweeks;
        payweeks.trips.execute(u"ALTER TABLE trips RENAME COLUMN cpm TO cents"_s);
        payweeks.trips.execute(u"DROP TABLE settlement_non_trip_items"_s);
        QList<QStringList> rows = {{u"left over"_s}};
        PayweekTripTotals trips = {.miles = 1.0, .tripCount = 1};
        QVERIFY(!loadPayweekTrips(payweeks.trips.database(), week, rows, trips, payweeks.error));
        QCOMPARE(payweeks.error, u"no such column: cpm Unable to execute statement"_s);
        QCOMPARE(rows, QList<QStringList>());
        QCOMPARE(figuresOf(trips), QList<double>(5, 0.0));

        rows = {{u"left over"_s}};
        PayweekSettlementTotals items = {.revenue = 1.0, .itemCount = 1};
        QVERIFY(!loadPayweekSettlementItems(payweeks.trips.database(), week, rows, items,
                                            payweeks.error));
        QCOMPARE(payweeks.error,
                 u"no such table: settlement_non_trip_items Unable to execute statement"_s);
        QCOMPARE(rows, QList<QStringList>());
        QCOMPARE(figuresOf(items), QList<double>(3, 0.0));
    }

    void tripsThatFailHalfWayStayAsFarAsTheyWereRead()
    {
        const Payweeks payweeks;
        trip().no(u"100"_s).payweek(week).totals(1000.0, 400.0).insert(payweeks.workspace);
        trip().payweek(week).set(u"total_miles"_s, -1e19).insert(payweeks.workspace);
        insertTrip(payweeks.workspace, week, 50.0, 0.0);
        makeHugeMilesUnreadable(payweeks.workspace);
        QList<QStringList> rows = {{u"left over"_s}};
        PayweekTripTotals totals = {.miles = 1.0, .tripCount = 1};
        QVERIFY(!loadPayweekTrips(payweeks.trips.database(), week, rows, totals, payweeks.error));
        QVERIFY2(payweeks.error.contains(u"integer overflow"_s), qPrintable(payweeks.error));
        QCOMPARE(rows.size(), 1);
        QCOMPARE(rows.constFirst().at(1), u"100"_s);
        QCOMPARE(figuresOf(totals), QList<double>({600.0, 1000.0, 400.0, 600.0, 1.0}));
    }

    void failedFundOrFuelTellsTheDriversText()
    {
        const Payweeks payweeks;
        payweeks.trips.execute(u"DROP TABLE settlement_non_trip_items"_s);
        payweeks.trips.execute(u"DROP TABLE trip_detail_items"_s);
        for (const FundLoader load : fundLoaders) {
            PayweekFundSummary fund = filledFund();
            QVERIFY(!load(payweeks.trips.database(), week, fund, payweeks.error));
            QCOMPARE(payweeks.error,
                     u"no such table: settlement_non_trip_items Unable to execute statement"_s);
            QCOMPARE(figuresOf(fund), QList<double>(4, 0.0));
        }
        PayweekFuelAnalytics fuel = {.netCost = 1.0};
        QVERIFY(!loadPayweekFuelAnalytics(payweeks.trips.database(), week, fuel, payweeks.error));
        QCOMPARE(payweeks.error, u"no such table: trip_detail_items Unable to execute statement"_s);
        QCOMPARE(figuresOf(fuel), QList<double>(9, 0.0));
    }

    void nothingIsWritten()
    {
        const Payweeks payweeks;
        insertWorkedWeeks(payweeks.workspace);
        const QByteArray before = payweeks.workspace.bytes(u"trips.db"_s);
        for (const FundLoader load : fundLoaders)
            QCOMPARE(figuresOf(payweeks.fund(load)).size(), 4);
        QCOMPARE(payweeks.listed().size(), 3);
        QCOMPARE(payweeks.tripTotals().tripCount, 1);
        QCOMPARE(payweeks.itemTotals().itemCount, 3);
        QCOMPARE(payweeks.fuelOf().detailRowCount, 0);
        QCOMPARE(payweeks.workspace.bytes(u"trips.db"_s), before);
    }
};

TEST_CLASS(tst_PayweekRepository)
#include "tst_PayweekRepository.moc"
