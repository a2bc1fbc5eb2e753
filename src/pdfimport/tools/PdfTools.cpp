#include "pdfimport/tools/PdfTools.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace PdfTools {

namespace {

constexpr int levelsAbove = 3;
constexpr auto popplerFolder = "tools/poppler"_L1;
constexpr auto tesseractFolder = "tools/tesseract"_L1;
constexpr auto tessdataFolder = "tools/tesseract/tessdata"_L1;
constexpr auto englishData = "eng.traineddata"_L1;

void appendNew(QStringList &paths, const QString &path)
{
    const QString clean = QDir::cleanPath(path);
    if (!paths.contains(clean, Qt::CaseInsensitive))
        paths.append(clean);
}

} // namespace

QString executableName(const QString &baseName)
{
#ifdef Q_OS_WIN
    return baseName + ".exe"_L1;
#else
    return baseName;
#endif
}

QStringList candidateToolRoots(const QString &relativeFolder)
{
    QStringList roots;
    for (const QString &base : {QCoreApplication::applicationDirPath(), QDir::currentPath()}) {
        if (base.trimmed().isEmpty())
            continue;
        QDir folder(base);
        appendNew(roots, folder.filePath(relativeFolder));
        for (int level = 0; level < levelsAbove && folder.cdUp(); ++level)
            appendNew(roots, folder.filePath(relativeFolder));
    }
    return roots;
}

Found findToolFile(const QString &relativeFolder, const QString &fileName)
{
    Found found;
    for (const QString &root : candidateToolRoots(relativeFolder))
        appendNew(found.checked, QDir(root).filePath(fileName));
    for (const QString &candidate : found.checked) {
        const QFileInfo file(candidate);
        if (file.isFile()) {
            found.path = file.absoluteFilePath();
            found.inTools = true;
            break;
        }
    }
    return found;
}

Found findPdfToText()
{
    const QString name = u"pdftotext"_s;
    Found found = findToolFile(popplerFolder, executableName(name));
    if (!found.inTools) {
        found.path = QStandardPaths::findExecutable(name);
        found.checked.append("System PATH: "_L1 + name);
    }
    return found;
}

Found findPdfToPpm()
{
    return findToolFile(popplerFolder, executableName(u"pdftoppm"_s));
}

Found findTesseract()
{
    return findToolFile(tesseractFolder, executableName(u"tesseract"_s));
}

Found findTessdataDir()
{
    Found found;
    found.checked = candidateToolRoots(tessdataFolder);
    for (const QString &candidate : found.checked) {
        if (!QFileInfo(QDir(candidate), englishData).isFile())
            continue;
        found.path = QFileInfo(candidate).absoluteFilePath();
        found.inTools = true;
        break;
    }
    return found;
}

} // namespace PdfTools
