#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// Text is what a carrier's program writes; Scan is what comes out of a driver's scanner: a picture
/// of each page, with no text in the file.
enum class PdfMake { Text, Scan };

/// Writes the pages, each a list of lines of up to 100 characters, to a PDF file in US Letter. It
/// needs a QGuiApplication, for the type. On failure returns false with the reason in `error`.
bool writePdf(const QString &path, const QList<QStringList> &pages, PdfMake make, QString &error);
