#include "reports/totals/TotalsTable.h"

#include "ui/DataCell.h"
#include "ui/UiScale.h"

#include <QHeaderView>

TotalsTable::TotalsTable(const QString &objectName, const QString &accessibleName,
                         const QStringList &columnLabels, int firstFigure, QWidget *parent)
    : DataTable(objectName, accessibleName, 0, parent)
    , labels(columnLabels)
    , firstFigureColumn(firstFigure)
{
    setSelectionMode(ExtendedSelection);
    setColumnCount(static_cast<int>(labels.size()));
    setHorizontalHeaderLabels(labels);
    for (int column = firstFigureColumn; column < columnCount(); ++column)
        horizontalHeaderItem(column)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    fitColumns();
}

void TotalsTable::showRows(const QList<QStringList> &rows)
{
    setUpdatesEnabled(false);
    setRowCount(static_cast<int>(rows.size()));
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < columnCount(); ++column) {
            const bool isFigure = column >= firstFigureColumn;
            setItem(row, column,
                    new DataCell(isFigure ? DataCell::Form::Number : DataCell::Form::Text,
                                 rows.at(row).at(column)));
        }
    }
    UiScale::sortAsChosen(this);
    fitColumns();
    setUpdatesEnabled(true);
}

void TotalsTable::makeSortable()
{
    UiScale::setSortableHeaders(this, labels);
    fitColumns();
}

QString TotalsTable::text(int row, int column) const
{
    const QTableWidgetItem *cell = item(row, column);
    return cell ? cell->text() : QString();
}

// Fitting makes the last column narrow too, and the header widens it again only when it is told
// anew to, or when it happens to be resized.
void TotalsTable::fitColumns()
{
    horizontalHeader()->setStretchLastSection(false);
    resizeColumnsToContents();
    horizontalHeader()->setStretchLastSection(true);
}
