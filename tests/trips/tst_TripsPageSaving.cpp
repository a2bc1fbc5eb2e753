#include "support/DialogRobot.h"
#include "support/TableReaders.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"
#include "trips/TripsPage.h"
#include "trips/TripsRows.h"
#include "trips/TripsWindow.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString saveButton = u"Save Trip / Changes"_s;

/// All that a save writes.
const QString selectSaved = u"SELECT trip_no, payweek, empty_miles, loaded_miles, total_miles, "
                            "linehaul, fusu, carrier_pct, carrier_make, total_revenue, total_cost, "
                            "net_revenue, cpm, trip_hours, net_per_hour FROM trips ORDER BY id"_s;

/// What a save writes of a worked trip.
const QStringList workedRow = {u"4471203"_s, u"04/18/2026"_s, u"100"_s,    u"500"_s, u"600"_s,
                               u"1000"_s,    u"200"_s,        u"25"_s,     u"250"_s, u"1250"_s,
                               u"300"_s,     u"950"_s,        u"158.33"_s, u"13"_s,  u"73.08"_s};

void entersTrip(const TripsWindow &trips, const QString &tripNo, const QString &payweek)
{
    trips.types("tripNoField", tripNo);
    trips.types("payweekField", payweek);
    trips.types("emptyMilesField", u"100"_s);
    trips.types("loadedMilesField", u"1,234.50"_s);
    trips.types("linehaulField", u"$2,345.67"_s);
    trips.types("fusuField", u"210.4"_s);
    trips.types("carrierPercentField", u"25"_s);
}

} // namespace

/// A new trip and changes to an old one, down to the columns of the file.
class tst_TripsPageSaving : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newTripIsWrittenToTheCent()
    {
        Workspace workspace;
        const TripsWindow trips(workspace.makeTrips());
        entersTrip(trips, u" 4471203 "_s, u" 04/18/2026 "_s);
        trips.clicks(saveButton);
        QCOMPARE(
            workspace.rows(selectSaved),
            QList<QStringList>({{u"4471203"_s, u"04/18/2026"_s, u"100"_s, u"1234.5"_s, u"1334.5"_s,
                                 u"2345.67"_s, u"210.4"_s, u"25"_s, u"586.42"_s, u"2556.07"_s,
                                 u"0"_s, u"2556.07"_s, u"191.54"_s, u"0"_s, u"0"_s}}));
        QCOMPARE(workspace.value(u"SELECT LENGTH(created_at) FROM trips"_s).toInt(), 19);
    }

    void newTripIsThenTheLoadedOne()
    {
        Workspace workspace;
        const TripsWindow trips(workspace.makeTrips());
        entersTrip(trips, u"4471203"_s, u"04/18/2026"_s);
        trips.clicks(saveButton);
        QCOMPARE(trips.form(),
                 QStringList({u"1"_s, u"4471203"_s, u"04/18/2026"_s, u"100"_s, u"1,234.50"_s,
                              u"$2,345.67"_s, u"210.4"_s, u"25"_s, u"0.00"_s, u"$0.00"_s}));
        QCOMPARE(trips.statuses,
                 QStringList({u"Inserted new trip: 4471203"_s, u"Loaded 1 trips"_s}));
        trips.clicks(saveButton);
        QCOMPARE(trips.statuses.mid(2),
                 QStringList({u"Updated trip: 4471203"_s, u"Loaded 1 trips"_s}));
        QCOMPARE(workspace.value(u"SELECT COUNT(*) FROM trips"_s).toInt(), 1);
    }

    void newTripStandsInTheListAndItsPayweekInTheFilter()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertWorkedTrip(workspace, u"1"_s, u"04/11/2026"_s);
        const TripsWindow trips(path);
        entersTrip(trips, u"2"_s, u"04/18/2026"_s);
        trips.clicks(saveButton);
        QCOMPARE(column(trips.list(), u"Trip #"_s), QStringList({u"2"_s, u"1"_s}));
        QCOMPARE(column(trips.list(), u"Net Revenue"_s),
                 QStringList({u"$2556.07"_s, u"$950.00"_s}));
        QCOMPARE(trips.filter()->itemText(1), u"04/18/2026"_s);
        QCOMPARE(trips.list()->currentRow(), -1);
        QCOMPARE(trips.list()->selectedItems().size(), 0);
    }

    void tripOfAnotherPayweekIsSavedThoughTheFilterHidesIt()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertWorkedTrip(workspace, u"1"_s, u"04/11/2026"_s);
        const TripsWindow trips(path);
        Person::chooses(trips.filter(), u"04/11/2026"_s);
        entersTrip(trips, u"2"_s, u"04/18/2026"_s);
        trips.clicks(saveButton);
        QCOMPARE(column(trips.list(), u"Trip #"_s), QStringList({u"1"_s}));
        QCOMPARE(trips.filter()->currentText(), u"04/11/2026"_s);
        QCOMPARE(trips.form().first(2), QStringList({u"2"_s, u"2"_s}));
        QCOMPARE(workspace.value(u"SELECT COUNT(*) FROM trips"_s).toInt(), 2);
    }

    void tripSavedUnchangedStaysTheSame()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertWorkedTrip(workspace, u"4471203"_s);
        const TripsWindow trips(path);
        trips.clicksTrip(0);
        trips.clicks(saveButton);
        QCOMPARE(workspace.rows(selectSaved), QList<QStringList>({workedRow}));
        QCOMPARE(workspace.value(u"SELECT COUNT(*) FROM trip_stops"_s).toInt(), 2);
        QCOMPARE(workspace.value(u"SELECT SUM(amount) FROM trip_pay_items"_s).toDouble(), 50.0);
        QCOMPARE(workspace.value(u"SELECT SUM(amount) FROM trip_cost_items"_s).toDouble(), 300.0);
    }

    void changesAreWrittenToTheirTripAlone()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertWorkedTrip(workspace, u"1"_s);
        insertWorkedTrip(workspace, u"2"_s);
        workspace.execute(u"UPDATE trips SET created_at = '2026-04-01 10:00:00'"_s);
        const QStringList other = workspace.rows(selectSaved).last();
        const TripsWindow trips(path);
        trips.clicksTrip(1);
        trips.types("tripNoField", u"4471203"_s);
        trips.types("linehaulField", u"$1,500.50"_s);
        trips.types("emptyMilesField", u"0"_s);
        trips.clicks(saveButton);
        QCOMPARE(workspace.rows(selectSaved),
                 QList<QStringList>({{u"4471203"_s, u"04/18/2026"_s, u"0"_s, u"500"_s, u"500"_s,
                                      u"1500.5"_s, u"200"_s, u"25"_s, u"375.13"_s, u"1750.5"_s,
                                      u"300"_s, u"1450.5"_s, u"290.1"_s, u"13"_s, u"111.58"_s},
                                     other}));
        QCOMPARE(workspace.rows(u"SELECT DISTINCT created_at FROM trips"_s),
                 QList<QStringList>({{u"2026-04-01 10:00:00"_s}}));
        QCOMPARE(trips.form().last(2), QStringList({u"13.00"_s, u"$111.58"_s}));
        QCOMPARE(trips.statuses, QStringList({u"Updated trip: 4471203"_s, u"Loaded 2 trips"_s}));
    }

    void topOfARangeIsWrittenAndTheRangeShown()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        insertWorkedTrip(workspace, u"4471203"_s);
        workspace.execute(u"UPDATE trip_stops SET has_appointment_window = 1, "
                          "appt_latest = '2026-04-17T10:00:00' WHERE stop_type = 'shipper'"_s);
        const TripsWindow trips(path);
        trips.clicksTrip(0);
        QCOMPARE(trips.form().last(2), QStringList({u"11.00 - 13.00"_s, u"$73.08 - $86.36"_s}));
        trips.clicks(saveButton);
        QCOMPARE(workspace.rows(u"SELECT trip_hours, net_per_hour FROM trips"_s),
                 QList<QStringList>({{u"13"_s, u"73.08"_s}}));
        QCOMPARE(trips.form().last(2), QStringList({u"11.00 - 13.00"_s, u"$73.08 - $86.36"_s}));
    }

    void numbersAreReadAsTheyAreTyped_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("miles");
        QTest::addColumn<QString>("dollars");
        QTest::newRow("grouped") << u"1,234.50"_s << u"1234.5"_s << u"1234.5"_s;
        QTest::newRow("words") << u"abc"_s << u"0"_s << u"0"_s;
        QTest::newRow("blank") << u""_s << u"0"_s << u"0"_s;
        QTest::newRow("dollars") << u"$1,234.50"_s << u"0"_s << u"1234.5"_s;
        QTest::newRow("blanks around") << u"  12  "_s << u"12"_s << u"12"_s;
        QTest::newRow("negative") << u"-12.25"_s << u"-12.25"_s << u"-12.25"_s;
    }

    void numbersAreReadAsTheyAreTyped()
    {
        Workspace workspace;
        const DialogRobot robot;
        const TripsWindow trips(workspace.makeTrips());
        QFETCH(const QString, typed);
        QFETCH(const QString, miles);
        QFETCH(const QString, dollars);
        trips.types("tripNoField", u"4471203"_s);
        trips.types("payweekField", u"04/18/2026"_s);
        for (const char *field : {"emptyMilesField", "loadedMilesField", "linehaulField",
                                  "fusuField", "carrierPercentField"})
            trips.types(field, typed);
        trips.clicks(saveButton);
        QCOMPARE(workspace.rows(u"SELECT empty_miles, loaded_miles, carrier_pct, linehaul, fusu "
                                "FROM trips"_s),
                 QList<QStringList>({{miles, miles, miles, dollars, dollars}}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void tripNeedsANumberAndAPayweek_data()
    {
        QTest::addColumn<QString>("tripNo");
        QTest::addColumn<QString>("payweek");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");
        QTest::newRow("no number")
            << u""_s << u"04/18/2026"_s << u"Missing Trip #"_s << u"Trip # is required."_s;
        QTest::newRow("blank number")
            << u"   "_s << u"04/18/2026"_s << u"Missing Trip #"_s << u"Trip # is required."_s;
        QTest::newRow("no payweek")
            << u"4471203"_s << u""_s << u"Missing Payweek"_s << u"Payweek is required."_s;
        QTest::newRow("blank payweek")
            << u"4471203"_s << u"   "_s << u"Missing Payweek"_s << u"Payweek is required."_s;
        QTest::newRow("neither") << u""_s << u""_s << u"Missing Trip #"_s
                                 << u"Trip # is required."_s;
    }

    void tripNeedsANumberAndAPayweek()
    {
        Workspace workspace;
        DialogRobot robot;
        const TripsWindow trips(workspace.makeTrips());
        QFETCH(const QString, tripNo);
        QFETCH(const QString, payweek);
        QFETCH(const QString, title);
        QFETCH(const QString, text);
        entersTrip(trips, tripNo, payweek);
        const QStringList typed = trips.form();
        robot.expect(DialogRobot::Warning, title, text);
        trips.clicks(saveButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(trips.form(), typed);
        QCOMPARE(workspace.value(u"SELECT COUNT(*) FROM trips"_s).toInt(), 0);
        QCOMPARE(trips.statuses, QStringList());
    }

    void loadedTripKeepsItsNumberToo()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertWorkedTrip(workspace, u"4471203"_s);
        const QByteArray before = workspace.bytes(u"trips.db"_s);
        const TripsWindow trips(path);
        trips.clicksTrip(0);
        trips.types("tripNoField", u""_s);
        robot.expect(DialogRobot::Warning, u"Missing Trip #"_s, u"Trip # is required."_s);
        trips.clicks(saveButton);
        QCOMPARE(workspace.bytes(u"trips.db"_s), before);
    }

    void saveWithoutADatabaseAsksForOne()
    {
        const Workspace workspace;
        DialogRobot robot;
        const TripsWindow trips;
        entersTrip(trips, u""_s, u""_s);
        const QStringList typed = trips.form();
        robot.expect(DialogRobot::Warning, u"No Database"_s, u"Open trips.db first."_s);
        trips.clicks(saveButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(trips.form(), typed);
        QCOMPARE(trips.statuses, QStringList());
    }

    void failedInsertIsToldAndNothingElseGoesOn()
    {
        Workspace workspace;
        DialogRobot robot;
        const TripsWindow trips(workspace.makeTrips());
        workspace.execute(u"CREATE TRIGGER full BEFORE INSERT ON trips "
                          "BEGIN SELECT RAISE(FAIL, 'the book is full'); END"_s);
        entersTrip(trips, u"4471203"_s, u"04/18/2026"_s);
        const QStringList typed = trips.form();
        robot.expect(DialogRobot::Critical, u"Insert Trip Failed"_s,
                     u"the book is full Unable to fetch row"_s);
        trips.clicks(saveButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(trips.form(), typed);
        QCOMPARE(trips.list()->rowCount(), 0);
        QCOMPARE(trips.statuses, QStringList());
        QCOMPARE(workspace.value(u"SELECT COUNT(*) FROM trips"_s).toInt(), 0);
    }

    void hoursAndFuelCostsAreThereThoughTheUpdateFails()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        const qint64 id = insertWorkedTrip(workspace, u"4471203"_s);
        fuel(id, u"Truck Fuel"_s, 412.8, 25.0, 100.0).insert(workspace);
        const TripsWindow trips(path);
        trips.clicksTrip(0);
        trips.named<QLabel>("tripHoursLabel")->clear();
        workspace.execute(u"CREATE TRIGGER full BEFORE UPDATE ON trips "
                          "BEGIN SELECT RAISE(FAIL, 'the book is full'); END"_s);
        robot.expect(DialogRobot::Critical, u"Update Trip Failed"_s,
                     u"the book is full Unable to fetch row"_s);
        trips.clicks(saveButton);
        QCOMPARE(trips.named<QLabel>("tripHoursLabel")->text(), u"13.00"_s);
        QCOMPARE(column(trips.named<QTableWidget>("costItemsGrid"), u"Amount"_s),
                 QStringList({u"$300.00"_s, u"$387.80"_s}));
        QCOMPARE(workspace.value(u"SELECT COUNT(*) FROM trip_cost_items"_s).toInt(), 1);
    }

    void saveGoesOnToItsEndThoughEveryGridFails()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        const qint64 id = insertWorkedTrip(workspace, u"4471203"_s);
        fuel(id, u"Truck Fuel"_s, 412.8, 25.0, 100.0).insert(workspace);
        const TripsWindow trips(path);
        trips.clicksTrip(0);
        for (const QString &table :
             {u"trip_stops"_s, u"trip_pay_items"_s, u"trip_cost_items"_s, u"trip_detail_items"_s})
            workspace.execute(u"CREATE TRIGGER full_%1 BEFORE INSERT ON %1 "
                              "BEGIN SELECT RAISE(FAIL, 'the book is full'); END"_s.arg(table));
        const QString reason = u"the book is full"_s;
        for (const QString &title : {u"Save Stops Failed"_s, u"Save Pay Items Failed"_s,
                                     u"Save Cost Items Failed"_s, u"Save Fuel Details Failed"_s})
            robot.expectContaining(DialogRobot::Critical, title, reason);
        trips.clicks(saveButton);
        QCOMPARE(robot.seen().size(), 4);
        QCOMPARE(trips.statuses, QStringList({u"Updated trip: 4471203"_s, u"Loaded 1 trips"_s}));
        QCOMPARE(trips.named<QLabel>("tripHoursLabel")->text(), u"13.00"_s);
        QCOMPARE(trips.named<QTableWidget>("fuelGrid")->rowCount(), 1);
    }

    void tripDeletedElsewhereIsToldAndItsRowsAreNotWritten()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertWorkedTrip(workspace, u"4471203"_s);
        const TripsWindow trips(path);
        trips.clicksTrip(0);
        workspace.execute(u"DELETE FROM trips"_s);
        workspace.execute(u"DELETE FROM trip_stops"_s);
        robot.expect(DialogRobot::Critical, u"Update Trip Failed"_s,
                     u"No trip was updated. It may have already been deleted."_s);
        trips.clicks(saveButton);
        QCOMPARE(trips.statuses, QStringList());
        QCOMPARE(trips.form().first(), u"1"_s);
        QCOMPARE(workspace.value(u"SELECT COUNT(*) FROM trips"_s).toInt(), 0);
        QCOMPARE(workspace.value(u"SELECT COUNT(*) FROM trip_stops"_s).toInt(), 0);
    }

    void failedUpdateIsToldAndNothingElseGoesOn()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertWorkedTrip(workspace, u"4471203"_s);
        workspace.execute(u"CREATE TRIGGER closed BEFORE UPDATE ON trips "
                          "BEGIN SELECT RAISE(FAIL, 'the book is closed'); END"_s);
        const TripsWindow trips(path);
        trips.clicksTrip(0);
        trips.types("tripNoField", u"changed"_s);
        robot.expect(DialogRobot::Critical, u"Update Trip Failed"_s,
                     u"the book is closed Unable to fetch row"_s);
        trips.clicks(saveButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(trips.form().first(2), QStringList({u"1"_s, u"changed"_s}));
        QCOMPARE(column(trips.list(), u"Trip #"_s), QStringList({u"4471203"_s}));
        QCOMPARE(trips.list()->currentRow(), 0);
        QCOMPARE(trips.statuses, QStringList());
        QCOMPARE(workspace.value(u"SELECT trip_no FROM trips"_s).toString(), u"4471203"_s);
    }

    /// Takes the driver's five seconds of patience.
    void fileThatAnotherProgramWritesIsToldAsLocked()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertWorkedTrip(workspace, u"4471203"_s);
        const TripsWindow trips(path);
        trips.clicksTrip(0);
        trips.types("tripNoField", u"changed"_s);
        {
            const TestConnection other(path);
            other.execute(u"BEGIN IMMEDIATE"_s);
            robot.expectContaining(DialogRobot::Critical, u"Update Trip Failed"_s,
                                   u"database is locked"_s);
            trips.clicks(saveButton);
        }
        QCOMPARE(trips.form().first(2), QStringList({u"1"_s, u"changed"_s}));
        QCOMPARE(trips.statuses, QStringList());
        trips.clicks(saveButton);
        QCOMPARE(workspace.value(u"SELECT trip_no FROM trips"_s).toString(), u"changed"_s);
    }
};

TEST_CLASS(tst_TripsPageSaving)
#include "tst_TripsPageSaving.moc"
