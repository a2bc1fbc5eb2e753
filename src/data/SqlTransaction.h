#pragma once

#include <QSqlDatabase>
#include <QString>

/// A transaction that rolls back when it goes out of scope without having been committed.
class SqlTransaction
{
public:
    explicit SqlTransaction(const QSqlDatabase &database);
    ~SqlTransaction();
    Q_DISABLE_COPY_MOVE(SqlTransaction)

    /// Begins; on failure returns false with the driver's text in `error`.
    bool begin(QString &error);

    /// Commits; on failure returns false with the driver's text, and the destructor rolls back.
    bool commit(QString &error);

private:
    QSqlDatabase database;
    bool pending = false;
};
