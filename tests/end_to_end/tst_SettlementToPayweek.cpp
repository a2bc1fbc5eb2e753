#include "app/BrindlepathApp.h"
#include "support/DialogRobot.h"
#include "support/Person.h"
#include "support/RowMakers.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTableWidget>
#include <QTest>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace {

const QString firstWeek = u"04/11/2026"_s;
const QString secondWeek = u"04/18/2026"_s;
const QString thirdWeek = u"04/25/2026"_s;
const QString nextYear = u"01/08/2027"_s;
const QString carryover = u"Previous settlement carryover"_s;

/// Four payweeks that end above zero: nothing is carried from one to the next.
void makeWeeks(Workspace &workspace)
{
    workspace.makeTripsWithoutIndexes();
    trip().payweek(firstWeek).totals(500.0, 400.0).insert(workspace);
    trip().payweek(secondWeek).totals(450.0, 400.0).insert(workspace);
    trip().payweek(thirdWeek).totals(425.0, 400.0).insert(workspace);
    trip().payweek(nextYear).totals(410.0, 400.0).insert(workspace);
}

/// A person who goes to and fro between the two pages of the window.
class Bookkeeper
{
public:
    Bookkeeper() { Person::shows(window); }

    void enters(const QString &payweek, const QString &kind, const QString &name,
                const QString &amount)
    {
        edits(payweek);
        Person::clicks(window, u"New Item"_s);
        Person::chooses(box("settlementItemKind"), kind);
        Person::types(box("settlementItemName")->lineEdit(), name);
        Person::types(window.findChild<QLineEdit *>(u"settlementItemAmount"_s), amount);
        Person::clicks(window, u"Save Item"_s);
    }

    void entersRate(const QString &payweek, const QString &percent)
    {
        edits(payweek);
        auto *rate = window.findChild<QDoubleSpinBox *>(u"aprBox"_s);
        rate->selectAll();
        QTest::keyClicks(rate, percent);
        Person::clicks(window, u"Save APR"_s);
    }

    void changesTheOnlyAmount(const QString &payweek, const QString &amount)
    {
        edits(payweek);
        Person::clicksCell(window.findChild<QTableWidget *>(u"settlementItems"_s), 0, 3);
        Person::types(window.findChild<QLineEdit *>(u"settlementItemAmount"_s), amount);
        Person::clicks(window, u"Save Item"_s);
    }

    void deletesTheOnlyItem(const QString &payweek)
    {
        edits(payweek);
        Person::clicksCell(window.findChild<QTableWidget *>(u"settlementItems"_s), 0, 3);
        Person::clicks(window, u"Delete Selected"_s);
    }

    /// Goes to View Payweek and has everything read anew.
    void looksUp(const QString &payweek)
    {
        goesTo(u"View Payweek"_s);
        Person::clicks(window, u"Refresh"_s);
        Person::chooses(box("payweekBox"), payweek);
    }

    /// The figure of the payweek that is looked up.
    [[nodiscard]] QString figure(const QString &label) const
    {
        const QString start = u"  "_s + label + u": "_s;
        const auto *report = window.findChild<QTextEdit *>(u"payweekSummary"_s);
        for (const QString &line : report->toPlainText().split(u'\n')) {
            if (line.startsWith(start))
                return line.mid(start.size());
        }
        return {};
    }

    /// What each payweek, from the first to the last, starts with.
    QStringList carryovers()
    {
        QStringList amounts;
        for (const QString &payweek : {firstWeek, secondWeek, thirdWeek, nextYear}) {
            looksUp(payweek);
            amounts.append(figure(carryover));
        }
        return amounts;
    }

private:
    [[nodiscard]] QComboBox *box(const char *name) const
    {
        return window.findChild<QComboBox *>(QLatin1StringView(name));
    }

    void edits(const QString &payweek)
    {
        goesTo(u"Edit Settlement"_s);
        Person::chooses(box("settlementPayweekBox"), payweek);
    }

    void goesTo(const QString &page)
    {
        auto *pages = window.findChild<QListWidget *>(u"navigationList"_s);
        pages->setCurrentItem(pages->findItems(page, Qt::MatchExactly).first());
    }

    BrindlepathApp window;
};

const QStringList nothingCarried = {u"$0.00"_s, u"$0.00"_s, u"$0.00"_s, u"$0.00"_s};

} // namespace

/// What is edited by hand in a settlement shows at the next load of its payweek, and in what the
/// later payweeks of the year carry.
class tst_SettlementToPayweek : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addedItemCountsInItsPayweekAtTheNextLoad();
    void addedItemIsCarriedThroughTheLaterPayweeksOfTheYear();
    void savedRateEarnsInterestThatLessensTheCarryover();
    void changedItemChangesTheCarryover();
    void deletedItemIsTakenAwayEverywhere();
};

void tst_SettlementToPayweek::addedItemCountsInItsPayweekAtTheNextLoad()
{
    Workspace workspace;
    const DialogRobot robot;
    makeWeeks(workspace);
    Bookkeeper person;
    person.looksUp(firstWeek);
    QCOMPARE(person.figure(u"Settlement total after interest"_s), u"$100.00"_s);
    person.enters(firstWeek, u"expense"_s, u"Engine repair"_s, u"$1,000.00"_s);
    QCOMPARE(person.figure(u"Settlement total after interest"_s), u"$100.00"_s);
    person.looksUp(firstWeek);
    QCOMPARE(person.figure(u"Item count"_s), u"1"_s);
    QCOMPARE(person.figure(u"Non-trip expense"_s), u"$1,000.00"_s);
    QCOMPARE(person.figure(u"Settlement total after interest"_s), u"-$900.00"_s);
    QCOMPARE(person.figure(u"Carryover forward"_s), u"-$900.00"_s);
    QCOMPARE(robot.seen().size(), 0);
}

void tst_SettlementToPayweek::addedItemIsCarriedThroughTheLaterPayweeksOfTheYear()
{
    Workspace workspace;
    makeWeeks(workspace);
    Bookkeeper person;
    QCOMPARE(person.carryovers(), nothingCarried);
    person.enters(firstWeek, u"expense"_s, u"Engine repair"_s, u"$1,000.00"_s);
    QCOMPARE(person.carryovers(),
             QStringList({u"$0.00"_s, u"-$900.00"_s, u"-$850.00"_s, u"$0.00"_s}));
    person.enters(secondWeek, u"revenue"_s, u"Bonus"_s, u"300"_s);
    QCOMPARE(person.carryovers(),
             QStringList({u"$0.00"_s, u"-$900.00"_s, u"-$550.00"_s, u"$0.00"_s}));
}

// A 52nd of ten percent of $5,200.00 is $10.00.
void tst_SettlementToPayweek::savedRateEarnsInterestThatLessensTheCarryover()
{
    Workspace workspace;
    makeWeeks(workspace);
    Bookkeeper person;
    person.enters(firstWeek, u"expense"_s, u"Emergency Fund"_s, u"5200"_s);
    QCOMPARE(person.carryovers(),
             QStringList({u"$0.00"_s, u"-$5,100.00"_s, u"-$5,050.00"_s, u"$0.00"_s}));
    person.entersRate(firstWeek, u"10"_s);
    person.looksUp(firstWeek);
    QCOMPARE(person.figure(u"APR"_s), u"10.00%"_s);
    QCOMPARE(person.figure(u"Interest applied this payweek"_s), u"$10.00"_s);
    QCOMPARE(person.figure(u"Settlement total after interest"_s), u"-$5,090.00"_s);
    QCOMPARE(person.carryovers(),
             QStringList({u"$0.00"_s, u"-$5,090.00"_s, u"-$5,040.00"_s, u"$0.00"_s}));
}

void tst_SettlementToPayweek::changedItemChangesTheCarryover()
{
    Workspace workspace;
    makeWeeks(workspace);
    expense(firstWeek, u"Engine repair"_s, 1000.0).insert(workspace);
    Bookkeeper person;
    QCOMPARE(person.carryovers(),
             QStringList({u"$0.00"_s, u"-$900.00"_s, u"-$850.00"_s, u"$0.00"_s}));
    person.changesTheOnlyAmount(firstWeek, u"$120.00"_s);
    QCOMPARE(person.carryovers(), QStringList({u"$0.00"_s, u"-$20.00"_s, u"$0.00"_s, u"$0.00"_s}));
}

void tst_SettlementToPayweek::deletedItemIsTakenAwayEverywhere()
{
    Workspace workspace;
    DialogRobot robot;
    makeWeeks(workspace);
    expense(firstWeek, u"Engine repair"_s, 1000.0).insert(workspace);
    Bookkeeper person;
    QCOMPARE(person.carryovers(),
             QStringList({u"$0.00"_s, u"-$900.00"_s, u"-$850.00"_s, u"$0.00"_s}));
    robot
        .expect(DialogRobot::Question, u"Confirm Delete"_s,
                u"Delete selected settlement item?\n\nID: 1\nName: Engine repair\n\n"
                "This deletes only this one non-trip settlement row."_s)
        .press(u"Yes"_s);
    person.deletesTheOnlyItem(firstWeek);
    QCOMPARE(person.carryovers(), nothingCarried);
    person.looksUp(firstWeek);
    QCOMPARE(person.figure(u"Item count"_s), u"0"_s);
    QCOMPARE(person.figure(u"Settlement total after interest"_s), u"$100.00"_s);
}

TEST_CLASS(tst_SettlementToPayweek)

#include "tst_SettlementToPayweek.moc"
