#pragma once

#include <QString>

/// The text forms of dollars and other figures, one function a form, and the one rounding.

/// Half away from zero at `places` decimals, in double precision. Cents are 2 places, prices per
/// gallon 4.
double roundTo(double value, int places);

/// Dollars as "$1234.50": two decimals, no grouping, the sign behind the dollar sign ("$-12.50").
QString moneyText(double dollars);

/// Dollars as "$1,234.50" and "-$1,234.50", grouped as the default locale does. Both zeros give
/// "$0.00"; a fraction of a cent below zero keeps its sign, "-$0.00".
QString groupedMoneyText(double dollars);

/// Dollars per gallon as "$3.8780".
QString pricePerGallonText(double dollars);

/// Gallons with three decimals, as pumps show them.
QString gallonsText(double gallons);

/// A number with two decimals and no grouping: miles, hours, cents per mile, percent.
QString number2Text(double value);

/// A number with two decimals, grouped as the default locale does.
QString groupedNumber2Text(double value);
