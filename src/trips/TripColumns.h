#pragma once

#include <QCoreApplication>
#include <QStringList>

/// The columns of the trip list, in the order in which the repository reads them.
enum TripColumn {
    IdColumn,
    TripNoColumn,
    PayweekColumn,
    EmptyMilesColumn,
    LoadedMilesColumn,
    TotalMilesColumn,
    LinehaulColumn,
    FusuColumn,
    CarrierPercentColumn,
    TotalRevenueColumn,
    TotalCostColumn,
    NetRevenueColumn,
    CpmColumn,
    TripHoursColumn,
    NetPerHourColumn,
    TripColumnCount
};

/// Their headers, without sort arrows.
inline QStringList tripColumnLabels()
{
    const auto tr = [](const char *text) { return QCoreApplication::translate("TripList", text); };
    return {tr("ID"),        tr("Trip #"),        tr("Payweek"),    tr("Empty"),
            tr("Loaded"),    tr("Total Miles"),   tr("Linehaul"),   tr("FUSU"),
            tr("Carrier %"), tr("Total Revenue"), tr("Total Cost"), tr("Net Revenue"),
            tr("CPM"),       tr("Trip Hours"),    tr("Net/Hour")};
}
