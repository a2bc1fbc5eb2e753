#pragma once

#include "support/surroundings/EnvironmentValue.h"

#include <ctime>
#include <optional>

/// Sets the clock of this process to a zone, such as "America/Chicago", for as long as it lives.
class TimeZone
{
public:
    explicit TimeZone(const QString &zone)
        : variable(std::in_place, "TZ", zone)
    {
        tzset();
    }
    ~TimeZone()
    {
        variable.reset();
        tzset();
    }
    Q_DISABLE_COPY_MOVE(TimeZone)

private:
    std::optional<EnvironmentValue> variable;
};
