#include "data/SqlStatement.h"
#include "support/DialogRobot.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "trips/TripsPage.h"
#include "trips/TripsRows.h"
#include "trips/TripsWindow.h"

#include <QSqlDatabase>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString deleteButton = u"Delete Trip"_s;
const QString failureTitle = u"Delete Trip Failed"_s;

const QStringList tablesOfATrip = {u"trips"_s,          u"trip_stops"_s,
                                   u"trip_pay_items"_s, u"trip_cost_items"_s,
                                   u"trip_trailers"_s,  u"trip_detail_items"_s};

/// A trip with a row or two in every table.
void insertWholeTrip(const Workspace &workspace, const QString &tripNo)
{
    const qint64 id = insertWorkedTrip(workspace, tripNo);
    workspace.execute(u"INSERT INTO trip_trailers (trip_id) VALUES (?)"_s, {id});
    fuel(id, u"Truck Fuel"_s, 320.0, 20.0, 80.0).insert(workspace);
}

DialogRobot::Expectation expectFirstQuestion(DialogRobot &robot, const QString &tripName)
{
    return robot.expect(DialogRobot::Question, u"Confirm Delete Trip"_s,
                        u"Delete "_s + tripName
                            + u"?\n\nThis will also delete related stops, pay items, cost items, "
                              "fuel/detail rows, and trailers.\n\nContinue?"_s);
}

DialogRobot::Expectation expectLastQuestion(DialogRobot &robot, const QString &tripName)
{
    return robot.expect(DialogRobot::Question, u"Final Delete Confirmation"_s,
                        u"Final check:\n\nDelete "_s + tripName
                            + u" permanently?\n\nThis cannot be undone from inside the app."_s);
}

void expectYesTwice(DialogRobot &robot, const QString &tripName)
{
    expectFirstQuestion(robot, tripName).press(u"Yes"_s);
    expectLastQuestion(robot, tripName).press(u"Yes"_s);
}

/// How many rows each of the trip's tables has.
QList<int> rowCounts(const Workspace &workspace)
{
    QList<int> counts;
    for (const QString &table : tablesOfATrip)
        counts.append(workspace.value(u"SELECT COUNT(*) FROM "_s + table).toInt());
    return counts;
}

const QList<int> rowsOfOneTrip = {1, 2, 1, 1, 1, 1};
const QList<int> rowsOfTwoTrips = {2, 4, 2, 2, 2, 2};

} // namespace

class tst_TripsPageDeleting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tripGoesWithItsRowsAfterTwoQuestions()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeTwoTrips(workspace);
        const TripsWindow trips(path);
        trips.clicksTrip(1);
        expectYesTwice(robot, u"Trip 1 (ID 1)"_s);
        trips.clicks(deleteButton);
        QCOMPARE(rowCounts(workspace), rowsOfOneTrip);
        QCOMPARE(workspace.value(u"SELECT id FROM trips"_s).toInt(), 2);
        QCOMPARE(workspace.value(u"SELECT DISTINCT trip_id FROM trip_stops"_s).toInt(), 2);
        QCOMPARE(column(trips.list(), u"Trip #"_s), QStringList({u"2"_s}));
        QCOMPARE(trips.form(), emptyForm());
        QCOMPARE(trips.details(), u""_s);
        QCOMPARE(trips.window.windowTitle(), u"Brindlepath Desk - Trips"_s);
        QCOMPARE(trips.statuses, QStringList({u"New Trip mode."_s, u"Loaded 1 trips"_s,
                                              u"Deleted Trip 1 (ID 1)."_s}));
    }

    void bothQuestionsOfferNoFirst()
    {
        Workspace workspace;
        DialogRobot robot;
        const TripsWindow trips(makeTwoTrips(workspace));
        trips.clicksTrip(1);
        expectYesTwice(robot, u"Trip 1 (ID 1)"_s);
        trips.clicks(deleteButton);
        QCOMPARE(robot.seen().size(), 2);
        for (const DialogRobot::Seen &question : robot.seen()) {
            QCOMPARE(question.defaultButton, u"No"_s);
            QCOMPARE(question.buttons.size(), 2);
            QVERIFY(question.buttons.contains(u"Yes"_s));
        }
    }

    void noToTheFirstQuestionEndsIt_data() { waysToSayNo(); }

    void noToTheFirstQuestionEndsIt()
    {
        Workspace workspace;
        DialogRobot robot;
        const TripsWindow trips(makeTwoTrips(workspace));
        trips.clicksTrip(1);
        const QStringList loaded = trips.form();
        QFETCH(const bool, byEscape);
        saysNo(expectFirstQuestion(robot, u"Trip 1 (ID 1)"_s), byEscape);
        trips.clicks(deleteButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(rowCounts(workspace), rowsOfTwoTrips);
        QCOMPARE(trips.form(), loaded);
        QCOMPARE(trips.statuses, QStringList());
    }

    void noToTheLastQuestionDeletesNothing_data() { waysToSayNo(); }

    void noToTheLastQuestionDeletesNothing()
    {
        Workspace workspace;
        DialogRobot robot;
        const TripsWindow trips(makeTwoTrips(workspace));
        trips.clicksTrip(1);
        const QStringList loaded = trips.form();
        QFETCH(const bool, byEscape);
        expectFirstQuestion(robot, u"Trip 1 (ID 1)"_s).press(u"Yes"_s);
        saysNo(expectLastQuestion(robot, u"Trip 1 (ID 1)"_s), byEscape);
        trips.clicks(deleteButton);
        QCOMPARE(robot.seen().size(), 2);
        QCOMPARE(rowCounts(workspace), rowsOfTwoTrips);
        QCOMPARE(trips.form(), loaded);
        QCOMPARE(trips.statuses, QStringList());
    }

    void questionsNameTheTripAsTheFormDoes_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("tripName");
        QTest::newRow("trimmed") << u"  4471203  "_s << u"Trip 4471203 (ID 1)"_s;
        QTest::newRow("no number") << u""_s << u"Trip ID 1"_s;
        QTest::newRow("blank number") << u"   "_s << u"Trip ID 1"_s;
        QTest::newRow("percent signs") << u"100%1 %2"_s << u"Trip 100%1 %2 (ID 1)"_s;
    }

    void questionsNameTheTripAsTheFormDoes()
    {
        Workspace workspace;
        DialogRobot robot;
        const TripsWindow trips(makeTwoTrips(workspace));
        trips.clicksTrip(1);
        QFETCH(const QString, typed);
        QFETCH(const QString, tripName);
        trips.types("tripNoField", typed);
        expectYesTwice(robot, tripName);
        trips.clicks(deleteButton);
        QCOMPARE(rowCounts(workspace), rowsOfOneTrip);
        QCOMPARE(trips.statuses.last(), u"Deleted %1."_s.arg(tripName));
    }

    void rowsOfOtherGroupsSurviveTheirTrip()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertWholeTrip(workspace, u"1"_s);
        fuel(1, u"Toll"_s, 5.0, 0.0, 0.0).set(u"group_name"_s, u"toll"_s).insert(workspace);
        const TripsWindow trips(path);
        trips.clicksTrip(0);
        expectYesTwice(robot, u"Trip 1 (ID 1)"_s);
        trips.clicks(deleteButton);
        QCOMPARE(workspace.rows(u"SELECT trip_id, group_name FROM trip_detail_items"_s),
                 QList<QStringList>({{u"1"_s, u"toll"_s}}));
        QCOMPARE(trips.list()->rowCount(), 0);
    }

    void payweekWithoutTripsLeavesTheFilter()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertWholeTrip(workspace, u"1"_s);
        insertWorkedTrip(workspace, u"2"_s, u"04/25/2026"_s);
        const TripsWindow trips(path);
        Person::chooses(trips.filter(), u"04/18/2026"_s);
        trips.clicksTrip(0);
        expectYesTwice(robot, u"Trip 1 (ID 1)"_s);
        trips.clicks(deleteButton);
        QCOMPARE(trips.filter()->count(), 2);
        QCOMPARE(trips.filter()->currentText(), u"All Payweeks"_s);
        QCOMPARE(column(trips.list(), u"Trip #"_s), QStringList({u"2"_s}));
    }

    void fileWithoutTrailersRollsBack()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeTwoTrips(workspace);
        workspace.execute(u"DROP TABLE trip_trailers"_s);
        const QByteArray before = workspace.bytes(u"trips.db"_s);
        const TripsWindow trips(path);
        trips.clicksTrip(1);
        const QStringList loaded = trips.form();
        expectYesTwice(robot, u"Trip 1 (ID 1)"_s);
        robot.expect(DialogRobot::Critical, failureTitle,
                     u"Could not delete trailers:\nno such table: trip_trailers Unable to execute "
                     "statement"_s);
        trips.clicks(deleteButton);
        QCOMPARE(robot.seen().size(), 3);
        QCOMPARE(workspace.bytes(u"trips.db"_s), before);
        QCOMPARE(trips.form(), loaded);
        QCOMPARE(trips.list()->rowCount(), 2);
        QCOMPARE(trips.statuses, QStringList());
    }

    void fileWithoutTrailersTakesAndChangesTrips()
    {
        Workspace workspace;
        const QString path = makeTwoTrips(workspace);
        workspace.execute(u"DROP TABLE trip_trailers"_s);
        const TripsWindow trips(path);
        trips.clicksTrip(1);
        trips.types("emptyMilesField", u"150"_s);
        trips.clicks(u"Save Trip / Changes"_s);
        trips.clicks(u"New Trip"_s);
        trips.types("tripNoField", u"3"_s);
        trips.types("payweekField", u"04/25/2026"_s);
        trips.clicks(u"Save Trip / Changes"_s);
        QCOMPARE(workspace.value(u"SELECT empty_miles FROM trips WHERE id = 1"_s), 150.0);
        QCOMPARE(column(trips.list(), u"Trip #"_s), QStringList({u"3"_s, u"2"_s, u"1"_s}));
    }

    void pageCanBeUsedAfterADeleteThatFailed()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeTwoTrips(workspace);
        workspace.execute(u"DROP TABLE trip_trailers"_s);
        const TripsWindow trips(path);
        trips.clicksTrip(1);
        expectYesTwice(robot, u"Trip 1 (ID 1)"_s);
        robot.expectContaining(DialogRobot::Critical, failureTitle, u"Could not delete trailers"_s);
        trips.clicks(deleteButton);
        trips.types("tripNoField", u"4471203"_s);
        trips.clicks(u"Save Trip / Changes"_s);
        QCOMPARE(workspace.rows(u"SELECT trip_no FROM trips ORDER BY id"_s),
                 QList<QStringList>({{u"4471203"_s}, {u"2"_s}}));
    }

    void transactionThatCannotBeginDeletesNothing()
    {
        Workspace workspace;
        DialogRobot robot;
        const TripsWindow trips(makeTwoTrips(workspace));
        trips.clicksTrip(1);
        // SQLite has no transaction within another.
        QSqlDatabase connection = QSqlDatabase::database(u"trips_connection"_s, false);
        QVERIFY(connection.transaction());
        expectYesTwice(robot, u"Trip 1 (ID 1)"_s);
        robot.expectContaining(DialogRobot::Critical, failureTitle,
                               u"cannot start a transaction within a transaction"_s);
        trips.clicks(deleteButton);
        QVERIFY(connection.rollback());
        QCOMPARE(rowCounts(workspace), rowsOfTwoTrips);
        QCOMPARE(trips.statuses, QStringList());
    }

    void transactionThatCannotBeCommittedRollsBack()
    {
        Workspace workspace;
        DialogRobot robot;
        const TripsWindow trips(makeTwoTrips(workspace));
        trips.clicksTrip(1);
        // A deferred key is checked only by the commit.
        workspace.execute(u"CREATE TABLE claims (trip_id INTEGER REFERENCES trips(id) "
                          "DEFERRABLE INITIALLY DEFERRED)"_s);
        workspace.execute(u"INSERT INTO claims VALUES (1)"_s);
        QString error;
        QVERIFY(runSql(QSqlDatabase::database(u"trips_connection"_s, false),
                       u"PRAGMA foreign_keys = ON"_s, {}, error));
        expectYesTwice(robot, u"Trip 1 (ID 1)"_s);
        robot.expectContaining(DialogRobot::Critical, failureTitle,
                               u"FOREIGN KEY constraint failed"_s);
        trips.clicks(deleteButton);
        QCOMPARE(rowCounts(workspace), rowsOfTwoTrips);
        QCOMPARE(trips.form().first(2), QStringList({u"1"_s, u"1"_s}));
        QCOMPARE(trips.statuses, QStringList());
    }

    void tripDeletedElsewhereIsTold()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertWholeTrip(workspace, u"4471203"_s);
        const TripsWindow trips(path);
        trips.clicksTrip(0);
        workspace.execute(u"DELETE FROM trips"_s);
        const QList<int> before = rowCounts(workspace);
        expectYesTwice(robot, u"Trip 4471203 (ID 1)"_s);
        robot.expect(DialogRobot::Critical, failureTitle,
                     u"Could not delete trip:\nNo trip was deleted. It may have already been "
                     "deleted."_s);
        trips.clicks(deleteButton);
        QCOMPARE(rowCounts(workspace), before);
        QCOMPARE(trips.form().first(), u"1"_s);
    }

    void newTripCannotBeDeleted()
    {
        Workspace workspace;
        DialogRobot robot;
        const TripsWindow trips(makeTwoTrips(workspace));
        trips.types("tripNoField", u"1"_s);
        robot.expect(DialogRobot::Information, u"Delete Trip"_s,
                     u"Load an existing trip before deleting."_s);
        trips.clicks(deleteButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(rowCounts(workspace), rowsOfTwoTrips);
        QCOMPARE(trips.form().at(1), u"1"_s);
        QCOMPARE(trips.statuses, QStringList());
    }

    void deleteWithoutADatabaseAsksForOne()
    {
        const Workspace workspace;
        DialogRobot robot;
        const TripsWindow trips;
        robot.expect(DialogRobot::Warning, u"No Database"_s, u"Open trips.db first."_s);
        trips.clicks(deleteButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(trips.statuses, QStringList());
    }

private:
    static QString makeTwoTrips(Workspace &workspace)
    {
        const QString path = workspace.makeTrips();
        insertWholeTrip(workspace, u"1"_s);
        insertWholeTrip(workspace, u"2"_s);
        return path;
    }

    static void waysToSayNo()
    {
        QTest::addColumn<bool>("byEscape");
        QTest::newRow("by the button") << false;
        QTest::newRow("by Escape") << true;
    }

    static void saysNo(DialogRobot::Expectation question, bool byEscape)
    {
        if (byEscape)
            question.dismiss();
        else
            question.press(u"No"_s);
    }
};

TEST_CLASS(tst_TripsPageDeleting)
#include "tst_TripsPageDeleting.moc"
