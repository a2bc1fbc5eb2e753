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
    /// One of the two databases, and the words in which the actions speak of it.
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
    void importDatabase(const Database &database);
    bool confirmOverwrite(const QString &path);
    bool confirmImport(const Database &database, const QString &source);
};
