#include "pdfimport/history/ImportHistoryText.h"

#include "pdfimport/history/ImportHistoryRepository.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace ImportHistoryText {

namespace {

QString orBlank(const QString &text)
{
    return text.trimmed().isEmpty() ? u"(blank)"_s : text;
}

QStringList pdfImportLines(const ImportHistoryRow &row)
{
    return {QString(),
            u"Legacy PDF Import Details"_s,
            u"-------------------------"_s,
            "Payweek: "_L1 + row.payweek,
            "Truck: "_L1 + row.truckNumber,
            "PDF: "_L1 + row.pdfName,
            "Mode: "_L1 + row.importMode,
            "Source Hash: "_L1 + row.sourceHash,
            QString(),
            u"Counts JSON"_s,
            u"-----------"_s,
            orBlank(row.countsJson),
            QString(),
            u"Payload JSON"_s,
            u"------------"_s,
            orBlank(row.payloadJson)};
}

} // namespace

QString detailsText(const ImportHistoryRow &row)
{
    QStringList lines = {u"Database Activity History Row"_s,   u"-----------------------------"_s,
                         "ID: "_L1 + QString::number(row.id),  "Created: "_L1 + row.createdAt,
                         "Action: "_L1 + row.action,           "Database: "_L1 + row.database,
                         "Details: "_L1 + orBlank(row.details)};
    if (!row.isDatabaseActivity)
        lines += pdfImportLines(row);
    return lines.join(u'\n') + u'\n';
}

QString description(const ImportHistoryRow &row)
{
    return u"ID %1\nAction: %2\nDatabase: %3\nDetails: %4"_s.arg(
        QString::number(row.id), row.action, row.database, row.details);
}

} // namespace ImportHistoryText
