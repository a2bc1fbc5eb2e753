#pragma once

#include "samples/SampleRecords.h"

/// An owner-operator who never was, told week by week: loads, fuel, settlements, funds, breakdowns.
/// The last week is always the one of 11/20/2026, so that nothing depends on the day it is made.
inline constexpr int fewestSampleYears = 1;
inline constexpr int mostSampleYears = 20;

/// The business of the last `years` (1 to 20), the same for the same seed. Twenty years are about
/// 3,000 trips, 9,000 stops, 9,000 fuel rows and 8,000 settlement items.
SampleBusiness makeSampleBusiness(int years, quint32 seed);
