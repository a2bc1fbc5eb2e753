#pragma once

#include <QSqlDatabase>

class QTableWidget;

/// The statements of Edit Settlement and Locations, and plain tables of the same size.
namespace SettlementFloors {

/// The two statements that list the payweeks.
void payweeks(const QSqlDatabase &trips);

/// The names of all items, the APR and the items of `payweek`.
void payweek(const QSqlDatabase &trips, const QString &payweek, QTableWidget &table);

/// All locations.
void locations(const QSqlDatabase &database, QTableWidget &table);

} // namespace SettlementFloors
