#include "pdfimport/tools/ToolScripts.h"
#include "support/TestProgram.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto makesThreePages = ": >\"$5-1.png\" >\"$5-2.png\" >\"$5-3.png\"\n";

/// The log from a blank text to where the pages are rendered.
QStringList blankTextThenOcr(const Workspace &workspace)
{
    return usingTextTool(workspace)
           << u"pdftotext returned no usable text. OCR fallback will be attempted."_s
           << usingOcrTools(workspace);
}

} // namespace

class tst_PdfTextExtractorOcr : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theOcrToolsGetTheirArgumentsInOrderAndRunInTheirOwnFolders()
    {
        const Workspace workspace;
        workspace.makeTool(textTool, writesNothing);
        makeOcrTools(workspace, QByteArray(tellsItsArguments) + makesOnePage,
                     QByteArray(tellsItsArguments) + readsThePage);
        QVERIFY(extractedPay(workspace).success);
        const QStringList told = argumentsTold(workspace, u"tools/poppler"_s);
        QCOMPARE(told.size(), 5);
        QCOMPARE(told.first(4),
                 (QStringList{u"-r"_s, u"300"_s, u"-png"_s, workspace.path(u"pay.pdf"_s)}));
        QVERIFY(told.at(4).startsWith(workspace.path(u"temporary/"_s)));
        QCOMPARE(QFileInfo(told.at(4)).fileName(), u"page"_s);
        QCOMPARE(argumentsTold(workspace, u"tools/tesseract"_s),
                 (QStringList{told.at(4) + u"-1.png"_s, u"stdout"_s, u"-l"_s, u"eng"_s,
                              u"--tessdata-dir"_s, workspace.path(u"tools/tesseract/tessdata"_s)}));
    }

    void withoutAFolderForThePicturesThereIsNoOcr()
    {
        const Workspace workspace;
        makeOcrTools(workspace, ": >ran\n", readsThePage);
        const QString pdf = workspace.makeFile(u"pay.pdf"_s, "%PDF-1.4");
        const EnvironmentValue path("PATH", workspace.path(u"bin"_s));
        const EnvironmentValue temporary("TMPDIR", pdf); // no one can make a file in a file
        const PdfExtractionResult result = PdfTextExtractor::extract(pdf);
        QCOMPARE(result.success, false);
        QCOMPARE(result.errorMessage, u"Could not create temporary OCR working folder."_s);
        QCOMPARE(result.logLines.mid(result.logLines.size() - 4), usingOcrTools(workspace)
                                                                      << result.errorMessage);
        QVERIFY(!QFile::exists(workspace.path(u"tools/poppler/ran"_s)));
    }

    void aFailingPdfToPpmEndsTheExtraction()
    {
        const Workspace workspace;
        workspace.makeTool(textTool, writesNothing);
        makeOcrTools(workspace, QByteArray(makesOnePage) + "echo ' no pages ' >&2; exit 9\n",
                     readsThePage);
        const PdfExtractionResult result = extractedPay(workspace);
        QCOMPARE(result.success, false);
        QCOMPARE(result.errorMessage,
                 u"pdftoppm failed with exit code 9. OCR image rendering did not complete."_s);
        QCOMPARE(result.logLines, blankTextThenOcr(workspace)
                                      << u"pdftoppm stderr: no pages"_s << result.errorMessage);
        QCOMPARE(result.pageTexts, QStringList());
    }

    void aPdfToPpmThatCannotStartEndsTheExtraction()
    {
        const Workspace workspace;
        workspace.makeTool(textTool, writesNothing);
        makeOcrTools(workspace, makesOnePage, readsThePage);
        QVERIFY(QFile::setPermissions(workspace.path(pictureTool), QFile::ReadOwner));
        const PdfExtractionResult result = extractedPay(workspace);
        QCOMPARE(result.errorMessage,
                 u"pdftoppm failed with exit code -1. OCR image rendering did not complete."_s);
        QCOMPARE(result.logLines, blankTextThenOcr(workspace)
                                      << u"pdftoppm stderr: Could not start process: "_s
                                             + workspace.path(pictureTool)
                                      << result.errorMessage);
    }

    void noPicturesEndTheExtraction()
    {
        const Workspace workspace;
        workspace.makeTool(textTool, writesNothing);
        makeOcrTools(workspace, ": >\"$5-1.txt\"; mkdir \"$5-2.png\"; echo none >&2\n",
                     readsThePage);
        const PdfExtractionResult result = extractedPay(workspace);
        QCOMPARE(result.success, false);
        QCOMPARE(result.errorMessage, u"pdftoppm did not produce any page images for OCR."_s);
        QCOMPARE(result.logLines, blankTextThenOcr(workspace)
                                      << u"pdftoppm stderr: none"_s << result.errorMessage);
    }

    void twelvePagesAreReadInTheirOrder()
    {
        const Workspace workspace;
        workspace.makeTool(textTool, writesNothing);
        makeOcrTools(workspace,
                     "for page in 12 11 10 9 8 7 6 5 4 3 2 1; do : >\"$5-$page.png\"; done\n",
                     readsThePage);
        const PdfExtractionResult result = extractedPay(workspace);
        QStringList pages;
        for (int page = 1; page <= 12; ++page)
            pages.append(u"text of page-%1.png"_s.arg(page));
        QCOMPARE(result.success, true);
        QCOMPARE(result.pageTexts, pages);
        QCOMPARE(result.rawText, pages.join(u"\n\f\n"_s));
        QVERIFY(result.logLines.contains(u"Rendered 12 page image(s) for OCR."_s));
        QVERIFY(result.logLines.contains(u"OCR page 12 produced 19 characters."_s));
    }

    void pagesAreCountedByTheirPlaceAndBlankOnesKeepTheirs()
    {
        const Workspace workspace;
        workspace.makeTool(textTool, "printf '\\n\\f' >\"$3\"\n");
        makeOcrTools(
            workspace, ": >\"$5-7.png\" >\"$5-08.png\" >\"$5-9.png\"\n",
            "case $1 in *-08.png) echo ' '; echo 'Empty page' >&2;; *) echo ' pay '; esac\n");
        const PdfExtractionResult result = extractedPay(workspace);
        QCOMPARE(result.success, true);
        QCOMPARE(result.pageTexts, (QStringList{u"pay"_s, u""_s, u"pay"_s}));
        QCOMPARE(result.rawText, u"pay\n\f\n\n\f\npay"_s);
        QCOMPARE(result.logLines, blankTextThenOcr(workspace)
                                      << u"Rendered 3 page image(s) for OCR."_s
                                      << u"OCR page 1 produced 3 characters."_s
                                      << u"tesseract page 2 stderr: Empty page"_s
                                      << u"OCR page 2 produced 0 characters."_s
                                      << u"OCR page 3 produced 3 characters."_s
                                      << u"OCR fallback extracted 3 page text block(s)."_s
                                      << u"OCR fallback extracted 12 characters."_s);
    }

    void aPageThatFailsThrowsThePagesBeforeItAway()
    {
        const Workspace workspace;
        workspace.makeTool(textTool, writesNothing);
        makeOcrTools(workspace, makesThreePages,
                     "case $1 in *-3.png) echo ' bad ' >&2; exit 4;; *) echo pay; esac\n");
        const PdfExtractionResult result = extractedPay(workspace);
        QCOMPARE(result.success, false);
        QCOMPARE(result.errorMessage, u"Tesseract OCR failed on page 3 with exit code 4."_s);
        QCOMPARE(result.pageTexts, QStringList());
        QCOMPARE(result.rawText, u""_s);
        QCOMPARE(result.logLines, blankTextThenOcr(workspace)
                                      << u"Rendered 3 page image(s) for OCR."_s
                                      << u"OCR page 1 produced 3 characters."_s
                                      << u"OCR page 2 produced 3 characters."_s
                                      << u"tesseract page 3 stderr: bad"_s << result.errorMessage);
    }

    void noPageIsReadAfterOneThatFailed()
    {
        const Workspace workspace;
        workspace.makeTool(textTool, writesNothing);
        makeOcrTools(workspace, makesThreePages, "echo \"${1##*/}\" >>read; exit 1\n");
        QCOMPARE(extractedPay(workspace).errorMessage,
                 u"Tesseract OCR failed on page 1 with exit code 1."_s);
        QCOMPARE(workspace.bytes(u"tools/tesseract/read"_s), "page-1.png\n");
    }

    void aTesseractThatCannotStartEndsTheExtraction()
    {
        const Workspace workspace;
        workspace.makeTool(textTool, writesNothing);
        makeOcrTools(workspace, makesOnePage, readsThePage);
        QVERIFY(QFile::setPermissions(workspace.path(ocrTool), QFile::ReadOwner));
        const PdfExtractionResult result = extractedPay(workspace);
        QCOMPARE(result.errorMessage, u"Tesseract OCR failed on page 1 with exit code -1."_s);
        QCOMPARE(result.logLines, blankTextThenOcr(workspace)
                                      << u"Rendered 1 page image(s) for OCR."_s
                                      << u"tesseract page 1 stderr: Could not start process: "_s
                                             + workspace.path(ocrTool)
                                      << result.errorMessage);
    }

    void pagesWithoutAWordAreNoSuccess()
    {
        const Workspace workspace;
        workspace.makeTool(textTool, writesNothing);
        makeOcrTools(workspace, ": >\"$5-1.png\" >\"$5-2.png\"\n", "printf ' \\n\\f'\n");
        const PdfExtractionResult result = extractedPay(workspace);
        QCOMPARE(result.success, false);
        QCOMPARE(result.errorMessage, u"OCR completed but returned no readable text."_s);
        QCOMPARE(result.pageTexts, (QStringList{u""_s, u""_s}));
        QCOMPARE(result.logLines, blankTextThenOcr(workspace)
                                      << u"Rendered 2 page image(s) for OCR."_s
                                      << u"OCR page 1 produced 0 characters."_s
                                      << u"OCR page 2 produced 0 characters."_s
                                      << result.errorMessage);
    }

    void aPicturesPageNumberStandsAtTheEndOfItsName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("page");
        QTest::newRow("usual") << u"page-12.png"_s << 12;
        QTest::newRow("zeros ahead") << u"page-007.png"_s << 7;
        QTest::newRow("eight is no octal digit") << u"page-08.png"_s << 8;
        QTest::newRow("capitals") << u"PAGE-3.PNG"_s << 3;
        QTest::newRow("ppm") << u"page-4.ppm"_s << 4;
        QTest::newRow("pgm") << u"page-5.pgm"_s << 5;
        QTest::newRow("pbm") << u"page-6.pbm"_s << 6;
        QTest::newRow("the last number") << u"page-2-9.png"_s << 9;
        QTest::newRow("no number") << u"page.png"_s << 0;
        QTest::newRow("no dash") << u"page7.png"_s << 0;
        QTest::newRow("letters behind it") << u"page-7a.png"_s << 0;
        QTest::newRow("another kind of file") << u"page-7.jpg"_s << 0;
        QTest::newRow("more behind it") << u"page-7.png.txt"_s << 0;
        QTest::newRow("nothing") << u""_s << 0;
    }

    void aPicturesPageNumberStandsAtTheEndOfItsName()
    {
        QFETCH(const QString, name);
        QFETCH(const int, page);
        QCOMPARE(PdfTextExtractor::ocrPageNumber(name), page);
    }

    void picturesAreListedByPageAndThenByName()
    {
        const Workspace workspace;
        for (const char *name : {"page-10.png", "page-9.png", "page-2.ppm", "page-2.png",
                                 "Page-2.png", "cover.png", "page-1.pgm", "notes-1.txt"})
            workspace.makeFile(u"pages/"_s + QString::fromLatin1(name), "");
        QDir().mkpath(workspace.path(u"pages/page-3.png"_s));
        QStringList expected;
        for (const char *name : {"cover.png", "page-1.pgm", "Page-2.png", "page-2.png",
                                 "page-2.ppm", "page-9.png", "page-10.png"})
            expected.append(workspace.path(u"pages/"_s + QString::fromLatin1(name)));
        QCOMPARE(PdfTextExtractor::listOcrImages(workspace.path(u"pages"_s)), expected);
        QCOMPARE(PdfTextExtractor::listOcrImages(workspace.path(u"nowhere"_s)), QStringList());
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_PdfTextExtractorOcr)
#include "tst_PdfTextExtractorOcr.moc"
