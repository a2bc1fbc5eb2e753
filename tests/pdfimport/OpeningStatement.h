#pragma once

#include "data/SqlStatement.h"

#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlDriverCreatorBase>
#include <QSqlError>

/// Runs a statement on each connection as soon as it is open, so that a repository meets what its
/// own connection could not be brought to from outside: a limit on the size of the file, foreign
/// keys that are enforced, no patience with others.
///
/// Stands in for the SQLite driver while it lives; connections opened meanwhile must be gone before
/// it is, and only one may be open at a time.
class OpeningStatement
{
public:
    explicit OpeningStatement(const QString &sql)
        : statement(sql)
        , real(QSqlDatabase::addDatabase(sqlite, connectionName))
    {
        QSqlDatabase::registerSqlDriver(sqlite, new Creator(this));
    }
    ~OpeningStatement()
    {
        QSqlDatabase::registerSqlDriver(sqlite, nullptr);
        real = QSqlDatabase();
        QSqlDatabase::removeDatabase(connectionName);
    }
    Q_DISABLE_COPY_MOVE(OpeningStatement)

private:
    class Driver : public QSqlDriver
    {
    public:
        explicit Driver(OpeningStatement *owner)
            : opening(owner)
        {
        }
        bool hasFeature(DriverFeature feature) const override
        {
            return real()->hasFeature(feature);
        }
        bool open(const QString &name, const QString &user, const QString &password,
                  const QString &host, int port, const QString &options) override
        {
            QString error;
            setOpen(real()->open(name, user, password, host, port, options)
                    && runSql(opening->real, opening->statement, {}, error));
            return isOpen();
        }
        void close() override
        {
            real()->close();
            setOpen(false);
        }
        QSqlResult *createResult() const override { return real()->createResult(); }
        bool beginTransaction() override { return told(real()->beginTransaction()); }
        bool commitTransaction() override { return told(real()->commitTransaction()); }
        bool rollbackTransaction() override { return told(real()->rollbackTransaction()); }

    private:
        [[nodiscard]] QSqlDriver *real() const { return opening->real.driver(); }

        bool told(bool done)
        {
            setLastError(real()->lastError());
            return done;
        }

        OpeningStatement *opening;
    };

    class Creator : public QSqlDriverCreatorBase
    {
    public:
        explicit Creator(OpeningStatement *owner)
            : opening(owner)
        {
        }
        [[nodiscard]] QSqlDriver *createObject() const override { return new Driver(opening); }

    private:
        OpeningStatement *opening;
    };

    inline static const QString sqlite = QStringLiteral("QSQLITE");
    inline static const QString connectionName = QStringLiteral("the real driver");
    QString statement;
    QSqlDatabase real;
};
