#pragma once

#include <QString>

class QComboBox;
class QLineEdit;
class QPlainTextEdit;

/// The texts of a form's fields, of any length. Of itself a line edit cuts what is longer than
/// 32,767 characters, and saving the form would store the rest away; and laying a megabyte out
/// stops the window. So a field shows a text that is too long in part, keeps the whole for whoever
/// saves the form, and cannot be edited until it shows another text.
namespace FieldText {

void show(QLineEdit *field, const QString &text);
void show(QPlainTextEdit *field, const QString &text);

/// What the field holds: what was typed, or the whole text that it shows in part.
QString of(const QLineEdit *field);
QString of(const QPlainTextEdit *field);

/// The same for the line of an editable box, which can be edited again once it shows another text.
void show(QComboBox *box, const QString &text);
QString of(const QComboBox *box);

/// Lets the field be edited or not. One that shows a part stays as it is.
void setReadOnly(QLineEdit *field, bool readOnly);
void setReadOnly(QPlainTextEdit *field, bool readOnly);

} // namespace FieldText
