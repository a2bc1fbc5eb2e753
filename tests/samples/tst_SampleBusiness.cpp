#include "samples/SampleBusiness.h"
#include "samples/SampleLocations.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QMap>
#include <QSet>
#include <QTest>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostYears = 20;

/// Twenty years, made once for each seed.
const SampleBusiness &twentyYears(quint32 seed)
{
    static QMap<quint32, SampleBusiness> made;
    if (!made.contains(seed))
        made.insert(seed, makeSampleBusiness(mostYears, seed));
    return made[seed];
}

struct Counts
{
    qsizetype trips = 0;
    qsizetype stops = 0;
    qsizetype fuelRows = 0;
    qsizetype settlementItems = 0;
};

Counts countsOf(const SampleBusiness &business)
{
    Counts counts;
    for (const SampleWeek &week : business.weeks) {
        counts.settlementItems += week.items.size();
        counts.trips += week.trips.size();
        for (const SampleTrip &trip : week.trips) {
            counts.stops += trip.stops.size();
            counts.fuelRows += trip.fuel.size();
        }
    }
    return counts;
}

QStringList tripNumbers(const SampleBusiness &business)
{
    QStringList numbers;
    for (const SampleWeek &week : business.weeks) {
        for (const SampleTrip &trip : week.trips)
            numbers.append(trip.number);
    }
    return numbers;
}

void fillWithSeeds()
{
    QTest::addColumn<quint32>("seed");
    for (const quint32 seed : {1U, 2U, 2026U})
        QTest::addRow("seed %u", seed) << seed;
}

/// The lowest balance that the fund has in any week of the business; it starts anew each year.
double lowestBalance(const SampleBusiness &business, const QString &fund)
{
    QMap<int, double> balanceByYear;
    double lowest = 0.0;
    for (const SampleWeek &week : business.weeks) {
        double &balance = balanceByYear[week.payweek.year()];
        for (const SampleSettlementItem &item : week.items) {
            if (item.name == fund && item.kind == "expense"_L1)
                balance += item.amount;
            if (item.name == fund + " Withdrawal"_L1 && item.kind == "revenue"_L1)
                balance -= item.amount;
        }
        lowest = std::min(lowest, balance);
    }
    return lowest;
}

} // namespace

class tst_SampleBusiness : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameSeedGivesTheSameTrips();
    void anotherSeedGivesOtherTrips();
    void weeksAreAllFridaysUpToTheLastOne_data();
    void weeksAreAllFridaysUpToTheLastOne();
    void twentyYearsAreAsBigAsPromised_data() { fillWithSeeds(); }
    void twentyYearsAreAsBigAsPromised();
    void tripNumbersHaveSevenDigitsAndNeverRepeat_data() { fillWithSeeds(); }
    void tripNumbersHaveSevenDigitsAndNeverRepeat();
    void noTripIsUnderWayOnASunday_data() { fillWithSeeds(); }
    void noTripIsUnderWayOnASunday();
    void stopsOfATripFollowOneAnother_data() { fillWithSeeds(); }
    void stopsOfATripFollowOneAnother();
    void noFundIsOverdrawn_data() { fillWithSeeds(); }
    void noFundIsOverdrawn();
    void pricesAreBelievable_data() { fillWithSeeds(); }
    void pricesAreBelievable();
    void locationsHaveCodesOfTheirOwn();
    void roadMilesAreNearTheRealOnes_data();
    void roadMilesAreNearTheRealOnes();
};

void tst_SampleBusiness::sameSeedGivesTheSameTrips()
{
    const Workspace workspace;

    QCOMPARE(tripNumbers(makeSampleBusiness(3, 7)), tripNumbers(makeSampleBusiness(3, 7)));
}

void tst_SampleBusiness::anotherSeedGivesOtherTrips()
{
    const Workspace workspace;

    QVERIFY(tripNumbers(makeSampleBusiness(3, 7)) != tripNumbers(makeSampleBusiness(3, 8)));
}

void tst_SampleBusiness::weeksAreAllFridaysUpToTheLastOne_data()
{
    QTest::addColumn<int>("years");
    QTest::addColumn<QDate>("first");
    QTest::newRow("one year") << 1 << QDate(2025, 11, 21);
    QTest::newRow("three years") << 3 << QDate(2023, 11, 24);
    QTest::newRow("twenty years") << 20 << QDate(2006, 11, 24);
}

void tst_SampleBusiness::weeksAreAllFridaysUpToTheLastOne()
{
    QFETCH(const int, years);
    QFETCH(const QDate, first);
    const Workspace workspace;

    const QList<SampleWeek> weeks = makeSampleBusiness(years, 1).weeks;

    QCOMPARE(weeks.first().payweek, first);
    QCOMPARE(weeks.last().payweek, QDate(2026, 11, 20));
    QCOMPARE(weeks.size(), first.daysTo(QDate(2026, 11, 20)) / 7 + 1);
    for (const SampleWeek &week : weeks)
        QCOMPARE(week.payweek.dayOfWeek(), static_cast<int>(Qt::Friday));
}

void tst_SampleBusiness::twentyYearsAreAsBigAsPromised()
{
    QFETCH(const quint32, seed);
    const Workspace workspace;

    const Counts counts = countsOf(twentyYears(seed));

    const auto within = [](qsizetype count, qsizetype least, qsizetype most) {
        return count >= least && count <= most;
    };
    QVERIFY2(within(counts.trips, 2'700, 3'300), qPrintable(QString::number(counts.trips)));
    QVERIFY2(within(counts.stops, 8'100, 9'900), qPrintable(QString::number(counts.stops)));
    QVERIFY2(within(counts.fuelRows, 8'100, 9'900), qPrintable(QString::number(counts.fuelRows)));
    QVERIFY2(within(counts.settlementItems, 7'200, 8'800),
             qPrintable(QString::number(counts.settlementItems)));
}

void tst_SampleBusiness::tripNumbersHaveSevenDigitsAndNeverRepeat()
{
    QFETCH(const quint32, seed);
    const Workspace workspace;

    const QStringList numbers = tripNumbers(twentyYears(seed));

    QCOMPARE(QSet<QString>(numbers.cbegin(), numbers.cend()).size(), numbers.size());
    for (const QString &number : numbers)
        QCOMPARE(number.size(), 7);
}

void tst_SampleBusiness::noTripIsUnderWayOnASunday()
{
    QFETCH(const quint32, seed);
    const Workspace workspace;

    for (const SampleWeek &week : twentyYears(seed).weeks) {
        const QDate monday = week.payweek.addDays(-11);
        const QDate saturday = week.payweek.addDays(-6);
        for (const SampleTrip &trip : week.trips) {
            const SampleStop &last = trip.stops.last();
            QVERIFY(trip.stops.first().appointment.date() >= monday);
            QVERIFY(last.appointment.date() <= saturday);
            QVERIFY(!last.latest.isValid() || last.latest.date() <= saturday);
        }
    }
}

void tst_SampleBusiness::stopsOfATripFollowOneAnother()
{
    QFETCH(const quint32, seed);
    const Workspace workspace;

    for (const SampleWeek &week : twentyYears(seed).weeks) {
        for (const SampleTrip &trip : week.trips) {
            QCOMPARE(trip.stops.first().type, u"shipper"_s);
            QCOMPARE(trip.stops.last().type, u"receiver"_s);
            for (qsizetype i = 1; i < trip.stops.size(); ++i) {
                const SampleStop &before = trip.stops.at(i - 1);
                QVERIFY(trip.stops.at(i).appointment >= before.appointment.addSecs(2 * 3600));
                QVERIFY(!before.latest.isValid() || before.latest > before.appointment);
            }
        }
    }
}

void tst_SampleBusiness::noFundIsOverdrawn()
{
    QFETCH(const quint32, seed);
    const Workspace workspace;
    const SampleBusiness &business = twentyYears(seed);

    QCOMPARE(lowestBalance(business, u"Emergency Fund"_s), 0.0);
    QCOMPARE(lowestBalance(business, u"Tire Fund"_s), 0.0);
    QCOMPARE(lowestBalance(business, u"Performance Bond"_s), 0.0);
}

void tst_SampleBusiness::pricesAreBelievable()
{
    QFETCH(const quint32, seed);
    const Workspace workspace;

    for (const SampleWeek &week : twentyYears(seed).weeks) {
        for (const SampleTrip &trip : week.trips) {
            QVERIFY(trip.linehaul > trip.loadedMiles && trip.linehaul < 3.0 * trip.loadedMiles);
            QVERIFY(trip.loadedMiles > 300.0 && trip.emptyMiles >= 1.0);
            for (const DomainRules::FuelRowValues &row : trip.fuel) {
                const double price = row.cost / row.gallons;
                QVERIFY2(price > 1.5 && price < 6.0, qPrintable(QString::number(price)));
                QVERIFY(row.discount >= 0.0 && row.discount < row.cost);
                QVERIFY(row.gallons > 3.0 && row.gallons < 150.0);
            }
        }
    }
}

void tst_SampleBusiness::locationsHaveCodesOfTheirOwn()
{
    const Workspace workspace;

    QSet<QString> codes;
    for (const SampleLocation &location : makeSampleBusiness(1, 1).locations)
        codes.insert(location.code);

    QCOMPARE(codes.size(), 120);
    QVERIFY(codes.contains(u"DAL-01"_s));
    QVERIFY(codes.contains(u"DAL-02"_s));
}

void tst_SampleBusiness::roadMilesAreNearTheRealOnes_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<int>("miles");
    QTest::newRow("Dallas to Memphis") << u"DAL-01"_s << u"MEM-01"_s << 455;
    QTest::newRow("Chicago to Denver") << u"CHI-01"_s << u"DEN-01"_s << 1000;
    QTest::newRow("Seattle to Savannah") << u"SEA-01"_s << u"SAV-01"_s << 2880;
}

void tst_SampleBusiness::roadMilesAreNearTheRealOnes()
{
    QFETCH(const QString, from);
    QFETCH(const QString, to);
    QFETCH(const int, miles);
    const Workspace workspace;
    const QList<SampleLocation> locations = makeSampleBusiness(1, 1).locations;

    const auto at = [&locations](const QString &code) {
        return *std::find_if(locations.cbegin(), locations.cend(),
                             [&code](const SampleLocation &dock) { return dock.code == code; });
    };
    const int found = roadMiles(at(from), at(to));

    QCOMPARE(roadMiles(at(to), at(from)), found);
    QVERIFY2(std::abs(found - miles) * 10 < miles, qPrintable(QString::number(found)));
}

TEST_CLASS_WITHOUT_WINDOWS(tst_SampleBusiness)
#include "tst_SampleBusiness.moc"
