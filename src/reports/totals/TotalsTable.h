#pragma once

#include "ui/DataTable.h"

/// A table of the Totals page or of one of its popups: texts on the left, figures on the right.
class TotalsTable : public DataTable
{
    Q_OBJECT

public:
    /// Columns from `firstFigure` on hold figures.
    TotalsTable(const QString &objectName, const QString &accessibleName,
                const QStringList &columnLabels, int firstFigure, QWidget *parent);

    /// Shows the rows, in the order that the person chose by a click on a header.
    void showRows(const QList<QStringList> &rows);

    /// Lets a click on a header sort the rows, and makes room for the arrows and for the font.
    void makeSortable();

    /// Empty where there is no cell.
    [[nodiscard]] QString text(int row, int column) const;

private:
    void fitColumns();

    QStringList labels;
    int firstFigureColumn;
};
