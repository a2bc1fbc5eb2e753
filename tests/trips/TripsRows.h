#pragma once

#include "support/RowMakers.h"
#include "support/Workspace.h"

/// What a call that goes well has to clear away.
inline const QString staleError = QStringLiteral("an older error");

/// Makes the stops those of a file from before appointment windows: trip 1 is picked up at 08:00
/// and delivered at 18:00.
inline void makeStopsFromBeforeWindows(const Workspace &workspace)
{
    workspace.execute(QStringLiteral("DROP TABLE trip_stops"));
    workspace.execute(QStringLiteral("CREATE TABLE trip_stops ("
                                     "id INTEGER PRIMARY KEY, trip_id INTEGER, stop_type TEXT, "
                                     "location_code TEXT, appt TEXT, stop_order INTEGER)"));
    stop(1).at(QStringLiteral("2026-04-17T08:00:00")).insert(workspace);
    stop(1)
        .type(QStringLiteral("receiver"))
        .at(QStringLiteral("2026-04-17T18:00:00"))
        .order(1)
        .insert(workspace);
}

/// Inserts a trip of 600 miles that earns $1250 and costs $300, with ten hours from its pickup to
/// its delivery: the list and the form show 13.00 hours and $73.08 an hour.
inline qint64 insertWorkedTrip(const Workspace &workspace, const QString &tripNo,
                               const QString &payweek = QStringLiteral("04/18/2026"))
{
    const qint64 id = trip()
                          .no(tripNo)
                          .payweek(payweek)
                          .totals(1250.0, 300.0)
                          .set(QStringLiteral("linehaul"), 1000.0)
                          .set(QStringLiteral("fusu"), 200.0)
                          .set(QStringLiteral("carrier_make"), 250.0)
                          .set(QStringLiteral("cpm"), 158.33)
                          .insert(workspace);
    payItem(id, QStringLiteral("Layover"), 50.0).insert(workspace);
    costItem(id, QStringLiteral("Repair"), 300.0).insert(workspace);
    stop(id).at(QStringLiteral("2026-04-17T08:00:00")).insert(workspace);
    stop(id)
        .type(QStringLiteral("receiver"))
        .at(QStringLiteral("2026-04-17T18:00:00"))
        .order(1)
        .insert(workspace);
    return id;
}

/// The same trip with a row in each of its grids: fuel for $387.80 too.
inline qint64 insertFullTrip(const Workspace &workspace)
{
    const qint64 id = insertWorkedTrip(workspace, QStringLiteral("4471203"));
    fuel(id, QStringLiteral("Truck Fuel"), 412.8, 25.0, 100.0).insert(workspace);
    return id;
}

/// Trip 1 in the week of April 11, trips 2 and 3 in the week after.
inline QString makeTwoWeeks(Workspace &workspace)
{
    QString path = workspace.makeTrips();
    trip().no(QStringLiteral("1")).payweek(QStringLiteral("04/11/2026")).insert(workspace);
    trip().no(QStringLiteral("2")).payweek(QStringLiteral("04/18/2026")).insert(workspace);
    trip().no(QStringLiteral("3")).payweek(QStringLiteral("04/18/2026")).insert(workspace);
    return path;
}
