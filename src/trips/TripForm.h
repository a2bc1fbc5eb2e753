#pragma once

#include "trips/TripsRepository.h"

#include <QGroupBox>

#include <array>

class QLabel;
class QLineEdit;

/// The fields of one trip. The label of the loaded id is the only place that says which trip the
/// page is about.
class TripForm : public QGroupBox
{
    Q_OBJECT

public:
    enum Field { TripNo, Payweek, EmptyMiles, LoadedMiles, Linehaul, Fusu, CarrierPercent };
    static constexpr int fieldCount = CarrierPercent + 1;

    explicit TripForm(QWidget *parent = nullptr);

    /// The id of the loaded trip, 0 for a new one.
    [[nodiscard]] int currentTripId() const;
    void setTripId(int id);

    [[nodiscard]] QString text(Field field) const;
    void setText(Field field, const QString &text);

    /// Shows a row of the trip list, as the list shows it.
    void showTrip(const QStringList &row);

    /// What is typed, without the figures that follow from it. Text that is no number is 0.
    [[nodiscard]] TripsRepository::TripRecord trip() const;

    void showHours(const TripArithmetic::TripHoursResult &hours);

    /// Empties the form for a new trip.
    void clear();

    void focusTripNo();

private:
    void buildRows();

    QLabel *tripIdLabel;
    std::array<QLineEdit *, fieldCount> fields = {};
    QLabel *hoursLabel;
    QLabel *netPerHourLabel;
};
