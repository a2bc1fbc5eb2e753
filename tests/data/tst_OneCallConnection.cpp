#include "data/DatabaseLocator.h"
#include "data/OneCallConnection.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString name = u"one_call"_s;

bool tableIsThere(const QString &table)
{
    QString error;
    const OneCallConnection connection(name, DatabaseLocator::openTripsDatabaseConnection, error);
    if (!connection.isOpen())
        return false;
    QVariant found;
    SqlStatement probe(connection.database(), u"SELECT 1 FROM sqlite_master WHERE name = ?"_s);
    if (!probe.firstValue({table}, found, error))
        return false;
    return found.isValid();
}

} // namespace

class tst_OneCallConnection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(QSqlDatabase::connectionNames(), QStringList()); }

    void isOpenInItsScopeAndGoneBehindIt()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        {
            QString error = u"an old error"_s;
            const OneCallConnection connection(name, DatabaseLocator::openTripsDatabaseConnection,
                                               error);
            QVERIFY(connection.isOpen());
            QCOMPARE(error, QString());
            QCOMPARE(connection.database().databaseName(), path);
            QCOMPARE(QSqlDatabase::connectionNames(), QStringList(name));
        }
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
    }

    void isGoneOnEveryWayOut()
    {
        Workspace workspace;
        QVERIFY(!tableIsThere(u"trips"_s));
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
        workspace.makeTrips();
        QVERIFY(tableIsThere(u"trips"_s));
        QVERIFY(!tableIsThere(u"loads"_s));
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
    }

    void opensWhatItIsToldTo()
    {
        Workspace workspace;
        const QString path = workspace.makeLocations();
        QString error;
        const OneCallConnection connection(name, DatabaseLocator::openLocationsDatabaseConnection,
                                           error);
        QVERIFY2(connection.isOpen(), qPrintable(error));
        QCOMPARE(connection.database().databaseName(), path);
    }

    void leavesThePagesTheirConnections()
    {
        Workspace workspace;
        const TestConnection page(workspace.makeTrips(), u"trips_connection"_s);
        QVERIFY(tableIsThere(u"trips"_s));
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList(u"trips_connection"_s));
        QCOMPARE(page.value(u"SELECT COUNT(*) FROM trips"_s), 0);
    }

    void withoutAFileItIsNotOpenAndLeavesNoName()
    {
        const Workspace workspace;
        QString error;
        const OneCallConnection connection(name, DatabaseLocator::openTripsDatabaseConnection,
                                           error);
        QVERIFY(!connection.isOpen());
        QVERIFY(!connection.database().isValid());
        QCOMPARE(error, u"trips.db is not open or could not be found."_s);
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
        QVERIFY(!QFile::exists(workspace.path(u"trips.db"_s)));
    }

    void aFailedOpenLeavesItsNameToTheNextCall()
    {
        Workspace workspace;
        QVERIFY(QDir().mkdir(workspace.path(u"trips.db"_s)));
        QString error;
        {
            const OneCallConnection connection(name, DatabaseLocator::openTripsDatabaseConnection,
                                               error);
            QVERIFY(!connection.isOpen());
            QCOMPARE(error, u"unable to open database file Error opening database"_s);
        }
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList(name));
        QVERIFY(QDir().rmdir(workspace.path(u"trips.db"_s)));
        workspace.makeTrips();
        QVERIFY(tableIsThere(u"trips"_s));
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
    }
};

TEST_CLASS(tst_OneCallConnection)
#include "tst_OneCallConnection.moc"
