#include "ui/FieldText.h"

#include "ui/ShownText.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QVariant>

namespace FieldText {

namespace {

constexpr auto wholeTextProperty = "wholeText";

void setText(QLineEdit *field, const QString &text)
{
    field->setText(text);
}

void setText(QPlainTextEdit *field, const QString &text)
{
    field->setPlainText(text);
}

QString textOf(const QLineEdit *field)
{
    return field->text();
}

QString textOf(const QPlainTextEdit *field)
{
    return field->toPlainText();
}

bool isTooLong(const QLineEdit * /*field*/, const QString &text)
{
    return text.size() > ShownText::longestLine;
}

bool isTooLong(const QPlainTextEdit * /*field*/, const QString &text)
{
    return ShownText::isTooLongToEdit(text);
}

template <typename Field>
QString keptText(const Field *field)
{
    return field->property(wholeTextProperty).toString();
}

template <typename Field>
bool showsAPart(const Field *field)
{
    const QString whole = keptText(field);
    return !whole.isEmpty() && textOf(field) == ShownText::shortened(whole);
}

template <typename Field>
void showIn(Field *field, const QString &text)
{
    const bool tooLong = isTooLong(field, text);
    field->setProperty(wholeTextProperty, tooLong ? QVariant(text) : QVariant());
    setText(field, tooLong ? ShownText::shortened(text) : text);
}

} // namespace

void show(QLineEdit *field, const QString &text)
{
    showIn(field, text);
}

void show(QPlainTextEdit *field, const QString &text)
{
    showIn(field, text);
}

QString of(const QLineEdit *field)
{
    return showsAPart(field) ? keptText(field) : textOf(field);
}

QString of(const QPlainTextEdit *field)
{
    return showsAPart(field) ? keptText(field) : textOf(field);
}

void show(QComboBox *box, const QString &text)
{
    show(box->lineEdit(), text);
    setReadOnly(box->lineEdit(), false);
}

QString of(const QComboBox *box)
{
    return box->isEditable() ? of(box->lineEdit()) : box->currentText();
}

void setReadOnly(QLineEdit *field, bool readOnly)
{
    field->setReadOnly(readOnly || showsAPart(field));
}

void setReadOnly(QPlainTextEdit *field, bool readOnly)
{
    field->setReadOnly(readOnly || showsAPart(field));
}

} // namespace FieldText
