-- A new, empty trips.db. The program reads and writes these tables but never creates the file.
-- Money is in dollars, dates of settlements are text in the form MM/DD/YYYY.

CREATE TABLE trips (
  id INTEGER PRIMARY KEY,
  trip_no TEXT,
  payweek TEXT,
  empty_miles REAL,
  loaded_miles REAL,
  total_miles REAL,
  linehaul REAL,
  fusu REAL,
  carrier_pct REAL,
  carrier_make REAL,
  total_revenue REAL,
  total_cost REAL,
  net_revenue REAL,
  cpm REAL,
  trip_hours REAL,
  net_per_hour REAL,
  created_at TEXT
);

CREATE TABLE trip_stops (
  id INTEGER PRIMARY KEY,
  trip_id INTEGER,
  stop_type TEXT,
  location_code TEXT,
  appt TEXT,
  stop_order INTEGER,
  has_appointment_window INTEGER NOT NULL DEFAULT 0,
  appt_latest TEXT NOT NULL DEFAULT ''
);

CREATE TABLE trip_pay_items (
  id INTEGER PRIMARY KEY,
  trip_id INTEGER,
  name TEXT,
  amount REAL
);

CREATE TABLE trip_cost_items (
  id INTEGER PRIMARY KEY,
  trip_id INTEGER,
  name TEXT,
  amount REAL
);

CREATE TABLE trip_detail_items (
  id INTEGER PRIMARY KEY AUTOINCREMENT,
  trip_id INTEGER NOT NULL,
  group_name TEXT NOT NULL DEFAULT '',
  item_type TEXT NOT NULL DEFAULT '',
  cost REAL NOT NULL DEFAULT 0,
  discount REAL NOT NULL DEFAULT 0,
  gallons REAL NOT NULL DEFAULT 0,
  created_at TEXT NOT NULL DEFAULT '',
  FOREIGN KEY(trip_id) REFERENCES trips(id)
);

CREATE TABLE trip_trailers (
  id INTEGER PRIMARY KEY,
  trip_id INTEGER
);

CREATE TABLE settlement_non_trip_items (
  id INTEGER PRIMARY KEY,
  settlement_date TEXT,
  kind TEXT,
  name TEXT,
  amount REAL
);

CREATE TABLE settlement_meta (
  settlement_date TEXT PRIMARY KEY,
  apr REAL
);

CREATE TABLE settlement_import_log (
  id INTEGER PRIMARY KEY AUTOINCREMENT,
  truck_number TEXT NOT NULL DEFAULT '',
  payweek TEXT NOT NULL DEFAULT '',
  pdf_name TEXT NOT NULL DEFAULT '',
  source_hash TEXT NOT NULL DEFAULT '',
  created_at TEXT NOT NULL DEFAULT '',
  import_mode TEXT NOT NULL DEFAULT '',
  counts_json TEXT NOT NULL DEFAULT '',
  payload_json TEXT NOT NULL DEFAULT ''
);

-- The rows of a trip.
CREATE INDEX ix_trip_stops_trip ON trip_stops(trip_id, stop_order);
CREATE INDEX ix_trip_pay_items_trip ON trip_pay_items(trip_id);
CREATE INDEX ix_trip_cost_items_trip ON trip_cost_items(trip_id);
CREATE INDEX ix_trip_detail_items_trip_group ON trip_detail_items(trip_id, group_name);
CREATE INDEX ix_trip_trailers_trip ON trip_trailers(trip_id);

-- The rows of a payweek and of a year. An index serves a statement only if it holds the very
-- expression that the statement compares, so each stands here as the statements spell it.
CREATE INDEX ix_trips_payweek ON trips(TRIM(COALESCE(payweek,'')));
CREATE INDEX ix_trips_payweek_year ON trips(SUBSTR(TRIM(COALESCE(payweek,'')), 7, 4));
CREATE INDEX ix_trips_payweek_last_four ON trips(SUBSTR(TRIM(COALESCE(payweek,'')), -4));
CREATE INDEX ix_settlement_items_date
  ON settlement_non_trip_items(TRIM(COALESCE(settlement_date,'')));
CREATE INDEX ix_settlement_items_year
  ON settlement_non_trip_items(SUBSTR(TRIM(COALESCE(settlement_date,'')), 7, 4));
CREATE INDEX ix_settlement_meta_date ON settlement_meta(TRIM(COALESCE(settlement_date,'')));

-- The editor of a settlement compares the date as it is stored, blanks and all.
CREATE INDEX ix_settlement_items_stored_date ON settlement_non_trip_items(settlement_date, kind);

-- The trips of an imported settlement, and the guards against importing it twice.
CREATE INDEX ix_trips_trip_no ON trips(TRIM(COALESCE(trip_no,'')));
CREATE INDEX ix_settlement_import_log_truck_payweek
  ON settlement_import_log(truck_number, payweek);
CREATE INDEX ix_settlement_import_log_source_hash ON settlement_import_log(source_hash);
CREATE INDEX ix_settlement_import_log_pdf_payweek ON settlement_import_log(payweek, pdf_name);
