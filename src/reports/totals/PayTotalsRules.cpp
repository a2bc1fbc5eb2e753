#include "reports/totals/PayTotalsRules.h"

#include "data/DomainRules.h"
#include "data/MoneyText.h"

#include <QMap>

using namespace Qt::StringLiterals;

namespace PayTotalsRules {

namespace {

void addToLine(const NonTripRow &row, NonTripTotals &totals)
{
    if (row.category == "Emergency Fund"_L1)
        totals.emergencyFundNet += row.signedAmount;
    else if (row.category == "Tire Fund"_L1)
        totals.tireFundNet += row.signedAmount;
    else if (row.category == "Performance Bond"_L1)
        totals.performanceBondNet += row.signedAmount;
    else if (row.category == "Other Non-Trip Revenue"_L1)
        totals.otherRevenue += row.amount;
    else if (row.category == "Other Non-Trip Expense"_L1)
        totals.otherExpense += row.amount;
}

void addToSums(const NonTripRow &row, NonTripTotals &totals)
{
    if (row.kind == "revenue"_L1)
        totals.totalRevenue += row.amount;
    else if (row.kind == "expense"_L1)
        totals.totalExpenses += row.amount;
    totals.netImpact += row.signedAmount;
}

void addToGroup(const NonTripRow &row, NonTripGroup &group)
{
    group.category = row.category;
    group.kind = row.kind;
    group.name = row.name.isEmpty() ? u"(blank)"_s : row.name;
    ++group.rowCount;
    group.totalAmount += row.amount;
    group.netImpact += row.signedAmount;
}

double perGallon(double netCost, double gallons)
{
    return gallons > 0.0 ? roundTo(netCost / gallons, 4) : 0.0;
}

void addToBucket(const FuelDetailRow &row, FuelBucket &bucket)
{
    ++bucket.rowCount;
    bucket.cost += row.cost;
    bucket.discount += row.discount;
    bucket.netCost += row.netCost;
    bucket.gallons += row.gallons;
}

void setAverage(FuelBucket &bucket)
{
    bucket.avgNetPricePerGallon = perGallon(bucket.netCost, bucket.gallons);
}

} // namespace

PayTotalsSummary withTotals(PayTotalsSummary summary)
{
    summary.totalRevenue = roundTo(summary.tripRevenue + summary.settlementRevenue, 2);
    summary.totalExpenses = roundTo(summary.tripExpenses + summary.settlementExpenses, 2);
    summary.netRevenue = roundTo(summary.totalRevenue - summary.totalExpenses, 2);
    const bool hasMiles = summary.totalMiles > 0.0;
    summary.cpmTotalRevenue = hasMiles ? summary.totalRevenue / summary.totalMiles : 0.0;
    summary.cpmNetRevenue = hasMiles ? summary.netRevenue / summary.totalMiles : 0.0;
    return summary;
}

NonTripRow withEffect(NonTripRow row)
{
    row.category = DomainRules::nonTripCategory(row.kind, row.name);
    const bool isExpense = row.kind.compare("expense"_L1, Qt::CaseInsensitive) == 0;
    row.signedAmount = roundTo(isExpense ? -row.amount : row.amount, 2);
    return row;
}

NonTripTotals nonTripTotals(const QList<NonTripRow> &rows)
{
    NonTripTotals totals;
    totals.rows = rows;
    QMap<QString, NonTripGroup> groups;
    for (const NonTripRow &row : rows) {
        addToSums(row, totals);
        addToLine(row, totals);
        addToGroup(row, groups[row.category + u'\t' + row.kind + u'\t' + row.name]);
    }
    totals.groups = groups.values();
    return totals;
}

FuelDetailRow withNetCost(FuelDetailRow row)
{
    row.itemType = DomainRules::fuelAnalyticsGroup(row.itemType);
    row.netCost = roundTo(row.cost - row.discount, 2);
    row.netPricePerGallon = perGallon(row.netCost, row.gallons);
    return row;
}

FuelTotals fuelTotals(const QList<FuelDetailRow> &rows)
{
    FuelTotals totals;
    totals.allFuel.label = u"All Fuel / DEF"_s;
    totals.rows = rows;
    QMap<QString, FuelBucket> types;
    for (const FuelDetailRow &row : rows) {
        addToBucket(row, totals.allFuel);
        FuelBucket &type = types[row.itemType];
        type.label = row.itemType;
        addToBucket(row, type);
    }
    setAverage(totals.allFuel);
    for (FuelBucket &type : types)
        setAverage(type);
    totals.types = types.values();
    const auto bucketOf = [&types](const QString &label) {
        return types.value(label, FuelBucket{.label = label});
    };
    totals.truckFuel = bucketOf(u"Truck Fuel"_s);
    totals.reeferFuel = bucketOf(u"Reefer Fuel"_s);
    totals.def = bucketOf(u"DEF"_s);
    return totals;
}

} // namespace PayTotalsRules
