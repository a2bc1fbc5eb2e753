#pragma once

#include "reports/totals/PayTotalsRecords.h"

#include <QStringList>

/// What the Totals page writes of a year or a payweek.
namespace PayTotalsText {

/// Dollars per mile as "$1.2345/mi".
QString perMileText(double dollars);

/// Dollars per gallon as "$3.8780/gal"; "n/a" for none.
QString perGallonText(double dollars);

/// The nineteen figures of the core table, each with its name.
QList<QStringList> coreRows(const PayTotalsSummary &summary, const NonTripTotals &nonTrip);
QList<QStringList> groupRows(const NonTripTotals &totals);
/// All fuel, truck fuel, reefer fuel and DEF, also where nothing was bought.
QList<QStringList> fuelRows(const FuelTotals &totals);

QString coreSummary(const QString &scope);
QString nonTripSummary(const QString &scope, const NonTripTotals &totals);
QString fuelSummary(const QString &scope, const FuelTotals &totals);

/// A purchase or an item as its popup lists it.
QStringList purchaseRow(const FuelDetailRow &purchase);
QStringList itemRow(const NonTripRow &item);

/// An item without a name is listed as "(blank)".
QString nameOrBlank(const QString &name);

/// The metric behind a row of the core or of the fuel table; empty if there is none.
QString coreMetricKey(const QString &label);
QString fuelMetricKey(const QString &label);

} // namespace PayTotalsText
