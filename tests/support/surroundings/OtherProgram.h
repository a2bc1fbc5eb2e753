#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

/// Another program that has opened a database and run some statements on it, and keeps it open for
/// as long as this lives:
///
///     const OtherProgram other(path, {u"BEGIN EXCLUSIVE"_s});
class OtherProgram
{
public:
    /// A statement that fails fails the test.
    OtherProgram(const QString &databasePath, const QStringList &statements);
    /// It closes the database and ends.
    ~OtherProgram();
    Q_DISABLE_COPY_MOVE(OtherProgram)

    /// It dies here and now, and leaves lying what SQLite keeps beside the database.
    void isKilled();

    /// Lets a program die while it writes "cut off" into `column` of each row of `table`: a part
    /// of the new rows lies in the file, what they replaced in its hot journal.
    static void diesInMidWrite(const QString &databasePath, const QString &table,
                               const QString &column);

    /// Lets a program die after `statements` in WAL mode; what they wrote lies in the WAL only.
    static void diesInWalMode(const QString &databasePath, const QStringList &statements);

private:
    QProcess process;
};
