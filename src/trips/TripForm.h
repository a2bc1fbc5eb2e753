#pragma once

#include "trips/TripArithmetic.h"

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

    void showHours(const TripArithmetic::TripHoursResult &hours);

    /// Empties the form for a new trip and gives the trip number the focus.
    void startNewTrip();

private:
    void buildRows();

    QLabel *tripIdLabel;
    std::array<QLineEdit *, fieldCount> fields = {};
    QLabel *hoursLabel;
    QLabel *netPerHourLabel;
};
