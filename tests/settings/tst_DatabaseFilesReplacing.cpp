#include "settings/Backups.h"
#include "settings/DatabaseFiles.h"
#include "settings/FailingFiles.h"
#include "settings/PlainFiles.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "support/surroundings/FileSizeLimit.h"

#include <QDir>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;
using DatabaseFiles::replaceDatabaseFile;

/// Database files are brought in, and what they replace is kept.
class tst_DatabaseFilesReplacing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void replacedFileIsKeptUnderTheTime();
    void backupBringsTheOldDataBack();
    void withoutAFileToReplaceThereIsNoBackup();
    void fileThatIsNoDatabaseIsTakenAsWell();
    void folderThatVanishedIsMadeAgain();
    void withoutASourceNothingIsReplaced_data() { addSources(); }
    void withoutASourceNothingIsReplaced();
    void sameFileIsNotReplaced_data() { addNamesOfTheSameFile(); }
    void sameFileIsNotReplaced();
    void replacingFailsWhereTheFolderCannotBeMade();
    void twoImportsInTheSameSecondLeaveTheTargetOfTheSecondAsItWas();
    void withoutRoomForTheBackupTheTargetStaysAsItWas();
    void folderInPlaceOfTheTargetStays();
    void targetThatIsHeldStaysBesideItsBackup();
    void onAFullDiskOnlyTheBackupIsLeft();
};

void tst_DatabaseFilesReplacing::replacedFileIsKeptUnderTheTime()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"backup.db"_s, newData);
    const QString target = workspace.makeFile(u"trips.db"_s, oldData);
    const QString before = QDateTime::currentDateTime().toString(u"yyyyMMdd_hhmmss"_s);
    QString error = u"an old error"_s;
    QVERIFY(replaceDatabaseFile(source, target, error));
    const QString after = QDateTime::currentDateTime().toString(u"yyyyMMdd_hhmmss"_s);
    QCOMPARE(error, QString());
    QCOMPARE(workspace.bytes(u"trips.db"_s), newData);
    QCOMPARE(workspace.bytes(u"backup.db"_s), newData);
    QCOMPARE(backups().size(), 1);
    QCOMPARE(workspace.bytes(backups().constFirst()), oldData);
    const QRegularExpression name(u"^trips\\.db\\.pre_import_backup_(\\d{8}_\\d{6})$"_s);
    const QString time = name.match(backups().constFirst()).captured(1);
    QVERIFY2(before <= time && time <= after, qPrintable(backups().constFirst()));
}

void tst_DatabaseFilesReplacing::backupBringsTheOldDataBack()
{
    Workspace workspace;
    const QString target = workspace.makeTrips();
    workspace.execute(u"INSERT INTO trips (trip_no) VALUES ('4471203')"_s);
    const QString source = workspace.makeTrips(u"empty.db"_s);
    QString error;
    QVERIFY(replaceDatabaseFile(source, target, error));
    QCOMPARE(workspace.value(u"SELECT COUNT(*) FROM trips"_s).toInt(), 0);
    QVERIFY(QFile::remove(target));
    QVERIFY(QFile::rename(backups().constFirst(), target));
    QCOMPARE(workspace.value(u"SELECT trip_no FROM trips"_s).toString(), u"4471203"_s);
}

void tst_DatabaseFilesReplacing::withoutAFileToReplaceThereIsNoBackup()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"backup.db"_s, newData);
    QString error;
    QVERIFY(replaceDatabaseFile(source, workspace.path(u"trips.db"_s), error));
    QCOMPARE(workspace.bytes(u"trips.db"_s), newData);
    QCOMPARE(entriesOf(u"."_s), QStringList({u"backup.db"_s, u"trips.db"_s}));
}

void tst_DatabaseFilesReplacing::fileThatIsNoDatabaseIsTakenAsWell()
{
    Workspace workspace;
    const QString target = workspace.makeTrips();
    const QString source = workspace.makeFile(u"empty.db"_s, "");
    QString error;
    QVERIFY(replaceDatabaseFile(source, target, error));
    QCOMPARE(workspace.bytes(u"trips.db"_s), QByteArray());
}

void tst_DatabaseFilesReplacing::folderThatVanishedIsMadeAgain()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"backup.db"_s, newData);
    const QString target = workspace.makeFile(u"data/trips.db"_s, oldData);
    QVERIFY(QDir(u"data"_s).removeRecursively());
    QString error;
    QVERIFY(replaceDatabaseFile(source, target, error));
    QCOMPARE(entriesOf(u"data"_s), QStringList({u"trips.db"_s}));
    QCOMPARE(workspace.bytes(u"data/trips.db"_s), newData);
}

void tst_DatabaseFilesReplacing::withoutASourceNothingIsReplaced()
{
    QFETCH(const QString, source);
    const Workspace workspace;
    layOutNoSource(workspace);
    QString error;
    QVERIFY(!replaceDatabaseFile(source, workspace.path(u"trips.db"_s), error));
    QCOMPARE(error, "Source database file does not exist:\n"_L1 + source);
    QCOMPARE(workspace.bytes(u"trips.db"_s), oldData);
    QCOMPARE(backups(), QStringList());
}

void tst_DatabaseFilesReplacing::sameFileIsNotReplaced()
{
    QFETCH(const QString, target);
    const Workspace workspace;
    const QString source = layOutOneFile(workspace);
    QString error;
    QVERIFY(!replaceDatabaseFile(source, target, error));
    QCOMPARE(error, "Source and target database are the same file:\n"_L1 + source);
    QCOMPARE(workspace.bytes(u"data/trips.db"_s), oldData);
    QCOMPARE(entriesOf(u"data"_s), QStringList({u"trips.db"_s}));
}

void tst_DatabaseFilesReplacing::replacingFailsWhereTheFolderCannotBeMade()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"backup.db"_s, newData);
    workspace.makeFile(u"data"_s, "in the way");
    QString error;
    QVERIFY(!replaceDatabaseFile(source, workspace.path(u"data/trips.db"_s), error));
    QCOMPARE(error, "Could not create target folder:\n"_L1 + workspace.path(u"data"_s));
    QCOMPARE(entriesOf(u"."_s), QStringList({u"backup.db"_s, u"data"_s}));
}

void tst_DatabaseFilesReplacing::twoImportsInTheSameSecondLeaveTheTargetOfTheSecondAsItWas()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"backup.db"_s, newData);
    const QString target = workspace.makeFile(u"trips.db"_s, oldData);
    takeTheNamesOfBackups(workspace, u"trips.db"_s);
    QString error;
    QVERIFY(!replaceDatabaseFile(source, target, error));
    const QString text = u"Could not create safety backup before replacing database:\n"_s;
    QCOMPARE(error.left(text.size()), text);
    const QString backup = error.mid(text.size());
    QCOMPARE(QFileInfo(backup).absolutePath(), QDir::currentPath());
    QCOMPARE(workspace.bytes(QFileInfo(backup).fileName()), QByteArray("an earlier copy"));
    QCOMPARE(workspace.bytes(u"trips.db"_s), oldData);
}

void tst_DatabaseFilesReplacing::withoutRoomForTheBackupTheTargetStaysAsItWas()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"backup.db"_s, newData);
    const QString target = workspace.makeFile(u"trips.db"_s, muchData);
    QString error;
    {
        const FileSizeLimit fullDisk(10'000);
        QVERIFY(!replaceDatabaseFile(source, target, error));
    }
    QVERIFY2(error.startsWith("Could not create safety backup before replacing database:\n"_L1
                              + target + ".pre_import_backup_"_L1),
             qPrintable(error));
    QCOMPARE(workspace.bytes(u"trips.db"_s), muchData);
    QCOMPARE(entriesOf(u"."_s), QStringList({u"backup.db"_s, u"trips.db"_s}));
}

void tst_DatabaseFilesReplacing::folderInPlaceOfTheTargetStays()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"backup.db"_s, newData);
    QVERIFY(QDir().mkdir(u"trips.db"_s));
    const QString target = workspace.path(u"trips.db"_s);
    QString error;
    QVERIFY(!replaceDatabaseFile(source, target, error));
    QVERIFY2(error.startsWith("Could not create safety backup before replacing database:\n"_L1
                              + target + ".pre_import_backup_"_L1),
             qPrintable(error));
    QVERIFY(QFileInfo(target).isDir());
    QCOMPARE(backups(), QStringList());
}

void tst_DatabaseFilesReplacing::targetThatIsHeldStaysBesideItsBackup()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"backup.db"_s, newData);
    const QString target = workspace.makeFile(u"trips.db"_s, oldData);
    const HeldFile held(target);
    QString error;
    QVERIFY(!replaceDatabaseFile(source, target, error));
    QCOMPARE(error,
             "Could not remove existing database after creating safety backup:\n"_L1 + target);
    QCOMPARE(workspace.bytes(u"trips.db"_s), oldData);
    QCOMPARE(backups().size(), 1);
    QCOMPARE(workspace.bytes(backups().constFirst()), oldData);
}

void tst_DatabaseFilesReplacing::onAFullDiskOnlyTheBackupIsLeft()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"backup.db"_s, muchData);
    const QString target = workspace.makeFile(u"trips.db"_s, oldData);
    QString error;
    {
        const FileSizeLimit fullDisk(10'000);
        QVERIFY(!replaceDatabaseFile(source, target, error));
    }
    QCOMPARE(error, "Could not copy database from:\n"_L1 + source + "\n\nto:\n"_L1 + target);
    QVERIFY(!QFile::exists(target));
    QCOMPARE(backups().size(), 1);
    QCOMPARE(workspace.bytes(backups().constFirst()), oldData);
    QCOMPARE(workspace.bytes(u"backup.db"_s), muchData);
    QCOMPARE(entriesOf(u"."_s), QStringList({u"backup.db"_s, backups().constFirst()}));
}

TEST_CLASS_WITHOUT_WINDOWS(tst_DatabaseFilesReplacing)

#include "tst_DatabaseFilesReplacing.moc"
