#include "data/DatabaseLocator.h"
#include "data/OtherDriver.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QTest>

#include <map>

using namespace Qt::StringLiterals;
using namespace DatabaseLocator;

/// Which of the files that connections hold open the program means.
class tst_DatabasesInUse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(QSqlDatabase::connectionNames(), QStringList()); }

    void aFileHeldOpenElsewhereIsTheOneInUse()
    {
        Workspace workspace;
        workspace.makeTrips();
        workspace.makeLocations();
        const QString trips = workspace.makeTrips(u"truck12/TRIPS.DB"_s);
        const QString locations = workspace.makeLocations(u"truck12/Locations.db"_s);
        {
            const TestConnection page(trips, u"page"_s);
            const TestConnection locationsPage(locations, u"locations_page"_s);
            QCOMPARE(currentTripsDatabasePath(), trips);
            QCOMPARE(currentLocationsDatabasePath(), locations);
        }
        QCOMPARE(currentTripsDatabasePath(), workspace.path(u"trips.db"_s));
        QCOMPARE(currentLocationsDatabasePath(), workspace.path(u"locations.db"_s));
    }

    void connectionsOfAnotherDriverDoNotCount()
    {
        Workspace workspace;
        const QString near = workspace.makeTrips();
        const OtherDriver other(workspace.makeTrips(u"truck12/trips.db"_s));
        QCOMPARE(currentTripsDatabasePath(), near);
        closeAllSqliteConnections();
        QVERIFY(other.isOpen());
    }

    void ofSeveralFilesInUseTheTripsPagesIsMeantAndThenTheOthersInTheirOrder_data()
    {
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<QStringList>("inOrder");
        QTest::newRow("trips") << tripsFileName
                               << QStringList({u"trips_connection"_s,
                                               u"settlement_trips_connection"_s,
                                               u"view_payweek_trips_connection"_s,
                                               u"pay_totals_trips_connection"_s, u"a page"_s,
                                               u"b page"_s, u"c page"_s});
        QTest::newRow("locations")
            << locationsFileName
            << QStringList({u"trips_page_locations_connection"_s, u"locations_connection"_s,
                            u"a page"_s, u"b page"_s, u"c page"_s});
    }

    void ofSeveralFilesInUseTheTripsPagesIsMeantAndThenTheOthersInTheirOrder()
    {
        QFETCH(const QString, fileName);
        QFETCH(const QStringList, inOrder);
        Workspace workspace;
        std::map<QString, TestConnection> pages;
        for (const QString &page : inOrder)
            pages.try_emplace(page, workspace.makeTrips(page + u'/' + fileName), page);
        const auto inUse =
            fileName == tripsFileName ? currentTripsDatabasePath : currentLocationsDatabasePath;
        for (const QString &page : inOrder) {
            QCOMPARE(inUse(), workspace.path(page + u'/' + fileName));
            QCOMPARE(findTripsConnection().connectionName(), page);
            pages.erase(page);
        }
        QCOMPARE(inUse(), QString());
    }

    void thePathInUseIsAbsolute()
    {
        Workspace workspace;
        const QString trips = workspace.makeTrips(u"truck12/trips.db"_s);
        const TestConnection page(u"truck12/trips.db"_s);
        QCOMPARE(currentTripsDatabasePath(), trips);
    }

    void connectionsThatAreClosedOrOnOtherFilesDoNotCount()
    {
        Workspace workspace;
        workspace.makeTrips();
        TestConnection closed(workspace.makeTrips(u"truck12/trips.db"_s), u"closed"_s);
        closed.database().close();
        const TestConnection temporary(u""_s, u"temporary"_s);
        const TestConnection memory(u":memory:"_s, u"memory"_s);
        const TestConnection other(workspace.makeTrips(u"truck12/old_trips.db"_s), u"other"_s);
        const TestConnection inside(workspace.makeTrips(u"trips.db.d/a.db"_s), u"inside"_s);
        QCOMPARE(currentTripsDatabasePath(), workspace.path(u"trips.db"_s));
        QCOMPARE(currentLocationsDatabasePath(), QString());
    }

    void allFilesHeldOpenAndTheTwoNearTheProgramAreInUse()
    {
        Workspace workspace;
        const QString trips = workspace.makeTrips();
        const QString locations = workspace.makeLocations();
        const QString elsewhere = workspace.makeTrips(u"truck12/july.db"_s);
        const TestConnection page(trips, u"page"_s);
        const TestConnection samePage(trips, u"same page"_s);
        const TestConnection other(elsewhere, u"other"_s);
        const TestConnection temporary(u""_s, u"temporary"_s);
        QStringList inUse = databasesInUse();
        inUse.sort();
        QCOMPARE(inUse, QStringList({locations, trips, elsewhere}));
    }

    void withoutAnyFileNoneIsInUse()
    {
        const Workspace workspace;
        QCOMPARE(databasesInUse(), QStringList());
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_DatabasesInUse)
#include "tst_DatabasesInUse.moc"
