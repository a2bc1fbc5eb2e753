#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

struct Ended
{
    int exitCode = -1;
    QString errors;
};

Ended makeSamples(const QStringList &arguments, const QString &timeZone = u"America/Chicago"_s)
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"TZ"_s, timeZone);
    // A login sets this; without it Qt warns on the console.
    const QTemporaryDir runtime;
    environment.insert(u"XDG_RUNTIME_DIR"_s, runtime.path());
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(MAKE_SAMPLES), arguments);
    if (!program.waitForFinished())
        return {};
    return {program.exitCode(), QString::fromUtf8(program.readAllStandardError())};
}

} // namespace

class tst_MakeSamples : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void makesThreeYearsByDefault();
    void takesYearsAndSeed();
    void aTimeZoneChangesNothing();
    void aSecondRunIsRefusedAndChangesNothing();
    void wrongArgumentsGiveTheUsage_data();
    void wrongArgumentsGiveTheUsage();
};

void tst_MakeSamples::makesThreeYearsByDefault()
{
    const Workspace workspace;

    const Ended ended = makeSamples({workspace.path({})});

    QCOMPARE(ended.errors, QString());
    QCOMPARE(ended.exitCode, 0);
    const QString weeks =
        u"SELECT COUNT(DISTINCT settlement_date) FROM settlement_non_trip_items"_s;
    QCOMPARE(workspace.value(weeks).toInt(), 157);
    QVERIFY(QFile::exists(workspace.path(u"locations.db"_s)));
    QCOMPARE(QDir(workspace.path(u"settlements"_s)).entryList(QDir::Files),
             QStringList(
                 {u"2026-11-13-scanned.pdf"_s, u"2026-11-20.pdf"_s, u"last-fifteen-weeks.pdf"_s}));
}

void tst_MakeSamples::takesYearsAndSeed()
{
    const Workspace workspace;

    QCOMPARE(makeSamples({workspace.path(u"one"_s), u"1"_s, u"7"_s}).exitCode, 0);
    QCOMPARE(makeSamples({workspace.path(u"same"_s), u"1"_s, u"7"_s}).exitCode, 0);
    QCOMPARE(makeSamples({workspace.path(u"other"_s), u"1"_s, u"8"_s}).exitCode, 0);

    QVERIFY(workspace.bytes(u"one/trips.db"_s) == workspace.bytes(u"same/trips.db"_s));
    QVERIFY(workspace.bytes(u"one/trips.db"_s) != workspace.bytes(u"other/trips.db"_s));
}

void tst_MakeSamples::aTimeZoneChangesNothing()
{
    const Workspace workspace;

    makeSamples({workspace.path(u"here"_s)});
    makeSamples({workspace.path(u"there"_s)}, u"Europe/Berlin"_s);

    QVERIFY(workspace.bytes(u"here/trips.db"_s) == workspace.bytes(u"there/trips.db"_s));
}

void tst_MakeSamples::aSecondRunIsRefusedAndChangesNothing()
{
    const Workspace workspace;
    makeSamples({workspace.path({}), u"1"_s});
    const QByteArray before = workspace.bytes(u"trips.db"_s);

    const Ended ended = makeSamples({workspace.path({}), u"2"_s});

    QCOMPARE(ended.exitCode, 1);
    QCOMPARE(ended.errors,
             workspace.path(u"trips.db"_s) + " is there already and is not overwritten.\n"_L1);
    QVERIFY(workspace.bytes(u"trips.db"_s) == before);
}

void tst_MakeSamples::wrongArgumentsGiveTheUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("no folder") << QStringList();
    QTest::newRow("no years") << QStringList{u"samples"_s, u"0"_s};
    QTest::newRow("too many years") << QStringList{u"samples"_s, u"21"_s};
    QTest::newRow("years in words") << QStringList{u"samples"_s, u"three"_s};
    QTest::newRow("seed in words") << QStringList{u"samples"_s, u"3"_s, u"x"_s};
    QTest::newRow("negative seed") << QStringList{u"samples"_s, u"3"_s, u"-1"_s};
    QTest::newRow("one too many") << QStringList{u"samples"_s, u"3"_s, u"1"_s, u"1"_s};
}

void tst_MakeSamples::wrongArgumentsGiveTheUsage()
{
    QFETCH(const QStringList, arguments);
    const Workspace workspace;

    const Ended ended = makeSamples(arguments);

    QCOMPARE(ended.exitCode, 1);
    QCOMPARE(ended.errors,
             u"Usage: make_samples FOLDER [YEARS] [SEED]\n"
             "YEARS is 1 to 20, by default 3; SEED is a whole number, by default 1.\n"_s);
    QVERIFY(!QFile::exists(workspace.path(u"samples"_s)));
}

TEST_CLASS_WITHOUT_WINDOWS(tst_MakeSamples)
#include "tst_MakeSamples.moc"
