#include "pdfimport/ImportPdfPage.h"

#include "pdfimport/ImportRepository.h"
#include "pdfimport/ImportTexts.h"
#include "pdfimport/PdfTextExtractor.h"
#include "pdfimport/review/ExtractionPreview.h"
#include "pdfimport/review/ReviewGrid.h"
#include "pdfimport/review/ReviewRowEditor.h"
#include "ui/PageParts.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QGroupBox>
#include <QLabel>
#include <QMessageBox>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QLabel *addNote(QBoxLayout *layout, const QString &objectName, QWidget *parent)
{
    QLabel *label = PageParts::makeNote({}, parent);
    label->setObjectName(objectName);
    layout->addWidget(label);
    return label;
}

} // namespace

ImportPdfPage::ImportPdfPage(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(u"importPdfPage"_s);
    buildLayout();
    connect(grid, &QTableWidget::itemSelectionChanged, this,
            &ImportPdfPage::onReviewSelectionChanged);
    connect(editor, &ReviewRowEditor::saveRequested, this, &ImportPdfPage::saveEditorToSelectedRow);
    clearAll();
}

void ImportPdfPage::buildLayout()
{
    QWidget *inner = PageParts::makeScrollingContent(this);
    auto *sections = new QVBoxLayout(inner);
    sections->setContentsMargins(12, 12, 12, 12);
    sections->setSpacing(10);
    sections->addWidget(PageParts::makeHeading(tr("Import PDF - Fuel/DEF Scan Only"), inner, 5));
    sections->addWidget(PageParts::makeNote(
        tr("Fuel/DEF-only import mode. This page extracts settlement PDF text, detects the "
           "payweek, parses only Truck Fuel, Reefer Fuel, and DEF rows, lets you review/edit fuel "
           "rows, previews what would be written, then writes only approved fuel detail rows with "
           "duplicate protection."),
        inner));
    sections->addWidget(buildControls());
    preview = new ExtractionPreview(inner);
    sections->addWidget(preview);
    sections->addWidget(buildReview());
    editor = new ReviewRowEditor(inner);
    sections->addWidget(editor);
    sections->addStretch(1);
}

QGroupBox *ImportPdfPage::buildControls()
{
    auto *group = new QGroupBox(tr("PDF Controls"), this);
    auto *layout = new QVBoxLayout(group);
    auto *row = new QHBoxLayout;
    PageParts::addButton(row, tr("Choose PDF"), u"choosePdfButton"_s, this,
                         &ImportPdfPage::choosePdf);
    PageParts::addButton(row, tr("Scan Fuel/DEF Only"), u"scanPdfButton"_s, this,
                         &ImportPdfPage::runScan);
    PageParts::addButton(row, tr("Clear"), u"clearImportButton"_s, this, &ImportPdfPage::clearAll);
    row->addStretch();
    layout->addLayout(row);
    pathLabel = addNote(layout, u"importPath"_s, group);
    summaryLabel = addNote(layout, u"importSummary"_s, group);
    statusLabel = addNote(layout, u"importStatus"_s, group);
    return group;
}

QGroupBox *ImportPdfPage::buildReview()
{
    auto *group = new QGroupBox(tr("Review / Edit Fuel/DEF Rows"), this);
    auto *layout = new QVBoxLayout(group);
    layout->addLayout(buildReviewActions());
    grid = new ReviewGrid(group);
    layout->addWidget(grid);
    return group;
}

QBoxLayout *ImportPdfPage::buildReviewActions()
{
    auto *row = new QHBoxLayout;
    PageParts::addButton(row, tr("Refresh Review Grid"), u"refreshReviewButton"_s, this,
                         &ImportPdfPage::refreshReviewGrid);
    PageParts::addButton(row, tr("Add Missing Fuel/DEF Row"), u"addReviewRowButton"_s, this,
                         &ImportPdfPage::addManualRow);
    PageParts::addButton(row, tr("Delete Selected Row"), u"deleteReviewRowButton"_s, this,
                         &ImportPdfPage::deleteSelectedRow);
    PageParts::addButton(row, tr("Dry-Run Preview"), u"previewImportButton"_s, this,
                         &ImportPdfPage::previewImport);
    PageParts::addButton(row, tr("Apply Fuel/DEF Import"), u"applyImportButton"_s, this,
                         &ImportPdfPage::applyImport);
    row->addStretch();
    return row;
}

void ImportPdfPage::choosePdf()
{
    const QString path =
        QFileDialog::getOpenFileName(this, tr("Choose Settlement PDF for Fuel/DEF Scan"), {},
                                     tr("PDF Files (*.pdf);;All Files (*.*)"));
    if (path.isEmpty())
        return;
    pdfPath = path;
    pathLabel->setText(path);
    statusLabel->setText(tr("Selected PDF: %1").arg(QFileInfo(path).fileName()));
}

void ImportPdfPage::runScan()
{
    if (pdfPath.trimmed().isEmpty()) {
        QMessageBox::warning(this, tr("No PDF"), tr("Choose a PDF first."));
        return;
    }
    statusLabel->setText(tr("Extracting PDF text..."));
    const PdfExtractionResult extraction = PdfTextExtractor::extract(pdfPath);
    if (!extraction.success) {
        settlement.clear();
        settlement.pdfPath = pdfPath;
        settlement.logLines = extraction.logLines;
        if (!extraction.errorMessage.isEmpty())
            settlement.logLines.append(extraction.errorMessage);
        showSettlement();
        QMessageBox::warning(this, tr("Extraction Failed"), extraction.errorMessage);
        return;
    }
    statusLabel->setText(tr("Parsing Fuel/DEF rows only..."));
    settlement = SettlementParser::parse(pdfPath, extraction.rawText, extraction.pageTexts);
    for (const QString &line : extraction.logLines)
        settlement.logLines.prepend(line); // the newest step stands on top
    showSettlement();
    statusLabel->setText(
        tr("Parsed %1 Fuel/DEF review row(s). Review carefully before applying import.")
            .arg(settlement.rows.size()));
}

void ImportPdfPage::showSettlement()
{
    preview->showSettlement(settlement);
    refreshReviewGrid();
}

void ImportPdfPage::clearAll()
{
    pdfPath.clear();
    settlement.clear();
    showSettlement();
    pathLabel->setText(tr("No PDF selected."));
    summaryLabel->setText(tr("Truck: (not loaded) | Payweek: (not loaded) | Fuel/DEF Rows: 0"));
    statusLabel->setText(tr("Ready"));
    editor->clearFields();
}

void ImportPdfPage::refreshReviewGrid()
{
    grid->showRows(settlement.rows);
    summaryLabel->setText(ImportTexts::summaryText(settlement));
}

void ImportPdfPage::addManualRow()
{
    FuelReviewRow row;
    row.dataset = FuelReviewWords::manualFuel;
    row.route = FuelReviewWords::fuelDetail;
    row.description = u"Truck Fuel"_s;
    row.sourceLine = u"Added manually in Fuel/DEF review grid."_s;
    const int id = settlement.addRow(row);
    refreshReviewGrid();
    grid->selectId(id);
    statusLabel->setText(tr("Added manual Fuel/DEF review row."));
}

void ImportPdfPage::deleteSelectedRow()
{
    const qsizetype index = selectedIndex();
    if (index < 0) {
        QMessageBox::information(this, tr("Delete Row"), tr("Select a review row first."));
        return;
    }
    settlement.rows.removeAt(index);
    refreshReviewGrid();
    editor->clearFields();
    statusLabel->setText(tr("Deleted selected review row."));
}

void ImportPdfPage::onReviewSelectionChanged()
{
    if (const qsizetype index = selectedIndex(); index >= 0)
        editor->showRow(settlement.rows.at(index));
    else
        editor->clearFields();
}

void ImportPdfPage::saveEditorToSelectedRow()
{
    const qsizetype index = selectedIndex();
    if (index < 0) {
        QMessageBox::information(this, tr("Save Row"), tr("Select a review row first."));
        return;
    }
    FuelReviewRow &row = settlement.rows[index];
    row = editor->edited(row);
    const int id = row.id;
    refreshReviewGrid();
    grid->selectId(id);
    statusLabel->setText(tr("Saved editor changes to selected review row."));
}

/// By identity, not by the line of the grid; -1 without a selected row.
qsizetype ImportPdfPage::selectedIndex() const
{
    const int id = grid->selectedId();
    const auto row =
        std::find_if(settlement.rows.cbegin(), settlement.rows.cend(),
                     [id](const FuelReviewRow &candidate) { return candidate.id == id; });
    return row == settlement.rows.cend() ? -1 : row - settlement.rows.cbegin();
}

void ImportPdfPage::appendToLog(const QString &heading, const QStringList &lines)
{
    settlement.logLines << QString() << heading << QString(heading.size(), u'-') << lines;
    preview->showLog(settlement.logLines);
}

void ImportPdfPage::previewImport()
{
    statusLabel->setText(tr("Running dry-run import preview..."));
    const ImportResult result = ImportRepository::previewImport(settlement);
    appendToLog(u"IMPORT DRY-RUN PREVIEW"_s, result.details);
    const QString title = result.success ? tr("Dry-Run Preview") : tr("Dry-Run Blocked");
    const QString text = ImportTexts::resultText(result, title);
    if (result.success) {
        QMessageBox::information(this, title, text);
        statusLabel->setText(tr("Dry-run preview completed. No database rows were written."));
    } else {
        QMessageBox::warning(this, title, text);
        statusLabel->setText(tr("Dry-run preview blocked. See pipeline log."));
    }
}

void ImportPdfPage::applyImport()
{
    if (!passesFinalDryRun())
        return;
    statusLabel->setText(tr("Applying Fuel/DEF import..."));
    const ImportResult result = ImportRepository::applyImport(settlement);
    if (!result.details.isEmpty())
        appendToLog(u"IMPORT APPLY RESULT"_s, result.details);
    const QString title = result.success ? tr("Import Applied") : tr("Import Blocked / Failed");
    const QString text = ImportTexts::resultText(result, title);
    if (result.success) {
        QMessageBox::information(this, title, text);
        statusLabel->setText(tr("Fuel/DEF import applied safely. Import History refreshed."));
        Q_EMIT importAppliedSuccessfully();
    } else {
        QMessageBox::warning(this, title, text);
        statusLabel->setText(tr("Import was blocked or failed. See pipeline log."));
    }
}

bool ImportPdfPage::passesFinalDryRun()
{
    statusLabel->setText(tr("Running final dry-run before import..."));
    const ImportResult result = ImportRepository::previewImport(settlement);
    if (!result.success) {
        appendToLog(u"FINAL IMPORT PREVIEW BLOCKED"_s, result.details);
        QMessageBox::warning(this, tr("Import Blocked"),
                             ImportTexts::resultText(result, tr("Import Blocked Before Write")));
        statusLabel->setText(tr("Import blocked before write. No database rows were written."));
        return false;
    }
    const QString title = tr("Final Import Confirmation");
    if (QMessageBox::question(
            this, title, ImportTexts::resultText(result, title) + ImportTexts::confirmationText(),
            QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
        != QMessageBox::Yes) {
        statusLabel->setText(
            tr("Import cancelled after dry-run preview. No database rows were written."));
        return false;
    }
    return true;
}
