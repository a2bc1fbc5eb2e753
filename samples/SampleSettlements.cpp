#include "samples/SampleSettlements.h"

#include "data/MoneyText.h"
#include "samples/PdfFile.h"

#include <QDir>
#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype quarterOfSettlements = 15;
constexpr int nameWidth = 64;
constexpr int amountWidth = 14;

QString amountText(double dollars)
{
    return QLocale(QLocale::English, QLocale::UnitedStates).toString(dollars, 'f', 2);
}

QString charge(const QString &text, double dollars)
{
    return text.leftJustified(nameWidth) + amountText(dollars).rightJustified(amountWidth);
}

// A carrier prints the year first, in two digits.
QString settlementDate(const QDate &payweek)
{
    return payweek.toString(u"yy/MM/dd"_s);
}

QString pickupDate(const SampleTrip &trip)
{
    return trip.stops.first().appointment.toString(u"MM/dd"_s);
}

void addRevenue(QStringList &lines, const SampleTrip &trip)
{
    const QString label = u"TRIP %1  %2 MILES"_s.arg(trip.number).arg(trip.totals.totalMiles);
    lines << charge(label + "  LINEHAUL"_L1, trip.linehaul)
          << charge(label + "  FUSU"_L1, trip.fuelSurcharge);
    for (const SampleItem &item : trip.payItems)
        lines << charge(label + "  "_L1 + item.name.toUpper(), item.amount);
}

void addFuel(QStringList &lines, const SampleTrip &trip)
{
    for (const DomainRules::FuelRowValues &row : trip.fuel)
        lines << charge(
            u"%1 %2 TRIP %3 TRAVEL CENTER  %4 GALS"_s.arg(pickupDate(trip), row.itemType.toUpper(),
                                                          trip.number, gallonsText(row.gallons)),
            roundTo(row.cost - row.discount, 2));
}

void addItems(QStringList &lines, const SampleWeek &week, QLatin1StringView kind)
{
    for (const SampleSettlementItem &item : week.items) {
        if (item.kind == kind)
            lines << charge(item.name.toUpper(), item.amount);
    }
}

} // namespace

QStringList settlementPage(const SampleWeek &week)
{
    QStringList lines = {u"OWNER-OPERATOR SETTLEMENT"_s, {}};
    lines << u"TRUCK NO: 4417"_s.leftJustified(nameWidth) + "SETTLEMENT DATE: "_L1
                 + settlementDate(week.payweek);
    lines << QString() << u"REVENUE"_s;
    for (const SampleTrip &trip : week.trips)
        addRevenue(lines, trip);
    addItems(lines, week, "revenue"_L1);
    lines << QString() << u"DEDUCTIONS AT THE PUMP, AFTER DISCOUNT"_s;
    for (const SampleTrip &trip : week.trips)
        addFuel(lines, trip);
    lines << QString() << u"OTHER DEDUCTIONS"_s;
    addItems(lines, week, "expense"_L1);
    return lines;
}

bool writeSampleSettlements(const QString &folder, const SampleBusiness &business, QString &error)
{
    if (!QDir().mkpath(folder)) {
        error = folder + " could not be made."_L1;
        return false;
    }
    QList<QStringList> pages; // the newest first
    QStringList days;
    for (const SampleWeek &week : business.weeks) {
        pages.prepend(settlementPage(week));
        days.prepend(week.payweek.toString(Qt::ISODate));
    }
    const auto path = [&folder](const QString &name) { return QDir(folder).filePath(name); };
    const auto fifteen = pages.first(std::min(quarterOfSettlements, pages.size()));
    return writePdf(path(days.at(0) + ".pdf"_L1), {pages.at(0)}, PdfMake::Text, error)
           && writePdf(path(days.at(1) + "-scanned.pdf"_L1), {pages.at(1)}, PdfMake::Scan, error)
           && writePdf(path(u"last-fifteen-weeks.pdf"_s), fifteen, PdfMake::Text, error);
}
