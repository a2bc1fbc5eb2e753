#include "data/DatabaseLocator.h"
#include "locations/LocationRows.h"
#include "locations/LocationsWindow.h"
#include "support/DialogRobot.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString saveButton = u"Save Location"_s;
const QString newButton = u"New / Clear"_s;

void expectNoDatabase(DialogRobot &robot)
{
    robot.expect(DialogRobot::Warning, u"No Database"_s, u"Open locations.db first."_s);
}

} // namespace

/// What a person is told, and keeps, when the file does not take what they save.
class tst_LocationsPageSavingFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listThatFailsBehindASaveLeavesTheTextsThatWereSaved()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeLocations(workspace, {albany});
        LocationsWindow places(path);
        places.clicks(newButton);
        places.pastes(kansas);
        places.page->statusCallback = [&](const QString &text) {
            places.statuses = QStringList(text);
            onThePagesConnection(u"ALTER TABLE locations RENAME TO moved"_s);
        };
        robot.expectContaining(DialogRobot::Critical, u"Query Error"_s,
                               u"no such table: locations"_s);
        places.clicks(saveButton);
        QCOMPARE(places.statuses, QStringList({u"Saved location: KC1"_s}));
        QCOMPARE(places.form(), kansas);
        QCOMPARE(places.mode(), u"Edit"_s);
        QCOMPARE(column(places.table(), u"Code"_s), QStringList({u"ALB1"_s}));
    }

    void withoutADatabaseNothingIsSavedOrDeleted()
    {
        const Workspace workspace;
        DialogRobot robot;
        const LocationsWindow places;
        places.clicks(newButton);
        places.pastes(kansas);
        expectNoDatabase(robot);
        places.clicks(saveButton);
        expectNoDatabase(robot);
        places.clicks(u"Delete Location"_s);
        QCOMPARE(robot.seen().size(), 2);
        QCOMPARE(places.form(), kansas);
        QCOMPARE(places.mode(), u"Save"_s);
    }

    void withoutADatabaseTheMissingCodeIsNotAskedFor()
    {
        const Workspace workspace;
        DialogRobot robot;
        const LocationsWindow places;
        expectNoDatabase(robot);
        places.asksFor("saveLocationButton");
        QCOMPARE(places.mode(), u"neither"_s);
        expectNoDatabase(robot);
        places.clicks(u"Delete Location"_s);
        QCOMPARE(robot.seen().size(), 2);
        QCOMPARE(places.statuses, QStringList());
    }

    void fileClosedMeanwhileKeepsTheEdit()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeLocations(workspace, {albany});
        const LocationsWindow places(path);
        places.edits(0);
        places.types("locationNameField", u"Gate 9"_s);
        DatabaseLocator::closeAllSqliteConnections();
        expectNoDatabase(robot);
        places.clicks(saveButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(places.form().at(1), u"Gate 9"_s);
        QCOMPARE(places.mode(), u"Save"_s);
        QCOMPARE(stored(path), QList<QStringList>({albany}));
    }

    void lockedFileKeepsTheEditUntilItIsFree()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeLocations(workspace, {albany});
        LocationsWindow places(path);
        onThePagesConnection(u"PRAGMA busy_timeout = 0"_s); // and not the driver's five seconds
        places.edits(0);
        places.types("locationNameField", u"Gate 9"_s);
        places.statuses.clear();
        {
            const TestConnection other(path);
            other.execute(u"BEGIN IMMEDIATE"_s);
            robot.expectContaining(DialogRobot::Critical, u"Save Error"_s, u"database is locked"_s);
            places.clicks(saveButton);
        }
        QCOMPARE(places.form().at(1), u"Gate 9"_s);
        QCOMPARE(places.mode(), u"Save"_s);
        QCOMPARE(places.statuses, QStringList());
        places.clicks(saveButton);
        QCOMPARE(stored(path).first().at(1), u"Gate 9"_s);
    }

    void fileThatCannotBeWrittenKeepsTheEntry_data()
    {
        QTest::addColumn<QString>("pragmaOrDamage");
        QTest::addColumn<QString>("reason");
        QTest::newRow("read-only")
            << u"PRAGMA query_only = ON"_s << u"attempt to write a readonly database"_s;
        QTest::newRow("no table") << u"DROP TABLE locations"_s << u"no such table: locations"_s;
        QTest::newRow("no column")
            << u"ALTER TABLE locations DROP COLUMN notes"_s << u"no column named notes"_s;
        QTest::newRow("code is no key")
            << u"ALTER TABLE locations RENAME COLUMN code TO key"_s << u"no column named code"_s;
    }

    void fileThatCannotBeWrittenKeepsTheEntry()
    {
        QFETCH(const QString, pragmaOrDamage);
        QFETCH(const QString, reason);
        Workspace workspace;
        DialogRobot robot;
        LocationsWindow places(makeLocations(workspace, {albany}));
        places.clicks(newButton);
        places.pastes(kansas);
        places.statuses.clear();
        onThePagesConnection(pragmaOrDamage);
        robot.expectContaining(DialogRobot::Critical, u"Save Error"_s, reason);
        places.clicks(saveButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(places.form(), kansas);
        QCOMPARE(places.mode(), u"Save"_s);
        QCOMPARE(places.statuses, QStringList());
        QCOMPARE(texts(places.table()), QList<QStringList>({albany}));
    }

    void fileWithoutAUniqueCodeTakesChangesButNoEntries()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeLocations(workspace, {albany});
        TestConnection(path).execute(u"CREATE TABLE copy AS SELECT * FROM locations"_s);
        TestConnection(path).execute(u"DROP TABLE locations"_s);
        TestConnection(path).execute(u"ALTER TABLE copy RENAME TO locations"_s);
        const LocationsWindow places(path);
        places.edits(0);
        places.types("locationNameField", u"Gate 9"_s);
        places.clicks(saveButton);
        QCOMPARE(stored(path).first().at(1), u"Gate 9"_s);
        places.clicks(newButton);
        places.pastes(kansas);
        robot.expectContaining(DialogRobot::Critical, u"Save Error"_s,
                               u"ON CONFLICT clause does not match"_s);
        places.clicks(saveButton);
        QCOMPARE(places.form(), kansas);
        QCOMPARE(stored(path).size(), 1);
    }
};

TEST_CLASS(tst_LocationsPageSavingFailures)
#include "tst_LocationsPageSavingFailures.moc"
