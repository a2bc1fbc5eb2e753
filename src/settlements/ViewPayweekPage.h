#pragma once

#include <QSqlDatabase>
#include <QWidget>

#include <functional>

class QComboBox;
class QHBoxLayout;
class QLabel;
class QTableWidget;
class QTextEdit;
class QVBoxLayout;

/// One payweek as a whole: its report, its trips and its settlement items. It writes nothing to
/// the database and keeps nothing between loads but the selected payweek.
class ViewPayweekPage : public QWidget
{
    Q_OBJECT

public:
    explicit ViewPayweekPage(QWidget *parent = nullptr);
    ~ViewPayweekPage() override;

    /// Takes a text for the status line. Each of these may stay empty.
    std::function<void(const QString &text)> statusCallback;
    /// Asks to show a trip on its own page. The id is 0 where a file holds none that can be read.
    std::function<void(int tripId, const QString &tripNo)> openTripCallback;
    /// Tells the payweek, or an empty text for none, as each load of a summary begins.
    std::function<void(const QString &payweek)> payweekChangedCallback;

    /// Opens the file and shows its newest payweek. A file that does not open gives a
    /// "Database Error" box and nothing more.
    void openDatabase(const QString &path);

    /// The path of the file whose payweeks are shown, empty while none is open.
    [[nodiscard]] QString databasePath() const;

    /// Selects the payweek of this text, or else of this date, and shows it. One that is not in
    /// the box leaves the selection and is told in the status line.
    void showPayweek(const QString &payweek);

    /// The selected payweek, trimmed; empty without one.
    [[nodiscard]] QString currentPayweek() const;

private:
    void buildLayout();
    QHBoxLayout *buildActions();
    QLabel *buildNote();
    QTextEdit *buildSummary();
    QTableWidget *addTable(QVBoxLayout *sections, const QString &objectName, const QString &caption,
                           int minimumHeight);
    void connectWidgets();

    void browseForDatabase();
    void refresh();
    void reloadPayweeks();
    [[nodiscard]] int indexOfPayweek(const QString &payweek) const;
    void loadSummary();
    void clearSummary();
    void openTrip(int row, int column);
    void report(const QString &text) const;

    QSqlDatabase database;
    QComboBox *payweekBox = nullptr;
    QLabel *note = nullptr;
    QTextEdit *summary = nullptr;
    QTableWidget *tripTable = nullptr;
    QTableWidget *itemTable = nullptr;
};
