#pragma once

#include "support/surroundings/TracedProgram.h"

#include <QDir>
#include <QTest>

/// Whoever is killed cannot tidy up, and what cannot be removed stays.
inline void noPartOfACopyIsLeft(TracedProgram::End end, const TracedProgram::Call &call)
{
    const bool isRemoval = call.name.startsWith(QStringLiteral("unlink"))
                           || call.name.startsWith(QStringLiteral("rmdir"));
    if (end != TracedProgram::End::Killed && !isRemoval)
        QCOMPARE(QDir().entryList({QStringLiteral("unfinished*")}), QStringList());
}
