#include "settlements/ViewPayweekPage.h"
#include "support/RowMakers.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QFile>
#include <QProcess>
#include <QTest>
#include <QTextEdit>

using namespace Qt::StringLiterals;

/// A second program on the rules and repositories alone: without a widget, and with the very
/// figures of the window.
class tst_CoresAlone : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void reportIsThatOfThePage();
    void reportNeedsNoWindows();
    void failureIsToldInOneLine_data();
    void failureIsToldInOneLine();
};

namespace {

struct Outcome
{
    int exitCode;
    QString output;
    QString errors;
};

Outcome run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished())
        QTest::qFail(qPrintable(process.errorString()), __FILE__, __LINE__);
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

} // namespace

void tst_CoresAlone::reportIsThatOfThePage()
{
    Workspace workspace;
    const QString path = workspace.makeTrips();
    const qint64 id = trip().payweek(u"01/09/2026"_s).totals(4321.5, 1234.25).insert(workspace);
    fuel(id, u"Truck Fuel"_s, 448.3, -35.5, 118.276).insert(workspace);
    expense(u"01/02/2026"_s, u"Emergency Fund"_s, 1500.0).insert(workspace);
    expense(u"01/09/2026"_s, u"Insurance"_s, 210.75).insert(workspace);
    apr(u"01/09/2026"_s, 4.25).insert(workspace);
    ViewPayweekPage page;
    page.openDatabase(path);
    const QString shown = page.findChild<QTextEdit *>(u"payweekSummary"_s)->toPlainText();
    QVERIFY2(shown.contains("$4,321.50"_L1), qPrintable(shown));

    const auto [exitCode, output, errors] =
        run(QStringLiteral(PAYWEEK_REPORT), {path, u"01/09/2026"_s});
    QCOMPARE(errors, QString());
    QCOMPARE(output, shown);
    QCOMPARE(exitCode, 0);
}

void tst_CoresAlone::reportNeedsNoWindows()
{
    const QString libraries = run(u"ldd"_s, {QStringLiteral(PAYWEEK_REPORT)}).output;
    QVERIFY2(libraries.contains("libQt6Sql"_L1), qPrintable(libraries));
    QVERIFY2(!libraries.contains("libQt6Widgets"_L1), qPrintable(libraries));
    QVERIFY2(!libraries.contains("libQt6Gui"_L1), qPrintable(libraries));
}

void tst_CoresAlone::failureIsToldInOneLine_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("payweek");
    QTest::addColumn<QString>("part");
    QTest::newRow("no file") << u"gone.db"_s << u"01/09/2026"_s
                             << u"unable to open database file"_s;
    QTest::newRow("a folder") << u"."_s << u"01/09/2026"_s << u"unable to open database file"_s;
    QTest::newRow("no tables") << u"empty.db"_s << u"01/09/2026"_s << u"no such table: trips"_s;
    QTest::newRow("no payweek") << u"trips.db"_s << u""_s << u"Payweek is blank."_s;
}

void tst_CoresAlone::failureIsToldInOneLine()
{
    QFETCH(const QString, file);
    QFETCH(const QString, payweek);
    QFETCH(const QString, part);
    Workspace workspace;
    workspace.makeTrips();
    workspace.makeFile(u"empty.db"_s, {});
    const auto [exitCode, output, errors] =
        run(QStringLiteral(PAYWEEK_REPORT), {workspace.path(file), payweek});
    QCOMPARE(exitCode, 1);
    QCOMPARE(output, QString());
    QVERIFY2(errors.contains(part), qPrintable(errors));
    QCOMPARE(errors.count(u'\n'), 1);
    QVERIFY(!QFile::exists(workspace.path(u"gone.db"_s)));
}

TEST_CLASS(tst_CoresAlone)

#include "tst_CoresAlone.moc"
