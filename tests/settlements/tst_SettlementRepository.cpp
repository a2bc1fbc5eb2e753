#include "settlements/SettlementItems.h"
#include "settlements/SettlementRepository.h"
#include "support/RowMakers.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace SettlementRepository;

namespace {

const QString week = u"04/18/2026"_s;

QStringList payweeksOf(const TestConnection &file)
{
    QStringList payweeks;
    QString error;
    if (!listSettlementPayweeks(file.database(), payweeks, error))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    return payweeks;
}

QStringList namesOf(const TestConnection &file, int year)
{
    QStringList names = {u"left over"_s};
    QString error;
    if (!listSettlementItemNames(file.database(), year, names, error))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    return names;
}

double rateOf(const TestConnection &file, const QString &payweek)
{
    double percent = 9.0;
    QString error;
    if (!loadSettlementApr(file.database(), payweek, percent, error))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    return percent;
}

} // namespace

/// The items that belong to no trip, and the APR, on a file as the page has it open. Failures have
/// a class of their own.
class tst_SettlementRepository : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void payweeksComeFromTripsAndItemsButNotFromRates()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        trip().payweek(u" 04/18/2026 "_s).insert(workspace);
        trip().payweek(u"04/18/2026"_s).insert(workspace);
        trip().payweek(u"  "_s).insert(workspace);
        expense(u"04/18/2026"_s, u"ELD"_s, 9.25).insert(workspace);
        expense(u"04/25/2026"_s, u"ELD"_s, 9.25).insert(workspace);
        apr(u"05/02/2026"_s, 4.0).insert(workspace);
        QCOMPARE(payweeksOf(file), QStringList({u"04/25/2026"_s, u"04/18/2026"_s}));
    }

    void payweeksStandNewestFirstAndOtherTextsInTextOrder()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        for (const QString &payweek :
             {u"12/26/2025"_s, u"1/2/2026"_s, u"2026-01-09"_s, u"before"_s, u"AFTER"_s})
            expense(payweek, u"ELD"_s, 9.25).insert(workspace);
        QCOMPARE(payweeksOf(file), QStringList({u"before"_s, u"AFTER"_s, u"2026-01-09"_s,
                                                u"1/2/2026"_s, u"12/26/2025"_s}));
    }

    void textsThatAreNoDatesStandInBinaryOrderAmongTheDates()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        for (const QString &payweek : {u"BANANA"_s, u"(old)"_s, week, u"apple"_s})
            trip().payweek(payweek).insert(workspace);
        QCOMPARE(payweeksOf(file), QStringList({u"apple"_s, u"BANANA"_s, week, u"(old)"_s}));
    }

    void datesWithDashesAndWithTheYearInFrontAreOrderedAsTexts()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        for (const QString &payweek :
             {u"04-18-2026"_s, u"12/26/2025"_s, u"05/02/2026"_s, u"2026/04/18"_s})
            trip().payweek(payweek).insert(workspace);
        QCOMPARE(payweeksOf(file),
                 QStringList({u"2026/04/18"_s, u"05/02/2026"_s, u"12/26/2025"_s, u"04-18-2026"_s}));
    }

    void tabsAndLineFeedsAroundAPayweekAreNoPartOfIt()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        trip().payweek(u"04/18/2026\n"_s).insert(workspace);
        trip().payweek(u"\t\n"_s).insert(workspace);
        expense(u"\t04/18/2026"_s, u"ELD"_s, 9.25).insert(workspace);
        QCOMPARE(payweeksOf(file), QStringList({week}));
    }

    void payweeksThatAreWrittenInTwoWaysAreListedSideBySide()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        trip().payweek(u"4/18/2026"_s).insert(workspace);
        trip().payweek(u"Week A"_s).insert(workspace);
        expense(week, u"ELD"_s, 9.25).insert(workspace);
        expense(u"week a"_s, u"ELD"_s, 9.25).insert(workspace);
        QCOMPARE(payweeksOf(file), QStringList({u"week a"_s, u"Week A"_s, u"4/18/2026"_s, week}));
    }

    void itemsLoadWithTheirSums()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        revenue(week, u"Bonus"_s, 1000.0).insert(workspace);
        expense(week, u"ELD"_s, 9.25).insert(workspace);
        expense(week, u"Insurance"_s, 148.755).insert(workspace);
        SettlementItemMaker(week, u" Revenue "_s, u"Refund"_s, 20.0).insert(workspace);
        SettlementItemMaker(week, u"other"_s, u"Note"_s, 5.0).insert(workspace);
        expense(u"04/25/2026"_s, u"ELD"_s, 9.25).insert(workspace);
        const Loaded items = loaded(file.database(), u" 04/18/2026 "_s);
        QVERIFY(items.ok);
        QCOMPARE(items.error, QString());
        QCOMPARE(items.rows,
                 QList<QStringList>({{u"4"_s, week, u" Revenue "_s, u"Refund"_s, u"20.00"_s},
                                     {u"2"_s, week, u"expense"_s, u"ELD"_s, u"9.25"_s},
                                     {u"3"_s, week, u"expense"_s, u"Insurance"_s, u"148.75"_s},
                                     {u"5"_s, week, u"other"_s, u"Note"_s, u"5.00"_s},
                                     {u"1"_s, week, u"revenue"_s, u"Bonus"_s, u"1000.00"_s}}));
        QCOMPARE(items.revenue, 1020.0);
        QCOMPARE(items.expense, 158.005);
    }

    void itemStoredWithBlanksAroundItsPayweekIsListedButNotLoaded()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        expense(u" 04/18/2026"_s, u"ELD"_s, 9.25).insert(workspace);
        QCOMPARE(payweeksOf(file), QStringList({week}));
        QCOMPARE(loaded(file.database(), week).rows, QList<QStringList>());
    }

    void noPayweekHasNoItems()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        const Loaded items = loaded(file.database(), u"  "_s);
        QVERIFY(items.ok);
        QCOMPARE(items.rows, QList<QStringList>());
        QCOMPARE(items.revenue, 0.0);
        QCOMPARE(items.expense, 0.0);
    }

    void addedItemIsStoredTrimmedInItsKind()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        QString error = u"left over"_s;
        QVERIFY(addSettlementItem(file.database(), u" 04/18/2026 "_s, u" Expense"_s, u" ELD "_s,
                                  9.25, error));
        QCOMPARE(error, QString());
        QCOMPARE(workspace.rows(u"SELECT settlement_date, kind, name, amount "
                                "FROM settlement_non_trip_items"_s),
                 QList<QStringList>({{week, u"expense"_s, u"ELD"_s, u"9.25"_s}}));
    }

    void updatedItemKeepsItsPayweek()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        expense(week, u"ELD"_s, 9.25).insert(workspace);
        QString error = u"left over"_s;
        QVERIFY(
            updateSettlementItem(file.database(), 1, u"REVENUE "_s, u" Refund "_s, 20.0, error));
        QCOMPARE(error, QString());
        QCOMPARE(workspace.rows(u"SELECT settlement_date, kind, name, amount "
                                "FROM settlement_non_trip_items"_s),
                 QList<QStringList>({{week, u"revenue"_s, u"Refund"_s, u"20"_s}}));
    }

    void deletedItemIsGoneAlone()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        expense(week, u"ELD"_s, 9.25).insert(workspace);
        expense(week, u"Tolls"_s, 5.0).insert(workspace);
        QString error = u"left over"_s;
        QVERIFY(deleteSettlementItem(file.database(), 1, error));
        QCOMPARE(error, QString());
        QCOMPARE(file.value(u"SELECT group_concat(name) FROM settlement_non_trip_items"_s),
                 u"Tolls"_s);
    }

    void namesAreThoseOfTheYearEachOnce()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        expense(u"12/26/2025"_s, u"Old"_s, 1.0).insert(workspace);
        expense(u"01/02/2026"_s, u"tolls"_s, 1.0).insert(workspace);
        expense(u"01/09/2026"_s, u" TOLLS "_s, 1.0).insert(workspace);
        expense(u"2026-01-16"_s, u"ELD"_s, 1.0).insert(workspace);
        expense(u"week 3 of 2026"_s, u"Undated"_s, 1.0).insert(workspace);
        expense(u"01/02/2026"_s, u"  "_s, 1.0).insert(workspace);
        const QStringList names = namesOf(file, 2026);
        QCOMPARE(names.size(), 2);
        QCOMPARE(names.first(), u"ELD"_s);
        QCOMPARE(names.last().toLower(), u"tolls"_s);
        QCOMPARE(namesOf(file, 2025), QStringList({u"Old"_s}));
    }

    void datesWithDashesAndWithTheYearInFrontAreOfNoYear()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        expense(u"04-18-2026"_s, u"Tolls"_s, 1.0).insert(workspace);
        expense(u"2026/04/18"_s, u"Scale"_s, 1.0).insert(workspace);
        expense(week, u"ELD"_s, 1.0).insert(workspace);
        QCOMPARE(namesOf(file, 2026), QStringList({u"ELD"_s}));
    }

    void tabsAndLineFeedsAroundANameAreNoPartOfIt()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        expense(week, u"\tTolls"_s, 1.0).insert(workspace);
        expense(week, u"Tolls\n"_s, 1.0).insert(workspace);
        expense(week, u"\t\n"_s, 1.0).insert(workspace);
        QCOMPARE(namesOf(file, 2026), QStringList({u"Tolls"_s}));
    }

    void namesStandInOrderWhateverTheirCase()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        for (const QString &name : {u"cones"_s, u"Bonus"_s, u"axle"_s})
            expense(week, name, 1.0).insert(workspace);
        QCOMPARE(namesOf(file, 2026), QStringList({u"axle"_s, u"Bonus"_s, u"cones"_s}));
    }

    void noYearHasNoNames()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        workspace.execute(u"DROP TABLE settlement_non_trip_items"_s); // it is not even asked
        QCOMPARE(namesOf(file, 0), QStringList());
        QCOMPARE(namesOf(file, -1), QStringList());
    }

    void rateIsSavedOnceAndReadBack()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        QString error;
        double rate = 9.0;
        QVERIFY(loadSettlementApr(file.database(), week, rate, error));
        QCOMPARE(rate, 0.0);
        QVERIFY(saveSettlementApr(file.database(), u" 04/18/2026 "_s, 4.25, error));
        QVERIFY(saveSettlementApr(file.database(), week, 5.5, error));
        QVERIFY(loadSettlementApr(file.database(), u" 04/18/2026 "_s, rate, error));
        QCOMPARE(rate, 5.5);
        QCOMPARE(workspace.rows(u"SELECT settlement_date, apr FROM settlement_meta"_s),
                 QList<QStringList>({{week, u"5.5"_s}}));
        QVERIFY(saveSettlementApr(file.database(), week, 0.0, error));
        QCOMPARE(file.value(u"SELECT COUNT(*) FROM settlement_meta"_s), 1);
    }

    void rateStoredWithBlanksAroundItsPayweekIsReadAndChanged()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        apr(u" 04/18/2026 "_s, 4.25).insert(workspace);
        QString error;
        double rate = 9.0;
        QVERIFY(loadSettlementApr(file.database(), week, rate, error));
        QCOMPARE(rate, 4.25);
        QVERIFY(saveSettlementApr(file.database(), week, 5.5, error));
        QCOMPARE(workspace.rows(u"SELECT settlement_date, apr FROM settlement_meta"_s),
                 QList<QStringList>({{u" 04/18/2026 "_s, u"5.5"_s}}));
    }

    void rateOfSeveralRowsIsThatOfTheFirst()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        apr(u" 04/18/2026 "_s, 4.25).insert(workspace);
        apr(week, 3.0).insert(workspace);
        QCOMPARE(rateOf(file, week), 4.25);
    }

    void rateThatIsTextReadsAsTheNumberThatItBeginsWith_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("percent");
        QTest::newRow("per cent") << u"4.5%"_s << 4.5;
        QTest::newRow("blanks in front") << u"  4.5 a year"_s << 4.5;
        QTest::newRow("words") << u"none"_s << 0.0;
        QTest::newRow("empty") << u""_s << 0.0;
    }

    void rateThatIsTextReadsAsTheNumberThatItBeginsWith()
    {
        QFETCH(const QString, text);
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        apr(week, 0.0).set(u"apr"_s, text).insert(workspace);
        QTEST(rateOf(file, week), "percent");
    }

    void everyRowOfAPayweekTakesTheRate()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        apr(u" 04/18/2026 "_s, 4.25).insert(workspace);
        apr(u"04/18/2026 "_s, 3.0).insert(workspace);
        QString error;
        QVERIFY(saveSettlementApr(file.database(), week, 5.5, error));
        QCOMPARE(workspace.rows(u"SELECT apr FROM settlement_meta"_s),
                 QList<QStringList>({{u"5.5"_s}, {u"5.5"_s}}));
    }

    void rateThatWasNeverFilledInIsZero()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        apr(week, 0.0).set(u"apr"_s, QVariant()).insert(workspace);
        QString error = u"left over"_s;
        double rate = 9.0;
        QVERIFY(loadSettlementApr(file.database(), week, rate, error));
        QCOMPARE(rate, 0.0);
        QCOMPARE(error, QString());
    }
};

TEST_CLASS(tst_SettlementRepository)
#include "tst_SettlementRepository.moc"
