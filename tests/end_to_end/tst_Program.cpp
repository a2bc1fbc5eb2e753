#include "end_to_end/StartedProgram.h"
#include "support/RowMakers.h"
#include "support/TestProgram.h"

#include <QDir>

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
    StartedProgram program(workspace);
    QVERIFY(!program.waitForFinished(1500)); // still there: no crash, no early return
    program.terminate();
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.words(), QString());
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
