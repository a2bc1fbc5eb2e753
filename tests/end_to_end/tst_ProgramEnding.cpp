#include "end_to_end/StartedProgram.h"
#include "support/RowMakers.h"
#include "support/TestProgram.h"

#include <QDeadlineTimer>
#include <QDir>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

QByteArray systemFile(const QProcess &program, const QString &name)
{
    QFile file(u"/proc/%1/%2"_s.arg(program.processId()).arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool catchesSignals(const QProcess &program)
{
    const QByteArray status = systemFile(program, u"status"_s);
    const qsizetype line = status.indexOf("SigCgt:\t");
    return line >= 0
           && (status.mid(line + 8, 16).toULongLong(nullptr, 16) & (1ULL << (SIGTERM - 1))) != 0;
}

// The program has nothing left to do but to wait for a person, of whom there is none.
bool rests(const QProcess &program)
{
    const QByteArray before = systemFile(program, u"stat"_s);
    QTest::qWait(50);
    return before.contains(" S ") && systemFile(program, u"stat"_s) == before;
}

void send(const QProcess &program, int signal)
{
    ::kill(pid_t(program.processId()), signal);
}

void endsInOrder(QProcess &program)
{
    QVERIFY(program.waitForFinished(10'000));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(QDir().entryList({u"*-journal"_s}), QStringList());
}

void makeSomeTrips(Workspace &workspace)
{
    workspace.makeTrips();
    workspace.makeLocations();
    trip().insert(workspace);
}

} // namespace

/// How the program ends when the system or a terminal asks for it.
class tst_ProgramEnding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endsInOrderOnASignal_data();
    void endsInOrderOnASignal();
    void endsInOrderWithABoxOpen_data();
    void endsInOrderWithABoxOpen();
    void endsInOrderOnSeveralSignalsAtOnce();
    void endsInOrderOnASignalWhileItStarts();
};

void tst_ProgramEnding::endsInOrderOnASignal_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
}

void tst_ProgramEnding::endsInOrderOnASignal()
{
    QFETCH(const int, signal);
    Workspace workspace;
    makeSomeTrips(workspace);
    StartedProgram program(workspace);
    QTRY_VERIFY(rests(program));
    send(program, signal);
    endsInOrder(program);
    QCOMPARE(program.words(), QString());
}

void tst_ProgramEnding::endsInOrderWithABoxOpen_data()
{
    endsInOrderOnASignal_data();
}

void tst_ProgramEnding::endsInOrderWithABoxOpen()
{
    QFETCH(const int, signal);
    const Workspace workspace;
    const QByteArray noDatabase = "not a database\n";
    workspace.makeFile(u"trips.db"_s, noDatabase); // of which several pages complain, in boxes
    StartedProgram program(workspace);
    QTRY_VERIFY(rests(program));
    send(program, signal);
    endsInOrder(program);
    QCOMPARE(workspace.bytes(u"trips.db"_s), noDatabase);
}

void tst_ProgramEnding::endsInOrderOnSeveralSignalsAtOnce()
{
    Workspace workspace;
    makeSomeTrips(workspace);
    StartedProgram program(workspace);
    QTRY_VERIFY(rests(program));
    for (const int signal : {SIGTERM, SIGINT, SIGTERM})
        send(program, signal);
    endsInOrder(program);
}

void tst_ProgramEnding::endsInOrderOnASignalWhileItStarts()
{
    Workspace workspace;
    makeSomeTrips(workspace);
    StartedProgram program(workspace);
    const QDeadlineTimer limit(5'000);
    while (!catchesSignals(program) && !limit.hasExpired()) // as early as can be
        ;
    send(program, SIGTERM);
    endsInOrder(program);
}

TEST_CLASS_WITHOUT_WINDOWS(tst_ProgramEnding)

#include "tst_ProgramEnding.moc"
