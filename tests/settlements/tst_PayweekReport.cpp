#include "settlements/PayweekReport.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// Every figure is another one, so that none can stand in another's place.
PayweekFigures differentFigures()
{
    return {.payweek = u"01/16/2026"_s,
            .trips = {.miles = 1234.5,
                      .revenue = 5001.01,
                      .cost = 1002.02,
                      .net = 3998.99,
                      .tripCount = 1200},
            .items = {.revenue = 303.03, .expense = 404.04, .itemCount = 5},
            .basic = {.totalRevenue = 5304.04,
                      .totalExpense = 1406.06,
                      .net = 3897.98,
                      .netCpm = 315.75},
            .emergencyFund = {1.11, 2.22, -1.11, 1003.33},
            .tireFund = {4.44, 5.55, -1.12, 6.66},
            .performanceBond = {7.77, 8.88, -1.13, 9.99},
            .fuel = {601.01, 602.02, 603.03, 1604.04, 605.05, 606.06, 2707.07, 3.4567, 8},
            .carryover = {2026, -149.84, 701.01, -702.02, 703.03, 10.4, 0.36, 620.0, 620.36, 620.37,
                          470.52, -79.48, 704.04}};
}

const QString reportOfDifferentFigures = QStringLiteral(R"(Payweek: 01/16/2026

Trips
  Trip count: 1200
  Total miles: 1,234.50
  Trip revenue: $5,001.01
  Trip cost: $1,002.02
  Trip net: $3,998.99

Settlement Non-Trip Items
  Item count: 5
  Non-trip revenue: $303.03
  Non-trip expense: $404.04
  Non-trip net: -$101.01

Current Basic Payweek Summary
  Total revenue: $5,304.04
  Total expense: $1,406.06
  Settlement total before interest: $620.00
  Interest applied this payweek: $0.36
  Settlement total after interest: $620.36
  Net CPM before interest: $315.75

Emergency Fund Summary
  Rule: Expense + Emergency Fund adds; Revenue + Emergency Fund withdraws.
  Legacy revenue name also recognized: Emergency Fund Withdrawal.
  E-Fund Added this payweek: $1.11
  E-Fund Withdrawn this payweek: $2.22
  Net E-Fund Change this payweek: -$1.11
  E-Fund Balance through selected payweek: $1,003.33

Tire Fund Summary
  Rule: Expense + Tire Fund adds; Revenue + Tire Fund Withdrawal withdraws.
  Tire Fund Added this payweek: $4.44
  Tire Fund Withdrawn this payweek: $5.55
  Net Tire Fund Change this payweek: -$1.12
  Tire Fund Balance through selected payweek: $6.66

Performance Bond Summary
  Rule: Expense + Performance Bond adds; Revenue + Performance Bond Withdrawal withdraws.
  Performance Bond Added this payweek: $7.77
  Performance Bond Withdrawn this payweek: $8.88
  Net Performance Bond Change this payweek: -$1.13
  Performance Bond Balance through selected payweek: $9.99

Fuel / DEF Analytics
  Detail rows: 8
  Truck Fuel net cost: $601.01
  Reefer Fuel net cost: $602.02
  DEF net cost: $603.03
  Total cost before discount: $1,604.04
  Total discounts: $605.05
  Net fuel / DEF cost: $606.06
  Total gallons: 2,707.07
  Avg net $/gallon: $3.46/gal

Carryover / Interest Summary
  Settlement year used: 2026
  Previous settlement carryover: -$149.84
  Previous fund balance: $701.01
  Previous fund additions/subtractions: -$702.02
  Interest base balance: $703.03
  APR: 10.40%
  Interest applied this payweek: $0.36
  Settlement total before interest: $620.00
  Settlement total after interest: $620.36
  Adjusted net after carryover: $470.52
  Carryover forward: -$79.48
  Current-year fund balance used for interest: $704.04
  Note: APR interest excludes prior-year legacy fund balances and obsolete Tire Fund values.

Repository status: basic payweek aggregation, current-year fund logic, fuel analytics, carryover, and interest now live in PayweekRepository.)");

QString lineOf(const PayweekFigures &figures, const QString &label)
{
    QStringList found;
    for (const QString &line : payweekReport(figures).split(u'\n')) {
        if (line.startsWith(u"  "_s + label + u": "_s))
            found.append(line);
    }
    return found.join(u'\n');
}

} // namespace

class tst_PayweekReport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wholeReport() { QCOMPARE(payweekReport(differentFigures()), reportOfDifferentFigures); }

    void moneyCarriesItsSignAheadOfTheDollar_data()
    {
        QTest::addColumn<double>("dollars");
        QTest::addColumn<QString>("text");
        QTest::newRow("below zero") << -710.0 << u"-$710.00"_s;
        QTest::newRow("thousands") << -1234567.891 << u"-$1,234,567.89"_s;
        QTest::newRow("a fraction of a cent below zero") << -0.001 << u"-$0.00"_s;
        QTest::newRow("zero") << 0.0 << u"$0.00"_s;
        QTest::newRow("negative zero") << -0.0 << u"$0.00"_s;
    }

    void moneyCarriesItsSignAheadOfTheDollar()
    {
        QFETCH(const double, dollars);
        QFETCH(const QString, text);
        PayweekFigures figures;
        figures.carryover.settlementTotalBeforeInterest = dollars;
        const QString line = u"  Settlement total before interest: "_s + text;
        QCOMPARE(lineOf(figures, u"Settlement total before interest"_s), line + u'\n' + line);
    }

    void yearThatIsNotKnownIsSaidSo_data()
    {
        QTest::addColumn<int>("year");
        QTest::addColumn<QString>("text");
        QTest::newRow("a year") << 1 << u"1"_s;
        QTest::newRow("none") << 0 << u"Unknown"_s;
        QTest::newRow("before the count of years") << -1 << u"Unknown"_s;
    }

    void yearThatIsNotKnownIsSaidSo()
    {
        QFETCH(const int, year);
        QFETCH(const QString, text);
        PayweekFigures figures;
        figures.carryover.settlementYear = year;
        QCOMPARE(lineOf(figures, u"Settlement year used"_s), u"  Settlement year used: "_s + text);
    }

    void nonTripNetIsNotRoundedBeforeItIsPrinted()
    {
        PayweekFigures figures;
        figures.items.expense = 0.004;
        QCOMPARE(lineOf(figures, u"Non-trip net"_s), u"  Non-trip net: -$0.00"_s);
    }

    void rateAboveAThousandIsGrouped()
    {
        PayweekFigures figures;
        figures.carryover.apr = -1234.567;
        QCOMPARE(lineOf(figures, u"APR"_s), u"  APR: -1,234.57%"_s);
    }

    void emptyPayweekIsAllZeros()
    {
        const QString report = payweekReport({});
        QVERIFY(report.startsWith(u"Payweek: \n\nTrips\n  Trip count: 0\n  Total miles: 0.00\n"_s));
        QCOMPARE(report.count(u": $0.00\n"_s), 40);
        QCOMPARE(report.count(u"-$"_s), 0);
        QVERIFY(!report.endsWith(u'\n'));
    }
};

TEST_CLASS(tst_PayweekReport)
#include "tst_PayweekReport.moc"
