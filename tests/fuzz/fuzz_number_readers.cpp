#include "FuzzInput.h"
#include "data/DomainRules.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

using namespace Qt::StringLiterals;
using namespace DomainRules;

namespace {

// Numbers and dates in their usual form are read by place, for speed. Qt's own readers, which are
// slow, say what they have to give.
double numberByQt(const QString &text)
{
    bool ok = false;
    const double number = text.toDouble(&ok);
    return ok && std::isfinite(number) ? number : 0.0;
}

QDate dateByQt(const QString &text, std::initializer_list<QStringView> forms)
{
    for (const QStringView form : forms) {
        if (const QDate date = QDate::fromString(text.trimmed(), form, QCalendar()); date.isValid())
            return date;
    }
    return {};
}

bool same(double a, double b)
{
    return std::isfinite(a) && a == b;
}

void checkNumbers(const QString &text)
{
    const QString withoutCommas = text.trimmed().remove(u',');
    require(same(parseNumberText(text), numberByQt(withoutCommas)), "a number is what Qt reads");
    require(same(parseMoneyText(text), numberByQt(QString(withoutCommas).remove(u'$'))),
            "money is what Qt reads without signs");
    require(std::isfinite(sortNumberFromText(text)), "a sort number is finite");
}

void checkBlanksAroundANumber(const QString &text)
{
    const QString padded = " \t"_L1 + text + u'\n';
    require(same(parseNumberText(padded), parseNumberText(text)), "a number is trimmed");
    require(same(parseMoneyText(padded), parseMoneyText(text)), "money is trimmed");
    require(same(sortNumberFromText(padded), sortNumberFromText(text)), "a sort number is trimmed");
}

void checkDates(const QString &text)
{
    require(parsePayweekDate(text)
                == dateByQt(text, {u"MM/dd/yyyy", u"M/d/yyyy", u"MM-dd-yyyy", u"M-d-yyyy",
                                   u"yyyy-MM-dd", u"yyyy/MM/dd"}),
            "a payweek's date is what Qt reads");
    require(parseTripListDate(text)
                == dateByQt(text, {u"MM/dd/yyyy", u"M/d/yyyy", u"yyyy-MM-dd", u"yyyy/MM/dd",
                                   u"MM-dd-yyyy", u"M-d-yyyy"}),
            "a trip's date is what Qt reads");
    require(parseViewPayweekDate(text)
                == dateByQt(
                    text, {u"MM/dd/yyyy", u"M/d/yyyy", u"M/dd/yyyy", u"MM/d/yyyy", u"yyyy-MM-dd"}),
            "a viewed week's date is what Qt reads");
    require(parseSettlementDate(text)
                == dateByQt(text, {u"MM/dd/yyyy", u"M/d/yyyy", u"yyyy-MM-dd"}),
            "a settlement's date is what Qt reads");
}

void checkBlanksAroundADate(const QString &text)
{
    const QString padded = " \t"_L1 + text + u'\n';
    require(parsePayweekDate(padded) == parsePayweekDate(text), "a payweek is trimmed");
    require(editSettlementYear(padded) == editSettlementYear(text), "a year is trimmed");
    require(parseAppointmentDateTime(padded) == parseAppointmentDateTime(text),
            "an appointment is trimmed");
}

void checkAppointment(const QString &text)
{
    const QDateTime byQt = QDateTime::fromString(text.trimmed(), Qt::ISODate);
    if (byQt.isValid())
        require(parseAppointmentDateTime(text) == byQt, "a stored appointment is what Qt reads");
    const QDateTime appointment = parseAppointmentDateTime(text);
    require(!appointment.isValid() || appointment.date().isValid(), "an appointment has a day");
}

void checkOrder(QStringList payweeks)
{
    sortPayweeksNewestFirst(payweeks);
    require(std::is_sorted(payweeks.cbegin(), payweeks.cend(), payweekIsLater),
            "the newest week stands first");
    sortPayweeksOldestFirst(payweeks);
    require(std::is_sorted(payweeks.cbegin(), payweeks.cend(), payweekIsEarlier),
            "the oldest week stands first");
    require(!payweekIsLater(payweeks.first(), payweeks.first())
                && !payweekIsEarlier(payweeks.first(), payweeks.first()),
            "no week stands before itself");
}

} // namespace

// Reading is tried on the first line, and the order of weeks on all of them: Qt reads so slowly
// that a fuzzer with more to read finds less.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    const QStringList lines = textFrom(bytes, size).split(u'\n');
    checkNumbers(lines.first());
    checkBlanksAroundANumber(lines.first());
    checkDates(lines.first());
    checkBlanksAroundADate(lines.first());
    checkAppointment(lines.first());
    checkOrder(lines);
    return 0;
}
