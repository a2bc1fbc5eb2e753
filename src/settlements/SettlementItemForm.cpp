#include "settlements/SettlementItemForm.h"

#include "data/DomainRules.h"
#include "ui/FieldText.h"
#include "ui/NameBox.h"
#include "ui/ShownText.h"
#include "ui/WheelGuard.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

SettlementItemForm::SettlementItemForm(QWidget *parent)
    : QGroupBox(parent)
{
    setTitle(tr("Settlement Item Editor"));
    buildRows();
}

void SettlementItemForm::buildRows()
{
    idLabel = new QLabel(tr("(no item selected)"), this);
    idLabel->setObjectName(u"settlementItemId"_s);
    kindBox = new QComboBox(this);
    kindBox->setObjectName(u"settlementItemKind"_s);
    kindBox->addItems({u"revenue"_s, u"expense"_s});
    guardFromWheel(kindBox);
    nameBox = new NameBox(this);
    nameBox->setObjectName(u"settlementItemName"_s);
    nameBox->setMinimumWidth(220);
    amountField = new QLineEdit(this);
    amountField->setObjectName(u"settlementItemAmount"_s);

    auto *rows = new QFormLayout(this);
    rows->addRow(tr("Selected ID:"), idLabel);
    rows->addRow(tr("Kind:"), kindBox);
    rows->addRow(tr("Name:"), nameBox);
    rows->addRow(tr("Amount:"), amountField);
}

// Both words for "no item" are no numbers.
int SettlementItemForm::selectedItemId() const
{
    return idLabel->text().trimmed().toInt();
}

void SettlementItemForm::setSelectedItemId(int id)
{
    idLabel->setText(QString::number(id));
}

QString SettlementItemForm::kind() const
{
    return kindBox->currentText().trimmed().toLower();
}

QString SettlementItemForm::name() const
{
    return FieldText::of(nameBox).trimmed();
}

double SettlementItemForm::amount() const
{
    return DomainRules::parseMoneyText(amountField->text());
}

void SettlementItemForm::showItem(int id, const QString &kind, const QString &name,
                                  const QString &amountText)
{
    setSelectedItemId(id);
    const int kindIndex = kindBox->findText(kind.trimmed().toLower());
    if (kindIndex >= 0)
        kindBox->setCurrentIndex(kindIndex);
    showName(name);
    amountField->setText(amountText.trimmed().remove(u'$').remove(u','));
}

void SettlementItemForm::startNewItem()
{
    idLabel->setText(tr("(new item)"));
    kindBox->setCurrentIndex(0);
    showName({});
    nameBox->setFocus();
    amountField->clear();
}

void SettlementItemForm::offerNames(const QStringList &names)
{
    const QString typed = name();
    const QSignalBlocker blocker(nameBox);
    nameBox->clear();
    nameBox->addItems(ShownText::withoutTooLong(names));
    showName(typed);
}

void SettlementItemForm::showName(const QString &name)
{
    const int index = name.isEmpty() ? -1 : nameBox->findText(name, Qt::MatchFixedString);
    nameBox->setCurrentIndex(index);
    FieldText::show(nameBox, index < 0 ? name : nameBox->itemText(index));
}
