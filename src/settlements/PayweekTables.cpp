#include "settlements/PayweekTables.h"

#include "app/UiScale.h"
#include "data/MoneyText.h"

#include <QCoreApplication>
#include <QHeaderView>

#include <array>
#include <cmath>
#include <optional>
#include <span>

using namespace Qt::StringLiterals;

namespace PayweekTables {

namespace {

constexpr QColor linkColor(0, 102, 204);

enum class Form { Text, Number, Money, MoneyPerMile, MoneyPerHour };

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

// Files may hold "$1,234.50" or "1.25/mi" where a number belongs; both read as numbers.
std::optional<double> shownNumber(const QString &raw)
{
    QString text = raw.trimmed().remove(u'$').remove(u',');
    for (const auto unit : {"/mi"_L1, "/hr"_L1, "mi"_L1, "hr"_L1})
        text.remove(unit, Qt::CaseInsensitive);
    bool ok = false;
    const double number = text.trimmed().toDouble(&ok);
    return ok && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

QString shownText(Form form, const QString &raw, std::optional<double> number)
{
    if (!number)
        return raw;
    switch (form) {
    case Form::Money:
        return groupedMoneyText(*number);
    case Form::MoneyPerMile:
        return groupedMoneyText(*number) + "/mi"_L1;
    case Form::MoneyPerHour:
        return groupedMoneyText(*number) + "/hr"_L1;
    case Form::Text:
    case Form::Number:
        break;
    }
    return raw;
}

class Cell : public QTableWidgetItem
{
public:
    Cell(Form form, const QString &raw)
        : number(form == Form::Text ? std::nullopt : shownNumber(raw))
    {
        setText(shownText(form, raw, number));
        setData(rawTextRole, raw);
        if (form != Form::Text)
            setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }

    bool operator<(const QTableWidgetItem &other) const override
    {
        const auto *cell = dynamic_cast<const Cell *>(&other);
        if (!cell || (!number && !cell->number))
            return QTableWidgetItem::operator<(other);
        // Text among numbers needs one place: compared with each as text, 9 < 10 < 5x < 9.
        return number && (!cell->number || *number < *cell->number);
    }

private:
    std::optional<double> number;
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
                           new Cell(columns[static_cast<std::size_t>(column)].form,
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
    table->resizeColumnsToContents();
    table->horizontalHeader()->setStretchLastSection(true);
    table->setUpdatesEnabled(true);
}

} // namespace

QTableWidget *makeTable(const QString &objectName, const QString &accessibleName, int minimumHeight,
                        QWidget *parent)
{
    auto *table = new QTableWidget(parent);
    table->setObjectName(objectName);
    table->setAccessibleName(accessibleName);
    table->setSelectionBehavior(QTableWidget::SelectRows);
    table->setSelectionMode(QTableWidget::SingleSelection);
    table->setEditTriggers(QTableWidget::NoEditTriggers);
    table->setTabKeyNavigation(false);
    table->setMinimumHeight(minimumHeight);
    table->verticalHeader()->hide();
    return table;
}

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
