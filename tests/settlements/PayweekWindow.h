#pragma once

#include "settlements/ViewPayweekPage.h"
#include "support/Person.h"
#include "support/TableReaders.h"

#include <QComboBox>
#include <QLabel>
#include <QMainWindow>
#include <QTableWidget>
#include <QTextEdit>

/// The View Payweek page in a window, as a person has it before them, and what it told that window.
class PayweekWindow
{
public:
    PayweekWindow()
        : page(new ViewPayweekPage)
    {
        page->statusCallback = [this](const QString &text) { statuses.append(text); };
        page->openTripCallback = [this](int id, const QString &number) {
            openedTrips.append({id, number});
        };
        page->payweekChangedCallback = [this](const QString &week) { announced.append(week); };
        window.setCentralWidget(page);
        Person::shows(window);
    }

    /// With the file open and its newest payweek shown; what the page told meanwhile is left out.
    explicit PayweekWindow(const QString &path)
        : PayweekWindow()
    {
        page->openDatabase(path);
        statuses.clear();
        announced.clear();
    }
    Q_DISABLE_COPY_MOVE(PayweekWindow)

    void clicks(const QString &button) const { Person::clicks(window, button); }
    void chooses(const QString &payweek) const { Person::chooses(box(), payweek); }

    [[nodiscard]] QComboBox *box() const { return named<QComboBox>("payweekBox"); }
    [[nodiscard]] QTableWidget *trips() const { return named<QTableWidget>("payweekTrips"); }
    [[nodiscard]] QTableWidget *items() const { return named<QTableWidget>("payweekItems"); }
    [[nodiscard]] QString note() const { return named<QLabel>("payweekNote")->text(); }
    [[nodiscard]] QString summary() const
    {
        return named<QTextEdit>("payweekSummary")->toPlainText();
    }

    /// The lines of the summary that begin with this label, without it.
    [[nodiscard]] QStringList figures(const QString &label) const
    {
        const QString start = QStringLiteral("  ") + label + QStringLiteral(": ");
        QStringList found;
        for (const QString &line : summary().split(u'\n')) {
            if (line.startsWith(start))
                found.append(line.mid(start.size()));
        }
        return found;
    }

    /// The payweeks that the box offers.
    [[nodiscard]] QStringList offered() const { return offeredBy(box()); }

    /// Rows and columns of the trips, then of the items.
    [[nodiscard]] QList<int> tableSizes() const
    {
        return {trips()->rowCount(), trips()->columnCount(), items()->rowCount(),
                items()->columnCount()};
    }

    template <typename Widget>
    [[nodiscard]] Widget *named(const char *name) const
    {
        return page->findChild<Widget *>(QLatin1StringView(name));
    }

    QMainWindow window;
    ViewPayweekPage *page;
    QStringList statuses;
    QStringList announced;
    QList<std::pair<int, QString>> openedTrips;
};

inline const QList<int> clearedTables = {0, 0, 0, 0};
