#include "FuzzInput.h"
#include "pdfimport/SettlementParser.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// The patterns as a person writes them, giving back blanks. On a long run of blanks they try every
// split of it, so that they stand in judgement over short texts alone.
constexpr qsizetype longestTextForPlainPatterns = 256;

bool fits(const QString &text, const QString &pattern)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(text).hasMatch();
}

QString truckByPlainPatterns(const QString &text)
{
    for (const QString &words : {u"(?:TRUCK|TRACTOR)"_s, u"UNIT"_s}) {
        const QRegularExpression pattern(
            words + uR"(\s*(?:NO\.?|NUMBER|#)?\s*[:\-]?\s*([A-Z0-9\-]+))"_s,
            QRegularExpression::CaseInsensitiveOption);
        if (const auto match = pattern.match(text); match.hasMatch())
            return match.captured(1).trimmed();
    }
    return {};
}

void checkNumbers(const FuelReviewRow &row)
{
    require(std::isfinite(row.amount), "an amount is finite");
    require(row.cost == row.amount, "the cost is the amount");
    require(std::isfinite(row.discount) && row.discount <= 0.0,
            "a discount is finite, not above 0");
    require(std::isfinite(row.gallons) && row.gallons >= 0.0, "gallons are finite, not below 0");
}

void checkTexts(const FuelReviewRow &row)
{
    static const QStringList types = {u"Truck Fuel"_s, u"Reefer Fuel"_s, u"Def"_s};
    require(types.contains(row.description), "a row has one of three types");
    require(row.route == u"fuel_detail"_s && row.enabled, "a row is used, as fuel detail");
    require(row.tripNo.isEmpty() || fits(row.tripNo, u"[0-9]{5,9}"_s),
            "a trip number has 5 to 9 digits");
    require(row.sourceLine == row.sourceLine.trimmed(), "a source line is trimmed");
    require(row.sourceLine.simplified().size() > 7, "a source line has 8 characters or more");
    require(!row.sourceLine.contains(u'\n') && !row.sourceLine.contains(u'\r'),
            "a source line is one line");
}

void checkRows(const SettlementParseResult &result)
{
    qint32 expectedId = 1;
    for (const FuelReviewRow &row : result.rows) {
        require(row.id == expectedId++, "identities are 1 to n");
        require(row.dataset == u"Deduction Fuel"_s, "a parsed row is a deduction");
        checkNumbers(row);
        checkTexts(row);
    }
    require(result.nextRowId == expectedId, "the next identity is n + 1");
}

void checkLog(const SettlementParseResult &result)
{
    require(result.logLines.size() == 4, "the log has four lines");
    require(result.logLines.at(3).startsWith(u"Parsed %1 Fuel/DEF "_s.arg(result.rows.size())),
            "the log counts the rows");
}

void checkHeading(const SettlementParseResult &result)
{
    require(result.payweek.isEmpty() || fits(result.payweek, u"[0-9]{2}/[0-9]{2}/[0-9]{4}"_s),
            "a payweek is MM/DD/YYYY");
    if (result.rawText.size() <= longestTextForPlainPatterns)
        require(result.truckNumber == truckByPlainPatterns(result.rawText),
                "the truck is what the plain patterns find");
}

void checkTripScan(const SettlementParseResult &result, const QString &tripNo)
{
    const QList<FuelReviewRow> found =
        SettlementParser::scanTripFuelRows(u' ' + tripNo + u' ', result.rawText);
    const auto parsed =
        std::count_if(result.rows.cbegin(), result.rows.cend(),
                      [&tripNo](const FuelReviewRow &row) { return row.tripNo == tripNo; });
    require(found.size() == (tripNo.isEmpty() ? 0 : parsed), "a trip's rows are those parsed");
    for (const FuelReviewRow &row : found) {
        require(row.id == 0 && row.dataset == u"Trip Fuel Scan"_s && row.tripNo == tripNo,
                "a scanned row is the trip's, without identity");
        checkNumbers(row);
        checkTexts(row);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    const QString text = textFrom(bytes, size);
    const SettlementParseResult result = SettlementParser::parse(u"a.pdf"_s, text, {text});
    require(result.rawText == text, "the text is kept as it came");
    checkHeading(result);
    checkRows(result);
    checkLog(result);
    checkTripScan(result, {});
    if (!result.rows.isEmpty())
        checkTripScan(result, result.rows.last().tripNo);
    return 0;
}
