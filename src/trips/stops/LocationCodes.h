#pragma once

#include "trips/grids/OfferedTexts.h"

#include <QSqlDatabase>
#include <QString>

/// The location codes that a stop may name: those of `locations.db`, on a connection that is kept
/// open for the life of the Trips page.
class LocationCodes
{
public:
    LocationCodes() = default;
    ~LocationCodes();
    Q_DISABLE_COPY_MOVE(LocationCodes)

    /// Reads the codes, after opening the file near the application if it is not open yet. Without
    /// a file there are no codes, and that is no failure; a failure gives a text for the status
    /// line and leaves no codes either.
    bool refreshConnection(QString &failure);

    [[nodiscard]] bool isOpen() const { return locationsDatabase.isOpen(); }
    [[nodiscard]] const OfferedTexts &codes() const { return locationCodes; }

    /// Adds the code to the file if it is new there, and to the codes. On failure returns false
    /// with the driver's text.
    bool add(const QString &code, QString &error);

private:
    bool reloadCodes(QString &failure);

    QSqlDatabase locationsDatabase;
    OfferedTexts locationCodes;
};
