#pragma once

#include "settlements/PayweekRecords.h"

/// The arithmetic between payweeks, on values alone.
namespace CarryoverRules {

/// The Emergency Fund and the Performance Bond together, as interest sees them. The Tire Fund
/// earns none.
struct FundBase
{
    double change = 0.0;
    double total = 0.0;
    double previousBalance = 0.0;
    double interestBase = 0.0;
};

PayweekBasicSummary basicSummary(const PayweekTripTotals &trips,
                                 const PayweekSettlementTotals &items);

FundBase fundBase(const PayweekFundSummary &emergencyFund,
                  const PayweekFundSummary &performanceBond);

/// Simple interest for one payweek in dollars, not rounded: a 52nd of `apr` percent of the base.
/// Below zero where the base or the rate is.
double interest(double base, double apr);

/// What is carried on after a week with this result: a debt, or nothing.
double carriedOn(double carryover, double weekResult);

} // namespace CarryoverRules
