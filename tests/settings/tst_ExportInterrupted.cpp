#include "settings/Interruptions.h"
#include "settings/ManyTrips.h"
#include "support/TestProgram.h"
#include "support/surroundings/OtherProgram.h"
#include "support/surroundings/TracedProgram.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;
using End = TracedProgram::End;

/// Exports die at each system call that changes something, or have it fail.
class tst_ExportInterrupted : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { TracedProgram::worksInMemory(); }
    void exportLeavesTheOldCopyOrTheNewOne();
    void exportWithAWalLeavesTheOldCopyOrTheNewOne();
};

namespace {

void interruptExports(const QString &live, const QString &copy, const QString &whole)
{
    const TracedProgram program(QStringLiteral(TRANSFER_PROBE), {u"Export"_s, copy});
    const QString old = tripsIn(copy);
    QStringList calls;
    program.isInterruptedAtEveryCall([&](End end, const TracedProgram::Call &call) {
        noPartOfACopyIsLeft(end, call);
        calls.append(call.name);
        QCOMPARE(tripsIn(live), whole);
        const QString trips = tripsIn(copy);
        if (end == End::Killed)
            QVERIFY2(trips == old || trips == whole, qPrintable(trips));
        else
            QCOMPARE(trips, end == End::Well ? whole : old);
    });
    // The copy is on the disk before it has its name.
    QVERIFY(calls.contains(u"fsync"_s));
    QVERIFY(calls.indexOf(u"fsync"_s) < calls.indexOf(u"rename"_s));
}

} // namespace

void tst_ExportInterrupted::exportLeavesTheOldCopyOrTheNewOne()
{
    const auto &[workspace, live, copy] = ExportFiles();
    interruptExports(live, copy, u"ok: 2000 kept"_s);
}

void tst_ExportInterrupted::exportWithAWalLeavesTheOldCopyOrTheNewOne()
{
    const auto &[workspace, live, copy] = ExportFiles();
    OtherProgram::diesInWalMode(live, {u"INSERT INTO trips (trip_no) VALUES ('new')"_s});
    interruptExports(live, copy, u"ok: 2000 kept, 1 new"_s);
}

TEST_CLASS_WITHOUT_WINDOWS(tst_ExportInterrupted)

#include "tst_ExportInterrupted.moc"
