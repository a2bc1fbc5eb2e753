#include "locations/LocationsRepository.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace LocationsRepository;

namespace {

const QString upstate = u"INSERT INTO locations (code, name, street, city, state, zip, lat, lon, "
                        "notes) VALUES ('ALB1', 'Dock 1', '1 Pier St', 'Albany', 'NY', '12202', "
                        "42.65, -73.75, 'No parking')"_s;
const QStringList albany = {u"ALB1"_s,  u"Dock 1"_s, u"1 Pier St"_s, u"Albany"_s,    u"NY"_s,
                            u"12202"_s, u"42.65"_s,  u"-73.75"_s,    u"No parking"_s};

QStringList located(const QString &code, const QString &latitude)
{
    return {code, u"Dock"_s, {}, {}, {}, {}, latitude, {}, {}};
}

QList<QStringList> allLocations(const QSqlDatabase &database)
{
    QList<QStringList> rows;
    QString error;
    if (!loadLocations(database, rows, error))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    return rows;
}

} // namespace

/// The SQL of locations.db, on a file as the program finds it.
class tst_LocationsRepository : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void closedConnectionListsNothing()
    {
        const Workspace workspace;
        const QSqlDatabase closed;
        const QString text = u"Locations database is not open."_s;
        QList<QStringList> rows = {{u"left over"_s}};
        QStringList codes = {u"left over"_s};
        QString error;
        QVERIFY(!loadLocations(closed, rows, error));
        QCOMPARE(error, text);
        QCOMPARE(rows, QList<QStringList>());
        error.clear();
        QVERIFY(!loadLocationCodes(closed, codes, error));
        QCOMPARE(error, text);
        QCOMPARE(codes, QStringList());
    }

    void closedConnectionTakesNoChange()
    {
        const Workspace workspace;
        const QSqlDatabase closed;
        const QString text = u"Locations database is not open."_s;
        QString error;
        QVERIFY(!saveLocation(closed, albany, error));
        QCOMPARE(error, text);
        error.clear();
        QVERIFY(!updateLocation(closed, u"ALB1"_s, albany, error));
        QCOMPARE(error, text);
        error.clear();
        QVERIFY(!addLocationCode(closed, u"ALB1"_s, error));
        QCOMPARE(error, text);
        error.clear();
        QVERIFY(!removeLocation(closed, u"ALB1"_s, error));
        QCOMPARE(error, text);
    }

    void locationLoadsInColumnOrder()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeLocations());
        file.execute(upstate);
        QCOMPARE(allLocations(file.database()), QList<QStringList>({albany}));
    }

    void savedLocationLoadsAsTyped()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeLocations());
        QString error = u"left over"_s;
        QVERIFY(saveLocation(file.database(), albany, error));
        QCOMPARE(error, QString());
        QCOMPARE(allLocations(file.database()), QList<QStringList>({albany}));
    }

    void textsAreTrimmedBeforeTheyAreStored()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeLocations());
        QString error;
        QVERIFY(saveLocation(file.database(),
                             {u" ALB1 "_s, u" Dock\t"_s, u" a "_s, u" b "_s, u" c "_s, u" d "_s,
                              u" 1.5 "_s, u" -2 "_s, u" e\n"_s},
                             error));
        QCOMPARE(file.value(u"SELECT code || name || street || city || state || zip || notes "
                            "FROM locations"_s),
                 u"ALB1Dockabcde"_s);
        QCOMPARE(file.value(u"SELECT lat + lon FROM locations"_s), -0.5);
    }

    void blankDegreeIsUnknown()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeLocations());
        QString error;
        QVERIFY(saveLocation(file.database(), located(u"ALB1"_s, u"  "_s), error));
        QCOMPARE(file.value(u"SELECT typeof(lat) || typeof(lon) FROM locations"_s), u"nullnull"_s);
        QCOMPARE(allLocations(file.database()).first().at(Latitude), QString());
    }

    void blankTextIsStoredAsTextNotAsNull()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeLocations());
        QString error;
        QVERIFY(saveLocation(file.database(), located(u"ALB1"_s, {}), error));
        QCOMPARE(file.value(u"SELECT typeof(street) || typeof(notes) FROM locations"_s),
                 u"texttext"_s);
    }

    void degreeThatIsNoNumberIsZero()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeLocations());
        QString error;
        QVERIFY(saveLocation(file.database(), located(u"ALB1"_s, u"abc"_s), error));
        QCOMPARE(file.value(u"SELECT lat FROM locations"_s), 0.0);
        QCOMPARE(allLocations(file.database()).first().at(Latitude), u"0"_s);
    }

    void savingAKnownCodeOverwritesItsLocation()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeLocations());
        file.execute(upstate);
        QString error;
        QVERIFY(saveLocation(file.database(), located(u"ALB1"_s, u"1.5"_s), error));
        const QStringList dock = {u"ALB1"_s, u"Dock"_s, {}, {}, {}, {}, u"1.5"_s, {}, {}};
        QCOMPARE(allLocations(file.database()), QList<QStringList>({dock}));
    }

    void locationsAndCodesSortIgnoringCase()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeLocations());
        file.execute(u"INSERT INTO locations (code) VALUES ('ABD'), ('b'), ('abc'), ('C')"_s);
        QStringList codes;
        QString error;
        QVERIFY(loadLocationCodes(file.database(), codes, error));
        QCOMPARE(codes, QStringList({u"abc"_s, u"ABD"_s, u"b"_s, u"C"_s}));
        const QList<QStringList> rows = allLocations(file.database());
        QCOMPARE(rows.at(0).at(Code), u"abc"_s);
        QCOMPARE(rows.at(1).at(Code), u"ABD"_s);
    }

    void codeOfBlanksIsListedButIsNoCode()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeLocations());
        file.execute(u"INSERT INTO locations (code) VALUES ('  '), (' ALB1 '), (NULL)"_s);
        QStringList codes;
        QString error;
        QVERIFY(loadLocationCodes(file.database(), codes, error));
        QCOMPARE(codes, QStringList({u"ALB1"_s}));
        QCOMPARE(allLocations(file.database()).size(), 3);
    }

    void renamedLocationKeepsItsRow()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeLocations());
        file.execute(upstate);
        QString error;
        QVERIFY(updateLocation(file.database(), u" ALB1 "_s, located(u"ALB2"_s, u"7"_s), error));
        QCOMPARE(file.value(u"SELECT group_concat(code || lat) FROM locations"_s), u"ALB27.0"_s);
    }

    void renamingToTheSameCodeUpdatesTheOtherFields()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeLocations());
        file.execute(upstate);
        QString error;
        QVERIFY(updateLocation(file.database(), u"ALB1"_s, located(u"ALB1"_s, u"7"_s), error));
        QCOMPARE(file.value(u"SELECT group_concat(name) FROM locations"_s), u"Dock"_s);
    }

    void updateWithoutAnOldCodeInserts()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeLocations());
        QString error;
        QVERIFY(updateLocation(file.database(), u"  "_s, albany, error));
        QCOMPARE(allLocations(file.database()), QList<QStringList>({albany}));
    }

    void updateToABlankCodeIsRefused()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeLocations());
        file.execute(upstate);
        QString error;
        QVERIFY(!updateLocation(file.database(), u"ALB1"_s, located(u" "_s, u"7"_s), error));
        QCOMPARE(error, u"Location code is required."_s);
        QCOMPARE(allLocations(file.database()), QList<QStringList>({albany}));
    }

    void locationThatIsGoneComesBackAsANewOne()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeLocations());
        QString error = u"left over"_s;
        QVERIFY(updateLocation(file.database(), u"GONE"_s, albany, error));
        QCOMPARE(error, QString());
        QCOMPARE(allLocations(file.database()), QList<QStringList>({albany}));
    }

    void locationThatIsGoneTakesThePlaceOfTheOneWithItsNewCode()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeLocations());
        file.execute(upstate);
        QString error;
        QVERIFY(updateLocation(file.database(), u"GONE"_s, located(u"ALB1"_s, u"7"_s), error));
        QCOMPARE(file.value(u"SELECT group_concat(code || name || lat) FROM locations"_s),
                 u"ALB1Dock7.0"_s);
    }

    void blankCodesSaveALocationWithoutACode()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeLocations());
        QString error;
        QVERIFY(updateLocation(file.database(), u" "_s, located(u" "_s, u"7"_s), error));
        QVERIFY(saveLocation(file.database(), located(u""_s, u"8"_s), error));
        QCOMPARE(file.value(u"SELECT group_concat('(' || code || ')' || lat) FROM locations"_s),
                 u"()8.0"_s);
    }

    void updateTreatsTextsAndDegreesAsASaveDoes()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeLocations());
        file.execute(upstate);
        QString error;
        QVERIFY(updateLocation(file.database(), u"ALB1"_s,
                               {u" ALB2 "_s, u" Dock "_s, u" a "_s, u" b "_s, u" c "_s, u" d "_s,
                                u"  "_s, u"abc"_s, u" e "_s},
                               error));
        QCOMPARE(file.value(u"SELECT code || name || street || city || state || zip || "
                            "typeof(lat) || lon || notes FROM locations"_s),
                 u"ALB2Dockabcdnull0.0e"_s);
    }

    void renamingOntoAnotherLocationIsRefusedByTheFile()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeLocations());
        file.execute(upstate);
        file.execute(u"INSERT INTO locations (code) VALUES ('BUF1')"_s);
        QString error;
        QVERIFY(!updateLocation(file.database(), u"BUF1"_s, located(u"ALB1"_s, {}), error));
        QVERIFY2(error.contains(u"UNIQUE constraint failed: locations.code"_s), qPrintable(error));
        QCOMPARE(allLocations(file.database()).size(), 2);
        QCOMPARE(allLocations(file.database()).first(), albany);
    }

    void addedCodeComesWithoutAnythingElse()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeLocations());
        QString error = u"left over"_s;
        QVERIFY(addLocationCode(file.database(), u"NEW1"_s, error));
        QCOMPARE(error, QString());
        QCOMPARE(
            file.value(u"SELECT code || '|' || name || street || city || state || zip || notes "
                       "|| typeof(lat) || typeof(lon) FROM locations"_s),
            u"NEW1|nullnull"_s);
    }

    void addedCodeLeavesAKnownLocationAlone()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeLocations());
        file.execute(upstate);
        QString error;
        QVERIFY(addLocationCode(file.database(), u"ALB1"_s, error));
        QCOMPARE(allLocations(file.database()), QList<QStringList>({albany}));
    }

    void removedLocationIsGoneAlone()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeLocations());
        file.execute(upstate);
        file.execute(u"INSERT INTO locations (code) VALUES ('alb1'), ('BUF1')"_s);
        QString error = u"left over"_s;
        QVERIFY(removeLocation(file.database(), u" BUF1 "_s, error));
        QCOMPARE(error, QString());
        QVERIFY(removeLocation(file.database(), u"alb1"_s, error));
        QCOMPARE(allLocations(file.database()), QList<QStringList>({albany}));
    }

    void removingACodeThatIsNotThereIsNoFailure()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeLocations());
        file.execute(upstate);
        QString error = u"left over"_s;
        QVERIFY(removeLocation(file.database(), u"GONE"_s, error));
        QCOMPARE(error, QString());
        QCOMPARE(allLocations(file.database()), QList<QStringList>({albany}));
    }

    void missingTableGivesTheDriversText()
    {
        const Workspace workspace;
        const TestConnection file(workspace.path(u"empty.db"_s));
        QList<QStringList> rows;
        QStringList codes;
        QString error;
        const QString text = u"no such table: locations"_s;
        QVERIFY(!loadLocations(file.database(), rows, error));
        QVERIFY2(error.contains(text), qPrintable(error));
        QVERIFY(!loadLocationCodes(file.database(), codes, error));
        QVERIFY2(error.contains(text), qPrintable(error));
        QVERIFY(!saveLocation(file.database(), albany, error));
        QVERIFY2(error.contains(text), qPrintable(error));
        QVERIFY(!updateLocation(file.database(), u"ALB1"_s, albany, error));
        QVERIFY2(error.contains(text), qPrintable(error));
        QVERIFY(!addLocationCode(file.database(), u"ALB1"_s, error));
        QVERIFY2(error.contains(text), qPrintable(error));
        QVERIFY(!removeLocation(file.database(), u"ALB1"_s, error));
        QVERIFY2(error.contains(text), qPrintable(error));
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_LocationsRepository)
#include "tst_LocationsRepository.moc"
