#pragma once

#include <QString>

/// What a payweek comes to, as the repository reads it. Amounts are dollars, and zero until read.

/// The trips of the week. The net is for showing: a settlement pays revenue less cost.
struct PayweekTripTotals
{
    double miles = 0.0;
    double revenue = 0.0;
    double cost = 0.0;
    double net = 0.0;
    int tripCount = 0;
};

/// The settlement items that belong to no trip. An item of any other kind counts, but in no sum.
struct PayweekSettlementTotals
{
    double revenue = 0.0;
    double expense = 0.0;
    int itemCount = 0;
};

/// One fund. A contribution is an expense item and a withdrawal a revenue item, and both count in
/// the week's settlement too; this only reports them.
struct PayweekFundSummary
{
    double added = 0.0;
    double withdrawn = 0.0;
    double netChange = 0.0;
    /// From the start of the calendar year through this payweek, not rounded.
    double balanceThroughPayweek = 0.0;
};

/// The fuel and DEF rows of the week's trips. Gallons, and net dollars per gallon to 4 decimals.
struct PayweekFuelAnalytics
{
    double truckFuelNetCost = 0.0;
    double reeferFuelNetCost = 0.0;
    double defNetCost = 0.0;
    double totalCostBeforeDiscount = 0.0;
    double totalDiscounts = 0.0;
    double netCost = 0.0;
    double totalGallons = 0.0;
    double averageNetPricePerGallon = 0.0;
    int detailRowCount = 0;
};

/// Trips and other items together, to cents; `netCpm` is cents per mile.
struct PayweekBasicSummary
{
    double totalRevenue = 0.0;
    double totalExpense = 0.0;
    double net = 0.0;
    double netCpm = 0.0;
};

/// What the driver is owed or owes after the earlier payweeks of the year. No figure is rounded:
/// fractions of a cent stay until they are printed.
struct PayweekCarryoverSummary
{
    /// 0 if the payweek is no date.
    int settlementYear = 0;
    /// What earlier weeks still have to be paid back; never above zero.
    double previousCarryover = 0.0;
    double previousFundBalance = 0.0;
    /// This payweek's change of the two funds that earn interest.
    double fundChange = 0.0;
    double interestBaseBalance = 0.0;
    /// Percent per year.
    double apr = 0.0;
    double interestThisPayweek = 0.0;
    double settlementTotalBeforeInterest = 0.0;
    double settlementTotalAfterInterest = 0.0;
    double netAfterInterest = 0.0;
    double adjustedNetAfterCarryover = 0.0;
    /// What the next payweek has to pay back; never above zero.
    double carryoverForward = 0.0;
    double currentYearFundBalance = 0.0;
};

/// All figures of one payweek.
struct PayweekFigures
{
    QString payweek;
    PayweekTripTotals trips;
    PayweekSettlementTotals items;
    PayweekBasicSummary basic;
    PayweekFundSummary emergencyFund;
    PayweekFundSummary tireFund;
    PayweekFundSummary performanceBond;
    PayweekFuelAnalytics fuel;
    PayweekCarryoverSummary carryover;
};
