#include "reports/totals/PayTotalsRepository.h"
#include "reports/totals/TotalsFile.h"
#include "support/TestProgram.h"

using namespace Qt::StringLiterals;
using namespace PayTotalsRepository;

/// The scopes of Pay Totals and their core figures.
class tst_PayTotalsRepository : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void yearsAreListedOnceTheOldestFirst()
    {
        const TotalsFile file;
        for (const QString &payweek : {u"01/02/2026"_s, u"12/27/2024"_s, u"01/09/2026"_s,
                                       u"  12/26/2025 "_s, u"01-16-2026"_s, u"99/99/2023 late"_s})
            trip().payweek(payweek).insert(file.workspace);
        QCOMPARE(listTotalsYears(file.database()),
                 QStringList({u"2023"_s, u"2024"_s, u"2025"_s, u"2026"_s}));
    }

    void payweekInAnotherFormGivesNoYear_data()
    {
        QTest::addColumn<QVariant>("payweek");
        QTest::newRow("no zeros") << QVariant(u"1/5/2026"_s);
        QTest::newRow("one zero missing") << QVariant(u"10/5/2026"_s);
        QTest::newRow("year first") << QVariant(u"2026-01-05"_s);
        QTest::newRow("letter in the year") << QVariant(u"01/05/2O26"_s);
        QTest::newRow("words") << QVariant(u"next Friday"_s);
        QTest::newRow("blank") << QVariant(u"   "_s);
        QTest::newRow("empty") << QVariant(u""_s);
        QTest::newRow("NULL") << QVariant();
    }

    void payweekInAnotherFormGivesNoYear()
    {
        QFETCH(const QVariant, payweek);
        const TotalsFile file;
        trip().set(u"payweek"_s, payweek).totals(100.0, 0.0).insert(file.workspace);
        QCOMPARE(listTotalsYears(file.database()), QStringList());
        QCOMPARE(listTotalsPayweeks(file.database(), year), QStringList());
        QCOMPARE(loadYearTotals(file.database(), year).tripCount, 0);
    }

    void yearOfSettlementItemsAloneIsNotOffered()
    {
        const TotalsFile file;
        trip().payweek(week).insert(file.workspace);
        expense(u"12/26/2025"_s, u"Permit"_s, 10.0).insert(file.workspace);
        QCOMPARE(listTotalsYears(file.database()), QStringList({year}));
        QCOMPARE(loadYearTotals(file.database(), u"2025"_s).totalExpenses, 10.0);
    }

    void payweeksOfAYearStandInTextOrder()
    {
        const TotalsFile file;
        for (const QString &payweek : {u"12/25/2026"_s, u" 01/09/2026"_s, u"01/09/2026"_s,
                                       u"01/02/2026"_s, u"01-16-2026"_s, u"12/26/2025"_s})
            trip().payweek(payweek).insert(file.workspace);
        QCOMPARE(listTotalsPayweeks(file.database(), u" 2026 "_s),
                 QStringList({u"01-16-2026"_s, u"01/02/2026"_s, u"01/09/2026"_s, u"12/25/2026"_s}));
        QCOMPARE(listTotalsPayweeks(file.database(), u"2024"_s), QStringList());
        QCOMPARE(listTotalsPayweeks(file.database(), u"  "_s), QStringList());
    }

    void payweekWithItemsAndNoTripCountsInTheYearAlone()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        QCOMPARE(listTotalsPayweeks(file.database(), year), QStringList({week, nextWeek}));
        const QList<ChartPoint> series =
            loadWeeklyMetric(file.database(), year, u"settlement_expenses"_s);
        QCOMPARE(labelsOf(series), QStringList({week, nextWeek}));
        QCOMPARE(valuesOf(series), QList<double>({175.25, 10.0}));
        QCOMPARE(loadYearTotals(file.database(), year).settlementExpenses, 195.25);
        QCOMPARE(loadPayweekTotals(file.database(), u"01/16/2026"_s).totalExpenses, 10.0);
    }

    void payweekAddsItsTripsAndItems()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        QCOMPARE(figuresOf(loadPayweekTotals(file.database(), week)),
                 QList<double>({2.0, 1500.5, 50.0, 1550.5, 500.25, 175.25, 675.5, 875.0, 800.0,
                                1.938125, 1.09375}));
        QCOMPARE(
            figuresOf(loadPayweekTotals(file.database(), nextWeek)),
            QList<double>({1.0, 900.0, 30.0, 930.0, 300.0, 10.0, 310.0, 620.0, 200.0, 4.65, 3.1}));
    }

    void yearAddsItsPayweeks()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        QCOMPARE(figuresOf(loadYearTotals(file.database(), year)),
                 QList<double>({3.0, 2400.5, 80.0, 2480.5, 800.25, 195.25, 995.5, 1485.0, 1000.0,
                                2.4805, 1.485}));
        QCOMPARE(figuresOf(loadYearTotals(file.database(), u"2024"_s)), QList<double>(11, 0.0));
    }

    void blanksAroundAScopeMakeNoDifference()
    {
        const TotalsFile file;
        trip().payweek(u"  01/02/2026 "_s).totals(100.0, 40.0).insert(file.workspace);
        expense(u" 01/02/2026"_s, u"Permit"_s, 10.0)
            .set(u"kind"_s, u" EXPENSE "_s)
            .insert(file.workspace);
        for (const PayTotalsSummary &totals :
             {loadPayweekTotals(file.database(), u"\t01/02/2026 "_s),
              loadYearTotals(file.database(), u" 2026\t"_s)}) {
            QCOMPARE(totals.tripCount, 1);
            QCOMPARE(totals.netRevenue, 50.0);
        }
    }

    void payweeksAreComparedAsText()
    {
        const TotalsFile file;
        trip().payweek(u"1/2/2026"_s).totals(100.0, 0.0).insert(file.workspace);
        trip().payweek(week).totals(7.0, 0.0).insert(file.workspace);
        QCOMPARE(loadPayweekTotals(file.database(), u"1/2/2026"_s).tripRevenue, 100.0);
        QCOMPARE(loadPayweekTotals(file.database(), week).tripRevenue, 7.0);
        QCOMPARE(loadYearTotals(file.database(), year).tripRevenue, 7.0);
    }

    void tripsWithoutMilesGiveNoFigurePerMile_data()
    {
        QTest::addColumn<QVariant>("miles");
        QTest::newRow("zero") << QVariant(0.0);
        QTest::newRow("below zero") << QVariant(-250.0);
        QTest::newRow("NULL") << QVariant();
        QTest::newRow("text") << QVariant(u"n/a"_s);
    }

    void tripsWithoutMilesGiveNoFigurePerMile()
    {
        QFETCH(const QVariant, miles);
        const TotalsFile file;
        trip()
            .payweek(week)
            .set(u"total_miles"_s, miles)
            .totals(100.0, 40.0)
            .insert(file.workspace);
        const PayTotalsSummary totals = loadPayweekTotals(file.database(), week);
        QCOMPARE(totals.totalMiles, miles.toDouble());
        QCOMPARE(totals.netRevenue, 60.0);
        QCOMPARE(totals.cpmTotalRevenue, 0.0);
        QCOMPARE(totals.cpmNetRevenue, 0.0);
    }

    void figurePerMileOfAYearIsNotTheMeanOfItsWeeks()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        // The weeks have 1.938125 and 4.65, whose mean is 3.2940625.
        QCOMPARE(loadYearTotals(file.database(), year).cpmTotalRevenue, 2.4805);
        QVERIFY(formatWeeklyMetricText(file.database(), year, u"cpm_total_revenue"_s)
                    .endsWith("\nTotal: 6.5881\n"_L1));
    }

    void onlyTheThreeTotalsAreRounded()
    {
        const TotalsFile file;
        trip().payweek(week).totals(10.004, 0.001).insert(file.workspace);
        revenue(week, u"Bonus"_s, 0.004).insert(file.workspace);
        expense(week, u"Permit"_s, 0.001).insert(file.workspace);
        const PayTotalsSummary totals = loadPayweekTotals(file.database(), week);
        QCOMPARE(totals.tripRevenue, 10.004);
        QCOMPARE(totals.settlementRevenue, 0.004);
        QCOMPARE(totals.totalRevenue, 10.01);
        QCOMPARE(totals.tripExpenses, 0.001);
        QCOMPARE(totals.totalExpenses, 0.0);
        QCOMPARE(totals.netRevenue, 10.01);
    }

    void hugeAmountsKeepTheirDollars()
    {
        const TotalsFile file;
        trip().payweek(week).totals(1e12, 0.0).insert(file.workspace);
        trip().payweek(week).totals(0.004, 0.0).insert(file.workspace);
        expense(week, u"Permit"_s, 1e12).insert(file.workspace);
        const PayTotalsSummary totals = loadPayweekTotals(file.database(), week);
        QCOMPARE(totals.totalRevenue, 1000000000000.0);
        QCOMPARE(totals.totalExpenses, 1000000000000.0);
        QCOMPARE(totals.netRevenue, 0.0);
    }

    void amountsThatAreNoNumbersCountAsFarAsTheyAre()
    {
        const TotalsFile file;
        const QList<QVariant> amounts = {QVariant(), QVariant(u"abc"_s), QVariant(u"$4"_s),
                                         QVariant(u"1,000"_s), QVariant(u"12.5 paid"_s)};
        for (const QVariant &amount : amounts) {
            trip().payweek(week).set(u"total_revenue"_s, amount).insert(file.workspace);
            expense(week, u"Permit"_s, 0.0).set(u"amount"_s, amount).insert(file.workspace);
        }
        const PayTotalsSummary totals = loadPayweekTotals(file.database(), week);
        QCOMPARE(totals.tripCount, 5);
        QCOMPARE(totals.totalRevenue, 13.5);
        QCOMPARE(totals.totalExpenses, 13.5);
    }

    void itemOfAnyOtherKindIsInNoTotal()
    {
        const TotalsFile file;
        item(week, u"other"_s, u"Correction"_s, 5.0).insert(file.workspace);
        item(week, u"revenues"_s, u"Bonus"_s, 7.0).insert(file.workspace);
        expense(week, u"Permit"_s, 9.0).set(u"kind"_s, QVariant()).insert(file.workspace);
        QCOMPARE(figuresOf(loadPayweekTotals(file.database(), week)), QList<double>(11, 0.0));
    }

    void nothingIsWritten()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        const QByteArray before = file.workspace.bytes(u"trips.db"_s);
        QCOMPARE(listTotalsYears(file.database()).size(), 2);
        QCOMPARE(loadYearTotals(file.database(), year).tripCount, 3);
        QCOMPARE(loadYearNonTripTotals(file.database(), year).rows.size(), 8);
        QCOMPARE(loadYearFuelTotals(file.database(), year).rows.size(), 5);
        QCOMPARE(loadWeeklyMetric(file.database(), year, u"all_fuel_net"_s).size(), 2);
        QCOMPARE(file.workspace.bytes(u"trips.db"_s), before);
    }
};

TEST_CLASS(tst_PayTotalsRepository)
#include "tst_PayTotalsRepository.moc"
