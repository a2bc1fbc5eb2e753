#include "settings/DatabaseFiles.h"

#include "data/DatabaseLocator.h"
#include "settings/JournalFiles.h"
#include "settings/WholeCopy.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace DatabaseFiles {

namespace {

bool fail(QString &errorOut, const QString &text)
{
    errorOut = text;
    return false;
}

// Links on the way to the file are followed, a link in its own place is not: that one can be
// removed and its file stays.
QString pathWithoutLinkedFolders(const QFileInfo &file)
{
    const QString folder = file.dir().canonicalPath();
    return folder.isEmpty() ? file.absoluteFilePath() : QDir(folder).filePath(file.fileName());
}

// A file put in the place of its own copy would be gone. Letter case counts for nothing, as on
// the file systems of Windows and macOS.
bool isSameFile(const QFileInfo &source, const QFileInfo &target)
{
    const auto isSame = [](const QString &one, const QString &other) {
        return one.compare(other, Qt::CaseInsensitive) == 0;
    };
    return isSame(source.absoluteFilePath(), target.absoluteFilePath())
           || isSame(pathWithoutLinkedFolders(source), pathWithoutLinkedFolders(target))
           || isSame(source.canonicalFilePath(), pathWithoutLinkedFolders(target));
}

bool makeFolderOf(const QString &targetPath, QString &errorOut)
{
    const QString folder = QFileInfo(targetPath).absolutePath();
    return QDir().mkpath(folder) || fail(errorOut, u"Could not create target folder:\n"_s + folder);
}

QString backupPathOf(const QString &targetPath)
{
    return targetPath + ".pre_import_backup_"_L1
           + QDateTime::currentDateTime().toString(u"yyyyMMdd_hhmmss"_s);
}

bool isInUse(const QFileInfo &file)
{
    const QStringList inUse = DatabaseLocator::databasesInUse();
    return std::ranges::any_of(
        inUse, [&file](const QString &path) { return isSameFile(QFileInfo(path), file); });
}

// Neither a folder gives way nor a file in a folder that takes no other. What a program that was
// cut off left beside the file is brought into it first: it is the last good copy until the new one
// stands there, and would be the end of the new one then.
bool makeReplaceable(const QString &targetPath, QString &errorOut)
{
    const QFileInfo target(targetPath);
    if (target.exists()) {
        const bool isFolder = target.isDir() && !target.isSymLink();
        if (isFolder || !QFileInfo(target.absolutePath()).isWritable())
            return fail(errorOut, u"Could not replace existing file:\n"_s + targetPath);
        if (JournalFiles::withContent(targetPath).isEmpty() || JournalFiles::finish(targetPath))
            return true;
    }
    const QStringList left = JournalFiles::withContent(targetPath);
    return left.isEmpty()
           || fail(errorOut, u"Could not replace existing file:\n"_s + left.constFirst());
}

// As long as the copy lives no other program can write to the file: what it committed after the
// copy was made would be gone with the file. A WAL that still holds anything belongs to another
// program.
// Any other journal has nothing more to tell SQLite, and stays with the backup.
bool replaceByBackup(const QString &targetPath, const QString &backupPath, QString &errorOut,
                     QString *backupOut)
{
    WholeCopy backup(backupPath);
    if (QFile::exists(backupPath) || !backup.takeFrom(targetPath, WholeCopy::Original::Goes)
        || !backup.putInPlace())
        return fail(errorOut,
                    u"Could not create safety backup before replacing database:\n"_s + backupPath);
    if (backupOut)
        *backupOut = backupPath;
#ifdef Q_OS_WIN
    backup.letGo(); // an open file cannot be removed there
#endif
    return (QFileInfo(targetPath + "-wal"_L1).size() == 0
            && JournalFiles::move(targetPath, backupPath) && QFile::remove(targetPath))
           || fail(errorOut, u"Could not remove existing database after creating safety backup:\n"_s
                                 + targetPath);
}

bool copyInto(const QString &sourcePath, const QString &targetPath)
{
    WholeCopy copy(targetPath);
    return copy.takeFrom(sourcePath) && copy.putInPlace();
}

} // namespace

bool copyDatabaseFile(const QString &sourcePath, const QString &targetPath, QString &errorOut)
{
    errorOut.clear();
    if (!QFileInfo(sourcePath).isFile())
        return fail(errorOut, u"Required source file does not exist:\n"_s + sourcePath);
    if (isSameFile(QFileInfo(sourcePath), QFileInfo(targetPath)))
        return fail(errorOut, u"Source and target file are the same:\n"_s + sourcePath);
    if (isInUse(QFileInfo(targetPath)))
        return fail(errorOut, u"Target file is a database in use:\n"_s + targetPath);
    if (!makeFolderOf(targetPath, errorOut) || !makeReplaceable(targetPath, errorOut))
        return false;
    WholeCopy copy(targetPath);
    const bool isWhole = copy.takeFrom(sourcePath);
    if (isWhole && JournalFiles::remove(targetPath) && copy.putInPlace())
        return true;
    if (isWhole && QFile::exists(targetPath))
        return fail(errorOut, u"Could not replace existing file:\n"_s + targetPath);
    return fail(errorOut,
                u"Could not copy file from:\n%1\n\nto:\n%2"_s.arg(sourcePath, targetPath));
}

bool replaceDatabaseFile(const QString &sourcePath, const QString &targetPath, QString &errorOut,
                         QString *backupOut)
{
    errorOut.clear();
    if (!QFileInfo(sourcePath).isFile())
        return fail(errorOut, u"Source database file does not exist:\n"_s + sourcePath);
    if (isSameFile(QFileInfo(sourcePath), QFileInfo(targetPath)))
        return fail(errorOut, u"Source and target database are the same file:\n"_s + sourcePath);
    if (!makeFolderOf(targetPath, errorOut))
        return false;
    const QString backupPath = backupPathOf(targetPath);
    if (QFile::exists(targetPath) && !replaceByBackup(targetPath, backupPath, errorOut, backupOut))
        return false;
    // A file that somebody took away may have left a journal that the new one must not meet either.
    return (JournalFiles::move(targetPath, backupPath) && copyInto(sourcePath, targetPath))
           || fail(errorOut,
                   u"Could not copy database from:\n%1\n\nto:\n%2"_s.arg(sourcePath, targetPath));
}

} // namespace DatabaseFiles
