#pragma once

#include <QDate>
#include <QTableWidgetItem>

/// A cell of the trip list that knows its own order: numbers by value, payweeks by date, anything
/// else by text as the locale orders it. Twenty years of trips are 45,000 cells, so what a cell
/// knows lies in members and is only handed out as roles; it cannot be changed.
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

    /// A cell that orders by its text.
    explicit TripsTableItem(const QString &text);

    /// A number, shown as `text` at the right of its cell, stored as `rawText`.
    TripsTableItem(const QString &text, const QString &rawText, double number);

    /// A payweek, shown as stored. An invalid date sorts ahead of all others.
    TripsTableItem(const QString &payweek, QDate date);

    [[nodiscard]] QVariant data(int role) const override;
    bool operator<(const QTableWidgetItem &other) const override;

private:
    SortKind sortKind = SortText;
    QString shown;
    QString raw;
    double sortNumber = 0.0;
    QDate sortDate;
};
