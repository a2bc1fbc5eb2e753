#include "ui/PageParts.h"

#include "ui/ShownText.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QFileDialog>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

namespace PageParts {

QLabel *makeHeading(const QString &text, QWidget *parent, int growth)
{
    auto *label = new QLabel(text, parent);
    QFont font = label->font();
    font.setBold(true);
    font.setPointSize(font.pointSize() + growth);
    label->setFont(font);
    return label;
}

QLabel *makeCaption(const QString &text, QWidget *field)
{
    auto *label = new QLabel(text, field->parentWidget());
    label->setBuddy(field);
    return label;
}

QLabel *makeNote(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

void addChoices(QComboBox *box, const QStringList &texts)
{
    for (const QString &text : texts)
        box->addItem(ShownText::shortened(text), text);
}

QString chosenText(const QComboBox *box)
{
    return box->currentData().toString();
}

QString askForDatabase(QWidget *page, const QString &caption)
{
    return QFileDialog::getOpenFileName(
        page, caption, {},
        QCoreApplication::translate("PageParts", "SQLite Database (*.db);;All Files (*.*)"));
}

QWidget *makeScrollingContent(QWidget *page)
{
    auto *area = new QScrollArea(page);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    auto *content = new QWidget(area->viewport());
    area->setWidget(content);
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(area);
    return content;
}

} // namespace PageParts
