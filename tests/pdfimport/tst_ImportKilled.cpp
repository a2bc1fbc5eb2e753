#include "pdfimport/ImportedFile.h"
#include "support/TestProgram.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTest>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

constexpr int rowsOfTheImport = 60;
constexpr int kills = 200;

/// A program that stands ready to import into the `trips.db` of the workspace.
class ReadyImport
{
public:
    ReadyImport()
    {
        process.start(QStringLiteral(IMPORT_PROBE), {});
        if (!process.waitForReadyRead())
            QTest::qFail("The import is not ready.", __FILE__, __LINE__);
    }

    void runs()
    {
        process.write("!");
        process.waitForBytesWritten();
        running.start();
    }

    [[nodiscard]] qint64 ranFor() const { return running.nsecsElapsed(); }

    void comesToItsEnd()
    {
        if (!process.waitForFinished() || process.exitCode() != 0)
            QTest::qFail("The import did not come to its end.", __FILE__, __LINE__);
    }

    void isKilled()
    {
        process.kill();
        process.waitForFinished();
    }

private:
    QProcess process;
    QElapsedTimer running;
};

/// Imports one after another, each into a new copy of the same file.
class Imports
{
public:
    Imports()
    {
        workspace.makeTrips();
        insertBusinessWeek(workspace);
        others = otherRows(workspace);
        QFile::rename(trips, untouched);
    }

    /// Gives the nanoseconds that an import takes when it is let alone.
    qint64 oneInPeace() const
    {
        layOutTheFile();
        ReadyImport import;
        import.runs();
        import.comesToItsEnd();
        return import.ranFor();
    }

    void oneKilledAfter(qint64 nanoseconds) const
    {
        layOutTheFile();
        ReadyImport import;
        import.runs();
        while (import.ranFor() < nanoseconds)
            QThread::yieldCurrentThread();
        import.isKilled();
    }

    /// Whether a transaction was cut off; the next to open the file takes it back.
    [[nodiscard]] bool leftAJournal() const { return QFile::exists(journal); }

    /// The rows of the last import, after making sure that they are all there or none.
    [[nodiscard]] int rowsLeft() const
    {
        const int rows = static_cast<int>(fuelRows(workspace).size());
        const bool sound = workspace.value(u"PRAGMA integrity_check"_s).toString() == "ok"_L1
                           && (rows == 0 || rows == rowsOfTheImport)
                           && loggedImportCount(workspace) == rows / rowsOfTheImport
                           && otherRows(workspace) == others;
        if (!sound)
            QTest::qFail(qPrintable(u"%1 rows are left."_s.arg(rows)), __FILE__, __LINE__);
        return rows;
    }

private:
    void layOutTheFile() const
    {
        QFile::remove(journal);
        QFile::remove(trips);
        QFile::copy(untouched, trips);
    }

    Workspace workspace;
    QString trips = workspace.path(u"trips.db"_s);
    QString journal = workspace.path(u"trips.db-journal"_s);
    QString untouched = workspace.path(u"untouched.db"_s);
    QList<QStringList> others;
};

} // namespace

class tst_ImportKilled : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void importLetAloneLeavesAllOfItsRows()
    {
        const Imports imports;
        QVERIFY(imports.oneInPeace() > 0);
        QCOMPARE(imports.rowsLeft(), rowsOfTheImport);
        QVERIFY(!imports.leftAJournal());
    }

    void importKilledAtAnyTimeLeavesAllOfItsRowsOrNone()
    {
        const Imports imports;
        qint64 longest = 0;
        for (int run = 0; run < 5; ++run)
            longest = qMax(longest, imports.oneInPeace());
        // Half as long again, so that the last kills come too late on a busy machine too.
        const qint64 step = longest * 3 / 2 / kills;
        int all = 0;
        int none = 0;
        int cutOff = 0;
        for (int kill = 0; kill < kills; ++kill) {
            imports.oneKilledAfter(step * kill);
            cutOff += imports.leftAJournal() ? 1 : 0;
            ++(imports.rowsLeft() == rowsOfTheImport ? all : none);
        }
        QVERIFY(all > 0);
        QVERIFY(none > 0);
        QVERIFY(cutOff > 0);
        QCOMPARE(all + none, kills);
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_ImportKilled)
#include "tst_ImportKilled.moc"
