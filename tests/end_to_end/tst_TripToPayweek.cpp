#include "app/BrindlepathApp.h"
#include "support/DialogRobot.h"
#include "support/Person.h"
#include "support/RowMakers.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QTextEdit>

using namespace Qt::StringLiterals;

/// The main job from end to end: a trip is entered, saved, read in its payweek, changed, deleted.
class tst_TripToPayweek : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void enteredTripIsStoredToTheCent();
    void enteredTripStandsInItsPayweek();
    void changedTripChangesTheLaterCarryover();
    void deletedTripIsGoneFromItsPayweek();

private:
    static void enterTrip(BrindlepathApp &window, const QString &number, const QString &payweek,
                          const QString &linehaul);
    static void typeInto(BrindlepathApp &window, const char *field, const QString &text);
    static void goTo(BrindlepathApp &window, int row);
    static QStringList report(const BrindlepathApp &window);
};

void tst_TripToPayweek::typeInto(BrindlepathApp &window, const char *field, const QString &text)
{
    Person::types(window.findChild<QLineEdit *>(QLatin1StringView(field)), text);
}

void tst_TripToPayweek::goTo(BrindlepathApp &window, int row)
{
    window.findChild<QListWidget *>(u"navigationList"_s)->setCurrentRow(row);
}

QStringList tst_TripToPayweek::report(const BrindlepathApp &window)
{
    return window.findChild<QTextEdit *>(u"payweekSummary"_s)->toPlainText().split(u'\n');
}

void tst_TripToPayweek::enterTrip(BrindlepathApp &window, const QString &number,
                                  const QString &payweek, const QString &linehaul)
{
    goTo(window, 1);
    Person::clicks(window, u"New Trip"_s);
    typeInto(window, "tripNoField", number);
    typeInto(window, "payweekField", payweek);
    typeInto(window, "emptyMilesField", u"100"_s);
    typeInto(window, "loadedMilesField", u"1,234.50"_s);
    typeInto(window, "linehaulField", linehaul);
    typeInto(window, "fusuField", u"$210.40"_s);
    typeInto(window, "carrierPercentField", u"25"_s);
    Person::clicks(window, u"Save Trip / Changes"_s);
}

void tst_TripToPayweek::enteredTripIsStoredToTheCent()
{
    Workspace workspace;
    workspace.makeTripsWithoutIndexes();
    BrindlepathApp window;
    Person::shows(window);
    enterTrip(window, u"4471203"_s, u"04/18/2026"_s, u"$2,345.67"_s);
    QCOMPARE(workspace.rows(u"SELECT trip_no, payweek, empty_miles, loaded_miles, total_miles, "
                            "linehaul, fusu, carrier_pct, carrier_make, total_revenue, total_cost, "
                            "net_revenue, cpm, trip_hours, net_per_hour FROM trips"_s),
             QList<QStringList>({{u"4471203"_s, u"04/18/2026"_s, u"100"_s, u"1234.5"_s, u"1334.5"_s,
                                  u"2345.67"_s, u"210.4"_s, u"25"_s, u"586.42"_s, u"2556.07"_s,
                                  u"0"_s, u"2556.07"_s, u"191.54"_s, u"0"_s, u"0"_s}}));
    QVERIFY(!workspace.value(u"SELECT created_at FROM trips"_s).toString().isEmpty());
}

void tst_TripToPayweek::enteredTripStandsInItsPayweek()
{
    Workspace workspace;
    workspace.makeTripsWithoutIndexes();
    BrindlepathApp window;
    Person::shows(window);
    enterTrip(window, u"4471203"_s, u"04/18/2026"_s, u"$2,345.67"_s);
    Person::clicksCell(window.findChild<QTableWidget *>(u"tripList"_s), 0, 2);
    QCOMPARE(window.windowTitle(), u"Brindlepath Desk - View Payweek - 04/18/2026"_s);
    const QStringList lines = report(window);
    QVERIFY(lines.contains(u"  Trip count: 1"_s));
    QVERIFY(lines.contains(u"  Total miles: 1,334.50"_s));
    QVERIFY(lines.contains(u"  Settlement total after interest: $2,556.07"_s));
    QCOMPARE(column(window.findChild<QTableWidget *>(u"payweekTrips"_s), u"CPM"_s),
             QStringList({u"$191.54/mi"_s}));
}

void tst_TripToPayweek::changedTripChangesTheLaterCarryover()
{
    Workspace workspace;
    workspace.makeTripsWithoutIndexes();
    expense(u"04/11/2026"_s, u"Engine repair"_s, 3000.0).insert(workspace);
    trip().no(u"1"_s).payweek(u"04/18/2026"_s).totals(500.0, 0.0).insert(workspace);
    BrindlepathApp window;
    Person::shows(window);
    enterTrip(window, u"4471203"_s, u"04/11/2026"_s, u"1000"_s);
    Person::clicksCell(window.findChild<QTableWidget *>(u"tripList"_s), 1, 2);
    QVERIFY(report(window).contains(u"  Previous settlement carryover: -$1,789.60"_s));
    QVERIFY(report(window).contains(u"  Carryover forward: -$1,289.60"_s));

    goTo(window, 1);
    Person::clicksCell(window.findChild<QTableWidget *>(u"tripList"_s), 0, 1);
    typeInto(window, "linehaulField", u"$2,700.00"_s);
    Person::clicks(window, u"Save Trip / Changes"_s);
    Person::clicksCell(window.findChild<QTableWidget *>(u"tripList"_s), 1, 2);
    QVERIFY(report(window).contains(u"  Previous settlement carryover: -$89.60"_s));
    QVERIFY(report(window).contains(u"  Carryover forward: $0.00"_s));
}

void tst_TripToPayweek::deletedTripIsGoneFromItsPayweek()
{
    Workspace workspace;
    workspace.makeTripsWithoutIndexes();
    trip().no(u"4471203"_s).payweek(u"04/18/2026"_s).totals(900.0, 100.0).insert(workspace);
    trip().no(u"4471204"_s).payweek(u"04/18/2026"_s).totals(700.0, 100.0).insert(workspace);
    DialogRobot robot;
    BrindlepathApp window;
    Person::shows(window);
    goTo(window, 1);
    Person::clicksCell(window.findChild<QTableWidget *>(u"tripList"_s), 1, 1);
    robot
        .expect(DialogRobot::Question, u"Confirm Delete Trip"_s,
                u"Delete Trip 4471203 (ID 1)?\n\nThis will also delete related stops, pay items, "
                "cost items, fuel/detail rows, and trailers.\n\nContinue?"_s)
        .press(u"Yes"_s);
    robot
        .expect(DialogRobot::Question, u"Final Delete Confirmation"_s,
                u"Final check:\n\nDelete Trip 4471203 (ID 1) permanently?\n\n"
                "This cannot be undone from inside the app."_s)
        .press(u"Yes"_s);
    Person::clicks(window, u"Delete Trip"_s);
    Person::clicksCell(window.findChild<QTableWidget *>(u"tripList"_s), 0, 2);
    QVERIFY(report(window).contains(u"  Trip count: 1"_s));
    QVERIFY(report(window).contains(u"  Trip net: $600.00"_s));
}

TEST_CLASS(tst_TripToPayweek)

#include "tst_TripToPayweek.moc"
