#pragma once

#include <QString>
#include <QStringList>

/// The figures of the start screen, read from the databases in use. Each function opens a
/// connection of its own for the one call, so that they answer whether or not a page has a file
/// open. Nothing here creates a file or changes one, and no failure is reported: a figure that
/// cannot be had is unknown or blank.
namespace DashboardStats {

/// Stands for a count that cannot be had: no file, no such table, or no database in the file.
inline constexpr int unknownCount = -1;

/// The rows of a table of trips.db, or unknownCount. Of the name only letters, digits and
/// underscores are taken.
int countTableRows(const QString &tableName);

/// The locations in locations.db, or unknownCount.
int countLocations();

/// The latest payweek that has a trip, trimmed, whatever today's date is; blank if there is none.
/// Weeks are ordered by the characters where MM/DD/YYYY has year, month and day, so a week in any
/// other spelling takes an odd place; of equal ones the trip entered last decides.
QString currentPayweek();

/// What happened lately in trips.db, at most three texts: the imports of older files, then the
/// trip entered last. Empty if there is nothing to tell.
QStringList recentActivity();

} // namespace DashboardStats
