#include "reports/totals/TotalsSection.h"

#include "reports/totals/TotalsTable.h"
#include "ui/PageParts.h"

#include <QHeaderView>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

TotalsSection::TotalsSection(const QString &title, const QString &firstSummary,
                             TotalsTable *sectionTable, int leastRows, QWidget *parent)
    : QGroupBox(title, parent)
    , summaryLabel(PageParts::makeNote(firstSummary, this))
    , buttons(new QHBoxLayout)
    , table(sectionTable)
    , leastVisibleRows(leastRows)
{
    summaryLabel->setObjectName(table->objectName() + "Summary"_L1);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(summaryLabel);
    layout->addLayout(buttons);
    layout->addWidget(table, 1);
    fitTable();
}

void TotalsSection::showTotals(const QString &summary, const QList<QStringList> &rows)
{
    summaryLabel->setText(summary);
    table->showRows(rows);
}

void TotalsSection::fitTable()
{
    const QHeaderView *header = table->horizontalHeader();
    const int headerHeight = std::max(header->sizeHint().height(), header->minimumHeight());
    const int rowHeight = table->verticalHeader()->defaultSectionSize();
    table->setMinimumHeight(headerHeight + leastVisibleRows * rowHeight + 2 * table->frameWidth());
}
