#include "data/DomainRules.h"

#include <array>
#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace DomainRules {

namespace {

// Digits with at most one point, as number columns give them. Up to 15 digits the quotient is the
// very double that toDouble() gives, in a twentieth of the time: the trip list asks for it 40,000
// times.
std::optional<double> plainNumber(QStringView text)
{
    static constexpr std::array powersOfTen = {1.0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                               1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const bool negative = text.startsWith(u'-');
    qint64 digits = 0;
    std::size_t digitCount = 0;
    std::optional<std::size_t> digitsBeforePoint;
    for (const QChar character : text.sliced(negative ? 1 : 0)) {
        if (character == u'.' && !digitsBeforePoint) {
            digitsBeforePoint = digitCount;
            continue;
        }
        if (character < u'0' || character > u'9' || ++digitCount >= powersOfTen.size())
            return {};
        digits = digits * 10 + (character.unicode() - u'0');
    }
    if (digitCount == 0)
        return {};
    const double value = static_cast<double>(digits)
                         / powersOfTen.at(digitCount - digitsBeforePoint.value_or(digitCount));
    return negative ? -value : value;
}

// toDouble() also reads "nan" and "inf", which no driver means and no total survives.
double finiteNumber(const QString &text)
{
    if (const std::optional<double> plain = plainNumber(text))
        return *plain;
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
    if (const std::optional<double> plain = plainNumber(text))
        return *plain;
    QString number = text.trimmed().remove(u'$').remove(u',').remove("/hr"_L1).remove("/mi"_L1);
    const qsizetype dash = number.indexOf(" - "_L1);
    if (dash >= 0)
        number = number.first(dash).trimmed();
    return finiteNumber(number);
}

} // namespace DomainRules
