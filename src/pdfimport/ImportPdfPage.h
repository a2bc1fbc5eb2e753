#pragma once

#include "pdfimport/SettlementParser.h"

#include <QWidget>

class ExtractionPreview;
class QBoxLayout;
class QGroupBox;
class QLabel;
class ReviewGrid;
class ReviewRowEditor;

/// Turns a settlement PDF into fuel rows of the trips: scan, review and correct, dry run, import.
/// Nothing reaches the database without a passing dry run and a "Yes" in the same action.
///
/// The rows of the settlement in hand are the only truth; the grid is a view of them. Truck and
/// payweek cannot be edited: a wrong one can only be met by another scan.
class ImportPdfPage : public QWidget
{
    Q_OBJECT

public:
    explicit ImportPdfPage(QWidget *parent = nullptr);

public Q_SLOTS:
    void choosePdf();

    /// Reads the chosen PDF; its rows replace those of the scan before. Blocks until it is read.
    void runScan();
    void clearAll();
    void refreshReviewGrid();
    void addManualRow();
    void deleteSelectedRow();
    void previewImport();
    void applyImport();
    void onReviewSelectionChanged();
    void saveEditorToSelectedRow();

Q_SIGNALS:
    /// An import is committed.
    void importAppliedSuccessfully();

private:
    void buildLayout();
    QGroupBox *buildControls();
    QGroupBox *buildReview();
    QBoxLayout *buildReviewActions();

    void showSettlement();
    /// Runs the last dry run and asks. False if it blocks or the person thinks better of it.
    bool passesFinalDryRun();
    void appendToLog(const QString &heading, const QStringList &lines);
    [[nodiscard]] qsizetype selectedIndex() const;

    SettlementParseResult settlement;
    QString pdfPath;

    QLabel *pathLabel = nullptr;
    QLabel *summaryLabel = nullptr;
    QLabel *statusLabel = nullptr;
    ExtractionPreview *preview = nullptr;
    ReviewGrid *grid = nullptr;
    ReviewRowEditor *editor = nullptr;
};
