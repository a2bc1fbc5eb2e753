#include "reports/totals/PayTotalsRepository.h"
#include "reports/totals/TotalsFile.h"
#include "support/TestProgram.h"

using namespace Qt::StringLiterals;
using namespace PayTotalsRepository;

/// The settlement items that belong to no trip, their funds and their groups.
class tst_PayTotalsNonTrip : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itemsOfAPayweekSplitIntoFundsAndOthers()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        QCOMPARE(figuresOf(loadPayweekNonTripTotals(file.database(), u" 01/02/2026 "_s)),
                 QList<double>({50.0, 175.25, -120.25, -100.0, -50.0, 0.0, 50.0, 25.25}));
        QCOMPARE(figuresOf(loadPayweekNonTripTotals(file.database(), nextWeek)),
                 QList<double>({30.0, 10.0, 20.0, 30.0, 0.0, -10.0, 0.0, 0.0}));
    }

    void itemsOfAYearSplitIntoFundsAndOthers()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        QCOMPARE(figuresOf(loadYearNonTripTotals(file.database(), u" 2026 "_s)),
                 QList<double>({80.0, 195.25, -110.25, -70.0, -50.0, -10.0, 50.0, 35.25}));
    }

    void groupsStandByCategoryKindAndName()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        QCOMPARE(
            groupTexts(loadYearNonTripTotals(file.database(), year)),
            QList<QStringList>(
                {{u"Emergency Fund"_s, u"expense"_s, u"Emergency Fund"_s, u"1"_s, u"100"_s,
                  u"-100"_s},
                 {u"Emergency Fund"_s, u"revenue"_s, u"Emergency Fund Withdrawal"_s, u"1"_s,
                  u"30"_s, u"30"_s},
                 {u"Other Non-Trip Expense"_s, u"expense"_s, u"Permit"_s, u"2"_s, u"35.25"_s,
                  u"-35.25"_s},
                 {u"Other Non-Trip Revenue"_s, u"revenue"_s, u"Bonus"_s, u"1"_s, u"50"_s, u"50"_s},
                 {u"Other Non-Trip Settlement"_s, u"other"_s, u"Correction"_s, u"1"_s, u"5"_s,
                  u"5"_s},
                 {u"Performance Bond"_s, u"expense"_s, u"Performance Bond"_s, u"1"_s, u"10"_s,
                  u"-10"_s},
                 {u"Tire Fund"_s, u"expense"_s, u"Tire Fund"_s, u"1"_s, u"50"_s, u"-50"_s}}));
    }

    void kindsOfOneNameAreAGroupEach()
    {
        const TotalsFile file;
        expense(week, u"Tire Fund"_s, 50.0).insert(file.workspace);
        revenue(week, u"Tire Fund"_s, 20.0).insert(file.workspace);
        const QString fund = u"Tire Fund"_s;
        QCOMPARE(groupTexts(loadPayweekNonTripTotals(file.database(), week)),
                 QList<QStringList>({{fund, u"expense"_s, fund, u"1"_s, u"50"_s, u"-50"_s},
                                     {fund, u"revenue"_s, fund, u"1"_s, u"20"_s, u"20"_s}}));
    }

    void groupsOfACategoryStandByKindBeforeName()
    {
        const TotalsFile file;
        revenue(week, u"Tire Fund"_s, 20.0).insert(file.workspace);
        expense(week, u"Tire Fund Deposit"_s, 50.0).insert(file.workspace);
        const QString fund = u"Tire Fund"_s;
        QCOMPARE(groupTexts(loadPayweekNonTripTotals(file.database(), week)),
                 QList<QStringList>(
                     {{fund, u"expense"_s, u"Tire Fund Deposit"_s, u"1"_s, u"50"_s, u"-50"_s},
                      {fund, u"revenue"_s, fund, u"1"_s, u"20"_s, u"20"_s}}));
    }

    void rowsStandByDateKindNameAndOrderOfEntry()
    {
        const TotalsFile file;
        revenue(week, u"Bonus"_s, 4.0).insert(file.workspace);
        expense(nextWeek, u"Permit"_s, 5.0).insert(file.workspace);
        expense(u" 01/02/2026"_s, u"Wash"_s, 1.0)
            .set(u"kind"_s, u" Expense "_s)
            .insert(file.workspace);
        expense(week, u"Permit"_s, 3.0).insert(file.workspace);
        expense(week, u" Permit "_s, 2.0).insert(file.workspace);
        const QString others = u"Other Non-Trip Expense"_s;
        QCOMPARE(rowTexts(loadYearNonTripTotals(file.database(), year)),
                 QList<QStringList>(
                     {{week, others, u"expense"_s, u"Permit"_s, u"3"_s, u"-3"_s},
                      {week, others, u"expense"_s, u"Permit"_s, u"2"_s, u"-2"_s},
                      {week, others, u"expense"_s, u"Wash"_s, u"1"_s, u"-1"_s},
                      {week, u"Other Non-Trip Revenue"_s, u"revenue"_s, u"Bonus"_s, u"4"_s, u"4"_s},
                      {nextWeek, others, u"expense"_s, u"Permit"_s, u"5"_s, u"-5"_s}}));
    }

    void itemOfNoKnownKindReachesOnlyTheNetImpact_data()
    {
        QTest::addColumn<QVariant>("kind");
        QTest::newRow("other") << QVariant(u"other"_s);
        QTest::newRow("plural") << QVariant(u"expenses"_s);
        QTest::newRow("blank") << QVariant(u" "_s);
        QTest::newRow("NULL") << QVariant();
    }

    void itemOfNoKnownKindReachesOnlyTheNetImpact()
    {
        QFETCH(const QVariant, kind);
        const TotalsFile file;
        expense(week, u"Correction"_s, 5.5).set(u"kind"_s, kind).insert(file.workspace);
        const NonTripTotals totals = loadPayweekNonTripTotals(file.database(), week);
        QCOMPARE(figuresOf(totals), QList<double>({0.0, 0.0, 5.5, 0.0, 0.0, 0.0, 0.0, 0.0}));
        QCOMPARE(groupTexts(totals),
                 QList<QStringList>({{u"Other Non-Trip Settlement"_s, kind.toString().trimmed(),
                                      u"Correction"_s, u"1"_s, u"5.5"_s, u"5.5"_s}}));
        QCOMPARE(totals.rows.size(), 1);
    }

    void tireFundExpenseIsAnExpenseAndNoOtherExpense()
    {
        const TotalsFile file;
        expense(week, u"Tire Fund"_s, 50.0).insert(file.workspace);
        QCOMPARE(figuresOf(loadPayweekNonTripTotals(file.database(), week)),
                 QList<double>({0.0, 50.0, -50.0, 0.0, -50.0, 0.0, 0.0, 0.0}));
    }

    void anyItemNamedForAFundIsOneOfIt_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QList<double>>("figures");
        using Figures = QList<double>;
        QTest::newRow("tire fund as revenue")
            << u"revenue"_s << u"Tire Fund"_s << Figures({8.0, 0.0, 8.0, 0.0, 8.0, 0.0, 0.0, 0.0});
        QTest::newRow("tire fund deposit") << u"expense"_s << u"tire FUND deposit"_s
                                           << Figures({0.0, 8.0, -8.0, 0.0, -8.0, 0.0, 0.0, 0.0});
        QTest::newRow("tire fund of no kind")
            << u""_s << u"Tire Fund"_s << Figures({0.0, 0.0, 8.0, 0.0, 8.0, 0.0, 0.0, 0.0});
        QTest::newRow("bond refund") << u"revenue"_s << u"Refund of Performance Bond"_s
                                     << Figures({8.0, 0.0, 8.0, 0.0, 0.0, 8.0, 0.0, 0.0});
        QTest::newRow("emergency fund as revenue")
            << u"revenue"_s << u"EMERGENCY FUND"_s
            << Figures({8.0, 0.0, 8.0, 8.0, 0.0, 0.0, 0.0, 0.0});
        QTest::newRow("emergency fund deposit")
            << u"expense"_s << u"Emergency Fund Deposit"_s
            << Figures({0.0, 8.0, -8.0, 0.0, 0.0, 0.0, 0.0, 8.0});
    }

    void anyItemNamedForAFundIsOneOfIt()
    {
        QFETCH(const QString, kind);
        QFETCH(const QString, name);
        QFETCH(const QList<double>, figures);
        const TotalsFile file;
        item(week, kind, name, 8.0).insert(file.workspace);
        QCOMPARE(figuresOf(loadPayweekNonTripTotals(file.database(), week)), figures);
    }

    void itemWithoutANameIsBlankInItsGroupAlone()
    {
        const TotalsFile file;
        expense(week, u"  "_s, 1.0).insert(file.workspace);
        expense(week, u"Permit"_s, 2.0).set(u"name"_s, QVariant()).insert(file.workspace);
        const NonTripTotals totals = loadPayweekNonTripTotals(file.database(), week);
        const QString others = u"Other Non-Trip Expense"_s;
        QCOMPARE(groupTexts(totals), QList<QStringList>({{others, u"expense"_s, u"(blank)"_s,
                                                          u"2"_s, u"3"_s, u"-3"_s}}));
        QCOMPARE(rowTexts(totals),
                 QList<QStringList>({{week, others, u"expense"_s, u""_s, u"1"_s, u"-1"_s},
                                     {week, others, u"expense"_s, u""_s, u"2"_s, u"-2"_s}}));
    }

    void namesThatDifferInCaseAreTwoGroups()
    {
        const TotalsFile file;
        for (const QString &name : {u"permit"_s, u"Permit"_s, u"Äpfel"_s, u"Zoll"_s, u"permit"_s})
            expense(week, name, 1.0).insert(file.workspace);
        QStringList names;
        for (const NonTripGroup &group : loadPayweekNonTripTotals(file.database(), week).groups)
            names.append(group.name + u' ' + QString::number(group.rowCount));
        QCOMPARE(names, QStringList({u"Permit 1"_s, u"Zoll 1"_s, u"permit 2"_s, u"Äpfel 1"_s}));
    }

    void effectsAreRoundedOneByOneAndAmountsAreNot()
    {
        const TotalsFile file;
        for (int i = 0; i < 2; ++i)
            expense(week, u"Tire Fund"_s, 10.125).insert(file.workspace);
        revenue(week, u"Bonus"_s, 0.004).insert(file.workspace);
        QCOMPARE(figuresOf(loadPayweekNonTripTotals(file.database(), week)),
                 QList<double>({0.004, 20.25, -20.26, 0.0, -20.26, 0.0, 0.004, 0.0}));
    }

    void negativeAndHugeAmountsKeepTheirSign()
    {
        const TotalsFile file;
        expense(week, u"Permit"_s, -1e12).insert(file.workspace);
        QCOMPARE(figuresOf(loadPayweekNonTripTotals(file.database(), week)),
                 QList<double>({0.0, -1e12, 1e12, 0.0, 0.0, 0.0, 0.0, -1e12}));
    }

    void amountThatIsNoNumberIsARowOfNothing()
    {
        const TotalsFile file;
        for (const QVariant &amount : {QVariant(), QVariant(u"abc"_s), QVariant(u"$4"_s)})
            revenue(week, u"Bonus"_s, 0.0).set(u"amount"_s, amount).insert(file.workspace);
        const NonTripTotals totals = loadPayweekNonTripTotals(file.database(), week);
        QCOMPARE(figuresOf(totals), QList<double>(8, 0.0));
        QCOMPARE(totals.rows.size(), 3);
    }

    void amountWithTextBehindItCountsAsItsNumber()
    {
        const TotalsFile file;
        expense(week, u"Permit"_s, 0.0).set(u"amount"_s, u"12.5 paid"_s).insert(file.workspace);
        const NonTripTotals totals = loadPayweekNonTripTotals(file.database(), week);
        QCOMPARE(totals.otherExpense, 12.5);
        QCOMPARE(totals.netImpact, -12.5);
    }

    void tabsAroundKindAndNameMakeNoDifference()
    {
        const TotalsFile file;
        revenue(week, u"\tTire Fund\t"_s, 8.0)
            .set(u"kind"_s, u"Revenue\t"_s)
            .insert(file.workspace);
        const NonTripTotals totals = loadPayweekNonTripTotals(file.database(), week);
        QCOMPARE(totals.totalRevenue, 8.0);
        QCOMPARE(groupTexts(totals),
                 QList<QStringList>(
                     {{u"Tire Fund"_s, u"revenue"_s, u"Tire Fund"_s, u"1"_s, u"8"_s, u"8"_s}}));
        // SQLite knows no tab, so the statement of the core figures finds no revenue in it.
        QCOMPARE(loadPayweekTotals(file.database(), week).settlementRevenue, 0.0);
    }

    void clauseOfTheCallerNarrowsTheItems()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        const NonTripTotals totals = loadNonTripTotals(
            file.database(), u"AND name = ? AND amount < ?"_s, {u"Permit"_s, 100.0});
        QCOMPARE(totals.otherExpense, 35.25);
        QCOMPARE(totals.rows.size(), 2);
    }
};

TEST_CLASS(tst_PayTotalsNonTrip)
#include "tst_PayTotalsNonTrip.moc"
