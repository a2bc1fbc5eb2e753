#include "data/SqlTransaction.h"

#include <QSqlError>

using namespace Qt::StringLiterals;

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
    if (!database.isOpen()) { // of which the driver says nothing
        error = u"The database is not open."_s;
        return false;
    }
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
