#pragma once

#include <QByteArray>
#include <QString>

/// Sets a variable of the environment for as long as it lives.
class EnvironmentValue
{
public:
    EnvironmentValue(const char *variable, const QString &value)
        : name(variable)
        , before(qgetenv(variable))
        , wasSet(qEnvironmentVariableIsSet(variable))
    {
        qputenv(name, value.toLocal8Bit());
    }
    ~EnvironmentValue()
    {
        if (wasSet)
            qputenv(name, before);
        else
            qunsetenv(name);
    }
    Q_DISABLE_COPY_MOVE(EnvironmentValue)

private:
    const char *name;
    QByteArray before;
    bool wasSet;
};
