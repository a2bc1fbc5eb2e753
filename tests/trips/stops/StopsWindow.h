#pragma once

#include "support/TestConnection.h"
#include "support/Workspace.h"
#include "trips/TripsWindow.h"
#include "trips/grids/GridHands.h"
#include "trips/stops/StopsGrid.h"

#include <QCheckBox>
#include <QStyleOptionButton>
#include <QTest>

/// A row of the stops grid as a person reads it: type, code, "window" or blank, earliest, latest,
/// order.
inline QStringList stopRow(const StopsGrid *grid, int row)
{
    const auto text = [grid, row](int column) { return grid->item(row, column)->text(); };
    return {boxAt(grid, row, StopsGrid::TypeColumn)->currentText(),
            boxAt(grid, row, StopsGrid::LocationColumn)->currentText(),
            grid->hasWindow(row) ? QStringLiteral("window") : QString(),
            text(StopsGrid::EarliestColumn),
            text(StopsGrid::LatestColumn),
            text(StopsGrid::OrderColumn)};
}

/// Clicks the box of a check box, beside which it does not listen.
inline void clicksCheckBox(QCheckBox *box)
{
    QCoreApplication::processEvents(); // the grid lays its boxes out late
    QStyleOptionButton option;
    option.initFrom(box);
    const QRect square = box->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, box);
    QTest::mouseClick(box, Qt::LeftButton, {}, square.center());
}

/// The Trips page before a person who works on the stops.
class StopsWindow : public TripsWindow
{
public:
    using TripsWindow::TripsWindow;

    [[nodiscard]] StopsGrid *grid() const { return named<StopsGrid>("stopsGrid"); }
    [[nodiscard]] QString summary() const { return named<QLabel>("stopsSummary")->text(); }
    [[nodiscard]] QComboBox *typeBox(int row) const
    {
        return boxAt(grid(), row, StopsGrid::TypeColumn);
    }
    [[nodiscard]] QComboBox *codeBox(int row) const
    {
        return boxAt(grid(), row, StopsGrid::LocationColumn);
    }
    [[nodiscard]] QTableWidgetItem *latest(int row) const
    {
        return grid()->item(row, StopsGrid::LatestColumn);
    }

    [[nodiscard]] QList<QStringList> stops() const
    {
        QList<QStringList> rows;
        for (int row = 0; row < grid()->rowCount(); ++row)
            rows.append(stopRow(grid(), row));
        return rows;
    }

    void choosesType(int row, const QString &type) const { Person::chooses(typeBox(row), type); }
    void typesCode(int row, const QString &code) const
    {
        Person::types(codeBox(row)->lineEdit(), code);
    }
    void clicksWindow(int row) const
    {
        clicksCheckBox(qobject_cast<QCheckBox *>(grid()->cellWidget(row, StopsGrid::WindowColumn)));
    }
    void typesEarliest(int row, const QString &time) const
    {
        typesIntoCell(grid(), row, StopsGrid::EarliestColumn, time);
    }
    void typesLatest(int row, const QString &time) const
    {
        typesIntoCell(grid(), row, StopsGrid::LatestColumn, time);
    }
    void typesOrder(int row, const QString &order) const
    {
        typesIntoCell(grid(), row, StopsGrid::OrderColumn, order);
    }

    /// Adds a row and fills it; a blank code or time is not typed.
    void addsStop(const QString &type, const QString &code, const QString &earliest) const
    {
        clicks(QStringLiteral("Add Stop Row"));
        const int row = grid()->rowCount() - 1;
        choosesType(row, type);
        if (!code.isEmpty())
            typesCode(row, code);
        if (!earliest.isEmpty())
            typesEarliest(row, earliest);
    }
    void savesStops() const { clicks(QStringLiteral("Save Stops")); }
};

/// What trips.db holds of stops: trip, type, code, earliest, order, window and latest, as entered.
inline QList<QStringList> storedStops(const Workspace &workspace)
{
    return workspace.rows(
        QStringLiteral("SELECT trip_id, stop_type, location_code, appt, stop_order, "
                       "has_appointment_window, appt_latest FROM trip_stops ORDER BY id"));
}

/// The codes that locations.db holds, as entered, with commas between them.
inline QString storedCodes(const Workspace &workspace)
{
    const TestConnection locations(workspace.path(QStringLiteral("locations.db")));
    return locations
        .value(QStringLiteral("SELECT COALESCE(GROUP_CONCAT(code, ','), '') "
                              "FROM (SELECT code FROM locations ORDER BY rowid)"))
        .toString();
}

/// Makes locations.db with these codes.
inline void makeCodes(Workspace &workspace, const QStringList &codes)
{
    const TestConnection locations(workspace.makeLocations());
    for (const QString &code : codes)
        locations.execute(QStringLiteral("INSERT INTO locations (code) VALUES (?)"), {code});
}
