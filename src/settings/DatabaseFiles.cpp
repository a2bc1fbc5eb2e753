#include "settings/DatabaseFiles.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

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

// To remove the target first would leave nothing to copy. Letter case counts for nothing, as on
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

bool keepBackupOf(const QString &targetPath, QString &errorOut)
{
    const QString backupPath = backupPathOf(targetPath);
    return QFile::copy(targetPath, backupPath)
           || fail(errorOut,
                   u"Could not create safety backup before replacing database:\n"_s + backupPath);
}

} // namespace

bool copyDatabaseFile(const QString &sourcePath, const QString &targetPath, QString &errorOut)
{
    errorOut.clear();
    if (!QFileInfo(sourcePath).isFile())
        return fail(errorOut, u"Required source file does not exist:\n"_s + sourcePath);
    if (isSameFile(QFileInfo(sourcePath), QFileInfo(targetPath)))
        return fail(errorOut, u"Source and target file are the same:\n"_s + sourcePath);
    if (!makeFolderOf(targetPath, errorOut))
        return false;
    if (QFile::exists(targetPath) && !QFile::remove(targetPath))
        return fail(errorOut, u"Could not replace existing file:\n"_s + targetPath);
    return QFile::copy(sourcePath, targetPath)
           || fail(errorOut,
                   u"Could not copy file from:\n%1\n\nto:\n%2"_s.arg(sourcePath, targetPath));
}

bool replaceDatabaseFile(const QString &sourcePath, const QString &targetPath, QString &errorOut)
{
    errorOut.clear();
    if (!QFileInfo(sourcePath).isFile())
        return fail(errorOut, u"Source database file does not exist:\n"_s + sourcePath);
    if (isSameFile(QFileInfo(sourcePath), QFileInfo(targetPath)))
        return fail(errorOut, u"Source and target database are the same file:\n"_s + sourcePath);
    if (!makeFolderOf(targetPath, errorOut))
        return false;
    if (QFile::exists(targetPath)) {
        if (!keepBackupOf(targetPath, errorOut))
            return false;
        if (!QFile::remove(targetPath))
            return fail(errorOut,
                        u"Could not remove existing database after creating safety backup:\n"_s
                            + targetPath);
    }
    return QFile::copy(sourcePath, targetPath)
           || fail(errorOut,
                   u"Could not copy database from:\n%1\n\nto:\n%2"_s.arg(sourcePath, targetPath));
}

} // namespace DatabaseFiles
