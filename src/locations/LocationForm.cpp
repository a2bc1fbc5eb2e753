#include "locations/LocationForm.h"

#include "locations/LocationsRepository.h"
#include "ui/FieldText.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;
using namespace LocationsRepository;

LocationForm::LocationForm(QWidget *parent)
    : QGroupBox(parent)
{
    setTitle(tr("Location Details"));
    buildRows();
}

void LocationForm::buildRows()
{
    struct Row
    {
        QString label;
        QString objectName;
    };
    const QList<Row> rows = {
        {tr("Code:"), u"locationCodeField"_s},
        {tr("Name:"), u"locationNameField"_s},
        {tr("Street:"), u"locationStreetField"_s},
        {tr("City:"), u"locationCityField"_s},
        {tr("State:"), u"locationStateField"_s},
        {tr("Zip:"), u"locationZipField"_s},
        {tr("Latitude:"), u"locationLatitudeField"_s},
        {tr("Longitude:"), u"locationLongitudeField"_s},
    };
    auto *layout = new QFormLayout(this);
    for (const Row &row : rows) {
        fields.append(new QLineEdit(this));
        fields.last()->setObjectName(row.objectName);
        layout->addRow(row.label, fields.last());
    }
    notes = new QPlainTextEdit(this);
    notes->setObjectName(u"locationNotes"_s);
    notes->setTabChangesFocus(true);
    layout->addRow(tr("Notes:"), notes);
}

QStringList LocationForm::location() const
{
    QStringList texts;
    for (const QLineEdit *field : fields)
        texts.append(FieldText::of(field));
    return texts << FieldText::of(notes);
}

void LocationForm::showLocation(const QStringList &location)
{
    for (qsizetype field = 0; field < fields.size(); ++field)
        FieldText::show(fields.at(field), location.value(field));
    FieldText::show(notes, location.value(Notes));
}

QString LocationForm::code() const
{
    return FieldText::of(fields.at(Code)).trimmed();
}

void LocationForm::setReadOnly(bool readOnly)
{
    for (QLineEdit *field : std::as_const(fields))
        FieldText::setReadOnly(field, readOnly);
    FieldText::setReadOnly(notes, readOnly);
}

void LocationForm::focusCode()
{
    fields.at(Code)->setFocus();
}

void LocationForm::focusName()
{
    fields.at(Name)->setFocus();
}
