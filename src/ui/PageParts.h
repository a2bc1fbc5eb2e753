#pragma once

#include <QBoxLayout>
#include <QPushButton>
#include <QString>

class QComboBox;
class QLabel;

/// What several pages have in common.
namespace PageParts {

/// The heading of a page: bold, and `growth` points larger than the text.
QLabel *makeHeading(const QString &text, QWidget *parent, int growth = 4);

/// A label that names a field or a table beside it and takes the keyboard there.
QLabel *makeCaption(const QString &text, QWidget *field);

/// A line of text that wraps and shows markup as it stands.
QLabel *makeNote(const QString &text, QWidget *parent);

/// A button at the end of a row.
template <typename Page>
QPushButton *addButton(QBoxLayout *row, const QString &text, const QString &objectName, Page *page,
                       void (Page::*action)())
{
    auto *button = new QPushButton(text, page);
    button->setObjectName(objectName);
    QObject::connect(button, &QPushButton::clicked, page, action);
    row->addWidget(button);
    return button;
}

/// Adds the texts to a box that offers them for a choice; what is too long shows shortened.
void addChoices(QComboBox *box, const QStringList &texts);

/// The whole of the text that is chosen in such a box.
QString chosenText(const QComboBox *box);

/// Asks for a database file by hand. Empty if the person thinks better of it.
QString askForDatabase(QWidget *page, const QString &caption);

/// Fills `page` with an empty widget, which scrolls where the page is too small for what it gets.
QWidget *makeScrollingContent(QWidget *page);

} // namespace PageParts
