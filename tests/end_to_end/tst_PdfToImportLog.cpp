#include "pdfimport/ImportPdfPage.h"
#include "pdfimport/history/ImportHistoryPage.h"
#include "samples/PdfFile.h"
#include "support/DialogRobot.h"
#include "support/Person.h"
#include "support/RowMakers.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QPlainTextEdit>
#include <QTableWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QStringList settlement = {
    u"OWNER-OPERATOR SETTLEMENT"_s,
    u"TRUCK NO: 4417                         SETTLEMENT DATE: 26/04/18"_s,
    u"04/15 TRUCK FUEL TRIP 4471203 TRAVEL CENTER    101.4 GALS    (25.00)    412.80"_s,
    u"04/16 TRUCK FUEL TRIP 4471999 TRAVEL CENTER     80.0 GALS               300.00"_s,
    u"04/16 DEF TRIP 4471203 TRAVEL CENTER             5.2 GALS                20.80"_s,
};

const QStringList truckFuel = {u"1"_s,     u"fuel"_s, u"Truck Fuel"_s,
                               u"412.8"_s, u"-25"_s,  u"101.4"_s};
const QStringList def = {u"1"_s, u"fuel"_s, u"Def"_s, u"20.8"_s, u"0"_s, u"5.2"_s};

/// The import page and the history page, wired as the window wires them, with a settlement to
/// import and a file that knows one of its two trips.
class ImportDesk
{
public:
    ImportDesk()
    {
        workspace.linkTools();
        workspace.makeTrips();
        trip().no(u"4471203"_s).payweek(u"04/18/2026"_s).insert(workspace);
        QString error;
        if (!writePdf(workspace.path(u"week16.pdf"_s), {settlement}, PdfMake::Text, error))
            QTest::qFail(qPrintable(error), __FILE__, __LINE__);
        QObject::connect(&import, &ImportPdfPage::importAppliedSuccessfully, &history,
                         &ImportHistoryPage::refreshHistory);
        Person::shows(import);
        Person::shows(history);
    }
    Q_DISABLE_COPY_MOVE(ImportDesk)

    void scansTheSettlement()
    {
        robot.expectFileDialog(u"Choose Settlement PDF for Fuel/DEF Scan"_s)
            .choose(workspace.path(u"week16.pdf"_s));
        Person::clicks(import, u"Choose PDF"_s);
        Person::clicks(import, u"Scan Fuel/DEF Only"_s);
    }

    void applies()
    {
        robot
            .expectContaining(DialogRobot::Question, u"Final Import Confirmation"_s,
                              u"Would insert Fuel/DEF detail rows: 2\nWould skip rows: 1\n"_s)
            .press(u"Yes"_s);
        robot.expectContaining(DialogRobot::Information, u"Import Applied"_s,
                               u"Fuel/DEF detail rows: 2\nSkipped rows: 1\n"_s);
        Person::clicks(import, u"Apply Fuel/DEF Import"_s);
    }

    void deletesTheNewestHistoryRow()
    {
        robot
            .expectContaining(DialogRobot::Question, u"Delete Activity History Row"_s,
                              u"It does NOT delete trips, settlement rows, locations, or imported "
                              "data."_s)
            .press(u"Yes"_s);
        Person::clicks(history, u"Delete Selected Activity Row"_s);
    }

    [[nodiscard]] QList<QStringList> fuelRows() const
    {
        return workspace.rows(u"SELECT trip_id, group_name, item_type, cost, discount, gallons "
                              "FROM trip_detail_items ORDER BY id"_s);
    }

    [[nodiscard]] QStringList historyDetails() const
    {
        return history.findChild<QPlainTextEdit *>()->toPlainText().split(u'\n');
    }

    Workspace workspace;
    DialogRobot robot;
    ImportPdfPage import;
    ImportHistoryPage history;
};

} // namespace

/// The road of a settlement from end to end: out of a real PDF, through the real tools and the
/// review, into the trips and the log, and back out of the log.
class tst_PdfToImportLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void settlementReachesTheTripsAndTheLog()
    {
        ImportDesk desk;
        desk.scansTheSettlement();
        QCOMPARE(desk.fuelRows(), QList<QStringList>());
        desk.applies();
        QCOMPARE(desk.fuelRows(), QList<QStringList>({truckFuel, def}));
        QCOMPARE(desk.workspace.rows(u"SELECT truck_number, payweek, pdf_name, import_mode, "
                                     "counts_json FROM settlement_import_log"_s),
                 QList<QStringList>({{u"4417"_s, u"04/18/2026"_s, u"week16.pdf"_s,
                                      u"fuel_def_only"_s, uR"({"fuel_detail":2,"skipped":1})"_s}}));
        QCOMPARE(desk.workspace.rows(u"SELECT trip_no, total_cost FROM trips"_s),
                 QList<QStringList>({{u"4471203"_s, u"0"_s}}));
        for (const QString &table : {u"trip_cost_items"_s, u"settlement_non_trip_items"_s})
            QCOMPARE(desk.workspace.value(u"SELECT COUNT(*) FROM "_s + table), 0);
    }

    void historyTellsOfTheImport()
    {
        ImportDesk desk;
        desk.scansTheSettlement();
        desk.applies();
        const QStringList details = desk.historyDetails();
        QCOMPARE(details.at(2), u"ID: 1"_s);
        QCOMPARE(details.mid(4, 8),
                 QStringList({u"Action: fuel_def_only"_s, u"Database: PDF Import"_s,
                              u"Details: week16.pdf"_s, u""_s, u"Legacy PDF Import Details"_s,
                              u"-------------------------"_s, u"Payweek: 04/18/2026"_s,
                              u"Truck: 4417"_s}));
        QCOMPARE(details.at(18), uR"({"fuel_detail":2,"skipped":1})"_s);
        QVERIFY2(details.at(22).startsWith(uR"({"enabled_row_count":3,"enabled_rows":[{"amount":)"
                                           uR"(412.8,"cost":412.8,"dataset":"Deduction Fuel",)"_s),
                 qPrintable(details.at(22)));
    }

    void sameSettlementIsBlockedWhileItStandsInTheLog()
    {
        ImportDesk desk;
        desk.scansTheSettlement();
        desk.applies();
        desk.scansTheSettlement();
        desk.robot.expectContaining(DialogRobot::Warning, u"Import Blocked"_s,
                                    u"Duplicate blocked: matching source content was already "
                                    "imported as history ID 1 on "_s);
        Person::clicks(desk.import, u"Apply Fuel/DEF Import"_s);
        QCOMPARE(desk.fuelRows(), QList<QStringList>({truckFuel, def}));
        QCOMPARE(desk.history.findChild<QTableWidget *>()->rowCount(), 1);
    }

    void deletedHistoryRowLetsTheSamePdfPassAgainAndDoublesItsFuel()
    {
        ImportDesk desk;
        desk.scansTheSettlement();
        desk.applies();
        desk.deletesTheNewestHistoryRow();
        QCOMPARE(desk.fuelRows(), QList<QStringList>({truckFuel, def}));
        QCOMPARE(desk.historyDetails(), QStringList({u""_s}));

        desk.scansTheSettlement();
        desk.applies();
        QCOMPARE(desk.fuelRows(), QList<QStringList>({truckFuel, def, truckFuel, def}));
        QCOMPARE(column(desk.history.findChild<QTableWidget *>(), u"ID"_s), QStringList({u"2"_s}));
    }
};

TEST_CLASS(tst_PdfToImportLog)
#include "tst_PdfToImportLog.moc"
