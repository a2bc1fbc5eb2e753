#include "trips/fuel/FuelScan.h"

#include "pdfimport/PdfTextExtractor.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("FuelScan", text);
}

PdfExtractionResult extractShowingThatItTakesTime(const QString &pdfPath)
{
    // The report stands in the status line only after it has been painted.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    PdfExtractionResult extracted = PdfTextExtractor::extract(pdfPath);
    QGuiApplication::restoreOverrideCursor();
    return extracted;
}

} // namespace

QString fuelScanFailureText(const PdfExtractionResult &extracted)
{
    QString text = extracted.errorMessage.trimmed();
    if (text.isEmpty())
        text = tr("PDF text/OCR extraction failed.");
    if (!extracted.logLines.isEmpty())
        text += tr("\n\nDetails:\n") + extracted.logLines.join(u'\n');
    return text;
}

QList<FuelReviewRow> scanSettlementForFuel(QWidget *page, const QString &tripNo,
                                           const std::function<void(const QString &)> &report)
{
    const QString pdfPath = QFileDialog::getOpenFileName(page, tr("Select Settlement PDF"), {},
                                                         tr("PDF Files (*.pdf);;All Files (*.*)"));
    if (pdfPath.isEmpty())
        return {};
    report(tr("Scanning settlement PDF for fuel rows on trip %1...").arg(tripNo));
    const PdfExtractionResult extracted = extractShowingThatItTakesTime(pdfPath);
    if (!extracted.success) {
        QMessageBox::warning(page, tr("Fuel Scan Failed"), fuelScanFailureText(extracted));
        report(tr("Fuel scan failed."));
        return {};
    }
    QList<FuelReviewRow> rows = SettlementParser::scanTripFuelRows(tripNo, extracted.rawText);
    if (rows.isEmpty()) {
        QMessageBox::information(
            page, tr("No Fuel Rows Found"),
            tr("No Truck Fuel, Reefer Fuel, or Def rows were found for trip %1.\n\nThe PDF was "
               "read, but the OCR/parser did not find matching fuel details for this trip.")
                .arg(tripNo));
        report(tr("No matching fuel rows found for trip %1.").arg(tripNo));
    }
    return rows;
}
