#pragma once

#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <QVariantList>

/// One prepared SQL statement, and the only place that prepares, binds and executes.
///
/// Prepare it once, outside of a loop, and run it as often as needed. While rows are visited the
/// statement itself stands for the current row. Results are read forward only, and the statement
/// lets go of its file lock as soon as a run is over. It must die before its connection does.
class SqlStatement
{
public:
    /// Prepares `sql`. A statement that cannot be prepared tells so at its first run.
    SqlStatement(const QSqlDatabase &database, const QString &sql);

    /// Runs the statement with the values bound by position. A text without content is bound as an
    /// empty text; NULL is bound by an invalid value.
    /// On failure returns false and puts the driver's text, unchanged, into `error`.
    bool run(const QVariantList &values, QString &error);

    /// Runs the statement and calls `visit(row)` for each row. Rows that came before a failing
    /// step have been visited; the failure itself returns false with the driver's text.
    template <typename Visit>
    bool forEachRow(const QVariantList &values, QString &error, Visit visit)
    {
        if (!run(values, error))
            return false;
        while (query.next())
            visit(std::as_const(*this));
        return finish(error);
    }

    /// Runs the statement and gives the first column of the first row; an invalid value stands
    /// for "no row". The return value tells only whether the statement ran.
    bool firstValue(const QVariantList &values, QVariant &value, QString &error);

    /// SQLite's primary result code (https://sqlite.org/rescode.html) if the statement could not be
    /// prepared or failed before its first row, else 0.
    [[nodiscard]] int errorCode() const;

    /// The current row's value as the file holds it; column 0 is the first.
    [[nodiscard]] QVariant value(int column) const { return query.value(column); }
    [[nodiscard]] QString text(int column) const { return query.value(column).toString(); }
    [[nodiscard]] double number(int column) const { return query.value(column).toDouble(); }
    [[nodiscard]] int integer(int column) const { return query.value(column).toInt(); }

    /// All columns of the current row as text, in the order of the SELECT.
    [[nodiscard]] QStringList texts() const;

    /// The row id of the last INSERT.
    [[nodiscard]] QVariant lastInsertId() const { return query.lastInsertId(); }

    /// How many rows the last INSERT, UPDATE or DELETE touched.
    [[nodiscard]] int rowsAffected() const { return query.numRowsAffected(); }

private:
    bool finish(QString &error);

    QSqlQuery query;
    QString prepareError;
    bool prepared = false;
    int columns = 0;
};

/// Prepares and runs `sql` once, for a statement that gives no rows.
bool runSql(const QSqlDatabase &database, const QString &sql, const QVariantList &values,
            QString &error);
