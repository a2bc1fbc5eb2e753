#include "data/DomainRules.h"
#include "settlements/FundLedger.h"
#include "settlements/PayweekRepository.h"
#include "settlements/PayweekRows.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"

using namespace Qt::StringLiterals;

namespace {

// Both funds, and items that are in neither, over two years and in every spelling of a date.
void insertMovements(const Workspace &workspace)
{
    const QStringList weeks = {
        u"12/26/2025"_s,    u"12/31/2025"_s,   u"01/01/2026"_s, u"01/02/2026"_s,
        u" 01/02/2026 "_s,  u"1/2/2026"_s,     u"2026-01-02"_s, u"01-09-2026"_s,
        u"01.09.2026"_s,    u"2026/01/09"_s,   u"02/28/2026"_s, u"02/30/2026"_s,
        u"03/01/2026"_s,    u"03/02/2026"_s,   u"13/01/2026"_s, u"12/31/2026"_s,
        u"01/01/2027"_s,    u"00/00/2026"_s,   u"01/02/26"_s,   u"01/02/2026 late"_s,
        u"week of Jan 2"_s, u"\t01/02/2026"_s, u""_s,           u"12/31/9999"_s,
        u"01/01/0000"_s};
    double amount = 1.01;
    for (const QString &week : weeks) {
        expense(week, u"Emergency Fund"_s, amount).insert(workspace);
        amount *= 1.7;
    }
    const auto copy = [&workspace](const QString &kind, const QString &name, double share) {
        workspace.execute(
            u"INSERT INTO settlement_non_trip_items "
            "(settlement_date, kind, name, amount) SELECT settlement_date, ?, ?, "
            "amount * ? FROM settlement_non_trip_items WHERE name = 'Emergency Fund'"_s,
            {kind, name, share});
    };
    copy(u"revenue"_s, u"emergency fund"_s, 0.37);
    copy(u"expense"_s, u" PERFORMANCE BOND "_s, 7.1);
    copy(u"revenue"_s, u"Performance Bond Withdrawal"_s, 0.13);
    copy(u"expense"_s, u"Tire Fund"_s, 11.0);
    for (const QVariant &odd : {QVariant(), QVariant(u"abc"_s), QVariant(u"12.5 dollars"_s),
                                QVariant(u" 3.25 "_s), QVariant(u"$4"_s), QVariant(-5.5)}) {
        expense(u"01/02/2026"_s, u"Emergency Fund"_s, 0.0).set(u"amount"_s, odd).insert(workspace);
        revenue(u"01/09/2026"_s, u"Performance Bond Withdrawal"_s, 0.0)
            .set(u"amount"_s, odd)
            .insert(workspace);
    }
    expense(u"01/02/2026"_s, u"Emergency Fund"_s, 9.0)
        .set(u"settlement_date"_s, QVariant())
        .insert(workspace);
    expense(u"01/02/2026"_s, u""_s, 9.0).set(u"name"_s, QVariant()).insert(workspace);
    expense(u"01/02/2026"_s, u"Emergency Fund"_s, 9.0).set(u"kind"_s, QVariant()).insert(workspace);
}

int yearOf(const QString &payweek)
{
    const QDate date = DomainRules::parsePayweekDate(payweek);
    return date.isValid() ? date.year() : 0;
}

} // namespace

class tst_FundLedger : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        Workspace workspace;
        workspace.makeTrips();
        insertMovements(workspace);
        fileOfMovements = workspace.bytes(u"trips.db"_s);
    }

    void balanceIsThatOfTheSinglePayweek_data()
    {
        QTest::addColumn<QString>("payweek");
        for (const char *payweek :
             {"12/26/2025",   "12/31/2025",      "01/01/2026",    "01/02/2026",
              " 01/02/2026 ", "1/2/2026",        "2026-01-02",    "2026/01/02",
              "01-02-2026",   "1-2-2026",        "01.09.2026",    "01/09/2026",
              "02/28/2026",   "02/29/2026",      "02/30/2026",    "03/01/2026",
              "12/31/2026",   "01/01/2027",      "13/01/2026",    "00/00/2026",
              "01/02/26",     "01/02/2026 late", "week of Jan 2", "\t01/02/2026",
              "12/31/9999",   "01/01/0000",      "abc",           "x1/02/2026",
              "01/02/2024"})
            QTest::addRow("%s", payweek) << QString::fromLatin1(payweek);
    }

    void balanceIsThatOfTheSinglePayweek()
    {
        QFETCH(const QString, payweek);
        const Workspace workspace;
        const TestConnection trips(workspace.makeFile(u"trips.db"_s, fileOfMovements));
        const int year = yearOf(payweek);
        PayweekFundSummary emergencyFund;
        PayweekFundSummary performanceBond;
        QString error;
        QVERIFY(PayweekRepository::loadEmergencyFundSummary(trips.database(), payweek,
                                                            emergencyFund, error));
        QVERIFY(PayweekRepository::loadPerformanceBondSummary(trips.database(), payweek,
                                                              performanceBond, error));
        for (const int ledgerYear : {year, 0}) {
            FundLedger ledger(trips.database(), ledgerYear);
            const FundLedger::Balance balance = ledger.through(payweek, year);
            // To the last bit: a walk must not drift from what its weeks show.
            QVERIFY(balance.emergencyFund == emergencyFund.balanceThroughPayweek);
            QVERIFY(balance.performanceBond == performanceBond.balanceThroughPayweek);
        }
    }

    void balanceRunsFromTheStartOfTheYearThroughThePayweek_data()
    {
        QTest::addColumn<QString>("payweek");
        QTest::addColumn<int>("year");
        QTest::addColumn<double>("dollars");
        QTest::newRow("the week before") << u"12/26/2025"_s << 2025 << 500.0;
        QTest::newRow("the first of the year") << u"01/02/2026"_s << 2026 << 100.0;
        QTest::newRow("between two weeks") << u"01/05/2026"_s << 2026 << 100.0;
        QTest::newRow("the second") << u"01/09/2026"_s << 2026 << 70.0;
        QTest::newRow("with dashes") << u"01-09-2026"_s << 2026 << 70.0;
        QTest::newRow("before the first") << u"01/01/2026"_s << 2026 << 0.0;
        QTest::newRow("without leading zeros") << u"1/9/2026"_s << 2026 << 0.0;
        QTest::newRow("year first") << u"2026-01-09"_s << 2026 << 0.0;
        QTest::newRow("no date") << u"abc"_s << 0 << 0.0;
        QTest::newRow("all years") << u"01/09/2026"_s << 0 << 570.0;
    }

    void balanceRunsFromTheStartOfTheYearThroughThePayweek()
    {
        QFETCH(const QString, payweek);
        QFETCH(const int, year);
        QFETCH(const double, dollars);
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        expense(u"12/26/2025"_s, u"Emergency Fund"_s, 500.0).insert(workspace);
        expense(u"01/02/2026"_s, u"Emergency Fund"_s, 100.0).insert(workspace);
        revenue(u"01/09/2026"_s, u"Emergency Fund"_s, 30.0).insert(workspace);
        expense(u"1/2/2026"_s, u"Emergency Fund"_s, 7.0).insert(workspace);
        FundLedger ledger(trips.database(), 0);
        QCOMPARE(ledger.through(payweek, year).emergencyFund, dollars);
        QCOMPARE(ledger.through(payweek, year).performanceBond, 0.0);
    }

    void ledgerOfAYearHoldsNoOther()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        expense(u"12/26/2025"_s, u"Performance Bond"_s, 500.0).insert(workspace);
        expense(u"01/02/2026"_s, u"Performance Bond"_s, 100.0).insert(workspace);
        FundLedger ledger(trips.database(), 2026);
        QCOMPARE(ledger.through(u"01/02/2026"_s, 2026).performanceBond, 100.0);
        QCOMPARE(ledger.through(u"01/02/2026"_s, 0).performanceBond, 100.0);
        QCOMPARE(ledger.through(u"12/26/2025"_s, 2025).performanceBond, 0.0);
    }

    void ledgerOfAFileWithoutItemsIsEmpty()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        trips.execute(u"DROP TABLE settlement_non_trip_items"_s);
        FundLedger ledger(trips.database(), 2026);
        QCOMPARE(ledger.through(u"01/02/2026"_s, 2026).emergencyFund, 0.0);
        QCOMPARE(ledger.through(u"01/02/2026"_s, 2026).performanceBond, 0.0);
    }

    void ledgerThatFailsHalfWayIsEmpty()
    {
        Workspace workspace;
        const TestConnection trips(workspace.makeTrips());
        expense(u"01/02/2026"_s, u"Emergency Fund"_s, 100.0).insert(workspace);
        expense(u"01/02/2026"_s, u"Emergency Fund"_s, -1e19).insert(workspace);
        makeHugeAmountsUnreadable(workspace);
        FundLedger ledger(trips.database(), 2026);
        QCOMPARE(ledger.through(u"01/02/2026"_s, 2026).emergencyFund, 0.0);
    }

    void ledgerOfAClosedFileIsEmpty()
    {
        const Workspace workspace;
        FundLedger ledger(QSqlDatabase(), 2026);
        QCOMPARE(ledger.through(u"01/02/2026"_s, 2026).emergencyFund, 0.0);
        QCOMPARE(ledger.through(u"01/02/2026"_s, 2026).performanceBond, 0.0);
    }

private:
    QByteArray fileOfMovements;
};

TEST_CLASS(tst_FundLedger)
#include "tst_FundLedger.moc"
