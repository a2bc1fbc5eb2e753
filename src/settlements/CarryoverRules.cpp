#include "settlements/CarryoverRules.h"

#include "data/MoneyText.h"

namespace CarryoverRules {

namespace {

// A settlement year has 52 payweeks, however many Fridays the calendar finds.
constexpr double payweeksPerYear = 52.0;

} // namespace

PayweekBasicSummary basicSummary(const PayweekTripTotals &trips,
                                 const PayweekSettlementTotals &items)
{
    PayweekBasicSummary summary;
    summary.totalRevenue = roundTo(trips.revenue + items.revenue, 2);
    summary.totalExpense = roundTo(trips.cost + items.expense, 2);
    summary.net = roundTo(summary.totalRevenue - summary.totalExpense, 2);
    if (trips.miles > 0.0)
        summary.netCpm = roundTo(summary.net / trips.miles * 100.0, 2);
    return summary;
}

FundBase fundBase(const PayweekFundSummary &emergencyFund,
                  const PayweekFundSummary &performanceBond)
{
    FundBase base;
    base.change = emergencyFund.netChange + performanceBond.netChange;
    base.total = emergencyFund.balanceThroughPayweek + performanceBond.balanceThroughPayweek;
    base.previousBalance = base.total - base.change;
    base.interestBase = base.change + base.previousBalance;
    return base;
}

double interest(double base, double apr)
{
    if (base == 0.0 || apr == 0.0)
        return 0.0;
    return apr / 100.0 * base / payweeksPerYear;
}

double carriedOn(double carryover, double weekResult)
{
    const double result = carryover + weekResult;
    return result < 0.0 ? result : 0.0;
}

} // namespace CarryoverRules
