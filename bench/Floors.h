#pragma once

#include <QSqlDatabase>
#include <QStringList>

class QTableWidget;

/// What a page cannot do without: the same statements as the product's, each prepared once and run
/// in a bare loop, and a plain table of the same size. The product is measured against these.
namespace Floors {

/// The payweeks of the filter, all trips, the stops of each, into a plain table of 15 columns.
void tripList(const QSqlDatabase &database, QTableWidget &table);

/// All that is read to show `payweek` after the `earlier` ones of its year.
void payweek(const QSqlDatabase &database, const QString &payweek, const QStringList &earlier);

/// The opens and statements of one refresh of the start screen, on the files of this folder.
void startScreen();

} // namespace Floors
