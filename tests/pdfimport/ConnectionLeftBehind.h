#pragma once

#include <QSqlDatabase>
#include <QTest>

/// Leaves a connection open on a file, as an earlier run that never closed it has.
inline void leaveBehind(const QString &connection, const QString &path)
{
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
    database.setDatabaseName(path);
    QVERIFY(database.open());
}
