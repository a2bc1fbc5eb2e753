#include "support/TestConnection.h"
#include "support/TestProgram.h"
#include "trips/TripsRows.h"
#include "trips/TripsWindow.h"

using namespace Qt::StringLiterals;

namespace {

const QString saveTripButton = u"Save Trip / Changes"_s;
const QString notRead =
    u"Rows of this trip could not be read from the file, and saving would delete them there. "
    "Nothing was saved.\n\nLoad the trip again before you save."_s;

/// A table that cannot be read while its grid is filled, for lack of a column, and can after that.
struct UnreadTable
{
    const char *table;
    const char *column;
    const char *loadFailed;
    const char *saveButton;
    const char *saveFailed;
    const char *saved;
};

constexpr UnreadTable stops = {"trip_stops", "location_code",     "Load Stops Failed",
                               "Save Stops", "Save Stops Failed", "Saved stops for current trip."};
constexpr UnreadTable payItems = {"trip_pay_items",        "amount",
                                  "Load Pay Items Failed", "Save Pay Items",
                                  "Save Pay Items Failed", "Saved pay items for current trip."};
constexpr UnreadTable costItems = {"trip_cost_items",        "amount",
                                   "Load Cost Items Failed", "Save Cost Items",
                                   "Save Cost Items Failed", "Saved cost items for current trip."};
constexpr UnreadTable fuelRows = {"trip_detail_items",        "gallons",
                                  "Load Fuel Details Failed", "Save Fuel Rows",
                                  "Save Fuel Details Failed", nullptr};

QString text(const char *latin)
{
    return QLatin1StringView(latin);
}

/// The trip in the form, with one of its tables out of reach while its grids were filled.
class HalfReadTrip
{
public:
    explicit HalfReadTrip(const UnreadTable &unreadTable)
        : unread(unreadTable)
        , path(workspace.makeTrips())
        , id(insertFullTrip(workspace))
        , trips(path)
    {
        before = stored();
        const QString rename = u"ALTER TABLE %1 RENAME COLUMN %2 TO %3"_s;
        const QString table = text(unread.table);
        const QString column = text(unread.column);
        workspace.execute(rename.arg(table, column, u"away"_s));
        robot.expectContaining(DialogRobot::Critical, text(unread.loadFailed), column);
        trips.page->openTripById(static_cast<int>(id));
        workspace.execute(rename.arg(table, u"away"_s, column));
        trips.statuses.clear();
    }

    void expectRefusal(const QString &title)
    {
        robot.expect(DialogRobot::Critical, title, notRead);
    }

    [[nodiscard]] QList<QStringList> stored() const
    {
        QList<QStringList> rows;
        for (const QString &table : {u"trips"_s, u"trip_stops"_s, u"trip_pay_items"_s,
                                     u"trip_cost_items"_s, u"trip_detail_items"_s})
            rows += workspace.rows(u"SELECT '%1', * FROM %1"_s.arg(table));
        return rows;
    }

    const UnreadTable &unread;
    Workspace workspace;
    DialogRobot robot;
    QString path;
    qint64 id;
    TripsWindow trips;
    QList<QStringList> before;
};

} // namespace

Q_DECLARE_METATYPE(const UnreadTable *)

/// Rows that were never read stay in the file, whichever button is pressed.
class tst_StoredRowsGuard : public QObject
{
    Q_OBJECT

    static void addTables()
    {
        QTest::addColumn<const UnreadTable *>("table");
        QTest::newRow("stops") << &stops;
        QTest::newRow("pay items") << &payItems;
        QTest::newRow("cost items") << &costItems;
        QTest::newRow("fuel") << &fuelRows;
    }

private Q_SLOTS:
    void ownSaveButtonRefuses_data() { addTables(); }
    void ownSaveButtonRefuses()
    {
        QFETCH(const UnreadTable *, table);
        HalfReadTrip trip(*table);
        if (table == &fuelRows)
            trip.trips.clicks(u"Edit Fuel Rows"_s);
        trip.expectRefusal(text(table->saveFailed));
        trip.trips.clicks(text(table->saveButton));
        QCOMPARE(trip.robot.seen().size(), 2);
        QCOMPARE(trip.stored(), trip.before);
        QCOMPARE(trip.trips.statuses,
                 table->saved ? QStringList({text(table->saved)}) : QStringList());
    }

    void saveOfTheTripRefusesBeforeItsFirstWrite_data() { addTables(); }
    void saveOfTheTripRefusesBeforeItsFirstWrite()
    {
        QFETCH(const UnreadTable *, table);
        HalfReadTrip trip(*table);
        trip.trips.types("tripNoField", u"changed"_s);
        trip.expectRefusal(u"Update Trip Failed"_s);
        trip.trips.clicks(saveTripButton);
        QCOMPARE(trip.robot.seen().size(), 2);
        QCOMPARE(trip.stored(), trip.before);
        QCOMPARE(trip.trips.statuses, QStringList());
        QCOMPARE(trip.trips.line("tripNoField")->text(), u"changed"_s);
    }

    void fuelIsNotSavedWithoutTheCostsItWouldReplace()
    {
        HalfReadTrip trip(costItems);
        trip.trips.clicks(u"Edit Fuel Rows"_s);
        trip.expectRefusal(u"Save Fuel Details Failed"_s);
        trip.trips.clicks(u"Save Fuel Rows"_s);
        QCOMPARE(trip.stored(), trip.before);
    }

    void otherRowsOfTheTripAreSavedByTheirOwnButtons()
    {
        HalfReadTrip trip(stops);
        trip.trips.clicks(u"Save Pay Items"_s);
        QCOMPARE(trip.robot.seen().size(), 1);
        QCOMPARE(trip.workspace.rows(u"SELECT name FROM trip_pay_items"_s),
                 QList<QStringList>({{u"Layover"_s}}));
    }

    void tripLoadedAgainIsSaved_data() { addTables(); }
    void tripLoadedAgainIsSaved()
    {
        QFETCH(const UnreadTable *, table);
        HalfReadTrip trip(*table);
        trip.trips.clicksTrip(0);
        trip.trips.clicks(saveTripButton);
        QCOMPARE(trip.robot.seen().size(), 1);
        QCOMPARE(trip.trips.statuses.first(), u"Updated trip: 4471203"_s);
        QCOMPARE(trip.trips.rowCounts(), QList<int>({2, 1, 2, 1}));
    }

    void newTripIsSaved()
    {
        HalfReadTrip trip(stops);
        trip.trips.clicks(u"New Trip"_s);
        trip.trips.types("tripNoField", u"4471204"_s);
        trip.trips.types("payweekField", u"04/18/2026"_s);
        trip.trips.clicks(saveTripButton);
        QCOMPARE(trip.workspace.value(u"SELECT COUNT(*) FROM trips"_s).toInt(), 2);
    }

    // The road on which it was found: another program holds the file for a moment.
    void rowsOfALockedFileAreNotDeletedOnceItIsFree()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertFullTrip(workspace);
        const TripsWindow trips(path);
        QSqlDatabase page = QSqlDatabase::database(u"trips_connection"_s, false);
        QString error;
        QVERIFY(runSql(page, u"PRAGMA busy_timeout = 0"_s, {}, error)); // spares half a minute
        {
            const TestConnection other(path);
            other.execute(u"BEGIN EXCLUSIVE"_s);
            const QStringList titles = {
                u"Trip Stop Setup Error"_s,   u"Load Stops Failed"_s,
                u"Load Pay Items Failed"_s,   u"Load Cost Items Failed"_s,
                u"Trip Detail Setup Error"_s, u"Load Fuel Details Failed"_s};
            // The row loads as it is selected, and once more as it is clicked.
            for (const QString &title : titles + titles)
                robot.expectContaining(DialogRobot::Critical, title, u"database is locked"_s);
            trips.clicksTrip(0);
        }
        robot.expect(DialogRobot::Critical, u"Update Trip Failed"_s, notRead);
        trips.clicks(saveTripButton);
        QCOMPARE(workspace.value(u"SELECT COUNT(*) FROM trip_stops"_s).toInt(), 2);
        QCOMPARE(workspace.value(u"SELECT COUNT(*) FROM trip_detail_items"_s).toInt(), 1);
    }

    void rowsOfATripDeletedElsewhereAreNotWritten_data() { addTables(); }
    void rowsOfATripDeletedElsewhereAreNotWritten()
    {
        QFETCH(const UnreadTable *, table);
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertFullTrip(workspace);
        const TripsWindow trips(path);
        trips.clicksTrip(0);
        for (const QString &deleted : {u"trips"_s, u"trip_stops"_s, u"trip_pay_items"_s,
                                       u"trip_cost_items"_s, u"trip_detail_items"_s})
            workspace.execute(u"DELETE FROM "_s + deleted);
        const QString gone = u"The trip is not in the file. It may have already been deleted."_s;
        if (table == &fuelRows) {
            trips.clicks(u"Edit Fuel Rows"_s);
            robot.expect(DialogRobot::Critical, u"Save Cost Items Failed"_s, gone);
        }
        robot.expect(DialogRobot::Critical, text(table->saveFailed), gone);
        trips.clicks(text(table->saveButton));
        QCOMPARE(workspace.value(u"SELECT COUNT(*) FROM "_s + text(table->table)).toInt(), 0);
    }
};

TEST_CLASS(tst_StoredRowsGuard)
#include "tst_StoredRowsGuard.moc"
