#include "pdfimport/ImportWindow.h"
#include "support/TestProgram.h"

#include <QAbstractButton>
#include <QFile>
#include <QGroupBox>
#include <QLayout>
#include <QPushButton>
#include <QScrollArea>

using namespace Qt::StringLiterals;

namespace {

const QString scanButton = u"Scan Fuel/DEF Only"_s;
const QString addButton = u"Add Missing Fuel/DEF Row"_s;
const QString deleteButton = u"Delete Selected Row"_s;
const QString refreshButton = u"Refresh Review Grid"_s;
const QString saveButton = u"Save Editor Changes to Selected Row"_s;

const QString parsedTwo =
    u"Parsed 2 Fuel/DEF review row(s). Review carefully before applying import."_s;

const QString nothingLoaded = u"Truck: (not loaded) | Payweek: (not loaded) | Fuel/DEF Rows: 0"_s;

/// A layout's parts in their order: labels by their text, groups by their title.
QStringList partsOf(const QLayout *layout)
{
    QStringList parts;
    for (int i = 0; i < layout->count(); ++i) {
        const QWidget *widget = layout->itemAt(i)->widget();
        if (const auto *label = qobject_cast<const QLabel *>(widget))
            parts.append(label->text());
        else if (const auto *group = qobject_cast<const QGroupBox *>(widget))
            parts.append(group->title());
        else if (const auto *button = qobject_cast<const QPushButton *>(widget))
            parts.append(button->text());
        else
            parts.append(widget ? widget->objectName() : u"-"_s);
    }
    return parts;
}

const QLayout *sectionsOf(const ImportWindow &window)
{
    return window.page->findChild<QScrollArea *>()->widget()->layout();
}

/// A folder with the tools in it and a person at hand who answers the dialogs.
struct FolderWithTools
{
    FolderWithTools() { workspace.linkTools(); }

    Workspace workspace;
    DialogRobot robot;
};

/// The import page with week sixteen scanned.
class ScannedWindow : public FolderWithTools, public ImportWindow
{
public:
    ScannedWindow() { scans(robot, makePdf(u"week16.pdf"_s)); }
};

} // namespace

/// A person scans a settlement, and reviews and corrects what was found.
class tst_ImportPdfPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sectionsStandFromTopToBottom()
    {
        const Workspace workspace;
        const ImportWindow window;
        const QLayout *sections = sectionsOf(window);
        QCOMPARE(partsOf(sections),
                 QStringList(
                     {u"Import PDF - Fuel/DEF Scan Only"_s,
                      u"Fuel/DEF-only import mode. This page extracts settlement PDF text, detects "
                      "the payweek, parses only Truck Fuel, Reefer Fuel, and DEF rows, lets you "
                      "review/edit fuel rows, previews what would be written, then writes only "
                      "approved fuel detail rows with duplicate protection."_s,
                      u"PDF Controls"_s, u"Extraction Preview"_s, u"Review / Edit Fuel/DEF Rows"_s,
                      u"Selected Row Editor"_s, u"-"_s}));
        QCOMPARE(sections->contentsMargins(), QMargins(12, 12, 12, 12));
        QCOMPARE(sections->spacing(), 10);
        QCOMPARE(window.page->layout()->contentsMargins(), QMargins());
        QVERIFY(window.page->findChild<QScrollArea *>()->widgetResizable());
    }

    void headingIsBoldAndFivePointsLarger()
    {
        const Workspace workspace;
        const ImportWindow window;
        const auto *heading = qobject_cast<QLabel *>(sectionsOf(window)->itemAt(0)->widget());
        QVERIFY(heading->font().bold());
        QCOMPARE(heading->font().pointSize(), window.page->font().pointSize() + 5);
    }

    void introductionWraps()
    {
        const Workspace workspace;
        const ImportWindow window;
        const auto *introduction = qobject_cast<QLabel *>(sectionsOf(window)->itemAt(1)->widget());
        QVERIFY(introduction->wordWrap());
    }

    void controlsAndReviewStandInTheirOrder()
    {
        const Workspace workspace;
        const ImportWindow window;
        const QLayout *controls = sectionsOf(window)->itemAt(2)->widget()->layout();
        QCOMPARE(partsOf(controls->itemAt(0)->layout()),
                 QStringList({u"Choose PDF"_s, scanButton, u"Clear"_s, u"-"_s}));
        QCOMPARE(partsOf(controls).mid(1),
                 QStringList({u"No PDF selected."_s, nothingLoaded, u"Ready"_s}));
        const QLayout *review = sectionsOf(window)->itemAt(4)->widget()->layout();
        QCOMPARE(partsOf(review->itemAt(0)->layout()),
                 QStringList({refreshButton, addButton, deleteButton, u"Dry-Run Preview"_s,
                              u"Apply Fuel/DEF Import"_s, u"-"_s}));
        QCOMPARE(partsOf(review).mid(1), QStringList({u"reviewGrid"_s}));
        QVERIFY(window.named<QLabel>("importPath")->wordWrap());
    }

    void pageStartsEmpty()
    {
        const Workspace workspace;
        const DialogRobot robot;
        const ImportWindow window;
        QCOMPARE(window.rows(), QList<QStringList>());
        QCOMPARE(window.pages(), QList<QStringList>());
        QCOMPARE(window.text(), QString());
        QCOMPARE(window.log(), QStringList({u""_s}));
        QCOMPARE(window.fields(), noFields);
        QCOMPARE(robot.seen().size(), 0);
    }

    void everyButtonIsLiveInEveryState()
    {
        Workspace workspace;
        makeTripToImportInto(workspace);
        DialogRobot robot;
        const ImportWindow window;
        const auto disabled = [&window] {
            QStringList names;
            for (const QAbstractButton *button : window.page->findChildren<QAbstractButton *>()) {
                if (!button->isEnabled())
                    names.append(button->text());
            }
            return names;
        };
        QCOMPARE(disabled(), QStringList());
        window.chooses(robot, makePdf(u"week16.pdf"_s));
        QCOMPARE(disabled(), QStringList());
        window.clicks(scanButton);
        QCOMPARE(disabled(), QStringList());
    }

    void chosenPdfIsShownAndNotYetRead()
    {
        const Workspace workspace;
        DialogRobot robot;
        const ImportWindow window;
        const QString pdf = makePdf(u"week16.pdf"_s);
        window.chooses(robot, pdf);
        QCOMPARE(window.pdfPath(), pdf);
        QCOMPARE(window.status(), u"Selected PDF: week16.pdf"_s);
        QCOMPARE(window.summary(), nothingLoaded);
        QCOMPARE(window.rows(), QList<QStringList>());
        QCOMPARE(robot.seen().first().nameFilters,
                 QStringList({u"PDF Files (*.pdf)"_s, u"All Files (*.*)"_s}));
    }

    void anotherPdfIsAskedForInTheFolderOfTheLast()
    {
        const Workspace workspace;
        DialogRobot robot;
        const ImportWindow window;
        window.chooses(robot, workspace.makeFile(u"july/week16.pdf"_s, {}));
        robot.expectFileDialog(u"Choose Settlement PDF for Fuel/DEF Scan"_s).dismiss();
        window.clicks(u"Choose PDF"_s);
        QCOMPARE(robot.seen().last().folder, workspace.path(u"july"_s));
    }

    void cancelledFileDialogChangesNothing()
    {
        const Workspace workspace;
        DialogRobot robot;
        const ImportWindow window;
        const QString pdf = makePdf(u"week16.pdf"_s);
        window.chooses(robot, pdf);
        robot.expectFileDialog(u"Choose Settlement PDF for Fuel/DEF Scan"_s).dismiss();
        window.clicks(u"Choose PDF"_s);
        QCOMPARE(window.pdfPath(), pdf);
        QCOMPARE(window.status(), u"Selected PDF: week16.pdf"_s);
    }

    void scanWithoutAPdfAsksForOne()
    {
        const Workspace workspace;
        DialogRobot robot;
        const ImportWindow window;
        robot.expect(DialogRobot::Warning, u"No PDF"_s, u"Choose a PDF first."_s);
        window.clicks(scanButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(window.status(), u"Ready"_s);
    }

    void scanShowsTheFuelRowsOfARealPdf()
    {
        ScannedWindow window;
        QCOMPARE(window.rows(), QList<QStringList>({shownTruckFuel, shownDef}));
        QCOMPARE(window.summary(), u"Truck: 4417 | Payweek: 04/18/2026 | Fuel/DEF Rows: 2"_s);
        QCOMPARE(window.status(), parsedTwo);
        QCOMPARE(window.text(), weekSixteen.join(u'\n') + u"\n\f"_s);
        QCOMPARE(window.pages(), QList<QStringList>({{u"1"_s, weekSixteen.join(u' ')}}));
        QCOMPARE(window.fields(), noFields);
        QCOMPARE(window.robot.seen().size(), 1);
    }

    void stepsOfTheExtractionStandTheNewestFirstAheadOfTheParsers()
    {
        const ScannedWindow window;
        QCOMPARE(window.log(),
                 QStringList({u"Extracted 169 characters with pdftotext."_s,
                              u"Extracted 1 page text block(s) with pdftotext."_s,
                              uR"(Using bundled Poppler from tools\poppler.)"_s,
                              u"Using pdftotext: <folder>/tools/poppler/pdftotext"_s,
                              u"Fuel/DEF-only SettlementParser started."_s, u"Truck: 4417"_s,
                              u"Payweek: 04/18/2026"_s,
                              u"Parsed 2 Fuel/DEF candidate row(s). Non-fuel settlement rows were "
                              "ignored."_s}));
    }

    void secondScanReplacesAllRowsAndCountsFromOneAgain()
    {
        ScannedWindow window;
        window.clicks(addButton);
        window.scans(window.robot, makePdf(u"week17.pdf"_s, weekSeventeen));
        QCOMPARE(column(window.grid(), u"Source Line"_s), weekSeventeen.mid(1));
        QCOMPARE(window.summary(), u"Truck: 4417 | Payweek: 04/25/2026 | Fuel/DEF Rows: 1"_s);
        QCOMPARE(window.grid()->item(0, 0)->data(Qt::UserRole), 1);
        window.clicks(addButton);
        QCOMPARE(window.grid()->item(1, 0)->data(Qt::UserRole), 2);
        QCOMPARE(window.log().size(), 8);
    }

    void failedScanLeavesNoRowsOfTheScanBeforeIt()
    {
        ScannedWindow window;
        QVERIFY(QFile::remove(window.pdfPath()));
        window.robot.expect(DialogRobot::Warning, u"Extraction Failed"_s,
                            u"PDF file does not exist."_s);
        window.clicks(scanButton);
        QCOMPARE(window.rows(), QList<QStringList>());
        QCOMPARE(window.pages(), QList<QStringList>());
        QCOMPARE(window.text(), QString());
        QCOMPARE(window.summary(), u"Truck: (not found) | Payweek: (not found) | "
                                   "Fuel/DEF Rows: 0"_s);
        QCOMPARE(window.status(), u"Extracting PDF text..."_s);
        QCOMPARE(window.log(),
                 QStringList({u"PDF file does not exist."_s, u"PDF file does not exist."_s}));
    }

    void logOfAFailedScanKeepsTheStepsInTheirOrder()
    {
        const Workspace workspace;
        workspace.linkTools();
        DialogRobot robot;
        const ImportWindow window;
        const QString noPdf = workspace.makeFile(u"photo.pdf"_s, "no PDF at all");
        const QString reason = u"pdftoppm failed with exit code 1. OCR image rendering did not "
                               "complete."_s;
        robot.expectFileDialog(u"Choose Settlement PDF for Fuel/DEF Scan"_s).choose(noPdf);
        window.clicks(u"Choose PDF"_s);
        robot.expect(DialogRobot::Warning, u"Extraction Failed"_s, reason);
        window.clicks(scanButton);
        const QStringList log = window.log();
        QCOMPARE(log.first(), u"Using pdftotext: <folder>/tools/poppler/pdftotext"_s);
        QVERIFY(log.contains(u"pdftotext failed with exit code 1. OCR fallback will be "
                             "attempted."_s));
        QCOMPARE(log.mid(log.size() - 2), QStringList({reason, reason}));
    }

    void anotherChosenPdfLeavesTheResultOnShow()
    {
        ScannedWindow window;
        window.chooses(window.robot, makePdf(u"week17.pdf"_s, weekSeventeen));
        QCOMPARE(window.rows(), QList<QStringList>({shownTruckFuel, shownDef}));
        QCOMPARE(window.status(), u"Selected PDF: week17.pdf"_s);
        QCOMPARE(window.summary(), u"Truck: 4417 | Payweek: 04/18/2026 | Fuel/DEF Rows: 2"_s);
    }

    void clearForgetsEverything()
    {
        ScannedWindow window;
        window.clicksRow(0);
        window.clicks(u"Clear"_s);
        QCOMPARE(window.pdfPath(), u"No PDF selected."_s);
        QCOMPARE(window.summary(), nothingLoaded);
        QCOMPARE(window.status(), u"Ready"_s);
        QCOMPARE(window.rows(), QList<QStringList>());
        QCOMPARE(window.pages(), QList<QStringList>());
        QCOMPARE(window.text(), QString());
        QCOMPARE(window.log(), QStringList({u""_s}));
        QCOMPARE(window.fields(), noFields);
        window.robot.expect(DialogRobot::Warning, u"No PDF"_s, u"Choose a PDF first."_s);
        window.clicks(scanButton);
    }

    void clearEmptiesWhatWasTypedForNoRow()
    {
        const Workspace workspace;
        const DialogRobot robot;
        const ImportWindow window;
        window.types("reviewTrip", u"4471203"_s);
        window.types("reviewCost", u"9.99"_s);
        QCOMPARE(window.marked(), QList<int>());
        QVERIFY(window.fields() != noFields);
        window.clicks(u"Clear"_s);
        QCOMPARE(window.fields(), noFields);
    }

    void clickedRowStandsInTheEditor()
    {
        const ScannedWindow window;
        window.clicksRow(0);
        QCOMPARE(window.fields(),
                 QStringList({u"on"_s, u"Deduction Fuel"_s, u"fuel_detail"_s, u"4471203"_s,
                              u"Truck Fuel"_s, u"412.80"_s, u"412.80"_s, u"-25.00"_s, u"100.000"_s,
                              weekSixteen.at(1)}));
        window.grid()->clearSelection();
        QCOMPARE(window.fields(), noFields);
    }

    void savedFieldsStandInTheRowWhichStaysMarked()
    {
        const ScannedWindow window;
        window.clicksRow(1);
        QTest::mouseClick(window.named<QCheckBox>("reviewUse"), Qt::LeftButton, {}, {8, 8});
        Person::chooses(window.named<QComboBox>("reviewDataset"), u"Manual Fuel"_s);
        window.types("reviewTrip", u" 4471203 "_s);
        window.types("reviewCost", u"$1,021.50"_s);
        window.clicks(saveButton);
        QCOMPARE(window.rows(),
                 QList<QStringList>(
                     {shownTruckFuel,
                      {u"No"_s, u"Manual Fuel"_s, u"4471203"_s, u"Def"_s, u"fuel_detail"_s,
                       u"21.35"_s, u"1021.50"_s, u"0.00"_s, u"5.000"_s, weekSixteen.at(3)}}));
        QCOMPARE(window.marked(), QList<int>({1}));
        QCOMPARE(window.fields().at(6), u"1021.50"_s);
        QCOMPARE(window.status(), u"Saved editor changes to selected review row."_s);
    }

    void costThatIsNoNumberIsStoredAsZero_data()
    {
        QTest::addColumn<QString>("cost");
        QTest::newRow("letters") << u"abc"_s;
        QTest::newRow("a parenthesised amount") << u"(12.00)"_s;
    }

    void costThatIsNoNumberIsStoredAsZero()
    {
        QFETCH(const QString, cost);
        const ScannedWindow window;
        window.clicksRow(0);
        window.types("reviewCost", cost);
        window.clicks(saveButton);
        QCOMPARE(column(window.grid(), u"Cost"_s), QStringList({u"0.00"_s, u"21.35"_s}));
        QCOMPARE(column(window.grid(), u"Amount"_s), QStringList({u"412.80"_s, u"21.35"_s}));
        QCOMPARE(window.fields().at(6), u"0.00"_s);
    }

    void withNothingSelectedSaveAndDeleteAskForARowAndChangeNothing_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("title");
        QTest::newRow("save") << saveButton << u"Save Row"_s;
        QTest::newRow("delete") << deleteButton << u"Delete Row"_s;
    }

    void withNothingSelectedSaveAndDeleteAskForARowAndChangeNothing()
    {
        QFETCH(const QString, button);
        QFETCH(const QString, title);
        ScannedWindow window;
        window.types("reviewCost", u"9.99"_s);
        window.robot.expect(DialogRobot::Information, title, u"Select a review row first."_s);
        window.clicks(button);
        QCOMPARE(window.robot.seen().size(), 2);
        QCOMPARE(window.rows(), QList<QStringList>({shownTruckFuel, shownDef}));
        QCOMPARE(window.fields().at(6), u"9.99"_s);
        QCOMPARE(window.status(), parsedTwo);
    }

    void rowAddedByHandIsMarkedAndReadyToEdit()
    {
        const ScannedWindow window;
        window.clicks(addButton);
        QCOMPARE(window.rows(), QList<QStringList>({shownTruckFuel, shownDef, shownManualRow}));
        QCOMPARE(window.marked(), QList<int>({2}));
        QCOMPARE(window.fields(),
                 QStringList({u"on"_s, u"Manual Fuel"_s, u"fuel_detail"_s, u""_s, u"Truck Fuel"_s,
                              u"0.00"_s, u"0.00"_s, u"0.00"_s, u"0.000"_s,
                              u"Added manually in Fuel/DEF review grid."_s}));
        QCOMPARE(window.summary(), u"Truck: 4417 | Payweek: 04/18/2026 | Fuel/DEF Rows: 3"_s);
        QCOMPARE(window.status(), u"Added manual Fuel/DEF review row."_s);
    }

    void rowsCanBeAddedAndEditedBeforeAnyScan()
    {
        const Workspace workspace;
        const DialogRobot robot;
        const ImportWindow window;
        window.clicks(addButton);
        window.types("reviewDescription", u"Def"_s);
        window.clicks(saveButton);
        QCOMPARE(column(window.grid(), u"Description"_s), QStringList({u"Def"_s}));
        QCOMPARE(window.summary(),
                 u"Truck: (not found) | Payweek: (not found) | Fuel/DEF Rows: 1"_s);
        QCOMPARE(robot.seen().size(), 0);
    }

    void rowIsDeletedWithoutAQuestion()
    {
        ScannedWindow window;
        window.clicksRow(0);
        window.clicks(deleteButton);
        QCOMPARE(window.robot.seen().size(), 1);
        QCOMPARE(window.rows(), QList<QStringList>({shownDef}));
        QCOMPARE(window.marked(), QList<int>());
        QCOMPARE(window.fields(), noFields);
        QCOMPARE(window.summary(), u"Truck: 4417 | Payweek: 04/18/2026 | Fuel/DEF Rows: 1"_s);
        QCOMPARE(window.status(), u"Deleted selected review row."_s);
    }

    void identityOfADeletedRowIsNotUsedAgain()
    {
        const ScannedWindow window;
        window.clicksRow(1);
        window.clicks(deleteButton);
        window.clicks(addButton);
        QCOMPARE(window.grid()->item(1, 0)->data(Qt::UserRole), 3);
        QCOMPARE(window.marked(), QList<int>({1}));
    }

    void textTypedIntoACellIsDroppedByTheNextRefresh()
    {
        const ScannedWindow window;
        window.grid()->item(0, 6)->setText(u"9999.00"_s);
        window.clicksRow(0);
        QCOMPARE(window.fields().at(6), u"412.80"_s);
        window.clicks(refreshButton);
        QCOMPARE(window.rows(), QList<QStringList>({shownTruckFuel, shownDef}));
        QCOMPARE(window.marked(), QList<int>());
        QCOMPARE(window.fields().at(6), u"412.80"_s);
        QCOMPARE(window.status(), parsedTwo);
    }

    void textInTheEditorStaysWhenTheRowsAreShownAgain_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<bool>("readable");
        QTest::newRow("refresh") << refreshButton << true;
        QTest::newRow("scan") << scanButton << true;
        QTest::newRow("failed scan") << scanButton << false;
    }

    void textInTheEditorStaysWhenTheRowsAreShownAgain()
    {
        QFETCH(const QString, button);
        QFETCH(const bool, readable);
        ScannedWindow window;
        window.clicksRow(0);
        window.types("reviewCost", u"1,021.5"_s);
        if (!readable) {
            QVERIFY(QFile::remove(window.pdfPath()));
            window.robot.expectContaining(DialogRobot::Warning, u"Extraction Failed"_s, u""_s);
        }
        window.clicks(button);
        QCOMPARE(window.marked(), QList<int>());
        QCOMPARE(window.fields(),
                 QStringList({u"on"_s, u"Deduction Fuel"_s, u"fuel_detail"_s, u"4471203"_s,
                              u"Truck Fuel"_s, u"412.80"_s, u"1,021.5"_s, u"-25.00"_s, u"100.000"_s,
                              weekSixteen.at(1)}));
    }
};

TEST_CLASS(tst_ImportPdfPage)
#include "tst_ImportPdfPage.moc"
