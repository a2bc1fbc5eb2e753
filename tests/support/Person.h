#pragma once

#include <QString>

class QComboBox;
class QLineEdit;
class QTableWidget;
class QWidget;

/// What a person does with the widgets of a page: looks for a button by its text, clicks, types,
/// chooses. Something that a person would not find fails the test.
namespace Person {

/// Shows the page as a window, so that clicks land where they would.
void shows(QWidget &page);

/// Clicks the visible, enabled button with this text.
void clicks(const QWidget &page, const QString &buttonText);

/// Clicks into the middle of a cell.
void clicksCell(QTableWidget *table, int row, int column);

/// Clicks a header section.
void clicksHeader(QTableWidget *table, int column);

/// Replaces the text of a field.
void types(QLineEdit *field, const QString &text);

/// Chooses the entry with this text.
void chooses(QComboBox *box, const QString &text);

/// Turns the mouse wheel over the widget by one notch, towards the person.
void turnsWheelOver(QWidget *widget);

} // namespace Person
