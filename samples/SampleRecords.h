#pragma once

#include "data/DomainRules.h"
#include "trips/TripArithmetic.h"

#include <QDate>
#include <QDateTime>
#include <QList>
#include <QString>

#include <optional>

// The rows of the sample business before they are written: dollars, miles and gallons.

struct SampleLocation
{
    QString code;
    QString name;
    QString street;
    QString city;
    QString state;
    QString zip;
    double latitude = 0.0;
    double longitude = 0.0;
    QString notes;
};

struct SampleStop
{
    QString type;
    QString locationCode;
    QDateTime appointment;
    /// Invalid without an appointment window.
    QDateTime latest;
};

/// A pay or cost item of a trip.
struct SampleItem
{
    QString name;
    double amount = 0.0;
};

struct SampleTrip
{
    QString number;
    double emptyMiles = 0.0;
    double loadedMiles = 0.0;
    double linehaul = 0.0;
    double fuelSurcharge = 0.0;
    double carrierPercent = 0.0;
    QList<SampleStop> stops;
    QList<SampleItem> payItems;
    QList<SampleItem> costItems;
    QList<DomainRules::FuelRowValues> fuel;
    TripArithmetic::TripTotals totals;
    TripArithmetic::TripHoursResult hours;
};

/// An item of a settlement that belongs to no trip.
struct SampleSettlementItem
{
    QString kind;
    QString name;
    double amount = 0.0;
};

struct SampleWeek
{
    QDate payweek;
    QList<SampleTrip> trips;
    QList<SampleSettlementItem> items;
    /// Percent per year.
    std::optional<double> apr;
};

struct SampleBusiness
{
    QList<SampleLocation> locations;
    QList<SampleWeek> weeks;
};
