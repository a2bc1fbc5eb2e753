#include "pdfimport/review/ExtractionPreview.h"

#include "pdfimport/SettlementParser.h"
#include "ui/DataCell.h"
#include "ui/DataTable.h"
#include "ui/PageParts.h"

#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int leastTableHeight = 140;
constexpr int leastTextHeight = 160;
constexpr int leastLogHeight = 100;
constexpr int previewedCharacters = 500;

enum PageColumn { PageNumberColumn, PageTextColumn, PageColumnCount };

} // namespace

ExtractionPreview::ExtractionPreview(QWidget *parent)
    : QGroupBox(parent)
{
    setTitle(tr("Extraction Preview"));
    buildLayout();
}

void ExtractionPreview::buildLayout()
{
    pageTable = new DataTable(u"importPages"_s, tr("Pages"), leastTableHeight, this);
    pageTable->setColumnCount(PageColumnCount);
    pageTable->setHorizontalHeaderLabels({tr("Page"), tr("Text Preview")});
    pageTable->horizontalHeader()->setStretchLastSection(true);
    // A page is far wider than the table: its header's middle would be out of sight.
    pageTable->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    textBox = buildBox(u"importText"_s, leastTextHeight);
    logBox = buildBox(u"importLog"_s, leastLogHeight);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(PageParts::makeCaption(tr("Page-by-page preview:"), pageTable));
    layout->addWidget(pageTable);
    layout->addWidget(PageParts::makeCaption(tr("Full extracted text:"), textBox));
    layout->addWidget(textBox);
    layout->addWidget(PageParts::makeCaption(tr("Pipeline log:"), logBox));
    layout->addWidget(logBox);
}

QPlainTextEdit *ExtractionPreview::buildBox(const QString &objectName, int leastHeight)
{
    auto *box = new QPlainTextEdit(this);
    box->setObjectName(objectName);
    box->setReadOnly(true);
    box->setMinimumHeight(leastHeight);
    return box;
}

void ExtractionPreview::showSettlement(const SettlementParseResult &parsed)
{
    showPages(parsed.pageTexts);
    showLog(parsed.logLines);
    textBox->setPlainText(parsed.rawText);
}

void ExtractionPreview::showPages(const QStringList &pages)
{
    pageTable->setRowCount(static_cast<int>(pages.size()));
    for (int row = 0; row < pageTable->rowCount(); ++row) {
        const QString preview = pages.at(row).left(previewedCharacters).simplified();
        pageTable->setItem(row, PageNumberColumn,
                           new DataCell(DataCell::Form::Number, QString::number(row + 1)));
        pageTable->setItem(row, PageTextColumn, new DataCell(DataCell::Form::Text, preview));
    }
    pageTable->resizeColumnsToContents();
}

void ExtractionPreview::showLog(const QStringList &lines)
{
    logBox->setPlainText(lines.join(u'\n'));
}
