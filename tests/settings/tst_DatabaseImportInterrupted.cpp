#include "settings/Backups.h"
#include "settings/Interruptions.h"
#include "settings/ManyTrips.h"
#include "support/TestProgram.h"
#include "support/surroundings/OtherProgram.h"
#include "support/surroundings/TracedProgram.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;
using End = TracedProgram::End;

/// Imports of a database die at each system call that changes something, or have it fail.
class tst_DatabaseImportInterrupted : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { TracedProgram::worksInMemory(); }
    void importLeavesTheDatabaseOrItsBackup();
    void importOfAWalOverAHotJournalLeavesTheDatabaseOrItsBackup();
};

namespace {

const QString kept = u"ok: 2000 kept"_s;

/// The trips of the file, or of none.
QString tripsInAny(const QString &path)
{
    return QFile::exists(path) ? tripsIn(path) : QString();
}

void interruptImports(const QString &live, const QString &source, const QString &imported)
{
    const TracedProgram program(QStringLiteral(TRANSFER_PROBE), {u"Import"_s, source});
    program.isInterruptedAtEveryCall([&](End end, const TracedProgram::Call &call) {
        noPartOfACopyIsLeft(end, call);
        const QString trips = tripsInAny(live);
        const QString backup = tripsInAny(backups().value(0));
        QVERIFY2(backup == kept || (backup.isEmpty() && trips == kept), qPrintable(backup));
        if (end == End::Well)
            QCOMPARE(trips, imported);
        else if (trips != imported || end == End::Failed)
            QVERIFY2(trips == kept || trips.isEmpty(), qPrintable(trips));
        QCOMPARE(tripsIn(source), imported);
    });
}

} // namespace

void tst_DatabaseImportInterrupted::importLeavesTheDatabaseOrItsBackup()
{
    const auto &[workspace, source, live] = ImportFiles();
    interruptImports(live, source, u"ok: 2000 imported"_s);
}

void tst_DatabaseImportInterrupted::importOfAWalOverAHotJournalLeavesTheDatabaseOrItsBackup()
{
    const auto &[workspace, source, live] = ImportFiles();
    OtherProgram::diesInMidWrite(live, u"trips"_s, u"trip_no"_s);
    OtherProgram::diesInWalMode(source, {u"INSERT INTO trips (trip_no) VALUES ('new')"_s});
    interruptImports(live, source, u"ok: 2000 imported, 1 new"_s);
}

TEST_CLASS_WITHOUT_WINDOWS(tst_DatabaseImportInterrupted)

#include "tst_DatabaseImportInterrupted.moc"
