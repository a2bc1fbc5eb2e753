#pragma once

#include <QString>
#include <QStringList>

/// Where the external programs that read a PDF lie: in `tools/` near the application or near the
/// working directory. Each lookup also gives the places where it looked, for the log.
namespace PdfTools {

/// A tool's path, empty if it was not found, and every place that was checked for it.
struct Found
{
    QString path;
    QStringList checked;
    /// Whether it lies in `tools/`, rather than on the system's PATH.
    bool inTools = false;
};

/// The name of an executable file: with ".exe" on Windows, as it is elsewhere.
QString executableName(const QString &baseName);

/// The folders to look in, in order: the relative folder under the application's directory and
/// under one, two and three levels above it, then the same from the working directory. At most
/// eight; fewer near the root, and none twice.
QStringList candidateToolRoots(const QString &relativeFolder);

/// The first of those folders' files with this name.
Found findToolFile(const QString &relativeFolder, const QString &fileName);

/// `pdftotext` from `tools/poppler`, or else the one on the system's PATH.
Found findPdfToText();

/// `pdftoppm` from `tools/poppler`.
Found findPdfToPpm();

/// `tesseract` from `tools/tesseract`.
Found findTesseract();

/// The folder `tools/tesseract/tessdata`, if it holds the English language data.
Found findTessdataDir();

} // namespace PdfTools
