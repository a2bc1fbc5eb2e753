#pragma once

#include <QSqlDatabase>
#include <QStringList>

class QWidget;

/// What loading and saving the rows of a trip cannot do without. The statements are the product's,
/// each prepared once; the grids are plain tables that hold the same cell widgets.
namespace TripFloors {

/// Reads the stops, items and fuel rows of a trip into four new tables below `parent`.
void load(const QSqlDatabase &trips, int tripId, const QStringList &codes, const QStringList &names,
          QWidget *parent);

/// Deletes and inserts the rows that the file has for the trip, each committed by itself, with the
/// location codes looked up for each stop, and the item names for each kind of items.
void save(const QSqlDatabase &trips, const QSqlDatabase &locations, int tripId);

} // namespace TripFloors
