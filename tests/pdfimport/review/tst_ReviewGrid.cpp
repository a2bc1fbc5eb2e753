#include "pdfimport/ReviewedSettlement.h"
#include "pdfimport/review/ReviewGrid.h"
#include "support/Person.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

FuelReviewRow withId(int id, FuelReviewRow row)
{
    row.id = id;
    return row;
}

QList<FuelReviewRow> twoRows()
{
    return {withId(7, truckFuelRow()), withId(3, switchedOff(defRow()))};
}

} // namespace

class tst_ReviewGrid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void headersNameTheTenColumns()
    {
        const Workspace workspace;
        const ReviewGrid grid;
        QCOMPARE(headers(&grid), QStringList({u"Use"_s, u"Dataset"_s, u"Trip #"_s, u"Description"_s,
                                              u"Route"_s, u"Amount"_s, u"Cost"_s, u"Discount"_s,
                                              u"Gallons"_s, u"Source Line"_s}));
        QCOMPARE(grid.rowCount(), 0);
    }

    void gridSelectsOneWholeRow()
    {
        const Workspace workspace;
        const ReviewGrid grid;
        QCOMPARE(grid.selectionBehavior(), QTableWidget::SelectRows);
        QCOMPARE(grid.selectionMode(), QTableWidget::SingleSelection);
        QCOMPARE(grid.minimumHeight(), 220);
        QVERIFY(grid.horizontalHeader()->stretchLastSection());
    }

    void rowsStandInTheirOrderWithFixedDecimals()
    {
        const Workspace workspace;
        ReviewGrid grid;
        grid.showRows(twoRows());
        QCOMPARE(texts(&grid),
                 QList<QStringList>({{u"Yes"_s, u"Deduction Fuel"_s, u"4471203"_s, u"Truck Fuel"_s,
                                      u"fuel_detail"_s, u"412.80"_s, u"448.30"_s, u"-35.50"_s,
                                      u"118.276"_s, u"4471203 DEDUCTION FUEL 412.80"_s},
                                     {u"No"_s, u"Deduction Fuel"_s, u"4471203"_s, u"Def"_s,
                                      u"fuel_detail"_s, u"21.35"_s, u"23.10"_s, u"-1.75"_s,
                                      u"5.250"_s, u"4471203 DEDUCTION DEF 21.35"_s}}));
    }

    void numbersStandToTheRight()
    {
        const Workspace workspace;
        ReviewGrid grid;
        grid.showRows(twoRows());
        QList<int> right;
        for (int column = 0; column < grid.columnCount(); ++column) {
            if (grid.item(0, column)->textAlignment() & Qt::AlignRight)
                right.append(column);
        }
        QCOMPARE(right, QList<int>({5, 6, 7, 8}));
    }

    void selectedRowIsKnownByItsIdentityNotByItsLine()
    {
        const Workspace workspace;
        ReviewGrid grid;
        Person::shows(grid);
        grid.showRows(twoRows());
        QCOMPARE(grid.selectedId(), 0);
        Person::clicksCell(&grid, 1, 4);
        QCOMPARE(grid.selectedId(), 3);
        grid.selectId(7);
        QCOMPARE(grid.currentRow(), 0);
        QCOMPARE(grid.selectedId(), 7);
    }

    void unknownIdentitySelectsNothingElse()
    {
        const Workspace workspace;
        ReviewGrid grid;
        grid.showRows(twoRows());
        grid.selectId(3);
        grid.selectId(99);
        QCOMPARE(grid.selectedId(), 3);
    }

    void newRowsDropTheSelectionWithoutTellingOfIt()
    {
        const Workspace workspace;
        ReviewGrid grid;
        grid.showRows(twoRows());
        grid.selectId(3);
        const QSignalSpy changes(&grid, &QTableWidget::itemSelectionChanged);
        grid.showRows({withId(9, defRow())});
        QCOMPARE(grid.selectedId(), 0);
        QCOMPARE(changes.count(), 0);
        QCOMPARE(grid.rowCount(), 1);
        grid.selectId(9);
        QCOMPARE(changes.count(), 1);
    }

    void columnsAreAsWideAsTheirTexts()
    {
        const Workspace workspace;
        ReviewGrid grid;
        const QString description = u"Truck Fuel, corrected by hand from the receipt"_s;
        grid.showRows({describedAs(description, truckFuelRow())});
        QVERIFY(grid.columnWidth(0) < grid.horizontalHeader()->defaultSectionSize());
        QVERIFY(grid.columnWidth(3) >= grid.fontMetrics().horizontalAdvance(description));
    }

    void personCanTypeIntoACell_data()
    {
        QTest::addColumn<bool>("doubleClicked");
        QTest::addColumn<QString>("text");
        QTest::newRow("after a double click") << true << u"999.5"_s;
        QTest::newRow("from the first key on") << false << u"7999.5"_s;
    }

    void personCanTypeIntoACell()
    {
        QFETCH(const bool, doubleClicked);
        QFETCH(const QString, text);
        const Workspace workspace;
        ReviewGrid grid;
        Person::shows(grid);
        grid.showRows(twoRows());
        Person::clicksCell(&grid, 0, 6);
        if (doubleClicked)
            QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {},
                               grid.visualItemRect(grid.item(0, 6)).center());
        else
            QTest::keyClick(&grid, Qt::Key_7);
        auto *line = grid.viewport()->findChild<QLineEdit *>();
        QVERIFY(line);
        QTest::keyClicks(line, u"999.5"_s);
        QTest::keyClick(line, Qt::Key_Return);
        QTRY_COMPARE(grid.item(0, 6)->text(), text);
    }

    void textTypedIntoACellGoesWithTheNextRows()
    {
        const Workspace workspace;
        ReviewGrid grid;
        grid.showRows(twoRows());
        grid.item(0, 6)->setText(u"9999"_s);
        grid.showRows(twoRows());
        QCOMPARE(column(&grid, u"Cost"_s), QStringList({u"448.30"_s, u"23.10"_s}));
    }
};

TEST_CLASS(tst_ReviewGrid)
#include "tst_ReviewGrid.moc"
