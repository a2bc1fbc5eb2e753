#pragma once

#include "support/RowMakers.h"
#include "support/Workspace.h"

/// Inserts a trip of 600 miles with a number of its own.
inline void insertTrip(const Workspace &workspace, const QString &payweek, double revenue,
                       double cost)
{
    trip().payweek(payweek).totals(revenue, cost).insert(workspace);
}

/// Three payweeks of 2026 on paper: the first ends $710.00 below zero, the second pays $560.00 of
/// that back, the third takes $30.00 out of the Emergency Fund.
inline void insertWorkedWeeks(const Workspace &workspace, double lastTripRevenue = 800.0)
{
    const QString first = QStringLiteral("01/02/2026");
    const QString second = QStringLiteral("01/09/2026");
    const QString third = QStringLiteral("01/16/2026");
    const QString emergencyFund = QStringLiteral("Emergency Fund");
    const QString performanceBond = QStringLiteral("Performance Bond");

    insertTrip(workspace, first, 1000.0, 1500.0);
    expense(first, emergencyFund, 100.0).insert(workspace);
    expense(first, QStringLiteral("Tire Fund"), 50.0).insert(workspace);
    expense(first, performanceBond, 60.0).insert(workspace);
    apr(first, 5.2).insert(workspace);

    insertTrip(workspace, second, 900.0, 300.0);
    expense(second, emergencyFund, 40.0).insert(workspace);

    insertTrip(workspace, third, lastTripRevenue, 200.0);
    revenue(third, QStringLiteral("Emergency Fund Withdrawal"), 30.0).insert(workspace);
    expense(third, performanceBond, 10.0).insert(workspace);
    apr(third, 10.4).insert(workspace);
}

/// Lets an amount below minus nine quintillion fail the statement that reads it, and no other:
/// SQLite has no absolute value of its least integer.
inline void makeHugeAmountsUnreadable(const Workspace &workspace)
{
    workspace.execute(QStringLiteral("ALTER TABLE settlement_non_trip_items RENAME TO stored"));
    workspace.execute(QStringLiteral(
        "CREATE VIEW settlement_non_trip_items AS SELECT id, settlement_date, kind, name, "
        "CASE WHEN amount < -9e18 THEN abs(CAST(amount AS INTEGER)) ELSE amount END AS amount "
        "FROM stored"));
}

/// The same for the miles of a trip: the trips before it are read, then the statement fails.
inline void makeHugeMilesUnreadable(const Workspace &workspace)
{
    workspace.execute(QStringLiteral("ALTER TABLE trips RENAME TO stored_trips"));
    workspace.execute(QStringLiteral(
        "CREATE VIEW trips AS SELECT id, trip_no, payweek, CASE WHEN total_miles < -9e18 "
        "THEN abs(CAST(total_miles AS INTEGER)) ELSE total_miles END AS total_miles, "
        "total_revenue, total_cost, net_revenue, cpm, trip_hours, net_per_hour "
        "FROM stored_trips"));
}
