#pragma once

#include <QTableWidget>

/// What the grids of a trip have in common: fixed columns, one row selected at a time, boxes that
/// stand in cells, and cells with money.
class TripGrid : public QTableWidget
{
    Q_OBJECT

public:
    /// A column, with its width in pixels at 100 percent and that which a box in it wants.
    struct Column
    {
        QString label;
        int width = 0;
        int leastBoxWidth = 0;
    };

    /// A blank cell below a box keeps what the box says under this role; a money cell its dollars.
    static constexpr int valueRole = Qt::UserRole;

    TripGrid(const QList<Column> &gridColumns, int leastGridHeight, QWidget *parent);

    void applyScale(const QFont &font, int percent);

    /// Gives the columns their widths at the saved scale.
    void rescaleColumns();

    /// A money cell's dollars as its text says; 0 for a missing cell and for text that is no
    /// number.
    [[nodiscard]] double money(int row, int column) const;

    /// The text of a cell, empty for a missing one.
    [[nodiscard]] QString cellText(int row, int column) const;

    /// The trimmed text of the box in a cell; without a box, what the cell below keeps or shows.
    [[nodiscard]] QString boxText(int row, int column) const;

protected:
    /// Puts the box into the cell, on a blank item that keeps `value`.
    void putBox(int row, int column, QWidget *box, const QVariant &value);
    void putMoney(int row, int column, double dollars);

    /// Shows what was typed into a money cell as money, without telling of a change.
    void normalizeMoney(int row, int column);

    /// Lets the item below `box` keep another value, without telling of a change. Gives the row;
    /// rows move, so it is looked for. -1 for a box that has left the grid: it is deleted only
    /// later, and tells of its text once more when it loses the focus.
    int keepBelow(const QWidget *box, int column, const QVariant &value);

    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;

private:
    void removeBox(int row, int column);
    void fitBox(int row, int column);
    void setWidths(int percent);

    QList<Column> columns;
    int leastHeight;
};
