#include "hands/Desk.h"
#include "support/RowMakers.h"
#include "support/TestProgram.h"

#include <QTest>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int trips = 7;

struct Cell
{
    const char *grid;
    int column;
    const char *typed;
    const char *shown;
};

constexpr std::array<Cell, 4> cells = {{{"stopsGrid", 3, "04/18/2026 21:56", "04/18/2026 21:56"},
                                        {"payItemsGrid", 1, "45", "$45.00"},
                                        {"costItemsGrid", 1, "45", "$45.00"},
                                        {"fuelGrid", 1, "45", "$45.00"}}};

/// Trips of three rows to 21 in each grid.
void makeTripsWithRows(Workspace &workspace)
{
    workspace.makeTrips();
    workspace.makeLocations();
    for (int number = 1; number <= trips; ++number) {
        const qint64 id = trip().no(u"447120%1"_s.arg(number)).insert(workspace);
        for (int order = 0; order < 3 * number; ++order) {
            stop(id).order(order).insert(workspace);
            payItem(id, u"Layover"_s, 0.0).insert(workspace);
            costItem(id, u"Scale"_s, 0.0).insert(workspace);
            fuel(id, u"Def"_s, 0.0, 0.0, 0.0).insert(workspace);
        }
    }
}

} // namespace

/// A cell can be edited and left again, however many trips were looked at before. An editor that
/// would not close shows in most runs only, since it has to come to lie where a box lay before;
/// tst_TripGrid leaves that to no chance.
class tst_EditedGrids : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY2(desktop.failure().isEmpty(), qPrintable(desktop.failure())); }
    void cellsOpenAndCloseOnEachTrip();
    void cellOpensAndClosesThoughRowsComeAndGo();
    void letterOnAWindowBoxIsNothing();

private:
    static void edits(Desk &desk, const Cell &cell);

    Desktop desktop;
};

// The second row tells whether the first let go.
void tst_EditedGrids::edits(Desk &desk, const Cell &cell)
{
    for (const int row : {0, 1}) {
        const Desk::Part part(cell.grid, row, cell.column);
        desk.doubleClicks(part);
        QTRY_COMPARE(desk.focus(),
                     u"%1[%2,%3]"_s.arg(QLatin1StringView(cell.grid)).arg(row).arg(cell.column));
        desk.types(cell.typed);
        desk.presses("Return");
        QTRY_COMPARE(desk.focus(), QString::fromLatin1(cell.grid));
        QTRY_COMPARE(desk.text(part), QString::fromLatin1(cell.shown));
    }
}

void tst_EditedGrids::cellsOpenAndCloseOnEachTrip()
{
    constexpr int rounds = 8;
    Workspace workspace;
    makeTripsWithRows(workspace);
    Desk desk(desktop, workspace);
    desk.goesTo(u"Trips"_s);
    desk.clicks("fuelEditButton");
    for (int round = 0; round < rounds; ++round) {
        for (int looked = 0; looked < trips; ++looked)
            desk.clicks({"tripList", (round + looked) % trips, 1});
        for (const Cell &cell : cells) {
            edits(desk, cell);
            if (QTest::currentTestFailed())
                return;
        }
    }
}

void tst_EditedGrids::cellOpensAndClosesThoughRowsComeAndGo()
{
    Workspace workspace;
    makeTripsWithRows(workspace);
    Desk desk(desktop, workspace);
    desk.goesTo(u"Trips"_s);
    desk.clicks({"tripList", 0, 1});
    for (int round = 0; round < 10 && !QTest::currentTestFailed(); ++round) {
        for (int row = 0; row < 5; ++row)
            desk.clicks("payItemsAddButton");
        for (int row = 0; row < 5; ++row) {
            desk.clicks({"payItemsGrid", 0, 1});
            desk.clicks("payItemsRemoveButton");
        }
        edits(desk, cells.at(1));
    }
}

// Who types a stop from code to appointment and forgets the box between them types on it.
void tst_EditedGrids::letterOnAWindowBoxIsNothing()
{
    Workspace workspace;
    makeTripsWithRows(workspace);
    Desk desk(desktop, workspace);
    desk.goesTo(u"Trips"_s);
    desk.clicks({"tripList", 0, 1});
    desk.clicks({"stopsGrid", 0, 1});
    desk.types("DAL-01\t04a");
    QTRY_COMPARE(desk.focus(), u"stopsGrid[0,2]"_s);
    QCOMPARE(desk.text({"stopsGrid", 0, 1}), u"DAL-01"_s);
    edits(desk, cells.at(0));
}

TEST_CLASS_WITHOUT_WINDOWS(tst_EditedGrids)

#include "tst_EditedGrids.moc"
