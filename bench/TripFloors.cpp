#include "bench/TripFloors.h"

#include "bench/BareParts.h"
#include "data/SqlStatement.h"

#include <QCheckBox>
#include <QComboBox>
#include <QStringListModel>
#include <QTableWidget>

using namespace Qt::StringLiterals;
using namespace BareParts;

namespace {

constexpr auto selectStops = R"(
SELECT stop_type, location_code, appt, appt_latest, stop_order, has_appointment_window
FROM trip_stops WHERE trip_id = ? ORDER BY stop_order ASC, id ASC)"_L1;

constexpr auto selectItems = R"(
SELECT name, amount FROM %1 WHERE trip_id = ? ORDER BY id ASC)"_L1;

constexpr auto selectFuel = R"(
SELECT item_type, cost, discount, gallons FROM trip_detail_items
WHERE trip_id = ? AND LOWER(COALESCE(group_name,'')) = 'fuel' ORDER BY id ASC)"_L1;

constexpr auto selectCodes = R"(
SELECT code FROM locations WHERE TRIM(COALESCE(code, '')) <> ''
ORDER BY code COLLATE NOCASE)"_L1;

constexpr auto insertCode = R"(
INSERT OR IGNORE INTO locations (code, name, street, city, state, zip, lat, lon, notes)
VALUES (?, '', '', '', '', '', NULL, NULL, ''))"_L1;

constexpr auto selectNames = R"(
SELECT DISTINCT TRIM(COALESCE(name,'')) AS item_name FROM %1
WHERE TRIM(COALESCE(name,'')) <> '' ORDER BY item_name COLLATE NOCASE ASC)"_L1;

constexpr auto insertStop = R"(
INSERT INTO trip_stops (trip_id, stop_type, location_code, appt, appt_latest, stop_order,
  has_appointment_window) VALUES (?, ?, ?, ?, ?, ?, ?))"_L1;

constexpr auto insertItem = "INSERT INTO %1 (trip_id, name, amount) VALUES (?, ?, ?)"_L1;

constexpr auto insertFuel = R"(
INSERT INTO trip_detail_items (trip_id, group_name, item_type, cost, discount, gallons,
  created_at) VALUES (?, 'fuel', ?, ?, ?, ?, datetime('now')))"_L1;

const QStringList itemTables = {u"trip_pay_items"_s, u"trip_cost_items"_s};

void rewrite(const QSqlDatabase &database, int tripId, const QString &table,
             const QList<QStringList> &rows, const QString &insertSql)
{
    QString error;
    execute(database, u"DELETE FROM %1 WHERE trip_id = ?"_s.arg(table), {tripId});
    SqlStatement insert(database, insertSql);
    for (const QStringList &row : rows) {
        QVariantList values = {tripId};
        for (const QString &text : row)
            values.append(text);
        insert.run(values, error);
    }
}

QTableWidget *plainGrid(const QList<QStringList> &rows, QWidget *parent)
{
    auto *table = new QTableWidget(static_cast<int>(rows.size()), 6, parent);
    for (int row = 0; row < table->rowCount(); ++row) {
        const QStringList &texts = rows.at(row);
        for (int column = 0; column < texts.size(); ++column)
            table->setItem(row, column, new QTableWidgetItem(texts.at(column)));
    }
    return table;
}

void putBoxes(QTableWidget *table, int column, const QStringList &offered, bool editable)
{
    auto *model = new QStringListModel(offered, table);
    for (int row = 0; row < table->rowCount(); ++row) {
        auto *box = new QComboBox;
        box->setEditable(editable);
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box->setModel(model);
        box->setCurrentText(table->item(row, column)->text());
        table->setCellWidget(row, column, box);
    }
}

} // namespace

namespace TripFloors {

void load(const QSqlDatabase &trips, int tripId, const QStringList &codes, const QStringList &names,
          QWidget *parent)
{
    QList<QTableWidget *> tables = {plainGrid(rowsOf(trips, selectStops, {tripId}), parent)};
    putBoxes(tables.last(), 0, {u"shipper"_s, u"receiver"_s}, false);
    putBoxes(tables.last(), 1, codes, true);
    for (int row = 0; row < tables.last()->rowCount(); ++row)
        tables.last()->setCellWidget(row, 5, new QCheckBox);
    for (const QString &table : itemTables) {
        const QString sql = QString(selectItems).arg(table);
        tables.append(plainGrid(rowsOf(trips, sql, {tripId}), parent));
        putBoxes(tables.last(), 0, names, true);
    }
    tables.append(plainGrid(rowsOf(trips, selectFuel, {tripId}), parent));
    putBoxes(tables.last(), 0, {u"Truck Fuel"_s, u"Reefer Fuel"_s, u"Def"_s}, false);
    for (QTableWidget *table : std::as_const(tables))
        table->show();
    qDeleteAll(tables);
}

void save(const QSqlDatabase &trips, const QSqlDatabase &locations, int tripId)
{
    const QList<QStringList> stops = rowsOf(trips, selectStops, {tripId});
    for (const QStringList &stop : stops) {
        rowsOf(locations, selectCodes);
        execute(locations, insertCode, {stop.at(1)});
    }
    rewrite(trips, tripId, u"trip_stops"_s, stops, insertStop);
    for (const QString &table : itemTables) {
        rewrite(trips, tripId, table, rowsOf(trips, QString(selectItems).arg(table), {tripId}),
                QString(insertItem).arg(table));
        for (const QString &namesOf : itemTables)
            rowsOf(trips, QString(selectNames).arg(namesOf));
    }
    rewrite(trips, tripId, u"trip_detail_items"_s, rowsOf(trips, selectFuel, {tripId}), insertFuel);
}

} // namespace TripFloors
