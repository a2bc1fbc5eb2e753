#include "pdfimport/tools/Extraction.h"
#include "samples/PdfFile.h"
#include "support/TestProgram.h"

#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

const QString fuelLine = u"TRUCK FUEL TRIP 4471203 412.80"_s;

QString makePdf(const QString &fileName, const QList<QStringList> &pages,
                PdfMake make = PdfMake::Text)
{
    QString error;
    if (!writePdf(fileName, pages, make, error))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    return QFileInfo(fileName).absoluteFilePath();
}

// A page that asks for a password which no one has: the check values belong to none.
constexpr auto lockedPdf = R"(%PDF-1.4
1 0 obj
<< /Type /Catalog /Pages 2 0 R >>
endobj
2 0 obj
<< /Type /Pages /Kids [3 0 R] /Count 1 >>
endobj
3 0 obj
<< /Type /Page /Parent 2 0 R /MediaBox [0 0 612 792] >>
endobj
4 0 obj
<< /Filter /Standard /V 1 /R 2 /P -4
   /O <0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f>
   /U <f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0f0> >>
endobj
xref
0 5
0000000000 65535 f 
0000000009 00000 n 
0000000058 00000 n 
0000000115 00000 n 
0000000186 00000 n 
trailer
<< /Size 5 /Root 1 0 R /Encrypt 4 0 R /ID [<00> <00>] >>
startxref
387
%%EOF
)";

} // namespace

class tst_PdfTextExtractor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theTextOfASettlementIsReadLineByLine()
    {
        const Workspace workspace;
        workspace.linkTools();
        const QString pdf =
            makePdf(u"pay.pdf"_s,
                    {{u"LINEHAUL TRIP 4471203   1,842.00"_s, u"REEFER FUEL       (25.00)"_s}});
        const PdfExtractionResult result = extracted(workspace, pdf);
        QCOMPARE(result.success, true);
        QCOMPARE(result.errorMessage, u""_s);
        QCOMPARE(result.pageTexts.size(), 1);
        QCOMPARE(result.pageTexts.first().simplified(),
                 u"LINEHAUL TRIP 4471203 1,842.00 REEFER FUEL (25.00)"_s);
        QCOMPARE(result.pageTexts.first().count(u'\n'), 2);
        QCOMPARE(result.rawText, result.pageTexts.first() + u'\f');
    }

    void theLogTellsOfTheToolAndOfWhatItGave()
    {
        const Workspace workspace;
        workspace.linkTools();
        const QString pdf = makePdf(u"pay.pdf"_s, {{fuelLine}, {fuelLine}});
        const PdfExtractionResult result = extracted(workspace, pdf);
        QCOMPARE(result.rawText, fuelLine + u"\n\f"_s + fuelLine + u"\n\f"_s);
        QCOMPARE(result.logLines,
                 (QStringList{u"Using pdftotext: "_s + workspace.path(u"tools/poppler/pdftotext"_s),
                              uR"(Using bundled Poppler from tools\poppler.)"_s,
                              u"Extracted 2 page text block(s) with pdftotext."_s,
                              u"Extracted 64 characters with pdftotext."_s}));
    }

    void withoutToolsOfItsOwnThePdfToTextOfTheSystemReads()
    {
        const Workspace workspace;
        const QString pdf = makePdf(u"pay.pdf"_s, {{fuelLine}});
        const PdfExtractionResult result = extracted(workspace, pdf);
        QCOMPARE(result.success, true);
        QCOMPARE(result.logLines, (QStringList{u"Using pdftotext: "_s
                                                   + QStandardPaths::findExecutable(u"pdftotext"_s),
                                               u"Using pdftotext from system PATH fallback."_s,
                                               u"Extracted 1 page text block(s) with pdftotext."_s,
                                               u"Extracted 32 characters with pdftotext."_s}));
    }

    void aBlankPageBetweenTwoIsLeftOut()
    {
        const Workspace workspace;
        const QString pdf = makePdf(u"pay.pdf"_s, {{u"first"_s}, {}, {u"last"_s}});
        const PdfExtractionResult result = extracted(workspace, pdf);
        QCOMPARE(result.pageTexts, (QStringList{u"first\n"_s, u"last\n"_s}));
        QCOMPARE(result.rawText, u"first\n\f\flast\n\f"_s);
    }

    void twoHundredPagesAreReadInTheirOrder()
    {
        const Workspace workspace;
        QList<QStringList> pages;
        QStringList expected;
        for (int page = 1; page <= 200; ++page) {
            pages.append({u"page %1"_s.arg(page)});
            expected.append(u"page %1\n"_s.arg(page));
        }
        const PdfExtractionResult result = extracted(workspace, makePdf(u"long.pdf"_s, pages));
        QCOMPARE(result.success, true);
        QCOMPARE(result.pageTexts, expected);
    }

    void anyFileNameIsRead_data()
    {
        QTest::addColumn<QString>("fileName");
        QTest::newRow("blanks") << u"week of  01 05.pdf"_s;
        QTest::newRow("quotes") << u"Joe's \"best\" `week`.pdf"_s;
        QTest::newRow("what a shell would take") << u"$HOME; * & (1) #2 \\.pdf"_s;
        QTest::newRow("letters of other languages") << u"réglement ä ß Ж 支払.pdf"_s;
        QTest::newRow("a percent sign") << u"100%1.pdf"_s;
        QTest::newRow("a leading dash") << u"-layout.pdf"_s;
        QTest::newRow("an option") << u"-"_s;
        QTest::newRow("no ending") << u"settlement"_s;
        QTest::newRow("in a folder") << u"-a folder/../pay.pdf"_s;
    }

    void anyFileNameIsRead()
    {
        QFETCH(const QString, fileName);
        const Workspace workspace;
        QDir().mkdir(u"-a folder"_s);
        const QString absolute = makePdf(workspace.path(fileName), {{fuelLine}});
        QCOMPARE(extracted(workspace, absolute).rawText, fuelLine + u"\n\f"_s);
        QCOMPARE(extracted(workspace, fileName).rawText, fuelLine + u"\n\f"_s);
    }

    void thePdfIsOnlyRead()
    {
        const Workspace workspace;
        const QString pdf = makePdf(u"pay.pdf"_s, {{fuelLine}});
        const QByteArray before = workspace.bytes(u"pay.pdf"_s);
        QVERIFY(QFile::setPermissions(pdf, QFile::ReadOwner));
        QCOMPARE(extracted(workspace, pdf).success, true);
        QCOMPARE(workspace.bytes(u"pay.pdf"_s), before);
    }

    void aScannedPageIsReadByOcr()
    {
        const Workspace workspace;
        workspace.linkTools();
        const QString pdf = makePdf(u"scan.pdf"_s, {{fuelLine}}, PdfMake::Scan);
        const PdfExtractionResult result = extracted(workspace, pdf);
        QCOMPARE(result.success, true);
        QCOMPARE(result.errorMessage, u""_s);
        QCOMPARE(result.rawText, fuelLine);
        QCOMPARE(result.pageTexts, QStringList(fuelLine));
        QCOMPARE(
            result.logLines.mid(2),
            (QStringList{
                u"pdftotext returned no usable text. OCR fallback will be attempted."_s,
                u"Using pdftoppm for OCR image rendering: "_s
                    + workspace.path(u"tools/poppler/pdftoppm"_s),
                u"Using Tesseract OCR: "_s + workspace.path(u"tools/tesseract/tesseract"_s),
                u"Using Tesseract tessdata: "_s + workspace.path(u"tools/tesseract/tessdata"_s),
                u"Rendered 1 page image(s) for OCR."_s, u"OCR page 1 produced 30 characters."_s,
                u"OCR fallback extracted 1 page text block(s)."_s,
                u"OCR fallback extracted 30 characters."_s}));
    }

    void aScanIsReadWithoutPdfToTextToo()
    {
        const Workspace workspace;
        workspace.linkTools();
        QVERIFY(QFile::remove(u"tools/poppler/pdftotext"_s));
        const EnvironmentValue path("PATH", workspace.path(u"bin"_s));
        const QString pdf = makePdf(u"-two pages é.pdf"_s, {{}, {fuelLine}}, PdfMake::Scan);
        const PdfExtractionResult result = extracted(workspace, pdf);
        QCOMPARE(result.success, true);
        QCOMPARE(result.errorMessage, u""_s);
        QCOMPARE(result.pageTexts, (QStringList{u""_s, fuelLine}));
        QCOMPARE(result.rawText, u"\n\f\n"_s + fuelLine);
        QCOMPARE(result.logLines.first(),
                 u"pdftotext was not found. OCR fallback will be attempted."_s);
        QCOMPARE(result.logLines.last(), u"OCR fallback extracted 33 characters."_s);
    }

    void pagesWithNothingOnThemGiveNoText_data()
    {
        QTest::addColumn<PdfMake>("make");
        QTest::newRow("of text") << PdfMake::Text;
        QTest::newRow("scanned") << PdfMake::Scan;
    }

    void pagesWithNothingOnThemGiveNoText()
    {
        QFETCH(const PdfMake, make);
        const Workspace workspace;
        workspace.linkTools();
        const PdfExtractionResult result =
            extracted(workspace, makePdf(u"blank.pdf"_s, {QStringList()}, make));
        QCOMPARE(result.success, false);
        QCOMPARE(result.errorMessage, u"OCR completed but returned no readable text."_s);
        QCOMPARE(result.logLines.last(), result.errorMessage);
        QCOMPARE(result.pageTexts, QStringList(u""_s));
    }

    void aFileThatPopplerCannotReadIsAFailure_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("a text") << QByteArray("LINEHAUL TRIP 4471203 1,842.00\n");
        QTest::newRow("only a beginning") << QByteArray("%PDF-1.4\n1 0 obj\n<< /Type /Cat");
        QTest::newRow("locked") << QByteArray(lockedPdf);
    }

    void aFileThatPopplerCannotReadIsAFailure()
    {
        QFETCH(const QByteArray, content);
        const Workspace workspace;
        workspace.linkTools();
        const PdfExtractionResult result =
            extracted(workspace, workspace.makeFile(u"bad.pdf"_s, content));
        QCOMPARE(result.success, false);
        QCOMPARE(result.errorMessage,
                 u"pdftoppm failed with exit code 1. OCR image rendering did not complete."_s);
        QCOMPARE(result.logLines.size(), 9);
        QVERIFY(result.logLines.at(2).startsWith(u"pdftotext stderr: "_s));
        QCOMPARE(result.logLines.at(3),
                 u"pdftotext failed with exit code 1. OCR fallback will be attempted."_s);
        QVERIFY(result.logLines.at(7).startsWith(u"pdftoppm stderr: "_s));
        QCOMPARE(result.logLines.at(8), result.errorMessage);
        QCOMPARE(result.rawText, u""_s);
    }

    void aSettlementThatWasCutOffIsAFailure()
    {
        const Workspace workspace;
        workspace.linkTools();
        makePdf(u"pay.pdf"_s, {{fuelLine}, {fuelLine}});
        const QByteArray whole = workspace.bytes(u"pay.pdf"_s);
        const QString half = workspace.makeFile(u"half.pdf"_s, whole.first(whole.size() / 2));
        const PdfExtractionResult result = extracted(workspace, half);
        QCOMPARE(result.success, false);
        QCOMPARE(result.errorMessage,
                 u"pdftoppm failed with exit code 1. OCR image rendering did not complete."_s);
    }
};

TEST_CLASS(tst_PdfTextExtractor)
#include "tst_PdfTextExtractor.moc"
