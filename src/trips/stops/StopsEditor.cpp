#include "trips/stops/StopsEditor.h"

#include "data/DomainRules.h"
#include "trips/TripsRepository.h"
#include "trips/grids/TripContext.h"
#include "trips/grids/TripEditorLayout.h"
#include "trips/stops/StopsGrid.h"

#include <QMessageBox>

#include <utility>

using namespace Qt::StringLiterals;

StopsEditor::StopsEditor(const TripContext &tripContext, QWidget *parent)
    : QGroupBox(parent)
    , context(tripContext)
{
    buildLayout();
    connect(grid, &QTableWidget::itemChanged, this, &StopsEditor::updateStopsSummary);
    connect(grid, &StopsGrid::typeChanged, this, &StopsEditor::updateStopsSummary);
    updateStopsSummary();
}

void StopsEditor::buildLayout()
{
    setTitle(tr("Stops"));
    setObjectName(u"stops"_s);
    TripEditorLayout layout(this);
    layout.addButton(tr("Add Stop Row"), "Add"_L1, &StopsEditor::addStopRow);
    layout.addButton(tr("Remove Selected Stop"), "Remove"_L1, &StopsEditor::removeSelectedStop);
    layout.addButton(tr("Save Stops"), "Save"_L1, &StopsEditor::saveStopsClicked);
    layout.addLabel("Format"_L1,
                    tr("Appointment format: MM/DD/YYYY HH:MM  (example: 04/18/2026 21:56). Use "
                       "Window when the stop has earliest/latest appointment times."));
    grid = layout.addGrid(new StopsGrid(this));
    summary = layout.addLabel("Summary"_L1);
}

void StopsEditor::refreshLocationConnection()
{
    QString failure;
    if (!locations.refreshConnection(failure))
        context.report(failure);
}

void StopsEditor::loadStops(int tripId)
{
    grid->setRowCount(0);
    storedRows.startReading(tripId);
    updateStopsSummary();
    if (!context.tripsDatabase.isOpen() || tripId <= 0)
        return;
    ensureWindowColumns();
    QList<TripRows::StopRow> stops;
    QString error;
    if (!TripRows::loadStops(context.tripsDatabase, tripId, stops, error)) {
        QMessageBox::critical(this, tr("Load Stops Failed"), error);
        return;
    }
    storedRows.finishReading();
    grid->setUpdatesEnabled(false);
    grid->rescaleForStops(); // a new box takes the width that its column has by then
    for (const TripRows::StopRow &stop : std::as_const(stops))
        grid->appendStop(stop, locations.codes());
    grid->setUpdatesEnabled(true);
    updateStopsSummary();
}

// The delete comes before the first row is looked at, so a stop that cannot be saved takes those
// behind it out of the file; the grid holds them for the next save.
void StopsEditor::saveStops(int tripId)
{
    if (!context.tripsDatabase.isOpen() || tripId <= 0
        || !storedRows.allowsSave(this, tr("Save Stops Failed")) || !ensureWindowColumns())
        return;
    TripRows::Writer writer(context.tripsDatabase, TripRows::Table::Stops, tripId);
    QString error;
    if (!writer.deleteAll(error)) {
        QMessageBox::critical(this, tr("Save Stops Failed"), error);
        return;
    }
    for (int row = 0; row < grid->rowCount(); ++row) {
        if (!writeStop(writer, grid->stopAt(row)))
            return;
    }
    updateStopsSummary();
}

bool StopsEditor::writeStop(TripRows::Writer &writer, TripRows::StopRow stop)
{
    if (stop.locationCode.isEmpty() && stop.appointment.isEmpty() && stop.latest.isEmpty())
        return true;
    if (!addLocationCode(stop.locationCode))
        return false;
    if (!storeAppointment(stop.appointment,
                          tr("Earliest appointment must be in MM/DD/YYYY HH:MM format.\n\n"
                             "Example: 04/18/2026 21:56\n\n"
                             "Existing ISO values such as 2026-04-18T21:56:00 are also accepted.")))
        return false;
    if (!stop.hasWindow)
        stop.latest = u""_s;
    if (!storeAppointment(stop.latest,
                          tr("Latest appointment must be in MM/DD/YYYY HH:MM format.\n\n"
                             "Example: 04/18/2026 21:56\n\n"
                             "Existing ISO values such as 2026-04-18T21:56:00 are also accepted.")))
        return false;
    QString error;
    if (!writer.append(stop, error)) {
        QMessageBox::critical(this, tr("Save Stops Failed"), error);
        return false;
    }
    return true;
}

// Turns typed text into the ISO text that is stored. Blank is no appointment and no mistake.
bool StopsEditor::storeAppointment(QString &text, const QString &invalidText)
{
    if (text.isEmpty()) {
        text = u""_s; // a null string would be stored as NULL
        return true;
    }
    const QDateTime time = DomainRules::parseAppointmentDateTime(text);
    if (!time.isValid()) {
        QMessageBox::warning(this, tr("Invalid Appointment"), invalidText);
        return false;
    }
    text = DomainRules::storedAppointmentText(time);
    return true;
}

bool StopsEditor::addLocationCode(const QString &code)
{
    if (code.isEmpty())
        return true;
    refreshLocationConnection();
    if (!locations.isOpen()) {
        QMessageBox::warning(this, tr("Locations Database Not Open"),
                             tr("The stop location code could not be added because locations.db "
                                "is not open:\n\n%1")
                                 .arg(code));
        return false;
    }
    QString error;
    if (!locations.add(code, error)) {
        QMessageBox::critical(this, tr("Save Location Code Failed"), error);
        return false;
    }
    return true;
}

bool StopsEditor::ensureWindowColumns()
{
    QString error;
    if (TripsRepository::ensureStopWindowColumns(context.tripsDatabase, error))
        return true;
    QMessageBox::critical(this, tr("Trip Stop Setup Error"), error);
    return false;
}

QList<TripArithmetic::TripStopTiming> StopsEditor::stopsFromGrid() const
{
    return grid->stopsFromGrid();
}

void StopsEditor::applyScale(const QFont &font, int percent)
{
    grid->applyScale(font, percent);
}

void StopsEditor::addStopRow()
{
    TripRows::StopRow stop;
    stop.order = QString::number(grid->rowCount());
    grid->appendStop(stop, locations.codes());
    updateStopsSummary();
    context.report(tr("Added stop row."));
}

void StopsEditor::removeSelectedStop()
{
    if (grid->currentRow() < 0) {
        QMessageBox::information(this, tr("Remove Stop"), tr("Select a stop row first."));
        return;
    }
    grid->removeRow(grid->currentRow());
    grid->renumber();
    updateStopsSummary();
    context.report(tr("Removed selected stop row."));
}

// The report comes whatever became of the save, which has told of its own failure.
void StopsEditor::saveStopsClicked()
{
    const int tripId = context.currentTripId();
    if (tripId <= 0) {
        QMessageBox::information(this, tr("Save Stops"),
                                 tr("Load or save a trip before saving stops."));
        return;
    }
    saveStops(tripId);
    context.report(tr("Saved stops for current trip."));
}

void StopsEditor::updateStopsSummary()
{
    if (grid->rowCount() == 0) {
        summary->setText(tr("Stops: no rows"));
        return;
    }
    const auto hours = TripArithmetic::computeTripHours(grid->stopsFromGrid(), 0.0,
                                                        TripArithmetic::extraTripHours);
    summary->setText(tr("Stops: Rows %1 | Total Hours %2")
                         .arg(QString::number(grid->rowCount()), TripArithmetic::hoursText(hours)));
}
