#pragma once

#include <QSqlDatabase>
#include <QString>

#include <functional>

/// What the Trips page lends to the editors of its grids. It outlives every use that they make
/// of it.
struct TripContext
{
    /// The page's own handle, closed until a file is open.
    const QSqlDatabase &tripsDatabase;
    /// The id of the loaded trip, 0 for a new one.
    std::function<int()> currentTripId;
    /// The text of the trip number field.
    std::function<QString()> tripNo;
    /// Takes a text for the status line.
    std::function<void(const QString &text)> report;
};
