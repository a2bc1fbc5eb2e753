#include "data/DatabaseLocator.h"
#include "samples/SqlScript.h"
#include "support/RowMakers.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString tripsScript = QStringLiteral(BRINDLEPATH_SCHEMA_DIR "/trips.sql");

const QString tableCount = u"SELECT COUNT(*) FROM sqlite_master WHERE type = 'table'"_s;

} // namespace

class tst_SqlScript : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void makesTheFileThatIsMissing();
    void aSecondRunTellsWhatIsThereAndChangesNothing();
    void aMissingScriptIsToldAndMakesNoFile();
    void aFolderThatIsMissingIsTold();
    void aScriptThatFailsHalfwayLeavesNothing();
    void commentsAndSemicolonsInTextAreNoStatements();
    void leavesNoConnectionBehind();
};

void tst_SqlScript::makesTheFileThatIsMissing()
{
    const Workspace workspace;
    QString error;

    QVERIFY2(runSqlScript(tripsScript, workspace.path(u"trips.db"_s), error), qPrintable(error));

    QCOMPARE(error, QString());
    QCOMPARE(workspace.value(u"SELECT COUNT(*) FROM trips"_s).toInt(), 0);
}

void tst_SqlScript::aSecondRunTellsWhatIsThereAndChangesNothing()
{
    Workspace workspace;
    const QString path = workspace.makeTrips();
    trip().insert(workspace);
    const QByteArray before = workspace.bytes(u"trips.db"_s);

    QString error;
    QCOMPARE(runSqlScript(tripsScript, path, error), false);

    QVERIFY2(error.contains("table trips already exists"_L1), qPrintable(error));
    QCOMPARE(workspace.bytes(u"trips.db"_s), before);
}

void tst_SqlScript::aMissingScriptIsToldAndMakesNoFile()
{
    const Workspace workspace;
    const QString script = workspace.path(u"missing.sql"_s);
    QString error;

    QCOMPARE(runSqlScript(script, workspace.path(u"trips.db"_s), error), false);

    QCOMPARE(error, script + ": No such file or directory"_L1);
    QVERIFY(!QFile::exists(workspace.path(u"trips.db"_s)));
}

void tst_SqlScript::aFolderThatIsMissingIsTold()
{
    const Workspace workspace;
    QString error;

    QCOMPARE(runSqlScript(tripsScript, workspace.path(u"missing/trips.db"_s), error), false);

    QVERIFY2(error.contains("unable to open database file"_L1), qPrintable(error));
}

void tst_SqlScript::aScriptThatFailsHalfwayLeavesNothing()
{
    const Workspace workspace;
    const QString script = workspace.makeFile(u"half.sql"_s, "CREATE TABLE trips (id INTEGER);\n"
                                                             "CREATE TABLE trips (id INTEGER);\n");
    QString error;

    QCOMPARE(runSqlScript(script, workspace.path(u"trips.db"_s), error), false);

    QVERIFY2(error.contains("table trips already exists"_L1), qPrintable(error));
    QCOMPARE(workspace.value(tableCount).toInt(), 0);
}

void tst_SqlScript::commentsAndSemicolonsInTextAreNoStatements()
{
    const Workspace workspace;
    const QString script =
        workspace.makeFile(u"script.sql"_s, "-- CREATE TABLE a (id INTEGER);\n\n"
                                            "CREATE TABLE b (note TEXT DEFAULT 'x; y');\n");
    QString error;

    QVERIFY2(runSqlScript(script, workspace.path(u"trips.db"_s), error), qPrintable(error));

    QCOMPARE(workspace.value(tableCount).toInt(), 1);
    workspace.execute(u"INSERT INTO b DEFAULT VALUES"_s);
    QCOMPARE(workspace.value(u"SELECT note FROM b"_s).toString(), u"x; y"_s);
}

void tst_SqlScript::leavesNoConnectionBehind()
{
    const Workspace workspace;
    QString error;

    runSqlScript(tripsScript, workspace.path(u"trips.db"_s), error);
    QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
    runSqlScript(tripsScript, workspace.path(u"trips.db"_s), error);
    QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
}

TEST_CLASS_WITHOUT_WINDOWS(tst_SqlScript)
#include "tst_SqlScript.moc"
