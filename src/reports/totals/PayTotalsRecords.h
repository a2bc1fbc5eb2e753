#pragma once

#include <QList>
#include <QString>

/// What a year or a payweek comes to, as Pay Totals shows it. Amounts are dollars, and zero until
/// read.

/// Trips and settlement items together. Only the three totals are rounded, to cents.
struct PayTotalsSummary
{
    int tripCount = 0;
    double tripRevenue = 0.0;
    double settlementRevenue = 0.0;
    double totalRevenue = 0.0;
    double tripExpenses = 0.0;
    double settlementExpenses = 0.0;
    double totalExpenses = 0.0;
    double netRevenue = 0.0;
    double totalMiles = 0.0;
    /// Dollars per mile, not rounded; 0 without miles.
    double cpmTotalRevenue = 0.0;
    double cpmNetRevenue = 0.0;
};

/// A settlement item that belongs to no trip.
struct NonTripRow
{
    QString settlementDate;
    QString category;
    QString kind;
    QString name;
    double amount = 0.0;
    /// What the item does to the settlement, to cents: an expense is negative.
    double signedAmount = 0.0;
};

/// The items of one category, kind and name.
struct NonTripGroup
{
    QString category;
    QString kind;
    /// "(blank)" for items without a name.
    QString name;
    int rowCount = 0;
    double totalAmount = 0.0;
    double netImpact = 0.0;
};

/// The settlement items that belong to no trip. A fund's figure is its effect on the settlement:
/// paying into it is negative. Amounts count as stored, effects to cents; no sum is rounded again.
struct NonTripTotals
{
    double totalRevenue = 0.0;
    double totalExpenses = 0.0;
    /// Of every item, also of one that is neither revenue nor expense.
    double netImpact = 0.0;
    double emergencyFundNet = 0.0;
    double tireFundNet = 0.0;
    double performanceBondNet = 0.0;
    double otherRevenue = 0.0;
    double otherExpense = 0.0;
    /// By category, kind and name.
    QList<NonTripGroup> groups;
    QList<NonTripRow> rows;
};

/// A fuel or DEF purchase. The net cost is to cents, the net price to 4 decimals and 0 without
/// gallons.
struct FuelDetailRow
{
    QString payweek;
    QString tripNo;
    QString itemType;
    double cost = 0.0;
    double discount = 0.0;
    double netCost = 0.0;
    double gallons = 0.0;
    double netPricePerGallon = 0.0;
};

/// Purchases added up. The average is the net cost over the gallons, to 4 decimals, never a mean
/// of prices: a purchase without gallons lifts it.
struct FuelBucket
{
    QString label;
    int rowCount = 0;
    double cost = 0.0;
    double discount = 0.0;
    /// The sum of the purchases' net costs, each of them in cents.
    double netCost = 0.0;
    double gallons = 0.0;
    double avgNetPricePerGallon = 0.0;
};

struct FuelTotals
{
    /// Every purchase, whatever its type.
    FuelBucket allFuel;
    FuelBucket truckFuel;
    FuelBucket reeferFuel;
    FuelBucket def;
    /// One for each type that was met, by its name.
    QList<FuelBucket> types;
    QList<FuelDetailRow> rows;
};
