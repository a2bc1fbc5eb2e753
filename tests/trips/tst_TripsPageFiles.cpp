#include "support/OtherBusiness.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "trips/TripsRows.h"
#include "trips/TripsWindow.h"

using namespace Qt::StringLiterals;

namespace {

const QString saveButton = u"Save Trip / Changes"_s;

} // namespace

/// Two files one after the other: what was in hand under one never reaches the other.
class tst_TripsPageFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anotherFileBeginsANewTrip()
    {
        Workspace workspace;
        const QString other = makeOtherBusiness(workspace);
        const QString path = workspace.makeTrips();
        insertFullTrip(workspace);
        const TripsWindow trips(path);
        trips.clicksTrip(0);
        QVERIFY(!trips.isEmpty());
        trips.page->openDatabase(other);
        QVERIFY(trips.isEmpty());
        QCOMPARE(trips.window.windowTitle(), u"Brindlepath Desk - Trips"_s);
        QCOMPARE(column(trips.list(), u"Trip #"_s), QStringList({u"5500001"_s}));
        QCOMPARE(trips.statuses.last(), u"Opened trips DB: "_s + other);
    }

    void loadedTripIsNotSavedOverThatOfAnotherFile()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString other = makeOtherBusiness(workspace);
        const QString path = workspace.makeTrips();
        insertFullTrip(workspace);
        const QByteArray before = workspace.bytes(u"other.db"_s);
        const TripsWindow trips(path);
        trips.clicksTrip(0);
        trips.page->openDatabase(other);
        robot.expect(DialogRobot::Warning, u"Missing Trip #"_s, u"Trip # is required."_s);
        trips.clicks(saveButton);
        QCOMPARE(workspace.bytes(u"other.db"_s), before);
    }

    void newTripIsNotSavedIntoAnotherFile()
    {
        Workspace workspace;
        const QString other = makeOtherBusiness(workspace);
        const TripsWindow trips(workspace.makeTrips());
        trips.types("tripNoField", u"4471203"_s);
        trips.clicks(u"Add Stop Row"_s);
        trips.page->openDatabase(other);
        QVERIFY(trips.isEmpty());
    }

    void fileThatDoesNotOpenBeginsANewTripToo()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertFullTrip(workspace);
        const TripsWindow trips(path);
        trips.clicksTrip(0);
        trips.losesItsFile(robot);
        QVERIFY(trips.isEmpty());
    }

    void rowClickedWithNoFileOpenIsLeftForTheNextFile()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString other = makeOtherBusiness(workspace);
        const QString path = workspace.makeTrips();
        insertFullTrip(workspace);
        const TripsWindow trips(path);
        trips.losesItsFile(robot);
        trips.clicksTrip(0); // the list is still that of the file before
        QCOMPARE(trips.form().first(), u"1"_s);
        trips.page->openDatabase(other);
        QVERIFY(trips.isEmpty());
    }

    void fileThatCannotBeListedLeavesNoTripOfTheOneBefore()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString other = makeOtherBusiness(workspace);
        const QString path = workspace.makeTrips();
        insertFullTrip(workspace);
        const TripsWindow trips(path);
        const TestConnection file(other);
        file.execute(u"ALTER TABLE trips RENAME COLUMN fusu TO away"_s);
        robot.expectContaining(DialogRobot::Critical, u"Query Error"_s, u"fusu"_s);
        trips.page->openDatabase(other);
        QCOMPARE(trips.list()->rowCount(), 0);
    }

    void tripTypedBeforeAnyFileIsOpenWaitsForIt()
    {
        Workspace workspace;
        DialogRobot robot;
        const TripsWindow trips;
        trips.losesItsFile(robot); // none was open, and none is
        trips.types("tripNoField", u"4471203"_s);
        trips.page->openDatabase(workspace.makeTrips());
        QCOMPARE(trips.line("tripNoField")->text(), u"4471203"_s);
    }

    void tripOfTheFileThatIsOpenIsOpened()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertFullTrip(workspace);
        const TripsWindow trips(path);
        QVERIFY(trips.page->openTripOfFile(1, u"trips.db"_s)); // by another way to the same file
        QCOMPARE(trips.form().first(), u"1"_s);
    }

    void tripOfAnotherFileIsNotOpened()
    {
        Workspace workspace;
        const QString other = makeOtherBusiness(workspace);
        const QString path = workspace.makeTrips();
        insertFullTrip(workspace);
        const TripsWindow trips(path);
        QVERIFY(!trips.page->openTripOfFile(1, other));
        QVERIFY(!trips.page->openTripOfFile(1, {}));
        QVERIFY(trips.isEmpty());
        QCOMPARE(trips.statuses, QStringList());
    }

    void tripOfTheFileFoundNearbyIsOpenedWhereNoneWas()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertFullTrip(workspace);
        const TripsWindow trips;
        QVERIFY(trips.page->openTripOfFile(1, path));
        QCOMPARE(trips.form().first(), u"1"_s);
    }
};

TEST_CLASS(tst_TripsPageFiles)
#include "tst_TripsPageFiles.moc"
