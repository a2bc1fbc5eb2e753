#include "reports/totals/PayTotalsRules.h"
#include "reports/totals/TotalsFile.h"
#include "support/TestProgram.h"

using namespace Qt::StringLiterals;
using namespace PayTotalsRules;

/// The roundings of Pay Totals and the order in which they are made.
class tst_PayTotalsRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void totalsAreRoundedBeforeTheNet_data()
    {
        QTest::addColumn<double>("revenue");
        QTest::addColumn<double>("expenses");
        QTest::addColumn<double>("net");
        QTest::newRow("cents") << 10.25 << 4.5 << 5.75;
        QTest::newRow("down and up") << 10.004 << 0.006 << 9.99;
        QTest::newRow("half away from zero") << 0.125 << 0.0 << 0.13;
        QTest::newRow("below zero") << -0.125 << 0.0 << -0.13;
        QTest::newRow("less than a cent") << 0.004 << 0.004 << 0.0;
        QTest::newRow("huge") << 1e12 << 0.01 << 999999999999.99;
    }

    void totalsAreRoundedBeforeTheNet()
    {
        QFETCH(const double, revenue);
        QFETCH(const double, expenses);
        QFETCH(const double, net);
        const Workspace workspace;
        QCOMPARE(withTotals({.tripRevenue = revenue, .tripExpenses = expenses}).netRevenue, net);
        QCOMPARE(
            withTotals({.settlementRevenue = revenue, .settlementExpenses = expenses}).netRevenue,
            net);
    }

    void sumsAreAddedBeforeTheyAreRounded()
    {
        const Workspace workspace;
        const PayTotalsSummary totals = withTotals({.tripRevenue = 0.004,
                                                    .settlementRevenue = 0.004,
                                                    .tripExpenses = 0.003,
                                                    .settlementExpenses = 0.001});
        QCOMPARE(totals.totalRevenue, 0.01);
        QCOMPARE(totals.totalExpenses, 0.0);
    }

    void figuresPerMileAreNotRounded()
    {
        const Workspace workspace;
        const PayTotalsSummary totals =
            withTotals({.tripRevenue = 100.0, .tripExpenses = 37.5, .totalMiles = 1024.0});
        QCOMPARE(totals.cpmTotalRevenue, 0.09765625);
        QCOMPARE(totals.cpmNetRevenue, 0.06103515625);
    }

    void kindDecidesTheEffect_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<double>("amount");
        QTest::addColumn<double>("effect");
        QTest::newRow("expense") << u"expense"_s << 10.125 << -10.13;
        QTest::newRow("in capitals") << u"EXPENSE"_s << 10.0 << -10.0;
        QTest::newRow("expense taken back") << u"expense"_s << -10.0 << 10.0;
        QTest::newRow("revenue") << u"revenue"_s << 10.125 << 10.13;
        QTest::newRow("any other") << u"expenses"_s << 10.0 << 10.0;
        QTest::newRow("none") << u""_s << 10.0 << 10.0;
    }

    void kindDecidesTheEffect()
    {
        QFETCH(const QString, kind);
        QFETCH(const double, amount);
        QFETCH(const double, effect);
        const Workspace workspace;
        NonTripRow row;
        row.kind = kind;
        row.amount = amount;
        QCOMPARE(withEffect(row).signedAmount, effect);
        QCOMPARE(withEffect(row).amount, amount);
    }

    void noRowsGiveNoTotals()
    {
        const Workspace workspace;
        QCOMPARE(figuresOf(nonTripTotals({})), QList<double>(8, 0.0));
        QCOMPARE(nonTripTotals({}).groups.size(), 0);
        QCOMPARE(fixedLabels(fuelTotals({})), labelsOfFuelTotals);
        QCOMPARE(fuelTotals({}).types.size(), 0);
    }
};

TEST_CLASS(tst_PayTotalsRules)
#include "tst_PayTotalsRules.moc"
