#include "pdfimport/tools/PdfTools.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "support/surroundings/EnvironmentValue.h"

#include <QCoreApplication>
#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString ofProgram(const QString &relativePath)
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + u'/' + relativePath);
}

/// The current directory, four levels below the workspace, so that all it looks into is its own.
QString deepFolder(const Workspace &workspace)
{
    const QString folder = workspace.path(u"a/b/c/d"_s);
    QDir().mkpath(folder);
    QDir::setCurrent(folder);
    return folder;
}

} // namespace

class tst_PdfTools : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aToolIsLookedForNearTheProgramAndThenNearTheCurrentDirectory()
    {
        const Workspace workspace;
        deepFolder(workspace);
        QCOMPARE(PdfTools::candidateToolRoots(u"tools/poppler"_s),
                 (QStringList{ofProgram(u"tools/poppler"_s), ofProgram(u"../tools/poppler"_s),
                              ofProgram(u"../../tools/poppler"_s),
                              ofProgram(u"../../../tools/poppler"_s),
                              workspace.path(u"a/b/c/d/tools/poppler"_s),
                              workspace.path(u"a/b/c/tools/poppler"_s),
                              workspace.path(u"a/b/tools/poppler"_s),
                              workspace.path(u"a/tools/poppler"_s)}));
    }

    void theFoldersOfTheTestsHoldNoTools()
    {
        const Workspace workspace;
        deepFolder(workspace);
        const QStringList roots = PdfTools::candidateToolRoots(u"tools"_s);
        QCOMPARE(roots.size(), 8);
        for (const QString &root : roots)
            QVERIFY2(!QFile::exists(root), qPrintable(root));
    }

    void noFolderIsNamedTwice()
    {
        const Workspace workspace;
        QDir::setCurrent(QCoreApplication::applicationDirPath());
        QCOMPARE(PdfTools::candidateToolRoots(u"tools"_s),
                 (QStringList{ofProgram(u"tools"_s), ofProgram(u"../tools"_s),
                              ofProgram(u"../../tools"_s), ofProgram(u"../../../tools"_s)}));
    }

    void theRootOfTheDriveHasNoFoldersAboveIt()
    {
        const Workspace workspace;
        QDir::setCurrent(QDir::rootPath());
        const QStringList roots = PdfTools::candidateToolRoots(u"tools/poppler"_s);
        QCOMPARE(roots.size(), 5); // the program's four, and the root itself
        QCOMPARE(roots.last(), u"/tools/poppler"_s);
    }

    void aCurrentDirectoryThatIsGoneAddsNothing()
    {
        const Workspace workspace;
        const QString folder = deepFolder(workspace);
        QVERIFY(QDir().rmdir(folder));
        QCOMPARE(PdfTools::candidateToolRoots(u"tools"_s),
                 (QStringList{ofProgram(u"tools"_s), ofProgram(u"../tools"_s),
                              ofProgram(u"../../tools"_s), ofProgram(u"../../../tools"_s)}));
    }

    void pathsAreClean()
    {
        const Workspace workspace;
        deepFolder(workspace);
        QCOMPARE(PdfTools::candidateToolRoots(u"tools//x/../poppler/"_s),
                 PdfTools::candidateToolRoots(u"tools/poppler"_s));
    }

    void theNearestFileIsTaken()
    {
        const Workspace workspace;
        deepFolder(workspace);
        const QString farther = workspace.makeFile(u"a/tools/poppler/reader"_s, "");
        QCOMPARE(PdfTools::findToolFile(u"tools/poppler"_s, u"reader"_s).path, farther);
        const QString nearer = workspace.makeFile(u"a/b/tools/poppler/reader"_s, "");
        const PdfTools::Found found = PdfTools::findToolFile(u"tools/poppler"_s, u"reader"_s);
        QCOMPARE(found.path, nearer);
        QCOMPARE(found.inTools, true);
        QCOMPARE(found.checked.size(), 8);
        QCOMPARE(found.checked.first(), ofProgram(u"tools/poppler/reader"_s));
        QCOMPARE(found.checked.last(), farther);
    }

    void aFolderWithTheNameOfAToolIsNone()
    {
        const Workspace workspace;
        deepFolder(workspace);
        workspace.makeFile(u"a/b/c/d/tools/poppler/reader/file"_s, "");
        const PdfTools::Found found = PdfTools::findToolFile(u"tools/poppler"_s, u"reader"_s);
        QCOMPARE(found.path, u""_s);
        QCOMPARE(found.inTools, false);
        QCOMPARE(found.checked.size(), 8);
    }

    void pdfToTextOfTheToolsComesBeforeTheSystems()
    {
        const Workspace workspace;
        const EnvironmentValue path("PATH", workspace.path(u"bin"_s));
        workspace.makeTool(u"bin/pdftotext"_s, "");
        const QString own = workspace.makeTool(u"tools/poppler/pdftotext"_s, "");
        const PdfTools::Found found = PdfTools::findPdfToText();
        QCOMPARE(found.path, own);
        QCOMPARE(found.inTools, true);
        QVERIFY(found.checked.contains(own));
        QVERIFY(!found.checked.contains(u"System PATH: pdftotext"_s));
    }

    void pdfToTextMayComeFromTheSystem()
    {
        const Workspace workspace;
        deepFolder(workspace);
        const EnvironmentValue path("PATH", workspace.path(u"bin"_s));
        const QString systems = workspace.makeTool(u"bin/pdftotext"_s, "");
        const PdfTools::Found found = PdfTools::findPdfToText();
        QCOMPARE(found.path, systems);
        QCOMPARE(found.inTools, false);
        QCOMPARE(found.checked.size(), 9);
        QCOMPARE(found.checked.last(), u"System PATH: pdftotext"_s);
    }

    void theOtherToolsNeverComeFromTheSystem()
    {
        const Workspace workspace;
        deepFolder(workspace);
        const EnvironmentValue path("PATH", workspace.path(u"bin"_s));
        workspace.makeTool(u"bin/pdftoppm"_s, "");
        workspace.makeTool(u"bin/tesseract"_s, "");
        for (const PdfTools::Found &found :
             {PdfTools::findPdfToText(), PdfTools::findPdfToPpm(), PdfTools::findTesseract()}) {
            QCOMPARE(found.path, u""_s);
            QCOMPARE(found.inTools, false);
        }
        QCOMPARE(PdfTools::findPdfToPpm().checked.size(), 8);
        QCOMPARE(PdfTools::findPdfToPpm().checked.last(),
                 workspace.path(u"a/tools/poppler/pdftoppm"_s));
        QCOMPARE(PdfTools::findTesseract().checked.last(),
                 workspace.path(u"a/tools/tesseract/tesseract"_s));
    }

    void everyToolHasItsPlace()
    {
        const Workspace workspace;
        workspace.linkTools();
        QCOMPARE(PdfTools::findPdfToText().path, workspace.path(u"tools/poppler/pdftotext"_s));
        QCOMPARE(PdfTools::findPdfToPpm().path, workspace.path(u"tools/poppler/pdftoppm"_s));
        QCOMPARE(PdfTools::findTesseract().path, workspace.path(u"tools/tesseract/tesseract"_s));
        QCOMPARE(PdfTools::findTessdataDir().path, workspace.path(u"tools/tesseract/tessdata"_s));
    }

    void theLanguageDataAreAFolderWithEnglish()
    {
        const Workspace workspace;
        deepFolder(workspace);
        workspace.makeFile(u"a/b/c/d/tools/tesseract/tessdata"_s, "a file");
        workspace.makeFile(u"a/b/c/tools/tesseract/tessdata/deu.traineddata"_s, "");
        workspace.makeFile(u"a/b/tools/tesseract/tessdata/eng.traineddata/file"_s, "");
        QCOMPARE(PdfTools::findTessdataDir().path, u""_s);
        workspace.makeFile(u"a/tools/tesseract/tessdata/eng.traineddata"_s, "");
        const PdfTools::Found found = PdfTools::findTessdataDir();
        QCOMPARE(found.path, workspace.path(u"a/tools/tesseract/tessdata"_s));
        QCOMPARE(found.checked.size(), 8);
        QCOMPARE(found.checked.first(), ofProgram(u"tools/tesseract/tessdata"_s));
        QCOMPARE(found.checked.last(), workspace.path(u"a/tools/tesseract/tessdata"_s));
    }

    void executablesAreNamedAsThisPlatformDoes()
    {
        QCOMPARE(PdfTools::executableName(u"pdftotext"_s), u"pdftotext"_s);
        QCOMPARE(PdfTools::executableName(u""_s), u""_s);
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_PdfTools)
#include "tst_PdfTools.moc"
