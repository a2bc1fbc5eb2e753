#include "pdfimport/ImportSignatures.h"

#include "pdfimport/SettlementParser.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ImportSignatures {

namespace {

QString fixed(double value, int places)
{
    return QString::number(value, 'f', places);
}

QString hashOf(const QString &text)
{
    const QByteArray hash = QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256);
    return QString::fromLatin1(hash.toHex());
}

QString signatureText(const FuelReviewRow &row)
{
    const QStringList fields = {row.enabled ? u"1"_s : u"0"_s,
                                row.dataset.trimmed().toLower(),
                                row.tripNo.trimmed().toUpper(),
                                row.description.trimmed().toLower(),
                                row.route.trimmed().toLower(),
                                fixed(row.amount, 2),
                                fixed(row.cost, 2),
                                fixed(row.discount, 2),
                                fixed(row.gallons, 3)};
    return fields.join(u'|');
}

QJsonObject jsonOf(const FuelReviewRow &row)
{
    return {{u"amount"_s, row.amount},     {u"cost"_s, row.cost},
            {u"dataset"_s, row.dataset},   {u"description"_s, row.description},
            {u"discount"_s, row.discount}, {u"gallons"_s, row.gallons},
            {u"route"_s, row.route},       {u"trip_no"_s, row.tripNo}};
}

QString compact(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

} // namespace

QString reviewSignature(const SettlementParseResult &parsed)
{
    QStringList rows;
    for (const FuelReviewRow &row : parsed.rows) {
        if (row.enabled)
            rows.append(signatureText(row));
    }
    rows.sort();
    return hashOf(parsed.payweek.trimmed() + u'\n' + parsed.truckNumber.trimmed() + u'\n'
                  + rows.join(u'\n'));
}

QString sourceHash(const SettlementParseResult &parsed, const QString &reviewSignature)
{
    return hashOf(parsed.payweek.trimmed() + "\n---TRUCK---\n"_L1 + parsed.truckNumber.trimmed()
                  + "\n---RAW---\n"_L1 + parsed.rawText.trimmed() + "\n---REVIEW---\n"_L1
                  + reviewSignature);
}

int enabledRowCount(const SettlementParseResult &parsed)
{
    return static_cast<int>(std::count_if(parsed.rows.cbegin(), parsed.rows.cend(),
                                          [](const FuelReviewRow &row) { return row.enabled; }));
}

QString pdfName(const SettlementParseResult &parsed)
{
    return QFileInfo(parsed.pdfPath).fileName();
}

QString countsJson(int fuelDetailRows, int skippedRows)
{
    return compact({{u"fuel_detail"_s, fuelDetailRows}, {u"skipped"_s, skippedRows}});
}

QString payloadJson(const SettlementParseResult &parsed, const QString &sourceHash,
                    const QString &reviewSignature)
{
    QJsonArray enabledRows;
    for (const FuelReviewRow &row : parsed.rows) {
        if (row.enabled)
            enabledRows.append(jsonOf(row));
    }
    return compact({{u"enabled_row_count"_s, enabledRows.size()},
                    {u"enabled_rows"_s, enabledRows},
                    {u"import_scope"_s, u"fuel_def_only"_s},
                    {u"payweek"_s, parsed.payweek},
                    {u"pdf_name"_s, pdfName(parsed)},
                    {u"pdf_path"_s, parsed.pdfPath},
                    {u"review_row_count"_s, parsed.rows.size()},
                    {u"review_signature"_s, reviewSignature},
                    {u"source_hash"_s, sourceHash},
                    {u"truck_number"_s, parsed.truckNumber}});
}

} // namespace ImportSignatures
