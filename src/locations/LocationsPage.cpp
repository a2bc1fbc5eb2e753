#include "locations/LocationsPage.h"

#include "data/DatabaseLocator.h"
#include "locations/LocationForm.h"
#include "locations/LocationsRepository.h"
#include "ui/DataCell.h"
#include "ui/DataTable.h"
#include "ui/PageParts.h"
#include "ui/UiScale.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;
using namespace LocationsRepository;

namespace {

const QString connectionName = u"locations_connection"_s;
constexpr int leastTableHeight = 360;
constexpr int rowHeight = 32;
constexpr int leastRowHeight = 28;

DataCell::Form formOf(int field)
{
    const bool isDegree = field == Latitude || field == Longitude;
    return isDegree ? DataCell::Form::Number : DataCell::Form::Text;
}

} // namespace

LocationsPage::LocationsPage(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(u"locationsPage"_s);
    buildLayout();
    connectWidgets();
    setMode(Mode::Viewing);
}

LocationsPage::~LocationsPage()
{
    database.close();
}

// Tab goes through the parts of the page in the order in which they are made: from top to bottom.
void LocationsPage::buildLayout()
{
    QWidget *inner = PageParts::makeScrollingContent(this);
    auto *sections = new QVBoxLayout(inner);
    sections->setContentsMargins(12, 12, 12, 12);
    sections->setSpacing(8);
    sections->addWidget(PageParts::makeHeading(tr("Locations"), inner));
    sections->addLayout(buildActions());
    buildTable(inner);
    sections->addWidget(table);
    form = new LocationForm(inner);
    sections->addWidget(form);
    sections->addLayout(buildFormActions());
    sections->addStretch(1);
}

QBoxLayout *LocationsPage::buildActions()
{
    auto *row = new QHBoxLayout;
    PageParts::addButton(row, tr("Open locations.db"), u"openLocationsButton"_s, this,
                         &LocationsPage::chooseDatabase);
    PageParts::addButton(row, tr("Refresh"), u"refreshLocationsButton"_s, this,
                         &LocationsPage::refresh);
    PageParts::addButton(row, tr("New / Clear"), u"newLocationButton"_s, this,
                         &LocationsPage::newLocation);
    row->addStretch();
    return row;
}

QBoxLayout *LocationsPage::buildFormActions()
{
    auto *row = new QHBoxLayout;
    editButton = PageParts::addButton(row, tr("Edit Location"), u"editLocationButton"_s, this,
                                      &LocationsPage::editLocation);
    saveButton = PageParts::addButton(row, tr("Save Location"), u"saveLocationButton"_s, this,
                                      &LocationsPage::saveLocation);
    PageParts::addButton(row, tr("Delete Location"), u"deleteLocationButton"_s, this,
                         &LocationsPage::deleteLocation);
    row->addStretch();
    return row;
}

void LocationsPage::buildTable(QWidget *inner)
{
    table = new DataTable(u"locationTable"_s, tr("Locations"), leastTableHeight, inner);
    table->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::MinimumExpanding);
    table->verticalHeader()->setMinimumSectionSize(leastRowHeight);
    table->verticalHeader()->setDefaultSectionSize(rowHeight);
    showRows({});
}

void LocationsPage::connectWidgets()
{
    connect(table, &QTableWidget::cellClicked, this, &LocationsPage::loadRow);
    connect(table, &QTableWidget::currentCellChanged, this, &LocationsPage::loadRow);
    connect(table, &QTableWidget::itemSelectionChanged, this, &LocationsPage::loadSelection);
}

void LocationsPage::openDatabase(const QString &path)
{
    // Closed behind the page, which is what an import does before it puts another file there.
    for (QString *file : {&fileOfForm, &fileOfTable}) {
        if (!database.isOpen() && DatabaseLocator::isSameFile(*file, database.databaseName()))
            *file = tr("%1 (as it was then)").arg(*file);
    }
    QString error;
    if (!DatabaseLocator::openNamedConnection(database, connectionName, path, error)) {
        QMessageBox::critical(this, tr("Database Error"), error);
        return;
    }
    if (fileOfForm.isEmpty() && mode == Mode::CreatingNew)
        fileOfForm = path; // what was begun before any file was open
    refresh();
    report(tr("Opened locations DB: %1").arg(path));
}

void LocationsPage::chooseDatabase()
{
    const QString path = PageParts::askForDatabase(this, tr("Open locations.db"));
    if (!path.isEmpty())
        openDatabase(path);
}

void LocationsPage::refresh()
{
    if (!requireOpenDatabase())
        return;
    QList<QStringList> rows;
    QString error;
    if (!loadLocations(database, rows, error)) {
        QMessageBox::critical(this, tr("Query Error"), error);
        return;
    }
    showRows(rows);
    fileOfTable = database.databaseName();
    report(tr("Loaded %1 locations").arg(rows.size()));
}

// The form keeps what it shows, so the table must not tell of the rows that come and go.
void LocationsPage::showRows(const QList<QStringList> &rows)
{
    const QSignalBlocker blocker(table);
    table->setUpdatesEnabled(false);
    table->clear();
    table->setColumnCount(locationFieldCount);
    table->setRowCount(static_cast<int>(rows.size()));
    fillCells(rows);
    UiScale::setSortableHeaders(table, {tr("Code"), tr("Name"), tr("Street"), tr("City"),
                                        tr("State"), tr("Zip"), tr("Lat"), tr("Lon"), tr("Notes")});
    UiScale::sortAsChosen(table);
    table->resizeColumnsToContents();
    table->setUpdatesEnabled(true);
}

void LocationsPage::fillCells(const QList<QStringList> &rows)
{
    const QSignalBlocker quiet(table->model()); // the view is not to look at each cell
    for (int row = 0; row < table->rowCount(); ++row) {
        for (int field = 0; field < locationFieldCount; ++field)
            table->setItem(row, field, new DataCell(formOf(field), rows.at(row).at(field)));
    }
}

void LocationsPage::loadSelection()
{
    const QModelIndexList selected = table->selectionModel()->selectedRows();
    loadRow(selected.isEmpty() ? table->currentRow() : selected.constFirst().row());
}

void LocationsPage::loadRow(int row)
{
    if (row < 0)
        return;
    QStringList location;
    for (int field = 0; field < locationFieldCount; ++field) {
        const QTableWidgetItem *cell = table->item(row, field);
        location.append(cell ? cell->text() : QString());
    }
    selectedCode = location.at(Code).trimmed();
    fileOfForm = fileOfTable;
    form->showLocation(location);
    setMode(Mode::Viewing);
}

void LocationsPage::newLocation()
{
    selectedCode.clear();
    fileOfForm = database.isOpen() ? database.databaseName() : QString();
    {
        const QSignalBlocker blocker(table);
        table->clearSelection();
        table->setCurrentCell(-1, -1);
    }
    form->showLocation({});
    setMode(Mode::CreatingNew);
    form->focusCode();
    report(tr("Location form cleared for new location entry."));
}

void LocationsPage::editLocation()
{
    if (selectedCode.isEmpty()) {
        QMessageBox::information(this, tr("Edit Location"),
                                 tr("Select an existing location before editing."));
        return;
    }
    setMode(Mode::Editing);
    form->focusName();
    report(tr("Editing location: %1").arg(selectedCode));
}

void LocationsPage::saveLocation()
{
    if (!requireOpenDatabase())
        return;
    if (!selectedCode.isEmpty() && mode != Mode::Editing) {
        QMessageBox::information(this, tr("Save Location"),
                                 tr("Click Edit Location before changing and saving an existing "
                                    "location."));
        return;
    }
    if (selectedCode.isEmpty())
        setMode(Mode::CreatingNew);
    const QString code = form->code();
    if (code.isEmpty()) {
        QMessageBox::warning(this, tr("Missing Code"), tr("Location code is required."));
        return;
    }
    if (!confirmFile(tr("Save Location"),
                     tr("This location was entered while another file was open:\n\n%1\n\n"
                        "Save it to the file that is open now?\n\n%2"))
        || !writeLocation())
        return;
    const bool isUpdate = !selectedCode.isEmpty();
    selectedCode = code;
    setMode(Mode::Viewing);
    report((isUpdate ? tr("Updated location: %1") : tr("Saved location: %1")).arg(code));
    refresh();
    selectCode(code);
}

// What was entered or selected while one file was open counts for another only where the driver
// says so.
bool LocationsPage::confirmFile(const QString &title, const QString &question)
{
    const QString file = database.databaseName();
    return fileOfForm.isEmpty() || DatabaseLocator::isSameFile(fileOfForm, file)
           || QMessageBox::question(this, title, question.arg(fileOfForm, file),
                                    QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
                  == QMessageBox::Yes;
}

bool LocationsPage::writeLocation()
{
    QString error;
    const bool written = selectedCode.isEmpty()
                             ? LocationsRepository::saveLocation(database, form->location(), error)
                             : updateLocation(database, selectedCode, form->location(), error);
    if (!written)
        QMessageBox::critical(this, tr("Save Error"), error);
    return written;
}

void LocationsPage::selectCode(const QString &code)
{
    for (int row = 0; row < table->rowCount(); ++row) {
        if (table->item(row, Code)->text().trimmed() != code)
            continue;
        table->setCurrentCell(row, Code);
        table->selectRow(row);
        loadRow(row);
        return;
    }
}

void LocationsPage::deleteLocation()
{
    if (!requireOpenDatabase())
        return;
    const QString code = selectedCode.isEmpty() ? form->code() : selectedCode;
    if (code.isEmpty()) {
        QMessageBox::warning(this, tr("Missing Code"),
                             tr("Select or enter a location code first."));
        return;
    }
    if (!confirmFile(tr("Delete Location"),
                     tr("This location was selected while another file was open:\n\n%1\n\n"
                        "Delete it from the file that is open now?\n\n%2")))
        return;
    const auto answer =
        QMessageBox::question(this, tr("Confirm Delete"), tr("Delete location '%1'?").arg(code),
                              QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer != QMessageBox::Yes)
        return;
    QString error;
    if (!removeLocation(database, code, error)) {
        QMessageBox::critical(this, tr("Delete Error"), error);
        return;
    }
    report(tr("Deleted location: %1").arg(code));
    newLocation();
    setMode(Mode::Viewing);
    refresh();
}

void LocationsPage::setMode(Mode newMode)
{
    mode = newMode;
    form->setReadOnly(mode == Mode::Viewing);
    editButton->setEnabled(!selectedCode.isEmpty() && mode != Mode::Editing);
    saveButton->setEnabled(mode != Mode::Viewing);
}

bool LocationsPage::requireOpenDatabase()
{
    if (!database.isOpen())
        QMessageBox::warning(this, tr("No Database"), tr("Open locations.db first."));
    return database.isOpen();
}

void LocationsPage::report(const QString &text) const
{
    if (statusCallback)
        statusCallback(text);
}
