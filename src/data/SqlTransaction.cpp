#include "data/SqlTransaction.h"

#include <QSqlError>

SqlTransaction::SqlTransaction(const QSqlDatabase &openDatabase)
    : database(openDatabase)
{
}

SqlTransaction::~SqlTransaction()
{
    if (pending)
        database.rollback();
}

bool SqlTransaction::begin(QString &error)
{
    error.clear();
    pending = database.transaction();
    if (!pending)
        error = database.lastError().text();
    return pending;
}

bool SqlTransaction::commit(QString &error)
{
    error.clear();
    if (!database.commit()) {
        error = database.lastError().text();
        return false;
    }
    pending = false;
    return true;
}
