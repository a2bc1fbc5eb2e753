#pragma once

#include "reports/totals/PayTotalsPage.h"
#include "reports/totals/TotalsFile.h"
#include "support/Person.h"

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QMainWindow>
#include <QTableWidget>

/// The Totals page in a window, as a person has it before them, and what it told that window.
class TotalsWindow
{
public:
    TotalsWindow()
        : page(new PayTotalsPage)
    {
        page->statusCallback = [this](const QString &text) { statuses.append(text); };
        window.setCentralWidget(page);
        Person::shows(window);
    }

    /// With the file open and its latest year shown; what the page told meanwhile is left out.
    explicit TotalsWindow(const QString &path)
        : TotalsWindow()
    {
        page->openDatabase(path);
        statuses.clear();
    }
    Q_DISABLE_COPY_MOVE(TotalsWindow)

    void clicks(const QString &button) const { Person::clicks(window, button); }
    void choosesYear(const QString &text) const { Person::chooses(years(), text); }
    void choosesPayweek(const QString &text) const { Person::chooses(payweeks(), text); }

    /// Clicks the row of the core or of the fuel table that begins with this label.
    void clicksRow(QTableWidget *table, const QString &label) const
    {
        const QList<QTableWidgetItem *> cells = table->findItems(label, Qt::MatchExactly);
        Person::clicksCell(table, cells.isEmpty() ? -1 : cells.first()->row(), 0);
    }

    [[nodiscard]] QComboBox *years() const { return named<QComboBox>("totalsYear"); }
    [[nodiscard]] QComboBox *payweeks() const { return named<QComboBox>("totalsPayweek"); }
    [[nodiscard]] QTableWidget *core() const { return named<QTableWidget>("coreTotals"); }
    [[nodiscard]] QTableWidget *items() const { return named<QTableWidget>("nonTripTotals"); }
    [[nodiscard]] QTableWidget *fuel() const { return named<QTableWidget>("fuelTotals"); }
    [[nodiscard]] QList<QTableWidget *> tables() const { return {core(), items(), fuel()}; }

    [[nodiscard]] QString file() const { return named<QLabel>("totalsDatabase")->text(); }
    [[nodiscard]] QString scope() const { return named<QLabel>("totalsScope")->text(); }

    /// What stands above the core, the non-trip and the fuel table.
    [[nodiscard]] QStringList summaries() const
    {
        return {named<QLabel>("coreTotalsSummary")->text(),
                named<QLabel>("nonTripTotalsSummary")->text(),
                named<QLabel>("fuelTotalsSummary")->text()};
    }

    /// How many rows the core, the non-trip and the fuel table have.
    [[nodiscard]] QList<int> rowCounts() const
    {
        return {core()->rowCount(), items()->rowCount(), fuel()->rowCount()};
    }

    /// The value beside a metric of the core table.
    [[nodiscard]] QString figure(const QString &metric) const
    {
        const QList<QTableWidgetItem *> cells = core()->findItems(metric, Qt::MatchExactly);
        return cells.isEmpty() ? QString() : core()->item(cells.first()->row(), 1)->text();
    }

    /// The dialogs that the page has opened so far, the latest last.
    [[nodiscard]] QList<QDialog *> dialogs() const { return page->findChildren<QDialog *>(); }

    template <typename Widget>
    [[nodiscard]] Widget *named(const char *name) const
    {
        return page->findChild<Widget *>(QLatin1StringView(name));
    }

    QMainWindow window;
    PayTotalsPage *page;
    QStringList statuses;
};

inline const QString wholeYear = QStringLiteral("All Payweeks (Year Total)");

/// A file with the worked year in it.
struct WorkedFile
{
    WorkedFile() { insertWorkedYear(workspace); }

    Workspace workspace;
    QString path = workspace.makeTrips();
};

/// What a box offers, from top to bottom.
inline QStringList entries(const QComboBox *box)
{
    QStringList texts;
    for (int i = 0; i < box->count(); ++i)
        texts.append(box->itemText(i));
    return texts;
}
