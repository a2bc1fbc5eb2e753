#pragma once

#include <QTableWidget>

/// The tables of a payweek's trips and of its settlement items, in DataCells. Dollars are grouped.
namespace PayweekTables {

inline constexpr int tripIdRole = Qt::UserRole;
enum TripTableColumn { TripNoColumn };
enum ItemTableColumn { ItemIdColumn, ItemPayweekColumn, KindColumn, NameColumn, AmountColumn };

/// Removes contents, columns and rows.
void clear(QTableWidget *table);

/// Shows the trips of a payweek; a row is one of PayweekRepository::loadPayweekTrips(). The trip
/// number looks like a link and keeps the trip's id, 0 if that cannot be read.
void showTrips(QTableWidget *table, const QList<QStringList> &rows);

/// Shows the settlement items of a payweek: id, payweek, kind, name, amount. Without rows the
/// headers stand alone.
void showItems(QTableWidget *table, const QList<QStringList> &rows);

} // namespace PayweekTables
