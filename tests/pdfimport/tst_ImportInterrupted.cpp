#include "pdfimport/ImportedFile.h"
#include "support/TestProgram.h"
#include "support/surroundings/TracedProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;
using End = TracedProgram::End;

/// An import dies at each system call that changes something, or has it fail.
class tst_ImportInterrupted : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { TracedProgram::worksInMemory(); }
    void importLeavesAllOfItsRowsOrNone();
};

void tst_ImportInterrupted::importLeavesAllOfItsRowsOrNone()
{
    constexpr int rowsOfTheImport = 60;
    Workspace workspace;
    workspace.makeTrips();
    insertBusinessWeek(workspace);
    const QList<QStringList> others = otherRows(workspace);
    const TracedProgram program(QStringLiteral(IMPORT_PROBE), {});
    program.isInterruptedAtEveryCall([&](End end, const TracedProgram::Call &) {
        const int rows = static_cast<int>(fuelRows(workspace).size());
        if (end == End::Killed)
            QVERIFY2(rows == 0 || rows == rowsOfTheImport, qPrintable(QString::number(rows)));
        else
            QCOMPARE(rows, end == End::Well ? rowsOfTheImport : 0);
        QCOMPARE(workspace.value(u"PRAGMA integrity_check"_s).toString(), u"ok"_s);
        QCOMPARE(loggedImportCount(workspace), rows / rowsOfTheImport);
        QCOMPARE(otherRows(workspace), others);
    });
}

TEST_CLASS_WITHOUT_WINDOWS(tst_ImportInterrupted)

#include "tst_ImportInterrupted.moc"
