#include "pdfimport/SettlementParser.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

FuelReviewRow rowWithId(qint32 id)
{
    FuelReviewRow row;
    row.id = id;
    return row;
}

} // namespace

class tst_SettlementParseResult : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewResultIsEmpty()
    {
        const SettlementParseResult result;
        QCOMPARE(result.rows.size(), 0);
        QCOMPARE(result.logLines, QStringList());
        QCOMPARE(result.nextRowId, 1);
    }

    void aNewRowTakesPartAndHasNoIdentity()
    {
        const FuelReviewRow row;
        QCOMPARE(row.id, 0);
        QCOMPARE(row.enabled, true);
        QCOMPARE(row.amount, 0.0);
        QCOMPARE(row.cost, 0.0);
        QCOMPARE(row.discount, 0.0);
        QCOMPARE(row.gallons, 0.0);
    }

    void aRowWithoutIdentityGetsTheNextOne()
    {
        SettlementParseResult result;
        QCOMPARE(result.addRow(rowWithId(0)), 1);
        QCOMPARE(result.addRow(rowWithId(0)), 2);
        QCOMPARE(result.addRow(rowWithId(-7)), 3);
        QCOMPARE(result.rows.at(0).id, 1);
        QCOMPARE(result.rows.at(1).id, 2);
        QCOMPARE(result.rows.at(2).id, 3);
        QCOMPARE(result.nextRowId, 4);
    }

    void aRowKeepsTheIdentityThatItHas_data()
    {
        QTest::addColumn<qint32>("id");
        QTest::addColumn<qint32>("nextRowId");
        QTest::newRow("below the next one") << 2 << 5;
        QTest::newRow("just below the next one") << 4 << 5;
        QTest::newRow("the next one itself") << 5 << 6;
        QTest::newRow("far above") << 40 << 41;
    }

    void aRowKeepsTheIdentityThatItHas()
    {
        QFETCH(const qint32, id);
        QFETCH(const qint32, nextRowId);
        SettlementParseResult result;
        result.nextRowId = 5;
        QCOMPARE(result.addRow(rowWithId(id)), id);
        QCOMPARE(result.rows.first().id, id);
        QCOMPARE(result.nextRowId, nextRowId);
    }

    void aDeletedRowsIdentityIsNotUsedAgain()
    {
        SettlementParseResult result;
        result.addRow(rowWithId(0));
        result.addRow(rowWithId(0));
        result.rows.removeLast();
        QCOMPARE(result.addRow(rowWithId(0)), 3);
        result.rows.clear();
        QCOMPARE(result.addRow(rowWithId(0)), 4);
    }

    void aCopyOfTheRowIsStored()
    {
        FuelReviewRow row;
        row.enabled = false;
        row.dataset = u"Manual Fuel"_s;
        row.tripNo = u"4471203"_s;
        row.cost = 412.80;
        SettlementParseResult result;
        result.addRow(row);
        row.tripNo = u"4471299"_s;
        QCOMPARE(row.id, 0);
        QCOMPARE(result.rows.first().enabled, false);
        QCOMPARE(result.rows.first().dataset, u"Manual Fuel"_s);
        QCOMPARE(result.rows.first().tripNo, u"4471203"_s);
        QCOMPARE(result.rows.first().cost, 412.80);
    }

    void rowsStandInTheOrderInWhichTheyCame()
    {
        SettlementParseResult result;
        result.addRow(rowWithId(9));
        result.addRow(rowWithId(3));
        result.addRow(rowWithId(0));
        QCOMPARE(result.rows.at(0).id, 9);
        QCOMPARE(result.rows.at(1).id, 3);
        QCOMPARE(result.rows.at(2).id, 10);
    }

    void clearingEmptiesAllAndCountsFromOneAgain()
    {
        SettlementParseResult result = SettlementParser::parse(
            u"week.pdf"_s, u"TRUCK 512 SETTLEMENT DATE 25/01/17\nDEF 21.35"_s, {u"page"_s});
        QCOMPARE(result.nextRowId, 2);
        result.clear();
        QCOMPARE(result.pdfPath, QString());
        QCOMPARE(result.truckNumber, QString());
        QCOMPARE(result.payweek, QString());
        QCOMPARE(result.rawText, QString());
        QCOMPARE(result.pageTexts, QStringList());
        QCOMPARE(result.logLines, QStringList());
        QCOMPARE(result.rows.size(), 0);
        QCOMPARE(result.nextRowId, 1);
        QCOMPARE(result.addRow(rowWithId(0)), 1);
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_SettlementParseResult)
#include "tst_SettlementParseResult.moc"
