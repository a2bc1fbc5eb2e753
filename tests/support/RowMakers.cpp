#include "support/RowMakers.h"

using namespace Qt::StringLiterals;

TripMaker::TripMaker()
    : RowMaker(u"trips"_s)
{
    no(u"4471203"_s).payweek(u"04/18/2026"_s);
    set(u"empty_miles"_s, 100.0).set(u"loaded_miles"_s, 500.0).set(u"total_miles"_s, 600.0);
    set(u"linehaul"_s, 0.0).set(u"fusu"_s, 0.0).set(u"carrier_pct"_s, 25.0);
    set(u"carrier_make"_s, 0.0).set(u"cpm"_s, 0.0);
    set(u"trip_hours"_s, 0.0).set(u"net_per_hour"_s, 0.0);
    totals(0.0, 0.0);
}

TripMaker &TripMaker::totals(double revenue, double cost)
{
    return set(u"total_revenue"_s, revenue)
        .set(u"total_cost"_s, cost)
        .set(u"net_revenue"_s, revenue - cost);
}

StopMaker::StopMaker(qint64 tripId)
    : RowMaker(u"trip_stops"_s)
{
    set(u"trip_id"_s, tripId).set(u"location_code"_s, u""_s);
    type(u"shipper"_s).at(u""_s).order(0);
}

StopMaker &StopMaker::window(const QString &earliest, const QString &latest)
{
    return at(earliest).set(u"has_appointment_window"_s, 1).set(u"appt_latest"_s, latest);
}

TripItemMaker::TripItemMaker(const QString &tableName, qint64 tripId, const QString &name,
                             double amount)
    : RowMaker(tableName)
{
    set(u"trip_id"_s, tripId).set(u"name"_s, name).set(u"amount"_s, amount);
}

FuelMaker::FuelMaker(qint64 tripId, const QString &type, double cost, double discount,
                     double gallons)
    : RowMaker(u"trip_detail_items"_s)
{
    set(u"trip_id"_s, tripId).set(u"group_name"_s, u"fuel"_s).set(u"item_type"_s, type);
    set(u"cost"_s, cost).set(u"discount"_s, discount).set(u"gallons"_s, gallons);
}

SettlementItemMaker::SettlementItemMaker(const QString &payweek, const QString &kind,
                                         const QString &name, double amount)
    : RowMaker(u"settlement_non_trip_items"_s)
{
    set(u"settlement_date"_s, payweek).set(u"kind"_s, kind).set(u"name"_s, name);
    set(u"amount"_s, amount);
}

AprMaker::AprMaker(const QString &payweek, double percent)
    : RowMaker(u"settlement_meta"_s)
{
    set(u"settlement_date"_s, payweek).set(u"apr"_s, percent);
}
