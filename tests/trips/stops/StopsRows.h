#pragma once

#include "support/RowMakers.h"
#include "support/Workspace.h"

/// Makes trips.db with trip 1, which has no stops.
inline QString makeTrip(Workspace &workspace)
{
    const QString path = workspace.makeTrips();
    trip().insert(workspace);
    return path;
}

/// Makes trips.db with trip 1, which is picked up at 08:00, passes KC1 at noon and is delivered
/// at 18:00.
inline QString makeTripOfThreeStops(Workspace &workspace)
{
    const QString path = makeTrip(workspace);
    stop(1).at(QStringLiteral("2026-04-17T08:00:00")).insert(workspace);
    stop(1)
        .at(QStringLiteral("2026-04-17T12:00:00"))
        .set(QStringLiteral("location_code"), QStringLiteral("KC1"))
        .order(1)
        .insert(workspace);
    stop(1)
        .type(QStringLiteral("receiver"))
        .at(QStringLiteral("2026-04-17T18:00:00"))
        .order(2)
        .insert(workspace);
    return path;
}

/// The three stops as storedStops() reads them.
inline const QStringList firstStored = {QStringLiteral("1"), QStringLiteral("shipper"),
                                        QStringLiteral(""),  QStringLiteral("2026-04-17T08:00:00"),
                                        QStringLiteral("0"), QStringLiteral("0"),
                                        QStringLiteral("")};
inline const QStringList secondStored = {
    QStringLiteral("1"),   QStringLiteral("shipper"),
    QStringLiteral("KC1"), QStringLiteral("2026-04-17T12:00:00"),
    QStringLiteral("1"),   QStringLiteral("0"),
    QStringLiteral("")};
inline const QStringList thirdStored = {QStringLiteral("1"), QStringLiteral("receiver"),
                                        QStringLiteral(""),  QStringLiteral("2026-04-17T18:00:00"),
                                        QStringLiteral("2"), QStringLiteral("0"),
                                        QStringLiteral("")};
inline const QList<QStringList> allStored = {firstStored, secondStored, thirdStored};
