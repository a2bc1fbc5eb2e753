#include "support/TestProgram.h"
#include "support/surroundings/TimeZone.h"
#include "trips/TripArithmetic.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace TripArithmetic;

namespace {

/// A moment of 18 April 2026; hours beyond 24 lie on the next day.
QDateTime at(int hour, int minute = 0, int second = 0)
{
    const QDateTime midnight(QDate(2026, 4, 18), QTime(0, 0));
    return midnight.addSecs((hour * 60 + minute) * 60 + second);
}

TripStopTiming stop(const QString &type, const QDateTime &time)
{
    return {type, time, false, time, time};
}

TripStopTiming window(const QString &type, const QDateTime &earliest, const QDateTime &latest)
{
    return {type, earliest, true, earliest, latest};
}

TripStopTiming shipper(const QDateTime &time)
{
    return stop(u"shipper"_s, time);
}
TripStopTiming receiver(const QDateTime &time)
{
    return stop(u"receiver"_s, time);
}

using Stops = QList<TripStopTiming>;

} // namespace

class tst_TripArithmetic : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void totalsFollowFromTheFigures_data()
    {
        // Empty and loaded miles, linehaul, FUSU, carrier percent, pay items, cost items.
        QTest::addColumn<QList<double>>("figures");
        // Total miles, carrier make, total revenue, total cost, net revenue, cents per mile.
        QTest::addColumn<QList<double>>("totals");
        using Row = QList<double>;
        QTest::newRow("the carrier's share is of linehaul alone and not taken from the net")
            << Row{100, 500, 1000, 200, 25, 50, 300} << Row{600, 250, 1250, 300, 950, 158.33};
        QTest::newRow("nothing") << Row{0, 0, 0, 0, 0, 0, 0} << Row{0, 0, 0, 0, 0, 0};
        QTest::newRow("no carrier percent")
            << Row{100, 500, 1000, 200, 0, 50, 300} << Row{600, 0, 1250, 300, 950, 158.33};
        QTest::newRow("negative carrier percent")
            << Row{100, 500, 1000, 200, -25, 50, 300} << Row{600, 0, 1250, 300, 950, 158.33};
        QTest::newRow("two dollars a mile")
            << Row{0, 600, 1200, 0, 0, 0, 0} << Row{600, 0, 1200, 0, 1200, 200};
        QTest::newRow("no miles") << Row{0, 0, 1000, 0, 0, 0, 0} << Row{0, 0, 1000, 0, 1000, 0};
        QTest::newRow("negative miles")
            << Row{-20, 10, 1000, 0, 0, 0, 0} << Row{-10, 0, 1000, 0, 1000, 0};
        QTest::newRow("a loss") << Row{0, 600, 100, 0, 25, 0, 300}
                                << Row{600, 25, 100, 300, -200, -33.33};
        QTest::newRow("miles are not rounded")
            << Row{100.125, 0.0625, 0, 0, 0, 0, 0} << Row{100.1875, 0, 0, 0, 0, 0};
        QTest::newRow("half a cent goes up")
            << Row{0, 0, 0.5, 0.125, 25, 0, 0.375} << Row{0, 0.13, 0.63, 0.38, 0.25, 0};
        QTest::newRow("half a cent below zero goes down")
            << Row{0, 0, -0.5, -0.125, 25, 0, -0.375} << Row{0, -0.13, -0.63, -0.38, -0.25, 0};
        QTest::newRow("the net is of rounded sums")
            << Row{0, 0, 10.004, 0, 0, 0, 0.006} << Row{0, 0, 10, 0.01, 9.99, 0};
        QTest::newRow("half a hundredth of a cent a mile goes up")
            << Row{0, 800, 1, 0, 0, 0, 0} << Row{800, 0, 1, 0, 1, 0.13};
    }

    void totalsFollowFromTheFigures()
    {
        QFETCH(const QList<double>, figures);
        QFETCH(const QList<double>, totals);
        const TripTotals computed =
            computeTripTotals(figures.at(0), figures.at(1), figures.at(2), figures.at(3),
                              figures.at(4), figures.at(5), figures.at(6));
        QCOMPARE(computed.totalMiles, totals.at(0));
        QCOMPARE(computed.carrierMake, totals.at(1));
        QCOMPARE(computed.totalRevenue, totals.at(2));
        QCOMPARE(computed.totalCost, totals.at(3));
        QCOMPARE(computed.netRevenue, totals.at(4));
        QCOMPARE(computed.cpm, totals.at(5));
    }

    void noHoursWithoutALaterReceiver_data()
    {
        QTest::addColumn<Stops>("stops");
        QTest::newRow("no stops") << Stops{};
        QTest::newRow("no receiver") << Stops{shipper(at(8))};
        QTest::newRow("no shipper") << Stops{receiver(at(18))};
        QTest::newRow("a shipper without a time") << Stops{shipper({}), receiver(at(18))};
        QTest::newRow("a receiver without a time") << Stops{shipper(at(8)), receiver({})};
        QTest::newRow("another type of stop") << Stops{shipper(at(8)), stop(u"fuel"_s, at(18))};
        QTest::newRow("a longer type") << Stops{stop(u"shippers"_s, at(8)), receiver(at(18))};
        QTest::newRow("receiver earlier") << Stops{shipper(at(18)), receiver(at(8))};
        QTest::newRow("same moment") << Stops{shipper(at(8)), receiver(at(8))};
        QTest::newRow("a window that ends too early")
            << Stops{window(u"shipper"_s, at(18), at(20)), receiver(at(8))};
    }

    void noHoursWithoutALaterReceiver()
    {
        QFETCH(const Stops, stops);
        const TripHoursResult hours = computeTripHours(stops, 950.0, 3.0);
        QCOMPARE(hours.hours, 0.0);
        QCOMPARE(hours.netPerHour, 0.0);
        QCOMPARE(hours.isRange, false);
        QCOMPARE(hours.minHours, 0.0);
        QCOMPARE(hours.maxHours, 0.0);
        QCOMPARE(hours.minNetPerHour, 0.0);
        QCOMPARE(hours.maxNetPerHour, 0.0);
    }

    void hoursLieBetweenPickupAndDelivery_data()
    {
        QTest::addColumn<Stops>("stops");
        QTest::addColumn<double>("minHours");
        QTest::addColumn<double>("maxHours");
        QTest::addColumn<bool>("isRange");
        QTest::newRow("no windows")
            << Stops{shipper(at(8)), receiver(at(18))} << 13.0 << 13.0 << false;
        QTest::newRow("over midnight")
            << Stops{shipper(at(20)), receiver(at(30))} << 13.0 << 13.0 << false;
        QTest::newRow("a second apart")
            << Stops{shipper(at(8)), receiver(at(8, 0, 1))} << 3.0 << 3.0 << false;
        QTest::newRow("minutes are hundredths")
            << Stops{shipper(at(8)), receiver(at(8, 20))} << 3.33 << 3.33 << false;
        QTest::newRow("type in any case, with blanks")
            << Stops{stop(u"  SHIPPER "_s, at(8)), stop(u"Receiver\t"_s, at(18))} << 13.0 << 13.0
            << false;
        QTest::newRow("first shipper, last receiver")
            << Stops{shipper(at(6)), shipper(at(8)), receiver(at(16)), receiver(at(18))} << 15.0
            << 15.0 << false;
        QTest::newRow("first and last by place, not by time")
            << Stops{shipper(at(8)), shipper(at(6)), receiver(at(18)), receiver(at(16))} << 11.0
            << 11.0 << false;
        QTest::newRow("stops without a time are passed over")
            << Stops{shipper({}), shipper(at(8)), receiver(at(18)), receiver({})} << 13.0 << 13.0
            << false;
    }

    void hoursLieBetweenPickupAndDelivery() { comparesHours(); }

    void windowsMakeHoursARange_data()
    {
        QTest::addColumn<Stops>("stops");
        QTest::addColumn<double>("minHours");
        QTest::addColumn<double>("maxHours");
        QTest::addColumn<bool>("isRange");
        QTest::newRow("at the shipper")
            << Stops{window(u"shipper"_s, at(8), at(10)), receiver(at(18))} << 11.0 << 13.0 << true;
        QTest::newRow("at the receiver")
            << Stops{shipper(at(8)), window(u"receiver"_s, at(16), at(18))} << 11.0 << 13.0 << true;
        QTest::newRow("at both") << Stops{window(u"shipper"_s, at(8), at(9)),
                                          window(u"receiver"_s, at(16), at(18))}
                                 << 10.0 << 13.0 << true;
        QTest::newRow("at a stop that is not the chosen one")
            << Stops{shipper(at(8)), window(u"shipper"_s, at(9), at(10)),
                     window(u"receiver"_s, at(14), at(15)), receiver(at(18))}
            << 13.0 << 13.0 << false;
        QTest::newRow("of no length")
            << Stops{window(u"shipper"_s, at(8), at(8)), receiver(at(18))} << 13.0 << 13.0 << false;
        QTest::newRow("too short to show")
            << Stops{window(u"shipper"_s, at(8), at(8, 0, 10)), receiver(at(18))} << 13.0 << 13.0
            << false;
        QTest::newRow("a hundredth of an hour")
            << Stops{window(u"shipper"_s, at(8), at(8, 0, 36)), receiver(at(18))} << 12.99 << 13.0
            << true;
        QTest::newRow("that overlap")
            << Stops{window(u"shipper"_s, at(8), at(12)), window(u"receiver"_s, at(10), at(18))}
            << 3.0 << 13.0 << true;
        QTest::newRow("that end with the delivery")
            << Stops{window(u"shipper"_s, at(8), at(18)), receiver(at(18))} << 3.0 << 13.0 << true;
        QTest::newRow("that end before they begin")
            << Stops{window(u"shipper"_s, at(10), at(8)), receiver(at(18))} << 13.0 << 13.0
            << false;
        QTest::newRow("that end before they begin, by more than the way")
            << Stops{window(u"shipper"_s, at(20), at(8)), receiver(at(18))} << 13.0 << 13.0
            << false;
    }

    void windowsMakeHoursARange() { comparesHours(); }

    void latestTimeWithoutTheFlagIsNoRange()
    {
        const TripStopTiming pickup{u"shipper"_s, at(8), false, at(8), at(10)};
        const TripHoursResult hours = computeStopHours({pickup, receiver(at(18))}, 3.0);
        QCOMPARE(hours.hours, 13.0);
        QCOMPARE(hours.minHours, 11.0);
        QCOMPARE(hours.isRange, false);
    }

    void appointmentStandsInForAMissingEarliestTime()
    {
        const TripStopTiming pickup{u"shipper"_s, at(8), false, {}, {}};
        const TripStopTiming delivery{u"receiver"_s, at(18), true, {}, at(20)};
        const TripHoursResult hours = computeStopHours({pickup, delivery}, 3.0);
        QCOMPARE(hours.minHours, 13.0);
        QCOMPARE(hours.maxHours, 15.0);
        QCOMPARE(hours.isRange, true);
    }

    void earliestTimeGoesBeforeTheAppointment()
    {
        const TripStopTiming pickup{u"shipper"_s, at(6), false, at(8), at(8)};
        QCOMPARE(computeStopHours({pickup, receiver(at(18))}, 3.0).hours, 13.0);
    }

    void extraHoursAreThoseThatAreAskedFor()
    {
        const Stops stops{shipper(at(8)), receiver(at(18))};
        QCOMPARE(computeStopHours(stops, 0.0).hours, 10.0);
        QCOMPARE(computeStopHours(stops, 1.5).hours, 11.5);
        QCOMPARE(extraTripHours, 3.0);
    }

    void stopHoursTellNothingOfTheNet()
    {
        const TripHoursResult hours = computeStopHours({shipper(at(8)), receiver(at(18))}, 3.0);
        QCOMPARE(hours.netPerHour, 0.0);
        QCOMPARE(hours.minNetPerHour, 0.0);
        QCOMPARE(hours.maxNetPerHour, 0.0);
    }

    void netPerHourFollowsTheHours_data()
    {
        QTest::addColumn<Stops>("stops");
        QTest::addColumn<double>("net");
        QTest::addColumn<double>("netPerHour");
        QTest::addColumn<double>("low");
        QTest::addColumn<double>("high");
        const Stops single{shipper(at(8)), receiver(at(18))};
        const Stops range{window(u"shipper"_s, at(8), at(10)), receiver(at(18))};
        QTest::newRow("no window") << single << 950.0 << 73.08 << 73.08 << 73.08;
        QTest::newRow("at the top of a range") << range << 950.0 << 73.08 << 73.08 << 86.36;
        QTest::newRow("a loss, low first") << range << -950.0 << -73.08 << -86.36 << -73.08;
        QTest::newRow("no net") << range << 0.0 << 0.0 << 0.0 << 0.0;
    }

    void netPerHourFollowsTheHours()
    {
        QFETCH(const Stops, stops);
        QFETCH(const double, net);
        const TripHoursResult hours = computeTripHours(stops, net, 3.0);
        QTEST(hours.netPerHour, "netPerHour");
        QTEST(hours.minNetPerHour, "low");
        QTEST(hours.maxNetPerHour, "high");
    }

    void netPerHourOfNoLeastHoursIsThatOfTheMost()
    {
        const TripHoursResult hours =
            computeTripHours({window(u"shipper"_s, at(8), at(18)), receiver(at(18))}, 100.0, 0.0);
        QCOMPARE(hours.minHours, 0.0);
        QCOMPARE(hours.maxHours, 10.0);
        QCOMPARE(hours.netPerHour, 10.0);
        QCOMPARE(hours.minNetPerHour, 10.0);
        QCOMPARE(hours.maxNetPerHour, 10.0);
    }

    void hoursReadWithTwoDecimals_data()
    {
        QTest::addColumn<Stops>("stops");
        QTest::addColumn<double>("net");
        QTest::addColumn<QString>("hours");
        QTest::addColumn<QString>("netPerHour");
        const Stops range{window(u"shipper"_s, at(8), at(10)), receiver(at(18))};
        QTest::newRow("none, though there is a net") << Stops{} << 950.0 << u"0.00"_s << u"$0.00"_s;
        QTest::newRow("one") << Stops{shipper(at(8)), receiver(at(18))} << 950.0 << u"13.00"_s
                             << u"$73.08"_s;
        QTest::newRow("a range") << range << 950.0 << u"11.00 - 13.00"_s << u"$73.08 - $86.36"_s;
        QTest::newRow("a range of a loss")
            << range << -950.0 << u"11.00 - 13.00"_s << u"$-86.36 - $-73.08"_s;
        QTest::newRow("not grouped") << Stops{shipper(at(0)), receiver(at(1237))} << 1550000.0
                                     << u"1240.00"_s << u"$1250.00"_s;
    }

    void hoursReadWithTwoDecimals()
    {
        QFETCH(const Stops, stops);
        QFETCH(const double, net);
        const TripHoursResult hours = computeTripHours(stops, net, 3.0);
        QTEST(hoursText(hours), "hours");
        QTEST(netPerHourText(hours), "netPerHour");
    }

    void hoursAreThoseOfTheWallClockInEveryZone_data()
    {
        QTest::addColumn<QString>("zone");
        for (const char *zone : {"America/Chicago", "Europe/Berlin", "Asia/Kolkata", "UTC"})
            QTest::newRow(zone) << QString::fromLatin1(zone);
    }

    void hoursAreThoseOfTheWallClockInEveryZone()
    {
        QFETCH(const QString, zone);
        const TimeZone clock(zone);
        const auto hoursFrom = [](const QString &pickup, const QString &delivery) {
            return computeStopHours({stopTiming(u"shipper"_s, pickup, false, {}),
                                     stopTiming(u"receiver"_s, delivery, false, {})},
                                    3.0)
                .hours;
        };
        // The clock of the United States goes forward on March 8 and back on November 1.
        QCOMPARE(hoursFrom(u"2026-03-07T22:00:00"_s, u"2026-03-08T10:00:00"_s), 15.0);
        QCOMPARE(hoursFrom(u"2026-03-08T02:30:00"_s, u"2026-03-08T10:00:00"_s), 10.5);
        QCOMPARE(hoursFrom(u"2026-03-07T22:00:00"_s, u"2026-03-08T02:30:00"_s), 7.5);
        QCOMPARE(hoursFrom(u"2026-10-31T22:00:00"_s, u"2026-11-01T10:00:00"_s), 15.0);
        // In Berlin the window begins in the skipped hour and ends two hours later, as UTC is off.
        const TripHoursResult range = computeStopHours(
            {stopTiming(u"shipper"_s, u"2026-03-29T02:30:00"_s, true, u"2026-03-29T04:30:00"_s),
             stopTiming(u"receiver"_s, u"2026-03-29T20:00:00"_s, false, {})},
            3.0);
        QVERIFY(range.isRange);
        QCOMPARE(range.minHours, 18.5);
        QCOMPARE(range.maxHours, 20.5);
    }

private:
    static void comparesHours()
    {
        QFETCH(const Stops, stops);
        const TripHoursResult hours = computeStopHours(stops, 3.0);
        QTEST(hours.minHours, "minHours");
        QTEST(hours.maxHours, "maxHours");
        QTEST(hours.hours, "maxHours");
        QTEST(hours.isRange, "isRange");
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_TripArithmetic)
#include "tst_TripArithmetic.moc"
