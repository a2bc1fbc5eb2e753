#include "settlements/SettlementWindow.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "support/surroundings/DefaultLocale.h"

#include <QFontMetrics>

using namespace Qt::StringLiterals;

namespace {

QString loadedItem(const QString &name)
{
    return u"Loaded settlement item into editor: "_s + name;
}

} // namespace

/// The items of a payweek before a person: how they load, how they are chosen, how they sort.
class tst_EditSettlementPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itemsOfAPayweekAreListedWithTheirSums()
    {
        Workspace workspace;
        const SettlementWindow view(makeWeekOfThree(workspace));
        QCOMPARE(headers(view.table()),
                 QStringList({u"ID ↕"_s, u"Payweek ↕"_s, u"Kind ↕"_s, u"Name ↕"_s, u"Amount ↕"_s}));
        QCOMPARE(
            texts(view.table()),
            QList<QStringList>({{u"1"_s, editedWeek, u"expense"_s, u"Permit"_s, u"$1,234.50"_s},
                                {u"3"_s, editedWeek, u"expense"_s, u"ELD"_s, u"$9.25"_s},
                                {u"2"_s, editedWeek, u"revenue"_s, u"Bonus"_s, u"$250.00"_s}}));
        QCOMPARE(view.summary(), u"Summary for 04/18/2026: Revenue $250.00 | Expenses $1243.75 | "
                                 "Net $-993.75 | Rows 3"_s);
        QVERIFY(!view.saysEmpty());
        QCOMPARE(view.selection(), QList<int>({-1}));
        QCOMPARE(view.editor(), newItem);
    }

    void cellsKeepTheStoredText()
    {
        Workspace workspace;
        const SettlementWindow view(makeWeekOfThree(workspace));
        QStringList kept;
        for (int column = 0; column < view.table()->columnCount(); ++column)
            kept.append(view.table()->item(0, column)->data(Qt::UserRole + 1).toString());
        QCOMPARE(kept, QStringList({u"1"_s, editedWeek, u"expense"_s, u"Permit"_s, u"1234.50"_s}));
    }

    void amountIsShownAsMoney_data()
    {
        QTest::addColumn<QVariant>("amount");
        QTest::addColumn<QString>("shown");
        QTest::newRow("dollars") << QVariant(9.25) << u"$9.25"_s;
        QTest::newRow("millions") << QVariant(1234567.5) << u"$1,234,567.50"_s;
        QTest::newRow("below zero") << QVariant(-1234.5) << u"-$1,234.50"_s;
        QTest::newRow("less than a cent below zero") << QVariant(-0.001) << u"$0.00"_s;
        QTest::newRow("never filled in") << QVariant() << u"$0.00"_s;
        QTest::newRow("words") << QVariant(u"abc"_s) << u"$0.00"_s;
    }

    void amountIsShownAsMoney()
    {
        QFETCH(const QVariant, amount);
        QFETCH(const QString, shown);
        Workspace workspace;
        const QString path = workspace.makeTrips();
        expense(editedWeek, u"Permit"_s, 0.0).set(u"amount"_s, amount).insert(workspace);
        const SettlementWindow view(path);
        QCOMPARE(column(view.table(), u"Amount"_s), QStringList({shown}));
    }

    void payweekWithoutItemsShowsZerosAndSaysSo()
    {
        Workspace workspace;
        const QString path = makeWeekOfThree(workspace);
        trip().payweek(nextWeek).insert(workspace);
        SettlementWindow view(path);
        view.chooses(editedWeek);
        QVERIFY(!view.saysEmpty());
        view.statuses.clear();
        view.chooses(nextWeek);
        QCOMPARE(view.table()->rowCount(), 0);
        QCOMPARE(view.table()->columnCount(), 5);
        QCOMPARE(view.summary(), u"Summary for 04/25/2026: Revenue $0.00 | Expenses $0.00 | "
                                 "Net $0.00 | Rows 0"_s);
        QVERIFY(view.saysEmpty());
        QCOMPARE(view.statuses, QStringList({newMode, loadedRows(0, nextWeek)}));
    }

    void itemsStoredWithBlanksAroundTheirPayweekAreNotShown()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        expense(u" 04/18/2026"_s, u"ELD"_s, 9.25).insert(workspace);
        const SettlementWindow view(path);
        QCOMPARE(view.payweeks()->currentText(), editedWeek);
        QCOMPARE(view.table()->rowCount(), 0);
        QVERIFY(view.saysEmpty());
    }

    void clickedItemIsLoadedIntoTheEditor()
    {
        Workspace workspace;
        SettlementWindow view(makeWeekOfThree(workspace));
        view.clicksItem(0);
        QCOMPARE(view.editor(), permit);
        QCOMPARE(view.selection(), QList<int>({0, 0}));
        // The selection tells of it, and then the click.
        QCOMPARE(view.statuses, QStringList({loadedItem(u"Permit"_s), loadedItem(u"Permit"_s)}));
        QCOMPARE(offeredBy(view.name()), QStringList({u"Bonus"_s, u"ELD"_s, u"Permit"_s}));
    }

    void amountIsLoadedFromTheFileWhateverTheLocaleShows_data()
    {
        QTest::addColumn<QString>("locale");
        for (const char *name : {"de_DE", "fr_CA", "ar_EG", "C"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void amountIsLoadedFromTheFileWhateverTheLocaleShows()
    {
        QFETCH(const QString, locale);
        const DefaultLocale shown(locale);
        Workspace workspace;
        const QString path = workspace.makeTrips();
        expense(u"04/18/2026"_s, u"Insurance"_s, 1234.5).insert(workspace);
        const SettlementWindow view(path);
        view.clicksItem(0);
        QCOMPARE(view.amount()->text(), u"1234.50"_s);
        view.clicks(u"Save Item"_s);
        QCOMPARE(workspace.value(u"SELECT amount FROM settlement_non_trip_items"_s), 1234.5);
    }

    void itemReachedByKeyboardIsLoadedIntoTheEditor()
    {
        Workspace workspace;
        SettlementWindow view(makeWeekOfThree(workspace));
        view.clicksItem(0);
        view.statuses.clear();
        QTest::keyClick(view.table(), Qt::Key_Down);
        QCOMPARE(view.editor(), QStringList({u"3"_s, u"expense"_s, u"ELD"_s, u"9.25"_s}));
        QCOMPARE(view.selection(), QList<int>({1, 1}));
        QCOMPARE(view.statuses, QStringList({loadedItem(u"ELD"_s)}));
    }

    void secondClickBringsTheStoredTextsBack()
    {
        Workspace workspace;
        SettlementWindow view(makeWeekOfThree(workspace));
        view.clicksItem(0);
        view.typesName(u"Scale"_s);
        view.typesAmount(u"3"_s);
        view.choosesKind(u"revenue"_s);
        view.statuses.clear();
        view.clicksItem(0);
        QCOMPARE(view.editor(), permit);
        QCOMPARE(view.statuses, QStringList({loadedItem(u"Permit"_s)}));
    }

    void itemOfAnotherKindLeavesTheKindAsItWas()
    {
        Workspace workspace;
        const QString path = makeWeekOfThree(workspace);
        SettlementItemMaker(editedWeek, u"other"_s, u"Note"_s, -5.0).insert(workspace);
        SettlementItemMaker(editedWeek, u" EXPENSE "_s, u"Wash"_s, 20.0).insert(workspace);
        const SettlementWindow view(path);
        QCOMPARE(column(view.table(), u"Name"_s),
                 QStringList({u"Wash"_s, u"Permit"_s, u"ELD"_s, u"Note"_s, u"Bonus"_s}));
        view.clicksItem(0);
        QCOMPARE(view.editor(), QStringList({u"5"_s, u"expense"_s, u"Wash"_s, u"20.00"_s}));
        view.clicksItem(3);
        QCOMPARE(view.editor(), QStringList({u"4"_s, u"expense"_s, u"Note"_s, u"-5.00"_s}));
    }

    void nameTakesTheSpellingThatIsOffered()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        expense(editedWeek, u"tolls"_s, 1.0).insert(workspace);
        expense(editedWeek, u"TOLLS"_s, 2.0).insert(workspace);
        const SettlementWindow view(path);
        QCOMPARE(view.name()->count(), 1);
        view.clicksItem(0);
        QCOMPARE(view.name()->currentText(), view.name()->itemText(0));
        view.clicksItem(1);
        QCOMPARE(view.name()->currentText(), view.name()->itemText(0));
        QCOMPARE(view.editor().last(), u"2.00"_s);
    }

    void nameWithBlanksAroundItIsTakenAsItStands()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        expense(editedWeek, u" Tolls "_s, 2.0).insert(workspace);
        SettlementWindow view(path);
        QCOMPARE(offeredBy(view.name()), QStringList({u"Tolls"_s}));
        view.clicksItem(0);
        QCOMPARE(view.name()->currentText(), u" Tolls "_s);
        QCOMPARE(view.statuses.last(), loadedItem(u" Tolls "_s));
    }

    void nameOfAnUndatedPayweekIsTakenAsItStands()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        expense(u"later"_s, u"Permit"_s, 1.0).insert(workspace);
        const SettlementWindow view(path);
        QCOMPARE(view.name()->count(), 0);
        view.clicksItem(0);
        QCOMPARE(view.editor(), QStringList({u"1"_s, u"expense"_s, u"Permit"_s, u"1.00"_s}));
    }

    void rowWhoseIdIsNoNumberLeavesTheEditorAsItWas()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        workspace.execute(u"DROP TABLE settlement_non_trip_items"_s);
        workspace.execute(u"CREATE TABLE settlement_non_trip_items "
                          "(id TEXT, settlement_date TEXT, kind TEXT, name TEXT, amount REAL)"_s);
        for (const QString &id : {u"0"_s, u"-3"_s, u"7"_s, u"x1"_s})
            revenue(editedWeek, u"Item "_s + id, 2.0).set(u"id"_s, id).insert(workspace);
        SettlementWindow view(path);
        QCOMPARE(column(view.table(), u"ID"_s), QStringList({u"-3"_s, u"0"_s, u"7"_s, u"x1"_s}));
        view.clicksItem(2);
        view.choosesKind(u"expense"_s);
        view.typesAmount(u"12"_s);
        view.statuses.clear();
        for (const int row : {3, 1, 0})
            view.clicksItem(row);
        QCOMPARE(view.editor(), QStringList({u"7"_s, u"expense"_s, u"Item 7"_s, u"12"_s}));
        QCOMPARE(view.statuses, QStringList());
    }

    void buttonStartsANewItem_data()
    {
        QTest::addColumn<QString>("button");
        QTest::newRow("New Item") << u"New Item"_s;
        QTest::newRow("Clear Editor") << u"Clear Editor"_s;
    }

    void buttonStartsANewItem()
    {
        QFETCH(const QString, button);
        Workspace workspace;
        SettlementWindow view(makeWeekOfThree(workspace));
        view.clicksItem(0);
        view.statuses.clear();
        view.clicks(button);
        QCOMPARE(view.editor(), newItem);
        QCOMPARE(view.selection(), QList<int>({-1}));
        QVERIFY(view.name()->hasFocus());
        QCOMPARE(view.statuses, QStringList({newMode}));
        QCOMPARE(view.table()->rowCount(), 3);
        QCOMPARE(storedItems(workspace).size(), 3);
    }

    void refreshKeepsTheItemThatIsEdited()
    {
        Workspace workspace;
        SettlementWindow view(makeWeekOfThree(workspace));
        view.clicksItem(0);
        view.typesAmount(u"3"_s);
        workspace.execute(u"DELETE FROM settlement_non_trip_items WHERE id = 3"_s);
        expense(editedWeek, u"Axle"_s, 5.0).set(u"id"_s, 9).insert(workspace);
        workspace.execute(u"UPDATE settlement_non_trip_items SET kind = 'aside' WHERE id > 1"_s);
        view.statuses.clear();
        view.clicks(u"Refresh"_s);
        QCOMPARE(column(view.table(), u"ID"_s), QStringList({u"2"_s, u"9"_s, u"1"_s}));
        QCOMPARE(view.selection(), QList<int>({2, 2}));
        QCOMPARE(view.editor(), permit);
        QCOMPARE(view.statuses, QStringList({u"Loaded 1 settlement payweeks"_s,
                                             loadedItem(u"Permit"_s), loadedRows(3)}));
    }

    void refreshWithoutTheItemThatWasEditedStartsANewOne()
    {
        Workspace workspace;
        SettlementWindow view(makeWeekOfThree(workspace));
        view.clicksItem(0);
        workspace.execute(u"DELETE FROM settlement_non_trip_items WHERE id = 1"_s);
        view.statuses.clear();
        view.clicks(u"Refresh"_s);
        QCOMPARE(view.editor(), newItem);
        QCOMPARE(view.selection(), QList<int>({-1}));
        QCOMPARE(view.statuses,
                 QStringList({u"Loaded 1 settlement payweeks"_s, newMode, loadedRows(2)}));
    }

    void refreshKeepsTheChosenPayweek()
    {
        Workspace workspace;
        const QString path = makeWeekOfThree(workspace);
        trip().payweek(nextWeek).insert(workspace);
        SettlementWindow view(path);
        view.chooses(editedWeek);
        trip().payweek(u"05/02/2026"_s).insert(workspace);
        view.statuses.clear();
        view.clicks(u"Refresh"_s);
        QCOMPARE(offeredBy(view.payweeks()), QStringList({u"05/02/2026"_s, nextWeek, editedWeek}));
        QCOMPARE(view.payweeks()->currentText(), editedWeek);
        QCOMPARE(view.statuses,
                 QStringList({u"Loaded 3 settlement payweeks"_s, newMode, loadedRows(3)}));
    }

    void refreshWithoutTheChosenPayweekShowsTheNewest()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        expense(u"Week A"_s, u"ELD"_s, 9.25).insert(workspace);
        trip().payweek(editedWeek).insert(workspace);
        const SettlementWindow view(path);
        QCOMPARE(view.payweeks()->currentText(), u"Week A"_s);
        view.chooses(u"Week A"_s);
        workspace.execute(u"UPDATE settlement_non_trip_items SET settlement_date = 'week a'"_s);
        trip().payweek(u"x"_s).insert(workspace);
        view.clicks(u"Refresh"_s);
        QCOMPARE(offeredBy(view.payweeks()), QStringList({u"x"_s, u"week a"_s, editedWeek}));
        QCOMPARE(view.payweeks()->currentText(), u"x"_s);
    }

    void chosenPayweekBringsItsNamesRateAndItems()
    {
        Workspace workspace;
        const QString path = makeWeekOfThree(workspace);
        expense(u"12/26/2025"_s, u"Tarp"_s, 4.0).insert(workspace);
        apr(editedWeek, 4.25).insert(workspace);
        apr(u"12/26/2025"_s, 6.5).insert(workspace);
        SettlementWindow view(path);
        view.clicksItem(0);
        view.statuses.clear();
        view.chooses(u"12/26/2025"_s);
        QCOMPARE(offeredBy(view.name()), QStringList({u"Tarp"_s}));
        QCOMPARE(view.rate()->value(), 6.5);
        QCOMPARE(column(view.table(), u"Name"_s), QStringList({u"Tarp"_s}));
        QCOMPARE(view.editor(), newItem);
        QCOMPARE(view.statuses, QStringList({newMode, loadedRows(1, u"12/26/2025"_s)}));
    }

    void namesOfAPayweekInWordsAreThoseOfTheYearAtItsEnd()
    {
        Workspace workspace;
        const QString path = makeWeekOfThree(workspace);
        trip().payweek(u"Week 3 of 2026"_s).insert(workspace);
        trip().payweek(u"Week 3"_s).insert(workspace);
        const SettlementWindow view(path);
        view.chooses(u"Week 3 of 2026"_s);
        QCOMPARE(offeredBy(view.name()), QStringList({u"Bonus"_s, u"ELD"_s, u"Permit"_s}));
        view.chooses(u"Week 3"_s);
        QCOMPARE(offeredBy(view.name()), QStringList());
    }

    void payweekThatIsReadBeginsANewItemWithoutTheTextThatWasTyped()
    {
        Workspace workspace;
        const QString path = makeWeekOfThree(workspace);
        expense(u"12/26/2025"_s, u"Tarp"_s, 4.0).insert(workspace);
        const SettlementWindow view(path);
        view.typesName(u"Scale ticket"_s);
        view.typesAmount(u"3"_s);
        view.chooses(u"12/26/2025"_s);
        QCOMPARE(view.editor(), newItem);
    }

    void rateThatIsLoadedIsNoChangeByHand()
    {
        Workspace workspace;
        const QString path = makeWeekOfThree(workspace);
        trip().payweek(nextWeek).insert(workspace);
        apr(editedWeek, 4.25).insert(workspace);
        const SettlementWindow view(path);
        QList<double> heard;
        connect(view.rate(), &QDoubleSpinBox::valueChanged, this,
                [&heard](double percent) { heard.append(percent); });
        view.chooses(editedWeek);
        QCOMPARE(view.rate()->value(), 4.25);
        QCOMPARE(heard, QList<double>());
        view.typesRate(u"5"_s);
        QCOMPARE(heard, QList<double>({5.0}));
    }

    void columnsAreAsWideAsTheirContentsAndNoWider()
    {
        Workspace workspace;
        const QString longName = u"Reimbursement of the overweight permit"_s;
        SettlementWindow view(makeWeek(workspace));
        view.window.resize(1600, 800);
        const int before = view.table()->columnWidth(3);
        expense(editedWeek, longName, 12'345'678'901.25).insert(workspace);
        view.clicks(u"Refresh"_s);
        const QFontMetrics metrics = view.table()->fontMetrics();
        QVERIFY(before < metrics.horizontalAdvance(longName));
        QVERIFY(view.table()->columnWidth(3) >= metrics.horizontalAdvance(longName));
        const int amountWidth = metrics.horizontalAdvance(u"$12,345,678,901.25"_s);
        QVERIFY(view.table()->columnWidth(4) >= amountWidth);
        QVERIFY(view.table()->columnWidth(4) < 2 * amountWidth);
    }

    void headerSortsTheItemsAndKeepsTheSortThroughARefresh()
    {
        Workspace workspace;
        const QString path = makeWeekOfThree(workspace);
        revenue(editedWeek, u"Refund"_s, -20.0).insert(workspace);
        const SettlementWindow view(path);
        Person::clicksHeader(view.table(), 4);
        const QStringList ascending = {u"-$20.00"_s, u"$9.25"_s, u"$250.00"_s, u"$1,234.50"_s};
        QCOMPARE(column(view.table(), u"Amount"_s), ascending);
        QCOMPARE(headers(view.table()).last(), u"Amount ▲"_s);
        view.clicks(u"Refresh"_s);
        QCOMPARE(column(view.table(), u"Amount"_s), ascending);
        Person::clicksHeader(view.table(), 4);
        QCOMPARE(column(view.table(), u"Name"_s),
                 QStringList({u"Permit"_s, u"Bonus"_s, u"ELD"_s, u"Refund"_s}));
        QCOMPARE(headers(view.table()).last(), u"Amount ▼"_s);
    }

    void sortedTableLoadsAndKeepsTheItemThatIsSeen()
    {
        Workspace workspace;
        const SettlementWindow view(makeWeekOfThree(workspace));
        Person::clicksHeader(view.table(), 3);
        QCOMPARE(column(view.table(), u"Name"_s), QStringList({u"Bonus"_s, u"ELD"_s, u"Permit"_s}));
        view.clicksItem(2);
        QCOMPARE(view.editor(), permit);
        Person::clicksHeader(view.table(), 3);
        QCOMPARE(view.selection(), QList<int>({0, 0}));
        QCOMPARE(view.editor(), permit);
        view.clicks(u"Refresh"_s);
        QCOMPARE(view.selection(), QList<int>({0, 0}));
        QCOMPARE(view.editor(), permit);
    }
};

TEST_CLASS(tst_EditSettlementPage)
#include "tst_EditSettlementPage.moc"
