#include "settings/WholeCopy.h"

#include "data/SqlStatement.h"
#include "settings/JournalFiles.h"

#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

// SQLite's result codes.
constexpr int busy = 5;
constexpr int damaged = 11;
constexpr int cannotOpen = 14;
constexpr int noDatabase = 26;

// A file that SQLite cannot read is copied as it stands, like any other: unless another program is
// at work on it, or what lies beside it belongs to it and would be missing in the copy.
bool isWholeByItself(const QString &path, int failure)
{
    const QString file = QFileInfo(path).canonicalFilePath();
    return failure == noDatabase || (failure != busy && JournalFiles::withContent(file).isEmpty());
}

// Without this a power cut could leave the name of the copy, but not what it holds.
bool isOnTheDisk(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        return false;
#ifdef Q_OS_WIN
    return ::_commit(file.handle()) == 0;
#else
    return ::fsync(file.handle()) == 0;
#endif
}

} // namespace

WholeCopy::WholeCopy(const QString &targetPath)
    : target(targetPath)
    , folder(QFileInfo(targetPath).absolutePath() + "/unfinished_copy_XXXXXX"_L1)
{
}

bool WholeCopy::takeFrom(const QString &sourcePath, Original original)
{
    if (!folder.isValid() || !copy(sourcePath, original) || !isOnTheDisk(path()))
        return false;
    QFile::setPermissions(path(), QFile::permissions(sourcePath)); // which not every disk knows
    return true;
}

// SQLite finishes what a program left unfinished when it reads a file for the first time. Then a
// transaction keeps all others from committing. In WAL mode, where they need not wait for it,
// SQLite writes the copy; but a file that goes gives up that mode first, if nobody else has it
// open.
bool WholeCopy::copy(const QString &sourcePath, Original original)
{
    QString error;
    connection =
        std::make_unique<OneCallConnection>(u"database_copy_connection"_s, sourcePath, error);
    QVariant mode;
    int failure = askFirst(u"PRAGMA journal_mode"_s, mode);
    if (failure != 0) {
        connection.reset(); // no lock of SQLite's holds on what it cannot read
        return isWholeByItself(sourcePath, failure) && copyBytes(sourcePath);
    }
    if (mode == u"wal"_s && original == Original::Goes) {
        QVariant newMode;
        failure = askFirst(u"PRAGMA journal_mode = DELETE"_s, newMode);
        if (failure == busy)
            return false;
        if (failure == 0)
            mode = newMode;
    }
    if (mode == u"wal"_s)
        return copyBySqlite(sourcePath);
    for (const QString &sql : {original == Original::Goes ? u"BEGIN IMMEDIATE"_s : u"BEGIN"_s,
                               u"SELECT COUNT(*) FROM sqlite_master"_s}) {
        QVariant ignored;
        failure = askFirst(sql, ignored);
        if (failure != 0 && !isWholeByItself(sourcePath, failure))
            return false;
    }
    return copyBytes(sourcePath);
}

// SQLite's result code, 0 where it answers.
int WholeCopy::askFirst(const QString &sql, QVariant &answer) const
{
    QString error;
    SqlStatement statement(connection->database(), sql);
    if (statement.firstValue({}, answer, error))
        return 0;
    return connection->isOpen() ? statement.errorCode() : cannotOpen;
}

// Nobody else may open the file here: a process that closes any handle of a file loses all its
// locks on it, and in WAL mode a page holds one as long as it is open. What SQLite finds damaged it
// does not copy, but it closes it with all that it holds.
bool WholeCopy::copyBySqlite(const QString &sourcePath)
{
    int failure = 0;
    {
        QString error;
        SqlStatement vacuum(connection->database(), u"VACUUM INTO ?"_s);
        if (vacuum.run({path()}, error))
            return true;
        failure = vacuum.errorCode();
    }
    if (failure != damaged)
        return false;
    connection.reset();
    QFile::remove(path());
    return isWholeByItself(sourcePath, failure) && copyBytes(sourcePath);
}

// The source stays open, for to close it would let go of the transaction's lock.
bool WholeCopy::copyBytes(const QString &sourcePath)
{
    constexpr qint64 blockSize = 1 << 20;
    source.setFileName(sourcePath);
    QFile copied(path());
    if (!source.open(QIODevice::ReadOnly | QIODevice::Unbuffered)
        || !copied.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return false;
    for (;;) {
        const QByteArray block = source.read(blockSize);
        if (block.isEmpty())
            return source.error() == QFileDevice::NoError;
        if (copied.write(block) != block.size())
            return false;
    }
}

void WholeCopy::letGo()
{
    source.close();
    connection.reset();
}

bool WholeCopy::putInPlace()
{
    std::error_code error;
    std::filesystem::rename(QFileInfo(path()).filesystemAbsoluteFilePath(),
                            QFileInfo(target).filesystemAbsoluteFilePath(), error);
    return !error;
}
