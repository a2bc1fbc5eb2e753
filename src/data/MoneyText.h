#pragma once

#include <QString>

/// The text forms of dollars and other figures, one function a form, the one rounding, and the one
/// limit of what counts as a figure.

/// Half away from zero at `places` decimals, in double precision. Cents are 2 places, prices per
/// gallon 4.
double roundTo(double value, int places);

/// The amount, or 0 for what is none: no number at all, or one beyond 1e300 either way. That is far
/// beyond any dollars or miles, and the distance between two such amounts still is a number.
double amountOrZero(double value);

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
