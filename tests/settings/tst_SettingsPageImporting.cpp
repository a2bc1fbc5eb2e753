#include "settings/Backups.h"
#include "settings/DatabaseWords.h"
#include "settings/SettingsWindow.h"
#include "support/DialogRobot.h"
#include "support/TestProgram.h"
#include "support/surroundings/FileSizeLimit.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

void expectImport(DialogRobot &robot, const Words &database, const QString &source)
{
    robot.expectFileDialog(database.importButton).choose(source);
    robot
        .expect(DialogRobot::Warning, database.confirmImport,
                database.confirmImportText + source + u"\n\nContinue?"_s)
        .press(u"Yes"_s);
}

} // namespace

/// A person brings copies of the databases in, or thinks better of it.
class tst_SettingsPageImporting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void importAsksForAFile_data() { addDatabases(); }
    void importAsksForAFile();
    void importAsksInTheFolderOfTheLastFile_data() { addDatabases(); }
    void importAsksInTheFolderOfTheLastFile();
    void importAsksBeforeItReplaces_data() { addDatabasesAndRefusals(); }
    void importAsksBeforeItReplaces();
    void importedFileTakesThePlaceOfTheOldOne_data() { addDatabases(); }
    void importedFileTakesThePlaceOfTheOldOne();
    void importClosesTheConnections_data() { addDatabases(); }
    void importClosesTheConnections();
    void importOfTripsIsLoggedInTheNewFile();
    void importOfLocationsIsLoggedInTrips();
    void importOfTheLiveDatabaseIsRefusedWithTheConnectionsClosed_data() { addDatabases(); }
    void importOfTheLiveDatabaseIsRefusedWithTheConnectionsClosed();
    void importWithNoDatabaseThereGoesBesideTheProgram_data() { addDatabases(); }
    void importWithNoDatabaseThereGoesBesideTheProgram();
    void importLeavesADatabaseThatWasOpenedByHandElsewhere();
    void twoImportsInTheSameSecondLeaveTheTargetAsItWas_data() { addDatabases(); }
    void twoImportsInTheSameSecondLeaveTheTargetAsItWas();
    void fileThatIsNoDatabaseIsImportedAndReadsAsAnyOther();
    void importThatFailsNamesTheBackupThatIsKept_data() { addDatabases(); }
    void importThatFailsNamesTheBackupThatIsKept();
};

void tst_SettingsPageImporting::importAsksForAFile()
{
    const Words &database = theDatabase();
    Workspace workspace;
    makeDatabases(workspace);
    const TestConnection page(workspace.path(database.fileName));
    DialogRobot robot;
    const SettingsWindow settings;
    robot.expectFileDialog(database.importButton).dismiss();
    settings.clicks(database.importButton);
    QCOMPARE(robot.seen().size(), 1);
    QCOMPARE(robot.seen().constFirst().fileName, QString());
    QCOMPARE(robot.seen().constFirst().nameFilters,
             QStringList({u"SQLite Database (*.db)"_s, u"All Files (*)"_s}));
    QVERIFY(page.database().isOpen());
    QCOMPARE(backups(), QStringList());
}

void tst_SettingsPageImporting::importAsksInTheFolderOfTheLastFile()
{
    const Words &database = theDatabase();
    Workspace workspace;
    const QString source = workspace.makeTrips(u"july/copy.db"_s);
    DialogRobot robot;
    const SettingsWindow settings;
    robot.expectFileDialog(database.importButton).choose(source);
    robot.expectContaining(DialogRobot::Warning, database.confirmImport, source).dismiss();
    settings.clicks(database.importButton);
    robot.expectFileDialog(database.importButton).dismiss();
    settings.clicks(database.importButton);
    QCOMPARE(robot.seen().constLast().folder, workspace.path(u"july"_s));
}

void tst_SettingsPageImporting::importAsksBeforeItReplaces()
{
    const Words &database = theDatabase();
    QFETCH(const bool, dismissed);
    Workspace workspace;
    makeDatabases(workspace);
    const QByteArray content = workspace.bytes(database.fileName);
    const TestConnection page(workspace.path(database.fileName));
    DialogRobot robot;
    const SettingsWindow settings;
    const QString source = workspace.makeFile(u"copy.db"_s, "an older export");
    robot.expectFileDialog(database.importButton).choose(source);
    auto question = robot.expect(DialogRobot::Warning, database.confirmImport,
                                 database.confirmImportText + source + u"\n\nContinue?"_s);
    if (dismissed)
        question.dismiss();
    else
        question.press(u"No"_s);
    settings.clicks(database.importButton);
    QCOMPARE(robot.seen().constLast().buttons, QStringList({u"Yes"_s, u"No"_s}));
    QCOMPARE(robot.seen().constLast().defaultButton, u"No"_s);
    QCOMPARE(workspace.bytes(database.fileName), content);
    QVERIFY(page.database().isOpen());
    QCOMPARE(backups(), QStringList());
}

void tst_SettingsPageImporting::importedFileTakesThePlaceOfTheOldOne()
{
    const Words &database = theDatabase();
    Workspace workspace;
    makeDatabases(workspace);
    const QByteArray old = workspace.bytes(database.fileName);
    const QString source = workspace.makeTrips(u"july/copy.db"_s);
    DialogRobot robot;
    const SettingsWindow settings;
    expectImport(robot, database, source);
    robot.expect(DialogRobot::Information, database.imported, database.importedText);
    settings.clicks(database.importButton);
    const TestConnection imported(workspace.path(database.fileName));
    QCOMPARE(imported.value(u"SELECT COUNT(*) FROM trips"_s).toInt(), 0);
    QCOMPARE(backups().size(), 1);
    QVERIFY(backups().constFirst().startsWith(database.fileName + ".pre_import_backup_"_L1));
    QCOMPARE(workspace.bytes(backups().constFirst()), old);
}

void tst_SettingsPageImporting::importClosesTheConnections()
{
    const Words &database = theDatabase();
    Workspace workspace;
    makeDatabases(workspace);
    const QString source = workspace.makeTrips(u"july/copy.db"_s);
    const TestConnection tripsPage(workspace.path(u"trips.db"_s), u"trips_connection"_s);
    const TestConnection locationsPage(workspace.path(u"locations.db"_s),
                                       u"locations_connection"_s);
    DialogRobot robot;
    const SettingsWindow settings;
    expectImport(robot, database, source);
    robot.expect(DialogRobot::Information, database.imported, database.importedText);
    settings.clicks(database.importButton);
    QVERIFY(!tripsPage.database().isOpen());
    QVERIFY(!locationsPage.database().isOpen());
    QVERIFY(QSqlDatabase::contains(u"trips_connection"_s));
    QVERIFY(QSqlDatabase::contains(u"locations_connection"_s));
}

void tst_SettingsPageImporting::importOfTripsIsLoggedInTheNewFile()
{
    Workspace workspace;
    makeDatabases(workspace);
    const QString source = workspace.makeTrips(u"july/copy.db"_s);
    const QByteArray sourceContent = workspace.bytes(u"july/copy.db"_s);
    DialogRobot robot;
    const SettingsWindow settings;
    expectImport(robot, trips, source);
    robot.expect(DialogRobot::Information, trips.imported, trips.importedText);
    settings.clicks(trips.importButton);
    QCOMPARE(activity(workspace),
             QList<QStringList>({{u"Import"_s, u"trips.db"_s, source, u"database_activity"_s}}));
    const TestConnection backup(workspace.path(backups().constFirst()));
    QCOMPARE(backup.value(u"SELECT COUNT(*) FROM settlement_import_log"_s).toInt(), 0);
    QCOMPARE(workspace.bytes(u"july/copy.db"_s), sourceContent);
}

void tst_SettingsPageImporting::importOfLocationsIsLoggedInTrips()
{
    Workspace workspace;
    makeDatabases(workspace);
    const QString source = workspace.makeLocations(u"july/copy.db"_s);
    DialogRobot robot;
    const SettingsWindow settings;
    expectImport(robot, locations, source);
    robot.expect(DialogRobot::Information, locations.imported, locations.importedText);
    settings.clicks(locations.importButton);
    QCOMPARE(activity(workspace), QList<QStringList>({{u"Import"_s, u"locations.db"_s, source,
                                                       u"database_activity"_s}}));
}

void tst_SettingsPageImporting::importOfTheLiveDatabaseIsRefusedWithTheConnectionsClosed()
{
    const Words &database = theDatabase();
    Workspace workspace;
    makeDatabases(workspace);
    const QByteArray content = workspace.bytes(database.fileName);
    const TestConnection page(workspace.path(database.fileName));
    DialogRobot robot;
    const SettingsWindow settings;
    const QString live = workspace.path(database.fileName);
    expectImport(robot, database, live);
    robot.expect(DialogRobot::Critical, database.importFailed,
                 u"Source and target database are the same file:\n"_s + live);
    settings.clicks(database.importButton);
    QVERIFY(!page.database().isOpen());
    QCOMPARE(workspace.bytes(database.fileName), content);
    QCOMPARE(backups(), QStringList());
    QVERIFY(activity(workspace).isEmpty());
}

void tst_SettingsPageImporting::importWithNoDatabaseThereGoesBesideTheProgram()
{
    const Words &database = theDatabase();
    Workspace workspace;
    const QString source = workspace.makeTrips(u"july/copy.db"_s);
    const QDir program(QCoreApplication::applicationDirPath());
    const auto cleanUp = qScopeGuard([&] { QFile::remove(program.filePath(database.fileName)); });
    DialogRobot robot;
    const SettingsWindow settings;
    expectImport(robot, database, source);
    robot.expect(DialogRobot::Information, database.imported, database.importedText);
    settings.clicks(database.importButton);
    QCOMPARE(program.entryList({database.fileName + u'*'}), QStringList({database.fileName}));
    const TestConnection imported(program.filePath(database.fileName));
    QCOMPARE(imported.value(u"SELECT COUNT(*) FROM trips"_s).toInt(), 0);
    QCOMPARE(QDir().entryList(QDir::Files), QStringList());
}

void tst_SettingsPageImporting::importLeavesADatabaseThatWasOpenedByHandElsewhere()
{
    Workspace workspace;
    makeDatabases(workspace);
    const QString elsewhere = workspace.makeTrips(u"elsewhere/trips.db"_s);
    const QByteArray elsewhereContent = workspace.bytes(u"elsewhere/trips.db"_s);
    const QString source = workspace.makeTrips(u"july/copy.db"_s);
    const TestConnection openedByHand(elsewhere);
    DialogRobot robot;
    const SettingsWindow settings;
    expectImport(robot, trips, source);
    robot.expect(DialogRobot::Information, trips.imported, trips.importedText);
    settings.clicks(trips.importButton);
    QCOMPARE(workspace.bytes(u"elsewhere/trips.db"_s), elsewhereContent);
    QCOMPARE(workspace.value(u"SELECT COUNT(*) FROM trips"_s).toInt(), 0);
}

void tst_SettingsPageImporting::twoImportsInTheSameSecondLeaveTheTargetAsItWas()
{
    const Words &database = theDatabase();
    Workspace workspace;
    makeDatabases(workspace);
    const QByteArray content = workspace.bytes(database.fileName);
    const QString source = workspace.makeTrips(u"july/copy.db"_s);
    const TestConnection page(workspace.path(database.fileName));
    takeTheNamesOfBackups(workspace, database.fileName);
    DialogRobot robot;
    const SettingsWindow settings;
    expectImport(robot, database, source);
    robot.expectContaining(DialogRobot::Critical, database.importFailed,
                           u"Could not create safety backup before replacing database:\n"_s
                               + workspace.path(database.fileName));
    settings.clicks(database.importButton);
    QCOMPARE(robot.seen().constLast().informativeText, QString());
    QCOMPARE(workspace.bytes(database.fileName), content);
    QVERIFY(!page.database().isOpen());
    QVERIFY(activity(workspace).isEmpty());
}

void tst_SettingsPageImporting::fileThatIsNoDatabaseIsImportedAndReadsAsAnyOther()
{
    Workspace workspace;
    makeDatabases(workspace);
    const QString source = workspace.makeFile(u"letter.txt"_s, "Dear carrier,");
    DialogRobot robot;
    const SettingsWindow settings;
    expectImport(robot, trips, source);
    robot.expect(DialogRobot::Information, trips.imported, trips.importedText);
    settings.clicks(trips.importButton);
    QCOMPARE(workspace.bytes(u"trips.db"_s), QByteArray("Dear carrier,"));
    QCOMPARE(backups().size(), 1);
}

void tst_SettingsPageImporting::importThatFailsNamesTheBackupThatIsKept()
{
    const Words &database = theDatabase();
    Workspace workspace;
    makeDatabases(workspace);
    const QByteArray old = workspace.bytes(database.fileName);
    const QString source = workspace.makeFile(u"july/copy.db"_s, QByteArray(300'000, 'x'));
    DialogRobot robot;
    const SettingsWindow settings;
    expectImport(robot, database, source);
    robot.expect(DialogRobot::Critical, database.importFailed,
                 u"Could not copy database from:\n"_s + source + u"\n\nto:\n"_s
                     + workspace.path(database.fileName));
    {
        const FileSizeLimit fullDisk(250'000);
        settings.clicks(database.importButton);
    }
    QCOMPARE(backups().size(), 1);
    QCOMPARE(workspace.bytes(backups().constFirst()), old);
    QCOMPARE(robot.seen().constLast().informativeText,
             u"A copy of "_s + database.fileName + u" as it was before is kept as:\n"_s
                 + workspace.path(backups().constFirst()));
}

TEST_CLASS(tst_SettingsPageImporting)

#include "tst_SettingsPageImporting.moc"
