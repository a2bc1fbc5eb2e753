#include "pdfimport/history/ImportHistoryRepository.h"

#include "data/DatabaseLocator.h"
#include "data/OneCallConnection.h"
#include "data/SqlStatement.h"
#include "pdfimport/ImportLogSchema.h"

using namespace Qt::StringLiterals;

namespace ImportHistoryRepository {

namespace {

const QString activityMarker = u"database_activity"_s;

constexpr auto selectRows = R"(
SELECT id, created_at, payweek, truck_number, pdf_name, import_mode, counts_json, payload_json,
       source_hash
FROM settlement_import_log
ORDER BY id DESC)"_L1;

constexpr auto insertActivity = R"(
INSERT INTO settlement_import_log (truck_number, payweek, pdf_name, source_hash, created_at,
                                   import_mode, counts_json, payload_json)
VALUES (?, '', ?, 'database_activity', datetime('now'), ?, '', ?))"_L1;

constexpr auto deleteById = R"(
DELETE FROM settlement_import_log
WHERE id = ?)"_L1;

QString pathOfTrips()
{
    return DatabaseLocator::findDatabaseNearApplication(DatabaseLocator::tripsFileName);
}

ImportHistoryRow rowOf(const SqlStatement &row)
{
    ImportHistoryRow entry{.id = row.integer(0),
                           .createdAt = row.text(1),
                           .payweek = row.text(2),
                           .truckNumber = row.text(3),
                           .pdfName = row.text(4),
                           .importMode = row.text(5),
                           .countsJson = row.text(6),
                           .payloadJson = row.text(7),
                           .sourceHash = row.text(8)};
    entry.isDatabaseActivity = entry.sourceHash.compare(activityMarker, Qt::CaseInsensitive) == 0;
    const QString otherwise = entry.isDatabaseActivity ? u"Database Activity"_s : u"PDF Import"_s;
    const QString mode = entry.importMode.trimmed();
    entry.action = mode.isEmpty() ? otherwise : mode;
    entry.database = entry.isDatabaseActivity ? entry.truckNumber.trimmed() : u"PDF Import"_s;
    entry.details = entry.pdfName.trimmed();
    return entry;
}

} // namespace

bool ensureTable(QString &error)
{
    const QString path = pathOfTrips();
    if (path.isEmpty()) {
        error = u"trips.db was not found near the application."_s;
        return false;
    }
    const OneCallConnection trips(u"import_history_ensure_connection"_s, path, error);
    if (!trips.isOpen() || !runSql(trips.database(), ImportLogSchema::createLog, {}, error))
        return false;
    // The log serves without its indexes, only slower.
    QString ignored;
    runSql(trips.database(), ImportLogSchema::indexTruckAndPayweek, {}, ignored);
    runSql(trips.database(), ImportLogSchema::indexSourceHash, {}, ignored);
    return true;
}

QList<ImportHistoryRow> loadRows(QString &error)
{
    if (!ensureTable(error))
        return {};
    const OneCallConnection trips(u"import_history_load_connection"_s, pathOfTrips(), error);
    QList<ImportHistoryRow> rows;
    const bool loaded = trips.isOpen()
                        && SqlStatement(trips.database(), selectRows)
                               .forEachRow({}, error, [&rows](const SqlStatement &row) {
                                   rows.append(rowOf(row));
                               });
    return loaded ? rows : QList<ImportHistoryRow>();
}

bool logDatabaseActivity(const QString &action, const QString &databaseName, const QString &details,
                         QString &error)
{
    if (!ensureTable(error))
        return false;
    const OneCallConnection trips(u"database_activity_log_connection"_s, pathOfTrips(), error);
    const QString text = details.trimmed();
    return trips.isOpen()
           && runSql(trips.database(), insertActivity,
                     {databaseName.trimmed(), text, action.trimmed(), text}, error);
}

bool deleteRow(int id, QString &error)
{
    if (id < 1) {
        error = u"Invalid import history row id."_s;
        return false;
    }
    if (!ensureTable(error))
        return false;
    const OneCallConnection trips(u"import_history_delete_connection"_s, pathOfTrips(), error);
    return trips.isOpen() && runSql(trips.database(), deleteById, {id}, error);
}

} // namespace ImportHistoryRepository
