#pragma once

#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlDriverCreatorBase>

/// Lets a single statement of a page fail where no file could: one of several that run the very
/// same SQL. It is SQLite that fails it, for lack of a table.
///
/// Stands in for the SQLite driver while it lives; one connection may be opened meanwhile, and it
/// must be gone before this is.
class FailingStatement
{
public:
    FailingStatement()
        : file(QSqlDatabase::addDatabase(sqlite, QStringLiteral("the page's file")))
        , nothing(QSqlDatabase::addDatabase(sqlite, QStringLiteral("no table at all")))
    {
        nothing.setDatabaseName(QStringLiteral(":memory:"));
        nothing.open();
        QSqlDatabase::registerSqlDriver(sqlite, new Creator(this));
    }
    ~FailingStatement()
    {
        QSqlDatabase::registerSqlDriver(sqlite, nullptr);
        for (QSqlDatabase *database : {&file, &nothing}) {
            const QString name = database->connectionName();
            *database = QSqlDatabase();
            QSqlDatabase::removeDatabase(name);
        }
    }
    Q_DISABLE_COPY_MOVE(FailingStatement)

    /// Lets this many statements pass from now on and fails the one behind them.
    void comesAfter(int statements) { toPass = statements; }

private:
    class Driver : public QSqlDriver
    {
    public:
        explicit Driver(FailingStatement *owner)
            : failing(owner)
        {
        }
        bool hasFeature(DriverFeature feature) const override
        {
            return real()->hasFeature(feature);
        }
        bool open(const QString &name, const QString &user, const QString &password,
                  const QString &host, int port, const QString &options) override
        {
            setOpen(real()->open(name, user, password, host, port, options));
            return isOpen();
        }
        void close() override
        {
            real()->close();
            setOpen(false);
        }
        QSqlResult *createResult() const override
        {
            const bool fails = failing->toPass-- == 0;
            return (fails ? failing->nothing.driver() : real())->createResult();
        }

    private:
        [[nodiscard]] QSqlDriver *real() const { return failing->file.driver(); }

        FailingStatement *failing;
    };

    class Creator : public QSqlDriverCreatorBase
    {
    public:
        explicit Creator(FailingStatement *owner)
            : failing(owner)
        {
        }
        [[nodiscard]] QSqlDriver *createObject() const override { return new Driver(failing); }

    private:
        FailingStatement *failing;
    };

    inline static const QString sqlite = QStringLiteral("QSQLITE");
    QSqlDatabase file;
    QSqlDatabase nothing;
    int toPass = -1;
};
