#include "data/DatabaseLocator.h"
#include "data/SqlStatement.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace DatabaseLocator;

namespace {

const QString name = u"trips_connection"_s;
const QString cannotOpen = u"unable to open database file Error opening database"_s;

/// A program that lies in desk/build/bin/debug of the workspace and is started in "elsewhere".
class InstalledProgram
{
public:
    explicit InstalledProgram(const Workspace &workspace)
        : program(workspace.path(u"desk/build/bin/debug/probe"_s))
        , startFolder(workspace.path(u"elsewhere"_s))
    {
        QDir().mkpath(QFileInfo(program).path());
        QDir().mkpath(startFolder);
        if (!QFile::copy(QStringLiteral(DATABASE_PROBE), program))
            QTest::qFail("The probe cannot be copied.", __FILE__, __LINE__);
    }

    /// The path of the trips.db that the program finds.
    [[nodiscard]] QString findsTrips() const
    {
        QProcess process;
        process.setWorkingDirectory(startFolder);
        process.start(program, {});
        if (!process.waitForFinished() || process.exitCode() != 0)
            QTest::qFail(process.readAllStandardError().constData(), __FILE__, __LINE__);
        return QString::fromUtf8(process.readAllStandardOutput());
    }

private:
    QString program;
    QString startFolder;
};

QStringList filesIn(const Workspace &workspace)
{
    return QDir(workspace.path(u""_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
}

} // namespace

class tst_DatabaseLocator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(QSqlDatabase::connectionNames(), QStringList()); }

    void everyFolderIsSearchedInItsTurn()
    {
        const Workspace workspace;
        const InstalledProgram program(workspace);
        const QStringList inOrder = {
            u"elsewhere/trips.db"_s,      u"desk/build/bin/debug/trips.db"_s,
            u"desk/build/bin/trips.db"_s, u"desk/build/trips.db"_s,
            u"desk/trips.db"_s,
        };
        for (const QString &file : inOrder)
            workspace.makeFile(file, {});
        for (const QString &file : inOrder) {
            QCOMPARE(program.findsTrips(), workspace.path(file));
            QVERIFY(QFile::remove(workspace.path(file)));
        }
        QCOMPARE(program.findsTrips(), QString());
    }

    void noOtherFolderIsSearched_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("four levels above the program") << u"trips.db"_s;
        QTest::newRow("below the program") << u"desk/build/bin/debug/data/trips.db"_s;
        QTest::newRow("below the working directory") << u"elsewhere/data/trips.db"_s;
        QTest::newRow("beside a folder above") << u"desk/data/trips.db"_s;
    }

    void noOtherFolderIsSearched()
    {
        QFETCH(const QString, file);
        const Workspace workspace;
        const InstalledProgram program(workspace);
        workspace.makeFile(file, {});
        QCOMPARE(program.findsTrips(), QString());
    }

    void connectionsKeepSqlitesDefaults()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        const QString name = u"pragmas"_s;
        QSqlDatabase database;
        QString error;
        QVERIFY(openNamedConnection(database, name, path, error));
        const auto pragma = [&database](const QString &setting) {
            QVariant value;
            QString failure;
            SqlStatement(database, u"PRAGMA "_s + setting).firstValue({}, value, failure);
            return value.toString();
        };
        QCOMPARE(pragma(u"foreign_keys"_s), u"0"_s);
        QCOMPARE(pragma(u"journal_mode"_s), u"delete"_s);
        QCOMPARE(pragma(u"synchronous"_s), u"2"_s);
        releaseNamedConnection(database, name);
    }

    void aLentConnectionIsOpenOrSaysThatItIsNot()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        QString error = u"an older error"_s;
        QVERIFY(isTripsDatabaseOpen(trips.database(), error));
        QCOMPARE(error, QString());
        QVERIFY(!isTripsDatabaseOpen({}, error));
        QCOMPARE(error, u"Trips database is not open."_s);
    }

    void aFolderOfThatNameCountsAsFound()
    {
        const Workspace workspace;
        QVERIFY(QDir().mkdir(workspace.path(u"trips.db"_s)));
        QCOMPARE(findDatabaseNearApplication(tripsFileName), workspace.path(u"trips.db"_s));
    }

    void theSearchTellsUpperFromLowerCase()
    {
        const Workspace workspace;
        workspace.makeFile(u"TRIPS.DB"_s, {});
        QCOMPARE(findDatabaseNearApplication(tripsFileName), QString());
        QCOMPARE(currentTripsDatabasePath(), QString());
        workspace.makeFile(u"trips.db"_s, {});
        QCOMPARE(findDatabaseNearApplication(tripsFileName), workspace.path(u"trips.db"_s));
    }

    void theDefaultPathIsTheOneFound()
    {
        const Workspace workspace;
        workspace.makeFile(u"locations.db"_s, {});
        QCOMPARE(findDatabaseOrDefaultPath(locationsFileName), workspace.path(u"locations.db"_s));
    }

    void theDefaultPathLiesBesideTheProgram()
    {
        const Workspace workspace;
        const QString expected = QCoreApplication::applicationDirPath() + u"/trips.db"_s;
        QCOMPARE(findDatabaseOrDefaultPath(tripsFileName), expected);
        QVERIFY(!QFile::exists(expected));
        QCOMPARE(filesIn(workspace), QStringList());
    }

    void opensAFileUnderAName()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        QSqlDatabase handle;
        QString error = u"an old error"_s;
        QVERIFY(openNamedConnection(handle, name, path, error));
        QCOMPARE(error, QString());
        QVERIFY(handle.isOpen());
        QCOMPARE(handle.connectionName(), name);
        QCOMPARE(handle.driverName(), u"QSQLITE"_s);
        QCOMPARE(handle.databaseName(), path);
        QVERIFY(tableExists(handle, u"trips"_s));
        releaseNamedConnection(handle, name);
    }

    void aBlankPathLeavesTheHandleAsItWas()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        QSqlDatabase handle;
        QString error;
        QVERIFY(openNamedConnection(handle, name, path, error));
        for (const QString &blank : {u""_s, u" \t"_s}) {
            error = u"an old error"_s;
            QVERIFY(!openNamedConnection(handle, name, blank, error));
            QCOMPARE(error, u"Database path is blank."_s);
            QVERIFY(handle.isOpen());
            QCOMPARE(handle.databaseName(), path);
        }
        releaseNamedConnection(handle, name);
    }

    void reopeningClosesTheOldFileAndKeepsTheName()
    {
        Workspace workspace;
        const QString oldPath = workspace.makeTrips();
        const QString newPath = workspace.makeTrips(u"truck12/trips.db"_s);
        const TestConnection other(oldPath, u"other"_s);
        QSqlDatabase handle;
        QString error;
        QVERIFY(openNamedConnection(handle, name, oldPath, error));
        QVERIFY(runSql(handle, u"BEGIN EXCLUSIVE"_s, {}, error));
        QVERIFY(!other.tries(u"DELETE FROM trips"_s).isEmpty());
        QVERIFY(openNamedConnection(handle, name, newPath, error));
        QCOMPARE(other.tries(u"DELETE FROM trips"_s), QString());
        QVERIFY(handle.isOpen());
        QCOMPARE(handle.connectionName(), name);
        QCOMPARE(handle.databaseName(), newPath);
        QCOMPARE(QSqlDatabase::connectionNames().size(), 2);
        releaseNamedConnection(handle, name);
    }

    void aHandleThatMovesToAnotherNameClosesItsOldConnection()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        QSqlDatabase handle;
        QString error;
        QVERIFY(openNamedConnection(handle, u"old_name"_s, path, error));
        QVERIFY(openNamedConnection(handle, name, path, error));
        QVERIFY(handle.isOpen());
        QVERIFY(QSqlDatabase::contains(u"old_name"_s));
        QVERIFY(!QSqlDatabase::database(u"old_name"_s, false).isOpen());
        QSqlDatabase::removeDatabase(u"old_name"_s);
        releaseNamedConnection(handle, name);
    }

    void aFileThatDoesNotOpenLeavesItsNameToTheNextOpen()
    {
        Workspace workspace;
        QSqlDatabase handle;
        QString error;
        QVERIFY(!openNamedConnection(handle, name, workspace.path(u""_s), error));
        QCOMPARE(error, cannotOpen);
        QVERIFY(handle.isValid());
        QVERIFY(!handle.isOpen());
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList(name));
        QVERIFY(openNamedConnection(handle, name, workspace.makeTrips(), error));
        QCOMPARE(error, QString());
        QVERIFY(handle.isOpen());
        releaseNamedConnection(handle, name);
    }

    void thePathIsTakenAsItStands()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips(u" trips.db "_s);
        workspace.makeFile(u"trips.db"_s, {});
        QSqlDatabase handle;
        QString error;
        QVERIFY(openNamedConnection(handle, name, u" trips.db "_s, error));
        QCOMPARE(handle.databaseName(), u" trips.db "_s);
        QVERIFY(tableExists(handle, u"trips"_s));
        releaseNamedConnection(handle, name);
        QVERIFY(QFile::exists(path));
    }

    void releasingClosesEmptiesAndUnregisters()
    {
        Workspace workspace;
        QSqlDatabase handle;
        QString error;
        QVERIFY(openNamedConnection(handle, name, workspace.makeTrips(), error));
        releaseNamedConnection(handle, name);
        QVERIFY(!handle.isValid());
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
        releaseNamedConnection(handle, name);
        QVERIFY(!handle.isValid());
    }

    void closingAllLeavesTheNamesAndClosedHandles()
    {
        Workspace workspace;
        TestConnection trips(workspace.makeTrips(), u"trips_page"_s);
        TestConnection locations(workspace.makeLocations(), u"locations_page"_s);
        closeAllSqliteConnections();
        QVERIFY(trips.database().isValid());
        QVERIFY(!trips.database().isOpen());
        QVERIFY(!locations.database().isOpen());
        QVERIFY(QSqlDatabase::contains(u"trips_page"_s));
        QVERIFY(QSqlDatabase::contains(u"locations_page"_s));
        QCOMPARE(trips.tries(u"DELETE FROM trips"_s), u"The database is not open."_s);
        closeAllSqliteConnections();
        QVERIFY(trips.database().open());
    }

    void aConnectionForOneCallOpensTheFileInUse()
    {
        Workspace workspace;
        workspace.makeTrips();
        const TestConnection page(workspace.makeTrips(u"truck12/trips.db"_s), u"page"_s);
        const QString locations = workspace.makeLocations();
        QString error = u"an old error"_s;
        QSqlDatabase handle = openTripsDatabaseConnection(name, error);
        QCOMPARE(error, QString());
        QVERIFY(handle.isOpen());
        QCOMPARE(handle.databaseName(), workspace.path(u"truck12/trips.db"_s));
        handle = QSqlDatabase();
        handle = openLocationsDatabaseConnection(name, error);
        QCOMPARE(error, QString());
        QCOMPARE(handle.connectionName(), name);
        QCOMPARE(handle.databaseName(), locations);
        releaseNamedConnection(handle, name);
    }

    void withoutAFileNoConnectionIsMade()
    {
        const Workspace workspace;
        QString error;
        QVERIFY(!openTripsDatabaseConnection(name, error).isValid());
        QCOMPARE(error, u"trips.db is not open or could not be found."_s);
        QVERIFY(!openLocationsDatabaseConnection(name, error).isValid());
        QCOMPARE(error, u"locations.db could not be found near the application."_s);
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
        QCOMPARE(filesIn(workspace), QStringList());
    }

    void aFileThatDoesNotOpenForOneCallGivesAnInvalidHandle()
    {
        const Workspace workspace;
        QVERIFY(QDir().mkdir(workspace.path(u"trips.db"_s)));
        QString error;
        QVERIFY(!openTripsDatabaseConnection(name, error).isValid());
        QCOMPARE(error, cannotOpen);
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList(name));
        QSqlDatabase::removeDatabase(name);
    }

    void reportsBorrowAConnectionInTheOrderOfTheNames()
    {
        const Workspace workspace;
        const QStringList preferred = {u"trips_connection"_s,
                                       u"trips"_s,
                                       u"trips_db"_s,
                                       u"BrindlepathTrips"_s,
                                       u"qt_sql_default_connection"_s,
                                       u"locations_connection"_s};
        for (const QString &connection : preferred) {
            QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, connection);
            database.setDatabaseName(u":memory:"_s);
            QVERIFY(database.open());
        }
        for (const QString &connection : preferred) {
            QCOMPARE(findTripsConnection().connectionName(), connection);
            QSqlDatabase::database(connection, false).close();
        }
        QVERIFY(!findTripsConnection().isValid());
        for (const QString &connection : preferred)
            QSqlDatabase::removeDatabase(connection);
    }

    void reportsMayLandOnTheLocations()
    {
        Workspace workspace;
        const TestConnection locations(workspace.makeLocations(), u"locations_connection"_s);
        QCOMPARE(findTripsConnection().connectionName(), u"locations_connection"_s);
        QVERIFY(findTripsConnection().isOpen());
        QVERIFY(!tableExists(findTripsConnection(), u"trips"_s));
        QVERIFY(tableExists(findTripsConnection(), u"locations"_s));
    }

    void withNoConnectionReportsBorrowNone()
    {
        Workspace workspace;
        workspace.makeTrips();
        QVERIFY(!findTripsConnection().isValid());
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
    }

    void anIdentifierKeepsLettersDigitsAndUnderscores_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("clean");
        QTest::newRow("table") << u"trip_pay_items2"_s << u"trip_pay_items2"_s;
        QTest::newRow("upper case") << u"TRIPS"_s << u"TRIPS"_s;
        QTest::newRow("accents") << u"d\u00E9p\u00F4t"_s << u"d\u00E9p\u00F4t"_s;
        QTest::newRow("Cyrillic") << u"\u0420\u0435\u0439\u0441"_s << u"\u0420\u0435\u0439\u0441"_s;
        QTest::newRow("Arabic digits") << u"\u0663\u0664"_s << u"\u0663\u0664"_s;
        QTest::newRow("letter beyond 16 bits") << u"\U0001D400"_s << u"\U0001D400"_s;
        QTest::newRow("truck emoji") << u"a\U0001F69Ab"_s << u"ab"_s;
        QTest::newRow("injection")
            << u"trips; DROP TABLE \"trips\"--"_s << u"tripsDROPTABLEtrips"_s;
        QTest::newRow("quotes") << u"'`[\"a\"]`'"_s << u"a"_s;
        QTest::newRow("blanks and points") << u" main . trips\t\n"_s << u"maintrips"_s;
        QTest::newRow("fraction and superscript") << u"\u00BD\u00B2"_s << u""_s;
        QTest::newRow("nothing") << u""_s << u""_s;
    }

    void anIdentifierKeepsLettersDigitsAndUnderscores()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, clean);
        QCOMPARE(sanitizeSqlIdentifier(text), clean);
    }

    void aTableIsThereOrNot()
    {
        Workspace workspace;
        TestConnection trips(workspace.makeTrips());
        trips.execute(u"CREATE VIEW all_trips AS SELECT * FROM trips"_s);
        QVERIFY(tableExists(trips.database(), u"trips"_s));
        QVERIFY(!tableExists(trips.database(), u"Trips"_s));
        QVERIFY(!tableExists(trips.database(), u"locations"_s));
        QVERIFY(!tableExists(trips.database(), u"all_trips"_s));
        QVERIFY(!tableExists(trips.database(), u"trips' OR '1'='1"_s));
        QVERIFY(!tableExists(trips.database(), u""_s));
        trips.database().close();
        QVERIFY(!tableExists(trips.database(), u"trips"_s));
        QVERIFY(!tableExists(QSqlDatabase(), u"trips"_s));
    }

    void aFileThatIsNoDatabaseHasNoTable()
    {
        const Workspace workspace;
        const QByteArray noise = QByteArray::fromHex("9f03c1e6774a00d2").repeated(512);
        TestConnection trips(workspace.makeFile(u"trips.db"_s, noise));
        QVERIFY(!tableExists(trips.database(), u"trips"_s));
        QCOMPARE(workspace.bytes(u"trips.db"_s), noise);
    }
};

TEST_CLASS(tst_DatabaseLocator)
#include "tst_DatabaseLocator.moc"
