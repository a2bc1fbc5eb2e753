#pragma once

#include "support/Workspace.h"

/// A row of the log as the file holds it, in the order of its columns behind the id. By itself it
/// is the import of a settlement PDF.
struct HistoryRow
{
    QString truck = QStringLiteral("4417");
    QString payweek = QStringLiteral("04/18/2026");
    QString pdfName = QStringLiteral("week16.pdf");
    QString sourceHash = QStringLiteral("5ea1");
    QString createdAt = QStringLiteral("2026-04-20 14:05:09");
    QString importMode = QStringLiteral("fuel_def_only");
    QString counts = QStringLiteral(R"({"fuel_detail":2,"skipped":1})");
    QString payload = QStringLiteral(R"({"enabled_row_count":3})");
};

/// What an export of a database file leaves.
inline HistoryRow exportOfTrips()
{
    const QString details = QStringLiteral("Exported to /media/stick/trips.db");
    return {.truck = QStringLiteral("trips.db"),
            .payweek = {},
            .pdfName = details,
            .sourceHash = QStringLiteral("database_activity"),
            .createdAt = QStringLiteral("2026-04-21 09:30:00"),
            .importMode = QStringLiteral("Export Database"),
            .counts = {},
            .payload = details};
}

/// Gives the row's id.
inline qint64 insertHistory(const Workspace &workspace, const HistoryRow &row = {})
{
    return workspace.insert(
        QStringLiteral("INSERT INTO settlement_import_log (truck_number, payweek, pdf_name, "
                       "source_hash, created_at, import_mode, counts_json, payload_json) "
                       "VALUES (?, ?, ?, ?, ?, ?, ?, ?)"),
        {row.truck, row.payweek, row.pdfName, row.sourceHash, row.createdAt, row.importMode,
         row.counts, row.payload});
}

/// The ids of the log that are left.
inline QList<QStringList> historyIds(const Workspace &workspace)
{
    return workspace.rows(QStringLiteral("SELECT id FROM settlement_import_log ORDER BY id"));
}
