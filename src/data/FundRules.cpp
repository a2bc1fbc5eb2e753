#include "data/DomainRules.h"

using namespace Qt::StringLiterals;

namespace DomainRules {

namespace {

bool isItem(const QString &kind, const QString &name, QLatin1StringView wantedKind,
            QLatin1StringView wantedName)
{
    return kind.trimmed().compare(wantedKind, Qt::CaseInsensitive) == 0
           && name.trimmed().compare(wantedName, Qt::CaseInsensitive) == 0;
}

} // namespace

bool isEmergencyFundAdd(const QString &kind, const QString &name)
{
    return isItem(kind, name, "expense"_L1, "Emergency Fund"_L1);
}

bool isEmergencyFundWithdrawal(const QString &kind, const QString &name)
{
    return isItem(kind, name, "revenue"_L1, "Emergency Fund"_L1)
           || isItem(kind, name, "revenue"_L1, "Emergency Fund Withdrawal"_L1);
}

bool isTireFundAdd(const QString &kind, const QString &name)
{
    return isItem(kind, name, "expense"_L1, "Tire Fund"_L1);
}

bool isTireFundWithdrawal(const QString &kind, const QString &name)
{
    return isItem(kind, name, "revenue"_L1, "Tire Fund Withdrawal"_L1);
}

bool isPerformanceBondAdd(const QString &kind, const QString &name)
{
    return isItem(kind, name, "expense"_L1, "Performance Bond"_L1);
}

bool isPerformanceBondWithdrawal(const QString &kind, const QString &name)
{
    return isItem(kind, name, "revenue"_L1, "Performance Bond Withdrawal"_L1);
}

QString nonTripCategory(const QString &kind, const QString &name)
{
    const QString item = name.trimmed().toLower();
    if (item == "emergency fund"_L1 || item == "emergency fund withdrawal"_L1)
        return u"Emergency Fund"_s;
    if (item.contains("tire"_L1) && item.contains("fund"_L1))
        return u"Tire Fund"_s;
    if (item.contains("performance"_L1) && item.contains("bond"_L1))
        return u"Performance Bond"_s;
    const QString side = kind.trimmed().toLower();
    if (side == "revenue"_L1)
        return u"Other Non-Trip Revenue"_s;
    if (side == "expense"_L1)
        return u"Other Non-Trip Expense"_s;
    return u"Other Non-Trip Settlement"_s;
}

} // namespace DomainRules
