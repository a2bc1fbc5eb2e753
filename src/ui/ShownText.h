#pragma once

#include <QString>

/// What a text looks like where a widget cannot show it as it stands.
namespace ShownText {

/// The text with control characters as their pictures, such as U+2400 for NUL: of themselves they
/// show as nothing, and some systems take minutes to look for a font that has them. Tabs and line
/// breaks stay, and all line breaks become line feeds.
QString withPictures(const QString &text);

} // namespace ShownText
