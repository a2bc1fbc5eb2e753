#include "pdfimport/history/HistoryRows.h"
#include "pdfimport/history/ImportHistoryPage.h"
#include "support/DialogRobot.h"
#include "support/Person.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"

#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QPlainTextEdit>
#include <QTableWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString deleteButton = u"Delete Selected Activity Row"_s;
const QString notFound = u"trips.db was not found near the application."_s;

const QString exportDetails = u"Database Activity History Row\n"
                              "-----------------------------\n"
                              "ID: 2\n"
                              "Created: 2026-04-21 09:30:00\n"
                              "Action: Export Database\n"
                              "Database: trips.db\n"
                              "Details: Exported to /media/stick/trips.db\n"_s;

const QString deleteExportQuestion =
    u"Delete this activity history row?\n\n"
    "ID 2\nAction: Export Database\nDatabase: trips.db\n"
    "Details: Exported to /media/stick/trips.db\n\n"
    "This removes only the audit/history entry.\n"
    "It does NOT delete trips, settlement rows, locations, or imported data."_s;

/// The page in a window, as a person has it before them, and what it told that window.
class HistoryWindow
{
public:
    HistoryWindow()
    {
        page.statusCallback = [this](const QString &text) { statuses.append(text); };
        Person::shows(page);
    }
    Q_DISABLE_COPY_MOVE(HistoryWindow)

    void clicks(const QString &button) const { Person::clicks(page, button); }
    [[nodiscard]] QTableWidget *grid() const { return page.findChild<QTableWidget *>(); }
    [[nodiscard]] QString details() const { return detailsBox()->toPlainText(); }
    [[nodiscard]] QPlainTextEdit *detailsBox() const { return page.findChild<QPlainTextEdit *>(); }
    [[nodiscard]] QString status() const
    {
        return page.findChild<QLabel *>(u"importHistoryStatus"_s)->text();
    }

    ImportHistoryPage page;
    QStringList statuses;
};

/// A log of one import, and of one export behind it.
void makeLog(Workspace &workspace)
{
    workspace.makeTrips();
    insertHistory(workspace);
    insertHistory(workspace, exportOfTrips());
}

DialogRobot::Expectation expectQuestion(DialogRobot &robot)
{
    return robot.expect(DialogRobot::Question, u"Delete Activity History Row"_s,
                        deleteExportQuestion);
}

} // namespace

class tst_ImportHistoryPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sectionsStandFromTopToBottom()
    {
        Workspace workspace;
        workspace.makeTrips();
        const HistoryWindow history;
        const auto *layout = qobject_cast<const QVBoxLayout *>(history.page.layout());
        QCOMPARE(layout->contentsMargins(), QMargins(12, 12, 12, 12));
        QCOMPARE(layout->spacing(), 8);
        QStringList parts;
        for (int i = 0; i < layout->count(); ++i) {
            const QWidget *widget = layout->itemAt(i)->widget();
            parts.append(u"%1 %2"_s.arg(
                widget ? QString::fromLatin1(widget->metaObject()->className()) : u"row"_s,
                QString::number(layout->stretch(i))));
        }
        QCOMPARE(parts, QStringList({u"QLabel 0"_s, u"QLabel 0"_s, u"row 0"_s, u"DataTable 3"_s,
                                     u"QLabel 0"_s, u"QPlainTextEdit 2"_s, u"QLabel 0"_s}));
    }

    void labelsReadFromTopToBottom()
    {
        Workspace workspace;
        workspace.makeTrips();
        const HistoryWindow history;
        const QLayout *layout = history.page.layout();
        const auto label = [layout](int position) {
            return qobject_cast<const QLabel *>(layout->itemAt(position)->widget());
        };
        QCOMPARE(label(0)->text(), u"Database Activity History"_s);
        QVERIFY(label(0)->font().bold());
        QCOMPARE(label(0)->font().pointSize(), history.page.font().pointSize() + 4);
        QCOMPARE(label(1)->text(),
                 u"Review database import/export activity and other import audit rows. Deleting a "
                 "history row removes only the activity/log entry; it does not delete trips, "
                 "settlement rows, locations, or imported data."_s);
        QVERIFY(label(1)->wordWrap());
        QCOMPARE(label(4)->text(), u"Selected Activity Details"_s);
        QCOMPARE(label(4)->buddy(), history.detailsBox());
    }

    void buttonsStandInARowWithAStretch()
    {
        Workspace workspace;
        workspace.makeTrips();
        const HistoryWindow history;
        const QLayout *row = history.page.layout()->itemAt(2)->layout();
        QCOMPARE(row->count(), 3);
        const auto button = [row](int place) {
            return qobject_cast<const QPushButton *>(row->itemAt(place)->widget())->text();
        };
        QCOMPARE(button(0), u"Refresh"_s);
        QCOMPARE(button(1), deleteButton);
        QVERIFY(row->itemAt(2)->spacerItem());
    }

    void gridAndDetailsAreForReading()
    {
        Workspace workspace;
        workspace.makeTrips();
        const HistoryWindow history;
        QCOMPARE(history.grid()->selectionBehavior(), QTableWidget::SelectRows);
        QCOMPARE(history.grid()->selectionMode(), QTableWidget::SingleSelection);
        QCOMPARE(history.grid()->editTriggers(), QTableWidget::NoEditTriggers);
        QVERIFY(!history.grid()->isSortingEnabled());
        QVERIFY(history.detailsBox()->isReadOnly());
        QCOMPARE(history.detailsBox()->minimumHeight(), 220);
    }

    void firstLoadComesBeforeAnyoneListens()
    {
        Workspace workspace;
        makeLog(workspace);
        const HistoryWindow history;
        QCOMPARE(history.status(), u"Loaded 2 database activity rows."_s);
        QCOMPARE(history.statuses, QStringList());
    }

    void emptyLogIsLoadedAsNoRowsWithEmptyDetails()
    {
        Workspace workspace;
        workspace.makeTrips();
        DialogRobot robot;
        const HistoryWindow history;
        QCOMPARE(history.status(), u"Loaded 0 database activity rows."_s);
        QCOMPARE(history.details(), QString());
        QCOMPARE(texts(history.grid()), QList<QStringList>());
        QCOMPARE(headers(history.grid()),
                 QStringList({u"ID"_s, u"Created"_s, u"Action"_s, u"Database"_s, u"Details"_s}));
        QCOMPARE(robot.seen().size(), 0);
    }

    void rowsStandTheNewestFirstAndItsDetailsAreShown()
    {
        Workspace workspace;
        makeLog(workspace);
        const HistoryWindow history;
        QCOMPARE(texts(history.grid()),
                 QList<QStringList>({{u"2"_s, u"2026-04-21 09:30:00"_s, u"Export Database"_s,
                                      u"trips.db"_s, u"Exported to /media/stick/trips.db"_s},
                                     {u"1"_s, u"2026-04-20 14:05:09"_s, u"fuel_def_only"_s,
                                      u"PDF Import"_s, u"week16.pdf"_s}}));
        QCOMPARE(history.grid()->currentRow(), 0);
        QCOMPARE(history.details(), exportDetails);
    }

    void columnsAreAsWideAsTheirTexts()
    {
        Workspace workspace;
        makeLog(workspace);
        const HistoryWindow history;
        const QTableWidget *grid = history.grid();
        const int unsized = grid->horizontalHeader()->defaultSectionSize();
        QVERIFY(grid->columnWidth(0) < unsized);
        QVERIFY(grid->columnWidth(4)
                >= grid->fontMetrics().horizontalAdvance(u"Exported to /media/stick/trips.db"_s));
    }

    void clickedRowShowsItsDetails()
    {
        Workspace workspace;
        makeLog(workspace);
        const HistoryWindow history;
        Person::clicksCell(history.grid(), 1, 2);
        QCOMPARE(history.details(), u"Database Activity History Row\n"
                                    "-----------------------------\n"
                                    "ID: 1\n"
                                    "Created: 2026-04-20 14:05:09\n"
                                    "Action: fuel_def_only\n"
                                    "Database: PDF Import\n"
                                    "Details: week16.pdf\n"
                                    "\n"
                                    "Legacy PDF Import Details\n"
                                    "-------------------------\n"
                                    "Payweek: 04/18/2026\n"
                                    "Truck: 4417\n"
                                    "PDF: week16.pdf\n"
                                    "Mode: fuel_def_only\n"
                                    "Source Hash: 5ea1\n"
                                    "\n"
                                    "Counts JSON\n"
                                    "-----------\n"
                                    "{\"fuel_detail\":2,\"skipped\":1}\n"
                                    "\n"
                                    "Payload JSON\n"
                                    "------------\n"
                                    "{\"enabled_row_count\":3}\n"_s);
        QCOMPARE(history.statuses, QStringList());
    }

    void deselectedRowEmptiesTheDetails()
    {
        Workspace workspace;
        makeLog(workspace);
        const HistoryWindow history;
        history.grid()->clearSelection();
        QCOMPARE(history.details(), QString());
    }

    void refreshShowsWhatCameSince()
    {
        Workspace workspace;
        makeLog(workspace);
        const HistoryWindow history;
        Person::clicksCell(history.grid(), 1, 0);
        insertHistory(workspace, {.pdfName = u"week17.pdf"_s});
        QCOMPARE(history.grid()->rowCount(), 2);
        history.clicks(u"Refresh"_s);
        QCOMPARE(column(history.grid(), u"ID"_s), QStringList({u"3"_s, u"2"_s, u"1"_s}));
        QCOMPARE(history.grid()->currentRow(), 0);
        QCOMPARE(history.details().section(u'\n', 2, 2), u"ID: 3"_s);
        QCOMPARE(history.statuses, QStringList({u"Loaded 3 database activity rows."_s}));
    }

    void databaseFileMissingAtStartIsToldInTheFirstLoadThatIsAskedFor()
    {
        const Workspace workspace;
        DialogRobot robot;
        const HistoryWindow history;
        QCOMPARE(robot.seen().size(), 0); // not while the program starts
        QCOMPARE(history.status(), u"Ready"_s);
        QCOMPARE(history.details(), QString());
        QCOMPARE(headers(history.grid()),
                 QStringList({u"ID"_s, u"Created"_s, u"Action"_s, u"Database"_s, u"Details"_s}));
        robot.expect(DialogRobot::Warning, u"Import History"_s, notFound);
        history.clicks(u"Refresh"_s);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(history.status(), u"Loaded 0 database activity rows."_s);
    }

    void unusableFileAtStartIsToldAtOnce()
    {
        const Workspace workspace;
        workspace.makeFile(u"trips.db"_s, QByteArray(4096, 'x'));
        DialogRobot robot;
        robot.expect(DialogRobot::Warning, u"Import History"_s,
                     u"file is not a database Unable to execute statement"_s);
        const HistoryWindow history;
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(history.status(), u"Loaded 0 database activity rows."_s);
        QCOMPARE(texts(history.grid()), QList<QStringList>());
    }

    void failedRefreshTellsTheReasonAndLeavesNoRows()
    {
        Workspace workspace;
        makeLog(workspace);
        DialogRobot robot;
        const HistoryWindow history;
        QVERIFY(QFile::remove(workspace.path(u"trips.db"_s)));
        robot.expect(DialogRobot::Warning, u"Import History"_s, notFound);
        history.clicks(u"Refresh"_s);
        QCOMPARE(history.statuses,
                 QStringList({u"Could not load import history: trips.db was not found near the "
                              "application."_s,
                              u"Loaded 0 database activity rows."_s}));
        QCOMPARE(history.status(), u"Loaded 0 database activity rows."_s);
        QCOMPARE(texts(history.grid()), QList<QStringList>());
        QCOMPARE(history.details(), QString());
    }

    void everyFailedRefreshTellsItAgain()
    {
        const Workspace workspace;
        DialogRobot robot;
        const HistoryWindow history;
        for (int again = 0; again < 3; ++again) {
            robot.expect(DialogRobot::Warning, u"Import History"_s, notFound);
            history.clicks(u"Refresh"_s);
        }
        QCOMPARE(robot.seen().size(), 3);
    }

    void deleteWithoutASelectionAsksForOne()
    {
        Workspace workspace;
        makeLog(workspace);
        DialogRobot robot;
        const HistoryWindow history;
        history.grid()->clearSelection();
        robot.expect(DialogRobot::Information, u"Database Activity History"_s,
                     u"Select an activity row first."_s);
        history.clicks(deleteButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(historyIds(workspace), QList<QStringList>({{u"1"_s}, {u"2"_s}}));
        QCOMPARE(history.statuses, QStringList());
    }

    void rowWithoutAnIdentityCannotBeDeleted()
    {
        Workspace workspace;
        makeLog(workspace);
        workspace.execute(u"DELETE FROM settlement_import_log WHERE id = 1"_s);
        workspace.execute(u"UPDATE settlement_import_log SET id = 0"_s);
        DialogRobot robot;
        const HistoryWindow history;
        QCOMPARE(history.grid()->currentRow(), 0);
        robot.expect(DialogRobot::Information, u"Database Activity History"_s,
                     u"Select an activity row first."_s);
        history.clicks(deleteButton);
        QCOMPARE(historyIds(workspace), QList<QStringList>({{u"0"_s}}));
    }

    void deleteAsksFirst_data()
    {
        QTest::addColumn<bool>("dismissed");
        QTest::newRow("no") << false;
        QTest::newRow("closed") << true;
    }

    void deleteAsksFirst()
    {
        QFETCH(const bool, dismissed);
        Workspace workspace;
        makeLog(workspace);
        DialogRobot robot;
        const HistoryWindow history;
        auto question = expectQuestion(robot);
        if (dismissed)
            question.dismiss();
        else
            question.press(u"No"_s);
        history.clicks(deleteButton);
        QStringList buttons = robot.seen().first().buttons;
        buttons.sort(); // each style has its own order
        QCOMPARE(buttons, QStringList({u"No"_s, u"Yes"_s}));
        QCOMPARE(robot.seen().first().defaultButton, u"No"_s);
        QCOMPARE(historyIds(workspace), QList<QStringList>({{u"1"_s}, {u"2"_s}}));
        QCOMPARE(history.details(), exportDetails);
        QCOMPARE(history.statuses, QStringList());
    }

    void deletedRowIsGoneAndTheNextIsShown()
    {
        Workspace workspace;
        makeLog(workspace);
        DialogRobot robot;
        const HistoryWindow history;
        expectQuestion(robot).press(u"Yes"_s);
        history.clicks(deleteButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(historyIds(workspace), QList<QStringList>({{u"1"_s}}));
        QCOMPARE(column(history.grid(), u"ID"_s), QStringList({u"1"_s}));
        QCOMPARE(history.details().section(u'\n', 2, 2), u"ID: 1"_s);
        QCOMPARE(history.statuses, QStringList({u"Deleted activity history row ID 2."_s,
                                                u"Loaded 1 database activity rows."_s}));
        QCOMPARE(history.status(), u"Loaded 1 database activity rows."_s);
    }

    void rowThatIsGoneAlreadyIsDeletedWithoutAWord()
    {
        Workspace workspace;
        makeLog(workspace);
        DialogRobot robot;
        const HistoryWindow history;
        workspace.execute(u"DELETE FROM settlement_import_log WHERE id = 2"_s);
        expectQuestion(robot).press(u"Yes"_s);
        history.clicks(deleteButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(column(history.grid(), u"ID"_s), QStringList({u"1"_s}));
    }

    void failedDeleteIsToldAndKeepsTheRow()
    {
        Workspace workspace;
        makeLog(workspace);
        workspace.execute(u"CREATE TRIGGER forbidden BEFORE DELETE ON settlement_import_log "
                          "BEGIN SELECT RAISE(ABORT, 'kept for the audit'); END"_s);
        DialogRobot robot;
        const HistoryWindow history;
        expectQuestion(robot).press(u"Yes"_s);
        robot.expect(DialogRobot::Critical, u"Delete Failed"_s,
                     u"kept for the audit Unable to fetch row"_s);
        history.clicks(deleteButton);
        QCOMPARE(historyIds(workspace), QList<QStringList>({{u"1"_s}, {u"2"_s}}));
        QCOMPARE(column(history.grid(), u"ID"_s), QStringList({u"2"_s, u"1"_s}));
        QCOMPARE(history.details(), exportDetails);
        QCOMPARE(history.statuses,
                 QStringList({u"Delete failed: kept for the audit Unable to fetch row"_s}));
        QCOMPARE(history.status(), history.statuses.first());
    }

    void deleteTouchesNothingButTheLog()
    {
        Workspace workspace;
        makeLog(workspace);
        workspace.execute(u"INSERT INTO trips (trip_no) VALUES ('4471203')"_s);
        workspace.execute(u"INSERT INTO trip_detail_items (trip_id, group_name, item_type, cost) "
                          "VALUES (1, 'fuel', 'Def', 21.35)"_s);
        DialogRobot robot;
        const HistoryWindow history;
        expectQuestion(robot).press(u"Yes"_s);
        history.clicks(deleteButton);
        QCOMPARE(workspace.rows(u"SELECT trip_id, item_type, cost FROM trip_detail_items"_s),
                 QList<QStringList>({{u"1"_s, u"Def"_s, u"21.35"_s}}));
        QCOMPARE(workspace.value(u"SELECT COUNT(*) FROM trips"_s), 1);
    }

    void pageWorksWithoutAStatusLine()
    {
        Workspace workspace;
        makeLog(workspace);
        HistoryWindow history;
        history.page.statusCallback = nullptr;
        history.clicks(u"Refresh"_s);
        QCOMPARE(history.status(), u"Loaded 2 database activity rows."_s);
        QCOMPARE(history.statuses, QStringList());
    }
};

TEST_CLASS(tst_ImportHistoryPage)
#include "tst_ImportHistoryPage.moc"
