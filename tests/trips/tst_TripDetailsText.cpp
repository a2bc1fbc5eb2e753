#include "support/TestProgram.h"
#include "trips/TripDetailsText.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace TripArithmetic;

namespace {

/// A trip as the list shows it: 600 miles, $1300 earned, $300 spent.
const QStringList cells = {u"7"_s,       u"4471203"_s,  u"04/18/2026"_s, u"100"_s,   u"500"_s,
                           u"600"_s,     u"$1000.00"_s, u"$200.00"_s,    u"25"_s,    u"$1300.00"_s,
                           u"$300.00"_s, u"$1000.00"_s, u"166.67"_s,     u"13.00"_s, u"$76.92"_s};
const TripTotals totals = {600.0, 250.0, 1300.0, 300.0, 1000.0, 166.67};
const TripHoursResult hours = {13.0, 76.92, false, 13.0, 13.0, 76.92, 76.92};

} // namespace

class tst_TripDetailsText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyColumnHasItsLine()
    {
        QCOMPARE(tripDetailsText(cells, totals, hours), u"ID: 7\n"
                                                        "Trip #: 4471203\n"
                                                        "Payweek: 04/18/2026\n"
                                                        "Empty: 100\n"
                                                        "Loaded: 500\n"
                                                        "Total Miles: 600.00\n"
                                                        "Linehaul: $1000.00\n"
                                                        "FUSU: $200.00\n"
                                                        "Total Revenue: $1300.00\n"
                                                        "Total Cost: $300.00\n"
                                                        "Net Revenue: $1000.00\n"
                                                        "Carrier %: 25\n"
                                                        "Carrier Make: $250.00\n"
                                                        "Carrier earns 25.00%% of driver net\n"
                                                        "CPM: 166.67\n"
                                                        "Trip Hours: 13.00\n"
                                                        "Net/Hour: $76.92\n"_s);
    }

    void rangesStandInTheirLines()
    {
        const TripHoursResult range = {13.0, 76.92, true, 11.0, 13.0, 76.92, 90.91};
        QVERIFY(tripDetailsText(cells, totals, range)
                    .endsWith("\nTrip Hours: 11.00 - 13.00\nNet/Hour: $76.92 - $90.91\n"_L1));
    }

    void carrierShareIsOfTheNet_data()
    {
        QTest::addColumn<double>("carrierMake");
        QTest::addColumn<double>("net");
        QTest::addColumn<QString>("line");
        QTest::newRow("rounded") << 250.0 << 950.0 << u"Carrier earns 26.32%% of driver net"_s;
        QTest::newRow("nothing made") << 0.0 << 950.0 << u"Carrier earns 0.00%% of driver net"_s;
        QTest::newRow("more than the net")
            << 2500.0 << 1000.0 << u"Carrier earns 250.00%% of driver net"_s;
        QTest::newRow("least net") << 1.0 << 0.01 << u"Carrier earns 10000.00%% of driver net"_s;
        QTest::newRow("no net") << 250.0 << 0.0 << u"Carrier earns N/A of driver net"_s;
        QTest::newRow("a loss") << 250.0 << -0.01 << u"Carrier earns N/A of driver net"_s;
    }

    void carrierShareIsOfTheNet()
    {
        QFETCH(const double, carrierMake);
        QFETCH(const double, net);
        TripTotals other = totals;
        other.carrierMake = carrierMake;
        other.netRevenue = net;
        const QStringList lines = tripDetailsText(cells, other, hours).split(u'\n');
        QCOMPARE(lines.size(), 18); // the last is what follows the last line feed
        QTEST(lines.at(13), "line");
    }

    void computedFiguresGoBeforeStoredOnes()
    {
        QStringList stale = cells;
        for (const int column : {5, 9, 10, 11, 12, 13, 14})
            stale[column] = u"stale"_s;
        QCOMPARE(tripDetailsText(stale, totals, hours), tripDetailsText(cells, totals, hours));
    }

    void textOfACellStandsAsItIs()
    {
        QStringList odd = cells;
        odd[1] = u"%1 %%2\u2195"_s;
        odd[6] = u"1,234.5"_s;
        odd[8] = u"a quarter"_s;
        const QStringList lines = tripDetailsText(odd, totals, hours).split(u'\n');
        QCOMPARE(lines.at(1), u"Trip #: %1 %%2\u2195"_s);
        QCOMPARE(lines.at(6), u"Linehaul: $1234.50"_s);
        QCOMPARE(lines.at(11), u"Carrier %: a quarter"_s);
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_TripDetailsText)
#include "tst_TripDetailsText.moc"
