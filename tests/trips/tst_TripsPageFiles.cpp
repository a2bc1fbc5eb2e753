#include "support/OtherBusiness.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "trips/TripsRows.h"
#include "trips/TripsWindow.h"

using namespace Qt::StringLiterals;

namespace {

const QString saveButton = u"Save Trip / Changes"_s;

/// The page on a file with a whole trip, and another file to open.
struct TwoFiles
{
    Workspace workspace;
    DialogRobot robot;
    QString other = makeOtherBusiness(workspace);
    QString path = workspace.makeTrips();
    qint64 id = insertFullTrip(workspace);
    TripsWindow trips{path};
};

} // namespace

/// Two files one after the other: what was in hand under one never reaches the other.
class tst_TripsPageFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anotherFileBeginsANewTrip()
    {
        TwoFiles files;
        files.trips.clicksTrip(0);
        QVERIFY(!files.trips.isEmpty());
        files.trips.page->openDatabase(files.other);
        QVERIFY(files.trips.isEmpty());
        QCOMPARE(files.trips.window.windowTitle(), u"Brindlepath Desk - Trips"_s);
        QCOMPARE(column(files.trips.list(), u"Trip #"_s), QStringList({u"5500001"_s}));
        QCOMPARE(files.trips.statuses.last(), u"Opened trips DB: "_s + files.other);
    }

    void loadedTripIsNotSavedOverThatOfAnotherFile()
    {
        TwoFiles files;
        const QByteArray before = files.workspace.bytes(u"other.db"_s);
        files.trips.clicksTrip(0);
        files.trips.page->openDatabase(files.other);
        files.robot.expect(DialogRobot::Warning, u"Missing Trip #"_s, u"Trip # is required."_s);
        files.trips.clicks(saveButton);
        QCOMPARE(files.workspace.bytes(u"other.db"_s), before);
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
        TwoFiles files;
        files.trips.clicksTrip(0);
        files.trips.losesItsFile(files.robot);
        QVERIFY(files.trips.isEmpty());
    }

    void rowClickedWithNoFileOpenIsLeftForTheNextFile()
    {
        TwoFiles files;
        files.trips.losesItsFile(files.robot);
        files.trips.clicksTrip(0); // the list is still that of the file before
        QCOMPARE(files.trips.form().first(), u"1"_s);
        files.trips.page->openDatabase(files.other);
        QVERIFY(files.trips.isEmpty());
    }

    void fileThatCannotBeListedLeavesNoTripOfTheOneBefore()
    {
        TwoFiles files;
        const TestConnection file(files.other);
        file.execute(u"ALTER TABLE trips RENAME COLUMN fusu TO away"_s);
        files.robot.expectContaining(DialogRobot::Critical, u"Query Error"_s, u"fusu"_s);
        files.trips.page->openDatabase(files.other);
        QCOMPARE(files.trips.list()->rowCount(), 0);
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
        TwoFiles files;
        QVERIFY(
            files.trips.page->openTripOfFile(1, u"trips.db"_s)); // by another way to the same file
        QCOMPARE(files.trips.form().first(), u"1"_s);
    }

    void tripOfAnotherFileIsNotOpened()
    {
        TwoFiles files;
        QVERIFY(!files.trips.page->openTripOfFile(1, files.other));
        QVERIFY(!files.trips.page->openTripOfFile(1, {}));
        QVERIFY(files.trips.isEmpty());
        QCOMPARE(files.trips.statuses, QStringList());
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
