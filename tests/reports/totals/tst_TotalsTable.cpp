#include "reports/totals/TotalsTable.h"
#include "support/Person.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QHeaderView>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int right = Qt::AlignRight | Qt::AlignVCenter;

/// A table of names and their dollars, in a window.
class Table
{
public:
    Table()
    {
        widget->resize(600, 300);
        Person::shows(window);
    }

    void clicksHeader(int column) const { Person::clicksHeader(widget, column); }

    [[nodiscard]] QStringList names() const { return column(widget, u"Name"_s); }

    QWidget window;
    TotalsTable *widget =
        new TotalsTable(u"totals"_s, u"Some totals"_s, {u"Name"_s, u"Total"_s}, 1, &window);
};

const QList<QStringList> threeRows = {
    {u"b"_s, u"$100.00"_s}, {u"a"_s, u"$-20.00"_s}, {u"c"_s, u"$9.00"_s}};

} // namespace

class tst_TotalsTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isATableOfWholeRowsToRead()
    {
        const Workspace workspace;
        const Table table;
        QCOMPARE(headers(table.widget), QStringList({u"Name"_s, u"Total"_s}));
        QCOMPARE(table.widget->rowCount(), 0);
        QCOMPARE(table.widget->objectName(), u"totals"_s);
        QCOMPARE(table.widget->accessibleName(), u"Some totals"_s);
        QCOMPARE(table.widget->editTriggers(), QAbstractItemView::NoEditTriggers);
        QCOMPARE(table.widget->selectionBehavior(), QAbstractItemView::SelectRows);
        QVERIFY(table.widget->verticalHeader()->isHidden());
        QVERIFY(table.widget->horizontalHeader()->stretchLastSection());
    }

    void severalRowsCanBeSelected()
    {
        const Workspace workspace;
        const Table table;
        table.widget->showRows(threeRows);
        Person::clicksCell(table.widget, 0, 0);
        QTest::keyClick(table.widget, Qt::Key_Down, Qt::ShiftModifier);
        QTest::keyClick(table.widget, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(table.widget->selectionModel()->selectedRows().size(), 3);
    }

    void rowsShowAsGivenWithFiguresToTheRight()
    {
        const Workspace workspace;
        const Table table;
        table.widget->showRows(threeRows);
        QCOMPARE(texts(table.widget), threeRows);
        QCOMPARE(table.widget->item(0, 1)->textAlignment(), right);
        QCOMPARE(table.widget->horizontalHeaderItem(1)->textAlignment(), right);
        QVERIFY(table.widget->item(0, 0)->textAlignment() != right);
        QVERIFY(table.widget->horizontalHeaderItem(0)->textAlignment() != right);
    }

    void newRowsTakeThePlaceOfTheOldOnes()
    {
        const Workspace workspace;
        const Table table;
        table.widget->showRows(threeRows);
        table.widget->showRows({{u"d"_s, u"$1.00"_s}});
        QCOMPARE(texts(table.widget), QList<QStringList>({{u"d"_s, u"$1.00"_s}}));
        table.widget->showRows({});
        QCOMPARE(table.widget->rowCount(), 0);
        QCOMPARE(table.widget->text(0, 0), QString());
    }

    void lastColumnReachesTheEdgeAfterEveryFill()
    {
        const Workspace workspace;
        const Table table;
        for (int fill = 0; fill < 2; ++fill) {
            table.widget->showRows(threeRows);
            QCOMPARE(table.widget->columnWidth(0) + table.widget->columnWidth(1),
                     table.widget->viewport()->width());
        }
    }

    void columnIsAsWideAsItsWidestText()
    {
        const Workspace workspace;
        const Table table;
        table.widget->showRows(threeRows);
        const int narrow = table.widget->columnWidth(0);
        table.widget->showRows({{u"Net Non-Trip Settlement Impact"_s, u"$1.00"_s}});
        QVERIFY(table.widget->columnWidth(0) > narrow);
        QVERIFY(table.widget->columnWidth(0) > table.widget->fontMetrics().horizontalAdvance(
                    u"Net Non-Trip Settlement Impact"_s));
    }

    void clickOnAHeaderSortsNothingAtFirst()
    {
        const Workspace workspace;
        const Table table;
        table.widget->showRows(threeRows);
        table.clicksHeader(0);
        QCOMPARE(table.names(), QStringList({u"b"_s, u"a"_s, u"c"_s}));
    }

    void figuresSortAsNumbers()
    {
        const Workspace workspace;
        const Table table;
        table.widget->makeSortable();
        table.widget->showRows(threeRows);
        table.clicksHeader(1);
        QCOMPARE(table.names(), QStringList({u"a"_s, u"c"_s, u"b"_s}));
        table.clicksHeader(1);
        QCOMPARE(table.names(), QStringList({u"b"_s, u"c"_s, u"a"_s}));
    }

    void figuresWithUnitsSortAsNumbersAfterThoseThatAreNone()
    {
        const Workspace workspace;
        const Table table;
        table.widget->makeSortable();
        table.widget->showRows(
            {{u"a"_s, u"$10.0000/gal"_s}, {u"b"_s, u"n/a"_s}, {u"c"_s, u"$9.5000/gal"_s}});
        table.clicksHeader(1);
        QCOMPARE(table.names(), QStringList({u"c"_s, u"a"_s, u"b"_s}));
    }

    void arrowsTellTheSort()
    {
        const Workspace workspace;
        const Table table;
        table.widget->makeSortable();
        QCOMPARE(headers(table.widget), QStringList({u"Name \u2195"_s, u"Total \u2195"_s}));
        table.clicksHeader(1);
        QCOMPARE(headers(table.widget), QStringList({u"Name \u2195"_s, u"Total \u25B2"_s}));
        table.clicksHeader(1);
        QCOMPARE(headers(table.widget), QStringList({u"Name \u2195"_s, u"Total \u25BC"_s}));
    }

    void sortOutlivesARefillAndANewScale()
    {
        const Workspace workspace;
        const Table table;
        table.widget->makeSortable();
        table.clicksHeader(0);
        table.widget->showRows(threeRows);
        QCOMPARE(table.names(), QStringList({u"a"_s, u"b"_s, u"c"_s}));
        table.widget->makeSortable();
        QCOMPARE(table.names(), QStringList({u"a"_s, u"b"_s, u"c"_s}));
        QCOMPARE(headers(table.widget), QStringList({u"Name \u25B2"_s, u"Total \u2195"_s}));
        QCOMPARE(table.widget->horizontalHeaderItem(1)->textAlignment(), right);
    }

    void largerFontMakesColumnsWider()
    {
        const Workspace workspace;
        const Table table;
        table.widget->showRows(threeRows);
        const int before = table.widget->columnWidth(0);
        QFont large = table.widget->font();
        large.setPointSize(2 * large.pointSize());
        table.widget->setFont(large);
        table.widget->horizontalHeader()->setFont(large);
        table.widget->makeSortable();
        QVERIFY(table.widget->columnWidth(0) > before);
        QCOMPARE(table.widget->columnWidth(0) + table.widget->columnWidth(1),
                 table.widget->viewport()->width());
    }

    void cellOutsideOfTheTableReadsAsNothing()
    {
        const Workspace workspace;
        const Table table;
        table.widget->showRows(threeRows);
        QCOMPARE(table.widget->text(2, 1), u"$9.00"_s);
        QCOMPARE(table.widget->text(-1, 0), QString());
        QCOMPARE(table.widget->text(3, 0), QString());
        QCOMPARE(table.widget->text(0, 2), QString());
    }
};

TEST_CLASS(tst_TotalsTable)
#include "tst_TotalsTable.moc"
