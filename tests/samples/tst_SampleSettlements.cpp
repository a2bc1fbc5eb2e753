#include "pdfimport/PdfTextExtractor.h"
#include "pdfimport/SettlementParser.h"
#include "samples/SampleBusiness.h"
#include "samples/SampleSettlements.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QDir>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// What fuel and DEF cost a trip, to the cent.
double fuelCost(const SampleTrip &trip)
{
    double cost = 0.0;
    for (const DomainRules::FuelRowValues &row : trip.fuel)
        cost += row.cost - row.discount;
    return cost;
}

double scannedCost(const QList<FuelReviewRow> &rows)
{
    double cost = 0.0;
    for (const FuelReviewRow &row : rows)
        cost += row.cost - row.discount;
    return cost;
}

} // namespace

/// The sample settlements must give what the sample trips say, or a newcomer's first scan is wrong.
class tst_SampleSettlements : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyTripOfAYearIsScannedToItsOwnFuel()
    {
        int tripsSeen = 0;
        for (const SampleWeek &week : makeSampleBusiness(1, 1).weeks) {
            const QString text = settlementPage(week).join(u'\n');
            for (const SampleTrip &trip : week.trips) {
                const auto rows = SettlementParser::scanTripFuelRows(trip.number, text);
                QCOMPARE(rows.size(), trip.fuel.size());
                QVERIFY(std::abs(scannedCost(rows) - fuelCost(trip)) < 0.005);
                ++tripsSeen;
            }
        }
        QVERIFY2(tripsSeen > 100, qPrintable(QString::number(tripsSeen)));
    }

    void settlementNamesItsTruckAndPayweek()
    {
        const SampleWeek week = makeSampleBusiness(1, 1).weeks.constLast();
        const auto result = SettlementParser::parse({}, settlementPage(week).join(u'\n'), {});
        QCOMPARE(result.truckNumber, u"4417"_s);
        QCOMPARE(result.payweek, u"11/20/2026"_s);
    }

    void filesReadAsTheirPages()
    {
        Workspace workspace;
        const SampleBusiness business = makeSampleBusiness(1, 1);
        QString error;
        QVERIFY2(writeSampleSettlements(workspace.path(u"s"_s), business, error),
                 qPrintable(error));
        const auto text = PdfTextExtractor::extract(workspace.path(u"s/2026-11-20.pdf"_s));
        const SampleTrip trip = business.weeks.constLast().trips.constFirst();
        QCOMPARE(SettlementParser::scanTripFuelRows(trip.number, text.rawText).size(),
                 trip.fuel.size());
        const auto fifteen =
            PdfTextExtractor::extract(workspace.path(u"s/last-fifteen-weeks.pdf"_s));
        QCOMPARE(fifteen.pageTexts.size(), 15);
    }

    void folderThatCannotBeMadeIsTold()
    {
        Workspace workspace;
        const QString file = workspace.makeFile(u"s"_s, "a file");
        QString error;
        QVERIFY(!writeSampleSettlements(file, makeSampleBusiness(1, 1), error));
        QCOMPARE(error, file + " could not be made."_L1);
    }

    void pageThatCannotBeWrittenIsTold()
    {
        Workspace workspace;
        QVERIFY(QDir().mkpath(workspace.path(u"s/2026-11-20.pdf"_s)));
        QString error;
        QVERIFY(!writeSampleSettlements(workspace.path(u"s"_s), makeSampleBusiness(1, 1), error));
        QVERIFY2(error.startsWith(workspace.path(u"s/2026-11-20.pdf: "_s)), qPrintable(error));
    }
};

TEST_CLASS(tst_SampleSettlements)
#include "tst_SampleSettlements.moc"
