#pragma once

#include <QTableWidget>

/// The two tables of View Payweek. A cell keeps its raw column text, shows dollars grouped, and
/// sorts as a number where it is one.
namespace PayweekTables {

enum Role { tripIdRole = Qt::UserRole, rawTextRole = Qt::UserRole + 1 };
enum TripTableColumn { TripNoColumn };

/// A read-only table that selects one whole row at a time.
QTableWidget *makeTable(const QString &objectName, const QString &accessibleName, int minimumHeight,
                        QWidget *parent);

/// Removes contents, columns and rows.
void clear(QTableWidget *table);

/// Shows the trips of a payweek; a row is one of PayweekRepository::loadPayweekTrips(). The trip
/// number looks like a link and keeps the trip's id, 0 if that cannot be read.
void showTrips(QTableWidget *table, const QList<QStringList> &rows);

/// Shows the settlement items of a payweek.
void showItems(QTableWidget *table, const QList<QStringList> &rows);

} // namespace PayweekTables
