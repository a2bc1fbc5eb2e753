#include "ui/UiScale.h"

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTableWidget>
#include <QTextEdit>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace UiScale {

namespace {

constexpr QStringView ascendingArrow = u" \u25B2";
constexpr QStringView descendingArrow = u" \u25BC";
constexpr QStringView sortableArrow = u" \u2195";

const QString scaleKey = u"appearance/uiScalePercent"_s;

// The sort of a table is kept on the table itself, so that it outlives every refill.
constexpr auto baseHeadersProperty = "uiScaleHelperBaseHeaders";
constexpr auto sortColumnProperty = "uiScaleHelperSortColumn";
constexpr auto hasSortColumnProperty = "uiScaleHelperHasSortColumn";
constexpr auto sortAscendingProperty = "uiScaleHelperSortAscending";
constexpr auto connectedProperty = "uiScaleHelperSortArrowConnected";

QSettings settingsStore()
{
    return QSettings(u"Brindle Path LLC"_s, u"Brindlepath Desk"_s);
}

// Whole pixels or points, rounded down, but never less than `least`.
// The product is wide because a damaged settings store may hold any number.
int scaled(int percent, int base, int least)
{
    return static_cast<int>(std::max<qint64>(least, qint64(percent) * base / 100));
}

// Column widths alone round to the nearest pixel.
int scaledWidth(int percent, int base)
{
    return std::max(60, static_cast<int>(std::lround(percent * base / 100.0)));
}

template <typename Widget>
void applyToAll(const QWidget *page, const QFont &font, int minimumHeight)
{
    for (Widget *widget : page->findChildren<Widget *>()) {
        widget->setFont(font);
        if (minimumHeight > 0)
            widget->setMinimumHeight(minimumHeight);
    }
}

QFont titleFont(const QFont &font, int percent)
{
    QFont title = font;
    title.setBold(true);
    title.setPointSize(std::max(10, font.pointSize() + scaled(percent, 4, 1)));
    return title;
}

void setHeaderText(QTableWidget *table, int column, const QString &text)
{
    if (QTableWidgetItem *item = table->horizontalHeaderItem(column))
        item->setText(text);
    else
        table->setHorizontalHeaderItem(column, new QTableWidgetItem(text));
}

void writeArrows(QTableWidget *table, const QStringList &labels, int sortColumn,
                 Qt::SortOrder order)
{
    const int columns = std::min(table->columnCount(), static_cast<int>(labels.size()));
    for (int column = 0; column < columns; ++column) {
        QStringView arrow = sortableArrow;
        if (column == sortColumn)
            arrow = order == Qt::AscendingOrder ? ascendingArrow : descendingArrow;
        setHeaderText(table, column, labels.at(column).trimmed().append(arrow));
    }
}

QStringList collectedHeaders(const QTableWidget *table)
{
    QStringList labels;
    for (int column = 0; column < table->columnCount(); ++column) {
        const QTableWidgetItem *item = table->horizontalHeaderItem(column);
        labels.append(item ? stripSortArrows(item->text()) : QString());
    }
    return labels;
}

Qt::SortOrder chosenOrder(const QTableWidget *table)
{
    return table->property(sortAscendingProperty).toBool() ? Qt::AscendingOrder
                                                           : Qt::DescendingOrder;
}

void sortByClickedColumn(QTableWidget *table, int column)
{
    const bool wasAscendingHere = table->property(hasSortColumnProperty).toBool()
                                  && table->property(sortColumnProperty).toInt() == column
                                  && table->property(sortAscendingProperty).toBool();
    table->setProperty(sortColumnProperty, column);
    table->setProperty(hasSortColumnProperty, true);
    table->setProperty(sortAscendingProperty, !wasAscendingHere);
    sortAsChosen(table);
    refreshSortArrows(table);
}

} // namespace

int clampedPercent(int percent)
{
    return std::clamp(percent, smallestPercent, largestPercent);
}

int savedUiScalePercent()
{
    return settingsStore().value(scaleKey, defaultPercent).toInt();
}

void saveUiScalePercent(int percent)
{
    QSettings settings = settingsStore();
    settings.setValue(scaleKey, clampedPercent(percent));
    settings.sync();
}

int applicationPointSize(int percent)
{
    return scaled(percent, 10, 8);
}

QFont scaledFont(const QWidget *widget, int percent, int basePointSize)
{
    QFont font = widget ? widget->font() : QFont();
    int base = basePointSize >= 1 ? basePointSize : font.pointSize();
    if (base < 1)
        base = 10;
    font.setPointSize(scaled(clampedPercent(percent), base, 8));
    return font;
}

void applyPageScale(QWidget *page, const QFont &font, int percent, const QString &titleText)
{
    const int clamped = clampedPercent(percent);
    const int buttonHeight = scaled(clamped, 32, 28);
    applyToAll<QGroupBox>(page, font, 0);
    applyToAll<QLineEdit>(page, font, scaled(clamped, 30, 26));
    applyToAll<QPushButton>(page, font, buttonHeight);
    applyToAll<QComboBox>(page, font, buttonHeight);
    applyToAll<QTextEdit>(page, font, 0);
    const QFont title = titleFont(font, clamped);
    for (QLabel *label : page->findChildren<QLabel *>()) {
        const bool isTitle = !titleText.isEmpty() && label->text().contains(titleText);
        label->setFont(isTitle ? title : font);
    }
}

void applyTableScale(QTableWidget *table, const QFont &font, int percent)
{
    const int clamped = clampedPercent(percent);
    const int rowHeight = scaled(clamped, 24, 22);
    table->setFont(font);
    table->verticalHeader()->setFont(font);
    table->horizontalHeader()->setFont(font);
    table->verticalHeader()->setDefaultSectionSize(rowHeight);
    table->horizontalHeader()->setMinimumHeight(scaled(clamped, 26, 24));
    for (int row = 0; row < table->rowCount(); ++row) {
        table->setRowHeight(row, rowHeight);
        for (int column = 0; column < table->columnCount(); ++column) {
            if (QTableWidgetItem *item = table->item(row, column))
                item->setFont(font);
        }
    }
}

void applyColumnWidths(QTableWidget *table, const QList<int> &baseWidths, int percent)
{
    if (!table)
        return;
    const int clamped = clampedPercent(percent);
    QHeaderView *header = table->horizontalHeader();
    header->setStretchLastSection(false);
    header->setMinimumSectionSize(scaledWidth(clamped, 48));
    for (int column = 0; column < table->columnCount(); ++column) {
        header->setSectionResizeMode(column, QHeaderView::Interactive);
        if (column < baseWidths.size())
            table->setColumnWidth(column, scaledWidth(clamped, baseWidths.at(column)));
    }
}

void setSortableHeaders(QTableWidget *table, const QStringList &labels)
{
    table->setSortingEnabled(false);
    table->setProperty(baseHeadersProperty, labels);
    table->setHorizontalHeaderLabels(labels);
    table->horizontalHeader()->setSectionsClickable(true);
    table->horizontalHeader()->setSortIndicatorShown(false);
    if (!table->property(connectedProperty).toBool()) {
        QObject::connect(table->horizontalHeader(), &QHeaderView::sectionClicked, table,
                         [table](int column) { sortByClickedColumn(table, column); });
        table->setProperty(connectedProperty, true);
    }
    refreshSortArrows(table);
}

void sortAsChosen(QTableWidget *table)
{
    if (table->property(hasSortColumnProperty).toBool())
        table->sortItems(table->property(sortColumnProperty).toInt(), chosenOrder(table));
}

void refreshSortArrows(QTableWidget *table)
{
    QStringList labels = table->property(baseHeadersProperty).toStringList();
    if (labels.isEmpty()) {
        labels = collectedHeaders(table);
        table->setProperty(baseHeadersProperty, labels);
    }
    const bool sorted = table->property(hasSortColumnProperty).toBool();
    writeArrows(table, labels, sorted ? table->property(sortColumnProperty).toInt() : -1,
                chosenOrder(table));
}

void refreshTripListArrows(QTableWidget *table, const QStringList &labels)
{
    const QHeaderView *header = table->horizontalHeader();
    writeArrows(table, labels, header->sortIndicatorSection(), header->sortIndicatorOrder());
}

QString stripSortArrows(const QString &text)
{
    QString stripped = text;
    for (const QStringView arrow : {ascendingArrow, descendingArrow, sortableArrow})
        stripped.remove(arrow.toString());
    return stripped.trimmed();
}

} // namespace UiScale
