#pragma once

#include "support/TestConnection.h"
#include "support/Workspace.h"

/// A second trips file, of a business in which each id means something else: trip 1 of this number
/// with a stop, settlement item 1, and an APR of 5, all in the week of April 18. Gives its path.
inline QString makeBusiness(Workspace &workspace, const QString &fileName, const QString &tripNo)
{
    QString path = workspace.makeTrips(fileName);
    const TestConnection file(path);
    for (const QString &sql :
         {QStringLiteral("INSERT INTO trips (trip_no, payweek) VALUES (?, '04/18/2026')"),
          QStringLiteral("INSERT INTO trip_stops (trip_id, stop_type, location_code) "
                         "VALUES (1, 'shipper', 'Dock of ' || ?)"),
          QStringLiteral("INSERT INTO settlement_non_trip_items "
                         "(settlement_date, kind, name, amount) "
                         "VALUES ('04/18/2026', 'expense', 'Item of ' || ?, 12.5)")})
        file.execute(sql, {tripNo});
    file.execute(QStringLiteral("INSERT INTO settlement_meta (settlement_date, apr) "
                                "VALUES ('04/18/2026', 5)"));
    return path;
}

inline QString makeOtherBusiness(Workspace &workspace)
{
    return makeBusiness(workspace, QStringLiteral("other.db"), QStringLiteral("5500001"));
}
