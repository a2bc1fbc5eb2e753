#include "support/Person.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "trips/items/EditableHistoryComboDelegate.h"
#include "trips/items/ItemGrid.h"

#include <QComboBox>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QComboBox *nameBox(const ItemGrid &grid, int row)
{
    return qobject_cast<QComboBox *>(grid.cellWidget(row, ItemGrid::NameColumn));
}

QStringList offered(const QComboBox *box)
{
    QStringList texts;
    for (int index = 0; index < box->count(); ++index)
        texts.append(box->itemText(index));
    return texts;
}

QStringList names(const ItemGrid &grid)
{
    QStringList texts;
    for (int row = 0; row < grid.rowCount(); ++row)
        texts.append(grid.itemName(row));
    return texts;
}

} // namespace

class tst_ItemGrid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void columnsAreANameAndAnAmount()
    {
        const Workspace workspace;
        const ItemGrid grid;
        QCOMPARE(headers(&grid), QStringList({u"Name"_s, u"Amount"_s}));
        QCOMPARE(grid.columnWidth(ItemGrid::NameColumn), 260);
        QCOMPARE(grid.columnWidth(ItemGrid::AmountColumn), 120);
        QCOMPARE(grid.minimumHeight(), 90);
        QCOMPARE(grid.selectionBehavior(), QAbstractItemView::SelectRows);
        QCOMPARE(grid.selectionMode(), QAbstractItemView::SingleSelection);
        QCOMPARE(grid.rowCount(), 0);
    }

    void amountIsShownAsMoney()
    {
        const Workspace workspace;
        ItemGrid grid;
        grid.appendItem({u"Layover"_s, 1234.5});
        const QTableWidgetItem *amount = grid.item(0, ItemGrid::AmountColumn);
        QCOMPARE(amount->text(), u"$1234.50"_s);
        QCOMPARE(amount->data(Qt::UserRole), QVariant(1234.5));
        QCOMPARE(Qt::Alignment(amount->textAlignment()), Qt::AlignRight | Qt::AlignVCenter);
        QVERIFY(amount->flags().testFlag(Qt::ItemIsEditable));
    }

    void typedAmountBecomesMoney_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<double>("dollars");
        QTest::newRow("grouped") << u"$1,234.5"_s << u"$1234.50"_s << 1234.5;
        QTest::newRow("plain") << u"45"_s << u"$45.00"_s << 45.0;
        QTest::newRow("an hour's") << u"$5/hr"_s << u"$5.00"_s << 5.0;
        QTest::newRow("a mile's") << u"0.45/mi"_s << u"$0.45"_s << 0.45;
        QTest::newRow("a range") << u"$31.25/hr - $36.10/hr"_s << u"$31.25"_s << 31.25;
        QTest::newRow("below zero") << u"-12.5"_s << u"$-12.50"_s << -12.5;
        QTest::newRow("blanks around") << u"  7  "_s << u"$7.00"_s << 7.0;
        QTest::newRow("words") << u"abc"_s << u"$0.00"_s << 0.0;
        QTest::newRow("blank") << u""_s << u"$0.00"_s << 0.0;
        QTest::newRow("no finite number") << u"inf"_s << u"$0.00"_s << 0.0;
    }

    void typedAmountBecomesMoney()
    {
        const Workspace workspace;
        ItemGrid grid;
        QFETCH(const QString, typed);
        grid.appendItem({u"Layover"_s, 99.0});
        QTableWidgetItem *amount = grid.item(0, ItemGrid::AmountColumn);
        const QSignalSpy changes(&grid, &QTableWidget::itemChanged);
        amount->setText(typed);
        QTEST(amount->text(), "shown");
        QCOMPARE(amount->data(Qt::UserRole).typeId(), int(QMetaType::Double));
        QTEST(amount->data(Qt::UserRole).toDouble(), "dollars");
        QTEST(grid.itemTotal(), "dollars");
        QCOMPARE(changes.size(), 1);
    }

    void nameStandsInABoxOnABlankCell()
    {
        const Workspace workspace;
        ItemGrid grid;
        grid.offerNames({u"Detention"_s, u"Layover"_s});
        grid.appendItem({u"Layover"_s, 50.0});
        const QComboBox *box = nameBox(grid, 0);
        QCOMPARE(box->currentText(), u"Layover"_s);
        QCOMPARE(box->isEditable(), true);
        QCOMPARE(box->insertPolicy(), QComboBox::NoInsert);
        QCOMPARE(box->minimumContentsLength(), 18);
        QCOMPARE(box->minimumWidth(), 260);
        QCOMPARE(box->accessibleName(), u"Name"_s);
        const QTableWidgetItem *below = grid.item(0, ItemGrid::NameColumn);
        QCOMPARE(below->text(), u""_s);
        QCOMPARE(below->data(Qt::UserRole).toString(), u"Layover"_s);
        QVERIFY(!below->flags().testFlag(Qt::ItemIsEditable));
    }

    void boxStartsEmptyForABlankNameThoughThereAreNames()
    {
        const Workspace workspace;
        ItemGrid grid;
        grid.offerNames({u"Detention"_s, u"Layover"_s});
        grid.appendItem({});
        QCOMPARE(nameBox(grid, 0)->currentText(), u""_s);
        QCOMPARE(offered(nameBox(grid, 0)), QStringList({u"Detention"_s, u"Layover"_s}));
        QCOMPARE(grid.itemName(0), u""_s);
    }

    void nameShowsInTheSpellingOfTheList()
    {
        const Workspace workspace;
        ItemGrid grid;
        grid.offerNames({u"Detention"_s, u"Layover"_s});
        grid.appendItem({u"LAYOVER"_s, 50.0});
        grid.appendItem({u"Scale"_s, 12.0});
        QCOMPARE(names(grid), QStringList({u"Layover"_s, u"Scale"_s}));
    }

    void typedNameIsReadTrimmedAndKeptBelow()
    {
        const Workspace workspace;
        ItemGrid grid;
        Person::shows(grid);
        grid.appendItem({});
        grid.appendItem({});
        Person::types(nameBox(grid, 1)->lineEdit(), u"  Scale ticket "_s);
        QCOMPARE(names(grid), QStringList({u""_s, u"Scale ticket"_s}));
        QCOMPARE(grid.item(1, ItemGrid::NameColumn)->data(Qt::UserRole).toString(),
                 u"Scale ticket"_s);
        QCOMPARE(grid.item(0, ItemGrid::NameColumn)->data(Qt::UserRole).toString(), u""_s);
    }

    void nameFollowsItsBoxWhenRowsMove()
    {
        const Workspace workspace;
        ItemGrid grid;
        Person::shows(grid);
        grid.appendItem({u"Layover"_s, 50.0});
        grid.appendItem({u"Scale"_s, 12.0});
        grid.removeRow(0);
        Person::types(nameBox(grid, 0)->lineEdit(), u"Detention"_s);
        QCOMPARE(grid.item(0, ItemGrid::NameColumn)->data(Qt::UserRole).toString(), u"Detention"_s);
    }

    void boxThatHasLeftTheGridMayTellOfItsTextOnceMore()
    {
        const Workspace workspace;
        ItemGrid grid;
        Person::shows(grid);
        grid.offerNames({u"Detention"_s});
        grid.appendItem({});
        grid.appendItem({u"Scale"_s, 12.0});
        const QPointer<QComboBox> box = nameBox(grid, 0);
        grid.removeRow(0);
        QVERIFY(box); // it is deleted only later
        box->setCurrentIndex(0);
        QCOMPARE(names(grid), QStringList({u"Scale"_s}));
        QCOMPARE(grid.item(0, ItemGrid::NameColumn)->data(Qt::UserRole).toString(), u"Scale"_s);
    }

    void nameWithoutABoxIsThatOfTheCell()
    {
        const Workspace workspace;
        ItemGrid grid;
        grid.appendItem({u"Layover"_s, 50.0});
        grid.removeCellWidget(0, ItemGrid::NameColumn);
        QTableWidgetItem *below = grid.item(0, ItemGrid::NameColumn);
        QCOMPARE(grid.itemName(0), u"Layover"_s);
        below->setData(Qt::UserRole, u"  Kept "_s);
        below->setText(u"Shown"_s);
        QCOMPARE(grid.itemName(0), u"Kept"_s);
        below->setData(Qt::UserRole, u"  "_s);
        below->setText(u" Shown "_s);
        QCOMPARE(grid.itemName(0), u"Shown"_s);
    }

    void rowThatIsNotThereHasNoName()
    {
        const Workspace workspace;
        ItemGrid grid;
        grid.appendItem({u"Layover"_s, 50.0});
        QCOMPARE(grid.itemName(-1), u""_s);
        QCOMPARE(grid.itemName(1), u""_s);
    }

    void totalIsNotRoundedAndPassesOverWhatIsNoNumber()
    {
        const Workspace workspace;
        ItemGrid grid;
        QCOMPARE(grid.itemTotal(), 0.0);
        grid.appendItem({u"Layover"_s, 1234.5});
        grid.appendItem({u"Advance"_s, -34.25});
        grid.appendItem({u"Scale"_s, 12.0});
        grid.appendItem({u"Toll"_s, 3.0});
        {
            const QSignalBlocker unseen(&grid);
            grid.item(1, ItemGrid::AmountColumn)->setText(u" $-1,000.125 "_s);
            grid.item(2, ItemGrid::AmountColumn)->setText(u"$5/hr"_s);
            delete grid.takeItem(3, ItemGrid::AmountColumn);
        }
        QCOMPARE(grid.itemTotal(), 234.375);
    }

    void rowIsReadAsNameAndDollars()
    {
        const Workspace workspace;
        ItemGrid grid;
        grid.appendItem({u" Layover "_s, 50.25});
        const TripRows::ItemRow item = grid.itemAt(0);
        QCOMPARE(item.name, u"Layover"_s);
        QCOMPARE(item.amount, 50.25);
    }

    void newNamesReachTheRowsThatAreThere()
    {
        const Workspace workspace;
        ItemGrid grid;
        grid.offerNames({u"Layover"_s});
        grid.appendItem({u"Layover"_s, 50.0});
        grid.appendItem({u"scale"_s, 12.0});
        grid.appendItem({});
        const QSignalSpy changes(&grid, &QTableWidget::itemChanged);
        grid.offerNames({u"Scale"_s});
        QCOMPARE(names(grid), QStringList({u"Layover"_s, u"scale"_s, u""_s}));
        for (int row = 0; row < 3; ++row)
            QCOMPARE(offered(nameBox(grid, row)), QStringList({u"Scale"_s}));
        QCOMPARE(column(&grid, u"Amount"_s), QStringList({u"$50.00"_s, u"$12.00"_s, u"$0.00"_s}));
        QCOMPARE(changes.size(), 0);
    }

    void delegateGoesWhenNewNamesBringAnother()
    {
        const Workspace workspace;
        ItemGrid grid;
        const auto delegate = [&grid] {
            return qobject_cast<EditableHistoryComboDelegate *>(
                grid.itemDelegateForColumn(ItemGrid::NameColumn));
        };
        const QPointer<EditableHistoryComboDelegate> first = delegate();
        QVERIFY(first);
        grid.offerNames({u"Layover"_s});
        QVERIFY(delegate() != first);
        QCOMPARE(delegate()->parent(), &grid);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(first.isNull());
        QCOMPARE(grid.findChildren<EditableHistoryComboDelegate *>().size(), 1);
    }

    void gridGrowsWithTheScaleButIsNeverLower_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("leastHeight");
        QTest::addColumn<int>("nameWidth");
        QTest::newRow("75") << 75 << 90 << 195;
        QTest::newRow("100") << 100 << 90 << 260;
        QTest::newRow("175") << 175 << 157 << 455;
    }

    void gridGrowsWithTheScaleButIsNeverLower()
    {
        const Workspace workspace;
        ItemGrid grid;
        QFETCH(const int, percent);
        grid.applyScale(grid.font(), percent);
        QTEST(grid.minimumHeight(), "leastHeight");
        QTEST(grid.columnWidth(ItemGrid::NameColumn), "nameWidth");
    }
};

TEST_CLASS(tst_ItemGrid)
#include "tst_ItemGrid.moc"
