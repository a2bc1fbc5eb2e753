#pragma once

#include "trips/TripArithmetic.h"
#include "trips/TripsRepository.h"
#include "trips/grids/TripContext.h"

#include <QSqlDatabase>
#include <QWidget>

#include <functional>

class DetailsPane;
class FuelEditor;
class ItemEditor;
class PayweekFilter;
class QHBoxLayout;
class QVBoxLayout;
class StopsEditor;
class TripForm;
class TripList;

/// Where the driver enters a trip: the list of trips, the form of one, and its details. It is the
/// only writer of the computed columns of `trips`.
class TripsPage : public QWidget
{
    Q_OBJECT

public:
    explicit TripsPage(QWidget *parent = nullptr);
    ~TripsPage() override;

    /// Takes a text for the status line. Each of these may stay empty.
    std::function<void(const QString &text)> statusCallback;
    /// Shows a payweek, as a click on one asks for.
    std::function<void(const QString &payweek)> openPayweekCallback;

    /// Takes on the saved scale and reports that the page is there.
    void makeReady(int percent);

    /// Opens the `trips.db` near the application; does nothing if there is none.
    void autoOpen();

    /// Opens the file, brings an older one up to date, and lists its trips. The trip that was in
    /// hand is left, saved or not. A file that does not open gives a "Database Error" box and
    /// nothing more.
    void openDatabase(const QString &path);

    /// Selects the trip in the list and loads it, with the filter lifted if it hides the trip.
    void openTripById(int tripId);

    /// The same for a trip of the file at `path`. False if another file is open here: its trip
    /// with this id is another one, and none is loaded.
    bool openTripOfFile(int tripId, const QString &path);

    void applyUiScale(int percent);

private:
    void buildLayout();
    QHBoxLayout *buildActions();
    void buildEditors(QWidget *inner, QVBoxLayout *sections);
    void connectWidgets();

    void browseForDatabase();
    void bringFileUpToDate();
    void loadItemNames();
    void refresh();
    void reloadPayweekFilter();
    void reloadList();

    bool isOpenForTrip(int tripId);
    void findTrip(int tripId);
    void clickCell(int row, int column);
    void loadTrip(int row);
    void loadRows(int tripId);
    void showTripTitle(const QString &tripNo);
    void startNewTrip();
    void clearTrip();
    void leaveTrip();
    void saveTrip();
    bool hasReadRows();
    bool hasRequiredTexts(const TripsRepository::TripRecord &trip);
    bool writeTrip(TripsRepository::TripRecord &trip);
    void saveRows(int tripId);
    void deleteTrip();
    bool confirmDelete(const QString &tripName);

    [[nodiscard]] TripArithmetic::TripHoursResult hoursOfGrid(double net) const;

    bool requireOpenDatabase();
    void report(const QString &text) const;

    QSqlDatabase tripsDatabase;
    bool hasHadFile = false;
    const TripContext context;
    PayweekFilter *payweekFilter = nullptr;
    TripList *list = nullptr;
    TripForm *form = nullptr;
    StopsEditor *stops = nullptr;
    ItemEditor *payItems = nullptr;
    ItemEditor *costItems = nullptr;
    FuelEditor *fuel = nullptr;
    DetailsPane *details = nullptr;
};
