#include "reports/ReportText.h"

#include "data/MoneyText.h"

#include <QHash>

#include <algorithm>
#include <cmath>
#include <numeric>

using namespace Qt::StringLiterals;

namespace ReportText {

QString valueText(const ReportSeriesData &report, double value)
{
    if (report.valuesAreMiles)
        return QString::number(roundTo(value, 0), 'f', 0);
    return report.valuesAreDollars ? moneyText(value) : number2Text(value);
}

QString seriesTip(const QString &seriesName)
{
    static const QHash<QString, QString> tips = {
        {u"net revenue cpm"_s, u"Net Revenue ÷ Total Miles"_s},
        {u"total revenue cpm"_s, u"Total Revenue ÷ Total Miles"_s},
        {u"trip revenue cpm"_s, u"Trip Revenue ÷ Total Miles"_s},
        {u"total revenue"_s, u"Trip revenue + non-trip settlement revenue"_s},
        {u"total cost"_s, u"Trip costs + non-trip settlement expenses"_s},
        {u"net revenue"_s, u"Total Revenue - Total Cost"_s},
        {u"loaded miles"_s, u"Total loaded miles for displayed payweeks"_s},
        {u"empty miles"_s, u"Total empty miles for displayed payweeks"_s},
        {u"total miles"_s, u"Loaded miles + empty miles"_s},
        {u"trip revenue"_s, u"Revenue attached directly to trips"_s},
        {u"non-trip revenue"_s, u"Settlement revenue not attached to a trip"_s},
        {u"non-trip expenses"_s, u"Settlement expenses not attached to a trip"_s}};
    return tips.value(seriesName.toLower(), u"Reported value for %1"_s.arg(seriesName));
}

bool isWeighted(const ReportSeriesData &report, const QString &reportKey)
{
    const auto isCpm = [](const QString &name) {
        return name.contains("CPM"_L1, Qt::CaseInsensitive);
    };
    const QStringList names = report.series.keys();
    return reportKey == ReportKey::compareCpms || isCpm(report.title)
           || std::any_of(names.cbegin(), names.cend(), isCpm);
}

double weightedAverage(const ReportSeriesData &report, const QString &seriesName)
{
    const double miles = report.weightedDenominators.value(seriesName);
    return miles > 0.0 ? report.weightedNumerators.value(seriesName) / miles : 0.0;
}

double plainAverage(const QList<double> &values)
{
    if (values.isEmpty())
        return 0.0;
    return std::accumulate(values.cbegin(), values.cend(), 0.0)
           / static_cast<double>(values.size());
}

QString pointTip(const ReportSeriesData &report, const QString &seriesName, qsizetype payweek,
                 double value)
{
    return u"%1\nPayweek: %2\nValue: %3"_s.arg(seriesName, report.payweeks.at(payweek),
                                               valueText(report, value));
}

QString axisLabel(const QString &payweek)
{
    return payweek.left(5).replace(u'/', u'-');
}

} // namespace ReportText
