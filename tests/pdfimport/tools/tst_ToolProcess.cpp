#include "pdfimport/tools/Extraction.h"
#include "pdfimport/tools/ToolProcess.h"
#include "support/TestProgram.h"

#include <QElapsedTimer>
#include <QProcess>

#include <csignal>
#include <sys/prctl.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int amplyMs = 30'000;
constexpr int brieflyMs = 100;
constexpr auto sleepsForAMinute = "echo $$ >started; mv started process; exec sleep 60\n";

/// One run with all that it gives, which starts out as something that no run gives.
struct Run
{
    Run(const QString &program, const QStringList &arguments = {}, const QString &folder = {},
        int timeoutMs = amplyMs)
        : succeeded(runProcess(program, arguments, folder, timeoutMs, &output, &errorText, &code))
    {
    }

    QString output = u"before"_s;
    QString errorText = u"before"_s;
    int code = -99;
    bool succeeded;
};

} // namespace

class tst_ToolProcess : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QVERIFY(!hasChildren()); }

    void aProgramThatEndsWellGivesWhatItWrote()
    {
        const Workspace workspace;
        const Run run(workspace.makeTool(u"tool"_s, "echo '  pay '; echo '  note ' >&2\n"));
        QCOMPARE(run.succeeded, true);
        QCOMPARE(run.code, 0);
        QCOMPARE(run.output, u"  pay \n"_s);
        QCOMPARE(run.errorText, u"note"_s);
    }

    void whatItWroteIsReadInTheEncodingOfTheMachine()
    {
        const Workspace workspace;
        const Run run(workspace.makeTool(
            u"tool"_s, "printf '1.842,00 \\342\\202\\254'; echo caf\\303\\251 >&2; "
                       "printf 'caf\\303\\251' >&2\n"));
        QCOMPARE(run.output, u"1.842,00 €"_s);
        QVERIFY(run.errorText.endsWith(u"café"_s));
    }

    void argumentsArriveAsTheyAreWithNoShellBetween()
    {
        const Workspace workspace;
        const QString tool = workspace.makeTool(u"tool"_s, "printf '%s\\n' \"$#\" \"$@\"\n");
        const Run run(tool, {u"-layout"_s, u"two words"_s, u""_s, u"$HOME `id` \"*\" 'a'; b"_s,
                             u"façade.pdf"_s});
        QCOMPARE(run.output, u"5\n-layout\ntwo words\n\n$HOME `id` \"*\" 'a'; b\nfaçade.pdf\n"_s);
    }

    void aProgramRunsInTheFolderItIsGiven()
    {
        const Workspace workspace;
        const QString tool = workspace.makeTool(u"tools/tool"_s, "pwd -P\n");
        QCOMPARE(Run(tool, {}, workspace.path(u"tools"_s)).output,
                 workspace.path(u"tools"_s) + u'\n');
    }

    void aProgramWithoutAFolderRunsInTheCurrentOne_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::newRow("none") << QString();
        QTest::newRow("empty") << u""_s;
        QTest::newRow("blanks") << u"  \t"_s;
    }

    void aProgramWithoutAFolderRunsInTheCurrentOne()
    {
        QFETCH(const QString, folder);
        const Workspace workspace;
        const Run run(workspace.makeTool(u"tool"_s, "pwd -P\n"), {}, folder);
        QCOMPARE(run.output, QDir::currentPath() + u'\n');
    }

    void aProgramThatFailsGivesItsExitCodeAndWhatItWrote()
    {
        const Workspace workspace;
        const Run run(workspace.makeTool(u"tool"_s, "echo half; echo ' broken ' >&2; exit 7\n"));
        QCOMPARE(run.succeeded, false);
        QCOMPARE(run.code, 7);
        QCOMPARE(run.output, u"half\n"_s);
        QCOMPARE(run.errorText, u"broken"_s);
    }

    void aProgramThatCrashesHasFailed()
    {
        const Workspace workspace;
        const Run run(workspace.makeTool(u"tool"_s, "echo half; kill -KILL $$\n"));
        QCOMPARE(run.succeeded, false);
        QCOMPARE(run.output, u"half\n"_s);
        QCOMPARE(run.errorText, u""_s);
    }

    void aProgramThatCannotStartSaysSo_data()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QString>("folder");
        QTest::newRow("missing") << u"missing"_s << u""_s;
        QTest::newRow("not executable") << u"text"_s << u""_s;
        QTest::newRow("a folder") << u"folder"_s << u""_s;
        QTest::newRow("its folder is missing") << u"tool"_s << u"nowhere"_s;
    }

    void aProgramThatCannotStartSaysSo()
    {
        QFETCH(const QString, program);
        QFETCH(const QString, folder);
        const Workspace workspace;
        workspace.makeTool(u"tool"_s, "echo started\n");
        workspace.makeFile(u"text"_s, "#!/bin/sh\necho started\n");
        workspace.makeFile(u"folder/file"_s, "");
        const QString path = workspace.path(program);
        const Run run(path, {}, folder.isEmpty() ? folder : workspace.path(folder));
        QCOMPARE(run.succeeded, false);
        QCOMPARE(run.code, -1);
        QCOMPARE(run.output, u""_s);
        QCOMPARE(run.errorText, u"Could not start process: "_s + path);
    }

    void aProgramThatHangsIsKilledAtItsLimit()
    {
        const Workspace workspace;
        const QString tool =
            workspace.makeTool(u"tool"_s, "echo $$ >process\necho half; exec sleep 60\n");
        QElapsedTimer clock;
        clock.start();
        const Run run(tool, {}, {}, brieflyMs);
        QVERIFY(clock.elapsed() < amplyMs);
        QCOMPARE(run.succeeded, false);
        QCOMPARE(run.code, -1);
        QCOMPARE(run.output, u""_s);
        QCOMPARE(run.errorText, u"Process timed out: "_s + tool);
        const int process = workspace.bytes(u"process"_s).trimmed().toInt();
        QVERIFY(process > 0);
        QCOMPARE(::kill(process, 0), -1);
    }

    void aProgramThatIgnoresBeingAskedToEndIsKilledToo()
    {
        const Workspace workspace;
        const QString tool =
            workspace.makeTool(u"tool"_s, "trap '' TERM INT HUP\nwhile :; do :; done\n");
        QCOMPARE(Run(tool, {}, {}, brieflyMs).errorText, u"Process timed out: "_s + tool);
    }

    void aProgramDiesWithTheOneThatRunsIt()
    {
        const Workspace workspace;
        const QString tool = workspace.makeTool(u"tool"_s, sleepsForAMinute);
        ::prctl(PR_SET_CHILD_SUBREAPER, 1); // so that the orphan is this test's to wait for
        QProcess probe;
        probe.start(QStringLiteral(TOOL_PROBE), {tool});
        QTRY_VERIFY(QFile::exists(workspace.path(u"process"_s)));
        probe.kill();
        QVERIFY(probe.waitForFinished());
        const int process = workspace.bytes(u"process"_s).trimmed().toInt();
        int status = 0;
        QVERIFY(QTest::qWaitFor([&] { return ::waitpid(process, &status, WNOHANG) == process; }));
        QVERIFY(WIFSIGNALED(status));
    }

    void programsEndAndStartNoMoreWhenThisOneIsAskedToEnd()
    {
        const Workspace workspace;
        const QString tool = workspace.makeTool(u"tool"_s, sleepsForAMinute);
        QProcess probe;
        probe.start(QStringLiteral(TOOL_PROBE), {tool});
        QTRY_VERIFY(QFile::exists(workspace.path(u"process"_s)));
        probe.terminate();
        QVERIFY(probe.waitForFinished(10'000));
        QCOMPARE(QString::fromLocal8Bit(probe.readAll()),
                 u"Process ended: %1\nProcess ended: %1\n"_s.arg(tool));
        const int process = workspace.bytes(u"process"_s).trimmed().toInt();
        QCOMPARE(::kill(process, 0), -1);
    }

    void muchOutputOnBothSidesArrivesWhole()
    {
        const Workspace workspace;
        const Run run(workspace.makeTool(
            u"tool"_s,
            "exec /usr/bin/awk 'BEGIN { for (i = 0; i < 50000; ++i) { print \"123456789\"; "
            "print \"987654321\" > \"/dev/stderr\" } }'\n"));
        QCOMPARE(run.succeeded, true);
        QCOMPARE(run.output.size(), 500'000);
        QCOMPARE(run.errorText.size(), 499'999);
    }

    void whatNoOneAsksForIsLeftOut()
    {
        const Workspace workspace;
        const QString tool = workspace.makeTool(u"tool"_s, "echo pay; echo note >&2\n");
        QVERIFY(runProcess(tool, {}, {}, amplyMs, nullptr, nullptr, nullptr));
        QVERIFY(!runProcess(tool, {}, workspace.path(u"nowhere"_s), amplyMs, nullptr, nullptr,
                            nullptr));
        int code = -99;
        QVERIFY(runProcess(tool, {}, {}, amplyMs, nullptr, nullptr, &code));
        QCOMPARE(code, 0);
    }

    void aProgramFindsTheEnvironmentOfThisOneAndOneThread()
    {
        const Workspace workspace;
        const EnvironmentValue value("BRINDLEPATH_TEST", u"as it was"_s);
        const Run run(
            workspace.makeTool(u"tool"_s, "echo \"$BRINDLEPATH_TEST, $OMP_THREAD_LIMIT\"\n"));
        QCOMPARE(run.output, u"as it was, 1\n"_s);
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_ToolProcess)
#include "tst_ToolProcess.moc"
