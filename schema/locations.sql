-- A new, empty locations.db. Stops in trips.db refer to a location by its code.

CREATE TABLE locations (
  code TEXT PRIMARY KEY,
  name TEXT,
  street TEXT,
  city TEXT,
  state TEXT,
  zip TEXT,
  lat REAL,
  lon REAL,
  notes TEXT
);
