#include "settlements/PayweekReport.h"

#include "data/MoneyText.h"

using namespace Qt::StringLiterals;

namespace {

/// Builds the report line by line; a section ends with a blank line.
class ReportText
{
public:
    void heading(QLatin1StringView title) { text += title + u'\n'; }
    void line(const QString &label, const QString &value)
    {
        text += "  "_L1 + label + ": "_L1 + value + u'\n';
    }
    void money(const QString &label, double dollars) { line(label, groupedMoneyText(dollars)); }
    void count(const QString &label, int value) { line(label, QString::number(value)); }
    void endSection() { text += u'\n'; }

    QString text;
};

void addTrips(ReportText &report, const PayweekTripTotals &trips)
{
    report.heading("Trips"_L1);
    report.count("Trip count"_L1, trips.tripCount);
    report.line("Total miles"_L1, groupedNumber2Text(trips.miles));
    report.money("Trip revenue"_L1, trips.revenue);
    report.money("Trip cost"_L1, trips.cost);
    report.money("Trip net"_L1, trips.net);
    report.endSection();
}

void addItems(ReportText &report, const PayweekSettlementTotals &items)
{
    report.heading("Settlement Non-Trip Items"_L1);
    report.count("Item count"_L1, items.itemCount);
    report.money("Non-trip revenue"_L1, items.revenue);
    report.money("Non-trip expense"_L1, items.expense);
    report.money("Non-trip net"_L1, items.revenue - items.expense);
    report.endSection();
}

void addSettlementTotals(ReportText &report, const PayweekCarryoverSummary &carryover)
{
    report.money("Settlement total before interest"_L1, carryover.settlementTotalBeforeInterest);
    report.money("Interest applied this payweek"_L1, carryover.interestThisPayweek);
    report.money("Settlement total after interest"_L1, carryover.settlementTotalAfterInterest);
}

void addBasicSummary(ReportText &report, const PayweekFigures &figures)
{
    report.heading("Current Basic Payweek Summary"_L1);
    report.money("Total revenue"_L1, figures.basic.totalRevenue);
    report.money("Total expense"_L1, figures.basic.totalExpense);
    addSettlementTotals(report, figures.carryover);
    report.money("Net CPM before interest"_L1, figures.basic.netCpm);
    report.endSection();
}

void addFund(ReportText &report, QLatin1StringView title, QLatin1StringView shortName,
             std::initializer_list<QLatin1StringView> rules, const PayweekFundSummary &fund)
{
    report.heading(title);
    for (const QLatin1StringView rule : rules)
        report.text += "  "_L1 + rule + u'\n';
    report.money(shortName + " Added this payweek"_L1, fund.added);
    report.money(shortName + " Withdrawn this payweek"_L1, fund.withdrawn);
    report.money("Net "_L1 + shortName + " Change this payweek"_L1, fund.netChange);
    report.money(shortName + " Balance through selected payweek"_L1, fund.balanceThroughPayweek);
    report.endSection();
}

void addFunds(ReportText &report, const PayweekFigures &figures)
{
    addFund(report, "Emergency Fund Summary"_L1, "E-Fund"_L1,
            {"Rule: Expense + Emergency Fund adds; Revenue + Emergency Fund withdraws."_L1,
             "Legacy revenue name also recognized: Emergency Fund Withdrawal."_L1},
            figures.emergencyFund);
    addFund(report, "Tire Fund Summary"_L1, "Tire Fund"_L1,
            {"Rule: Expense + Tire Fund adds; Revenue + Tire Fund Withdrawal withdraws."_L1},
            figures.tireFund);
    addFund(report, "Performance Bond Summary"_L1, "Performance Bond"_L1,
            {"Rule: Expense + Performance Bond adds; "
             "Revenue + Performance Bond Withdrawal withdraws."_L1},
            figures.performanceBond);
}

void addFuel(ReportText &report, const PayweekFuelAnalytics &fuel)
{
    report.heading("Fuel / DEF Analytics"_L1);
    report.count("Detail rows"_L1, fuel.detailRowCount);
    report.money("Truck Fuel net cost"_L1, fuel.truckFuelNetCost);
    report.money("Reefer Fuel net cost"_L1, fuel.reeferFuelNetCost);
    report.money("DEF net cost"_L1, fuel.defNetCost);
    report.money("Total cost before discount"_L1, fuel.totalCostBeforeDiscount);
    report.money("Total discounts"_L1, fuel.totalDiscounts);
    report.money("Net fuel / DEF cost"_L1, fuel.netCost);
    report.line("Total gallons"_L1, groupedNumber2Text(fuel.totalGallons));
    report.line("Avg net $/gallon"_L1, groupedMoneyText(fuel.averageNetPricePerGallon) + "/gal"_L1);
    report.endSection();
}

void addCarryover(ReportText &report, const PayweekCarryoverSummary &carryover)
{
    report.heading("Carryover / Interest Summary"_L1);
    report.line("Settlement year used"_L1, carryover.settlementYear > 0
                                               ? QString::number(carryover.settlementYear)
                                               : u"Unknown"_s);
    report.money("Previous settlement carryover"_L1, carryover.previousCarryover);
    report.money("Previous fund balance"_L1, carryover.previousFundBalance);
    report.money("Previous fund additions/subtractions"_L1, carryover.fundChange);
    report.money("Interest base balance"_L1, carryover.interestBaseBalance);
    report.line("APR"_L1, groupedNumber2Text(carryover.apr) + u'%');
    report.money("Interest applied this payweek"_L1, carryover.interestThisPayweek);
    report.money("Settlement total before interest"_L1, carryover.settlementTotalBeforeInterest);
    report.money("Settlement total after interest"_L1, carryover.settlementTotalAfterInterest);
    report.money("Adjusted net after carryover"_L1, carryover.adjustedNetAfterCarryover);
    report.money("Carryover forward"_L1, carryover.carryoverForward);
    report.money("Current-year fund balance used for interest"_L1,
                 carryover.currentYearFundBalance);
    report.line("Note"_L1, u"APR interest excludes prior-year legacy fund balances and obsolete "
                           "Tire Fund values."_s);
    report.endSection();
}

} // namespace

QString payweekReport(const PayweekFigures &figures)
{
    ReportText report;
    report.text = "Payweek: "_L1 + figures.payweek + "\n\n"_L1;
    addTrips(report, figures.trips);
    addItems(report, figures.items);
    addBasicSummary(report, figures);
    addFunds(report, figures);
    addFuel(report, figures.fuel);
    addCarryover(report, figures.carryover);
    report.text += "Repository status: basic payweek aggregation, current-year fund logic, fuel "
                   "analytics, carryover, and interest now live in PayweekRepository."_L1;
    return report.text;
}
