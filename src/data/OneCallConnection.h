#pragma once

#include <QSqlDatabase>
#include <QString>

/// A connection for the length of one call, gone from the registry on every way out of the scope.
/// Statements on it must die first, so declare it before them.
class OneCallConnection
{
public:
    /// How a connection comes to be; one of DatabaseLocator's open...Connection functions.
    using Open = QSqlDatabase (*)(const QString &connectionName, QString &error);

    /// Opens at once; without a connection the reason is in `error`. A name whose open failed stays
    /// registered until the next call replaces it.
    OneCallConnection(const QString &connectionName, Open open, QString &error);

    /// Opens the file at `path` at once; without a connection the reason is in `error`. A name
    /// whose open failed goes with the scope, as any other.
    OneCallConnection(const QString &connectionName, const QString &path, QString &error);
    ~OneCallConnection();
    Q_DISABLE_COPY_MOVE(OneCallConnection)

    [[nodiscard]] bool isOpen() const { return handle.isValid() && handle.isOpen(); }
    [[nodiscard]] const QSqlDatabase &database() const { return handle; }

private:
    QString name;
    QSqlDatabase handle;
};
