#include "data/DomainRules.h"
#include "data/MoneyText.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace DomainRules {

namespace {

const QString truckFuel = u"Truck Fuel"_s;
const QString reeferFuel = u"Reefer Fuel"_s;

bool isAnyOf(const QString &text, std::initializer_list<QLatin1StringView> words)
{
    return std::any_of(words.begin(), words.end(),
                       [&text](QLatin1StringView word) { return text == word; });
}

QString cleaned(const QString &text)
{
    static const QRegularExpression blanks(u"\\s+"_s,
                                           QRegularExpression::UseUnicodePropertiesOption);
    QString clean = text.trimmed().toLower();
    clean.replace(u'_', u' ').replace(u'-', u' ').replace(blanks, u" "_s);
    return clean;
}

bool namesReeferFuel(const QString &clean)
{
    return clean.contains("reefer"_L1) && clean.contains("fuel"_L1);
}

bool namesTruckFuel(const QString &clean)
{
    return (clean.contains("truck"_L1) || clean.contains("tractor"_L1))
           && clean.contains("fuel"_L1);
}

// The names that detail rows and cost items have in common; DEF is spelled by the caller.
QString commonFuelName(const QString &clean, const QString &defName)
{
    if (isAnyOf(clean, {"truck fuel"_L1, "truckfuel"_L1, "tractor fuel"_L1, "fuel truck"_L1}))
        return truckFuel;
    if (isAnyOf(clean, {"reefer fuel"_L1, "reeferfuel"_L1, "fuel reefer"_L1}))
        return reeferFuel;
    if (isAnyOf(clean, {"def"_L1, "diesel exhaust fluid"_L1, "def fluid"_L1}))
        return defName;
    return {};
}

double perGallon(double net, double gallons)
{
    return gallons > 0.0 ? roundTo(net / gallons, 4) : 0.0;
}

} // namespace

bool isTruckOrReeferFuel(const QString &text)
{
    const QString type = text.trimmed();
    return type.isEmpty() || type.compare(truckFuel, Qt::CaseInsensitive) == 0
           || type.compare(reeferFuel, Qt::CaseInsensitive) == 0;
}

FuelSummary summarizeFuelRows(const QList<FuelRowValues> &rows)
{
    FuelSummary summary;
    double truckNet = 0.0;
    double reeferNet = 0.0;
    for (const FuelRowValues &row : rows) {
        const QString type = row.itemType.trimmed();
        if (type.isEmpty() && row.cost == 0.0 && row.discount == 0.0 && row.gallons == 0.0)
            continue;
        ++summary.rowCount;
        summary.totalCost += row.cost;
        summary.totalDiscount += row.discount;
        summary.totalGallons += row.gallons;
        if (!(row.gallons > 0.0))
            continue;
        if (type.compare(truckFuel, Qt::CaseInsensitive) == 0) {
            truckNet += row.cost - row.discount;
            summary.truckGallons += row.gallons;
        } else if (type.compare(reeferFuel, Qt::CaseInsensitive) == 0) {
            reeferNet += row.cost - row.discount;
            summary.reeferGallons += row.gallons;
        }
    }
    // The averages take the sums as they are; everything shown is rounded after them.
    summary.truckAverage = perGallon(truckNet, summary.truckGallons);
    summary.reeferAverage = perGallon(reeferNet, summary.reeferGallons);
    summary.totalCost = roundTo(summary.totalCost, 2);
    summary.totalDiscount = roundTo(summary.totalDiscount, 2);
    summary.totalNet = roundTo(summary.totalCost - summary.totalDiscount, 2);
    summary.totalGallons = roundTo(summary.totalGallons, 3);
    summary.truckGallons = roundTo(summary.truckGallons, 3);
    summary.reeferGallons = roundTo(summary.reeferGallons, 3);
    summary.truckNet = roundTo(truckNet, 2);
    summary.reeferNet = roundTo(reeferNet, 2);
    return summary;
}

QStringList fuelDetailTypeList()
{
    return {truckFuel, reeferFuel, u"Def"_s};
}

QString normalizeFuelDetailType(const QString &text)
{
    QString name = commonFuelName(cleaned(text), u"Def"_s);
    return name.isEmpty() ? text.trimmed() : name;
}

QString normalizeFuelCostName(const QString &text)
{
    const QString clean = cleaned(text);
    QString name = commonFuelName(clean, u"DEF"_s);
    if (!name.isEmpty())
        return name;
    if (namesReeferFuel(clean))
        return reeferFuel;
    if (namesTruckFuel(clean) || clean == "fuel"_L1)
        return truckFuel;
    if (clean.contains("def"_L1) || clean.contains("diesel exhaust fluid"_L1))
        return u"DEF"_s;
    if (clean.contains("wash"_L1))
        return u"Truck Wash"_s;
    return text.trimmed();
}

QString payweekFuelGroup(const QString &text)
{
    const QString name = text.trimmed().toLower();
    if (isAnyOf(name, {"truck fuel"_L1, "truckfuel"_L1, "fuel truck"_L1, "tractor fuel"_L1}))
        return truckFuel;
    if (isAnyOf(name, {"reefer fuel"_L1, "reeferfuel"_L1, "fuel reefer"_L1}))
        return reeferFuel;
    if (namesReeferFuel(name))
        return reeferFuel;
    if (namesTruckFuel(name))
        return truckFuel;
    return {};
}

bool isDefItemName(const QString &text)
{
    const QString name = text.trimmed().toLower();
    return name.contains("def"_L1) || name.contains("diesel exhaust fluid"_L1);
}

QString fuelAnalyticsGroup(const QString &text)
{
    const QString clean = cleaned(text);
    if (namesTruckFuel(clean) || clean == "fuel"_L1)
        return truckFuel;
    if (namesReeferFuel(clean))
        return reeferFuel;
    if (clean == "def"_L1 || clean.contains("diesel exhaust fluid"_L1)
        || clean.contains("def fluid"_L1))
        return u"DEF"_s;
    const QString trimmed = text.trimmed();
    return trimmed.isEmpty() ? u"Unknown"_s : trimmed;
}

} // namespace DomainRules
