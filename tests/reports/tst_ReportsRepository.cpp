#include "reports/ReportRows.h"
#include "reports/ReportsRepository.h"
#include "support/TestProgram.h"

#include <limits>

using namespace Qt::StringLiterals;
using namespace ReportsRepository;

namespace {

const QString week = u"01/02/2026"_s;
const QString nextWeek = u"01/09/2026"_s;
const QString year = u"2026"_s;

using Values = QList<double>;
using SeriesMap = QMap<QString, QList<double>>;
using Sums = QMap<QString, double>;

/// A trips.db of one trip, whose year tells it from another.
QString fileOfYear(Workspace &workspace, const QString &ownYear)
{
    const QString path = workspace.makeTrips();
    haul(u"01/02/"_s + ownYear, 100.0, 10.0, 50.0).insert(workspace);
    const QString moved = workspace.path(ownYear + u".db"_s);
    if (!QFile::rename(path, moved))
        QTest::qFail("The file stayed where it was.", __FILE__, __LINE__);
    return moved;
}

void compareWithNothing(const ReportSeriesData &report)
{
    QCOMPARE(report.title, u"Reports"_s);
    QCOMPARE(report.yAxisLabel, u"Value"_s);
    QCOMPARE(report.payweeks, QStringList());
    QCOMPARE(report.series, SeriesMap());
    QCOMPARE(report.weightedNumerators, Sums());
    QCOMPARE(report.weightedDenominators, Sums());
    QVERIFY(!report.valuesAreDollars);
    QVERIFY(!report.valuesAreMiles);
}

} // namespace

/// The reports of one year, read on a connection that some page holds open.
class tst_ReportsRepository : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void connectionIsBorrowedByNameInOrder()
    {
        Workspace workspace;
        const TestConnection other(fileOfYear(workspace, u"2006"_s), u"a_page"_s);
        const TestConnection fifth(fileOfYear(workspace, u"2005"_s),
                                   u"qt_sql_default_connection"_s);
        const TestConnection fourth(fileOfYear(workspace, u"2004"_s), u"BrindlepathTrips"_s);
        const TestConnection third(fileOfYear(workspace, u"2003"_s), u"trips_db"_s);
        const TestConnection second(fileOfYear(workspace, u"2002"_s), u"trips"_s);
        const TestConnection first(fileOfYear(workspace, u"2001"_s), u"trips_connection"_s);
        QStringList served;
        for (const TestConnection *page : {&first, &second, &third, &fourth, &fifth, &other}) {
            served += listReportYears();
            QSqlDatabase::database(page->database().connectionName(), false).close();
        }
        QCOMPARE(served,
                 QStringList({u"2001"_s, u"2002"_s, u"2003"_s, u"2004"_s, u"2005"_s, u"2006"_s}));
        QCOMPARE(listReportYears(), QStringList());
    }

    void connectionOfAnyPageServes()
    {
        Workspace workspace;
        const TestConnection page(workspace.makeTrips(), u"settlement_trips_connection"_s);
        haul(week, 100.0, 10.0, 50.0).insert(workspace);
        QCOMPARE(listReportYears(), QStringList(year));
        QCOMPARE(loadReportSeries(year, u"miles"_s).payweeks, QStringList(week));
    }

    void closedConnectionIsNotOpened()
    {
        ReportFile file;
        haul(week, 100.0, 10.0, 50.0).insert(file.workspace);
        file.trips.database().close();
        QCOMPARE(listReportYears(), QStringList());
        compareWithNothing(loadReportSeries(year, u"cpms"_s));
        QVERIFY(!file.trips.database().isOpen());
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList(u"trips_connection"_s));
    }

    void withoutAConnectionThereIsNothing()
    {
        Workspace workspace;
        workspace.makeTrips();
        haul(week, 100.0, 10.0, 50.0).insert(workspace);
        QCOMPARE(listReportYears(), QStringList());
        compareWithNothing(loadReportSeries(year, u"cpms"_s));
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
    }

    void connectionOnAnotherFileGivesNothing()
    {
        Workspace workspace;
        const TestConnection locations(workspace.makeLocations(), u"locations_connection"_s);
        QCOMPARE(listReportYears(), QStringList());
        compareWithNothing(loadReportSeries(year, u"miles"_s));
    }

    void fileThatIsNoDatabaseGivesNothing()
    {
        const Workspace workspace;
        const TestConnection page(workspace.makeFile(u"trips.db"_s, QByteArray(4096, 'x')),
                                  u"trips_connection"_s);
        QCOMPARE(listReportYears(), QStringList());
        compareWithNothing(loadReportSeries(year, u"cpms"_s));
    }

    void missingColumnGivesYearsButNoReport()
    {
        const ReportFile file;
        haul(week, 100.0, 10.0, 50.0).insert(file.workspace);
        file.trips.execute(u"ALTER TABLE trips DROP COLUMN fusu"_s);
        QCOMPARE(listReportYears(), QStringList(year));
        compareWithNothing(loadReportSeries(year, u"miles"_s));
    }

    void yearsAreTheLastFourCharactersInAscendingOrder()
    {
        const ReportFile file;
        for (const QString &payweek : {u" 01/09/2026 "_s, week, u"4/18/2026"_s, u"12/26/2025"_s,
                                       u"26"_s, u"   "_s, u"1998"_s})
            haul(payweek, 1.0, 0.0, 1.0).insert(file.workspace);
        trip().set(u"payweek"_s, QVariant()).insert(file.workspace);
        QCOMPARE(listReportYears(), QStringList({u"1998"_s, u"2025"_s, u"2026"_s}));
    }

    void keyThatStartsWithTheYearIsAYearOfItsOwn()
    {
        const ReportFile file;
        haul(u"2026-01-02"_s, 100.0, 10.0, 50.0).insert(file.workspace);
        haul(week, 100.0, 10.0, 50.0).insert(file.workspace);
        QCOMPARE(listReportYears(), QStringList({u"1-02"_s, u"2026"_s}));
        QCOMPARE(loadReportSeries(u"1-02"_s, u"cpms"_s).payweeks, QStringList(u"2026-01-02"_s));
        QCOMPARE(loadReportSeries(year, u"cpms"_s).payweeks, QStringList(week));
    }

    void yearsThatDifferInBlanksAloneAreListedOnce()
    {
        const ReportFile file;
        for (const QString &payweek : {u"week\t026"_s, u"week 026"_s, u"week\t\t\t\t"_s})
            haul(payweek, 1.0, 0.0, 1.0).insert(file.workspace);
        QCOMPARE(listReportYears(), QStringList(u"026"_s));
        QCOMPARE(loadReportSeries(u"026"_s, u"miles"_s).payweeks, QStringList());
    }

    void emptyYearGivesTheTitleReportsAndNoPayweeks()
    {
        const ReportFile file;
        haul(week, 100.0, 10.0, 50.0).insert(file.workspace);
        compareWithNothing(loadReportSeries(QString(), u"cpms"_s));
        compareWithNothing(loadReportSeries(u" \t"_s, u"miles"_s));
    }

    void reportWithoutRowsHasItsTextsAndItsSeries_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("yAxisLabel");
        QTest::addColumn<QString>("flags");
        QTest::addColumn<QStringList>("series");
        const QStringList cpms = {u"Net Revenue CPM"_s, u"Total Revenue CPM"_s,
                                  u"Trip Revenue CPM"_s};
        const QStringList miles = {u"Empty Miles"_s, u"Loaded Miles"_s, u"Total Miles"_s};
        const QStringList both = {u"Total Miles"_s, u"Total Revenue"_s};
        const QStringList net = {u"Net Revenue"_s, u"Total Cost"_s, u"Total Revenue"_s};
        const auto add = [](const QString &key, const QString &title, const QString &label,
                            const QString &flags, const QStringList &series) {
            QTest::newRow(qPrintable(key)) << key << title << label << flags << series;
        };
        for (const QString &key : {u"cpm"_s, u"cpms"_s, u" Cpm "_s})
            add(key, u"Compare CPMs"_s, u"$/mile"_s, u"dollars"_s, cpms);
        for (const QString &key : {u"miles"_s, u"\tMILES"_s})
            add(key, u"Miles (Loaded / Empty / Total)"_s, u"Miles"_s, u"miles"_s, miles);
        for (const QString &key : {u"revenue_vs_miles"_s, u"revenue miles"_s, u"Revenue Miles "_s})
            add(key, u"Revenue vs Miles"_s, u"Scaled values"_s, QString(), both);
        for (const QString &key : {u"rev_cost_net"_s, u""_s, u"mile"_s, u"revenue  miles"_s})
            add(key, u"Revenue vs Cost vs Net"_s, u"Dollars"_s, u"dollars"_s, net);
    }

    void reportWithoutRowsHasItsTextsAndItsSeries()
    {
        QFETCH(const QString, key);
        QFETCH(const QString, flags);
        const ReportFile file;
        const ReportSeriesData report = loadReportSeries(year, key);
        QTEST(report.title, "title");
        QTEST(report.yAxisLabel, "yAxisLabel");
        QTEST(report.series.keys(), "series");
        QCOMPARE(report.valuesAreDollars, flags == u"dollars"_s);
        QCOMPARE(report.valuesAreMiles, flags == u"miles"_s);
        QCOMPARE(report.payweeks, QStringList());
        for (const Values &values : report.series)
            QCOMPARE(values, Values());
    }

    void keyOfCpmsInCapitalsIsTheCpmReport()
    {
        const ReportFile file;
        const ReportSeriesData report = loadReportSeries(year, u"CPMS"_s);
        QCOMPARE(report.title, u"Compare CPMs"_s);
        const Sums none = {{u"Net Revenue CPM"_s, 0.0},
                           {u"Total Revenue CPM"_s, 0.0},
                           {u"Trip Revenue CPM"_s, 0.0}};
        QCOMPARE(report.weightedNumerators, none);
        QCOMPARE(report.weightedDenominators, none);
    }

    void tripsOfAPayweekAddUp_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<SeriesMap>("series");
        QTest::newRow("cpms") << u"cpms"_s
                              << SeriesMap{{u"Trip Revenue CPM"_s, {3.0, 3.6}},
                                           {u"Total Revenue CPM"_s, {3.25, 4.0}},
                                           {u"Net Revenue CPM"_s, {1.25, -1.0}}};
        QTest::newRow("money") << u"rev_cost_net"_s
                               << SeriesMap{{u"Total Revenue"_s, {3250.0, 400.0}},
                                            {u"Total Cost"_s, {2000.0, 500.0}},
                                            {u"Net Revenue"_s, {1250.0, -100.0}}};
        QTest::newRow("miles") << u"miles"_s
                               << SeriesMap{{u"Loaded Miles"_s, {850.0, 100.0}},
                                            {u"Empty Miles"_s, {150.0, 0.0}},
                                            {u"Total Miles"_s, {1000.0, 100.0}}};
        QTest::newRow("both") << u"revenue_vs_miles"_s
                              << SeriesMap{{u"Total Revenue"_s, {3250.0, 400.0}},
                                           {u"Total Miles"_s, {1000.0, 100.0}}};
    }

    void tripsOfAPayweekAddUp()
    {
        QFETCH(const QString, key);
        const ReportFile file;
        haul(nextWeek, 400.0, 500.0, 100.0).insert(file.workspace);
        haul(week, 1000.0, 800.0, 350.0)
            .set(u"linehaul"_s, 900.0)
            .set(u"fusu"_s, 75.0)
            .set(u"empty_miles"_s, 50.0)
            .set(u"total_miles"_s, 400.0)
            .insert(file.workspace);
        haul(u" 01/02/2026 "_s, 2250.0, 1200.0, 500.0)
            .set(u"empty_miles"_s, 100.0)
            .set(u"total_miles"_s, 600.0)
            .insert(file.workspace);
        haul(u"01/02/2025"_s, 9999.0, 9.0, 9.0).insert(file.workspace);
        const ReportSeriesData report = loadReportSeries(u" 2026 "_s, key);
        QCOMPARE(report.payweeks, QStringList({week, nextWeek}));
        QTEST(report.series, "series");
    }

    void weightedSumsAreDollarsAndMilesOfTheYear()
    {
        const ReportFile file;
        haul(week, 1000.0, 400.0, 500.0).insert(file.workspace);
        haul(nextWeek, 1000.0, 700.0, 2000.0).insert(file.workspace);
        const ReportSeriesData report = loadReportSeries(year, u"cpms"_s);
        QCOMPARE(report.weightedNumerators, Sums({{u"Net Revenue CPM"_s, 900.0},
                                                  {u"Total Revenue CPM"_s, 2000.0},
                                                  {u"Trip Revenue CPM"_s, 1800.0}}));
        QCOMPARE(report.weightedDenominators, Sums({{u"Net Revenue CPM"_s, 2500.0},
                                                    {u"Total Revenue CPM"_s, 2500.0},
                                                    {u"Trip Revenue CPM"_s, 2500.0}}));
    }

    void onlyTheCpmReportIsWeighted_data()
    {
        QTest::addColumn<QString>("key");
        for (const char *key : {"miles", "revenue_vs_miles", "rev_cost_net"})
            QTest::newRow(key) << QString::fromLatin1(key);
    }

    void onlyTheCpmReportIsWeighted()
    {
        QFETCH(const QString, key);
        const ReportFile file;
        haul(week, 1000.0, 400.0, 500.0).insert(file.workspace);
        const ReportSeriesData report = loadReportSeries(year, key);
        QCOMPARE(report.payweeks, QStringList(week));
        QCOMPARE(report.weightedNumerators, Sums());
        QCOMPARE(report.weightedDenominators, Sums());
    }

    void payweekWithZeroTotalMilesTakesLoadedAndEmptyMiles_data()
    {
        QTest::addColumn<double>("loaded");
        QTest::addColumn<double>("empty");
        QTest::addColumn<double>("stored");
        QTest::addColumn<double>("total");
        QTest::addColumn<double>("cpm");
        QTest::newRow("both") << 100.0 << 20.0 << 0.0 << 120.0 << 3.0;
        QTest::newRow("empty miles alone") << 0.0 << 90.0 << 0.0 << 90.0 << 4.0;
        QTest::newRow("total below zero") << 100.0 << 20.0 << -1.0 << 120.0 << 3.0;
        QTest::newRow("a total of its own stays") << 100.0 << 20.0 << 180.0 << 180.0 << 2.0;
        QTest::newRow("more driven back than forth") << 100.0 << -220.0 << 0.0 << -120.0 << 0.0;
    }

    void payweekWithZeroTotalMilesTakesLoadedAndEmptyMiles()
    {
        QFETCH(const double, loaded);
        QFETCH(const double, empty);
        QFETCH(const double, stored);
        QFETCH(const double, total);
        QFETCH(const double, cpm);
        const ReportFile file;
        haul(week, 360.0, 0.0, loaded)
            .set(u"empty_miles"_s, empty)
            .set(u"total_miles"_s, stored)
            .insert(file.workspace);
        const SeriesMap miles = loadReportSeries(year, u"miles"_s).series;
        QCOMPARE(miles.value(u"Total Miles"_s), Values({total}));
        QCOMPARE(miles.value(u"Loaded Miles"_s), Values({loaded}));
        const SeriesMap cpms = loadReportSeries(year, u"cpms"_s).series;
        QCOMPARE(cpms.value(u"Total Revenue CPM"_s), Values({cpm}));
    }

    void payweekWithoutMilesHasCpmZeroAndLeavesTheWeightedSumsAlone()
    {
        const ReportFile file;
        haul(week, 1000.0, 400.0, 500.0).insert(file.workspace);
        haul(nextWeek, 5000.0, 400.0, 0.0).insert(file.workspace);
        const ReportSeriesData report = loadReportSeries(year, u"cpms"_s);
        QCOMPARE(report.series, SeriesMap({{u"Net Revenue CPM"_s, {1.2, 0.0}},
                                           {u"Total Revenue CPM"_s, {2.0, 0.0}},
                                           {u"Trip Revenue CPM"_s, {1.8, 0.0}}}));
        QCOMPARE(report.weightedNumerators.value(u"Total Revenue CPM"_s), 1000.0);
        QCOMPARE(report.weightedDenominators.value(u"Total Revenue CPM"_s), 500.0);
    }

    void nullsAndTextsCountAsFarAsTheyAreNumbers()
    {
        const ReportFile file;
        haul(week, 0.0, 0.0, 100.0)
            .set(u"linehaul"_s, QVariant())
            .set(u"fusu"_s, u"50"_s)
            .set(u"total_revenue"_s, u"$1,200.00"_s)
            .set(u"total_cost"_s, u"12 dollars"_s)
            .set(u"net_revenue"_s, QVariant())
            .set(u"empty_miles"_s, u"none"_s)
            .insert(file.workspace);
        QCOMPARE(loadReportSeries(year, u"rev_cost_net"_s).series,
                 SeriesMap({{u"Total Revenue"_s, {0.0}},
                            {u"Total Cost"_s, {12.0}},
                            {u"Net Revenue"_s, {0.0}}}));
        const SeriesMap cpms = loadReportSeries(year, u"cpms"_s).series;
        QCOMPARE(cpms.value(u"Trip Revenue CPM"_s), Values({0.5}));
        const SeriesMap miles = loadReportSeries(year, u"miles"_s).series;
        QCOMPARE(miles.value(u"Empty Miles"_s), Values({0.0}));
    }

    void nothingIsRounded()
    {
        const ReportFile file;
        haul(week, 1e12, 0.004, 1e12).insert(file.workspace);
        const SeriesMap money = loadReportSeries(year, u"rev_cost_net"_s).series;
        QVERIFY(money.value(u"Total Revenue"_s) == Values({1e12}));
        QVERIFY(money.value(u"Total Cost"_s) == Values({0.004}));
        QVERIFY(money.value(u"Net Revenue"_s) == Values({1e12 - 0.004}));
    }

    void numberBeyondAnyAmountCountsZero_data()
    {
        QTest::addColumn<double>("revenue");
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
        QTest::newRow("minus infinite") << -std::numeric_limits<double>::infinity();
        QTest::newRow("largest double") << std::numeric_limits<double>::max();
    }

    void numberBeyondAnyAmountCountsZero()
    {
        QFETCH(const double, revenue);
        const ReportFile file;
        haul(week, 100.0, 10.0, 50.0).set(u"total_revenue"_s, revenue).insert(file.workspace);
        haul(nextWeek, 1e299, 0.0, 1e-20).insert(file.workspace);
        QCOMPARE(loadReportSeries(year, u""_s).series.value(u"Total Revenue"_s),
                 Values({0.0, 1e299}));
        QCOMPARE(loadReportSeries(year, u"cpms"_s).series.value(u"Total Revenue CPM"_s),
                 Values({0.0, 0.0}));
    }

    void payweeksComeInTheOrderOfTheirText()
    {
        const ReportFile file;
        for (const QString &payweek : {u"12/25/2026"_s, u"1/9/2026"_s, nextWeek, u"FY-2026"_s})
            haul(payweek, 1.0, 0.0, 1.0).insert(file.workspace);
        QCOMPARE(loadReportSeries(year, u"miles"_s).payweeks,
                 QStringList({nextWeek, u"1/9/2026"_s, u"12/25/2026"_s, u"FY-2026"_s}));
    }

    void settlementItemsAreInNoReport()
    {
        const ReportFile file;
        haul(week, 1000.0, 400.0, 500.0).insert(file.workspace);
        revenue(week, u"Bonus"_s, 50.0).insert(file.workspace);
        expense(nextWeek, u"Permit"_s, 25.0).insert(file.workspace);
        const ReportSeriesData report = loadReportSeries(year, u"rev_cost_net"_s);
        QCOMPARE(report.payweeks, QStringList(week));
        QCOMPARE(report.series.value(u"Total Revenue"_s), Values({1000.0}));
        QCOMPARE(report.series.value(u"Total Cost"_s), Values({400.0}));
    }

    void nothingIsWritten()
    {
        const ReportFile file;
        haul(week, 1000.0, 400.0, 500.0).insert(file.workspace);
        const QByteArray before = file.workspace.bytes(u"trips.db"_s);
        QCOMPARE(listReportYears(), QStringList(year));
        QCOMPARE(loadReportSeries(year, u"cpms"_s).payweeks, QStringList(week));
        QCOMPARE(file.workspace.bytes(u"trips.db"_s), before);
    }
};

TEST_CLASS(tst_ReportsRepository)
#include "tst_ReportsRepository.moc"
