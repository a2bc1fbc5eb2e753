#include "pdfimport/ImportRepository.h"
#include "pdfimport/ImportedFile.h"
#include "pdfimport/ReviewedSettlement.h"
#include "support/TestProgram.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;
using namespace ImportRepository;

namespace {

using Changes = QList<std::function<void(SettlementParseResult &)>>;

const QString selectLog = u"SELECT truck_number, payweek, pdf_name, source_hash, import_mode, "
                          "counts_json FROM settlement_import_log"_s;

QDateTime timeOf(const Workspace &workspace, const QString &table)
{
    QDateTime time = QDateTime::fromString(
        workspace.value(u"SELECT created_at FROM "_s + table).toString(), u"yyyy-MM-dd HH:mm:ss"_s);
    time.setTimeSpec(Qt::UTC);
    return time;
}

/// The guards' words up to where they differ from one import to the next.
QString guardIn(const QString &message)
{
    return message.section(u" already imported"_s, 0, 0);
}

const QString byContent = u"Duplicate blocked: matching source content was"_s;
const QString byName = u"Duplicate blocked: PDF name 'week16.pdf' was"_s;
const QString byRows = u"Duplicate blocked: matching review rows were"_s;
const QString notAtAll = u"Fuel/DEF import applied safely. History ID: 2"_s;

// What may differ in a settlement when it is imported once more.

void readAnew(SettlementParseResult &settlement)
{
    settlement.rawText += u"\npage 2"_s;
}

void nameAnew(SettlementParseResult &settlement)
{
    settlement.pdfPath = u"/home/driver/pay/week16 (1).pdf"_s;
}

void moveFile(SettlementParseResult &settlement)
{
    settlement.pdfPath = u"/media/usb/week16.pdf"_s;
}

void changeTruck(SettlementParseResult &settlement)
{
    settlement.truckNumber = u"513"_s;
}

void changePayweek(SettlementParseResult &settlement)
{
    settlement.payweek = u"04/25/2026"_s;
}

void respellPayweek(SettlementParseResult &settlement)
{
    settlement.payweek = u"4/18/2026"_s;
}

void reorderRows(SettlementParseResult &settlement)
{
    settlement.rows.swapItemsAt(0, 1);
}

void changeNote(SettlementParseResult &settlement)
{
    settlement.rows.first().sourceLine = u"as the driver remembers it"_s;
}

void changeByLessThanACent(SettlementParseResult &settlement)
{
    settlement.rows.first().amount += 0.004;
}

void changeRow(SettlementParseResult &settlement)
{
    settlement.rows.first().gallons = 118.3;
}

void switchRowOff(SettlementParseResult &settlement)
{
    settlement.rows.first().enabled = false;
}

void removeRow(SettlementParseResult &settlement)
{
    settlement.rows.removeFirst();
}

void addRowByHand(SettlementParseResult &settlement)
{
    FuelReviewRow row = defRow();
    row.dataset = FuelReviewWords::manualFuel;
    settlement.addRow(row);
}

void switchDisabledRowOn(SettlementParseResult &settlement)
{
    settlement.rows.last().enabled = true;
}

void changeDisabledRow(SettlementParseResult &settlement)
{
    settlement.rows.last().gallons = 118.3;
}

void removeDisabledRow(SettlementParseResult &settlement)
{
    settlement.rows.removeLast();
}

} // namespace

class tst_ImportRepositoryApply : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // No way out of a call may leave its connection registered.
    void cleanup() { QCOMPARE(QSqlDatabase::connectionNames(), QStringList()); }

    void enabledRowsOfKnownTripsAreInserted()
    {
        Workspace workspace;
        workspace.makeTrips();
        const QString id = QString::number(insertBusinessWeek(workspace));
        const ImportResult result =
            applyImport(reviewed({truckFuelRow(), describedAs(u" Def\t"_s, defRow(u" 4471203 "_s)),
                                  describedAs(u"  "_s, defRow())}));
        QCOMPARE(result.success, true);
        QCOMPARE(result.fuelDetailRows, 3);
        QCOMPARE(result.skippedRows, 0);
        const QStringList def = {u"23.1"_s, u"-1.75"_s, u"5.25"_s};
        QCOMPARE(fuelRows(workspace),
                 QList<QStringList>(
                     {{id, u"fuel"_s, u"Truck Fuel"_s, u"448.3"_s, u"-35.5"_s, u"118.276"_s},
                      QStringList({id, u"fuel"_s, u"Def"_s}) + def,
                      QStringList({id, u"fuel"_s, u"Fuel/DEF Item"_s}) + def}));
    }

    void importIsLogged()
    {
        Workspace workspace;
        workspace.makeTrips();
        insertBusinessWeek(workspace);
        SettlementParseResult settlement = reviewed();
        settlement.payweek = u" 04/18/2026 "_s;
        settlement.truckNumber = u"512\n"_s;
        QCOMPARE(applyImport(settlement).historyId, 1);
        QCOMPARE(workspace.rows(selectLog),
                 QList<QStringList>(
                     {{u"512"_s, u"04/18/2026"_s, u"week16.pdf"_s,
                       u"5b24372bf6a4e5d82a7574061a051af1adc17b5e5498dcbff2878e0718bf7320"_s,
                       u"fuel_def_only"_s, u"{\"fuel_detail\":1,\"skipped\":0}"_s}}));
    }

    void storedPayloadNamesTheHashAndTheSignatureOfTheImport()
    {
        Workspace workspace;
        workspace.makeTrips();
        QCOMPARE(applyImport(reviewed()).success, true);
        const QList<QStringList> logged =
            workspace.rows(u"SELECT source_hash, payload_json FROM settlement_import_log"_s);
        const QString hash = u"5b24372bf6a4e5d82a7574061a051af1adc17b5e5498dcbff2878e0718bf7320"_s;
        const QString signature =
            u"f708faeb2376ee6fe5463cdae060dfe65b47daa3a1573bcdcc3a6f561b868ffb"_s;
        const QJsonObject payload =
            QJsonDocument::fromJson(logged.first().last().toUtf8()).object();
        QCOMPARE(logged.first().first(), hash);
        QCOMPARE(payload.value("source_hash"_L1), hash);
        QCOMPARE(payload.value("review_signature"_L1), signature);
    }

    void importTellsWhatItDid()
    {
        Workspace workspace;
        workspace.makeTrips();
        insertBusinessWeek(workspace);
        workspace.execute(u"INSERT INTO settlement_import_log (id) VALUES (41)"_s);
        const ImportResult result = applyImport(
            reviewed({describedAs(u"  "_s, defRow(u" 99 "_s)), truckFuelRow(),
                      switchedOff(defRow()), routedTo(u" expense "_s, truckFuelRow())}));
        QCOMPARE(result.historyId, 42);
        QCOMPARE(result.message, u"Fuel/DEF import applied safely. History ID: 42"_s);
        QCOMPARE(
            result.details,
            QStringList(
                {u"Skipped row for missing trip ' 99 ': Fuel/DEF Item"_s,
                 u"Skipped non-fuel route in Fuel/DEF-only mode: expense"_s, result.message,
                 u"Source hash: e8f1fa01fb3a8e51d4f596b9d3ae900fb9004aec1b20ead809db77fb43e751be"_s,
                 u"Review signature: 060aaba680c8ce00e0ce0fee6608b6c4c48e3d57c17340c64c85a2e8535db527"_s,
                 u"Fuel/DEF-only mode wrote no trip revenue, trip expense, or non-trip "
                 "settlement rows."_s,
                 u"Fuel/DEF detail rows: 1"_s, u"Skipped rows: 3"_s}));
    }

    void disabledRowIsCountedAsSkippedAndAbsentFromTheEnabledRows()
    {
        Workspace workspace;
        workspace.makeTrips();
        insertBusinessWeek(workspace);
        const ImportResult result = applyImport(reviewed({truckFuelRow(), switchedOff(defRow())}));
        QCOMPARE(result.details.size(), 6);
        QCOMPARE(workspace.value(u"SELECT counts_json FROM settlement_import_log"_s).toString(),
                 u"{\"fuel_detail\":1,\"skipped\":1}"_s);
        const QString payload =
            workspace.value(u"SELECT payload_json FROM settlement_import_log"_s).toString();
        QVERIFY2(payload.startsWith(u"{\"enabled_row_count\":1,\"enabled_rows\":[{\"amount\":412.8,"
                                    "\"cost\":448.3,\"dataset\":\"Deduction Fuel\","
                                    "\"description\":\"Truck Fuel\",\"discount\":-35.5,"
                                    "\"gallons\":118.276,\"route\":\"fuel_detail\","
                                    "\"trip_no\":\"4471203\"}],\"import_scope\":"_s),
                 qPrintable(payload));
        QVERIFY(payload.contains("\"review_row_count\":2"_L1));
        QVERIFY(!payload.contains("Def\""_L1));
    }

    void timesAreInUtc()
    {
        Workspace workspace;
        workspace.makeTrips();
        insertBusinessWeek(workspace);
        const QDateTime before = QDateTime::currentDateTimeUtc().addSecs(-1);
        QCOMPARE(applyImport(reviewed()).success, true);
        for (const QString &table : {u"trip_detail_items"_s, u"settlement_import_log"_s}) {
            QVERIFY(timeOf(workspace, table) >= before);
            QVERIFY(timeOf(workspace, table) <= QDateTime::currentDateTimeUtc());
        }
    }

    void noOtherTableIsWrittenTo()
    {
        Workspace workspace;
        workspace.makeTrips();
        const qint64 id = insertBusinessWeek(workspace);
        fuel(id, u"Truck Fuel"_s, 400.0, 20.0, 100.0).insert(workspace);
        const QList<QStringList> others = otherRows(workspace);
        const QList<QStringList> fuelBefore = fuelRows(workspace);
        QCOMPARE(others.size(), 14);
        QCOMPARE(applyImport(reviewed({truckFuelRow(), defRow(u"99"_s)})).success, true);
        QCOMPARE(otherRows(workspace), others);
        QCOMPARE(fuelRows(workspace).size(), 2);
        QCOMPARE(fuelRows(workspace).first(), fuelBefore.first());
    }

    void tripIsFoundByItsTrimmedNumber_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<QString>("tripNo");
        QTest::addColumn<int>("inserted");
        QTest::newRow("as it is") << QVariant(u"4471203"_s) << u"4471203"_s << 1;
        QTest::newRow("stored with blanks") << QVariant(u"  4471203 "_s) << u"4471203"_s << 1;
        QTest::newRow("reviewed with blanks") << QVariant(u"4471203"_s) << u"\t4471203 "_s << 1;
        QTest::newRow("another") << QVariant(u"4471203"_s) << u"447120"_s << 0;
        QTest::newRow("another case") << QVariant(u"ab12"_s) << u"AB12"_s << 0;
        QTest::newRow("blank for blank") << QVariant(u" "_s) << u""_s << 1;
        QTest::newRow("blank for none") << QVariant() << u"  "_s << 1;
        QTest::newRow("blank, where every trip has one") << QVariant(u"1"_s) << u""_s << 0;
        QTest::newRow("stored as a number") << QVariant(4471203) << u"4471203"_s << 1;
    }

    void tripIsFoundByItsTrimmedNumber()
    {
        QFETCH(const QVariant, stored);
        QFETCH(const QString, tripNo);
        QFETCH(const int, inserted);
        Workspace workspace;
        workspace.makeTrips();
        trip().set(u"trip_no"_s, stored).insert(workspace);
        QCOMPARE(previewImport(reviewed({truckFuelRow(tripNo)})).fuelDetailRows, inserted);
        const ImportResult result = applyImport(reviewed({truckFuelRow(tripNo)}));
        QCOMPARE(result.success, true);
        QCOMPARE(result.fuelDetailRows, inserted);
        QCOMPARE(result.skippedRows, 1 - inserted);
        QCOMPARE(fuelRows(workspace).size(), inserted);
    }

    void firstOfTwoTripsOfOneNumberGetsTheFuel()
    {
        Workspace workspace;
        workspace.makeTrips();
        const qint64 first = trip().no(u" 4471203 "_s).insert(workspace);
        trip().no(u"4471203"_s).insert(workspace);
        QCOMPARE(applyImport(reviewed()).fuelDetailRows, 1);
        QCOMPARE(workspace.rows(u"SELECT trip_id FROM trip_detail_items"_s),
                 QList<QStringList>({{QString::number(first)}}));
    }

    void idBelowOneBelongsToNoTrip_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<int>("inserted");
        QTest::newRow("below zero") << -3 << 0;
        QTest::newRow("zero") << 0 << 0;
        QTest::newRow("one") << 1 << 1;
    }

    void idBelowOneBelongsToNoTrip()
    {
        QFETCH(const int, id);
        QFETCH(const int, inserted);
        Workspace workspace;
        workspace.makeTrips();
        trip().no(u"4471203"_s).set(u"id"_s, id).insert(workspace);
        QCOMPARE(previewImport(reviewed()).fuelDetailRows, inserted);
        QCOMPARE(applyImport(reviewed()).fuelDetailRows, inserted);
        QCOMPARE(fuelRows(workspace).size(), inserted);
    }

    void routeIsTrimmedAndThenComparedWithRegardToCase_data()
    {
        QTest::addColumn<QString>("route");
        QTest::addColumn<int>("inserted");
        QTest::newRow("as it is") << u"fuel_detail"_s << 1;
        QTest::newRow("blanks around it") << u" fuel_detail\t"_s << 1;
        QTest::newRow("another case") << u"Fuel_Detail"_s << 0;
        QTest::newRow("blank") << u" "_s << 0;
    }

    void routeIsTrimmedAndThenComparedWithRegardToCase()
    {
        QFETCH(const QString, route);
        QFETCH(const int, inserted);
        Workspace workspace;
        workspace.makeTrips();
        insertBusinessWeek(workspace);
        const SettlementParseResult settlement = reviewed({routedTo(route, truckFuelRow())});
        QCOMPARE(previewImport(settlement).fuelDetailRows, inserted);
        const ImportResult result = applyImport(settlement);
        QCOMPARE(result.fuelDetailRows, inserted);
        QCOMPARE(fuelRows(workspace).size(), inserted);
        if (inserted == 0)
            QCOMPARE(result.details.first(),
                     u"Skipped non-fuel route in Fuel/DEF-only mode: "_s + route.trimmed());
    }

    void importThatFindsNoTripIsLoggedAndBlocksTheNext()
    {
        Workspace workspace;
        workspace.makeTrips();
        const ImportResult result = applyImport(reviewed());
        QCOMPARE(result.success, true);
        QCOMPARE(result.fuelDetailRows, 0);
        QCOMPARE(loggedImportCount(workspace), 1);
        insertBusinessWeek(workspace);
        QCOMPARE(guardIn(applyImport(reviewed()).message), byContent);
        QCOMPARE(fuelRows(workspace), QList<QStringList>());
        workspace.execute(u"DELETE FROM settlement_import_log"_s);
        QCOMPARE(applyImport(reviewed()).fuelDetailRows, 1);
    }

    void withoutATripsTableEveryTripIsMissing()
    {
        Workspace workspace;
        workspace.makeTrips();
        workspace.execute(u"DROP TABLE trips"_s);
        QCOMPARE(previewImport(reviewed()).details.last(), u"Missing trip '4471203': Truck Fuel"_s);
        const ImportResult result = applyImport(reviewed());
        QCOMPARE(result.success, true);
        QCOMPARE(result.skippedRows, 1);
        QCOMPARE(result.details.first(), u"Skipped row for missing trip '4471203': Truck Fuel"_s);
        QCOMPARE(loggedImportCount(workspace), 1);
    }

    void secondImportWithoutAChangeIsBlockedByItsContent()
    {
        Workspace workspace;
        workspace.makeTrips();
        insertBusinessWeek(workspace);
        QCOMPARE(applyImport(reviewed()).success, true);
        workspace.execute(u"UPDATE settlement_import_log SET created_at = '2026-04-20 14:05:09'"_s);
        const ImportResult second = applyImport(reviewed());
        QCOMPARE(second.success, false);
        QCOMPARE(second.message, u"Duplicate blocked: matching source content was already imported "
                                 "as history ID 1 on 2026-04-20 14:05:09 (payweek 04/18/2026, PDF "
                                 "week16.pdf)."_s);
        QCOMPARE(previewImport(reviewed()).message, second.message);
        QCOMPARE(fuelRows(workspace).size(), 1);
        QCOMPARE(loggedImportCount(workspace), 1);
    }

    void secondImportIsAnsweredByTheGuardThatKnowsIt_data();
    void secondImportIsAnsweredByTheGuardThatKnowsIt();

    void reviewMayChangeBetweenTheDryRunAndTheImport()
    {
        Workspace workspace;
        workspace.makeTrips();
        insertBusinessWeek(workspace);
        SettlementParseResult settlement = reviewed({truckFuelRow(), defRow()});
        QCOMPARE(previewImport(settlement).fuelDetailRows, 2);
        settlement.rows.first().gallons = 1.5;
        settlement.rows.last().enabled = false;
        const ImportResult result = applyImport(settlement);
        QCOMPARE(result.fuelDetailRows, 1);
        QCOMPARE(result.skippedRows, 1);
        QCOMPARE(workspace.value(u"SELECT gallons FROM trip_detail_items"_s).toDouble(), 1.5);
    }

    void fileMayChangeBetweenTheDryRunAndTheImport()
    {
        Workspace workspace;
        workspace.makeTrips();
        insertBusinessWeek(workspace);
        QCOMPARE(previewImport(reviewed()).fuelDetailRows, 1);
        workspace.execute(u"DELETE FROM trips"_s);
        QCOMPARE(applyImport(reviewed()).skippedRows, 1);
    }

    void importOfAnotherBetweenTheDryRunAndTheImportIsSeen()
    {
        Workspace workspace;
        workspace.makeTrips();
        insertBusinessWeek(workspace);
        QCOMPARE(previewImport(reviewed()).success, true);
        workspace.execute(u"INSERT INTO settlement_import_log (payweek, pdf_name) "
                          "VALUES ('04/18/2026', 'week16.pdf')"_s);
        QCOMPARE(guardIn(applyImport(reviewed()).message), byName);
        QCOMPARE(fuelRows(workspace), QList<QStringList>());
    }
};

void tst_ImportRepositoryApply::secondImportIsAnsweredByTheGuardThatKnowsIt_data()
{
    QTest::addColumn<Changes>("changes");
    QTest::addColumn<QString>("answer");
    const auto row = [](const char *name, const Changes &changes, const QString &answer) {
        QTest::newRow(name) << changes << answer;
    };
    row("new name", {nameAnew}, byContent);
    row("rows reordered", {reorderRows}, byContent);
    row("source note edited", {changeNote}, byContent);
    row("less than a cent", {changeByLessThanACent}, byContent);
    row("disabled row changed", {changeDisabledRow}, byContent);
    row("disabled row removed", {removeDisabledRow}, byContent);
    row("changed row, same name", {changeRow}, byName);
    row("row switched off, same name", {switchRowOff}, byName);
    row("row added by hand, same name", {addRowByHand}, byName);
    row("read anew", {readAnew}, byName);
    row("read anew in another folder", {readAnew, moveFile}, byName);
    row("other truck", {changeTruck}, byName);
    row("same rows from a file with a new name", {readAnew, nameAnew}, byRows);
    row("reordered rows, new name", {readAnew, nameAnew, reorderRows}, byRows);
    row("changed row, new name", {nameAnew, changeRow}, notAtAll);
    row("row switched off, new name", {nameAnew, switchRowOff}, notAtAll);
    row("row switched on, new name", {nameAnew, switchDisabledRowOn}, notAtAll);
    row("row removed, new name", {nameAnew, removeRow}, notAtAll);
    row("row added by hand, new name", {nameAnew, addRowByHand}, notAtAll);
    row("other truck, new name", {nameAnew, changeTruck}, notAtAll);
    row("other payweek", {changePayweek}, notAtAll);
    row("payweek in another form", {respellPayweek}, notAtAll);
}

void tst_ImportRepositoryApply::secondImportIsAnsweredByTheGuardThatKnowsIt()
{
    QFETCH(const Changes, changes);
    QFETCH(const QString, answer);
    Workspace workspace;
    workspace.makeTrips();
    insertBusinessWeek(workspace);
    SettlementParseResult settlement =
        reviewed({truckFuelRow(), defRow(), switchedOff(truckFuelRow())});
    QCOMPARE(applyImport(settlement).success, true);
    for (const auto &change : changes)
        change(settlement);
    const bool passes = answer == notAtAll;
    QCOMPARE(previewImport(settlement).success, passes);
    QCOMPARE(guardIn(applyImport(settlement).message), answer);
    QCOMPARE(loggedImportCount(workspace), passes ? 2 : 1);
}

TEST_CLASS_WITHOUT_WINDOWS(tst_ImportRepositoryApply)
#include "tst_ImportRepositoryApply.moc"
