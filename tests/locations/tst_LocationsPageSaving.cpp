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

void expectNoCode(DialogRobot &robot)
{
    robot.expect(DialogRobot::Warning, u"Missing Code"_s, u"Location code is required."_s);
}

} // namespace

/// A person enters and changes places.
class tst_LocationsPageSaving : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void enteredLocationIsStoredAndShown()
    {
        Workspace workspace;
        const QString path = makeLocations(workspace, {albany, dallas});
        LocationsWindow places(path);
        places.clicks(newButton);
        places.pastes(kansas);
        places.statuses.clear();
        places.clicks(saveButton);
        QCOMPARE(stored(path), QList<QStringList>({albany, dallas, kansas}));
        QCOMPARE(places.statuses, QStringList({u"Saved location: KC1"_s, u"Loaded 3 locations"_s}));
        QCOMPARE(places.form(), kansas);
        QCOMPARE(places.mode(), u"Edit"_s);
        QCOMPARE(places.selection(), QList<int>({2, 2}));
    }

    void changedLocationIsStoredAndShown()
    {
        Workspace workspace;
        const QString path = makeLocations(workspace, {albany, dallas});
        LocationsWindow places(path);
        places.edits(0);
        places.types("locationStreetField", u"2 Pier St"_s);
        places.statuses.clear();
        places.clicks(saveButton);
        QStringList changed = albany;
        changed[2] = u"2 Pier St"_s;
        QCOMPARE(stored(path), QList<QStringList>({changed, dallas}));
        QCOMPARE(places.statuses,
                 QStringList({u"Updated location: ALB1"_s, u"Loaded 2 locations"_s}));
        QCOMPARE(places.form(), changed);
        QCOMPARE(places.mode(), u"Edit"_s);
        QCOMPARE(places.selection(), QList<int>({0, 0}));
    }

    void changedCodeMovesTheLocationAndItsSelection()
    {
        Workspace workspace;
        const QString path = makeLocations(workspace, {albany, dallas});
        LocationsWindow places(path);
        places.edits(0);
        places.types("locationCodeField", u"ZZ9"_s);
        places.statuses.clear();
        places.clicks(saveButton);
        QCOMPARE(column(places.table(), u"Code"_s), QStringList({u"DAL4"_s, u"ZZ9"_s}));
        QCOMPARE(places.selection(), QList<int>({1, 1}));
        QCOMPARE(places.form(), coded(u"ZZ9"_s, albany));
        QCOMPARE(places.statuses.first(), u"Updated location: ZZ9"_s);
        QCOMPARE(stored(path).size(), 2);
    }

    void codeThatDiffersInItsCaseIsAnother()
    {
        Workspace workspace;
        const QString path = makeLocations(workspace, {albany});
        const LocationsWindow places(path);
        places.clicks(newButton);
        places.types("locationCodeField", u"alb1"_s);
        places.clicks(saveButton);
        QCOMPARE(stored(path).size(), 2);
        QCOMPARE(places.form(), coded(u"alb1"_s, nothing));
        QCOMPARE(places.mode(), u"Edit"_s);
    }

    void savedLocationIsSelectedWhereTheSortPutsIt()
    {
        Workspace workspace;
        const LocationsWindow places(makeLocations(workspace, {albany, dallas}));
        Person::clicksHeader(places.table(), 1);
        Person::clicksHeader(places.table(), 1);
        places.clicks(newButton);
        places.pastes(kansas);
        places.clicks(saveButton);
        QCOMPARE(column(places.table(), u"Name"_s),
                 QStringList({u"Yard"_s, u"Dock 1"_s, u"Cross dock"_s}));
        QCOMPARE(headers(places.table()).at(1), u"Name ▼"_s);
        QCOMPARE(places.selection(), QList<int>({2, 2}));
    }

    void textsAreTrimmedOnTheirWayIntoTheFile()
    {
        Workspace workspace;
        const QString path = makeLocations(workspace, {});
        LocationsWindow places(path);
        places.clicks(newButton);
        places.pastes({u" KC1 "_s, u" Cross dock "_s, u" 7 Elm Ave"_s, u"Kansas City "_s, u" MO"_s,
                       u"64101 "_s, u" 39.125 "_s, u" -94.5 "_s, u" Back in\n"_s});
        places.statuses.clear();
        places.clicks(saveButton);
        QCOMPARE(stored(path), QList<QStringList>({kansas}));
        QCOMPARE(places.statuses.first(), u"Saved location: KC1"_s);
        QCOMPARE(places.form(), kansas);
    }

    void degreeIsStoredAsItReads_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("shown");
        QTest::newRow("blank") << u""_s << u"null"_s << u""_s;
        QTest::newRow("blanks") << u"   "_s << u"null"_s << u""_s;
        QTest::newRow("degrees") << u"-0.5"_s << u"real"_s << u"-0.5"_s;
        QTest::newRow("words") << u"abc"_s << u"real"_s << u"0"_s;
        QTest::newRow("with its hemisphere") << u"42.65 N"_s << u"real"_s << u"0"_s;
        QTest::newRow("comma") << u"42,65"_s << u"real"_s << u"0"_s;
        QTest::newRow("exponent") << u"1e2"_s << u"real"_s << u"100"_s;
        QTest::newRow("beyond the globe") << u"400"_s << u"real"_s << u"400"_s;
    }

    void degreeIsStoredAsItReads()
    {
        QFETCH(const QString, typed);
        QFETCH(const QString, type);
        QFETCH(const QString, shown);
        Workspace workspace;
        const DialogRobot robot;
        const QString path = makeLocations(workspace, {});
        const LocationsWindow places(path);
        places.clicks(newButton);
        places.types("locationCodeField", u"KC1"_s);
        places.types("locationLatitudeField", typed);
        places.clicks(saveButton);
        QCOMPARE(TestConnection(path).value(u"SELECT typeof(lat) FROM locations"_s), type);
        QCOMPARE(column(places.table(), u"Lat"_s), QStringList({shown}));
        QCOMPARE(places.form().at(6), shown);
        QCOMPARE(robot.seen().size(), 0);
    }

    void textIsStoredAsItStands_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("quotes") << u"O'Neil's \"Dock\""_s;
        QTest::newRow("a statement") << u"'); DROP TABLE locations; --"_s;
        QTest::newRow("markup") << u"<b>Dock</b> &amp;"_s;
        QTest::newRow("placeholders") << u"%1 ? :name"_s;
        QTest::newRow("emoji") << u"\U0001F69B Pi\u00F1on"_s;
        QTest::newRow("ten thousand letters") << QString(10'000, u'n');
    }

    void textIsStoredAsItStands()
    {
        QFETCH(const QString, text);
        Workspace workspace;
        const QString path = makeLocations(workspace, {});
        LocationsWindow places(path);
        places.clicks(newButton);
        QStringList location(9, text);
        location[6] = location[7] = u""_s;
        places.pastes(location);
        places.statuses.clear();
        places.clicks(saveButton);
        QCOMPARE(stored(path), QList<QStringList>({location}));
        QCOMPARE(places.form(), location);
        QCOMPARE(places.selection(), QList<int>({0, 0}));
        QCOMPARE(places.statuses.first(), "Saved location: "_L1 + text);
    }

    void entryWithAKnownCodeOverwritesThatLocation()
    {
        Workspace workspace;
        const DialogRobot robot;
        const QString path = makeLocations(workspace, {albany, dallas});
        LocationsWindow places(path);
        places.clicks(newButton);
        places.types("locationCodeField", u"ALB1"_s);
        places.types("locationNameField", u"Gate 9"_s);
        places.statuses.clear();
        places.clicks(saveButton);
        QStringList overwritten = nothing;
        overwritten[0] = u"ALB1"_s;
        overwritten[1] = u"Gate 9"_s;
        QCOMPARE(stored(path), QList<QStringList>({overwritten, dallas}));
        QCOMPARE(places.statuses,
                 QStringList({u"Saved location: ALB1"_s, u"Loaded 2 locations"_s}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void renamingOntoAnotherLocationIsRefused()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeLocations(workspace, {albany, dallas});
        LocationsWindow places(path);
        places.edits(1);
        places.types("locationCodeField", u"ALB1"_s);
        places.statuses.clear();
        robot.expectContaining(DialogRobot::Critical, u"Save Error"_s,
                               u"UNIQUE constraint failed: locations.code"_s);
        places.clicks(saveButton);
        QCOMPARE(stored(path), QList<QStringList>({albany, dallas}));
        QCOMPARE(places.form(), coded(u"ALB1"_s, dallas));
        QCOMPARE(places.mode(), u"Save"_s);
        QCOMPARE(places.statuses, QStringList());
        // Which location is edited has not changed either.
        places.types("locationCodeField", u"DAL5"_s);
        places.clicks(saveButton);
        QCOMPARE(stored(path), QList<QStringList>({albany, coded(u"DAL5"_s, dallas)}));
    }

    void changeOfACodeStoredWithBlanksAroundItIsAddedBesideIt()
    {
        Workspace workspace;
        const QStringList padded = coded(u" ALB1 "_s, albany);
        const QString path = makeLocations(workspace, {padded});
        LocationsWindow places(path);
        places.edits(0);
        QCOMPARE(places.form(), padded);
        QCOMPARE(places.statuses, QStringList({u"Editing location: ALB1"_s}));
        places.types("locationNameField", u"Gate 9"_s);
        places.statuses.clear();
        places.clicks(saveButton);
        QStringList added = albany;
        added[1] = u"Gate 9"_s;
        QCOMPARE(stored(path), QList<QStringList>({padded, added}));
        QCOMPARE(places.statuses,
                 QStringList({u"Updated location: ALB1"_s, u"Loaded 2 locations"_s}));
        // The first row with this code, blanks apart, is the one that is shown.
        QCOMPARE(places.selection(), QList<int>({0, 0}));
        QCOMPARE(places.form(), padded);
    }

    void entryDoesNotOverwriteACodeStoredWithBlanksAroundIt()
    {
        Workspace workspace;
        const QStringList padded = coded(u" ALB1 "_s, albany);
        const QString path = makeLocations(workspace, {padded});
        const LocationsWindow places(path);
        places.clicks(newButton);
        places.types("locationCodeField", u"ALB1"_s);
        places.clicks(saveButton);
        QCOMPARE(stored(path), QList<QStringList>({padded, coded(u"ALB1"_s, nothing)}));
        QCOMPARE(places.form(), padded);
        QCOMPARE(places.mode(), u"Edit"_s);
    }

    void locationThatAnotherProgramDeletedComesBack()
    {
        Workspace workspace;
        const DialogRobot robot;
        const QString path = makeLocations(workspace, {albany, dallas});
        LocationsWindow places(path);
        places.edits(1);
        TestConnection(path).execute(u"DELETE FROM locations"_s);
        places.statuses.clear();
        places.clicks(saveButton);
        QCOMPARE(stored(path), QList<QStringList>({dallas}));
        QCOMPARE(places.statuses,
                 QStringList({u"Updated location: DAL4"_s, u"Loaded 1 locations"_s}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void entryNeedsACode_data()
    {
        QTest::addColumn<QString>("code");
        QTest::newRow("nothing") << u""_s;
        QTest::newRow("blanks") << u"  "_s;
    }

    void entryNeedsACode()
    {
        QFETCH(const QString, code);
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeLocations(workspace, {albany});
        LocationsWindow places(path);
        places.clicks(newButton);
        places.pastes(coded(code, kansas));
        places.statuses.clear();
        expectNoCode(robot);
        places.clicks(saveButton);
        QCOMPARE(places.form(), coded(code, kansas));
        QCOMPARE(places.mode(), u"Save"_s);
        QCOMPARE(places.statuses, QStringList());
        QCOMPARE(stored(path), QList<QStringList>({albany}));
    }

    void editNeedsACode()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeLocations(workspace, {albany});
        const LocationsWindow places(path);
        places.edits(0);
        places.types("locationCodeField", u""_s);
        expectNoCode(robot);
        places.clicks(saveButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(places.mode(), u"Save"_s);
        QCOMPARE(stored(path), QList<QStringList>({albany}));
    }

    void lockedLocationIsNotSaved()
    {
        Workspace workspace;
        DialogRobot robot;
        const LocationsWindow places(makeLocations(workspace, {albany}));
        places.clicksLocation(0);
        robot.expect(DialogRobot::Information, saveButton,
                     u"Click Edit Location before changing and saving an existing location."_s);
        places.asksFor("saveLocationButton");
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(places.mode(), u"Edit"_s);
        QCOMPARE(places.statuses, QStringList());
    }

    void saveWithNothingSelectedStartsAnEntry()
    {
        Workspace workspace;
        DialogRobot robot;
        const LocationsWindow places(makeLocations(workspace, {albany}));
        expectNoCode(robot);
        places.asksFor("saveLocationButton");
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(places.mode(), u"Save"_s);
        QCOMPARE(places.statuses, QStringList());
    }
};

TEST_CLASS(tst_LocationsPageSaving)
#include "tst_LocationsPageSaving.moc"
