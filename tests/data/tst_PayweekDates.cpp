#include "data/DomainRules.h"
#include "support/TestProgram.h"
#include "support/surroundings/TimeZone.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace DomainRules;

namespace {

const QStringList mixedWeeks = {
    u"04/18/2026"_s, u"abc"_s, u"12/27/2025"_s, u"4/11/2026"_s, u" zzz"_s, u"01/03/2026"_s, u""_s};

} // namespace

class tst_PayweekDates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyPageReadsTheseForms_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QDate>("date");
        QTest::newRow("MM/dd/yyyy") << u"04/08/2026"_s << QDate(2026, 4, 8);
        QTest::newRow("M/d/yyyy") << u"4/8/2026"_s << QDate(2026, 4, 8);
        QTest::newRow("M/dd/yyyy") << u"4/18/2026"_s << QDate(2026, 4, 18);
        QTest::newRow("MM/d/yyyy") << u"04/8/2026"_s << QDate(2026, 4, 8);
        QTest::newRow("two-digit month, one-digit form") << u"12/8/2026"_s << QDate(2026, 12, 8);
        QTest::newRow("yyyy-MM-dd") << u"2026-04-08"_s << QDate(2026, 4, 8);
        QTest::newRow("blanks around") << u" \t04/08/2026 "_s << QDate(2026, 4, 8);
        QTest::newRow("leap day") << u"02/29/2024"_s << QDate(2024, 2, 29);
        QTest::newRow("last day of a year") << u"12/31/2099"_s << QDate(2099, 12, 31);
        QTest::newRow("four digits are the year") << u"04/08/0026"_s << QDate(26, 4, 8);
    }

    void everyPageReadsTheseForms()
    {
        QFETCH(const QString, text);
        QFETCH(const QDate, date);
        QCOMPARE(parsePayweekDate(text), date);
        QCOMPARE(parseTripListDate(text), date);
        QCOMPARE(parseViewPayweekDate(text), date);
        QCOMPARE(parseSettlementDate(text), date);
        QCOMPARE(editSettlementYear(text), date.year());
    }

    void onlyTheArithmeticAndTheTripListReadTheseForms_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("MM-dd-yyyy") << u"04-08-2026"_s;
        QTest::newRow("M-d-yyyy") << u"4-8-2026"_s;
        QTest::newRow("MM-d-yyyy") << u"04-8-2026"_s;
        QTest::newRow("yyyy/MM/dd") << u"2026/04/08"_s;
        QTest::newRow("blanks around") << u"\n 04-08-2026  "_s;
    }

    void onlyTheArithmeticAndTheTripListReadTheseForms()
    {
        QFETCH(const QString, text);
        QCOMPARE(parsePayweekDate(text), QDate(2026, 4, 8));
        QCOMPARE(parseTripListDate(text), QDate(2026, 4, 8));
        QCOMPARE(parseViewPayweekDate(text), QDate());
        QCOMPARE(parseSettlementDate(text), QDate());
    }

    void noPageReadsTheseTexts_data()
    {
        QTest::addColumn<QString>("text");
        const QStringList texts = {
            u""_s,           u" \t"_s,         u"abc"_s,         u"04/18/26"_s,
            u"4-18-26"_s,    u"02/29/2026"_s,  u"13/01/2026"_s,  u"00/18/2026"_s,
            u"04/31/2026"_s, u"04/18/0000"_s,  u"04/18/20x6"_s,  u"04/18/2O26"_s,
            u"0x/18/2026"_s, u"04/x8/2026"_s,  u"04/18/+026"_s,  u"04/18/-026"_s,
            u"-4/18/2026"_s, u"18/04/2026"_s,  u"04/18-2026"_s,  u"04.18.2026"_s,
            u"20260418"_s,   u"2026-4-8"_s,    u"2026/4/8"_s,    u"04 / 18 / 2026"_s,
            u"004/8/2026"_s, u"04/18/12026"_s, u"04/18/2026 x"_s};
        for (const QString &text : texts)
            QTest::newRow(qPrintable(u'"' + text + u'"')) << text;
    }

    void noPageReadsTheseTexts()
    {
        QFETCH(const QString, text);
        QCOMPARE(parsePayweekDate(text), QDate());
        QCOMPARE(parseTripListDate(text), QDate());
        QCOMPARE(parseViewPayweekDate(text), QDate());
        QCOMPARE(parseSettlementDate(text), QDate());
    }

    void editSettlementFallsBackOnTheLastFourCharacters_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("year");
        QTest::newRow("a date comes first") << u"2026-04-18"_s << 2026;
        QTest::newRow("dashes") << u"04-18-2026"_s << 2026;
        QTest::newRow("blanks around") << u" 04-18-2026 "_s << 2026;
        QTest::newRow("no such day") << u"02/30/2026"_s << 2026;
        QTest::newRow("words") << u"week of 2025"_s << 2025;
        QTest::newRow("fewer than four") << u"26"_s << 26;
        QTest::newRow("year first, slashes") << u"2026/04/18"_s << 0;
        QTest::newRow("two-digit year") << u"04/18/26"_s << 0;
        QTest::newRow("a letter among them") << u"04/18/20x6"_s << 0;
        QTest::newRow("no number") << u"abc"_s << 0;
        QTest::newRow("blank") << u"  "_s << 0;
    }

    void editSettlementFallsBackOnTheLastFourCharacters()
    {
        QFETCH(const QString, text);
        QFETCH(const int, year);
        QCOMPARE(editSettlementYear(text), year);
    }

    void weeksStandInOrderOfDate_data()
    {
        QTest::addColumn<QString>("a");
        QTest::addColumn<QString>("b");
        QTest::addColumn<bool>("later");
        QTest::addColumn<bool>("earlier");
        const auto row = [](const char *name, const QString &a, const QString &b, bool later,
                            bool earlier) { QTest::newRow(name) << a << b << later << earlier; };
        row("later", u"04/18/2026"_s, u"04/11/2026"_s, true, false);
        row("earlier", u"04/11/2026"_s, u"04/18/2026"_s, false, true);
        row("the year counts first", u"01/03/2026"_s, u"12/26/2025"_s, true, false);
        row("spelled otherwise", u"10/3/2026"_s, u"9/26/2026"_s, true, false);
        row("the same", u"04/18/2026"_s, u"04/18/2026"_s, false, false);
        row("two spellings of a day", u"4/18/2026"_s, u"04/18/2026"_s, false, false);
        row("no date, a date", u"abc"_s, u"04/18/2026"_s, false, false);
        row("a date, no date", u"04/18/2026"_s, u"abc"_s, true, true);
        row("blank, a date", u""_s, u"04/18/2026"_s, false, false);
        row("a letter in the year", u"04/18/20x6"_s, u"04/18/2026"_s, false, false);
        row("texts", u"b"_s, u"a"_s, true, false);
        row("texts by code unit", u"a"_s, u"B"_s, true, false);
        row("texts, not numbers", u"9"_s, u"10"_s, true, false);
        row("texts without the blanks around", u" b"_s, u"a"_s, true, false);
        row("blanks alone tell nothing apart", u" abc"_s, u"abc "_s, false, false);
        row("blank, text", u"  "_s, u"abc"_s, false, true);
    }

    void weeksStandInOrderOfDate()
    {
        QFETCH(const QString, a);
        QFETCH(const QString, b);
        QFETCH(const bool, later);
        QFETCH(const bool, earlier);
        QCOMPARE(payweekIsLater(a, b), later);
        QCOMPARE(payweekIsEarlier(a, b), earlier);
    }

    void sortedWeeksKeepTheirSpellingAndEndWithThoseWithoutADate()
    {
        QStringList weeks = mixedWeeks;
        sortPayweeksNewestFirst(weeks);
        QCOMPARE(weeks, QStringList({u"04/18/2026"_s, u"4/11/2026"_s, u"01/03/2026"_s,
                                     u"12/27/2025"_s, u" zzz"_s, u"abc"_s, u""_s}));
        sortPayweeksOldestFirst(weeks);
        QCOMPARE(weeks, QStringList({u"12/27/2025"_s, u"01/03/2026"_s, u"4/11/2026"_s,
                                     u"04/18/2026"_s, u""_s, u"abc"_s, u" zzz"_s}));
    }

    void theSortsAgreeWithTheComparisons()
    {
        QStringList sorted = mixedWeeks;
        QStringList expected = mixedWeeks;
        sortPayweeksNewestFirst(sorted);
        std::sort(expected.begin(), expected.end(), payweekIsLater);
        QCOMPARE(sorted, expected);
        sortPayweeksOldestFirst(sorted);
        std::sort(expected.begin(), expected.end(), payweekIsEarlier);
        QCOMPARE(sorted, expected);
    }

    void aListWithoutWeeksSortsToItself()
    {
        QStringList weeks;
        sortPayweeksNewestFirst(weeks);
        sortPayweeksOldestFirst(weeks);
        QCOMPARE(weeks, QStringList());
    }

    void anAppointmentIsReadInTheseForms_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QDateTime>("appointment");
        const auto row = [](const char *form, const QString &text, int day, QTime time) {
            QTest::newRow(form) << text << QDateTime(QDate(2026, 4, day), time);
        };
        row("ISO", u"2026-04-18T08:30:15"_s, 18, {8, 30, 15});
        row("ISO past the end of the day", u"2026-04-17T24:00:00"_s, 18, {0, 0});
        row("ISO to the minute", u"2026-04-18T08:30"_s, 18, {8, 30});
        row("ISO day alone", u"2026-04-18"_s, 18, {0, 0});
        row("MM/dd/yyyy HH:mm", u"04/18/2026 21:56"_s, 18, {21, 56});
        row("M/d/yyyy H:mm", u"4/8/2026 8:05"_s, 8, {8, 5});
        row("MM/dd/yyyy HH:mm:ss", u"04/18/2026 21:56:07"_s, 18, {21, 56, 7});
        row("M/d/yyyy H:mm:ss", u"4/8/2026 8:05:09"_s, 8, {8, 5, 9});
        row("MM/dd/yyyy h:mm AP", u"04/18/2026 9:30 PM"_s, 18, {21, 30});
        row("M/d/yyyy h:mm AP", u"4/8/2026 9:30 AM"_s, 8, {9, 30});
        row("MM/dd/yyyy h:mm ap", u"04/18/2026 9:30 pm"_s, 18, {21, 30});
        row("M/d/yyyy h:mm ap", u"4/8/2026 9:30 am"_s, 8, {9, 30});
        row("yyyy-MM-dd HH:mm", u"2026-04-18 08:30"_s, 18, {8, 30});
        row("yyyy-MM-dd HH:mm:ss", u"2026-04-18 08:30:15"_s, 18, {8, 30, 15});
        row("noon", u"04/18/2026 12:15 PM"_s, 18, {12, 15});
        row("midnight", u"04/18/2026 12:15 AM"_s, 18, {0, 15});
        row("blanks around", u"  04/18/2026 21:56\t"_s, 18, {21, 56});
    }

    void anAppointmentIsReadInTheseForms()
    {
        QFETCH(const QString, text);
        QFETCH(const QDateTime, appointment);
        QCOMPARE(parseAppointmentDateTime(text), appointment);
    }

    void anAppointmentIsNotReadInAnyOther_data()
    {
        QTest::addColumn<QString>("text");
        const QStringList texts = {u""_s,
                                   u" \t"_s,
                                   u"call first"_s,
                                   u"04/18/26 21:56"_s,
                                   u"04/18/2026"_s,
                                   u"21:56"_s,
                                   u"04/18/2026 24:00"_s,
                                   u"04/18/2026 21:60"_s,
                                   u"04/31/2026 21:56"_s,
                                   u"04/18/2026 13:30 PM"_s,
                                   u"04/18/2026 9:30PM"_s,
                                   u"04-18-2026 21:56"_s,
                                   u"18/04/2026 21:56"_s,
                                   u"04/18/2026 21:56 CDT"_s,
                                   u"20x6-04-18T21:56:07"_s,
                                   u"2026-04-18T21:5x:07"_s,
                                   u"2026-02-30T21:56:07"_s};
        for (const QString &text : texts)
            QTest::newRow(qPrintable(u'"' + text + u'"')) << text;
    }

    void anAppointmentIsNotReadInAnyOther()
    {
        QFETCH(const QString, text);
        QCOMPARE(parseAppointmentDateTime(text), QDateTime());
    }

    void anAppointmentStandsAsWrittenThoughTheClockSkipsIt_data()
    {
        QTest::addColumn<QString>("zone");
        QTest::addColumn<QString>("text");
        // In these zones the clock goes from 02:00 to 03:00, or from 00:00 to 01:00, on that day.
        for (const char *zone : {"America/Chicago", "America/New_York", "America/Los_Angeles"}) {
            for (const QString &text :
                 {u"03/08/2026 02:30"_s, u"3/8/2026 2:30"_s, u"03/08/2026 02:30:00"_s,
                  u"3/8/2026 2:30 AM"_s, u"03/08/2026 2:30 am"_s, u"2026-03-08 02:30"_s,
                  u"2026-03-08T02:30"_s, u"2026-03-08T02:30:00"_s})
                QTest::newRow(qPrintable(QLatin1StringView(zone) + u' ' + text))
                    << QString::fromLatin1(zone) << text;
        }
        QTest::newRow("midnight") << u"America/Havana"_s << u"03/08/2026 00:30"_s;
        QTest::newRow("a zone that does not skip it") << u"Asia/Kolkata"_s << u"03/08/2026 02:30"_s;
    }

    void anAppointmentStandsAsWrittenThoughTheClockSkipsIt()
    {
        QFETCH(const QString, zone);
        QFETCH(const QString, text);
        const TimeZone clock(zone);
        const QDateTime time = parseAppointmentDateTime(text);
        QVERIFY(time.isValid());
        QCOMPARE(time.date(), QDate(2026, 3, 8));
        QCOMPARE(time.time(), QTime(zone == "America/Havana"_L1 ? 0 : 2, 30));
        QCOMPARE(storedAppointmentText(time),
                 zone == "America/Havana"_L1 ? u"2026-03-08T00:30:00"_s : u"2026-03-08T02:30:00"_s);
    }

    void aStoredAppointmentIsIsoText()
    {
        const QDateTime time(QDate(2026, 4, 18), QTime(21, 56));
        QCOMPARE(storedAppointmentText(time), u"2026-04-18T21:56:00"_s);
        QCOMPARE(storedAppointmentText(parseAppointmentDateTime(u"2026-04-18T21:56:00Z"_s)),
                 u"2026-04-18T21:56:00Z"_s);
    }
};

TEST_CLASS(tst_PayweekDates)
#include "tst_PayweekDates.moc"
