#include "data/DatabaseLocator.h"
#include "data/SqlStatement.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace DatabaseLocator;

namespace {

const QString name = u"some_connection"_s;
const QString cannotOpen = u"unable to open database file Error opening database"_s;

} // namespace

/// An open finds a file or fails: an empty one out of nothing would pass for the driver's records.
class tst_MissingFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isNotMade()
    {
        const Workspace workspace;
        const QString path = workspace.path(tripsFileName);
        QSqlDatabase handle;
        QString error;
        QVERIFY(!openNamedConnection(handle, name, path, error));
        QCOMPARE(error, cannotOpen);
        QCOMPARE(handle.databaseName(), path);
        QVERIFY(!handle.isOpen());
        QVERIFY(!QFile::exists(path));
        releaseNamedConnection(handle, name);
    }

    void isNotMadeWhereAPageStillHoldsIt()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        QSqlDatabase page;
        QString error;
        QVERIFY(openNamedConnection(page, name, path, error));
        QVERIFY(QFile::rename(path, workspace.path(u"elsewhere.db"_s)));
        QCOMPARE(currentTripsDatabasePath(), path);
        QVERIFY(!openTripsDatabaseConnection(u"one_call"_s, error).isValid());
        QCOMPARE(error, cannotOpen);
        QVERIFY(!QFile::exists(path));
        QSqlDatabase::removeDatabase(u"one_call"_s);
        releaseNamedConnection(page, name);
    }

    void isTheSameOnlyByItsPath()
    {
        Workspace workspace;
        QVERIFY(isSameFile(u"gone.db"_s, workspace.path(u"gone.db"_s)));
        QVERIFY(!isSameFile(u"gone.db"_s, u"gone too.db"_s));
        QVERIFY(!isSameFile(u"gone.db"_s, workspace.makeTrips()));
        QVERIFY(!isSameFile({}, {}));
        QVERIFY(QFile::link(workspace.path(tripsFileName), u"link.db"_s));
        QVERIFY(isSameFile(u"link.db"_s, tripsFileName));
    }

    void opensToWriteOnceItIsThere()
    {
        Workspace workspace;
        QSqlDatabase handle;
        QString error;
        QVERIFY(!openNamedConnection(handle, name, workspace.path(tripsFileName), error));
        QVERIFY(openNamedConnection(handle, name, workspace.makeTrips(), error));
        QVERIFY(runSql(handle, u"INSERT INTO trips (trip_no) VALUES ('4471203')"_s, {}, error));
        releaseNamedConnection(handle, name);
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_MissingFile)
#include "tst_MissingFile.moc"
