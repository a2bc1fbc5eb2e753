#include "reports/totals/PayTotalsRepository.h"
#include "settlements/CarryoverRules.h"
#include "settlements/PayweekRepository.h"
#include "support/RowMakers.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"

using namespace Qt::StringLiterals;
using namespace PayTotalsRepository;

namespace {

const QString week = u"01/02/2026"_s;

/// One trips.db as the two pages read it, each by its own arithmetic.
class OneFile
{
public:
    [[nodiscard]] PayTotalsSummary totals() const { return loadPayweekTotals(database(), week); }
    [[nodiscard]] NonTripTotals items() const { return loadPayweekNonTripTotals(database(), week); }
    [[nodiscard]] FuelTotals fuelTotals() const { return loadPayweekFuelTotals(database(), week); }

    [[nodiscard]] PayweekBasicSummary payweek() const
    {
        QList<QStringList> rows;
        PayweekTripTotals driven;
        PayweekSettlementTotals settlement;
        expectRead(PayweekRepository::loadPayweekTrips(database(), week, rows, driven, error));
        expectRead(PayweekRepository::loadPayweekSettlementItems(database(), week, rows, settlement,
                                                                 error));
        return CarryoverRules::basicSummary(driven, settlement);
    }

    [[nodiscard]] PayweekFundSummary emergencyFund() const
    {
        PayweekFundSummary fund;
        expectRead(PayweekRepository::loadEmergencyFundSummary(database(), week, fund, error));
        return fund;
    }

    [[nodiscard]] PayweekFundSummary tireFund() const
    {
        PayweekFundSummary fund;
        expectRead(PayweekRepository::loadTireFundSummary(database(), week, fund, error));
        return fund;
    }

    [[nodiscard]] PayweekFuelAnalytics fuelAnalytics() const
    {
        PayweekFuelAnalytics analytics;
        expectRead(PayweekRepository::loadPayweekFuelAnalytics(database(), week, analytics, error));
        return analytics;
    }

    [[nodiscard]] const QSqlDatabase &database() const { return trips.database(); }

    Workspace workspace;
    TestConnection trips = TestConnection(workspace.makeTrips());
    mutable QString error;

private:
    void expectRead(bool read) const
    {
        if (!read)
            QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    }
};

} // namespace

/// Pay Totals and View Payweek come to the same revenue, expenses and net, and differ in the rest
/// where they mean to.
class tst_TotalsAgainstPayweek : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void revenueExpensesAndNetAreTheSameToTheCent_data()
    {
        QTest::addColumn<double>("revenueOfTrip");
        QTest::addColumn<double>("costOfTrip");
        QTest::addColumn<double>("bonus");
        QTest::addColumn<double>("permit");
        QTest::addColumn<QList<double>>("expected");
        using Figures = QList<double>;
        QTest::newRow("cents") << 1000.5 << 400.25 << 50.0 << 125.0
                               << Figures({1050.5, 525.25, 525.25});
        QTest::newRow("debt") << 100.0 << 400.0 << 0.0 << 10.0 << Figures({100.0, 410.0, -310.0});
        QTest::newRow("parts of a cent")
            << 10.004 << 0.003 << 0.004 << 0.003 << Figures({10.01, 0.01, 10.0});
        QTest::newRow("half a cent") << 0.125 << 0.0 << 0.0 << 0.125 << Figures({0.13, 0.13, 0.0});
        QTest::newRow("huge") << 1e12 << 0.01 << 0.0 << 0.0
                              << Figures({1e12, 0.01, 999999999999.99});
        QTest::newRow("nothing") << 0.0 << 0.0 << 0.0 << 0.0 << Figures({0.0, 0.0, 0.0});
    }

    void revenueExpensesAndNetAreTheSameToTheCent()
    {
        QFETCH(const double, revenueOfTrip);
        QFETCH(const double, costOfTrip);
        QFETCH(const double, bonus);
        QFETCH(const double, permit);
        QFETCH(const QList<double>, expected);
        const OneFile file;
        trip().payweek(week).totals(revenueOfTrip, costOfTrip).insert(file.workspace);
        revenue(week, u"Bonus"_s, bonus).insert(file.workspace);
        expense(week, u"Permit"_s, permit).insert(file.workspace);
        const PayTotalsSummary totals = file.totals();
        QCOMPARE(QList<double>({totals.totalRevenue, totals.totalExpenses, totals.netRevenue}),
                 expected);
        const PayweekBasicSummary payweek = file.payweek();
        QCOMPARE(QList<double>({payweek.totalRevenue, payweek.totalExpense, payweek.net}),
                 expected);
    }

    void weekOfItemsAloneIsListedByThePayweekPageAlone()
    {
        const OneFile file;
        for (const QString &payweek : {u"01/09/2026"_s, u"12/26/2025"_s, week})
            trip().payweek(payweek).insert(file.workspace);
        expense(u"01/16/2026"_s, u"Permit"_s, 10.0).insert(file.workspace);
        QStringList keys;
        QVERIFY(PayweekRepository::listPayweeks(file.database(), keys, file.error));
        QCOMPARE(keys, QStringList({u"01/16/2026"_s, u"01/09/2026"_s, week, u"12/26/2025"_s}));
        QCOMPARE(listTotalsPayweeks(file.database(), u"2026"_s),
                 QStringList({week, u"01/09/2026"_s}));
    }

    void amountWrittenAsTextCountsInThePartThatIsANumberOrNotAtAll()
    {
        const OneFile file;
        trip().payweek(week).set(u"total_revenue"_s, u"1,000"_s).insert(file.workspace);
        expense(week, u"Permit"_s, 0.0).set(u"amount"_s, u"12.5 paid"_s).insert(file.workspace);
        QCOMPARE(file.totals().totalRevenue, 1.0);
        QCOMPARE(file.payweek().totalRevenue, 0.0);
        QCOMPARE(file.totals().totalExpenses, 12.5);
        QCOMPARE(file.payweek().totalExpense, 0.0);
    }

    void contributionIsMinusInTheTotalsAndPlusInTheFund()
    {
        const OneFile file;
        expense(week, u"Emergency Fund"_s, 100.0).insert(file.workspace);
        revenue(week, u"Emergency Fund Withdrawal"_s, 30.0).insert(file.workspace);
        QCOMPARE(file.items().emergencyFundNet, -70.0);
        QCOMPARE(file.emergencyFund().netChange, 70.0);
    }

    void looseFundNamesAreOfTheFundInTheTotalsAlone()
    {
        const OneFile file;
        revenue(week, u"Tire Fund"_s, 40.0).insert(file.workspace);
        QCOMPARE(file.items().tireFundNet, 40.0);
        QCOMPARE(file.tireFund().withdrawn, 0.0);
        expense(week, u"Tire Fund Deposit"_s, 15.0).insert(file.workspace);
        QCOMPARE(file.items().tireFundNet, 25.0);
        QCOMPARE(file.tireFund().added, 0.0);
        expense(week, u"Tire Fund"_s, 50.0).insert(file.workspace);
        QCOMPARE(file.items().tireFundNet, -25.0);
        QCOMPARE(file.tireFund().netChange, 50.0);
    }

    void fuelIsRoundedByPurchaseInTheTotalsAndByTypeInThePayweek()
    {
        const OneFile file;
        const qint64 id = trip().payweek(week).insert(file.workspace);
        for (int i = 0; i < 2; ++i)
            fuel(id, u"Truck Fuel"_s, 10.125, 0.0, 2.0).insert(file.workspace);
        QCOMPARE(file.fuelTotals().allFuel.netCost, 20.26);
        QCOMPARE(file.fuelAnalytics().netCost, 20.25);
        // Over four gallons.
        QCOMPARE(file.fuelTotals().allFuel.avgNetPricePerGallon, 5.065);
        QCOMPARE(file.fuelAnalytics().averageNetPricePerGallon, 5.0625);
    }

    void netPerMileIsInDollarsInTheTotalsAndInRoundedCentsInThePayweek()
    {
        const OneFile file;
        trip().payweek(week).set(u"total_miles"_s, 800.0).totals(875.0, 0.0).insert(file.workspace);
        QCOMPARE(file.totals().cpmNetRevenue, 1.09375);
        QList<QStringList> rows;
        PayweekTripTotals trips;
        QVERIFY(
            PayweekRepository::loadPayweekTrips(file.database(), week, rows, trips, file.error));
        QCOMPARE(CarryoverRules::basicSummary(trips, {}).netCpm, 109.38);
    }

    void fuelNamesAreReadByTwoRules_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QList<double>>("totals");
        QTest::addColumn<QList<double>>("payweek");
        // Net costs of truck fuel, reefer fuel and DEF.
        const QList<double> truck = {10.0, 0.0, 0.0};
        const QList<double> reefer = {0.0, 10.0, 0.0};
        const QList<double> def = {0.0, 0.0, 10.0};
        const QList<double> none = {0.0, 0.0, 0.0};
        QTest::newRow("truck") << u"Truck Fuel"_s << truck << truck;
        QTest::newRow("truck and reefer") << u"truck reefer fuel"_s << truck << reefer;
        QTest::newRow("bare fuel") << u"Fuel"_s << truck << none;
        QTest::newRow("underscores") << u"diesel_exhaust_fluid"_s << def << none;
        QTest::newRow("deferred") << u"deferred"_s << none << def;
        QTest::newRow("unknown") << u"Oil"_s << none << none;
    }

    void fuelNamesAreReadByTwoRules()
    {
        QFETCH(const QString, type);
        QFETCH(const QList<double>, totals);
        QFETCH(const QList<double>, payweek);
        const OneFile file;
        const qint64 id = trip().payweek(week).insert(file.workspace);
        fuel(id, type, 11.0, 1.0, 4.0).insert(file.workspace);
        const FuelTotals ours = file.fuelTotals();
        QCOMPARE(QList<double>({ours.truckFuel.netCost, ours.reeferFuel.netCost, ours.def.netCost}),
                 totals);
        const PayweekFuelAnalytics theirs = file.fuelAnalytics();
        QCOMPARE(
            QList<double>({theirs.truckFuelNetCost, theirs.reeferFuelNetCost, theirs.defNetCost}),
            payweek);
        QCOMPARE(ours.allFuel.netCost, 10.0);
        QCOMPARE(theirs.netCost, 10.0);
    }

    void debtOfAnEarlierWeekIsNotInTheTotals()
    {
        const OneFile file;
        trip().payweek(week).totals(0.0, 500.0).insert(file.workspace);
        trip().payweek(u"01/09/2026"_s).totals(700.0, 0.0).insert(file.workspace);
        QCOMPARE(loadPayweekTotals(file.database(), u"01/09/2026"_s).netRevenue, 700.0);
        PayweekCarryoverSummary carryover;
        QVERIFY(PayweekRepository::loadPayweekCarryover(
            file.database(), u"01/09/2026"_s, {.net = 700.0}, {}, {}, carryover, file.error));
        QCOMPARE(carryover.adjustedNetAfterCarryover, 200.0);
    }

    void failureIsSilentInTheTotalsAndToldByThePayweek()
    {
        const OneFile file;
        trip().payweek(week).totals(100.0, 40.0).insert(file.workspace);
        file.trips.execute(u"DROP TABLE trip_detail_items"_s);
        QCOMPARE(file.fuelTotals().allFuel.netCost, 0.0);
        PayweekFuelAnalytics analytics;
        QVERIFY(!PayweekRepository::loadPayweekFuelAnalytics(file.database(), week, analytics,
                                                             file.error));
        QCOMPARE(file.error, u"no such table: trip_detail_items Unable to execute statement"_s);
    }
};

TEST_CLASS(tst_TotalsAgainstPayweek)
#include "tst_TotalsAgainstPayweek.moc"
