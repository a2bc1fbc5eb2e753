#pragma once

#include <array>

/// A statement that looks for some rows of a table, and the indexes that it finds them by.
struct IndexedStatement
{
    const char *what;
    const char *sql;
    /// "table index", in the order of the search, with ", " between two.
    const char *searches;
};

// The statements of the program that look for the rows of a trip, a week, a year or an import.
// Absent on purpose: a fund's balance through a week, whose "(? <= 0 OR ...)" no index can serve,
// and the statements that want the whole table.
inline constexpr auto indexedStatements = std::to_array<IndexedStatement>({
    {"stops of a trip",
     R"(SELECT stop_type, location_code, appt, stop_order, COALESCE(has_appointment_window, 0),
               COALESCE(appt_latest, '')
        FROM trip_stops WHERE trip_id = ? ORDER BY stop_order ASC, id ASC)",
     "trip_stops ix_trip_stops_trip"},
    {"stop times of a trip",
     R"(SELECT stop_type, appt, COALESCE(has_appointment_window, 0), COALESCE(appt_latest, '')
        FROM trip_stops WHERE trip_id = ? ORDER BY stop_order ASC, id ASC)",
     "trip_stops ix_trip_stops_trip"},
    {"delete the stops of a trip", "DELETE FROM trip_stops WHERE trip_id = ?",
     "trip_stops ix_trip_stops_trip"},
    {"pay items of a trip",
     "SELECT name, amount FROM trip_pay_items WHERE trip_id = ? ORDER BY id ASC",
     "trip_pay_items ix_trip_pay_items_trip"},
    {"delete the pay items of a trip", "DELETE FROM trip_pay_items WHERE trip_id = ?",
     "trip_pay_items ix_trip_pay_items_trip"},
    {"cost items of a trip",
     "SELECT name, amount FROM trip_cost_items WHERE trip_id = ? ORDER BY id ASC",
     "trip_cost_items ix_trip_cost_items_trip"},
    {"delete the cost items of a trip", "DELETE FROM trip_cost_items WHERE trip_id = ?",
     "trip_cost_items ix_trip_cost_items_trip"},
    {"fuel of a trip",
     R"(SELECT item_type, cost, discount, gallons FROM trip_detail_items
        WHERE trip_id = ? AND LOWER(COALESCE(group_name,'')) = 'fuel' ORDER BY id ASC)",
     "trip_detail_items ix_trip_detail_items_trip_group"},
    {"delete the fuel of a trip",
     R"(DELETE FROM trip_detail_items
        WHERE trip_id = ? AND LOWER(COALESCE(group_name,'')) = 'fuel')",
     "trip_detail_items ix_trip_detail_items_trip_group"},
    {"delete the trailers of a trip", "DELETE FROM trip_trailers WHERE trip_id = ?",
     "trip_trailers ix_trip_trailers_trip"},

    {"trip list of a week",
     R"(SELECT id, trip_no, payweek, empty_miles, loaded_miles, total_miles, linehaul, fusu,
               carrier_pct, total_revenue, total_cost, net_revenue, cpm, trip_hours, net_per_hour
        FROM trips WHERE TRIM(COALESCE(payweek,'')) = ? ORDER BY id DESC)",
     "trips ix_trips_payweek"},
    {"trips of a week",
     R"(SELECT id, trip_no, payweek, total_miles, total_revenue, total_cost, net_revenue, cpm,
               trip_hours, net_per_hour
        FROM trips WHERE TRIM(COALESCE(payweek,'')) = ? ORDER BY id ASC)",
     "trips ix_trips_payweek"},
    {"count the trips of a week", "SELECT COUNT(*) FROM trips WHERE TRIM(COALESCE(payweek,'')) = ?",
     "trips ix_trips_payweek"},
    {"revenue of a week",
     R"(SELECT SUM(CAST(COALESCE(total_revenue,0) AS REAL)) FROM trips
        WHERE TRIM(COALESCE(payweek,'')) = ?)",
     "trips ix_trips_payweek"},
    {"settlement items as the editor lists them",
     R"(SELECT id, settlement_date, kind, name, amount FROM settlement_non_trip_items
        WHERE settlement_date = ? ORDER BY kind ASC, id ASC)",
     "settlement_non_trip_items ix_settlement_items_stored_date"},
    {"settlement items of a week",
     R"(SELECT id, settlement_date, kind, name, amount FROM settlement_non_trip_items
        WHERE TRIM(COALESCE(settlement_date,'')) = ? ORDER BY kind ASC, id ASC)",
     "settlement_non_trip_items ix_settlement_items_date"},
    {"funds of a week",
     R"(SELECT kind, name, SUM(CAST(amount AS REAL)) AS total FROM settlement_non_trip_items
        WHERE TRIM(COALESCE(settlement_date,'')) = ? GROUP BY kind, name)",
     "settlement_non_trip_items ix_settlement_items_date"},
    {"settlement revenue of a week",
     R"(SELECT SUM(CAST(COALESCE(amount,0) AS REAL)) FROM settlement_non_trip_items
        WHERE TRIM(COALESCE(settlement_date,'')) = ?
          AND LOWER(TRIM(COALESCE(kind,''))) = 'revenue')",
     "settlement_non_trip_items ix_settlement_items_date"},
    {"rate of a week",
     R"(SELECT CAST(COALESCE(apr,0) AS REAL) FROM settlement_meta
        WHERE TRIM(COALESCE(settlement_date,'')) = ? LIMIT 1)",
     "settlement_meta ix_settlement_meta_date"},
    {"change the rate of a week",
     "UPDATE settlement_meta SET apr = ? WHERE TRIM(COALESCE(settlement_date,'')) = ?",
     "settlement_meta ix_settlement_meta_date"},
    {"fuel by type in a week",
     R"(SELECT tdi.item_type,
               SUM(CAST(COALESCE(tdi.cost, 0) AS REAL)) AS cost_total,
               SUM(CAST(COALESCE(tdi.discount, 0) AS REAL)) AS discount_total,
               SUM(CAST(COALESCE(tdi.gallons, 0) AS REAL)) AS gallons_total,
               COUNT(*) AS row_count
        FROM trip_detail_items tdi JOIN trips t ON t.id = tdi.trip_id
        WHERE TRIM(COALESCE(t.payweek,'')) = ?
          AND LOWER(TRIM(COALESCE(tdi.group_name,''))) = 'fuel'
        GROUP BY TRIM(COALESCE(tdi.item_type,'')) ORDER BY tdi.item_type COLLATE NOCASE)",
     "t ix_trips_payweek, tdi ix_trip_detail_items_trip_group"},
    {"fuel purchases of a week",
     R"(SELECT TRIM(COALESCE(t.payweek,'')) AS payweek, TRIM(COALESCE(t.trip_no,'')) AS trip_no,
               TRIM(COALESCE(tdi.item_type,'')) AS item_type,
               CAST(COALESCE(tdi.cost,0) AS REAL) AS cost
        FROM trip_detail_items tdi JOIN trips t ON t.id = tdi.trip_id
        WHERE LOWER(TRIM(COALESCE(tdi.group_name,''))) = 'fuel'
          AND TRIM(COALESCE(t.payweek,'')) = ?
        ORDER BY t.payweek ASC, t.trip_no ASC, tdi.id ASC)",
     "t ix_trips_payweek, tdi ix_trip_detail_items_trip_group"},

    {"weeks of a year",
     R"(SELECT DISTINCT TRIM(COALESCE(payweek,'')) AS payweek_value FROM trips
        WHERE SUBSTR(TRIM(COALESCE(payweek,'')), 7, 4) = ? AND TRIM(COALESCE(payweek,'')) <> ''
        ORDER BY payweek_value)",
     "trips ix_trips_payweek_year"},
    {"count the trips of a year",
     "SELECT COUNT(*) FROM trips WHERE SUBSTR(TRIM(COALESCE(payweek,'')), 7, 4) = ?",
     "trips ix_trips_payweek_year"},
    {"miles of a year",
     R"(SELECT SUM(CAST(COALESCE(total_miles,0) AS REAL)) FROM trips
        WHERE SUBSTR(TRIM(COALESCE(payweek,'')), 7, 4) = ?)",
     "trips ix_trips_payweek_year"},
    {"settlement expense of a year",
     R"(SELECT SUM(CAST(COALESCE(amount,0) AS REAL)) FROM settlement_non_trip_items
        WHERE SUBSTR(TRIM(COALESCE(settlement_date,'')), 7, 4) = ?
          AND LOWER(TRIM(COALESCE(kind,''))) = 'expense')",
     "settlement_non_trip_items ix_settlement_items_year"},
    {"settlement items of a year",
     R"(SELECT TRIM(COALESCE(settlement_date,'')) AS settlement_date,
               LOWER(TRIM(COALESCE(kind,''))) AS kind, TRIM(COALESCE(name,'')) AS name,
               CAST(COALESCE(amount,0) AS REAL) AS amount
        FROM settlement_non_trip_items
        WHERE 1=1 AND SUBSTR(TRIM(COALESCE(settlement_date,'')), 7, 4) = ?
        ORDER BY settlement_date ASC, kind ASC, name ASC, id ASC)",
     "settlement_non_trip_items ix_settlement_items_year"},
    {"fuel purchases of a year",
     R"(SELECT TRIM(COALESCE(t.payweek,'')) AS payweek, TRIM(COALESCE(t.trip_no,'')) AS trip_no,
               TRIM(COALESCE(tdi.item_type,'')) AS item_type,
               CAST(COALESCE(tdi.cost,0) AS REAL) AS cost
        FROM trip_detail_items tdi JOIN trips t ON t.id = tdi.trip_id
        WHERE LOWER(TRIM(COALESCE(tdi.group_name,''))) = 'fuel'
          AND SUBSTR(TRIM(COALESCE(t.payweek,'')), 7, 4) = ?
        ORDER BY t.payweek ASC, t.trip_no ASC, tdi.id ASC)",
     "t ix_trips_payweek_year, tdi ix_trip_detail_items_trip_group"},
    {"report of a year",
     R"(SELECT TRIM(COALESCE(payweek,'')) AS pw, SUM(COALESCE(net_revenue,0)) AS net_revenue
        FROM trips WHERE SUBSTR(TRIM(COALESCE(payweek,'')), -4) = ?
        GROUP BY TRIM(COALESCE(payweek,'')) ORDER BY pw)",
     "trips ix_trips_payweek_last_four"},

    {"trip of an imported row", "SELECT id FROM trips WHERE TRIM(COALESCE(trip_no,'')) = ? LIMIT 1",
     "trips ix_trips_trip_no"},
    {"import of the same content",
     R"(SELECT id, created_at, payweek, pdf_name FROM settlement_import_log
        WHERE source_hash = ? AND TRIM(COALESCE(source_hash,'')) <> '' LIMIT 1)",
     "settlement_import_log ix_settlement_import_log_source_hash"},
    {"import of the same file",
     R"(SELECT id, created_at FROM settlement_import_log
        WHERE payweek = ? AND pdf_name = ? LIMIT 1)",
     "settlement_import_log ix_settlement_import_log_pdf_payweek"},
    {"import of the same rows",
     R"(SELECT id, created_at, pdf_name FROM settlement_import_log
        WHERE payweek = ? AND truck_number = ? AND payload_json LIKE ? LIMIT 1)",
     "settlement_import_log ix_settlement_import_log_truck_payweek"},
});
