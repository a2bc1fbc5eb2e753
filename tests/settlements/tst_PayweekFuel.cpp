#include "settlements/PayweekFile.h"
#include "settlements/PayweekRepository.h"
#include "support/TestProgram.h"

using namespace Qt::StringLiterals;
using namespace PayweekRepository;

/// The fuel analytics of a payweek.
class tst_PayweekFuel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fuelIsSummedByType()
    {
        const Payweeks payweeks;
        const qint64 id = trip().payweek(week).insert(payweeks.workspace);
        fuel(id, u"Truck Fuel"_s, 400.0, 40.0, 100.0).insert(payweeks.workspace);
        fuel(id, u" Truck Fuel "_s, 100.0, 10.0, 25.0).insert(payweeks.workspace);
        fuel(id, u"Reefer Fuel"_s, 80.0, 5.0, 20.0).insert(payweeks.workspace);
        fuel(id, u"DEF"_s, 30.0, 1.0, 10.0)
            .set(u"group_name"_s, u" FUEL "_s)
            .insert(payweeks.workspace);
        // 554 dollars over 155 gallons.
        QCOMPARE(figuresOf(payweeks.fuelOf()),
                 QList<double>({450.0, 75.0, 29.0, 610.0, 56.0, 554.0, 155.0, 3.5742, 4.0}));
    }

    void typesThatDifferInCaseAreOneLine()
    {
        const Payweeks payweeks;
        const qint64 id = trip().payweek(week).insert(payweeks.workspace);
        // 0.4 cents each: rounded on its own the net of a group is nothing, that of both is a cent.
        fuel(id, u"Truck Fuel"_s, 0.004, 0.0, 1.0).insert(payweeks.workspace);
        fuel(id, u"TRUCK FUEL"_s, 0.004, 0.0, 1.0).insert(payweeks.workspace);
        const PayweekFuelAnalytics fuel = payweeks.fuelOf();
        QCOMPARE(fuel.truckFuelNetCost, 0.01);
        QCOMPARE(fuel.netCost, 0.0);
        QCOMPARE(fuel.averageNetPricePerGallon, 0.004);
    }

    void fuelWithoutGallonsCountsInTheTotalsAlone()
    {
        const Payweeks payweeks;
        const qint64 id = trip().payweek(week).insert(payweeks.workspace);
        fuel(id, u"Truck Fuel"_s, 400.0, 40.0, 0.0).insert(payweeks.workspace);
        fuel(id, u"Reefer Fuel"_s, 80.0, 0.0, 0.0).insert(payweeks.workspace);
        fuel(id, u"DEF"_s, 20.0, 0.0, 0.0).insert(payweeks.workspace);
        const PayweekFuelAnalytics fuel = payweeks.fuelOf();
        QCOMPARE(figuresOf(fuel),
                 QList<double>({0.0, 0.0, 20.0, 500.0, 40.0, 460.0, 0.0, 0.0, 3.0}));
        QVERIFY(fuel.averageNetPricePerGallon == 0.0);
    }

    void gallonsBelowZeroHaveNoPrice()
    {
        const Payweeks payweeks;
        const qint64 id = trip().payweek(week).insert(payweeks.workspace);
        fuel(id, u"Truck Fuel"_s, 400.0, 40.0, -100.0).insert(payweeks.workspace);
        fuel(id, u"Reefer Fuel"_s, 80.0, 0.0, -20.0).insert(payweeks.workspace);
        fuel(id, u"DEF"_s, 20.0, 0.0, 5.0).insert(payweeks.workspace);
        QCOMPARE(figuresOf(payweeks.fuelOf()),
                 QList<double>({0.0, 0.0, 20.0, 500.0, 40.0, 460.0, -115.0, 0.0, 3.0}));
    }

    void groupWithGallonsBelowZeroCountsInTheTotalsAlone_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("other");
        QTest::addColumn<double>("truck");
        QTest::addColumn<double>("reefer");
        QTest::newRow("truck") << u"Truck Fuel"_s << u"Reefer Fuel"_s << 0.0 << 90.0;
        QTest::newRow("reefer") << u"Reefer Fuel"_s << u"Truck Fuel"_s << 90.0 << 0.0;
    }

    void groupWithGallonsBelowZeroCountsInTheTotalsAlone()
    {
        QFETCH(const QString, type);
        QFETCH(const QString, other);
        QFETCH(const double, truck);
        QFETCH(const double, reefer);
        const Payweeks payweeks;
        const qint64 id = trip().payweek(week).insert(payweeks.workspace);
        fuel(id, type, 35.0, 5.0, -10.0).insert(payweeks.workspace);
        fuel(id, other, 100.0, 10.0, 40.0).insert(payweeks.workspace);
        // 120 dollars over 30 gallons.
        QCOMPARE(figuresOf(payweeks.fuelOf()),
                 QList<double>({truck, reefer, 0.0, 135.0, 15.0, 120.0, 30.0, 4.0, 2.0}));
    }

    void anyTypeWithDefInItIsDef_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<double>("def");
        QTest::newRow("def") << u"Def"_s << 10.0;
        QTest::newRow("spelled out") << u"Diesel Exhaust Fluid"_s << 10.0;
        QTest::newRow("deferred") << u"deferred"_s << 10.0;
        QTest::newRow("unknown") << u"Oil"_s << 0.0;
        QTest::newRow("no type") << u""_s << 0.0;
    }

    void anyTypeWithDefInItIsDef()
    {
        QFETCH(const QString, type);
        QFETCH(const double, def);
        const Payweeks payweeks;
        const qint64 id = trip().payweek(week).insert(payweeks.workspace);
        fuel(id, type, 11.0, 1.0, 4.0).insert(payweeks.workspace);
        QCOMPARE(figuresOf(payweeks.fuelOf()),
                 QList<double>({0.0, 0.0, def, 11.0, 1.0, 10.0, 4.0, 2.5, 1.0}));
    }

    void fuelOfOtherGroupsAndWeeksDoesNotCount()
    {
        const Payweeks payweeks;
        const qint64 id = trip().payweek(week).insert(payweeks.workspace);
        const qint64 later = trip().payweek(u"01/09/2026"_s).insert(payweeks.workspace);
        fuel(id, u"DEF"_s, 1.0, 0.0, 1.0)
            .set(u"group_name"_s, u"washes"_s)
            .insert(payweeks.workspace);
        fuel(later, u"DEF"_s, 10.0, 0.0, 1.0).insert(payweeks.workspace);
        fuel(99, u"DEF"_s, 100.0, 0.0, 1.0).insert(payweeks.workspace);
        QCOMPARE(figuresOf(payweeks.fuelOf()), QList<double>(9, 0.0));
    }

    void fuelTextIsReadAsItsLeadingNumber()
    {
        const Payweeks payweeks;
        const qint64 id = trip().payweek(week).insert(payweeks.workspace);
        fuel(id, u"DEF"_s, 0.0, 0.0, 0.0)
            .set(u"cost"_s, u"12.5 dollars"_s)
            .set(u"gallons"_s, u"abc"_s)
            .insert(payweeks.workspace);
        QCOMPARE(figuresOf(payweeks.fuelOf()),
                 QList<double>({0.0, 0.0, 12.5, 12.5, 0.0, 12.5, 0.0, 0.0, 1.0}));
    }
};

TEST_CLASS(tst_PayweekFuel)
#include "tst_PayweekFuel.moc"
