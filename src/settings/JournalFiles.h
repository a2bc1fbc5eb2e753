#pragma once

#include <QString>
#include <QStringList>

/// The files that SQLite lays beside a database, named after it, with what is not in it yet or has
/// to be taken back. Whichever database stands under that name, SQLite takes them for its own.
namespace JournalFiles {

/// The paths of those that hold anything.
QStringList withContent(const QString &databasePath);

/// Lets SQLite bring what they hold into the database. False where it cannot, as while another
/// program is at work on it; else what still lies there is of no more use.
bool finish(const QString &databasePath);

/// Removes all of them; false if one stays.
bool remove(const QString &databasePath);

/// Moves all of them beside another path; false if one stays, as it does where another lies.
bool move(const QString &databasePath, const QString &newPath);

} // namespace JournalFiles
