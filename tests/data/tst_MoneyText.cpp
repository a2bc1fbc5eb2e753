#include "data/MoneyText.h"
#include "support/TestProgram.h"
#include "support/surroundings/DefaultLocale.h"

#include <QLocale>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

} // namespace

class tst_MoneyText : public QObject
{
    Q_OBJECT

private:
    const DefaultLocale locale{u"en_US"_s};

private Q_SLOTS:
    void halvesAreRoundedAwayFromZero_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("places");
        QTest::addColumn<double>("rounded");
        QTest::newRow("two and a half cents") << 0.025 << 2 << 0.03;
        QTest::newRow("below zero") << -0.025 << 2 << -0.03;
        QTest::newRow("an even cent before") << 0.125 << 2 << 0.13;
        QTest::newRow("an odd cent before") << 0.375 << 2 << 0.38;
        QTest::newRow("below the half") << 0.0249 << 2 << 0.02;
        QTest::newRow("below zero, below the half") << -0.0249 << 2 << -0.02;
        QTest::newRow("a half that doubles just miss") << 1.005 << 2 << 1.0;
        QTest::newRow("a half made by the product") << 2.675 << 2 << 2.68;
        QTest::newRow("gallons") << 0.0625 << 3 << 0.063;
        QTest::newRow("price") << 3.33335 << 4 << 3.3334;
        QTest::newRow("whole") << 2.5 << 0 << 3.0;
        QTest::newRow("whole, below zero") << -2.5 << 0 << -3.0;
        QTest::newRow("zero") << 0.0 << 2 << 0.0;
    }

    void halvesAreRoundedAwayFromZero()
    {
        QFETCH(const double, value);
        QFETCH(const int, places);
        QFETCH(const double, rounded);
        QCOMPARE(roundTo(value, places), rounded);
    }

    void whatIsNoAmountCountsAsZero_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("amount");
        QTest::newRow("an amount") << 1234.56 << 1234.56;
        QTest::newRow("below zero") << -1234.56 << -1234.56;
        QTest::newRow("a large amount") << 1e12 << 1e12;
        QTest::newRow("the largest") << 1e300 << 1e300;
        QTest::newRow("beyond the largest") << 1.1e300 << 0.0;
        QTest::newRow("beyond the largest below zero") << -1.1e300 << 0.0;
        QTest::newRow("infinite") << infinite << 0.0;
        QTest::newRow("infinite below zero") << -infinite << 0.0;
        QTest::newRow("not a number") << notANumber << 0.0;
    }

    void whatIsNoAmountCountsAsZero()
    {
        QFETCH(const double, value);
        QTEST(amountOrZero(value), "amount");
    }

    void everyFigureHasFourTexts_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("money");
        QTest::addColumn<QString>("grouped");
        QTest::addColumn<QString>("number");
        QTest::addColumn<QString>("groupedNumber");
        const auto row = [](const char *name, double value, const QString &money,
                            const QString &grouped, const QString &number,
                            const QString &groupedNumber) {
            QTest::newRow(name) << value << money << grouped << number << groupedNumber;
        };
        row("zero", 0.0, u"$0.00"_s, u"$0.00"_s, u"0.00"_s, u"0.00"_s);
        row("minus zero", -0.0, u"$0.00"_s, u"$0.00"_s, u"0.00"_s, u"0.00"_s);
        row("a fraction of a cent owed", -0.001, u"$-0.00"_s, u"-$0.00"_s, u"-0.00"_s, u"-0.00"_s);
        row("below a thousand", 12.5, u"$12.50"_s, u"$12.50"_s, u"12.50"_s, u"12.50"_s);
        row("owed", -710.0, u"$-710.00"_s, u"-$710.00"_s, u"-710.00"_s, u"-710.00"_s);
        row("thousands", 1234567.891, u"$1234567.89"_s, u"$1,234,567.89"_s, u"1234567.89"_s,
            u"1,234,567.89"_s);
        row("thousands owed", -1234.5, u"$-1234.50"_s, u"-$1,234.50"_s, u"-1234.50"_s,
            u"-1,234.50"_s);
        row("carried over", 999.996, u"$1000.00"_s, u"$1,000.00"_s, u"1000.00"_s, u"1,000.00"_s);
    }

    void everyFigureHasFourTexts()
    {
        QFETCH(const double, value);
        QFETCH(const QString, money);
        QFETCH(const QString, grouped);
        QFETCH(const QString, number);
        QFETCH(const QString, groupedNumber);
        QCOMPARE(moneyText(value), money);
        QCOMPARE(groupedMoneyText(value), grouped);
        QCOMPARE(number2Text(value), number);
        QCOMPARE(groupedNumber2Text(value), groupedNumber);
    }

    void onlyTheGroupedFormsFollowTheLocale()
    {
        const DefaultLocale german(u"de_DE"_s);
        QCOMPARE(moneyText(-1234.5), u"$-1234.50"_s);
        QCOMPARE(number2Text(-1234.5), u"-1234.50"_s);
        QCOMPARE(groupedMoneyText(-1234.5), u"-$1.234,50"_s);
        QCOMPARE(groupedNumber2Text(-1234.5), u"-1.234,50"_s);
    }
};

TEST_CLASS(tst_MoneyText)
#include "tst_MoneyText.moc"
