#include "reports/ReportRows.h"
#include "reports/ReportText.h"
#include "support/TestProgram.h"

using namespace Qt::StringLiterals;

namespace {

enum Unit { Plain, Dollars, Miles };

ReportSeriesData reportIn(Unit unit)
{
    ReportSeriesData report;
    report.valuesAreDollars = unit == Dollars;
    report.valuesAreMiles = unit == Miles;
    return report;
}

ReportSeriesData named(const QString &title, const QString &series)
{
    ReportSeriesData report;
    report.title = title;
    report.series.insert(series, {1.0});
    return report;
}

} // namespace

/// What a report's chart and table read.
class tst_ReportText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valueReadsInTheUnitOfTheReport_data()
    {
        QTest::addColumn<int>("unit");
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("text");
        const auto add = [](const char *name, Unit unit, double value, const QString &text) {
            QTest::newRow(name) << int(unit) << value << text;
        };
        add("dollars", Dollars, 1234.5, u"$1234.50"_s);
        add("dollars below zero", Dollars, -12.5, u"$-12.50"_s);
        add("no dollars", Dollars, 0.0, u"$0.00"_s);
        add("less than half a cent", Dollars, 0.004, u"$0.00"_s);
        add("very many dollars", Dollars, 1e12, u"$1000000000000.00"_s);
        add("miles", Miles, 2345.4, u"2345"_s);
        add("half a mile", Miles, 0.5, u"1"_s);
        add("half of an even mile", Miles, 2.5, u"3"_s);
        add("half a mile below zero", Miles, -2.5, u"-3"_s);
        add("hardly below zero", Miles, -0.2, u"0"_s);
        add("no miles", Miles, 0.0, u"0"_s);
        add("very many miles", Miles, 1e12, u"1000000000000"_s);
        add("a number", Plain, 1234.567, u"1234.57"_s);
        add("a number below zero", Plain, -3.0, u"-3.00"_s);
        add("a small number", Plain, 0.004, u"0.00"_s);
        add("a large number", Plain, 1e12, u"1000000000000.00"_s);
    }

    void valueReadsInTheUnitOfTheReport()
    {
        QFETCH(const int, unit);
        QFETCH(const double, value);
        QTEST(ReportText::valueText(reportIn(Unit(unit)), value), "text");
    }

    void milesGoBeforeDollars()
    {
        ReportSeriesData report;
        report.valuesAreDollars = true;
        report.valuesAreMiles = true;
        QCOMPARE(ReportText::valueText(report, 7.6), u"8"_s);
    }

    void seriesTellsWhatItIsMadeOf_data()
    {
        QTest::addColumn<QString>("series");
        QTest::addColumn<QString>("tip");
        const QList<std::pair<QString, QString>> tips = {
            {u"Net Revenue CPM"_s, u"Net Revenue ÷ Total Miles"_s},
            {u"Total Revenue CPM"_s, u"Total Revenue ÷ Total Miles"_s},
            {u"Trip Revenue CPM"_s, u"Trip Revenue ÷ Total Miles"_s},
            {u"Total Revenue"_s, u"Trip revenue + non-trip settlement revenue"_s},
            {u"Total Cost"_s, u"Trip costs + non-trip settlement expenses"_s},
            {u"Net Revenue"_s, u"Total Revenue - Total Cost"_s},
            {u"Loaded Miles"_s, u"Total loaded miles for displayed payweeks"_s},
            {u"Empty Miles"_s, u"Total empty miles for displayed payweeks"_s},
            {u"Total Miles"_s, u"Loaded miles + empty miles"_s},
            {u"Trip Revenue"_s, u"Revenue attached directly to trips"_s},
            {u"Non-Trip Revenue"_s, u"Settlement revenue not attached to a trip"_s},
            {u"Non-Trip Expenses"_s, u"Settlement expenses not attached to a trip"_s},
            {u"nEt rEvenue"_s, u"Total Revenue - Total Cost"_s},
            {u"Tolls"_s, u"Reported value for Tolls"_s},
            {u"Total Revenue "_s, u"Reported value for Total Revenue "_s},
        };
        for (const auto &[series, tip] : tips)
            QTest::newRow(qPrintable(series)) << series << tip;
    }

    void seriesTellsWhatItIsMadeOf()
    {
        QFETCH(const QString, series);
        QTEST(ReportText::seriesTip(series), "tip");
    }

    void reportOfCpmsIsWeighted_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("series");
        QTest::addColumn<bool>("weighted");
        QTest::newRow("by its key") << u"cpms"_s << u"Reports"_s << u"Dollars"_s << true;
        QTest::newRow("by its title") << u"cpm"_s << u"Compare CPMs"_s << u"Dollars"_s << true;
        QTest::newRow("title in small letters") << u""_s << u"the cpm"_s << u"Dollars"_s << true;
        QTest::newRow("by a series") << u""_s << u"Reports"_s << u"Net Cpm"_s << true;
        QTest::newRow("by nothing") << u"miles"_s << u"Miles"_s << u"Total Miles"_s << false;
        QTest::newRow("key alone counts whole") << u"cpm"_s << u"Miles"_s << u"Miles"_s << false;
    }

    void reportOfCpmsIsWeighted()
    {
        QFETCH(const QString, key);
        QFETCH(const QString, title);
        QFETCH(const QString, series);
        QTEST(ReportText::isWeighted(named(title, series), key), "weighted");
    }

    void weightedAverageIsDollarsOverMiles()
    {
        ReportSeriesData report;
        report.weightedNumerators = {{u"Total"_s, 2000.0}, {u"Idle"_s, 50.0}, {u"Back"_s, 50.0}};
        report.weightedDenominators = {{u"Total"_s, 2500.0}, {u"Idle"_s, 0.0}, {u"Back"_s, -5.0}};
        QCOMPARE(ReportText::weightedAverage(report, u"Total"_s), 0.8);
        QCOMPARE(ReportText::weightedAverage(report, u"Idle"_s), 0.0);
        QCOMPARE(ReportText::weightedAverage(report, u"Back"_s), 0.0);
        QCOMPARE(ReportText::weightedAverage(report, u"Unknown"_s), 0.0);
    }

    void plainAverageIsTheMeanOfTheWeeks()
    {
        QCOMPARE(ReportText::plainAverage({}), 0.0);
        QCOMPARE(ReportText::plainAverage({-7.0}), -7.0);
        QCOMPARE(ReportText::plainAverage({1.0, 2.0, 6.0}), 3.0);
    }

    void pointTellsSeriesPayweekAndValue()
    {
        const ReportSeriesData report = dollars({{u"50%1 Off"_s, {3.0, -12.5}}});
        QCOMPARE(ReportText::pointTip(report, u"50%1 Off"_s, 1, -12.5),
                 u"50%1 Off\nPayweek: 01/09/2026\nValue: $-12.50"_s);
    }

    void axisReadsMonthAndDay()
    {
        QCOMPARE(ReportText::axisLabel(u"01/02/2026"_s), u"01-02"_s);
        QCOMPARE(ReportText::axisLabel(u"1/2/2026"_s), u"1-2-2"_s);
        QCOMPARE(ReportText::axisLabel(u"2026-01-02"_s), u"2026-"_s);
    }

    void keyShorterThanFiveCharactersLabelsItsPointWithWhatThereIs()
    {
        QCOMPARE(ReportText::axisLabel(u"2026"_s), u"2026"_s);
        QCOMPARE(ReportText::axisLabel(u"/"_s), u"-"_s);
        QCOMPARE(ReportText::axisLabel(QString()), QString());
    }
};

TEST_CLASS(tst_ReportText)
#include "tst_ReportText.moc"
