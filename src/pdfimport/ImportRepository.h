#pragma once

#include <QString>
#include <QStringList>

struct SettlementParseResult;

/// What an import wrote, or would write.
struct ImportResult
{
    /// The preview passed, or the import is committed.
    bool success = false;
    /// Fuel rows that would be or were inserted. After a failure: those that had been inserted when
    /// it came, though none of them remains.
    qint32 fuelDetailRows = 0;
    /// Rows that are switched off, belong to no known trip, or are no fuel.
    qint32 skippedRows = 0;
    /// The row of the log; 0 in a preview and after a failure.
    qint32 historyId = 0;
    QString message;
    /// For the log of the page, a line each; after a failure the message ends them.
    QStringList details;
};

/// Writes the reviewed fuel rows of a settlement into the `trips.db` near the application, and
/// nothing else: no trip, no pay and no settlement item.
///
/// An import cannot be taken back. So the same settlement is never imported twice, a row never
/// makes a trip, and a failed import leaves no row behind. Each call opens a connection of its own
/// and is done with it at its end.
namespace ImportRepository {

/// Tells what applyImport() would do. It may create the tables that an import needs, but writes no
/// row.
ImportResult previewImport(const SettlementParseResult &parsed);

/// Inserts a fuel row for each enabled row whose trip exists, and a row of the log, in one
/// transaction.
ImportResult applyImport(const SettlementParseResult &parsed);

} // namespace ImportRepository
