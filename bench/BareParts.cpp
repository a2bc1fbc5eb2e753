#include "bench/BareParts.h"

#include "data/SqlStatement.h"

#include <QTableWidget>

namespace BareParts {

namespace {

void require(bool succeeded, const QString &error)
{
    if (!succeeded)
        qFatal("%s", qPrintable(error));
}

} // namespace

void execute(const QSqlDatabase &database, const QString &sql, const QVariantList &values)
{
    QString error;
    require(runSql(database, sql, values, error), error);
}

QList<QStringList> rowsOf(const QSqlDatabase &database, const QString &sql,
                          const QVariantList &values)
{
    QList<QStringList> rows;
    QString error;
    const bool succeeded =
        SqlStatement(database, sql).forEachRow(values, error, [&rows](const SqlStatement &row) {
            rows.append(row.texts());
        });
    require(succeeded, error);
    return rows;
}

void readAll(SqlStatement &statement, const QVariantList &values)
{
    QString error;
    const bool succeeded =
        statement.forEachRow(values, error, [](const SqlStatement &row) { (void)row.texts(); });
    require(succeeded, error);
}

void fill(QTableWidget &table, const QList<QStringList> &rows, int columns)
{
    table.setUpdatesEnabled(false);
    table.clear();
    table.setRowCount(static_cast<int>(rows.size()));
    table.setColumnCount(columns);
    for (int row = 0; row < table.rowCount(); ++row) {
        for (int column = 0; column < columns; ++column)
            table.setItem(row, column, new QTableWidgetItem(rows.at(row).at(column)));
    }
    table.setUpdatesEnabled(true);
}

} // namespace BareParts
