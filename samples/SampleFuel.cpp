#include "samples/SampleFuel.h"

#include "data/MoneyText.h"
#include "trips/fuel/FuelRowRules.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int firstPricedYear = 2006;
constexpr double gallonsPerFill = 95.0;

DomainRules::FuelRowValues purchase(const QString &type, double gallons, double price,
                                    double discountPerGallon)
{
    const double pumped = roundTo(gallons, 3);
    return {type, roundTo(pumped * price, 2), roundTo(pumped * discountPerGallon, 2), pumped};
}

} // namespace

SampleFuel::SampleFuel(SampleDraw &sharedDraw)
    : draw(sharedDraw)
{
}

double SampleFuel::dieselPrice(int year)
{
    constexpr auto prices =
        std::to_array({2.70, 2.88, 3.80, 2.47, 2.99, 3.84, 3.97, 3.92, 3.82, 2.71, 2.30,
                       2.65, 3.18, 3.06, 2.55, 3.29, 4.99, 4.21, 3.76, 3.65, 3.70});
    return prices.at(static_cast<size_t>(year - firstPricedYear));
}

QList<DomainRules::FuelRowValues> SampleFuel::purchases(int year, double miles, bool reefer)
{
    QList<DomainRules::FuelRowValues> rows;
    const double milesPerGallon = draw.between(58, 72) / 10.0;
    const double needed = miles / milesPerGallon;
    const int fills = static_cast<int>(needed / gallonsPerFill) + 1;
    for (int i = 0; i < fills; ++i) {
        const double gallons = needed / fills * draw.between(92, 108) / 100.0;
        const double price = pumpPrice(year);
        rows.append(purchase(u"Truck Fuel"_s, gallons, price, draw.dollars(15, 55)));
    }
    if (reefer) {
        const double gallons = draw.between(15'000, 38'000) / 1000.0;
        const double price = pumpPrice(year) - 0.25;
        rows.append(purchase(u"Reefer Fuel"_s, gallons, price, draw.dollars(0, 20)));
    }
    if (draw.chance(50)) {
        const double gallons = draw.between(4'000, 9'500) / 1000.0;
        const double price = draw.dollars(289, 499);
        rows.append(purchase(u"Def"_s, gallons, price, draw.chance(40) ? 0.20 : 0.0));
    }
    return rows;
}

// Pumps show the price to nine tenths of a cent.
double SampleFuel::pumpPrice(int year)
{
    return dieselPrice(year) + draw.between(-35, 35) / 100.0 + 0.009;
}

QList<SampleItem> SampleFuel::costItems(const QList<DomainRules::FuelRowValues> &purchases)
{
    const QMap<QString, double> costs = FuelRowRules::costByItemName(purchases);
    QList<SampleItem> items;
    for (auto cost = costs.cbegin(); cost != costs.cend(); ++cost)
        items.append({cost.key(), roundTo(cost.value(), 2)});
    return items;
}
