#pragma once

#include <QString>
#include <QStringList>

/// The figures of the start screen in the words that it shows.
namespace StartScreenText {

/// The file name of the trips file without its folder, or "No database open" for a blank path.
QString databaseText(const QString &path);

/// The number of trips; a negative count is one that could not be had.
QString tripsText(int count);

/// The number of locations. Unlike for trips, a count that could not be had reads as 0: the
/// program can be used without a locations file.
QString locationsText(int count);

/// The trimmed payweek, or "None".
QString payweekText(const QString &payweek);

/// Always that there is nothing to show: no date of a backup is kept anywhere.
QString backupText();

/// One line an entry, each with a bullet, or that there is nothing to tell.
QString activityText(const QStringList &activity);

} // namespace StartScreenText
