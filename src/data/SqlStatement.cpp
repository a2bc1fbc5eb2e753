#include "data/SqlStatement.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlRecord>

using namespace Qt::StringLiterals;

namespace {

// The driver writes a QString that was never given a text as NULL, which no text column here takes.
QVariant boundValue(const QVariant &value)
{
    const bool isNullText = value.typeId() == QMetaType::QString && value.toString().isNull();
    return isNullText ? QVariant(u""_s) : value;
}

} // namespace

SqlStatement::SqlStatement(const QSqlDatabase &database, const QString &sql)
    : query(database)
{
    // Qt warns on the console about a query on a closed connection, which tells a driver nothing.
    if (!database.isOpen()) {
        prepareError = u"The database is not open."_s;
        return;
    }
    query.setForwardOnly(true);
    prepared = query.prepare(sql);
    if (!prepared)
        prepareError = query.lastError().text();
}

bool SqlStatement::run(const QVariantList &values, QString &error)
{
    error.clear();
    if (!prepared) {
        error = prepareError;
        return false;
    }
    for (qsizetype i = 0; i < values.size(); ++i)
        query.bindValue(static_cast<int>(i), boundValue(values.at(i)));
    if (!query.exec()) {
        error = query.lastError().text();
        query.finish();
        return false;
    }
    columns = query.record().count();
    return true;
}

bool SqlStatement::firstValue(const QVariantList &values, QVariant &value, QString &error)
{
    value.clear();
    if (!run(values, error))
        return false;
    if (query.next())
        value = query.value(0);
    return finish(error);
}

int SqlStatement::errorCode() const
{
    constexpr int primary = 0xff;
    return query.lastError().nativeErrorCode().toInt() & primary;
}

QStringList SqlStatement::texts() const
{
    QStringList row;
    row.reserve(columns);
    for (int column = 0; column < columns; ++column)
        row.append(text(column));
    return row;
}

// QSqlQuery::next() is false both behind the last row and where a step failed, as it does on a
// damaged page in the middle of a file. Only the error tells them apart.
bool SqlStatement::finish(QString &error)
{
    if (query.lastError().isValid())
        error = query.lastError().text();
    query.finish();
    return error.isEmpty();
}

bool runSql(const QSqlDatabase &database, const QString &sql, const QVariantList &values,
            QString &error)
{
    return SqlStatement(database, sql).run(values, error);
}
