#include "settlements/SettlementWindow.h"
#include "support/DialogRobot.h"
#include "support/FailingStatement.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"

using namespace Qt::StringLiterals;

namespace {

const QString namesNotLoaded = u"Could not load settlement item names: no such table: "
                               "settlement_non_trip_items Unable to execute statement"_s;
const QString rateNotLoaded = u"Could not load APR for payweek: no such table: settlement_meta "
                              "Unable to execute statement"_s;

} // namespace

/// What a person is told, and keeps, when a part of a payweek cannot be read.
class tst_EditSettlementPageFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void payweeksThatCannotBeListedStayAsTheyWere()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeWeekOfThree(workspace);
        trip().payweek(nextWeek).insert(workspace);
        SettlementWindow view(path);
        view.chooses(editedWeek);
        view.statuses.clear();
        workspace.execute(u"DROP TABLE trips"_s);
        robot.expectContaining(DialogRobot::Critical, u"Settlement Payweek Error"_s,
                               u"no such table: trips"_s);
        view.clicks(u"Refresh"_s);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(offeredBy(view.payweeks()), QStringList({nextWeek, editedWeek}));
        QCOMPARE(view.payweeks()->currentText(), editedWeek);
        QCOMPARE(view.statuses, QStringList({newMode, loadedRows(3)}));
    }

    void itemsThatCannotBeReadLeaveAnEmptyTableAndTheEditor()
    {
        Workspace workspace;
        DialogRobot robot;
        SettlementWindow view(makeWeekOfThree(workspace));
        view.clicksItem(0);
        view.typesAmount(u"3"_s);
        const QString summary = view.summary();
        view.statuses.clear();
        workspace.execute(
            u"ALTER TABLE settlement_non_trip_items RENAME COLUMN amount TO dollars"_s);
        robot.expect(DialogRobot::Critical, u"Settlement Query Error"_s,
                     u"no such column: amount Unable to execute statement"_s);
        view.clicks(u"Refresh"_s);
        QCOMPARE(view.table()->rowCount(), 0);
        QCOMPARE(view.table()->columnCount(), 5);
        QVERIFY(!view.saysEmpty());
        QCOMPARE(view.summary(), summary);
        QCOMPARE(view.editor(), QStringList({u"1"_s, u"expense"_s, u"Permit"_s, u"3"_s}));
        QCOMPARE(view.statuses, QStringList({u"Loaded 1 settlement payweeks"_s}));
    }

    void emptyPayweekThatCannotBeReadDoesNotSayThatItIsEmpty()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        trip().payweek(editedWeek).insert(workspace);
        const SettlementWindow view(path);
        QVERIFY(view.saysEmpty());
        workspace.execute(
            u"ALTER TABLE settlement_non_trip_items RENAME COLUMN amount TO dollars"_s);
        robot.expectContaining(DialogRobot::Critical, u"Settlement Query Error"_s, u"amount"_s);
        view.clicks(u"Refresh"_s);
        QVERIFY(!view.saysEmpty());
    }

    // A new item begins once the items are there; what cannot be read leaves the text to be seen.
    void payweekOfAnotherYearOffersItsNamesAndKeepsTheTextBeingTyped()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeWeekOfThree(workspace);
        expense(u"12/26/2025"_s, u"Tarp"_s, 4.0).insert(workspace);
        const SettlementWindow view(path);
        view.typesName(u" Scale ticket "_s);
        workspace.execute(
            u"ALTER TABLE settlement_non_trip_items RENAME COLUMN amount TO dollars"_s);
        robot.expectContaining(DialogRobot::Critical, u"Settlement Query Error"_s, u"amount"_s);
        view.chooses(u"12/26/2025"_s);
        QCOMPARE(offeredBy(view.name()), QStringList({u"Tarp"_s}));
        QCOMPARE(view.name()->currentText(), u"Scale ticket"_s);
    }

    void namesThatCannotBeReadAreToldInTheStatusLineAlone()
    {
        Workspace workspace;
        const DialogRobot robot;
        const QString path = makeWeekOfThree(workspace);
        trip().payweek(nextWeek).insert(workspace);
        FailingStatement statement;
        SettlementWindow view(path);
        view.typesName(u"Scale"_s);
        statement.comesAfter(0);
        view.chooses(editedWeek);
        QCOMPARE(view.statuses, QStringList({namesNotLoaded, newMode, loadedRows(3)}));
        QCOMPARE(view.name()->count(), 0);
        QCOMPARE(robot.seen().size(), 0);
    }

    void namesThatCannotBeReadLeaveTheTextBeingTyped()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeWeekOfThree(workspace);
        trip().payweek(nextWeek).insert(workspace);
        const SettlementWindow view(path);
        view.typesName(u"Scale"_s);
        workspace.execute(u"DROP TABLE settlement_non_trip_items"_s);
        robot.expectContaining(DialogRobot::Critical, u"Settlement Query Error"_s,
                               u"settlement_non_trip_items"_s);
        view.chooses(editedWeek);
        QCOMPARE(view.name()->count(), 0);
        QCOMPARE(view.name()->currentText(), u"Scale"_s);
    }

    // With the names in an index they are read one by one, and the second is the one that fails.
    void namesThatCanBeReadInPartAreNotOffered()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeWeek(workspace);
        trip().payweek(nextWeek).insert(workspace);
        SettlementWindow view(path);
        view.typesName(u"Scale"_s);
        workspace.execute(u"ALTER TABLE settlement_non_trip_items RENAME TO stored"_s);
        workspace.execute(u"CREATE INDEX stored_by_name "
                          "ON stored (TRIM(COALESCE(name,'')) COLLATE NOCASE)"_s);
        workspace.execute(u"CREATE VIEW settlement_non_trip_items AS SELECT id, name, kind, amount,"
                          " CASE name WHEN 'Permit' THEN abs(-9223372036854775808) "
                          "ELSE settlement_date END AS settlement_date FROM stored"_s);
        const QString reason = u"integer overflow Unable to fetch row"_s;
        robot.expect(DialogRobot::Critical, u"Settlement Query Error"_s, reason);
        view.chooses(editedWeek);
        QCOMPARE(view.statuses,
                 QStringList({u"Could not load settlement item names: "_s + reason}));
        QCOMPARE(offeredBy(view.name()), QStringList());
        QCOMPARE(view.name()->currentText(), u"Scale"_s);
    }

    void rateThatCannotBeReadIsZeroAndToldInTheStatusLineAlone()
    {
        Workspace workspace;
        const DialogRobot robot;
        const QString path = makeWeekOfThree(workspace);
        apr(editedWeek, 4.25).insert(workspace);
        SettlementWindow view(path);
        QCOMPARE(view.rate()->value(), 4.25);
        workspace.execute(u"DROP TABLE settlement_meta"_s);
        view.clicks(u"Refresh"_s);
        QCOMPARE(view.rate()->value(), 0.0);
        QCOMPARE(view.statuses, QStringList({rateNotLoaded, u"Loaded 1 settlement payweeks"_s,
                                             newMode, loadedRows(3)}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void readsThatFailAreToldInTheOrderOfNamesRateAndItems()
    {
        Workspace workspace;
        const QString path = makeWeek(workspace);
        trip().payweek(nextWeek).insert(workspace);
        workspace.execute(u"DROP TABLE settlement_meta"_s);
        FailingStatement statement;
        SettlementWindow view(path);
        statement.comesAfter(0);
        view.chooses(editedWeek);
        QCOMPARE(view.statuses,
                 QStringList({namesNotLoaded, rateNotLoaded, newMode, loadedRows(2)}));
    }

    void readsThatFailInARefreshAreToldInTheSameOrder()
    {
        Workspace workspace;
        const QString path = makeWeek(workspace);
        workspace.execute(u"DROP TABLE settlement_meta"_s);
        FailingStatement statement;
        SettlementWindow view(path);
        statement.comesAfter(2); // behind the payweeks of trips and those of items
        view.clicks(u"Refresh"_s);
        QCOMPARE(view.statuses,
                 QStringList({namesNotLoaded, rateNotLoaded, u"Loaded 1 settlement payweeks"_s,
                              newMode, loadedRows(2)}));
    }
};

TEST_CLASS(tst_EditSettlementPageFailures)
#include "tst_EditSettlementPageFailures.moc"
