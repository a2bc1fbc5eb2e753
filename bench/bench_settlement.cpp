// Edit Settlement and Locations: what a reload takes beside its floor, and what the selection of a
// row costs. Run it in a folder with the 20-year sample, to which it adds 5,000 locations.

#include "bench/BareParts.h"
#include "bench/Ratio.h"
#include "bench/SettlementFloors.h"
#include "bench/ShownPage.h"
#include "data/SqlTransaction.h"
#include "locations/LocationsPage.h"
#include "settlements/EditSettlementPage.h"

#include <QComboBox>
#include <QPushButton>
#include <QSqlDriver>
#include <QTableWidget>
#include <QTextStream>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int locationCount = 5000;
constexpr int rounds = 25;

/// Counts the statements that a connection begins, which Qt itself does not tell.
class StatementCounter
{
public:
    explicit StatementCounter(const QSqlDatabase &database)
        : handle(*static_cast<sqlite3 *const *>(database.driver()->handle().constData()))
    {
        sqlite3_trace_v2(
            handle, SQLITE_TRACE_STMT,
            [](unsigned, void *counter, void *, void *) {
                ++*static_cast<int *>(counter);
                return 0;
            },
            &begun);
    }
    ~StatementCounter() { sqlite3_trace_v2(handle, 0, nullptr, nullptr); }
    Q_DISABLE_COPY_MOVE(StatementCounter)

    int takeCount() { return std::exchange(begun, 0); }

private:
    sqlite3 *handle;
    int begun = 0;
};

void addLocations(const QSqlDatabase &database)
{
    QString error;
    SqlTransaction transaction(database);
    transaction.begin(error);
    for (int i = 0; i < locationCount; ++i)
        BareParts::execute(
            database,
            u"INSERT OR IGNORE INTO locations (code, name, street, city, state, zip, lat, lon, "
            "notes) VALUES (?, ?, ?, 'Albuquerque', 'NM', '87105', ?, ?, 'Call one hour out.')"_s,
            {u"DOCK-%1"_s.arg(i), u"Warehouse %1"_s.arg(i), u"%1 Industrial Blvd"_s.arg(100 + i),
             30.0 + i / 1000.0, -110.0 + i / 1000.0});
    if (!transaction.commit(error))
        qFatal("%s", qPrintable(error));
}

// A refresh shows that the counter counts.
void benchSelection(const QString &page, const QSqlDatabase &database, QTableWidget *table,
                    QPushButton *refresh)
{
    StatementCounter statements(database);
    refresh->click();
    const int ofRefresh = statements.takeCount();
    QList<double> times;
    for (int round = 0; round < rounds; ++round)
        times.append(millisecondsOf([table, round] { table->selectRow(round % 2); }));
    QTextStream(stdout)
        << u"Selecting a row on %1 | %2 ms | %3 statements for %4 rows (a refresh: %5)\n"_s
               .arg(page)
               .arg(median(times), 0, 'f', 2)
               .arg(statements.takeCount())
               .arg(rounds)
               .arg(ofRefresh);
}

void benchEditSettlement(const BrindlepathApp &window)
{
    auto *page = shownPage<EditSettlementPage>(window);
    auto *box = page->findChild<QComboBox *>(u"settlementPayweekBox"_s);
    auto *refresh = page->findChild<QPushButton *>(u"refreshSettlementButton"_s);
    const QSqlDatabase trips = QSqlDatabase::database(u"settlement_trips_connection"_s);
    const QString payweek = box->itemText(1);
    QTableWidget plain;
    plain.show();
    print(measured(
        u"Edit Settlement, a payweek chosen"_s, 1.5, rounds,
        [box, payweek] { box->setCurrentText(payweek); },
        [&] { SettlementFloors::payweek(trips, payweek, plain); },
        [box] { box->setCurrentIndex(0); }));
    box->setCurrentText(payweek);
    print(measured(
        u"Edit Settlement, Refresh"_s, 1.5, rounds, [refresh] { refresh->click(); },
        [&] {
            SettlementFloors::payweeks(trips);
            SettlementFloors::payweek(trips, payweek, plain);
        }));
    benchSelection(u"Edit Settlement"_s, trips, page->findChild<QTableWidget *>(), refresh);
}

void benchLocations(const BrindlepathApp &window)
{
    auto *page = shownPage<LocationsPage>(window);
    auto *refresh = page->findChild<QPushButton *>(u"refreshLocationsButton"_s);
    const QSqlDatabase database = QSqlDatabase::database(u"locations_connection"_s);
    addLocations(database);
    QTableWidget plain;
    plain.resize(1280, 400);
    plain.show();
    print(measured(
        u"Refresh of 5,000 locations"_s, 1.3, rounds, [refresh] { refresh->click(); },
        [&] { SettlementFloors::locations(database, plain); }));
    benchSelection(u"Locations"_s, database, page->findChild<QTableWidget *>(), refresh);
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    BrindlepathApp window;
    show(window);
    printHeader();
    benchEditSettlement(window);
    benchLocations(window);
    return 0;
}
