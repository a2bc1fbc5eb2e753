#include "trips/TripList.h"

#include "data/DomainRules.h"
#include "data/MoneyText.h"
#include "trips/TripsTableItem.h"
#include "ui/UiScale.h"

#include <QHeaderView>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

bool isMoney(int column)
{
    switch (column) {
    case LinehaulColumn:
    case FusuColumn:
    case TotalRevenueColumn:
    case TotalCostColumn:
    case NetRevenueColumn:
    case NetPerHourColumn:
        return true;
    default:
        return false;
    }
}

QString shownText(int column, const QString &raw, double number)
{
    const bool isRange = raw.contains(" - "_L1);
    return isMoney(column) && !isRange ? moneyText(number) : raw;
}

TripsTableItem *cell(int column, const QString &raw)
{
    if (column == PayweekColumn)
        return new TripsTableItem(raw, DomainRules::parseTripListDate(raw));
    const double number = DomainRules::sortNumberFromText(raw);
    return new TripsTableItem(shownText(column, raw, number), raw, number);
}

} // namespace

TripList::TripList(QWidget *parent)
    : DataTable(u"tripList"_s, tr("Trips"), leastHeight, parent)
{
    showTrips({});
    connect(horizontalHeader(), &QHeaderView::sortIndicatorChanged, this, &TripList::refreshArrows);
}

void TripList::showTrips(const QList<QStringList> &rows)
{
    const QSignalBlocker blocker(this);
    setUpdatesEnabled(false);
    int section = horizontalHeader()->sortIndicatorSection();
    Qt::SortOrder order = horizontalHeader()->sortIndicatorOrder();
    if (section < 0 || section >= TripColumnCount) {
        section = IdColumn;
        order = Qt::DescendingOrder;
    }
    setSortingEnabled(false);
    clear();
    setColumnCount(TripColumnCount);
    setHorizontalHeaderLabels(tripColumnLabels());
    fill(rows);
    horizontalHeader()->setSortIndicator(section, order);
    setSortingEnabled(true); // sorts by the indicator just set
    refreshArrows();
    resizeColumnsToContents();
    hideColumn(IdColumn);
    setUpdatesEnabled(true);
}

void TripList::fill(const QList<QStringList> &rows)
{
    setRowCount(static_cast<int>(rows.size()));
    const QSignalBlocker quiet(model()); // the view is not to look at each of 45,000 cells
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < TripColumnCount; ++column)
            setItem(row, column, cell(column, rows.at(row).at(column)));
    }
}

void TripList::refreshArrows()
{
    UiScale::refreshTripListArrows(this, tripColumnLabels());
}

int TripList::rowOfTrip(int tripId) const
{
    for (int row = 0; row < rowCount(); ++row) {
        if (item(row, IdColumn)->text().toInt() == tripId)
            return row;
    }
    return -1;
}

QStringList TripList::rowTexts(int row) const
{
    QStringList texts;
    for (int column = 0; row >= 0 && row < rowCount() && column < TripColumnCount; ++column)
        texts.append(item(row, column)->text());
    return texts;
}

QString TripList::payweekOfRow(int row) const
{
    const QTableWidgetItem *cell = item(row, PayweekColumn);
    if (!cell)
        return {};
    const QString payweek = cell->data(TripsTableItem::payweekRole).toString().trimmed();
    return payweek.isEmpty() ? cell->text().trimmed() : payweek;
}
