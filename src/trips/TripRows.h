#pragma once

#include "data/DomainRules.h"
#include "data/SqlStatement.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>

/// The SQL of the rows that hang on a trip, as the grids of the Trips page read and write them.
/// Results are cleared first; on failure a function returns false with the driver's text.
namespace TripRows {

/// A stop as stored: appointments as text, ISO where this program wrote them.
struct StopRow
{
    QString type = {};
    QString locationCode = {};
    QString appointment = {};
    QString order = {};
    bool hasWindow = false;
    QString latest = {};
};

/// A pay or cost item, in dollars.
struct ItemRow
{
    QString name;
    double amount = 0.0;
};

/// A fuel or DEF purchase as stored: dollars, and the gallons' text.
struct FuelRow
{
    QString itemType;
    double cost = 0.0;
    double discount = 0.0;
    QString gallons;
};

/// The tables that a save of a trip rewrites.
enum class Table { Stops, PayItems, CostItems, Fuel };

/// The name of the table in the file.
QString tableName(Table table);

/// The stops of a trip in their order; stops of the same order as they were entered.
bool loadStops(const QSqlDatabase &database, int tripId, QList<StopRow> &stops, QString &error);

/// The items of a trip in `PayItems` or `CostItems`, as they were entered.
bool loadItems(const QSqlDatabase &database, Table table, int tripId, QList<ItemRow> &items,
               QString &error);

/// The fuel and DEF rows of a trip, as they were entered.
bool loadFuel(const QSqlDatabase &database, int tripId, QList<FuelRow> &rows, QString &error);

/// Rewrites the rows of one trip in one table: all of them go, then each comes back by itself.
/// There is no transaction around them, so rows that were written stay when a later one fails.
class Writer
{
public:
    Writer(const QSqlDatabase &connection, Table table, int id);

    /// Fails without a change if the trip itself is not in the file: its rows would hang on none.
    bool deleteAll(QString &error);
    bool append(const StopRow &stop, QString &error);
    bool append(const ItemRow &item, QString &error);
    bool append(const DomainRules::FuelRowValues &row, QString &error);

private:
    SqlStatement trip;
    SqlStatement deletion;
    SqlStatement insertion;
    int tripId;
};

} // namespace TripRows
