#include "settlements/CarryoverRules.h"
#include "settlements/PayweekFile.h"
#include "support/FailingStatement.h"
#include "support/TestProgram.h"

using namespace Qt::StringLiterals;
using namespace PayweekRepository;

namespace {

/// Opens a trips.db and reads the carryover of its payweeks as View Payweek does.
class Carryovers : public Payweeks
{
public:
    [[nodiscard]] PayweekCarryoverSummary of(const QString &payweek) const
    {
        PayweekCarryoverSummary result = {.previousCarryover = -1.0, .carryoverForward = -1.0};
        if (!loadPayweekCarryover(
                trips.database(), payweek,
                CarryoverRules::basicSummary(tripTotals(payweek), itemTotals(payweek)),
                fund(loadEmergencyFundSummary, payweek), fund(loadPerformanceBondSummary, payweek),
                result, error))
            QTest::qFail(qPrintable(error), __FILE__, __LINE__);
        return result;
    }
};

QList<double> figuresOf(const PayweekCarryoverSummary &carryover)
{
    return {double(carryover.settlementYear),       carryover.previousCarryover,
            carryover.previousFundBalance,          carryover.fundChange,
            carryover.interestBaseBalance,          carryover.apr,
            carryover.interestThisPayweek,          carryover.settlementTotalBeforeInterest,
            carryover.settlementTotalAfterInterest, carryover.netAfterInterest,
            carryover.adjustedNetAfterCarryover,    carryover.carryoverForward,
            carryover.currentYearFundBalance};
}

// Sums of doubles end within a billionth of the figures on paper.
bool isSame(double value, double onPaper)
{
    return std::abs(value - onPaper) < 1e-9;
}

void compareOnPaper(const PayweekCarryoverSummary &carryover, const QList<double> &onPaper)
{
    const QList<double> figures = figuresOf(carryover);
    QCOMPARE(figures.size(), onPaper.size());
    for (qsizetype i = 0; i < figures.size(); ++i) {
        if (!isSame(figures.at(i), onPaper.at(i)))
            QCOMPARE(figures.at(i), onPaper.at(i));
    }
}

} // namespace

/// Carryover and interest over the payweeks of a year.
class tst_PayweekCarryover : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // In the order of the record: year; carryover before; fund before, change, base, rate,
    // interest; total before and after interest, net after interest; adjusted, forward; fund.
    void threeWorkedWeeks()
    {
        const Carryovers carryovers;
        insertWorkedWeeks(carryovers.workspace);
        compareOnPaper(carryovers.of(u"01/16/2026"_s),
                       {2026, -149.84, 200.0, -20.0, 180.0, 10.4, 0.36, 620.0, 620.36, 620.36,
                        470.52, 0.0, 180.0});
    }

    void weekThatEarnsLessCarriesTheRestForward()
    {
        const Carryovers carryovers;
        insertWorkedWeeks(carryovers.workspace, 250.0);
        compareOnPaper(carryovers.of(u"01/16/2026"_s),
                       {2026, -149.84, 200.0, -20.0, 180.0, 10.4, 0.36, 70.0, 70.36, 70.36, -79.48,
                        -79.48, 180.0});
    }

    void secondWeekPaysBackWithoutARateOfItsOwn()
    {
        const Carryovers carryovers;
        insertWorkedWeeks(carryovers.workspace);
        compareOnPaper(carryovers.of(u"01/09/2026"_s),
                       {2026, -709.84, 160.0, 40.0, 200.0, 0.0, 0.0, 560.0, 560.0, 560.0, -149.84,
                        -149.84, 200.0});
    }

    void firstWeekOfTheYearHasNothingBeforeIt()
    {
        const Carryovers carryovers;
        insertWorkedWeeks(carryovers.workspace);
        compareOnPaper(carryovers.of(u" 01/02/2026 "_s),
                       {2026, 0.0, 0.0, 160.0, 160.0, 5.2, 0.16, -710.0, -709.84, -709.84, -709.84,
                        -709.84, 160.0});
    }

    void yearBeginsWithoutTheDebtOfDecember()
    {
        const Carryovers carryovers;
        insertTrip(carryovers.workspace, u"12/25/2026"_s, 0.0, 500.0);
        insertTrip(carryovers.workspace, u"01/01/2027"_s, 100.0, 0.0);
        QCOMPARE(carryovers.of(u"12/25/2026"_s).carryoverForward, -500.0);
        QCOMPARE(carryovers.of(u"01/01/2027"_s).previousCarryover, 0.0);
        QCOMPARE(carryovers.of(u"01/01/2027"_s).adjustedNetAfterCarryover, 100.0);
    }

    void fundsOfTheYearBeforeEarnNothing()
    {
        const Carryovers carryovers;
        expense(u"12/25/2026"_s, u"Emergency Fund"_s, 5000.0).insert(carryovers.workspace);
        expense(u"01/01/2027"_s, u"Emergency Fund"_s, 52.0).insert(carryovers.workspace);
        apr(u"01/01/2027"_s, 10.0).insert(carryovers.workspace);
        QCOMPARE(carryovers.of(u"01/01/2027"_s).interestBaseBalance, 52.0);
        QCOMPARE(carryovers.of(u"01/01/2027"_s).interestThisPayweek, 0.1);
    }

    void nothingAboveZeroIsCarried()
    {
        const Carryovers carryovers;
        insertTrip(carryovers.workspace, u"01/02/2026"_s, 900.0, 0.0);
        insertTrip(carryovers.workspace, u"01/09/2026"_s, 0.0, 100.0);
        insertTrip(carryovers.workspace, u"01/16/2026"_s, 40.0, 0.0);
        QCOMPARE(carryovers.of(u"01/02/2026"_s).carryoverForward, 0.0);
        QCOMPARE(carryovers.of(u"01/09/2026"_s).previousCarryover, 0.0);
        QCOMPARE(carryovers.of(u"01/16/2026"_s).previousCarryover, -100.0);
        QCOMPARE(carryovers.of(u"01/16/2026"_s).carryoverForward, -60.0);
    }

    void rateIsNotInheritedAndTheWalkGoesOnWithoutOne()
    {
        const Carryovers carryovers;
        expense(u"01/02/2026"_s, u"Emergency Fund"_s, 100.0).insert(carryovers.workspace);
        apr(u"01/02/2026"_s, 52.0).insert(carryovers.workspace);
        apr(u"01/09/2026"_s, 0.0).insert(carryovers.workspace);
        expense(u"01/16/2026"_s, u"Permit"_s, 10.0).insert(carryovers.workspace);
        insertTrip(carryovers.workspace, u"01/23/2026"_s, 0.0, 0.0);
        const PayweekCarryoverSummary last = carryovers.of(u"01/23/2026"_s);
        QCOMPARE(last.apr, 0.0);
        QCOMPARE(last.interestThisPayweek, 0.0);
        // A dollar of interest in the first week only.
        QCOMPARE(last.previousCarryover, -109.0);
    }

    void tireFundEarnsNothing()
    {
        const Carryovers carryovers;
        expense(week, u"Tire Fund"_s, 5000.0).insert(carryovers.workspace);
        apr(week, 5.2).insert(carryovers.workspace);
        const PayweekCarryoverSummary carryover = carryovers.of(week);
        QCOMPARE(carryover.interestBaseBalance, 0.0);
        QCOMPARE(carryover.interestThisPayweek, 0.0);
        QCOMPARE(carryover.settlementTotalAfterInterest, -5000.0);
    }

    void emptyFundsEarnNothingAtAnyRate()
    {
        const Carryovers carryovers;
        insertTrip(carryovers.workspace, week, 100.0, 0.0);
        apr(week, 5.2).insert(carryovers.workspace);
        const PayweekCarryoverSummary carryover = carryovers.of(week);
        QCOMPARE(carryover.apr, 5.2);
        QCOMPARE(carryover.interestThisPayweek, 0.0);
        QCOMPARE(carryover.settlementTotalAfterInterest, 100.0);
    }

    void interestCanBeBelowZero_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<double>("rate");
        QTest::newRow("more taken out than paid in") << u"revenue"_s << 52.0;
        QTest::newRow("rate below zero") << u"expense"_s << -52.0;
    }

    void interestCanBeBelowZero()
    {
        QFETCH(const QString, kind);
        QFETCH(const double, rate);
        const Carryovers carryovers;
        expense(u"01/02/2026"_s, u"Emergency Fund"_s, 100.0)
            .set(u"kind"_s, kind)
            .insert(carryovers.workspace);
        expense(u"01/02/2026"_s, u"Balance"_s, 100.0)
            .set(u"kind"_s, kind == u"revenue"_s ? u"expense"_s : u"revenue"_s)
            .insert(carryovers.workspace);
        apr(u"01/02/2026"_s, rate).insert(carryovers.workspace);
        insertTrip(carryovers.workspace, u"01/09/2026"_s, 0.0, 0.0);
        QCOMPARE(carryovers.of(u"01/02/2026"_s).interestThisPayweek, -1.0);
        QCOMPARE(carryovers.of(u"01/02/2026"_s).carryoverForward, -1.0);
        QCOMPARE(carryovers.of(u"01/09/2026"_s).previousCarryover, -1.0);
    }

    void contributionsLowerTheWeekAndRaiseTheBaseAndWithdrawalsTheReverse()
    {
        const Carryovers carryovers;
        expense(u"01/02/2026"_s, u"Performance Bond"_s, 100.0).insert(carryovers.workspace);
        revenue(u"01/09/2026"_s, u"Performance Bond Withdrawal"_s, 40.0)
            .insert(carryovers.workspace);
        const PayweekCarryoverSummary first = carryovers.of(u"01/02/2026"_s);
        QCOMPARE(first.settlementTotalBeforeInterest, -100.0);
        QCOMPARE(first.interestBaseBalance, 100.0);
        const PayweekCarryoverSummary second = carryovers.of(u"01/09/2026"_s);
        QCOMPARE(second.settlementTotalBeforeInterest, 40.0);
        QCOMPARE(second.interestBaseBalance, 60.0);
    }

    void fractionsOfACentStay()
    {
        const Carryovers carryovers;
        expense(u"01/02/2026"_s, u"Emergency Fund"_s, 1.0).insert(carryovers.workspace);
        apr(u"01/02/2026"_s, 5.2).insert(carryovers.workspace);
        insertTrip(carryovers.workspace, u"01/09/2026"_s, 0.0, 0.0);
        QCOMPARE(carryovers.of(u"01/02/2026"_s).carryoverForward, -0.999);
        QCOMPARE(carryovers.of(u"01/09/2026"_s).previousCarryover, -0.999);
        QCOMPARE(carryovers.of(u"01/09/2026"_s).carryoverForward, -0.999);
    }

    void weekWithNothingButARateEarnsInterestOnTheWay()
    {
        const Carryovers carryovers;
        expense(u"01/02/2026"_s, u"Emergency Fund"_s, 100.0).insert(carryovers.workspace);
        apr(u"01/09/2026"_s, 52.0).insert(carryovers.workspace);
        insertTrip(carryovers.workspace, u"01/16/2026"_s, 0.0, 0.0);
        QCOMPARE(carryovers.listed(), QStringList({u"01/16/2026"_s, u"01/02/2026"_s}));
        QCOMPARE(carryovers.of(u"01/16/2026"_s).previousCarryover, -99.0);
    }

    void weeksAreWalkedByDateHoweverTheyAreWritten()
    {
        const Carryovers carryovers;
        insertTrip(carryovers.workspace, u"2026-01-02"_s, 0.0, 100.0);
        insertTrip(carryovers.workspace, u"1/9/2026"_s, 30.0, 0.0);
        insertTrip(carryovers.workspace, u"01-16-2026"_s, 0.0, 0.0);
        insertTrip(carryovers.workspace, u"12/04/2026"_s, 0.0, 5000.0);
        insertTrip(carryovers.workspace, u"no date"_s, 0.0, 5000.0);
        QCOMPARE(carryovers.of(u"01-16-2026"_s).previousCarryover, -70.0);
        QCOMPARE(carryovers.of(u"1/9/2026"_s).previousCarryover, -100.0);
    }

    void fundOfAWeekWrittenShortEarnsNothingOnTheWay()
    {
        const Carryovers carryovers;
        expense(u"1/2/2026"_s, u"Emergency Fund"_s, 100.0).insert(carryovers.workspace);
        apr(u"1/2/2026"_s, 52.0).insert(carryovers.workspace);
        insertTrip(carryovers.workspace, u"01/09/2026"_s, 0.0, 0.0);
        const PayweekCarryoverSummary first = carryovers.of(u"1/2/2026"_s);
        QCOMPARE(first.fundChange, 100.0);
        QCOMPARE(first.previousFundBalance, -100.0);
        QCOMPARE(first.interestThisPayweek, 0.0);
        QCOMPARE(carryovers.of(u"01/09/2026"_s).previousCarryover, -100.0);
    }

    void oneDateWrittenTwiceIsTwoWeeks()
    {
        const Carryovers carryovers;
        insertTrip(carryovers.workspace, u"01/02/2026"_s, 0.0, 100.0);
        insertTrip(carryovers.workspace, u"1/2/2026"_s, 0.0, 10.0);
        insertTrip(carryovers.workspace, u"01/09/2026"_s, 0.0, 0.0);
        QCOMPARE(carryovers.of(u"01/09/2026"_s).previousCarryover, -110.0);
        // Which of the two is the earlier is open, but only one can be.
        const double one = carryovers.of(u"01/02/2026"_s).previousCarryover;
        const double other = carryovers.of(u"1/2/2026"_s).previousCarryover;
        QVERIFY((one == -10.0 && other == 0.0) || (one == 0.0 && other == -100.0));
    }

    void weekThatIsNoDateWalksAllYears()
    {
        const Carryovers carryovers;
        insertTrip(carryovers.workspace, u"12/25/2025"_s, 0.0, 100.0);
        insertTrip(carryovers.workspace, u"01/02/2026"_s, 0.0, 10.0);
        insertTrip(carryovers.workspace, u"alpha"_s, 0.0, 1.0);
        insertTrip(carryovers.workspace, u"omega"_s, 0.0, 5000.0);
        expense(u"beta"_s, u"Emergency Fund"_s, 0.5).insert(carryovers.workspace);
        apr(u"beta"_s, 52.0).insert(carryovers.workspace);
        compareOnPaper(carryovers.of(u"beta"_s), {0, -111.0, -0.5, 0.5, 0.0, 52.0, 0.0, -0.5, -0.5,
                                                  -0.5, -111.5, -111.5, 0.0});
    }

    void eachWeekOfAWalkThroughAllYearsKeepsToTheFundsOfItsOwn()
    {
        const Carryovers carryovers;
        expense(u"12/25/2025"_s, u"Emergency Fund"_s, 1000.0).insert(carryovers.workspace);
        expense(u"01/02/2026"_s, u"Emergency Fund"_s, 100.0).insert(carryovers.workspace);
        apr(u"01/02/2026"_s, 52.0).insert(carryovers.workspace);
        insertTrip(carryovers.workspace, u"no date"_s, 0.0, 0.0);
        QCOMPARE(carryovers.of(u"no date"_s).previousCarryover, -1099.0);
    }

    void weekThatHoldsNothingStillEndsTheWalk()
    {
        const Carryovers carryovers;
        insertTrip(carryovers.workspace, u"01/02/2026"_s, 0.0, 100.0);
        insertTrip(carryovers.workspace, u"01/16/2026"_s, 0.0, 1000.0);
        const PayweekCarryoverSummary empty = carryovers.of(u"01/09/2026"_s);
        QCOMPARE(empty.previousCarryover, -100.0);
        QCOMPARE(empty.carryoverForward, -100.0);
        QCOMPARE(carryovers.of(u"ABC"_s).previousCarryover, -1100.0);
    }

    void storedNetIsNotReadOnTheWay()
    {
        const Carryovers carryovers;
        trip()
            .payweek(u"01/02/2026"_s)
            .totals(0.0, 100.0)
            .set(u"net_revenue"_s, 9999.0)
            .insert(carryovers.workspace);
        insertTrip(carryovers.workspace, u"01/09/2026"_s, 0.0, 0.0);
        QCOMPARE(carryovers.of(u"01/09/2026"_s).previousCarryover, -100.0);
    }

    void figuresOfTheSelectedWeekAreTheCallersOwn()
    {
        const Carryovers carryovers;
        insertTrip(carryovers.workspace, week, 5000.0, 0.0);
        expense(week, u"Emergency Fund"_s, 5000.0).insert(carryovers.workspace);
        apr(week, 52.0).insert(carryovers.workspace);
        PayweekCarryoverSummary result;
        QVERIFY(loadPayweekCarryover(carryovers.trips.database(), week, {.net = -3.0},
                                     {.netChange = 20.0, .balanceThroughPayweek = 150.0},
                                     {.netChange = -5.0, .balanceThroughPayweek = 50.0}, result,
                                     carryovers.error));
        compareOnPaper(result, {2026, 0.0, 185.0, 15.0, 200.0, 52.0, 2.0, -3.0, -1.0, -1.0, -1.0,
                                -1.0, 200.0});
    }

    void closedFileFailsAheadOfABlankPayweek()
    {
        const Workspace workspace;
        PayweekCarryoverSummary result = {.settlementYear = 2026, .apr = 5.2};
        QString error;
        QVERIFY(!loadPayweekCarryover({}, u" "_s, {}, {}, {}, result, error));
        QCOMPARE(error, u"Trips database is not open."_s);
        QCOMPARE(figuresOf(result), QList<double>(13, 0.0));
    }

    void blankPayweekFails()
    {
        const Carryovers carryovers;
        PayweekCarryoverSummary result = {.settlementYear = 2026, .apr = 5.2};
        QVERIFY(!loadPayweekCarryover(carryovers.trips.database(), u" \t"_s, {}, {}, {}, result,
                                      carryovers.error));
        QCOMPARE(carryovers.error, u"Payweek is blank."_s);
        QCOMPARE(figuresOf(result), QList<double>(13, 0.0));
    }

    void listThatFailsFailsTheWhole()
    {
        const Carryovers carryovers;
        insertWorkedWeeks(carryovers.workspace);
        carryovers.trips.execute(u"DROP TABLE settlement_meta"_s);
        PayweekCarryoverSummary result;
        QVERIFY(!loadPayweekCarryover(carryovers.trips.database(), u"01/16/2026"_s, {.net = 620.0},
                                      {}, {}, result, carryovers.error));
        QCOMPARE(carryovers.error, u"no such table: settlement_meta Unable to execute statement"_s);
        QCOMPARE(result.settlementYear, 2026);
        QCOMPARE(result.settlementTotalBeforeInterest, 0.0);
        QStringList keys = {u"left over"_s};
        QVERIFY(!listCarryoverPayweeks(carryovers.trips.database(), keys, carryovers.error));
        QCOMPARE(keys, QStringList());
    }

    void tripsThatFailOnTheWayCountNothing()
    {
        const Carryovers carryovers;
        insertWorkedWeeks(carryovers.workspace);
        carryovers.trips.execute(u"ALTER TABLE trips RENAME COLUMN total_miles TO miles"_s);
        PayweekCarryoverSummary result;
        QVERIFY(loadPayweekCarryover(carryovers.trips.database(), u"01/09/2026"_s, {.net = 60.0},
                                     {}, {}, result, carryovers.error));
        QCOMPARE(carryovers.error, QString());
        // The items of the first week, $210.00 and 16 cents of interest.
        QCOMPARE(result.previousCarryover, -209.84);
        QCOMPARE(result.carryoverForward, -149.84);
    }

    void itemsAndFundsThatFailOnTheWayCountNothing()
    {
        const Carryovers carryovers;
        insertWorkedWeeks(carryovers.workspace);
        carryovers.trips.execute(
            u"ALTER TABLE settlement_non_trip_items RENAME COLUMN amount TO dollars"_s);
        PayweekCarryoverSummary result;
        QVERIFY(loadPayweekCarryover(carryovers.trips.database(), u"01/09/2026"_s, {}, {}, {},
                                     result, carryovers.error));
        QCOMPARE(carryovers.error, QString());
        QCOMPARE(result.previousCarryover, -500.0);
    }

    void tripsThatFailHalfWayCountAsFarAsTheyWereRead()
    {
        const Carryovers carryovers;
        insertTrip(carryovers.workspace, u"01/02/2026"_s, 100.0, 300.0);
        trip()
            .payweek(u"01/02/2026"_s)
            .totals(0.0, 5000.0)
            .set(u"total_miles"_s, -1e19)
            .insert(carryovers.workspace);
        insertTrip(carryovers.workspace, u"01/09/2026"_s, 50.0, 0.0);
        makeHugeMilesUnreadable(carryovers.workspace);
        const PayweekCarryoverSummary second = carryovers.of(u"01/09/2026"_s);
        QCOMPARE(second.previousCarryover, -200.0);
        QCOMPARE(second.carryoverForward, -150.0);
    }

    void movementsThatFailOnTheWayEarnNothing()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertWorkedWeeks(workspace);
        FailingStatement statement;
        const TestConnection trips(path);
        // The rate and the list of the walk come first, then its trips and its items.
        statement.comesAfter(4);
        PayweekCarryoverSummary result;
        QString error;
        QVERIFY(loadPayweekCarryover(trips.database(), u"01/09/2026"_s, {}, {}, {}, result, error));
        QCOMPARE(error, QString());
        QCOMPARE(result.previousCarryover, -710.0);
    }

    void rateThatFailsOnTheWayCountsNothing()
    {
        const Carryovers carryovers;
        insertWorkedWeeks(carryovers.workspace);
        carryovers.trips.execute(u"ALTER TABLE settlement_meta RENAME COLUMN apr TO rate"_s);
        QCOMPARE(carryovers.of(u"01/09/2026"_s).previousCarryover, -710.0);
        QCOMPARE(carryovers.of(u"01/16/2026"_s).apr, 0.0);
    }

    void changeInAnEarlierWeekShowsAtTheNextLoad()
    {
        const Carryovers carryovers;
        insertWorkedWeeks(carryovers.workspace);
        QVERIFY(isSame(carryovers.of(u"01/16/2026"_s).previousCarryover, -149.84));
        expense(u"01/02/2026"_s, u"Permit"_s, 10.0).insert(carryovers.workspace);
        QVERIFY(isSame(carryovers.of(u"01/16/2026"_s).previousCarryover, -159.84));
    }
};

TEST_CLASS(tst_PayweekCarryover)
#include "tst_PayweekCarryover.moc"
