#pragma once

#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlDriverCreatorBase>
#include <QSqlResult>

/// An open connection on `path` that is none of SQLite's, for as long as it lives.
class OtherDriver
{
public:
    explicit OtherDriver(const QString &path)
    {
        QSqlDatabase::registerSqlDriver(driverName, new QSqlDriverCreator<Driver>);
        database = QSqlDatabase::addDatabase(driverName, connectionName);
        database.setDatabaseName(path);
        database.open();
    }
    ~OtherDriver()
    {
        database = QSqlDatabase();
        QSqlDatabase::removeDatabase(connectionName);
        QSqlDatabase::registerSqlDriver(driverName, nullptr);
    }
    Q_DISABLE_COPY_MOVE(OtherDriver)

    [[nodiscard]] bool isOpen() const { return database.isOpen(); }

private:
    class Driver : public QSqlDriver
    {
    public:
        bool hasFeature(DriverFeature) const override { return false; }
        bool open(const QString &, const QString &, const QString &, const QString &, int,
                  const QString &) override
        {
            setOpen(true);
            return true;
        }
        void close() override { setOpen(false); }
        QSqlResult *createResult() const override { return nullptr; }
    };

    inline static const QString driverName = QStringLiteral("OTHER");
    inline static const QString connectionName = QStringLiteral("other driver");
    QSqlDatabase database;
};
