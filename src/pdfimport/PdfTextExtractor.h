#pragma once

#include <QString>
#include <QStringList>

/// What an extraction gave.
struct PdfExtractionResult
{
    /// Whether there is usable text, from either stage.
    bool success = false;
    /// Why there is none; empty on success, whatever failed on the way there.
    QString errorMessage;
    /// The whole text. After a failure it may hold blank text, so go by `success`.
    QString rawText;
    /// The text by pages.
    QStringList pageTexts;
    /// Every step in its order, for a person to read.
    QStringList logLines;
};

/// Turns a PDF into plain text by the external programs that PdfTools finds. It knows nothing of
/// settlements and holds nothing between calls.
namespace PdfTextExtractor {

/// Reads the text of the file with `pdftotext`. If that gives nothing usable, renders the pages
/// with `pdftoppm` and reads each picture with `tesseract`. Blocks until the tools are done: at
/// most a minute for the text, and two for the pictures and for each page of them. Temporary files
/// are gone when it returns, however it ends.
PdfExtractionResult extract(const QString &pdfPath);

/// The page number in a picture's file name, as in "page-12.png"; 0 without one.
int ocrPageNumber(const QString &fileName);

/// The absolute paths of the pictures in `folder`, by page number and then by name.
QStringList listOcrImages(const QString &folder);

} // namespace PdfTextExtractor
