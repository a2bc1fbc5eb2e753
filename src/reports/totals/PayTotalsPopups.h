#pragma once

#include "reports/totals/PayTotalsRecords.h"

class QDialog;
class QWidget;

/// The rows behind a figure of the Totals page, in a dialog of their own. The dialog belongs to the
/// page and lives as long; it shows what it was given.
namespace PayTotalsPopups {

/// Which settlement items to list: those of one line of the table. An empty name is "(blank)".
struct ItemFilter
{
    QString category;
    QString kind;
    QString name;
};

/// The purchases of a type, or all for an empty one. Null if there is none.
QDialog *makeFuelDialog(const FuelTotals &totals, const QString &type, QWidget *page);

/// The items that pass the filter, or all without one. Null if there is none.
QDialog *makeItemsDialog(const NonTripTotals &totals, const ItemFilter *filter, QWidget *page);

} // namespace PayTotalsPopups
