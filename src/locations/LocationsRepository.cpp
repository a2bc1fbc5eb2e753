#include "locations/LocationsRepository.h"

#include "data/SqlStatement.h"

using namespace Qt::StringLiterals;

namespace LocationsRepository {

namespace {

constexpr auto selectLocations = R"(
SELECT code, name, street, city, state, zip, lat, lon, notes
FROM locations
ORDER BY code COLLATE NOCASE)"_L1;

constexpr auto selectCodes = R"(
SELECT code
FROM locations
WHERE TRIM(COALESCE(code, '')) <> ''
ORDER BY code COLLATE NOCASE)"_L1;

constexpr auto upsertLocation = R"(
INSERT INTO locations (code, name, street, city, state, zip, lat, lon, notes)
VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)
ON CONFLICT(code) DO UPDATE
SET name = excluded.name, street = excluded.street, city = excluded.city, state = excluded.state,
    zip = excluded.zip, lat = excluded.lat, lon = excluded.lon, notes = excluded.notes)"_L1;

constexpr auto updateByCode = R"(
UPDATE locations
SET code = ?, name = ?, street = ?, city = ?, state = ?, zip = ?, lat = ?, lon = ?, notes = ?
WHERE code = ?)"_L1;

constexpr auto deleteByCode = R"(
DELETE FROM locations
WHERE code = ?)"_L1;

constexpr auto insertCode = R"(
INSERT OR IGNORE INTO locations (code, name, street, city, state, zip, lat, lon, notes)
VALUES (?, '', '', '', '', '', NULL, NULL, ''))"_L1;

bool isOpen(const QSqlDatabase &database, QString &error)
{
    error = database.isOpen() ? QString() : u"Locations database is not open."_s;
    return error.isEmpty();
}

QVariant boundValue(int field, const QString &text)
{
    const QString trimmed = text.trimmed();
    if (field != Latitude && field != Longitude)
        return trimmed;
    return trimmed.isEmpty() ? QVariant() : QVariant(trimmed.toDouble());
}

QVariantList boundValues(const QStringList &location)
{
    QVariantList values;
    for (int field = 0; field < locationFieldCount; ++field)
        values.append(boundValue(field, location.value(field)));
    return values;
}

} // namespace

bool loadLocations(const QSqlDatabase &database, QList<QStringList> &rows, QString &error)
{
    rows.clear();
    return isOpen(database, error)
           && SqlStatement(database, selectLocations)
                  .forEachRow({}, error,
                              [&rows](const SqlStatement &row) { rows.append(row.texts()); });
}

bool loadLocationCodes(const QSqlDatabase &database, QStringList &codes, QString &error)
{
    codes.clear();
    return isOpen(database, error)
           && SqlStatement(database, selectCodes)
                  .forEachRow({}, error, [&codes](const SqlStatement &row) {
                      const QString code = row.text(0).trimmed();
                      if (!code.isEmpty())
                          codes.append(code);
                  });
}

bool saveLocation(const QSqlDatabase &database, const QStringList &location, QString &error)
{
    return isOpen(database, error)
           && runSql(database, upsertLocation, boundValues(location), error);
}

bool updateLocation(const QSqlDatabase &database, const QString &oldCode,
                    const QStringList &location, QString &error)
{
    if (!isOpen(database, error))
        return false;
    const QString code = oldCode.trimmed();
    if (code.isEmpty())
        return saveLocation(database, location, error);
    if (location.value(Code).trimmed().isEmpty()) {
        error = u"Location code is required."_s;
        return false;
    }
    SqlStatement update(database, updateByCode);
    if (!update.run(boundValues(location) << code, error))
        return false;
    return update.rowsAffected() > 0 || saveLocation(database, location, error);
}

bool removeLocation(const QSqlDatabase &database, const QString &code, QString &error)
{
    return isOpen(database, error) && runSql(database, deleteByCode, {code.trimmed()}, error);
}

bool addLocationCode(const QSqlDatabase &database, const QString &code, QString &error)
{
    return isOpen(database, error) && runSql(database, insertCode, {code}, error);
}

} // namespace LocationsRepository
