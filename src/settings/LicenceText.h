#pragma once

#include <QString>
#include <QStringList>

/// Finds the end user licence agreement that lies near the program. It is only shown: nothing is
/// checked against it.
namespace LicenceText {

/// The files that may hold the agreement, the likeliest first: beside the program, then in the
/// current folder, then where the installer keeps it.
QStringList licenceCandidates(const QString &applicationFolder, const QString &currentFolder);

/// The trimmed UTF-8 text of the first candidate that has any; empty if none has. A file that is
/// missing, cannot be read or holds only white space does not count.
QString firstLicenceText(const QStringList &candidates);

} // namespace LicenceText
