#include "settlements/PayweekTables.h"
#include "support/Person.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "ui/DataCell.h"
#include "ui/DataTable.h"

#include <QHeaderView>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A trip as the repository hands it over.
QStringList tripRow(const QString &id, const QString &number, const QString &revenue = u"0"_s)
{
    return {id, number, u"01/02/2026"_s, u"600"_s, revenue, u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s};
}

QList<QStringList> tripsEarning(const QStringList &revenues)
{
    QList<QStringList> rows;
    for (const QString &revenue : revenues)
        rows.append(tripRow(QString::number(rows.size() + 1), u"T"_s, revenue));
    return rows;
}

QList<QStringList> itemsOf(const QStringList &amounts)
{
    QList<QStringList> rows;
    for (const QString &amount : amounts)
        rows.append(
            {QString::number(rows.size() + 8), u"01/02/2026"_s, u"expense"_s, u"Permit"_s, amount});
    return rows;
}

/// One of the tables in a window.
class Table
{
public:
    Table()
    {
        window.resize(1280, 800);
        widget->resize(1200, 400);
        Person::shows(window);
    }

    QWidget window;
    QTableWidget *widget =
        new DataTable(u"payweekTrips"_s, u"Trips in Selected Payweek"_s, 260, &window);
};

const QString sortable = u" \u2195"_s;
const QStringList tripHeaders = {u"Trip #"_s, u"Payweek"_s, u"Miles"_s, u"Revenue"_s, u"Cost"_s,
                                 u"Net"_s,    u"CPM"_s,     u"Hours"_s, u"Net/Hour"_s};

QStringList plainHeaders(const QTableWidget *table)
{
    return headers(table).replaceInStrings(sortable, QString());
}

} // namespace

class tst_PayweekTables : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tripShowsDollarsGroupedWithTheirUnits()
    {
        const Workspace workspace;
        const Table table;
        PayweekTables::showTrips(table.widget,
                                 {{u"7"_s, u"4471203"_s, u"01/02/2026"_s, u"1600"_s, u"1234.5"_s,
                                   u"2000"_s, u"-765.5"_s, u"1.25"_s, u"10.5"_s, u"-72.9"_s}});
        QCOMPARE(texts(table.widget),
                 QList<QStringList>(
                     {{u"4471203"_s, u"01/02/2026"_s, u"1600"_s, u"$1,234.50"_s, u"$2,000.00"_s,
                       u"-$765.50"_s, u"$1.25/mi"_s, u"10.5"_s, u"-$72.90/hr"_s}}));
        QCOMPARE(plainHeaders(table.widget), tripHeaders);
        QVERIFY(table.widget->horizontalHeader()->stretchLastSection());
    }

    void itemShowsItsAmountGrouped()
    {
        const Workspace workspace;
        const Table table;
        PayweekTables::showItems(table.widget,
                                 {{u"12"_s, u"01/02/2026"_s, u"other"_s, u"1200"_s, u"1200"_s}});
        QCOMPARE(texts(table.widget), QList<QStringList>({{u"12"_s, u"01/02/2026"_s, u"other"_s,
                                                           u"1200"_s, u"$1,200.00"_s}}));
        QCOMPARE(plainHeaders(table.widget),
                 QStringList({u"ID"_s, u"Payweek"_s, u"Kind"_s, u"Name"_s, u"Amount"_s}));
        QVERIFY(table.widget->horizontalHeader()->stretchLastSection());
    }

    void everyCellKeepsItsRawText()
    {
        const Workspace workspace;
        const Table table;
        const QStringList row = {u"7"_s,         u" 44 "_s,   u"01/02/2026"_s, u"1,600"_s,
                                 u"$1,234.50"_s, u"2000.0"_s, u"abc"_s,        u"1.25/mi"_s,
                                 u""_s,          u"9"_s};
        PayweekTables::showTrips(table.widget, {row});
        QStringList raw;
        for (int i = 0; i < table.widget->columnCount(); ++i)
            raw.append(table.widget->item(0, i)->data(DataCell::rawTextRole).toString());
        QCOMPARE(raw, row.mid(1));
        QCOMPARE(column(table.widget, u"Miles"_s), QStringList({u"1,600"_s}));
        QCOMPARE(column(table.widget, u"Net"_s), QStringList({u"abc"_s}));
        QCOMPARE(column(table.widget, u"CPM"_s), QStringList({u"$1.25/mi"_s}));
    }

    void tripNumberLooksLikeALink()
    {
        const Workspace workspace;
        const Table table;
        PayweekTables::showTrips(table.widget, {tripRow(u"7"_s, u"4471203"_s)});
        const QTableWidgetItem *link = table.widget->item(0, PayweekTables::TripNoColumn);
        QVERIFY(link->font().underline());
        QCOMPARE(link->foreground().color(), QColor(0, 102, 204, 255));
        QCOMPARE(link->toolTip(), u"Open this trip on the Trips page"_s);
        const QTableWidgetItem *other = table.widget->item(0, 1);
        QVERIFY(!other->font().underline());
        QCOMPARE(other->toolTip(), QString());
        QVERIFY(!other->data(PayweekTables::tripIdRole).isValid());
    }

    void itemsHaveNoLinks()
    {
        const Workspace workspace;
        const Table table;
        PayweekTables::showItems(table.widget, itemsOf({u"1"_s}));
        QVERIFY(!table.widget->item(0, 0)->font().underline());
        QCOMPARE(table.widget->item(0, 0)->toolTip(), QString());
    }

    void linkKeepsTheTripsId_data()
    {
        QTest::addColumn<QStringList>("row");
        QTest::addColumn<int>("id");
        QTest::newRow("id") << tripRow(u"7"_s, u"44"_s) << 7;
        QTest::newRow("blanks around") << tripRow(u" 7 "_s, u"44"_s) << 7;
        QTest::newRow("below zero") << tripRow(u"-7"_s, u"44"_s) << -7;
        QTest::newRow("no number") << tripRow(u"seven"_s, u"44"_s) << 0;
        QTest::newRow("blank") << tripRow(u""_s, u"44"_s) << 0;
        QTest::newRow("a row of nothing") << QStringList() << 0;
    }

    void linkKeepsTheTripsId()
    {
        QFETCH(const QStringList, row);
        QFETCH(const int, id);
        const Workspace workspace;
        const Table table;
        PayweekTables::showTrips(table.widget, {row});
        const QVariant kept = table.widget->item(0, 0)->data(PayweekTables::tripIdRole);
        QCOMPARE(kept.typeId(), int(QMetaType::Int));
        QCOMPARE(kept.toInt(), id);
    }

    void numbersStandToTheRight()
    {
        const Workspace workspace;
        const Table table;
        PayweekTables::showTrips(table.widget, {tripRow(u"1"_s, u"44"_s)});
        QVERIFY(!(table.widget->item(0, 0)->textAlignment() & Qt::AlignRight));
        QVERIFY(table.widget->item(0, 2)->textAlignment() & Qt::AlignRight);
        QVERIFY(table.widget->item(0, 3)->textAlignment() & Qt::AlignRight);
    }

    void dollarsSortAsNumbers()
    {
        const Workspace workspace;
        const Table table;
        PayweekTables::showTrips(table.widget, tripsEarning({u"900"_s, u"$10,000"_s, u"-5"_s}));
        Person::clicksHeader(table.widget, 3);
        QCOMPARE(column(table.widget, u"Revenue"_s),
                 QStringList({u"-$5.00"_s, u"$900.00"_s, u"$10,000.00"_s}));
        Person::clicksHeader(table.widget, 3);
        QCOMPARE(column(table.widget, u"Revenue"_s),
                 QStringList({u"$10,000.00"_s, u"$900.00"_s, u"-$5.00"_s}));
    }

    void idsSortAsNumbersAndNamesAsText()
    {
        const Workspace workspace;
        const Table table;
        PayweekTables::showItems(table.widget, itemsOf({u"1"_s, u"2"_s, u"3"_s}));
        Person::clicksHeader(table.widget, 0);
        Person::clicksHeader(table.widget, 0);
        QCOMPARE(column(table.widget, u"ID"_s), QStringList({u"10"_s, u"9"_s, u"8"_s}));
        table.widget->setItem(0, 3, new DataCell(DataCell::Form::Text, u"9"_s));
        table.widget->setItem(1, 3, new DataCell(DataCell::Form::Text, u"10"_s));
        Person::clicksHeader(table.widget, 3);
        QCOMPARE(column(table.widget, u"Name"_s), QStringList({u"10"_s, u"9"_s, u"Permit"_s}));
    }

    void sortStaysOverARefill()
    {
        const Workspace workspace;
        const Table table;
        PayweekTables::showTrips(table.widget, tripsEarning({u"1"_s, u"2"_s}));
        Person::clicksHeader(table.widget, 3);
        Person::clicksHeader(table.widget, 3);
        PayweekTables::clear(table.widget);
        PayweekTables::showTrips(table.widget, tripsEarning({u"20"_s, u"100"_s, u"3"_s}));
        QCOMPARE(column(table.widget, u"Revenue"_s),
                 QStringList({u"$100.00"_s, u"$20.00"_s, u"$3.00"_s}));
        QCOMPARE(headers(table.widget).at(3), u"Revenue \u25BC"_s);
        // The link goes where its row goes.
        QCOMPARE(table.widget->item(0, 0)->data(PayweekTables::tripIdRole).toInt(), 2);
    }

    void columnIsAsWideAsItsTexts_data()
    {
        QTest::addColumn<bool>("trips");
        QTest::addColumn<int>("column");
        QTest::newRow("number of a trip") << true << int(PayweekTables::TripNoColumn);
        QTest::newRow("name of an item") << false << 3;
    }

    void columnIsAsWideAsItsTexts()
    {
        QFETCH(const bool, trips);
        QFETCH(const int, column);
        const Workspace workspace;
        const Table table;
        const auto widthWith = [&](const QString &text) {
            if (trips)
                PayweekTables::showTrips(table.widget, {tripRow(u"7"_s, text)});
            else
                PayweekTables::showItems(table.widget,
                                         {{u"8"_s, u"01/02/2026"_s, u"expense"_s, text, u"1"_s}});
            return table.widget->columnWidth(column);
        };
        const QString longText = u"Reimbursement of the overweight permit"_s;
        const int narrow = widthWith(u"1"_s);
        const int textWidth = table.widget->fontMetrics().horizontalAdvance(longText);
        QVERIFY2(narrow < textWidth, qPrintable(QString::number(narrow)));
        QVERIFY(widthWith(longText) >= textWidth);
        QCOMPARE(widthWith(u"1"_s), narrow);
    }

    void tableWithoutRowsHasItsHeaders()
    {
        const Workspace workspace;
        const Table table;
        PayweekTables::showTrips(table.widget, {});
        QCOMPARE(table.widget->rowCount(), 0);
        QCOMPARE(plainHeaders(table.widget), tripHeaders);
        QVERIFY(table.widget->updatesEnabled());
    }

    void clearedTableHoldsNothing()
    {
        const Workspace workspace;
        const Table table;
        PayweekTables::showTrips(table.widget, tripsEarning({u"1"_s, u"2"_s}));
        PayweekTables::clear(table.widget);
        QCOMPARE(table.widget->rowCount(), 0);
        QCOMPARE(table.widget->columnCount(), 0);
    }
};

TEST_CLASS(tst_PayweekTables)
#include "tst_PayweekTables.moc"
