#include "settlements/PayweekTables.h"

#include "ui/DataCell.h"
#include "ui/UiScale.h"

#include <QCoreApplication>
#include <QHeaderView>

#include <array>
#include <span>

using namespace Qt::StringLiterals;

namespace PayweekTables {

namespace {

constexpr QColor linkColor(0, 102, 204);

using Form = DataCell::Form;

struct Column
{
    const char *label;
    Form form;
};

constexpr std::array tripColumns = {
    Column{QT_TRANSLATE_NOOP("PayweekTables", "Trip #"), Form::Text},
    Column{QT_TRANSLATE_NOOP("PayweekTables", "Payweek"), Form::Text},
    Column{QT_TRANSLATE_NOOP("PayweekTables", "Miles"), Form::Number},
    Column{QT_TRANSLATE_NOOP("PayweekTables", "Revenue"), Form::Money},
    Column{QT_TRANSLATE_NOOP("PayweekTables", "Cost"), Form::Money},
    Column{QT_TRANSLATE_NOOP("PayweekTables", "Net"), Form::Money},
    Column{QT_TRANSLATE_NOOP("PayweekTables", "CPM"), Form::MoneyPerMile},
    Column{QT_TRANSLATE_NOOP("PayweekTables", "Hours"), Form::Number},
    Column{QT_TRANSLATE_NOOP("PayweekTables", "Net/Hour"), Form::MoneyPerHour},
};

constexpr std::array itemColumns = {
    Column{QT_TRANSLATE_NOOP("PayweekTables", "ID"), Form::Number},
    Column{QT_TRANSLATE_NOOP("PayweekTables", "Payweek"), Form::Text},
    Column{QT_TRANSLATE_NOOP("PayweekTables", "Kind"), Form::Text},
    Column{QT_TRANSLATE_NOOP("PayweekTables", "Name"), Form::Text},
    Column{QT_TRANSLATE_NOOP("PayweekTables", "Amount"), Form::Money},
};

void makeLink(QTableWidgetItem *item, int tripId)
{
    QFont font = item->font();
    font.setUnderline(true);
    item->setFont(font);
    item->setForeground(linkColor);
    item->setToolTip(
        QCoreApplication::translate("PayweekTables", "Open this trip on the Trips page"));
    item->setData(tripIdRole, tripId);
}

// `skipped` columns at the front of a row are not shown.
void fill(QTableWidget *table, std::span<const Column> columns, const QList<QStringList> &rows,
          int skipped)
{
    table->setColumnCount(static_cast<int>(columns.size()));
    table->setRowCount(static_cast<int>(rows.size()));
    for (int row = 0; row < table->rowCount(); ++row) {
        for (int column = 0; column < table->columnCount(); ++column)
            table->setItem(row, column,
                           new DataCell(columns[static_cast<std::size_t>(column)].form,
                                        rows.at(row).value(column + skipped)));
    }
}

void finish(QTableWidget *table, std::span<const Column> columns)
{
    QStringList labels;
    for (const Column &column : columns)
        labels.append(QCoreApplication::translate("PayweekTables", column.label));
    UiScale::setSortableHeaders(table, labels);
    UiScale::sortAsChosen(table);
    table->horizontalHeader()->setStretchLastSection(false);
    table->resizeColumnsToContents();
    table->horizontalHeader()->setStretchLastSection(true); // anew, for fitting made it narrow
    table->setUpdatesEnabled(true);
}

} // namespace

void clear(QTableWidget *table)
{
    table->clear();
    table->setRowCount(0);
    table->setColumnCount(0);
}

void showTrips(QTableWidget *table, const QList<QStringList> &rows)
{
    table->setUpdatesEnabled(false);
    fill(table, tripColumns, rows, 1); // the id in front has no column of its own
    for (int row = 0; row < table->rowCount(); ++row)
        makeLink(table->item(row, TripNoColumn), rows.at(row).value(0).trimmed().toInt());
    finish(table, tripColumns);
}

void showItems(QTableWidget *table, const QList<QStringList> &rows)
{
    table->setUpdatesEnabled(false);
    fill(table, itemColumns, rows, 0);
    finish(table, itemColumns);
}

} // namespace PayweekTables
