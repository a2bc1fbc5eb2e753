#include "data/DatabaseLocator.h"
#include "settlements/SettlementWindow.h"
#include "support/DialogRobot.h"
#include "support/TableReaders.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"

using namespace Qt::StringLiterals;

namespace {

const QString saveFailed = u"Save Settlement Item Failed"_s;

void expectNoDatabase(DialogRobot &robot)
{
    robot.expect(DialogRobot::Warning, u"No Database"_s, u"Open trips.db first."_s);
}

void expectNoPayweek(DialogRobot &robot)
{
    robot.expect(DialogRobot::Warning, u"Missing Payweek"_s,
                 u"Select a settlement / payweek first."_s);
}

void expectNoName(DialogRobot &robot)
{
    robot.expect(DialogRobot::Warning, u"Missing Name"_s, u"Settlement item name is required."_s);
}

QList<QStringList> storedRates(const Workspace &workspace)
{
    return workspace.rows(u"SELECT settlement_date, apr FROM settlement_meta"_s);
}

} // namespace

/// A person saves items and rates, in files of all kinds.
class tst_EditSettlementPageSaving : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void enteredItemIsStoredAndTheEditorIsReadyForAnother()
    {
        Workspace workspace;
        const DialogRobot robot;
        SettlementWindow view(makeWeek(workspace));
        view.choosesKind(u"expense"_s);
        view.typesName(u" Scale ticket "_s);
        view.typesAmount(u"12.5"_s);
        view.statuses.clear();
        view.clicks(u"Save Item"_s);
        QCOMPARE(storedItems(workspace),
                 QList<QStringList>({storedPermit,
                                     storedBonus,
                                     {editedWeek, u"expense"_s, u"Scale ticket"_s, u"12.5"_s}}));
        QCOMPARE(column(view.table(), u"Name"_s),
                 QStringList({u"Permit"_s, u"Scale ticket"_s, u"Bonus"_s}));
        QCOMPARE(view.editor(), newItem);
        QCOMPARE(view.selection(), QList<int>({-1}));
        QCOMPARE(view.statuses,
                 QStringList({u"Added settlement item: Scale ticket"_s, newMode,
                              u"Loaded 3 settlement rows for 04/18/2026"_s, newMode}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void enteredNameIsOfferedFromThenOn()
    {
        Workspace workspace;
        const SettlementWindow view(makeWeek(workspace));
        view.typesName(u"Scale ticket"_s);
        view.clicks(u"Save Item"_s);
        QCOMPARE(offeredBy(view.name()), QStringList({u"Bonus"_s, u"Permit"_s, u"Scale ticket"_s}));
    }

    void changedNameIsOfferedFromThenOnInPlaceOfTheOldOne()
    {
        Workspace workspace;
        const SettlementWindow view(makeWeek(workspace));
        view.clicksItem(0);
        view.typesName(u"Scale ticket"_s);
        view.clicks(u"Save Item"_s);
        QCOMPARE(offeredBy(view.name()), QStringList({u"Bonus"_s, u"Scale ticket"_s}));
    }

    void firstItemOfAPayweekTakesTheWordThatThereIsNoneAway()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        trip().payweek(editedWeek).insert(workspace);
        const SettlementWindow view(path);
        QVERIFY(view.saysEmpty());
        view.typesName(u"Bonus"_s);
        view.typesAmount(u"250"_s);
        view.clicks(u"Save Item"_s);
        QVERIFY(!view.saysEmpty());
        QCOMPARE(view.summary(), u"Summary for 04/18/2026: Revenue $250.00 | Expenses $0.00 | "
                                 "Net $250.00 | Rows 1"_s);
    }

    void changedItemIsStoredAndStaysSelected()
    {
        Workspace workspace;
        const DialogRobot robot;
        SettlementWindow view(makeWeek(workspace));
        view.clicksItem(0);
        view.choosesKind(u"revenue"_s);
        view.typesName(u"Refund"_s);
        view.typesAmount(u"-7"_s);
        view.statuses.clear();
        view.clicks(u"Save Item"_s);
        QCOMPARE(
            storedItems(workspace),
            QList<QStringList>({{editedWeek, u"revenue"_s, u"Refund"_s, u"-7"_s}, storedBonus}));
        QCOMPARE(view.editor(), QStringList({u"1"_s, u"revenue"_s, u"Refund"_s, u"-7.00"_s}));
        QCOMPARE(view.selection(), QList<int>({0, 0}));
        QCOMPARE(view.statuses, QStringList({u"Updated settlement item: Refund"_s,
                                             u"Loaded settlement item into editor: Refund"_s,
                                             u"Loaded 2 settlement rows for 04/18/2026"_s}));
        QCOMPARE(view.summary(), u"Summary for 04/18/2026: Revenue $243.00 | Expenses $0.00 | "
                                 "Net $243.00 | Rows 2"_s);
        QCOMPARE(robot.seen().size(), 0);
    }

    void changedItemStaysSelectedWhereItsKindMovesIt()
    {
        Workspace workspace;
        const SettlementWindow view(makeWeek(workspace));
        view.clicksItem(1);
        view.choosesKind(u"expense"_s);
        view.clicks(u"Save Item"_s);
        view.clicksItem(0);
        view.choosesKind(u"revenue"_s);
        view.clicks(u"Save Item"_s);
        QCOMPARE(column(view.table(), u"Name"_s), QStringList({u"Bonus"_s, u"Permit"_s}));
        QCOMPARE(view.selection(), QList<int>({1, 1}));
        QCOMPARE(view.editor(), QStringList({u"1"_s, u"revenue"_s, u"Permit"_s, u"1234.50"_s}));
    }

    void clearedEditorSavesAnItemOfItsOwn()
    {
        Workspace workspace;
        const SettlementWindow view(makeWeek(workspace));
        view.clicksItem(0);
        view.clicks(u"Clear Editor"_s);
        view.typesName(u"Scale"_s);
        view.typesAmount(u"3"_s);
        view.clicks(u"Save Item"_s);
        QCOMPARE(storedItems(workspace),
                 QList<QStringList>(
                     {storedPermit, storedBonus, {editedWeek, u"revenue"_s, u"Scale"_s, u"3"_s}}));
    }

    void amountIsStoredAsItReads_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<double>("dollars");
        QTest::addColumn<QString>("shown");
        QTest::newRow("$1,234.50 is 1234.5") << u"$1,234.50"_s << 1234.5 << u"$1,234.50"_s;
        QTest::newRow("below zero") << u"-$12.00"_s << -12.0 << u"-$12.00"_s;
        QTest::newRow("abc is 0") << u"abc"_s << 0.0 << u"$0.00"_s;
        QTest::newRow("nothing is 0") << u""_s << 0.0 << u"$0.00"_s;
        QTest::newRow("blanks are 0") << u"   "_s << 0.0 << u"$0.00"_s;
        QTest::newRow("fractions of a cent stay") << u"0.126"_s << 0.126 << u"$0.13"_s;
    }

    void amountIsStoredAsItReads()
    {
        QFETCH(const QString, typed);
        QFETCH(const double, dollars);
        QFETCH(const QString, shown);
        Workspace workspace;
        const DialogRobot robot;
        const QString path = workspace.makeTrips();
        trip().payweek(editedWeek).insert(workspace);
        const SettlementWindow view(path);
        view.typesName(u"Bonus"_s);
        view.typesAmount(typed);
        view.clicks(u"Save Item"_s);
        QCOMPARE(workspace.value(u"SELECT amount FROM settlement_non_trip_items"_s), dollars);
        QCOMPARE(column(view.table(), u"Amount"_s), QStringList({shown}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void mistypedAmountOfAStoredItemIsSavedAsZeroWithoutAMessage()
    {
        Workspace workspace;
        const DialogRobot robot;
        const SettlementWindow view(makeWeek(workspace));
        view.clicksItem(0);
        view.typesAmount(u"abc"_s);
        view.clicks(u"Save Item"_s);
        QCOMPARE(storedItems(workspace).first().last(), u"0"_s);
        QCOMPARE(view.editor().last(), u"0.00"_s);
        QCOMPARE(robot.seen().size(), 0);
    }

    void nameIsStoredAsItStands_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("quotes") << u"O'Neil's \"Scale\""_s;
        QTest::newRow("a statement") << u"'); DROP TABLE trips; --"_s;
        QTest::newRow("markup") << u"<b>Scale</b> &amp;"_s;
        QTest::newRow("placeholders") << u"%1 ? :name %2"_s;
        QTest::newRow("emoji") << u"\U0001F69B Pi\u00F1on"_s;
        QTest::newRow("ten thousand letters") << QString(10'000, u'n');
    }

    void nameIsStoredAsItStands()
    {
        QFETCH(const QString, name);
        Workspace workspace;
        SettlementWindow view(makeWeek(workspace));
        view.pastesName(name);
        view.statuses.clear();
        view.clicks(u"Save Item"_s);
        QCOMPARE(storedItems(workspace).last(),
                 QStringList({editedWeek, u"revenue"_s, name, u"0"_s}));
        QCOMPARE(column(view.table(), u"Name"_s).last(), name);
        QCOMPARE(view.statuses.first(), u"Added settlement item: "_s + name);
        view.clicksItem(2);
        QCOMPARE(view.editor(), QStringList({u"3"_s, u"revenue"_s, name, u"0.00"_s}));
    }

    void withoutAFileNothingIsSaved_data()
    {
        QTest::addColumn<QString>("button");
        QTest::newRow("item") << u"Save Item"_s;
        QTest::newRow("rate") << u"Save APR"_s;
    }

    void withoutAFileNothingIsSaved()
    {
        QFETCH(const QString, button);
        const Workspace workspace;
        DialogRobot robot;
        const SettlementWindow view;
        expectNoDatabase(robot);
        view.clicks(button);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(view.statuses, QStringList());
    }

    void withoutAPayweekNothingIsSaved()
    {
        Workspace workspace;
        DialogRobot robot;
        SettlementWindow view(workspace.makeTrips());
        view.typesRate(u"5"_s);
        expectNoPayweek(robot);
        view.clicks(u"Save APR"_s);
        expectNoPayweek(robot); // before a word about the name, which is missing too
        view.clicks(u"Save Item"_s);
        QCOMPARE(robot.seen().size(), 2);
        QCOMPARE(view.statuses, QStringList());
        QCOMPARE(storedItems(workspace), QList<QStringList>());
        QCOMPARE(storedRates(workspace), QList<QStringList>());
    }

    void kindThatIsNeitherOfTheTwoIsRefusedBeforeTheMissingName()
    {
        Workspace workspace;
        DialogRobot robot;
        SettlementWindow view(makeWeek(workspace));
        view.kind()->addItem(u"other"_s);
        view.choosesKind(u"other"_s);
        robot.expect(DialogRobot::Warning, u"Invalid Kind"_s,
                     u"Kind must be revenue or expense."_s);
        view.clicks(u"Save Item"_s);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(view.editor(), QStringList({u"(new item)"_s, u"other"_s, u""_s, u""_s}));
        QCOMPARE(view.statuses, QStringList());
        QCOMPARE(storedItems(workspace).size(), 2);
    }

    void kindIsSavedInSmallLetters()
    {
        Workspace workspace;
        const DialogRobot robot;
        const SettlementWindow view(makeWeek(workspace));
        view.kind()->addItem(u" Expense "_s);
        view.choosesKind(u" Expense "_s);
        view.typesName(u"Scale"_s);
        view.clicks(u"Save Item"_s);
        QCOMPARE(storedItems(workspace).last().at(1), u"expense"_s);
        QCOMPARE(robot.seen().size(), 0);
    }

    void itemNeedsAName_data()
    {
        QTest::addColumn<bool>("stored");
        QTest::addColumn<QString>("name");
        QTest::newRow("new item") << false << u""_s;
        QTest::newRow("new item of blanks") << false << u"  "_s;
        QTest::newRow("stored item") << true << u""_s;
    }

    void itemNeedsAName()
    {
        QFETCH(const bool, stored);
        QFETCH(const QString, name);
        Workspace workspace;
        DialogRobot robot;
        SettlementWindow view(makeWeek(workspace));
        if (stored)
            view.clicksItem(0);
        view.typesName(name);
        view.typesAmount(u"12"_s);
        view.statuses.clear();
        expectNoName(robot);
        view.clicks(u"Save Item"_s);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(view.editor().first(), stored ? u"1"_s : u"(new item)"_s);
        QCOMPARE(view.editor().last(), u"12"_s);
        QCOMPARE(view.statuses, QStringList());
        QCOMPARE(storedItems(workspace), QList<QStringList>({storedPermit, storedBonus}));
    }

    void itemDeletedMeanwhileIsNotSavedAndStaysInTheEditor()
    {
        Workspace workspace;
        DialogRobot robot;
        SettlementWindow view(makeWeek(workspace));
        view.clicksItem(0);
        view.typesAmount(u"12"_s);
        workspace.execute(u"DELETE FROM settlement_non_trip_items WHERE id = 1"_s);
        view.statuses.clear();
        robot.expect(DialogRobot::Critical, saveFailed,
                     u"No settlement item was updated. It may have already been deleted."_s);
        view.clicks(u"Save Item"_s);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(view.editor(), QStringList({u"1"_s, u"expense"_s, u"Permit"_s, u"12"_s}));
        QCOMPARE(view.table()->rowCount(), 2);
        QCOMPARE(view.statuses, QStringList());
        QCOMPARE(storedItems(workspace), QList<QStringList>({storedBonus}));
    }

    void fileThatCannotBeWrittenKeepsTheEditor_data()
    {
        QTest::addColumn<bool>("stored");
        QTest::addColumn<QString>("damage");
        QTest::addColumn<QString>("reason");
        const QString readOnly = u"PRAGMA query_only = ON"_s;
        const QString readOnlyReason = u"attempt to write a readonly database"_s;
        const QString drop = u"DROP TABLE settlement_non_trip_items"_s;
        const QString dropReason = u"no such table: settlement_non_trip_items"_s;
        QTest::newRow("new item, read-only") << false << readOnly << readOnlyReason;
        QTest::newRow("stored item, read-only") << true << readOnly << readOnlyReason;
        QTest::newRow("new item, no table") << false << drop << dropReason;
        QTest::newRow("stored item, no table") << true << drop << dropReason;
    }

    void fileThatCannotBeWrittenKeepsTheEditor()
    {
        QFETCH(const bool, stored);
        QFETCH(const QString, damage);
        QFETCH(const QString, reason);
        Workspace workspace;
        DialogRobot robot;
        SettlementWindow view(makeWeek(workspace));
        if (stored)
            view.clicksItem(0);
        view.typesName(u"Scale"_s);
        view.typesAmount(u"$12"_s);
        const QStringList editor = view.editor();
        view.statuses.clear();
        onThePagesConnection(damage);
        robot.expectContaining(DialogRobot::Critical, saveFailed, reason);
        view.clicks(u"Save Item"_s);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(view.editor(), editor);
        QCOMPARE(view.table()->rowCount(), 2);
        QCOMPARE(view.statuses, QStringList());
    }

    void lockedFileKeepsTheItemUntilItIsFree()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeWeek(workspace);
        SettlementWindow view(path);
        onThePagesConnection(u"PRAGMA busy_timeout = 0"_s); // and not the driver's five seconds
        view.typesName(u"Scale"_s);
        view.statuses.clear();
        {
            const TestConnection other(path);
            other.execute(u"BEGIN IMMEDIATE"_s);
            robot.expectContaining(DialogRobot::Critical, saveFailed, u"database is locked"_s);
            view.clicks(u"Save Item"_s);
            robot.expectContaining(DialogRobot::Critical, u"Save APR Failed"_s,
                                   u"database is locked"_s);
            view.clicks(u"Save APR"_s);
        }
        QCOMPARE(view.editor(), QStringList({u"(new item)"_s, u"revenue"_s, u"Scale"_s, u""_s}));
        QCOMPARE(view.statuses, QStringList());
        view.clicks(u"Save Item"_s);
        QCOMPARE(storedItems(workspace).last(),
                 QStringList({editedWeek, u"revenue"_s, u"Scale"_s, u"0"_s}));
    }

    void fileClosedMeanwhileKeepsTheEditor()
    {
        Workspace workspace;
        DialogRobot robot;
        SettlementWindow view(makeWeek(workspace));
        view.clicksItem(0);
        view.typesName(u""_s);
        view.typesAmount(u"12"_s);
        view.statuses.clear();
        DatabaseLocator::closeAllSqliteConnections();
        expectNoDatabase(robot); // before a word about the name, which is missing too
        view.clicks(u"Save Item"_s);
        expectNoDatabase(robot);
        view.clicks(u"Save APR"_s);
        QCOMPARE(robot.seen().size(), 2);
        QCOMPARE(view.editor(), QStringList({u"1"_s, u"expense"_s, u""_s, u"12"_s}));
        QCOMPARE(view.statuses, QStringList());
        QCOMPARE(storedItems(workspace), QList<QStringList>({storedPermit, storedBonus}));
    }

    void rateIsStoredForThePayweekAndComesBackWithIt()
    {
        Workspace workspace;
        const DialogRobot robot;
        const QString path = makeWeek(workspace);
        trip().payweek(u"04/11/2026"_s).insert(workspace);
        SettlementWindow view(path);
        view.typesRate(u"5.5"_s);
        view.clicks(u"Save APR"_s);
        QCOMPARE(view.statuses, QStringList({u"Saved APR 5.50% for 04/18/2026"_s}));
        view.chooses(u"04/11/2026"_s);
        QCOMPARE(view.rate()->value(), 0.0);
        view.chooses(editedWeek);
        QCOMPARE(view.rate()->value(), 5.5);
        QCOMPARE(storedRates(workspace), QList<QStringList>({{editedWeek, u"5.5"_s}}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void rateSavedTwiceIsStoredOnce()
    {
        Workspace workspace;
        SettlementWindow view(makeWeek(workspace));
        view.typesRate(u"5.5"_s);
        view.clicks(u"Save APR"_s);
        view.typesRate(u"0"_s);
        view.clicks(u"Save APR"_s);
        QCOMPARE(storedRates(workspace), QList<QStringList>({{editedWeek, u"0"_s}}));
        QCOMPARE(view.statuses, QStringList({u"Saved APR 5.50% for 04/18/2026"_s,
                                             u"Saved APR 0.00% for 04/18/2026"_s}));
    }

    void rateLeavesItemsAndEditorAlone()
    {
        Workspace workspace;
        SettlementWindow view(makeWeek(workspace));
        view.clicksItem(0);
        view.typesAmount(u"12"_s);
        view.typesRate(u"100"_s);
        const QString summary = view.summary();
        view.clicks(u"Save APR"_s);
        QCOMPARE(view.summary(), summary);
        QCOMPARE(view.editor(), QStringList({u"1"_s, u"expense"_s, u"Permit"_s, u"12"_s}));
        QCOMPARE(view.selection(), QList<int>({0, 0}));
        QCOMPARE(storedItems(workspace), QList<QStringList>({storedPermit, storedBonus}));
    }

    void rateThatCannotBeSavedStaysInItsBox_data()
    {
        QTest::addColumn<QString>("damage");
        QTest::addColumn<QString>("reason");
        QTest::newRow("read-only")
            << u"PRAGMA query_only = ON"_s << u"attempt to write a readonly database"_s;
        QTest::newRow("no table") << u"DROP TABLE settlement_meta"_s
                                  << u"no such table: settlement_meta"_s;
    }

    void rateThatCannotBeSavedStaysInItsBox()
    {
        QFETCH(const QString, damage);
        QFETCH(const QString, reason);
        Workspace workspace;
        DialogRobot robot;
        SettlementWindow view(makeWeek(workspace));
        view.typesRate(u"5.5"_s);
        onThePagesConnection(damage);
        robot.expectContaining(DialogRobot::Critical, u"Save APR Failed"_s, reason);
        view.clicks(u"Save APR"_s);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(view.rate()->value(), 5.5);
        QCOMPARE(view.statuses, QStringList());
    }
};

TEST_CLASS(tst_EditSettlementPageSaving)
#include "tst_EditSettlementPageSaving.moc"
