#include "data/DatabaseLocator.h"
#include "settlements/SettlementWindow.h"
#include "support/DialogRobot.h"
#include "support/ReadingOrder.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"

#include <QBoxLayout>
#include <QScrollArea>
#include <QSqlDatabase>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString connection = u"settlement_trips_connection"_s;
const QStringList unsortedHeaders = {u"ID ↕"_s, u"Payweek ↕"_s, u"Kind ↕"_s, u"Name ↕"_s,
                                     u"Amount ↕"_s};

void opensByHand(const SettlementWindow &view, DialogRobot &robot, const QString &path)
{
    robot.expectFileDialog(u"Open trips.db"_s).choose(path);
    view.clicks(u"Open trips.db"_s);
}

} // namespace

/// How a file comes onto the page, and what the page is without one.
class tst_EditSettlementPageOpening : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pageWithoutAFileAsksForOne()
    {
        const Workspace workspace;
        const DialogRobot robot;
        const SettlementWindow view;
        QCOMPARE(view.summary(), u"Summary: open trips.db and choose a payweek."_s);
        QVERIFY(!view.saysEmpty());
        QCOMPARE(view.editor(), QStringList({u"(no item selected)"_s, u"revenue"_s, u""_s, u""_s}));
        QCOMPARE(view.payweeks()->count(), 0);
        QCOMPARE(view.rate()->value(), 0.0);
        QCOMPARE(headers(view.table()), QStringList());
        QCOMPARE(view.table()->rowCount(), 0);
        QCOMPARE(view.statuses, QStringList());
        QCOMPARE(robot.seen().size(), 0);
    }

    void partsStandFromTopToBottom()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        trip().payweek(u"04/18/2026"_s).insert(workspace);
        const SettlementWindow view(path);
        const auto *area = view.page->findChild<QScrollArea *>();
        QCOMPARE(partsInReadingOrder(area->widget()),
                 QStringList({u"Edit Settlement"_s, u"Open trips.db"_s, u"Payweek:"_s,
                              u"settlementPayweekBox"_s, u"APR:"_s, u"aprBox"_s, u"Save APR"_s,
                              u"Refresh"_s, u"Clear Editor"_s,
                              u"Summary for 04/18/2026: Revenue $0.00 | Expenses $0.00 | "
                              "Net $0.00 | Rows 0"_s,
                              u"No non-trip settlement items found for this payweek."_s,
                              u"settlementItems"_s, u"Settlement Item Editor"_s, u"New Item"_s,
                              u"Save Item"_s, u"Delete Selected"_s}));
    }

    void buttonsHaveNamesOfTheirOwn()
    {
        const Workspace workspace;
        const SettlementWindow view;
        QStringList names;
        for (const QPushButton *button : view.page->findChildren<QPushButton *>())
            names.append(button->objectName());
        QCOMPARE(names, QStringList({u"openSettlementTripsButton"_s, u"saveAprButton"_s,
                                     u"refreshSettlementButton"_s, u"clearSettlementEditorButton"_s,
                                     u"newSettlementItemButton"_s, u"saveSettlementItemButton"_s,
                                     u"deleteSettlementItemButton"_s}));
    }

    void everyFieldHasAName()
    {
        const Workspace workspace;
        const SettlementWindow view;
        QStringList fields;
        for (const QLabel *label : view.page->findChildren<QLabel *>()) {
            if (const QWidget *field = label->buddy())
                fields.append(label->text() + u' ' + field->objectName());
        }
        QCOMPARE(fields,
                 QStringList({u"Payweek: settlementPayweekBox"_s, u"APR: aprBox"_s,
                              u"Selected ID: settlementItemId"_s, u"Kind: settlementItemKind"_s,
                              u"Name: settlementItemName"_s, u"Amount: settlementItemAmount"_s}));
        QCOMPARE(view.table()->accessibleName(), u"Settlement items"_s);
    }

    void tabGoesThroughThePageFromTopToBottom()
    {
        const Workspace workspace;
        const SettlementWindow view;
        view.named<QPushButton>("openSettlementTripsButton")->setFocus();
        QStringList visited;
        for (int stop = 0; stop < 13; ++stop) {
            visited.append(nameOf(view.window.focusWidget()));
            QTest::keyClick(view.window.focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(visited, QStringList({u"Open trips.db"_s, u"settlementPayweekBox"_s, u"aprBox"_s,
                                       u"Save APR"_s, u"Refresh"_s, u"Clear Editor"_s,
                                       u"settlementItems"_s, u"settlementItemKind"_s,
                                       u"settlementItemName"_s, u"settlementItemAmount"_s,
                                       u"New Item"_s, u"Save Item"_s, u"Delete Selected"_s}));
    }

    void partsOfThePageHaveRoom()
    {
        const Workspace workspace;
        const SettlementWindow view;
        QCOMPARE(view.payweeks()->minimumWidth(), 160);
        QCOMPARE(view.rate()->minimumWidth(), 110);
        QCOMPARE(view.name()->minimumWidth(), 220);
        QCOMPARE(view.table()->minimumHeight(), 260);
        QVERIFY(view.named<QLabel>("settlementSummary")->wordWrap());
        QVERIFY(view.named<QLabel>("settlementEmptyLabel")->wordWrap());
    }

    void pageScrollsWithinItsMargins()
    {
        const Workspace workspace;
        const SettlementWindow view;
        const auto *area = view.page->findChild<QScrollArea *>();
        QVERIFY(area->widgetResizable());
        QCOMPARE(area->geometry(), view.page->rect());
        const QLayout *parts = area->widget()->layout();
        QCOMPARE(parts->contentsMargins(), QMargins(12, 12, 12, 12));
        QCOMPARE(parts->spacing(), 10);
    }

    void pageAndItsRowsOfButtonsEndInEmptySpace()
    {
        const Workspace workspace;
        const SettlementWindow view;
        const QLayout *parts = view.page->findChild<QScrollArea *>()->widget()->layout();
        const auto lastOf = [](const QLayout *layout) {
            return layout->itemAt(layout->count() - 1)->spacerItem();
        };
        QVERIFY(lastOf(parts));
        QVERIFY(lastOf(parts)->expandingDirections() & Qt::Vertical);
        const auto rows = parts->findChildren<QHBoxLayout *>(Qt::FindDirectChildrenOnly);
        QCOMPARE(rows.size(), 2);
        for (const QHBoxLayout *row : rows) {
            QVERIFY(lastOf(row));
            QVERIFY(lastOf(row)->expandingDirections() & Qt::Horizontal);
        }
    }

    void headingIsBoldAndLarger()
    {
        const Workspace workspace;
        const SettlementWindow view;
        const QLabel *heading = view.page->findChild<QLabel *>();
        QCOMPARE(heading->text(), u"Edit Settlement"_s);
        QCOMPARE(heading->font().pointSize(), QFont().pointSize() + 4);
        QVERIFY(heading->font().bold());
    }

    void rateIsInPercentInStepsOfAQuarter()
    {
        const Workspace workspace;
        const SettlementWindow view;
        QCOMPARE(view.rate()->text(), u"0.00 %"_s);
        QCOMPARE(view.rate()->minimum(), 0.0);
        QCOMPARE(view.rate()->maximum(), 100.0);
        QTest::keyClick(view.rate(), Qt::Key_Up);
        QCOMPARE(view.rate()->text(), u"0.25 %"_s);
        view.typesRate(u"5.5"_s);
        QCOMPARE(view.rate()->value(), 5.5);
    }

    void wheelOverThePageChangesNothing()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        expense(u"04/18/2026"_s, u"ELD"_s, 9.25).insert(workspace);
        expense(u"04/25/2026"_s, u"ELD"_s, 9.25).insert(workspace);
        apr(u"04/25/2026"_s, 5.5).insert(workspace);
        const SettlementWindow view(path);
        Person::turnsWheelOver(view.payweeks());
        Person::turnsWheelOver(view.rate());
        QCOMPARE(view.payweeks()->currentText(), u"04/25/2026"_s);
        QCOMPARE(view.rate()->value(), 5.5);
        QCOMPARE(view.statuses, QStringList());
    }

    void itemsAreSelectedByWholeRowsOneAtATimeAndNotEditedInPlace()
    {
        const Workspace workspace;
        const SettlementWindow view;
        QCOMPARE(view.table()->selectionBehavior(), QTableWidget::SelectRows);
        QCOMPARE(view.table()->selectionMode(), QTableWidget::SingleSelection);
        QCOMPARE(view.table()->editTriggers(), QTableWidget::NoEditTriggers);
    }

    void refreshWithoutAFileAsksForOneAndStartsANewItem()
    {
        const Workspace workspace;
        const DialogRobot robot;
        const SettlementWindow view;
        view.clicks(u"Refresh"_s);
        QCOMPARE(view.summary(), u"Summary: open trips.db first."_s);
        QCOMPARE(headers(view.table()), unsortedHeaders);
        QCOMPARE(view.table()->rowCount(), 0);
        QVERIFY(!view.saysEmpty());
        QCOMPARE(view.editor(), newItem);
        QCOMPARE(view.statuses, QStringList({u"New settlement item mode."_s}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void openedFileShowsItsNewestPayweek()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        trip().payweek(u"04/25/2026"_s).insert(workspace);
        expense(u"04/25/2026"_s, u"ELD"_s, 9.25).insert(workspace);
        expense(u"04/18/2026"_s, u"Permit"_s, 10.0).insert(workspace);
        apr(u"04/25/2026"_s, 5.5).insert(workspace);
        const SettlementWindow view;
        view.page->openDatabase(path);
        QCOMPARE(offeredBy(view.payweeks()), QStringList({u"04/25/2026"_s, u"04/18/2026"_s}));
        QCOMPARE(view.payweeks()->currentText(), u"04/25/2026"_s);
        QCOMPARE(offeredBy(view.name()), QStringList({u"ELD"_s, u"Permit"_s}));
        QCOMPARE(view.rate()->value(), 5.5);
        QCOMPARE(column(view.table(), u"Name"_s), QStringList({u"ELD"_s}));
        QCOMPARE(view.editor(), newItem);
        QCOMPARE(view.statuses,
                 QStringList({u"Opened settlement/trips DB: "_s + path,
                              u"Loaded 2 settlement payweeks"_s, u"New settlement item mode."_s,
                              u"Loaded 1 settlement rows for 04/25/2026"_s}));
    }

    void fileWithoutPayweeksShowsNone()
    {
        Workspace workspace;
        const DialogRobot robot;
        const QString path = workspace.makeTrips();
        const SettlementWindow view;
        view.page->openDatabase(path);
        QCOMPARE(view.summary(), u"Summary: no payweek selected."_s);
        QVERIFY(!view.saysEmpty());
        QCOMPARE(headers(view.table()), unsortedHeaders);
        QCOMPARE(view.statuses,
                 QStringList({u"Opened settlement/trips DB: "_s + path,
                              u"Loaded 0 settlement payweeks"_s, u"New settlement item mode."_s}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void buttonAsksForAFile()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips(u"older/trips 2025.db"_s);
        const SettlementWindow view;
        opensByHand(view, robot, path);
        QCOMPARE(robot.seen().first().nameFilters,
                 QStringList({u"SQLite Database (*.db)"_s, u"All Files (*.*)"_s}));
        QCOMPARE(view.statuses.first(), u"Opened settlement/trips DB: "_s + path);
    }

    void anotherFileIsAskedForInTheFolderOfTheLast()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips(u"older/trips 2025.db"_s);
        const SettlementWindow view;
        opensByHand(view, robot, path);
        robot.expectFileDialog(u"Open trips.db"_s).dismiss();
        view.clicks(u"Open trips.db"_s);
        QCOMPARE(robot.seen().last().folder, workspace.path(u"older"_s));
    }

    void noChoiceOpensNothing()
    {
        Workspace workspace;
        DialogRobot robot;
        workspace.makeTrips();
        const SettlementWindow view;
        robot.expectFileDialog(u"Open trips.db"_s).dismiss();
        view.clicks(u"Open trips.db"_s);
        QCOMPARE(view.summary(), u"Summary: open trips.db and choose a payweek."_s);
        QCOMPARE(view.statuses, QStringList());
        QVERIFY(!QSqlDatabase::contains(connection));
    }

    void fileThatDoesNotOpenGivesOneBoxAndNothingMore_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("text");
        QTest::newRow("blank") << u"  "_s << u"Database path is blank."_s;
        QTest::newRow("no such folder") << u"no such folder/trips.db"_s
                                        << u"unable to open database file Error opening database"_s;
        QTest::newRow("a folder") << u"."_s
                                  << u"unable to open database file Error opening database"_s;
    }

    void fileThatDoesNotOpenGivesOneBoxAndNothingMore()
    {
        QFETCH(const QString, path);
        QFETCH(const QString, text);
        const Workspace workspace;
        DialogRobot robot;
        const SettlementWindow view;
        robot.expect(DialogRobot::Critical, u"Database Error"_s, text);
        view.page->openDatabase(path);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(view.summary(), u"Summary: open trips.db and choose a payweek."_s);
        QCOMPARE(view.editor().first(), u"(no item selected)"_s);
        QCOMPARE(view.statuses, QStringList());
    }

    void fileThatDoesNotOpenAfterOneThatDidLeavesWhatIsShownButNoFile()
    {
        Workspace workspace;
        DialogRobot robot;
        SettlementWindow view(makeWeek(workspace));
        view.clicksItem(0);
        view.statuses.clear();
        robot.expectContaining(DialogRobot::Critical, u"Database Error"_s,
                               u"unable to open database file"_s);
        view.page->openDatabase(u"no such folder/trips.db"_s);
        QCOMPARE(column(view.table(), u"Name"_s), QStringList({u"Permit"_s, u"Bonus"_s}));
        QCOMPARE(view.editor(), permit);
        QCOMPARE(view.payweeks()->currentText(), editedWeek);
        QCOMPARE(view.statuses, QStringList());
        view.clicks(u"Refresh"_s);
        QCOMPARE(view.summary(), u"Summary: open trips.db first."_s);
    }

    void blankPathLeavesTheFileThatWasOpen()
    {
        Workspace workspace;
        DialogRobot robot;
        SettlementWindow view(makeWeek(workspace));
        robot.expect(DialogRobot::Critical, u"Database Error"_s, u"Database path is blank."_s);
        view.page->openDatabase(u"  "_s);
        QCOMPARE(view.statuses, QStringList());
        view.clicks(u"Refresh"_s);
        QCOMPARE(view.statuses.last(), u"Loaded 2 settlement rows for 04/18/2026"_s);
    }

    void fileThatIsNoDatabaseFailsInItsPayweeksAndIsNotTouched()
    {
        Workspace workspace;
        DialogRobot robot;
        const QByteArray bytes = QByteArray("no database at all \x00\xff", 21).repeated(200);
        const QString path = workspace.makeFile(u"trips.db"_s, bytes);
        const SettlementWindow view;
        robot.expect(DialogRobot::Critical, u"Settlement Payweek Error"_s,
                     u"file is not a database Unable to execute statement"_s);
        view.page->openDatabase(path);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(view.summary(), u"Summary: no payweek selected."_s);
        QCOMPARE(view.statuses, QStringList({u"Opened settlement/trips DB: "_s + path,
                                             u"New settlement item mode."_s}));
        QCOMPARE(workspace.bytes(u"trips.db"_s), bytes);
    }

    void anotherFileTakesThePlaceOfTheFirst()
    {
        Workspace workspace;
        const QString other = workspace.makeTrips(u"other.db"_s);
        const QString path = workspace.makeTrips();
        expense(u"04/18/2026"_s, u"ELD"_s, 9.25).insert(workspace);
        apr(u"04/18/2026"_s, 5.5).insert(workspace);
        const SettlementWindow view(path);
        view.clicksItem(0);
        view.page->openDatabase(other);
        QCOMPARE(view.payweeks()->count(), 0);
        QCOMPARE(view.name()->count(), 0);
        QCOMPARE(view.rate()->value(), 0.0);
        QCOMPARE(view.table()->rowCount(), 0);
        QCOMPARE(view.editor(), newItem);
    }

    void fileClosedBehindThePageLeavesNothingOfIt()
    {
        Workspace workspace;
        const DialogRobot robot;
        const QString path = workspace.makeTrips();
        expense(u"04/18/2026"_s, u"ELD"_s, 9.25).insert(workspace);
        const SettlementWindow view(path);
        view.clicksItem(0);
        DatabaseLocator::closeAllSqliteConnections();
        view.clicks(u"Refresh"_s);
        QCOMPARE(view.summary(), u"Summary: open trips.db first."_s);
        QCOMPARE(view.table()->rowCount(), 0);
        QCOMPARE(view.editor(), newItem);
        QCOMPARE(robot.seen().size(), 0);
    }

    void payweekChosenAfterTheFileWasClosedFailsInNothing()
    {
        Workspace workspace;
        const DialogRobot robot;
        const QString path = makeWeek(workspace);
        trip().payweek(u"04/25/2026"_s).insert(workspace);
        apr(u"04/25/2026"_s, 5.5).insert(workspace);
        SettlementWindow view(path);
        DatabaseLocator::closeAllSqliteConnections();
        view.chooses(editedWeek);
        QCOMPARE(view.statuses, QStringList({newMode}));
        QCOMPARE(view.summary(), u"Summary: open trips.db first."_s);
        QCOMPARE(offeredBy(view.name()), QStringList());
        QCOMPARE(view.rate()->value(), 0.0);
        QCOMPARE(robot.seen().size(), 0);
    }

    void openingAndLookingWritesNothing()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        expense(u"04/18/2026"_s, u"ELD"_s, 9.25).insert(workspace);
        expense(u"04/25/2026"_s, u"ELD"_s, 9.25).insert(workspace);
        const QByteArray before = workspace.bytes(u"trips.db"_s);
        const SettlementWindow view(path);
        view.chooses(u"04/18/2026"_s);
        view.clicksItem(0);
        view.clicks(u"New Item"_s);
        view.clicks(u"Refresh"_s);
        QCOMPARE(workspace.bytes(u"trips.db"_s), before);
    }

    void pageThatGoesUnregistersItsConnection()
    {
        Workspace workspace;
        const QString path = workspace.makeTrips();
        {
            const SettlementWindow view(path);
            QVERIFY(QSqlDatabase::contains(connection));
        }
        QVERIFY(!QSqlDatabase::contains(connection));
    }

    void pageThatFailedToOpenUnregistersItsConnection()
    {
        const Workspace workspace;
        DialogRobot robot;
        auto page = std::make_unique<EditSettlementPage>();
        robot.expectContaining(DialogRobot::Critical, u"Database Error"_s,
                               u"unable to open database file"_s);
        page->openDatabase(u"no such folder/trips.db"_s);
        QVERIFY(QSqlDatabase::contains(connection));
        page.reset();
        QVERIFY(!QSqlDatabase::contains(connection));
    }

    void pageWorksWithoutAWindowThatListens()
    {
        Workspace workspace;
        const DialogRobot robot;
        const QString path = workspace.makeTrips();
        expense(u"04/18/2026"_s, u"ELD"_s, 9.25).insert(workspace);
        const SettlementWindow view;
        view.page->statusCallback = {};
        view.page->openDatabase(path);
        view.clicksItem(0);
        view.clicks(u"Save APR"_s);
        view.clicks(u"Save Item"_s);
        QCOMPARE(view.editor(), QStringList({u"1"_s, u"expense"_s, u"ELD"_s, u"9.25"_s}));
        QCOMPARE(view.statuses, QStringList());
        QCOMPARE(robot.seen().size(), 0);
    }
};

TEST_CLASS(tst_EditSettlementPageOpening)
#include "tst_EditSettlementPageOpening.moc"
