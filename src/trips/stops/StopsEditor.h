#pragma once

#include "trips/TripArithmetic.h"
#include "trips/TripRows.h"
#include "trips/grids/StoredRowsGuard.h"
#include "trips/stops/LocationCodes.h"

#include <QGroupBox>

class QLabel;
class StopsGrid;
struct TripContext;

/// The stops of the current trip, from which its hours come. A code that is new here comes to
/// exist in `locations.db` when the stop is saved. Nothing else reaches a file before a save.
class StopsEditor : public QGroupBox
{
    Q_OBJECT

public:
    explicit StopsEditor(const TripContext &tripContext, QWidget *parent = nullptr);

    /// Opens `locations.db` if it is not open, and reads its codes. A failure is reported in the
    /// status line only: a trip can be entered without the other file.
    void refreshLocationConnection();

    /// Shows the stops of a trip; none without an open file or for an id below 1.
    void loadStops(int tripId);

    /// Rewrites the stops of a trip in the file. A save that fails tells so, leaves the stops
    /// before the failing one written and the rest gone from the file; the grid keeps all of them.
    /// Stops that could not be read are not rewritten.
    void saveStops(int tripId);

    /// Whether the stops of the trip were read, so that a save may take their place.
    [[nodiscard]] const StoredRowsGuard &guard() const { return storedRows; }

    /// The stops as the hours of the trip see them, saved or not.
    [[nodiscard]] QList<TripArithmetic::TripStopTiming> stopsFromGrid() const;

    void applyScale(const QFont &font, int percent);

private:
    void buildLayout();
    void addStopRow();
    void removeSelectedStop();
    void saveStopsClicked();
    bool ensureWindowColumns();
    bool writeStop(TripRows::Writer &writer, TripRows::StopRow stop);
    bool addLocationCode(const QString &code);
    bool storeAppointment(QString &text, const QString &invalidText);
    void updateStopsSummary();

    const TripContext &context;
    LocationCodes locations;
    StoredRowsGuard storedRows;
    StopsGrid *grid = nullptr;
    QLabel *summary = nullptr;
};
