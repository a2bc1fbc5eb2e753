#pragma once

#include <QGroupBox>

class QBoxLayout;

/// Where the driver copies the two databases out to a backup and brings a backup in. Each is
/// written to the import log of `trips.db`, where it can be. An import closes all connections to
/// databases, and the program has to be restarted after it.
class DatabaseManagement : public QGroupBox
{
    Q_OBJECT

public:
    explicit DatabaseManagement(QWidget *parent = nullptr);

private:
    /// One of the two databases: what it is called, and where it lies.
    struct Database;
    static Database tripsDatabase();
    static Database locationsDatabase();

    void buildLayout();
    QBoxLayout *buildTripsActions();
    QBoxLayout *buildLocationsActions();

    void exportTripsDatabase();
    void importTripsDatabase();
    void exportLocationsDatabase();
    void importLocationsDatabase();

    void exportDatabase(const Database &database);
    static bool copyOut(const Database &database, const QString &target, QString &error);
    void importDatabase(const Database &database);
    static bool copyIn(const Database &database, const QString &source, QString &error,
                       QString &backup);
    void showImportFailure(const Database &database, const QString &error, const QString &backup);
    bool confirmOverwrite(const QString &path);
    bool confirmImport(const Database &database, const QString &source);
};
