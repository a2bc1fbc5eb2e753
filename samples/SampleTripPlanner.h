#pragma once

#include "samples/SampleDraw.h"
#include "samples/SampleFuel.h"
#include "samples/SampleRecords.h"

/// Plans the loads of a week. Each starts where the last one ended, so that the empty miles between
/// them are those of the map.
class SampleTripPlanner
{
public:
    SampleTripPlanner(const QList<SampleLocation> &docks, SampleDraw &sharedDraw);

    /// The trips that are paid in `payweek`, a Friday: driven from Monday to Saturday of the week
    /// before. A load that would keep the driver out on Sunday is not taken, so there may be fewer
    /// than `count`; and no trip is under way when the clocks change.
    QList<SampleTrip> planWeek(const QDate &payweek, int count);

private:
    SampleTrip planTrip(int tripsThisWeek);
    void planRoute(SampleTrip &trip, int tripsThisWeek);
    int driveAbout(int wantedMiles);
    void addStop(SampleTrip &trip, const QString &type);
    void priceLoad(SampleTrip &trip);
    void addPayItems(SampleTrip &trip, bool reefer);
    void addCostItems(SampleTrip &trip, bool reefer);

    QList<SampleLocation> locations;
    SampleDraw &draw;
    SampleFuel fuel;
    qsizetype place = 0;
    QDateTime clock;
    int number = 0;
};
