#include "pdfimport/SettlementParser.h"
#include "support/TestProgram.h"

#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// The row of a line that gives one.
FuelReviewRow rowOf(const QString &line)
{
    const QList<FuelReviewRow> rows = SettlementParser::parse(u"week.pdf"_s, line, {}).rows;
    if (rows.size() != 1)
        QTest::qFail("The line gives no row, or more than one", __FILE__, __LINE__);
    return rows.value(0);
}

void line(const QString &text, double expected)
{
    QTest::newRow(qPrintable(text)) << text << expected;
}

void charge(const QString &text, double discount, double cost)
{
    QTest::newRow(qPrintable(text)) << text << discount << cost;
}

} // namespace

class tst_SettlementParserAmounts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theLastAmountIsTheCost_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("cost");
        line(u"FUEL 412.80"_s, 412.80);
        line(u"FUEL $1,234.56"_s, 1234.56);
        line(u"FUEL $1,234,567.89"_s, 1234567.89);
        line(u"FUEL (1,234.56)"_s, -1234.56);
        line(u"FUEL (25.00)"_s, -25.0);
        line(u"FUEL $(25.00)"_s, -25.0);
        line(u"FUEL -25.00"_s, -25.0);
        line(u"FUEL $-25.00"_s, -25.0);
        line(u"FUEL -$25.00"_s, 25.0);
        line(u"FUEL 25.00-"_s, 25.0);
        line(u"FUEL (-5.00)"_s, 5.0);
        line(u"FUEL 1234.56"_s, 4.56);
        line(u"FUEL 2045"_s, 5.0);
        line(u"FUEL 12.345"_s, 5.0);
        line(u"FUEL 412.8"_s, 8.0);
        line(u"FUEL 1,23"_s, 23.0);
        line(u"FUEL 1234,567.89"_s, 4567.89);
        line(u"FUEL 7.00 (12.50"_s, 0.0);
        line(u"FUEL 7.00 12.50)"_s, 0.0);
        line(u"FUEL 7.00 ($12.50)"_s, 0.0);
        line(u"FUEL 412.80 STORE 512"_s, 512.0);
        line(u"FUEL 412.80 01/05"_s, 5.0);
        line(u"FUEL 412.80 101.4 GALS"_s, 4.0);
    }

    void theLastAmountIsTheCost()
    {
        QFETCH(const QString, text);
        QFETCH(const double, cost);
        const FuelReviewRow row = rowOf(text);
        QCOMPARE(row.cost, cost);
        QCOMPARE(row.amount, cost);
        QCOMPARE(row.discount, 0.0);
    }

    void theAmountBeforeTheLastIsTheDiscountIfItIsNegative_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("discount");
        QTest::addColumn<double>("cost");
        charge(u"FUEL (25.00) 412.80"_s, -25.0, 412.80);
        charge(u"FUEL -25.00 $412.80"_s, -25.0, 412.80);
        charge(u"FUEL (25.00) (3.00)"_s, -25.0, -3.0);
        charge(u"FUEL (25.00) (12.50"_s, -25.0, 0.0);
        charge(u"FUEL (1,234.56) 412.80"_s, -1234.56, 412.80);
        charge(u"FUEL 25.00 412.80"_s, 0.0, 412.80);
        charge(u"FUEL (0.00) 412.80"_s, 0.0, 412.80);
        charge(u"FUEL (-25.00) 412.80"_s, 0.0, 412.80);
        charge(u"FUEL (25.00 412.80"_s, 0.0, 412.80);
        charge(u"FUEL 412.80 (25.00)"_s, 0.0, -25.0);
        charge(u"FUEL -5.00"_s, 0.0, -5.0);
        charge(u"FUEL (25.00) 101 412.80"_s, 0.0, 412.80);
        charge(u"FUEL (25.00) 1234.56"_s, 0.0, 4.56);
        charge(u"FUEL -1234.56"_s, -123.0, 4.56);
        charge(u"FUEL -2045"_s, -204.0, 5.0);
        charge(u"FUEL -12.345"_s, -12.34, 5.0);
        charge(u"FUEL STORE-512 412.80"_s, -512.0, 412.80);
    }

    void theAmountBeforeTheLastIsTheDiscountIfItIsNegative()
    {
        QFETCH(const QString, text);
        QFETCH(const double, discount);
        QFETCH(const double, cost);
        const FuelReviewRow row = rowOf(text);
        QCOMPARE(row.discount, discount);
        QCOMPARE(row.cost, cost);
        QCOMPARE(row.amount, cost);
    }

    void zeroInParenthesesIsPlainZero()
    {
        const FuelReviewRow row = rowOf(u"FUEL (0.00)"_s);
        QCOMPARE(row.cost, 0.0);
        QCOMPARE(std::signbit(row.cost), false);
    }

    void digitsWithoutEndAreNoNumber()
    {
        const FuelReviewRow tooDear = rowOf("FUEL 7.00 1"_L1 + u",000"_s.repeated(110));
        QCOMPARE(tooDear.cost, 0.0);
        QCOMPARE(tooDear.amount, 0.0);
        const FuelReviewRow discounted =
            rowOf("FUEL (1"_L1 + u",000"_s.repeated(110) + ") 7.00"_L1);
        QCOMPARE(discounted.discount, 0.0);
        QCOMPARE(discounted.cost, 7.0);
        const FuelReviewRow tooMuch = rowOf("FUEL "_L1 + QString(400, u'9') + " GALS 7.00"_L1);
        QCOMPARE(tooMuch.gallons, 0.0);
        QCOMPARE(tooMuch.cost, 7.0);
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_SettlementParserAmounts)
#include "tst_SettlementParserAmounts.moc"
