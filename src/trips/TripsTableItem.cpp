#include "trips/TripsTableItem.h"

TripsTableItem::TripsTableItem(const QString &text)
    : shown(text)
    , raw(text)
{
}

TripsTableItem::TripsTableItem(const QString &text, const QString &rawText, double number)
    : sortKind(SortNumber)
    , shown(text)
    , raw(rawText)
    , sortNumber(number)
{
}

TripsTableItem::TripsTableItem(const QString &payweek, QDate date)
    : sortKind(SortDate)
    , shown(payweek)
    , raw(payweek)
    , sortDate(date)
{
}

QVariant TripsTableItem::data(int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return shown;
    case payweekRole:
        return sortKind == SortDate ? raw : QVariant();
    case rawTextRole:
        return raw;
    case sortKindRole:
        return sortKind;
    case sortNumberRole:
        return sortNumber;
    case sortDateRole:
        return sortDate;
    case Qt::TextAlignmentRole:
        return sortKind == SortNumber ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
    default:
        return QTableWidgetItem::data(role);
    }
}

bool TripsTableItem::operator<(const QTableWidgetItem &other) const
{
    if (sortKind == other.data(sortKindRole).toInt()) {
        if (sortKind == SortNumber)
            return sortNumber < other.data(sortNumberRole).toDouble();
        if (sortKind == SortDate)
            return sortDate < other.data(sortDateRole).toDate();
    }
    return QString::localeAwareCompare(shown, other.text()) < 0;
}
