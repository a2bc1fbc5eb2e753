#pragma once

#include "trips/TripArithmetic.h"

#include <QString>
#include <QStringList>

/// The text of the details pane: one line a column of the trip list, with the totals and hours as
/// they are now and the carrier's share behind the net. `cells` are the shown texts of the
/// TripColumn columns.
QString tripDetailsText(const QStringList &cells, const TripArithmetic::TripTotals &totals,
                        const TripArithmetic::TripHoursResult &hours);
