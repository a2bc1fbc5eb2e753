#include "settings/WholeCopy.h"

#include "data/OneCallConnection.h"
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
constexpr int noDatabase = 26;

// A file that SQLite cannot read is copied as it stands, like any other: unless another program is
// at work on it, or what lies beside it belongs to it and would be missing in the copy.
bool isWholeByItself(const QString &path, int failure)
{
    const QString file = QFileInfo(path).canonicalFilePath();
    return failure == noDatabase || (failure != busy && JournalFiles::withContent(file).isEmpty());
}

bool copyBytes(const QString &sourcePath, const QString &copyPath)
{
    constexpr qint64 blockSize = 1 << 20;
    QFile source(sourcePath);
    QFile copy(copyPath);
    if (!source.open(QIODevice::ReadOnly | QIODevice::Unbuffered)
        || !copy.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return false;
    for (;;) {
        const QByteArray block = source.read(blockSize);
        if (block.isEmpty())
            return source.error() == QFileDevice::NoError;
        if (copy.write(block) != block.size())
            return false;
    }
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
// transaction keeps all others from committing while the bytes are copied. In WAL mode, where they
// need not wait for it, SQLite writes the copy. There it alone may open the file: a process that
// closes any handle of a file loses all its locks on it, and a page holds one as long as it is
// open.
bool WholeCopy::copy(const QString &sourcePath, Original original) const
{
    QString error;
    const OneCallConnection connection(u"database_copy_connection"_s, sourcePath, error);
    QVariant mode;
    SqlStatement journalMode(connection.database(), u"PRAGMA journal_mode"_s);
    if (!journalMode.firstValue({}, mode, error))
        return isWholeByItself(sourcePath, journalMode.errorCode())
               && copyBytes(sourcePath, path());
    if (mode.toString() == "wal"_L1)
        return runSql(connection.database(), u"VACUUM INTO ?"_s, {path()}, error);
    for (const QString &sql : {original == Original::Goes ? u"BEGIN IMMEDIATE"_s : u"BEGIN"_s,
                               u"SELECT COUNT(*) FROM sqlite_master"_s}) {
        SqlStatement lock(connection.database(), sql);
        if (!lock.run({}, error) && !isWholeByItself(sourcePath, lock.errorCode()))
            return false;
    }
    return copyBytes(sourcePath, path());
}

bool WholeCopy::putInPlace()
{
    std::error_code error;
    std::filesystem::rename(QFileInfo(path()).filesystemAbsoluteFilePath(),
                            QFileInfo(target).filesystemAbsoluteFilePath(), error);
    return !error;
}
