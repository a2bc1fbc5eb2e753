#pragma once

#include "pdfimport/SettlementParser.h"

#include <functional>

struct PdfExtractionResult;
class QWidget;

/// Asks for a settlement PDF and reads the fuel and DEF rows of one trip out of it. The window
/// stands still while the PDF is read. Whatever goes wrong is told in a box and the status line
/// over `page`; then, or if the person thinks better of it, the result is empty.
QList<FuelReviewRow> scanSettlementForFuel(QWidget *page, const QString &tripNo,
                                           const std::function<void(const QString &)> &report);

/// What the box says of an extraction that failed: the reason, and the steps up to it.
QString fuelScanFailureText(const PdfExtractionResult &extracted);
