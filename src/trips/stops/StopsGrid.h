#pragma once

#include "trips/TripArithmetic.h"
#include "trips/TripRows.h"
#include "trips/grids/OfferedTexts.h"
#include "trips/grids/TripGrid.h"

/// The stops of a trip as the driver types them: where, and when or between when. The latest
/// appointment can be typed only where a stop has a window.
class StopsGrid : public TripGrid
{
    Q_OBJECT

public:
    enum GridColumn {
        TypeColumn,
        LocationColumn,
        WindowColumn,
        EarliestColumn,
        LatestColumn,
        OrderColumn
    };

    explicit StopsGrid(QWidget *parent = nullptr);

    /// Appends a stop. Appointments are shown as MM/DD/YYYY HH:MM if they can be read, or else as
    /// they are; a type other than the two shows as "shipper".
    void appendStop(const TripRows::StopRow &stop, const OfferedTexts &codes);

    /// Writes 0, 1, 2 and so on as the order.
    void renumber();

    /// The columns at the saved scale, wide enough for the types at any.
    void rescaleForStops();

    /// A row with its texts trimmed. Without a number in its "Order" that is the row itself.
    [[nodiscard]] TripRows::StopRow stopAt(int row) const;

    [[nodiscard]] bool hasWindow(int row) const;

    /// The stops as the hours of the trip see them.
    [[nodiscard]] QList<TripArithmetic::TripStopTiming> stopsFromGrid() const;

Q_SIGNALS:
    /// A stop's type was chosen anew, which no cell tells of.
    void typeChanged();

private:
    void putType(int row, const QString &type);
    void putWindow(int row, bool hasWindow);
    void followWindow(int row, bool hasWindow);
    void putText(int row, int column, const QString &text);
};
