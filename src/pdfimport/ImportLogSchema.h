#pragma once

#include <QLatin1StringView>

/// The tables and indexes that an import needs, for files that lack them: the log came to the
/// product later than trips did. On one line each, for SQLite keeps the text of a table as it was
/// made.
namespace ImportLogSchema {

inline constexpr QLatin1StringView createDetailItems(
    "CREATE TABLE IF NOT EXISTS trip_detail_items (id INTEGER PRIMARY KEY AUTOINCREMENT, "
    "trip_id INTEGER NOT NULL, group_name TEXT NOT NULL DEFAULT '', item_type TEXT NOT "
    "NULL DEFAULT '', cost REAL NOT NULL DEFAULT 0, discount REAL NOT NULL DEFAULT 0, "
    "gallons REAL NOT NULL DEFAULT 0, created_at TEXT NOT NULL DEFAULT '')");

inline constexpr QLatin1StringView
    createLog("CREATE TABLE IF NOT EXISTS settlement_import_log (id INTEGER PRIMARY KEY "
              "AUTOINCREMENT, truck_number TEXT NOT NULL DEFAULT '', payweek TEXT NOT NULL DEFAULT "
              "'', pdf_name TEXT NOT NULL DEFAULT '', source_hash TEXT NOT NULL DEFAULT '', "
              "created_at TEXT NOT NULL DEFAULT '', import_mode TEXT NOT NULL DEFAULT '', "
              "counts_json TEXT NOT NULL DEFAULT '', payload_json TEXT NOT NULL DEFAULT '')");

inline constexpr QLatin1StringView
    indexTruckAndPayweek("CREATE INDEX IF NOT EXISTS ix_settlement_import_log_truck_payweek ON "
                         "settlement_import_log(truck_number, payweek)");

inline constexpr QLatin1StringView
    indexSourceHash("CREATE INDEX IF NOT EXISTS ix_settlement_import_log_source_hash ON "
                    "settlement_import_log(source_hash)");

inline constexpr QLatin1StringView
    indexPayweekAndName("CREATE INDEX IF NOT EXISTS ix_settlement_import_log_pdf_payweek ON "
                        "settlement_import_log(payweek, pdf_name)");

inline constexpr QLatin1StringView
    indexDetailItems("CREATE INDEX IF NOT EXISTS ix_trip_detail_items_trip_group ON "
                     "trip_detail_items(trip_id, group_name)");

} // namespace ImportLogSchema
