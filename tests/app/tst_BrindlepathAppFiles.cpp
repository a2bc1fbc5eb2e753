#include "app/DeskWindow.h"
#include "data/DatabaseLocator.h"
#include "settlements/EditSettlementPage.h"
#include "settlements/ViewPayweekPage.h"
#include "support/DialogRobot.h"
#include "support/OtherBusiness.h"
#include "support/Person.h"
#include "support/TestProgram.h"
#include "trips/TripsPage.h"

#include <QApplication>
#include <QDir>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QTableWidget>

using namespace Qt::StringLiterals;

namespace {

/// The window on the trips file found nearby, and another one that a page may be told to open.
struct TwoFiles
{
    Workspace workspace;
    DialogRobot robot;
    QString trips = makeBusiness(workspace, u"trips.db"_s, u"4471203"_s);
    QString other;
    BrindlepathApp window;

    explicit TwoFiles(const QString &otherTripNo = u"5500001"_s)
        : other(makeBusiness(workspace, u"other.db"_s, otherTripNo))
    {
        Person::shows(window);
    }
};

void clicksTripLink(const BrindlepathApp &window)
{
    goTo(window, u"View Payweek"_s);
    Person::clicksCell(named<QTableWidget>(window, "payweekTrips"), 0, 0);
}

QStringList itemEditor(const BrindlepathApp &window)
{
    return {named<QLabel>(window, "settlementItemId")->text(),
            named<QComboBox>(window, "settlementItemName")->currentText(),
            named<QLineEdit>(window, "settlementItemAmount")->text()};
}

} // namespace

/// Pages on different files, and files that are gone: no page takes the one for the other.
class tst_BrindlepathAppFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fontBefore = QApplication::font(); }
    void cleanup() { QApplication::setFont(fontBefore); }

    void linkToATripOfAnotherFileLoadsNothing();
    void linkToATripWithoutNumberTellsItsId();
    void linkOfAFileThatIsClosedLoadsNothing();
    void itemWithTheSameIdIsThatOfTheNewFile();
    void itemOfTheFileBeforeIsNotKeptWhereTheNewOneCannotBeRead_data();
    void itemOfTheFileBeforeIsNotKeptWhereTheNewOneCannotBeRead();
    void rateOfTheFileBeforeIsNotKeptWhereTheWeeksCannotBeRead();
    void filesMovedAwayAreNotMadeAnew();

private:
    QFont fontBefore;
};

void tst_BrindlepathAppFiles::linkToATripOfAnotherFileLoadsNothing()
{
    const TwoFiles files;
    files.window.findChild<ViewPayweekPage *>()->openDatabase(files.other);
    clicksTripLink(files.window);
    QCOMPARE(named<QListWidget>(files.window, "navigationList")->currentRow(), 1);
    QCOMPARE(named<QLabel>(files.window, "tripIdLabel")->text(), u"(new trip)"_s);
    QCOMPARE(status(files.window), u"Trip 5500001 is not in the file which Trips has open"_s);
}

void tst_BrindlepathAppFiles::linkToATripWithoutNumberTellsItsId()
{
    const TwoFiles files(u""_s);
    files.window.findChild<ViewPayweekPage *>()->openDatabase(files.other);
    clicksTripLink(files.window);
    QCOMPARE(status(files.window), u"Trip ID 1 is not in the file which Trips has open"_s);
}

// As after an import, which closes what is open and puts another file in its place.
void tst_BrindlepathAppFiles::linkOfAFileThatIsClosedLoadsNothing()
{
    const TwoFiles files;
    DatabaseLocator::closeAllSqliteConnections();
    clicksTripLink(files.window);
    QCOMPARE(named<QLabel>(files.window, "tripIdLabel")->text(), u"(new trip)"_s);
    QCOMPARE(status(files.window), u"Trip 4471203 is in a file which View Payweek has not open"_s);
}

void tst_BrindlepathAppFiles::itemWithTheSameIdIsThatOfTheNewFile()
{
    const TwoFiles files;
    goTo(files.window, u"Edit Settlement"_s);
    Person::clicksCell(named<QTableWidget>(files.window, "settlementItems"), 0, 3);
    Person::types(named<QLineEdit>(files.window, "settlementItemAmount"), u"99"_s);
    files.window.findChild<EditSettlementPage *>()->openDatabase(files.other);
    QCOMPARE(itemEditor(files.window), QStringList({u"1"_s, u"Item of 5500001"_s, u"12.50"_s}));
}

void tst_BrindlepathAppFiles::itemOfTheFileBeforeIsNotKeptWhereTheNewOneCannotBeRead_data()
{
    QTest::addColumn<bool>("isNew");
    QTest::newRow("a loaded item") << false;
    QTest::newRow("a new item") << true;
}

void tst_BrindlepathAppFiles::itemOfTheFileBeforeIsNotKeptWhereTheNewOneCannotBeRead()
{
    QFETCH(const bool, isNew);
    TwoFiles files;
    goTo(files.window, u"Edit Settlement"_s);
    Person::clicksCell(named<QTableWidget>(files.window, "settlementItems"), 0, 3);
    if (isNew) {
        Person::clicks(files.window, u"New Item"_s);
        Person::types(named<QComboBox>(files.window, "settlementItemName")->lineEdit(),
                      u"Permit"_s);
    }
    {
        const TestConnection file(files.other);
        file.execute(u"ALTER TABLE settlement_non_trip_items RENAME COLUMN amount TO away"_s);
        files.robot.expectContaining(DialogRobot::Critical, u"Settlement Query Error"_s,
                                     u"amount"_s);
        files.window.findChild<EditSettlementPage *>()->openDatabase(files.other);
        file.execute(u"ALTER TABLE settlement_non_trip_items RENAME COLUMN away TO amount"_s);
    }
    QCOMPARE(itemEditor(files.window), QStringList({u"(new item)"_s, u""_s, u""_s}));
    files.robot.expect(DialogRobot::Warning, u"Missing Name"_s,
                       u"Settlement item name is required."_s);
    Person::clicks(files.window, u"Save Item"_s);
    const TestConnection file(files.other);
    QCOMPARE(file.value(u"SELECT name FROM settlement_non_trip_items"_s), u"Item of 5500001"_s);
}

void tst_BrindlepathAppFiles::rateOfTheFileBeforeIsNotKeptWhereTheWeeksCannotBeRead()
{
    TwoFiles files;
    goTo(files.window, u"Edit Settlement"_s);
    named<QDoubleSpinBox>(files.window, "aprBox")->setValue(9.0);
    {
        const TestConnection file(files.other);
        file.execute(u"ALTER TABLE trips RENAME COLUMN payweek TO away"_s);
        files.robot.expectContaining(DialogRobot::Critical, u"Settlement Payweek Error"_s,
                                     u"payweek"_s);
        files.window.findChild<EditSettlementPage *>()->openDatabase(files.other);
        file.execute(u"ALTER TABLE trips RENAME COLUMN away TO payweek"_s);
    }
    QCOMPARE(named<QDoubleSpinBox>(files.window, "aprBox")->value(), 5.0);
    Person::clicks(files.window, u"Save APR"_s);
    const TestConnection file(files.other);
    QCOMPARE(file.value(u"SELECT apr FROM settlement_meta"_s).toDouble(), 5.0);
}

void tst_BrindlepathAppFiles::filesMovedAwayAreNotMadeAnew()
{
    Workspace workspace;
    DialogRobot robot;
    makeBusiness(workspace, u"trips.db"_s, u"4471203"_s);
    makeLocationsWith(workspace, u"('DAL-01')"_s);
    const QString backup = workspace.makeFile(u"backup.db"_s, "the last good copy");
    BrindlepathApp window;
    Person::shows(window);
    QVERIFY(QDir().mkdir(u"away"_s));
    for (const QString &file : {u"trips.db"_s, u"locations.db"_s})
        QVERIFY(QFile::rename(file, u"away/"_s + file));

    goTo(window, u"Trips"_s);
    goTo(window, u"Start Screen"_s);
    QCOMPARE(textOf(window, "startTripsValue"), u"Not available"_s);
    QCOMPARE(textOf(window, "startLocationsValue"), u"0"_s);
    robot.expect(DialogRobot::Warning, u"Import History"_s,
                 u"trips.db was not found near the application."_s);
    goTo(window, u"Database Activity History"_s);
    goTo(window, u"Settings"_s);
    robot.expectFileDialog(u"Export Trips Database"_s).choose(backup);
    robot
        .expect(DialogRobot::Question, u"Confirm Overwrite"_s,
                u"This file already exists:\n\n%1\n\nOverwrite it?"_s.arg(backup))
        .press(u"Yes"_s);
    robot.expect(DialogRobot::Critical, u"Export Trips Database Failed"_s,
                 u"Required source file does not exist:\n"_s + workspace.path(u"trips.db"_s));
    Person::clicks(window, u"Export Trips Database"_s);

    QCOMPARE(QDir().entryList({u"*.db*"_s}), QStringList({u"backup.db"_s}));
    QCOMPARE(workspace.bytes(u"backup.db"_s), QByteArray("the last good copy"));
}

TEST_CLASS(tst_BrindlepathAppFiles)

#include "tst_BrindlepathAppFiles.moc"
