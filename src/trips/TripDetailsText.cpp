#include "trips/TripDetailsText.h"

#include "data/DomainRules.h"
#include "data/MoneyText.h"
#include "trips/TripColumns.h"

using namespace Qt::StringLiterals;

namespace {

QString carrierLines(const QString &carrierPercent, const TripArithmetic::TripTotals &totals)
{
    const QString lines = u"Carrier %: "_s + carrierPercent + u'\n' + u"Carrier Make: "_s
                          + moneyText(totals.carrierMake) + u'\n';
    if (totals.netRevenue <= 0.0)
        return lines + u"Carrier earns N/A of driver net\n"_s;
    const double share = roundTo(totals.carrierMake / totals.netRevenue * 100.0, 2);
    // QString::arg() leaves a doubled percent sign as it is, and the line has always read so.
    return lines + u"Carrier earns %1%% of driver net\n"_s.arg(share, 0, 'f', 2);
}

QString valueText(int column, const QString &cell, const TripArithmetic::TripTotals &totals,
                  const TripArithmetic::TripHoursResult &hours)
{
    switch (column) {
    case TotalMilesColumn:
        return number2Text(totals.totalMiles);
    case LinehaulColumn:
    case FusuColumn:
        return moneyText(DomainRules::sortNumberFromText(cell));
    case TotalRevenueColumn:
        return moneyText(totals.totalRevenue);
    case TotalCostColumn:
        return moneyText(totals.totalCost);
    case NetRevenueColumn:
        return moneyText(totals.netRevenue);
    case CpmColumn:
        return number2Text(totals.cpm);
    case TripHoursColumn:
        return TripArithmetic::hoursText(hours);
    case NetPerHourColumn:
        return TripArithmetic::netPerHourText(hours);
    default:
        return cell;
    }
}

} // namespace

QString tripDetailsText(const QStringList &cells, const TripArithmetic::TripTotals &totals,
                        const TripArithmetic::TripHoursResult &hours)
{
    const QStringList labels = tripColumnLabels();
    QString text;
    for (int column = 0; column < TripColumnCount; ++column) {
        if (column == CarrierPercentColumn)
            continue; // told behind the net, beside what the carrier makes
        text += labels.at(column) + u": "_s + valueText(column, cells.at(column), totals, hours)
                + u'\n';
        if (column == NetRevenueColumn)
            text += carrierLines(cells.at(CarrierPercentColumn), totals);
    }
    return text;
}
