#pragma once

#include <QGroupBox>

class DataTable;
class QPlainTextEdit;
struct SettlementParseResult;

/// Shows what was read from a PDF and how: its pages, its text and the log of the steps.
class ExtractionPreview : public QGroupBox
{
    Q_OBJECT

public:
    explicit ExtractionPreview(QWidget *parent = nullptr);

    /// Shows pages, text and log of the settlement.
    void showSettlement(const SettlementParseResult &parsed);

    /// Shows the log lines in place of those before.
    void showLog(const QStringList &lines);

private:
    void buildLayout();
    void showPages(const QStringList &pages);
    QPlainTextEdit *buildBox(const QString &objectName, int leastHeight);

    DataTable *pageTable = nullptr;
    QPlainTextEdit *textBox = nullptr;
    QPlainTextEdit *logBox = nullptr;
};
