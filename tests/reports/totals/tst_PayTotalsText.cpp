#include "reports/totals/PayTotalsText.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QStringList namesOf(const QList<QStringList> &rows)
{
    QStringList names;
    for (const QStringList &row : rows)
        names.append(row.first());
    return names;
}

/// A figure of its own in every field, so that none can stand in the place of another.
const PayTotalsSummary summary = {.tripCount = 1,
                                  .tripRevenue = 2.25,
                                  .settlementRevenue = 3.25,
                                  .totalRevenue = 4.25,
                                  .tripExpenses = 5.25,
                                  .settlementExpenses = 6.25,
                                  .totalExpenses = 7.25,
                                  .netRevenue = -12.34,
                                  .totalMiles = 1234567.5,
                                  .cpmTotalRevenue = 1.5,
                                  .cpmNetRevenue = -0.25};

const NonTripTotals nonTrip = {.totalRevenue = 101.0,
                               .totalExpenses = 102.0,
                               .netImpact = -1.0,
                               .emergencyFundNet = 103.0,
                               .tireFundNet = 104.0,
                               .performanceBondNet = -105.5,
                               .otherRevenue = 106.0,
                               .otherExpense = 107.0,
                               .groups = {},
                               .rows = {}};

FuelBucket bucket(const QString &label, double gallons, double average)
{
    return {.label = label,
            .rowCount = 3,
            .cost = 1200.0,
            .discount = 20.5,
            .netCost = 1179.5,
            .gallons = gallons,
            .avgNetPricePerGallon = average};
}

} // namespace

class tst_PayTotalsText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void coreTableHasNineteenFiguresInThisOrder()
    {
        const Workspace workspace;
        QCOMPARE(PayTotalsText::coreRows(summary, nonTrip),
                 QList<QStringList>({{u"Trip Count"_s, u"1"_s},
                                     {u"Trip Revenue"_s, u"$2.25"_s},
                                     {u"Settlement Revenue"_s, u"$3.25"_s},
                                     {u"Total Non-Trip Revenue"_s, u"$3.25"_s},
                                     {u"Total Revenue"_s, u"$4.25"_s},
                                     {u"Trip Expenses"_s, u"$5.25"_s},
                                     {u"Settlement Expenses"_s, u"$6.25"_s},
                                     {u"Total Non-Trip Expenses"_s, u"$6.25"_s},
                                     {u"Total Expenses"_s, u"$7.25"_s},
                                     {u"Net Revenue"_s, u"$-12.34"_s},
                                     {u"Net Non-Trip Settlement Impact"_s, u"$-1.00"_s},
                                     {u"Emergency Fund Net Impact"_s, u"$103.00"_s},
                                     {u"Tire Fund Net Impact"_s, u"$104.00"_s},
                                     {u"Performance Bond Net Impact"_s, u"$-105.50"_s},
                                     {u"Other Non-Trip Revenue"_s, u"$106.00"_s},
                                     {u"Other Non-Trip Expense"_s, u"$107.00"_s},
                                     {u"Total Miles"_s, u"1234567.50"_s},
                                     {u"CPM (Total Revenue / Total Miles)"_s, u"$1.5000/mi"_s},
                                     {u"CPM (Net Revenue / Total Miles)"_s, u"$-0.2500/mi"_s}}));
    }

    void summaryOfItemsNamesItsScopeAndEightFigures()
    {
        const Workspace workspace;
        QCOMPARE(PayTotalsText::nonTripSummary(u"Year 2026"_s, nonTrip),
                 u"Non-trip settlement totals for Year 2026\n\n"
                 "Total Non-Trip Revenue: $101.00\n"
                 "Total Non-Trip Expenses: $102.00\n"
                 "Net Non-Trip Settlement Impact: $-1.00\n\n"
                 "Emergency Fund net: $103.00\n"
                 "Tire Fund net: $104.00\n"
                 "Performance Bond net: $-105.50\n"
                 "Other non-trip revenue: $106.00\n"
                 "Other non-trip expense: $107.00"_s);
    }

    void summaryOfFuelIsThatOfAllPurchases()
    {
        const Workspace workspace;
        FuelTotals totals;
        totals.allFuel = bucket(u"All Fuel / DEF"_s, 300.1236, 3.9302);
        totals.truckFuel = bucket(u"Truck Fuel"_s, 1.0, 9.0);
        QCOMPARE(PayTotalsText::fuelSummary(u"Payweek 01/02/2026"_s, totals),
                 u"Fuel analytics for Payweek 01/02/2026\n\n"
                 "Net fuel / DEF cost: $1179.50\n"
                 "Total gallons: 300.124\n"
                 "Total discounts: $20.50\n"
                 "Weighted avg net $/gal: $3.9302/gal"_s);
    }

    void summaryOfFuelWithoutGallonsHasNoAverage()
    {
        const Workspace workspace;
        QVERIFY(PayTotalsText::fuelSummary(u"Year 2026"_s, {})
                    .endsWith("\nWeighted avg net $/gal: n/a"_L1));
    }

    void summaryOfTheCoreNamesItsScope()
    {
        const Workspace workspace;
        QCOMPARE(PayTotalsText::coreSummary(u"No scope selected"_s),
                 u"Repository-backed Pay Totals are active.\n\n"
                 "Current scope: No scope selected"_s);
    }

    void fuelTableHasFourRowsWhateverWasBought()
    {
        const Workspace workspace;
        FuelTotals totals;
        totals.allFuel = bucket(u"All Fuel / DEF"_s, 300.0, 3.9317);
        totals.truckFuel.label = u"Truck Fuel"_s;
        totals.reeferFuel.label = u"Reefer Fuel"_s;
        totals.def.label = u"DEF"_s;
        totals.types = {bucket(u"Oil"_s, 1.0, 1.0)};
        const QStringList zeros = {u"0"_s,     u"$0.00"_s, u"$0.00"_s,
                                   u"$0.00"_s, u"0.000"_s, u"n/a"_s};
        QCOMPARE(PayTotalsText::fuelRows(totals),
                 QList<QStringList>({{u"All Fuel / DEF"_s, u"3"_s, u"$1200.00"_s, u"$20.50"_s,
                                      u"$1179.50"_s, u"300.000"_s, u"$3.9317/gal"_s},
                                     QStringList(u"Truck Fuel"_s) + zeros,
                                     QStringList(u"Reefer Fuel"_s) + zeros,
                                     QStringList(u"DEF"_s) + zeros}));
    }

    void groupsAreListedInTheirOrder()
    {
        const Workspace workspace;
        NonTripTotals totals;
        totals.groups = {{u"Tire Fund"_s, u"expense"_s, u"Tires"_s, 2, 1234.5, -1234.5},
                         {u"Other Non-Trip Revenue"_s, u"revenue"_s, u"(blank)"_s, 1, 5.0, 5.0}};
        QCOMPARE(PayTotalsText::groupRows(totals),
                 QList<QStringList>({{u"Tire Fund"_s, u"expense"_s, u"Tires"_s, u"2"_s,
                                      u"$1234.50"_s, u"$-1234.50"_s},
                                     {u"Other Non-Trip Revenue"_s, u"revenue"_s, u"(blank)"_s,
                                      u"1"_s, u"$5.00"_s, u"$5.00"_s}}));
    }

    void purchaseShowsItsOwnPriceAGallon()
    {
        const Workspace workspace;
        QCOMPARE(PayTotalsText::purchaseRow({.payweek = u"01/02/2026"_s,
                                             .tripNo = u"4471203"_s,
                                             .itemType = u"DEF"_s,
                                             .cost = 30.0,
                                             .discount = 1.0,
                                             .netCost = 29.0,
                                             .gallons = 10.0,
                                             .netPricePerGallon = 2.9}),
                 QStringList({u"01/02/2026"_s, u"4471203"_s, u"DEF"_s, u"$30.00"_s, u"$1.00"_s,
                              u"$29.00"_s, u"10.000"_s, u"$2.9000/gal"_s}));
    }

    void itemWithoutANameIsListedAsBlank()
    {
        const Workspace workspace;
        QCOMPARE(PayTotalsText::itemRow({.settlementDate = u"01/02/2026"_s,
                                         .category = u"Other Non-Trip Expense"_s,
                                         .kind = u"expense"_s,
                                         .name = {},
                                         .amount = 12.34,
                                         .signedAmount = -12.34}),
                 QStringList({u"01/02/2026"_s, u"Other Non-Trip Expense"_s, u"expense"_s,
                              u"(blank)"_s, u"$12.34"_s, u"$-12.34"_s}));
        QCOMPARE(PayTotalsText::nameOrBlank(u"Permit"_s), u"Permit"_s);
    }

    void priceAGallonHasFourDecimals_data()
    {
        QTest::addColumn<double>("dollars");
        QTest::addColumn<QString>("text");
        QTest::newRow("usual") << 3.878 << u"$3.8780/gal"_s;
        QTest::newRow("none") << 0.0 << u"n/a"_s;
        QTest::newRow("below zero") << -0.5 << u"n/a"_s;
        QTest::newRow("above zero, though not by much") << 0.00001 << u"$0.0000/gal"_s;
        QTest::newRow("large") << 1e12 << u"$1000000000000.0000/gal"_s;
    }

    void priceAGallonHasFourDecimals()
    {
        QFETCH(const double, dollars);
        const Workspace workspace;
        QTEST(PayTotalsText::perGallonText(dollars), "text");
    }

    void everyCoreRowHasItsMetric()
    {
        const Workspace workspace;
        QStringList keys;
        for (const QString &name : namesOf(PayTotalsText::coreRows(summary, nonTrip)))
            keys.append(PayTotalsText::coreMetricKey(name));
        QCOMPARE(
            keys,
            QStringList({u"trip_count"_s, u"trip_revenue"_s, u"settlement_revenue"_s,
                         u"total_non_trip_revenue"_s, u"total_revenue"_s, u"trip_expenses"_s,
                         u"settlement_expenses"_s, u"total_non_trip_expenses"_s,
                         u"total_expenses"_s, u"net_revenue"_s, u"net_non_trip_settlement_impact"_s,
                         u"emergency_fund_net"_s, u"tire_fund_net"_s, u"performance_bond_net"_s,
                         u"other_non_trip_revenue"_s, u"other_non_trip_expense"_s, u"total_miles"_s,
                         u"cpm_total_revenue"_s, u"cpm_net_revenue"_s}));
    }

    void everyFuelRowHasItsMetric()
    {
        const Workspace workspace;
        QCOMPARE(PayTotalsText::fuelMetricKey(u"All Fuel / DEF"_s), u"all_fuel_net"_s);
        QCOMPARE(PayTotalsText::fuelMetricKey(u"Truck Fuel"_s), u"truck_fuel_net"_s);
        QCOMPARE(PayTotalsText::fuelMetricKey(u"Reefer Fuel"_s), u"reefer_fuel_net"_s);
        QCOMPARE(PayTotalsText::fuelMetricKey(u"DEF"_s), u"def_net"_s);
    }

    void otherLabelsHaveNoMetric_data()
    {
        QTest::addColumn<QString>("label");
        QTest::newRow("none") << QString();
        QTest::newRow("another case") << u"trip count"_s;
        QTest::newRow("blanks about it") << u" Trip Count "_s;
        QTest::newRow("a key") << u"trip_count"_s;
        QTest::newRow("a metric that no row shows") << u"Fuel Discounts"_s;
        QTest::newRow("another type of fuel") << u"Oil"_s;
        QTest::newRow("fuel in another case") << u"def"_s;
        QTest::newRow("fuel as its breakdown is called") << u"DEF Net Cost"_s;
    }

    void otherLabelsHaveNoMetric()
    {
        QFETCH(const QString, label);
        const Workspace workspace;
        QCOMPARE(PayTotalsText::coreMetricKey(label), QString());
        QCOMPARE(PayTotalsText::fuelMetricKey(label), QString());
    }

    void rowsOfOneTableHaveNoMetricInTheOther()
    {
        const Workspace workspace;
        QCOMPARE(PayTotalsText::coreMetricKey(u"DEF"_s), QString());
        QCOMPARE(PayTotalsText::fuelMetricKey(u"Trip Count"_s), QString());
    }
};

TEST_CLASS(tst_PayTotalsText)
#include "tst_PayTotalsText.moc"
