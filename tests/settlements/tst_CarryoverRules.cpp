#include "settlements/CarryoverRules.h"
#include "support/TestProgram.h"

#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;
using namespace CarryoverRules;

namespace {

PayweekTripTotals tripsOf(double revenue, double cost, double miles)
{
    PayweekTripTotals trips;
    trips.revenue = revenue;
    trips.cost = cost;
    trips.miles = miles;
    return trips;
}

PayweekSettlementTotals itemsOf(double revenue, double expense)
{
    PayweekSettlementTotals items;
    items.revenue = revenue;
    items.expense = expense;
    return items;
}

PayweekFundSummary fundOf(double netChange, double balance)
{
    PayweekFundSummary fund;
    fund.netChange = netChange;
    fund.balanceThroughPayweek = balance;
    return fund;
}

} // namespace

class tst_CarryoverRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void interestIsA52ndOfTheYearlyRate_data()
    {
        QTest::addColumn<double>("base");
        QTest::addColumn<double>("apr");
        QTest::addColumn<double>("dollars");
        QTest::newRow("5.2 percent of 160") << 160.0 << 5.2 << 0.16;
        QTest::newRow("10.4 percent of 180") << 180.0 << 10.4 << 0.36;
        QTest::newRow("100 percent of 52") << 52.0 << 100.0 << 1.0;
        QTest::newRow("overdrawn fund") << -160.0 << 5.2 << -0.16;
        QTest::newRow("rate below zero") << 160.0 << -5.2 << -0.16;
        QTest::newRow("both below zero") << -160.0 << -5.2 << 0.16;
        QTest::newRow("fraction of a cent") << 13.0 << 4.0 << 0.01;
        QTest::newRow("nothing is rounded") << 1.0 << 5.2 << 0.001;
        QTest::newRow("a cent at a tiny rate") << 0.01 << 0.52 << 0.000001;
    }

    void interestIsA52ndOfTheYearlyRate()
    {
        QFETCH(const double, base);
        QFETCH(const double, apr);
        QTEST(interest(base, apr), "dollars");
    }

    void nothingComesOfAnExactZero_data()
    {
        QTest::addColumn<double>("base");
        QTest::addColumn<double>("apr");
        QTest::newRow("no base") << 0.0 << 5.2;
        QTest::newRow("no rate") << 160.0 << 0.0;
        QTest::newRow("neither") << 0.0 << 0.0;
        QTest::newRow("negative zero base") << -0.0 << 5.2;
        QTest::newRow("negative zero rate") << 160.0 << -0.0;
        QTest::newRow("overdrawn at no rate") << -160.0 << 0.0;
    }

    void nothingComesOfAnExactZero()
    {
        QFETCH(const double, base);
        QFETCH(const double, apr);
        const double dollars = interest(base, apr);
        QVERIFY(dollars == 0.0);
        QVERIFY(!std::signbit(dollars));
    }

    // Any other order of the same operations ends in one of this double's neighbours, which print
    // as 0.0017 and 0.0017000000000000003.
    void interestTakesTheRateFirstAndTheWeeksLast()
    {
        QVERIFY(interest(1.7, 5.2) == 0.0017000000000000001);
    }

    void basicSummaryAddsTripsAndItems()
    {
        const PayweekBasicSummary summary =
            basicSummary(tripsOf(800.0, 200.0, 1000.0), itemsOf(30.0, 10.0));
        QCOMPARE(summary.totalRevenue, 830.0);
        QCOMPARE(summary.totalExpense, 210.0);
        QCOMPARE(summary.net, 620.0);
        QCOMPARE(summary.netCpm, 62.0);
    }

    // 0.125 is exact in binary, so that the half cent really is one.
    void basicSummaryRoundsEachSumToCentsBeforeTheyMeet()
    {
        const PayweekBasicSummary summary =
            basicSummary(tripsOf(10.125, 3.125, 0.0), itemsOf(0.0, 0.0));
        QCOMPARE(summary.totalRevenue, 10.13);
        QCOMPARE(summary.totalExpense, 3.13);
        QCOMPARE(summary.net, 7.0);
        QCOMPARE(basicSummary(tripsOf(10.125, 0.0, 0.0), itemsOf(0.0, 3.0)).net, 7.13);
        QCOMPARE(basicSummary(tripsOf(-10.125, 0.0, 0.0), itemsOf(0.0, 0.0)).totalRevenue, -10.13);
        QCOMPARE(basicSummary(tripsOf(0.0625, 0.0, 0.0), itemsOf(0.0625, 0.0)).totalRevenue, 0.13);
    }

    void basicSummaryNeverReadsTheStoredNet()
    {
        PayweekTripTotals trips = tripsOf(100.0, 40.0, 0.0);
        trips.net = 9999.0;
        QCOMPARE(basicSummary(trips, {}).net, 60.0);
    }

    void netCpmIsCentsAMile_data()
    {
        QTest::addColumn<double>("revenue");
        QTest::addColumn<double>("miles");
        QTest::addColumn<double>("cents");
        QTest::newRow("1000 over 2000") << 1000.0 << 2000.0 << 50.0;
        QTest::newRow("loss") << -1000.0 << 2000.0 << -50.0;
        QTest::newRow("rounded up") << 2.0 << 3.0 << 66.67;
        QTest::newRow("rounded down") << 1.0 << 3.0 << 33.33;
        QTest::newRow("no miles") << 1000.0 << 0.0 << 0.0;
        QTest::newRow("miles below zero") << 1000.0 << -5.0 << 0.0;
        QTest::newRow("nothing earned") << 0.0 << 600.0 << 0.0;
    }

    void netCpmIsCentsAMile()
    {
        QFETCH(const double, revenue);
        QFETCH(const double, miles);
        QTEST(basicSummary(tripsOf(revenue, 0.0, miles), {}).netCpm, "cents");
    }

    void fundBaseIsTheTotalAtTheCloseOfTheWeek()
    {
        const FundBase base = fundBase(fundOf(-30.0, 110.0), fundOf(10.0, 70.0));
        QCOMPARE(base.change, -20.0);
        QCOMPARE(base.total, 180.0);
        QCOMPARE(base.previousBalance, 200.0);
        QCOMPARE(base.interestBase, 180.0);
    }

    void fundBaseOfEmptyFundsIsZero()
    {
        const FundBase base = fundBase({}, {});
        QCOMPARE(base.change, 0.0);
        QCOMPARE(base.total, 0.0);
        QCOMPARE(base.previousBalance, 0.0);
        QCOMPARE(base.interestBase, 0.0);
    }

    void fundBaseOfAWeekThatTookOutMoreThanWasPutInIsBelowZero()
    {
        const FundBase base = fundBase(fundOf(-80.0, -50.0), {});
        QCOMPARE(base.previousBalance, 30.0);
        QCOMPARE(base.interestBase, -50.0);
    }

    void onlyADebtIsCarriedOn_data()
    {
        QTest::addColumn<double>("carryover");
        QTest::addColumn<double>("weekResult");
        QTest::addColumn<double>("carried");
        QTest::newRow("a loss begins a debt") << 0.0 << -709.84 << -709.84;
        QTest::newRow("a gain pays it down") << -709.84 << 560.0 << -149.84;
        QTest::newRow("a second loss adds up") << -100.0 << -50.0 << -150.0;
        QTest::newRow("paid to the cent") << -100.0 << 100.0 << 0.0;
        QTest::newRow("what is left over is gone") << -149.84 << 620.36 << 0.0;
        QTest::newRow("a gain alone") << 0.0 << 500.0 << 0.0;
        QTest::newRow("nothing at all") << 0.0 << 0.0 << 0.0;
        QTest::newRow("a fraction of a cent") << 0.0 << -0.001 << -0.001;
    }

    void onlyADebtIsCarriedOn()
    {
        QFETCH(const double, carryover);
        QFETCH(const double, weekResult);
        QTEST(carriedOn(carryover, weekResult), "carried");
    }
};

TEST_CLASS(tst_CarryoverRules)
#include "tst_CarryoverRules.moc"
