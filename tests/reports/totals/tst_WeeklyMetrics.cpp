#include "reports/totals/PayTotalsRepository.h"
#include "reports/totals/TotalsFile.h"
#include "reports/totals/WeeklyMetrics.h"
#include "support/FailingStatement.h"
#include "support/TestProgram.h"

using namespace Qt::StringLiterals;
using namespace PayTotalsRepository;

namespace {

struct KnownMetric
{
    QString key;
    QString label;
    QList<double> values;
};

// What the two weeks of the worked year come to.
const QList<KnownMetric> knownMetrics = {
    {u"trip_count"_s, u"Trip Count"_s, {2.0, 1.0}},
    {u"trip_revenue"_s, u"Trip Revenue"_s, {1500.5, 900.0}},
    {u"settlement_revenue"_s, u"Settlement Revenue"_s, {50.0, 30.0}},
    {u"total_non_trip_revenue"_s, u"Total Non-Trip Revenue"_s, {50.0, 30.0}},
    {u"total_revenue"_s, u"Total Revenue"_s, {1550.5, 930.0}},
    {u"trip_expenses"_s, u"Trip Expenses"_s, {500.25, 300.0}},
    {u"settlement_expenses"_s, u"Settlement Expenses"_s, {175.25, 10.0}},
    {u"total_non_trip_expenses"_s, u"Total Non-Trip Expenses"_s, {175.25, 10.0}},
    {u"total_expenses"_s, u"Total Expenses"_s, {675.5, 310.0}},
    {u"net_revenue"_s, u"Net Revenue"_s, {875.0, 620.0}},
    {u"net_non_trip_settlement_impact"_s, u"Net Non-Trip Settlement Impact"_s, {-120.25, 20.0}},
    {u"emergency_fund_net"_s, u"Emergency Fund Net Impact"_s, {-100.0, 30.0}},
    {u"tire_fund_net"_s, u"Tire Fund Net Impact"_s, {-50.0, 0.0}},
    {u"performance_bond_net"_s, u"Performance Bond Net Impact"_s, {0.0, -10.0}},
    {u"other_non_trip_revenue"_s, u"Other Non-Trip Revenue"_s, {50.0, 0.0}},
    {u"other_non_trip_expense"_s, u"Other Non-Trip Expense"_s, {25.25, 0.0}},
    {u"total_miles"_s, u"Total Miles"_s, {800.0, 200.0}},
    {u"cpm_total_revenue"_s, u"CPM (Total Revenue / Total Miles)"_s, {1.938125, 4.65}},
    {u"cpm_net_revenue"_s, u"CPM (Net Revenue / Total Miles)"_s, {1.09375, 3.1}},
    {u"all_fuel_net"_s, u"All Fuel / DEF Net Cost"_s, {476.0, 100.0}},
    {u"truck_fuel_net"_s, u"Truck Fuel Net Cost"_s, {360.0, 100.0}},
    {u"reefer_fuel_net"_s, u"Reefer Fuel Net Cost"_s, {75.0, 0.0}},
    {u"def_net"_s, u"DEF Net Cost"_s, {29.0, 0.0}},
    {u"fuel_discount"_s, u"Fuel Discounts"_s, {46.0, 0.0}},
    {u"fuel_gallons"_s, u"Fuel Gallons"_s, {130.0, 25.0}},
    {u"fuel_avg_net_ppg"_s, u"Fuel Avg Net $/Gal"_s, {3.6615, 4.0}},
};

// An item and a purchase of its own amount for each of the 53 Fridays of 2027.
QList<double> insertWholeYear(const Workspace &workspace)
{
    QList<double> amounts;
    for (QDate friday(2027, 1, 1); friday.year() == 2027; friday = friday.addDays(7)) {
        amounts.append(double(friday.dayOfYear()));
        const QString payweek = friday.toString(u"MM/dd/yyyy"_s);
        const qint64 id = trip().payweek(payweek).insert(workspace);
        revenue(payweek, u"Bonus"_s, amounts.constLast()).insert(workspace);
        fuel(id, u"DEF"_s, amounts.constLast(), 0.0, 1.0).insert(workspace);
    }
    return amounts;
}

} // namespace

/// Any figure of Pay Totals, payweek by payweek.
class tst_WeeklyMetrics : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachMetricHasItsLabelAndItsFigure_data()
    {
        QTest::addColumn<KnownMetric>("metric");
        QCOMPARE(knownMetrics.size(), 26);
        for (const KnownMetric &metric : knownMetrics)
            QTest::newRow(qPrintable(metric.key)) << metric;
    }

    void eachMetricHasItsLabelAndItsFigure()
    {
        QFETCH(const KnownMetric, metric);
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        QCOMPARE(weeklyMetricLabel(metric.key), metric.label);
        const QList<ChartPoint> series = loadWeeklyMetric(file.database(), year, metric.key);
        QCOMPARE(labelsOf(series), QStringList({week, nextWeek}));
        QCOMPARE(valuesOf(series), metric.values);
    }

    void blanksAndCaseOfAKeyMakeNoDifference()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        QCOMPARE(weeklyMetricLabel(u" DEF_Net\t"_s), u"DEF Net Cost"_s);
        QCOMPARE(valuesOf(loadWeeklyMetric(file.database(), u" 2026 "_s, u" DEF_Net\t"_s)),
                 QList<double>({29.0, 0.0}));
    }

    void unknownKeyGivesZerosUnderItsOwnName()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        const QString key = u" Net-Revenue "_s;
        QCOMPARE(weeklyMetricLabel(key), key);
        const QList<ChartPoint> series = loadWeeklyMetric(file.database(), year, key);
        QCOMPARE(labelsOf(series), QStringList({week, nextWeek}));
        QCOMPARE(valuesOf(series), QList<double>({0.0, 0.0}));
        QCOMPARE(formatWeeklyMetricText(file.database(), year, key),
                 u" Net-Revenue  weekly breakdown\nYear: 2026\n\n01/02/2026  —  0.0000\n"
                 "01/09/2026  —  0.0000\n\nTotal: 0.0000\n"_s);
    }

    void blankKeyOrYearGivesNoSeries()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        QCOMPARE(loadWeeklyMetric(file.database(), year, u" \t"_s).size(), 0);
        QCOMPARE(loadWeeklyMetric(file.database(), u"  "_s, u"trip_count"_s).size(), 0);
        QCOMPARE(loadWeeklyMetric(file.database(), u"2024"_s, u"trip_count"_s).size(), 0);
        QCOMPARE(formatWeeklyMetricText(file.database(), year, u""_s),
                 u" weekly breakdown\nYear: 2026\n\n(no data)\n"_s);
        QCOMPARE(formatWeeklyMetricText(file.database(), u"  "_s, u"trip_count"_s),
                 u"Trip Count weekly breakdown\nYear: \n\n(no data)\n"_s);
    }

    void textHasFourDecimalsAndASum()
    {
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        QCOMPARE(formatWeeklyMetricText(file.database(), u" 2026 "_s, u" NET_REVENUE"_s),
                 u"Net Revenue weekly breakdown\nYear: 2026\n\n01/02/2026  —  875.0000\n"
                 "01/09/2026  —  620.0000\n\nTotal: 1495.0000\n"_s);
    }

    void textAddsUpRatesToo_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("total");
        QTest::newRow("per mile") << u"cpm_total_revenue"_s << u"6.588"_s;
        QTest::newRow("net per mile") << u"cpm_net_revenue"_s << u"4.193"_s;
        QTest::newRow("per gallon") << u"fuel_avg_net_ppg"_s << u"7.661"_s;
    }

    void textAddsUpRatesToo()
    {
        QFETCH(const QString, key);
        QFETCH(const QString, total);
        const TotalsFile file;
        insertWorkedYear(file.workspace);
        const QString text = formatWeeklyMetricText(file.database(), year, key);
        QCOMPARE(text.section(u"\nTotal: "_s, 1).left(5), total);
    }

    void sumIsOfTheValuesAndNotOfTheirTexts()
    {
        QCOMPARE(WeeklyMetrics::text(u"Miles"_s, u"2026"_s, {{week, 0.00004}, {nextWeek, 0.00004}}),
                 u"Miles weekly breakdown\nYear: 2026\n\n01/02/2026  —  0.0000\n"
                 "01/09/2026  —  0.0000\n\nTotal: 0.0001\n"_s);
    }

    void nonTripTotalsAndSettlementFiguresAreReadApart()
    {
        const TotalsFile file;
        trip().payweek(week).insert(file.workspace);
        revenue(week, u"Bonus"_s, 8.0).set(u"kind"_s, u"revenue\t"_s).insert(file.workspace);
        expense(week, u"Permit"_s, 3.0).set(u"kind"_s, u"\texpense"_s).insert(file.workspace);
        const auto valuesOfKey = [&file](const QString &key) {
            return valuesOf(loadWeeklyMetric(file.database(), year, key));
        };
        // SQLite trims blanks alone, and only one of the two readers trims again.
        QCOMPARE(valuesOfKey(u"total_non_trip_revenue"_s), QList<double>({8.0}));
        QCOMPARE(valuesOfKey(u"settlement_revenue"_s), QList<double>({0.0}));
        QCOMPARE(valuesOfKey(u"total_non_trip_expenses"_s), QList<double>({3.0}));
        QCOMPARE(valuesOfKey(u"settlement_expenses"_s), QList<double>({0.0}));
    }

    void payweekWithATabIsListedAndReadAsTheOneWithout()
    {
        const TotalsFile file;
        trip().payweek(week).totals(100.0, 0.0).insert(file.workspace);
        trip().payweek(u"01/02/2026\t"_s).totals(7.0, 0.0).insert(file.workspace);
        const QList<ChartPoint> series = loadWeeklyMetric(file.database(), year, u"trip_revenue"_s);
        QCOMPARE(labelsOf(series), QStringList({week, u"01/02/2026\t"_s}));
        QCOMPARE(valuesOf(series), QList<double>({100.0, 100.0}));
    }

    void wholeYearPreparesEachStatementOnce_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<int>("statements");
        // Two list the weeks; the others look for the tables and read them.
        QTest::newRow("core") << u"settlement_revenue"_s << 2 + 1 + 6;
        QTest::newRow("items") << u"other_non_trip_revenue"_s << 2 + 1 + 1;
        QTest::newRow("fuel") << u"def_net"_s << 2 + 2 + 1;
    }

    void wholeYearPreparesEachStatementOnce()
    {
        QFETCH(const QString, key);
        QFETCH(const int, statements);
        Workspace workspace;
        workspace.makeTrips();
        const QList<double> amounts = insertWholeYear(workspace);
        QCOMPARE(amounts.size(), 53);
        FailingStatement failing;
        const TestConnection trips(workspace.path(u"trips.db"_s));
        failing.comesAfter(statements);
        // One more statement would have failed, and a week been zero.
        QCOMPARE(valuesOf(loadWeeklyMetric(trips.database(), u"2027"_s, key)), amounts);
    }
};

TEST_CLASS(tst_WeeklyMetrics)
#include "tst_WeeklyMetrics.moc"
