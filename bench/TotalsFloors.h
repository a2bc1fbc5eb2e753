#pragma once

#include "reports/ReportSeriesData.h"

#include <QFont>
#include <QRectF>
#include <QSize>
#include <QSqlDatabase>

/// What the pages of totals and reports cannot do without: their statements, and the calls of a
/// painter.
namespace TotalsFloors {

/// The statements of a year, those for the items twice, as the page shows them in two places.
void year(const QSqlDatabase &trips, const QString &year);

enum class Record { Summary, Items, Fuel };

/// The statements that read one record of each payweek, prepared once.
void payweeks(const QSqlDatabase &trips, Record record, const QStringList &payweeks);

/// The calls that paint a report, with every place in it worked out beforehand.
class Chart
{
public:
    Chart(const ReportSeriesData &report, bool drawsBars, const QSize &canvasSize,
          const QFont &chartFont);

    /// Fills a pixmap and paints on it.
    void draw() const;

private:
    void addSeries(const ReportSeriesData &report);
    void drawTexts(QPainter &painter) const;
    void drawSeries(QPainter &painter) const;

    bool bars;
    QSize canvas;
    QFont font;
    QRectF plot;
    QStringList names;
    QStringList labels;
    QList<QList<QPointF>> lines;
    QList<QList<QRectF>> barsOfSeries;
};

} // namespace TotalsFloors
