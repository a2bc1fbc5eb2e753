#include "data/SqlTransaction.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString insertTrip = u"INSERT INTO trips (trip_no) VALUES ('4471203')"_s;
const QString countTrips = u"SELECT COUNT(*) FROM trips"_s;

} // namespace

class tst_SqlTransaction : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(QSqlDatabase::connectionNames(), QStringList()); }

    void aCommitKeepsWhatWasWritten()
    {
        Workspace workspace;
        TestConnection connection(workspace.makeTrips());
        {
            SqlTransaction transaction(connection.database());
            QString error = u"an old error"_s;
            QVERIFY2(transaction.begin(error), qPrintable(error));
            QCOMPARE(error, QString());
            connection.execute(insertTrip);
            error = u"an old error"_s;
            QVERIFY2(transaction.commit(error), qPrintable(error));
            QCOMPARE(error, QString());
        }
        QCOMPARE(workspace.value(countTrips), 1);
    }

    void whatWasNotCommittedIsGoneWithTheScope()
    {
        Workspace workspace;
        TestConnection connection(workspace.makeTrips());
        connection.execute(insertTrip);
        {
            SqlTransaction transaction(connection.database());
            QString error;
            QVERIFY2(transaction.begin(error), qPrintable(error));
            connection.execute(insertTrip);
            QCOMPARE(connection.value(countTrips), 2);
        }
        QCOMPARE(connection.value(countTrips), 1);
        connection.execute(insertTrip);
        QCOMPARE(workspace.value(countTrips), 2);
    }

    void oneThatNeverBeganChangesNothing()
    {
        Workspace workspace;
        TestConnection connection(workspace.makeTrips());
        {
            const SqlTransaction transaction(connection.database());
            connection.execute(insertTrip);
        }
        QCOMPARE(workspace.value(countTrips), 1);
    }

    void oneThatCommittedLeavesTheNextAlone()
    {
        Workspace workspace;
        TestConnection connection(workspace.makeTrips());
        {
            SqlTransaction transaction(connection.database());
            QString error;
            QVERIFY2(transaction.begin(error), qPrintable(error));
            QVERIFY2(transaction.commit(error), qPrintable(error));
            connection.execute(u"BEGIN"_s);
            connection.execute(insertTrip);
        }
        connection.execute(u"COMMIT"_s);
        QCOMPARE(workspace.value(countTrips), 1);
    }

    void aClosedDatabaseBeginsNothing()
    {
        Workspace workspace;
        TestConnection connection(workspace.makeTrips());
        connection.database().close();
        for (const QSqlDatabase &database : {connection.database(), QSqlDatabase()}) {
            SqlTransaction transaction(database);
            QString error;
            QVERIFY(!transaction.begin(error));
            QCOMPARE(error, u"The database is not open."_s);
        }
    }

    void oneInsideAnotherDoesNotBeginAndLeavesTheOtherAlone()
    {
        Workspace workspace;
        TestConnection connection(workspace.makeTrips());
        SqlTransaction outer(connection.database());
        QString error;
        QVERIFY2(outer.begin(error), qPrintable(error));
        connection.execute(insertTrip);
        {
            SqlTransaction inner(connection.database());
            QVERIFY(!inner.begin(error));
            QCOMPARE(error, u"cannot start a transaction within a transaction "
                            u"Unable to begin transaction"_s);
        }
        QVERIFY2(outer.commit(error), qPrintable(error));
        QCOMPARE(workspace.value(countTrips), 1);
    }

    void aCommitInTheWayOfAReaderFailsAndRollsBack()
    {
        Workspace workspace;
        TestConnection connection(workspace.makeTrips());
        connection.execute(insertTrip);
        const TestConnection reader(workspace.path(u"trips.db"_s), u"reader"_s);
        SqlStatement reading(reader.database(), u"SELECT id FROM trips"_s);
        QString readError;
        QVERIFY(reading.forEachRow({}, readError, [&connection](const SqlStatement &) {
            SqlTransaction transaction(connection.database());
            QString error;
            QVERIFY2(transaction.begin(error), qPrintable(error));
            connection.execute(insertTrip);
            QVERIFY(!transaction.commit(error));
            QCOMPARE(error, u"database is locked Unable to commit transaction"_s);
        }));
        QCOMPARE(connection.value(countTrips), 1);
        connection.execute(insertTrip);
        QCOMPARE(workspace.value(countTrips), 2);
    }

    void aCommitThatFailedCanBeTriedAgain()
    {
        Workspace workspace;
        TestConnection connection(workspace.makeTrips());
        connection.execute(insertTrip);
        const TestConnection reader(workspace.path(u"trips.db"_s), u"reader"_s);
        SqlTransaction transaction(connection.database());
        QString error;
        QVERIFY2(transaction.begin(error), qPrintable(error));
        connection.execute(insertTrip);
        SqlStatement reading(reader.database(), u"SELECT id FROM trips"_s);
        QString readError;
        QVERIFY(reading.forEachRow({}, readError, [&transaction](const SqlStatement &) {
            QString busy;
            QVERIFY(!transaction.commit(busy));
        }));
        QVERIFY2(transaction.commit(error), qPrintable(error));
        QCOMPARE(workspace.value(countTrips), 2);
    }
};

TEST_CLASS(tst_SqlTransaction)
#include "tst_SqlTransaction.moc"
