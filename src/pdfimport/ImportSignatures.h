#pragma once

#include <QString>

struct SettlementParseResult;

/// What tells one reviewed settlement from another, and what the log keeps of it.
namespace ImportSignatures {

/// SHA-256, in lower-case hexadecimal, of the payweek, the truck and the enabled rows. The order of
/// the rows, their identities and the lines that they were read from do not count.
QString reviewSignature(const SettlementParseResult &parsed);

/// The same of the payweek, the truck, the text of the PDF and `reviewSignature`.
QString sourceHash(const SettlementParseResult &parsed, const QString &reviewSignature);

/// The enabled rows.
int enabledRowCount(const SettlementParseResult &parsed);

/// The file name of the PDF, without its folder.
QString pdfName(const SettlementParseResult &parsed);

/// Compact JSON with the keys sorted: the rows that were written and the rows that were not.
QString countsJson(int fuelDetailRows, int skippedRows);

/// Compact JSON with the keys sorted: the settlement and its enabled rows. That it is compact
/// matters: a later import looks for the signature in it as text.
QString payloadJson(const SettlementParseResult &parsed, const QString &sourceHash,
                    const QString &reviewSignature);

} // namespace ImportSignatures
