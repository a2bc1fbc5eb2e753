#pragma once

#include <QString>

class QSqlDatabase;
struct SettlementParseResult;

/// Keep one settlement from being imported twice.
namespace ImportGuards {

/// Whether the log holds an import with the same content, of a PDF of the same name in the same
/// payweek, or with the same reviewed rows, asked in this order; `message` then tells which. A
/// question that SQLite cannot answer counts as "no".
bool findDuplicate(const QSqlDatabase &database, const SettlementParseResult &parsed,
                   const QString &sourceHash, const QString &reviewSignature, QString &message);

} // namespace ImportGuards
