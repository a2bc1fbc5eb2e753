#pragma once

#include "data/DomainRules.h"

#include <QMap>

#include <optional>

/// What follows from the fuel and DEF rows of a trip: prices, the cost items that carry fuel into
/// the trip's total cost, and the total line.
namespace FuelRowRules {

/// Dollars per gallon after the discount, to four places. None for DEF, which is bought by the jug
/// as often as by the gallon, and none without gallons.
std::optional<double> pricePerGallon(const DomainRules::FuelRowValues &row);

/// The net cost in dollars by cost item name, in the order in which the items are added. Rows
/// that come to zero add nothing.
QMap<QString, double> costByItemName(const QList<DomainRules::FuelRowValues> &rows);

/// Whether cost items of this name belong to the fuel rows, which replace them at every save.
/// Ignores case and outer blanks.
bool ownsCostItem(const QString &name);

/// Whether the row says nothing: no type and three zeros.
bool isBlank(const DomainRules::FuelRowValues &row);

/// Whether a fuel row may have this type. Ignores case.
bool isFuelType(const QString &type);

/// "Fuel totals: Rows 2 | Cost $412.80 | ...".
QString totalLine(const QList<DomainRules::FuelRowValues> &rows);

} // namespace FuelRowRules
