#pragma once

#include <QString>
#include <QStringList>

#include <functional>

/// A program that runs under strace, which tells its system calls, ends it at one of them or lets
/// one fail.
class TracedProgram
{
public:
    /// A system call that changes something in the file system, by its name and its number among
    /// all of that name, from 1.
    struct Call
    {
        QString name;
        int number = 0;
        /// As strace writes it.
        QString line;
    };

    enum class End { Well, Failed, Killed };

    TracedProgram(const QString &programPath, const QStringList &programArguments);

    /// Lets each Workspace that follows lie in memory, where the machine has a folder for it: to
    /// wait for the disk would be most of the time of a thousand runs.
    static void worksInMemory();

    /// Runs the program to its end once, and then three times for each call of that run: it is
    /// killed as it makes the call, or the call fails for want of space, or for a broken disk. Each
    /// run begins with the files of the current folder as they are now, and ends with `check`,
    /// which gets an empty call for the first. A check that fails is the last.
    void isInterruptedAtEveryCall(const std::function<void(End, const Call &)> &check) const;

private:
    [[nodiscard]] QList<Call> calls() const;
    [[nodiscard]] End killedAt(const Call &call) const;
    [[nodiscard]] End failingAt(const Call &call, const QString &error) const;
    [[nodiscard]] End runs(const QStringList &options) const;

    QString program;
    QStringList arguments;
};
