#include "reports/totals/PayTotalsText.h"

#include "data/MoneyText.h"
#include "reports/totals/WeeklyMetrics.h"

#include <QHash>

#include <array>

using namespace Qt::StringLiterals;

namespace PayTotalsText {

namespace {

/// A figure of the core table under the name of its metric.
struct CoreFigure
{
    QLatin1StringView key;
    QString (*text)(const PayTotalsSummary &, const NonTripTotals &);
};

using Summary = PayTotalsSummary;
using NonTrip = NonTripTotals;

template <auto member>
QString money(const Summary &summary, const NonTrip &)
{
    return moneyText(summary.*member);
}

template <auto member>
QString nonTripMoney(const Summary &, const NonTrip &totals)
{
    return moneyText(totals.*member);
}

template <auto member>
QString perMile(const Summary &summary, const NonTrip &)
{
    return perMileText(summary.*member);
}

QString tripCount(const Summary &summary, const NonTrip &)
{
    return QString::number(summary.tripCount);
}

QString totalMiles(const Summary &summary, const NonTrip &)
{
    return number2Text(summary.totalMiles);
}

// The two non-trip totals show the settlement figures a second time: settlement items are all that
// belongs to no trip.
constexpr auto coreFigures = std::to_array<CoreFigure>({
    {"trip_count"_L1, tripCount},
    {"trip_revenue"_L1, money<&Summary::tripRevenue>},
    {"settlement_revenue"_L1, money<&Summary::settlementRevenue>},
    {"total_non_trip_revenue"_L1, money<&Summary::settlementRevenue>},
    {"total_revenue"_L1, money<&Summary::totalRevenue>},
    {"trip_expenses"_L1, money<&Summary::tripExpenses>},
    {"settlement_expenses"_L1, money<&Summary::settlementExpenses>},
    {"total_non_trip_expenses"_L1, money<&Summary::settlementExpenses>},
    {"total_expenses"_L1, money<&Summary::totalExpenses>},
    {"net_revenue"_L1, money<&Summary::netRevenue>},
    {"net_non_trip_settlement_impact"_L1, nonTripMoney<&NonTrip::netImpact>},
    {"emergency_fund_net"_L1, nonTripMoney<&NonTrip::emergencyFundNet>},
    {"tire_fund_net"_L1, nonTripMoney<&NonTrip::tireFundNet>},
    {"performance_bond_net"_L1, nonTripMoney<&NonTrip::performanceBondNet>},
    {"other_non_trip_revenue"_L1, nonTripMoney<&NonTrip::otherRevenue>},
    {"other_non_trip_expense"_L1, nonTripMoney<&NonTrip::otherExpense>},
    {"total_miles"_L1, totalMiles},
    {"cpm_total_revenue"_L1, perMile<&Summary::cpmTotalRevenue>},
    {"cpm_net_revenue"_L1, perMile<&Summary::cpmNetRevenue>},
});

QString labelOf(const CoreFigure &figure)
{
    return WeeklyMetrics::find(figure.key)->label;
}

QStringList bucketRow(const FuelBucket &bucket)
{
    return {bucket.label,
            QString::number(bucket.rowCount),
            moneyText(bucket.cost),
            moneyText(bucket.discount),
            moneyText(bucket.netCost),
            gallonsText(bucket.gallons),
            perGallonText(bucket.avgNetPricePerGallon)};
}

} // namespace

QString perMileText(double dollars)
{
    return pricePerGallonText(dollars) + "/mi"_L1;
}

QString perGallonText(double dollars)
{
    return dollars > 0.0 ? pricePerGallonText(dollars) + "/gal"_L1 : u"n/a"_s;
}

QList<QStringList> coreRows(const PayTotalsSummary &summary, const NonTripTotals &nonTrip)
{
    QList<QStringList> rows;
    for (const CoreFigure &figure : coreFigures)
        rows.append({labelOf(figure), figure.text(summary, nonTrip)});
    return rows;
}

QList<QStringList> groupRows(const NonTripTotals &totals)
{
    QList<QStringList> rows;
    for (const NonTripGroup &group : totals.groups)
        rows.append({group.category, group.kind, group.name, QString::number(group.rowCount),
                     moneyText(group.totalAmount), moneyText(group.netImpact)});
    return rows;
}

QList<QStringList> fuelRows(const FuelTotals &totals)
{
    return {bucketRow(totals.allFuel), bucketRow(totals.truckFuel), bucketRow(totals.reeferFuel),
            bucketRow(totals.def)};
}

QString coreSummary(const QString &scope)
{
    return "Repository-backed Pay Totals are active.\n\nCurrent scope: "_L1 + scope;
}

QString nonTripSummary(const QString &scope, const NonTripTotals &totals)
{
    return "Non-trip settlement totals for "_L1 + scope + "\n\nTotal Non-Trip Revenue: "_L1
           + moneyText(totals.totalRevenue) + "\nTotal Non-Trip Expenses: "_L1
           + moneyText(totals.totalExpenses) + "\nNet Non-Trip Settlement Impact: "_L1
           + moneyText(totals.netImpact) + "\n\nEmergency Fund net: "_L1
           + moneyText(totals.emergencyFundNet) + "\nTire Fund net: "_L1
           + moneyText(totals.tireFundNet) + "\nPerformance Bond net: "_L1
           + moneyText(totals.performanceBondNet) + "\nOther non-trip revenue: "_L1
           + moneyText(totals.otherRevenue) + "\nOther non-trip expense: "_L1
           + moneyText(totals.otherExpense);
}

QString fuelSummary(const QString &scope, const FuelTotals &totals)
{
    const FuelBucket &all = totals.allFuel;
    return "Fuel analytics for "_L1 + scope + "\n\nNet fuel / DEF cost: "_L1
           + moneyText(all.netCost) + "\nTotal gallons: "_L1 + gallonsText(all.gallons)
           + "\nTotal discounts: "_L1 + moneyText(all.discount) + "\nWeighted avg net $/gal: "_L1
           + perGallonText(all.avgNetPricePerGallon);
}

QStringList purchaseRow(const FuelDetailRow &purchase)
{
    return {purchase.payweek,
            purchase.tripNo,
            purchase.itemType,
            moneyText(purchase.cost),
            moneyText(purchase.discount),
            moneyText(purchase.netCost),
            gallonsText(purchase.gallons),
            perGallonText(purchase.netPricePerGallon)};
}

QStringList itemRow(const NonTripRow &item)
{
    return {item.settlementDate,    item.category,          item.kind,
            nameOrBlank(item.name), moneyText(item.amount), moneyText(item.signedAmount)};
}

QString nameOrBlank(const QString &name)
{
    return name.isEmpty() ? u"(blank)"_s : name;
}

QString coreMetricKey(const QString &label)
{
    for (const CoreFigure &figure : coreFigures) {
        if (labelOf(figure) == label)
            return figure.key;
    }
    return {};
}

QString fuelMetricKey(const QString &label)
{
    static const QHash<QString, QString> keys = {{u"All Fuel / DEF"_s, u"all_fuel_net"_s},
                                                 {u"Truck Fuel"_s, u"truck_fuel_net"_s},
                                                 {u"Reefer Fuel"_s, u"reefer_fuel_net"_s},
                                                 {u"DEF"_s, u"def_net"_s}};
    return keys.value(label);
}

} // namespace PayTotalsText
