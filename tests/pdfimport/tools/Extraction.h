#pragma once

#include "pdfimport/PdfTextExtractor.h"
#include "support/Workspace.h"
#include "support/surroundings/EnvironmentValue.h"

#include <QDir>
#include <QTest>

#include <sys/wait.h>

/// Whether a program that this one started still runs, or was never waited for.
inline bool hasChildren()
{
    return ::waitpid(-1, nullptr, WNOHANG) != -1;
}

/// Extracts with the workspace's folder "temporary" as the system's. A file or folder left in it,
/// or a program left behind, fails the test.
inline PdfExtractionResult extracted(const Workspace &workspace, const QString &pdfPath)
{
    const QString folder = workspace.path(QStringLiteral("temporary"));
    QDir().mkpath(folder);
    const EnvironmentValue temporary("TMPDIR", folder);
    PdfExtractionResult result = PdfTextExtractor::extract(pdfPath);
    if (!QDir(folder).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
        QTest::qFail("The extraction left files behind", __FILE__, __LINE__);
    if (hasChildren())
        QTest::qFail("The extraction left a program behind", __FILE__, __LINE__);
    return result;
}
