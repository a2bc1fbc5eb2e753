#pragma once

#include "support/RowMakers.h"
#include "support/Workspace.h"

/// The fuel rows of a trips.db, without their ids and times.
inline QList<QStringList> fuelRows(const Workspace &workspace)
{
    return workspace.rows(
        QStringLiteral("SELECT trip_id, group_name, item_type, cost, discount, gallons "
                       "FROM trip_detail_items ORDER BY id"));
}

inline int loggedImportCount(const Workspace &workspace)
{
    return workspace.value(QStringLiteral("SELECT COUNT(*) FROM settlement_import_log")).toInt();
}

/// Every row of every table that no import writes to.
inline QList<QStringList> otherRows(const Workspace &workspace)
{
    QList<QStringList> all;
    const QList<QStringList> tables = workspace.rows(QStringLiteral(
        "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%' "
        "AND name NOT IN ('trip_detail_items', 'settlement_import_log') ORDER BY name"));
    for (const QStringList &table : tables) {
        all.append(table);
        all += workspace.rows(QStringLiteral("SELECT * FROM ") + table.first());
    }
    return all;
}

/// A trip with a row in each of its tables, in a settlement with a row in each of its own. Gives
/// the trip's id.
inline qint64 insertBusinessWeek(const Workspace &workspace)
{
    const QString week = QStringLiteral("04/18/2026");
    const qint64 id = trip().no(QStringLiteral("4471203")).payweek(week).insert(workspace);
    stop(id).insert(workspace);
    payItem(id, QStringLiteral("Layover"), 100.0).insert(workspace);
    costItem(id, QStringLiteral("Truck Fuel"), 412.80).insert(workspace);
    workspace.execute(QStringLiteral("INSERT INTO trip_trailers (trip_id) VALUES (?)"), {id});
    expense(week, QStringLiteral("Insurance"), 250.0).insert(workspace);
    apr(week, 18.0).insert(workspace);
    return id;
}
