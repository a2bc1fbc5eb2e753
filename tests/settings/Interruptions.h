#pragma once

#include "support/TracedProgram.h"

#include <QDir>
#include <QTest>

/// Lets the workspaces that follow lie in memory, where the machine has such a folder: to wait for
/// the disk would be most of the time of a thousand runs.
inline void workInMemory()
{
    if (QDir(QStringLiteral("/dev/shm")).exists())
        qputenv("TMPDIR", "/dev/shm");
}

/// Whoever is killed cannot tidy up, and what cannot be removed stays.
inline void noPartOfACopyIsLeft(TracedProgram::End end, const TracedProgram::Call &call)
{
    const bool isRemoval = call.name.startsWith(QStringLiteral("unlink"))
                           || call.name.startsWith(QStringLiteral("rmdir"));
    if (end != TracedProgram::End::Killed && !isRemoval)
        QCOMPARE(QDir().entryList({QStringLiteral("unfinished*")}), QStringList());
}
