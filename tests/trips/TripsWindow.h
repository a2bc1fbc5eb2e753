#pragma once

#include "support/DialogRobot.h"
#include "support/Person.h"
#include "trips/TripForm.h"
#include "trips/TripList.h"
#include "trips/TripsPage.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QTableWidget>
#include <QTextEdit>

/// The Trips page in a window, as a person has it before them, and what it told that window.
class TripsWindow
{
public:
    TripsWindow()
        : page(new TripsPage)
    {
        page->statusCallback = [this](const QString &text) { statuses.append(text); };
        page->openPayweekCallback = [this](const QString &week) { openedPayweeks.append(week); };
        window.setCentralWidget(page);
        Person::shows(window);
    }

    /// With the file open and its trips listed; what the page told meanwhile is left out.
    explicit TripsWindow(const QString &path)
        : TripsWindow()
    {
        page->openDatabase(path);
        statuses.clear();
    }
    Q_DISABLE_COPY_MOVE(TripsWindow)

    void clicks(const QString &button) const { Person::clicks(window, button); }
    void clicksTrip(int row) const { Person::clicksCell(list(), row, TripNoColumn); }
    void types(const char *field, const QString &text) const { Person::types(line(field), text); }

    /// Opens a file that is not there, after which none is open.
    void losesItsFile(DialogRobot &robot) const
    {
        robot.expectContaining(DialogRobot::Critical, QStringLiteral("Database Error"),
                               QStringLiteral("unable to open database file"));
        page->openDatabase(QStringLiteral("no such folder/trips.db"));
    }

    [[nodiscard]] TripList *list() const { return named<TripList>("tripList"); }
    [[nodiscard]] QComboBox *filter() const { return named<QComboBox>("payweekFilter"); }
    [[nodiscard]] QLineEdit *line(const char *field) const { return named<QLineEdit>(field); }
    [[nodiscard]] QString details() const { return named<QTextEdit>("tripDetails")->toPlainText(); }

    /// The form from top to bottom: the id, the seven fields, the hours, the net per hour.
    [[nodiscard]] QStringList form() const
    {
        QStringList texts = {named<QLabel>("tripIdLabel")->text()};
        for (const QLineEdit *field : page->findChild<TripForm *>()->findChildren<QLineEdit *>())
            texts.append(field->text());
        return texts << named<QLabel>("tripHoursLabel")->text()
                     << named<QLabel>("netPerHourLabel")->text();
    }

    /// How many stops, pay items, cost items and fuel rows there are in the grids.
    [[nodiscard]] QList<int> rowCounts() const
    {
        QList<int> counts;
        for (const char *grid : {"stopsGrid", "payItemsGrid", "costItemsGrid", "fuelGrid"})
            counts.append(named<QTableWidget>(grid)->rowCount());
        return counts;
    }

    /// Whether the page holds nothing of any trip.
    [[nodiscard]] bool isEmpty() const;

    template <typename Widget>
    [[nodiscard]] Widget *named(const char *name) const
    {
        return page->findChild<Widget *>(QLatin1StringView(name));
    }

    QMainWindow window;
    TripsPage *page;
    QStringList statuses;
    QStringList openedPayweeks;
};

/// The form of a new trip.
inline QStringList emptyForm()
{
    return QStringList({QStringLiteral("(new trip)")}) + QStringList(TripForm::fieldCount, {})
           + QStringList({QStringLiteral("0.00"), QStringLiteral("$0.00")});
}

inline bool TripsWindow::isEmpty() const
{
    return form() == emptyForm() && details().isEmpty() && rowCounts() == QList<int>({0, 0, 0, 0});
}
