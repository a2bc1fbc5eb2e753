#pragma once

#include <QSqlDatabase>
#include <QString>
#include <QStringList>

/// The SQL of `locations.db`, on a connection that the caller holds open. A function returns false
/// with the driver's text in `error`, or with "Locations database is not open.", and clears
/// `error` where it succeeds. Nothing here runs in a transaction.
namespace LocationsRepository {

/// The texts of a location, in their order. Latitude and longitude are degrees; blank is unknown.
enum LocationField { Code, Name, Street, City, State, Zip, Latitude, Longitude, Notes };
inline constexpr int locationFieldCount = Notes + 1;

/// All locations by code, ignoring case, each with the nine texts of LocationField.
bool loadLocations(const QSqlDatabase &database, QList<QStringList> &rows, QString &error);

/// The codes that are not blank, trimmed, in the same order.
bool loadLocationCodes(const QSqlDatabase &database, QStringList &codes, QString &error);

/// Inserts the location, or overwrites the one that has its code. All nine texts are trimmed; a
/// degree that is no number is stored as 0.
bool saveLocation(const QSqlDatabase &database, const QStringList &location, QString &error);

/// Rewrites the location that has `oldCode`, its code included. A location that is gone comes back
/// as a new one, and so does one with a blank `oldCode`. A blank new code gives
/// "Location code is required."; that of another location gives the driver's text.
bool updateLocation(const QSqlDatabase &database, const QString &oldCode,
                    const QStringList &location, QString &error);

/// Deletes the location with this code. That there is none is no failure.
bool removeLocation(const QSqlDatabase &database, const QString &code, QString &error);

/// Adds a location of which only the code is known; one that is there already stays as it is.
bool addLocationCode(const QSqlDatabase &database, const QString &code, QString &error);

} // namespace LocationsRepository
