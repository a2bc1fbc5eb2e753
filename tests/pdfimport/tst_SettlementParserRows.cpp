#include "pdfimport/SettlementParser.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QList<FuelReviewRow> rowsOf(const QString &text)
{
    return SettlementParser::parse(u"week.pdf"_s, text, {}).rows;
}

/// The row of a line that gives one.
FuelReviewRow rowOf(const QString &line)
{
    const QList<FuelReviewRow> rows = rowsOf(line);
    if (rows.size() != 1)
        QTest::qFail("The line gives no row, or more than one", __FILE__, __LINE__);
    return rows.value(0);
}

void line(const QString &text, const QString &expected)
{
    QTest::newRow(qPrintable(text)) << text << expected;
}

void line(const QString &text, double expected)
{
    QTest::newRow(qPrintable(text)) << text << expected;
}

} // namespace

class tst_SettlementParserRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aWholeLineIsRead()
    {
        const QString text = u"01/05 TRUCK FUEL TRIP 4471203 TRAVEL CENTER #512 101.4 GALS "
                             "(25.00) 412.80"_s;
        const FuelReviewRow row = rowOf(text);
        QCOMPARE(row.id, 1);
        QCOMPARE(row.enabled, true);
        QCOMPARE(row.dataset, u"Deduction Fuel"_s);
        QCOMPARE(row.tripNo, u"4471203"_s);
        QCOMPARE(row.description, u"Truck Fuel"_s);
        QCOMPARE(row.route, u"fuel_detail"_s);
        QCOMPARE(row.amount, 412.80);
        QCOMPARE(row.cost, 412.80);
        QCOMPARE(row.discount, -25.00);
        QCOMPARE(row.gallons, 101.4);
        QCOMPARE(row.sourceLine, text);
    }

    void aLineWithoutAnyNumberStillGivesARow()
    {
        const FuelReviewRow row = rowOf(u"FUEL STOP $ ()"_s);
        QCOMPARE(row.description, u"Truck Fuel"_s);
        QCOMPARE(row.tripNo, QString());
        QCOMPARE(row.amount, 0.0);
        QCOMPARE(row.cost, 0.0);
        QCOMPARE(row.discount, 0.0);
        QCOMPARE(row.gallons, 0.0);
    }

    void rowsAreNumberedInTheOrderOfTheText()
    {
        const SettlementParseResult result = SettlementParser::parse(
            u"week.pdf"_s, u"DEF 21.35\nLINEHAUL 1,842.00\nDEF 9.9\nREEFER FUEL 88.40\nFUEL 9.99"_s,
            {});
        QCOMPARE(result.rows.size(), 3);
        QCOMPARE(result.rows.at(0).id, 1);
        QCOMPARE(result.rows.at(0).description, u"Def"_s);
        QCOMPARE(result.rows.at(1).id, 2);
        QCOMPARE(result.rows.at(1).description, u"Reefer Fuel"_s);
        QCOMPARE(result.rows.at(2).id, 3);
        QCOMPARE(result.rows.at(2).description, u"Truck Fuel"_s);
        QCOMPARE(result.nextRowId, 4);
    }

    void skippedLinesAreNeitherLoggedNorCounted()
    {
        const SettlementParseResult result = SettlementParser::parse(
            u"week.pdf"_s, u"LINEHAUL 1,842.00\nDEF 9.9\nELD FEE 12.50\nDEF 21.35"_s, {});
        QCOMPARE(result.logLines.size(), 4);
        QCOMPARE(result.logLines.last(), u"Parsed 1 Fuel/DEF candidate row(s). Non-fuel "
                                         "settlement rows were ignored."_s);
    }

    void aLineEndsAtALineFeedOrCarriageReturn_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("rowCount");
        QTest::newRow("line feed") << u"DEF 21.35\nDEF 21.36"_s << 2;
        QTest::newRow("carriage return") << u"DEF 21.35\rDEF 21.36"_s << 2;
        QTest::newRow("both") << u"DEF 21.35\r\nDEF 21.36\r\n"_s << 2;
        QTest::newRow("empty lines") << u"\n\nDEF 21.35\n\n\r\n\nDEF 21.36"_s << 2;
        QTest::newRow("form feed") << u"DEF 21.35\fDEF 21.36"_s << 1;
        QTest::newRow("tab") << u"DEF 21.35\tDEF 21.36"_s << 1;
        QTest::newRow("words apart") << u"TRUCK FU\nEL 21.35"_s << 0;
    }

    void aLineEndsAtALineFeedOrCarriageReturn()
    {
        QFETCH(const QString, text);
        QFETCH(const int, rowCount);
        QCOMPARE(rowsOf(text).size(), rowCount);
    }

    void sevenCharactersAreTooFew_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("rowCount");
        QTest::newRow("7") << u"DEF 9.9"_s << 0;
        QTest::newRow("8") << u"DEF 9.99"_s << 1;
        QTest::newRow("7 and blanks within") << u"DEF    9.9"_s << 0;
        QTest::newRow("7 and blanks around") << u" \t DEF 9.9  "_s << 0;
        QTest::newRow("8 and blanks around") << u"  DEF 9.99  "_s << 1;
    }

    void sevenCharactersAreTooFew()
    {
        QFETCH(const QString, text);
        QFETCH(const int, rowCount);
        QCOMPARE(rowsOf(text).size(), rowCount);
    }

    void theWordsOfALineTellItsType_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("type");
        line(u"TRUCK FUEL 10.00"_s, u"Truck Fuel"_s);
        line(u"truck \t fuel 10.00"_s, u"Truck Fuel"_s);
        line(u"TRUCK FUEL REEFER 10.00"_s, u"Truck Fuel"_s);
        line(u"Reefer Truck Fuel 10.00"_s, u"Truck Fuel"_s);
        line(u"FUEL TAX ADJUSTMENT 14.20"_s, u"Truck Fuel"_s);
        line(u"BIOFUELS 10.00"_s, u"Truck Fuel"_s);
        line(u"FUEL AND DEF 10.00"_s, u"Truck Fuel"_s);
        line(u"REFRIGERATED FUEL 80.00"_s, u"Truck Fuel"_s);
        line(u"REEFER FUEL 80.00"_s, u"Reefer Fuel"_s);
        line(u"Reefer  fuel and def 80.00"_s, u"Reefer Fuel"_s);
        line(u"REEFER REFRIGERATED FUEL 80.00"_s, u"Reefer Fuel"_s);
        line(u"DEF 21.35"_s, u"Def"_s);
        line(u"Diesel  Exhaust Fluid 21.35"_s, u"Def"_s);
        line(u"REEFER DIESEL FUEL DEF 80.00"_s, u"Def"_s);
        line(u"DEFERRED 12.00"_s, u"Def"_s);
        line(u"DEFICIT 12.00"_s, u"Def"_s);
        line(u"UNDEFINED 12.00"_s, u"Def"_s);
    }

    void theWordsOfALineTellItsType()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, type);
        QCOMPARE(rowOf(text).description, type);
    }

    void otherLinesGiveNoRow_data()
    {
        QTest::addColumn<QString>("text");
        for (const QString &text :
             {u"LINEHAUL 1,842.00"_s, u"ELD FEE 12.50"_s, u"REEFER WASH 40.00"_s,
              u"REEFER DIESEL FUEL 80.00"_s, u"REEFERFUEL 80.00"_s, u"D E F 21.35"_s,
              u"DIESEL 412.80"_s, u"EXHAUST FLUID 21.35"_s, u"TRUCK WASH 40.00"_s})
            QTest::newRow(qPrintable(text)) << text;
    }

    void otherLinesGiveNoRow()
    {
        QFETCH(const QString, text);
        QCOMPARE(rowsOf(text).size(), 0);
    }

    void theFirstNumberOfFiveToNineDigitsIsTheTrip_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("tripNo");
        line(u"FUEL TRIP 4471203 9.99"_s, u"4471203"_s);
        line(u"FUEL 12345"_s, u"12345"_s);
        line(u"FUEL 123456789"_s, u"123456789"_s);
        line(u"FUEL 1234 9.99"_s, QString());
        line(u"FUEL 1234567890 9.99"_s, QString());
        line(u"FUEL 1234567890 4471203"_s, u"4471203"_s);
        line(u"FUEL STORE 51201 TRIP 4471203"_s, u"51201"_s);
        line(u"FUEL 00012 9.99"_s, u"00012"_s);
        line(u"FUEL A12345 9.99"_s, QString());
        line(u"FUEL 12345A 9.99"_s, QString());
        line(u"FUEL T_12345 9.99"_s, QString());
        line(u"FUEL T-12345 9.99"_s, u"12345"_s);
        line(u"FUEL #12345, 9.99"_s, u"12345"_s);
        line(u"FUEL 12345.67"_s, u"12345"_s);
    }

    void theFirstNumberOfFiveToNineDigitsIsTheTrip()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, tripNo);
        QCOMPARE(rowOf(text).tripNo, tripNo);
    }

    void gallonsStandBeforeTheirWord_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("gallons");
        line(u"FUEL 5 GAL 9.99"_s, 5.0);
        line(u"FUEL 5.25 gals 9.99"_s, 5.25);
        line(u"FUEL 101.455   Gals."_s, 101.455);
        line(u"FUEL 5 GAL 6 GAL 9.99"_s, 5.0);
        line(u"FUEL 1,234.5 GALS 9.99"_s, 234.5);
        line(u"FUEL .5 GAL 9.99"_s, 5.0);
        line(u"FUEL -5 GAL 9.99"_s, 5.0);
        line(u"FUEL 5GAL 9.99"_s, 0.0);
        line(u"FUEL 5. GAL 9.99"_s, 0.0);
        line(u"FUEL 5 GALLONS 9.99"_s, 0.0);
        line(u"FUEL 5 U.S. GAL 9.99"_s, 0.0);
        line(u"FUEL GAL 5 9.99"_s, 0.0);
    }

    void gallonsStandBeforeTheirWord()
    {
        QFETCH(const QString, text);
        QFETCH(const double, gallons);
        QCOMPARE(rowOf(text).gallons, gallons);
    }

    void theSourceLineIsTrimmedAndOtherwiseAsItCame_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("sourceLine");
        line(u"  TRUCK  FUEL \t 10.00 \t"_s, u"TRUCK  FUEL \t 10.00"_s);
        line(u"\fTRUCK FUEL 10.00\r\n"_s, u"TRUCK FUEL 10.00"_s);
        line(u"Truck Fuel 10.00"_s, u"Truck Fuel 10.00"_s);
    }

    void theSourceLineIsTrimmedAndOtherwiseAsItCame()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, sourceLine);
        QCOMPARE(rowOf(text).sourceLine, sourceLine);
        QCOMPARE(rowOf(text).cost, 10.0);
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_SettlementParserRows)
#include "tst_SettlementParserRows.moc"
