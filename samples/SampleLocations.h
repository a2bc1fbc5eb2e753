#pragma once

#include "samples/SampleDraw.h"
#include "samples/SampleRecords.h"

/// Two docks in each of sixty cities: the places are real, the docks are not.
QList<SampleLocation> sampleLocations(SampleDraw &draw);

/// Road miles between two locations: at least one, and near enough for a trip sheet.
int roadMiles(const SampleLocation &from, const SampleLocation &to);

/// The other location whose road miles from `from` come nearest to `wantedMiles`, by its place in
/// the list.
qsizetype locationAtDistance(const QList<SampleLocation> &locations, qsizetype from,
                             int wantedMiles);
