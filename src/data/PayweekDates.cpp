#include "data/DomainRules.h"

#include <algorithm>
#include <array>
#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

namespace DomainRules {

namespace {

// The number that the digits from `from` on stand for, -1 if one of them is no digit.
int numberAt(QStringView text, qsizetype from, qsizetype count)
{
    int value = 0;
    for (const QChar digit : text.sliced(from, count)) {
        if (digit < u'0' || digit > u'9')
            return -1;
        value = value * 10 + (digit.unicode() - u'0');
    }
    return value;
}

// To QDate the year -1, which numberAt() gives for no number, is the one before the year 1.
QDate dateAt(QStringView text, qsizetype year, qsizetype month, qsizetype day)
{
    const int yearNumber = numberAt(text, year, 4);
    return yearNumber > 0 ? QDate(yearNumber, numberAt(text, month, 2), numberAt(text, day, 2))
                          : QDate();
}

// Nearly every payweek is written MM/DD/YYYY, the first form of every list. Reading it by place
// takes a hundredth of the time of QDate::fromString(), and a trip list reads thousands.
QDate fullSlashedDate(QStringView text)
{
    if (text.size() != 10 || text.at(2) != u'/' || text.at(5) != u'/')
        return {};
    return dateAt(text, 6, 0, 3);
}

// What a dispatcher wrote down stands, whether or not the local clock ever shows it: of itself a
// time in the hour that it skips in spring is invalid, and in UTC there is no such hour.
QDateTime asWritten(const QDateTime &time)
{
    return time.isValid() ? time : QDateTime(time.date(), time.time(), Qt::UTC);
}

// The form in which stops are stored, YYYY-MM-DDTHH:MM:SS, read by place for the same reason.
QDateTime storedAppointment(QStringView text)
{
    if (text.size() != 19 || text.at(4) != u'-' || text.at(7) != u'-' || text.at(10) != u'T'
        || text.at(13) != u':' || text.at(16) != u':')
        return {};
    const QDate date = dateAt(text, 0, 5, 8);
    const QTime time(numberAt(text, 11, 2), numberAt(text, 14, 2), numberAt(text, 17, 2));
    return date.isValid() && time.isValid() ? asWritten(QDateTime(date, time)) : QDateTime();
}

QDate firstDate(const QString &text, std::initializer_list<QStringView> forms)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return {};
    QDate date = fullSlashedDate(trimmed);
    for (auto form = forms.begin(); form != forms.end() && !date.isValid(); ++form)
        date = QDate::fromString(trimmed, *form, QCalendar());
    return date;
}

// Reading a date costs far more than comparing two, so a list is sorted on keys read beforehand.
struct PayweekOrder
{
    QString payweek;
    QDate date = parsePayweekDate(payweek);
    QString trimmed = payweek.trimmed();
};

template <typename Before>
bool standsBefore(const PayweekOrder &a, const PayweekOrder &b, Before before)
{
    if (a.date.isValid() && b.date.isValid())
        return before(a.date, b.date);
    if (a.date.isValid() != b.date.isValid())
        return a.date.isValid();
    return before(a.trimmed, b.trimmed);
}

template <typename Before>
void sortPayweeks(QStringList &payweeks, Before before)
{
    std::vector<PayweekOrder> keys;
    keys.reserve(static_cast<std::size_t>(payweeks.size()));
    for (const QString &payweek : std::as_const(payweeks))
        keys.push_back({payweek});
    std::sort(keys.begin(), keys.end(), [before](const PayweekOrder &a, const PayweekOrder &b) {
        return standsBefore(a, b, before);
    });
    std::transform(keys.begin(), keys.end(), payweeks.begin(),
                   [](const PayweekOrder &key) { return key.payweek; });
}

} // namespace

QDate parsePayweekDate(const QString &text)
{
    return firstDate(text, {u"MM/dd/yyyy", u"M/d/yyyy", u"MM-dd-yyyy", u"M-d-yyyy", u"yyyy-MM-dd",
                            u"yyyy/MM/dd"});
}

QDate parseTripListDate(const QString &text)
{
    return firstDate(text, {u"MM/dd/yyyy", u"M/d/yyyy", u"yyyy-MM-dd", u"yyyy/MM/dd", u"MM-dd-yyyy",
                            u"M-d-yyyy"});
}

QDate parseViewPayweekDate(const QString &text)
{
    return firstDate(text, {u"MM/dd/yyyy", u"M/d/yyyy", u"M/dd/yyyy", u"MM/d/yyyy", u"yyyy-MM-dd"});
}

QDate parseSettlementDate(const QString &text)
{
    return firstDate(text, {u"MM/dd/yyyy", u"M/d/yyyy", u"yyyy-MM-dd"});
}

int editSettlementYear(const QString &text)
{
    const QDate date = parseSettlementDate(text);
    return date.isValid() ? date.year() : text.trimmed().right(4).toInt();
}

bool payweekIsLater(const QString &a, const QString &b)
{
    return standsBefore({a}, {b}, std::greater<>());
}

bool payweekIsEarlier(const QString &a, const QString &b)
{
    return standsBefore({a}, {b}, std::less<>());
}

void sortPayweeksNewestFirst(QStringList &payweeks)
{
    sortPayweeks(payweeks, std::greater<>());
}

void sortPayweeksOldestFirst(QStringList &payweeks)
{
    sortPayweeks(payweeks, std::less<>());
}

QDateTime parseAppointmentDateTime(const QString &text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return {};
    QDateTime appointment = storedAppointment(trimmed);
    if (!appointment.isValid())
        appointment = asWritten(QDateTime::fromString(trimmed, Qt::ISODate));
    if (appointment.isValid())
        return appointment;
    static constexpr std::array<QStringView, 11> forms = {
        u"MM/dd/yyyy HH:mm",   u"M/d/yyyy H:mm",       u"MM/dd/yyyy HH:mm:ss", u"M/d/yyyy H:mm:ss",
        u"MM/dd/yyyy h:mm AP", u"M/d/yyyy h:mm AP",    u"MM/dd/yyyy h:mm ap",  u"M/d/yyyy h:mm ap",
        u"yyyy-MM-dd HH:mm",   u"yyyy-MM-dd HH:mm:ss", u"yyyy-MM-ddTHH:mm:ss"};
    for (const QStringView form : forms) {
        appointment = asWritten(QDateTime::fromString(trimmed, form, QCalendar()));
        if (appointment.isValid())
            return appointment;
    }
    return {};
}

QString storedAppointmentText(const QDateTime &appointment)
{
    const bool isSkipped = !QDateTime(appointment.date(), appointment.time()).isValid();
    return isSkipped ? appointment.toString(u"yyyy-MM-ddTHH:mm:ss"_s) // without the mark of UTC
                     : appointment.toString(Qt::ISODate);
}

} // namespace DomainRules
