#include "pdfimport/SettlementParser.h"

#include "data/DomainRules.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

// "DEF 9.99" is the shortest charge there is.
constexpr qsizetype longestIgnoredLine = 7;

QRegularExpression ignoringCase(const QString &pattern)
{
    return QRegularExpression(pattern, QRegularExpression::CaseInsensitiveOption);
}

// A run of blanks is taken whole (`\s*+`): three of them in a row, each of which gave back blank
// after blank, would try every split of a blank page before they found nothing.
QString findTruckNumber(const QString &text)
{
    static const std::array patterns = {
        ignoringCase(uR"((?:TRUCK|TRACTOR)\s*+(?:NO\.?|NUMBER|#)?\s*+[:\-]?\s*+([A-Z0-9\-]+))"_s),
        ignoringCase(uR"(UNIT\s*+(?:NO\.?|NUMBER|#)?\s*+[:\-]?\s*+([A-Z0-9\-]+))"_s),
    };
    for (const QRegularExpression &pattern : patterns) {
        const QRegularExpressionMatch match = pattern.match(text);
        if (match.hasMatch())
            return match.captured(1).trimmed();
    }
    return {};
}

// Carriers print the settlement date as YY/MM/DD. The pattern for it has no end, so that it also
// takes the first eight characters of a date with a four-digit year and two-digit month and day.
QString findPayweek(const QString &text)
{
    static const QRegularExpression yearFirst =
        ignoringCase(uR"(SETTLEMENT\s+DATE\s*+[:\-]?\s*+(\d{2})/(\d{2})/(\d{2}))"_s);
    static const QRegularExpression monthFirst =
        ignoringCase(uR"(SETTLEMENT\s+DATE\s*+[:\-]?\s*+(\d{1,2})/(\d{1,2})/(\d{4}))"_s);
    if (const auto match = yearFirst.match(text); match.hasMatch()) {
        const int year = match.captured(1).toInt();
        return u"%1/%2/%3"_s.arg(match.captured(2), match.captured(3),
                                 QString::number(year < 70 ? 2000 + year : 1900 + year));
    }
    if (const auto match = monthFirst.match(text); match.hasMatch())
        return u"%1/%2/%3"_s.arg(match.captured(1).rightJustified(2, u'0'),
                                 match.captured(2).rightJustified(2, u'0'), match.captured(3));
    return {};
}

// The order of the tests is the rule: "TRUCK FUEL REEFER" is truck fuel.
QString fuelType(const QString &line)
{
    const QString lower = line.toLower();
    const auto has = [&lower](QLatin1StringView words) { return lower.contains(words); };
    if (has("truck fuel"_L1) || (has("fuel"_L1) && !has("reefer"_L1)))
        return u"Truck Fuel"_s;
    if (has("reefer fuel"_L1) || has("refrigerated fuel"_L1))
        return u"Reefer Fuel"_s;
    if (has("def"_L1) || has("diesel exhaust fluid"_L1))
        return u"Def"_s;
    return {};
}

// Parentheses turn the sign. A lone parenthesis leaves text that is no number, which counts as 0,
// as do digits without end, which are no amount either.
double amountFromText(QString text)
{
    text.remove(u'$'); // the commas go when the number is read
    const bool parenthesised = text.startsWith(u'(') && text.endsWith(u')');
    if (parenthesised)
        text = text.mid(1, text.size() - 2);
    const double value = DomainRules::parseNumberText(text);
    return parenthesised ? 0.0 - value : value; // "(0.00)" is no negative zero
}

// Every number on the line counts, dates and gallons too: only the last two are looked at.
QList<double> amountsOnLine(const QString &line)
{
    static const QRegularExpression money(
        uR"(\$?\(?-?\d{1,3}(?:,\d{3})*(?:\.\d{2})?\)?|\$?\(?-?\d+\.\d{2}\)?)"_s);
    QList<double> amounts;
    for (auto matches = money.globalMatch(line); matches.hasNext();)
        amounts.append(amountFromText(matches.next().captured()));
    return amounts;
}

QString firstCapture(const QRegularExpression &pattern, const QString &line)
{
    return pattern.match(line).captured(1);
}

FuelReviewRow rowFromLine(const QString &line, const QString &type)
{
    static const QRegularExpression trip(uR"(\b(\d{5,9})\b)"_s);
    static const QRegularExpression gallons = ignoringCase(uR"((\d+(?:\.\d+)?)\s+GALS?\b)"_s);
    FuelReviewRow row;
    row.dataset = FuelReviewWords::deductionFuel;
    row.route = FuelReviewWords::fuelDetail;
    row.description = type;
    row.tripNo = firstCapture(trip, line);
    row.gallons = DomainRules::parseNumberText(firstCapture(gallons, line));
    const QList<double> amounts = amountsOnLine(line);
    if (!amounts.isEmpty())
        row.amount = row.cost = amounts.last();
    if (amounts.size() > 1 && amounts.at(amounts.size() - 2) < 0.0)
        row.discount = amounts.at(amounts.size() - 2);
    return row;
}

QList<FuelReviewRow> extractRows(const QString &text)
{
    static const QRegularExpression lineEnds(u"[\\r\\n]+"_s);
    QList<FuelReviewRow> rows;
    for (const QString &rawLine : text.split(lineEnds, Qt::SkipEmptyParts)) {
        const QString line = rawLine.simplified();
        const QString type = line.size() > longestIgnoredLine ? fuelType(line) : QString();
        if (type.isEmpty())
            continue;
        FuelReviewRow row = rowFromLine(line, type);
        row.sourceLine = rawLine.trimmed();
        rows.append(row);
    }
    return rows;
}

QString orNotFound(const QString &text)
{
    return text.isEmpty() ? u"(not found)"_s : text;
}

} // namespace

qint32 SettlementParseResult::addRow(const FuelReviewRow &row)
{
    rows.append(row);
    qint32 &id = rows.last().id;
    if (id < 1)
        id = nextRowId;
    nextRowId = std::max(nextRowId, id + 1);
    return id;
}

void SettlementParseResult::clear()
{
    *this = {};
}

namespace SettlementParser {

SettlementParseResult parse(const QString &pdfPath, const QString &rawText,
                            const QStringList &pageTexts)
{
    SettlementParseResult result;
    result.pdfPath = pdfPath;
    result.rawText = rawText;
    result.pageTexts = pageTexts;
    result.truckNumber = findTruckNumber(rawText);
    result.payweek = findPayweek(rawText);
    result.logLines = {u"Fuel/DEF-only SettlementParser started."_s,
                       "Truck: "_L1 + orNotFound(result.truckNumber),
                       "Payweek: "_L1 + orNotFound(result.payweek)};
    for (const FuelReviewRow &row : extractRows(rawText))
        result.addRow(row);
    result.logLines.append(
        u"Parsed %1 Fuel/DEF candidate row(s). Non-fuel settlement rows were ignored."_s.arg(
            result.rows.size()));
    return result;
}

QList<FuelReviewRow> scanTripFuelRows(const QString &tripNumber, const QString &rawText)
{
    const QString wanted = tripNumber.trimmed();
    if (wanted.isEmpty())
        return {};
    QList<FuelReviewRow> rows = extractRows(rawText);
    rows.removeIf([&wanted](const FuelReviewRow &row) { return row.tripNo.trimmed() != wanted; });
    for (FuelReviewRow &row : rows)
        row.dataset = u"Trip Fuel Scan"_s;
    return rows;
}

} // namespace SettlementParser
