#include "bench/ImportFloors.h"

#include "bench/BareParts.h"
#include "data/DatabaseLocator.h"
#include "data/OneCallConnection.h"
#include "data/SqlStatement.h"
#include "data/SqlTransaction.h"
#include "pdfimport/ImportLogSchema.h"
#include "pdfimport/ImportSignatures.h"

using namespace Qt::StringLiterals;
using namespace BareParts;

namespace {

constexpr auto sameContent = R"(
SELECT id, created_at, payweek, pdf_name FROM settlement_import_log
WHERE source_hash = ? AND TRIM(COALESCE(source_hash,'')) <> '' LIMIT 1)"_L1;

constexpr auto sameName = R"(
SELECT id, created_at FROM settlement_import_log WHERE payweek = ? AND pdf_name = ? LIMIT 1)"_L1;

constexpr auto sameRows = R"(
SELECT id, created_at, pdf_name FROM settlement_import_log
WHERE payweek = ? AND truck_number = ? AND payload_json LIKE ? LIMIT 1)"_L1;

constexpr auto tripByNumber = R"(
SELECT id FROM trips WHERE TRIM(COALESCE(trip_no,'')) = ? LIMIT 1)"_L1;

constexpr auto insertFuel = R"(
INSERT INTO trip_detail_items (trip_id, group_name, item_type, cost, discount, gallons, created_at)
VALUES (?, 'fuel', ?, ?, ?, ?, datetime('now')))"_L1;

constexpr auto insertLog = R"(
INSERT INTO settlement_import_log (truck_number, payweek, pdf_name, source_hash, created_at,
                                   import_mode, counts_json, payload_json)
VALUES (?, ?, ?, ?, datetime('now'), 'fuel_def_only', '', ?))"_L1;

constexpr auto logRows = R"(
SELECT id, created_at, payweek, truck_number, pdf_name, import_mode, counts_json, payload_json,
       source_hash
FROM settlement_import_log ORDER BY id DESC)"_L1;

constexpr int historyColumns = 5;

OneCallConnection trips()
{
    QString error;
    return {u"floor_of_an_import"_s, DatabaseLocator::tripsFileName, error};
}

void checkTablesAndGuards(const QSqlDatabase &database, const ImportFloors::SignedImport &import)
{
    using namespace ImportLogSchema;
    for (const QLatin1StringView sql : {createDetailItems, createLog, indexTruckAndPayweek,
                                        indexSourceHash, indexPayweekAndName, indexDetailItems})
        execute(database, sql);
    const QString &payweek = import.parsed.payweek;
    rowsOf(database, sameContent, {import.sourceHash});
    rowsOf(database, sameName, {payweek, import.pdfName});
    rowsOf(database, sameRows,
           {payweek, import.parsed.truckNumber,
            "%\"review_signature\":\""_L1 + import.reviewSignature + "\"%"_L1});
}

void insertRows(const QSqlDatabase &database, const SettlementParseResult &parsed)
{
    SqlStatement trip(database, tripByNumber);
    SqlStatement insert(database, insertFuel);
    QVariant id;
    QString error;
    for (const FuelReviewRow &row : parsed.rows) {
        if (!trip.firstValue({row.tripNo}, id, error)
            || !insert.run({id, row.description, row.cost, row.discount, row.gallons}, error))
            qFatal("%s", qPrintable(error));
    }
}

} // namespace

namespace ImportFloors {

SignedImport signedImport(const SettlementParseResult &parsed)
{
    const QString signature = ImportSignatures::reviewSignature(parsed);
    const QString hash = ImportSignatures::sourceHash(parsed, signature);
    return {parsed, ImportSignatures::pdfName(parsed), signature, hash,
            ImportSignatures::payloadJson(parsed, hash, signature)};
}

void dryRun(const SignedImport &import)
{
    const OneCallConnection connection = trips();
    checkTablesAndGuards(connection.database(), import);
    SqlStatement trip(connection.database(), tripByNumber);
    for (const FuelReviewRow &row : import.parsed.rows)
        readAll(trip, {row.tripNo});
}

void apply(const SignedImport &import)
{
    const OneCallConnection connection = trips();
    const QSqlDatabase &database = connection.database();
    checkTablesAndGuards(database, import);
    QString error;
    SqlTransaction transaction(database);
    transaction.begin(error);
    insertRows(database, import.parsed);
    execute(database, insertLog,
            {import.parsed.truckNumber, import.parsed.payweek, import.pdfName, import.sourceHash,
             import.payloadJson});
    if (!transaction.commit(error))
        qFatal("%s", qPrintable(error));
}

void history(QTableWidget &table)
{
    using namespace ImportLogSchema;
    {
        const OneCallConnection connection = trips();
        for (const QLatin1StringView sql : {createLog, indexTruckAndPayweek, indexSourceHash})
            execute(connection.database(), sql);
    }
    const OneCallConnection connection = trips();
    fill(table, rowsOf(connection.database(), logRows), historyColumns);
}

} // namespace ImportFloors
