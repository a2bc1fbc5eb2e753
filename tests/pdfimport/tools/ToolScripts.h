#pragma once

#include "pdfimport/tools/Extraction.h"

inline const QString textTool = QStringLiteral("tools/poppler/pdftotext");
inline const QString pictureTool = QStringLiteral("tools/poppler/pdftoppm");
inline const QString ocrTool = QStringLiteral("tools/tesseract/tesseract");
inline const QString englishData = QStringLiteral("tools/tesseract/tessdata/eng.traineddata");

inline constexpr auto writesNothing = ":\n";
inline constexpr auto makesOnePage = ": >\"$5-1.png\"\n";
inline constexpr auto readsThePage = "echo \"text of ${1##*/}\"\n";

// Where it runs is told by where the file turns up.
inline constexpr auto tellsItsArguments = "printf '%s\\n' \"$@\" >arguments\n";

/// Scripts in the places of the tools for OCR.
inline void makeOcrTools(const Workspace &workspace, const QByteArray &pictures,
                         const QByteArray &ocr)
{
    workspace.makeTool(pictureTool, pictures);
    workspace.makeTool(ocrTool, ocr);
    workspace.makeFile(englishData, "");
}

/// The arguments that the script in the folder was given.
inline QStringList argumentsTold(const Workspace &workspace, const QString &folder)
{
    const QByteArray lines = workspace.bytes(folder + QStringLiteral("/arguments"));
    return QString::fromLocal8Bit(lines).trimmed().split(u'\n');
}

/// What the extraction of a PDF gives; the scripts in place of the tools do not look into it.
inline PdfExtractionResult extractedPay(const Workspace &workspace)
{
    return extracted(workspace, workspace.makeFile(QStringLiteral("pay.pdf"), "%PDF-1.4"));
}

inline QStringList usingTextTool(const Workspace &workspace)
{
    return {QStringLiteral("Using pdftotext: ") + workspace.path(textTool),
            QStringLiteral(R"(Using bundled Poppler from tools\poppler.)")};
}

inline QStringList usingOcrTools(const Workspace &workspace)
{
    return {QStringLiteral("Using pdftoppm for OCR image rendering: ")
                + workspace.path(pictureTool),
            QStringLiteral("Using Tesseract OCR: ") + workspace.path(ocrTool),
            QStringLiteral("Using Tesseract tessdata: ")
                + workspace.path(QStringLiteral("tools/tesseract/tessdata"))};
}
