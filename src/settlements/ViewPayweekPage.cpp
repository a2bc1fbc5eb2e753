#include "settlements/ViewPayweekPage.h"

#include "data/DatabaseLocator.h"
#include "data/DomainRules.h"
#include "settlements/PayweekReport.h"
#include "settlements/PayweekRepository.h"
#include "settlements/PayweekTables.h"
#include "ui/DataTable.h"
#include "ui/PageParts.h"
#include "ui/ShownText.h"
#include "ui/WheelGuard.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QTextEdit>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString connectionName = u"view_payweek_trips_connection"_s;

QString failureTitle(PayweekRepository::Reading failed)
{
    using PayweekRepository::Reading;
    switch (failed) {
    case Reading::Trips:
        return ViewPayweekPage::tr("Trip Query Error");
    case Reading::Items:
        return ViewPayweekPage::tr("Settlement Query Error");
    case Reading::EmergencyFund:
        return ViewPayweekPage::tr("E-Fund Query Error");
    case Reading::TireFund:
        return ViewPayweekPage::tr("Tire Fund Query Error");
    case Reading::PerformanceBond:
        return ViewPayweekPage::tr("Performance Bond Query Error");
    case Reading::Fuel:
        return ViewPayweekPage::tr("Fuel Analytics Query Error");
    case Reading::Carryover:
        break;
    }
    return ViewPayweekPage::tr("Carryover / Interest Query Error");
}

} // namespace

ViewPayweekPage::ViewPayweekPage(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(u"viewPayweekPage"_s);
    buildLayout();
    connectWidgets();
}

ViewPayweekPage::~ViewPayweekPage()
{
    DatabaseLocator::releaseNamedConnection(database, connectionName);
}

// Tab goes through the parts of the page in the order in which they are made: from top to bottom.
void ViewPayweekPage::buildLayout()
{
    QWidget *inner = PageParts::makeScrollingContent(this);
    auto *sections = new QVBoxLayout(inner);
    sections->setContentsMargins(12, 12, 12, 12);
    sections->setSpacing(10);
    sections->addWidget(PageParts::makeHeading(tr("View Payweek"), inner));
    sections->addLayout(buildActions());
    sections->addWidget(buildNote());
    sections->addWidget(buildSummary());
    tripTable = addTable(sections, u"payweekTrips"_s, tr("Trips in Selected Payweek"), 260);
    itemTable = addTable(sections, u"payweekItems"_s, tr("Non-Trip Settlement Items"), 220);
    sections->addStretch();
}

QHBoxLayout *ViewPayweekPage::buildActions()
{
    auto *row = new QHBoxLayout;
    PageParts::addButton(row, tr("Open trips.db"), u"openPayweekTripsButton"_s, this,
                         &ViewPayweekPage::browseForDatabase);
    payweekBox = new QComboBox(this);
    payweekBox->setObjectName(u"payweekBox"_s);
    payweekBox->setMinimumWidth(160);
    guardFromWheel(payweekBox);
    row->addWidget(PageParts::makeCaption(tr("Payweek:"), payweekBox));
    row->addWidget(payweekBox);
    PageParts::addButton(row, tr("Refresh"), u"refreshPayweekButton"_s, this,
                         &ViewPayweekPage::refresh);
    row->addStretch();
    return row;
}

QLabel *ViewPayweekPage::buildNote()
{
    note = new QLabel(tr("Open trips.db and choose a payweek."), this);
    note->setObjectName(u"payweekNote"_s);
    note->setWordWrap(true);
    note->setTextFormat(Qt::PlainText);
    return note;
}

QTextEdit *ViewPayweekPage::buildSummary()
{
    summary = new QTextEdit(this);
    summary->setObjectName(u"payweekSummary"_s);
    summary->setAccessibleName(tr("Payweek summary"));
    summary->setReadOnly(true);
    summary->setTabChangesFocus(true);
    summary->setMinimumHeight(170);
    return summary;
}

QTableWidget *ViewPayweekPage::addTable(QVBoxLayout *sections, const QString &objectName,
                                        const QString &caption, int minimumHeight)
{
    auto *table = new DataTable(objectName, caption, minimumHeight, this);
    sections->addWidget(PageParts::makeCaption(caption, table));
    sections->addWidget(table);
    return table;
}

void ViewPayweekPage::connectWidgets()
{
    connect(payweekBox, &QComboBox::currentTextChanged, this, &ViewPayweekPage::loadSummary);
    connect(tripTable, &QTableWidget::cellClicked, this, &ViewPayweekPage::openTrip);
}

QString ViewPayweekPage::databasePath() const
{
    return database.isOpen() ? database.databaseName() : QString();
}

void ViewPayweekPage::openDatabase(const QString &path)
{
    QString error;
    if (!DatabaseLocator::openNamedConnection(database, connectionName, path, error)) {
        QMessageBox::critical(this, tr("Database Error"), error);
        return;
    }
    report(tr("Opened View Payweek DB: %1").arg(path));
    note->setText(tr("Opened: %1").arg(path));
    refresh();
}

void ViewPayweekPage::browseForDatabase()
{
    const QString path = PageParts::askForDatabase(this, tr("Open trips.db"));
    if (!path.isEmpty())
        openDatabase(path);
}

void ViewPayweekPage::refresh()
{
    reloadPayweeks();
    loadSummary();
}

void ViewPayweekPage::reloadPayweeks()
{
    if (!database.isOpen())
        return;
    QStringList payweeks;
    QString error;
    if (!PayweekRepository::listPayweeks(database, payweeks, error)) {
        QMessageBox::critical(this, tr("Payweek Load Error"), error);
        return;
    }
    const int selected = static_cast<int>(payweeks.indexOf(currentPayweek()));
    {
        const QSignalBlocker blocker(payweekBox);
        payweekBox->clear();
        PageParts::addChoices(payweekBox, payweeks);
        if (!payweeks.isEmpty())
            payweekBox->setCurrentIndex(std::max(0, selected));
    }
    report(tr("Loaded %1 payweeks for View Payweek").arg(payweeks.size()));
}

QString ViewPayweekPage::currentPayweek() const
{
    return PageParts::chosenText(payweekBox).trimmed();
}

void ViewPayweekPage::showPayweek(const QString &payweek)
{
    const QString wanted = payweek.trimmed();
    if (wanted.isEmpty())
        return;
    if (payweekBox->count() == 0)
        reloadPayweeks();
    const int index = indexOfPayweek(wanted);
    if (index < 0) {
        report(tr("Payweek not found in View Payweek selector: %1").arg(wanted));
        return;
    }
    {
        const QSignalBlocker blocker(payweekBox);
        payweekBox->setCurrentIndex(index);
    }
    loadSummary();
    report(tr("Opened View Payweek for %1").arg(currentPayweek()));
}

int ViewPayweekPage::indexOfPayweek(const QString &payweek) const
{
    const int index = payweekBox->findData(payweek, Qt::UserRole, Qt::MatchFixedString);
    const QDate date = DomainRules::parseViewPayweekDate(payweek);
    if (index >= 0 || !date.isValid())
        return index;
    for (int i = 0; i < payweekBox->count(); ++i) {
        if (DomainRules::parseViewPayweekDate(payweekBox->itemText(i)) == date)
            return i;
    }
    return -1;
}

void ViewPayweekPage::loadSummary()
{
    clearSummary();
    const QString payweek = database.isOpen() ? currentPayweek() : QString();
    if (payweekChangedCallback)
        payweekChangedCallback(payweek);
    if (payweek.isEmpty()) {
        summary->setPlainText(database.isOpen() ? tr("No payweek selected.")
                                                : tr("Open trips.db first."));
        return;
    }
    PayweekRepository::Payweek read;
    PayweekRepository::Reading reading = {};
    QString error;
    if (!PayweekRepository::loadPayweek(database, payweek, read, reading, error)) {
        QMessageBox::critical(this, failureTitle(reading), error);
        return;
    }
    PayweekTables::showTrips(tripTable, read.trips);
    PayweekTables::showItems(itemTable, read.items);
    read.figures.payweek = ShownText::shortened(read.figures.payweek);
    summary->setPlainText(payweekReport(read.figures));
    report(tr("Loaded View Payweek summary for %1").arg(payweek));
}

void ViewPayweekPage::clearSummary()
{
    PayweekTables::clear(tripTable);
    PayweekTables::clear(itemTable);
    summary->clear();
}

void ViewPayweekPage::openTrip(int row, int column)
{
    const QTableWidgetItem *item = tripTable->item(row, column);
    if (column != PayweekTables::TripNoColumn || !item)
        return;
    const int tripId = item->data(PayweekTables::tripIdRole).toInt();
    const QString tripNo = item->text().trimmed();
    if ((tripId >= 1 || !tripNo.isEmpty()) && openTripCallback)
        openTripCallback(tripId, tripNo);
}

void ViewPayweekPage::report(const QString &text) const
{
    if (statusCallback)
        statusCallback(text);
}
