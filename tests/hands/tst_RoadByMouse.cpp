#include "hands/Desk.h"
#include "hands/EnteredTrip.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// The main road, with the hand on the mouse: a trip is entered and saved, a settlement item beside
/// it, and both are read in their payweek.
class tst_RoadByMouse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY2(desktop.failure().isEmpty(), qPrintable(desktop.failure())); }
    void tripAndItemStandInTheirPayweek();

private:
    static void fillsForm(Desk &desk);
    static void addsStops(Desk &desk);
    static void addsItems(Desk &desk);
    static void addsFuel(Desk &desk);
    static void addsSettlementItem(Desk &desk);

    Desktop desktop;
};

void tst_RoadByMouse::fillsForm(Desk &desk)
{
    desk.goesTo(u"Trips"_s);
    desk.clicks("newTripButton");
    for (const auto &[field, typed] : EnteredTrip::form) {
        desk.clicks(field);
        desk.types(typed);
    }
}

void tst_RoadByMouse::addsStops(Desk &desk)
{
    desk.clicks("stopsAddButton");
    desk.clicks("stopsAddButton");
    desk.clicks({"stopsGrid", 0, 1});
    desk.types("DAL4");
    desk.doubleClicks({"stopsGrid", 0, 3});
    desk.types("04/15/2026 08:00");
    desk.chooses({"stopsGrid", 1, 0}, u"receiver"_s);
    desk.clicks({"stopsGrid", 1, 1});
    desk.types("KC");
    desk.ticks({"stopsGrid", 1, 2});
    desk.doubleClicks({"stopsGrid", 1, 3});
    desk.types("04/16/2026 12:00");
    desk.doubleClicks({"stopsGrid", 1, 4});
    desk.types("04/16/2026 14:30");
}

void tst_RoadByMouse::addsItems(Desk &desk)
{
    desk.clicks("payItemsAddButton");
    desk.clicks({"payItemsGrid", 0, 0});
    desk.types("Layover");
    desk.clicks({"payItemsGrid", 0, 1});
    desk.types("150");
    desk.clicks("costItemsAddButton");
    desk.clicks({"costItemsGrid", 0, 0});
    desk.types("Tolls");
    desk.clicks({"costItemsGrid", 0, 1});
    desk.types("34.5");
    desk.clicks("saveTripButton");
}

void tst_RoadByMouse::addsFuel(Desk &desk)
{
    desk.clicks("fuelEditButton");
    desk.clicks("fuelAddButton");
    desk.chooses({"fuelGrid", 0, 0}, u"Def"_s);
    desk.doubleClicks({"fuelGrid", 0, 1});
    desk.types("500");
    desk.doubleClicks({"fuelGrid", 0, 2});
    desk.types("20.25");
    desk.doubleClicks({"fuelGrid", 0, 3});
    desk.types("120.5");
    desk.clicks("fuelSaveButton");
    desk.clicks("saveTripButton");
}

void tst_RoadByMouse::addsSettlementItem(Desk &desk)
{
    desk.goesTo(u"Edit Settlement"_s);
    desk.clicks("refreshSettlementButton");
    desk.chooses("settlementPayweekBox", u"04/18/2026"_s);
    desk.chooses("settlementItemKind", u"expense"_s);
    desk.clicks("settlementItemName");
    desk.types("Tire Fund");
    desk.clicks("settlementItemAmount");
    desk.types("50");
    desk.clicks("saveSettlementItemButton");
}

void tst_RoadByMouse::tripAndItemStandInTheirPayweek()
{
    Workspace workspace;
    EnteredTrip::makeFiles(workspace);
    Desk desk(desktop, workspace);
    fillsForm(desk);
    addsStops(desk);
    addsItems(desk);
    addsFuel(desk);
    addsSettlementItem(desk);
    desk.goesTo(u"View Payweek"_s);
    desk.clicks("refreshPayweekButton");
    desk.chooses("payweekBox", u"04/18/2026"_s);
    EnteredTrip::isWritten(workspace);
    EnteredTrip::isShown(desk);
}

TEST_CLASS_WITHOUT_WINDOWS(tst_RoadByMouse)

#include "tst_RoadByMouse.moc"
