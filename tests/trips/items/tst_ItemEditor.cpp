#include "support/DialogRobot.h"
#include "support/RowMakers.h"
#include "support/TestProgram.h"
#include "trips/items/ItemsWindow.h"

#include <QGroupBox>
#include <QPushButton>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

TripItemMaker item(const ItemTwin &twin, qint64 tripId, const QString &name, double amount)
{
    return {twin.table, tripId, name, amount};
}

} // namespace

/// The pay grid and the cost grid, each by itself: every test runs for both.
class tst_ItemEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { addItemTwins(); }

    void sectionStartsWithoutRows()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        const Workspace workspace;
        const ItemsWindow window(twin);
        const auto *section = window.page->findChild<QGroupBox *>(twin.objectName);
        QStringList buttons;
        for (const QPushButton *button : section->findChildren<QPushButton *>()) {
            buttons.append(button->text());
            QCOMPARE(button->isEnabled(), true);
        }
        QCOMPARE(section->title(), twin.title);
        QCOMPARE(buttons, QStringList({twin.addButton, twin.removeButton, twin.saveButton}));
        QCOMPARE(window.grid()->accessibleName(), twin.title);
        QCOMPARE(window.items(), QList<QStringList>());
        QCOMPARE(window.totals(), twin.noRows);
    }

    void addedRowIsEmpty()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        const QString path = workspace.makeTrips();
        const QByteArray before = workspace.bytes(u"trips.db"_s);
        const ItemsWindow window(twin, path);
        window.clicks(twin.addButton);
        QCOMPARE(window.items(), QList<QStringList>({{u""_s, u"$0.00"_s}}));
        QCOMPARE(window.totals(), twin.totalLine.arg(u"1"_s, u"$0.00"_s));
        QCOMPARE(window.statuses, QStringList({twin.added}));
        QCOMPARE(workspace.bytes(u"trips.db"_s), before);
    }

    void addedRowStandsLast()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        const QString path = workspace.makeTrips();
        item(twin, trip().insert(workspace), u"Layover"_s, 50.0).insert(workspace);
        item(twin, 1, u"Scale"_s, 12.0).insert(workspace);
        const ItemsWindow window(twin, path);
        window.clicksTrip(0);
        Person::clicksCell(window.grid(), 0, ItemGrid::AmountColumn);
        window.clicks(twin.addButton);
        QCOMPARE(window.items(), QList<QStringList>({{u"Layover"_s, u"$50.00"_s},
                                                     {u"Scale"_s, u"$12.00"_s},
                                                     {u""_s, u"$0.00"_s}}));
    }

    void typedAmountBecomesMoneyAndCounts_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("total");
        QTest::newRow("grouped") << u"$1,234.5"_s << u"$1234.50"_s << u"$1244.50"_s;
        QTest::newRow("plain") << u"45"_s << u"$45.00"_s << u"$55.00"_s;
        QTest::newRow("an hour's") << u"$5/hr"_s << u"$5.00"_s << u"$15.00"_s;
        QTest::newRow("below zero") << u"-12.5"_s << u"$-12.50"_s << u"$-2.50"_s;
        QTest::newRow("words") << u"abc"_s << u"$0.00"_s << u"$10.00"_s;
        QTest::newRow("blank") << u""_s << u"$0.00"_s << u"$10.00"_s;
    }

    void typedAmountBecomesMoneyAndCounts()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        QFETCH(const QString, typed);
        QFETCH(const QString, shown);
        QFETCH(const QString, total);
        Workspace workspace;
        const ItemsWindow window(twin, workspace.makeTrips());
        window.addsItem(u"Layover"_s, u"10"_s);
        window.addsItem(u"Scale"_s, u"99"_s);
        window.typesAmount(1, typed);
        QCOMPARE(window.items(),
                 QList<QStringList>({{u"Layover"_s, u"$10.00"_s}, {u"Scale"_s, shown}}));
        QCOMPARE(window.totals(), twin.totalLine.arg(u"2"_s, total));
    }

    void selectedRowIsRemovedFromTheGridAlone()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        const QString path = workspace.makeTrips();
        item(twin, trip().insert(workspace), u"Layover"_s, 50.0).insert(workspace);
        item(twin, 1, u"Scale"_s, 12.0).insert(workspace);
        const QByteArray before = workspace.bytes(u"trips.db"_s);
        ItemsWindow window(twin, path);
        window.clicksTrip(0);
        window.statuses.clear();
        Person::clicksCell(window.grid(), 0, ItemGrid::AmountColumn);
        window.clicks(twin.removeButton);
        QCOMPARE(window.items(), QList<QStringList>({{u"Scale"_s, u"$12.00"_s}}));
        QCOMPARE(window.totals(), twin.totalLine.arg(u"1"_s, u"$12.00"_s));
        QCOMPARE(window.statuses, QStringList({twin.removed}));
        QCOMPARE(workspace.bytes(u"trips.db"_s), before);
    }

    void lastRowLeavesTheLineOfNoRows()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        const ItemsWindow window(twin, workspace.makeTrips());
        window.addsItem(u"Layover"_s, u"50"_s);
        window.clicks(twin.removeButton);
        QCOMPARE(window.items(), QList<QStringList>());
        QCOMPARE(window.totals(), twin.noRows);
    }

    void nothingSelectedIsNothingToRemove()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        DialogRobot robot;
        const ItemsWindow window(twin, workspace.makeTrips());
        window.clicks(twin.addButton);
        robot.expect(DialogRobot::Information, twin.removeTitle, twin.nothingSelected);
        window.clicks(twin.removeButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(robot.seen().first().buttons, QStringList({u"OK"_s}));
        QCOMPARE(window.items().size(), 1);
        QCOMPARE(window.statuses, QStringList({twin.added}));
    }

    void itemsOfTheTripAreShownAsTheyWereEntered()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        const QString path = workspace.makeTrips();
        const qint64 id = trip().insert(workspace);
        item(twin, id, u"Scale"_s, 12.0).insert(workspace);
        item(twin, id + 1, u"Toll"_s, 7.0).insert(workspace);
        item(twin, id, u"Layover"_s, 1234.5).insert(workspace);
        item(twin, id, u"Scale"_s, -2.25).insert(workspace);
        const ItemsWindow window(twin, path);
        window.clicksTrip(0);
        QCOMPARE(window.items(), QList<QStringList>({{u"Scale"_s, u"$12.00"_s},
                                                     {u"Layover"_s, u"$1234.50"_s},
                                                     {u"Scale"_s, u"$-2.25"_s}}));
        QCOMPARE(window.totals(), twin.totalLine.arg(u"3"_s, u"$1244.25"_s));
    }

    void oddStoredItemsReadAsNothing()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        const QString path = workspace.makeTrips();
        const qint64 id = trip().insert(workspace);
        item(twin, id, u"Layover"_s, 50.0).set(u"amount"_s, QVariant()).insert(workspace);
        item(twin, id, {}, 5.0).set(u"name"_s, QVariant()).insert(workspace);
        const ItemsWindow window(twin, path);
        window.clicksTrip(0);
        QCOMPARE(window.items(),
                 QList<QStringList>({{u"Layover"_s, u"$0.00"_s}, {u""_s, u"$5.00"_s}}));
    }

    void anotherTripAndANewTripLeaveNoRowBehind()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        const QString path = workspace.makeTrips();
        trip().no(u"1"_s).payweek(u"04/18/2026"_s).insert(workspace);
        trip().no(u"2"_s).payweek(u"04/11/2026"_s).insert(workspace);
        item(twin, 2, u"Layover"_s, 50.0).insert(workspace);
        const ItemsWindow window(twin, path);
        window.clicksTrip(1);
        window.addsItem(u"Scale"_s, u"12"_s);
        window.clicksTrip(0);
        QCOMPARE(window.items(), QList<QStringList>({{u"Layover"_s, u"$50.00"_s}}));
        window.clicks(u"New Trip"_s);
        QCOMPARE(window.items(), QList<QStringList>());
        QCOMPARE(window.totals(), twin.noRows);
        QCOMPARE(storedItems(workspace, twin.table),
                 QList<QStringList>({{u"2"_s, u"Layover"_s, u"50"_s}}));
    }

    void itemsThatCannotBeReadAreTold()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        trip().insert(workspace);
        const ItemsWindow window(twin, path);
        window.addsItem(u"Scale"_s, u"12"_s);
        workspace.execute(u"DROP TABLE "_s + twin.table);
        robot.expectContaining(DialogRobot::Critical, twin.loadFailed,
                               u"no such table: "_s + twin.table);
        window.page->openTripById(1);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(window.items(), QList<QStringList>());
        QCOMPARE(window.totals(), twin.noRows);
    }

    void everyNameInTheFileIsOfferedInEachSpelling()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        const QString path = workspace.makeTrips();
        trip().insert(workspace);
        for (const QString &name : {u"layover"_s, u" Detention "_s, u"LAYOVER"_s, u"assist"_s,
                                    u"Detention"_s, u"  "_s, u"Scale"_s})
            item(twin, 7, name, 1.0).insert(workspace);
        TripItemMaker(twin.otherTable, 7, u"Breakfast"_s, 1.0).insert(workspace);
        const ItemsWindow window(twin, path);
        window.clicks(twin.addButton);
        const QStringList offered = offeredBy(window.nameBox(0));
        QCOMPARE(offered.size(), 5);
        QCOMPARE(offered.first(2), QStringList({u"assist"_s, u"Detention"_s}));
        QCOMPARE(QSet<QString>({offered.at(2), offered.at(3)}),
                 QSet<QString>({u"layover"_s, u"LAYOVER"_s}));
        QCOMPARE(offered.at(4), u"Scale"_s);
        QCOMPARE(window.nameBox(0)->currentText(), u""_s);
    }

    void offeredNameCanBeChosen()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        const QString path = workspace.makeTrips();
        item(twin, 7, u"Layover"_s, 1.0).insert(workspace);
        const ItemsWindow window(twin, path);
        window.addsItem({}, u"50"_s);
        Person::chooses(window.nameBox(0), u"Layover"_s);
        QCOMPARE(window.items(), QList<QStringList>({{u"Layover"_s, u"$50.00"_s}}));
        QCOMPARE(window.totals(), twin.totalLine.arg(u"1"_s, u"$50.00"_s));
    }

    void namesThatCannotBeReadAreToldAndTheOthersAreRead()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        TripItemMaker(twin.otherTable, 7, u"Breakfast"_s, 1.0).insert(workspace);
        workspace.execute(u"DROP TABLE "_s + twin.table);
        robot.expectContaining(DialogRobot::Critical, twin.namesFailed,
                               u"no such table: "_s + twin.table);
        const ItemsWindow window(twin, path);
        QCOMPARE(robot.seen().size(), 1);
        for (const QString &button : {u"Add Pay Item Row"_s, u"Add Cost Item Row"_s})
            window.clicks(button);
        QCOMPARE(offeredBy(window.nameBox(0)), QStringList());
        QCOMPARE(offeredBy(boxAt(window.otherGrid(), 0, ItemGrid::NameColumn)),
                 QStringList({u"Breakfast"_s}));
    }

    void withoutAFileRowsCanBeEnteredAndNothingIsOffered()
    {
        QFETCH_GLOBAL(const ItemTwin, twin);
        const Workspace workspace;
        const DialogRobot robot;
        const ItemsWindow window(twin);
        window.addsItem(u"Layover"_s, u"50"_s);
        QCOMPARE(window.items(), QList<QStringList>({{u"Layover"_s, u"$50.00"_s}}));
        QCOMPARE(offeredBy(window.nameBox(0)), QStringList());
        QCOMPARE(robot.seen().size(), 0);
    }
};

TEST_CLASS(tst_ItemEditor)
#include "tst_ItemEditor.moc"
