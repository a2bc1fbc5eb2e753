#include "samples/SampleBusiness.h"

#include "samples/SampleLocations.h"
#include "samples/SampleSettlementPlanner.h"
#include "samples/SampleTripPlanner.h"

namespace {

const QDate lastPayweek(2026, 11, 20);
constexpr int daysBetweenPayweeks = 7;

enum class WeekKind { Working, AtHome, BrokenDown };

QDate firstPayweek(int years)
{
    const qint64 days = lastPayweek.addYears(-years).daysTo(lastPayweek);
    return lastPayweek.addDays(-(days - 1) / daysBetweenPayweeks * daysBetweenPayweeks);
}

WeekKind kindOfWeek(SampleDraw &draw)
{
    const int percent = draw.between(1, 100);
    if (percent <= 5)
        return WeekKind::BrokenDown;
    return percent <= 8 ? WeekKind::AtHome : WeekKind::Working;
}

int tripCount(WeekKind kind, SampleDraw &draw)
{
    if (kind == WeekKind::AtHome)
        return 0;
    if (kind == WeekKind::BrokenDown)
        return draw.between(0, 1);
    const int percent = draw.between(1, 100);
    return percent <= 22 ? 2 : percent <= 72 ? 3 : 4;
}

// The carrier changes its rate by the year, and not every settlement names it.
std::optional<double> aprOf(const QDate &payweek, SampleDraw &draw)
{
    if (!draw.chance(80))
        return {};
    return 2.5 + 0.75 * (payweek.year() % 4);
}

} // namespace

SampleBusiness makeSampleBusiness(int years, quint32 seed)
{
    SampleDraw draw(seed);
    SampleBusiness business;
    business.locations = sampleLocations(draw);
    SampleTripPlanner trips(business.locations, draw);
    SampleSettlementPlanner settlements(draw);
    for (QDate payweek = firstPayweek(years); payweek <= lastPayweek;
         payweek = payweek.addDays(daysBetweenPayweeks)) {
        const WeekKind kind = kindOfWeek(draw);
        SampleWeek week;
        week.payweek = payweek;
        week.trips = trips.planWeek(payweek, tripCount(kind, draw));
        week.items = settlements.planWeek(payweek, kind == WeekKind::BrokenDown);
        week.apr = aprOf(payweek, draw);
        business.weeks.append(week);
    }
    return business;
}
