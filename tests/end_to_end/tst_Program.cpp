#include "support/RowMakers.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QDir>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;

/// The program itself, as the system starts it.
class tst_Program : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithoutDatabases();
    void startsOnADatabase();
    void startsAtASavedScaleOutsideTheRange();

private:
    static void startsQuietly(const Workspace &workspace);
};

// Holds the program's start to what can be seen from outside: it stays up, it says nothing, and
// the folder holds the files that it held before.
void tst_Program::startsQuietly(const Workspace &workspace)
{
    const QStringList filesBefore = QDir().entryList(QDir::Files);
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    environment.insert(u"XDG_CONFIG_HOME"_s, workspace.path(u"settings"_s));
    environment.insert(u"XDG_RUNTIME_DIR"_s, workspace.path(u"run"_s));
    program.setProcessEnvironment(environment);
    program.setWorkingDirectory(workspace.path(u"."_s));
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(QStringLiteral(PROGRAM), QStringList());
    QVERIFY2(program.waitForStarted(), qPrintable(program.errorString()));
    QVERIFY(!program.waitForFinished(1500)); // still there: no crash, no early return
    program.terminate();
    QVERIFY(program.waitForFinished());
    // What Qt says of a platform without a screen is none of the program's words.
    const QByteArray said = program.readAll().replace(
        "This plugin does not support propagateSizeHints()\n", QByteArray());
    QCOMPARE(QString::fromUtf8(said), QString());
    QCOMPARE(QDir().entryList(QDir::Files), filesBefore);
}

void tst_Program::startsWithoutDatabases()
{
    const Workspace workspace;
    startsQuietly(workspace);
}

void tst_Program::startsOnADatabase()
{
    Workspace workspace;
    workspace.makeTrips();
    workspace.makeLocations();
    trip().insert(workspace);
    startsQuietly(workspace);
}

void tst_Program::startsAtASavedScaleOutsideTheRange()
{
    const Workspace workspace;
    Workspace::saveScale(500);
    startsQuietly(workspace);
}

TEST_CLASS_WITHOUT_WINDOWS(tst_Program)

#include "tst_Program.moc"
