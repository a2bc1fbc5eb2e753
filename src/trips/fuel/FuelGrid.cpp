#include "trips/fuel/FuelGrid.h"

#include "data/MoneyText.h"
#include "trips/fuel/FuelRowRules.h"
#include "ui/WheelGuard.h"

#include <QComboBox>
#include <QSignalBlocker>

#include <algorithm>

namespace {

constexpr int leastGridHeight = 100;
constexpr int leastTypeLength = 12;

} // namespace

FuelGrid::FuelGrid(QWidget *parent)
    : TripGrid({{tr("Item Type"), 150, 150},
                {tr("Cost"), 120},
                {tr("Discount"), 120},
                {tr("Gallons"), 120},
                {tr("$/Gal"), 120}},
               leastGridHeight, parent)
{
    setFuelEditMode(false);
    connect(this, &QTableWidget::itemChanged, this, &FuelGrid::followEdit);
}

void FuelGrid::setFuelEditMode(bool on)
{
    fuelEditMode = on;
    setEditTriggers(on ? DoubleClicked | EditKeyPressed | AnyKeyPressed : NoEditTriggers);
    for (int row = 0; row < rowCount(); ++row)
        makeEditable(row);
}

void FuelGrid::makeEditable(int row)
{
    const QSignalBlocker blocker(this);
    for (int column = TypeColumn; column <= GallonsColumn; ++column) {
        QTableWidgetItem *cell = item(row, column);
        cell->setFlags(cell->flags().setFlag(Qt::ItemIsEditable, fuelEditMode));
    }
    if (QWidget *box = cellWidget(row, TypeColumn))
        box->setEnabled(fuelEditMode);
}

void FuelGrid::appendRow(const TripRows::FuelRow &fuel)
{
    const QSignalBlocker blocker(this);
    const int row = rowCount();
    insertRow(row);
    putType(row, fuel.itemType);
    putMoney(row, CostColumn, fuel.cost);
    putMoney(row, DiscountColumn, fuel.discount);
    putText(row, GallonsColumn, fuel.gallons);
    putText(row, PriceColumn, {});
    item(row, PriceColumn)->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    makeEditable(row);
    updatePrice(row);
}

// A type that the list does not have shows as its first, and is saved as that.
void FuelGrid::putType(int row, const QString &type)
{
    const QString normalized = DomainRules::normalizeFuelDetailType(type);
    auto *box = new QComboBox;
    box->addItems(DomainRules::fuelDetailTypeList());
    box->setMinimumContentsLength(leastTypeLength);
    box->setCurrentIndex(std::max(0, box->findText(normalized, Qt::MatchFixedString)));
    guardFromWheel(box);
    putBox(row, TypeColumn, box, normalized);
    connect(box, &QComboBox::currentTextChanged, this,
            [this, box](const QString &text) { followType(box, text); });
}

void FuelGrid::putText(int row, int column, const QString &text)
{
    auto *cell = new QTableWidgetItem(text);
    cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setItem(row, column, cell);
}

DomainRules::FuelRowValues FuelGrid::valuesAt(int row) const
{
    return {DomainRules::normalizeFuelDetailType(boxText(row, TypeColumn)), money(row, CostColumn),
            money(row, DiscountColumn), money(row, GallonsColumn)};
}

QList<DomainRules::FuelRowValues> FuelGrid::values() const
{
    QList<DomainRules::FuelRowValues> rows;
    for (int row = 0; row < rowCount(); ++row)
        rows.append(valuesAt(row));
    return rows;
}

void FuelGrid::updatePrices()
{
    for (int row = 0; row < rowCount(); ++row)
        updatePrice(row);
}

void FuelGrid::updatePrice(int row)
{
    const QSignalBlocker blocker(this);
    const auto price = FuelRowRules::pricePerGallon(valuesAt(row));
    item(row, PriceColumn)->setText(price ? pricePerGallonText(*price) : QString());
}

void FuelGrid::followEdit(const QTableWidgetItem *cell)
{
    if (cell->column() == CostColumn || cell->column() == DiscountColumn)
        normalizeMoney(cell->row(), cell->column());
    updatePrice(cell->row());
    Q_EMIT rowEdited();
}

void FuelGrid::followType(const QWidget *box, const QString &type)
{
    const int row = keepBelow(box, TypeColumn, DomainRules::normalizeFuelDetailType(type));
    if (row < 0)
        return;
    updatePrice(row);
    Q_EMIT rowEdited();
}
