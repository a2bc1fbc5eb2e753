#include "pdfimport/tools/ToolProcess.h"

#include <QDeadlineTimer>
#include <QProcess>

#include <algorithm>
#include <atomic>

#ifdef Q_OS_LINUX
#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

constexpr int startLimitMs = 5000;
constexpr int killLimitMs = 3000;
constexpr qint64 lookUpMs = 100;

std::atomic<bool> toolsAreEnded = false;
static_assert(std::atomic<bool>::is_always_lock_free); // so that a signal handler may set it

template <typename Value>
void give(Value *target, const Value &value)
{
    if (target)
        *target = value;
}

// Tesseract shares a page out among as many threads as there are cores, and on few cores loses
// more time in waiting for them than they gain: five seconds a page instead of one.
QProcessEnvironment withOneThread()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"OMP_THREAD_LIMIT"_s, u"1"_s);
    return environment;
}

// A program that is killed cannot end its tools, and a page takes Tesseract up to minutes. Runs
// between fork and exec, where only system calls are safe.
void dieWithThisProgram([[maybe_unused]] QProcess &process)
{
#ifdef Q_OS_LINUX
    process.setChildProcessModifier([program = ::getpid()] {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (::getppid() != program) // killed before the line above took effect
            ::_exit(1);
    });
#endif
}

// Whether the program ended by itself, within its limit and while tools may run.
bool comesToItsEnd(QProcess &process, int timeoutMs)
{
    const QDeadlineTimer limit(timeoutMs);
    bool ended = false;
    while (!ended && !toolsAreEnded && !limit.hasExpired())
        ended = process.waitForFinished(int(std::min(lookUpMs, limit.remainingTime())));
    return ended;
}

} // namespace

void endTools()
{
    toolsAreEnded = true;
}

bool runProcess(const QString &program, const QStringList &arguments,
                const QString &workingDirectory, int timeoutMs, QString *standardOutput,
                QString *standardError, int *exitCode)
{
    const auto fail = [&](QLatin1StringView reason) {
        give(standardOutput, QString());
        give(standardError, reason + program);
        give(exitCode, -1);
        return false;
    };

    if (toolsAreEnded)
        return fail("Process ended: "_L1);
    QProcess process;
    process.setProcessEnvironment(withOneThread());
    if (!workingDirectory.trimmed().isEmpty())
        process.setWorkingDirectory(workingDirectory);
    dieWithThisProgram(process);
    process.start(program, arguments);
    if (!process.waitForStarted(startLimitMs))
        return fail("Could not start process: "_L1);
    if (!comesToItsEnd(process, timeoutMs)) {
        process.kill();
        process.waitForFinished(killLimitMs);
        return fail(toolsAreEnded ? "Process ended: "_L1 : "Process timed out: "_L1);
    }
    give(standardOutput, QString::fromLocal8Bit(process.readAllStandardOutput()));
    give(standardError, QString::fromLocal8Bit(process.readAllStandardError()).trimmed());
    give(exitCode, process.exitCode());
    return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}
