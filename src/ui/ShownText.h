#pragma once

#include <QString>
#include <QStringList>

/// What a text looks like where a widget cannot show it as it stands.
namespace ShownText {

/// Qt lays out a text as a whole, however little of it is in sight: a megabyte, which a damaged
/// file or a paste may hold, stops the window for seconds, and makes a column or a box as wide.
inline constexpr qsizetype longest = 1'000;
/// What an editor or a view of a whole text can do with: a longer line takes seconds, and a hundred
/// thousand lines take a second.
inline constexpr qsizetype longestLine = 20'000;
inline constexpr qsizetype mostLines = 50'000;

/// The text where it has at most `longest` characters; otherwise its beginning on one line, with
/// control characters as their pictures, and how much there is:
/// "... (1,048,576 characters, shown in part)". For a cell, a label or a title, never to be stored.
QString shortened(const QString &text);
QStringList shortened(const QStringList &texts);

/// Those of the texts that a box can offer whole.
QStringList withoutTooLong(const QStringList &texts);

/// Whether the text has a line, or more lines, than an editor can do with.
bool isTooLongToEdit(const QString &text);

/// The text with control characters as their pictures, such as U+2400 for NUL: of themselves they
/// show as nothing, and some systems take minutes to look for a font that has them. Tabs and line
/// breaks stay, and all line breaks become line feeds.
QString withPictures(const QString &text);

} // namespace ShownText
