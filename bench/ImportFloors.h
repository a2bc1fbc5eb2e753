#pragma once

#include "pdfimport/SettlementParser.h"

#include <QString>

class QTableWidget;

/// The statements of an import and of its history, each on a connection for its one call, as the
/// product's are.
namespace ImportFloors {

/// A reviewed settlement with all that goes into its statements.
struct SignedImport
{
    SettlementParseResult parsed;
    QString pdfName;
    QString reviewSignature;
    QString sourceHash;
    QString payloadJson;
};

SignedImport signedImport(const SettlementParseResult &parsed);

/// The tables, the three guards, and a look at the trip of each row.
void dryRun(const SignedImport &import);

/// The same, and an insert for each row and one for the log, in a transaction.
void apply(const SignedImport &import);

/// The log, and a plain table of its rows.
void history(QTableWidget &table);

} // namespace ImportFloors
