#pragma once

#include <QDate>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

/// The vocabulary of the trade that many folders share: payweeks, appointments, fuel names, funds,
/// and numbers as people type them. No state, no database.
///
/// Several rules look alike and are kept apart on purpose: each answers to the files and the
/// habits of the page that uses it, and they differ in results.
namespace DomainRules {

/// The text MM/DD/YYYY that names a week, as stored and typed. It is compared as exact trimmed
/// text and never rewritten: 4/18/2026 and 04/18/2026 are two weeks.
using PayweekKey = QString;

// Payweek dates (PayweekDates.cpp). Each trims, tries its own forms in order and gives an invalid
// date where none fits.

/// For settlement arithmetic: MM/DD/YYYY, M/D/YYYY, both also with dashes, YYYY-MM-DD, YYYY/MM/DD.
QDate parsePayweekDate(const QString &text);

/// For sorting the trip list: the same forms, the year-first ones ahead of the dashed ones.
QDate parseTripListDate(const QString &text);

/// For finding a week on View Payweek: month-first forms with slashes, and YYYY-MM-DD.
QDate parseViewPayweekDate(const QString &text);

/// For settlement items: MM/DD/YYYY, M/D/YYYY, YYYY-MM-DD.
QDate parseSettlementDate(const QString &text);

/// The year of a week as Edit Settlement lists it: that of parseSettlementDate, or else the number
/// in the last four characters, 0 if there is none.
int editSettlementYear(const QString &text);

/// Whether `a` stands before `b` in a list with the newest week first.
bool payweekIsLater(const QString &a, const QString &b);

/// Whether `a` stands before `b` in a list with the oldest week first. In both orders a week with
/// a date stands before one without, and two without compare as trimmed text.
bool payweekIsEarlier(const QString &a, const QString &b);

/// Sort by payweekIsLater and payweekIsEarlier, reading each date only once.
void sortPayweeksNewestFirst(QStringList &payweeks);
void sortPayweeksOldestFirst(QStringList &payweeks);

/// A stop's appointment: ISO as stored, or MM/DD/YYYY with a 24- or 12-hour time as typed.
/// Invalid for blank and for anything else. It is a time of the wall clock: only its date() and
/// time() count, and one that the local clock skips is as good as any other.
QDateTime parseAppointmentDateTime(const QString &text);

/// The ISO text of an appointment, as stops are stored.
QString storedAppointmentText(const QDateTime &appointment);

// Numbers (DomainRules.cpp). Text that is no finite number in C-locale form gives 0.

/// Miles and percent: commas are dropped.
double parseNumberText(const QString &text);

/// Dollars and gallons: "$" and commas are dropped.
double parseMoneyText(const QString &text);

/// The value by which a shown cell sorts: "$", commas, "/hr" and "/mi" are dropped, and a range
/// such as "$31.25/hr - $36.10/hr" counts as its first number.
double sortNumberFromText(const QString &text);

// Fuel (FuelRules.cpp). A fuel purchase is a detail row of a trip; its net cost also becomes a
// cost item, and the two spell diesel exhaust fluid differently: "Def" and "DEF".

/// One fuel row's numbers: dollars and gallons.
struct FuelRowValues
{
    QString itemType;
    double cost = 0.0;
    double discount = 0.0;
    double gallons = 0.0;
};

/// What summarizeFuelRows gives: dollars to cents, gallons to 3 decimals, averages in dollars per
/// gallon to 4.
struct FuelSummary
{
    int rowCount = 0;
    double totalCost = 0.0;
    double totalDiscount = 0.0;
    double totalNet = 0.0;
    double totalGallons = 0.0;
    double truckNet = 0.0;
    double truckGallons = 0.0;
    double truckAverage = 0.0;
    double reeferNet = 0.0;
    double reeferGallons = 0.0;
    double reeferAverage = 0.0;
};

/// True for "Truck Fuel" and "Reefer Fuel", ignoring case, and for blank text.
bool isTruckOrReeferFuel(const QString &text);

/// Sums the rows. A row without a type and without any value does not count. A row without gallons
/// adds to the totals but to no average.
FuelSummary summarizeFuelRows(const QList<FuelRowValues> &rows);

/// The types that a detail row may have, in the order of the editor's list.
QStringList fuelDetailTypeList();

/// The detail type that a free text names, or the trimmed text itself.
QString normalizeFuelDetailType(const QString &text);

/// The cost item name that a free text names, or the trimmed text itself. Looser than the above:
/// any text with "fuel", "def" or "wash" in it finds its item.
QString normalizeFuelCostName(const QString &text);

/// For the payweek's fuel analytics: "Truck Fuel", "Reefer Fuel" or empty.
QString payweekFuelGroup(const QString &text);

/// For the same: whether the text has "def" or "diesel exhaust fluid" in it, so that a name like
/// "deferred" counts.
bool isDefItemName(const QString &text);

/// For the year totals: "Truck Fuel", "Reefer Fuel", "DEF", the trimmed text, or "Unknown".
QString fuelAnalyticsGroup(const QString &text);

// Funds (FundRules.cpp). An expense item pays into a fund, a revenue item takes out of it. All
// trim and ignore case.

bool isEmergencyFundAdd(const QString &kind, const QString &name);
/// Alone among the funds, the bare fund name is a withdrawal too when the item is revenue: older
/// files were kept that way.
bool isEmergencyFundWithdrawal(const QString &kind, const QString &name);
bool isTireFundAdd(const QString &kind, const QString &name);
bool isTireFundWithdrawal(const QString &kind, const QString &name);
bool isPerformanceBondAdd(const QString &kind, const QString &name);
bool isPerformanceBondWithdrawal(const QString &kind, const QString &name);

/// The group of an item in a breakdown: a fund by a loose match of its name, or the other items of
/// its kind. It never decides whether money moves into or out of a fund.
QString nonTripCategory(const QString &kind, const QString &name);

} // namespace DomainRules
