#include "reports/totals/PayTotalsPage.h"

#include "data/DatabaseLocator.h"
#include "reports/totals/BreakdownDialog.h"
#include "reports/totals/PayTotalsPopups.h"
#include "reports/totals/PayTotalsRepository.h"
#include "reports/totals/PayTotalsText.h"
#include "reports/totals/TotalsSection.h"
#include "reports/totals/TotalsTable.h"
#include "reports/totals/WeeklyMetrics.h"
#include "ui/PageParts.h"
#include "ui/ShownText.h"
#include "ui/UiScale.h"
#include "ui/WheelGuard.h"

#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

const QString connectionName = u"pay_totals_trips_connection"_s;
constexpr int pointSizeAt100 = 10;

// The page scrolls, so tables of a known length stand in it as a whole.
constexpr int coreTableRows = 19;
constexpr int leastNonTripRows = 6;
constexpr int fuelTableRows = 4;

enum CoreColumn { MetricColumn, CoreValueColumn };
enum NonTripColumn { CategoryColumn, KindColumn, NameColumn, ItemCountColumn };
enum FuelColumn { TypeColumn, PurchaseCountColumn };

QComboBox *makeSelector(const QString &objectName, int leastWidth, QWidget *page)
{
    auto *box = new QComboBox(page);
    box->setObjectName(objectName);
    box->setMinimumWidth(leastWidth);
    guardFromWheel(box);
    return box;
}

} // namespace

PayTotalsPage::PayTotalsPage(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(u"payTotalsPage"_s);
    buildLayout();
    connectWidgets();
}

PayTotalsPage::~PayTotalsPage()
{
    DatabaseLocator::releaseNamedConnection(tripsDatabase, connectionName);
}

void PayTotalsPage::buildLayout()
{
    QWidget *inner = PageParts::makeScrollingContent(this);
    auto *sections = new QVBoxLayout(inner);
    sections->setContentsMargins(12, 12, 12, 12);
    sections->setSpacing(10);
    sections->addWidget(PageParts::makeHeading(tr("Pay Totals"), inner));
    sections->addLayout(buildSelectors());
    databaseLabel = PageParts::makeNote(tr("Database: not opened"), inner);
    databaseLabel->setObjectName(u"totalsDatabase"_s);
    scopeLabel = PageParts::makeNote(tr("Scope: none selected"), inner);
    scopeLabel->setObjectName(u"totalsScope"_s);
    sections->addWidget(databaseLabel);
    sections->addWidget(scopeLabel);
    sections->addWidget(buildCoreSection(), 2);
    sections->addWidget(buildNonTripSection(), 2);
    sections->addWidget(buildFuelSection(), 2);
}

QBoxLayout *PayTotalsPage::buildSelectors()
{
    auto *row = new QHBoxLayout;
    PageParts::addButton(row, tr("Open trips.db"), u"openTotalsButton"_s, this,
                         &PayTotalsPage::browseForDatabase);
    PageParts::addButton(row, tr("Refresh"), u"refreshTotalsButton"_s, this,
                         &PayTotalsPage::refreshTotals);
    row->addSpacing(12);
    yearCombo = makeSelector(u"totalsYear"_s, 110, this);
    payweekCombo = makeSelector(u"totalsPayweek"_s, 150, this);
    row->addWidget(PageParts::makeCaption(tr("Year:"), yearCombo));
    row->addWidget(yearCombo);
    row->addWidget(PageParts::makeCaption(tr("Payweek:"), payweekCombo));
    row->addWidget(payweekCombo);
    row->addStretch();
    return row;
}

QWidget *PayTotalsPage::buildCoreSection()
{
    coreTable = new TotalsTable(u"coreTotals"_s, tr("Core Totals"), {tr("Metric"), tr("Value")},
                                CoreValueColumn, this);
    coreSection = new TotalsSection(
        tr("Core Totals"),
        tr("Open trips.db to calculate Pay Totals.\n\nPhase 25 adds repository-backed fuel "
           "analytics and breakdown popups."),
        coreTable, coreTableRows, this);
    return coreSection;
}

QWidget *PayTotalsPage::buildNonTripSection()
{
    nonTripTable = new TotalsTable(
        u"nonTripTotals"_s, tr("Non-Trip Settlement Totals"),
        {tr("Category"), tr("Kind"), tr("Item Name"), tr("Rows"), tr("Total"), tr("Net Impact")},
        ItemCountColumn, this);
    nonTripSection = new TotalsSection(tr("Non-Trip Settlement Totals"),
                                       tr("Non-trip settlement totals will appear after opening "
                                          "trips.db and selecting a scope."),
                                       nonTripTable, leastNonTripRows, this);
    setTabOrder(PageParts::addButton(
                    nonTripSection->buttonRow(), tr("Open Non-Trip Settlement Breakdown"),
                    u"nonTripBreakdownButton"_s, this, &PayTotalsPage::openAllNonTripBreakdown),
                nonTripTable);
    nonTripSection->buttonRow()->addStretch();
    return nonTripSection;
}

QWidget *PayTotalsPage::buildFuelSection()
{
    fuelTable = new TotalsTable(u"fuelTotals"_s, tr("Fuel / DEF Analytics"),
                                {tr("Type"), tr("Rows"), tr("Cost"), tr("Discount"), tr("Net Cost"),
                                 tr("Gallons"), tr("Avg Net $/Gal")},
                                PurchaseCountColumn, this);
    fuelSection = new TotalsSection(
        tr("Fuel / DEF Analytics"),
        tr("Fuel analytics will appear after opening trips.db and selecting a scope."), fuelTable,
        fuelTableRows, this);
    PageParts::addButton(fuelSection->buttonRow(), tr("Open Fuel Breakdown"),
                         u"fuelBreakdownButton"_s, this, &PayTotalsPage::openAllFuelBreakdown);
    const QList<QStringList> types = {{u"Truck Fuel"_s, u"truckFuelButton"_s},
                                      {u"Reefer Fuel"_s, u"reeferFuelButton"_s},
                                      {u"DEF"_s, u"defButton"_s}};
    for (const QStringList &names : types) {
        const QString &type = names.first();
        auto *button = new QPushButton(type, this);
        button->setObjectName(names.last());
        connect(button, &QPushButton::clicked, this, [this, type] { openFuelBreakdown(type); });
        fuelSection->buttonRow()->addWidget(button);
        setTabOrder(button, fuelTable);
    }
    fuelSection->buttonRow()->addStretch();
    return fuelSection;
}

void PayTotalsPage::connectWidgets()
{
    connect(coreTable, &QTableWidget::cellClicked, this, &PayTotalsPage::openCoreWeeklyBreakdown);
    connect(nonTripTable, &QTableWidget::cellClicked, this, &PayTotalsPage::openNonTripBreakdown);
    connect(fuelTable, &QTableWidget::cellClicked, this, &PayTotalsPage::openFuelWeeklyBreakdown);
    connect(yearCombo, &QComboBox::currentTextChanged, this, [this] {
        reloadPayweeks();
        refreshTotals();
    });
    connect(payweekCombo, &QComboBox::currentTextChanged, this, &PayTotalsPage::refreshTotals);
}

void PayTotalsPage::browseForDatabase()
{
    const QString path = PageParts::askForDatabase(this, tr("Open trips.db"));
    if (!path.isEmpty())
        openDatabase(path);
}

void PayTotalsPage::openDatabase(const QString &path)
{
    QString error;
    if (!DatabaseLocator::openNamedConnection(tripsDatabase, connectionName, path, error)) {
        QMessageBox::critical(this, tr("Database Error"), error);
        return;
    }
    databaseLabel->setText(tr("Database: %1").arg(path));
    report(tr("Pay Totals opened trips DB: %1").arg(path));
    reloadYears();
    refreshTotals();
}

void PayTotalsPage::reloadYears()
{
    {
        const QSignalBlocker quietYears(yearCombo);
        const QSignalBlocker quietPayweeks(payweekCombo);
        yearCombo->clear();
        payweekCombo->clear();
        yearCombo->addItems(PayTotalsRepository::listTotalsYears(tripsDatabase));
        yearCombo->setCurrentIndex(yearCombo->count() - 1);
    }
    reloadPayweeks();
}

void PayTotalsPage::reloadPayweeks()
{
    const QSignalBlocker quiet(payweekCombo);
    payweekCombo->clear();
    if (!tripsDatabase.isOpen() || selectedYear().isEmpty())
        return;
    payweekCombo->addItem(tr("All Payweeks (Year Total)"), QString());
    for (const QString &key :
         PayTotalsRepository::listTotalsPayweeks(tripsDatabase, selectedYear()))
        payweekCombo->addItem(ShownText::shortened(key), key);
}

QString PayTotalsPage::selectedYear() const
{
    return yearCombo->currentText().trimmed();
}

QString PayTotalsPage::selectedPayweekKey() const
{
    return payweekCombo->currentData().toString().trimmed();
}

QString PayTotalsPage::scopeText() const
{
    if (const QString key = selectedPayweekKey(); !key.isEmpty())
        return tr("Payweek %1").arg(ShownText::shortened(key));
    if (const QString year = selectedYear(); !year.isEmpty())
        return tr("Year %1").arg(year);
    return tr("No scope selected");
}

void PayTotalsPage::refreshTotals()
{
    if (!tripsDatabase.isOpen()) {
        showNoTotals();
        return;
    }
    const QString scope = scopeText();
    scopeLabel->setText(tr("Scope: %1").arg(scope));
    refreshCoreTotals(scope);
    refreshNonTripTotals(scope);
    refreshFuelTotals(scope);
    report(tr("Pay Totals refreshed: %1").arg(scope));
}

void PayTotalsPage::showNoTotals()
{
    scopeLabel->setText(tr("Scope: none selected"));
    coreSection->showTotals(tr("Open trips.db to calculate Pay Totals."), {});
    nonTripSection->showTotals(tr("Open trips.db to calculate non-trip settlement totals."), {});
    fuelSection->showTotals(tr("Open trips.db to calculate fuel analytics."), {});
    currentNonTripTotals = {};
    currentFuelTotals = {};
}

void PayTotalsPage::refreshCoreTotals(const QString &scope)
{
    const QString key = selectedPayweekKey();
    const PayTotalsSummary summary =
        key.isEmpty() ? PayTotalsRepository::loadYearTotals(tripsDatabase, selectedYear())
                      : PayTotalsRepository::loadPayweekTotals(tripsDatabase, key);
    coreSection->showTotals(PayTotalsText::coreSummary(scope),
                            PayTotalsText::coreRows(summary, loadNonTripTotals()));
}

NonTripTotals PayTotalsPage::loadNonTripTotals() const
{
    const QString key = selectedPayweekKey();
    return key.isEmpty() ? PayTotalsRepository::loadYearNonTripTotals(tripsDatabase, selectedYear())
                         : PayTotalsRepository::loadPayweekNonTripTotals(tripsDatabase, key);
}

void PayTotalsPage::refreshNonTripTotals(const QString &scope)
{
    currentNonTripTotals = loadNonTripTotals();
    nonTripSection->showTotals(PayTotalsText::nonTripSummary(scope, currentNonTripTotals),
                               PayTotalsText::groupRows(currentNonTripTotals));
}

void PayTotalsPage::refreshFuelTotals(const QString &scope)
{
    const QString key = selectedPayweekKey();
    currentFuelTotals = key.isEmpty()
                            ? PayTotalsRepository::loadYearFuelTotals(tripsDatabase, selectedYear())
                            : PayTotalsRepository::loadPayweekFuelTotals(tripsDatabase, key);
    fuelSection->showTotals(PayTotalsText::fuelSummary(scope, currentFuelTotals),
                            PayTotalsText::fuelRows(currentFuelTotals));
}

void PayTotalsPage::openCoreWeeklyBreakdown(int row)
{
    const QString label = coreTable->text(row, MetricColumn).trimmed();
    openWeeklyBreakdown(label, PayTotalsText::coreMetricKey(label), tr("Pay Totals Breakdown"),
                        tr("No weekly data found for %1."));
}

void PayTotalsPage::openFuelWeeklyBreakdown(int row)
{
    const QString label = fuelTable->text(row, TypeColumn).trimmed();
    openWeeklyBreakdown(label, PayTotalsText::fuelMetricKey(label), tr("Fuel Breakdown"),
                        tr("No weekly fuel data found for %1."));
}

void PayTotalsPage::openWeeklyBreakdown(const QString &label, const QString &key,
                                        const QString &boxTitle, const QString &noData)
{
    if (!tripsDatabase.isOpen()) {
        QMessageBox::information(this, boxTitle, tr("Open trips.db first."));
        return;
    }
    if (key.isEmpty())
        return;
    const QString year = selectedYear();
    if (year.isEmpty()) {
        QMessageBox::information(this, boxTitle, tr("Select a year first."));
        return;
    }
    const QList<ChartPoint> series =
        PayTotalsRepository::loadWeeklyMetric(tripsDatabase, year, key);
    if (series.isEmpty()) {
        QMessageBox::information(this, boxTitle, noData.arg(label));
        return;
    }
    auto *dialog = new BreakdownDialog(
        label + u" — Weekly Breakdown — "_s + year, series,
        WeeklyMetrics::text(PayTotalsRepository::weeklyMetricLabel(key), year, series), this);
    dialog->exec();
}

void PayTotalsPage::openAllFuelBreakdown()
{
    openFuelBreakdown({});
}

void PayTotalsPage::openFuelBreakdown(const QString &typeFilter)
{
    if (currentFuelTotals.rows.isEmpty()) {
        QMessageBox::information(this, tr("Fuel Breakdown"),
                                 tr("No fuel detail rows found for the current scope."));
        return;
    }
    if (QDialog *dialog = PayTotalsPopups::makeFuelDialog(currentFuelTotals, typeFilter, this))
        dialog->exec();
    else
        QMessageBox::information(this, tr("Fuel Breakdown"),
                                 tr("No matching fuel detail rows found for %1.").arg(typeFilter));
}

void PayTotalsPage::openAllNonTripBreakdown()
{
    openNonTripBreakdown(-1);
}

void PayTotalsPage::openNonTripBreakdown(int row)
{
    if (currentNonTripTotals.rows.isEmpty()) {
        QMessageBox::information(this, tr("Non-Trip Settlement Breakdown"),
                                 tr("No non-trip settlement rows found for the current scope."));
        return;
    }
    const PayTotalsPopups::ItemFilter filter{
        .category = nonTripTable->text(row, CategoryColumn).trimmed(),
        .kind = nonTripTable->text(row, KindColumn).trimmed().toLower(),
        .name = nonTripTable->text(row, NameColumn).trimmed()};
    if (QDialog *dialog = PayTotalsPopups::makeItemsDialog(currentNonTripTotals,
                                                           row >= 0 ? &filter : nullptr, this))
        dialog->exec();
    else
        QMessageBox::information(this, tr("Non-Trip Settlement Breakdown"),
                                 tr("No matching non-trip settlement rows found."));
}

void PayTotalsPage::applyUiScale(int percent)
{
    const int clamped = UiScale::clampedPercent(percent);
    const QFont pageFont = UiScale::scaledFont(this, clamped, pointSizeAt100);
    setFont(pageFont);
    UiScale::applyPageScale(this, pageFont, clamped, tr("Pay Totals"));
    for (TotalsTable *table : {coreTable, nonTripTable, fuelTable}) {
        UiScale::applyTableScale(table, pageFont, clamped);
        table->makeSortable();
    }
    for (TotalsSection *section : {coreSection, nonTripSection, fuelSection})
        section->fitTable();
    updateGeometry();
    update();
}

void PayTotalsPage::report(const QString &text) const
{
    if (statusCallback)
        statusCallback(text);
}
