#include "data/DatabaseLocator.h"
#include "settlements/SettlementWindow.h"
#include "support/DialogRobot.h"
#include "support/TableReaders.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"

using namespace Qt::StringLiterals;

namespace {

const QString deleteFailed = u"Delete Settlement Item Failed"_s;

DialogRobot::Expectation expectQuestion(DialogRobot &robot, const QString &name = u"Permit"_s)
{
    return robot.expect(DialogRobot::Question, u"Confirm Delete"_s,
                        u"Delete selected settlement item?\n\nID: 1\nName: "_s + name
                            + u"\n\nThis deletes only this one non-trip settlement row."_s);
}

} // namespace

/// A person deletes an item, or thinks better of it.
class tst_EditSettlementPageDeleting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void deletedItemIsGoneAloneAndTheEditorIsReadyForAnother()
    {
        Workspace workspace;
        DialogRobot robot;
        SettlementWindow view(makeWeek(workspace));
        view.clicksItem(0);
        view.statuses.clear();
        expectQuestion(robot).press(u"Yes"_s);
        view.clicks(u"Delete Selected"_s);
        QCOMPARE(robot.seen().first().buttons, QStringList({u"Yes"_s, u"No"_s}));
        QCOMPARE(robot.seen().first().defaultButton, u"No"_s);
        QCOMPARE(storedItems(workspace), QList<QStringList>({storedBonus}));
        QCOMPARE(column(view.table(), u"Name"_s), QStringList({u"Bonus"_s}));
        QCOMPARE(view.summary(), u"Summary for 04/18/2026: Revenue $250.00 | Expenses $0.00 | "
                                 "Net $250.00 | Rows 1"_s);
        QCOMPARE(view.editor(), newItem);
        QCOMPARE(view.selection(), QList<int>({-1}));
        QCOMPARE(view.statuses,
                 QStringList({u"Deleted settlement item: Permit"_s, newMode,
                              u"Loaded 1 settlement rows for 04/18/2026"_s, newMode}));
    }

    void deletedNameIsOfferedUntilTheNamesAreReadAnew()
    {
        Workspace workspace;
        DialogRobot robot;
        const SettlementWindow view(makeWeek(workspace));
        view.clicksItem(0);
        expectQuestion(robot).press(u"Yes"_s);
        view.clicks(u"Delete Selected"_s);
        QCOMPARE(offeredBy(view.name()), QStringList({u"Bonus"_s, u"Permit"_s}));
        view.clicks(u"Refresh"_s);
        QCOMPARE(offeredBy(view.name()), QStringList({u"Bonus"_s}));
    }

    void lastItemLeavesAnEmptyPayweekThatIsStillShown()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        expense(editedWeek, u"Permit"_s, 10.0).insert(workspace);
        const SettlementWindow view(path);
        view.clicksItem(0);
        expectQuestion(robot).press(u"Yes"_s);
        view.clicks(u"Delete Selected"_s);
        QVERIFY(view.saysEmpty());
        QCOMPARE(view.payweeks()->currentText(), editedWeek);
        view.clicks(u"Refresh"_s);
        QCOMPARE(view.payweeks()->count(), 0);
        QCOMPARE(view.summary(), u"Summary: no payweek selected."_s);
        QVERIFY(!view.saysEmpty());
    }

    void anythingButYesDeletesNothing_data()
    {
        QTest::addColumn<QString>("button");
        QTest::newRow("No") << u"No"_s;
        QTest::newRow("Escape") << QString();
    }

    void anythingButYesDeletesNothing()
    {
        QFETCH(const QString, button);
        Workspace workspace;
        DialogRobot robot;
        SettlementWindow view(makeWeek(workspace));
        view.clicksItem(0);
        view.statuses.clear();
        if (button.isEmpty())
            expectQuestion(robot).dismiss();
        else
            expectQuestion(robot).press(button);
        view.clicks(u"Delete Selected"_s);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(storedItems(workspace), QList<QStringList>({storedPermit, storedBonus}));
        QCOMPARE(view.editor(), permit);
        QCOMPARE(view.statuses, QStringList());
    }

    void questionNamesWhatStandsInTheNameBox_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("named");
        QTest::newRow("blanks around it") << u" Scale "_s << u"Scale"_s;
        QTest::newRow("placeholders") << u"%1 and %2"_s << u"%1 and %2"_s;
        QTest::newRow("nothing") << u""_s << u""_s;
        QTest::newRow("ten thousand letters") << QString(10'000, u'n') << QString(10'000, u'n');
    }

    void questionNamesWhatStandsInTheNameBox()
    {
        QFETCH(const QString, typed);
        QFETCH(const QString, named);
        Workspace workspace;
        DialogRobot robot;
        SettlementWindow view(makeWeek(workspace));
        view.clicksItem(0);
        view.pastesName(typed);
        view.statuses.clear();
        expectQuestion(robot, named).press(u"Yes"_s);
        view.clicks(u"Delete Selected"_s);
        QCOMPARE(view.statuses.first(), u"Deleted settlement item: "_s + named);
        QCOMPARE(storedItems(workspace), QList<QStringList>({storedBonus}));
    }

    void withoutAFileNothingIsDeleted()
    {
        const Workspace workspace;
        DialogRobot robot;
        const SettlementWindow view;
        robot.expect(DialogRobot::Warning, u"No Database"_s, u"Open trips.db first."_s);
        view.clicks(u"Delete Selected"_s);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(view.statuses, QStringList());
    }

    void newItemCannotBeDeleted()
    {
        Workspace workspace;
        DialogRobot robot;
        SettlementWindow view(makeWeek(workspace));
        view.typesName(u"Scale"_s);
        robot.expect(DialogRobot::Warning, u"No Selection"_s, u"Select a settlement item first."_s);
        view.clicks(u"Delete Selected"_s);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(view.name()->currentText(), u"Scale"_s);
        QCOMPARE(view.statuses, QStringList());
        QCOMPARE(storedItems(workspace).size(), 2);
    }

    void itemDeletedMeanwhileIsToldInABoxAndStaysInTheEditor()
    {
        Workspace workspace;
        DialogRobot robot;
        SettlementWindow view(makeWeek(workspace));
        view.clicksItem(0);
        workspace.execute(u"DELETE FROM settlement_non_trip_items WHERE id = 1"_s);
        view.statuses.clear();
        expectQuestion(robot).press(u"Yes"_s);
        robot.expect(DialogRobot::Critical, deleteFailed,
                     u"No settlement item was deleted. It may have already been deleted."_s);
        view.clicks(u"Delete Selected"_s);
        QCOMPARE(robot.seen().size(), 2);
        QCOMPARE(view.editor(), permit);
        QCOMPARE(view.table()->rowCount(), 2);
        QCOMPARE(view.statuses, QStringList());
        QCOMPARE(storedItems(workspace), QList<QStringList>({storedBonus}));
    }

    void fileClosedBehindTheQuestionIsToldInABox()
    {
        Workspace workspace;
        DialogRobot robot;
        SettlementWindow view(makeWeek(workspace));
        view.clicksItem(0);
        view.statuses.clear();
        // Waits for the loop of the question.
        QMetaObject::invokeMethod(view.page, &DatabaseLocator::closeAllSqliteConnections,
                                  Qt::QueuedConnection);
        expectQuestion(robot).press(u"Yes"_s);
        robot.expect(DialogRobot::Critical, deleteFailed, u"Trips database is not open."_s);
        view.clicks(u"Delete Selected"_s);
        QCOMPARE(robot.seen().size(), 2);
        QCOMPARE(view.editor(), permit);
        QCOMPARE(view.statuses, QStringList());
        QCOMPARE(storedItems(workspace).size(), 2);
    }

    void fileThatCannotBeWrittenKeepsTheItem_data()
    {
        QTest::addColumn<QString>("damage");
        QTest::addColumn<QString>("reason");
        QTest::newRow("read-only")
            << u"PRAGMA query_only = ON"_s << u"attempt to write a readonly database"_s;
        QTest::newRow("no table") << u"DROP TABLE settlement_non_trip_items"_s
                                  << u"no such table: settlement_non_trip_items"_s;
    }

    void fileThatCannotBeWrittenKeepsTheItem()
    {
        QFETCH(const QString, damage);
        QFETCH(const QString, reason);
        Workspace workspace;
        DialogRobot robot;
        SettlementWindow view(makeWeek(workspace));
        view.clicksItem(0);
        view.statuses.clear();
        onThePagesConnection(damage);
        expectQuestion(robot).press(u"Yes"_s);
        robot.expectContaining(DialogRobot::Critical, deleteFailed, reason);
        view.clicks(u"Delete Selected"_s);
        QCOMPARE(robot.seen().size(), 2);
        QCOMPARE(view.editor(), permit);
        QCOMPARE(view.table()->rowCount(), 2);
        QCOMPARE(view.statuses, QStringList());
    }

    void lockedFileKeepsTheItemUntilItIsFree()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeWeek(workspace);
        const SettlementWindow view(path);
        onThePagesConnection(u"PRAGMA busy_timeout = 0"_s); // and not the driver's five seconds
        view.clicksItem(0);
        {
            const TestConnection other(path);
            other.execute(u"BEGIN IMMEDIATE"_s);
            expectQuestion(robot).press(u"Yes"_s);
            robot.expectContaining(DialogRobot::Critical, deleteFailed, u"database is locked"_s);
            view.clicks(u"Delete Selected"_s);
        }
        QCOMPARE(view.editor(), permit);
        expectQuestion(robot).press(u"Yes"_s);
        view.clicks(u"Delete Selected"_s);
        QCOMPARE(storedItems(workspace), QList<QStringList>({storedBonus}));
    }
};

TEST_CLASS(tst_EditSettlementPageDeleting)
#include "tst_EditSettlementPageDeleting.moc"
