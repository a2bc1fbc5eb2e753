#include "support/TestProgram.h"
#include "trips/TripsTableItem.h"

#include <QTableWidget>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_TripsTableItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbersStandInOrderOfValue_data()
    {
        QTest::addColumn<double>("a");
        QTest::addColumn<double>("b");
        QTest::addColumn<bool>("less");
        QTest::newRow("9 before 10") << 9.0 << 10.0 << true;
        QTest::newRow("10 not before 9") << 10.0 << 9.0 << false;
        QTest::newRow("equal") << 9.0 << 9.0 << false;
        QTest::newRow("loss before gain") << -1.0 << 0.5 << true;
    }

    void numbersStandInOrderOfValue()
    {
        QFETCH(const double, a);
        QFETCH(const double, b);
        const TripsTableItem left(u"9"_s, {}, a);
        const TripsTableItem right(u"10"_s, {}, b);
        QTEST(left < right, "less");
    }

    void payweeksStandInOrderOfDate_data()
    {
        QTest::addColumn<QDate>("a");
        QTest::addColumn<QDate>("b");
        QTest::addColumn<bool>("less");
        const QDate april(2026, 4, 18);
        const QDate december(2025, 12, 27);
        QTest::newRow("earlier") << december << april << true;
        QTest::newRow("later") << april << december << false;
        QTest::newRow("equal") << april << april << false;
        QTest::newRow("no date before any") << QDate() << december << true;
        QTest::newRow("any not before no date") << december << QDate() << false;
        QTest::newRow("two without a date") << QDate() << QDate() << false;
    }

    void payweeksStandInOrderOfDate()
    {
        QFETCH(const QDate, a);
        QFETCH(const QDate, b);
        const TripsTableItem left(u"04/18/2026"_s, a);
        const TripsTableItem right(u"12/27/2025"_s, b);
        QTEST(left < right, "less");
    }

    void anythingElseStandsInOrderOfText()
    {
        const TripsTableItem a(u"Albany"_s);
        const TripsTableItem b(u"Boston"_s);
        QVERIFY(a < b);
        QVERIFY(!(b < a));
        QVERIFY(!(a < a));
    }

    void differentKindsStandInOrderOfText()
    {
        const TripsTableItem number(u"2"_s, u"2"_s, 2.0);
        const TripsTableItem payweek(u"1"_s, QDate(2026, 4, 18));
        const TripsTableItem text(u"3"_s);
        const QTableWidgetItem plain(u"0"_s);
        QVERIFY(payweek < number);
        QVERIFY(!(number < payweek));
        QVERIFY(number < text);
        QVERIFY(!(number < plain));
    }

    void numberKnowsItsRoles()
    {
        const TripsTableItem item(u"$950.00"_s, u"950"_s, 950.0);
        QCOMPARE(item.text(), u"$950.00"_s);
        QCOMPARE(item.data(Qt::UserRole + 100), QVariant(1));
        QCOMPARE(item.data(Qt::UserRole + 101), QVariant(950.0));
        QCOMPARE(item.data(TripsTableItem::rawTextRole), QVariant(u"950"_s));
        QCOMPARE(item.data(TripsTableItem::payweekRole), QVariant());
        QCOMPARE(item.textAlignment(), Qt::AlignRight | Qt::AlignVCenter);
    }

    void payweekKnowsItsRoles()
    {
        const TripsTableItem item(u"04/18/2026 "_s, QDate(2026, 4, 18));
        QCOMPARE(item.text(), u"04/18/2026 "_s);
        QCOMPARE(item.data(Qt::UserRole), QVariant(u"04/18/2026 "_s));
        QCOMPARE(item.data(Qt::UserRole + 100), QVariant(2));
        QCOMPARE(item.data(Qt::UserRole + 102), QVariant(QDate(2026, 4, 18)));
        QCOMPARE(item.textAlignment(), 0);
    }

    void textKnowsItsRoles()
    {
        const TripsTableItem item(u"Albany"_s);
        QCOMPARE(item.data(TripsTableItem::sortKindRole), QVariant(0));
        QCOMPARE(item.data(TripsTableItem::rawTextRole), QVariant(u"Albany"_s));
        QCOMPARE(item.data(TripsTableItem::payweekRole), QVariant());
    }

    void fontIsKeptBesideTheRoles()
    {
        TripsTableItem item(u"$950.00"_s, u"950"_s, 950.0);
        QFont font = item.font();
        font.setPointSize(17);
        item.setFont(font);
        QCOMPARE(item.font().pointSize(), 17);
        QCOMPARE(item.data(TripsTableItem::sortNumberRole), QVariant(950.0));
    }

    void tableSortsByThem()
    {
        QTableWidget table(3, 1);
        table.setItem(0, 0, new TripsTableItem(u"100"_s, u"100"_s, 100.0));
        table.setItem(1, 0, new TripsTableItem(u"9"_s, u"9"_s, 9.0));
        table.setItem(2, 0, new TripsTableItem(u"10"_s, u"10"_s, 10.0));
        table.sortItems(0, Qt::AscendingOrder);
        QCOMPARE(table.item(0, 0)->text(), u"9"_s);
        QCOMPARE(table.item(1, 0)->text(), u"10"_s);
        QCOMPARE(table.item(2, 0)->text(), u"100"_s);
    }
};

TEST_CLASS(tst_TripsTableItem)
#include "tst_TripsTableItem.moc"
