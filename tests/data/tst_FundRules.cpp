#include "data/DomainRules.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace DomainRules;

namespace {

QStringList movementsOf(const QString &kind, const QString &name)
{
    QStringList movements;
    if (isEmergencyFundAdd(kind, name))
        movements.append(u"into emergency"_s);
    if (isEmergencyFundWithdrawal(kind, name))
        movements.append(u"out of emergency"_s);
    if (isTireFundAdd(kind, name))
        movements.append(u"into tires"_s);
    if (isTireFundWithdrawal(kind, name))
        movements.append(u"out of tires"_s);
    if (isPerformanceBondAdd(kind, name))
        movements.append(u"into bond"_s);
    if (isPerformanceBondWithdrawal(kind, name))
        movements.append(u"out of bond"_s);
    return movements;
}

} // namespace

class tst_FundRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anItemMovesMoneyIntoOrOutOfOneFund_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("movement");
        const auto row = [](const char *kind, const char *name, const QString &movement) {
            QTest::addRow("%s, %s", kind, name)
                << QString::fromLatin1(kind) << QString::fromLatin1(name) << movement;
        };
        row("expense", "Emergency Fund", u"into emergency"_s);
        row("revenue", "Emergency Fund", u"out of emergency"_s);
        row("revenue", "Emergency Fund Withdrawal", u"out of emergency"_s);
        row("expense", "Tire Fund", u"into tires"_s);
        row("revenue", "Tire Fund Withdrawal", u"out of tires"_s);
        row("expense", "Performance Bond", u"into bond"_s);
        row("revenue", "Performance Bond Withdrawal", u"out of bond"_s);
        row("Revenue ", " emergency fund", u"out of emergency"_s);
        row("\tREVENUE", "EMERGENCY FUND withdrawal ", u"out of emergency"_s);
        row(" Expense", "emergency FUND\t", u"into emergency"_s);
        row(" Expense", "tire FUND\t", u"into tires"_s);
        row("REVENUE ", " tire fund withdrawal", u"out of tires"_s);
        row(" EXPENSE ", " performance bond ", u"into bond"_s);
        row(" Revenue", "PERFORMANCE BOND WITHDRAWAL", u"out of bond"_s);
    }

    void anItemMovesMoneyIntoOrOutOfOneFund()
    {
        QFETCH(const QString, kind);
        QFETCH(const QString, name);
        QFETCH(const QString, movement);
        QCOMPARE(movementsOf(kind, name), QStringList(movement));
    }

    void anyOtherItemMovesNoFund_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("name");
        const auto row = [](const char *kind, const char *name) {
            QTest::addRow("%s, %s", kind, name)
                << QString::fromLatin1(kind) << QString::fromLatin1(name);
        };
        row("revenue", "Tire Fund");
        row("revenue", "Performance Bond");
        row("expense", "Emergency Fund Withdrawal");
        row("expense", "Tire Fund Withdrawal");
        row("expense", "Performance Bond Withdrawal");
        row("expense", "Emergency  Fund");
        row("expense", "Emergency Fund 2");
        row("expense", "Tires Fund");
        row("expense", "Bond");
        row("expense", "Insurance");
        row("revenue", "Fuel rebate");
        row("expenses", "Tire Fund");
        row("", "Emergency Fund");
        row("expense", "");
    }

    void anyOtherItemMovesNoFund()
    {
        QFETCH(const QString, kind);
        QFETCH(const QString, name);
        QCOMPARE(movementsOf(kind, name), QStringList());
    }

    void aBreakdownGroupsItemsMoreLoosely_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("category");
        const auto row = [](const char *kind, const char *name, const QString &category) {
            QTest::addRow("%s, %s", kind, name)
                << QString::fromLatin1(kind) << QString::fromLatin1(name) << category;
        };
        row("expense", "Emergency Fund", u"Emergency Fund"_s);
        row("revenue", " EMERGENCY fund withdrawal ", u"Emergency Fund"_s);
        row("", "Emergency Fund", u"Emergency Fund"_s);
        row("expense", "Emergency Fund 2", u"Other Non-Trip Expense"_s);
        row("expense", "Tire Fund", u"Tire Fund"_s);
        row("revenue", "Refund, steer TIRES", u"Tire Fund"_s);
        row("expense", "Emergency tire fund", u"Tire Fund"_s);
        row("expense", "Performance bond or tire fund", u"Tire Fund"_s);
        row("expense", "New tires", u"Other Non-Trip Expense"_s);
        row("revenue", "Performance Bond", u"Performance Bond"_s);
        row("expense", "BOND, performance", u"Performance Bond"_s);
        row("revenue", "Bond", u"Other Non-Trip Revenue"_s);
        row(" REVENUE ", "Fuel rebate", u"Other Non-Trip Revenue"_s);
        row("Expense\t", "Insurance", u"Other Non-Trip Expense"_s);
        row("expense", "", u"Other Non-Trip Expense"_s);
        row("transfer", "Insurance", u"Other Non-Trip Settlement"_s);
        row("revenues", "Insurance", u"Other Non-Trip Settlement"_s);
        row("", "", u"Other Non-Trip Settlement"_s);
    }

    void aBreakdownGroupsItemsMoreLoosely()
    {
        QFETCH(const QString, kind);
        QFETCH(const QString, name);
        QFETCH(const QString, category);
        QCOMPARE(nonTripCategory(kind, name), category);
    }
};

TEST_CLASS(tst_FundRules)
#include "tst_FundRules.moc"
