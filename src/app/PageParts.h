#pragma once

#include <QString>

class QWidget;

/// What several pages have in common.
namespace PageParts {

/// Asks for a database file by hand. Empty if the person thinks better of it.
QString askForDatabase(QWidget *page, const QString &caption);

/// Fills `page` with `content`, which scrolls where the page is too small for it.
void fillScrolling(QWidget *page, QWidget *content);

} // namespace PageParts
