#pragma once

#include "reports/totals/PayTotalsRecords.h"

#include <QSqlDatabase>
#include <QWidget>

#include <functional>

class QBoxLayout;
class QComboBox;
class QLabel;
class TotalsSection;
class TotalsTable;

/// Totals of a year or of one payweek: what trips and settlements come to, the settlement items
/// that belong to no trip, and what fuel and DEF cost a gallon. A click on a figure shows it week
/// by week. The page only reads, and shows what it read last until it is refreshed.
class PayTotalsPage : public QWidget
{
    Q_OBJECT

public:
    /// Opens no file.
    explicit PayTotalsPage(QWidget *parent = nullptr);
    ~PayTotalsPage() override;

    /// Takes a text for the status line. It may stay empty.
    std::function<void(const QString &text)> statusCallback;

    /// Opens the file and shows its latest year. A file that does not open gives a
    /// "Database Error" box, and the figures stand as they were.
    void openDatabase(const QString &path);

    /// Sizes the page; a percentage outside of 75..175 counts as its nearer end.
    void applyUiScale(int percent);

private:
    void buildLayout();
    QBoxLayout *buildSelectors();
    QWidget *buildCoreSection();
    QWidget *buildNonTripSection();
    QWidget *buildFuelSection();
    void connectWidgets();

    void browseForDatabase();
    void reloadYears();
    void reloadPayweeks();
    void refreshTotals();
    void showNoTotals();
    void refreshCoreTotals(const QString &scope);
    void refreshNonTripTotals(const QString &scope);
    void refreshFuelTotals(const QString &scope);
    [[nodiscard]] NonTripTotals loadNonTripTotals() const;

    void openFuelBreakdown(const QString &typeFilter);
    void openAllFuelBreakdown();
    void openNonTripBreakdown(int row);
    void openAllNonTripBreakdown();
    void openCoreWeeklyBreakdown(int row);
    void openFuelWeeklyBreakdown(int row);
    void openWeeklyBreakdown(const QString &label, const QString &key, const QString &boxTitle,
                             const QString &noData);

    [[nodiscard]] QString selectedYear() const;
    [[nodiscard]] QString selectedPayweekKey() const;
    [[nodiscard]] QString scopeText() const;
    void report(const QString &text) const;

    QSqlDatabase tripsDatabase;
    QComboBox *yearCombo = nullptr;
    QComboBox *payweekCombo = nullptr;
    QLabel *databaseLabel = nullptr;
    QLabel *scopeLabel = nullptr;
    TotalsSection *coreSection = nullptr;
    TotalsSection *nonTripSection = nullptr;
    TotalsSection *fuelSection = nullptr;
    TotalsTable *coreTable = nullptr;
    TotalsTable *nonTripTable = nullptr;
    TotalsTable *fuelTable = nullptr;
    FuelTotals currentFuelTotals;
    NonTripTotals currentNonTripTotals;
};
