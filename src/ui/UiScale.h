#pragma once

#include <QFont>
#include <QList>
#include <QString>
#include <QStringList>

class QTableWidget;
class QWidget;

/// One percentage, chosen in Settings, sizes the whole window: fonts, row heights, minimum heights
/// and column widths all follow from it. The sort arrows of table headers live here too, because
/// headers are rebuilt on the same occasions. Percentages are clamped to 75..175 at each use.
namespace UiScale {

inline constexpr int smallestPercent = 75;
inline constexpr int largestPercent = 175;
inline constexpr int defaultPercent = 100;

/// `percent` brought into 75..175.
int clampedPercent(int percent);

/// The percentage in the settings store as it stands there, not clamped; 100 without one.
int savedUiScalePercent();

/// Stores the percentage, brought into 75..175, and writes it to disk at once.
void saveUiScalePercent(int percent);

/// The application's point size at `percent` of 10 points, at least 8. Not clamped.
int applicationPointSize(int percent);

/// The widget's font (the default font without a widget) at `percent` of `basePointSize`, at least
/// 8 points. A base below 1 means the font's own size, or 10 if it has none in points.
QFont scaledFont(const QWidget *widget, int percent, int basePointSize);

/// Gives the fields, buttons, labels and groups below `page` the font and the minimum heights of
/// `percent`. Labels whose text contains a non-empty `titleText` become bold and larger.
void applyPageScale(QWidget *page, const QFont &font, int percent, const QString &titleText);

/// Gives the table, its headers, rows and items the font and the heights of `percent`.
void applyTableScale(QTableWidget *table, const QFont &font, int percent);

/// Makes the columns resizable by hand and sets the widths (pixels at 100 percent) of the first
/// columns. A missing table is ignored.
void applyColumnWidths(QTableWidget *table, const QList<int> &baseWidths, int percent);

/// Sets the header labels and makes a click on a header sort by that column: ascending first, a
/// second click descending. The table's own sorting is turned off, so that refilling it is cheap.
void setSortableHeaders(QTableWidget *table, const QStringList &labels);

/// Sorts by the column whose header was clicked last, if any: after a refill the rows must stand as
/// the arrows say.
void sortAsChosen(QTableWidget *table);

/// Writes the arrows of the sort chosen so far behind the header labels.
void refreshSortArrows(QTableWidget *table);

/// The same for a table that sorts by itself and keeps its sort in the header view.
void refreshTripListArrows(QTableWidget *table, const QStringList &labels);

/// A header text without its arrow, trimmed.
QString stripSortArrows(const QString &text);

} // namespace UiScale
