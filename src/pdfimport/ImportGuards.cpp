#include "pdfimport/ImportGuards.h"

#include "data/SqlStatement.h"
#include "pdfimport/ImportSignatures.h"
#include "pdfimport/SettlementParser.h"

using namespace Qt::StringLiterals;

namespace ImportGuards {

namespace {

constexpr auto selectSameContent = R"(
SELECT id, created_at, payweek, pdf_name
FROM settlement_import_log
WHERE source_hash = ? AND TRIM(COALESCE(source_hash,'')) <> ''
LIMIT 1)"_L1;

constexpr auto selectSameName = R"(
SELECT id, created_at
FROM settlement_import_log
WHERE payweek = ? AND pdf_name = ?
LIMIT 1)"_L1;

constexpr auto selectSameRows = R"(
SELECT id, created_at, pdf_name
FROM settlement_import_log
WHERE payweek = ? AND truck_number = ? AND payload_json LIKE ?
LIMIT 1)"_L1;

/// The first row's texts; none if there is no row or the statement fails.
QStringList firstRow(const QSqlDatabase &database, const QString &sql, const QVariantList &values)
{
    QStringList texts;
    QString ignored;
    SqlStatement(database, sql).forEachRow(values, ignored, [&texts](const SqlStatement &row) {
        texts = row.texts();
    });
    return texts;
}

QString sameContent(const QSqlDatabase &database, const QString &sourceHash)
{
    const QStringList found = firstRow(database, selectSameContent, {sourceHash});
    return found.isEmpty() ? QString()
                           : u"Duplicate blocked: matching source content was already imported as "
                             "history ID %1 on %2 (payweek %3, PDF %4)."_s.arg(
                                 found.at(0), found.at(1), found.at(2), found.at(3));
}

QString sameName(const QSqlDatabase &database, const QString &payweek, const QString &pdfName)
{
    const QStringList found = firstRow(database, selectSameName, {payweek, pdfName});
    return found.isEmpty()
               ? QString()
               : u"Duplicate blocked: PDF name '%1' was already imported for payweek "
                 "%2 as history ID %3 on %4."_s.arg(pdfName, payweek, found.at(0), found.at(1));
}

QString sameRows(const QSqlDatabase &database, const QString &payweek, const QString &truck,
                 const QString &reviewSignature)
{
    const QString pattern = "%\"review_signature\":\""_L1 + reviewSignature + "\"%"_L1;
    const QStringList found = firstRow(database, selectSameRows, {payweek, truck, pattern});
    return found.isEmpty() ? QString()
                           : u"Duplicate blocked: matching review rows were already imported for "
                             "truck %1 / payweek %2 as history ID %3 on %4 (PDF %5)."_s.arg(
                                 truck.isEmpty() ? u"(blank)"_s : truck, payweek, found.at(0),
                                 found.at(1), found.at(2));
}

} // namespace

bool findDuplicate(const QSqlDatabase &database, const SettlementParseResult &parsed,
                   const QString &sourceHash, const QString &reviewSignature, QString &message)
{
    const QString payweek = parsed.payweek.trimmed();
    message = sameContent(database, sourceHash);
    if (message.isEmpty())
        message = sameName(database, payweek, ImportSignatures::pdfName(parsed));
    if (message.isEmpty())
        message = sameRows(database, payweek, parsed.truckNumber.trimmed(), reviewSignature);
    return !message.isEmpty();
}

} // namespace ImportGuards
