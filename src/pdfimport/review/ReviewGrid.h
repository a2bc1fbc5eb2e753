#pragma once

#include <QTableWidget>

struct FuelReviewRow;

/// Lists the rows under review. It is a view alone: what is typed into a cell is not read back, and
/// is gone when the rows are shown again.
class ReviewGrid : public QTableWidget
{
    Q_OBJECT

public:
    explicit ReviewGrid(QWidget *parent = nullptr);

    /// Shows the rows in their order; none is selected afterwards. No signal tells of it, so that
    /// what is being typed about the row that was selected stays.
    void showRows(const QList<FuelReviewRow> &rows);

    /// The identity of the selected row; 0 without one.
    [[nodiscard]] int selectedId() const;

    /// Selects the line of the row with this identity, if there is one.
    void selectId(int id);

private:
    void showRow(int line, const FuelReviewRow &row);
};
