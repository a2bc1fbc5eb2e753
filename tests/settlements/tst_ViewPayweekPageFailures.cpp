#include "settlements/PayweekRows.h"
#include "settlements/PayweekWindow.h"
#include "support/DialogRobot.h"
#include "support/FailingStatement.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString week = u"01/02/2026"_s;

void insertWeek(const Workspace &workspace)
{
    insertTrip(workspace, week, 1000.0, 400.0);
    expense(week, u"Permit"_s, 10.0).insert(workspace);
}

// An amount of a payweek before this one, which its balance alone reads.
void spoilTheBalance(const Workspace &workspace)
{
    expense(u"01/01/2026"_s, u"Emergency Fund"_s, -1e19).insert(workspace);
    makeHugeAmountsUnreadable(workspace);
}

} // namespace

/// What a person sees where a part of the payweek cannot be read.
class tst_ViewPayweekPageFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void partThatFailsIsNamedAndNothingIsShown_data()
    {
        QTest::addColumn<QString>("damage");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");
        QTest::newRow("trips") << u"ALTER TABLE trips RENAME COLUMN cpm TO cents"_s
                               << u"Trip Query Error"_s
                               << u"no such column: cpm Unable to execute statement"_s;
        QTest::newRow("items")
            << u"ALTER TABLE settlement_non_trip_items RENAME COLUMN amount TO dollars"_s
            << u"Settlement Query Error"_s
            << u"no such column: amount Unable to execute statement"_s;
        QTest::newRow("fuel") << u"DROP TABLE trip_detail_items"_s
                              << u"Fuel Analytics Query Error"_s
                              << u"no such table: trip_detail_items Unable to execute statement"_s;
        QTest::newRow("carryover")
            << u"DROP TABLE settlement_meta"_s << u"Carryover / Interest Query Error"_s
            << u"no such table: settlement_meta Unable to execute statement"_s;
    }

    void partThatFailsIsNamedAndNothingIsShown()
    {
        QFETCH(const QString, damage);
        QFETCH(const QString, title);
        QFETCH(const QString, text);
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertWeek(workspace);
        PayweekWindow view(path);
        QCOMPARE(view.tableSizes(), QList<int>({1, 9, 1, 5}));
        workspace.execute(damage);
        robot.expect(DialogRobot::Critical, title, text);
        view.clicks(u"Refresh"_s);
        QCOMPARE(robot.seen().size(), 1);
        expectNothingShown(view);
    }

    void balanceThatFailsIsToldOfTheEmergencyFund()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertWeek(workspace);
        PayweekWindow view(path);
        spoilTheBalance(workspace);
        robot.expectContaining(DialogRobot::Critical, u"E-Fund Query Error"_s,
                               u"integer overflow"_s);
        view.clicks(u"Refresh"_s);
        QCOMPARE(robot.seen().size(), 1);
        expectNothingShown(view, 2);
    }

    // The list of payweeks comes first; each fund then takes two statements.
    void eachStatementFailsUnderItsOwnTitle_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<QString>("title");
        QTest::newRow("trips") << 1 << u"Trip Query Error"_s;
        QTest::newRow("items") << 2 << u"Settlement Query Error"_s;
        QTest::newRow("Emergency Fund") << 3 << u"E-Fund Query Error"_s;
        QTest::newRow("balance of the Emergency Fund") << 4 << u"E-Fund Query Error"_s;
        QTest::newRow("Tire Fund") << 5 << u"Tire Fund Query Error"_s;
        QTest::newRow("balance of the Tire Fund") << 6 << u"Tire Fund Query Error"_s;
        QTest::newRow("Performance Bond") << 7 << u"Performance Bond Query Error"_s;
        QTest::newRow("balance of the bond") << 8 << u"Performance Bond Query Error"_s;
        QTest::newRow("fuel") << 9 << u"Fuel Analytics Query Error"_s;
        QTest::newRow("list of the walk") << 11 << u"Carryover / Interest Query Error"_s;
    }

    void eachStatementFailsUnderItsOwnTitle()
    {
        QFETCH(const int, before);
        QFETCH(const QString, title);
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertWeek(workspace);
        FailingStatement statement;
        PayweekWindow view(path);
        statement.comesAfter(before);
        robot.expectContaining(DialogRobot::Critical, title, u"no such table: "_s);
        view.clicks(u"Refresh"_s);
        QCOMPARE(robot.seen().size(), 1);
        expectNothingShown(view);
        view.clicks(u"Refresh"_s);
        QCOMPARE(view.tableSizes(), QList<int>({1, 9, 1, 5}));
    }

    void rateThatFailsIsNoFailure()
    {
        Workspace workspace;
        const DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertWeek(workspace);
        apr(week, 5.2).insert(workspace);
        FailingStatement statement;
        const PayweekWindow view(path);
        QCOMPARE(view.figures(u"APR"_s), QStringList({u"5.20%"_s}));
        statement.comesAfter(10);
        view.clicks(u"Refresh"_s);
        QCOMPARE(view.figures(u"APR"_s), QStringList({u"0.00%"_s}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void payweeksThatCannotBeListedStayAsTheyWere()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertWorkedWeeks(workspace);
        PayweekWindow view(path);
        view.chooses(u"01/09/2026"_s);
        view.statuses.clear();
        workspace.execute(u"DROP TABLE trips"_s);
        robot.expectContaining(DialogRobot::Critical, u"Payweek Load Error"_s,
                               u"no such table: trips"_s);
        robot.expectContaining(DialogRobot::Critical, u"Trip Query Error"_s,
                               u"no such table: trips"_s);
        view.clicks(u"Refresh"_s);
        QCOMPARE(robot.seen().size(), 2);
        QCOMPARE(view.offered(), QStringList({u"01/16/2026"_s, u"01/09/2026"_s, u"01/02/2026"_s}));
        QCOMPARE(view.page->currentPayweek(), u"01/09/2026"_s);
        QCOMPARE(view.statuses, QStringList());
    }

    void requestedPayweekThatFailsIsStillTheOneOpened()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertWorkedWeeks(workspace);
        PayweekWindow view(path);
        QCOMPARE(view.page->currentPayweek(), u"01/16/2026"_s);
        workspace.execute(u"DROP TABLE trip_detail_items"_s);
        robot.expectContaining(DialogRobot::Critical, u"Fuel Analytics Query Error"_s,
                               u"no such table: trip_detail_items"_s);
        view.page->showPayweek(week);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(view.page->currentPayweek(), week);
        QCOMPARE(view.announced, QStringList({week}));
        QCOMPARE(view.statuses, QStringList({u"Opened View Payweek for 01/02/2026"_s}));
        QCOMPARE(view.tableSizes(), clearedTables);
        QCOMPARE(view.summary(), QString());
    }

    void firstOfSeveralFailuresIsTheOnlyOneTold()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        insertWeek(workspace);
        PayweekWindow view(path);
        workspace.execute(u"ALTER TABLE trips RENAME COLUMN cpm TO cents"_s);
        workspace.execute(u"DROP TABLE trip_detail_items"_s);
        workspace.execute(u"DROP TABLE settlement_meta"_s);
        robot.expectContaining(DialogRobot::Critical, u"Trip Query Error"_s, u"cpm"_s);
        view.clicks(u"Refresh"_s);
        QCOMPARE(robot.seen().size(), 1);
        expectNothingShown(view);
    }

private:
    static void expectNothingShown(const PayweekWindow &view, int payweeks = 1)
    {
        QCOMPARE(view.tableSizes(), clearedTables);
        QCOMPARE(view.summary(), QString());
        QCOMPARE(view.page->currentPayweek(), week);
        QCOMPARE(view.announced, QStringList({week}));
        QCOMPARE(view.statuses,
                 QStringList({u"Loaded %1 payweeks for View Payweek"_s.arg(payweeks)}));
    }
};

TEST_CLASS(tst_ViewPayweekPageFailures)
#include "tst_ViewPayweekPageFailures.moc"
