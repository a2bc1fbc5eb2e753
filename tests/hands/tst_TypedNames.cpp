#include "hands/Desk.h"
#include "support/RowMakers.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString payweek = u"04/18/2026"_s;

/// A trip and a settlement with names that others begin like.
void makeNames(Workspace &workspace)
{
    workspace.makeTrips();
    workspace.makeLocations();
    const qint64 id = trip().no(u"4471203"_s).payweek(payweek).insert(workspace);
    workspace.insert(u"INSERT INTO trip_cost_items (trip_id, name, amount) VALUES (?, ?, ?)"_s,
                     {id, u"Tolls Turnpike"_s, 12.0});
    expense(payweek, u"Tire Fund Withdrawal"_s, 20.0).insert(workspace);
}

} // namespace

/// Names typed where longer and older ones are offered stay what they are, and the next click and
/// key go where they were meant.
class tst_TypedNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY2(desktop.failure().isEmpty(), qPrintable(desktop.failure())); }
    void settlementItemIsSavedAsTyped_data();
    void settlementItemIsSavedAsTyped();
    void costItemIsSavedAsTyped_data();
    void costItemIsSavedAsTyped();
    void firstLetterOnANameCellIsTyped();
    void nameIsChosenFromTheList_data();
    void nameIsChosenFromTheList();
    void wheelLeavesATypedNameAlone();

private:
    Desktop desktop;
};

void tst_TypedNames::settlementItemIsSavedAsTyped_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("shorter, by mouse") << QByteArray("Tire Fund") << true;
    QTest::newRow("shorter, by keyboard") << QByteArray("Tire Fund") << false;
    QTest::newRow("in another case, by mouse") << QByteArray("tire fund withdrawal") << true;
    QTest::newRow("in another case, by keyboard") << QByteArray("tire fund withdrawal") << false;
}

void tst_TypedNames::settlementItemIsSavedAsTyped()
{
    QFETCH(const QByteArray, name);
    QFETCH(const bool, byMouse);
    Workspace workspace;
    makeNames(workspace);
    Desk desk(desktop, workspace);
    desk.goesTo(u"Edit Settlement"_s);
    desk.chooses("settlementItemKind", u"expense"_s);
    desk.clicks("settlementItemName");
    desk.types(name);
    if (byMouse)
        desk.clicks("settlementItemAmount");
    else
        desk.presses("Tab");
    desk.types("50");
    desk.clicks("saveSettlementItemButton");
    QTRY_COMPARE(workspace.rows(u"SELECT kind, name, amount FROM settlement_non_trip_items "
                                "ORDER BY id DESC LIMIT 1"_s),
                 QList<QStringList>({{u"expense"_s, QString::fromLatin1(name), u"50"_s}}));
}

void tst_TypedNames::costItemIsSavedAsTyped_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("shorter, by mouse") << QByteArray("Tolls") << true;
    QTest::newRow("shorter, by keyboard") << QByteArray("Tolls") << false;
    QTest::newRow("in another case, by mouse") << QByteArray("TOLLS TURNPIKE") << true;
    QTest::newRow("in another case, by keyboard") << QByteArray("TOLLS TURNPIKE") << false;
}

// The button is clicked while the amount is still being edited.
void tst_TypedNames::costItemIsSavedAsTyped()
{
    QFETCH(const QByteArray, name);
    QFETCH(const bool, byMouse);
    Workspace workspace;
    makeNames(workspace);
    Desk desk(desktop, workspace);
    desk.goesTo(u"Trips"_s);
    desk.clicks({"tripList", 0, 1});
    desk.clicks("costItemsAddButton");
    desk.clicks({"costItemsGrid", 1, 0});
    desk.types(name);
    if (byMouse)
        desk.clicks({"costItemsGrid", 1, 1});
    else
        desk.presses("Tab");
    desk.types("34.5");
    desk.clicks("costItemsSaveButton");
    QTRY_COMPARE(workspace.rows(u"SELECT name, amount FROM trip_cost_items ORDER BY id"_s),
                 QList<QStringList>(
                     {{u"Tolls Turnpike"_s, u"12"_s}, {QString::fromLatin1(name), u"34.5"_s}}));
}

void tst_TypedNames::firstLetterOnANameCellIsTyped()
{
    Workspace workspace;
    makeNames(workspace);
    Desk desk(desktop, workspace);
    desk.goesTo(u"Trips"_s);
    desk.clicks("costItemsAddButton");
    desk.clicks({"costItemsGrid", 0, 0});
    desk.presses("shift+Tab");
    desk.tabsTo(u"costItemsGrid"_s);
    QCOMPARE(desk.cell(), u"0,0"_s);
    desk.types("Scale");
    QTRY_COMPARE(desk.text({"costItemsGrid", 0, 0}), u"Scale"_s);
}

void tst_TypedNames::nameIsChosenFromTheList_data()
{
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("by mouse") << true;
    QTest::newRow("by keyboard") << false;
}

void tst_TypedNames::nameIsChosenFromTheList()
{
    QFETCH(const bool, byMouse);
    Workspace workspace;
    makeNames(workspace);
    expense(payweek, u"Permit"_s, 5.0).insert(workspace);
    Desk desk(desktop, workspace);
    desk.goesTo(u"Edit Settlement"_s);
    desk.clicks("settlementItemName");
    desk.types("ti");
    desk.presses("Down");
    QTRY_VERIFY(desk.hasListOpen());
    if (byMouse)
        desk.clicksEntry(u"Tire Fund Withdrawal"_s);
    else
        desk.presses("Return");
    QTRY_COMPARE(desk.text("settlementItemName"), u"Tire Fund Withdrawal"_s);
    desk.types("s");
    QTRY_COMPARE(desk.text("settlementItemName"), u"Tire Fund Withdrawals"_s);
}

void tst_TypedNames::wheelLeavesATypedNameAlone()
{
    Workspace workspace;
    makeNames(workspace);
    Desk desk(desktop, workspace);
    desk.goesTo(u"Edit Settlement"_s);
    desk.clicks("settlementItemName");
    desk.types("Tire Fund");
    desk.clicks("settlementItemName", Desktop::WheelDown);
    desk.clicks("settlementItemName", Desktop::WheelUp);
    QCOMPARE(desk.text("settlementItemName"), u"Tire Fund"_s);
}

TEST_CLASS_WITHOUT_WINDOWS(tst_TypedNames)

#include "tst_TypedNames.moc"
