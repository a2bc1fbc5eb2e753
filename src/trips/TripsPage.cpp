#include "trips/TripsPage.h"

#include "data/DatabaseLocator.h"
#include "data/DomainRules.h"
#include "data/SqlTransaction.h"
#include "trips/DetailsPane.h"
#include "trips/PayweekFilter.h"
#include "trips/TripDetailsText.h"
#include "trips/TripForm.h"
#include "trips/TripList.h"
#include "trips/fuel/FuelEditor.h"
#include "trips/items/ItemEditor.h"
#include "trips/stops/StopsEditor.h"
#include "ui/PageParts.h"
#include "ui/ShownText.h"
#include "ui/UiScale.h"

#include <QBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QSignalBlocker>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace TripArithmetic;

namespace {

const QString connectionName = u"trips_connection"_s;
constexpr int basePointSize = 10;
constexpr int headingGrowth = 4;
constexpr int gapBetweenActions = 12;

// The stored hours are those of the last save; the stops may have changed since.
void putHours(QStringList &row, TripsRepository::StopTimings &stops)
{
    const int tripId = row.at(IdColumn).toInt();
    if (tripId <= 0)
        return;
    const double net = DomainRules::sortNumberFromText(row.at(NetRevenueColumn));
    const TripHoursResult hours = computeTripHours(stops.ofTrip(tripId), net, extraTripHours);
    row[TripHoursColumn] = hoursText(hours);
    row[NetPerHourColumn] = netPerHourText(hours);
}

} // namespace

TripsPage::TripsPage(QWidget *parent)
    : QWidget(parent)
    , context{.tripsDatabase = tripsDatabase,
              .currentTripId = [this] { return form->currentTripId(); },
              .tripNo = [this] { return form->text(TripForm::TripNo); },
              .report = [this](const QString &text) { report(text); }}
{
    setObjectName(u"tripsPage"_s);
    buildLayout();
    connectWidgets();
}

// The name stays registered for the next open; the file must not stay locked.
TripsPage::~TripsPage()
{
    tripsDatabase.close();
}

// Tab goes through the parts of the page in the order in which they are made: from top to bottom.
void TripsPage::buildLayout()
{
    auto *heading = new QLabel(tr("Trips"), this);
    QFont headingFont = UiScale::scaledFont(heading, UiScale::defaultPercent, basePointSize);
    headingFont.setPointSize(basePointSize + headingGrowth);
    headingFont.setBold(true);
    heading->setFont(headingFont);

    QWidget *inner = PageParts::makeScrollingContent(this);
    auto *sections = new QVBoxLayout(inner);
    sections->setContentsMargins(12, 12, 12, 12);
    sections->setSpacing(8);
    sections->addWidget(heading);
    sections->addLayout(buildActions());
    list = new TripList(inner);
    sections->addWidget(list, 2);
    form = new TripForm(inner);
    sections->addWidget(form, 1);
    buildEditors(inner, sections);
    details = new DetailsPane(inner);
    sections->addWidget(details);
}

void TripsPage::buildEditors(QWidget *inner, QVBoxLayout *sections)
{
    stops = new StopsEditor(context, inner);
    payItems = new ItemEditor(ItemTexts::ofPayItems(), context, inner);
    costItems = new ItemEditor(ItemTexts::ofCostItems(), context, inner);
    fuel = new FuelEditor(context, costItems, inner);
    for (QWidget *editor : {static_cast<QWidget *>(stops), static_cast<QWidget *>(payItems),
                            static_cast<QWidget *>(costItems), static_cast<QWidget *>(fuel)})
        sections->addWidget(editor, 2);
}

QHBoxLayout *TripsPage::buildActions()
{
    using Page = TripsPage;
    auto *row = new QHBoxLayout;
    const auto addButton = [this, row](const QString &text, const QString &name,
                                       void (Page::*run)()) {
        PageParts::addButton(row, text, name, this, run);
    };
    addButton(tr("Open trips.db"), u"openTripsButton"_s, &Page::browseForDatabase);
    addButton(tr("Refresh"), u"refreshTripsButton"_s, &Page::refresh);
    row->addSpacing(gapBetweenActions);
    payweekFilter = new PayweekFilter(this);
    row->addWidget(PageParts::makeCaption(tr("Payweek:"), payweekFilter));
    row->addWidget(payweekFilter);
    row->addSpacing(gapBetweenActions);
    addButton(tr("New Trip"), u"newTripButton"_s, &Page::startNewTrip);
    addButton(tr("Save Trip / Changes"), u"saveTripButton"_s, &Page::saveTrip);
    addButton(tr("Delete Trip"), u"deleteTripButton"_s, &Page::deleteTrip);
    row->addStretch();
    return row;
}

void TripsPage::connectWidgets()
{
    connect(payweekFilter, &QComboBox::currentTextChanged, this, &TripsPage::reloadList);
    connect(list, &TripList::cellClicked, this, &TripsPage::clickCell);
    connect(list, &TripList::itemSelectionChanged, this, [this] { loadTrip(list->currentRow()); });
    connect(payItems, &ItemEditor::itemsSaved, this, &TripsPage::loadItemNames);
    connect(costItems, &ItemEditor::itemsSaved, this, &TripsPage::loadItemNames);
}

void TripsPage::makeReady(int percent)
{
    applyUiScale(percent);
    report(tr("Trips page ready."));
}

void TripsPage::applyUiScale(int percent)
{
    const QFont pageFont = UiScale::scaledFont(this, percent, basePointSize);
    setFont(pageFont);
    UiScale::applyPageScale(this, pageFont, percent, {});
    UiScale::applyTableScale(list, pageFont, percent);
    list->setMinimumHeight(std::max(
        TripList::leastHeight, TripList::leastHeight * UiScale::clampedPercent(percent) / 100));
    stops->applyScale(pageFont, percent);
    payItems->applyScale(pageFont, percent);
    costItems->applyScale(pageFont, percent);
    fuel->applyScale(pageFont, percent);
    details->setFont(pageFont);
    payweekFilter->fitWidth();
    updateGeometry();
    update();
}

void TripsPage::autoOpen()
{
    stops->refreshLocationConnection();
    const QString path =
        DatabaseLocator::findDatabaseNearApplication(DatabaseLocator::tripsFileName);
    if (!path.isEmpty())
        openDatabase(path);
}

void TripsPage::openDatabase(const QString &path)
{
    if (hasHadFile)
        leaveTrip(); // what was typed before any file was open waits for one
    QString error;
    if (!DatabaseLocator::openNamedConnection(tripsDatabase, connectionName, path, error)) {
        QMessageBox::critical(this, tr("Database Error"), error);
        return;
    }
    hasHadFile = true;
    // Where this file cannot be listed, the trips of the one before would pass for its own.
    list->showTrips({});
    stops->refreshLocationConnection();
    bringFileUpToDate();
    loadItemNames();
    reloadPayweekFilter();
    reloadList();
    report(tr("Opened trips DB: %1").arg(path));
}

void TripsPage::bringFileUpToDate()
{
    QString error;
    if (!TripsRepository::ensureTripDetailItems(tripsDatabase, error))
        QMessageBox::critical(this, tr("Trip Detail Setup Error"), error);
    if (!TripsRepository::ensureStopWindowColumns(tripsDatabase, error))
        QMessageBox::critical(this, tr("Trip Stop Setup Error"), error);
}

// Names come from all trips of the file, so new ones in either grid are looked up for both.
void TripsPage::loadItemNames()
{
    payItems->loadNames();
    costItems->loadNames();
}

void TripsPage::browseForDatabase()
{
    const QString path = PageParts::askForDatabase(this, tr("Open trips.db"));
    if (!path.isEmpty())
        openDatabase(path);
}

void TripsPage::refresh()
{
    reloadPayweekFilter();
    reloadList();
}

void TripsPage::reloadPayweekFilter()
{
    QStringList payweeks;
    QString error;
    if (tripsDatabase.isOpen()
        && !TripsRepository::listTripPayweeks(tripsDatabase, payweeks, error))
        QMessageBox::critical(this, tr("Payweek Query Error"), error);
    payweekFilter->offer(payweeks);
}

void TripsPage::reloadList()
{
    if (!requireOpenDatabase())
        return;
    TripsRepository::StopTimings timings(tripsDatabase);
    QList<QStringList> rows;
    QString error;
    if (!TripsRepository::loadTrips(tripsDatabase, payweekFilter->payweek(), rows, error,
                                    [&timings](QStringList &row) { putHours(row, timings); })) {
        QMessageBox::critical(this, tr("Query Error"), error);
        return;
    }
    list->showTrips(rows);
    report(tr("Loaded %1 trips").arg(list->rowCount()));
}

void TripsPage::clickCell(int row, int column)
{
    loadTrip(row);
    if (column != PayweekColumn)
        return;
    const QString payweek = list->payweekOfRow(row);
    if (!payweek.isEmpty() && openPayweekCallback)
        openPayweekCallback(payweek);
}

void TripsPage::loadTrip(int row)
{
    const QStringList cells = list->rowTexts(row);
    if (cells.isEmpty())
        return;
    const int tripId = cells.at(IdColumn).toInt();
    form->showTrip(cells);
    loadRows(tripId);

    const auto number = [&cells](TripColumn column) {
        return DomainRules::sortNumberFromText(cells.at(column));
    };
    const TripTotals totals =
        computeTripTotals(number(EmptyMilesColumn), number(LoadedMilesColumn),
                          number(LinehaulColumn), number(FusuColumn), number(CarrierPercentColumn),
                          payItems->itemTotal(), costItems->itemTotal());
    const TripHoursResult hours = hoursOfGrid(totals.netRevenue);
    form->showHours(hours);
    details->setPlainText(tripDetailsText(ShownText::shortened(cells), totals, hours));
    showTripTitle(cells.at(TripNoColumn));
}

void TripsPage::loadRows(int tripId)
{
    stops->loadStops(tripId);
    payItems->loadItems(tripId);
    costItems->loadItems(tripId);
    fuel->loadFuelRows(tripId);
}

void TripsPage::showTripTitle(const QString &tripNo)
{
    const QString shown = tripNo.isEmpty() ? tr("Trips") : ShownText::shortened(tripNo);
    window()->setWindowTitle(u"Brindlepath Desk - "_s + shown);
}

void TripsPage::startNewTrip()
{
    clearTrip();
    form->focusTripNo();
    showTripTitle({});
    report(tr("New Trip mode."));
}

void TripsPage::clearTrip()
{
    form->clear();
    details->clear();
    loadRows(form->currentTripId());
}

// The trip with this id in another file is another trip, and must not take the changes of this one.
void TripsPage::leaveTrip()
{
    if (form->currentTripId() > 0)
        showTripTitle({});
    clearTrip();
}

void TripsPage::saveTrip()
{
    if (!requireOpenDatabase())
        return;
    TripsRepository::TripRecord trip = form->trip();
    if (!hasRequiredTexts(trip) || !hasReadRows())
        return;
    fuel->syncFuelCostItems(); // fuel reaches the total as cost items
    trip.totals =
        computeTripTotals(trip.emptyMiles, trip.loadedMiles, trip.linehaul, trip.fusu,
                          trip.carrierPercent, payItems->itemTotal(), costItems->itemTotal());
    trip.hours = hoursOfGrid(trip.totals.netRevenue);
    form->showHours(trip.hours);
    if (!writeTrip(trip))
        return;
    saveRows(trip.id);
    form->showHours(trip.hours);
    reloadPayweekFilter();
    reloadList();
}

bool TripsPage::hasRequiredTexts(const TripsRepository::TripRecord &trip)
{
    if (trip.tripNo.isEmpty()) {
        QMessageBox::warning(this, tr("Missing Trip #"), tr("Trip # is required."));
        return false;
    }
    if (trip.payweek.isEmpty()) {
        QMessageBox::warning(this, tr("Missing Payweek"), tr("Payweek is required."));
        return false;
    }
    return true;
}

// Rows that were not read are missing from the totals too.
bool TripsPage::hasReadRows()
{
    const QString title = tr("Update Trip Failed");
    return stops->guard().allowsSave(this, title) && payItems->guard().allowsSave(this, title)
           && costItems->guard().allowsSave(this, title) && fuel->guard().allowsSave(this, title);
}

bool TripsPage::writeTrip(TripsRepository::TripRecord &trip)
{
    QString error;
    if (trip.id < 1) {
        if (!TripsRepository::insertTrip(tripsDatabase, trip, trip.id, error)) {
            QMessageBox::critical(this, tr("Insert Trip Failed"), error);
            return false;
        }
        form->setTripId(trip.id);
        report(tr("Inserted new trip: %1").arg(trip.tripNo));
        return true;
    }
    if (!TripsRepository::updateTrip(tripsDatabase, trip, error)) {
        QMessageBox::critical(this, tr("Update Trip Failed"), error);
        return false;
    }
    report(tr("Updated trip: %1").arg(trip.tripNo));
    return true;
}

// Each of them tells of its own failure, and none keeps the others from being saved.
void TripsPage::saveRows(int tripId)
{
    stops->saveStops(tripId);
    payItems->saveItems(tripId);
    costItems->saveItems(tripId);
    fuel->saveFuelRows(tripId);
}

void TripsPage::deleteTrip()
{
    if (!requireOpenDatabase())
        return;
    const int tripId = form->currentTripId();
    if (tripId < 1) {
        QMessageBox::information(this, tr("Delete Trip"),
                                 tr("Load an existing trip before deleting."));
        return;
    }
    const QString tripNo = form->text(TripForm::TripNo).trimmed();
    const QString tripName = tripNo.isEmpty()
                                 ? tr("Trip ID %1").arg(tripId)
                                 : tr("Trip %1 (ID %2)").arg(tripNo, QString::number(tripId));
    if (!confirmDelete(tripName))
        return;

    SqlTransaction transaction(tripsDatabase);
    QString error;
    if (!transaction.begin(error) || !TripsRepository::deleteTripRows(tripsDatabase, tripId, error)
        || !transaction.commit(error)) {
        QMessageBox::critical(this, tr("Delete Trip Failed"), error);
        return; // rolls back what was begun
    }
    startNewTrip();
    reloadPayweekFilter();
    reloadList();
    report(tr("Deleted %1.").arg(tripName));
}

bool TripsPage::confirmDelete(const QString &tripName)
{
    const auto ask = [this](const QString &title, const QString &question) {
        return QMessageBox::question(this, title, question, QMessageBox::Yes | QMessageBox::No,
                                     QMessageBox::No)
               == QMessageBox::Yes;
    };
    return ask(tr("Confirm Delete Trip"),
               tr("Delete %1?\n\nThis will also delete related stops, pay items, cost items, "
                  "fuel/detail rows, and trailers.\n\nContinue?")
                   .arg(tripName))
           && ask(tr("Final Delete Confirmation"), tr("Final check:\n\nDelete %1 permanently?\n\n"
                                                      "This cannot be undone from inside the app.")
                                                       .arg(tripName));
}

void TripsPage::openTripById(int tripId)
{
    if (isOpenForTrip(tripId))
        findTrip(tripId);
}

bool TripsPage::openTripOfFile(int tripId, const QString &path)
{
    if (!isOpenForTrip(tripId))
        return true; // and told so
    if (!DatabaseLocator::isSameFile(tripsDatabase.databaseName(), path))
        return false;
    findTrip(tripId);
    return true;
}

bool TripsPage::isOpenForTrip(int tripId)
{
    if (tripId <= 0)
        return false;
    if (!tripsDatabase.isOpen())
        autoOpen();
    if (!tripsDatabase.isOpen())
        report(tr("Unable to open trip %1 because trips.db is not open").arg(tripId));
    return tripsDatabase.isOpen();
}

void TripsPage::findTrip(int tripId)
{
    reloadList();
    int row = list->rowOfTrip(tripId);
    if (row < 0 && payweekFilter->currentIndex() != 0) {
        payweekFilter->setCurrentIndex(0); // reloads the list
        row = list->rowOfTrip(tripId);
    }
    if (row < 0) {
        report(tr("Trip ID %1 was not found in the Trips table").arg(tripId));
        return;
    }
    {
        const QSignalBlocker blocker(list);
        list->setCurrentCell(row, TripNoColumn);
        list->selectRow(row);
    }
    loadTrip(row);
    const QString tripNo = list->rowTexts(row).at(TripNoColumn);
    report(tr("Opened trip %1 from View Payweek").arg(tripNo));
}

TripHoursResult TripsPage::hoursOfGrid(double net) const
{
    return computeTripHours(stops->stopsFromGrid(), net, extraTripHours);
}

bool TripsPage::requireOpenDatabase()
{
    if (!tripsDatabase.isOpen())
        QMessageBox::warning(this, tr("No Database"), tr("Open trips.db first."));
    return tripsDatabase.isOpen();
}

void TripsPage::report(const QString &text) const
{
    if (statusCallback)
        statusCallback(text);
}
