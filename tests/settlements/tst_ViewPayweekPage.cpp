#include "settlements/PayweekRows.h"
#include "settlements/PayweekWindow.h"
#include "support/DialogRobot.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString firstWeek = u"01/02/2026"_s;
const QString secondWeek = u"01/09/2026"_s;
const QString thirdWeek = u"01/16/2026"_s;

QString loaded(const QString &payweek)
{
    return u"Loaded View Payweek summary for "_s + payweek;
}

/// A file with the three worked weeks, the last of them on the page.
class WorkedWeeks
{
public:
    WorkedWeeks()
        : path(workspace.makeTrips())
    {
        insertWorkedWeeks(workspace);
        view.page->openDatabase(path);
        forget();
    }

    /// Leaves out what the page told until now.
    void forget()
    {
        view.statuses.clear();
        view.announced.clear();
    }

    Workspace workspace;
    DialogRobot robot;
    QString path;
    PayweekWindow view;
};

} // namespace

/// A payweek as a person chooses and reads it.
class tst_ViewPayweekPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void payweekIsReadAsAReport()
    {
        const WorkedWeeks weeks;
        QVERIFY(weeks.view.summary().startsWith(u"Payweek: 01/16/2026\n\nTrips\n"_s));
        QCOMPARE(weeks.view.summary().section(u"Carryover / Interest Summary\n"_s, 1),
                 uR"(  Settlement year used: 2026
  Previous settlement carryover: -$149.84
  Previous fund balance: $200.00
  Previous fund additions/subtractions: -$20.00
  Interest base balance: $180.00
  APR: 10.40%
  Interest applied this payweek: $0.36
  Settlement total before interest: $620.00
  Settlement total after interest: $620.36
  Adjusted net after carryover: $470.52
  Carryover forward: $0.00
  Current-year fund balance used for interest: $180.00
  Note: APR interest excludes prior-year legacy fund balances and obsolete Tire Fund values.

Repository status: basic payweek aggregation, current-year fund logic, fuel analytics, carryover, and interest now live in PayweekRepository.)"_s);
    }

    void tripsAndItemsStandInTheirTables()
    {
        const WorkedWeeks weeks;
        QCOMPARE(texts(weeks.view.trips()),
                 QList<QStringList>({{u"4471203"_s, thirdWeek, u"600"_s, u"$800.00"_s, u"$200.00"_s,
                                      u"$600.00"_s, u"$0.00/mi"_s, u"0"_s, u"$0.00/hr"_s}}));
        QCOMPARE(
            texts(weeks.view.items()),
            QList<QStringList>(
                {{u"6"_s, thirdWeek, u"expense"_s, u"Performance Bond"_s, u"$10.00"_s},
                 {u"5"_s, thirdWeek, u"revenue"_s, u"Emergency Fund Withdrawal"_s, u"$30.00"_s}}));
    }

    void itemOfAnotherKindIsShownAndCountedInNeitherSum()
    {
        const WorkedWeeks weeks;
        expense(thirdWeek, u"Scale ticket"_s, 12.5)
            .set(u"kind"_s, u"other"_s)
            .insert(weeks.workspace);
        weeks.view.clicks(u"Refresh"_s);
        QCOMPARE(column(weeks.view.items(), u"Kind"_s),
                 QStringList({u"expense"_s, u"other"_s, u"revenue"_s}));
        QCOMPARE(texts(weeks.view.items()).at(1),
                 QStringList({u"7"_s, thirdWeek, u"other"_s, u"Scale ticket"_s, u"$12.50"_s}));
        QCOMPARE(weeks.view.figures(u"Item count"_s), QStringList({u"3"_s}));
        QCOMPARE(weeks.view.figures(u"Non-trip revenue"_s), QStringList({u"$30.00"_s}));
        QCOMPARE(weeks.view.figures(u"Non-trip expense"_s), QStringList({u"$10.00"_s}));
    }

    void eachSectionShowsItsOwnFigures()
    {
        const WorkedWeeks weeks;
        const qint64 id = trip().payweek(firstWeek).totals(0.0, 0.0).insert(weeks.workspace);
        fuel(id, u"Truck Fuel"_s, 400.0, 40.0, 100.0).insert(weeks.workspace);
        weeks.view.chooses(firstWeek);
        const PayweekWindow &view = weeks.view;
        QCOMPARE(view.figures(u"Trip count"_s), QStringList({u"2"_s}));
        QCOMPARE(view.figures(u"Item count"_s), QStringList({u"3"_s}));
        QCOMPARE(view.figures(u"Total expense"_s), QStringList({u"$1,710.00"_s}));
        QCOMPARE(view.figures(u"E-Fund Added this payweek"_s), QStringList({u"$100.00"_s}));
        QCOMPARE(view.figures(u"Tire Fund Added this payweek"_s), QStringList({u"$50.00"_s}));
        QCOMPARE(view.figures(u"Performance Bond Added this payweek"_s),
                 QStringList({u"$60.00"_s}));
        QCOMPARE(view.figures(u"Truck Fuel net cost"_s), QStringList({u"$360.00"_s}));
    }

    void lossIsReadWithItsSignAhead()
    {
        const WorkedWeeks weeks;
        weeks.view.chooses(firstWeek);
        QCOMPARE(weeks.view.figures(u"Settlement total before interest"_s),
                 QStringList({u"-$710.00"_s, u"-$710.00"_s}));
        QCOMPARE(weeks.view.figures(u"Previous settlement carryover"_s), QStringList({u"$0.00"_s}));
        QCOMPARE(weeks.view.figures(u"Carryover forward"_s), QStringList({u"-$709.84"_s}));
    }

    void chosenPayweekIsLoadedOnce()
    {
        const WorkedWeeks weeks;
        weeks.view.chooses(secondWeek);
        QCOMPARE(weeks.view.page->currentPayweek(), secondWeek);
        QCOMPARE(weeks.view.announced, QStringList({secondWeek}));
        QCOMPARE(weeks.view.statuses, QStringList({loaded(secondWeek)}));
        QCOMPARE(column(weeks.view.trips(), u"Revenue"_s), QStringList({u"$900.00"_s}));
        QCOMPARE(column(weeks.view.items(), u"Name"_s), QStringList({u"Emergency Fund"_s}));
    }

    void payweekIsAnnouncedBeforeItIsRead()
    {
        WorkedWeeks weeks;
        QString summaryThen = u"never announced"_s;
        weeks.view.page->payweekChangedCallback = [&](const QString &) {
            summaryThen = weeks.view.summary();
        };
        weeks.view.chooses(secondWeek);
        QCOMPARE(summaryThen, QString());
    }

    void refreshKeepsThePayweekAndReadsItAnew()
    {
        WorkedWeeks weeks;
        weeks.view.chooses(secondWeek);
        insertTrip(weeks.workspace, secondWeek, 50.0, 0.0);
        insertTrip(weeks.workspace, u"01/23/2026"_s, 50.0, 0.0);
        weeks.forget();
        weeks.view.clicks(u"Refresh"_s);
        QCOMPARE(weeks.view.page->currentPayweek(), secondWeek);
        QCOMPARE(weeks.view.offered().size(), 4);
        QCOMPARE(weeks.view.figures(u"Trip revenue"_s), QStringList({u"$950.00"_s}));
        QCOMPARE(weeks.view.announced, QStringList({secondWeek}));
        QCOMPARE(weeks.view.statuses,
                 QStringList({u"Loaded 4 payweeks for View Payweek"_s, loaded(secondWeek)}));
    }

    void boxIsHeardAgainByTheTimeThePageReports()
    {
        WorkedWeeks weeks;
        QList<bool> unheard;
        weeks.view.page->statusCallback = [&](const QString &) {
            unheard.append(weeks.view.box()->signalsBlocked());
        };
        weeks.view.clicks(u"Refresh"_s);
        weeks.view.page->showPayweek(secondWeek);
        QCOMPARE(unheard, QList<bool>({false, false, false, false}));
    }

    void refreshFallsBackToTheNewestPayweek()
    {
        WorkedWeeks weeks;
        weeks.view.chooses(secondWeek);
        weeks.workspace.execute(u"UPDATE trips SET payweek = '1/9/2026' WHERE payweek = ?"_s,
                                {secondWeek});
        weeks.workspace.execute(
            u"DELETE FROM settlement_non_trip_items WHERE settlement_date = ?"_s, {secondWeek});
        weeks.forget();
        weeks.view.clicks(u"Refresh"_s);
        QCOMPARE(weeks.view.page->currentPayweek(), thirdWeek);
        QCOMPARE(weeks.view.announced, QStringList({thirdWeek}));
        QCOMPARE(weeks.view.figures(u"Trip revenue"_s), QStringList({u"$800.00"_s}));
    }

    void refreshDoesNotTakeAnotherCaseForThePayweek()
    {
        WorkedWeeks weeks;
        insertTrip(weeks.workspace, u"Week One"_s, 1.0, 0.0);
        weeks.view.clicks(u"Refresh"_s);
        weeks.view.chooses(u"Week One"_s);
        weeks.workspace.execute(u"UPDATE trips SET payweek = 'WEEK ONE' WHERE payweek = ?"_s,
                                {u"Week One"_s});
        weeks.view.clicks(u"Refresh"_s);
        QCOMPARE(weeks.view.page->currentPayweek(), thirdWeek);
    }

    void payweekIsFoundByItsTextOrItsDate_data()
    {
        QTest::addColumn<QString>("asked");
        QTest::addColumn<QString>("shown");
        QTest::newRow("its text") << firstWeek << firstWeek;
        QTest::newRow("blanks around") << u"  01/02/2026\t"_s << firstWeek;
        QTest::newRow("short date") << u"1/2/2026"_s << firstWeek;
        QTest::newRow("short month") << u"1/02/2026"_s << firstWeek;
        QTest::newRow("short day") << u"01/2/2026"_s << firstWeek;
        QTest::newRow("year first") << u"2026-01-02"_s << firstWeek;
        QTest::newRow("text before date") << u"1/9/2026"_s << u"1/9/2026"_s;
        QTest::newRow("date of a key with its year first") << u"1/23/2026"_s << u"2026-01-23"_s;
        QTest::newRow("another case") << u"week ONE"_s << u"Week One"_s;
    }

    void payweekIsFoundByItsTextOrItsDate()
    {
        QFETCH(const QString, asked);
        QFETCH(const QString, shown);
        WorkedWeeks weeks;
        for (const QString &key : {u"1/9/2026"_s, u"2026-01-23"_s, u"Week One"_s, u"Week Two"_s})
            insertTrip(weeks.workspace, key, 1.0, 0.0);
        weeks.view.clicks(u"Refresh"_s);
        weeks.forget();
        weeks.view.page->showPayweek(asked);
        QCOMPARE(weeks.view.page->currentPayweek(), shown);
        QCOMPARE(weeks.view.announced, QStringList({shown}));
        QCOMPARE(weeks.view.statuses,
                 QStringList({loaded(shown), u"Opened View Payweek for "_s + shown}));
        QVERIFY(weeks.view.summary().startsWith(u"Payweek: "_s + shown + u'\n'));
    }

    void firstPayweekOfADateIsTaken()
    {
        WorkedWeeks weeks;
        for (const QString &key : {u"01/23/2026"_s, u"2026-01-23"_s})
            insertTrip(weeks.workspace, key, 1.0, 0.0);
        weeks.view.clicks(u"Refresh"_s);
        weeks.view.chooses(firstWeek);
        const QStringList ofThatDate = weeks.view.offered().first(2);
        QVERIFY(ofThatDate.contains(u"01/23/2026"_s));
        QVERIFY(ofThatDate.contains(u"2026-01-23"_s));
        weeks.view.page->showPayweek(u"1/23/2026"_s);
        QCOMPARE(weeks.view.box()->currentIndex(), 0);
        QCOMPARE(weeks.view.page->currentPayweek(), ofThatDate.first());
    }

    void payweekThatIsNotThereLeavesAllAsItWas_data()
    {
        QTest::addColumn<QString>("asked");
        QTest::newRow("another date") << u"01/03/2026"_s;
        QTest::newRow("part of a text") << u"01/02"_s;
        QTest::newRow("with dashes") << u"01-02-2026"_s;
        QTest::newRow("slashes, year first") << u"2026/01/02"_s;
        QTest::newRow("no date") << u"abc"_s;
    }

    void payweekThatIsNotThereLeavesAllAsItWas()
    {
        QFETCH(const QString, asked);
        WorkedWeeks weeks;
        weeks.view.chooses(secondWeek);
        const QString before = weeks.view.summary();
        weeks.forget();
        weeks.view.page->showPayweek(u' ' + asked + u' ');
        QCOMPARE(weeks.view.statuses,
                 QStringList({u"Payweek not found in View Payweek selector: "_s + asked}));
        QCOMPARE(weeks.view.announced, QStringList());
        QCOMPARE(weeks.view.page->currentPayweek(), secondWeek);
        QCOMPARE(weeks.view.summary(), before);
    }

    void blankRequestDoesNothing()
    {
        const WorkedWeeks weeks;
        weeks.view.page->showPayweek(u" \t"_s);
        weeks.view.page->showPayweek({});
        QCOMPARE(weeks.view.statuses, QStringList());
        QCOMPARE(weeks.view.announced, QStringList());
        QCOMPARE(weeks.view.page->currentPayweek(), thirdWeek);
    }

    void requestFillsAnEmptyBoxFirst()
    {
        Workspace workspace;
        const PayweekWindow view(workspace.makeTrips());
        insertWorkedWeeks(workspace);
        view.page->showPayweek(secondWeek);
        QCOMPARE(view.page->currentPayweek(), secondWeek);
        QCOMPARE(view.announced, QStringList({secondWeek}));
        QCOMPARE(view.statuses,
                 QStringList({u"Loaded 3 payweeks for View Payweek"_s, loaded(secondWeek),
                              u"Opened View Payweek for 01/09/2026"_s}));
    }

    void requestWithoutAFileFindsNothing()
    {
        const Workspace workspace;
        const DialogRobot robot;
        const PayweekWindow view;
        view.page->showPayweek(firstWeek);
        QCOMPARE(view.statuses,
                 QStringList({u"Payweek not found in View Payweek selector: 01/02/2026"_s}));
        QCOMPARE(view.summary(), QString());
        QCOMPARE(robot.seen().size(), 0);
    }

    void payweekWithoutTripsHasTheirHeadersAndZeros()
    {
        const WorkedWeeks weeks;
        expense(u"01/23/2026"_s, u"Permit"_s, 5.0).insert(weeks.workspace);
        weeks.view.clicks(u"Refresh"_s);
        weeks.view.chooses(u"01/23/2026"_s);
        QCOMPARE(weeks.view.tableSizes(), QList<int>({0, 9, 1, 5}));
        QCOMPARE(headers(weeks.view.trips()).first(), u"Trip # \u2195"_s);
        QCOMPARE(weeks.view.figures(u"Trip count"_s), QStringList({u"0"_s}));
        QCOMPARE(weeks.view.figures(u"Total miles"_s), QStringList({u"0.00"_s}));
        QCOMPARE(weeks.view.figures(u"Trip net"_s), QStringList({u"$0.00"_s}));
        QCOMPARE(weeks.view.figures(u"Net CPM before interest"_s), QStringList({u"$0.00"_s}));
    }

    void yearOfAPayweekThatIsNoDateIsUnknown()
    {
        const WorkedWeeks weeks;
        insertTrip(weeks.workspace, u"abc"_s, 1.0, 0.0);
        weeks.view.clicks(u"Refresh"_s);
        weeks.view.chooses(u"abc"_s);
        QCOMPARE(weeks.view.figures(u"Settlement year used"_s), QStringList({u"Unknown"_s}));
    }

    void emptyFundsStillShowTheRate()
    {
        const WorkedWeeks weeks;
        insertTrip(weeks.workspace, u"01/01/2027"_s, 1.0, 0.0);
        apr(u"01/01/2027"_s, 5.2).insert(weeks.workspace);
        weeks.view.clicks(u"Refresh"_s);
        weeks.view.chooses(u"01/01/2027"_s);
        QCOMPARE(weeks.view.figures(u"APR"_s), QStringList({u"5.20%"_s}));
        QCOMPARE(weeks.view.figures(u"Interest applied this payweek"_s),
                 QStringList({u"$0.00"_s, u"$0.00"_s}));
    }

    void clickOnATripNumberAsksForThatTrip()
    {
        const WorkedWeeks weeks;
        const qint64 id =
            trip().no(u" 5500 "_s).payweek(thirdWeek).totals(9.0, 0.0).insert(weeks.workspace);
        weeks.view.clicks(u"Refresh"_s);
        Person::clicksHeader(weeks.view.trips(), 3);
        Person::clicksCell(weeks.view.trips(), 0, 0);
        Person::clicksCell(weeks.view.trips(), 1, 0);
        QCOMPARE(weeks.view.openedTrips,
                 (QList<std::pair<int, QString>>({{int(id), u"5500"_s}, {3, u"4471203"_s}})));
    }

    void clickElsewhereOpensNothing()
    {
        const WorkedWeeks weeks;
        for (int column = 1; column < weeks.view.trips()->columnCount(); ++column)
            Person::clicksCell(weeks.view.trips(), 0, column);
        Person::clicksCell(weeks.view.items(), 0, 0);
        QCOMPARE(weeks.view.openedTrips.size(), 0);
    }

    void emptyTableHasNoTripToOpen()
    {
        const WorkedWeeks weeks;
        expense(u"01/23/2026"_s, u"Permit"_s, 5.0).insert(weeks.workspace);
        weeks.view.clicks(u"Refresh"_s);
        weeks.view.chooses(u"01/23/2026"_s);
        Q_EMIT weeks.view.trips()->cellClicked(0, 0);
        QTest::mouseClick(weeks.view.trips()->viewport(), Qt::LeftButton, {}, {5, 5});
        QCOMPARE(weeks.view.openedTrips.size(), 0);
    }

    void tripWhoseIdCannotBeReadGoesByItsNumberAlone()
    {
        const WorkedWeeks weeks;
        trip().no(u"  "_s).payweek(thirdWeek).insert(weeks.workspace);
        weeks.workspace.execute(u"ALTER TABLE trips RENAME TO stored"_s);
        weeks.workspace.execute(
            u"CREATE VIEW trips AS SELECT 'no id ' || id AS id, trip_no, payweek, total_miles, "
            "total_revenue, total_cost, net_revenue, cpm, trip_hours, net_per_hour FROM stored"_s);
        weeks.view.clicks(u"Refresh"_s);
        Person::clicksCell(weeks.view.trips(), 0, 0);
        Person::clicksCell(weeks.view.trips(), 1, 0);
        QCOMPARE(weeks.view.openedTrips, (QList<std::pair<int, QString>>({{0, u"4471203"_s}})));
    }

    void tripWithoutANumberGoesByItsId()
    {
        const WorkedWeeks weeks;
        const qint64 id = trip().no(u""_s).payweek(u"01/23/2026"_s).insert(weeks.workspace);
        weeks.view.clicks(u"Refresh"_s);
        weeks.view.chooses(u"01/23/2026"_s);
        Person::clicksCell(weeks.view.trips(), 0, 0);
        QCOMPARE(weeks.view.openedTrips, (QList<std::pair<int, QString>>({{int(id), QString()}})));
    }

    void tabGoesInReadingOrder()
    {
        const WorkedWeeks weeks;
        weeks.view.named<QWidget>("openPayweekTripsButton")->setFocus();
        QStringList order;
        for (int i = 0; i < 6; ++i) {
            order.append(weeks.view.window.focusWidget()->objectName());
            QTest::keyClick(weeks.view.window.focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(order, QStringList({u"openPayweekTripsButton"_s, u"payweekBox"_s,
                                     u"refreshPayweekButton"_s, u"payweekSummary"_s,
                                     u"payweekTrips"_s, u"payweekItems"_s}));
    }

    void wheelOverTheBoxChangesNothing()
    {
        const WorkedWeeks weeks;
        weeks.view.named<QWidget>("refreshPayweekButton")->setFocus();
        Person::turnsWheelOver(weeks.view.box());
        QCOMPARE(weeks.view.page->currentPayweek(), thirdWeek);
        QCOMPARE(weeks.view.statuses, QStringList());
    }
};

TEST_CLASS(tst_ViewPayweekPage)
#include "tst_ViewPayweekPage.moc"
