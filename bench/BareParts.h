#pragma once

#include <QSqlDatabase>
#include <QStringList>
#include <QVariantList>

class QTableWidget;
class SqlStatement;

/// What floors are made of: bare statements and plain tables. A statement that fails ends the
/// program, because a floor that did less than it should would flatter nobody.
namespace BareParts {

/// Runs a statement that gives no rows.
void execute(const QSqlDatabase &database, const QString &sql, const QVariantList &values = {});

/// All rows as texts.
QList<QStringList> rowsOf(const QSqlDatabase &database, const QString &sql,
                          const QVariantList &values = {});

/// Reads all rows of a prepared statement as texts, and forgets them.
void readAll(SqlStatement &statement, const QVariantList &values = {});

/// Fills the table with plain items: the first `columns` texts of each row.
void fill(QTableWidget &table, const QList<QStringList> &rows, int columns);

} // namespace BareParts
