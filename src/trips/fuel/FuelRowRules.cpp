#include "trips/fuel/FuelRowRules.h"

#include "data/MoneyText.h"

using namespace Qt::StringLiterals;

namespace FuelRowRules {

namespace {

QString averageText(double dollarsPerGallon, double gallons)
{
    return gallons > 0.0 ? pricePerGallonText(dollarsPerGallon) + "/gal"_L1 : u"n/a"_s;
}

} // namespace

std::optional<double> pricePerGallon(const DomainRules::FuelRowValues &row)
{
    if (!DomainRules::isTruckOrReeferFuel(row.itemType) || !(row.gallons > 0.0))
        return std::nullopt;
    return roundTo((row.cost - row.discount) / row.gallons, 4);
}

QMap<QString, double> costByItemName(const QList<DomainRules::FuelRowValues> &rows)
{
    QMap<QString, double> costs;
    for (const DomainRules::FuelRowValues &row : rows) {
        const QString name = DomainRules::normalizeFuelCostName(row.itemType);
        const double net = roundTo(row.cost - row.discount, 2);
        if (!name.isEmpty() && net != 0.0)
            costs[name] += net;
    }
    return costs;
}

bool ownsCostItem(const QString &name)
{
    const QStringList owned = {u"Truck Fuel"_s, u"Reefer Fuel"_s, u"DEF"_s, u"Truck Wash"_s};
    return owned.contains(name.trimmed(), Qt::CaseInsensitive);
}

bool isBlank(const DomainRules::FuelRowValues &row)
{
    return row.itemType.trimmed().isEmpty() && row.cost == 0.0 && row.discount == 0.0
           && row.gallons == 0.0;
}

bool isFuelType(const QString &type)
{
    return DomainRules::fuelDetailTypeList().contains(type, Qt::CaseInsensitive);
}

QString totalLine(const QList<DomainRules::FuelRowValues> &rows)
{
    const DomainRules::FuelSummary sum = DomainRules::summarizeFuelRows(rows);
    return u"Fuel totals: Rows %1 | Cost %2 | Discount %3 | Net %4 | Gallons %5 | Truck avg %6 | "
           "Reefer avg %7"_s.arg(QString::number(sum.rowCount), moneyText(sum.totalCost),
                                 moneyText(sum.totalDiscount), moneyText(sum.totalNet),
                                 gallonsText(sum.totalGallons),
                                 averageText(sum.truckAverage, sum.truckGallons),
                                 averageText(sum.reeferAverage, sum.reeferGallons));
}

} // namespace FuelRowRules
