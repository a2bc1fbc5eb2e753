#include "data/DatabaseLocator.h"
#include "reports/totals/TotalsWindow.h"
#include "support/DialogRobot.h"
#include "support/ReadingOrder.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"

#include <QDir>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollArea>
#include <QTest>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString connectionName = u"pay_totals_trips_connection"_s;

const QStringList firstSummaries = {
    u"Open trips.db to calculate Pay Totals.\n\n"
    "Phase 25 adds repository-backed fuel analytics and breakdown popups."_s,
    u"Non-trip settlement totals will appear after opening trips.db and selecting a scope."_s,
    u"Fuel analytics will appear after opening trips.db and selecting a scope."_s};

const QStringList closedSummaries = {u"Open trips.db to calculate Pay Totals."_s,
                                     u"Open trips.db to calculate non-trip settlement totals."_s,
                                     u"Open trips.db to calculate fuel analytics."_s};

QList<QGroupBox *> groupsOf(const TotalsWindow &view)
{
    return view.page->findChildren<QGroupBox *>();
}

} // namespace

/// How a file comes onto the page, and what the page is without one.
class tst_PayTotalsPageOpening : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pageWithoutAFileAsksForOne()
    {
        const Workspace workspace;
        const DialogRobot robot;
        const TotalsWindow view;
        QCOMPARE(view.file(), u"Database: not opened"_s);
        QCOMPARE(view.scope(), u"Scope: none selected"_s);
        QCOMPARE(view.summaries(), firstSummaries);
        QCOMPARE(view.rowCounts(), QList<int>({0, 0, 0}));
        QCOMPARE(entries(view.years()), QStringList());
        QCOMPARE(entries(view.payweeks()), QStringList());
        QCOMPARE(view.statuses, QStringList());
        QVERIFY(!QSqlDatabase::contains(connectionName));
    }

    void partsStandFromTopToBottom()
    {
        const Workspace workspace;
        const TotalsWindow view;
        const auto *area = view.page->findChild<QScrollArea *>();
        QCOMPARE(
            partsInReadingOrder(area->widget()),
            QStringList({u"Pay Totals"_s, u"Open trips.db"_s, u"Refresh"_s, u"Year:"_s,
                         u"totalsYear"_s, u"Payweek:"_s, u"totalsPayweek"_s,
                         u"Database: not opened"_s, u"Scope: none selected"_s, u"Core Totals"_s,
                         u"Non-Trip Settlement Totals"_s, u"Fuel / DEF Analytics"_s}));
    }

    void sectionsHoldTheirButtonsAboveTheirTable()
    {
        const Workspace workspace;
        const TotalsWindow view;
        const QList<QGroupBox *> groups = groupsOf(view);
        QCOMPARE(partsInReadingOrder(groups.at(0)),
                 QStringList({firstSummaries.at(0), u"coreTotals"_s}));
        QCOMPARE(partsInReadingOrder(groups.at(1)),
                 QStringList({firstSummaries.at(1), u"Open Non-Trip Settlement Breakdown"_s,
                              u"nonTripTotals"_s}));
        QCOMPARE(partsInReadingOrder(groups.at(2)),
                 QStringList({firstSummaries.at(2), u"Open Fuel Breakdown"_s, u"Truck Fuel"_s,
                              u"Reefer Fuel"_s, u"DEF"_s, u"fuelTotals"_s}));
    }

    void pageScrollsWithinItsMargins()
    {
        const Workspace workspace;
        const TotalsWindow view;
        const auto *area = view.page->findChild<QScrollArea *>();
        QVERIFY(area->widgetResizable());
        QCOMPARE(area->frameShape(), QFrame::NoFrame);
        QCOMPARE(area->geometry(), view.page->rect());
        const QLayout *parts = area->widget()->layout();
        QCOMPARE(parts->contentsMargins(), QMargins(12, 12, 12, 12));
        QCOMPARE(parts->spacing(), 10);
    }

    void sectionsShareTheHeightAlike()
    {
        const Workspace workspace;
        const TotalsWindow view;
        const auto *area = view.page->findChild<QScrollArea *>();
        const auto *parts = qobject_cast<QVBoxLayout *>(area->widget()->layout());
        for (QGroupBox *section : groupsOf(view))
            QCOMPARE(parts->stretch(parts->indexOf(section)), 2);
    }

    void selectorsHaveRoom()
    {
        const Workspace workspace;
        const TotalsWindow view;
        QCOMPARE(view.years()->minimumWidth(), 110);
        QCOMPARE(view.payweeks()->minimumWidth(), 150);
    }

    void buttonsKeepTheirWidthOnAWidePage()
    {
        const Workspace workspace;
        TotalsWindow view;
        view.window.resize(2000, 800);
        QCoreApplication::processEvents();
        const auto buttons = view.page->findChildren<QPushButton *>();
        QCOMPARE(buttons.size(), 7);
        for (const QPushButton *button : buttons)
            QCOMPARE(button->width(), button->sizeHint().width());
    }

    void selectorsStandApartFromTheButtons()
    {
        const Workspace workspace;
        const TotalsWindow view;
        const QRect open = view.named<QWidget>("openTotalsButton")->geometry();
        const QRect refresh = view.named<QWidget>("refreshTotalsButton")->geometry();
        const auto labels = view.page->findChildren<QLabel *>();
        const auto caption = std::find_if(labels.cbegin(), labels.cend(), [](const QLabel *label) {
            return label->text() == u"Year:"_s;
        });
        QVERIFY(caption != labels.cend());
        const int betweenButtons = refresh.left() - open.right();
        QCOMPARE((*caption)->geometry().left() - refresh.right() - betweenButtons, 12);
    }

    void headingIsBoldAndLarger()
    {
        const Workspace workspace;
        const TotalsWindow view;
        const QLabel *heading = view.page->findChild<QLabel *>();
        QCOMPARE(heading->text(), u"Pay Totals"_s);
        QCOMPARE(heading->font().pointSize(), QFont().pointSize() + 4);
        QVERIFY(heading->font().bold());
    }

    void tablesHaveTheirColumns()
    {
        const Workspace workspace;
        const TotalsWindow view;
        QCOMPARE(headers(view.core()), QStringList({u"Metric"_s, u"Value"_s}));
        QCOMPARE(headers(view.items()), QStringList({u"Category"_s, u"Kind"_s, u"Item Name"_s,
                                                     u"Rows"_s, u"Total"_s, u"Net Impact"_s}));
        QCOMPARE(headers(view.fuel()),
                 QStringList({u"Type"_s, u"Rows"_s, u"Cost"_s, u"Discount"_s, u"Net Cost"_s,
                              u"Gallons"_s, u"Avg Net $/Gal"_s}));
    }

    void tablesSelectRowsAndTakeNoTyping()
    {
        const Workspace workspace;
        const TotalsWindow view;
        for (const QTableWidget *table : view.tables()) {
            QCOMPARE(table->selectionBehavior(), QAbstractItemView::SelectRows);
            QCOMPARE(table->editTriggers(), QAbstractItemView::NoEditTriggers);
            QVERIFY(table->verticalHeader()->isHidden());
            QVERIFY(table->horizontalHeader()->stretchLastSection());
        }
    }

    void tabGoesInReadingOrder()
    {
        const Workspace workspace;
        const TotalsWindow view;
        view.named<QWidget>("openTotalsButton")->setFocus();
        QStringList order;
        for (int i = 0; i < 12; ++i) {
            order.append(view.window.focusWidget()->objectName());
            QTest::keyClick(view.window.focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(order,
                 QStringList({u"openTotalsButton"_s, u"refreshTotalsButton"_s, u"totalsYear"_s,
                              u"totalsPayweek"_s, u"coreTotals"_s, u"nonTripBreakdownButton"_s,
                              u"nonTripTotals"_s, u"fuelBreakdownButton"_s, u"truckFuelButton"_s,
                              u"reeferFuelButton"_s, u"defButton"_s, u"fuelTotals"_s}));
    }

    void everyPartHasANameForScreenReaders()
    {
        const Workspace workspace;
        const TotalsWindow view;
        QStringList buddies;
        for (const QLabel *label : view.page->findChildren<QLabel *>()) {
            if (label->buddy())
                buddies.append(label->text() + label->buddy()->objectName());
        }
        QCOMPARE(buddies, QStringList({u"Year:totalsYear"_s, u"Payweek:totalsPayweek"_s}));
        QCOMPARE(view.core()->accessibleName(), u"Core Totals"_s);
        QCOMPARE(view.items()->accessibleName(), u"Non-Trip Settlement Totals"_s);
        QCOMPARE(view.fuel()->accessibleName(), u"Fuel / DEF Analytics"_s);
    }

    void openedFileShowsItsLatestYear()
    {
        const WorkedFile file;
        const TotalsWindow view;
        view.page->openDatabase(file.path);
        QCOMPARE(view.file(), u"Database: "_s + file.path);
        QCOMPARE(entries(view.years()), QStringList({u"2025"_s, u"2026"_s}));
        QCOMPARE(view.years()->currentText(), u"2026"_s);
        QCOMPARE(entries(view.payweeks()), QStringList({wholeYear, week, nextWeek}));
        QCOMPARE(view.payweeks()->currentText(), wholeYear);
        QCOMPARE(view.scope(), u"Scope: Year 2026"_s);
        QCOMPARE(view.rowCounts(), QList<int>({19, 7, 4}));
        QCOMPARE(view.statuses, QStringList({u"Pay Totals opened trips DB: "_s + file.path,
                                             u"Pay Totals refreshed: Year 2026"_s}));
    }

    void payweeksCarryTheirKeyAndYearsNothing()
    {
        const WorkedFile file;
        const TotalsWindow view(file.path);
        QCOMPARE(view.payweeks()->itemData(0), QVariant(QString()));
        QCOMPARE(view.payweeks()->itemData(1), QVariant(week));
        QCOMPARE(view.payweeks()->itemData(2), QVariant(nextWeek));
        QVERIFY(!view.years()->itemData(0).isValid());
    }

    void fileWithoutDatedTripsShowsZerosAndNoScope()
    {
        Workspace workspace;
        const DialogRobot robot;
        const QString path = workspace.makeTrips();
        trip().payweek(u""_s).totals(500.0, 100.0).insert(workspace);
        const TotalsWindow view(path);
        QCOMPARE(entries(view.years()), QStringList());
        QCOMPARE(entries(view.payweeks()), QStringList());
        QCOMPARE(view.scope(), u"Scope: No scope selected"_s);
        QCOMPARE(view.rowCounts(), QList<int>({19, 0, 4}));
        QStringList zeros(19, u"$0.00"_s);
        zeros[0] = u"0"_s;
        zeros[16] = u"0.00"_s;
        zeros[17] = zeros[18] = u"$0.0000/mi"_s;
        QCOMPARE(column(view.core(), u"Value"_s), zeros);
        QCOMPARE(column(view.fuel(), u"Type"_s), QStringList(4, QString()));
        QCOMPARE(column(view.fuel(), u"Net Cost"_s), QStringList(4, u"$0.00"_s));
    }

    void buttonAsksForAFile()
    {
        const WorkedFile file;
        DialogRobot robot;
        const TotalsWindow view;
        robot.expectFileDialog(u"Open trips.db"_s).choose(file.path);
        view.clicks(u"Open trips.db"_s);
        QCOMPARE(view.file(), u"Database: "_s + file.path);
        QCOMPARE(view.scope(), u"Scope: Year 2026"_s);
        QCOMPARE(robot.seen().first().nameFilters,
                 QStringList({u"SQLite Database (*.db)"_s, u"All Files (*.*)"_s}));
    }

    void noChoiceOpensNothing()
    {
        const WorkedFile file;
        DialogRobot robot;
        const TotalsWindow view;
        robot.expectFileDialog(u"Open trips.db"_s).dismiss();
        view.clicks(u"Open trips.db"_s);
        QCOMPARE(view.file(), u"Database: not opened"_s);
        QCOMPARE(view.summaries(), firstSummaries);
        QCOMPARE(view.statuses, QStringList());
    }

    void fileThatDoesNotOpenLeavesAFreshPageAsItIs()
    {
        const Workspace workspace;
        DialogRobot robot;
        const TotalsWindow view;
        robot.expect(DialogRobot::Critical, u"Database Error"_s, u"Database path is blank."_s);
        view.page->openDatabase(u"  "_s);
        QCOMPARE(view.file(), u"Database: not opened"_s);
        QCOMPARE(view.summaries(), firstSummaries);
        QCOMPARE(view.statuses, QStringList());
    }

    void fileThatDoesNotOpenLeavesSelectorsAndFigures()
    {
        const WorkedFile file;
        DialogRobot robot;
        TotalsWindow view(file.path);
        view.choosesPayweek(week);
        view.statuses.clear();
        const QList<QStringList> figures = texts(view.core());
        robot.expect(DialogRobot::Critical, u"Database Error"_s,
                     u"unable to open database file Error opening database"_s);
        view.page->openDatabase(file.workspace.path(u"no such folder/trips.db"_s));
        QCOMPARE(view.file(), u"Database: "_s + file.path);
        QCOMPARE(view.scope(), u"Scope: Payweek "_s + week);
        QCOMPARE(view.payweeks()->currentText(), week);
        QCOMPARE(texts(view.core()), figures);
        QCOMPARE(view.statuses, QStringList());
    }

    void refreshAfterAFailedOpenShowsNothing()
    {
        const WorkedFile file;
        DialogRobot robot;
        TotalsWindow view(file.path);
        robot.expectContaining(DialogRobot::Critical, u"Database Error"_s,
                               u"unable to open database file"_s);
        view.page->openDatabase(file.workspace.path(u"no such folder/trips.db"_s));
        view.clicks(u"Refresh"_s);
        QCOMPARE(view.scope(), u"Scope: none selected"_s);
        QCOMPARE(view.summaries(), closedSummaries);
        QCOMPARE(view.rowCounts(), QList<int>({0, 0, 0}));
        QCOMPARE(view.statuses, QStringList());
    }

    void refreshWithoutAFileAsksForOne()
    {
        const Workspace workspace;
        const DialogRobot robot;
        const TotalsWindow view;
        view.clicks(u"Refresh"_s);
        QCOMPARE(view.scope(), u"Scope: none selected"_s);
        QCOMPARE(view.summaries(), closedSummaries);
        QCOMPARE(view.rowCounts(), QList<int>({0, 0, 0}));
        QCOMPARE(view.statuses, QStringList());
    }

    void otherYearOfAClosedFileHasNoPayweeks()
    {
        const WorkedFile file;
        const TotalsWindow view(file.path);
        DatabaseLocator::closeAllSqliteConnections();
        view.choosesYear(u"2025"_s);
        QCOMPARE(entries(view.payweeks()), QStringList());
        QCOMPARE(view.scope(), u"Scope: none selected"_s);
        QCOMPARE(view.rowCounts(), QList<int>({0, 0, 0}));
        QCOMPARE(view.statuses, QStringList());
    }

    void closedFileCanBeOpenedAgain()
    {
        const WorkedFile file;
        const TotalsWindow view(file.path);
        DatabaseLocator::closeAllSqliteConnections();
        view.clicks(u"Refresh"_s);
        view.page->openDatabase(file.path);
        QCOMPARE(view.scope(), u"Scope: Year 2026"_s);
        QCOMPARE(view.rowCounts(), QList<int>({19, 7, 4}));
    }

    void reopeningGoesBackToTheLatestWholeYear()
    {
        const WorkedFile file;
        const TotalsWindow view(file.path);
        view.choosesYear(u"2025"_s);
        view.choosesPayweek(u"12/26/2025"_s);
        view.page->openDatabase(file.path);
        QCOMPARE(view.years()->currentText(), u"2026"_s);
        QCOMPARE(view.payweeks()->currentText(), wholeYear);
    }

    void anotherFileTakesThePlaceOfTheFirst()
    {
        WorkedFile file;
        const QString other = file.workspace.makeTrips(u"other.db"_s);
        const TotalsWindow view(file.path);
        view.page->openDatabase(other);
        QCOMPARE(view.file(), u"Database: "_s + other);
        QCOMPARE(entries(view.years()), QStringList());
        QCOMPARE(view.rowCounts(), QList<int>({19, 0, 4}));
    }

    void fileThatIsNoDatabaseShowsZerosWithoutABox_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("of no bytes") << QByteArray();
        QTest::newRow("of other bytes") << QByteArray("no database at all ").repeated(300);
    }

    void fileThatIsNoDatabaseShowsZerosWithoutABox()
    {
        QFETCH(const QByteArray, bytes);
        const Workspace workspace;
        const DialogRobot robot;
        const TotalsWindow view(workspace.makeFile(u"trips.db"_s, bytes));
        QCOMPARE(view.scope(), u"Scope: No scope selected"_s);
        QCOMPARE(view.rowCounts(), QList<int>({19, 0, 4}));
        QCOMPARE(view.figure(u"Total Revenue"_s), u"$0.00"_s);
        QCOMPARE(robot.seen().size(), 0);
        QCOMPARE(workspace.bytes(u"trips.db"_s), bytes);
    }

    void pageThatGoesUnregistersItsConnection()
    {
        const WorkedFile file;
        {
            const TotalsWindow view(file.path);
            QVERIFY(QSqlDatabase::contains(connectionName));
        }
        QVERIFY(!QSqlDatabase::contains(connectionName));
    }

    void pageThatFailedToOpenUnregistersItsConnectionToo()
    {
        const Workspace workspace;
        DialogRobot robot;
        auto page = std::make_unique<PayTotalsPage>();
        robot.expectContaining(DialogRobot::Critical, u"Database Error"_s,
                               u"unable to open database file"_s);
        page->openDatabase(workspace.path(u"no such folder/trips.db"_s));
        QVERIFY(QSqlDatabase::contains(connectionName));
        page.reset();
        QVERIFY(!QSqlDatabase::contains(connectionName));
    }

    void pageWorksWithoutAWindowThatListens()
    {
        const WorkedFile file;
        const TotalsWindow view;
        view.page->statusCallback = {};
        view.page->openDatabase(file.path);
        view.choosesPayweek(week);
        QCOMPARE(view.scope(), u"Scope: Payweek "_s + week);
        QCOMPARE(view.statuses, QStringList());
    }

    void nothingIsWritten()
    {
        const WorkedFile file;
        const QByteArray before = file.workspace.bytes(u"trips.db"_s);
        const TotalsWindow view(file.path);
        view.choosesYear(u"2025"_s);
        view.clicks(u"Refresh"_s);
        QCOMPARE(file.workspace.bytes(u"trips.db"_s), before);
    }
};

TEST_CLASS(tst_PayTotalsPageOpening)
#include "tst_PayTotalsPageOpening.moc"
