#include "trips/TripsTableItem.h"

void TripsTableItem::setSortNumber(double number)
{
    setData(sortKindRole, SortNumber);
    setData(sortNumberRole, number);
}

void TripsTableItem::setSortDate(QDate date)
{
    setData(sortKindRole, SortDate);
    setData(sortDateRole, date);
}

bool TripsTableItem::operator<(const QTableWidgetItem &other) const
{
    const int kind = data(sortKindRole).toInt();
    if (kind == other.data(sortKindRole).toInt()) {
        if (kind == SortNumber)
            return data(sortNumberRole).toDouble() < other.data(sortNumberRole).toDouble();
        if (kind == SortDate)
            return data(sortDateRole).toDate() < other.data(sortDateRole).toDate();
    }
    return QString::localeAwareCompare(text(), other.text()) < 0;
}
