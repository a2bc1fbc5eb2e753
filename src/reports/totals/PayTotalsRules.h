#pragma once

#include "reports/totals/PayTotalsRecords.h"

/// The arithmetic of Pay Totals, on values alone. It stands apart from that of a payweek on
/// purpose: the two round at different places and know funds and fuel by different rules.
namespace PayTotalsRules {

/// Fills the totals, the net and the figures per mile from the sums of trips and items.
PayTotalsSummary withTotals(PayTotalsSummary summary);

/// Fills category and effect from kind, name and amount.
NonTripRow withEffect(NonTripRow row);

/// Adds up items that have their category and effect.
NonTripTotals nonTripTotals(const QList<NonTripRow> &rows);

/// Turns the stored type into the one it counts as, and fills net cost and price.
FuelDetailRow withNetCost(FuelDetailRow row);

/// Adds up purchases that have their type and net cost. The four fixed buckets have their labels
/// even without a purchase.
FuelTotals fuelTotals(const QList<FuelDetailRow> &rows);

} // namespace PayTotalsRules
