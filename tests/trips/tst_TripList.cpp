#include "support/Person.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "trips/TripList.h"
#include "trips/TripsTableItem.h"

#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A trip of 600 miles that earned $950.
QStringList tripRow(const QString &id, const QString &tripNo, const QString &payweek)
{
    return {id,      tripNo,    payweek,  u"100"_s, u"500"_s,    u"600"_s,   u"1000"_s,  u"200"_s,
            u"25"_s, u"1250"_s, u"300"_s, u"950"_s, u"158.33"_s, u"13.00"_s, u"$73.08"_s};
}

/// The same with one text replaced.
QStringList tripRowWith(TripColumn column, const QString &text)
{
    QStringList row = tripRow(u"7"_s, u"4471203"_s, u"04/18/2026"_s);
    row[column] = text;
    return row;
}

/// Five trips, the newest last; in text order the numbers and the payweeks would stand otherwise.
const QList<QStringList> fiveTrips = {
    tripRow(u"9"_s, u"100"_s, u"12/27/2025"_s), tripRow(u"10"_s, u"9"_s, u"01/02/2027"_s),
    tripRow(u"11"_s, u"A-12"_s, u"week 16"_s), tripRow(u"100"_s, u"10"_s, u"2026-04-18"_s),
    tripRow(u"101"_s, u"4,471"_s, u"4/25/2026"_s)};

QStringList headersWithout(const QString &arrow, const TripList &list)
{
    QStringList others = headers(&list);
    others.removeIf([&arrow](const QString &text) { return text.endsWith(arrow); });
    return others;
}

} // namespace

class tst_TripList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyListShowsItsHeaders()
    {
        const Workspace workspace;
        const TripList list;
        QCOMPARE(list.rowCount(), 0);
        QCOMPARE(headers(&list),
                 QStringList({u"ID ▼"_s, u"Trip # ↕"_s, u"Payweek ↕"_s, u"Empty ↕"_s, u"Loaded ↕"_s,
                              u"Total Miles ↕"_s, u"Linehaul ↕"_s, u"FUSU ↕"_s, u"Carrier % ↕"_s,
                              u"Total Revenue ↕"_s, u"Total Cost ↕"_s, u"Net Revenue ↕"_s,
                              u"CPM ↕"_s, u"Trip Hours ↕"_s, u"Net/Hour ↕"_s}));
        QVERIFY(list.isColumnHidden(IdColumn));
        QVERIFY(list.horizontalHeader()->isSortIndicatorShown());
        QCOMPARE(list.minimumHeight(), 110);
    }

    void rowsAreChosenWholeAndNotEdited()
    {
        const Workspace workspace;
        const TripList list;
        QCOMPARE(list.selectionBehavior(), QAbstractItemView::SelectRows);
        QCOMPARE(list.selectionMode(), QAbstractItemView::SingleSelection);
        QCOMPARE(list.editTriggers(), QAbstractItemView::NoEditTriggers);
        QVERIFY(list.verticalHeader()->isHidden());
    }

    void moneyReadsAsMoneyAndTheRestAsStored()
    {
        const Workspace workspace;
        TripList list;
        list.showTrips({tripRow(u"7"_s, u"4471203"_s, u"04/18/2026"_s)});
        QCOMPARE(texts(&list),
                 QList<QStringList>(
                     {{u"7"_s, u"4471203"_s, u"04/18/2026"_s, u"100"_s, u"500"_s, u"600"_s,
                       u"$1000.00"_s, u"$200.00"_s, u"25"_s, u"$1250.00"_s, u"$300.00"_s,
                       u"$950.00"_s, u"158.33"_s, u"13.00"_s, u"$73.08"_s}}));
    }

    void textOfACellFollowsItsColumn_data()
    {
        QTest::addColumn<TripColumn>("column");
        QTest::addColumn<QString>("raw");
        QTest::addColumn<QString>("shown");
        QTest::newRow("range of money")
            << NetPerHourColumn << u"$73.08 - $86.36"_s << u"$73.08 - $86.36"_s;
        QTest::newRow("range of hours")
            << TripHoursColumn << u"11.00 - 13.00"_s << u"11.00 - 13.00"_s;
        QTest::newRow("loss") << NetRevenueColumn << u"-12.5"_s << u"$-12.50"_s;
        QTest::newRow("money as typed") << LinehaulColumn << u"$1,234.5"_s << u"$1234.50"_s;
        QTest::newRow("blank money") << FusuColumn << u""_s << u"$0.00"_s;
        QTest::newRow("words for money") << TotalCostColumn << u"unpaid"_s << u"$0.00"_s;
        QTest::newRow("blank miles") << EmptyMilesColumn << u""_s << u""_s;
        QTest::newRow("miles") << TotalMilesColumn << u"1334.5"_s << u"1334.5"_s;
        QTest::newRow("cents per mile") << CpmColumn << u"200"_s << u"200"_s;
        QTest::newRow("trip number") << TripNoColumn << u" 4471203 "_s << u" 4471203 "_s;
        QTest::newRow("payweek") << PayweekColumn << u"4/18/2026 "_s << u"4/18/2026 "_s;
    }

    void textOfACellFollowsItsColumn()
    {
        const Workspace workspace;
        TripList list;
        QFETCH(const TripColumn, column);
        QFETCH(const QString, raw);
        list.showTrips({tripRowWith(column, raw)});
        QTEST(list.item(0, column)->text(), "shown");
        QCOMPARE(list.item(0, column)->data(TripsTableItem::rawTextRole), QVariant(raw));
    }

    void payweekAloneSortsByDateAndStandsToTheLeft()
    {
        const Workspace workspace;
        TripList list;
        list.showTrips({tripRow(u"7"_s, u"4471203"_s, u"4/18/2026"_s)});
        const QTableWidgetItem *payweek = list.item(0, PayweekColumn);
        QCOMPARE(payweek->data(Qt::UserRole), QVariant(u"4/18/2026"_s));
        QCOMPARE(payweek->data(TripsTableItem::sortKindRole), QVariant(2));
        QCOMPARE(payweek->data(TripsTableItem::sortDateRole), QVariant(QDate(2026, 4, 18)));
        QCOMPARE(payweek->textAlignment(), 0);
    }

    void everyOtherColumnSortsByNumberAndStandsToTheRight_data()
    {
        QTest::addColumn<TripColumn>("column");
        QTest::addColumn<double>("number");
        QTest::newRow("id") << IdColumn << 7.0;
        QTest::newRow("trip number") << TripNoColumn << 4471203.0;
        QTest::newRow("empty") << EmptyMilesColumn << 100.0;
        QTest::newRow("loaded") << LoadedMilesColumn << 500.0;
        QTest::newRow("total miles") << TotalMilesColumn << 600.0;
        QTest::newRow("linehaul") << LinehaulColumn << 1000.0;
        QTest::newRow("FUSU") << FusuColumn << 200.0;
        QTest::newRow("carrier percent") << CarrierPercentColumn << 25.0;
        QTest::newRow("total revenue") << TotalRevenueColumn << 1250.0;
        QTest::newRow("total cost") << TotalCostColumn << 300.0;
        QTest::newRow("net revenue") << NetRevenueColumn << 950.0;
        QTest::newRow("cents per mile") << CpmColumn << 158.33;
        QTest::newRow("hours") << TripHoursColumn << 11.0;
        QTest::newRow("net per hour") << NetPerHourColumn << 73.08;
    }

    void everyOtherColumnSortsByNumberAndStandsToTheRight()
    {
        const Workspace workspace;
        TripList list;
        QStringList row = tripRowWith(TripHoursColumn, u"11.00 - 13.00"_s);
        row[NetPerHourColumn] = u"$73.08 - $86.36"_s;
        list.showTrips({row});
        QFETCH(const TripColumn, column);
        const QTableWidgetItem *item = list.item(0, column);
        QCOMPARE(item->data(TripsTableItem::sortKindRole), QVariant(1));
        QTEST(item->data(TripsTableItem::sortNumberRole).toDouble(), "number");
        QCOMPARE(item->textAlignment(), Qt::AlignRight | Qt::AlignVCenter);
        QCOMPARE(item->data(TripsTableItem::payweekRole), QVariant());
    }

    void newestTripStandsFirstUntilAHeaderIsClicked()
    {
        const Workspace workspace;
        TripList list;
        list.showTrips(fiveTrips);
        QCOMPARE(column(&list, u"ID"_s),
                 QStringList({u"101"_s, u"100"_s, u"11"_s, u"10"_s, u"9"_s}));
    }

    void tripNumbersSortByValue()
    {
        const Workspace workspace;
        TripList list;
        Person::shows(list);
        list.showTrips(fiveTrips);
        Person::clicksHeader(&list, TripNoColumn);
        QCOMPARE(column(&list, u"Trip #"_s),
                 QStringList({u"A-12"_s, u"9"_s, u"10"_s, u"100"_s, u"4,471"_s}));
        Person::clicksHeader(&list, TripNoColumn);
        QCOMPARE(column(&list, u"Trip #"_s),
                 QStringList({u"4,471"_s, u"100"_s, u"10"_s, u"9"_s, u"A-12"_s}));
    }

    void payweeksSortByDateWithInvalidOnesFirst()
    {
        const Workspace workspace;
        TripList list;
        Person::shows(list);
        list.showTrips(fiveTrips);
        Person::clicksHeader(&list, PayweekColumn);
        QCOMPARE(column(&list, u"Payweek"_s),
                 QStringList({u"week 16"_s, u"12/27/2025"_s, u"2026-04-18"_s, u"4/25/2026"_s,
                              u"01/02/2027"_s}));
    }

    void arrowsTellTheSort()
    {
        const Workspace workspace;
        TripList list;
        Person::shows(list);
        list.showTrips(fiveTrips);
        Person::clicksHeader(&list, PayweekColumn);
        QCOMPARE(headersWithout(u" ↕"_s, list), QStringList({u"Payweek ▲"_s}));
        Person::clicksHeader(&list, PayweekColumn);
        QCOMPARE(headersWithout(u" ↕"_s, list), QStringList({u"Payweek ▼"_s}));
        Person::clicksHeader(&list, PayweekColumn);
        QCOMPARE(headersWithout(u" ↕"_s, list), QStringList({u"Payweek ▲"_s}));
        Person::clicksHeader(&list, CpmColumn);
        QCOMPARE(headersWithout(u" ↕"_s, list), QStringList({u"CPM ▲"_s}));
    }

    void refillKeepsTheChosenSort()
    {
        const Workspace workspace;
        TripList list;
        Person::shows(list);
        list.showTrips(fiveTrips);
        Person::clicksHeader(&list, TripNoColumn);
        Person::clicksHeader(&list, TripNoColumn);
        list.showTrips(fiveTrips.first(2) + QList<QStringList>({fiveTrips.last()}));
        QCOMPARE(column(&list, u"Trip #"_s), QStringList({u"4,471"_s, u"100"_s, u"9"_s}));
        QCOMPARE(headersWithout(u" ↕"_s, list), QStringList({u"Trip # ▼"_s}));
    }

    void refillWithoutASortShowsTheNewestFirst_data()
    {
        QTest::addColumn<int>("section");
        QTest::newRow("none") << -1;
        QTest::newRow("beyond the columns") << 20;
    }

    void refillWithoutASortShowsTheNewestFirst()
    {
        QFETCH(const int, section);
        const Workspace workspace;
        TripList list;
        list.horizontalHeader()->setSortIndicator(section, Qt::AscendingOrder);
        list.showTrips(fiveTrips);
        QCOMPARE(column(&list, u"ID"_s).first(), u"101"_s);
        QCOMPARE(headersWithout(u" ↕"_s, list), QStringList({u"ID ▼"_s}));
    }

    void refillLeavesNoSelectionAndTellsNoOne()
    {
        const Workspace workspace;
        TripList list;
        Person::shows(list);
        list.showTrips(fiveTrips);
        Person::clicksCell(&list, 1, TripNoColumn);
        QCOMPARE(list.currentRow(), 1);
        const QSignalSpy changes(&list, &TripList::itemSelectionChanged);
        list.showTrips(fiveTrips);
        QCOMPARE(changes.size(), 0);
        QCOMPARE(list.currentRow(), -1);
        QCOMPARE(list.selectedItems().size(), 0);
    }

    void refillHidesTheIdAgain()
    {
        const Workspace workspace;
        TripList list;
        list.showTrips(fiveTrips);
        QVERIFY(list.isColumnHidden(IdColumn));
        list.showTrips({});
        QCOMPARE(list.rowCount(), 0);
        QCOMPARE(list.columnCount(), 15);
        QVERIFY(list.isColumnHidden(IdColumn));
    }

    void columnsAreAsWideAsTheirContents()
    {
        const Workspace workspace;
        TripList list;
        const QString longest = u"a trip number as long as a letter"_s;
        list.showTrips(fiveTrips + QList<QStringList>({tripRowWith(TripNoColumn, longest)}));
        QVERIFY(list.columnWidth(TripNoColumn) > list.fontMetrics().horizontalAdvance(longest));
        QVERIFY(list.columnWidth(PayweekColumn) < list.fontMetrics().horizontalAdvance(longest));
        list.showTrips(fiveTrips);
        QVERIFY(list.columnWidth(TripNoColumn) < list.fontMetrics().horizontalAdvance(longest));
    }

    void rowIsFoundByItsTrip()
    {
        const Workspace workspace;
        TripList list;
        list.showTrips(fiveTrips);
        QCOMPARE(list.rowOfTrip(101), 0);
        QCOMPARE(list.rowOfTrip(9), 4);
        QCOMPARE(list.rowOfTrip(1), -1);
    }

    void rowReadsAsItsTexts()
    {
        const Workspace workspace;
        TripList list;
        list.showTrips(fiveTrips);
        QCOMPARE(list.rowTexts(4).size(), 15);
        QCOMPARE(list.rowTexts(4).first(3), QStringList({u"9"_s, u"100"_s, u"12/27/2025"_s}));
        QCOMPARE(list.rowTexts(4).at(LinehaulColumn), u"$1000.00"_s);
        QCOMPARE(list.rowTexts(-1), QStringList());
        QCOMPARE(list.rowTexts(5), QStringList());
    }

    void payweekOfARowIsTrimmed()
    {
        const Workspace workspace;
        TripList list;
        list.showTrips(
            {tripRow(u"2"_s, u"1"_s, u" 04/18/2026 "_s), tripRow(u"1"_s, u"1"_s, u" "_s)});
        QCOMPARE(list.payweekOfRow(0), u"04/18/2026"_s);
        QCOMPARE(list.payweekOfRow(1), u""_s);
        QCOMPARE(list.payweekOfRow(-1), u""_s);
        QCOMPARE(list.payweekOfRow(2), u""_s);
    }
};

TEST_CLASS(tst_TripList)
#include "tst_TripList.moc"
