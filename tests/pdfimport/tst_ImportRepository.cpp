#include "pdfimport/ConnectionLeftBehind.h"
#include "pdfimport/ImportRepository.h"
#include "pdfimport/ImportedFile.h"
#include "pdfimport/ReviewedSettlement.h"
#include "pdfimport/history/HistoryRows.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace ImportRepository;

namespace {

/// One of the two ways into the repository.
struct Operation
{
    QString name;
    ImportResult (*run)(const SettlementParseResult &settlement);
    QString blocked;
    QString connection;
};

const QList<Operation> bothOperations = {
    {u"dry run"_s, previewImport, u"Dry-run blocked: "_s,
     u"import_repository_preview_connection"_s},
    {u"import"_s, applyImport, u"Import blocked: "_s, u"import_repository_connection"_s}};

void bothOperationsAsRows()
{
    QTest::addColumn<Operation>("operation");
    for (const Operation &operation : bothOperations)
        QTest::newRow(qPrintable(operation.name)) << operation;
}

/// Runs what must be blocked with this message, and leave nothing but the message.
void isBlocked(const Operation &operation, const SettlementParseResult &settlement,
               const QString &reason)
{
    const ImportResult result = operation.run(settlement);
    QCOMPARE(result.message, reason);
    QCOMPARE(result.details, QStringList(reason));
    QCOMPARE(result.success, false);
    QCOMPARE(result.fuelDetailRows, 0);
    QCOMPARE(result.skippedRows, 0);
    QCOMPARE(result.historyId, 0);
}

/// What an import needs, in the order in which it is made.
const QStringList importSteps = {u"trip_detail_items"_s,
                                 u"settlement_import_log"_s,
                                 u"ix_settlement_import_log_truck_payweek"_s,
                                 u"ix_settlement_import_log_source_hash"_s,
                                 u"ix_settlement_import_log_pdf_payweek"_s,
                                 u"ix_trip_detail_items_trip_group"_s};

/// Tables and indexes, the oldest first.
QStringList namesAsMade(const Workspace &workspace)
{
    QStringList names;
    for (const QStringList &row : workspace.rows(u"SELECT name FROM sqlite_master WHERE "
                                                 "name NOT LIKE 'sqlite_%' ORDER BY rowid"_s))
        names += row;
    return names;
}

/// A file with what a dry run makes in it.
void makeImportTables(const Workspace &workspace)
{
    workspace.makeFile(u"trips.db"_s, "");
    QCOMPARE(previewImport(reviewed()).success, true);
}

/// Name, type, NOT NULL and default of each column.
QList<QStringList> columnsOf(const Workspace &workspace, const QString &table)
{
    return workspace.rows(u"SELECT name, type, \"notnull\", dflt_value FROM pragma_table_info(?)"_s,
                          {table});
}

} // namespace

class tst_ImportRepository : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // No way out of a call may leave its connection registered.
    void cleanup() { QCOMPARE(QSqlDatabase::connectionNames(), QStringList()); }

    void blankPayweekIsReportedBeforeTheRowsAreCounted_data() { bothOperationsAsRows(); }
    void blankPayweekIsReportedBeforeTheRowsAreCounted()
    {
        Workspace workspace;
        QFETCH(const Operation, operation);
        workspace.makeTrips();
        const QString reason = operation.blocked + u"parsed payweek is blank."_s;
        SettlementParseResult settlement = reviewed({});
        settlement.payweek = u" \t\n"_s;
        isBlocked(operation, settlement, reason);
        settlement = reviewed();
        settlement.payweek.clear();
        isBlocked(operation, settlement, reason);
    }

    void allRowsDisabledStopsAtTheEnabledRows_data() { bothOperationsAsRows(); }
    void allRowsDisabledStopsAtTheEnabledRows()
    {
        const Workspace workspace;
        QFETCH(const Operation, operation);
        const QString reason = operation.blocked + u"no enabled review rows."_s;
        isBlocked(operation, reviewed({switchedOff(truckFuelRow()), switchedOff(defRow())}),
                  reason);
        isBlocked(operation, reviewed({}), reason);
        QVERIFY(!QFile::exists(workspace.path(u"trips.db"_s)));
    }

    void withoutAFileNothingIsMade_data() { bothOperationsAsRows(); }
    void withoutAFileNothingIsMade()
    {
        const Workspace workspace;
        QFETCH(const Operation, operation);
        isBlocked(operation, reviewed(),
                  operation.blocked + u"trips.db was not found near the application."_s);
        QVERIFY(!QFile::exists(workspace.path(u"trips.db"_s)));
    }

    void folderOfThatNameCannotBeOpened_data() { bothOperationsAsRows(); }
    void folderOfThatNameCannotBeOpened()
    {
        const Workspace workspace;
        QFETCH(const Operation, operation);
        QVERIFY(QDir().mkdir(workspace.path(u"trips.db"_s)));
        isBlocked(operation, reviewed(),
                  operation.blocked
                      + u"could not open trips.db: unable to open database file Error opening "
                        "database"_s);
    }

    void fileThatIsNoDatabaseCannotTakeTheTables_data() { bothOperationsAsRows(); }
    void fileThatIsNoDatabaseCannotTakeTheTables()
    {
        const Workspace workspace;
        QFETCH(const Operation, operation);
        const QByteArray letter = QByteArray("Dear driver, this is no database.\n").repeated(99);
        workspace.makeFile(u"trips.db"_s, letter);
        isBlocked(operation, reviewed(),
                  operation.blocked
                      + u"could not ensure import tables: file is not a database Unable to "
                        "execute statement"_s);
        QCOMPARE(workspace.bytes(u"trips.db"_s), letter);
    }

    void logWithoutAnIndexedColumnCannotBeUsed_data() { bothOperationsAsRows(); }
    void logWithoutAnIndexedColumnCannotBeUsed()
    {
        Workspace workspace;
        QFETCH(const Operation, operation);
        workspace.makeFile(u"trips.db"_s, "");
        workspace.execute(u"CREATE TABLE settlement_import_log (id INTEGER PRIMARY KEY, "
                          "truck_number TEXT, payweek TEXT)"_s);
        isBlocked(operation, reviewed(),
                  operation.blocked
                      + u"could not ensure import tables: no such column: source_hash Unable to "
                        "execute statement"_s);
        // What came before the failing step stays, and none behind it was tried.
        QCOMPARE(namesAsMade(workspace),
                 QStringList({u"settlement_import_log"_s, u"trip_detail_items"_s,
                              u"ix_settlement_import_log_truck_payweek"_s}));
    }

    void nameThatIsTakenStopsTheStepsBehindIt_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<QString>("taking");
        QTest::addColumn<QString>("reason");
        const QString index = u"CREATE INDEX %1 ON trips(trip_no)"_s;
        const QString table = u"CREATE TABLE %1 (id INTEGER PRIMARY KEY)"_s;
        for (int before = 0; before < 6; ++before) {
            // A table finds its name taken by an index, and an index by a table.
            const bool forTable = before < 2;
            const QString &name = importSteps.at(before);
            QTest::newRow(qPrintable(name))
                << before << (forTable ? index : table).arg(name)
                << (forTable ? u"an index named "_s : u"a table named "_s) + name;
        }
    }

    void nameThatIsTakenStopsTheStepsBehindIt()
    {
        QFETCH(const int, before);
        QFETCH(const QString, taking);
        QFETCH(const QString, reason);
        const Workspace workspace;
        workspace.makeFile(u"trips.db"_s, "");
        workspace.execute(u"CREATE TABLE trips (id INTEGER PRIMARY KEY, trip_no TEXT)"_s);
        workspace.execute(taking);
        for (const Operation &operation : bothOperations)
            isBlocked(operation, reviewed(),
                      operation.blocked + u"could not ensure import tables: there is already "_s
                          + reason + u" Unable to execute statement"_s);
        QCOMPARE(namesAsMade(workspace).mid(2), importSteps.first(before));
    }

    void importTablesAreMadeWhereAFileHasNone_data() { bothOperationsAsRows(); }
    void importTablesAreMadeWhereAFileHasNone()
    {
        Workspace workspace;
        QFETCH(const Operation, operation);
        workspace.makeFile(u"trips.db"_s, "");
        QCOMPARE(operation.run(reviewed()).success, true);
        QCOMPARE(namesAsMade(workspace), importSteps);
        QCOMPARE(fuelRows(workspace), QList<QStringList>());
    }

    void madeTablesHaveAllColumns()
    {
        const Workspace workspace;
        makeImportTables(workspace);
        const QStringList empty = {u"TEXT"_s, u"1"_s, u"''"_s};
        const QStringList zero = {u"REAL"_s, u"1"_s, u"0"_s};
        const QStringList id = {u"id"_s, u"INTEGER"_s, u"0"_s, u""_s};
        QCOMPARE(columnsOf(workspace, u"trip_detail_items"_s),
                 QList<QStringList>({id,
                                     {u"trip_id"_s, u"INTEGER"_s, u"1"_s, u""_s},
                                     QStringList(u"group_name"_s) + empty,
                                     QStringList(u"item_type"_s) + empty,
                                     QStringList(u"cost"_s) + zero,
                                     QStringList(u"discount"_s) + zero,
                                     QStringList(u"gallons"_s) + zero,
                                     QStringList(u"created_at"_s) + empty}));
        QList<QStringList> log = {id};
        for (const QString &column :
             {u"truck_number"_s, u"payweek"_s, u"pdf_name"_s, u"source_hash"_s, u"created_at"_s,
              u"import_mode"_s, u"counts_json"_s, u"payload_json"_s})
            log.append(QStringList(column) + empty);
        QCOMPARE(columnsOf(workspace, u"settlement_import_log"_s), log);
    }

    void madeDetailTableIsTiedToNoTrip()
    {
        const Workspace workspace;
        makeImportTables(workspace);
        QCOMPARE(workspace.rows(u"SELECT * FROM pragma_foreign_key_list('trip_detail_items')"_s),
                 QList<QStringList>());
    }

    void madeIndexesHaveTheirColumnsInOrder()
    {
        const Workspace workspace;
        makeImportTables(workspace);
        const QString log = u"settlement_import_log"_s;
        const QString details = u"trip_detail_items"_s;
        QCOMPARE(
            workspace.rows(u"SELECT made.name, tbl_name, indexed.name FROM sqlite_master AS made, "
                           "pragma_index_info(made.name) AS indexed WHERE type = 'index' "
                           "ORDER BY made.name, seqno"_s),
            QList<QStringList>(
                {{u"ix_settlement_import_log_pdf_payweek"_s, log, u"payweek"_s},
                 {u"ix_settlement_import_log_pdf_payweek"_s, log, u"pdf_name"_s},
                 {u"ix_settlement_import_log_source_hash"_s, log, u"source_hash"_s},
                 {u"ix_settlement_import_log_truck_payweek"_s, log, u"truck_number"_s},
                 {u"ix_settlement_import_log_truck_payweek"_s, log, u"payweek"_s},
                 {u"ix_trip_detail_items_trip_group"_s, details, u"trip_id"_s},
                 {u"ix_trip_detail_items_trip_group"_s, details, u"group_name"_s}}));
    }

    void idOfADeletedRowIsNeverGivenAgain_data()
    {
        QTest::addColumn<QString>("table");
        QTest::addColumn<QString>("row");
        QTest::newRow("details") << u"trip_detail_items"_s << u"(trip_id) VALUES (1)"_s;
        QTest::newRow("log") << u"settlement_import_log"_s << u"(payweek) VALUES ('')"_s;
    }

    void idOfADeletedRowIsNeverGivenAgain()
    {
        QFETCH(const QString, table);
        QFETCH(const QString, row);
        const Workspace workspace;
        makeImportTables(workspace);
        QCOMPARE(workspace.insert(u"INSERT INTO %1 %2"_s.arg(table, row)), 1);
        workspace.execute(u"DELETE FROM "_s + table);
        QCOMPARE(workspace.insert(u"INSERT INTO %1 %2"_s.arg(table, row)), 2);
    }

    void guardAnswersInBothOperations_data() { bothOperationsAsRows(); }
    void guardAnswersInBothOperations()
    {
        Workspace workspace;
        QFETCH(const Operation, operation);
        workspace.makeTrips();
        insertHistory(workspace, {.payweek = u"04/18/2026"_s, .pdfName = u"week16.pdf"_s});
        isBlocked(operation, reviewed(),
                  u"Duplicate blocked: PDF name 'week16.pdf' was already imported for payweek "
                  "04/18/2026 as history ID 1 on 2026-04-20 14:05:09."_s);
        QCOMPARE(loggedImportCount(workspace), 1);
        QCOMPARE(fuelRows(workspace), QList<QStringList>());
    }

    void connectionLeftBehindIsReplaced_data() { bothOperationsAsRows(); }
    void connectionLeftBehindIsReplaced()
    {
        Workspace workspace;
        QFETCH(const Operation, operation);
        workspace.makeTrips();
        leaveBehind(operation.connection, workspace.makeLocations());
        QCOMPARE(operation.run(reviewed()).success, true);
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
    }

    void pagesKeepTheirConnections_data() { bothOperationsAsRows(); }
    void pagesKeepTheirConnections()
    {
        Workspace workspace;
        QFETCH(const Operation, operation);
        const TestConnection page(workspace.makeTrips(), u"trips_connection"_s);
        QCOMPARE(operation.run(reviewed()).success, true);
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList(u"trips_connection"_s));
        QCOMPARE(page.value(u"SELECT COUNT(*) FROM trips"_s), 0);
    }

    void fileInUseElsewhereIsNotTheOneNearTheApplication()
    {
        Workspace workspace;
        workspace.makeTrips();
        insertBusinessWeek(workspace);
        const TestConnection page(workspace.makeTrips(u"elsewhere/trips.db"_s),
                                  u"trips_connection"_s);
        QCOMPARE(previewImport(reviewed()).fuelDetailRows, 1);
        QCOMPARE(applyImport(reviewed()).fuelDetailRows, 1);
        QCOMPARE(loggedImportCount(workspace), 1);
        QCOMPARE(page.value(u"SELECT COUNT(*) FROM settlement_import_log"_s), 0);
    }

    void previewTellsWhatAnImportWouldDo()
    {
        Workspace workspace;
        workspace.makeTrips();
        insertBusinessWeek(workspace);
        const ImportResult result = previewImport(
            reviewed({truckFuelRow(), describedAs(u"  "_s, defRow(u" 99 "_s)),
                      routedTo(u" expense "_s, truckFuelRow()), switchedOff(defRow())}));
        QCOMPARE(result.success, true);
        QCOMPARE(result.fuelDetailRows, 1);
        QCOMPARE(result.skippedRows, 3);
        QCOMPARE(result.historyId, 0);
        QCOMPARE(result.message, u"Fuel/DEF dry-run preview passed. No database rows were "
                                 "written. Enabled rows: 3."_s);
        QCOMPARE(
            result.details,
            QStringList(
                {result.message, u"Database: "_s + workspace.path(u"trips.db"_s),
                 u"Payweek: 04/18/2026"_s, u"Truck: 512"_s,
                 u"Source hash: e8f1fa01fb3a8e51d4f596b9d3ae900fb9004aec1b20ead809db77fb43e751be"_s,
                 u"Review signature: 060aaba680c8ce00e0ce0fee6608b6c4c48e3d57c17340c64c85a2e8535db527"_s,
                 u"Fuel/DEF-only mode: trip revenue, trip expense, and non-trip settlement rows "
                 "will not be written."_s,
                 u"Would insert Fuel/DEF detail rows: 1"_s, u"Would skip rows: 3"_s, u""_s,
                 u"Rows that would be skipped because trip numbers were not found:"_s,
                 u"Missing trip '99': Imported Item"_s, u""_s,
                 u"Unsupported routes that would be skipped:"_s, u"expense"_s}));
    }

    void previewOfRowsThatAllFitListsNoneThatDoNot()
    {
        Workspace workspace;
        workspace.makeTrips();
        insertBusinessWeek(workspace);
        SettlementParseResult settlement = reviewed({truckFuelRow(), defRow()});
        settlement.payweek = u" 04/18/2026 "_s;
        settlement.truckNumber = u" "_s;
        const ImportResult result = previewImport(settlement);
        QCOMPARE(result.details.size(), 9);
        QCOMPARE(result.details.at(2), u"Payweek: 04/18/2026"_s);
        QCOMPARE(result.details.at(3), u"Truck: (blank)"_s);
        QCOMPARE(result.details.at(7), u"Would insert Fuel/DEF detail rows: 2"_s);
        QCOMPARE(result.details.at(8), u"Would skip rows: 0"_s);
    }

    void previewListsEveryUnsupportedRouteWithoutAMissingTrip()
    {
        Workspace workspace;
        workspace.makeTrips();
        const ImportResult result = previewImport(
            reviewed({routedTo(u"Fuel_Detail"_s, truckFuelRow()), routedTo(u"  "_s, truckFuelRow()),
                      switchedOff(routedTo(u"expense"_s, defRow()))}));
        QCOMPARE(result.success, true);
        QCOMPARE(result.skippedRows, 3);
        QCOMPARE(result.details.mid(9),
                 QStringList({u""_s, u"Unsupported routes that would be skipped:"_s,
                              u"Fuel_Detail"_s, u""_s}));
    }

    void previewWithMissingTripsIsStillAPass()
    {
        Workspace workspace;
        workspace.makeTrips();
        const ImportResult result = previewImport(reviewed({truckFuelRow(), defRow(u"7"_s)}));
        QCOMPARE(result.success, true);
        QCOMPARE(result.fuelDetailRows, 0);
        QCOMPARE(result.skippedRows, 2);
        QCOMPARE(
            result.details.mid(9),
            QStringList({u""_s,
                         u"Rows that would be skipped because trip numbers were not "
                         "found:"_s,
                         u"Missing trip '4471203': Truck Fuel"_s, u"Missing trip '7': Def"_s}));
    }

    void percentSignsStayAsTheyAreInWhatIsTold()
    {
        Workspace workspace;
        workspace.makeTrips();
        SettlementParseResult settlement =
            reviewed({describedAs(u"%1 %3"_s, truckFuelRow(u"%2"_s))});
        settlement.payweek = u"%2 %1"_s;
        settlement.truckNumber = u"%2"_s;
        const QStringList details = previewImport(settlement).details;
        QCOMPARE(details.mid(2, 2), QStringList({u"Payweek: %2 %1"_s, u"Truck: %2"_s}));
        QCOMPARE(details.last(), u"Missing trip '%2': %1 %3"_s);
        QCOMPARE(applyImport(settlement).details.first(),
                 u"Skipped row for missing trip '%2': %1 %3"_s);
    }

    void previewWritesNoByteToAFileThatHasTheTables()
    {
        Workspace workspace;
        workspace.makeTrips();
        insertBusinessWeek(workspace);
        const QByteArray before = workspace.bytes(u"trips.db"_s);
        QCOMPARE(previewImport(reviewed()).success, true);
        QCOMPARE(workspace.bytes(u"trips.db"_s), before);
    }

    void previewCanBeRepeated()
    {
        Workspace workspace;
        workspace.makeTrips();
        insertBusinessWeek(workspace);
        const QStringList first = previewImport(reviewed()).details;
        QCOMPARE(previewImport(reviewed()).details, first);
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_ImportRepository)
#include "tst_ImportRepository.moc"
