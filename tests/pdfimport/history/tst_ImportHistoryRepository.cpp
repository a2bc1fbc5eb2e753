#include "pdfimport/ConnectionLeftBehind.h"
#include "pdfimport/history/HistoryRows.h"
#include "pdfimport/history/ImportHistoryRepository.h"
#include "support/TestProgram.h"

#include <QDateTime>
#include <QDir>
#include <QSqlDatabase>
#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

using Call = std::function<void(QString &error)>;

const QString notFound = u"trips.db was not found near the application."_s;
const QString staleError = u"of the call before"_s;

/// The log's tables and indexes, without those that SQLite makes for itself.
QList<QStringList> schemaOfLog(const Workspace &workspace)
{
    return workspace.rows(u"SELECT type, name FROM sqlite_master WHERE tbl_name = "
                          "'settlement_import_log' ORDER BY type DESC, name"_s);
}

/// Puts an older log in the place of the one that the product makes.
void replaceLog(const Workspace &workspace, const QString &create)
{
    workspace.execute(u"DROP TABLE settlement_import_log"_s);
    workspace.execute(create);
}

/// Lets every insert into the log, or every delete from it, fail.
void forbid(const Workspace &workspace, const QString &action)
{
    workspace.execute(u"CREATE TRIGGER forbidden BEFORE %1 ON settlement_import_log "
                      "BEGIN SELECT RAISE(ABORT, 'the log is full'); END"_s.arg(action));
}

/// Ways in which a file can be of no use.
void addUnusableFiles()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("message");
    QTest::newRow("no file") << u"none"_s << notFound;
    QTest::newRow("a directory") << u"directory"_s
                                 << u"unable to open database file Error opening database"_s;
    QTest::newRow("random bytes") << u"bytes"_s
                                  << u"file is not a database Unable to execute statement"_s;
}

void makeUnusable(const Workspace &workspace, const QString &kind)
{
    if (kind == "directory"_L1)
        QDir().mkpath(workspace.path(u"trips.db"_s));
    else if (kind == "bytes"_L1)
        workspace.makeFile(u"trips.db"_s, QByteArray(4096, 'x'));
}

} // namespace

class tst_ImportHistoryRepository : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void missingTableIsMadeWithTwoIndexes()
    {
        Workspace workspace;
        workspace.makeTrips();
        workspace.execute(u"DROP TABLE settlement_import_log"_s);
        QString error = staleError;
        QVERIFY(ImportHistoryRepository::ensureTable(error));
        QCOMPARE(error, QString());
        QCOMPARE(schemaOfLog(workspace),
                 QList<QStringList>({{u"table"_s, u"settlement_import_log"_s},
                                     {u"index"_s, u"ix_settlement_import_log_source_hash"_s},
                                     {u"index"_s, u"ix_settlement_import_log_truck_payweek"_s}}));
        QCOMPARE(workspace.rows(u"SELECT name, type, \"notnull\", dflt_value FROM "
                                "pragma_table_info('settlement_import_log') WHERE cid IN (0, 8)"_s),
                 QList<QStringList>({{u"id"_s, u"INTEGER"_s, u"0"_s, QString()},
                                     {u"payload_json"_s, u"TEXT"_s, u"1"_s, u"''"_s}}));
    }

    void idOfADeletedRowIsNeverGivenAgain()
    {
        using namespace ImportHistoryRepository;
        Workspace workspace;
        workspace.makeTrips();
        workspace.execute(u"DROP TABLE settlement_import_log"_s);
        QString error;
        QVERIFY(logDatabaseActivity(u"Export Database"_s, u"trips.db"_s, u"done"_s, error));
        QVERIFY(deleteRow(1, error));
        QVERIFY(logDatabaseActivity(u"Export Database"_s, u"trips.db"_s, u"done"_s, error));
        QCOMPARE(historyIds(workspace), QList<QStringList>({{u"2"_s}}));
    }

    void existingRowsStayWhenTheTableIsEnsured()
    {
        Workspace workspace;
        workspace.makeTrips();
        insertHistory(workspace);
        QString error;
        QVERIFY(ImportHistoryRepository::ensureTable(error));
        QVERIFY(ImportHistoryRepository::ensureTable(error));
        QCOMPARE(historyIds(workspace), QList<QStringList>({{u"1"_s}}));
    }

    void unusableFileFailsEveryCall_data() { addUnusableFiles(); }

    void unusableFileFailsEveryCall()
    {
        using namespace ImportHistoryRepository;
        QFETCH(const QString, kind);
        QFETCH(const QString, message);
        const Workspace workspace;
        makeUnusable(workspace, kind);
        const QStringList before = QDir().entryList();
        QString error = staleError;
        QVERIFY(!ensureTable(error));
        QCOMPARE(error, message);
        error = staleError;
        QCOMPARE(loadRows(error).size(), 0);
        QCOMPARE(error, message);
        error = staleError;
        QVERIFY(!logDatabaseActivity(u"Export Database"_s, u"trips.db"_s, u"done"_s, error));
        QCOMPARE(error, message);
        error = staleError;
        QVERIFY(!deleteRow(1, error));
        QCOMPARE(error, message);
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
        QCOMPARE(QDir().entryList(), before);
    }

    void indexesThatCannotBeMadeAreNoFailure()
    {
        Workspace workspace;
        workspace.makeTrips();
        replaceLog(workspace, u"CREATE TABLE settlement_import_log (id INTEGER PRIMARY KEY, "
                              "pdf_name TEXT)"_s);
        QString error = staleError;
        QVERIFY(ImportHistoryRepository::ensureTable(error));
        QCOMPARE(error, QString());
        QCOMPARE(schemaOfLog(workspace),
                 QList<QStringList>({{u"table"_s, u"settlement_import_log"_s}}));
    }

    void logOfAnOlderShapeCannotBeRead()
    {
        Workspace workspace;
        workspace.makeTrips();
        replaceLog(workspace, u"CREATE TABLE settlement_import_log (id INTEGER PRIMARY KEY, "
                              "pdf_name TEXT)"_s);
        workspace.execute(u"INSERT INTO settlement_import_log (pdf_name) VALUES ('old.pdf')"_s);
        QString error;
        QCOMPARE(ImportHistoryRepository::loadRows(error).size(), 0);
        QCOMPARE(error, u"no such column: created_at Unable to execute statement"_s);
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
    }

    void newestRowComesFirst()
    {
        Workspace workspace;
        workspace.makeTrips();
        for (const QString &name : {u"first.pdf"_s, u"second.pdf"_s, u"third.pdf"_s})
            insertHistory(workspace, {.pdfName = name, .createdAt = u"2026-01-01 00:00:00"_s});
        QString error = staleError;
        QStringList loaded;
        for (const ImportHistoryRow &row : ImportHistoryRepository::loadRows(error))
            loaded.append(u"%1 %2"_s.arg(QString::number(row.id), row.pdfName));
        QCOMPARE(loaded, QStringList({u"3 third.pdf"_s, u"2 second.pdf"_s, u"1 first.pdf"_s}));
        QCOMPARE(error, QString());
    }

    void emptyLogIsNoFailure()
    {
        Workspace workspace;
        workspace.makeTrips();
        QString error = staleError;
        QCOMPARE(ImportHistoryRepository::loadRows(error).size(), 0);
        QCOMPARE(error, QString());
    }

    void columnsAreReadAsTheyStand()
    {
        Workspace workspace;
        workspace.makeTrips();
        insertHistory(workspace, {.truck = u" 4417 "_s, .pdfName = u" week16.pdf "_s});
        QString error;
        const ImportHistoryRow row = ImportHistoryRepository::loadRows(error).value(0);
        QCOMPARE(row.id, 1);
        QCOMPARE(row.createdAt, u"2026-04-20 14:05:09"_s);
        QCOMPARE(row.payweek, u"04/18/2026"_s);
        QCOMPARE(row.truckNumber, u" 4417 "_s);
        QCOMPARE(row.pdfName, u" week16.pdf "_s);
        QCOMPARE(row.importMode, u"fuel_def_only"_s);
        QCOMPARE(row.countsJson, uR"({"fuel_detail":2,"skipped":1})"_s);
        QCOMPARE(row.payloadJson, uR"({"enabled_row_count":3})"_s);
        QCOMPARE(row.sourceHash, u"5ea1"_s);
    }

    void actionDatabaseAndDetailsAreDerived_data()
    {
        QTest::addColumn<QString>("sourceHash");
        QTest::addColumn<QString>("mode");
        QTest::addColumn<QStringList>("derived");
        const QString activity = u"database_activity"_s;
        QTest::newRow("import") << u"5ea1"_s << u" fuel_def_only "_s
                                << QStringList({u"fuel_def_only"_s, u"PDF Import"_s});
        QTest::newRow("import without a mode")
            << u"5ea1"_s << u"  "_s << QStringList({u"PDF Import"_s, u"PDF Import"_s});
        QTest::newRow("import without a hash")
            << u""_s << u"full"_s << QStringList({u"full"_s, u"PDF Import"_s});
        QTest::newRow("activity") << activity << u" Export Database "_s
                                  << QStringList({u"Export Database"_s, u"trips.db"_s});
        QTest::newRow("activity with an empty mode shows Database Activity")
            << activity << u""_s << QStringList({u"Database Activity"_s, u"trips.db"_s});
        QTest::newRow("activity with a blank mode")
            << activity << u"  "_s << QStringList({u"Database Activity"_s, u"trips.db"_s});
        QTest::newRow("marker in capitals counts as activity")
            << u"DATABASE_ACTIVITY"_s << u""_s
            << QStringList({u"Database Activity"_s, u"trips.db"_s});
        QTest::newRow("marker with blanks is none")
            << u" database_activity "_s << u""_s << QStringList({u"PDF Import"_s, u"PDF Import"_s});
    }

    void actionDatabaseAndDetailsAreDerived()
    {
        QFETCH(const QString, sourceHash);
        QFETCH(const QString, mode);
        QFETCH(const QStringList, derived);
        Workspace workspace;
        workspace.makeTrips();
        insertHistory(workspace, {.truck = u" trips.db "_s,
                                  .pdfName = u" what was done "_s,
                                  .sourceHash = sourceHash,
                                  .importMode = mode});
        QString error;
        const ImportHistoryRow row = ImportHistoryRepository::loadRows(error).value(0);
        QCOMPARE(QStringList({row.action, row.database}), derived);
        QCOMPARE(row.details, u"what was done"_s);
        QCOMPARE(row.isDatabaseActivity, derived.last() == "trips.db"_L1);
    }

    void activityIsLoggedWithTrimmedTexts()
    {
        Workspace workspace;
        workspace.makeTrips();
        QString error = staleError;
        QVERIFY(ImportHistoryRepository::logDatabaseActivity(
            u" Export Database\n"_s, u"\ttrips.db "_s, u" to /media/stick "_s, error));
        QCOMPARE(error, QString());
        QCOMPARE(
            workspace.rows(u"SELECT truck_number, payweek, pdf_name, source_hash, import_mode, "
                           "counts_json, payload_json FROM settlement_import_log"_s),
            QList<QStringList>({{u"trips.db"_s, u""_s, u"to /media/stick"_s, u"database_activity"_s,
                                 u"Export Database"_s, u""_s, u"to /media/stick"_s}}));
    }

    void blankActivityIsLoggedToo()
    {
        Workspace workspace;
        workspace.makeTrips();
        QString error;
        QVERIFY(ImportHistoryRepository::logDatabaseActivity({}, {}, {}, error));
        QCOMPARE(workspace.rows(u"SELECT truck_number, pdf_name, import_mode, payload_json FROM "
                                "settlement_import_log"_s),
                 QList<QStringList>({{u""_s, u""_s, u""_s, u""_s}}));
    }

    void activityIsDatedInUtc()
    {
        Workspace workspace;
        workspace.makeTrips();
        QString error;
        const QDateTime before = QDateTime::currentDateTimeUtc();
        QVERIFY(ImportHistoryRepository::logDatabaseActivity(u"Import Database"_s, u"trips.db"_s,
                                                             u"done"_s, error));
        const QString created = ImportHistoryRepository::loadRows(error).value(0).createdAt;
        QDateTime logged = QDateTime::fromString(created, u"yyyy-MM-dd HH:mm:ss"_s);
        logged.setTimeSpec(Qt::UTC);
        QVERIFY2(qAbs(before.secsTo(logged)) < 60, qPrintable(created));
    }

    void failedLogTellsWhatSqliteSays()
    {
        Workspace workspace;
        workspace.makeTrips();
        forbid(workspace, u"INSERT"_s);
        QString error;
        QVERIFY(!ImportHistoryRepository::logDatabaseActivity(u"Export Database"_s, u"trips.db"_s,
                                                              u"done"_s, error));
        QCOMPARE(error, u"the log is full Unable to fetch row"_s);
        QCOMPARE(historyIds(workspace), QList<QStringList>());
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
    }

    void deleteRemovesTheOneRow()
    {
        Workspace workspace;
        workspace.makeTrips();
        for (int row = 0; row < 3; ++row)
            insertHistory(workspace);
        QString error = staleError;
        QVERIFY(ImportHistoryRepository::deleteRow(2, error));
        QCOMPARE(error, QString());
        QCOMPARE(historyIds(workspace), QList<QStringList>({{u"1"_s}, {u"3"_s}}));
    }

    void idBelowOneIsInvalid_data()
    {
        QTest::addColumn<int>("id");
        QTest::newRow("zero") << 0;
        QTest::newRow("below zero") << -1;
    }

    void idBelowOneIsInvalid()
    {
        QFETCH(const int, id);
        const Workspace workspace; // without a file: it is not even looked for
        QString error = staleError;
        QVERIFY(!ImportHistoryRepository::deleteRow(id, error));
        QCOMPARE(error, u"Invalid import history row id."_s);
    }

    void deleteOfARowThatIsGoneIsASuccess()
    {
        Workspace workspace;
        workspace.makeTrips();
        insertHistory(workspace);
        QString error = staleError;
        QVERIFY(ImportHistoryRepository::deleteRow(99, error));
        QCOMPARE(error, QString());
        QCOMPARE(historyIds(workspace), QList<QStringList>({{u"1"_s}}));
    }

    void failedDeleteTellsWhatSqliteSays()
    {
        Workspace workspace;
        workspace.makeTrips();
        insertHistory(workspace);
        forbid(workspace, u"DELETE"_s);
        QString error;
        QVERIFY(!ImportHistoryRepository::deleteRow(1, error));
        QCOMPARE(error, u"the log is full Unable to fetch row"_s);
        QCOMPARE(historyIds(workspace), QList<QStringList>({{u"1"_s}}));
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
    }

    void connectionLeftBehindIsReplaced_data()
    {
        using namespace ImportHistoryRepository;
        QTest::addColumn<Call>("call");
        QTest::newRow("import_history_ensure_connection")
            << Call([](QString &error) { ensureTable(error); });
        QTest::newRow("import_history_load_connection")
            << Call([](QString &error) { loadRows(error); });
        QTest::newRow("database_activity_log_connection") << Call([](QString &error) {
            logDatabaseActivity(u"Export Database"_s, u"trips.db"_s, u"done"_s, error);
        });
        QTest::newRow("import_history_delete_connection")
            << Call([](QString &error) { deleteRow(1, error); });
    }

    void connectionLeftBehindIsReplaced()
    {
        QFETCH(const Call, call);
        Workspace workspace;
        workspace.makeTrips();
        leaveBehind(QString::fromLatin1(QTest::currentDataTag()), workspace.makeLocations());
        QString error = staleError;
        call(error);
        QCOMPARE(error, QString());
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
    }

    void noConnectionIsLeftBehind()
    {
        using namespace ImportHistoryRepository;
        Workspace workspace;
        workspace.makeTrips();
        QString error;
        QVERIFY(ensureTable(error));
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
        QVERIFY(logDatabaseActivity(u"Export Database"_s, u"trips.db"_s, u"done"_s, error));
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
        QCOMPARE(loadRows(error).size(), 1);
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
        QVERIFY(deleteRow(1, error));
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_ImportHistoryRepository)
#include "tst_ImportHistoryRepository.moc"
