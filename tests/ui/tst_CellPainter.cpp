#include "support/LongTexts.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "ui/CellPainter.h"
#include "ui/DataCell.h"
#include "ui/DataTable.h"

#include <QLineEdit>
#include <QStyledItemDelegate>

using namespace Qt::StringLiterals;

namespace {

QString shownIn(const QTableWidget &table)
{
    const auto *painter = qobject_cast<QStyledItemDelegate *>(table.itemDelegate());
    return painter->displayText(table.item(0, 0)->text(), QLocale());
}

} // namespace

class tst_CellPainter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cellShowsALongTextInPartAndKeepsItWhole()
    {
        const Workspace workspace;
        for (const QString &text : LongTexts::all) {
            DataTable table(u"table"_s, u"Table"_s, 100, nullptr);
            table.setColumnCount(1);
            table.setRowCount(1);
            table.setItem(0, 0, new DataCell(DataCell::Form::Text, text));
            table.resizeColumnsToContents();
            QVERIFY(shownIn(table).endsWith(LongTexts::saysSo));
            QVERIFY(shownIn(table).size() < 200);
            QVERIFY(table.columnWidth(0) < 4'000);
            QVERIFY(table.item(0, 0)->text() == text);
        }
    }

    void cellShowsAnOrdinaryTextAsItIs()
    {
        const Workspace workspace;
        DataTable table(u"table"_s, u"Table"_s, 100, nullptr);
        table.setColumnCount(1);
        table.setRowCount(1);
        table.setItem(0, 0, new DataCell(DataCell::Form::Text, u"No parking"_s));
        QCOMPARE(shownIn(table), u"No parking"_s);
    }

    void longTextIsNotEditedInItsCell()
    {
        const Workspace workspace;
        QTableWidget grid(1, 1);
        grid.setItemDelegate(new CellPainter(&grid));
        grid.setItem(0, 0, new QTableWidgetItem(LongTexts::words));
        grid.show();
        grid.editItem(grid.item(0, 0));
        QCOMPARE(grid.findChildren<QLineEdit *>().size(), 0);
        grid.item(0, 0)->setText(u"04/12/2026 08:00"_s);
        grid.editItem(grid.item(0, 0));
        QCOMPARE(grid.findChildren<QLineEdit *>().size(), 1);
    }
};

TEST_CLASS(tst_CellPainter)
#include "tst_CellPainter.moc"
