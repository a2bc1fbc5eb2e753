#pragma once

#include <QString>

/// Runs the script at `scriptPath` on the SQLite file at `databasePath`, which is made if it is
/// missing. The script's statements end with ";" at the end of a line and hold no triggers.
/// All of them run or none: on failure returns false with the reason in `error`.
bool runSqlScript(const QString &scriptPath, const QString &databasePath, QString &error);
