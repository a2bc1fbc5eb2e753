#pragma once

#include "trips/TripColumns.h"
#include "ui/DataTable.h"

/// The list of trips: 15 columns, each sorting by what it means, the newest trip first until a
/// header is clicked. A refill keeps the sort.
class TripList : public DataTable
{
    Q_OBJECT

public:
    /// Pixels at 100 percent and below.
    static constexpr int leastHeight = 110;

    explicit TripList(QWidget *parent = nullptr);

    /// Replaces all rows; a row has the raw texts of the TripColumn columns.
    void showTrips(const QList<QStringList> &rows);

    /// The row that shows the trip, or -1.
    [[nodiscard]] int rowOfTrip(int tripId) const;

    /// The shown texts of a row, or an empty list for a row that is not there.
    [[nodiscard]] QStringList rowTexts(int row) const;

    /// The payweek that a row's trip is paid in, trimmed.
    [[nodiscard]] QString payweekOfRow(int row) const;

private:
    void fill(const QList<QStringList> &rows);
    void refreshArrows();
};
