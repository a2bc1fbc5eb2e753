#include "samples/SampleTripPlanner.h"

#include "data/MoneyText.h"
#include "samples/SampleLocations.h"

#include <algorithm>
#include <array>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 minute = 60;
constexpr qint64 hour = 60 * minute;
constexpr int daysFromWorkToPay = 11;
constexpr int workingDays = 6;

struct Legs
{
    int shortest;
    int longest;
};

// The long leg of a load by the number of loads in the week: about 2,300 miles a week in all.
Legs longLegs(int tripsThisWeek)
{
    constexpr std::array<Legs, 4> byCount = {{{600, 950}, {900, 1350}, {600, 950}, {400, 600}}};
    return byCount.at(static_cast<size_t>(tripsThisWeek - 1));
}

// Fifty miles an hour, and ten hours of rest after eleven of driving.
qint64 secondsToDrive(int miles)
{
    constexpr int milesPerHour = 50;
    constexpr int milesPerShift = 550;
    return miles * hour / milesPerHour + 10 * hour * ((miles - 1) / milesPerShift);
}

QDateTime atNextQuarter(const QDateTime &time)
{
    const qint64 quarter = 15 * minute;
    const qint64 past = time.toSecsSinceEpoch() % quarter;
    return past == 0 ? time : time.addSecs(quarter - past);
}

double sumOf(const QList<SampleItem> &items)
{
    return std::accumulate(items.cbegin(), items.cend(), 0.0,
                           [](double sum, const SampleItem &item) { return sum + item.amount; });
}

TripArithmetic::TripStopTiming timingOf(const SampleStop &stop)
{
    const bool hasWindow = stop.latest.isValid();
    return {stop.type, stop.appointment, hasWindow, stop.appointment,
            hasWindow ? stop.latest : stop.appointment};
}

void computeFigures(SampleTrip &trip)
{
    trip.totals = TripArithmetic::computeTripTotals(
        trip.emptyMiles, trip.loadedMiles, trip.linehaul, trip.fuelSurcharge, trip.carrierPercent,
        sumOf(trip.payItems), sumOf(trip.costItems));
    QList<TripArithmetic::TripStopTiming> timings;
    for (const SampleStop &stop : trip.stops)
        timings.append(timingOf(stop));
    trip.hours = TripArithmetic::computeTripHours(timings, trip.totals.netRevenue,
                                                  TripArithmetic::extraTripHours);
}

} // namespace

SampleTripPlanner::SampleTripPlanner(const QList<SampleLocation> &docks, SampleDraw &sharedDraw)
    : locations(docks)
    , draw(sharedDraw)
    , fuel(sharedDraw)
    , place(draw.between(0, static_cast<int>(docks.size()) - 1))
    , number(draw.between(3'800'000, 4'200'000))
{
}

QList<SampleTrip> SampleTripPlanner::planWeek(const QDate &payweek, int count)
{
    // In UTC, whose days all have 24 hours: the same seed gives the same rows in any time zone.
    const QDate monday = payweek.addDays(-daysFromWorkToPay);
    clock = QDateTime(monday, QTime(5, 0), Qt::UTC);
    const QDateTime sunday(monday.addDays(workingDays), QTime(0, 0), Qt::UTC);
    QList<SampleTrip> trips;
    for (int i = 0; i < count; ++i) {
        const qsizetype before = place;
        const SampleTrip trip = planTrip(count);
        if (clock >= sunday) {
            place = before;
            break;
        }
        trips.append(trip);
    }
    return trips;
}

SampleTrip SampleTripPlanner::planTrip(int tripsThisWeek)
{
    SampleTrip trip;
    number += draw.between(20, 380);
    trip.number = QString::number(number);
    const bool reefer = draw.chance(60);
    planRoute(trip, tripsThisWeek);
    priceLoad(trip);
    addPayItems(trip, reefer);
    addCostItems(trip, reefer);
    trip.fuel = fuel.purchases(clock.date().year(), trip.emptyMiles + trip.loadedMiles, reefer);
    trip.costItems += SampleFuel::costItems(trip.fuel);
    computeFigures(trip);
    return trip;
}

void SampleTripPlanner::planRoute(SampleTrip &trip, int tripsThisWeek)
{
    const auto [shortest, longest] = longLegs(tripsThisWeek);
    const int percent = draw.between(1, 100);
    const int stops = percent <= 28 ? 2 : percent <= 72 ? 3 : 4;
    const int shippers = stops > 2 && draw.chance(40) ? 2 : 1;
    trip.emptyMiles = driveAbout(draw.between(5, 150));
    addStop(trip, u"shipper"_s);
    for (int i = 1; i < stops; ++i) {
        const bool longLeg = i == shippers;
        trip.loadedMiles +=
            driveAbout(longLeg ? draw.between(shortest, longest) : draw.between(20, 120));
        addStop(trip, i < shippers ? u"shipper"_s : u"receiver"_s);
    }
}

int SampleTripPlanner::driveAbout(int wantedMiles)
{
    const qsizetype from = place;
    place = locationAtDistance(locations, from, wantedMiles);
    const int miles = roadMiles(locations.at(from), locations.at(place));
    clock = clock.addSecs(secondsToDrive(miles));
    return miles;
}

void SampleTripPlanner::addStop(SampleTrip &trip, const QString &type)
{
    SampleStop stop{type, locations.at(place).code, atNextQuarter(clock), {}};
    clock = stop.appointment.addSecs(2 * hour);
    if (draw.chance(40)) {
        stop.latest = stop.appointment.addSecs(draw.between(1, 4) * hour);
        clock = std::max(clock, stop.latest);
    }
    trip.stops.append(stop);
}

// The driver's part of the linehaul by the mile, and a surcharge for what diesel costs beyond a
// dollar twenty at six miles to the gallon, as carriers reckon it.
void SampleTripPlanner::priceLoad(SampleTrip &trip)
{
    const int year = clock.date().year();
    const double perMile = draw.dollars(125, 175) + 0.03 * (year - 2006);
    trip.linehaul = roundTo(trip.loadedMiles * perMile, 2);
    trip.fuelSurcharge =
        roundTo(trip.loadedMiles * (SampleFuel::dieselPrice(year) - 1.20) / 6.0, 2);
    trip.carrierPercent = draw.chance(85) ? 25.0 : 28.0;
}

void SampleTripPlanner::addPayItems(SampleTrip &trip, bool reefer)
{
    if (trip.stops.size() > 2)
        trip.payItems.append({u"Stop-Off"_s, 50.0 * static_cast<double>(trip.stops.size() - 2)});
    if (draw.chance(18))
        trip.payItems.append({u"Detention"_s, 50.0 * draw.between(1, 4)});
    if (draw.chance(5))
        trip.payItems.append({u"Layover"_s, 150.0});
    if (!reefer && draw.chance(50))
        trip.payItems.append({u"Tarp"_s, 75.0});
}

void SampleTripPlanner::addCostItems(SampleTrip &trip, bool reefer)
{
    if (draw.chance(50))
        trip.costItems.append({u"Tolls"_s, draw.dollars(800, 8500)});
    if (draw.chance(45))
        trip.costItems.append({u"Scale Ticket"_s, draw.dollars(1250, 1550)});
    if (draw.chance(30))
        trip.costItems.append({u"Parking"_s, draw.dollars(1500, 2500)});
    if (reefer && draw.chance(40))
        trip.costItems.append({u"Lumper"_s, 5.0 * draw.between(18, 50)});
}
