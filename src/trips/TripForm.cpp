#include "trips/TripForm.h"

#include "data/DomainRules.h"
#include "trips/TripColumns.h"
#include "ui/FieldText.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

struct FormRow
{
    const char *label;
    const char *objectName;
};

constexpr std::array<FormRow, TripForm::fieldCount> formRows = {{
    {QT_TRANSLATE_NOOP("TripForm", "Trip #:"), "tripNoField"},
    {QT_TRANSLATE_NOOP("TripForm", "Payweek:"), "payweekField"},
    {QT_TRANSLATE_NOOP("TripForm", "Empty Miles:"), "emptyMilesField"},
    {QT_TRANSLATE_NOOP("TripForm", "Loaded Miles:"), "loadedMilesField"},
    {QT_TRANSLATE_NOOP("TripForm", "Linehaul:"), "linehaulField"},
    {QT_TRANSLATE_NOOP("TripForm", "FUSU:"), "fusuField"},
    {QT_TRANSLATE_NOOP("TripForm", "Carrier %:"), "carrierPercentField"},
}};

} // namespace

TripForm::TripForm(QWidget *parent)
    : QGroupBox(tr("Trip Form"), parent)
    , tripIdLabel(new QLabel(this))
    , hoursLabel(new QLabel(this))
    , netPerHourLabel(new QLabel(this))
{
    setObjectName(u"tripForm"_s);
    tripIdLabel->setObjectName(u"tripIdLabel"_s);
    hoursLabel->setObjectName(u"tripHoursLabel"_s);
    netPerHourLabel->setObjectName(u"netPerHourLabel"_s);
    buildRows();
    setTripId(0);
    showHours({});
}

void TripForm::buildRows()
{
    auto *rows = new QFormLayout(this);
    rows->addRow(tr("Loaded Trip ID:"), tripIdLabel);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        fields.at(i) = new QLineEdit(this);
        fields.at(i)->setObjectName(QLatin1StringView(formRows.at(i).objectName));
        rows->addRow(tr(formRows.at(i).label), fields.at(i));
    }
    rows->addRow(tr("Trip Hours:"), hoursLabel);
    rows->addRow(tr("Net / Hour:"), netPerHourLabel);
}

int TripForm::currentTripId() const
{
    return tripIdLabel->text().toInt(); // "(new trip)" is no number and gives 0
}

void TripForm::setTripId(int id)
{
    tripIdLabel->setText(id > 0 ? QString::number(id) : tr("(new trip)"));
}

QString TripForm::text(Field field) const
{
    return FieldText::of(fields.at(field));
}

void TripForm::setText(Field field, const QString &text)
{
    FieldText::show(fields.at(field), text);
    FieldText::setReadOnly(fields.at(field), false);
}

void TripForm::showTrip(const QStringList &row)
{
    setTripId(row.at(IdColumn).toInt());
    setText(TripNo, row.at(TripNoColumn));
    setText(Payweek, row.at(PayweekColumn));
    setText(EmptyMiles, row.at(EmptyMilesColumn));
    setText(LoadedMiles, row.at(LoadedMilesColumn));
    setText(Linehaul, row.at(LinehaulColumn));
    setText(Fusu, row.at(FusuColumn));
    setText(CarrierPercent, row.at(CarrierPercentColumn));
}

TripsRepository::TripRecord TripForm::trip() const
{
    TripsRepository::TripRecord trip;
    trip.id = currentTripId();
    trip.tripNo = text(TripNo).trimmed();
    trip.payweek = text(Payweek).trimmed();
    trip.emptyMiles = DomainRules::parseNumberText(text(EmptyMiles));
    trip.loadedMiles = DomainRules::parseNumberText(text(LoadedMiles));
    trip.carrierPercent = DomainRules::parseNumberText(text(CarrierPercent));
    trip.linehaul = DomainRules::parseMoneyText(text(Linehaul));
    trip.fusu = DomainRules::parseMoneyText(text(Fusu));
    return trip;
}

void TripForm::showHours(const TripArithmetic::TripHoursResult &hours)
{
    hoursLabel->setText(TripArithmetic::hoursText(hours));
    netPerHourLabel->setText(TripArithmetic::netPerHourText(hours));
}

void TripForm::clear()
{
    setTripId(0);
    for (int field = TripNo; field < fieldCount; ++field)
        setText(static_cast<Field>(field), {});
    showHours({});
}

void TripForm::focusTripNo()
{
    fields.at(TripNo)->setFocus();
}
