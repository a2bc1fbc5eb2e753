#include "data/DomainRules.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace DomainRules;

class tst_FuelRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aDetailRowHasOneOfThreeTypes()
    {
        QCOMPARE(fuelDetailTypeList(), QStringList({u"Truck Fuel"_s, u"Reefer Fuel"_s, u"Def"_s}));
    }

    void truckAndReeferFuelAndBlankCountAsFuel_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isFuel");
        QTest::newRow("truck") << u"Truck Fuel"_s << true;
        QTest::newRow("reefer") << u"Reefer Fuel"_s << true;
        QTest::newRow("any case, blanks around") << u" tRUCK fUEL\t"_s << true;
        QTest::newRow("empty") << u""_s << true;
        QTest::newRow("blank") << u" \t"_s << true;
        QTest::newRow("def") << u"Def"_s << false;
        QTest::newRow("underscore") << u"truck_fuel"_s << false;
        QTest::newRow("two blanks inside") << u"Truck  Fuel"_s << false;
        QTest::newRow("more words") << u"Truck Fuel TX"_s << false;
    }

    void truckAndReeferFuelAndBlankCountAsFuel()
    {
        QFETCH(const QString, text);
        QFETCH(const bool, isFuel);
        QCOMPARE(isTruckOrReeferFuel(text), isFuel);
    }

    void eachRuleReadsAFuelNameInItsOwnWay_data();
    void eachRuleReadsAFuelNameInItsOwnWay();

    void withoutRowsTheSummaryIsZero()
    {
        const FuelSummary summary = summarizeFuelRows({});
        QCOMPARE(summary.rowCount, 0);
        QCOMPARE(summary.totalCost, 0.0);
        QCOMPARE(summary.totalDiscount, 0.0);
        QCOMPARE(summary.totalNet, 0.0);
        QCOMPARE(summary.totalGallons, 0.0);
        QCOMPARE(summary.truckNet, 0.0);
        QCOMPARE(summary.truckGallons, 0.0);
        QCOMPARE(summary.truckAverage, 0.0);
        QCOMPARE(summary.reeferNet, 0.0);
        QCOMPARE(summary.reeferGallons, 0.0);
        QCOMPARE(summary.reeferAverage, 0.0);
    }

    void aRowCountsThatHasATypeOrAValue_data()
    {
        QTest::addColumn<FuelRowValues>("row");
        QTest::addColumn<int>("rowCount");
        QTest::newRow("nothing") << FuelRowValues{u""_s, 0, 0, 0} << 0;
        QTest::newRow("blank type") << FuelRowValues{u" \t"_s, 0, 0, 0} << 0;
        QTest::newRow("minus zero") << FuelRowValues{u""_s, -0.0, -0.0, -0.0} << 0;
        QTest::newRow("type alone") << FuelRowValues{u"Def"_s, 0, 0, 0} << 1;
        QTest::newRow("cost alone") << FuelRowValues{u""_s, 12.5, 0, 0} << 1;
        QTest::newRow("discount alone") << FuelRowValues{u""_s, 0, 12.5, 0} << 1;
        QTest::newRow("gallons alone") << FuelRowValues{u""_s, 0, 0, 12.5} << 1;
        QTest::newRow("refund") << FuelRowValues{u""_s, -12.5, 0, 0} << 1;
    }

    void aRowCountsThatHasATypeOrAValue()
    {
        QFETCH(const FuelRowValues, row);
        QFETCH(const int, rowCount);
        QCOMPARE(summarizeFuelRows({row}).rowCount, rowCount);
    }

    void truckAndReeferAreSummedApartAndAllTogether()
    {
        const FuelSummary summary = summarizeFuelRows({{u"Truck Fuel"_s, 400.0, 40.0, 100.0},
                                                       {u" truck FUEL "_s, 210.0, 10.0, 50.0},
                                                       {u"reefer fuel"_s, 90.0, 9.0, 20.0},
                                                       {u"Def"_s, 30.0, 1.0, 8.0},
                                                       {u""_s, 5.0, 0.0, 1.0}});
        QCOMPARE(summary.rowCount, 5);
        QCOMPARE(summary.totalCost, 735.0);
        QCOMPARE(summary.totalDiscount, 60.0);
        QCOMPARE(summary.totalNet, 675.0);
        QCOMPARE(summary.totalGallons, 179.0);
        QCOMPARE(summary.truckNet, 560.0);
        QCOMPARE(summary.truckGallons, 150.0);
        QCOMPARE(summary.truckAverage, 3.7333);
        QCOMPARE(summary.reeferNet, 81.0);
        QCOMPARE(summary.reeferGallons, 20.0);
        QCOMPARE(summary.reeferAverage, 4.05);
    }

    void fuelWithoutGallonsStaysOutOfTheAverage_data()
    {
        QTest::addColumn<double>("gallons");
        QTest::addColumn<double>("totalGallons");
        QTest::newRow("none") << 0.0 << 100.0;
        QTest::newRow("returned") << -10.0 << 90.0;
    }

    void fuelWithoutGallonsStaysOutOfTheAverage()
    {
        QFETCH(const double, gallons);
        QFETCH(const double, totalGallons);
        const FuelSummary summary = summarizeFuelRows(
            {{u"Truck Fuel"_s, 400.0, 0.0, 100.0}, {u"Truck Fuel"_s, 55.0, 5.0, gallons}});
        QCOMPARE(summary.rowCount, 2);
        QCOMPARE(summary.totalCost, 455.0);
        QCOMPARE(summary.totalNet, 450.0);
        QCOMPARE(summary.totalGallons, totalGallons);
        QCOMPARE(summary.truckNet, 400.0);
        QCOMPARE(summary.truckGallons, 100.0);
        QCOMPARE(summary.truckAverage, 4.0);
    }

    void sumsAreRoundedAndNotTheirRows()
    {
        const FuelRowValues row{u"Reefer Fuel"_s, 3.004, 1.002, 1.0004};
        const FuelSummary summary = summarizeFuelRows({row, row});
        QCOMPARE(summary.totalCost, 6.01);
        QCOMPARE(summary.totalDiscount, 2.0);
        QCOMPARE(summary.totalNet, 4.01);
        QCOMPARE(summary.totalGallons, 2.001);
        QCOMPARE(summary.reeferNet, 4.0);
        QCOMPARE(summary.reeferGallons, 2.001);
    }

    void theTotalNetIsThatOfTheRoundedSumsAndTheTrucksIsNot()
    {
        const FuelSummary summary = summarizeFuelRows({{u"Truck Fuel"_s, 10.006, 0.004, 3.0}});
        QCOMPARE(summary.totalCost, 10.01);
        QCOMPARE(summary.totalDiscount, 0.0);
        QCOMPARE(summary.totalNet, 10.01);
        QCOMPARE(summary.truckNet, 10.0);
    }

    void averagesTakeNetAndGallonsBeforeRounding_data()
    {
        QTest::addColumn<FuelRowValues>("row");
        QTest::addColumn<double>("gallons");
        QTest::addColumn<double>("average");
        QTest::newRow("net") << FuelRowValues{u""_s, 10.006, 0.004, 3.0} << 3.0 << 3.334;
        QTest::newRow("gallons") << FuelRowValues{u""_s, 10.0, 0.0, 3.0004} << 3.0 << 3.3329;
        QTest::newRow("a drop") << FuelRowValues{u""_s, 0.01, 0.0, 0.0004} << 0.0 << 25.0;
        QTest::newRow("half up") << FuelRowValues{u""_s, 3.00005, 0.0, 1.0} << 1.0 << 3.0001;
        QTest::newRow("credit") << FuelRowValues{u""_s, 0.0, 10.0, 3.0} << 3.0 << -3.3333;
    }

    void averagesTakeNetAndGallonsBeforeRounding()
    {
        QFETCH(FuelRowValues, row);
        QFETCH(const double, gallons);
        QFETCH(const double, average);
        row.itemType = u"Truck Fuel"_s;
        const FuelSummary truck = summarizeFuelRows({row});
        QCOMPARE(truck.truckGallons, gallons);
        QCOMPARE(truck.truckAverage, average);
        QCOMPARE(truck.reeferAverage, 0.0);
        row.itemType = u"Reefer Fuel"_s;
        const FuelSummary reefer = summarizeFuelRows({row});
        QCOMPARE(reefer.reeferGallons, gallons);
        QCOMPARE(reefer.reeferAverage, average);
        QCOMPARE(reefer.truckAverage, 0.0);
    }
};

void tst_FuelRules::eachRuleReadsAFuelNameInItsOwnWay_data()
{
    QTest::addColumn<QString>("detailType");
    QTest::addColumn<QString>("costName");
    QTest::addColumn<QString>("payweekGroup");
    QTest::addColumn<bool>("isDef");
    QTest::addColumn<QString>("analyticsGroup");
    const QString truck = u"Truck Fuel"_s;
    const QString reefer = u"Reefer Fuel"_s;
    const auto row = [](const char *text, const QString &detailType, const QString &costName,
                        const QString &payweekGroup, bool isDef, const QString &analyticsGroup) {
        QTest::newRow(text) << detailType << costName << payweekGroup << isDef << analyticsGroup;
    };
    for (const char *text : {"truck fuel", "truckfuel", "tractor fuel", "fuel truck",
                             " TRUCK_Fuel\t", "Truck - Fuel", "truck \t fuel",
                             "truck\xa0 \xa0"
                             "fuel"})
        row(text, truck, truck, truck, false, truck);
    for (const char *text : {"reefer fuel", "reeferfuel", "fuel reefer", "Reefer-Fuel"})
        row(text, reefer, reefer, reefer, false, reefer);
    for (const char *text : {"def", "diesel exhaust fluid", "def fluid", " DEF ", "DEF  Fluid"})
        row(text, u"Def"_s, u"DEF"_s, u""_s, true, u"DEF"_s);
    row("Diesel-Exhaust_Fluid", u"Def"_s, u"DEF"_s, u""_s, false, u"DEF"_s);
    row("truck wash", u"truck wash"_s, u"Truck Wash"_s, u""_s, false, u"truck wash"_s);
    row("truckwash", u"truckwash"_s, u"Truck Wash"_s, u""_s, false, u"truckwash"_s);
    row("", u""_s, u""_s, u""_s, false, u"Unknown"_s);
    row(" \t", u""_s, u""_s, u""_s, false, u"Unknown"_s);
    row("fuel", u"fuel"_s, truck, u""_s, false, truck);
    row(" Fuel ", u"Fuel"_s, truck, u""_s, false, truck);
    row("-fuel", u"-fuel"_s, u"-fuel"_s, u""_s, false, u"-fuel"_s);
    row("Fuel TX", u"Fuel TX"_s, u"Fuel TX"_s, u""_s, false, u"Fuel TX"_s);
    row("Truck reefer fuel", u"Truck reefer fuel"_s, reefer, reefer, false, truck);
    row("Fuel for tractor", u"Fuel for tractor"_s, truck, truck, false, truck);
    row("Reefer fuel TX", u"Reefer fuel TX"_s, reefer, reefer, false, reefer);
    row("Deferred", u"Deferred"_s, u"DEF"_s, u""_s, true, u"Deferred"_s);
    row("DEF jug", u"DEF jug"_s, u"DEF"_s, u""_s, true, u"DEF jug"_s);
    row("Bulk DEF fluid", u"Bulk DEF fluid"_s, u"DEF"_s, u""_s, true, u"DEF"_s);
    row("Diesel exhaust fluid TX", u"Diesel exhaust fluid TX"_s, u"DEF"_s, u""_s, true, u"DEF"_s);
    row("DEF, truck fuel", u"DEF, truck fuel"_s, truck, truck, true, truck);
    row("DEF and wash", u"DEF and wash"_s, u"DEF"_s, u""_s, true, u"DEF and wash"_s);
    row("Trailer wash", u"Trailer wash"_s, u"Truck Wash"_s, u""_s, false, u"Trailer wash"_s);
    row(" Scale  ticket ", u"Scale  ticket"_s, u"Scale  ticket"_s, u""_s, false,
        u"Scale  ticket"_s);
    row("Reefer", u"Reefer"_s, u"Reefer"_s, u""_s, false, u"Reefer"_s);
    row("Diesel", u"Diesel"_s, u"Diesel"_s, u""_s, false, u"Diesel"_s);
}

void tst_FuelRules::eachRuleReadsAFuelNameInItsOwnWay()
{
    QFETCH(const QString, detailType);
    QFETCH(const QString, costName);
    QFETCH(const QString, payweekGroup);
    QFETCH(const bool, isDef);
    QFETCH(const QString, analyticsGroup);
    const QString text = QString::fromLatin1(QTest::currentDataTag());
    QCOMPARE(normalizeFuelDetailType(text), detailType);
    QCOMPARE(normalizeFuelCostName(text), costName);
    QCOMPARE(payweekFuelGroup(text), payweekGroup);
    QCOMPARE(isDefItemName(text), isDef);
    QCOMPARE(fuelAnalyticsGroup(text), analyticsGroup);
}

TEST_CLASS(tst_FuelRules)
#include "tst_FuelRules.moc"
