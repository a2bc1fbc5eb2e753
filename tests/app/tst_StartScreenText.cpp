#include "app/StartScreenText.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_StartScreenText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theDatabaseGoesByItsFileName_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("text");
        QTest::newRow("none") << u""_s << u"No database open"_s;
        QTest::newRow("blank") << u"  \t"_s << u"No database open"_s;
        QTest::newRow("without its folder") << u"/home/ann/truck 12/trips.db"_s << u"trips.db"_s;
        QTest::newRow("as it is spelled") << u"/media/usb/TRIPS.DB"_s << u"TRIPS.DB"_s;
        QTest::newRow("no folder") << u"trips.db"_s << u"trips.db"_s;
    }

    void theDatabaseGoesByItsFileName()
    {
        QFETCH(const QString, path);
        QFETCH(const QString, text);
        QCOMPARE(StartScreenText::databaseText(path), text);
    }

    void aCountThatCannotBeHadReadsDifferentlyForTripsAndLocations_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("trips");
        QTest::addColumn<QString>("locations");
        QTest::newRow("unknown") << -1 << u"Not available"_s << u"0"_s;
        QTest::newRow("none") << 0 << u"0"_s << u"0"_s;
        QTest::newRow("one") << 1 << u"1"_s << u"1"_s;
        QTest::newRow("not grouped") << 12345 << u"12345"_s << u"12345"_s;
        QTest::newRow("largest") << 2147483647 << u"2147483647"_s << u"2147483647"_s;
    }

    void aCountThatCannotBeHadReadsDifferentlyForTripsAndLocations()
    {
        QFETCH(const int, count);
        QFETCH(const QString, trips);
        QFETCH(const QString, locations);
        QCOMPARE(StartScreenText::tripsText(count), trips);
        QCOMPARE(StartScreenText::locationsText(count), locations);
    }

    void thePayweekIsTrimmedOrNone_data()
    {
        QTest::addColumn<QString>("payweek");
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << u""_s << u"None"_s;
        QTest::newRow("blank") << u" \t "_s << u"None"_s;
        QTest::newRow("trimmed") << u" 04/18/2026 "_s << u"04/18/2026"_s;
        QTest::newRow("as it is spelled") << u"4/18/2026"_s << u"4/18/2026"_s;
    }

    void thePayweekIsTrimmedOrNone()
    {
        QFETCH(const QString, payweek);
        QFETCH(const QString, text);
        QCOMPARE(StartScreenText::payweekText(payweek), text);
    }

    void noBackupIsEverKnown() { QCOMPARE(StartScreenText::backupText(), u"Not Available"_s); }

    void eachActivityHasALineWithABullet_data()
    {
        QTest::addColumn<QStringList>("activity");
        QTest::addColumn<QString>("text");
        QTest::newRow("none") << QStringList() << u"No recent activity available."_s;
        QTest::newRow("one") << QStringList({u"Latest trip: 4471203"_s})
                             << u"\u2022 Latest trip: 4471203"_s;
        QTest::newRow("two") << QStringList(
            {u"Import history contains 2 records"_s, u"Latest trip: 4471203"_s})
                             << u"\u2022 Import history contains 2 records\n"
                                u"\u2022 Latest trip: 4471203"_s;
    }

    void eachActivityHasALineWithABullet()
    {
        QFETCH(const QStringList, activity);
        QFETCH(const QString, text);
        QCOMPARE(StartScreenText::activityText(activity), text);
    }
};

TEST_CLASS(tst_StartScreenText)
#include "tst_StartScreenText.moc"
