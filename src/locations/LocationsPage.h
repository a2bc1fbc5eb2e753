#pragma once

#include <QSqlDatabase>
#include <QWidget>

#include <functional>

class DataTable;
class LocationForm;
class QBoxLayout;
class QPushButton;

/// Where the driver keeps the places that stops refer to. A location that is selected stays locked
/// until "Edit Location" is pressed, so that a stray key changes no saved row.
class LocationsPage : public QWidget
{
    Q_OBJECT

public:
    explicit LocationsPage(QWidget *parent = nullptr);
    ~LocationsPage() override;

    /// Takes a text for the status line. It may stay empty.
    std::function<void(const QString &text)> statusCallback;

    /// Opens any SQLite file and lists its locations. A file that does not open gives a
    /// "Database Error" box and leaves none open; a blank path gives one too, but leaves the file
    /// that was open.
    void openDatabase(const QString &path);

private:
    void buildLayout();
    QBoxLayout *buildActions();
    QBoxLayout *buildFormActions();
    void buildTable(QWidget *inner);
    void connectWidgets();

    void chooseDatabase();
    void refresh();
    void showRows(const QList<QStringList> &rows);
    void fillCells(const QList<QStringList> &rows);
    void loadSelection();
    void loadRow(int row);
    void newLocation();
    void editLocation();
    void saveLocation();
    bool writeLocation();
    bool confirmFile(const QString &title, const QString &question);
    void selectCode(const QString &code);
    void deleteLocation();

    /// The three states of the page: a location is looked at, changed, or entered.
    enum class Mode { Viewing, Editing, CreatingNew };
    void setMode(Mode newMode);

    bool requireOpenDatabase();
    void report(const QString &text) const;

    QSqlDatabase database;
    QString selectedCode;
    QString fileOfTable; ///< whose locations are listed
    QString fileOfForm;  ///< for which the form was filled; empty where there was none
    Mode mode = Mode::Viewing;
    DataTable *table = nullptr;
    LocationForm *form = nullptr;
    QPushButton *editButton = nullptr;
    QPushButton *saveButton = nullptr;
};
