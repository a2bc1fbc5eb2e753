#pragma once

#include "samples/SampleRecords.h"

/// The settlement that a carrier would print for a week, as the lines of its one page. Fuel is
/// charged after its discount, so that what is scanned from it comes to the trip's own costs.
QStringList settlementPage(const SampleWeek &week);

/// Prints settlements of the last weeks into `folder`, which is made if it is missing: the last one
/// as text, the one before it as a scan, and fifteen in one file, a page each. A file that is
/// there already is written over. On failure returns false with the reason in `error`.
bool writeSampleSettlements(const QString &folder, const SampleBusiness &business, QString &error);
