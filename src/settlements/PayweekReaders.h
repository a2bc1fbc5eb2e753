#pragma once

#include "data/DomainRules.h"
#include "data/SqlStatement.h"
#include "settlements/PayweekRecords.h"

#include <initializer_list>
#include <utility>

/// The statements of one payweek, each prepared once and run for week after week. Results are
/// zeroed first; on failure a reader returns false with the driver's text in `error`, and what was
/// summed until then stays.

/// Which items pay into a fund and which take out of it.
struct FundRules
{
    bool (*adds)(const QString &kind, const QString &name);
    bool (*withdraws)(const QString &kind, const QString &name);

    /// The amount with the sign that the fund sees: plus in, minus out, 0 for any other item.
    [[nodiscard]] double signedAmount(const QString &kind, const QString &name,
                                      double amount) const;
};

inline constexpr FundRules emergencyFundRules = {DomainRules::isEmergencyFundAdd,
                                                 DomainRules::isEmergencyFundWithdrawal};
inline constexpr FundRules tireFundRules = {DomainRules::isTireFundAdd,
                                            DomainRules::isTireFundWithdrawal};
inline constexpr FundRules performanceBondRules = {DomainRules::isPerformanceBondAdd,
                                                   DomainRules::isPerformanceBondWithdrawal};

class PayweekTripsReader
{
public:
    explicit PayweekTripsReader(const QSqlDatabase &database);
    /// `rows`, if there is one, takes the texts of each trip.
    bool load(const QString &payweek, QList<QStringList> *rows, PayweekTripTotals &totals,
              QString &error);

private:
    SqlStatement statement;
};

class PayweekItemsReader
{
public:
    explicit PayweekItemsReader(const QSqlDatabase &database);
    bool load(const QString &payweek, QList<QStringList> *rows, PayweekSettlementTotals &totals,
              QString &error);

private:
    SqlStatement statement;
};

/// A payweek's own contributions and withdrawals.
class PayweekFundReader
{
public:
    explicit PayweekFundReader(const QSqlDatabase &database);
    /// Fills `added`, `withdrawn` and `netChange` of each fund from one run.
    bool load(const QString &payweek,
              std::initializer_list<std::pair<FundRules, PayweekFundSummary *>> funds,
              QString &error);

private:
    SqlStatement statement;
};

class PayweekAprReader
{
public:
    explicit PayweekAprReader(const QSqlDatabase &database);
    /// Percent per year; 0 if the week has no rate or the statement fails.
    double load(const QString &payweek);

private:
    SqlStatement statement;
};
