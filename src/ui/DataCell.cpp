#include "ui/DataCell.h"

#include "data/MoneyText.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

std::optional<double> shownNumber(const QString &raw)
{
    bool ok = false;
    double number = raw.toDouble(&ok);
    if (!ok) {
        QString text = raw.trimmed().remove(u'$').remove(u',');
        for (const auto unit : {"/gal"_L1, "/mi"_L1, "/hr"_L1, "mi"_L1, "hr"_L1})
            text.remove(unit, Qt::CaseInsensitive);
        number = text.trimmed().toDouble(&ok);
    }
    return ok && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

QString shownText(DataCell::Form form, const QString &raw, std::optional<double> number)
{
    if (!number)
        return raw;
    switch (form) {
    case DataCell::Form::Money:
        return groupedMoneyText(*number);
    case DataCell::Form::MoneyPerMile:
        return groupedMoneyText(*number) + "/mi"_L1;
    case DataCell::Form::MoneyPerHour:
        return groupedMoneyText(*number) + "/hr"_L1;
    case DataCell::Form::Text:
    case DataCell::Form::Number:
        break;
    }
    return raw;
}

} // namespace

DataCell::DataCell(Form form, const QString &raw)
    : rawText(raw)
    , number(form == Form::Text ? std::nullopt : shownNumber(raw))
    , shown(shownText(form, raw, number))
    , standsRight(form != Form::Text)
{
}

QVariant DataCell::data(int role) const
{
    if (role == Qt::DisplayRole)
        return shown;
    if (role == rawTextRole)
        return rawText;
    if (role == Qt::TextAlignmentRole && standsRight)
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    return QTableWidgetItem::data(role);
}

bool DataCell::operator<(const QTableWidgetItem &other) const
{
    const auto *cell = dynamic_cast<const DataCell *>(&other);
    if (!cell || (!number && !cell->number))
        return QTableWidgetItem::operator<(other);
    // Text among numbers needs one place: compared with each as text, 9 < 10 < 5x < 9.
    return number && (!cell->number || *number < *cell->number);
}
