#include "support/Person.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "ui/DataTable.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// A table of one column in a window, between two fields.
class Table
{
public:
    Table()
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(before);
        layout->addWidget(widget);
        layout->addWidget(behind);
        Person::shows(window);
    }

    void show(const QStringList &texts) const
    {
        widget->setColumnCount(1);
        widget->setRowCount(static_cast<int>(texts.size()));
        for (int row = 0; row < widget->rowCount(); ++row)
            widget->setItem(row, 0, new QTableWidgetItem(texts.at(row)));
        widget->resizeColumnsToContents();
    }

    [[nodiscard]] int widthOf(const QString &text) const
    {
        return widget->fontMetrics().horizontalAdvance(text);
    }

    QWidget window;
    QLineEdit *before = new QLineEdit(&window);
    DataTable *widget = new DataTable(u"places"_s, u"Places"_s, 260, &window);
    QLineEdit *behind = new QLineEdit(&window);
};

const QString longText = u"Reimbursement of the overweight permit"_s;

} // namespace

class tst_DataTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tableGoesByItsNamesAndHeight()
    {
        const Workspace workspace;
        const Table table;
        QCOMPARE(table.widget->objectName(), u"places"_s);
        QCOMPARE(table.widget->accessibleName(), u"Places"_s);
        QCOMPARE(table.widget->minimumHeight(), 260);
        QVERIFY(table.widget->verticalHeader()->isHidden());
    }

    void tableSelectsOneWholeRow()
    {
        const Workspace workspace;
        const Table table;
        table.show({u"Albany"_s, u"Dallas"_s});
        QCOMPARE(table.widget->selectionBehavior(), QTableWidget::SelectRows);
        QCOMPARE(table.widget->selectionMode(), QTableWidget::SingleSelection);
        Person::clicksCell(table.widget, 0, 0);
        Person::clicksCell(table.widget, 1, 0);
        const QModelIndexList rows = table.widget->selectionModel()->selectedRows();
        QCOMPARE(rows.size(), 1);
        QCOMPARE(rows.constFirst().row(), 1);
    }

    void keysChangeNoCell()
    {
        const Workspace workspace;
        const Table table;
        table.show({u"Albany"_s});
        QCOMPARE(table.widget->editTriggers(), QTableWidget::NoEditTriggers);
        Person::clicksCell(table.widget, 0, 0);
        QTest::keyClick(table.widget, Qt::Key_F2);
        QTest::keyClicks(table.widget, u"changed"_s);
        QCOMPARE(texts(table.widget), QList<QStringList>({{u"Albany"_s}}));
        QCOMPARE(table.widget->findChild<QLineEdit *>(), nullptr);
    }

    void tabLeavesTheTable()
    {
        const Workspace workspace;
        const Table table;
        table.show({u"Albany"_s, u"Dallas"_s});
        QVERIFY(QTest::qWaitForWindowActive(table.widget));
        Person::clicksCell(table.widget, 0, 0);
        QTest::keyClick(table.widget, Qt::Key_Tab);
        QVERIFY(table.behind->hasFocus());
        QTest::keyClick(table.behind, Qt::Key_Backtab);
        QVERIFY(table.widget->hasFocus());
        QCOMPARE(table.widget->currentRow(), 0);
    }

    void columnIsAsWideAsItsTextsAndNarrowsAgain()
    {
        const Workspace workspace;
        const Table table;
        table.show({u"1"_s});
        const int narrow = table.widget->columnWidth(0);
        QVERIFY2(narrow < table.widthOf(longText), qPrintable(QString::number(narrow)));
        table.show({u"1"_s, longText, u"2"_s});
        QVERIFY(table.widget->columnWidth(0) >= table.widthOf(longText));
        table.show({u"1"_s});
        QCOMPARE(table.widget->columnWidth(0), narrow);
    }

    void widestTextCountsWhereverItStands_data()
    {
        QTest::addColumn<QString>("widest");
        QTest::addColumn<QString>("other");
        QTest::newRow("more letters") << u"a trip number as long as a letter"_s << u"4471203"_s;
        QTest::newRow("wider letters") << u"WWWWWWWWWWWWWWWWWWWW"_s << u"111111111111111111111"_s;
        QTest::newRow("letters beyond ASCII") << u"Dépôt des Pêcheries-Côtières"_s << u"Dock"_s;
        QTest::newRow("emoji") << u"\U0001F69B\U0001F69B\U0001F69B\U0001F69B\U0001F69B"_s << u"1"_s;
    }

    // Qt of itself would look at the first thousand rows only.
    void widestTextCountsWhereverItStands()
    {
        QFETCH(const QString, widest);
        QFETCH(const QString, other);
        const Workspace workspace;
        const Table table;
        table.show(QStringList(1500, other) << widest);
        QVERIFY(table.widget->columnWidth(0) > table.widthOf(widest));
    }

    void widestLineCountsInTextsOfSeveral()
    {
        const Workspace workspace;
        const Table table;
        const QString oneLine = u"Gate 4, ring twice"_s;
        table.show({oneLine, u"Gate 4\nring twice\nbell is loud"_s});
        QVERIFY(table.widget->columnWidth(0) > table.widthOf(oneLine));
    }

    void columnIsNoWiderThanQtItselfWouldMakeIt()
    {
        const Workspace workspace;
        const Table table;
        table.show({longText, u"1"_s});
        QTableWidget plain(1, 1);
        plain.setItem(0, 0, new QTableWidgetItem(longText));
        Person::shows(plain);
        plain.resizeColumnsToContents();
        QCOMPARE(table.widget->columnWidth(0), plain.columnWidth(0));
    }

    void headerCountsToo()
    {
        const Workspace workspace;
        const Table table;
        table.show({u"1"_s});
        table.widget->setHorizontalHeaderLabels({longText});
        table.widget->resizeColumnsToContents();
        QVERIFY(table.widget->columnWidth(0) > table.widthOf(longText));
    }

    void withoutRowsTheHeaderDecides()
    {
        const Workspace workspace;
        const Table table;
        table.show({longText});
        table.show({});
        QVERIFY(table.widget->columnWidth(0) < table.widthOf(longText));
    }

    void missingCellsTakeNoRoom()
    {
        const Workspace workspace;
        const Table table;
        table.show({u"1"_s, longText, u"2"_s});
        delete table.widget->takeItem(0, 0);
        table.widget->resizeColumnsToContents();
        QVERIFY(table.widget->columnWidth(0) >= table.widthOf(longText));
        delete table.widget->takeItem(1, 0);
        table.widget->resizeColumnsToContents();
        QVERIFY(table.widget->columnWidth(0) < table.widthOf(longText));
        delete table.widget->takeItem(2, 0);
        table.widget->resizeColumnsToContents();
        QVERIFY(table.widget->columnWidth(0) > 0);
    }

    void largerFontMakesWiderColumns()
    {
        const Workspace workspace;
        const Table table;
        table.show({longText});
        const int before = table.widget->columnWidth(0);
        QFont font = table.widget->font();
        font.setPointSize(2 * font.pointSize());
        table.widget->setFont(font);
        table.widget->resizeColumnsToContents();
        QVERIFY(table.widget->columnWidth(0) > before * 3 / 2);
        QVERIFY(table.widget->columnWidth(0) > table.widthOf(longText));
    }
};

TEST_CLASS(tst_DataTable)
#include "tst_DataTable.moc"
