#pragma once

#include "support/Workspace.h"

#include <QString>
#include <QVariantMap>

/// Rows of trips.db for a test, with what the test does not care about filled in:
///
///     const qint64 id = trip().no(u"4471203"_s).payweek(u"04/18/2026"_s).insert(workspace);
///
/// Values are stored as they are given, so that blanks, NULLs and text in number columns can be
/// made too: set("linehaul", QVariant()).
template <typename Maker>
class RowMaker
{
public:
    /// Any column by name.
    Maker &set(const QString &column, const QVariant &value)
    {
        values.insert(column, value);
        return static_cast<Maker &>(*this);
    }

    /// Inserts the row and gives its id.
    qint64 insert(const Workspace &workspace) const
    {
        const QStringList columns = values.keys();
        const QString marks =
            QStringList(columns.size(), QStringLiteral("?")).join(QStringLiteral(", "));
        return workspace.insert(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                                    .arg(table, columns.join(QStringLiteral(", ")), marks),
                                values.values());
    }

protected:
    explicit RowMaker(const QString &tableName)
        : table(tableName)
    {
    }

private:
    QString table;
    QVariantMap values;
};

/// A trip of 500 loaded and 100 empty miles; its computed columns are zero unless set.
class TripMaker : public RowMaker<TripMaker>
{
public:
    TripMaker();
    TripMaker &no(const QString &number) { return set(QStringLiteral("trip_no"), number); }
    TripMaker &payweek(const QString &week) { return set(QStringLiteral("payweek"), week); }
    /// Dollars; net_revenue follows as their difference.
    TripMaker &totals(double revenue, double cost);
};

class StopMaker : public RowMaker<StopMaker>
{
public:
    explicit StopMaker(qint64 tripId);
    StopMaker &type(const QString &stopType) { return set(QStringLiteral("stop_type"), stopType); }
    StopMaker &at(const QString &appointment) { return set(QStringLiteral("appt"), appointment); }
    /// An appointment window from the one time to the other.
    StopMaker &window(const QString &earliest, const QString &latest);
    StopMaker &order(int position) { return set(QStringLiteral("stop_order"), position); }
};

/// A row of trip_pay_items or trip_cost_items.
class TripItemMaker : public RowMaker<TripItemMaker>
{
public:
    TripItemMaker(const QString &tableName, qint64 tripId, const QString &name, double amount);
};

/// A fuel or DEF purchase: dollars, dollars, gallons.
class FuelMaker : public RowMaker<FuelMaker>
{
public:
    FuelMaker(qint64 tripId, const QString &type, double cost, double discount, double gallons);
};

/// A settlement item that belongs to no trip, in dollars.
class SettlementItemMaker : public RowMaker<SettlementItemMaker>
{
public:
    SettlementItemMaker(const QString &payweek, const QString &kind, const QString &name,
                        double amount);
};

/// The rate of a payweek in percent per year.
class AprMaker : public RowMaker<AprMaker>
{
public:
    AprMaker(const QString &payweek, double apr);
};

inline TripMaker trip()
{
    return {};
}
inline StopMaker stop(qint64 tripId)
{
    return StopMaker(tripId);
}
inline TripItemMaker payItem(qint64 tripId, const QString &name, double amount)
{
    return {QStringLiteral("trip_pay_items"), tripId, name, amount};
}
inline TripItemMaker costItem(qint64 tripId, const QString &name, double amount)
{
    return {QStringLiteral("trip_cost_items"), tripId, name, amount};
}
inline FuelMaker fuel(qint64 tripId, const QString &type, double cost, double discount,
                      double gallons)
{
    return {tripId, type, cost, discount, gallons};
}
inline SettlementItemMaker expense(const QString &payweek, const QString &name, double amount)
{
    return {payweek, QStringLiteral("expense"), name, amount};
}
inline SettlementItemMaker revenue(const QString &payweek, const QString &name, double amount)
{
    return {payweek, QStringLiteral("revenue"), name, amount};
}
inline AprMaker apr(const QString &payweek, double percent)
{
    return {payweek, percent};
}
