#include "pdfimport/history/ImportHistoryPage.h"

#include "data/DatabaseLocator.h"
#include "pdfimport/history/ImportHistoryText.h"
#include "ui/DataCell.h"
#include "ui/DataTable.h"
#include "ui/LongTextView.h"
#include "ui/PageParts.h"
#include "ui/ShownText.h"

#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

constexpr int leastDetailsHeight = 220;
constexpr int gridStretch = 3;
constexpr int detailsStretch = 2;

} // namespace

ImportHistoryPage::ImportHistoryPage(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(u"importHistoryPage"_s);
    buildLayout();
    connect(grid, &QTableWidget::itemSelectionChanged, this,
            &ImportHistoryPage::showSelectedHistoryDetails);
    showRows();
    // A program that starts without a file says nothing of it; who opens this page is told.
    if (!DatabaseLocator::findDatabaseNearApplication(DatabaseLocator::tripsFileName).isEmpty())
        refreshHistory();
}

void ImportHistoryPage::buildLayout()
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(8);
    layout->addWidget(PageParts::makeHeading(tr("Database Activity History"), this));
    layout->addWidget(PageParts::makeNote(
        tr("Review database import/export activity and other import audit rows. Deleting a history "
           "row removes only the activity/log entry; it does not delete trips, settlement rows, "
           "locations, or imported data."),
        this));
    layout->addLayout(buildActions());
    grid = new DataTable(u"importHistoryGrid"_s, tr("Database Activity History"), 0, this);
    layout->addWidget(grid, gridStretch);
    buildDetails(layout);
    statusLabel = PageParts::makeNote(tr("Ready"), this);
    statusLabel->setObjectName(u"importHistoryStatus"_s);
    layout->addWidget(statusLabel);
}

QBoxLayout *ImportHistoryPage::buildActions()
{
    auto *row = new QHBoxLayout;
    PageParts::addButton(row, tr("Refresh"), u"refreshHistoryButton"_s, this,
                         &ImportHistoryPage::refreshHistory);
    PageParts::addButton(row, tr("Delete Selected Activity Row"), u"deleteHistoryButton"_s, this,
                         &ImportHistoryPage::deleteSelectedHistoryRow);
    row->addStretch();
    return row;
}

void ImportHistoryPage::buildDetails(QBoxLayout *layout)
{
    detailsBox = new LongTextView(this);
    detailsBox->setObjectName(u"importHistoryDetails"_s);
    detailsBox->setMinimumHeight(leastDetailsHeight);
    layout->addWidget(PageParts::makeCaption(tr("Selected Activity Details"), detailsBox));
    layout->addWidget(detailsBox, detailsStretch);
}

void ImportHistoryPage::refreshHistory()
{
    QString error;
    rows = ImportHistoryRepository::loadRows(error);
    if (!error.trimmed().isEmpty()) {
        QMessageBox::warning(this, tr("Import History"), error);
        report(tr("Could not load import history: %1").arg(error));
    }
    showRows();
    report(tr("Loaded %1 database activity rows.").arg(rows.size()));
}

void ImportHistoryPage::showRows()
{
    {
        const QSignalBlocker quiet(grid);
        grid->clear();
        const QStringList labels = {tr("ID"), tr("Created"), tr("Action"), tr("Database"),
                                    tr("Details")};
        grid->setColumnCount(static_cast<int>(labels.size()));
        grid->setHorizontalHeaderLabels(labels);
        grid->setRowCount(static_cast<int>(rows.size()));
        int line = 0;
        for (const ImportHistoryRow &row : std::as_const(rows))
            showRow(line++, row);
        grid->resizeColumnsToContents();
        grid->selectRow(0);
    }
    showSelectedHistoryDetails();
}

void ImportHistoryPage::showRow(int line, const ImportHistoryRow &row)
{
    int column = 0;
    grid->setItem(line, column++, new DataCell(DataCell::Form::Number, QString::number(row.id)));
    for (const QString &text : {row.createdAt, row.action, row.database, row.details})
        grid->setItem(line, column++, new DataCell(DataCell::Form::Text, text));
}

const ImportHistoryRow *ImportHistoryPage::selectedRow() const
{
    const QList<QTableWidgetItem *> selected = grid->selectedItems();
    // The grid does not sort, so a line of it is a place in the list.
    const qsizetype line = selected.isEmpty() ? -1 : selected.first()->row();
    return line >= 0 && line < rows.size() ? &rows.at(line) : nullptr;
}

void ImportHistoryPage::showSelectedHistoryDetails()
{
    const ImportHistoryRow *row = selectedRow();
    detailsBox->showText(row ? ImportHistoryText::detailsText(*row) : QString());
}

void ImportHistoryPage::deleteSelectedHistoryRow()
{
    const ImportHistoryRow *row = selectedRow();
    if (!row || row->id < 1) {
        QMessageBox::information(this, tr("Database Activity History"),
                                 tr("Select an activity row first."));
        return;
    }
    const int id = row->id;
    const QString question =
        tr("Delete this activity history row?\n\n") + ImportHistoryText::description(*row)
        + tr("\n\nThis removes only the audit/history entry.\nIt does NOT delete trips, "
             "settlement rows, locations, or imported data.");
    if (QMessageBox::question(this, tr("Delete Activity History Row"), question,
                              QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
        != QMessageBox::Yes)
        return;
    QString error;
    if (!ImportHistoryRepository::deleteRow(id, error)) {
        QMessageBox::critical(this, tr("Delete Failed"), error);
        report(tr("Delete failed: %1").arg(error));
        return;
    }
    report(tr("Deleted activity history row ID %1.").arg(id));
    refreshHistory();
}

void ImportHistoryPage::report(const QString &text)
{
    statusLabel->setText(ShownText::shortened(text));
    if (statusCallback)
        statusCallback(text);
}
