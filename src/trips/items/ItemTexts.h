#pragma once

#include "trips/TripRows.h"

#include <QString>

/// The words in which pay items and cost items differ, and their table.
struct ItemTexts
{
    TripRows::Table table;
    QString objectNamePrefix;
    QString title;
    QString addButton;
    QString removeButton;
    QString saveButton;
    QString noRows;
    /// With the number of rows as %1 and the total as %2.
    QString totalLine;
    QString added;
    QString removed;
    QString removeTitle;
    QString nothingSelected;
    QString loadFailed;
    QString saveFailed;
    QString missingNameTitle;
    QString missingName;
    QString noTrip;
    QString saved;
    QString namesFailed;

    static ItemTexts ofPayItems();
    static ItemTexts ofCostItems();
};
