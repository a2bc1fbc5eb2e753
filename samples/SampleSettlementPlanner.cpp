#include "samples/SampleSettlementPlanner.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString revenue = u"revenue"_s;
const QString expense = u"expense"_s;

constexpr double smallestWithdrawal = 100.0;
constexpr double priceOfTires = 1180.0;

bool firstOfMonth(const QDate &payweek)
{
    return payweek.day() <= 7;
}

} // namespace

SampleSettlementPlanner::SampleSettlementPlanner(SampleDraw &sharedDraw)
    : draw(sharedDraw)
    , emergency{u"Emergency Fund"_s, 100.0}
    , tires{u"Tire Fund"_s, 40.0}
    , bond{u"Performance Bond"_s, 25.0}
{
}

QList<SampleSettlementItem> SampleSettlementPlanner::planWeek(const QDate &payweek, bool brokenDown)
{
    items.clear();
    if (payweek.year() != year)
        startYear(payweek.year());
    payFixedCosts();
    payIn(emergency);
    payIn(tires);
    payIn(bond);
    serviceTruck();
    if (brokenDown)
        repairBreakdown();
    replaceTires();
    settleYear(payweek);
    addBonuses(payweek);
    return items;
}

// Fund balances count from the first week of a year.
void SampleSettlementPlanner::startYear(int newYear)
{
    year = newYear;
    for (Fund *fund : {&emergency, &tires, &bond})
        fund->balance = 0.0;
}

void SampleSettlementPlanner::payIn(Fund &fund)
{
    fund.balance += fund.weekly;
    add(expense, fund.name, fund.weekly);
}

void SampleSettlementPlanner::withdraw(Fund &fund, double amount)
{
    const double taken = std::min(fund.balance, amount);
    if (taken < smallestWithdrawal)
        return;
    fund.balance -= taken;
    add(revenue, fund.name + " Withdrawal"_L1, taken);
}

void SampleSettlementPlanner::payFixedCosts()
{
    constexpr auto costs = std::to_array<std::pair<const char *, double>>({
        {"Liability Insurance", 148.75},
        {"Physical Damage Insurance", 62.50},
        {"ELD Service", 9.25},
        {"Plates and Permits", 42.00},
    });
    for (const auto &[name, amount] : costs)
        add(expense, QString::fromLatin1(name), amount);
}

void SampleSettlementPlanner::serviceTruck()
{
    if (draw.chance(16))
        add(expense, u"Oil Change"_s, draw.dollars(29'500, 38'500));
    if (draw.chance(12))
        add(expense, u"Cash Advance"_s, 50.0 * draw.between(2, 8));
    if (draw.chance(10))
        add(expense, u"Trailer Washout"_s, draw.dollars(4'500, 9'500));
}

void SampleSettlementPlanner::repairBreakdown()
{
    const double cost = draw.dollars(380'000, 950'000);
    add(expense, draw.chance(70) ? u"Engine Repair"_s : u"Transmission Repair"_s, cost);
    add(expense, u"Road Service"_s, draw.dollars(35'000, 110'000));
    withdraw(emergency, 100.0 * draw.between(5, 15));
}

void SampleSettlementPlanner::replaceTires()
{
    if (tires.balance < priceOfTires)
        return;
    add(expense, u"Drive Tires"_s, draw.dollars(110'000, 160'000));
    withdraw(tires, priceOfTires);
}

// In August the use tax of the road is due, and in the second week of December the bond comes back.
void SampleSettlementPlanner::settleYear(const QDate &payweek)
{
    if (payweek.month() == 8 && firstOfMonth(payweek))
        add(expense, u"Heavy Vehicle Use Tax"_s, 550.0);
    if (payweek.month() == 12 && payweek.day() > 7 && payweek.day() <= 14)
        withdraw(bond, bond.balance);
}

void SampleSettlementPlanner::addBonuses(const QDate &payweek)
{
    if (!firstOfMonth(payweek))
        return;
    add(revenue, u"Fuel Rebate"_s, draw.dollars(2'500, 12'000));
    if (payweek.month() % 3 == 1)
        add(revenue, u"Safety Bonus"_s, 250.0);
}

void SampleSettlementPlanner::add(const QString &kind, const QString &name, double amount)
{
    items.append({kind, name, amount});
}
