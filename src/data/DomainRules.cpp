#include "data/DomainRules.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace DomainRules {

namespace {

// toDouble() also reads "nan" and "inf", which no driver means and no total survives.
double finiteNumber(const QString &text)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    return ok && std::isfinite(value) ? value : 0.0;
}

} // namespace

double parseNumberText(const QString &text)
{
    return finiteNumber(text.trimmed().remove(u',')); // blank is no number either
}

double parseMoneyText(const QString &text)
{
    return finiteNumber(text.trimmed().remove(u'$').remove(u','));
}

double sortNumberFromText(const QString &text)
{
    QString number = text.trimmed().remove(u'$').remove(u',').remove("/hr"_L1).remove("/mi"_L1);
    const qsizetype dash = number.indexOf(" - "_L1);
    if (dash >= 0)
        number = number.first(dash).trimmed();
    return finiteNumber(number);
}

} // namespace DomainRules
