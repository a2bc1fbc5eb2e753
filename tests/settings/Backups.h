#pragma once

#include "support/Workspace.h"

#include <QDateTime>
#include <QDir>

/// The copies of replaced databases that lie in the current folder.
inline QStringList backups()
{
    return QDir().entryList({QStringLiteral("*.pre_import_backup_*")});
}

/// Lays a file in the place of every copy that could be made of `fileName` within a minute, as an
/// import in the very same second does.
inline void takeTheNamesOfBackups(const Workspace &workspace, const QString &fileName)
{
    const QDateTime now = QDateTime::currentDateTime();
    for (int second = 0; second < 60; ++second) {
        const QString time = now.addSecs(second).toString(QStringLiteral("yyyyMMdd_hhmmss"));
        workspace.makeFile(fileName + QStringLiteral(".pre_import_backup_") + time,
                           "an earlier copy");
    }
}
