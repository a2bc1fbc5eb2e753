#pragma once

#include <QString>

/// Copies database files out to a backup and back in. Paths may be relative. A copy holds all that
/// has been committed, wherever SQLite keeps it; whether it is a database at all is not looked at.
/// A failure gives a text that names the file at fault in `errorOut`, which is cleared first.
namespace DatabaseFiles {

/// Copies `sourcePath` to `targetPath`, whose folder is made where it is missing. A file that
/// stands there is replaced once the copy is whole, and stays as it was if anything fails. The
/// source itself, in whatever letter case it is named, and any other database in use are refused.
bool copyDatabaseFile(const QString &sourcePath, const QString &targetPath, QString &errorOut);

/// The same, but keeps the file that stands at `targetPath` as a copy beside it, named with
/// ".pre_import_backup_" and the local time, and gives the path of that copy, even where a later
/// step fails, in `backupOut`. If the very last step fails there is no file at `targetPath`, and
/// the copy can be renamed to take its place. Copies are never removed.
bool replaceDatabaseFile(const QString &sourcePath, const QString &targetPath, QString &errorOut,
                         QString *backupOut = nullptr);

} // namespace DatabaseFiles
