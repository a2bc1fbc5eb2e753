#include "settings/DatabaseWords.h"
#include "settings/SettingsWindow.h"
#include "support/DialogRobot.h"
#include "support/TestProgram.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

void expectOverwriteQuestion(DialogRobot &robot, const QString &path, const QString &answer)
{
    robot
        .expect(DialogRobot::Question, u"Confirm Overwrite"_s,
                u"This file already exists:\n\n"_s + path + u"\n\nOverwrite it?"_s)
        .press(answer);
}

} // namespace

/// A person copies the databases out, or thinks better of it.
class tst_SettingsPageExporting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void exportAsksWhereTo_data() { addDatabases(); }
    void exportAsksWhereTo();
    void exportedFileIsACopyAndIsLogged_data() { addDatabases(); }
    void exportedFileIsACopyAndIsLogged();
    void exportLeavesTheConnectionsOpen_data() { addDatabases(); }
    void exportLeavesTheConnectionsOpen();
    void exportTakesTheFileInUseWhereverItLies_data() { addDatabases(); }
    void exportTakesTheFileInUseWhereverItLies();
    void exportAsksBeforeItOverwrites_data() { addDatabasesAndRefusals(); }
    void exportAsksBeforeItOverwrites();
    void exportOverwritesWhereToldTo_data() { addDatabases(); }
    void exportOverwritesWhereToldTo();
    void exportOverTheLiveDatabaseRemovesNothing_data() { addDatabases(); }
    void exportOverTheLiveDatabaseRemovesNothing();
    void exportOverTheOtherLiveDatabaseIsRefused_data() { addDatabases(); }
    void exportOverTheOtherLiveDatabaseIsRefused();
    void exportToTheSamePathInOtherLetterCaseIsRefused();
    void exportToAFolderThatDoesNotExistMakesIt_data() { addDatabases(); }
    void exportToAFolderThatDoesNotExistMakesIt();
    void withoutADatabaseThereIsNothingToExport_data() { addDatabases(); }
    void withoutADatabaseThereIsNothingToExport();
    void withoutADatabaseTheFileThereIsKept_data() { addDatabases(); }
    void withoutADatabaseTheFileThereIsKept();
    void exportThatCannotBeLoggedReadsAsAnyOther();
};

void tst_SettingsPageExporting::exportAsksWhereTo()
{
    const Words &database = theDatabase();
    Workspace workspace;
    makeDatabases(workspace);
    DialogRobot robot;
    const SettingsWindow settings;
    robot.expectFileDialog(database.exportButton).dismiss();
    settings.clicks(database.exportButton);
    QCOMPARE(robot.seen().size(), 1);
    QCOMPARE(robot.seen().constFirst().folder, QDir::currentPath());
    QCOMPARE(robot.seen().constFirst().fileName, database.suggestedName);
    QCOMPARE(robot.seen().constFirst().nameFilters,
             QStringList({u"SQLite Database (*.db)"_s, u"All Files (*)"_s}));
    QCOMPARE(QDir().entryList({u"*.db"_s}), QStringList({u"locations.db"_s, u"trips.db"_s}));
    QVERIFY(activity(workspace).isEmpty());
}

void tst_SettingsPageExporting::exportedFileIsACopyAndIsLogged()
{
    const Words &database = theDatabase();
    Workspace workspace;
    makeDatabases(workspace);
    const QByteArray content = workspace.bytes(database.fileName);
    DialogRobot robot;
    const SettingsWindow settings;
    const QString target = workspace.path(u"copy of July.db"_s);
    robot.expectFileDialog(database.exportButton).choose(target);
    robot.expect(DialogRobot::Information, database.exported, database.exportedText + target);
    settings.clicks(database.exportButton);
    QCOMPARE(workspace.bytes(u"copy of July.db"_s), content);
    QCOMPARE(activity(workspace), QList<QStringList>({{u"Export"_s, database.fileName, target,
                                                       u"database_activity"_s}}));
}

void tst_SettingsPageExporting::exportLeavesTheConnectionsOpen()
{
    const Words &database = theDatabase();
    Workspace workspace;
    makeDatabases(workspace);
    const TestConnection page(workspace.path(database.fileName));
    DialogRobot robot;
    const SettingsWindow settings;
    const QString target = workspace.path(u"copy.db"_s);
    robot.expectFileDialog(database.exportButton).choose(target);
    robot.expect(DialogRobot::Information, database.exported, database.exportedText + target);
    settings.clicks(database.exportButton);
    QVERIFY(page.database().isOpen());
    QVERIFY(page.value(u"SELECT COUNT(*) FROM sqlite_master"_s).toInt() > 0);
}

void tst_SettingsPageExporting::exportTakesTheFileInUseWhereverItLies()
{
    const Words &database = theDatabase();
    Workspace workspace;
    makeDatabases(workspace);
    const QString elsewhere =
        workspace.makeFile(u"elsewhere/"_s + database.fileName, workspace.bytes(u"trips.db"_s));
    const TestConnection openedByHand(elsewhere);
    openedByHand.execute(u"CREATE TABLE opened_by_hand (id)"_s);
    DialogRobot robot;
    const SettingsWindow settings;
    const QString target = workspace.path(u"copy.db"_s);
    robot.expectFileDialog(database.exportButton).choose(target);
    robot.expect(DialogRobot::Information, database.exported, database.exportedText + target);
    settings.clicks(database.exportButton);
    QCOMPARE(workspace.bytes(u"copy.db"_s), workspace.bytes(u"elsewhere/"_s + database.fileName));
}

void tst_SettingsPageExporting::exportAsksBeforeItOverwrites()
{
    const Words &database = theDatabase();
    QFETCH(const bool, dismissed);
    Workspace workspace;
    makeDatabases(workspace);
    DialogRobot robot;
    const SettingsWindow settings;
    const QString target = workspace.makeFile(u"letter.txt"_s, "Dear carrier,");
    robot.expectFileDialog(database.exportButton).choose(target);
    auto question =
        robot.expect(DialogRobot::Question, u"Confirm Overwrite"_s,
                     u"This file already exists:\n\n"_s + target + u"\n\nOverwrite it?"_s);
    if (dismissed)
        question.dismiss();
    else
        question.press(u"No"_s);
    settings.clicks(database.exportButton);
    QCOMPARE(robot.seen().size(), 2);
    QCOMPARE(robot.seen().constLast().buttons, QStringList({u"Yes"_s, u"No"_s}));
    QCOMPARE(robot.seen().constLast().defaultButton, u"No"_s);
    QCOMPARE(workspace.bytes(u"letter.txt"_s), QByteArray("Dear carrier,"));
    QVERIFY(activity(workspace).isEmpty());
}

void tst_SettingsPageExporting::exportOverwritesWhereToldTo()
{
    const Words &database = theDatabase();
    Workspace workspace;
    makeDatabases(workspace);
    const QByteArray content = workspace.bytes(database.fileName);
    DialogRobot robot;
    const SettingsWindow settings;
    const QString target = workspace.makeFile(u"old.db"_s, "an older export");
    robot.expectFileDialog(database.exportButton).choose(target);
    expectOverwriteQuestion(robot, target, u"Yes"_s);
    robot.expect(DialogRobot::Information, database.exported, database.exportedText + target);
    settings.clicks(database.exportButton);
    QCOMPARE(workspace.bytes(u"old.db"_s), content);
}

void tst_SettingsPageExporting::exportOverTheLiveDatabaseRemovesNothing()
{
    const Words &database = theDatabase();
    Workspace workspace;
    makeDatabases(workspace);
    const QByteArray content = workspace.bytes(database.fileName);
    DialogRobot robot;
    const SettingsWindow settings;
    const QString live = workspace.path(database.fileName);
    robot.expectFileDialog(database.exportButton).choose(live);
    expectOverwriteQuestion(robot, live, u"Yes"_s);
    robot.expect(DialogRobot::Critical, database.exportFailed,
                 u"Source and target file are the same:\n"_s + live);
    settings.clicks(database.exportButton);
    QCOMPARE(workspace.bytes(database.fileName), content);
    QVERIFY(activity(workspace).isEmpty());
}

void tst_SettingsPageExporting::exportOverTheOtherLiveDatabaseIsRefused()
{
    const Words &database = theDatabase();
    const Words &other = &database == &trips ? locations : trips;
    Workspace workspace;
    makeDatabases(workspace);
    const QByteArray content = workspace.bytes(other.fileName);
    const TestConnection page(workspace.path(database.fileName));
    DialogRobot robot;
    const SettingsWindow settings;
    const QString target = workspace.path(other.fileName);
    robot.expectFileDialog(database.exportButton).choose(target);
    expectOverwriteQuestion(robot, target, u"Yes"_s);
    robot.expect(DialogRobot::Critical, database.exportFailed,
                 u"Target file is a database in use:\n"_s + target);
    settings.clicks(database.exportButton);
    QCOMPARE(workspace.bytes(other.fileName), content);
    QVERIFY(page.database().isOpen());
    QVERIFY(activity(workspace).isEmpty());
}

void tst_SettingsPageExporting::exportToTheSamePathInOtherLetterCaseIsRefused()
{
    Workspace workspace;
    makeDatabases(workspace);
    DialogRobot robot;
    const SettingsWindow settings;
    robot.expectFileDialog(trips.exportButton).choose(workspace.path(u"TRIPS.db"_s));
    robot.expect(DialogRobot::Critical, trips.exportFailed,
                 u"Source and target file are the same:\n"_s + workspace.path(u"trips.db"_s));
    settings.clicks(trips.exportButton);
    QCOMPARE(QDir().entryList({u"*.db"_s}), QStringList({u"locations.db"_s, u"trips.db"_s}));
}

void tst_SettingsPageExporting::exportToAFolderThatDoesNotExistMakesIt()
{
    const Words &database = theDatabase();
    Workspace workspace;
    makeDatabases(workspace);
    const QByteArray content = workspace.bytes(database.fileName);
    DialogRobot robot;
    const SettingsWindow settings;
    const QString target = workspace.path(u"backups/july/copy.db"_s);
    robot.expectFileDialog(database.exportButton).choose(target);
    robot.expect(DialogRobot::Information, database.exported, database.exportedText + target);
    settings.clicks(database.exportButton);
    QCOMPARE(workspace.bytes(u"backups/july/copy.db"_s), content);
}

void tst_SettingsPageExporting::withoutADatabaseThereIsNothingToExport()
{
    const Words &database = theDatabase();
    const Workspace workspace;
    DialogRobot robot;
    const SettingsWindow settings;
    robot.expectFileDialog(database.exportButton).choose(workspace.path(u"copy.db"_s));
    robot.expect(DialogRobot::Critical, database.exportFailed, database.noSource);
    settings.clicks(database.exportButton);
    QCOMPARE(QDir().entryList(QDir::Files), QStringList());
}

void tst_SettingsPageExporting::withoutADatabaseTheFileThereIsKept()
{
    const Words &database = theDatabase();
    const Workspace workspace;
    DialogRobot robot;
    const SettingsWindow settings;
    const QString target = workspace.makeFile(u"old.db"_s, "an older export");
    robot.expectFileDialog(database.exportButton).choose(target);
    expectOverwriteQuestion(robot, target, u"Yes"_s);
    robot.expect(DialogRobot::Critical, database.exportFailed, database.noSource);
    settings.clicks(database.exportButton);
    QCOMPARE(workspace.bytes(u"old.db"_s), "an older export");
}

void tst_SettingsPageExporting::exportThatCannotBeLoggedReadsAsAnyOther()
{
    Workspace workspace;
    workspace.makeLocations();
    DialogRobot robot;
    const SettingsWindow settings;
    const QString target = workspace.path(u"copy.db"_s);
    robot.expectFileDialog(locations.exportButton).choose(target);
    robot.expect(DialogRobot::Information, locations.exported, locations.exportedText + target);
    settings.clicks(locations.exportButton);
    QCOMPARE(workspace.bytes(u"copy.db"_s), workspace.bytes(u"locations.db"_s));
    QVERIFY(!QFile::exists(u"trips.db"_s));
}

TEST_CLASS(tst_SettingsPageExporting)

#include "tst_SettingsPageExporting.moc"
