#include "support/TestProgram.h"
#include "trips/fuel/FuelRowRules.h"

#include <QTest>

using namespace Qt::StringLiterals;

using DomainRules::FuelRowValues;

namespace {

/// The cost items as they are added, one "name amount" each.
QStringList costItems(const QList<FuelRowValues> &rows)
{
    QStringList items;
    const QMap<QString, double> costs = FuelRowRules::costByItemName(rows);
    for (auto item = costs.cbegin(); item != costs.cend(); ++item)
        items.append(u"%1 %2"_s.arg(item.key(), QString::number(item.value(), 'f', 4)));
    return items;
}

} // namespace

class tst_FuelRowRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pricePerGallonIsThatAfterTheDiscount_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<double>("cost");
        QTest::addColumn<double>("discount");
        QTest::addColumn<double>("gallons");
        QTest::addColumn<double>("price");
        QTest::newRow("truck fuel") << u"Truck Fuel"_s << 412.80 << 25.0 << 100.0 << 3.8780;
        QTest::newRow("reefer fuel") << u"Reefer Fuel"_s << 88.40 << 0.0 << 22.5 << 3.9289;
        QTest::newRow("any case") << u"truck FUEL"_s << 10.0 << 0.0 << 4.0 << 2.5;
        QTest::newRow("no type") << u""_s << 10.0 << 0.0 << 4.0 << 2.5;
        QTest::newRow("rounded up") << u"Truck Fuel"_s << 2.0 << 0.0 << 3.0 << 0.6667;
        QTest::newRow("a discount below zero") << u"Truck Fuel"_s << 90.0 << -10.0 << 20.0 << 5.0;
        QTest::newRow("more discount than cost") << u"Truck Fuel"_s << 5.0 << 10.0 << 2.0 << -2.5;
        QTest::newRow("free fuel") << u"Truck Fuel"_s << 0.0 << 0.0 << 10.0 << 0.0;
    }

    void pricePerGallonIsThatAfterTheDiscount()
    {
        QFETCH(const QString, type);
        QFETCH(const double, cost);
        QFETCH(const double, discount);
        QFETCH(const double, gallons);
        const auto price = FuelRowRules::pricePerGallon({type, cost, discount, gallons});
        QVERIFY(price.has_value());
        QTEST(*price, "price");
    }

    void someRowsHaveNoPrice_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<double>("gallons");
        QTest::newRow("DEF") << u"Def"_s << 2.5;
        QTest::newRow("another type") << u"Wash"_s << 2.5;
        QTest::newRow("no gallons") << u"Truck Fuel"_s << 0.0;
        QTest::newRow("gallons below zero") << u"Reefer Fuel"_s << -2.5;
    }

    void someRowsHaveNoPrice()
    {
        QFETCH(const QString, type);
        QFETCH(const double, gallons);
        QVERIFY(!FuelRowRules::pricePerGallon({type, 10.0, 0.0, gallons}).has_value());
    }

    void eachKindOfFuelBecomesOneCostItem()
    {
        QCOMPARE(costItems({{u"Truck Fuel"_s, 412.80, 25.0, 100.0},
                            {u"Def"_s, 21.35, 0.0, 5.0},
                            {u"Truck Fuel"_s, 100.0, 0.0, 25.0}}),
                 QStringList({u"DEF 21.3500"_s, u"Truck Fuel 487.8000"_s}));
        QCOMPARE(costItems({{u"Truck Fuel"_s, 1.0, 0.0, 1.0},
                            {u"Reefer Fuel"_s, 2.0, 0.0, 1.0},
                            {u"Def"_s, 3.0, 0.0, 1.0}}),
                 QStringList({u"DEF 3.0000"_s, u"Reefer Fuel 2.0000"_s, u"Truck Fuel 1.0000"_s}));
    }

    void everyRowIsRoundedToTheCentByItself()
    {
        QCOMPARE(costItems({{u"Def"_s, 0.126, 0.0, 0.0}, {u"Def"_s, 0.126, 0.0, 0.0}}),
                 QStringList({u"DEF 0.2600"_s}));
        QCOMPARE(costItems({{u"Def"_s, 0.004, 0.0, 0.0}, {u"Def"_s, 0.004, 0.0, 0.0}}),
                 QStringList());
    }

    void rowThatComesToZeroAddsNoCostItem_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<double>("cost");
        QTest::addColumn<double>("discount");
        QTest::newRow("all discounted") << u"Truck Fuel"_s << 25.0 << 25.0;
        QTest::newRow("nothing yet") << u"Truck Fuel"_s << 0.0 << 0.0;
        QTest::newRow("less than half a cent") << u"Truck Fuel"_s << 25.004 << 25.0;
        QTest::newRow("nothing at all") << u""_s << 0.0 << 0.0;
        QTest::newRow("no type") << u""_s << 25.0 << 0.0;
        QTest::newRow("blank type") << u"  "_s << 25.0 << 0.0;
    }

    void rowThatComesToZeroAddsNoCostItem()
    {
        QFETCH(const QString, type);
        QFETCH(const double, cost);
        QFETCH(const double, discount);
        QCOMPARE(costItems({{type, cost, discount, 100.0}}), QStringList());
    }

    void rowsThatCancelOutLeaveACostItemOfZero()
    {
        QCOMPARE(costItems({{u"Def"_s, 5.0, 0.0, 1.0}, {u"Def"_s, 0.0, 5.0, 1.0}}),
                 QStringList({u"DEF 0.0000"_s}));
    }

    void discountIsTakenWithTheSignThatItHas()
    {
        QCOMPARE(costItems({{u"Truck Fuel"_s, 412.80, -25.0, 100.0}}),
                 QStringList({u"Truck Fuel 437.8000"_s}));
        QCOMPARE(costItems({{u"Truck Fuel"_s, 10.0, 25.0, 100.0}}),
                 QStringList({u"Truck Fuel -15.0000"_s}));
    }

    void costItemIsNamedLoosely()
    {
        QCOMPARE(costItems({{u"tractor_fuel"_s, 1.0, 0.0, 0.0},
                            {u"truck wash"_s, 2.0, 0.0, 0.0},
                            {u"Toll"_s, 3.0, 0.0, 0.0}}),
                 QStringList({u"Toll 3.0000"_s, u"Truck Fuel 1.0000"_s, u"Truck Wash 2.0000"_s}));
    }

    void costItemsOfFuelAreKnownByTheirNames_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("owned");
        QTest::newRow("truck fuel") << u"Truck Fuel"_s << true;
        QTest::newRow("reefer fuel") << u"Reefer Fuel"_s << true;
        QTest::newRow("DEF") << u"DEF"_s << true;
        QTest::newRow("truck wash") << u"Truck Wash"_s << true;
        QTest::newRow("any case") << u"tRUCK wASH"_s << true;
        QTest::newRow("blanks around") << u"  Def "_s << true;
        QTest::newRow("more than the name") << u"DEF fluid"_s << false;
        QTest::newRow("less than the name") << u"Fuel"_s << false;
        QTest::newRow("something else") << u"Scale"_s << false;
        QTest::newRow("blank") << u""_s << false;
    }

    void costItemsOfFuelAreKnownByTheirNames()
    {
        QFETCH(const QString, name);
        QTEST(FuelRowRules::ownsCostItem(name), "owned");
    }

    void rowIsBlankOnlyIfItSaysNothing_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<double>("cost");
        QTest::addColumn<double>("discount");
        QTest::addColumn<double>("gallons");
        QTest::addColumn<bool>("blank");
        QTest::newRow("nothing") << u""_s << 0.0 << 0.0 << 0.0 << true;
        QTest::newRow("blanks") << u"  "_s << 0.0 << 0.0 << 0.0 << true;
        QTest::newRow("a type") << u"Def"_s << 0.0 << 0.0 << 0.0 << false;
        QTest::newRow("a cost") << u""_s << 0.01 << 0.0 << 0.0 << false;
        QTest::newRow("a discount") << u""_s << 0.0 << -0.01 << 0.0 << false;
        QTest::newRow("gallons") << u""_s << 0.0 << 0.0 << 0.001 << false;
    }

    void rowIsBlankOnlyIfItSaysNothing()
    {
        QFETCH(const QString, type);
        QFETCH(const double, cost);
        QFETCH(const double, discount);
        QFETCH(const double, gallons);
        QTEST(FuelRowRules::isBlank({type, cost, discount, gallons}), "blank");
    }

    void threeTypesAreFuel_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<bool>("fuel");
        QTest::newRow("truck fuel") << u"Truck Fuel"_s << true;
        QTest::newRow("reefer fuel") << u"REEFER FUEL"_s << true;
        QTest::newRow("def") << u"DEF"_s << true;
        QTest::newRow("wash") << u"Truck Wash"_s << false;
        QTest::newRow("part of one") << u"Fuel"_s << false;
        QTest::newRow("blank") << u""_s << false;
    }

    void threeTypesAreFuel()
    {
        QFETCH(const QString, type);
        QTEST(FuelRowRules::isFuelType(type), "fuel");
    }

    void totalLineOfNoRowsIsAllZeros()
    {
        QCOMPARE(FuelRowRules::totalLine({}),
                 u"Fuel totals: Rows 0 | Cost $0.00 | Discount $0.00 | Net $0.00 | "
                 "Gallons 0.000 | Truck avg n/a | Reefer avg n/a"_s);
    }

    void totalLineSumsTheRows()
    {
        QCOMPARE(FuelRowRules::totalLine({{u"Truck Fuel"_s, 412.80, 25.0, 100.0},
                                          {u"Truck Fuel"_s, 200.0, 0.0, 50.0},
                                          {u"Reefer Fuel"_s, 88.40, 0.0, 22.5}}),
                 u"Fuel totals: Rows 3 | Cost $701.20 | Discount $25.00 | Net $676.20 | "
                 "Gallons 172.500 | Truck avg $3.9187/gal | Reefer avg $3.9289/gal"_s);
    }

    void defCountsInTheGallonsButInNoAverage()
    {
        QCOMPARE(FuelRowRules::totalLine({{u"Def"_s, 21.35, 0.0, 5.0}}),
                 u"Fuel totals: Rows 1 | Cost $21.35 | Discount $0.00 | Net $21.35 | "
                 "Gallons 5.000 | Truck avg n/a | Reefer avg n/a"_s);
    }

    void fuelWithoutGallonsCountsInNoAverage()
    {
        QCOMPARE(FuelRowRules::totalLine(
                     {{u"Truck Fuel"_s, 400.0, 0.0, 100.0}, {u"Truck Fuel"_s, 50.0, 0.0, 0.0}}),
                 u"Fuel totals: Rows 2 | Cost $450.00 | Discount $0.00 | Net $450.00 | "
                 "Gallons 100.000 | Truck avg $4.0000/gal | Reefer avg n/a"_s);
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_FuelRowRules)
#include "tst_FuelRowRules.moc"
