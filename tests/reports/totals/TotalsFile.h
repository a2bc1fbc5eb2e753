#pragma once

#include "reports/totals/PayTotalsRepository.h"
#include "support/RowMakers.h"
#include "support/TestConnection.h"

inline const QString week = QStringLiteral("01/02/2026");
inline const QString nextWeek = QStringLiteral("01/09/2026");
inline const QString year = QStringLiteral("2026");

/// An empty trips.db, open as the page has it.
struct TotalsFile
{
    Workspace workspace;
    TestConnection trips = TestConnection(workspace.makeTrips());

    [[nodiscard]] const QSqlDatabase &database() const { return trips.database(); }
};

/// A settlement item of any kind.
inline SettlementItemMaker item(const QString &payweek, const QString &kind, const QString &name,
                                double amount)
{
    return {payweek, kind, name, amount};
}

/// Two payweeks of 2026 with trips, fuel and items, a third with an item alone, and one of 2025
/// that must never count.
inline void insertWorkedYear(const Workspace &workspace)
{
    const QString miles = QStringLiteral("total_miles");
    const qint64 first =
        trip().payweek(week).set(miles, 400.0).totals(1000.5, 400.25).insert(workspace);
    trip().payweek(week).set(miles, 400.0).totals(500.0, 100.0).insert(workspace);
    fuel(first, QStringLiteral("Truck Fuel"), 400.0, 40.0, 100.0).insert(workspace);
    fuel(first, QStringLiteral("Reefer Fuel"), 80.0, 5.0, 20.0).insert(workspace);
    fuel(first, QStringLiteral("DEF"), 30.0, 1.0, 10.0).insert(workspace);
    fuel(first, QStringLiteral("Oil"), 12.0, 0.0, 0.0).insert(workspace);
    revenue(week, QStringLiteral("Bonus"), 50.0).insert(workspace);
    expense(week, QStringLiteral("Emergency Fund"), 100.0).insert(workspace);
    expense(week, QStringLiteral("Tire Fund"), 50.0).insert(workspace);
    expense(week, QStringLiteral("Permit"), 25.25).insert(workspace);
    item(week, QStringLiteral("other"), QStringLiteral("Correction"), 5.0).insert(workspace);

    const qint64 second =
        trip().payweek(nextWeek).set(miles, 200.0).totals(900.0, 300.0).insert(workspace);
    fuel(second, QStringLiteral("Truck Fuel"), 100.0, 0.0, 25.0).insert(workspace);
    revenue(nextWeek, QStringLiteral("Emergency Fund Withdrawal"), 30.0).insert(workspace);
    expense(nextWeek, QStringLiteral("Performance Bond"), 10.0).insert(workspace);

    expense(QStringLiteral("01/16/2026"), QStringLiteral("Permit"), 10.0).insert(workspace);

    const QString lastYear = QStringLiteral("12/26/2025");
    const qint64 old = trip().payweek(lastYear).totals(7777.0, 1.0).insert(workspace);
    fuel(old, QStringLiteral("DEF"), 6000.0, 0.0, 1.0).insert(workspace);
    expense(lastYear, QStringLiteral("Permit"), 9999.0).insert(workspace);
}

// The figures of a record in its own order, counts among them.

inline QList<double> figuresOf(const PayTotalsSummary &totals)
{
    return {double(totals.tripCount), totals.tripRevenue,  totals.settlementRevenue,
            totals.totalRevenue,      totals.tripExpenses, totals.settlementExpenses,
            totals.totalExpenses,     totals.netRevenue,   totals.totalMiles,
            totals.cpmTotalRevenue,   totals.cpmNetRevenue};
}

inline QList<double> figuresOf(const NonTripTotals &totals)
{
    return {totals.totalRevenue,     totals.totalExpenses, totals.netImpact,
            totals.emergencyFundNet, totals.tireFundNet,   totals.performanceBondNet,
            totals.otherRevenue,     totals.otherExpense};
}

inline QList<double> figuresOf(const FuelBucket &bucket)
{
    return {double(bucket.rowCount), bucket.cost,    bucket.discount,
            bucket.netCost,          bucket.gallons, bucket.avgNetPricePerGallon};
}

inline QList<double> figuresOf(const FuelDetailRow &row)
{
    return {row.cost, row.discount, row.netCost, row.gallons, row.netPricePerGallon};
}

inline QString plainText(double value)
{
    return QString::number(value, 'g', 15);
}

/// Category, kind, name, rows, total, net impact.
inline QList<QStringList> groupTexts(const NonTripTotals &totals)
{
    QList<QStringList> texts;
    for (const NonTripGroup &group : totals.groups)
        texts.append({group.category, group.kind, group.name, QString::number(group.rowCount),
                      plainText(group.totalAmount), plainText(group.netImpact)});
    return texts;
}

/// Date, category, kind, name, amount, effect.
inline QList<QStringList> rowTexts(const NonTripTotals &totals)
{
    QList<QStringList> texts;
    for (const NonTripRow &row : totals.rows)
        texts.append({row.settlementDate, row.category, row.kind, row.name, plainText(row.amount),
                      plainText(row.signedAmount)});
    return texts;
}

inline QStringList typeLabels(const FuelTotals &totals)
{
    QStringList labels;
    for (const FuelBucket &type : totals.types)
        labels.append(type.label);
    return labels;
}

/// The labels of the four buckets that are always there.
inline QStringList fixedLabels(const FuelTotals &totals)
{
    return {totals.allFuel.label, totals.truckFuel.label, totals.reeferFuel.label,
            totals.def.label};
}

inline const QStringList labelsOfFuelTotals = {
    QStringLiteral("All Fuel / DEF"), QStringLiteral("Truck Fuel"), QStringLiteral("Reefer Fuel"),
    QStringLiteral("DEF")};

inline QStringList labelsOf(const QList<ChartPoint> &series)
{
    QStringList labels;
    for (const ChartPoint &point : series)
        labels.append(point.label);
    return labels;
}

inline QList<double> valuesOf(const QList<ChartPoint> &series)
{
    QList<double> values;
    for (const ChartPoint &point : series)
        values.append(point.value);
    return values;
}
