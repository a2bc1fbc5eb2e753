#pragma once

#include <QString>
#include <QStringList>

/// The files that SQLite lays beside a database, named after it, with what is not in it yet or has
/// to be taken back. Whichever database stands under that name, SQLite takes them for its own.
namespace JournalFiles {

/// The paths of those that hold anything.
QStringList withContent(const QString &databasePath);

/// Lets SQLite bring what they hold into the database, as far as it can and no other program is at
/// work on it.
void finish(const QString &databasePath);

/// Removes all of them; false if one stays.
bool remove(const QString &databasePath);

/// Moves all of them beside another path; false if one stays, as it does where another lies.
bool move(const QString &databasePath, const QString &newPath);

} // namespace JournalFiles
