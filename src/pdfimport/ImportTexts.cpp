#include "pdfimport/ImportTexts.h"

#include "pdfimport/ImportRepository.h"
#include "pdfimport/SettlementParser.h"

using namespace Qt::StringLiterals;

namespace ImportTexts {

namespace {

QString orNotFound(const QString &text)
{
    return text.isEmpty() ? u"(not found)"_s : text;
}

} // namespace

QString summaryText(const SettlementParseResult &parsed)
{
    return u"Truck: %1 | Payweek: %2 | Fuel/DEF Rows: %3"_s.arg(
        orNotFound(parsed.truckNumber), orNotFound(parsed.payweek),
        QString::number(parsed.rows.size()));
}

QString resultText(const ImportResult &result, const QString &title)
{
    QString text;
    if (!title.trimmed().isEmpty())
        text += title + u'\n' + QString(title.size(), u'-') + "\n\n"_L1;
    text += result.message + "\n\n"_L1;
    text += u"Fuel/DEF detail rows: %1\n"_s.arg(result.fuelDetailRows);
    text += u"Skipped rows: %1\n"_s.arg(result.skippedRows);
    if (!result.details.isEmpty())
        text += "\nDetails:\n"_L1 + result.details.join(u'\n');
    return text;
}

QString confirmationText()
{
    return u"\n\nApply these enabled review rows to trips.db in BLOCK mode?\n\n"
           "Safety rules:\n"
           "- A dry-run preview just passed.\n"
           "- The actual write will use one database transaction.\n"
           "- Repeat imports are blocked by content hash, PDF/payweek, and matching review "
           "signature.\n"
           "- Missing-trip rows are skipped instead of creating surprise trips.\n"
           "- Existing payweek data is NOT deleted or replaced.\n"
           "- An import history/audit row will be written.\n\n"
           "Continue with the database write?"_s;
}

} // namespace ImportTexts
