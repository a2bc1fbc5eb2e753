#include "app/DashboardStats.h"
#include "data/DatabaseLocator.h"
#include "data/SqlStatement.h"
#include "support/RowMakers.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A file that some page holds open.
class HeldOpen
{
public:
    HeldOpen(const QString &connectionName, const QString &path)
        : name(connectionName)
    {
        QString error;
        DatabaseLocator::openNamedConnection(handle, name, path, error);
        if (!error.isEmpty())
            QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    }
    ~HeldOpen() { DatabaseLocator::releaseNamedConnection(handle, name); }
    Q_DISABLE_COPY_MOVE(HeldOpen)

    void execute(const QString &sql) const
    {
        QString error;
        if (!runSql(handle, sql, {}, error))
            QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    }

private:
    QString name;
    QSqlDatabase handle;
};

void insertLocations(const QString &path, const QStringList &codes)
{
    const HeldOpen file(u"setup"_s, path);
    for (const QString &code : codes)
        file.execute(u"INSERT INTO locations (code) VALUES ('%1')"_s.arg(code));
}

QStringList filesIn(const Workspace &workspace)
{
    return QDir(workspace.path(u""_s))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

void readEverything()
{
    DashboardStats::countTableRows(u"trips"_s);
    DashboardStats::countLocations();
    DashboardStats::currentPayweek();
    DashboardStats::recentActivity();
}

void compareWithNothingKnown()
{
    QCOMPARE(DashboardStats::countTableRows(u"trips"_s), -1);
    QCOMPARE(DashboardStats::countLocations(), -1);
    QCOMPARE(DashboardStats::currentPayweek(), QString());
    QCOMPARE(DashboardStats::recentActivity(), QStringList());
}

} // namespace

class tst_DashboardStats : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(QSqlDatabase::connectionNames(), QStringList()); }

    void withoutFilesNothingIsKnownAndNothingIsMade()
    {
        const Workspace workspace;
        compareWithNothingKnown();
        QCOMPARE(filesIn(workspace), QStringList());
    }

    void newFilesHoldNothing()
    {
        Workspace workspace;
        workspace.makeTrips();
        workspace.makeLocations();
        QCOMPARE(DashboardStats::countTableRows(u"trips"_s), 0);
        QCOMPARE(DashboardStats::countLocations(), 0);
        QCOMPARE(DashboardStats::currentPayweek(), QString());
        QCOMPARE(DashboardStats::recentActivity(), QStringList());
    }

    void readingLeavesTheFilesAsTheyWere()
    {
        Workspace workspace;
        workspace.makeTrips();
        workspace.makeLocations();
        trip().insert(workspace);
        const QByteArray trips = workspace.bytes(u"trips.db"_s);
        const QByteArray locations = workspace.bytes(u"locations.db"_s);
        readEverything();
        QCOMPARE(filesIn(workspace), QStringList({u"locations.db"_s, u"trips.db"_s}));
        QCOMPARE(workspace.bytes(u"trips.db"_s), trips);
        QCOMPARE(workspace.bytes(u"locations.db"_s), locations);
    }

    void aFileOfRandomBytesTellsNothing()
    {
        const Workspace workspace;
        const QByteArray noise = QByteArray::fromHex("9f03c1e6774a00d2").repeated(512);
        workspace.makeFile(u"trips.db"_s, noise);
        workspace.makeFile(u"locations.db"_s, noise);
        compareWithNothingKnown();
        QCOMPARE(filesIn(workspace), QStringList({u"locations.db"_s, u"trips.db"_s}));
        QCOMPARE(workspace.bytes(u"trips.db"_s), noise);
    }

    void anEmptyFileTellsNothing()
    {
        const Workspace workspace;
        workspace.makeFile(u"trips.db"_s, {});
        workspace.makeFile(u"locations.db"_s, {});
        compareWithNothingKnown();
        QCOMPARE(workspace.bytes(u"trips.db"_s), QByteArray());
    }

    void eachFigureHasAConnectionNameOfItsOwn()
    {
        const Workspace workspace;
        QVERIFY(QDir().mkdir(workspace.path(u"trips.db"_s)));
        QVERIFY(QDir().mkdir(workspace.path(u"locations.db"_s)));
        DashboardStats::countTableRows(u"trips"_s);
        DashboardStats::countLocations();
        DashboardStats::currentPayweek();
        DashboardStats::recentActivity();
        // A name whose open failed is the only one that stays to be seen.
        QStringList names = QSqlDatabase::connectionNames();
        names.sort();
        QCOMPARE(names,
                 QStringList({u"dashboard_count_trips"_s, u"dashboard_current_payweek"_s,
                              u"dashboard_locations_count"_s, u"dashboard_recent_activity"_s}));
        for (const QString &name : std::as_const(names))
            QSqlDatabase::removeDatabase(name);
    }

    void aFailedOpenIsMadeGoodByTheNext()
    {
        Workspace workspace;
        const QString path = workspace.path(u"trips.db"_s);
        QVERIFY(QDir().mkdir(path));
        QCOMPARE(DashboardStats::countTableRows(u"trips"_s), -1);
        QVERIFY(QDir().rmdir(path));
        workspace.makeTrips();
        trip().insert(workspace);
        QCOMPARE(DashboardStats::countTableRows(u"trips"_s), 1);
    }

    void aFileHeldOpenElsewhereCounts()
    {
        Workspace workspace;
        workspace.makeTrips();
        trip().payweek(u"01/04/2026"_s).insert(workspace);
        const HeldOpen page(u"trips_connection"_s, workspace.makeTrips(u"truck12/trips.db"_s));
        page.execute(u"INSERT INTO trips (trip_no, payweek) VALUES ('1', '04/11/2025')"_s);
        page.execute(u"INSERT INTO trips (trip_no, payweek) VALUES ('2', '04/18/2025')"_s);
        QCOMPARE(DashboardStats::countTableRows(u"trips"_s), 2);
        QCOMPARE(DashboardStats::currentPayweek(), u"04/18/2025"_s);
        QCOMPARE(DashboardStats::recentActivity(), QStringList(u"Latest trip: 2"_s));
    }

    void thePageKeepsItsConnection()
    {
        Workspace workspace;
        const HeldOpen page(u"trips_connection"_s, workspace.makeTrips());
        readEverything();
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList(u"trips_connection"_s));
        QVERIFY(QSqlDatabase::database(u"trips_connection"_s, false).isOpen());
    }

    void anyTableOfTheTripsFileCanBeCounted()
    {
        Workspace workspace;
        workspace.makeTrips();
        const qint64 id = trip().insert(workspace);
        trip().insert(workspace);
        stop(id).insert(workspace);
        stop(id).insert(workspace);
        stop(id).insert(workspace);
        QCOMPARE(DashboardStats::countTableRows(u"trips"_s), 2);
        QCOMPARE(DashboardStats::countTableRows(u"trip_stops"_s), 3);
    }

    void aNameThatIsNoTableCannotBeCounted_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("missing") << u"trip_photos"_s;
        QTest::newRow("other case") << u"Trips"_s;
        QTest::newRow("view") << u"all_trips"_s;
        QTest::newRow("index") << u"ix_trips_payweek"_s;
        QTest::newRow("table that needs quotes") << u"2026"_s;
        QTest::newRow("empty") << u""_s;
        QTest::newRow("nothing left") << u" ;'\"-- "_s;
    }

    void aNameThatIsNoTableCannotBeCounted()
    {
        QFETCH(const QString, name);
        Workspace workspace;
        workspace.makeTrips();
        workspace.execute(u"CREATE VIEW all_trips AS SELECT * FROM trips"_s);
        workspace.execute(u"CREATE TABLE \"2026\" (id INTEGER)"_s);
        QCOMPARE(DashboardStats::countTableRows(name), -1);
    }

    void aTableNameIsReducedToItsLettersDigitsAndUnderscores()
    {
        Workspace workspace;
        workspace.makeTrips();
        trip().insert(workspace);
        QCOMPARE(DashboardStats::countTableRows(u" \"tri-ps\";"_s), 1);
        QCOMPARE(DashboardStats::countTableRows(u"trips; DROP TABLE trips"_s), -1);
        QCOMPARE(workspace.value(u"SELECT COUNT(*) FROM trips"_s), 1);
    }

    void locationsAreCountedInTheirOwnFile()
    {
        Workspace workspace;
        workspace.makeTrips();
        workspace.execute(u"CREATE TABLE locations (code TEXT)"_s);
        QCOMPARE(DashboardStats::countLocations(), -1);
        insertLocations(workspace.makeLocations(), {u"DOCK1"_s, u"YARD"_s});
        QCOMPARE(DashboardStats::countLocations(), 2);
    }

    void aLocationsFileWithoutItsTableCannotBeCounted()
    {
        Workspace workspace;
        workspace.makeTrips(u"locations.db"_s);
        QCOMPARE(DashboardStats::countLocations(), -1);
    }

    void aLocationsFileHeldOpenElsewhereCounts()
    {
        Workspace workspace;
        workspace.makeLocations();
        const QString elsewhere = workspace.makeLocations(u"truck12/locations.db"_s);
        insertLocations(elsewhere, {u"DOCK1"_s, u"YARD"_s, u"HOME"_s});
        QCOMPARE(DashboardStats::countLocations(), 0);
        const HeldOpen page(u"locations_connection"_s, elsewhere);
        QCOMPARE(DashboardStats::countLocations(), 3);
    }

    void theCurrentPayweekIsTheLatestWithATrip_data()
    {
        QTest::addColumn<QStringList>("payweeks");
        QTest::addColumn<QString>("current");
        const auto row = [](const char *name, const QStringList &payweeks, const QString &current) {
            QTest::newRow(name) << payweeks << current;
        };
        row("by year first", {u"12/28/2025"_s, u"01/04/2026"_s}, u"01/04/2026"_s);
        row("entered last does not matter", {u"01/04/2026"_s, u"12/28/2025"_s}, u"01/04/2026"_s);
        row("by month", {u"03/28/2026"_s, u"04/04/2026"_s}, u"04/04/2026"_s);
        row("by day", {u"04/18/2026"_s, u"04/11/2026"_s}, u"04/18/2026"_s);
        row("in the far future", {u"12/31/2099"_s, u"04/18/2026"_s}, u"12/31/2099"_s);
        row("trimmed", {u"04/18/2026  "_s}, u"04/18/2026"_s);
        row("blank ones do not count", {u"04/18/2026"_s, u""_s, u"   "_s}, u"04/18/2026"_s);
        row("only blank ones", {u""_s, u"   "_s}, u""_s);
        row("a tab alone", {u"\t"_s}, u""_s);
        row("tie: slashes first", {u"04/18/2026"_s, u"04-18-2026"_s}, u"04-18-2026"_s);
        row("tie: dashes first", {u"04-18-2026"_s, u"04/18/2026"_s}, u"04/18/2026"_s);
        row("leading space shifts", {u"01/04/2025"_s, u" 04/18/2026"_s}, u"01/04/2025"_s);
        row("short spelling shifts", {u"12/28/2025"_s, u"4/18/2026"_s}, u"12/28/2025"_s);
        row("short spelling alone", {u"4/18/2026"_s}, u"4/18/2026"_s);
    }

    void theCurrentPayweekIsTheLatestWithATrip()
    {
        QFETCH(const QStringList, payweeks);
        QFETCH(const QString, current);
        Workspace workspace;
        workspace.makeTrips();
        for (const QString &payweek : payweeks)
            trip().payweek(payweek).insert(workspace);
        QCOMPARE(DashboardStats::currentPayweek(), current);
    }

    void aTripWithoutAPayweekHasNoSayInTheCurrentOne()
    {
        Workspace workspace;
        workspace.makeTrips();
        trip().payweek(u"04/18/2026"_s).insert(workspace);
        trip().set(u"payweek"_s, QVariant()).insert(workspace);
        QCOMPARE(DashboardStats::currentPayweek(), u"04/18/2026"_s);
    }

    void theLatestTripIsTheOneEnteredLastThatHasANumber()
    {
        Workspace workspace;
        workspace.makeTrips();
        trip().no(u"4471203"_s).payweek(u"04/18/2026"_s).insert(workspace);
        trip().no(u" 4471190 "_s).payweek(u"04/11/2026"_s).insert(workspace);
        trip().no(u"   "_s).insert(workspace);
        trip().set(u"trip_no"_s, QVariant()).insert(workspace);
        QCOMPARE(DashboardStats::recentActivity(), QStringList(u"Latest trip: 4471190"_s));
    }

    void aTripNumberOfATabAloneIsNoActivity()
    {
        Workspace workspace;
        workspace.makeTrips();
        trip().no(u"4471203"_s).insert(workspace);
        trip().no(u"\t"_s).insert(workspace);
        QCOMPARE(DashboardStats::recentActivity(), QStringList());
    }

    void theImportHistoryOfAnOlderFileComesFirst()
    {
        Workspace workspace;
        workspace.makeTrips();
        trip().no(u"4471203"_s).insert(workspace);
        workspace.execute(u"CREATE TABLE import_history (id INTEGER PRIMARY KEY)"_s);
        QCOMPARE(DashboardStats::recentActivity(), QStringList(u"Latest trip: 4471203"_s));
        workspace.execute(u"INSERT INTO import_history VALUES (1), (2)"_s);
        QCOMPARE(DashboardStats::recentActivity(),
                 QStringList({u"Import history contains 2 records"_s, u"Latest trip: 4471203"_s}));
    }

    void anOlderFileMayHaveNoTripsTable()
    {
        const Workspace workspace;
        workspace.makeFile(u"trips.db"_s, {});
        workspace.execute(u"CREATE TABLE import_history (id INTEGER PRIMARY KEY)"_s);
        workspace.execute(u"INSERT INTO import_history VALUES (1)"_s);
        QCOMPARE(DashboardStats::recentActivity(),
                 QStringList(u"Import history contains 1 records"_s));
        QCOMPARE(DashboardStats::countTableRows(u"trips"_s), -1);
        QCOMPARE(DashboardStats::currentPayweek(), QString());
    }

    void theImportLogOfTodayIsNoActivity()
    {
        Workspace workspace;
        workspace.makeTrips();
        workspace.execute(
            u"INSERT INTO settlement_import_log (truck_number, payweek) VALUES ('12', '')"_s);
        QCOMPARE(DashboardStats::recentActivity(), QStringList());
    }
};

TEST_CLASS(tst_DashboardStats)
#include "tst_DashboardStats.moc"
