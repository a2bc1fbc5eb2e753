#include "pdfimport/tools/PdfTools.h"
#include "pdfimport/tools/ToolScripts.h"
#include "support/TestProgram.h"

using namespace Qt::StringLiterals;

namespace {

const QString noOcrTools =
    u"PDF text extraction returned no text and OCR fallback could not start. Verify bundled tools "
    "exist at tools\\poppler\\pdftoppm.exe, tools\\tesseract\\tesseract.exe, and "
    "tools\\tesseract\\tessdata\\eng.traineddata."_s;

/// The lines that tell where a tool was looked for.
QStringList checkedLines(const QString &tool, const QStringList &places)
{
    QStringList lines{u"Checked for %1:"_s.arg(tool)};
    for (const QString &place : places)
        lines.append(u"  "_s + place);
    return lines;
}

QStringList ocrCheckFailed()
{
    QStringList lines{u"OCR tool check failed."_s};
    lines += checkedLines(u"pdftoppm"_s, PdfTools::findPdfToPpm().checked);
    lines += checkedLines(u"tesseract"_s, PdfTools::findTesseract().checked);
    lines += checkedLines(u"tessdata/eng.traineddata"_s, PdfTools::findTessdataDir().checked);
    return lines << noOcrTools;
}

} // namespace

class tst_PdfTextExtractorFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPathThatIsNoFileIsToldAndNoToolIsLookedUp_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("missing") << u"missing.pdf"_s;
        QTest::newRow("a folder") << u"folder.pdf"_s;
        QTest::newRow("empty") << u""_s;
        QTest::newRow("blanks") << u"  "_s;
    }

    void aPathThatIsNoFileIsToldAndNoToolIsLookedUp()
    {
        QFETCH(const QString, name);
        const Workspace workspace;
        workspace.makeFile(u"folder.pdf/page"_s, "");
        workspace.makeTool(textTool, "echo pay >\"$3\"\n");
        const PdfExtractionResult result = extracted(workspace, name);
        QCOMPARE(result.success, false);
        QCOMPARE(result.errorMessage, u"PDF file does not exist."_s);
        QCOMPARE(result.logLines, QStringList(u"PDF file does not exist."_s));
        QCOMPARE(result.rawText, u""_s);
        QCOMPARE(result.pageTexts, QStringList());
    }

    void pdfToTextGetsItsArgumentsInOrderAndRunsInItsOwnFolder()
    {
        const Workspace workspace;
        workspace.makeTool(textTool, tellsItsArguments + QByteArray("echo pay >\"$3\"\n"));
        QVERIFY(extractedPay(workspace).success);
        const QStringList told = argumentsTold(workspace, u"tools/poppler"_s);
        QCOMPARE(told.size(), 3);
        QCOMPARE(told.first(2), (QStringList{u"-layout"_s, workspace.path(u"pay.pdf"_s)}));
        QVERIFY(told.at(2).startsWith(workspace.path(u"temporary/"_s)));
    }

    void aPathBelowTheCurrentDirectoryIsFoundByToolsThatRunElsewhere()
    {
        const Workspace workspace;
        workspace.makeTool(textTool, tellsItsArguments + QByteArray("echo pay >\"$3\"\n"));
        workspace.makeFile(u"-week/pay.pdf"_s, "%PDF-1.4");
        QVERIFY(extracted(workspace, u"-week/pay.pdf"_s).success);
        QCOMPARE(argumentsTold(workspace, u"tools/poppler"_s).value(1),
                 workspace.path(u"-week/pay.pdf"_s));
    }

    void textWithWarningsIsTakenAndTheWarningsAreLoggedFirst()
    {
        const Workspace workspace;
        workspace.makeTool(textTool, "printf ' 1,842.00 ' >\"$3\"; echo ' odd font ' >&2\n");
        const PdfExtractionResult result = extractedPay(workspace);
        QCOMPARE(result.success, true);
        QCOMPARE(result.errorMessage, u""_s);
        QCOMPARE(result.rawText, u" 1,842.00 "_s);
        QCOMPARE(result.pageTexts, QStringList(u" 1,842.00 "_s));
        QCOMPARE(result.logLines, usingTextTool(workspace)
                                      << u"pdftotext stderr: odd font"_s
                                      << u"Extracted 1 page text block(s) with pdftotext."_s
                                      << u"Extracted 10 characters with pdftotext."_s);
    }

    void onlyPagesWithNothingAtAllAreSkipped_data()
    {
        QTest::addColumn<QByteArray>("written");
        QTest::addColumn<QStringList>("pages");
        QTest::newRow("one after another") << QByteArray("a\\fb\\f") << QStringList{u"a"_s, u"b"_s};
        QTest::newRow("empty ones")
            << QByteArray("\\f\\fa\\f\\f\\fb\\f\\f") << QStringList{u"a"_s, u"b"_s};
        QTest::newRow("one of blanks")
            << QByteArray("a\\f  \\fb") << QStringList{u"a"_s, u"  "_s, u"b"_s};
        QTest::newRow("one of a line end") << QByteArray("\\n\\fa") << QStringList{u"\n"_s, u"a"_s};
        QTest::newRow("lines of Windows") << QByteArray("a\\r\\nb\\f") << QStringList{u"a\nb"_s};
        QTest::newRow("no form feed") << QByteArray("a\\n") << QStringList{u"a\n"_s};
    }

    void onlyPagesWithNothingAtAllAreSkipped()
    {
        QFETCH(const QByteArray, written);
        QFETCH(const QStringList, pages);
        const Workspace workspace;
        workspace.makeTool(textTool, "printf '" + written + "' >\"$3\"\n");
        const PdfExtractionResult result = extractedPay(workspace);
        QCOMPARE(result.success, true);
        QCOMPARE(result.pageTexts, pages);
    }

    void aSingleCharacterIsTextEnough()
    {
        const Workspace workspace;
        workspace.makeTool(textTool, "printf '.' >\"$3\"\n");
        makeOcrTools(workspace, makesOnePage, readsThePage);
        const PdfExtractionResult result = extractedPay(workspace);
        QCOMPARE(result.success, true);
        QCOMPARE(result.rawText, u"."_s);
        QCOMPARE(result.logLines.last(), u"Extracted 1 characters with pdftotext."_s);
    }

    void withoutAnyToolTheLogTellsWhereEachWasLookedFor()
    {
        const Workspace workspace;
        const EnvironmentValue path("PATH", workspace.path(u"bin"_s));
        const PdfExtractionResult result = extractedPay(workspace);
        QCOMPARE(result.success, false);
        QCOMPARE(result.errorMessage, noOcrTools);
        QStringList lines{u"pdftotext was not found. OCR fallback will be attempted."_s};
        lines += checkedLines(u"pdftotext"_s, PdfTools::findPdfToText().checked);
        QCOMPARE(lines.last(), u"  System PATH: pdftotext"_s);
        QCOMPARE(result.logLines, lines + ocrCheckFailed());
    }

    void blankTextAndNoOcrToolsIsTheLongFailureAndKeepsTheBlankText()
    {
        const Workspace workspace;
        workspace.makeTool(textTool, "printf ' \\n\\f' >\"$3\"\n");
        const PdfExtractionResult result = extractedPay(workspace);
        QCOMPARE(result.success, false);
        QCOMPARE(result.errorMessage, noOcrTools);
        QCOMPARE(result.rawText, u" \n\f"_s);
        QCOMPARE(result.pageTexts, QStringList());
        QCOMPARE(result.logLines,
                 usingTextTool(workspace)
                     << u"pdftotext returned no usable text. OCR fallback will be attempted."_s
                     << ocrCheckFailed());
    }

    void anyOneMissingOcrToolStopsTheOcr_data()
    {
        QTest::addColumn<QString>("missing");
        QTest::newRow("pdftoppm") << pictureTool;
        QTest::newRow("tesseract") << ocrTool;
        QTest::newRow("English") << englishData;
    }

    void anyOneMissingOcrToolStopsTheOcr()
    {
        QFETCH(const QString, missing);
        const Workspace workspace;
        workspace.makeTool(textTool, writesNothing);
        makeOcrTools(workspace, ": >ran\n", ": >ran\n");
        QVERIFY(QFile::remove(workspace.path(missing)));
        const PdfExtractionResult result = extractedPay(workspace);
        QCOMPARE(result.success, false);
        QCOMPARE(result.errorMessage, noOcrTools);
        QCOMPARE(result.logLines.mid(3), ocrCheckFailed());
        QVERIFY(!QFile::exists(workspace.path(u"tools/poppler/ran"_s)));
        QVERIFY(!QFile::exists(workspace.path(u"tools/tesseract/ran"_s)));
    }

    void aFailingPdfToTextLeadsToOcrWhichReadsThePages()
    {
        const Workspace workspace;
        workspace.makeTool(textTool, "echo kept >\"$3\"; echo ' damaged ' >&2; exit 3\n");
        makeOcrTools(workspace, makesOnePage, readsThePage);
        const PdfExtractionResult result = extractedPay(workspace);
        QCOMPARE(result.success, true);
        QCOMPARE(result.errorMessage, u""_s);
        QCOMPARE(result.rawText, u"text of page-1.png"_s);
        QCOMPARE(result.pageTexts, QStringList(u"text of page-1.png"_s));
        QCOMPARE(result.logLines,
                 usingTextTool(workspace)
                     << u"pdftotext stderr: damaged"_s
                     << u"pdftotext failed with exit code 3. OCR fallback will be attempted."_s
                     << usingOcrTools(workspace) << u"Rendered 1 page image(s) for OCR."_s
                     << u"OCR page 1 produced 18 characters."_s
                     << u"OCR fallback extracted 1 page text block(s)."_s
                     << u"OCR fallback extracted 18 characters."_s);
    }

    void aPdfToTextThatCannotStartLeadsToOcr()
    {
        const Workspace workspace;
        const QString tool = workspace.makeFile(textTool, "no program");
        makeOcrTools(workspace, makesOnePage, readsThePage);
        const PdfExtractionResult result = extractedPay(workspace);
        QCOMPARE(result.success, true);
        QCOMPARE(result.logLines.mid(2, 2),
                 (QStringList{
                     u"pdftotext stderr: Could not start process: "_s + tool,
                     u"pdftotext failed with exit code -1. OCR fallback will be attempted."_s}));
        QCOMPARE(result.logLines.mid(4, 3), usingOcrTools(workspace));
    }

    void textThatIsGoneLeadsToOcr()
    {
        const Workspace workspace;
        workspace.makeTool(textTool, "rm \"$3\"\n");
        makeOcrTools(workspace, makesOnePage, readsThePage);
        const PdfExtractionResult result = extractedPay(workspace);
        QCOMPARE(result.success, true);
        QCOMPARE(
            result.logLines.mid(2, 1),
            QStringList(u"Could not read pdftotext output. OCR fallback will be attempted."_s));
        QCOMPARE(result.logLines.mid(3, 3), usingOcrTools(workspace));
    }

    void withoutAFileForTheTextOcrIsNotTried()
    {
        const Workspace workspace;
        workspace.makeTool(textTool, ": >ran\n");
        makeOcrTools(workspace, ": >ran\n", readsThePage);
        const QString pdf = workspace.makeFile(u"pay.pdf"_s, "%PDF-1.4");
        const EnvironmentValue temporary("TMPDIR", pdf); // no one can make a file in a file
        const PdfExtractionResult result = PdfTextExtractor::extract(pdf);
        QCOMPARE(result.success, false);
        QCOMPARE(result.errorMessage, u"Could not create temporary text output file."_s);
        QCOMPARE(result.logLines, usingTextTool(workspace) << result.errorMessage);
        QVERIFY(!QFile::exists(workspace.path(u"tools/poppler/ran"_s)));
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_PdfTextExtractorFailures)
#include "tst_PdfTextExtractorFailures.moc"
