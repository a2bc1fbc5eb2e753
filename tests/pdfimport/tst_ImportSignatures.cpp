#include "pdfimport/ImportSignatures.h"
#include "pdfimport/ReviewedSettlement.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;
using namespace ImportSignatures;

namespace {

using Change = std::function<void(FuelReviewRow &)>;

// Every hash was made in a shell, from the bytes in the comment above it:
//
//     printf '04/18/2026\n512\n1|deduction fuel|...' | sha256sum

// 04/18/2026\n512\n
// 1|deduction fuel|4471203|truck fuel|fuel_detail|412.80|448.30|-35.50|118.276
const QString truckFuelSigned =
    u"f708faeb2376ee6fe5463cdae060dfe65b47daa3a1573bcdcc3a6f561b868ffb"_s;

// 04/18/2026\n512\n
// 1|deduction fuel|4471203|def|fuel_detail|21.35|23.10|-1.75|5.250\n
// 1|deduction fuel|4471203|truck fuel|fuel_detail|412.80|448.30|-35.50|118.276
const QString fuelAndDefSigned =
    u"47935581129f82e1014a163707edd996f92ff409c56d6af21bf56651f82a8aa6"_s;

// 04/18/2026\n512\n
const QString nothingSigned = u"b7a40296e1e76ac66a9b2b1e41404c2b5404ca9e5fa1a3d17e147d48534ea415"_s;

/// JSON written with apostrophes for its quotes.
QString json(QString text)
{
    return text.replace(u'\'', u'"');
}

const QString payloadOfTwo =
    json(u"{'enabled_row_count':2,'enabled_rows':["
         "{'amount':412.8,'cost':448.3,'dataset':'Deduction Fuel','description':'Truck Fuel',"
         "'discount':-35.5,'gallons':118.276,'route':'fuel_detail','trip_no':'4471203'},"
         "{'amount':412.8,'cost':448.3,'dataset':'Deduction Fuel','description':'Truck Fuel',"
         "'discount':-35.5,'gallons':118.276,'route':' expense','trip_no':' 99 '}],"
         "'import_scope':'fuel_def_only','payweek':'04/18/2026','pdf_name':'week16.pdf',"
         "'pdf_path':'/home/driver/pay/week16.pdf','review_row_count':3,"
         "'review_signature':'beef','source_hash':'cafe','truck_number':'512'}"_s);

const QString payloadOfNothing =
    json(u"{'enabled_row_count':0,'enabled_rows':[],'import_scope':'fuel_def_only',"
         "'payweek':' 04/18/2026 ','pdf_name':'é \\'16\\'.pdf',"
         "'pdf_path':'pay/é \\'16\\'.pdf','review_row_count':0,"
         "'review_signature':'','source_hash':'','truck_number':'512\\t'}"_s);

QString signedWith(const Change &change)
{
    FuelReviewRow row = truckFuelRow();
    change(row);
    return reviewSignature(reviewed({row}));
}

} // namespace

class tst_ImportSignatures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowIsSignedWithThePayweekAndTheTruck()
    {
        const Workspace workspace;
        QCOMPARE(reviewSignature(reviewed({truckFuelRow()})), truckFuelSigned);
    }

    void orderOfTheRowsDoesNotMatter()
    {
        const Workspace workspace;
        QCOMPARE(reviewSignature(reviewed({truckFuelRow(), defRow()})), fuelAndDefSigned);
        QCOMPARE(reviewSignature(reviewed({defRow(), truckFuelRow()})), fuelAndDefSigned);
    }

    void orderAmongRowsThatAreSwitchedOffDoesNotMatter()
    {
        const Workspace workspace;
        const FuelReviewRow off = switchedOff(truckFuelRow(u"99"_s));
        QCOMPARE(reviewSignature(reviewed({off, truckFuelRow(), off, defRow()})), fuelAndDefSigned);
        QCOMPARE(reviewSignature(reviewed({defRow(), off, truckFuelRow(), off})), fuelAndDefSigned);
    }

    void rowsAreSortedWithRegardToCase()
    {
        const Workspace workspace;
        // 04/18/2026\n512\n
        // 1|deduction fuel|AB|truck fuel|fuel_detail|412.80|448.30|-35.50|118.276\n
        // 1|deduction fuel|A_|truck fuel|fuel_detail|412.80|448.30|-35.50|118.276
        QCOMPARE(reviewSignature(reviewed({truckFuelRow(u"a_"_s), truckFuelRow(u"ab"_s)})),
                 u"8322c081e6438d517e73e050dd3c9f7ebbee16645bb0f4dc8e1ac0417ca39d92"_s);
    }

    void whatIsSignedIsUtf8()
    {
        const Workspace workspace;
        // 04/18/2026\n512\n
        // 1|deduction fuel|4471203|café été|fuel_detail|412.80|448.30|-35.50|118.276
        QCOMPARE(reviewSignature(reviewed({describedAs(u"CAFÉ Été"_s, truckFuelRow())})),
                 u"0517591de85abc3d056d572e83333c78052b5e9962f40988edaeaa5768fa33f5"_s);
    }

    void numbersAreSignedInFixedNotation()
    {
        const Workspace workspace;
        FuelReviewRow row = truckFuelRow();
        row.amount = 1234567.0;
        row.cost = -0.006;
        row.discount = -0.004;
        row.gallons = 1e6;
        // 04/18/2026\n512\n
        // 1|deduction fuel|4471203|truck fuel|fuel_detail|1234567.00|-0.01|-0.00|1000000.000
        QCOMPARE(reviewSignature(reviewed({row})),
                 u"a07634d7b176f75b182166d020960cf3e44085d65498a07e10f79c2cda8a8268"_s);
    }

    void blankRowOfABlankSettlementIsSignedToo()
    {
        const Workspace workspace;
        SettlementParseResult settlement;
        settlement.addRow({});
        // \n\n1|||||0.00|0.00|0.00|0.000
        QCOMPARE(reviewSignature(settlement),
                 u"ce72518b876aa9db53b49f4c726937000ab23600a3369f552beabf48f9731a4d"_s);
    }

    void blanksAroundThePayweekAndTheTruckAreNotSigned()
    {
        const Workspace workspace;
        SettlementParseResult settlement = reviewed({truckFuelRow()});
        settlement.payweek = u" 04/18/2026\t"_s;
        settlement.truckNumber = u"\n512 "_s;
        QCOMPARE(reviewSignature(settlement), truckFuelSigned);
    }

    void changesThatLeaveTheSignatureAlone_data()
    {
        QTest::addColumn<Change>("change");
        QTest::newRow("identity") << Change([](auto &row) { row.id = 77; });
        QTest::newRow("source line") << Change([](auto &row) { row.sourceLine = u"typed"_s; });
        QTest::newRow("data set") << Change([](auto &row) { row.dataset = u" DEDUCTION fuel "_s; });
        QTest::newRow("trip") << Change([](auto &row) { row.tripNo = u" 4471203\t"_s; });
        QTest::newRow("text") << Change([](auto &row) { row.description = u" truck FUEL"_s; });
        QTest::newRow("route") << Change([](auto &row) { row.route = u"FUEL_Detail "_s; });
        QTest::newRow("amount") << Change([](auto &row) { row.amount = 412.8049; });
        QTest::newRow("cost") << Change([](auto &row) { row.cost = 448.2951; });
        QTest::newRow("discount") << Change([](auto &row) { row.discount = -35.5049; });
        QTest::newRow("gallons") << Change([](auto &row) { row.gallons = 118.27649; });
    }

    void changesThatLeaveTheSignatureAlone()
    {
        const Workspace workspace;
        QFETCH(const Change, change);
        QCOMPARE(signedWith(change), truckFuelSigned);
    }

    void changesThatAlterTheSignature_data()
    {
        QTest::addColumn<Change>("change");
        QTest::newRow("data set") << Change([](auto &row) { row.dataset = u"Manual Fuel"_s; });
        QTest::newRow("trip") << Change([](auto &row) { row.tripNo = u"4471204"_s; });
        QTest::newRow("text") << Change([](auto &row) { row.description = u"Reefer Fuel"_s; });
        QTest::newRow("route") << Change([](auto &row) { row.route = u"expense"_s; });
        QTest::newRow("amount") << Change([](auto &row) { row.amount = 412.81; });
        QTest::newRow("cost") << Change([](auto &row) { row.cost = 448.29; });
        QTest::newRow("discount") << Change([](auto &row) { row.discount = 35.50; });
        QTest::newRow("gallons") << Change([](auto &row) { row.gallons = 118.277; });
    }

    void changesThatAlterTheSignature()
    {
        const Workspace workspace;
        QFETCH(const Change, change);
        const QString signature = signedWith(change);
        QCOMPARE(signature.size(), 64);
        QVERIFY(signature != truckFuelSigned);
    }

    void payweekAndTruckAlterTheSignature()
    {
        const Workspace workspace;
        SettlementParseResult settlement = reviewed({truckFuelRow()});
        settlement.payweek = u"4/18/2026"_s;
        QVERIFY(reviewSignature(settlement) != truckFuelSigned);
        settlement = reviewed({truckFuelRow()});
        settlement.truckNumber = u"513"_s;
        QVERIFY(reviewSignature(settlement) != truckFuelSigned);
    }

    void rowSwitchedOffIsNotSigned()
    {
        const Workspace workspace;
        QCOMPARE(reviewSignature(reviewed({truckFuelRow(), defRow()})), fuelAndDefSigned);
        QCOMPARE(reviewSignature(reviewed({truckFuelRow(), switchedOff(defRow())})),
                 truckFuelSigned);
        QCOMPARE(reviewSignature(reviewed({switchedOff(truckFuelRow())})), nothingSigned);
        QCOMPARE(reviewSignature(reviewed({})), nothingSigned);
    }

    void sourceHashCoversTheTextAndTheReview()
    {
        const Workspace workspace;
        // 04/18/2026\n---TRUCK---\n512\n---RAW---\n
        // TRUCK 512 SETTLEMENT DATE 26/04/18\n4471203 DEDUCTION FUEL 412.80
        // \n---REVIEW---\n and the signature
        QCOMPARE(sourceHash(reviewed(), truckFuelSigned),
                 u"5b24372bf6a4e5d82a7574061a051af1adc17b5e5498dcbff2878e0718bf7320"_s);
        QCOMPARE(sourceHash(reviewed(), fuelAndDefSigned),
                 u"0c9e174c5828c054c787fd0a245e6cde576793085d6d0170ca2c5ffedf435e5f"_s);
    }

    void sourceHashTrimsWhatItCovers()
    {
        const Workspace workspace;
        SettlementParseResult settlement = reviewed();
        settlement.payweek = u" 04/18/2026\n"_s;
        settlement.truckNumber = u"\t512 "_s;
        settlement.rawText = u"\n\n  CAFÉ 12.50\f\n"_s;
        // 04/18/2026\n---TRUCK---\n512\n---RAW---\nCAFÉ 12.50\n---REVIEW---\nabc
        QCOMPARE(sourceHash(settlement, u"abc"_s),
                 u"8f868ae2c25f3dd44855f6fd87d6c2458c39f44378458b076ff2a0c544c18389"_s);
    }

    void sourceHashOfABlankSettlementIsNoBlank()
    {
        const Workspace workspace;
        // \n---TRUCK---\n\n---RAW---\n\n---REVIEW---\nabc
        QCOMPARE(sourceHash({}, u"abc"_s),
                 u"8513ba066b22b45872ddb6243db8d153e2d9db2ee7360903e0abbf7859280c60"_s);
    }

    void sourceHashDoesNotKnowTheFile()
    {
        const Workspace workspace;
        SettlementParseResult settlement = reviewed();
        settlement.pdfPath = u"/media/usb/another name.pdf"_s;
        settlement.pageTexts = {u"a page"_s};
        settlement.logLines = {u"a line"_s};
        QCOMPARE(sourceHash(settlement, truckFuelSigned), sourceHash(reviewed(), truckFuelSigned));
    }

    void onlyEnabledRowsCount()
    {
        const Workspace workspace;
        QCOMPARE(enabledRowCount(reviewed({})), 0);
        QCOMPARE(enabledRowCount(reviewed({switchedOff(defRow())})), 0);
        QCOMPARE(enabledRowCount(reviewed({defRow(), switchedOff(defRow()), truckFuelRow()})), 2);
    }

    void pdfNameIsWithoutItsFolder_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("name");
        QTest::newRow("path") << u"/home/driver/pay/week 16.v2.pdf"_s << u"week 16.v2.pdf"_s;
        QTest::newRow("name") << u"week16.pdf"_s << u"week16.pdf"_s;
        QTest::newRow("folder") << u"/home/driver/pay/"_s << u""_s;
        QTest::newRow("nothing") << u""_s << u""_s;
    }

    void pdfNameIsWithoutItsFolder()
    {
        const Workspace workspace;
        QFETCH(const QString, path);
        SettlementParseResult settlement = reviewed();
        settlement.pdfPath = path;
        QTEST(pdfName(settlement), "name");
    }

    void countsAreCompactJson()
    {
        const Workspace workspace;
        QCOMPARE(countsJson(3, 12), json(u"{'fuel_detail':3,'skipped':12}"_s));
        QCOMPARE(countsJson(0, 0), json(u"{'fuel_detail':0,'skipped':0}"_s));
    }

    void payloadIsCompactJsonOfTheEnabledRows()
    {
        const Workspace workspace;
        const FuelReviewRow other = routedTo(u" expense"_s, truckFuelRow(u" 99 "_s));
        const SettlementParseResult settlement =
            reviewed({truckFuelRow(), switchedOff(defRow()), other});
        QCOMPARE(payloadJson(settlement, u"cafe"_s, u"beef"_s), payloadOfTwo);
    }

    void payloadHoldsTextsAsTheyStand()
    {
        const Workspace workspace;
        SettlementParseResult settlement;
        settlement.pdfPath = u"pay/é \"16\".pdf"_s;
        settlement.payweek = u" 04/18/2026 "_s;
        settlement.truckNumber = u"512\t"_s;
        QCOMPARE(payloadJson(settlement, {}, {}), payloadOfNothing);
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_ImportSignatures)
#include "tst_ImportSignatures.moc"
