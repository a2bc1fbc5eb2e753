#include "support/surroundings/TracedProgram.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// All calls that can make, write, move or remove a file or a folder, or put it on the disk. A file
// that is mapped is written without a call.
const QString tracedCalls =
    u"openat,open,creat,write,pwrite64,writev,pwritev,pwritev2,rename,renameat,renameat2,"
    "unlink,unlinkat,rmdir,mkdir,mkdirat,ftruncate,truncate,fallocate,fsync,fdatasync,sync,syncfs,"
    "sync_file_range,copy_file_range,sendfile,splice,ioctl,link,linkat,symlink,symlinkat,mknod,"
    "mknodat,chmod,fchmod,fchmodat,chown,fchown,fchownat,utimensat"_s;

bool changesSomething(const QString &name, const QString &arguments)
{
    if (name == "openat"_L1 || name == "open"_L1)
        return arguments.contains("O_CREAT"_L1) || arguments.contains("O_TRUNC"_L1);
    if (name == "ioctl"_L1)
        return arguments.contains("FICLONE"_L1);
    if (name.startsWith("write"_L1)) { // to a file, not to the console or a pipe
        static const QRegularExpression file(u"^(\\d+)</"_s);
        return file.match(arguments).captured(1).toInt() > 2;
    }
    return true;
}

QStringList linesOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        QTest::qFail(qPrintable(path), __FILE__, __LINE__);
    return QString::fromLocal8Bit(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

// What is injected into a call that is not traced gets lost.
QStringList injected(const TracedProgram::Call &call, const QString &what)
{
    return {u"--trace="_s + call.name, u"-e"_s,
            u"inject=%1:%2:when=%3"_s.arg(call.name, what).arg(call.number),
            u"--output=/dev/null"_s};
}

/// The files of the current folder as they are at first.
class FirstState
{
public:
    FirstState()
    {
        for (const QString &file : QDir().entryList(QDir::Files))
            QFile::copy(file, copies.filePath(file));
    }

    void comesBack() const
    {
        for (const QString &file : QDir().entryList(QDir::Files))
            QFile::remove(file);
        for (const QString &folder : QDir().entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            QDir(folder).removeRecursively();
        for (const QString &file : QDir(copies.path()).entryList(QDir::Files))
            QFile::copy(copies.filePath(file), file);
    }

private:
    QTemporaryDir copies;
};

} // namespace

TracedProgram::TracedProgram(const QString &programPath, const QStringList &programArguments)
    : program(programPath)
    , arguments(programArguments)
{
}

void TracedProgram::worksInMemory()
{
    if (QDir(u"/dev/shm"_s).exists())
        qputenv("TMPDIR", "/dev/shm");
}

void TracedProgram::isInterruptedAtEveryCall(
    const std::function<void(End, const Call &)> &check) const
{
    const FirstState first;
    const QList<Call> all = calls();
    check(End::Well, {});
    QVERIFY(!all.isEmpty());
    for (const Call &call : all) {
        first.comesBack();
        QCOMPARE(killedAt(call), End::Killed);
        check(End::Killed, call);
        for (const QString &error : {u"ENOSPC"_s, u"EIO"_s}) {
            first.comesBack();
            const End end = failingAt(call, error);
            QVERIFY(end != End::Killed);
            check(end, call);
        }
        QVERIFY2(!QTest::currentTestFailed(), qPrintable("Interrupted at "_L1 + call.line));
    }
}

QList<TracedProgram::Call> TracedProgram::calls() const
{
    const QTemporaryDir folder;
    const QString log = folder.filePath(u"calls"_s);
    if (runs({u"--trace="_s + tracedCalls, u"--decode-fds=path"_s, u"--output="_s + log})
        != End::Well)
        QTest::qFail(qPrintable(program + " did not come to its end."_L1), __FILE__, __LINE__);
    static const QRegularExpression call(u"^(?:\\d+ +)?(\\w+)\\((.*)$"_s);
    QMap<QString, int> numbers;
    QList<Call> changing;
    for (const QString &line : linesOf(log)) {
        const QRegularExpressionMatch match = call.match(line);
        if (!match.hasMatch())
            continue;
        const int number = ++numbers[match.captured(1)];
        if (changesSomething(match.captured(1), match.captured(2)))
            changing.append({match.captured(1), number, line});
    }
    return changing;
}

TracedProgram::End TracedProgram::killedAt(const Call &call) const
{
    return runs(injected(call, u"signal=KILL"_s));
}

TracedProgram::End TracedProgram::failingAt(const Call &call, const QString &error) const
{
    // Of the other calls strace then hears nothing, which is quicker, but no signal gets through.
    return runs(QStringList(u"--seccomp-bpf"_s) + injected(call, u"error="_s + error));
}

TracedProgram::End TracedProgram::runs(const QStringList &options) const
{
    QProcess strace;
    // The leak sanitizer refuses to run under it.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"ASAN_OPTIONS"_s, u"detect_leaks=0"_s);
    strace.setProcessEnvironment(environment);
    strace.start(u"strace"_s,
                 QStringList{u"-f"_s, u"-qqq"_s} + options + QStringList(program) + arguments);
    if (!strace.waitForFinished())
        QTest::qFail("strace did not come to its end.", __FILE__, __LINE__);
    if (strace.exitStatus() == QProcess::CrashExit)
        return End::Killed;
    return strace.exitCode() == 0 ? End::Well : End::Failed;
}
