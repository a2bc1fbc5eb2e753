#include "pdfimport/PdfTextExtractor.h"

#include "pdfimport/tools/PdfTools.h"
#include "pdfimport/tools/ToolProcess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QTextStream>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace PdfTextExtractor {

namespace {

constexpr int textLimitMs = 60'000;
constexpr int renderLimitMs = 120'000;
constexpr int ocrPageLimitMs = 120'000;
constexpr QChar formFeed = u'\f';

/// One run of a tool as the log tells of it.
struct ToolRun
{
    bool succeeded = false;
    int exitCode = 0;
    QString output;
};

/// One extraction under way: each step writes into its result.
class Extraction
{
public:
    explicit Extraction(const QString &pdfPath)
        // Absolute, because the tools run in their own folder, and so that a name with a leading
        // dash is no option.
        : path(QFileInfo(pdfPath).absoluteFilePath())
    {
    }

    PdfExtractionResult run();

private:
    enum class TextStage { Done, NeedsOcr };

    TextStage readText();
    bool runPdfToText(const QString &program, const QString &outputPath);
    void takeText();
    void readByOcr();
    void readPictures(const QStringList &pictures, const QString &tesseract,
                      const QString &tessdata);
    void takePages(const QStringList &pages);

    ToolRun runTool(const QString &program, const QStringList &arguments, int timeoutMs,
                    const QString &errorLabel);
    void log(const QString &line) { result.logLines.append(line); }
    void logChecked(const QString &what, const QStringList &places);
    void fail(const QString &reason);

    QString path;
    PdfExtractionResult result;
};

PdfExtractionResult Extraction::run()
{
    if (!QFileInfo(path).isFile())
        fail(u"PDF file does not exist."_s);
    else if (readText() == TextStage::NeedsOcr)
        readByOcr();
    return result;
}

Extraction::TextStage Extraction::readText()
{
    const PdfTools::Found tool = PdfTools::findPdfToText();
    if (tool.path.isEmpty()) {
        log(u"pdftotext was not found. OCR fallback will be attempted."_s);
        logChecked(u"pdftotext"_s, tool.checked);
        return TextStage::NeedsOcr;
    }
    log("Using pdftotext: "_L1 + tool.path);
    log(tool.inTools ? u"Using bundled Poppler from tools\\poppler."_s
                     : u"Using pdftotext from system PATH fallback."_s);

    QTemporaryFile text; // pdftotext writes over it; it goes with this object
    if (!text.open()) {
        fail(u"Could not create temporary text output file."_s);
        return TextStage::Done;
    }
    text.close();
    if (!runPdfToText(tool.path, text.fileName()))
        return TextStage::NeedsOcr;
    takeText();
    return result.success ? TextStage::Done : TextStage::NeedsOcr;
}

bool Extraction::runPdfToText(const QString &program, const QString &outputPath)
{
    const ToolRun tool =
        runTool(program, {u"-layout"_s, path, outputPath}, textLimitMs, u"pdftotext stderr: "_s);
    if (!tool.succeeded) {
        log(u"pdftotext failed with exit code %1. OCR fallback will be attempted."_s.arg(
            tool.exitCode));
        return false;
    }
    QFile output(outputPath);
    if (!output.open(QIODevice::ReadOnly | QIODevice::Text)) {
        log(u"Could not read pdftotext output. OCR fallback will be attempted."_s);
        return false;
    }
    result.rawText = QTextStream(&output).readAll();
    return true;
}

void Extraction::takeText()
{
    if (result.rawText.trimmed().isEmpty()) {
        log(u"pdftotext returned no usable text. OCR fallback will be attempted."_s);
        return;
    }
    result.pageTexts = result.rawText.split(formFeed, Qt::SkipEmptyParts);
    result.success = true;
    log(u"Extracted %1 page text block(s) with pdftotext."_s.arg(result.pageTexts.size()));
    log(u"Extracted %1 characters with pdftotext."_s.arg(result.rawText.size()));
}

void Extraction::readByOcr()
{
    const PdfTools::Found pdftoppm = PdfTools::findPdfToPpm();
    const PdfTools::Found tesseract = PdfTools::findTesseract();
    const PdfTools::Found tessdata = PdfTools::findTessdataDir();
    if (pdftoppm.path.isEmpty() || tesseract.path.isEmpty() || tessdata.path.isEmpty()) {
        log(u"OCR tool check failed."_s);
        logChecked(u"pdftoppm"_s, pdftoppm.checked);
        logChecked(u"tesseract"_s, tesseract.checked);
        logChecked(u"tessdata/eng.traineddata"_s, tessdata.checked);
        fail(
            u"PDF text extraction returned no text and OCR fallback could not start. Verify "
            "bundled tools exist at tools\\poppler\\pdftoppm.exe, tools\\tesseract\\tesseract.exe, "
            "and tools\\tesseract\\tessdata\\eng.traineddata."_s);
        return;
    }
    log("Using pdftoppm for OCR image rendering: "_L1 + pdftoppm.path);
    log("Using Tesseract OCR: "_L1 + tesseract.path);
    log("Using Tesseract tessdata: "_L1 + tessdata.path);

    const QTemporaryDir folder;
    if (!folder.isValid()) {
        fail(u"Could not create temporary OCR working folder."_s);
        return;
    }
    const ToolRun rendering =
        runTool(pdftoppm.path, {u"-r"_s, u"300"_s, u"-png"_s, path, folder.filePath(u"page"_s)},
                renderLimitMs, u"pdftoppm stderr: "_s);
    if (!rendering.succeeded) {
        fail(u"pdftoppm failed with exit code %1. OCR image rendering did not complete."_s.arg(
            rendering.exitCode));
        return;
    }
    const QStringList pictures = listOcrImages(folder.path());
    if (pictures.isEmpty()) {
        fail(u"pdftoppm did not produce any page images for OCR."_s);
        return;
    }
    log(u"Rendered %1 page image(s) for OCR."_s.arg(pictures.size()));
    readPictures(pictures, tesseract.path, tessdata.path);
}

void Extraction::readPictures(const QStringList &pictures, const QString &tesseract,
                              const QString &tessdata)
{
    QStringList pages;
    for (const QString &picture : pictures) {
        const QString page = QString::number(pages.size() + 1);
        const ToolRun reading = runTool(
            tesseract, {picture, u"stdout"_s, u"-l"_s, u"eng"_s, u"--tessdata-dir"_s, tessdata},
            ocrPageLimitMs, u"tesseract page %1 stderr: "_s.arg(page));
        if (!reading.succeeded) {
            fail(u"Tesseract OCR failed on page %1 with exit code %2."_s.arg(
                page, QString::number(reading.exitCode)));
            return;
        }
        pages.append(reading.output.trimmed()); // a blank page too: pages keep their places
        log(u"OCR page %1 produced %2 characters."_s.arg(page,
                                                         QString::number(pages.last().size())));
    }
    takePages(pages);
}

void Extraction::takePages(const QStringList &pages)
{
    result.rawText = pages.join("\n\f\n"_L1);
    result.pageTexts = pages;
    if (result.rawText.trimmed().isEmpty()) {
        fail(u"OCR completed but returned no readable text."_s);
        return;
    }
    result.success = true;
    log(u"OCR fallback extracted %1 page text block(s)."_s.arg(pages.size()));
    log(u"OCR fallback extracted %1 characters."_s.arg(result.rawText.size()));
}

ToolRun Extraction::runTool(const QString &program, const QStringList &arguments, int timeoutMs,
                            const QString &errorLabel)
{
    ToolRun tool;
    QString errorText;
    tool.succeeded = runProcess(program, arguments, QFileInfo(program).absolutePath(), timeoutMs,
                                &tool.output, &errorText, &tool.exitCode);
    if (!errorText.trimmed().isEmpty())
        log(errorLabel + errorText.trimmed());
    return tool;
}

void Extraction::logChecked(const QString &what, const QStringList &places)
{
    log(u"Checked for %1:"_s.arg(what));
    for (const QString &place : places)
        log("  "_L1 + place);
}

void Extraction::fail(const QString &reason)
{
    result.errorMessage = reason;
    log(reason);
}

} // namespace

PdfExtractionResult extract(const QString &pdfPath)
{
    return Extraction(pdfPath).run();
}

int ocrPageNumber(const QString &fileName)
{
    static const QRegularExpression ending(uR"(-(\d+)\.(?:png|ppm|pgm|pbm)$)"_s,
                                           QRegularExpression::CaseInsensitiveOption);
    return ending.match(fileName).captured(1).toInt();
}

QStringList listOcrImages(const QString &folder)
{
    const QDir directory(folder);
    QStringList names = directory.entryList({u"*.png"_s, u"*.ppm"_s, u"*.pgm"_s, u"*.pbm"_s},
                                            QDir::Files, QDir::Name);
    std::sort(names.begin(), names.end(), [](const QString &a, const QString &b) {
        const int pageA = ocrPageNumber(a);
        const int pageB = ocrPageNumber(b);
        return pageA != pageB ? pageA < pageB : a < b;
    });
    QStringList paths;
    for (const QString &name : names)
        paths.append(directory.absoluteFilePath(name));
    return paths;
}

} // namespace PdfTextExtractor
