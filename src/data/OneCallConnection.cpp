#include "data/OneCallConnection.h"

#include "data/DatabaseLocator.h"

OneCallConnection::OneCallConnection(const QString &connectionName, Open open, QString &error)
    : name(connectionName)
    , handle(open(connectionName, error))
{
}

OneCallConnection::OneCallConnection(const QString &connectionName, const QString &path,
                                     QString &error)
    : name(connectionName)
{
    DatabaseLocator::openNamedConnection(handle, name, path, error);
}

OneCallConnection::~OneCallConnection()
{
    if (handle.isValid())
        DatabaseLocator::releaseNamedConnection(handle, name);
}
