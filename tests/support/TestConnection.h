#pragma once

#include "data/SqlStatement.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QTest>

/// A connection that a test holds open on a file, as a page does, for as long as it lives. Where
/// another connection stands in its way it fails at once, not after the driver's five seconds.
class TestConnection
{
public:
    explicit TestConnection(const QString &path,
                            const QString &connectionName = QStringLiteral("test"))
        : handle(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connectionName))
    {
        handle.setDatabaseName(path);
        handle.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=0"));
        if (!handle.open())
            QTest::qFail(qPrintable(handle.lastError().text()), __FILE__, __LINE__);
    }
    ~TestConnection()
    {
        const QString name = handle.connectionName();
        handle.close();
        handle = QSqlDatabase();
        QSqlDatabase::removeDatabase(name);
    }
    Q_DISABLE_COPY_MOVE(TestConnection)

    [[nodiscard]] QSqlDatabase &database() { return handle; }
    [[nodiscard]] const QSqlDatabase &database() const { return handle; }

    /// Runs a statement and gives the driver's text, empty if it went well.
    QString tries(const QString &sql, const QVariantList &values = {}) const
    {
        QString error;
        runSql(handle, sql, values, error);
        return error;
    }

    /// Runs a statement that must go well.
    void execute(const QString &sql, const QVariantList &values = {}) const
    {
        const QString error = tries(sql, values);
        if (!error.isEmpty())
            QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    }

    /// The first column of the first row.
    [[nodiscard]] QVariant value(const QString &sql) const
    {
        QVariant result;
        QString error;
        if (!SqlStatement(handle, sql).firstValue({}, result, error))
            QTest::qFail(qPrintable(error), __FILE__, __LINE__);
        return result;
    }

private:
    QSqlDatabase handle;
};
