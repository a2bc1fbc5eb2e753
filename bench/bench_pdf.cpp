// Reading settlement PDFs, beside the tools run by hand. It makes its own files and needs no
// sample.

#include "bench/Ratio.h"
#include "pdfimport/PdfTextExtractor.h"
#include "pdfimport/SettlementParser.h"
#include "samples/PdfFile.h"
#include "samples/SampleBusiness.h"
#include "samples/SampleSettlements.h"

#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

QList<QStringList> settlementPages(qsizetype count)
{
    QList<QStringList> pages;
    for (const SampleWeek &week : makeSampleBusiness(3, 1).weeks.last(count))
        pages.append(settlementPage(week));
    return pages;
}

void writePages(const QString &path, qsizetype count, PdfMake make)
{
    QString error;
    if (!writePdf(path, settlementPages(count), make, error))
        qFatal("%s", qPrintable(error));
}

QString outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        qFatal("%s failed.", qPrintable(program));
    return QString::fromLocal8Bit(process.readAllStandardOutput());
}

void benchText(const QTemporaryDir &folder, qsizetype pages)
{
    const QString pdf = folder.filePath(u"text.pdf"_s);
    writePages(pdf, pages, PdfMake::Text);
    print(measured(
        u"Extraction of %1 pages of text"_s.arg(pages), 1.15, 25,
        [&pdf] { PdfTextExtractor::extract(pdf); },
        [&] {
            outputOf(u"pdftotext"_s, {u"-layout"_s, pdf, folder.filePath(u"out.txt"_s)});
        }));
}

void benchScan(const QTemporaryDir &folder)
{
    const QString pdf = folder.filePath(u"scan.pdf"_s);
    writePages(pdf, 1, PdfMake::Scan);
    QString ours;
    QString theirs;
    print(measured(
        u"OCR of a page"_s, 0.5, 5, [&] { ours = PdfTextExtractor::extract(pdf).rawText; },
        [&] {
            outputOf(u"pdftoppm"_s,
                     {u"-r"_s, u"300"_s, u"-png"_s, pdf, folder.filePath(u"page"_s)});
            theirs = outputOf(u"tesseract"_s, {folder.filePath(u"page-1.png"_s), u"stdout"_s});
        }));
    if (ours != theirs.trimmed())
        qFatal("The two texts differ.");
}

void benchParser(const QTemporaryDir &folder)
{
    const QString pdf = folder.filePath(u"long.pdf"_s);
    writePages(pdf, 150, PdfMake::Text);
    const QString text = PdfTextExtractor::extract(pdf).rawText;
    print(measured(
        u"Parsing of 150 pages"_s, 0.1, 9, [&] { SettlementParser::parse(pdf, text, {}); },
        [&] {
            outputOf(u"pdftotext"_s, {u"-layout"_s, pdf, folder.filePath(u"out.txt"_s)});
        }));

    const QString page = settlementPages(1).constFirst().join(u'\n') + u'\n';
    for (const int factor : {1, 10}) {
        const QString shorter = page.repeated(factor);
        const QString longer = shorter.repeated(10);
        print(measured(
            u"Parsing of %1 pages, beside ten times %2"_s.arg(factor * 10).arg(factor), 1.15, 9,
            [&] { SettlementParser::parse({}, longer, {}); },
            [&] {
                for (int i = 0; i < 10; ++i)
                    SettlementParser::parse({}, shorter, {});
            }));
    }
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // it sets type, but shows nothing
    const QGuiApplication application(argc, argv);
    const QTemporaryDir folder;
    QTextStream(stdout) << u"what | product | floor | ratio | limit | \n"_s;
    benchText(folder, 1);
    benchText(folder, 15);
    benchScan(folder);
    benchParser(folder);
    return 0;
}
