#include "settings/Backups.h"
#include "settings/DatabaseFiles.h"
#include "settings/FailingFiles.h"
#include "settings/ManyTrips.h"
#include "support/TestProgram.h"
#include "support/surroundings/OtherProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;
using DatabaseFiles::copyDatabaseFile;
using DatabaseFiles::replaceDatabaseFile;

namespace {

const QString kept = u"ok: 2000 kept"_s;
const QString imported = u"ok: 2000 imported"_s;
const QString insertNew = u"INSERT INTO trips (trip_no) VALUES ('new')"_s;
const QString keptAndNew = u"ok: 2000 kept, 1 new"_s;

/// The files of the current folder without what SQLite lays beside those that are open.
QStringList entries()
{
    return QDir().entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

/// Renames the only backup to `path`, as a person does to go back.
void bringTheBackupTo(const QString &path)
{
    QCOMPARE(backups().size(), 1);
    QVERIFY(!QFile::exists(path) || QFile::remove(path));
    QVERIFY(QFile::rename(backups().constFirst(), path));
}

} // namespace

/// Databases are copied while other programs work on them, or after one of them was cut off.
class tst_DatabaseFilesInWork : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void copyHasWhatOnlyTheWalHolds();
    void copyLeavesThePagesTheirLocks();
    void copyIsOfOneMomentWhileAnotherProgramWrites();
    void copyLeavesOutWhatIsNotCommitted();
    void copyTakesBackWhatWasCutOff();
    void lockedFileIsNotCopied();
    void journalOfTheOldCopyDoesNotMeetTheNewOne();
    void oldCopyKeepsWhatItsWalHoldsWhenItStays();
    void copyDoesNotGoBesideTheJournalOfAFileThatIsGone();
    void oldCopyThatAnotherProgramWritesToStays();

    void importedFileDoesNotMeetTheJournalOfTheOldOne();
    void importedFileDoesNotMeetTheJournalOfAFileThatIsGone();
    void importedFileDoesNotMeetTheWalOfAFileThatIsGone();
    void importTakesBackWhatWasCutOffInItsSource();
    void importTakesInWhatOnlyTheWalHolds();
    void backupHasWhatOnlyTheWalHeld();
    void fileThatIsNoDatabaseIsReplacedWithWhatLiesBesideIt();
    void databaseThatAnotherProgramHoldsInWalModeIsNotReplaced();
    void databaseThatAnotherProgramWritesToIsNotReplaced();
    void lockedSourceIsNotImported();
    void backupHasAllThatAnotherProgramCommitted();
    void damagedDatabaseInWalModeIsCopiedAsItStands();
    void finishedJournalBesideTheOldCopyIsNoObstacle();
    void databaseThatSqliteCannotOpenIsNotCopiedWithoutItsWal();
    void readOnlyDatabaseInWalModeIsReplaced();
};

void tst_DatabaseFilesInWork::copyHasWhatOnlyTheWalHolds()
{
    const Workspace workspace;
    const QString source = makeManyTrips(workspace, u"trips.db"_s, u"kept"_s);
    const OtherProgram other(source, {u"PRAGMA journal_mode = WAL"_s, insertNew});
    const QString target = workspace.path(u"copy.db"_s);
    QString error;
    QVERIFY2(copyDatabaseFile(source, target, error), qPrintable(error));
    QCOMPARE(tripsIn(target), keptAndNew);
    QCOMPARE(entries(),
             QStringList({u"copy.db"_s, u"trips.db"_s, u"trips.db-shm"_s, u"trips.db-wal"_s}));
}

// A program that closes a file in WAL mode removes the WAL if it takes itself for the last one.
void tst_DatabaseFilesInWork::copyLeavesThePagesTheirLocks()
{
    const Workspace workspace;
    const QString source = makeManyTrips(workspace, u"trips.db"_s, u"kept"_s);
    const TestConnection page(source);
    QCOMPARE(page.value(u"PRAGMA journal_mode = WAL"_s), u"wal"_s);
    page.execute(insertNew);
    QString error;
    QVERIFY(copyDatabaseFile(source, workspace.path(u"copy.db"_s), error));
    {
        const OtherProgram comesAndGoes(source, {u"SELECT COUNT(*) FROM trips"_s});
    }
    QVERIFY(QFile::exists(source + "-wal"_L1));
}

void tst_DatabaseFilesInWork::copyIsOfOneMomentWhileAnotherProgramWrites()
{
    const Workspace workspace;
    const QString source = makeManyTrips(workspace, u"trips.db"_s, u"0"_s);
    const QString target = workspace.path(u"copy.db"_s);
    // Eight megabytes lie between the first row and the last.
    workspace.execute(u"UPDATE trips SET created_at = printf('%.4000c', 'x')"_s);
    const OtherProgram other(source, {u"-repeat"_s, u"UPDATE trips SET trip_no = trip_no + 1 "
                                                    "WHERE id IN (1, 2000)"_s});
    for (int copy = 0; copy < 10; ++copy) {
        QString error;
        QVERIFY2(copyDatabaseFile(source, target, error), qPrintable(error));
        const TestConnection trips(target);
        QCOMPARE(trips.value(u"SELECT trip_no FROM trips WHERE id = 1"_s),
                 trips.value(u"SELECT trip_no FROM trips WHERE id = 2000"_s));
    }
}

void tst_DatabaseFilesInWork::copyLeavesOutWhatIsNotCommitted()
{
    const Workspace workspace;
    const QString source = makeManyTrips(workspace, u"trips.db"_s, u"kept"_s);
    const QString target = workspace.path(u"copy.db"_s);
    const OtherProgram other(source, {u"BEGIN"_s, insertNew});
    QString error;
    QVERIFY(copyDatabaseFile(source, target, error));
    QCOMPARE(tripsIn(target), kept);
}

void tst_DatabaseFilesInWork::copyTakesBackWhatWasCutOff()
{
    const Workspace workspace;
    const QString source = makeManyTrips(workspace, u"trips.db"_s, u"kept"_s);
    OtherProgram::diesInMidWrite(source, u"trips"_s, u"trip_no"_s);
    const QString target = workspace.path(u"copy.db"_s);
    QString error;
    QVERIFY(copyDatabaseFile(source, target, error));
    QCOMPARE(tripsIn(target), kept);
    QCOMPARE(entries(), QStringList({u"copy.db"_s, u"trips.db"_s}));
}

void tst_DatabaseFilesInWork::lockedFileIsNotCopied()
{
    const Workspace workspace;
    const QString source = makeManyTrips(workspace, u"trips.db"_s, u"kept"_s);
    const QString target = workspace.makeFile(u"copy.db"_s, "the old copy");
    const OtherProgram other(source, {u"BEGIN EXCLUSIVE"_s, insertNew});
    QString error;
    QVERIFY(!copyDatabaseFile(source, target, error));
    QCOMPARE(error, "Could not copy file from:\n"_L1 + source + "\n\nto:\n"_L1 + target);
    QCOMPARE(workspace.bytes(u"copy.db"_s), QByteArray("the old copy"));
    QVERIFY(QDir().entryList({u"unfinished*"_s}).isEmpty());
}

void tst_DatabaseFilesInWork::journalOfTheOldCopyDoesNotMeetTheNewOne()
{
    const auto &[workspace, source, target] = ExportFiles();
    OtherProgram::diesInMidWrite(target, u"trips"_s, u"trip_no"_s);
    QString error;
    QVERIFY(copyDatabaseFile(source, target, error));
    QCOMPARE(tripsIn(target), kept);
}

void tst_DatabaseFilesInWork::oldCopyKeepsWhatItsWalHoldsWhenItStays()
{
    const Workspace workspace;
    const QString source = makeManyTrips(workspace, u"trips.db"_s, u"other"_s);
    const QString target = makeManyTrips(workspace, u"copy.db"_s, u"kept"_s);
    OtherProgram::diesInWalMode(target, {insertNew});
    const HeldFile held(target);
    QString error;
    QVERIFY(!copyDatabaseFile(source, target, error));
    QCOMPARE(error, "Could not replace existing file:\n"_L1 + target);
    QCOMPARE(tripsIn(target), keptAndNew);
}

void tst_DatabaseFilesInWork::copyDoesNotGoBesideTheJournalOfAFileThatIsGone()
{
    const Workspace workspace;
    const QString source = makeManyTrips(workspace, u"trips.db"_s, u"other"_s);
    const QString target = makeManyTrips(workspace, u"copy.db"_s, u"kept"_s);
    OtherProgram::diesInMidWrite(target, u"trips"_s, u"trip_no"_s);
    QVERIFY(QFile::rename(target, u"aside.db"_s));
    QString error;
    QVERIFY(!copyDatabaseFile(source, target, error));
    QCOMPARE(error, "Could not replace existing file:\n"_L1 + target + "-journal"_L1);
    QVERIFY(!QFile::exists(target));
    QVERIFY(QFile::rename(u"aside.db"_s, target));
    QCOMPARE(tripsIn(target), kept);
}

void tst_DatabaseFilesInWork::oldCopyThatAnotherProgramWritesToStays()
{
    const Workspace workspace;
    const QString source = makeManyTrips(workspace, u"trips.db"_s, u"other"_s);
    const QString target = makeManyTrips(workspace, u"copy.db"_s, u"kept"_s);
    {
        const OtherProgram other(target, {u"BEGIN"_s, insertNew, u"SAVEPOINT here"_s});
        QString error;
        QVERIFY(!copyDatabaseFile(source, target, error));
        QCOMPARE(error, "Could not replace existing file:\n"_L1 + target + "-journal"_L1);
    }
    QCOMPARE(tripsIn(target), kept);
}

void tst_DatabaseFilesInWork::importedFileDoesNotMeetTheJournalOfTheOldOne()
{
    const auto &[workspace, source, target] = ImportFiles();
    OtherProgram::diesInMidWrite(target, u"trips"_s, u"trip_no"_s);
    QString error;
    QVERIFY(replaceDatabaseFile(source, target, error));
    QCOMPARE(tripsIn(target), imported);
    bringTheBackupTo(target);
    QCOMPARE(tripsIn(target), kept);
    QCOMPARE(entries(), QStringList({u"july.db"_s, u"trips.db"_s}));
}

void tst_DatabaseFilesInWork::importedFileDoesNotMeetTheJournalOfAFileThatIsGone()
{
    const auto &[workspace, source, target] = ImportFiles();
    OtherProgram::diesInMidWrite(target, u"trips"_s, u"trip_no"_s);
    QVERIFY(QFile::rename(target, u"aside.db"_s));
    QString error;
    QVERIFY(replaceDatabaseFile(source, target, error));
    QCOMPARE(tripsIn(target), imported);
    bringTheBackupTo(u"aside.db-journal"_s);
    QCOMPARE(tripsIn(u"aside.db"_s), kept);
}

void tst_DatabaseFilesInWork::importedFileDoesNotMeetTheWalOfAFileThatIsGone()
{
    const auto &[workspace, source, target] = ImportFiles();
    OtherProgram::diesInWalMode(target, {insertNew});
    QVERIFY(QFile::rename(target, u"aside.db"_s));
    QVERIFY(QFile::remove(target + "-shm"_L1));
    QString error;
    QVERIFY(replaceDatabaseFile(source, target, error));
    QCOMPARE(tripsIn(target), imported);
    bringTheBackupTo(u"aside.db-wal"_s);
    QCOMPARE(tripsIn(u"aside.db"_s), keptAndNew);
}

void tst_DatabaseFilesInWork::importTakesBackWhatWasCutOffInItsSource()
{
    const auto &[workspace, source, target] = ImportFiles();
    OtherProgram::diesInMidWrite(source, u"trips"_s, u"trip_no"_s);
    QString error;
    QVERIFY(replaceDatabaseFile(source, target, error));
    QCOMPARE(tripsIn(target), imported);
}

void tst_DatabaseFilesInWork::importTakesInWhatOnlyTheWalHolds()
{
    const auto &[workspace, source, target] = ImportFiles();
    const OtherProgram other(source, {u"PRAGMA journal_mode = WAL"_s, insertNew});
    QString error;
    QVERIFY(replaceDatabaseFile(source, target, error));
    QCOMPARE(tripsIn(target), u"ok: 2000 imported, 1 new"_s);
}

void tst_DatabaseFilesInWork::backupHasWhatOnlyTheWalHeld()
{
    const auto &[workspace, source, target] = ImportFiles();
    OtherProgram::diesInWalMode(target, {insertNew});
    QString error;
    QVERIFY(replaceDatabaseFile(source, target, error));
    QCOMPARE(tripsIn(target), imported);
    bringTheBackupTo(target);
    QCOMPARE(tripsIn(target), keptAndNew);
    QCOMPARE(entries(), QStringList({u"july.db"_s, u"trips.db"_s}));
}

void tst_DatabaseFilesInWork::fileThatIsNoDatabaseIsReplacedWithWhatLiesBesideIt()
{
    const Workspace workspace;
    const QString source = makeManyTrips(workspace, u"july.db"_s, u"imported"_s);
    const QString target = workspace.makeFile(u"trips.db"_s, "Dear carrier,");
    for (const QString &ending : {u"-journal"_s, u"-wal"_s, u"-shm"_s})
        workspace.makeFile(u"trips.db"_s + ending, QByteArray(5000, 'x'));
    QString error;
    QVERIFY2(replaceDatabaseFile(source, target, error), qPrintable(error));
    QVERIFY(QDir().entryList({u"trips.db-*"_s}).isEmpty());
    QCOMPARE(tripsIn(target), imported);
    QCOMPARE(workspace.bytes(backups().constFirst()), QByteArray("Dear carrier,"));
}

void tst_DatabaseFilesInWork::databaseThatAnotherProgramHoldsInWalModeIsNotReplaced()
{
    const auto &[workspace, source, target] = ImportFiles();
    const OtherProgram other(target, {u"PRAGMA journal_mode = WAL"_s, insertNew});
    QString error;
    QString backup;
    QVERIFY(!replaceDatabaseFile(source, target, error, &backup));
    QVERIFY2(
        error.startsWith("Could not create safety backup before replacing database:\n"_L1 + target),
        qPrintable(error));
    QCOMPARE(backup, QString());
    QCOMPARE(backups(), QStringList());
    QCOMPARE(tripsIn(target), keptAndNew);
}

void tst_DatabaseFilesInWork::databaseThatAnotherProgramWritesToIsNotReplaced()
{
    const auto &[workspace, source, target] = ImportFiles();
    {
        const OtherProgram other(target, {u"BEGIN"_s, insertNew});
        QString error;
        QString backup;
        QVERIFY(!replaceDatabaseFile(source, target, error, &backup));
        QVERIFY2(error.startsWith("Could not create safety backup before replacing database:\n"_L1
                                  + target + ".pre_import_backup_"_L1),
                 qPrintable(error));
        QCOMPARE(backup, QString());
    }
    QCOMPARE(tripsIn(target), kept);
    QCOMPARE(entries(), QStringList({u"july.db"_s, u"trips.db"_s}));
}

void tst_DatabaseFilesInWork::lockedSourceIsNotImported()
{
    const auto &[workspace, source, target] = ImportFiles();
    const OtherProgram other(source, {u"BEGIN EXCLUSIVE"_s});
    QString error;
    QString backup;
    QVERIFY(!replaceDatabaseFile(source, target, error, &backup));
    QCOMPARE(error, "Could not copy database from:\n"_L1 + source + "\n\nto:\n"_L1 + target);
    QVERIFY(!QFile::exists(target));
    QCOMPARE(tripsIn(backup), kept);
}

// The other program goes on writing until its file is gone, and this test keeps that file open to
// see what it held in the end.
void tst_DatabaseFilesInWork::backupHasAllThatAnotherProgramCommitted()
{
    for (int round = 0; round < 10; ++round) {
        const auto &[workspace, source, target] = ImportFiles();
        QFile old(target);
        QVERIFY(old.open(QIODevice::ReadOnly));
        {
            const OtherProgram other(target, {u"-repeat"_s, insertNew});
            QString error;
            QVERIFY2(replaceDatabaseFile(source, target, error), qPrintable(error));
        }
        workspace.makeFile(u"old.db"_s, old.readAll());
        QCOMPARE(tripsIn(backups().constFirst()), tripsIn(u"old.db"_s));
        QCOMPARE(tripsIn(target), imported);
    }
}

void tst_DatabaseFilesInWork::damagedDatabaseInWalModeIsCopiedAsItStands()
{
    const auto &[workspace, source, target] = ImportFiles();
    {
        const OtherProgram other(target, {u"PRAGMA journal_mode = WAL"_s, insertNew});
    }
    QFile file(target);
    QVERIFY(file.open(QIODevice::ReadWrite) && file.seek(3L * 4096));
    QCOMPARE(file.write(QByteArray(4096, 'x')), 4096);
    file.close();
    const QByteArray damaged = workspace.bytes(u"trips.db"_s);
    QString error;
    QVERIFY2(copyDatabaseFile(target, workspace.path(u"copy.db"_s), error), qPrintable(error));
    QCOMPARE(workspace.bytes(u"copy.db"_s), damaged);
    QVERIFY2(replaceDatabaseFile(source, target, error), qPrintable(error));
    QCOMPARE(tripsIn(target), imported);
    QCOMPARE(workspace.bytes(backups().constFirst()).size(), damaged.size());
}

// SQLite makes the head of such a journal zero and keeps the file for the next transaction.
void tst_DatabaseFilesInWork::finishedJournalBesideTheOldCopyIsNoObstacle()
{
    const auto &[workspace, source, target] = ExportFiles();
    {
        const OtherProgram other(target, {u"PRAGMA journal_mode = PERSIST"_s, insertNew});
    }
    QVERIFY(QFileInfo(target + "-journal"_L1).size() > 0);
    QString error;
    QVERIFY2(copyDatabaseFile(source, target, error), qPrintable(error));
    QCOMPARE(tripsIn(target), kept);
    QVERIFY(!QFile::exists(target + "-journal"_L1));
}

// SQLite takes no path of more than 512 bytes.
void tst_DatabaseFilesInWork::databaseThatSqliteCannotOpenIsNotCopiedWithoutItsWal()
{
    const Workspace workspace;
    const QString near = makeManyTrips(workspace, u"july.db"_s, u"kept"_s);
    OtherProgram::diesInWalMode(near, {insertNew});
    const QString folder =
        workspace.path(QString(200, u'a') + u'/' + QString(200, u'b') + u'/' + QString(200, u'c'));
    QVERIFY(QDir().mkpath(folder));
    const QString far = folder + "/july.db"_L1;
    for (const QString &ending : {u""_s, u"-wal"_s})
        QVERIFY(QFile::copy(near + ending, far + ending));
    QString error;
    QVERIFY(!copyDatabaseFile(far, workspace.path(u"copy.db"_s), error));
    QCOMPARE(error, "Could not copy file from:\n"_L1 + far + "\n\nto:\n"_L1
                        + workspace.path(u"copy.db"_s));
    QVERIFY(QFile::remove(far + "-wal"_L1));
    QVERIFY2(copyDatabaseFile(far, workspace.path(u"copy.db"_s), error), qPrintable(error));
}

void tst_DatabaseFilesInWork::readOnlyDatabaseInWalModeIsReplaced()
{
    const auto &[workspace, source, target] = ImportFiles();
    {
        const OtherProgram other(target, {u"PRAGMA journal_mode = WAL"_s, insertNew});
    }
    constexpr QFile::Permissions readOnly = QFile::ReadOwner | QFile::ReadOther;
    constexpr QFile::Permissions open =
        QFile::WriteOwner | QFile::ExeOwner | QFile::WriteOther | QFile::ExeOther;
    QVERIFY(QFile::setPermissions(target, readOnly));
    QVERIFY(QFile::setPermissions(workspace.path(u"."_s), readOnly | open));
    {
        const Stranger stranger;
        QString error;
        QVERIFY2(replaceDatabaseFile(source, target, error), qPrintable(error));
    }
    QCOMPARE(tripsIn(target), imported);
    QCOMPARE(tripsIn(backups().constFirst()), keptAndNew);
}

TEST_CLASS_WITHOUT_WINDOWS(tst_DatabaseFilesInWork)

#include "tst_DatabaseFilesInWork.moc"
