#include "pdfimport/SettlementParser.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString twoTrips = uR"(01/05 TRUCK FUEL TRIP 4471203 (25.00) 412.80
01/06 LINEHAUL TRIP 4471203 1,842.00
01/06 DEF TRIP 4471204 5 GAL 21.35
01/07 REEFER FUEL TRIP 4471203 22.5 GALS 88.40
01/08 FUEL TAX ADJUSTMENT 14.20
)"_s;

} // namespace

class tst_SettlementParserTripScan : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aTripsRowsAreScannedFromTheText()
    {
        const QList<FuelReviewRow> rows =
            SettlementParser::scanTripFuelRows(u" 4471203\t"_s, twoTrips);
        QCOMPARE(rows.size(), 2);
        QCOMPARE(rows.at(0).description, u"Truck Fuel"_s);
        QCOMPARE(rows.at(0).tripNo, u"4471203"_s);
        QCOMPARE(rows.at(0).amount, 412.80);
        QCOMPARE(rows.at(0).cost, 412.80);
        QCOMPARE(rows.at(0).discount, -25.00);
        QCOMPARE(rows.at(1).description, u"Reefer Fuel"_s);
        QCOMPARE(rows.at(1).cost, 88.40);
        QCOMPARE(rows.at(1).gallons, 22.5);
        QCOMPARE(rows.at(1).sourceLine, u"01/07 REEFER FUEL TRIP 4471203 22.5 GALS 88.40"_s);
    }

    void aScannedRowHasNoIdentityAndSaysWhereItCameFrom()
    {
        const QList<FuelReviewRow> rows =
            SettlementParser::scanTripFuelRows(u"4471203"_s, twoTrips);
        QCOMPARE(rows.size(), 2);
        for (const FuelReviewRow &row : rows) {
            QCOMPARE(row.id, 0);
            QCOMPARE(row.enabled, true);
            QCOMPARE(row.route, u"fuel_detail"_s);
            QCOMPARE(row.dataset, u"Trip Fuel Scan"_s);
        }
    }

    void onlyTheVeryNumberFindsATripsRows_data()
    {
        QTest::addColumn<QString>("tripNumber");
        QTest::addColumn<QString>("line");
        QTest::addColumn<int>("rowCount");
        QTest::newRow("the number") << u"12345"_s << u"FUEL TRIP 12345 9.99"_s << 1;
        QTest::newRow("a zero ahead") << u"012345"_s << u"FUEL TRIP 12345 9.99"_s << 0;
        QTest::newRow("a zero less") << u"12345"_s << u"FUEL TRIP 012345 9.99"_s << 0;
        QTest::newRow("a zero on both") << u"01234"_s << u"FUEL TRIP 01234 9.99"_s << 1;
        QTest::newRow("four digits") << u"01234"_s << u"FUEL TRIP 1234 9.99"_s << 0;
        QTest::newRow("too short a number") << u"1234"_s << u"FUEL TRIP 1234 9.99"_s << 0;
        QTest::newRow("a part") << u"4471"_s << u"FUEL TRIP 4471203 9.99"_s << 0;
        QTest::newRow("another word") << u"A12345"_s << u"FUEL TRIP A12345 9.99"_s << 0;
        QTest::newRow("not the first number") << u"4471203"_s << u"FUEL 51201 4471203 9.99"_s << 0;
        QTest::newRow("no fuel") << u"12345"_s << u"LINEHAUL 12345 1,842.00"_s << 0;
        QTest::newRow("no text") << u"12345"_s << u""_s << 0;
    }

    void onlyTheVeryNumberFindsATripsRows()
    {
        QFETCH(const QString, tripNumber);
        QFETCH(const QString, line);
        QFETCH(const int, rowCount);
        QCOMPARE(SettlementParser::scanTripFuelRows(tripNumber, line).size(), rowCount);
    }

    void aBlankTripNumberFindsNothing()
    {
        const QString lineWithoutTrip = u"FUEL TAX ADJUSTMENT 14.20"_s;
        QCOMPARE(SettlementParser::scanTripFuelRows({}, lineWithoutTrip).size(), 0);
        QCOMPARE(SettlementParser::scanTripFuelRows(u" \t\n"_s, lineWithoutTrip).size(), 0);
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_SettlementParserTripScan)
#include "tst_SettlementParserTripScan.moc"
