#pragma once

#include "samples/SampleDraw.h"
#include "samples/SampleRecords.h"

/// What the truck and the cooling unit burn, and what it costs.
class SampleFuel
{
public:
    explicit SampleFuel(SampleDraw &sharedDraw);

    /// Dollars a gallon at the pump, about what it was in that year (2006 to 2026).
    static double dieselPrice(int year);

    /// The purchases of a trip of `miles`: tractor, cooling unit if there is one, exhaust fluid.
    QList<DomainRules::FuelRowValues> purchases(int year, double miles, bool reefer);

    /// The cost items that follow from purchases: the net cost of each kind, by name.
    static QList<SampleItem> costItems(const QList<DomainRules::FuelRowValues> &purchases);

private:
    double pumpPrice(int year);

    SampleDraw &draw;
};
