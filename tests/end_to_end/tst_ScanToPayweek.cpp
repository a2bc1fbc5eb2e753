#include "app/BrindlepathApp.h"
#include "samples/PdfFile.h"
#include "support/DialogRobot.h"
#include "support/Person.h"
#include "support/RowMakers.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "trips/grids/GridHands.h"

#include <QListWidget>
#include <QTableWidget>
#include <QTest>
#include <QTextEdit>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(PdfMake)

namespace {

const QStringList settlement = {
    u"OWNER-OPERATOR SETTLEMENT"_s,
    u"TRUCK NO: 4417                         SETTLEMENT DATE: 25/01/17"_s,
    u"01/05 TRUCK FUEL TRIP 4471203 TRAVEL CENTER    101.4 GALS    (25.00)    412.80"_s,
    u"01/06 TRUCK FUEL TRIP 4471999 TRAVEL CENTER     80.0 GALS               300.00"_s,
    u"01/06 DEF TRIP 4471203 TRAVEL CENTER             5.2 GALS                20.80"_s,
};

} // namespace

/// The road of a fuel row from end to end: out of a real PDF, through the real tools, into the trip
/// and on to its payweek.
class tst_ScanToPayweek : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scannedFuelReachesThePayweekToTheCent_data();
    void scannedFuelReachesThePayweekToTheCent();

private:
    static void scan(BrindlepathApp &window, DialogRobot &robot, const QString &pdf);
    static QTableWidget *grid(const BrindlepathApp &window, const char *name)
    {
        return window.findChild<QTableWidget *>(QLatin1StringView(name));
    }
};

void tst_ScanToPayweek::scannedFuelReachesThePayweekToTheCent_data()
{
    QTest::addColumn<PdfMake>("make");
    QTest::newRow("text") << PdfMake::Text;
    QTest::newRow("scanned page") << PdfMake::Scan;
}

void tst_ScanToPayweek::scannedFuelReachesThePayweekToTheCent()
{
    QFETCH(const PdfMake, make);
    Workspace workspace;
    workspace.linkTools();
    workspace.makeTripsWithoutIndexes();
    trip().no(u"4471203"_s).payweek(u"01/17/2025"_s).set(u"linehaul"_s, 1000.0).insert(workspace);
    QString error;
    const QString pdf = workspace.path(u"driver's settlement.pdf"_s);
    QVERIFY2(writePdf(pdf, {settlement}, make, error), qPrintable(error));
    DialogRobot robot;
    BrindlepathApp window;
    Person::shows(window);
    scan(window, robot, pdf);
    QCOMPARE(column(grid(window, "fuelGrid"), u"Discount"_s),
             QStringList({u"$-25.00"_s, u"$0.00"_s}));

    typesIntoCell(grid(window, "fuelGrid"), 0, 2, u"25"_s);
    Person::clicks(window, u"Save Fuel Rows"_s);
    QCOMPARE(workspace.rows(u"SELECT name, amount FROM trip_cost_items ORDER BY id"_s),
             QList<QStringList>({{u"DEF"_s, u"20.8"_s}, {u"Truck Fuel"_s, u"387.8"_s}}));
    QCOMPARE(workspace.rows(u"SELECT item_type, cost, discount, gallons FROM trip_detail_items"_s),
             QList<QStringList>({{u"Truck Fuel"_s, u"412.8"_s, u"25"_s, u"101.4"_s},
                                 {u"Def"_s, u"20.8"_s, u"0"_s, u"5.2"_s}}));
    QCOMPARE(workspace.value(u"SELECT total_cost FROM trips"_s), 0.0);

    Person::clicks(window, u"Save Trip / Changes"_s);
    QCOMPARE(workspace.value(u"SELECT total_cost FROM trips"_s), 408.6);
    Person::clicksCell(grid(window, "tripList"), 0, 2);
    const QStringList report =
        window.findChild<QTextEdit *>(u"payweekSummary"_s)->toPlainText().split(u'\n');
    for (const QString &line : {u"  Trip cost: $408.60"_s, u"  Trip net: $591.40"_s,
                                u"  Truck Fuel net cost: $387.80"_s, u"  Total gallons: 106.60"_s})
        QVERIFY2(report.contains(line), qPrintable(line));
}

void tst_ScanToPayweek::scan(BrindlepathApp &window, DialogRobot &robot, const QString &pdf)
{
    window.findChild<QListWidget *>(u"navigationList"_s)->setCurrentRow(1);
    Person::clicksCell(grid(window, "tripList"), 0, 1);
    robot.expectFileDialog(u"Select Settlement PDF"_s).choose(pdf);
    robot.expect(DialogRobot::Information, u"Fuel Rows Added"_s,
                 u"Added 2 scanned fuel/detail row(s) for trip 4471203.\n\nReview the rows, then "
                 "click Save Fuel Rows to write them to the trip."_s);
    Person::clicks(window, u"Scan Fuel From Settlement PDF"_s);
}

TEST_CLASS(tst_ScanToPayweek)

#include "tst_ScanToPayweek.moc"
