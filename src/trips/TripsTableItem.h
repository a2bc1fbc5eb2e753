#pragma once

#include <QDate>
#include <QTableWidgetItem>

/// A cell of the trip list that knows its own order: numbers by value, payweeks by date, anything
/// else by text as the locale orders it.
class TripsTableItem : public QTableWidgetItem
{
public:
    enum Role {
        payweekRole = Qt::UserRole,
        rawTextRole = Qt::UserRole + 1,
        sortKindRole = Qt::UserRole + 100,
        sortNumberRole,
        sortDateRole
    };
    enum SortKind { SortText, SortNumber, SortDate };

    using QTableWidgetItem::QTableWidgetItem;

    void setSortNumber(double number);
    /// An invalid date sorts ahead of all others.
    void setSortDate(QDate date);

    bool operator<(const QTableWidgetItem &other) const override;
};
