#pragma once

#include <QTableWidget>

/// A read-only table that selects one whole row at a time and measures its columns quickly.
class DataTable : public QTableWidget
{
    Q_OBJECT

public:
    DataTable(const QString &objectName, const QString &accessibleName, int minimumHeight,
              QWidget *parent);

protected:
    /// Measures the widest text of the column alone. Qt would lay out the first thousand cells,
    /// which takes longer than all else in a refill, and miss a wider one behind them.
    [[nodiscard]] int sizeHintForColumn(int column) const override;
};
