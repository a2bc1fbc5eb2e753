#pragma once

#include <QString>

struct ImportHistoryRow;

/// What the history page writes of one row.
namespace ImportHistoryText {

/// Everything that the log holds of the row, a line each, every line ended by a line feed. An
/// import of a PDF has more to tell than an export or import of a database file.
QString detailsText(const ImportHistoryRow &row);

/// The row in four lines, as a person is asked whether to delete it.
QString description(const ImportHistoryRow &row);

} // namespace ImportHistoryText
