#include "data/MoneyText.h"

#include <QLocale>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double largestAmount = 1e300;

} // namespace

double roundTo(double value, int places)
{
    const double factor = std::pow(10.0, places);
    return std::round(value * factor) / factor;
}

double amountOrZero(double value)
{
    return std::abs(value) <= largestAmount ? value : 0.0;
}

QString moneyText(double dollars)
{
    return u'$' + number2Text(dollars);
}

QString groupedMoneyText(double dollars)
{
    const auto sign = dollars < 0.0 ? "-$"_L1 : "$"_L1;
    return sign + groupedNumber2Text(std::abs(dollars));
}

QString pricePerGallonText(double dollars)
{
    return u'$' + QString::number(dollars, 'f', 4);
}

QString gallonsText(double gallons)
{
    return QString::number(gallons, 'f', 3);
}

QString number2Text(double value)
{
    return QString::number(value, 'f', 2);
}

QString groupedNumber2Text(double value)
{
    return QLocale().toString(value, 'f', 2);
}
