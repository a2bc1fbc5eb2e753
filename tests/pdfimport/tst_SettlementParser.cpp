#include "pdfimport/SettlementParser.h"
#include "support/TestProgram.h"

#include <QTest>

#include <array>

using namespace Qt::StringLiterals;

namespace {

// What a scanned page full of nothing comes to.
const QString manyBlanks(100'000, u' ');

const QString weekOfTwoTrips = uR"(SETTLEMENT DATE: 25/01/17   TRUCK NO. 512
01/05 TRUCK FUEL TRIP 4471203 (25.00) 412.80
01/06 LINEHAUL TRIP 4471203 1,842.00
01/06 DEF TRIP 4471204 5 GAL 21.35
01/07 REEFER FUEL TRIP 4471203 22.5 GALS 88.40
01/08 FUEL TAX ADJUSTMENT 14.20
)"_s;

SettlementParseResult parsed(const QString &text)
{
    return SettlementParser::parse(u"week.pdf"_s, text, {});
}

void eachText(const QList<std::array<QString, 2>> &textsAndValues)
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("value");
    for (const auto &[text, value] : textsAndValues)
        QTest::newRow(qPrintable(QString(text).replace(u'\n', u'|'))) << text << value;
}

} // namespace

class tst_SettlementParser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyTextGivesNothingButItsLog()
    {
        const SettlementParseResult result = parsed({});
        QCOMPARE(result.truckNumber, QString());
        QCOMPARE(result.payweek, QString());
        QCOMPARE(result.rows.size(), 0);
        QCOMPARE(result.nextRowId, 1);
        QCOMPARE(result.logLines,
                 QStringList({u"Fuel/DEF-only SettlementParser started."_s, u"Truck: (not found)"_s,
                              u"Payweek: (not found)"_s,
                              u"Parsed 0 Fuel/DEF candidate row(s). Non-fuel settlement rows were "
                              "ignored."_s}));
    }

    void theLogNamesTruckPayweekAndTheNumberOfRows()
    {
        QCOMPARE(parsed(weekOfTwoTrips).logLines,
                 QStringList({u"Fuel/DEF-only SettlementParser started."_s, u"Truck: 512"_s,
                              u"Payweek: 01/17/2025"_s,
                              u"Parsed 4 Fuel/DEF candidate row(s). Non-fuel settlement rows were "
                              "ignored."_s}));
    }

    void pathTextAndPagesAreKeptAsTheyCame()
    {
        const SettlementParseResult result = SettlementParser::parse(
            u" /home/me/week 3.pdf"_s, u" TRUCK 512\n"_s, {u"page 1"_s, u"page 2"_s});
        QCOMPARE(result.pdfPath, u" /home/me/week 3.pdf"_s);
        QCOMPARE(result.rawText, u" TRUCK 512\n"_s);
        QCOMPARE(result.pageTexts, QStringList({u"page 1"_s, u"page 2"_s}));
    }

    void thePagesAreNotParsed()
    {
        const SettlementParseResult result = SettlementParser::parse(
            u"week.pdf"_s, u"nothing"_s, {u"TRUCK FUEL 9.99\nSETTLEMENT DATE 25/01/17"_s});
        QCOMPARE(result.truckNumber, QString());
        QCOMPARE(result.payweek, QString());
        QCOMPARE(result.rows.size(), 0);
    }

    void nothingIsLeftOverFromTheTextBefore()
    {
        QCOMPARE(parsed(weekOfTwoTrips).nextRowId, 5);
        const SettlementParseResult result = parsed(u"DEF 21.35"_s);
        QCOMPARE(result.truckNumber, QString());
        QCOMPARE(result.payweek, QString());
        QCOMPARE(result.rows.size(), 1);
        QCOMPARE(result.rows.first().id, 1);
        QCOMPARE(result.logLines.size(), 4);
    }

    void theTruckNumberStandsBehindItsWord_data()
    {
        eachText({{u"TRUCK 512"_s, u"512"_s},
                  {u"TRUCK512"_s, u"512"_s},
                  {u"TRUCK NO 512"_s, u"512"_s},
                  {u"TRUCK NO. 512"_s, u"512"_s},
                  {u"TRUCK NO.: 512"_s, u"512"_s},
                  {u"TRUCK NUMBER 7"_s, u"7"_s},
                  {u"TRUCK NUMBER - 7"_s, u"7"_s},
                  {u"TRUCK #512"_s, u"512"_s},
                  {u"TRUCK # : 512"_s, u"512"_s},
                  {u"Truck no: A-77"_s, u"A-77"_s},
                  {u"truck a-77/2"_s, u"a-77"_s},
                  {u"TRUCK\n\n\t512"_s, u"512"_s},
                  {u"TRACTOR 88"_s, u"88"_s},
                  {u"Tractor Number: 88"_s, u"88"_s},
                  {u"UNIT 9"_s, u"9"_s},
                  {u"Unit # 9"_s, u"9"_s},
                  {u"unit no.-9"_s, u"9"_s},
                  {u"DRIVER 4 TRUCK 512 TRAILER 60"_s, u"512"_s}});
    }

    void theTruckNumberStandsBehindItsWord() { compareTruck(); }

    void theFirstWordThatFitsGivesTheTruck_data()
    {
        eachText({{u"UNIT 9\nTRUCK 512"_s, u"512"_s},
                  {u"UNIT 9\nTRACTOR 512"_s, u"512"_s},
                  {u"TRACTOR 88 TRUCK 512"_s, u"88"_s},
                  {u"TRUCK 1\nTRUCK 2"_s, u"1"_s},
                  {u"TRUCK ?\nTRUCK 512"_s, u"512"_s},
                  {u"UNIT 9 TRUCK ?"_s, u"9"_s},
                  {u"UNIT 9 UNIT 10"_s, u"9"_s},
                  {u"TRUCK FUEL 412.80\nTRUCK NO 512"_s, u"FUEL"_s},
                  {u"TRUCKING CO\nTRUCK 512"_s, u"ING"_s},
                  {u"UNITED\nUNIT 9"_s, u"ED"_s}});
    }

    void theFirstWordThatFitsGivesTheTruck() { compareTruck(); }

    void whatStandsBehindTheTrucksWordIsTakenAsItIs_data()
    {
        eachText({{u"TRUCK NO"_s, u"NO"_s},
                  {u"TRUCK NO."_s, u"NO"_s},
                  {u"TRUCK NO :"_s, u"NO"_s},
                  {u"TRUCK NUMBER"_s, u"NUMBER"_s},
                  {u"TRUCK NO NUMBER 5"_s, u"NUMBER"_s},
                  {u"TRUCK NORTH"_s, u"RTH"_s},
                  {u"TRUCK NUMBERS 4"_s, u"S"_s},
                  {u"TRUCK: -12"_s, u"-12"_s},
                  {u"TRUCK -12"_s, u"12"_s},
                  {u"TRUCK --12"_s, u"-12"_s},
                  {u"TRUCK -"_s, u"-"_s},
                  {u"TRUCK - \n"_s, u"-"_s},
                  {u"UNIT NO"_s, u"NO"_s}});
    }

    void whatStandsBehindTheTrucksWordIsTakenAsItIs() { compareTruck(); }

    void someTextsNameNoTruck_data()
    {
        eachText({{u""_s, u""_s},
                  {u"512"_s, u""_s},
                  {u"TRUCK"_s, u""_s},
                  {u"TRUCK #"_s, u""_s},
                  {u"TRUCK ::512"_s, u""_s},
                  {u"TRUCK (512)"_s, u""_s},
                  {u"TRUC K 512"_s, u""_s},
                  {u"UNIT"_s, u""_s}});
    }

    void someTextsNameNoTruck() { compareTruck(); }

    void aShortYearStandsFirstInTheDate_data()
    {
        eachText({{u"SETTLEMENT DATE: 25/01/17"_s, u"01/17/2025"_s},
                  {u"SETTLEMENT DATE 25/01/17"_s, u"01/17/2025"_s},
                  {u"SETTLEMENT DATE-25/01/17"_s, u"01/17/2025"_s},
                  {u"SETTLEMENT DATE25/01/17"_s, u"01/17/2025"_s},
                  {u"settlement \t date\n:\n25/01/17 page 1"_s, u"01/17/2025"_s},
                  {u"SETTLEMENT DATE 00/01/02"_s, u"01/02/2000"_s},
                  {u"SETTLEMENT DATE 69/12/31"_s, u"12/31/2069"_s},
                  {u"SETTLEMENT DATE 70/01/17"_s, u"01/17/1970"_s},
                  {u"SETTLEMENT DATE 99/01/02"_s, u"01/02/1999"_s},
                  {u"SETTLEMENT DATE 25/01/170"_s, u"01/17/2025"_s}});
    }

    void aShortYearStandsFirstInTheDate() { comparePayweek(); }

    void aLongDateOfTwoDigitPartsIsReadAsAShortOne_data()
    {
        eachText({{u"SETTLEMENT DATE 01/17/2025"_s, u"17/20/2001"_s},
                  {u"SETTLEMENT DATE 12/31/2025"_s, u"31/20/2012"_s},
                  {u"SETTLEMENT DATE 12/31/1999"_s, u"31/19/2012"_s}});
    }

    void aLongDateOfTwoDigitPartsIsReadAsAShortOne() { comparePayweek(); }

    void aSingleDigitPartMakesTheDateALongOne_data()
    {
        eachText({{u"SETTLEMENT DATE 1/7/2025"_s, u"01/07/2025"_s},
                  {u"SETTLEMENT DATE: 1/17/2025"_s, u"01/17/2025"_s},
                  {u"Settlement Date - 11/7/2025"_s, u"11/07/2025"_s},
                  {u"SETTLEMENT DATE 1/7/20256"_s, u"01/07/2025"_s}});
    }

    void aSingleDigitPartMakesTheDateALongOne() { comparePayweek(); }

    void aShortDateAnywhereComesBeforeALongOne()
    {
        QCOMPARE(parsed(u"SETTLEMENT DATE 1/7/2025\nSETTLEMENT DATE 25/01/17"_s).payweek,
                 u"01/17/2025"_s);
        QCOMPARE(parsed(u"SETTLEMENT DATE 1/7/2025\nSETTLEMENT DATE 2/8/2026"_s).payweek,
                 u"01/07/2025"_s);
        QCOMPARE(parsed(u"SETTLEMENT DATE 25/01/17\nSETTLEMENT DATE 25/01/24"_s).payweek,
                 u"01/17/2025"_s);
    }

    void aPayweekNeedBeNoRealDate_data()
    {
        eachText({{u"SETTLEMENT DATE 25/13/45"_s, u"13/45/2025"_s},
                  {u"SETTLEMENT DATE 25/00/00"_s, u"00/00/2025"_s},
                  {u"SETTLEMENT DATE 2/99/2025"_s, u"02/99/2025"_s},
                  {u"SETTLEMENT DATE 0/0/0000"_s, u"00/00/0000"_s}});
    }

    void aPayweekNeedBeNoRealDate() { comparePayweek(); }

    void someTextsNameNoPayweek_data()
    {
        eachText({{u"25/01/17"_s, u""_s},
                  {u"PAY DATE 25/01/17"_s, u""_s},
                  {u"SETTLEMENT 25/01/17"_s, u""_s},
                  {u"SETTLEMENTDATE 25/01/17"_s, u""_s},
                  {u"SETTLEMENT DATE"_s, u""_s},
                  {u"SETTLEMENT DATE OF 25/01/17"_s, u""_s},
                  {u"SETTLEMENT DATE:-25/01/17"_s, u""_s},
                  {u"SETTLEMENT DATE 25-01-17"_s, u""_s},
                  {u"SETTLEMENT DATE 1/7/25"_s, u""_s},
                  {u"SETTLEMENT DATE 25/1/7"_s, u""_s},
                  {u"SETTLEMENT DATE 2025/01/17"_s, u""_s}});
    }

    void someTextsNameNoPayweek() { comparePayweek(); }

    // A search that tried every split of the blanks would give up before it came to what follows.
    void aLongRunOfBlanksHidesNothingBehindIt_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("truck");
        QTest::addColumn<QString>("payweek");
        const auto row = [](const char *name, const QString &text, const QString &truck,
                            const QString &payweek) {
            QTest::newRow(name) << text << truck << payweek;
        };
        row("no truck", "TRUCK"_L1 + manyBlanks, {}, {});
        row("a truck", "TRUCK"_L1 + manyBlanks + "512"_L1, u"512"_s, {});
        row("another truck", "TRUCK"_L1 + manyBlanks + "?\nTRUCK 512"_L1, u"512"_s, {});
        row("another unit", "UNIT"_L1 + manyBlanks + "?\nUNIT 9"_L1, u"9"_s, {});
        const QString settlementDate = "SETTLEMENT DATE"_L1 + manyBlanks;
        row("no date", settlementDate, {}, {});
        row("a date", settlementDate + "25/01/17"_L1, {}, u"01/17/2025"_s);
        row("another date", settlementDate + "?\nSETTLEMENT DATE 25/01/17"_L1, {}, u"01/17/2025"_s);
        row("a long date", settlementDate + "?\nSETTLEMENT DATE 1/7/2025"_L1, {}, u"01/07/2025"_s);
        row("words apart", "SETTLEMENT"_L1 + manyBlanks + "DATE 25/01/17"_L1, {}, u"01/17/2025"_s);
    }

    void aLongRunOfBlanksHidesNothingBehindIt()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, truck);
        QFETCH(const QString, payweek);
        const SettlementParseResult result = parsed(text);
        QCOMPARE(result.truckNumber, truck);
        QCOMPARE(result.payweek, payweek);
    }

private:
    static void compareTruck()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, value);
        QCOMPARE(parsed(text).truckNumber, value);
    }

    static void comparePayweek()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, value);
        QCOMPARE(parsed(text).payweek, value);
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_SettlementParser)
#include "tst_SettlementParser.moc"
