#include "pdfimport/ImportWindow.h"
#include "pdfimport/history/ImportHistoryPage.h"
#include "support/TestProgram.h"

#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

const QString addButton = u"Add Missing Fuel/DEF Row"_s;
const QString previewButton = u"Dry-Run Preview"_s;
const QString applyButton = u"Apply Fuel/DEF Import"_s;
const QString confirmation = u"Final Import Confirmation"_s;
const QString appliedStatus = u"Fuel/DEF import applied safely. Import History refreshed."_s;
const QString blankPayweek = u"Dry-run blocked: parsed payweek is blank."_s;

/// What a dry run of week sixteen tells: one trip is known, the other is not.
const QStringList dryRunDetails = {
    u"Fuel/DEF dry-run preview passed. No database rows were written. Enabled rows: 2."_s,
    u"Database: <folder>/trips.db"_s,
    u"Payweek: 04/18/2026"_s,
    u"Truck: 4417"_s,
    u"Source hash: <hash>"_s,
    u"Review signature: <hash>"_s,
    u"Fuel/DEF-only mode: trip revenue, trip expense, and non-trip settlement rows will not be "
    "written."_s,
    u"Would insert Fuel/DEF detail rows: 1"_s,
    u"Would skip rows: 1"_s,
    u""_s,
    u"Rows that would be skipped because trip numbers were not found:"_s,
    u"Missing trip '4471999': Def"_s,
};

const QString dryRunText =
    u"Fuel/DEF dry-run preview passed. No database rows were written. Enabled rows: 2.\n\n"
    "Fuel/DEF detail rows: 1\nSkipped rows: 1\n\nDetails:\n"_s
    + dryRunDetails.join(u'\n');

const QString applyQuestion =
    u"Final Import Confirmation\n-------------------------\n\n"_s + dryRunText
    + u"\n\nApply these enabled review rows to trips.db in BLOCK mode?\n\nSafety rules:\n"
      "- A dry-run preview just passed.\n"
      "- The actual write will use one database transaction.\n"
      "- Repeat imports are blocked by content hash, PDF/payweek, and matching review signature.\n"
      "- Missing-trip rows are skipped instead of creating surprise trips.\n"
      "- Existing payweek data is NOT deleted or replaced.\n"
      "- An import history/audit row will be written.\n\n"
      "Continue with the database write?"_s;

/// What the committed import of week sixteen tells.
const QStringList appliedDetails = {
    u"Skipped row for missing trip '4471999': Def"_s,
    u"Fuel/DEF import applied safely. History ID: 1"_s,
    u"Source hash: <hash>"_s,
    u"Review signature: <hash>"_s,
    u"Fuel/DEF-only mode wrote no trip revenue, trip expense, or non-trip settlement rows."_s,
    u"Fuel/DEF detail rows: 1"_s,
    u"Skipped rows: 1"_s,
};

const QString appliedText = u"Import Applied\n--------------\n\n"
                            "Fuel/DEF import applied safely. History ID: 1\n\n"
                            "Fuel/DEF detail rows: 1\nSkipped rows: 1\n\nDetails:\n"_s
                            + appliedDetails.join(u'\n');

const QString sameContent =
    u"Duplicate blocked: matching source content was already imported as history ID 1 on <time> "
    "(payweek 04/18/2026, PDF week16.pdf)."_s;

const QList<QStringList> fuelOfWeekSixteen = {
    {u"1"_s, u"Truck Fuel"_s, u"412.8"_s, u"-25"_s, u"100"_s}};
const QList<QStringList> importOfWeekSixteen = {{u"week16.pdf"_s, u"04/18/2026"_s, u"4417"_s,
                                                 u"fuel_def_only"_s,
                                                 uR"({"fuel_detail":1,"skipped":1})"_s}};

/// The page with week sixteen scanned, and a file that knows one of its trips.
class ScannedWindow : public ImportWindow
{
public:
    ScannedWindow(Workspace &workspace, DialogRobot &robot)
    {
        makeTripToImportInto(workspace);
        scans(robot, makePdf(u"week16.pdf"_s));
    }

    /// Clicks a button that answers with one box, and gives its text.
    [[nodiscard]] QString boxOf(DialogRobot &robot, const QString &button, DialogRobot::Kind kind,
                                const QString &title) const
    {
        robot.expectContaining(kind, title, u""_s);
        clicks(button);
        return masked(robot.seen().last().text);
    }

    /// Applies and answers the question; what comes of a "Yes" must be expected behind it.
    static void expectQuestion(DialogRobot &robot, const QString &answer)
    {
        robot.expectContaining(DialogRobot::Question, confirmation, u""_s).press(answer);
    }

    void applies(DialogRobot &robot) const
    {
        expectQuestion(robot, u"Yes"_s);
        robot.expectContaining(DialogRobot::Information, u"Import Applied"_s, u""_s);
        clicks(applyButton);
    }
};

/// Notes what the status says whenever a message box comes up.
class StatusAtBoxes : public QObject
{
public:
    explicit StatusAtBoxes(const ImportWindow &importWindow)
        : window(importWindow)
    {
        qApp->installEventFilter(this);
    }

    QStringList statuses;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show && qobject_cast<QMessageBox *>(watched))
            statuses.append(window.status());
        return false;
    }

private:
    const ImportWindow &window;
};

} // namespace

/// A person previews and applies what they reviewed.
class tst_ImportPdfPageImport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void previewTellsWhatWouldBeWrittenAndWritesNothing()
    {
        Workspace workspace;
        DialogRobot robot;
        const ScannedWindow window(workspace, robot);
        QCOMPARE(window.boxOf(robot, previewButton, DialogRobot::Information, u"Dry-Run Preview"_s),
                 u"Dry-Run Preview\n---------------\n\n"_s + dryRunText);
        QCOMPARE(window.status(), u"Dry-run preview completed. No database rows were written."_s);
        QCOMPARE(importedFuel(workspace), QList<QStringList>());
        QCOMPARE(loggedImports(workspace), QList<QStringList>());
        QCOMPARE(window.rows(), QList<QStringList>({shownTruckFuel, shownDef}));
    }

    void blockedPreviewTellsWhy()
    {
        const Workspace workspace;
        DialogRobot robot;
        const ImportWindow window;
        robot.expect(DialogRobot::Warning, u"Dry-Run Blocked"_s,
                     u"Dry-Run Blocked\n---------------\n\n"
                     "Dry-run blocked: parsed payweek is blank.\n\n"
                     "Fuel/DEF detail rows: 0\nSkipped rows: 0\n\n"
                     "Details:\nDry-run blocked: parsed payweek is blank."_s);
        window.clicks(previewButton);
        QCOMPARE(window.status(), u"Dry-run preview blocked. See pipeline log."_s);
        QCOMPARE(window.log(), QStringList({u""_s, u"IMPORT DRY-RUN PREVIEW"_s,
                                            u"----------------------"_s, blankPayweek}));
    }

    void statusTellsWhatRunsWhileABoxIsOpen()
    {
        Workspace workspace;
        DialogRobot robot;
        const ScannedWindow window(workspace, robot);
        const StatusAtBoxes boxes(window);
        robot.expectContaining(DialogRobot::Information, u"Dry-Run Preview"_s, u""_s);
        window.clicks(previewButton);
        window.applies(robot);
        robot.expectContaining(DialogRobot::Warning, u"Import Blocked"_s, u""_s);
        window.clicks(applyButton);
        QCOMPARE(boxes.statuses, QStringList({u"Running dry-run import preview..."_s,
                                              u"Running final dry-run before import..."_s,
                                              u"Applying Fuel/DEF import..."_s,
                                              u"Running final dry-run before import..."_s}));
    }

    void applyAsksWithTheLastDryRunBeforeIt()
    {
        Workspace workspace;
        DialogRobot robot;
        const ScannedWindow window(workspace, robot);
        ScannedWindow::expectQuestion(robot, u"No"_s);
        window.clicks(applyButton);
        const DialogRobot::Seen question = robot.seen().last();
        QCOMPARE(masked(question.text), applyQuestion);
        QStringList buttons = question.buttons;
        buttons.sort(); // each style has its own order
        QCOMPARE(buttons, QStringList({u"No"_s, u"Yes"_s}));
        QCOMPARE(question.defaultButton, u"No"_s);
    }

    void anyAnswerButYesWritesNothing_data()
    {
        QTest::addColumn<bool>("dismissed");
        QTest::newRow("no") << false;
        QTest::newRow("closed") << true;
    }

    void anyAnswerButYesWritesNothing()
    {
        QFETCH(const bool, dismissed);
        Workspace workspace;
        DialogRobot robot;
        const ScannedWindow window(workspace, robot);
        const QSignalSpy applied(window.page, &ImportPdfPage::importAppliedSuccessfully);
        const QStringList log = window.log();
        auto question = robot.expectContaining(DialogRobot::Question, confirmation, u""_s);
        if (dismissed)
            question.dismiss();
        else
            question.press(u"No"_s);
        window.clicks(applyButton);
        QCOMPARE(window.status(),
                 u"Import cancelled after dry-run preview. No database rows were written."_s);
        QCOMPARE(importedFuel(workspace), QList<QStringList>());
        QCOMPARE(loggedImports(workspace), QList<QStringList>());
        QCOMPARE(applied.count(), 0);
        QCOMPARE(window.log(), log); // a dry run that passes is told in the question alone
    }

    void yesWritesTheRowsOfKnownTripsAndOneLogRow()
    {
        Workspace workspace;
        DialogRobot robot;
        const ScannedWindow window(workspace, robot);
        window.applies(robot);
        QCOMPARE(masked(robot.seen().last().text), appliedText);
        QCOMPARE(importedFuel(workspace), fuelOfWeekSixteen);
        QCOMPARE(loggedImports(workspace), importOfWeekSixteen);
        QCOMPARE(workspace.value(u"SELECT COUNT(*) FROM trips"_s), 1);
        QCOMPARE(window.status(), appliedStatus);
        QCOMPARE(window.rows(), QList<QStringList>({shownTruckFuel, shownDef}));
    }

    void importIsAnnouncedOnceItIsCommittedAndTold()
    {
        Workspace workspace;
        DialogRobot robot;
        const ScannedWindow window(workspace, robot);
        QStringList heard;
        QObject::connect(window.page, &ImportPdfPage::importAppliedSuccessfully, window.page, [&] {
            heard << window.status() << QString::number(importedFuel(workspace).size())
                  << robot.seen().last().title;
        });
        window.applies(robot);
        QCOMPARE(heard, QStringList({appliedStatus, u"1"_s, u"Import Applied"_s}));
    }

    void connectedHistoryShowsTheImport()
    {
        Workspace workspace;
        DialogRobot robot;
        const ScannedWindow window(workspace, robot);
        const ImportHistoryPage history;
        QObject::connect(window.page, &ImportPdfPage::importAppliedSuccessfully, &history,
                         &ImportHistoryPage::refreshHistory);
        const auto *grid = history.findChild<QTableWidget *>();
        QCOMPARE(grid->rowCount(), 0);
        window.applies(robot);
        QCOMPARE(column(grid, u"Details"_s), QStringList({u"week16.pdf"_s}));
        QCOMPARE(column(grid, u"Action"_s), QStringList({u"fuel_def_only"_s}));
        QCOMPARE(column(grid, u"Database"_s), QStringList({u"PDF Import"_s}));
    }

    void secondApplyIsBlockedBeforeAnyQuestion()
    {
        Workspace workspace;
        DialogRobot robot;
        const ScannedWindow window(workspace, robot);
        window.applies(robot);
        const QSignalSpy applied(window.page, &ImportPdfPage::importAppliedSuccessfully);
        QCOMPARE(window.boxOf(robot, applyButton, DialogRobot::Warning, u"Import Blocked"_s),
                 u"Import Blocked Before Write\n---------------------------\n\n"_s + sameContent
                     + u"\n\nFuel/DEF detail rows: 0\nSkipped rows: 0\n\nDetails:\n"_s
                     + sameContent);
        QCOMPARE(window.status(), u"Import blocked before write. No database rows were written."_s);
        QCOMPARE(window.log().mid(window.log().size() - 4),
                 QStringList({u""_s, u"FINAL IMPORT PREVIEW BLOCKED"_s,
                              u"----------------------------"_s, sameContent}));
        QCOMPARE(importedFuel(workspace), fuelOfWeekSixteen);
        QCOMPARE(loggedImports(workspace), importOfWeekSixteen);
        QCOMPARE(applied.count(), 0);
    }

    void failedWriteIsToldAndLeavesNothing()
    {
        Workspace workspace;
        DialogRobot robot;
        const ScannedWindow window(workspace, robot);
        const QSignalSpy applied(window.page, &ImportPdfPage::importAppliedSuccessfully);
        workspace.execute(u"CREATE TRIGGER forbidden BEFORE INSERT ON settlement_import_log "
                          "BEGIN SELECT RAISE(ABORT, 'no audit today'); END"_s);
        const QString message =
            u"Import failed writing import log: no audit today Unable to fetch row"_s;
        ScannedWindow::expectQuestion(robot, u"Yes"_s);
        robot.expect(DialogRobot::Warning, u"Import Blocked / Failed"_s,
                     u"Import Blocked / Failed\n-----------------------\n\n"_s + message
                         + u"\n\nFuel/DEF detail rows: 1\nSkipped rows: 1\n\nDetails:\n"
                           "Skipped row for missing trip '4471999': Def\n"_s
                         + message);
        window.clicks(applyButton);
        QCOMPARE(window.status(), u"Import was blocked or failed. See pipeline log."_s);
        QCOMPARE(window.log().mid(8),
                 QStringList({u""_s, u"IMPORT APPLY RESULT"_s, u"-------------------"_s,
                              u"Skipped row for missing trip '4471999': Def"_s, message}));
        QCOMPARE(importedFuel(workspace), QList<QStringList>());
        QCOMPARE(loggedImports(workspace), QList<QStringList>());
        QCOMPARE(applied.count(), 0);
        QCOMPARE(window.rows(), QList<QStringList>({shownTruckFuel, shownDef}));
    }

    void importCanBeTriedAgainAfterAFailure()
    {
        Workspace workspace;
        DialogRobot robot;
        const ScannedWindow window(workspace, robot);
        workspace.execute(u"CREATE TRIGGER forbidden BEFORE INSERT ON trip_detail_items "
                          "BEGIN SELECT RAISE(ABORT, 'no fuel today'); END"_s);
        ScannedWindow::expectQuestion(robot, u"Yes"_s);
        robot.expectContaining(DialogRobot::Warning, u"Import Blocked / Failed"_s,
                               u"Import failed inserting fuel detail: no fuel today"_s);
        window.clicks(applyButton);
        workspace.execute(u"DROP TRIGGER forbidden"_s);
        window.applies(robot);
        QCOMPARE(importedFuel(workspace), fuelOfWeekSixteen);
    }

    void logGrowsWithEveryPreviewAndApply()
    {
        Workspace workspace;
        DialogRobot robot;
        const ScannedWindow window(workspace, robot);
        const QStringList scanned = window.log();
        const QStringList dryRun =
            QStringList({u""_s, u"IMPORT DRY-RUN PREVIEW"_s, u"----------------------"_s})
            + dryRunDetails;
        const QStringList apply =
            QStringList({u""_s, u"IMPORT APPLY RESULT"_s, u"-------------------"_s})
            + appliedDetails;
        for (int preview = 0; preview < 2; ++preview) {
            robot.expectContaining(DialogRobot::Information, u"Dry-Run Preview"_s, u""_s);
            window.clicks(previewButton);
        }
        QCOMPARE(window.log(), scanned + dryRun + dryRun);
        window.applies(robot);
        QCOMPARE(window.log(), scanned + dryRun + dryRun + apply);
    }

    void logIsReplacedByAScanAndByClearAlone()
    {
        Workspace workspace;
        DialogRobot robot;
        const ScannedWindow window(workspace, robot);
        const QStringList scanned = window.log();
        robot.expectContaining(DialogRobot::Information, u"Dry-Run Preview"_s, u""_s);
        window.clicks(previewButton);
        const QStringList grown = window.log();
        window.clicks(addButton);
        window.clicks(u"Save Editor Changes to Selected Row"_s);
        window.clicks(u"Delete Selected Row"_s);
        window.clicks(u"Refresh Review Grid"_s);
        window.chooses(robot, window.pdfPath());
        QCOMPARE(window.log(), grown);
        window.clicks(u"Scan Fuel/DEF Only"_s);
        QCOMPARE(window.log(), scanned);
        window.clicks(u"Clear"_s);
        QCOMPARE(window.log(), QStringList({u""_s}));
    }

    void anotherPdfWithoutAScanImportsTheOldRowsUnderTheOldPath()
    {
        Workspace workspace;
        DialogRobot robot;
        const ScannedWindow window(workspace, robot);
        window.chooses(robot, makePdf(u"week17.pdf"_s, weekSeventeen));
        window.applies(robot);
        QCOMPARE(QFileInfo(window.pdfPath()).fileName(), u"week17.pdf"_s);
        QCOMPARE(loggedImports(workspace), importOfWeekSixteen);
        QCOMPARE(importedFuel(workspace), fuelOfWeekSixteen);
        const QString payload =
            workspace.value(u"SELECT payload_json FROM settlement_import_log"_s).toString();
        QVERIFY2(masked(payload).contains(uR"("pdf_path":"<folder>/week16.pdf")"_s),
                 qPrintable(payload));
    }

    void correctedRowsAreWhatIsImported()
    {
        Workspace workspace;
        DialogRobot robot;
        const ScannedWindow window(workspace, robot);
        window.clicksRow(1);
        window.types("reviewTrip", u"4471203"_s);
        window.types("reviewCost", u"23.10"_s);
        window.types("reviewDiscount", u"-1.75"_s);
        window.clicks(u"Save Editor Changes to Selected Row"_s);
        window.clicksRow(0);
        QTest::mouseClick(window.named<QCheckBox>("reviewUse"), Qt::LeftButton, {}, {8, 8});
        window.clicks(u"Save Editor Changes to Selected Row"_s);
        window.applies(robot);
        QCOMPARE(importedFuel(workspace),
                 QList<QStringList>({{u"1"_s, u"Def"_s, u"23.1"_s, u"-1.75"_s, u"5"_s}}));
        QCOMPARE(loggedImports(workspace).first().last(), uR"({"fuel_detail":1,"skipped":1})"_s);
    }

    void rowsAddedBeforeAnyScanCannotBeImported()
    {
        Workspace workspace;
        makeTripToImportInto(workspace);
        DialogRobot robot;
        const ImportWindow window;
        window.clicks(addButton);
        window.types("reviewTrip", u"4471203"_s);
        window.clicks(u"Save Editor Changes to Selected Row"_s);
        robot.expectContaining(DialogRobot::Warning, u"Import Blocked"_s, blankPayweek);
        window.clicks(applyButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(importedFuel(workspace), QList<QStringList>());
        QCOMPARE(loggedImports(workspace), QList<QStringList>());
    }

    void rowsAddedAfterClearBelongToNoSettlement()
    {
        Workspace workspace;
        DialogRobot robot;
        const ScannedWindow window(workspace, robot);
        window.clicks(u"Clear"_s);
        window.clicks(addButton);
        QCOMPARE(window.summary(),
                 u"Truck: (not found) | Payweek: (not found) | Fuel/DEF Rows: 1"_s);
        QCOMPARE(window.grid()->item(0, 0)->data(Qt::UserRole), 1);
        robot.expectContaining(DialogRobot::Warning, u"Dry-Run Blocked"_s, blankPayweek);
        window.clicks(previewButton);
        robot.expectContaining(DialogRobot::Warning, u"Import Blocked"_s, blankPayweek);
        window.clicks(applyButton);
        QCOMPARE(robot.seen().size(), 3);
        QCOMPARE(loggedImports(workspace), QList<QStringList>());
    }

    void withoutAFileThereIsNothingToImportInto()
    {
        const Workspace workspace;
        workspace.linkTools();
        DialogRobot robot;
        const ImportWindow window;
        window.scans(robot, makePdf(u"week16.pdf"_s));
        robot.expectContaining(DialogRobot::Warning, u"Import Blocked"_s,
                               u"Dry-run blocked: trips.db was not found near the application."_s);
        window.clicks(applyButton);
        QVERIFY(!QFile::exists(workspace.path(u"trips.db"_s)));
    }
};

TEST_CLASS(tst_ImportPdfPageImport)
#include "tst_ImportPdfPageImport.moc"
