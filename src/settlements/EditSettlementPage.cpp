#include "settlements/EditSettlementPage.h"

#include "data/DatabaseLocator.h"
#include "data/DomainRules.h"
#include "data/MoneyText.h"
#include "settlements/PayweekTables.h"
#include "settlements/SettlementItemForm.h"
#include "settlements/SettlementRepository.h"
#include "ui/DataCell.h"
#include "ui/DataTable.h"
#include "ui/PageParts.h"
#include "ui/ShownText.h"
#include "ui/WheelGuard.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QSignalBlocker>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString connectionName = u"settlement_trips_connection"_s;

} // namespace

EditSettlementPage::EditSettlementPage(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(u"editSettlementPage"_s);
    buildLayout();
    connectWidgets();
}

EditSettlementPage::~EditSettlementPage()
{
    DatabaseLocator::releaseNamedConnection(database, connectionName);
}

// Tab goes through the parts of the page in the order in which they are made: from top to bottom.
void EditSettlementPage::buildLayout()
{
    QWidget *inner = PageParts::makeScrollingContent(this);
    auto *sections = new QVBoxLayout(inner);
    sections->setContentsMargins(12, 12, 12, 12);
    sections->setSpacing(10);
    sections->addWidget(PageParts::makeHeading(tr("Edit Settlement"), inner));
    sections->addLayout(buildActions());
    summary = PageParts::makeNote(tr("Summary: open trips.db and choose a payweek."), inner);
    summary->setObjectName(u"settlementSummary"_s);
    sections->addWidget(summary);
    emptyLabel =
        PageParts::makeNote(tr("No non-trip settlement items found for this payweek."), inner);
    emptyLabel->setObjectName(u"settlementEmptyLabel"_s);
    emptyLabel->hide();
    sections->addWidget(emptyLabel);
    table = new DataTable(u"settlementItems"_s, tr("Settlement items"), 260, inner);
    sections->addWidget(table);
    form = new SettlementItemForm(inner);
    sections->addWidget(form);
    sections->addLayout(buildItemActions());
    sections->addStretch();
}

QBoxLayout *EditSettlementPage::buildActions()
{
    using Page = EditSettlementPage;
    auto *row = new QHBoxLayout;
    PageParts::addButton(row, tr("Open trips.db"), u"openSettlementTripsButton"_s, this,
                         &Page::browseForDatabase);
    payweekBox = new QComboBox(this);
    payweekBox->setObjectName(u"settlementPayweekBox"_s);
    payweekBox->setMinimumWidth(160);
    guardFromWheel(payweekBox);
    row->addWidget(PageParts::makeCaption(tr("Payweek:"), payweekBox));
    row->addWidget(payweekBox);
    QWidget *apr = buildAprBox();
    row->addWidget(PageParts::makeCaption(tr("APR:"), apr));
    row->addWidget(apr);
    PageParts::addButton(row, tr("Save APR"), u"saveAprButton"_s, this, &Page::saveApr);
    PageParts::addButton(row, tr("Refresh"), u"refreshSettlementButton"_s, this, &Page::refresh);
    PageParts::addButton(row, tr("Clear Editor"), u"clearSettlementEditorButton"_s, this,
                         &Page::startNewItem);
    row->addStretch();
    return row;
}

QWidget *EditSettlementPage::buildAprBox()
{
    aprBox = new QDoubleSpinBox(this);
    aprBox->setObjectName(u"aprBox"_s);
    aprBox->setDecimals(2);
    aprBox->setRange(0.0, 100.0);
    aprBox->setSingleStep(0.25);
    aprBox->setSuffix(u" %"_s);
    aprBox->setMinimumWidth(110);
    guardFromWheel(aprBox);
    return aprBox;
}

QBoxLayout *EditSettlementPage::buildItemActions()
{
    using Page = EditSettlementPage;
    auto *row = new QHBoxLayout;
    PageParts::addButton(row, tr("New Item"), u"newSettlementItemButton"_s, this,
                         &Page::startNewItem);
    PageParts::addButton(row, tr("Save Item"), u"saveSettlementItemButton"_s, this,
                         &Page::saveItem);
    PageParts::addButton(row, tr("Delete Selected"), u"deleteSettlementItemButton"_s, this,
                         &Page::deleteItem);
    row->addStretch();
    return row;
}

void EditSettlementPage::connectWidgets()
{
    connect(payweekBox, &QComboBox::currentTextChanged, this, [this] {
        reloadNames();
        reloadApr();
        reloadItems();
    });
    connect(table, &QTableWidget::cellClicked, this, &EditSettlementPage::loadRow);
    connect(table, &QTableWidget::itemSelectionChanged, this,
            [this] { loadRow(table->currentRow()); });
}

void EditSettlementPage::openDatabase(const QString &path)
{
    QString error;
    if (!DatabaseLocator::openNamedConnection(database, connectionName, path, error)) {
        QMessageBox::critical(this, tr("Database Error"), error);
        return;
    }
    report(tr("Opened settlement/trips DB: %1").arg(path));
    reloadNames(); // of the week that stays chosen if the weeks cannot be read
    reloadApr();
    refresh();
    if (rowOfItem(form->selectedItemId()) < 0)
        form->startNewItem(); // what was in hand is an item of the file before
}

void EditSettlementPage::browseForDatabase()
{
    const QString path = PageParts::askForDatabase(this, tr("Open trips.db"));
    if (!path.isEmpty())
        openDatabase(path);
}

void EditSettlementPage::refresh()
{
    reloadPayweeks();
    reloadItems();
}

void EditSettlementPage::reloadPayweeks()
{
    if (!database.isOpen())
        return;
    QStringList payweeks;
    QString error;
    if (!SettlementRepository::listSettlementPayweeks(database, payweeks, error)) {
        QMessageBox::critical(this, tr("Settlement Payweek Error"), error);
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
    reloadNames();
    reloadApr();
    report(tr("Loaded %1 settlement payweeks").arg(payweeks.size()));
}

// Reads on every change of the payweek, so a failure is a matter for the status line alone.
void EditSettlementPage::reloadNames()
{
    QStringList names;
    QString error;
    if (database.isOpen()
        && !SettlementRepository::listSettlementItemNames(
            database, DomainRules::editSettlementYear(currentPayweek()), names, error)) {
        report(tr("Could not load settlement item names: %1").arg(error));
        names.clear(); // half a list would pass for the whole
    }
    form->offerNames(names);
}

void EditSettlementPage::reloadApr()
{
    const QSignalBlocker blocker(aprBox);
    double apr = 0.0;
    QString error;
    if (database.isOpen()
        && !SettlementRepository::loadSettlementApr(database, currentPayweek(), apr, error))
        report(tr("Could not load APR for payweek: %1").arg(error));
    aprBox->setValue(apr);
}

void EditSettlementPage::reloadItems()
{
    const int selectedId = form->selectedItemId();
    const QString payweek = currentPayweek();
    if (!database.isOpen() || payweek.isEmpty()) {
        showNoItems(database.isOpen() ? tr("Summary: no payweek selected.")
                                      : tr("Summary: open trips.db first."));
        return;
    }
    QList<QStringList> rows;
    double revenue = 0.0;
    double expense = 0.0;
    QString error;
    if (!SettlementRepository::loadSettlementItems(database, payweek, rows, revenue, expense,
                                                   error)) {
        showRows({});
        emptyLabel->hide();
        QMessageBox::critical(this, tr("Settlement Query Error"), error);
        return;
    }
    showItems(payweek, rows, revenue, expense);
    selectItem(selectedId);
    report(tr("Loaded %1 settlement rows for %2").arg(QString::number(rows.size()), payweek));
}

void EditSettlementPage::showNoItems(const QString &summaryText)
{
    showRows({});
    summary->setText(summaryText);
    emptyLabel->hide();
    startNewItem();
}

void EditSettlementPage::showRows(const QList<QStringList> &rows)
{
    const QSignalBlocker blocker(table);
    PayweekTables::showItems(table, rows);
    table->horizontalHeader()->setStretchLastSection(false); // amounts stand beside their names
}

void EditSettlementPage::showItems(const QString &payweek, const QList<QStringList> &rows,
                                   double revenue, double expense)
{
    showRows(rows);
    summary->setText(tr("Summary for %1: Revenue $%2 | Expenses $%3 | Net $%4 | Rows %5")
                         .arg(ShownText::shortened(payweek), number2Text(revenue),
                              number2Text(expense), number2Text(revenue - expense),
                              QString::number(rows.size())));
    emptyLabel->setVisible(rows.isEmpty());
}

// An item that is not there any more leaves the form for a new one.
void EditSettlementPage::selectItem(int id)
{
    const int row = rowOfItem(id);
    if (row < 0) {
        startNewItem();
        return;
    }
    {
        const QSignalBlocker blocker(table);
        table->selectRow(row);
    }
    loadRow(row);
}

int EditSettlementPage::rowOfItem(int id) const
{
    for (int row = 0; id > 0 && row < table->rowCount(); ++row) {
        if (table->item(row, PayweekTables::ItemIdColumn)->text().toInt() == id)
            return row;
    }
    return -1;
}

void EditSettlementPage::loadRow(int row)
{
    if (row < 0)
        return;
    const auto text = [this, row](int column) {
        return table->item(row, column)->data(DataCell::rawTextRole).toString();
    };
    const int id = text(PayweekTables::ItemIdColumn).trimmed().toInt();
    if (id <= 0)
        return;
    const QString name = text(PayweekTables::NameColumn);
    form->showItem(id, text(PayweekTables::KindColumn), name, text(PayweekTables::AmountColumn));
    report(tr("Loaded settlement item into editor: %1").arg(name));
}

void EditSettlementPage::startNewItem()
{
    {
        const QSignalBlocker blocker(table);
        table->clearSelection();
        table->setCurrentCell(-1, -1);
    }
    form->startNewItem();
    report(tr("New settlement item mode."));
}

void EditSettlementPage::saveApr()
{
    if (!requireOpenDatabase() || !requirePayweek())
        return;
    QString error;
    if (!SettlementRepository::saveSettlementApr(database, currentPayweek(), aprBox->value(),
                                                 error)) {
        QMessageBox::critical(this, tr("Save APR Failed"), error);
        return;
    }
    report(tr("Saved APR %1% for %2").arg(number2Text(aprBox->value()), currentPayweek()));
}

void EditSettlementPage::saveItem()
{
    if (!requireOpenDatabase() || !requirePayweek())
        return;
    if (form->kind() != "revenue"_L1 && form->kind() != "expense"_L1) {
        QMessageBox::warning(this, tr("Invalid Kind"), tr("Kind must be revenue or expense."));
        return;
    }
    const QString name = form->name();
    if (name.isEmpty()) {
        QMessageBox::warning(this, tr("Missing Name"), tr("Settlement item name is required."));
        return;
    }
    const int id = form->selectedItemId();
    if (!writeItem(id))
        return;
    report(
        (id < 1 ? tr("Added settlement item: %1") : tr("Updated settlement item: %1")).arg(name));
    reloadNames();
    if (id >= 1)
        form->setSelectedItemId(id);
    reloadItems();
    if (id < 1)
        startNewItem();
}

bool EditSettlementPage::writeItem(int id)
{
    using namespace SettlementRepository;
    QString error;
    const bool written = id < 1 ? addSettlementItem(database, currentPayweek(), form->kind(),
                                                    form->name(), form->amount(), error)
                                : updateSettlementItem(database, id, form->kind(), form->name(),
                                                       form->amount(), error);
    if (!written)
        QMessageBox::critical(this, tr("Save Settlement Item Failed"), error);
    return written;
}

// The names stay as they are: the deleted one may be about to be typed again.
void EditSettlementPage::deleteItem()
{
    if (!requireOpenDatabase())
        return;
    const int id = form->selectedItemId();
    if (id < 1) {
        QMessageBox::warning(this, tr("No Selection"), tr("Select a settlement item first."));
        return;
    }
    const QString name = form->name();
    const auto answer = QMessageBox::question(
        this, tr("Confirm Delete"),
        tr("Delete selected settlement item?\n\nID: %1\nName: %2\n\nThis deletes only this one "
           "non-trip settlement row.")
            .arg(QString::number(id), name),
        QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer != QMessageBox::Yes)
        return;
    QString error;
    if (!SettlementRepository::deleteSettlementItem(database, id, error)) {
        QMessageBox::critical(this, tr("Delete Settlement Item Failed"), error);
        return;
    }
    report(tr("Deleted settlement item: %1").arg(name));
    reloadItems();
    startNewItem();
}

bool EditSettlementPage::requireOpenDatabase()
{
    if (!database.isOpen())
        QMessageBox::warning(this, tr("No Database"), tr("Open trips.db first."));
    return database.isOpen();
}

bool EditSettlementPage::requirePayweek()
{
    const bool chosen = !currentPayweek().isEmpty();
    if (!chosen)
        QMessageBox::warning(this, tr("Missing Payweek"),
                             tr("Select a settlement / payweek first."));
    return chosen;
}

QString EditSettlementPage::currentPayweek() const
{
    return PageParts::chosenText(payweekBox).trimmed();
}

void EditSettlementPage::report(const QString &text) const
{
    if (statusCallback)
        statusCallback(text);
}
