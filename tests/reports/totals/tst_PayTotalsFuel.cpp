#include "reports/totals/PayTotalsRepository.h"
#include "reports/totals/TotalsFile.h"
#include "support/TestProgram.h"

using namespace Qt::StringLiterals;
using namespace PayTotalsRepository;

/// Fuel and DEF: the four fixed buckets, the types and the rows of the popups.
class tst_PayTotalsFuel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void purchasesOfAPayweekFillTheirBuckets()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        const FuelTotals totals = loadPayweekFuelTotals(file.database(), u" 01/02/2026 "_s);
        QCOMPARE(fixedLabels(totals), labelsOfFuelTotals);
        // 476 dollars over 130 gallons.
        QCOMPARE(figuresOf(totals.allFuel),
                 QList<double>({4.0, 522.0, 46.0, 476.0, 130.0, 3.6615}));
        QCOMPARE(figuresOf(totals.truckFuel), QList<double>({1.0, 400.0, 40.0, 360.0, 100.0, 3.6}));
        QCOMPARE(figuresOf(totals.reeferFuel), QList<double>({1.0, 80.0, 5.0, 75.0, 20.0, 3.75}));
        QCOMPARE(figuresOf(totals.def), QList<double>({1.0, 30.0, 1.0, 29.0, 10.0, 2.9}));
        QCOMPARE(typeLabels(totals),
                 QStringList({u"DEF"_s, u"Oil"_s, u"Reefer Fuel"_s, u"Truck Fuel"_s}));
    }

    void purchasesOfAYearFillTheirBuckets()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        const FuelTotals totals = loadYearFuelTotals(file.database(), u" 2026 "_s);
        // 576 dollars over 155 gallons, and 460 over 125.
        QCOMPARE(figuresOf(totals.allFuel),
                 QList<double>({5.0, 622.0, 46.0, 576.0, 155.0, 3.7161}));
        QCOMPARE(figuresOf(totals.truckFuel),
                 QList<double>({2.0, 500.0, 40.0, 460.0, 125.0, 3.68}));
        QCOMPARE(figuresOf(totals.def), QList<double>({1.0, 30.0, 1.0, 29.0, 10.0, 2.9}));
        QCOMPARE(totals.rows.size(), 5);
    }

    void rowsStandByPayweekTripAndOrderOfEntry()
    {
        const TotalsFile file;
        const qint64 later = trip().no(u"100"_s).payweek(nextWeek).insert(file.workspace);
        const qint64 second = trip().no(u" 300 "_s).payweek(week).insert(file.workspace);
        const qint64 first = trip().no(u"200"_s).payweek(week).insert(file.workspace);
        fuel(later, u"def"_s, 1.0, 0.0, 1.0).insert(file.workspace);
        fuel(first, u"truck-fuel"_s, 2.0, 0.0, 1.0).insert(file.workspace);
        fuel(first, u"Fuel"_s, 1.5, 0.0, 1.0).insert(file.workspace);
        fuel(second, u"Oil"_s, 3.0, 0.0, 1.0).insert(file.workspace);
        QList<QStringList> rows;
        for (const FuelDetailRow &row : loadYearFuelTotals(file.database(), year).rows)
            rows.append({row.payweek, row.tripNo, row.itemType, plainText(row.cost)});
        // A number with a blank before it is stored so, and sorts so.
        QCOMPARE(rows, QList<QStringList>({{week, u"300"_s, u"Oil"_s, u"3"_s},
                                           {week, u"200"_s, u"Truck Fuel"_s, u"2"_s},
                                           {week, u"200"_s, u"Truck Fuel"_s, u"1.5"_s},
                                           {nextWeek, u"100"_s, u"DEF"_s, u"1"_s}}));
    }

    void rowHasItsNetCostAndPrice_data()
    {
        QTest::addColumn<double>("cost");
        QTest::addColumn<double>("discount");
        QTest::addColumn<double>("gallons");
        QTest::addColumn<double>("netCost");
        QTest::addColumn<double>("price");
        QTest::newRow("plain") << 412.8 << 25.0 << 101.4 << 387.8 << 3.8245;
        QTest::newRow("net is rounded before the price") << 10.125 << 0.0 << 1.0 << 10.13 << 10.13;
        QTest::newRow("no gallons") << 10.0 << 1.0 << 0.0 << 9.0 << 0.0;
        QTest::newRow("gallons below zero") << 10.0 << 1.0 << -3.0 << 9.0 << 0.0;
        QTest::newRow("discount above the cost") << 10.0 << 12.5 << 5.0 << -2.5 << -0.5;
        QTest::newRow("less than a cent") << 0.004 << 0.0 << 1.0 << 0.0 << 0.0;
        QTest::newRow("huge") << 1e12 << 0.0 << 1e12 << 1e12 << 1.0;
    }

    void rowHasItsNetCostAndPrice()
    {
        QFETCH(const double, cost);
        QFETCH(const double, discount);
        QFETCH(const double, gallons);
        QFETCH(const double, netCost);
        QFETCH(const double, price);
        const TotalsFile file;
        const qint64 id = trip().payweek(week).insert(file.workspace);
        fuel(id, u"DEF"_s, cost, discount, gallons).insert(file.workspace);
        const FuelTotals totals = loadPayweekFuelTotals(file.database(), week);
        QCOMPARE(totals.rows.size(), 1);
        QCOMPARE(figuresOf(totals.rows.constFirst()),
                 QList<double>({cost, discount, netCost, gallons, price}));
        QCOMPARE(figuresOf(totals.def),
                 QList<double>({1.0, cost, discount, netCost, gallons, price}));
    }

    void storedTypeDecidesTheBucket_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("type");
        QTest::addColumn<QList<int>>("rows");
        const QList<int> truck = {1, 0, 0};
        const QList<int> reefer = {0, 1, 0};
        const QList<int> def = {0, 0, 1};
        const QList<int> none = {0, 0, 0};
        QTest::newRow("spelled out") << u"Diesel_Exhaust-Fluid"_s << u"DEF"_s << def;
        QTest::newRow("def fluid") << u"def-fluid"_s << u"DEF"_s << def;
        QTest::newRow("bare fuel") << u" FUEL "_s << u"Truck Fuel"_s << truck;
        QTest::newRow("truck and reefer") << u"truck reefer fuel"_s << u"Truck Fuel"_s << truck;
        QTest::newRow("reefer fuel") << u"REEFER_fuel"_s << u"Reefer Fuel"_s << reefer;
        QTest::newRow("reefer without fuel") << u" Reefer "_s << u"Reefer"_s << none;
        QTest::newRow("deferred") << u"deferred"_s << u"deferred"_s << none;
        QTest::newRow("blank") << u"  "_s << u"Unknown"_s << none;
    }

    void storedTypeDecidesTheBucket()
    {
        QFETCH(const QString, stored);
        QFETCH(const QString, type);
        QFETCH(const QList<int>, rows);
        const TotalsFile file;
        const qint64 id = trip().payweek(week).insert(file.workspace);
        fuel(id, stored, 11.0, 1.0, 4.0).insert(file.workspace);
        const FuelTotals totals = loadPayweekFuelTotals(file.database(), week);
        QCOMPARE(QList<int>(
                     {totals.truckFuel.rowCount, totals.reeferFuel.rowCount, totals.def.rowCount}),
                 rows);
        const QList<double> figures = {1.0, 11.0, 1.0, 10.0, 4.0, 2.5};
        QCOMPARE(figuresOf(totals.allFuel), figures);
        QCOMPARE(typeLabels(totals), QStringList({type}));
        QCOMPARE(figuresOf(totals.types.constFirst()), figures);
        QCOMPARE(totals.rows.constFirst().itemType, type);
    }

    void typesStandInTextOrderWithTheirOwnAverage()
    {
        const TotalsFile file;
        const qint64 id = trip().payweek(week).insert(file.workspace);
        fuel(id, u"oil"_s, 9.0, 0.0, 3.0).insert(file.workspace);
        fuel(id, u"Wash"_s, 5.0, 0.0, 2.0).insert(file.workspace);
        fuel(id, u"oil"_s, 3.0, 0.0, 1.0).insert(file.workspace);
        fuel(id, u"Oil"_s, 7.0, 0.0, 2.0).insert(file.workspace);
        const FuelTotals totals = loadPayweekFuelTotals(file.database(), week);
        QCOMPARE(typeLabels(totals), QStringList({u"Oil"_s, u"Wash"_s, u"oil"_s}));
        QCOMPARE(totals.types.constFirst().avgNetPricePerGallon, 3.5);
        QCOMPARE(figuresOf(totals.types.constLast()),
                 QList<double>({2.0, 12.0, 0.0, 12.0, 4.0, 3.0}));
    }

    void netCostIsRoundedForEachPurchase()
    {
        const TotalsFile file;
        const qint64 id = trip().payweek(week).insert(file.workspace);
        for (int i = 0; i < 2; ++i)
            fuel(id, u"Truck Fuel"_s, 10.125, 0.0, 2.0).insert(file.workspace);
        const FuelTotals totals = loadPayweekFuelTotals(file.database(), week);
        for (const FuelDetailRow &row : totals.rows)
            QCOMPARE(row.netCost, 10.13);
        QCOMPARE(figuresOf(totals.truckFuel), QList<double>({2.0, 20.25, 0.0, 20.26, 4.0, 5.065}));
    }

    void averageIsWeighedAndLiftedByACostWithoutGallons()
    {
        const TotalsFile file;
        const qint64 id = trip().payweek(week).insert(file.workspace);
        fuel(id, u"Truck Fuel"_s, 300.0, 0.0, 100.0).insert(file.workspace);
        fuel(id, u"Truck Fuel"_s, 50.0, 0.0, 10.0).insert(file.workspace);
        // 350 dollars over 110 gallons; the mean of the two prices is 4.
        QCOMPARE(loadPayweekFuelTotals(file.database(), week).truckFuel.avgNetPricePerGallon,
                 3.1818);
        fuel(id, u"Truck Fuel"_s, 35.0, 0.0, 0.0).insert(file.workspace);
        QCOMPARE(loadPayweekFuelTotals(file.database(), week).truckFuel.avgNetPricePerGallon, 3.5);
    }

    void bucketWithoutGallonsHasNoAverage()
    {
        const TotalsFile file;
        const qint64 id = trip().payweek(week).insert(file.workspace);
        fuel(id, u"DEF"_s, 10.0, 0.0, 5.0).insert(file.workspace);
        fuel(id, u"DEF"_s, 10.0, 0.0, -5.0).insert(file.workspace);
        QCOMPARE(figuresOf(loadPayweekFuelTotals(file.database(), week).def),
                 QList<double>({2.0, 20.0, 0.0, 20.0, 0.0, 0.0}));
    }

    void onlyFuelOfATripInTheScopeCounts()
    {
        const TotalsFile file;
        const qint64 id = trip().payweek(u" 01/02/2026 "_s).insert(file.workspace);
        const qint64 other = trip().payweek(u"12/26/2025"_s).insert(file.workspace);
        fuel(id, u"DEF"_s, 1.0, 0.0, 1.0).set(u"group_name"_s, u" Fuel "_s).insert(file.workspace);
        fuel(id, u"DEF"_s, 20.0, 0.0, 1.0).set(u"group_name"_s, u"wash"_s).insert(file.workspace);
        fuel(id, u"DEF"_s, 20.0, 0.0, 1.0).set(u"group_name"_s, u""_s).insert(file.workspace);
        fuel(other, u"DEF"_s, 300.0, 0.0, 1.0).insert(file.workspace);
        fuel(987654, u"DEF"_s, 4000.0, 0.0, 1.0).insert(file.workspace);
        for (const FuelTotals &totals : {loadPayweekFuelTotals(file.database(), week),
                                         loadYearFuelTotals(file.database(), year)})
            QCOMPARE(figuresOf(totals.def), QList<double>({1.0, 1.0, 0.0, 1.0, 1.0, 1.0}));
    }

    void amountsThatAreNoNumbersAreNothing()
    {
        const TotalsFile file;
        const qint64 id = trip().payweek(week).insert(file.workspace);
        fuel(id, u"DEF"_s, 0.0, 0.0, 0.0)
            .set(u"cost"_s, u"abc"_s)
            .set(u"discount"_s, u"$4"_s)
            .set(u"gallons"_s, u""_s)
            .insert(file.workspace);
        QCOMPARE(figuresOf(loadPayweekFuelTotals(file.database(), week).def),
                 QList<double>({1.0, 0.0, 0.0, 0.0, 0.0, 0.0}));
    }

    void amountsWithTextBehindThemCountAsTheirNumbers()
    {
        const TotalsFile file;
        const qint64 id = trip().payweek(week).insert(file.workspace);
        fuel(id, u"DEF"_s, 0.0, 0.0, 0.0)
            .set(u"cost"_s, u"40.5 due"_s)
            .set(u"discount"_s, u"12.5 paid"_s)
            .set(u"gallons"_s, u"10 gal"_s)
            .insert(file.workspace);
        QCOMPARE(figuresOf(loadPayweekFuelTotals(file.database(), week).def),
                 QList<double>({1.0, 40.5, 12.5, 28.0, 10.0, 2.8}));
    }

    void purchasesStandInTheOrderOfTheStoredPayweeks()
    {
        const TotalsFile file;
        const qint64 plain = trip().no(u"1"_s).payweek(week).insert(file.workspace);
        const qint64 indented = trip().no(u"2"_s).payweek(u' ' + week).insert(file.workspace);
        for (const qint64 id : {plain, indented})
            fuel(id, u"DEF"_s, 1.0, 0.0, 1.0).insert(file.workspace);
        QStringList trips;
        for (const FuelDetailRow &row : loadPayweekFuelTotals(file.database(), week).rows)
            trips.append(row.tripNo + u" of "_s + row.payweek);
        QCOMPARE(trips, QStringList({u"2 of 01/02/2026"_s, u"1 of 01/02/2026"_s}));
    }

    void scopeWithoutFuelHasItsLabels()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        const FuelTotals totals = loadYearFuelTotals(file.database(), u"2024"_s);
        QCOMPARE(fixedLabels(totals), labelsOfFuelTotals);
        QCOMPARE(figuresOf(totals.allFuel), QList<double>(6, 0.0));
        QCOMPARE(totals.types.size(), 0);
        QCOMPARE(totals.rows.size(), 0);
    }

    void clauseOfTheCallerNarrowsThePurchases()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        const FuelTotals totals = loadFuelTotals(
            file.database(), u"AND t.payweek > ? AND tdi.cost < ?"_s, {week, 1000.0});
        QCOMPARE(figuresOf(totals.allFuel), QList<double>({1.0, 100.0, 0.0, 100.0, 25.0, 4.0}));
    }
};

TEST_CLASS(tst_PayTotalsFuel)
#include "tst_PayTotalsFuel.moc"
