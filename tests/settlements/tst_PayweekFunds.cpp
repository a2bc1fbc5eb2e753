#include "settlements/PayweekFile.h"
#include "settlements/PayweekRepository.h"
#include "support/TestProgram.h"

using namespace Qt::StringLiterals;
using namespace PayweekRepository;

/// The three funds of a payweek.
class tst_PayweekFunds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachFundReadsItsOwnItems()
    {
        const Payweeks payweeks;
        expense(week, u"Emergency Fund"_s, 100.0).insert(payweeks.workspace);
        expense(week, u"Emergency Fund"_s, 1.0).insert(payweeks.workspace);
        revenue(week, u"Emergency Fund Withdrawal"_s, 30.0).insert(payweeks.workspace);
        expense(week, u"Tire Fund"_s, 50.0).insert(payweeks.workspace);
        revenue(week, u"Tire Fund Withdrawal"_s, 70.0).insert(payweeks.workspace);
        expense(week, u"Performance Bond"_s, 60.0).insert(payweeks.workspace);
        revenue(week, u"Performance Bond Withdrawal"_s, 10.0).insert(payweeks.workspace);
        QCOMPARE(figuresOf(payweeks.fund(loadEmergencyFundSummary)),
                 QList<double>({101.0, 30.0, 71.0, 71.0}));
        QCOMPARE(figuresOf(payweeks.fund(loadTireFundSummary)),
                 QList<double>({50.0, 70.0, -20.0, -20.0}));
        QCOMPARE(figuresOf(payweeks.fund(loadPerformanceBondSummary)),
                 QList<double>({60.0, 10.0, 50.0, 50.0}));
    }

    void fundItemsCountInTheSettlementToo()
    {
        const Payweeks payweeks;
        expense(week, u"Emergency Fund"_s, 100.0).insert(payweeks.workspace);
        revenue(week, u"Tire Fund Withdrawal"_s, 70.0).insert(payweeks.workspace);
        QCOMPARE(figuresOf(payweeks.itemTotals()), QList<double>({70.0, 100.0, 2.0}));
    }

    void bareFundNameAsRevenueTakesOutOfTheEmergencyFundAlone()
    {
        const Payweeks payweeks;
        revenue(week, u"Emergency Fund"_s, 30.0).insert(payweeks.workspace);
        revenue(week, u"Tire Fund"_s, 40.0).insert(payweeks.workspace);
        revenue(week, u"Performance Bond"_s, 50.0).insert(payweeks.workspace);
        QCOMPARE(figuresOf(payweeks.fund(loadEmergencyFundSummary)),
                 QList<double>({0.0, 30.0, -30.0, -30.0}));
        QCOMPARE(figuresOf(payweeks.fund(loadTireFundSummary)), QList<double>(4, 0.0));
        QCOMPARE(figuresOf(payweeks.fund(loadPerformanceBondSummary)), QList<double>(4, 0.0));
        QCOMPARE(payweeks.itemTotals().revenue, 120.0);
    }

    void kindsAndNamesOfAFundIgnoreCaseAndBlanks()
    {
        const Payweeks payweeks;
        expense(week, u" EMERGENCY fund "_s, 100.0)
            .set(u"kind"_s, u" Expense "_s)
            .insert(payweeks.workspace);
        revenue(week, u"emergency FUND withdrawal\t"_s, 40.0)
            .set(u"kind"_s, u"REVENUE"_s)
            .insert(payweeks.workspace);
        QCOMPARE(figuresOf(payweeks.fund(loadEmergencyFundSummary)),
                 QList<double>({100.0, 40.0, 60.0, 60.0}));
    }

    void fundAmountThatIsNoNumberCountsAsItsOwnStatementReadsIt()
    {
        const Payweeks payweeks;
        const auto add = [&payweeks](const QVariant &amount) {
            expense(week, u"Tire Fund"_s, 0.0).set(u"amount"_s, amount).insert(payweeks.workspace);
        };
        add(10.0);
        add(QVariant());
        add(u"abc"_s);
        // SQLite casts the leading number, Qt wants the whole text to be one.
        add(u"5 dollars"_s);
        QCOMPARE(figuresOf(payweeks.fund(loadTireFundSummary)),
                 QList<double>({15.0, 0.0, 15.0, 10.0}));
    }

    void netChangeIsRoundedAndTheBalanceIsNot()
    {
        const Payweeks payweeks;
        expense(week, u"Tire Fund"_s, 10.125).insert(payweeks.workspace);
        QCOMPARE(figuresOf(payweeks.fund(loadTireFundSummary)),
                 QList<double>({10.125, 0.0, 10.13, 10.125}));
    }

    void balanceStartsAnewWithTheYear()
    {
        const Payweeks payweeks;
        expense(u"12/26/2025"_s, u"Emergency Fund"_s, 500.0).insert(payweeks.workspace);
        expense(u"01/02/2026"_s, u"Emergency Fund"_s, 100.0).insert(payweeks.workspace);
        QCOMPARE(payweeks.fund(loadEmergencyFundSummary, u"01/02/2026"_s).balanceThroughPayweek,
                 100.0);
        QCOMPARE(payweeks.fund(loadEmergencyFundSummary, u"12/26/2025"_s).balanceThroughPayweek,
                 500.0);
    }

    void balanceTakesThePayweekInAndLeavesLaterOnesOut()
    {
        const Payweeks payweeks;
        expense(u"01/02/2026"_s, u"Tire Fund"_s, 1.0).insert(payweeks.workspace);
        expense(u"01-09-2026"_s, u"Tire Fund"_s, 10.0).insert(payweeks.workspace);
        expense(u"01/16/2026"_s, u"Tire Fund"_s, 100.0).insert(payweeks.workspace);
        QCOMPARE(figuresOf(payweeks.fund(loadTireFundSummary, u"01/09/2026"_s)),
                 QList<double>({0.0, 0.0, 0.0, 11.0}));
        QCOMPARE(figuresOf(payweeks.fund(loadTireFundSummary, u"01-09-2026"_s)),
                 QList<double>({10.0, 0.0, 10.0, 11.0}));
    }

    void balanceLeavesOutWhatIsNotWrittenInFull_data()
    {
        QTest::addColumn<QString>("payweek");
        QTest::newRow("without leading zeros") << u"1/2/2026"_s;
        QTest::newRow("year first") << u"2026-01-02"_s;
        QTest::newRow("no date") << u"abc"_s;
    }

    void balanceLeavesOutWhatIsNotWrittenInFull()
    {
        QFETCH(const QString, payweek);
        const Payweeks payweeks;
        expense(payweek, u"Emergency Fund"_s, 100.0).insert(payweeks.workspace);
        QCOMPARE(figuresOf(payweeks.fund(loadEmergencyFundSummary, payweek)),
                 QList<double>({100.0, 0.0, 100.0, 0.0}));
        QCOMPARE(payweeks.fund(loadEmergencyFundSummary, u"01/31/2026"_s).balanceThroughPayweek,
                 0.0);
    }

    void failedBalanceLeavesThePayweeksOwnMovements()
    {
        const Payweeks payweeks;
        expense(u"01/02/2026"_s, u"Tire Fund"_s, 3.0).insert(payweeks.workspace);
        expense(u"01/02/2026"_s, u"Tire Fund"_s, -1e19).insert(payweeks.workspace);
        expense(u"01/09/2026"_s, u"Tire Fund"_s, 50.0).insert(payweeks.workspace);
        revenue(u"01/09/2026"_s, u"Tire Fund Withdrawal"_s, 20.0).insert(payweeks.workspace);
        makeHugeAmountsUnreadable(payweeks.workspace);
        PayweekFundSummary fund = filledFund();
        QVERIFY(
            !loadTireFundSummary(payweeks.trips.database(), u"01/09/2026"_s, fund, payweeks.error));
        QVERIFY2(payweeks.error.contains(u"integer overflow"_s), qPrintable(payweeks.error));
        QCOMPARE(figuresOf(fund), QList<double>({50.0, 20.0, 30.0, 0.0}));
    }
};

TEST_CLASS(tst_PayweekFunds)
#include "tst_PayweekFunds.moc"
