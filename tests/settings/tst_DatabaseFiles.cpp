#include "settings/Backups.h"
#include "settings/DatabaseFiles.h"
#include "settings/FailingFiles.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QDir>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;
using DatabaseFiles::copyDatabaseFile;
using DatabaseFiles::replaceDatabaseFile;

namespace {

const QByteArray oldData = "the old data";
const QByteArray newData = "the new data";
const QByteArray muchData(100'000, 'x');

QStringList filesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
}

void addSources()
{
    QTest::addColumn<QString>("source");
    QTest::newRow("none") << u"backup.db"_s;
    QTest::newRow("in a folder that is gone") << u"gone/backup.db"_s;
    QTest::newRow("a folder") << u"folder"_s;
    QTest::newRow("a link to nothing") << u"link.db"_s;
    QTest::newRow("no name") << u""_s;
}

void layOutNoSource(const Workspace &workspace)
{
    workspace.makeFile(u"trips.db"_s, oldData);
    QVERIFY(QDir().mkdir(u"folder"_s));
    QVERIFY(QFile::link(u"nowhere.db"_s, u"link.db"_s));
}

void addNamesOfTheSameFile()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("the same name") << u"data/trips.db"_s;
    QTest::newRow("another letter case") << u"data/Trips.DB"_s;
    QTest::newRow("a folder in another letter case") << u"DATA/trips.db"_s;
    QTest::newRow("a roundabout way") << u"data/../data/./trips.db"_s;
    QTest::newRow("through a linked folder") << u"linked/trips.db"_s;
}

/// Gives the absolute path of the source.
QString layOutOneFile(const Workspace &workspace)
{
    QFile::link(u"data"_s, u"linked"_s);
    return workspace.makeFile(u"data/trips.db"_s, oldData);
}

} // namespace

/// Database files are copied out, and back in.
class tst_DatabaseFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void copyHoldsWhatItsSourceHolds();
    void copyTakesThePlaceOfAnotherFile();
    void copyGoesToAFolderThatDoesNotExist();
    void copyTakesThePlaceOfALinkAndLeavesItsFile();
    void fileBehindALinkIsNeitherCopiedOntoNorReplacedByTheLink();
    void withoutASourceNothingIsCopied_data() { addSources(); }
    void withoutASourceNothingIsCopied();
    void sameFileIsNotCopied_data() { addNamesOfTheSameFile(); }
    void sameFileIsNotCopied();
    void samePathInOtherLetterCaseCountsAsTheSameFileEvenWhereItIsNot();
    void copyFailsWhereItsFolderCannotBeMade();
    void copyFailsWhereAFolderStandsInItsPlace();
    void copyFailsWhereTheOldFileIsHeld();
    void copyFailsOnAFullDiskAndLeavesNoPartOfIt();

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

void tst_DatabaseFiles::copyHoldsWhatItsSourceHolds()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"trips.db"_s, muchData);
    QString error = u"an old error"_s;
    QVERIFY(copyDatabaseFile(source, workspace.path(u"backup.db"_s), error));
    QCOMPARE(error, QString());
    QCOMPARE(workspace.bytes(u"backup.db"_s), muchData);
    QCOMPARE(workspace.bytes(u"trips.db"_s), muchData);
    QCOMPARE(filesIn(u"."_s), QStringList({u"backup.db"_s, u"trips.db"_s}));
}

void tst_DatabaseFiles::copyTakesThePlaceOfAnotherFile()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"trips.db"_s, newData);
    const QString target = workspace.makeFile(u"backup.db"_s, muchData);
    QString error;
    QVERIFY(copyDatabaseFile(source, target, error));
    QCOMPARE(workspace.bytes(u"backup.db"_s), newData);
    QCOMPARE(filesIn(u"."_s), QStringList({u"backup.db"_s, u"trips.db"_s}));
}

void tst_DatabaseFiles::copyGoesToAFolderThatDoesNotExist()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"trips.db"_s, oldData);
    QString error;
    QVERIFY(copyDatabaseFile(source, workspace.path(u"backups/2026/july/trips.db"_s), error));
    QCOMPARE(error, QString());
    QCOMPARE(workspace.bytes(u"backups/2026/july/trips.db"_s), oldData);
}

void tst_DatabaseFiles::copyTakesThePlaceOfALinkAndLeavesItsFile()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"trips.db"_s, oldData);
    QVERIFY(QFile::link(source, u"backup.db"_s));
    QString error;
    QVERIFY(copyDatabaseFile(source, workspace.path(u"backup.db"_s), error));
    QCOMPARE(workspace.bytes(u"trips.db"_s), oldData);
    QCOMPARE(workspace.bytes(u"backup.db"_s), oldData);
    QVERIFY(!QFileInfo(u"backup.db"_s).isSymLink());
}

void tst_DatabaseFiles::fileBehindALinkIsNeitherCopiedOntoNorReplacedByTheLink()
{
    const Workspace workspace;
    const QString file = workspace.makeFile(u"elsewhere/trips.db"_s, oldData);
    QVERIFY(QFile::link(file, u"trips.db"_s));
    const QString link = workspace.path(u"trips.db"_s);
    QString error;
    QVERIFY(!copyDatabaseFile(link, file, error));
    QCOMPARE(error, "Source and target file are the same:\n"_L1 + link);
    QVERIFY(!replaceDatabaseFile(link, file, error));
    QCOMPARE(error, "Source and target database are the same file:\n"_L1 + link);
    QCOMPARE(workspace.bytes(u"elsewhere/trips.db"_s), oldData);
    QCOMPARE(QDir(u"elsewhere"_s).entryList(QDir::Files), QStringList({u"trips.db"_s}));
}

void tst_DatabaseFiles::withoutASourceNothingIsCopied()
{
    QFETCH(const QString, source);
    const Workspace workspace;
    layOutNoSource(workspace);
    QString error;
    QVERIFY(!copyDatabaseFile(source, workspace.path(u"trips.db"_s), error));
    QCOMPARE(error, "Required source file does not exist:\n"_L1 + source);
    QCOMPARE(workspace.bytes(u"trips.db"_s), oldData);
}

void tst_DatabaseFiles::sameFileIsNotCopied()
{
    QFETCH(const QString, target);
    const Workspace workspace;
    const QString source = layOutOneFile(workspace);
    QString error;
    QVERIFY(!copyDatabaseFile(source, target, error));
    QCOMPARE(error, "Source and target file are the same:\n"_L1 + source);
    QCOMPARE(workspace.bytes(u"data/trips.db"_s), oldData);
    QCOMPARE(filesIn(u"data"_s), QStringList({u"trips.db"_s}));
}

void tst_DatabaseFiles::samePathInOtherLetterCaseCountsAsTheSameFileEvenWhereItIsNot()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"trips.db"_s, newData);
    const QString target = workspace.makeFile(u"TRIPS.DB"_s, oldData);
    QString error;
    QVERIFY(!copyDatabaseFile(source, target, error));
    QCOMPARE(error, "Source and target file are the same:\n"_L1 + source);
    QVERIFY(!replaceDatabaseFile(source, target, error));
    QCOMPARE(error, "Source and target database are the same file:\n"_L1 + source);
    QCOMPARE(workspace.bytes(u"trips.db"_s), newData);
    QCOMPARE(workspace.bytes(u"TRIPS.DB"_s), oldData);
    QCOMPARE(backups(), QStringList());
}

void tst_DatabaseFiles::copyFailsWhereItsFolderCannotBeMade()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"trips.db"_s, oldData);
    workspace.makeFile(u"notes.txt"_s, "in the way");
    QString error;
    QVERIFY(!copyDatabaseFile(source, workspace.path(u"notes.txt/old/backup.db"_s), error));
    QCOMPARE(error, "Could not create target folder:\n"_L1 + workspace.path(u"notes.txt/old"_s));
    QCOMPARE(workspace.bytes(u"notes.txt"_s), QByteArray("in the way"));
}

void tst_DatabaseFiles::copyFailsWhereAFolderStandsInItsPlace()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"trips.db"_s, oldData);
    QVERIFY(QDir().mkdir(u"backup.db"_s));
    const QString target = workspace.path(u"backup.db"_s);
    QString error;
    QVERIFY(!copyDatabaseFile(source, target, error));
    QCOMPARE(error, "Could not replace existing file:\n"_L1 + target);
    QVERIFY(QFileInfo(target).isDir());
}

void tst_DatabaseFiles::copyFailsWhereTheOldFileIsHeld()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"trips.db"_s, newData);
    const QString target = workspace.makeFile(u"backup.db"_s, oldData);
    const HeldFile held(target);
    QString error;
    QVERIFY(!copyDatabaseFile(source, target, error));
    QCOMPARE(error, "Could not replace existing file:\n"_L1 + target);
    QCOMPARE(workspace.bytes(u"backup.db"_s), oldData);
}

void tst_DatabaseFiles::copyFailsOnAFullDiskAndLeavesNoPartOfIt()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"trips.db"_s, muchData);
    const QString target = workspace.makeFile(u"backup.db"_s, oldData);
    QString error;
    {
        const NearlyFullDisk disk(10'000);
        QVERIFY(!copyDatabaseFile(source, target, error));
    }
    QCOMPARE(error, "Could not copy file from:\n"_L1 + source + "\n\nto:\n"_L1 + target);
    QCOMPARE(workspace.bytes(u"trips.db"_s), muchData);
    QCOMPARE(filesIn(u"."_s), QStringList({u"trips.db"_s}));
}

void tst_DatabaseFiles::replacedFileIsKeptUnderTheTime()
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

void tst_DatabaseFiles::backupBringsTheOldDataBack()
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

void tst_DatabaseFiles::withoutAFileToReplaceThereIsNoBackup()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"backup.db"_s, newData);
    QString error;
    QVERIFY(replaceDatabaseFile(source, workspace.path(u"trips.db"_s), error));
    QCOMPARE(workspace.bytes(u"trips.db"_s), newData);
    QCOMPARE(filesIn(u"."_s), QStringList({u"backup.db"_s, u"trips.db"_s}));
}

void tst_DatabaseFiles::fileThatIsNoDatabaseIsTakenAsWell()
{
    Workspace workspace;
    const QString target = workspace.makeTrips();
    const QString source = workspace.makeFile(u"empty.db"_s, "");
    QString error;
    QVERIFY(replaceDatabaseFile(source, target, error));
    QCOMPARE(workspace.bytes(u"trips.db"_s), QByteArray());
}

void tst_DatabaseFiles::folderThatVanishedIsMadeAgain()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"backup.db"_s, newData);
    const QString target = workspace.makeFile(u"data/trips.db"_s, oldData);
    QVERIFY(QDir(u"data"_s).removeRecursively());
    QString error;
    QVERIFY(replaceDatabaseFile(source, target, error));
    QCOMPARE(filesIn(u"data"_s), QStringList({u"trips.db"_s}));
    QCOMPARE(workspace.bytes(u"data/trips.db"_s), newData);
}

void tst_DatabaseFiles::withoutASourceNothingIsReplaced()
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

void tst_DatabaseFiles::sameFileIsNotReplaced()
{
    QFETCH(const QString, target);
    const Workspace workspace;
    const QString source = layOutOneFile(workspace);
    QString error;
    QVERIFY(!replaceDatabaseFile(source, target, error));
    QCOMPARE(error, "Source and target database are the same file:\n"_L1 + source);
    QCOMPARE(workspace.bytes(u"data/trips.db"_s), oldData);
    QCOMPARE(filesIn(u"data"_s), QStringList({u"trips.db"_s}));
}

void tst_DatabaseFiles::replacingFailsWhereTheFolderCannotBeMade()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"backup.db"_s, newData);
    workspace.makeFile(u"data"_s, "in the way");
    QString error;
    QVERIFY(!replaceDatabaseFile(source, workspace.path(u"data/trips.db"_s), error));
    QCOMPARE(error, "Could not create target folder:\n"_L1 + workspace.path(u"data"_s));
    QCOMPARE(filesIn(u"."_s), QStringList({u"backup.db"_s, u"data"_s}));
}

void tst_DatabaseFiles::twoImportsInTheSameSecondLeaveTheTargetOfTheSecondAsItWas()
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

void tst_DatabaseFiles::withoutRoomForTheBackupTheTargetStaysAsItWas()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"backup.db"_s, newData);
    const QString target = workspace.makeFile(u"trips.db"_s, muchData);
    QString error;
    {
        const NearlyFullDisk disk(10'000);
        QVERIFY(!replaceDatabaseFile(source, target, error));
    }
    QVERIFY2(error.startsWith("Could not create safety backup before replacing database:\n"_L1
                              + target + ".pre_import_backup_"_L1),
             qPrintable(error));
    QCOMPARE(workspace.bytes(u"trips.db"_s), muchData);
    QCOMPARE(filesIn(u"."_s), QStringList({u"backup.db"_s, u"trips.db"_s}));
}

void tst_DatabaseFiles::folderInPlaceOfTheTargetStays()
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

void tst_DatabaseFiles::targetThatIsHeldStaysBesideItsBackup()
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

void tst_DatabaseFiles::onAFullDiskOnlyTheBackupIsLeft()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"backup.db"_s, muchData);
    const QString target = workspace.makeFile(u"trips.db"_s, oldData);
    QString error;
    {
        const NearlyFullDisk disk(10'000);
        QVERIFY(!replaceDatabaseFile(source, target, error));
    }
    QCOMPARE(error, "Could not copy database from:\n"_L1 + source + "\n\nto:\n"_L1 + target);
    QVERIFY(!QFile::exists(target));
    QCOMPARE(backups().size(), 1);
    QCOMPARE(workspace.bytes(backups().constFirst()), oldData);
    QCOMPARE(workspace.bytes(u"backup.db"_s), muchData);
}

TEST_CLASS_WITHOUT_WINDOWS(tst_DatabaseFiles)

#include "tst_DatabaseFiles.moc"
