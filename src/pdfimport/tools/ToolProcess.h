#pragma once

#include <QString>
#include <QStringList>

/// Runs an external program to its end and waits for it; the window stands still meanwhile. No
/// shell is involved, and a blank working directory is the current one. On Linux the program dies
/// with this one, however this one ends.
///
/// Returns true if the program ended by itself with exit code 0; whether it also made what it was
/// asked for is for the caller to see. Standard error is given trimmed. A program that cannot be
/// started, or that is killed at its time limit, gives the exit code -1, and standard error then
/// says so: "Could not start process: " or "Process timed out: " with the program's path. So it
/// does after endTools: "Process ended: ". Each of the last three arguments may be null.
bool runProcess(const QString &program, const QStringList &arguments,
                const QString &workingDirectory, int timeoutMs, QString *standardOutput,
                QString *standardError, int *exitCode);

/// Ends the external program that runs within a tenth of a second, and each that would start later
/// before it starts: this one is asked to end. May be called in a signal handler.
void endTools();
