#include "reports/totals/WeeklyMetrics.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace WeeklyMetrics {

namespace {

using Summary = PayTotalsSummary;
using NonTrip = NonTripTotals;
using Fuel = FuelTotals;

template <auto member>
double core(const Summary &summary)
{
    return summary.*member;
}

template <auto member>
double nonTrip(const NonTrip &totals)
{
    return totals.*member;
}

template <auto bucket, auto member>
double fuel(const Fuel &totals)
{
    return totals.*bucket.*member;
}

constexpr auto metrics = std::to_array<Metric>({
    {"trip_count"_L1, "Trip Count"_L1, core<&Summary::tripCount>},
    {"trip_revenue"_L1, "Trip Revenue"_L1, core<&Summary::tripRevenue>},
    {"settlement_revenue"_L1, "Settlement Revenue"_L1, core<&Summary::settlementRevenue>},
    {"total_non_trip_revenue"_L1, "Total Non-Trip Revenue"_L1, nonTrip<&NonTrip::totalRevenue>},
    {"total_revenue"_L1, "Total Revenue"_L1, core<&Summary::totalRevenue>},
    {"trip_expenses"_L1, "Trip Expenses"_L1, core<&Summary::tripExpenses>},
    {"settlement_expenses"_L1, "Settlement Expenses"_L1, core<&Summary::settlementExpenses>},
    {"total_non_trip_expenses"_L1, "Total Non-Trip Expenses"_L1, nonTrip<&NonTrip::totalExpenses>},
    {"total_expenses"_L1, "Total Expenses"_L1, core<&Summary::totalExpenses>},
    {"net_revenue"_L1, "Net Revenue"_L1, core<&Summary::netRevenue>},
    {"net_non_trip_settlement_impact"_L1, "Net Non-Trip Settlement Impact"_L1,
     nonTrip<&NonTrip::netImpact>},
    {"emergency_fund_net"_L1, "Emergency Fund Net Impact"_L1, nonTrip<&NonTrip::emergencyFundNet>},
    {"tire_fund_net"_L1, "Tire Fund Net Impact"_L1, nonTrip<&NonTrip::tireFundNet>},
    {"performance_bond_net"_L1, "Performance Bond Net Impact"_L1,
     nonTrip<&NonTrip::performanceBondNet>},
    {"other_non_trip_revenue"_L1, "Other Non-Trip Revenue"_L1, nonTrip<&NonTrip::otherRevenue>},
    {"other_non_trip_expense"_L1, "Other Non-Trip Expense"_L1, nonTrip<&NonTrip::otherExpense>},
    {"total_miles"_L1, "Total Miles"_L1, core<&Summary::totalMiles>},
    {"cpm_total_revenue"_L1, "CPM (Total Revenue / Total Miles)"_L1,
     core<&Summary::cpmTotalRevenue>},
    {"cpm_net_revenue"_L1, "CPM (Net Revenue / Total Miles)"_L1, core<&Summary::cpmNetRevenue>},
    {"all_fuel_net"_L1, "All Fuel / DEF Net Cost"_L1, fuel<&Fuel::allFuel, &FuelBucket::netCost>},
    {"truck_fuel_net"_L1, "Truck Fuel Net Cost"_L1, fuel<&Fuel::truckFuel, &FuelBucket::netCost>},
    {"reefer_fuel_net"_L1, "Reefer Fuel Net Cost"_L1,
     fuel<&Fuel::reeferFuel, &FuelBucket::netCost>},
    {"def_net"_L1, "DEF Net Cost"_L1, fuel<&Fuel::def, &FuelBucket::netCost>},
    {"fuel_discount"_L1, "Fuel Discounts"_L1, fuel<&Fuel::allFuel, &FuelBucket::discount>},
    {"fuel_gallons"_L1, "Fuel Gallons"_L1, fuel<&Fuel::allFuel, &FuelBucket::gallons>},
    {"fuel_avg_net_ppg"_L1, "Fuel Avg Net $/Gal"_L1,
     fuel<&Fuel::allFuel, &FuelBucket::avgNetPricePerGallon>},
});

// Dollars, miles, gallons and rates alike.
QString figureText(double value)
{
    return QString::number(value, 'f', 4);
}

} // namespace

QString normalizedKey(const QString &key)
{
    return key.trimmed().toLower();
}

const Metric *find(const QString &key)
{
    const auto *const metric = std::find_if(
        metrics.begin(), metrics.end(),
        [wanted = normalizedKey(key)](const Metric &candidate) { return candidate.key == wanted; });
    return metric == metrics.end() ? nullptr : metric;
}

QString text(const QString &label, const QString &year, const QList<ChartPoint> &series)
{
    QString breakdown = label + " weekly breakdown\nYear: "_L1 + year.trimmed() + "\n\n"_L1;
    if (series.isEmpty())
        return breakdown + "(no data)\n"_L1;
    double total = 0.0;
    for (const ChartPoint &point : series) {
        breakdown += point.label + u"  —  "_s + figureText(point.value) + u'\n';
        total += point.value;
    }
    return breakdown + "\nTotal: "_L1 + figureText(total) + u'\n';
}

} // namespace WeeklyMetrics
