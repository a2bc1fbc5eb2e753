#include "data/DomainRules.h"
#include "support/TestProgram.h"
#include "support/surroundings/DefaultLocale.h"

#include <QLocale>
#include <QScopeGuard>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace DomainRules;

class tst_DomainRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbersAreReadAsTyped_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("number");
        QTest::addColumn<double>("money");
        QTest::addColumn<double>("sortNumber");
        const auto row = [](const char *text, double number, double money, double sortNumber) {
            QTest::newRow(text) << QString::fromLatin1(text) << number << money << sortNumber;
        };
        const auto plain = [row](const char *text, double value) {
            row(text, value, value, value);
        };
        plain("612.5", 612.5);
        plain("-12.5", -12.5);
        plain("+12.5", 12.5);
        plain(" \t7 ", 7.0);
        plain(".5", 0.5);
        plain("5.", 5.0);
        plain("1e3", 1000.0);
        plain("1,234.50", 1234.5);
        plain("1,234,567", 1234567.0);
        plain("12,34", 1234.0);
        row("$1,234.50", 0.0, 1234.5, 1234.5);
        row("-$710.00", 0.0, -710.0, -710.0);
        row("$-710.00", 0.0, -710.0, -710.0);
        row("$ 12", 0.0, 12.0, 12.0);
        row("12$", 0.0, 12.0, 12.0);
        row("$31.25/hr", 0.0, 0.0, 31.25);
        row("$1.23/mi", 0.0, 0.0, 1.23);
        row("$31.25/hr - $36.10/hr", 0.0, 0.0, 31.25);
        row("-$5.00/hr - $1.00/hr", 0.0, 0.0, -5.0);
        row("1,012.5 - 1,100 - 2", 0.0, 0.0, 1012.5);
        row("abc - 5", 0.0, 0.0, 0.0);
    }

    void numbersAreReadAsTyped()
    {
        QFETCH(const QString, text);
        QFETCH(const double, number);
        QFETCH(const double, money);
        QFETCH(const double, sortNumber);
        QCOMPARE(parseNumberText(text), number);
        QCOMPARE(parseMoneyText(text), money);
        QCOMPARE(sortNumberFromText(text), sortNumber);
    }

    void everyNumberIsTheNearestDouble_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("nearest");
        QTest::newRow("cents") << u"8.41"_s << 8.41;
        QTest::newRow("a tenth") << u"0.1"_s << 0.1;
        QTest::newRow("below zero") << u"-0.3"_s << -0.3;
        QTest::newRow("leading zeros") << u"000.70"_s << 0.7;
        QTest::newRow("15 digits") << u"999999999999999"_s << 999999999999999.0;
        QTest::newRow("15 digits with a point") << u"123456789012.345"_s << 123456789012.345;
        QTest::newRow("15 digits, 14 behind the point") << u"0.00000000000007"_s << 7e-14;
        QTest::newRow("16 digits") << u"9007199254740993"_s << 9007199254740992.0;
        QTest::newRow("16 digits with a point") << u"31.25000000000001"_s << 31.25000000000001;
        QTest::newRow("17 digits") << u"40257678620673.558"_s << 40257678620673.558;
        QTest::newRow("20 digits") << u"12345678901234567890"_s << 12345678901234567890.0;
        QTest::newRow("20 digits behind the point")
            << u"0.12345678901234567890"_s << 0.12345678901234567890;
    }

    void everyNumberIsTheNearestDouble()
    {
        QFETCH(const QString, text);
        QFETCH(const double, nearest);
        // Exactly: QCOMPARE would let the last digits differ.
        QVERIFY(parseNumberText(text) == nearest);
        QVERIFY(parseMoneyText(text) == nearest);
        QVERIFY(sortNumberFromText(text) == nearest);
    }

    void whatIsNoFiniteNumberIsZero_data()
    {
        QTest::addColumn<QString>("text");
        const QStringList texts = {u""_s,       u" \t"_s,   u"$"_s,      u","_s,      u"$,"_s,
                                   u"abc"_s,    u"nan"_s,   u"inf"_s,    u"-inf"_s,   u"infinity"_s,
                                   u"$inf"_s,   u"1e400"_s, u"1 234"_s,  u"12 mi"_s,  u"0x10"_s,
                                   u"(12.5)"_s, u"--5"_s,   u"12.5.1"_s, u"12 -13"_s, u"- 5"_s,
                                   u"-"_s,      u"."_s,     u"-."_s,     u" - 5"_s};
        for (const QString &text : texts)
            QTest::newRow(qPrintable(u'"' + text + u'"')) << text;
    }

    void whatIsNoFiniteNumberIsZero()
    {
        QFETCH(const QString, text);
        QCOMPARE(parseNumberText(text), 0.0);
        QCOMPARE(parseMoneyText(text), 0.0);
        QCOMPARE(sortNumberFromText(text), 0.0);
    }

    void theDecimalSignIsAPointInEveryLocale()
    {
        const DefaultLocale german(u"de_DE"_s);
        QCOMPARE(parseNumberText(u"1.5"_s), 1.5);
        QCOMPARE(parseMoneyText(u"$1,234.50"_s), 1234.5);
        QCOMPARE(sortNumberFromText(u"1.234,50"_s), 1.2345);
    }
};

TEST_CLASS(tst_DomainRules)
#include "tst_DomainRules.moc"
