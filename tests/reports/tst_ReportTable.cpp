#include "reports/ReportRows.h"
#include "reports/ReportTable.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace {

using Rows = QList<QStringList>;

/// Two payweeks of dollars per mile: 1,000 dollars over 500 miles, and over 2,000.
ReportSeriesData cpms()
{
    ReportSeriesData report = dollars({{u"Trip Revenue CPM"_s, {1.8, 0.45}},
                                       {u"Total Revenue CPM"_s, {2.0, 0.5}},
                                       {u"Net Revenue CPM"_s, {-0.5, 0.25}}});
    report.title = u"Compare CPMs"_s;
    report.weightedNumerators = {{u"Trip Revenue CPM"_s, 1800.0},
                                 {u"Total Revenue CPM"_s, 2000.0},
                                 {u"Net Revenue CPM"_s, 250.0}};
    report.weightedDenominators = {{u"Trip Revenue CPM"_s, 2500.0},
                                   {u"Total Revenue CPM"_s, 2500.0},
                                   {u"Net Revenue CPM"_s, 2500.0}};
    return report;
}

ReportSeriesData miles(const QMap<QString, QList<double>> &series)
{
    ReportSeriesData report = dollars(series);
    report.title = u"Miles (Loaded / Empty / Total)"_s;
    report.valuesAreDollars = false;
    report.valuesAreMiles = true;
    return report;
}

Qt::Alignment alignmentAt(const ReportTable &table, int row, int column)
{
    return Qt::Alignment(table.item(row, column)->textAlignment());
}

} // namespace

/// A report in figures.
class tst_ReportTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void columnsFollowTheSortedNamesOfTheSeries()
    {
        const Workspace workspace;
        ReportTable table;
        table.showReport(cpms(), u"cpms"_s, u"2026"_s);
        QCOMPARE(headers(&table), QStringList({u"Payweek"_s, u"Net Revenue CPM ⓘ"_s,
                                               u"Total Revenue CPM ⓘ"_s, u"Trip Revenue CPM ⓘ"_s}));
        QCOMPARE(table.horizontalHeaderItem(0)->toolTip(), QString());
        QCOMPARE(table.horizontalHeaderItem(1)->toolTip(), u"Net Revenue ÷ Total Miles"_s);
        QCOMPARE(table.horizontalHeaderItem(2)->toolTip(), u"Total Revenue ÷ Total Miles"_s);
        QCOMPARE(table.horizontalHeaderItem(3)->toolTip(), u"Trip Revenue ÷ Total Miles"_s);
    }

    void weightedAverageIsDollarsOverMilesAndNeverAMeanOfTheWeeks()
    {
        const Workspace workspace;
        ReportTable table;
        table.showReport(cpms(), u"cpms"_s, u"2026"_s);
        QCOMPARE(texts(&table), Rows({{u"01/02/2026"_s, u"$-0.50"_s, u"$2.00"_s, u"$1.80"_s},
                                      {u"01/09/2026"_s, u"$0.25"_s, u"$0.50"_s, u"$0.45"_s},
                                      {u"Weighted Avg"_s, u"$0.10"_s, u"$0.80"_s, u"$0.72"_s}}));
        QCOMPARE(table.item(2, 0)->toolTip(), u"Total dollars across displayed weeks ÷ Total miles "
                                              "across displayed weeks"_s);
        QCOMPARE(table.item(0, 0)->toolTip(), QString());
        QCOMPARE(table.item(2, 1)->toolTip(), QString());
    }

    void otherReportsAverageTheirWeeks()
    {
        const Workspace workspace;
        ReportTable table;
        table.showReport(miles({{u"Total Miles"_s, {1000.0, 1001.0}}}), u"miles"_s, u"2026"_s);
        QCOMPARE(texts(&table), Rows({{u"01/02/2026"_s, u"1000"_s},
                                      {u"01/09/2026"_s, u"1001"_s},
                                      {u"Average"_s, u"1001"_s}}));
        QCOMPARE(table.item(2, 0)->toolTip(), QString());
    }

    void keyAloneMakesAReportWeighted()
    {
        const Workspace workspace;
        ReportTable table;
        table.showReport(dollars({{u"Rate"_s, {3.0}}}), u"cpms"_s, u"2026"_s);
        QCOMPARE(texts(&table),
                 Rows({{u"01/02/2026"_s, u"$3.00"_s}, {u"Weighted Avg"_s, u"$0.00"_s}}));
    }

    void seriesShorterThanThePayweeksReadsZero()
    {
        const Workspace workspace;
        ReportTable table;
        table.showReport(dollars({{u"A"_s, {4.0, 8.0}}, {u"B"_s, {6.0}}, {u"C"_s, {}}}),
                         u"rev_cost_net"_s, u"2026"_s);
        QCOMPARE(texts(&table), Rows({{u"01/02/2026"_s, u"$4.00"_s, u"$6.00"_s, u"$0.00"_s},
                                      {u"01/09/2026"_s, u"$8.00"_s, u"$0.00"_s, u"$0.00"_s},
                                      {u"Average"_s, u"$6.00"_s, u"$6.00"_s, u"$0.00"_s}}));
    }

    void labelsStandLeftAndValuesInTheMiddle()
    {
        const Workspace workspace;
        ReportTable table;
        table.showReport(cpms(), u"cpms"_s, u"2026"_s);
        for (int row = 0; row < 3; ++row) {
            QCOMPARE(alignmentAt(table, row, 0), Qt::AlignLeft | Qt::AlignVCenter);
            QCOMPARE(alignmentAt(table, row, 1), Qt::Alignment(Qt::AlignCenter));
            QCOMPARE(alignmentAt(table, row, 3), Qt::Alignment(Qt::AlignCenter));
        }
    }

    void reportWithoutPayweeksSaysSo()
    {
        const Workspace workspace;
        ReportTable table;
        table.showReport(miles({{u"Total Miles"_s, {}}}), u"miles"_s, u" 2026"_s);
        QCOMPARE(headers(&table), QStringList(u"Details"_s));
        QCOMPARE(texts(&table),
                 Rows({{u"Miles (Loaded / Empty / Total) - Year  2026: No data."_s}}));
        QCOMPARE(alignmentAt(table, 0, 0), Qt::AlignLeft | Qt::AlignVCenter);
    }

    void reportWithoutSeriesSaysSo()
    {
        const Workspace workspace;
        ReportTable table;
        ReportSeriesData report;
        report.title = u"100%2"_s;
        report.payweeks = QStringList(u"01/02/2026"_s);
        table.showReport(report, u"cpms"_s, u"2026"_s);
        QCOMPARE(texts(&table), Rows({{u"100%2 - Year 2026: No data."_s}}));
    }

    void noteAndReportReplaceEachOther()
    {
        const Workspace workspace;
        ReportTable table;
        table.showReport(cpms(), u"cpms"_s, u"2026"_s);
        table.showNote(u"Nothing here."_s);
        QCOMPARE(headers(&table), QStringList(u"Details"_s));
        QCOMPARE(texts(&table), Rows({{u"Nothing here."_s}}));
        QCOMPARE(table.item(0, 0)->toolTip(), QString());
        table.showReport(miles({{u"Total Miles"_s, {5.0}}}), u"miles"_s, u"2026"_s);
        QCOMPARE(headers(&table), QStringList({u"Payweek"_s, u"Total Miles ⓘ"_s}));
        QCOMPARE(texts(&table), Rows({{u"01/02/2026"_s, u"5"_s}, {u"Average"_s, u"5"_s}}));
    }

    void tableIsReadRowByRowAndNeverTypedInto()
    {
        const Workspace workspace;
        const ReportTable table;
        QCOMPARE(table.editTriggers(), QAbstractItemView::NoEditTriggers);
        QCOMPARE(table.selectionBehavior(), QAbstractItemView::SelectRows);
        QCOMPARE(table.selectionMode(), QAbstractItemView::SingleSelection);
        QVERIFY(table.alternatingRowColors());
        QVERIFY(table.verticalHeader()->isHidden());
        QCOMPARE(table.minimumHeight(), 220);
        QCOMPARE(table.accessibleName(), u"Details"_s);
    }

    void columnsAreAsWideAsTheirTexts()
    {
        const Workspace workspace;
        ReportTable table;
        table.resize(900, 300);
        table.showReport(dollars({{u"A"_s, {4.0}}, {u"B"_s, {1e12}}}), u"miles"_s, u"2026"_s);
        const QHeaderView *header = table.horizontalHeader();
        QCOMPARE(header->defaultAlignment(), Qt::Alignment(Qt::AlignCenter));
        QVERIFY(!header->stretchLastSection());
        QCOMPARE(header->sectionResizeMode(1), QHeaderView::ResizeToContents);
        QVERIFY(header->sectionSize(2)
                > table.fontMetrics().horizontalAdvance(u"$1000000000000.00"_s));
        QVERIFY(header->sectionSize(1) < header->sectionSize(2));
    }

    void wholeYearFits()
    {
        const Workspace workspace;
        ReportTable table;
        table.showReport(dollars({{u"A"_s, QList<double>(53, 2.0)}}), u"miles"_s, u"2026"_s);
        QCOMPARE(table.rowCount(), 54);
        QCOMPARE(texts(&table).constLast(), QStringList({u"Average"_s, u"$2.00"_s}));
        QCOMPARE(texts(&table).at(52), QStringList({u"01/01/2027"_s, u"$2.00"_s}));
    }
};

TEST_CLASS(tst_ReportTable)
#include "tst_ReportTable.moc"
