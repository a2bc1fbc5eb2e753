#include "support/TestConnection.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "trips/stops/LocationCodes.h"

#include <QDir>
#include <QSqlQuery>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString connectionName = u"trips_page_locations_connection"_s;

/// Makes locations.db with these codes.
QString makeCodes(Workspace &workspace, const QStringList &codes)
{
    const QString path = workspace.makeLocations();
    const TestConnection locations(path);
    for (const QString &code : codes)
        locations.execute(u"INSERT INTO locations (code, name) VALUES (?, 'known')"_s, {code});
    return path;
}

/// The codes after a look at the file; a failure fails the test.
QStringList refreshed(LocationCodes &codes)
{
    QString failure;
    if (!codes.refreshConnection(failure))
        QTest::qFail(qPrintable(failure), __FILE__, __LINE__);
    return codes.codes().list();
}

} // namespace

class tst_LocationCodes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void codesAreReadInTheirOrder()
    {
        Workspace workspace;
        makeCodes(workspace, {u"KC1"_s, u"dal4"_s, u"  "_s, u" Joplin "_s});
        LocationCodes codes;
        QVERIFY(!codes.isOpen());
        QCOMPARE(codes.codes().list(), QStringList());
        QCOMPARE(refreshed(codes), QStringList({u"Joplin"_s, u"dal4"_s, u"KC1"_s}));
        QVERIFY(codes.isOpen());
    }

    void missingFileIsNoFailureAndIsNotMade()
    {
        const Workspace workspace;
        LocationCodes codes;
        QString failure;
        QVERIFY(codes.refreshConnection(failure));
        QCOMPARE(failure, u""_s);
        QCOMPARE(codes.codes().list(), QStringList());
        QVERIFY(!codes.isOpen());
        QVERIFY(!QFile::exists(workspace.path(u"locations.db"_s)));
    }

    void fileThatComesLaterIsFound()
    {
        Workspace workspace;
        LocationCodes codes;
        QCOMPARE(refreshed(codes), QStringList());
        makeCodes(workspace, {u"KC1"_s});
        QCOMPARE(refreshed(codes), QStringList({u"KC1"_s}));
    }

    void openFileIsReadAnewFromWhereItIs()
    {
        Workspace workspace;
        const QString path = makeCodes(workspace, {u"KC1"_s});
        LocationCodes codes;
        refreshed(codes);
        TestConnection(path).execute(u"INSERT INTO locations (code) VALUES ('DAL4')"_s);
        QVERIFY(QDir().mkdir(u"elsewhere"_s));
        QVERIFY(QDir::setCurrent(u"elsewhere"_s));
        QCOMPARE(refreshed(codes), QStringList({u"DAL4"_s, u"KC1"_s}));
    }

    void fileThatDoesNotOpenIsToldAndLeavesNoCodes()
    {
        const Workspace workspace;
        QVERIFY(QDir().mkdir(u"locations.db"_s)); // a folder of that name counts as found
        LocationCodes codes;
        QString failure;
        QVERIFY(!codes.refreshConnection(failure));
        QCOMPARE(failure, u"Could not open locations DB for stop code dropdown: "
                          "unable to open database file Error opening database"_s);
        QCOMPARE(codes.codes().list(), QStringList());
        QVERIFY(!codes.isOpen());
    }

    void fileThatCannotBeReadIsToldAndLeavesNoCodes()
    {
        Workspace workspace;
        const QString path = makeCodes(workspace, {u"KC1"_s});
        LocationCodes codes;
        refreshed(codes);
        TestConnection(path).execute(u"DROP TABLE locations"_s);
        QString failure;
        QVERIFY(!codes.refreshConnection(failure));
        QCOMPARE(failure, u"Could not load location codes: "
                          "no such table: locations Unable to fetch row"_s);
        QCOMPARE(codes.codes().list(), QStringList());
    }

    void newCodeIsWrittenAndSortedInIgnoringCase()
    {
        Workspace workspace;
        const QString path = makeCodes(workspace, {u"B1"_s, u"d4"_s});
        LocationCodes codes;
        refreshed(codes);
        QString error;
        QVERIFY(codes.add(u"C3"_s, error));
        QVERIFY(codes.add(u"a2"_s, error));
        QCOMPARE(codes.codes().list(), QStringList({u"a2"_s, u"B1"_s, u"C3"_s, u"d4"_s}));
        const TestConnection locations(path);
        QCOMPARE(locations.value(u"SELECT COUNT(*) FROM locations"_s).toInt(), 4);
        QCOMPARE(locations.value(
                     u"SELECT '[' || name || street || city || state || zip || notes || ']' || "
                     "COALESCE(lat, 'unknown') || COALESCE(lon, 'unknown') "
                     "FROM locations WHERE code = 'C3'"_s),
                 u"[]unknownunknown"_s);
    }

    void knownCodeStaysAsItIs()
    {
        Workspace workspace;
        const QString path = makeCodes(workspace, {u"KC1"_s});
        LocationCodes codes;
        refreshed(codes);
        QString error;
        QVERIFY(codes.add(u"KC1"_s, error));
        QCOMPARE(codes.codes().list(), QStringList({u"KC1"_s}));
        const TestConnection locations(path);
        QCOMPARE(locations.value(u"SELECT COUNT(*) FROM locations"_s).toInt(), 1);
        QCOMPARE(locations.value(u"SELECT name FROM locations"_s), u"known"_s);
    }

    void codeInAnotherCaseIsNotOfferedTwice()
    {
        Workspace workspace;
        const QString path = makeCodes(workspace, {u"KC1"_s});
        LocationCodes codes;
        refreshed(codes);
        QString error;
        QVERIFY(codes.add(u"kc1"_s, error));
        QCOMPARE(codes.codes().list(), QStringList({u"KC1"_s}));
        // To the file, whose keys mind the case, it is another location.
        QCOMPARE(TestConnection(path).value(u"SELECT COUNT(*) FROM locations"_s).toInt(), 2);
    }

    void codeIsNotAddedWithoutAnOpenFile()
    {
        Workspace workspace;
        const QString path = makeCodes(workspace, {});
        LocationCodes codes;
        QString error;
        QVERIFY(!codes.add(u"KC1"_s, error));
        QCOMPARE(error, u"Locations database is not open."_s);
        QCOMPARE(codes.codes().list(), QStringList());
        QCOMPARE(TestConnection(path).value(u"SELECT COUNT(*) FROM locations"_s).toInt(), 0);
    }

    void codeThatTheFileRefusesIsNotOffered()
    {
        Workspace workspace;
        makeCodes(workspace, {u"KC1"_s});
        LocationCodes codes;
        refreshed(codes);
        QSqlQuery(QSqlDatabase::database(connectionName)).exec(u"PRAGMA query_only = ON"_s);
        QString error;
        QVERIFY(!codes.add(u"DAL4"_s, error));
        QCOMPARE(error, u"attempt to write a readonly database Unable to fetch row"_s);
        QCOMPARE(codes.codes().list(), QStringList({u"KC1"_s}));
    }

    void fileIsClosedWithTheCodes()
    {
        Workspace workspace;
        makeCodes(workspace, {u"KC1"_s});
        {
            LocationCodes codes;
            refreshed(codes);
            QVERIFY(QSqlDatabase::database(connectionName, false).isOpen());
        }
        QVERIFY(!QSqlDatabase::database(connectionName, false).isOpen());
    }
};

TEST_CLASS(tst_LocationCodes)
#include "tst_LocationCodes.moc"
