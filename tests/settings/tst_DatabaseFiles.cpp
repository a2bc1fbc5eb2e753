#include "settings/Backups.h"
#include "settings/DatabaseFiles.h"
#include "settings/FailingFiles.h"
#include "settings/PlainFiles.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "support/surroundings/FileSizeLimit.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;
using DatabaseFiles::copyDatabaseFile;
using DatabaseFiles::replaceDatabaseFile;

/// Database files are copied out.
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
    void copyDoesNotTakeThePlaceOfAnotherDatabaseInUse_data();
    void copyDoesNotTakeThePlaceOfAnotherDatabaseInUse();
    void copyHasThePermissionsOfItsSource();
    void copyFailsWhereItsFolderCannotBeMade();
    void copyFailsInAFolderThatTakesNone();
    void copyFailsWhereAFolderStandsInItsPlace();
    void copyFailsWhereTheOldFileIsHeld();
    void onAFullDiskTheOldCopyStays();
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
    QCOMPARE(entriesOf(u"."_s), QStringList({u"backup.db"_s, u"trips.db"_s}));
}

void tst_DatabaseFiles::copyTakesThePlaceOfAnotherFile()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"trips.db"_s, newData);
    const QString target = workspace.makeFile(u"backup.db"_s, muchData);
    QString error;
    QVERIFY(copyDatabaseFile(source, target, error));
    QCOMPARE(workspace.bytes(u"backup.db"_s), newData);
    QCOMPARE(entriesOf(u"."_s), QStringList({u"backup.db"_s, u"trips.db"_s}));
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
    QCOMPARE(entriesOf(u"data"_s), QStringList({u"trips.db"_s}));
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

void tst_DatabaseFiles::copyDoesNotTakeThePlaceOfAnotherDatabaseInUse_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("the other one near the program") << u"locations.db"_s;
    QTest::newRow("in another letter case") << u"LOCATIONS.db"_s;
    QTest::newRow("held open by a page") << u"truck12/trips.db"_s;
    QTest::newRow("through a linked folder") << u"linked/trips.db"_s;
}

void tst_DatabaseFiles::copyDoesNotTakeThePlaceOfAnotherDatabaseInUse()
{
    QFETCH(const QString, target);
    Workspace workspace;
    const QString source = workspace.makeTrips();
    workspace.makeLocations();
    const TestConnection page(workspace.makeTrips(u"truck12/trips.db"_s));
    page.execute(u"INSERT INTO trips (trip_no) VALUES ('4471203')"_s);
    QVERIFY(QFile::link(u"truck12"_s, u"linked"_s));
    const QByteArray content = workspace.bytes(u"locations.db"_s);
    QString error;
    QVERIFY(!copyDatabaseFile(source, target, error));
    QCOMPARE(error, "Target file is a database in use:\n"_L1 + target);
    QCOMPARE(workspace.bytes(u"locations.db"_s), content);
    QCOMPARE(page.value(u"SELECT trip_no FROM trips"_s).toString(), u"4471203"_s);
    QCOMPARE(entriesOf(u"truck12"_s), QStringList({u"trips.db"_s}));
}

void tst_DatabaseFiles::copyHasThePermissionsOfItsSource()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"trips.db"_s, oldData);
    constexpr QFile::Permissions readOnly = QFile::ReadOwner | QFile::ReadOther;
    QVERIFY(QFile::setPermissions(source, readOnly));
    QVERIFY(QFile::setPermissions(workspace.path(u"."_s), readOnly | QFile::WriteOwner
                                                              | QFile::ExeOwner | QFile::WriteOther
                                                              | QFile::ExeOther));
    {
        const Stranger stranger;
        QString error;
        QVERIFY2(copyDatabaseFile(source, workspace.path(u"backup.db"_s), error),
                 qPrintable(error));
    }
    QCOMPARE(workspace.bytes(u"backup.db"_s), oldData);
    QCOMPARE(QFileInfo(u"backup.db"_s).permissions() & ~(QFile::ReadUser | QFile::WriteUser),
             readOnly);
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

void tst_DatabaseFiles::copyFailsInAFolderThatTakesNone()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"trips.db"_s, newData);
    const QString target = workspace.makeFile(u"archive/backup.db"_s, oldData);
    const QString newTarget = workspace.path(u"archive/new.db"_s);
    constexpr QFile::Permissions entered =
        QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;
    QVERIFY(QFile::setPermissions(workspace.path(u"."_s), entered | QFile::WriteOwner));
    QVERIFY(QFile::setPermissions(u"archive"_s, entered));
    {
        const Stranger stranger;
        QString error;
        QVERIFY(!copyDatabaseFile(source, target, error));
        QCOMPARE(error, "Could not replace existing file:\n"_L1 + target);
        QVERIFY(!copyDatabaseFile(source, newTarget, error));
        QCOMPARE(error, "Could not copy file from:\n"_L1 + source + "\n\nto:\n"_L1 + newTarget);
    }
    QVERIFY(QFile::setPermissions(u"archive"_s, entered | QFile::WriteOwner));
    QCOMPARE(workspace.bytes(u"archive/backup.db"_s), oldData);
    QCOMPARE(entriesOf(u"archive"_s), QStringList({u"backup.db"_s}));
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
    QCOMPARE(entriesOf(u"."_s), QStringList({u"backup.db"_s, u"trips.db"_s}));
}

void tst_DatabaseFiles::onAFullDiskTheOldCopyStays()
{
    const Workspace workspace;
    const QString source = workspace.makeFile(u"trips.db"_s, muchData);
    const QString target = workspace.makeFile(u"backup.db"_s, oldData);
    QString error;
    {
        const FileSizeLimit fullDisk(10'000);
        QVERIFY(!copyDatabaseFile(source, target, error));
    }
    QCOMPARE(error, "Could not copy file from:\n"_L1 + source + "\n\nto:\n"_L1 + target);
    QCOMPARE(workspace.bytes(u"trips.db"_s), muchData);
    QCOMPARE(workspace.bytes(u"backup.db"_s), oldData);
    QCOMPARE(entriesOf(u"."_s), QStringList({u"backup.db"_s, u"trips.db"_s}));
}

TEST_CLASS_WITHOUT_WINDOWS(tst_DatabaseFiles)

#include "tst_DatabaseFiles.moc"
