#pragma once

#include <QString>

/// Copies database files out to a backup and back in. Paths may be relative; only whole files are
/// copied, and what a file holds is not looked at. A failure gives a text that names the file at
/// fault in `errorOut`, which is cleared first.
namespace DatabaseFiles {

/// Copies `sourcePath` to `targetPath`, whose folder is made where it is missing. A file that
/// stands there is replaced; the source itself, in whatever letter case it is named, is refused.
bool copyDatabaseFile(const QString &sourcePath, const QString &targetPath, QString &errorOut);

/// The same, but keeps the file that stands at `targetPath` as a copy beside it, named with
/// ".pre_import_backup_" and the local time. If the very last step fails there is no file at
/// `targetPath`, and the copy can be renamed to take its place. Copies are never removed.
bool replaceDatabaseFile(const QString &sourcePath, const QString &targetPath, QString &errorOut);

} // namespace DatabaseFiles
