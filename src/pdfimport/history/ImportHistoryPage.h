#pragma once

#include "pdfimport/history/ImportHistoryRepository.h"

#include <QWidget>

#include <functional>

class DataTable;
class QBoxLayout;
class QLabel;
class LongTextView;

/// The audit page: what was imported, exported and replaced, and when. Deleting a row here deletes
/// no data, but lets the settlement that it tells of be imported again.
class ImportHistoryPage : public QWidget
{
    Q_OBJECT

public:
    /// Builds the page and loads the log of the file near the application, if there is one.
    explicit ImportHistoryPage(QWidget *parent = nullptr);

    /// Takes each text that the page's own status line shows. It may stay empty.
    std::function<void(const QString &text)> statusCallback;

public Q_SLOTS:
    /// Reads the log afresh and shows its newest row.
    void refreshHistory();

    /// Asks, deletes the selected row of the log, and reads it afresh.
    void deleteSelectedHistoryRow();

    /// Shows all of the selected row.
    void showSelectedHistoryDetails();

private:
    void buildLayout();
    QBoxLayout *buildActions();
    void buildDetails(QBoxLayout *layout);
    void showRows();
    void showRow(int line, const ImportHistoryRow &row);
    [[nodiscard]] const ImportHistoryRow *selectedRow() const;
    void report(const QString &text);

    QList<ImportHistoryRow> rows;
    DataTable *grid = nullptr;
    LongTextView *detailsBox = nullptr;
    QLabel *statusLabel = nullptr;
};
