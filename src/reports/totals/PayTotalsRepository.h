#pragma once

#include "data/DomainRules.h"
#include "reports/charts/ChartPoint.h"
#include "reports/totals/PayTotalsRecords.h"

#include <QSqlDatabase>
#include <QStringList>

/// Reads all that Pay Totals shows, on an open connection to trips.db. It never writes and reports
/// no error: a closed file, a missing table or a failed statement gives zeros or an empty list. A
/// year is four digits; like a payweek it is trimmed, and blank it gives nothing.
namespace PayTotalsRepository {

using DomainRules::PayweekKey;

/// The years in which trips were paid, the oldest first: those of payweeks written MM/DD/YYYY.
QStringList listTotalsYears(const QSqlDatabase &database);

/// The payweeks of a year that have a trip, in text order. One with settlement items alone is not
/// among them, though its items count in the year.
QStringList listTotalsPayweeks(const QSqlDatabase &database, const QString &year);

PayTotalsSummary loadYearTotals(const QSqlDatabase &database, const QString &year);
PayTotalsSummary loadPayweekTotals(const QSqlDatabase &database, const PayweekKey &payweek);

NonTripTotals loadYearNonTripTotals(const QSqlDatabase &database, const QString &year);
NonTripTotals loadPayweekNonTripTotals(const QSqlDatabase &database, const PayweekKey &payweek);

/// The items that `scopeClause`, an "AND ..." on settlement_non_trip_items, leaves.
NonTripTotals loadNonTripTotals(const QSqlDatabase &database, const QString &scopeClause,
                                const QVariantList &bindValues);

/// Without purchases the four fixed buckets still have their labels; for a blank year or payweek
/// they have none.
FuelTotals loadYearFuelTotals(const QSqlDatabase &database, const QString &year);
FuelTotals loadPayweekFuelTotals(const QSqlDatabase &database, const PayweekKey &payweek);

/// The purchases that `scopeClause`, an "AND ..." on the trips `t`, leaves.
FuelTotals loadFuelTotals(const QSqlDatabase &database, const QString &scopeClause,
                          const QVariantList &bindValues);

/// What a metric such as "trip_revenue" is called; an unknown key as it was passed.
QString weeklyMetricLabel(const QString &key);

/// A metric of each payweek of listTotalsPayweeks(). An unknown key gives zeros, a blank one
/// nothing.
QList<ChartPoint> loadWeeklyMetric(const QSqlDatabase &database, const QString &year,
                                   const QString &key);

/// The same as plain text, four decimals each, with their plain sum; of rates too.
QString formatWeeklyMetricText(const QSqlDatabase &database, const QString &year,
                               const QString &key);

} // namespace PayTotalsRepository
