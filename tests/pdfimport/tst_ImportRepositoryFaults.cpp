#include "pdfimport/ImportRepository.h"
#include "pdfimport/ImportedFile.h"
#include "pdfimport/OpeningStatement.h"
#include "pdfimport/ReviewedSettlement.h"
#include "pdfimport/history/HistoryRows.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"
#include "support/surroundings/FileSizeLimit.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace ImportRepository;

namespace {

const QString failsTheFourth = u"CREATE TRIGGER fourth BEFORE INSERT ON trip_detail_items "
                               "WHEN (SELECT COUNT(*) FROM trip_detail_items) = 1 + 3 "
                               "BEGIN SELECT RAISE(%1, 'no fourth row'); END"_s;

/// A trips.db with a fuel row of its own that no failed import may leave a trace in.
class SafeFile
{
public:
    SafeFile()
    {
        workspace.makeTrips();
        const qint64 id = insertBusinessWeek(workspace);
        fuel(id, u"Truck Fuel"_s, 400.0, 20.0, 100.0).insert(workspace);
        fuelBefore = fuelRows(workspace);
        othersBefore = otherRows(workspace);
    }

    /// Nothing remains of an import, and nothing keeps the next one from the file.
    void isUntouched() const
    {
        QCOMPARE(fuelRows(workspace), fuelBefore);
        QCOMPARE(loggedImportCount(workspace), 0);
        QCOMPARE(otherRows(workspace), othersBefore);
        QCOMPARE(workspace.value(u"PRAGMA integrity_check"_s).toString(), u"ok"_s);
        const TestConnection next(workspace.path(u"trips.db"_s));
        QCOMPARE(next.tries(u"BEGIN EXCLUSIVE"_s), u""_s);
    }

    Workspace workspace;

private:
    QList<QStringList> fuelBefore;
    QList<QStringList> othersBefore;
};

/// One row that is skipped and four that can be inserted.
SettlementParseResult fiveRows()
{
    return reviewed({truckFuelRow(u"99"_s), truckFuelRow(), defRow(), truckFuelRow(), defRow()});
}

/// A settlement of more text than the free space of a file takes.
SettlementParseResult longRow()
{
    return reviewed({describedAs(QString(100'000, u'x'), truckFuelRow())});
}

void failed(const ImportResult &result, const QString &message)
{
    QCOMPARE(result.message, message);
    QCOMPARE(result.details.last(), message);
    QCOMPARE(result.success, false);
    QCOMPARE(result.historyId, 0);
}

} // namespace

class tst_ImportRepositoryFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // No way out of a call may leave its connection registered.
    void cleanup() { QCOMPARE(QSqlDatabase::connectionNames(), QStringList()); }

    void fourthInsertThatFailsTakesTheThreeBeforeItAlong_data()
    {
        QTest::addColumn<QString>("resolution");
        for (const char *resolution : {"FAIL", "ABORT", "ROLLBACK"})
            QTest::newRow(resolution) << QString::fromLatin1(resolution);
    }

    void fourthInsertThatFailsTakesTheThreeBeforeItAlong()
    {
        QFETCH(const QString, resolution);
        const SafeFile file;
        file.workspace.execute(failsTheFourth.arg(resolution));
        const ImportResult result = applyImport(fiveRows());
        const QString message =
            u"Import failed inserting fuel detail: no fourth row Unable to fetch row"_s;
        failed(result, message);
        QCOMPARE(result.fuelDetailRows, 3);
        QCOMPARE(result.skippedRows, 1);
        QCOMPARE(result.details,
                 QStringList({u"Skipped row for missing trip '99': Truck Fuel"_s, message}));
        file.isUntouched();
    }

    void failedImportCanBeTriedAgain()
    {
        const SafeFile file;
        file.workspace.execute(failsTheFourth.arg(u"ABORT"_s));
        QCOMPARE(applyImport(fiveRows()).success, false);
        file.workspace.execute(u"DROP TRIGGER fourth"_s);
        const ImportResult result = applyImport(fiveRows());
        QCOMPARE(result.success, true);
        QCOMPARE(result.fuelDetailRows, 4);
        QCOMPARE(fuelRows(file.workspace).size(), 1 + 4);
        QCOMPARE(loggedImportCount(file.workspace), 1);
    }

    void tablesThatWereMadeSurviveAFailure()
    {
        const SafeFile file;
        file.workspace.execute(u"DROP TABLE settlement_import_log"_s);
        file.workspace.execute(failsTheFourth.arg(u"ABORT"_s));
        QCOMPARE(applyImport(fiveRows()).success, false);
        QCOMPARE(file.workspace.value(u"SELECT COUNT(*) FROM sqlite_master "
                                      "WHERE tbl_name = 'settlement_import_log'"_s),
                 4);
        QCOMPARE(loggedImportCount(file.workspace), 0);
    }

    void rowsWithoutALogAreTakenBack()
    {
        const SafeFile file;
        file.workspace.execute(u"CREATE TRIGGER closed BEFORE INSERT ON settlement_import_log "
                               "BEGIN SELECT RAISE(FAIL, 'the log is closed'); END"_s);
        const ImportResult result = applyImport(fiveRows());
        failed(result,
               u"Import failed writing import log: the log is closed Unable to fetch row"_s);
        QCOMPARE(result.fuelDetailRows, 4);
        QCOMPARE(result.skippedRows, 1);
        file.isUntouched();
    }

    void logThatLacksAColumnTakesTheRowsBack()
    {
        const SafeFile file;
        file.workspace.execute(u"ALTER TABLE settlement_import_log DROP COLUMN counts_json"_s);
        const ImportResult result = applyImport(reviewed());
        failed(result, u"Import failed writing import log: table settlement_import_log has no "
                       "column named counts_json Unable to execute statement"_s);
        QCOMPARE(result.fuelDetailRows, 1);
        file.isUntouched();
    }

    void detailTableThatLacksAColumnTakesNoRow()
    {
        const SafeFile file;
        file.workspace.execute(u"ALTER TABLE trip_detail_items DROP COLUMN created_at"_s);
        const ImportResult result = applyImport(reviewed());
        failed(result, u"Import failed inserting fuel detail: table trip_detail_items has no "
                       "column named created_at Unable to execute statement"_s);
        QCOMPARE(result.fuelDetailRows, 0);
        file.isUntouched();
    }

    void importThatCannotBeginWritesNothing()
    {
        const SafeFile file;
        {
            const OpeningStatement begunAlready(u"BEGIN"_s);
            failed(applyImport(reviewed()),
                   u"Import blocked: could not start database transaction: cannot start a "
                   "transaction within a transaction Unable to begin transaction"_s);
        }
        file.isUntouched();
    }

    void duplicateIsToldBeforeATransactionIsBegun()
    {
        const SafeFile file;
        insertHistory(file.workspace);
        const OpeningStatement begunAlready(u"BEGIN"_s);
        failed(applyImport(reviewed()),
               u"Duplicate blocked: PDF name 'week16.pdf' was already imported for payweek "
               "04/18/2026 as history ID 1 on 2026-04-20 14:05:09."_s);
    }

    void commitThatBreaksAForeignKeyFails()
    {
        const SafeFile file;
        file.workspace.execute(u"CREATE TABLE owed (trip_id INTEGER REFERENCES trips(id) "
                               "DEFERRABLE INITIALLY DEFERRED)"_s);
        file.workspace.execute(u"CREATE TRIGGER owing AFTER INSERT ON settlement_import_log "
                               "BEGIN INSERT INTO owed VALUES (99); END"_s);
        {
            const OpeningStatement enforced(u"PRAGMA foreign_keys = ON"_s);
            const ImportResult result = applyImport(reviewed());
            failed(result, u"Import failed committing transaction: FOREIGN KEY constraint failed "
                           "Unable to commit transaction"_s);
            QCOMPARE(result.fuelDetailRows, 1);
        }
        QCOMPARE(file.workspace.value(u"SELECT COUNT(*) FROM owed"_s), 0);
        file.workspace.execute(u"DROP TABLE owed"_s);
        file.isUntouched();
    }

    void commitInTheWayOfAReaderFails()
    {
        const SafeFile file;
        {
            const TestConnection reader(file.workspace.path(u"trips.db"_s), u"reader"_s);
            reader.execute(u"BEGIN"_s);
            QCOMPARE(reader.value(u"SELECT COUNT(*) FROM trips"_s), 1);
            const OpeningStatement impatient(u"PRAGMA busy_timeout = 0"_s);
            failed(applyImport(reviewed()),
                   u"Import failed committing transaction: database is locked Unable to commit "
                   "transaction"_s);
        }
        file.isUntouched();
    }

    void commitThatTheDiskDoesNotTakeFails()
    {
        const SafeFile file;
        const qint64 size = file.workspace.bytes(u"trips.db"_s).size();
        ImportResult result;
        {
            const FileSizeLimit full(size);
            result = applyImport(longRow());
        }
        failed(result, u"Import failed committing transaction: disk I/O error Unable to commit "
                       "transaction"_s);
        file.isUntouched();
        QCOMPARE(file.workspace.bytes(u"trips.db"_s).size(), size);
    }

    void fullDatabaseTakesNoRow()
    {
        const SafeFile file;
        {
            const OpeningStatement full(u"PRAGMA max_page_count = 1"_s);
            failed(applyImport(longRow()),
                   u"Import failed inserting fuel detail: database or disk is full Unable to fetch "
                   "row"_s);
        }
        file.isUntouched();
    }

    // The lookup of the first trip has made a reader of the import by then, and for a reader that
    // wants to write SQLite does not wait.
    void importBesideAnotherWriterGivesUp()
    {
        const SafeFile file;
        {
            const TestConnection writer(file.workspace.path(u"trips.db"_s), u"writer"_s);
            writer.execute(u"BEGIN IMMEDIATE"_s);
            failed(applyImport(reviewed()), u"Import failed inserting fuel detail: database is "
                                            "locked Unable to fetch row"_s);
            QCOMPARE(QSqlDatabase::connectionNames(), QStringList(u"writer"_s));
            QCOMPARE(writer.tries(u"COMMIT"_s), u""_s);
        }
        file.isUntouched();
    }

    void fileThatAnotherHasLockedCannotTakeTheTables()
    {
        const SafeFile file;
        {
            const TestConnection writer(file.workspace.path(u"trips.db"_s), u"writer"_s);
            writer.execute(u"BEGIN EXCLUSIVE"_s);
            const OpeningStatement impatient(u"PRAGMA busy_timeout = 0"_s);
            failed(applyImport(reviewed()), u"Import blocked: could not ensure import tables: "
                                            "database is locked Unable to execute statement"_s);
            failed(previewImport(reviewed()), u"Dry-run blocked: could not ensure import tables: "
                                              "database is locked Unable to execute statement"_s);
        }
        file.isUntouched();
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_ImportRepositoryFaults)
#include "tst_ImportRepositoryFaults.moc"
