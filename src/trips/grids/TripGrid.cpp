#include "trips/grids/TripGrid.h"

#include "data/DomainRules.h"
#include "data/MoneyText.h"
#include "ui/CellPainter.h"
#include "ui/FieldText.h"
#include "ui/UiScale.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QSignalBlocker>

#include <algorithm>

namespace {

constexpr auto isBox = "isBoxOfTripGrid";

} // namespace

TripGrid::TripGrid(const QList<Column> &gridColumns, int leastGridHeight, QWidget *parent)
    : QTableWidget(parent)
    , columns(gridColumns)
    , leastHeight(leastGridHeight)
{
    QStringList labels;
    for (const Column &column : columns)
        labels.append(column.label);
    setColumnCount(static_cast<int>(labels.size()));
    setHorizontalHeaderLabels(labels);
    setMinimumHeight(leastHeight);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    setItemDelegate(new CellPainter(this));
    verticalHeader()->hide();
    rescaleColumns();
}

void TripGrid::applyScale(const QFont &font, int percent)
{
    UiScale::applyTableScale(this, font, percent);
    setMinimumHeight(std::max(leastHeight, leastHeight * UiScale::clampedPercent(percent) / 100));
    setWidths(percent);
}

void TripGrid::rescaleColumns()
{
    setWidths(UiScale::savedUiScalePercent());
}

void TripGrid::setWidths(int percent)
{
    QList<int> widths;
    for (const Column &column : columns)
        widths.append(column.width);
    UiScale::applyColumnWidths(this, widths, percent);
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < columnCount(); ++column)
            fitBox(row, column);
    }
}

// A box in a cell is part of the row: it takes the row's height, not that of the boxes of a form,
// and it must not reach into the next column where the scale makes its own a narrow one.
void TripGrid::fitBox(int row, int column)
{
    QWidget *box = cellWidget(row, column);
    if (!box)
        return;
    box->setMinimumHeight(0);
    for (QLineEdit *line : box->findChildren<QLineEdit *>())
        line->setMinimumHeight(0);
    box->setMinimumWidth(std::min(columns.at(column).leastBoxWidth, columnWidth(column)));
}

void TripGrid::putBox(int row, int column, QWidget *box, const QVariant &value)
{
    auto *below = new QTableWidgetItem;
    below->setFlags(below->flags() & ~Qt::ItemIsEditable);
    below->setData(valueRole, value);
    setItem(row, column, below);
    box->setAccessibleName(columns.at(column).label);
    box->setProperty(isBox, true);
    box->setFocusPolicy(Qt::ClickFocus); // for Tab the grid is one stop
    setCellWidget(row, column, box);
    fitBox(row, column);
}

void TripGrid::putMoney(int row, int column, double dollars)
{
    const QSignalBlocker blocker(this);
    if (!item(row, column))
        setItem(row, column, new QTableWidgetItem);
    QTableWidgetItem *cell = item(row, column);
    cell->setText(moneyText(dollars));
    cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    cell->setData(valueRole, dollars);
}

void TripGrid::normalizeMoney(int row, int column)
{
    putMoney(row, column, DomainRules::sortNumberFromText(cellText(row, column)));
}

double TripGrid::money(int row, int column) const
{
    return DomainRules::parseMoneyText(cellText(row, column));
}

QString TripGrid::cellText(int row, int column) const
{
    const QTableWidgetItem *cell = item(row, column);
    return cell ? cell->text() : QString();
}

QString TripGrid::boxText(int row, int column) const
{
    if (const auto *box = qobject_cast<QComboBox *>(cellWidget(row, column)))
        return FieldText::of(box).trimmed();
    const QTableWidgetItem *below = item(row, column);
    const QString kept = below ? below->data(valueRole).toString().trimmed() : QString();
    return kept.isEmpty() ? cellText(row, column).trimmed() : kept;
}

// A box gets the focus by the first key that is typed on its cell, and would miss that key. Only
// then: a key that a box makes nothing of comes back to the grid, and here again.
bool TripGrid::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event)
{
    QWidget *box = cellWidget(index.row(), index.column());
    const bool hadFocus = box && box->hasFocus();
    const bool taken = QTableWidget::edit(index, trigger, event);
    if (taken && trigger == AnyKeyPressed && box && !hadFocus && box->hasFocus())
        QCoreApplication::sendEvent(box, event);
    return taken;
}

// Tab in a box goes to the next cell, as it does while a cell is edited, and from the last one on
// to what follows the grid.
bool TripGrid::focusNextPrevChild(bool next)
{
    if (!hasFocus()) {
        const QModelIndex from = currentIndex();
        const QModelIndex to = moveCursor(next ? MoveNext : MovePrevious, Qt::NoModifier);
        setFocus();
        if (from.isValid() && (next ? from < to : to < from)) {
            setCurrentIndex(to);
            return true;
        }
    }
    return QTableWidget::focusNextPrevChild(next);
}

// A view forgets the boxes of rows that go, but not their addresses (Qt 6.4). The editor of a cell
// that later comes to lie at one would never close, and no other cell could be edited.
void TripGrid::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    for (int row = start; row <= end; ++row) {
        for (int column = 0; column < columnCount(); ++column)
            removeBox(row, column);
    }
    QTableWidget::rowsAboutToBeRemoved(parent, start, end);
}

void TripGrid::removeBox(int row, int column)
{
    QWidget *box = cellWidget(row, column);
    if (!box || !box->property(isBox).toBool()) // an open editor is the view's own affair
        return;
    box->hide(); // it goes only with the next turn of the event loop
    removeCellWidget(row, column);
}

int TripGrid::keepBelow(const QWidget *box, int column, const QVariant &value)
{
    for (int row = 0; row < rowCount(); ++row) {
        if (cellWidget(row, column) != box)
            continue;
        const QSignalBlocker blocker(this);
        item(row, column)->setData(valueRole, value);
        return row;
    }
    return -1;
}
