#pragma once

#include <QSqlDatabase>
#include <QString>
#include <QStringList>

/// The SQL of what is edited by hand in a settlement: the items that belong to no trip, and the
/// APR. A settlement goes by its payweek. Every function clears `error` first; on failure it
/// returns false with the driver's text in it, or with a sentence of its own.
namespace SettlementRepository {

/// The payweeks that have trips or items, the latest first where both are dates, and in descending
/// text order where either is none.
bool listSettlementPayweeks(const QSqlDatabase &database, QStringList &payweeks, QString &error);

/// The items of a payweek: id, payweek, kind, name, and the amount in dollars with two decimals.
/// The sums are those of the kinds "revenue" and "expense". The stored payweek is compared as it
/// stands: an item whose payweek was stored with blanks around it is not found.
bool loadSettlementItems(const QSqlDatabase &database, const QString &payweek,
                         QList<QStringList> &rows, double &revenueTotal, double &expenseTotal,
                         QString &error);

/// Adds an item. The kind is "revenue" or "expense" in any case.
bool addSettlementItem(const QSqlDatabase &database, const QString &payweek, const QString &kind,
                       const QString &name, double dollars, QString &error);

/// Changes an item but for its payweek. An item that is gone is a failure.
bool updateSettlementItem(const QSqlDatabase &database, int id, const QString &kind,
                          const QString &name, double dollars, QString &error);

/// Deletes an item. An item that is gone is a failure.
bool deleteSettlementItem(const QSqlDatabase &database, int id, QString &error);

/// The names that the items of a year go by, each once in the first spelling found; none for a year
/// below 1.
bool listSettlementItemNames(const QSqlDatabase &database, int year, QStringList &names,
                             QString &error);

/// The rate of a payweek in percent per year, 0 if none was saved.
bool loadSettlementApr(const QSqlDatabase &database, const QString &payweek, double &apr,
                       QString &error);

/// Saves the rate of a payweek, 0 like any other.
bool saveSettlementApr(const QSqlDatabase &database, const QString &payweek, double apr,
                       QString &error);

} // namespace SettlementRepository
