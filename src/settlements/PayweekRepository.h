#pragma once

#include "data/DomainRules.h"
#include "settlements/PayweekRecords.h"

#include <QSqlDatabase>
#include <QStringList>

/// Reads all that View Payweek shows, on an open connection to trips.db. It never writes. Results
/// and `error` are cleared first; on failure a function returns false with the driver's text, or
/// with "Trips database is not open." or "Payweek is blank.", and what was summed until then stays.
namespace PayweekRepository {

using DomainRules::PayweekKey;

/// The payweeks that have a trip or a settlement item, the newest first.
bool listPayweeks(const QSqlDatabase &database, QStringList &keys, QString &error);

/// The trips of the payweek in order of entry. A row has id, number, payweek, miles, revenue,
/// cost, net, cents per mile, hours and net per hour as stored.
bool loadPayweekTrips(const QSqlDatabase &database, const PayweekKey &payweek,
                      QList<QStringList> &rows, PayweekTripTotals &totals, QString &error);

/// The settlement items of the payweek, by kind. A row has id, payweek, kind, name and amount as
/// stored.
bool loadPayweekSettlementItems(const QSqlDatabase &database, const PayweekKey &payweek,
                                QList<QStringList> &rows, PayweekSettlementTotals &totals,
                                QString &error);

/// The payweek's movements of a fund, and its balance since the year began. The balance takes only
/// rows written MM/DD/YYYY, the movements any row of the very same text.
bool loadEmergencyFundSummary(const QSqlDatabase &database, const PayweekKey &payweek,
                              PayweekFundSummary &summary, QString &error);
bool loadTireFundSummary(const QSqlDatabase &database, const PayweekKey &payweek,
                         PayweekFundSummary &summary, QString &error);
bool loadPerformanceBondSummary(const QSqlDatabase &database, const PayweekKey &payweek,
                                PayweekFundSummary &summary, QString &error);

/// The fuel and DEF purchases of the payweek's trips. Rows of an unknown type count in the totals
/// and in no type's line.
bool loadPayweekFuelAnalytics(const QSqlDatabase &database, const PayweekKey &payweek,
                              PayweekFuelAnalytics &analytics, QString &error);

/// The payweeks that the carryover walks: those of listPayweeks() and those that have only a rate,
/// in text order.
bool listCarryoverPayweeks(const QSqlDatabase &database, QStringList &keys, QString &error);

/// The payweek's rate in percent per year; 0 if it has none or it cannot be read.
double loadPayweekApr(const QSqlDatabase &database, const PayweekKey &payweek);

/// Carryover and interest of the payweek, from its own records and a walk through the earlier
/// payweeks of its calendar year. A payweek that is no date walks those of all years. Weeks that
/// cannot be read count with what was summed.
bool loadPayweekCarryover(const QSqlDatabase &database, const PayweekKey &payweek,
                          const PayweekBasicSummary &basicSummary,
                          const PayweekFundSummary &emergencyFund,
                          const PayweekFundSummary &performanceBond,
                          PayweekCarryoverSummary &result, QString &error);

/// All that is read of a payweek: its figures, and the rows behind them as stored.
struct Payweek
{
    PayweekFigures figures;
    QList<QStringList> trips;
    QList<QStringList> items;
};

/// What a payweek is read from, in the order of reading.
enum class Reading { Trips, Items, EmergencyFund, TireFund, PerformanceBond, Fuel, Carryover };

/// Reads a payweek with all of the above. `reading` is the last of them: on failure the one that
/// failed.
bool loadPayweek(const QSqlDatabase &database, const PayweekKey &key, Payweek &payweek,
                 Reading &reading, QString &error);

} // namespace PayweekRepository
