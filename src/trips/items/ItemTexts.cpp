#include "trips/items/ItemTexts.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("ItemTexts", text);
}

} // namespace

ItemTexts ItemTexts::ofPayItems()
{
    return {
        .table = TripRows::Table::PayItems,
        .objectNamePrefix = u"payItem"_s,
        .title = tr("Pay Items"),
        .addButton = tr("Add Pay Item Row"),
        .removeButton = tr("Remove Selected Pay Item"),
        .saveButton = tr("Save Pay Items"),
        .noRows = tr("Pay totals: no rows"),
        .totalLine = tr("Pay totals: Rows %1 | Total Pay %2"),
        .added = tr("Added pay item row."),
        .removed = tr("Removed selected pay item row."),
        .removeTitle = tr("Remove Pay Item"),
        .nothingSelected = tr("Select a pay item row first."),
        .loadFailed = tr("Load Pay Items Failed"),
        .saveFailed = tr("Save Pay Items Failed"),
        .missingNameTitle = tr("Pay Item Missing Name"),
        .missingName =
            tr("A pay item row has an amount but no name. Add a name or remove the row."),
        .noTrip = tr("Load or save a trip before saving pay items."),
        .saved = tr("Saved pay items for current trip."),
        .namesFailed = tr("Pay Item Name Query Error"),
    };
}

ItemTexts ItemTexts::ofCostItems()
{
    return {
        .table = TripRows::Table::CostItems,
        .objectNamePrefix = u"costItem"_s,
        .title = tr("Cost Items"),
        .addButton = tr("Add Cost Item Row"),
        .removeButton = tr("Remove Selected Cost Item"),
        .saveButton = tr("Save Cost Items"),
        .noRows = tr("Cost totals: no rows"),
        .totalLine = tr("Cost totals: Rows %1 | Total Cost %2"),
        .added = tr("Added cost item row."),
        .removed = tr("Removed selected cost item row."),
        .removeTitle = tr("Remove Cost Item"),
        .nothingSelected = tr("Select a cost item row first."),
        .loadFailed = tr("Load Cost Items Failed"),
        .saveFailed = tr("Save Cost Items Failed"),
        .missingNameTitle = tr("Cost Item Missing Name"),
        .missingName =
            tr("A cost item row has an amount but no name. Add a name or remove the row."),
        .noTrip = tr("Load or save a trip before saving cost items."),
        .saved = tr("Saved cost items for current trip."),
        .namesFailed = tr("Cost Item Name Query Error"),
    };
}
