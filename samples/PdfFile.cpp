#include "samples/PdfFile.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>

using namespace Qt::StringLiterals;

namespace {

constexpr int dotsPerInch = 200; // what an office scanner is set to
constexpr int pointSize = 9;

void paintLines(QPainter &painter, const QStringList &lines)
{
    QFont font(u"DejaVu Sans Mono"_s);
    font.setPointSize(pointSize);
    painter.setFont(font);
    const int lineHeight = painter.fontMetrics().lineSpacing();
    int y = lineHeight;
    for (const QString &line : lines) {
        painter.drawText(0, y, line);
        y += lineHeight;
    }
}

QImage scannedPage(const QSize &size, const QStringList &lines)
{
    QImage page(size, QImage::Format_Grayscale8);
    page.setDotsPerMeterX(qRound(dotsPerInch / 0.0254));
    page.setDotsPerMeterY(qRound(dotsPerInch / 0.0254));
    page.fill(Qt::white);
    QPainter painter(&page);
    paintLines(painter, lines);
    return page;
}

} // namespace

bool writePdf(const QString &path, const QList<QStringList> &pages, PdfMake make, QString &error)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        error = path + ": "_L1 + file.errorString();
        return false;
    }
    QPdfWriter writer(&file);
    writer.setResolution(dotsPerInch);
    writer.setPageSize(QPageSize(QPageSize::Letter));
    writer.setPageMargins(QMarginsF(36, 36, 36, 36), QPageLayout::Point);
    QPainter painter(&writer);
    bool isFirst = true;
    for (const QStringList &lines : pages) {
        if (!isFirst)
            writer.newPage();
        isFirst = false;
        if (make == PdfMake::Text)
            paintLines(painter, lines);
        else
            painter.drawImage(QPoint(0, 0), scannedPage(painter.viewport().size(), lines));
    }
    painter.end();
    error = file.error() == QFileDevice::NoError ? QString() : path + ": "_L1 + file.errorString();
    return error.isEmpty();
}
