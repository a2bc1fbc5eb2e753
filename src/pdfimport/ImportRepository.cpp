#include "pdfimport/ImportRepository.h"

#include "data/DatabaseLocator.h"
#include "data/OneCallConnection.h"
#include "data/SqlStatement.h"
#include "data/SqlTransaction.h"
#include "pdfimport/ImportGuards.h"
#include "pdfimport/ImportLogSchema.h"
#include "pdfimport/ImportSignatures.h"
#include "pdfimport/SettlementParser.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace ImportRepository {

namespace {

constexpr auto selectTripByNumber = R"(
SELECT id
FROM trips
WHERE TRIM(COALESCE(trip_no,'')) = ?
LIMIT 1)"_L1;

constexpr auto insertFuelDetail = R"(
INSERT INTO trip_detail_items (trip_id, group_name, item_type, cost, discount, gallons, created_at)
VALUES (?, 'fuel', ?, ?, ?, ?, datetime('now')))"_L1;

constexpr auto insertLog = R"(
INSERT INTO settlement_import_log (truck_number, payweek, pdf_name, source_hash, created_at,
                                   import_mode, counts_json, payload_json)
VALUES (?, ?, ?, ?, datetime('now'), 'fuel_def_only', ?, ?))"_L1;

QString orBlank(const QString &text)
{
    return text.isEmpty() ? u"(blank)"_s : text;
}

QString describedAs(const FuelReviewRow &row, const QString &otherwise)
{
    const QString description = row.description.trimmed();
    return description.isEmpty() ? otherwise : description;
}

bool ensureImportTables(const QSqlDatabase &database, QString &error)
{
    using namespace ImportLogSchema;
    for (const QLatin1StringView sql : {createDetailItems, createLog, indexTruckAndPayweek,
                                        indexSourceHash, indexPayweekAndName, indexDetailItems}) {
        if (!runSql(database, sql, {}, error))
            return false;
    }
    return true;
}

/// Tells what becomes of a row under review. A number that cannot be looked up belongs to no trip.
class RowSorter
{
public:
    enum class Outcome { Inserted, SwitchedOff, OtherRoute, MissingTrip };

    explicit RowSorter(const QSqlDatabase &database)
        : selectTrip(database, selectTripByNumber)
    {
    }

    /// `tripId` is set only for a row to insert.
    Outcome outcomeOf(const FuelReviewRow &row, int &tripId)
    {
        if (!row.enabled)
            return Outcome::SwitchedOff;
        if (row.route.trimmed() != FuelReviewWords::fuelDetail)
            return Outcome::OtherRoute;
        QVariant id;
        QString ignored;
        selectTrip.firstValue({row.tripNo.trimmed()}, id, ignored);
        tripId = id.toInt();
        return tripId >= 1 ? Outcome::Inserted : Outcome::MissingTrip;
    }

private:
    SqlStatement selectTrip;
};

using Outcome = RowSorter::Outcome;

/// What a dry run and an import have in common: the settlement, the file, and all that must hold
/// before a row is looked at.
class CheckedImport
{
public:
    CheckedImport(const SettlementParseResult &settlement, const QString &connectionName)
        : parsed(settlement)
        , name(connectionName)
    {
    }

    /// Looks at the settlement, opens the file, makes the tables that it lacks, and asks the
    /// guards. Gives the first thing that stands in the way of an import, behind `blocked` unless
    /// a guard words it; empty if nothing does.
    [[nodiscard]] QString openAndCheck(const QString &blocked);

    [[nodiscard]] const QSqlDatabase &database() const { return trips->database(); }

    const SettlementParseResult &parsed;
    QString path;
    QString reviewSignature;
    QString sourceHash;

private:
    QString name;
    std::unique_ptr<OneCallConnection> trips;
};

QString CheckedImport::openAndCheck(const QString &blocked)
{
    if (parsed.payweek.trimmed().isEmpty())
        return blocked + "parsed payweek is blank."_L1;
    if (ImportSignatures::enabledRowCount(parsed) == 0)
        return blocked + "no enabled review rows."_L1;
    path = DatabaseLocator::findDatabaseNearApplication(DatabaseLocator::tripsFileName);
    if (path.isEmpty())
        return blocked + "trips.db was not found near the application."_L1;
    QString error;
    trips = std::make_unique<OneCallConnection>(name, path, error);
    if (!trips->isOpen())
        return blocked + "could not open trips.db: "_L1 + error;
    if (!ensureImportTables(database(), error))
        return blocked + "could not ensure import tables: "_L1 + error;
    reviewSignature = ImportSignatures::reviewSignature(parsed);
    sourceHash = ImportSignatures::sourceHash(parsed, reviewSignature);
    return ImportGuards::findDuplicate(database(), parsed, sourceHash, reviewSignature, error)
               ? error
               : QString();
}

/// Rows that a dry run would leave out.
struct LeftOut
{
    QStringList missingTrips;
    QStringList unsupportedRoutes;
};

ImportResult failed(ImportResult result, const QString &message)
{
    result.message = message;
    result.details.append(message);
    return result;
}

LeftOut countRows(const CheckedImport &import, ImportResult &result)
{
    LeftOut leftOut;
    RowSorter sorter(import.database());
    for (const FuelReviewRow &row : import.parsed.rows) {
        int tripId = 0;
        const Outcome outcome = sorter.outcomeOf(row, tripId);
        ++(outcome == Outcome::Inserted ? result.fuelDetailRows : result.skippedRows);
        if (outcome == Outcome::OtherRoute)
            leftOut.unsupportedRoutes.append(row.route.trimmed());
        else if (outcome == Outcome::MissingTrip)
            leftOut.missingTrips.append(u"Missing trip '%1': %2"_s.arg(
                row.tripNo.trimmed(), describedAs(row, u"Imported Item"_s)));
    }
    return leftOut;
}

QStringList previewDetails(const CheckedImport &import, const ImportResult &result,
                           const LeftOut &leftOut)
{
    QStringList details = {
        result.message,
        u"Database: %1"_s.arg(import.path),
        u"Payweek: %1"_s.arg(import.parsed.payweek.trimmed()),
        u"Truck: %1"_s.arg(orBlank(import.parsed.truckNumber.trimmed())),
        u"Source hash: %1"_s.arg(import.sourceHash),
        u"Review signature: %1"_s.arg(import.reviewSignature),
        u"Fuel/DEF-only mode: trip revenue, trip expense, and non-trip settlement rows will not be "
        "written."_s,
        u"Would insert Fuel/DEF detail rows: %1"_s.arg(result.fuelDetailRows),
        u"Would skip rows: %1"_s.arg(result.skippedRows)};
    if (!leftOut.missingTrips.isEmpty())
        details << QString() << u"Rows that would be skipped because trip numbers were not found:"_s
                << leftOut.missingTrips;
    if (!leftOut.unsupportedRoutes.isEmpty())
        details << QString() << u"Unsupported routes that would be skipped:"_s
                << leftOut.unsupportedRoutes;
    return details;
}

/// Inserts what can be inserted and tells of what is passed over. False, with the reason, if an
/// insert fails.
bool insertRows(const CheckedImport &import, ImportResult &result, QString &error)
{
    RowSorter sorter(import.database());
    SqlStatement insert(import.database(), insertFuelDetail);
    for (const FuelReviewRow &row : import.parsed.rows) {
        const QString description = describedAs(row, u"Fuel/DEF Item"_s);
        int tripId = 0;
        const Outcome outcome = sorter.outcomeOf(row, tripId);
        if (outcome == Outcome::Inserted
            && !insert.run({tripId, description, row.cost, row.discount, row.gallons}, error))
            return false;
        ++(outcome == Outcome::Inserted ? result.fuelDetailRows : result.skippedRows);
        if (outcome == Outcome::OtherRoute)
            result.details.append("Skipped non-fuel route in Fuel/DEF-only mode: "_L1
                                  + row.route.trimmed());
        else if (outcome == Outcome::MissingTrip)
            result.details.append(
                u"Skipped row for missing trip '%1': %2"_s.arg(row.tripNo, description));
    }
    return true;
}

/// The id of the new row in the log; invalid, with the reason, if there is none.
QVariant writeLog(const CheckedImport &import, const ImportResult &result, QString &error)
{
    const SettlementParseResult &parsed = import.parsed;
    SqlStatement insert(import.database(), insertLog);
    const bool written = insert.run(
        {parsed.truckNumber.trimmed(), parsed.payweek.trimmed(), ImportSignatures::pdfName(parsed),
         import.sourceHash, ImportSignatures::countsJson(result.fuelDetailRows, result.skippedRows),
         ImportSignatures::payloadJson(parsed, import.sourceHash, import.reviewSignature)},
        error);
    return written ? insert.lastInsertId() : QVariant();
}

ImportResult applied(const CheckedImport &import, ImportResult result, int historyId)
{
    result.success = true;
    result.historyId = historyId;
    result.message = u"Fuel/DEF import applied safely. History ID: %1"_s.arg(historyId);
    result.details << result.message << u"Source hash: %1"_s.arg(import.sourceHash)
                   << u"Review signature: %1"_s.arg(import.reviewSignature)
                   << u"Fuel/DEF-only mode wrote no trip revenue, trip expense, or non-trip "
                      "settlement rows."_s
                   << u"Fuel/DEF detail rows: %1"_s.arg(result.fuelDetailRows)
                   << u"Skipped rows: %1"_s.arg(result.skippedRows);
    return result;
}

} // namespace

ImportResult previewImport(const SettlementParseResult &parsed)
{
    ImportResult result;
    CheckedImport import(parsed, u"import_repository_preview_connection"_s);
    if (const QString reason = import.openAndCheck(u"Dry-run blocked: "_s); !reason.isEmpty())
        return failed(result, reason);
    const LeftOut leftOut = countRows(import, result);
    result.success = true;
    result.message = u"Fuel/DEF dry-run preview passed. No database rows were written. Enabled "
                     "rows: %1."_s.arg(ImportSignatures::enabledRowCount(parsed));
    result.details = previewDetails(import, result, leftOut);
    return result;
}

ImportResult applyImport(const SettlementParseResult &parsed)
{
    ImportResult result;
    CheckedImport import(parsed, u"import_repository_connection"_s);
    if (const QString reason = import.openAndCheck(u"Import blocked: "_s); !reason.isEmpty())
        return failed(result, reason);
    QString error;
    SqlTransaction transaction(import.database());
    if (!transaction.begin(error))
        return failed(result, "Import blocked: could not start database transaction: "_L1 + error);
    if (!insertRows(import, result, error))
        return failed(result, "Import failed inserting fuel detail: "_L1 + error);
    const QVariant historyId = writeLog(import, result, error);
    if (!historyId.isValid())
        return failed(result, "Import failed writing import log: "_L1 + error);
    if (!transaction.commit(error))
        return failed(result, "Import failed committing transaction: "_L1 + error);
    return applied(import, result, historyId.toInt());
}

} // namespace ImportRepository
