#include "ui/FieldText.h"

#include "ui/ShownText.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QVariant>

namespace FieldText {

namespace {

constexpr auto wholeTextProperty = "wholeText";
constexpr auto shownPartProperty = "shownPart";

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
    // QPlainTextEdit::toPlainText() would make blanks of the blanks that hold words together.
    return field->document()
        ->toRawText()
        .replace(QChar::ParagraphSeparator, u'\n')
        .replace(QChar::LineSeparator, u'\n');
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
    const QVariant part = field->property(shownPartProperty);
    return part.isValid() && textOf(field) == part.toString();
}

template <typename Field>
void showIn(Field *field, const QString &text)
{
    const bool tooLong = isTooLong(field, text);
    field->setProperty(wholeTextProperty, tooLong ? QVariant(text) : QVariant());
    setText(field, tooLong ? ShownText::shortened(text) : text);
    // As the field has it, which knows fewer characters than there are.
    field->setProperty(shownPartProperty, tooLong ? QVariant(textOf(field)) : QVariant());
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
    QLineEdit *line = box->lineEdit();
    show(line, text);
    setReadOnly(line, false);
    // Whatever else the box shows, by a choice from its list too, can be edited.
    if (showsAPart(line))
        QObject::connect(line, &QLineEdit::textChanged, line, [line] { setReadOnly(line, false); });
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
