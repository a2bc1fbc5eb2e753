#pragma once

#include "trips/TripArithmetic.h"
#include "trips/TripsRepository.h"

#include <QSqlDatabase>
#include <QWidget>

#include <functional>

class DetailsPane;
class QComboBox;
class QHBoxLayout;
class QVBoxLayout;
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

    /// Opens the file, brings an older one up to date, and lists its trips. A file that does not
    /// open gives a "Database Error" box and nothing more.
    void openDatabase(const QString &path);

    /// Selects the trip in the list and loads it, with the filter lifted if it hides the trip.
    void openTripById(int tripId);

    void applyUiScale(int percent);

private:
    void buildLayout();
    QHBoxLayout *buildActions();
    void connectWidgets();

    void browseForDatabase();
    void bringFileUpToDate();
    void refresh();
    void reloadPayweekFilter();
    void reloadList();

    void clickCell(int row, int column);
    void loadTrip(int row);
    void showTripTitle(const QString &tripNo);
    void startNewTrip();
    void saveTrip();
    [[nodiscard]] TripsRepository::TripRecord tripFromForm() const;
    bool hasRequiredTexts(const TripsRepository::TripRecord &trip);
    bool writeTrip(TripsRepository::TripRecord &trip);
    void deleteTrip();
    bool confirmDelete(const QString &tripName);

    /// What the trip earns and costs beyond linehaul and FUSU, in dollars.
    [[nodiscard]] double payItemTotal(int tripId) const;
    [[nodiscard]] double costItemTotal(int tripId) const;
    [[nodiscard]] TripArithmetic::TripHoursResult hoursOfTrip(int tripId, double net) const;

    bool requireOpenDatabase();
    void report(const QString &text) const;

    QSqlDatabase tripsDatabase;
    QComboBox *payweekFilter = nullptr;
    TripList *list = nullptr;
    TripForm *form = nullptr;
    DetailsPane *details = nullptr;
};
