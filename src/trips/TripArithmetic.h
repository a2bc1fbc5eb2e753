#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

/// The computed figures of a trip. Amounts are dollars to cents, distances miles, times hours.
namespace TripArithmetic {

/// What every trip takes beyond the time between pickup and delivery: waiting, paperwork, fuel.
inline constexpr double extraTripHours = 3.0;

/// One stop as the hours see it. Without an appointment window `latest` equals `earliest`.
struct TripStopTiming
{
    QString stopType;
    QDateTime appointment;
    bool hasWindow = false;
    QDateTime earliest;
    QDateTime latest;
};

/// A stop from its texts as stored or typed. An appointment that cannot be read stays invalid, and
/// so `latest` equals `earliest` where there is no window or it cannot be read.
TripStopTiming stopTiming(const QString &stopType, const QString &appointment, bool hasWindow,
                          const QString &latest);

struct TripTotals
{
    double totalMiles = 0.0;
    /// The carrier's share of the linehaul. It is told beside the net and not taken from it: a
    /// settlement pays the linehaul after that share.
    double carrierMake = 0.0;
    double totalRevenue = 0.0;
    double totalCost = 0.0;
    double netRevenue = 0.0;
    /// Net cents per mile, empty miles included: $2.00 a mile is 200.00.
    double cpm = 0.0;
};

/// Hours and net dollars per hour. With an appointment window they are a range, and `hours` is its
/// top.
struct TripHoursResult
{
    double hours = 0.0;
    double netPerHour = 0.0;
    bool isRange = false;
    double minHours = 0.0;
    double maxHours = 0.0;
    double minNetPerHour = 0.0;
    double maxNetPerHour = 0.0;
};

/// The totals of a trip. `carrierPercent` is 25 for 25%; zero and below give the carrier nothing.
TripTotals computeTripTotals(double emptyMiles, double loadedMiles, double linehaul, double fusu,
                             double carrierPercent, double payItemTotal, double costItemTotal);

/// The hours from the first shipper to the last receiver that have an appointment, plus
/// `extraHours`. All zeros if either is missing or the receiver is not the later one.
TripHoursResult computeStopHours(const QList<TripStopTiming> &stops, double extraHours);

/// The same with net dollars per hour.
TripHoursResult computeTripHours(const QList<TripStopTiming> &stops, double netRevenue,
                                 double extraHours);

/// "13.00", or "11.00 - 13.00" for a range.
QString hoursText(const TripHoursResult &hours);

/// "$36.54", or "$36.54 - $43.18" for a range.
QString netPerHourText(const TripHoursResult &hours);

} // namespace TripArithmetic
