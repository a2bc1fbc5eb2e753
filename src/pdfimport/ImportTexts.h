#pragma once

#include <QString>

struct ImportResult;
struct SettlementParseResult;

/// What the import page writes of a settlement and of what became of it.
namespace ImportTexts {

/// The truck, the payweek and the number of rows, in one line.
QString summaryText(const SettlementParseResult &parsed);

/// An import's outcome for a box: the underlined title unless it is blank, the message, the
/// counts, and the details if there are any.
QString resultText(const ImportResult &result, const QString &title);

/// What a person is asked behind the outcome of the last dry run.
QString confirmationText();

} // namespace ImportTexts
