#include "pdfimport/review/ReviewRowEditor.h"

#include "data/DomainRules.h"
#include "data/MoneyText.h"
#include "pdfimport/SettlementParser.h"
#include "ui/PageParts.h"
#include "ui/WheelGuard.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;
using namespace FuelReviewWords;

namespace {

constexpr int leastNotesHeight = 70;

double numberIn(const QLineEdit *field)
{
    return DomainRules::parseMoneyText(field->text());
}

} // namespace

ReviewRowEditor::ReviewRowEditor(QWidget *parent)
    : QGroupBox(parent)
{
    setTitle(tr("Selected Row Editor"));
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(buildUse());
    layout->addLayout(buildTrip());
    layout->addLayout(buildNumbers());
    buildNotes(layout);
    clearFields();
}

QBoxLayout *ReviewRowEditor::buildUse()
{
    auto *row = new QHBoxLayout;
    useBox = new QCheckBox(tr("Use this row"), this);
    useBox->setObjectName(u"reviewUse"_s);
    row->addWidget(useBox);
    datasetBox = addChoice(row, tr("Dataset:"), u"reviewDataset"_s, {deductionFuel, manualFuel});
    routeBox = addChoice(row, tr("Route:"), u"reviewRoute"_s, {fuelDetail});
    row->addStretch();
    return row;
}

QBoxLayout *ReviewRowEditor::buildTrip()
{
    auto *row = new QHBoxLayout;
    tripField = addField(row, tr("Trip #:"), u"reviewTrip"_s);
    descriptionField = addField(row, tr("Description:"), u"reviewDescription"_s, 1);
    return row;
}

QBoxLayout *ReviewRowEditor::buildNumbers()
{
    auto *row = new QHBoxLayout;
    amountField = addField(row, tr("Amount:"), u"reviewAmount"_s);
    costField = addField(row, tr("Cost:"), u"reviewCost"_s);
    discountField = addField(row, tr("Discount:"), u"reviewDiscount"_s);
    gallonsField = addField(row, tr("Gallons:"), u"reviewGallons"_s);
    return row;
}

void ReviewRowEditor::buildNotes(QBoxLayout *layout)
{
    notesBox = new QPlainTextEdit(this);
    notesBox->setObjectName(u"reviewNotes"_s);
    notesBox->setMinimumHeight(leastNotesHeight);
    notesBox->setTabChangesFocus(true);
    layout->addWidget(PageParts::makeCaption(tr("Source / Notes:"), notesBox));
    layout->addWidget(notesBox);
    PageParts::addButton(layout, tr("Save Editor Changes to Selected Row"),
                         u"saveReviewRowButton"_s, this, &ReviewRowEditor::saveRequested);
}

QComboBox *ReviewRowEditor::addChoice(QBoxLayout *row, const QString &label,
                                      const QString &objectName, const QStringList &entries)
{
    auto *box = new QComboBox(this);
    box->setObjectName(objectName);
    box->addItems(entries);
    guardFromWheel(box);
    row->addWidget(PageParts::makeCaption(label, box));
    row->addWidget(box);
    return box;
}

QLineEdit *ReviewRowEditor::addField(QBoxLayout *row, const QString &label,
                                     const QString &objectName, int stretch)
{
    auto *field = new QLineEdit(this);
    field->setObjectName(objectName);
    row->addWidget(PageParts::makeCaption(label, field));
    row->addWidget(field, stretch);
    return field;
}

void ReviewRowEditor::showRow(const FuelReviewRow &row)
{
    useBox->setChecked(row.enabled);
    datasetBox->setCurrentText(row.dataset.isEmpty() ? u"Manual"_s : row.dataset);
    tripField->setText(row.tripNo);
    descriptionField->setText(row.description);
    routeBox->setCurrentText(fuelDetail);
    amountField->setText(number2Text(row.amount));
    costField->setText(number2Text(row.cost));
    discountField->setText(number2Text(row.discount));
    gallonsField->setText(gallonsText(row.gallons));
    notesBox->setPlainText(row.sourceLine);
}

void ReviewRowEditor::clearFields()
{
    useBox->setChecked(true);
    datasetBox->setCurrentIndex(0);
    routeBox->setCurrentIndex(0);
    for (QLineEdit *field :
         {tripField, descriptionField, amountField, costField, discountField, gallonsField})
        field->clear();
    notesBox->clear();
}

FuelReviewRow ReviewRowEditor::edited(const FuelReviewRow &stored) const
{
    FuelReviewRow row = stored;
    const QString dataset = datasetBox->currentText().trimmed();
    row.enabled = useBox->isChecked();
    row.dataset = dataset.isEmpty() ? deductionFuel : dataset;
    row.tripNo = tripField->text().trimmed();
    row.description = descriptionField->text().trimmed();
    row.route = fuelDetail;
    row.amount = numberIn(amountField);
    row.cost = numberIn(costField);
    row.discount = numberIn(discountField);
    row.gallons = numberIn(gallonsField);
    row.sourceLine = notesBox->toPlainText().trimmed();
    return row;
}
