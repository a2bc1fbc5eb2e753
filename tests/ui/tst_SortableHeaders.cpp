#include "support/Person.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "ui/UiScale.h"

#include <QHeaderView>
#include <QTableWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Names and amounts, not in order.
struct AmountsTable : QTableWidget
{
    AmountsTable()
        : QTableWidget(3, 2)
    {
        refill();
    }

    void refill()
    {
        const QList<QStringList> rows = {
            {u"Lumper"_s, u"20"_s}, {u"Detention"_s, u"30"_s}, {u"Tarp"_s, u"10"_s}};
        for (int row = 0; row < 3; ++row) {
            setItem(row, 0, new QTableWidgetItem(rows.at(row).at(0)));
            setItem(row, 1, new QTableWidgetItem(rows.at(row).at(1)));
        }
    }
};

const QStringList labels = {u"Name"_s, u"Amount"_s};

} // namespace

class tst_SortableHeaders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beforeAnyClickEveryColumnCanBeSorted()
    {
        const Workspace workspace;
        AmountsTable table;
        table.setSortingEnabled(true);
        UiScale::setSortableHeaders(&table, labels);
        QCOMPARE(headers(&table), QStringList({u"Name \u2195"_s, u"Amount \u2195"_s}));
        QVERIFY(!table.isSortingEnabled());
        QVERIFY(table.horizontalHeader()->sectionsClickable());
        QVERIFY(!table.horizontalHeader()->isSortIndicatorShown());
        QCOMPARE(table.property("uiScaleHelperBaseHeaders"), QVariant(labels));
        QCOMPARE(table.property("uiScaleHelperSortArrowConnected"), QVariant(true));
        QVERIFY(!table.property("uiScaleHelperHasSortColumn").toBool());
    }

    void clicksOnAHeaderSortUpDownAndUpAgain()
    {
        const Workspace workspace;
        AmountsTable table;
        UiScale::setSortableHeaders(&table, labels);
        Person::shows(table);
        const QStringList up = {u"Detention"_s, u"Lumper"_s, u"Tarp"_s};
        const QStringList down = {u"Tarp"_s, u"Lumper"_s, u"Detention"_s};
        Person::clicksHeader(&table, 0);
        QCOMPARE(column(&table, u"Name"_s), up);
        QCOMPARE(headers(&table), QStringList({u"Name \u25B2"_s, u"Amount \u2195"_s}));
        Person::clicksHeader(&table, 0);
        QCOMPARE(column(&table, u"Name"_s), down);
        QCOMPARE(headers(&table), QStringList({u"Name \u25BC"_s, u"Amount \u2195"_s}));
        Person::clicksHeader(&table, 0);
        QCOMPARE(column(&table, u"Name"_s), up);
        QCOMPARE(headers(&table), QStringList({u"Name \u25B2"_s, u"Amount \u2195"_s}));
    }

    void aClickOnAnotherHeaderStartsUpwards()
    {
        const Workspace workspace;
        AmountsTable table;
        UiScale::setSortableHeaders(&table, labels);
        Person::shows(table);
        Person::clicksHeader(&table, 0);
        Person::clicksHeader(&table, 1);
        QCOMPARE(texts(&table),
                 QList<QStringList>(
                     {{u"Tarp"_s, u"10"_s}, {u"Lumper"_s, u"20"_s}, {u"Detention"_s, u"30"_s}}));
        QCOMPARE(headers(&table), QStringList({u"Name \u2195"_s, u"Amount \u25B2"_s}));
        Person::clicksHeader(&table, 1);
        Person::clicksHeader(&table, 0);
        QCOMPARE(headers(&table), QStringList({u"Name \u25B2"_s, u"Amount \u2195"_s}));
    }

    void theChosenSortIsKeptOnTheTable()
    {
        const Workspace workspace;
        AmountsTable table;
        UiScale::setSortableHeaders(&table, labels);
        Person::shows(table);
        Person::clicksHeader(&table, 1);
        QCOMPARE(table.property("uiScaleHelperSortColumn"), QVariant(1));
        QCOMPARE(table.property("uiScaleHelperHasSortColumn"), QVariant(true));
        QCOMPARE(table.property("uiScaleHelperSortAscending"), QVariant(true));
        Person::clicksHeader(&table, 1);
        QCOMPARE(table.property("uiScaleHelperSortColumn"), QVariant(1));
        QCOMPARE(table.property("uiScaleHelperSortAscending"), QVariant(false));
        QCOMPARE(table.property("uiScaleHelperBaseHeaders"), QVariant(labels));
    }

    void settingTheHeadersAgainKeepsTheSortAndConnectsOnce()
    {
        const Workspace workspace;
        AmountsTable table;
        UiScale::setSortableHeaders(&table, labels);
        Person::shows(table);
        Person::clicksHeader(&table, 1);
        UiScale::setSortableHeaders(&table, {u"Item"_s, u"Dollars"_s});
        QCOMPARE(headers(&table), QStringList({u"Item \u2195"_s, u"Dollars \u25B2"_s}));
        Person::clicksHeader(&table, 0);
        QCOMPARE(headers(&table), QStringList({u"Item \u25B2"_s, u"Dollars \u2195"_s}));
        QCOMPARE(column(&table, u"Item"_s), QStringList({u"Detention"_s, u"Lumper"_s, u"Tarp"_s}));
    }

    void afterARefillTheRowsStandAsTheArrowsSay()
    {
        const Workspace workspace;
        AmountsTable table;
        UiScale::setSortableHeaders(&table, labels);
        Person::shows(table);
        Person::clicksHeader(&table, 1);
        Person::clicksHeader(&table, 1);
        table.refill();
        UiScale::sortAsChosen(&table);
        QCOMPARE(column(&table, u"Amount"_s), QStringList({u"30"_s, u"20"_s, u"10"_s}));
        QCOMPARE(headers(&table), QStringList({u"Name \u2195"_s, u"Amount \u25BC"_s}));
    }

    void withoutAChosenSortTheRowsStayAsTheyCame()
    {
        const Workspace workspace;
        AmountsTable table;
        UiScale::setSortableHeaders(&table, labels);
        UiScale::sortAsChosen(&table);
        QCOMPARE(column(&table, u"Amount"_s), QStringList({u"20"_s, u"30"_s, u"10"_s}));
    }

    void headersThatWereNeverSetAreCollected()
    {
        const Workspace workspace;
        AmountsTable table;
        table.setHorizontalHeaderItem(0, new QTableWidgetItem(u" Name "_s));
        QVERIFY(!table.horizontalHeaderItem(1));
        UiScale::refreshSortArrows(&table);
        QCOMPARE(headers(&table), QStringList({u"Name \u2195"_s, u" \u2195"_s}));
        QCOMPARE(table.property("uiScaleHelperBaseHeaders").toStringList(),
                 QStringList({u"Name"_s, u""_s}));
        UiScale::refreshSortArrows(&table);
        QCOMPARE(headers(&table), QStringList({u"Name \u2195"_s, u" \u2195"_s}));
    }

    void onlyColumnsWithALabelGetAnArrow()
    {
        const Workspace workspace;
        AmountsTable table;
        UiScale::setSortableHeaders(&table, {u"  Name "_s});
        QCOMPARE(headers(&table).first(), u"Name \u2195"_s);
        QVERIFY(!table.horizontalHeaderItem(1));
        UiScale::setSortableHeaders(&table, {u"Name"_s, u"Amount"_s, u"Notes"_s});
        QCOMPARE(headers(&table), QStringList({u"Name \u2195"_s, u"Amount \u2195"_s}));
    }

    void aHeaderItemThatWentMissingIsMadeAgain()
    {
        const Workspace workspace;
        AmountsTable table;
        UiScale::setSortableHeaders(&table, labels);
        delete table.takeHorizontalHeaderItem(1);
        UiScale::refreshSortArrows(&table);
        QCOMPARE(headers(&table), QStringList({u"Name \u2195"_s, u"Amount \u2195"_s}));
    }

    void theTripListsArrowsFollowItsHeader()
    {
        const Workspace workspace;
        AmountsTable table;
        table.horizontalHeader()->setSortIndicator(1, Qt::DescendingOrder);
        UiScale::refreshTripListArrows(&table, labels);
        QCOMPARE(headers(&table), QStringList({u"Name \u2195"_s, u"Amount \u25BC"_s}));
        table.horizontalHeader()->setSortIndicator(0, Qt::AscendingOrder);
        UiScale::refreshTripListArrows(&table, labels);
        QCOMPARE(headers(&table), QStringList({u"Name \u25B2"_s, u"Amount \u2195"_s}));
        table.horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
        UiScale::refreshTripListArrows(&table, labels);
        QCOMPARE(headers(&table), QStringList({u"Name \u2195"_s, u"Amount \u2195"_s}));
        QVERIFY(!table.property("uiScaleHelperBaseHeaders").isValid());
    }

    void aHeaderReadsWithoutItsArrow_data()
    {
        QTest::addColumn<QString>("header");
        QTest::addColumn<QString>("text");
        QTest::newRow("up") << u"Trip No \u25B2"_s << u"Trip No"_s;
        QTest::newRow("down") << u"Trip No \u25BC"_s << u"Trip No"_s;
        QTest::newRow("sortable") << u"Trip No \u2195"_s << u"Trip No"_s;
        QTest::newRow("all of them") << u"Trip \u25B2 No \u25BC \u2195"_s << u"Trip No"_s;
        QTest::newRow("blanks around") << u"  Trip No  "_s << u"Trip No"_s;
        QTest::newRow("arrow alone") << u" \u2195"_s << u""_s;
        QTest::newRow("an arrow without its blank") << u"\u25B2 Trip"_s << u"\u25B2 Trip"_s;
        QTest::newRow("nothing") << u""_s << u""_s;
    }

    void aHeaderReadsWithoutItsArrow()
    {
        QFETCH(const QString, header);
        QFETCH(const QString, text);
        QCOMPARE(UiScale::stripSortArrows(header), text);
    }
};

TEST_CLASS(tst_SortableHeaders)
#include "tst_SortableHeaders.moc"
