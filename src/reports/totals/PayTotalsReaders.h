#pragma once

#include "data/SqlStatement.h"
#include "reports/totals/PayTotalsRecords.h"

/// The statements of Pay Totals, each prepared once and run for one year or payweek after another.
/// What cannot be read counts as nothing.
namespace PayTotalsReaders {

/// How each table names the year or the payweek that is asked for; each has one place for the key.
struct Scope
{
    QLatin1StringView trips;
    QLatin1StringView items;
    QLatin1StringView fuel;
};

// A year is read by its place in MM/DD/YYYY: a payweek in any other form belongs to none.
inline constexpr Scope yearScope = {
    QLatin1StringView("SUBSTR(TRIM(COALESCE(payweek,'')), 7, 4) = ?"),
    QLatin1StringView("SUBSTR(TRIM(COALESCE(settlement_date,'')), 7, 4) = ?"),
    QLatin1StringView("SUBSTR(TRIM(COALESCE(t.payweek,'')), 7, 4) = ?")};

inline constexpr Scope payweekScope = {QLatin1StringView("TRIM(COALESCE(payweek,'')) = ?"),
                                       QLatin1StringView("TRIM(COALESCE(settlement_date,'')) = ?"),
                                       QLatin1StringView("TRIM(COALESCE(t.payweek,'')) = ?")};

class SummaryReader
{
public:
    SummaryReader(const QSqlDatabase &database, const Scope &scope);
    /// A statement that fails leaves its own figure at 0, and the others still run.
    PayTotalsSummary load(const QVariantList &key);

private:
    bool hasItems;
    SqlStatement tripCount;
    SqlStatement tripRevenue;
    SqlStatement tripExpenses;
    SqlStatement totalMiles;
    SqlStatement settlementRevenue;
    SqlStatement settlementExpenses;
};

class NonTripReader
{
public:
    /// `scopeClause` goes on after a WHERE.
    NonTripReader(const QSqlDatabase &database, const QString &scopeClause);
    /// Empty if the statement fails, even half way.
    NonTripTotals load(const QVariantList &bindValues);

private:
    bool hasItems;
    SqlStatement statement;
};

class FuelReader
{
public:
    /// `scopeClause` goes on after a WHERE; trips are `t` there, and purchases `tdi`.
    FuelReader(const QSqlDatabase &database, const QString &scopeClause);
    /// Without purchases, but with the labels, if the statement fails, even half way.
    FuelTotals load(const QVariantList &bindValues);

private:
    bool hasPurchases;
    SqlStatement statement;
};

} // namespace PayTotalsReaders
