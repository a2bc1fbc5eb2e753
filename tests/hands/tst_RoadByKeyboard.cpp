#include "hands/Desk.h"
#include "hands/EnteredTrip.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// The main road without a mouse: what the other road does by clicks is done by Tab, arrows, F2,
/// Space and Return.
class tst_RoadByKeyboard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY2(desktop.failure().isEmpty(), qPrintable(desktop.failure())); }
    void tripAndItemStandInTheirPayweek();

private:
    static void pushes(Desk &desk, const QString &button);
    static void fillsForm(Desk &desk);
    static void goesToFirstCell(Desk &desk, const QString &grid);
    static void addsStops(Desk &desk);
    static void addsItems(Desk &desk);
    static void addsFuel(Desk &desk);
    static void addsSettlementItem(Desk &desk);
    static void readsPayweek(Desk &desk);

    Desktop desktop;
};

void tst_RoadByKeyboard::pushes(Desk &desk, const QString &button)
{
    desk.tabsTo(button);
    desk.presses("space");
}

void tst_RoadByKeyboard::fillsForm(Desk &desk)
{
    desk.tabsTo(u"navigationList"_s);
    desk.presses("Down");
    pushes(desk, u"newTripButton"_s);
    for (const auto &[field, typed] : EnteredTrip::form) {
        QTRY_COMPARE(desk.focus(), QString::fromLatin1(field));
        desk.types(typed);
        desk.presses("Tab");
    }
}

void tst_RoadByKeyboard::goesToFirstCell(Desk &desk, const QString &grid)
{
    desk.tabsTo(grid);
    desk.presses("ctrl+Home");
    QTRY_COMPARE(desk.focus(), grid + u"[0,0]"_s);
}

void tst_RoadByKeyboard::addsStops(Desk &desk)
{
    pushes(desk, u"stopsAddButton"_s);
    desk.presses("space");
    goesToFirstCell(desk, u"stopsGrid"_s);
    desk.presses("Tab");
    desk.types("DAL4\t\t04/15/2026 08:00\n");
    desk.presses("Down");
    desk.presses("Home");
    desk.presses("Down"); // from shipper to receiver
    desk.types("\tKC\t \t04/16/2026 12:00\t04/16/2026 14:30\n");
}

void tst_RoadByKeyboard::addsItems(Desk &desk)
{
    pushes(desk, u"payItemsAddButton"_s);
    goesToFirstCell(desk, u"payItemsGrid"_s);
    desk.types("Layover\t150\n");
    pushes(desk, u"costItemsAddButton"_s);
    goesToFirstCell(desk, u"costItemsGrid"_s);
    desk.types("Tolls\t34.5\n");
    pushes(desk, u"saveTripButton"_s);
}

void tst_RoadByKeyboard::addsFuel(Desk &desk)
{
    pushes(desk, u"fuelEditButton"_s);
    pushes(desk, u"fuelAddButton"_s);
    goesToFirstCell(desk, u"fuelGrid"_s);
    desk.types("d\t500\t20.25\t120.5\n");
    pushes(desk, u"fuelSaveButton"_s);
    pushes(desk, u"saveTripButton"_s);
}

void tst_RoadByKeyboard::addsSettlementItem(Desk &desk)
{
    desk.tabsTo(u"navigationList"_s);
    desk.types("E"); // Edit Settlement
    pushes(desk, u"refreshSettlementButton"_s);
    desk.tabsTo(u"settlementPayweekBox"_s);
    desk.presses("Up"); // to the newer one, which begins a new item
    QTRY_COMPARE(desk.focus(), u"settlementItemName"_s);
    desk.presses("shift+Tab");
    desk.presses("Down"); // from revenue to expense
    desk.types("\tTire Fund\t50");
    pushes(desk, u"saveSettlementItemButton"_s);
}

void tst_RoadByKeyboard::readsPayweek(Desk &desk)
{
    desk.tabsTo(u"navigationList"_s);
    desk.presses("Down");
    pushes(desk, u"refreshPayweekButton"_s);
    desk.tabsTo(u"payweekBox"_s);
    desk.presses("Up");
}

void tst_RoadByKeyboard::tripAndItemStandInTheirPayweek()
{
    Workspace workspace;
    EnteredTrip::makeFiles(workspace);
    Desk desk(desktop, workspace);
    fillsForm(desk);
    addsStops(desk);
    addsItems(desk);
    addsFuel(desk);
    addsSettlementItem(desk);
    readsPayweek(desk);
    EnteredTrip::isWritten(workspace);
    EnteredTrip::isShown(desk);
}

TEST_CLASS_WITHOUT_WINDOWS(tst_RoadByKeyboard)

#include "tst_RoadByKeyboard.moc"
