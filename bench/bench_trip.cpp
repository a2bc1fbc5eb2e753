// A trip with 20 stops, 30 items and 30 fuel rows: into the form, and back into the file, beside
// its floors. Run it in a folder with the 20-year sample, to which it adds that trip.

#include "app/BrindlepathApp.h"
#include "bench/BareParts.h"
#include "bench/Floors.h"
#include "bench/Ratio.h"
#include "bench/ShownPage.h"
#include "bench/TripFloors.h"
#include "trips/TripList.h"
#include "trips/TripsPage.h"

#include <QApplication>
#include <QPushButton>
#include <QSqlDatabase>

using namespace Qt::StringLiterals;
using BareParts::execute;

namespace {

constexpr int stopCount = 20;
constexpr int itemCountOfAKind = 15;
constexpr int fuelCount = 30;

QStringList textsOf(const QSqlDatabase &database, const QString &sql)
{
    QStringList texts;
    for (const QStringList &row : BareParts::rowsOf(database, sql))
        texts.append(row.constFirst());
    return texts;
}

int makeBigTrip(const QSqlDatabase &trips, const QStringList &codes)
{
    execute(trips, u"INSERT INTO trips (trip_no, payweek) VALUES ('9000001', '11/20/2026')"_s);
    const int id = textsOf(trips, u"SELECT MAX(id) FROM trips"_s).constFirst().toInt();
    for (int i = 0; i < stopCount; ++i)
        execute(trips,
                u"INSERT INTO trip_stops (trip_id, stop_type, location_code, appt, stop_order) "
                "VALUES (?, ?, ?, '2026-11-10T08:00:00', ?)"_s,
                {id, i == 0 ? u"shipper"_s : u"receiver"_s, codes.at(i), i});
    for (int i = 0; i < itemCountOfAKind; ++i) {
        for (const QString &table : {u"trip_pay_items"_s, u"trip_cost_items"_s})
            execute(trips,
                    u"INSERT INTO %1 (trip_id, name, amount) VALUES (?, ?, 12.5)"_s.arg(table),
                    {id, u"Item %1"_s.arg(i)});
    }
    for (int i = 0; i < fuelCount; ++i)
        execute(trips,
                u"INSERT INTO trip_detail_items (trip_id, group_name, item_type, cost, discount, "
                "gallons) VALUES (?, 'fuel', 'Truck Fuel', 400, 25, 100)"_s,
                {id});
    return id;
}

void benchTrip(const BrindlepathApp &window)
{
    const QSqlDatabase trips = QSqlDatabase::database(u"trips_connection"_s);
    const QSqlDatabase locations = QSqlDatabase::database(u"trips_page_locations_connection"_s);
    const QStringList codes = textsOf(locations, u"SELECT code FROM locations ORDER BY code"_s);
    const QStringList names = textsOf(trips, u"SELECT DISTINCT name FROM trip_cost_items"_s);
    const int id = makeBigTrip(trips, codes);
    auto *page = window.findChild<TripsPage *>();
    auto *list = page->findChild<TripList *>();
    page->openTripById(id);
    QWidget parent;
    parent.show();
    print(measured(
        u"Loading a trip into the form"_s, 2.0, 25,
        [list] {
            Q_EMIT list->itemSelectionChanged(); // loads the current trip
            QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        },
        [&] { TripFloors::load(trips, id, codes, names, &parent); }));

    auto *save = page->findChild<QPushButton *>(u"saveTripButton"_s);
    QTableWidget plain;
    plain.show();
    print(measured(
        u"Saving a trip"_s, 1.5, 9, [save] { save->click(); },
        [&] {
            execute(trips, u"UPDATE trips SET trip_no = trip_no WHERE id = ?"_s, {id});
            TripFloors::save(trips, locations, id);
            Floors::tripList(trips, plain);
        }));
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    BrindlepathApp window;
    show(window);
    printHeader();
    benchTrip(window);
    return 0;
}
