#include "trips/TripArithmetic.h"

#include "data/DomainRules.h"
#include "data/MoneyText.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace TripArithmetic {

namespace {

const QDateTime &start(const TripStopTiming &stop)
{
    return stop.earliest.isValid() ? stop.earliest : stop.appointment;
}

const QDateTime &end(const TripStopTiming &stop)
{
    return stop.latest.isValid() ? stop.latest : start(stop);
}

template <typename Iterator>
Iterator firstTimedStop(const Iterator &from, const Iterator &to, QLatin1StringView type)
{
    return std::find_if(from, to, [type](const TripStopTiming &stop) {
        return stop.stopType.trimmed().compare(type, Qt::CaseInsensitive) == 0
               && start(stop).isValid();
    });
}

// By the wall clock: a computer in another zone, or one whose clock changes on the way, counts the
// same hours.
qint64 secondsBetween(const QDateTime &from, const QDateTime &to)
{
    return QDateTime(from.date(), from.time(), Qt::UTC)
        .secsTo(QDateTime(to.date(), to.time(), Qt::UTC));
}

TripHoursResult hoursBetween(const TripStopTiming &pickup, const TripStopTiming &delivery,
                             double extraHours)
{
    const qint64 shortestSeconds = secondsBetween(end(pickup), start(delivery));
    const qint64 longestSeconds = secondsBetween(start(pickup), end(delivery));
    if (shortestSeconds < 1 && longestSeconds < 1)
        return {};
    const double longest = static_cast<double>(longestSeconds) / 3600.0;
    const double shortHours =
        shortestSeconds < 1 ? 0.0 : static_cast<double>(shortestSeconds) / 3600.0;
    const double longHours = std::max(longest, shortHours);

    TripHoursResult result;
    result.minHours = roundTo(shortHours + extraHours, 2);
    result.maxHours = roundTo(longHours + extraHours, 2);
    result.hours = result.maxHours;
    result.isRange = (pickup.hasWindow || delivery.hasWindow)
                     && std::abs(result.maxHours - result.minHours) >= 0.005;
    return result;
}

double perHour(double net, double hours)
{
    return hours > 0.0 ? roundTo(net / hours, 2) : 0.0;
}

} // namespace

TripStopTiming stopTiming(const QString &stopType, const QString &appointment, bool hasWindow,
                          const QString &latest)
{
    TripStopTiming stop;
    stop.stopType = stopType;
    stop.earliest = DomainRules::parseAppointmentDateTime(appointment);
    stop.appointment = stop.earliest;
    stop.hasWindow = hasWindow;
    if (hasWindow)
        stop.latest = DomainRules::parseAppointmentDateTime(latest);
    if (!stop.latest.isValid())
        stop.latest = stop.earliest;
    return stop;
}

TripTotals computeTripTotals(double emptyMiles, double loadedMiles, double linehaul, double fusu,
                             double carrierPercent, double payItemTotal, double costItemTotal)
{
    TripTotals totals;
    totals.totalMiles = emptyMiles + loadedMiles;
    if (carrierPercent > 0.0)
        totals.carrierMake = roundTo(carrierPercent / 100.0 * linehaul, 2);
    totals.totalRevenue = roundTo(linehaul + fusu + payItemTotal, 2);
    totals.totalCost = roundTo(costItemTotal, 2);
    totals.netRevenue = roundTo(totals.totalRevenue - totals.totalCost, 2);
    if (totals.totalMiles > 0.0)
        totals.cpm = roundTo(totals.netRevenue / totals.totalMiles * 100.0, 2);
    return totals;
}

TripHoursResult computeStopHours(const QList<TripStopTiming> &stops, double extraHours)
{
    const auto pickup = firstTimedStop(stops.cbegin(), stops.cend(), "shipper"_L1);
    const auto delivery = firstTimedStop(stops.crbegin(), stops.crend(), "receiver"_L1);
    if (pickup == stops.cend() || delivery == stops.crend())
        return {};
    return hoursBetween(*pickup, *delivery, extraHours);
}

TripHoursResult computeTripHours(const QList<TripStopTiming> &stops, double netRevenue,
                                 double extraHours)
{
    TripHoursResult result = computeStopHours(stops, extraHours);
    result.netPerHour = perHour(netRevenue, result.hours);
    result.minNetPerHour = result.netPerHour;
    result.maxNetPerHour = result.netPerHour;
    if (result.minHours > 0.0) {
        // A negative net costs less per hour the longer it takes, so the ends may change places.
        const double slow = perHour(netRevenue, result.maxHours);
        const double quick = perHour(netRevenue, result.minHours);
        result.minNetPerHour = std::min(slow, quick);
        result.maxNetPerHour = std::max(slow, quick);
    }
    return result;
}

QString hoursText(const TripHoursResult &hours)
{
    return hours.isRange ? number2Text(hours.minHours) + " - "_L1 + number2Text(hours.maxHours)
                         : number2Text(hours.hours);
}

QString netPerHourText(const TripHoursResult &hours)
{
    return hours.isRange
               ? moneyText(hours.minNetPerHour) + " - "_L1 + moneyText(hours.maxNetPerHour)
               : moneyText(hours.netPerHour);
}

} // namespace TripArithmetic
