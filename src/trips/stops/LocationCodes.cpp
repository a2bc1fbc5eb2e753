#include "trips/stops/LocationCodes.h"

#include "data/DatabaseLocator.h"
#include "locations/LocationsRepository.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

const QString connectionName = u"trips_page_locations_connection"_s;

QString tr(const char *text)
{
    return QCoreApplication::translate("LocationCodes", text);
}

} // namespace

LocationCodes::~LocationCodes()
{
    locationsDatabase.close();
}

bool LocationCodes::refreshConnection(QString &failure)
{
    if (locationsDatabase.isOpen())
        return reloadCodes(failure);
    const QString path =
        DatabaseLocator::findDatabaseNearApplication(DatabaseLocator::locationsFileName);
    if (path.isEmpty()) {
        locationCodes.setList({});
        return true;
    }
    QString error;
    if (!DatabaseLocator::openNamedConnection(locationsDatabase, connectionName, path, error)) {
        locationCodes.setList({});
        failure = tr("Could not open locations DB for stop code dropdown: %1").arg(error);
        return false;
    }
    return reloadCodes(failure);
}

bool LocationCodes::reloadCodes(QString &failure)
{
    QStringList codes;
    QString error;
    const bool loaded = LocationsRepository::loadLocationCodes(locationsDatabase, codes, error);
    locationCodes.setList(loaded ? codes : QStringList());
    if (!loaded)
        failure = tr("Could not load location codes: %1").arg(error);
    return loaded;
}

bool LocationCodes::add(const QString &code, QString &error)
{
    if (!LocationsRepository::addLocationCode(locationsDatabase, code, error))
        return false;
    QStringList codes = locationCodes.list();
    if (!codes.contains(code, Qt::CaseInsensitive)) {
        codes.append(code);
        codes.sort(Qt::CaseInsensitive);
        locationCodes.setList(codes);
    }
    return true;
}
