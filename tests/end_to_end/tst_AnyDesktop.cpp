#include "support/RowMakers.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

void fillBusiness(Workspace &workspace)
{
    const QString week = u"04/18/2026"_s;
    const qint64 id = trip()
                          .no(u"4471203"_s)
                          .payweek(week)
                          .totals(3250.75, 1412.8)
                          .set(u"linehaul"_s, 3000.5)
                          .set(u"fusu"_s, 250.25)
                          .insert(workspace);
    stop(id).at(u"2026-04-17T08:00:00"_s).insert(workspace);
    stop(id).type(u"receiver"_s).at(u"2026-04-18T18:30:00"_s).order(1).insert(workspace);
    payItem(id, u"Layover"_s, 1050.5).insert(workspace);
    fuel(id, u"Truck Fuel"_s, 1412.8, 25.25, 1100.125).insert(workspace);
    expense(week, u"Tire Fund"_s, 12.5).insert(workspace);
    expense(week, u"Insurance"_s, 1234.5).insert(workspace);
    apr(week, 5.25).insert(workspace);
    const TestConnection places(workspace.makeLocations());
    places.execute(u"INSERT INTO locations (code, lat, lon) VALUES ('DAL-01', 32.5, -96.75)"_s);
}

/// The texts of the desk, opened and saved in this locale, and the file that this left.
struct Desk
{
    QString texts;
    QByteArray trips;

    explicit Desk(const QString &locale, bool withIndexes = true)
    {
        Workspace workspace;
        withIndexes ? workspace.makeTrips() : workspace.makeTripsWithoutIndexes();
        fillBusiness(workspace);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const QString &variable : {u"LC_ALL"_s, u"LANG"_s, u"LANGUAGE"_s})
            environment.insert(variable, locale);
        environment.insert(u"XDG_CONFIG_HOME"_s, workspace.path(u"settings"_s));
        QProcess program;
        program.setProcessEnvironment(environment);
        program.setWorkingDirectory(workspace.path(u"."_s));
        program.start(QStringLiteral(DESK_TEXTS), {});
        program.waitForFinished();
        texts = QString::fromUtf8(program.readAllStandardOutput());
        texts.replace(workspace.path({}), u"folder/"_s);
        workspace.execute(u"UPDATE trip_detail_items SET created_at = ''"_s);
        trips = workspace.bytes(u"trips.db"_s);
    }
};

} // namespace

/// The same window and the same file, whatever the desktop's locale writes and the file's indexes
/// are.
class tst_AnyDesktop : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        american = std::make_unique<Desk>(u"en_US.UTF-8"_s);
        for (const QString &text : {u"$1,234.50"_s, u"5.25 %"_s, u"4471203"_s, u"DAL-01"_s})
            QVERIFY2(american->texts.contains(text), qPrintable(american->texts));
    }

    void everyPageAndTheFileAreTheSame_data()
    {
        QTest::addColumn<QString>("locale");
        for (const char *locale : {"C", "de_DE.UTF-8", "fr_CA.UTF-8", "es_ES.UTF-8", "ar_EG.UTF-8",
                                   "hi_IN.UTF-8", "tr_TR.UTF-8"})
            QTest::newRow(locale) << QString::fromLatin1(locale);
    }

    void everyPageAndTheFileAreTheSame()
    {
        QFETCH(const QString, locale);
        const Desk desk(locale);
        QCOMPARE(desk.texts.split(u'\n'), american->texts.split(u'\n'));
        QCOMPARE(desk.trips, american->trips);
    }

    void everyPageIsTheSameWithoutAnIndex()
    {
        const Desk desk(u"en_US.UTF-8"_s, false);
        QCOMPARE(desk.texts.split(u'\n'), american->texts.split(u'\n'));
    }

private:
    std::unique_ptr<Desk> american;
};

TEST_CLASS_WITHOUT_WINDOWS(tst_AnyDesktop)
#include "tst_AnyDesktop.moc"
