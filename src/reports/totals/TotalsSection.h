#pragma once

#include <QGroupBox>

class QBoxLayout;
class QLabel;
class TotalsTable;

/// One of the sections of the Totals page: a summary in words, buttons if it has any, and a table.
class TotalsSection : public QGroupBox
{
    Q_OBJECT

public:
    /// The table is read below the summary; `leastRows` of its rows are always in sight.
    TotalsSection(const QString &title, const QString &firstSummary, TotalsTable *sectionTable,
                  int leastRows, QWidget *parent);

    /// The row of buttons between summary and table, for the page to fill.
    [[nodiscard]] QBoxLayout *buttonRow() const { return buttons; }

    void showTotals(const QString &summary, const QList<QStringList> &rows);
    /// Keeps room for the least rows at their present height.
    void fitTable();

private:
    QLabel *summaryLabel = nullptr;
    QBoxLayout *buttons = nullptr;
    TotalsTable *table = nullptr;
    int leastVisibleRows;
};
