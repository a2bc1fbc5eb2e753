#include "pdfimport/PdfTextExtractor.h"
#include "samples/PdfFile.h"
#include "support/DialogRobot.h"
#include "support/RowMakers.h"
#include "support/TestProgram.h"
#include "trips/fuel/FuelScan.h"
#include "trips/fuel/FuelWindow.h"

using namespace Qt::StringLiterals;

namespace {

const QString scanButton = u"Scan Fuel From Settlement PDF"_s;
const QString caption = u"Select Settlement PDF"_s;
const QString scanning = u"Scanning settlement PDF for fuel rows on trip 4471203..."_s;
const QString canceled = u"Fuel scan canceled before applying rows."_s;

const QString addedTwo = u"Added 2 scanned fuel/detail row(s) for trip 4471203."_s;
const QString addedTwoText =
    u"Added 2 scanned fuel/detail row(s) for trip 4471203.\n\nReview the rows, then click Save "
    "Fuel Rows to write them to the trip."_s;
const QString existingText =
    u"This trip already has 1 fuel/detail row(s).\n\nChoose Yes to replace them with the scanned "
    "rows.\nChoose No to append the scanned rows.\nChoose Cancel to make no changes."_s;

/// A settlement with two purchases of trip 4471203 and one of another.
const QByteArray settlement = "01/05 TRUCK FUEL TRIP 4471203 100.0 GAL (25.00) 412.80\n"
                              "01/06 LINEHAUL TRIP 4471203 1,842.00\n"
                              "01/06 DEF TRIP 4471204 5 GAL 21.35\n"
                              "01/07 REEFER FUEL TRIP 4471203 22.5 GALS 88.40\n";

const QStringList scannedTruckFuel = {u"Truck Fuel"_s, u"$412.80"_s, u"$-25.00"_s, u"100.000"_s,
                                      u"$4.3780"_s};
const QStringList scannedReeferFuel = {u"Reefer Fuel"_s, u"$88.40"_s, u"$0.00"_s, u"22.500"_s,
                                       u"$3.9289"_s};
const QStringList storedDef = {u"Def"_s, u"$21.35"_s, u"$0.00"_s, u"5"_s, u""_s};

/// Makes trips.db with trip 4471203, and a settlement PDF whose text the tool gives as it is.
QString makeTripAndSettlement(Workspace &workspace, const QByteArray &text = settlement)
{
    workspace.makeFile(u"week.pdf"_s, text);
    workspace.makeTool(u"tools/poppler/pdftotext"_s, "cp \"$2\" \"$3\"\n");
    const QString path = workspace.makeTrips();
    trip().no(u"4471203"_s).payweek(u"01/10/2026"_s).insert(workspace);
    return path;
}

/// With the trip loaded; what was told until then is left out.
class ScanWindow : public FuelWindow
{
public:
    explicit ScanWindow(const QString &path)
        : FuelWindow(path)
    {
        clicksTrip(0);
        statuses.clear();
    }

    static void chooses(DialogRobot &robot, const QString &pdfPath)
    {
        robot.expectFileDialog(caption).choose(pdfPath);
    }
};

} // namespace

class tst_FuelScan : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsOfTheTripAreAddedForReview()
    {
        Workspace workspace;
        DialogRobot robot;
        const ScanWindow window(makeTripAndSettlement(workspace));
        const QByteArray before = workspace.bytes(u"trips.db"_s);
        ScanWindow::chooses(robot, workspace.path(u"week.pdf"_s));
        robot.expect(DialogRobot::Information, u"Fuel Rows Added"_s, addedTwoText);
        window.clicks(scanButton);
        QCOMPARE(robot.seen().size(), 2);
        QCOMPARE(window.rows(), QList<QStringList>({scannedTruckFuel, scannedReeferFuel}));
        QCOMPARE(window.totals(),
                 u"Fuel totals: Rows 2 | Cost $501.20 | Discount $-25.00 | Net $526.20 | "
                 "Gallons 122.500 | Truck avg $4.3780/gal | Reefer avg $3.9289/gal"_s);
        QCOMPARE(window.statuses, QStringList({scanning, addedTwo}));
        QCOMPARE(window.costItems(), QList<QStringList>());
        QCOMPARE(workspace.bytes(u"trips.db"_s), before);
    }

    void fileDialogAsksForAPdf()
    {
        Workspace workspace;
        DialogRobot robot;
        const ScanWindow window(makeTripAndSettlement(workspace));
        robot.expectFileDialog(caption).dismiss();
        window.clicks(scanButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(robot.seen().first().nameFilters,
                 QStringList({u"PDF Files (*.pdf)"_s, u"All Files (*.*)"_s}));
        QCOMPARE(window.rows(), QList<QStringList>());
        QCOMPARE(window.statuses, QStringList());
        QCOMPARE(window.enabledButtons(), QStringList({u"Edit Fuel Rows"_s, scanButton}));
    }

    void scannedRowsCanBeEditedAndSaved()
    {
        Workspace workspace;
        DialogRobot robot;
        const ScanWindow window(makeTripAndSettlement(workspace));
        ScanWindow::chooses(robot, workspace.path(u"week.pdf"_s));
        robot.expect(DialogRobot::Information, u"Fuel Rows Added"_s, addedTwoText);
        window.clicks(scanButton);
        QCOMPARE(window.enabledButtons(), QStringList({u"Add Row"_s, u"Delete Selected Row"_s,
                                                       u"Save Fuel Rows"_s, scanButton}));
        typesIntoCell(window.grid(), 0, FuelGrid::DiscountColumn, u"25"_s);
        window.clicks(u"Save Fuel Rows"_s);
        QCOMPARE(storedFuel(workspace),
                 QList<QStringList>(
                     {{u"1"_s, u"fuel"_s, u"Truck Fuel"_s, u"412.8"_s, u"25"_s, u"100"_s},
                      {u"1"_s, u"fuel"_s, u"Reefer Fuel"_s, u"88.4"_s, u"0"_s, u"22.5"_s}}));
        QCOMPARE(storedCosts(workspace),
                 QList<QStringList>({{u"1"_s, u"Reefer Fuel"_s, u"88.4"_s},
                                     {u"1"_s, u"Truck Fuel"_s, u"387.8"_s}}));
    }

    void scanNeedsATripThatIsInTheFile_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("tripNo");
        QTest::newRow("new trip with a number") << u"New Trip"_s << u"4471203"_s;
        QTest::newRow("new trip") << u"New Trip"_s << u""_s;
        QTest::newRow("trip without a number") << u"Edit Fuel Rows"_s << u""_s;
        QTest::newRow("trip with a blank number") << u"Edit Fuel Rows"_s << u"   "_s;
    }

    void scanNeedsATripThatIsInTheFile()
    {
        Workspace workspace;
        DialogRobot robot;
        QFETCH(const QString, button);
        QFETCH(const QString, tripNo);
        ScanWindow window(makeTripAndSettlement(workspace));
        window.clicks(button);
        window.types("tripNoField", tripNo);
        window.statuses.clear();
        robot.expect(DialogRobot::Information, scanButton,
                     u"Load or save a trip before scanning fuel details. The scanner needs the "
                     "current trip number."_s);
        window.clicks(scanButton);
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(window.rows(), QList<QStringList>());
        QCOMPARE(window.statuses, QStringList());
    }

    void numberIsThatWhichIsTypedNow()
    {
        Workspace workspace;
        DialogRobot robot;
        const ScanWindow window(makeTripAndSettlement(workspace));
        window.types("tripNoField", u" 4471204 "_s);
        ScanWindow::chooses(robot, workspace.path(u"week.pdf"_s));
        robot.expect(DialogRobot::Information, u"Fuel Rows Added"_s,
                     u"Added 1 scanned fuel/detail row(s) for trip 4471204.\n\nReview the rows, "
                     "then click Save Fuel Rows to write them to the trip."_s);
        window.clicks(scanButton);
        QCOMPARE(window.rows(),
                 QList<QStringList>({{u"Def"_s, u"$21.35"_s, u"$0.00"_s, u"5.000"_s, u""_s}}));
    }

    void rowsThatWereThereAreReplacedOrKept_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QList<QStringList>>("rows");
        QTest::newRow("yes") << u"Yes"_s
                             << QList<QStringList>({scannedTruckFuel, scannedReeferFuel});
        QTest::newRow("no") << u"No"_s
                            << QList<QStringList>({storedDef, scannedTruckFuel, scannedReeferFuel});
    }

    void rowsThatWereThereAreReplacedOrKept()
    {
        Workspace workspace;
        DialogRobot robot;
        QFETCH(const QString, button);
        QFETCH(const QList<QStringList>, rows);
        const QString path = makeTripAndSettlement(workspace);
        fuel(1, u"Def"_s, 21.35, 0.0, 5.0).insert(workspace);
        const ScanWindow window(path);
        ScanWindow::chooses(robot, workspace.path(u"week.pdf"_s));
        robot.expect(DialogRobot::Question, u"Existing Fuel Rows"_s, existingText).press(button);
        robot.expect(DialogRobot::Information, u"Fuel Rows Added"_s, addedTwoText);
        window.clicks(scanButton);
        QCOMPARE(robot.seen().size(), 3);
        QStringList buttons = robot.seen().at(1).buttons;
        buttons.sort(); // each style has its own order
        QCOMPARE(buttons, QStringList({u"Cancel"_s, u"No"_s, u"Yes"_s}));
        QCOMPARE(robot.seen().at(1).defaultButton, u"Cancel"_s);
        QCOMPARE(window.rows(), rows);
        QCOMPARE(window.statuses, QStringList({scanning, addedTwo}));
        for (int row = 0; row < rows.size(); ++row)
            QCOMPARE(window.typeBox(row)->isEnabled(), true);
        QCOMPARE(storedFuel(workspace).size(), 1);
    }

    void cancelChangesNothing_data()
    {
        QTest::addColumn<bool>("escapes");
        QTest::newRow("button") << false;
        QTest::newRow("escape") << true;
    }

    void cancelChangesNothing()
    {
        Workspace workspace;
        DialogRobot robot;
        QFETCH(const bool, escapes);
        const QString path = makeTripAndSettlement(workspace);
        fuel(1, u"Def"_s, 21.35, 0.0, 5.0).insert(workspace);
        const ScanWindow window(path);
        ScanWindow::chooses(robot, workspace.path(u"week.pdf"_s));
        auto question = robot.expect(DialogRobot::Question, u"Existing Fuel Rows"_s, existingText);
        question.press(u"Cancel"_s);
        if (escapes)
            question.dismiss();
        window.clicks(scanButton);
        QCOMPARE(robot.seen().size(), 2);
        QCOMPARE(window.rows(), QList<QStringList>({storedDef}));
        QCOMPARE(window.statuses, QStringList({scanning, canceled}));
        QCOMPARE(window.enabledButtons(), QStringList({u"Edit Fuel Rows"_s, scanButton}));
    }

    void settlementWithoutTheTripIsTold()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path =
            makeTripAndSettlement(workspace, "01/06 DEF TRIP 4471204 5 GAL 21.35\n");
        fuel(1, u"Def"_s, 21.35, 0.0, 5.0).insert(workspace);
        const ScanWindow window(path);
        ScanWindow::chooses(robot, workspace.path(u"week.pdf"_s));
        robot.expect(DialogRobot::Information, u"No Fuel Rows Found"_s,
                     u"No Truck Fuel, Reefer Fuel, or Def rows were found for trip 4471203.\n\nThe "
                     "PDF was read, but the OCR/parser did not find matching fuel details for this "
                     "trip."_s);
        window.clicks(scanButton);
        QCOMPARE(robot.seen().size(), 2);
        QCOMPARE(window.rows(), QList<QStringList>({storedDef}));
        QCOMPARE(window.statuses,
                 QStringList({scanning, u"No matching fuel rows found for trip 4471203."_s}));
        QCOMPARE(window.enabledButtons(), QStringList({u"Edit Fuel Rows"_s, scanButton}));
    }

    void failureWithoutAReasonOrStepsIsToldInWords()
    {
        PdfExtractionResult extracted;
        QCOMPARE(fuelScanFailureText(extracted), u"PDF text/OCR extraction failed."_s);
        extracted.errorMessage = u" No text. \n"_s;
        QCOMPARE(fuelScanFailureText(extracted), u"No text."_s);
        extracted.logLines = {u"One step"_s, u"another"_s};
        QCOMPARE(fuelScanFailureText(extracted), u"No text.\n\nDetails:\nOne step\nanother"_s);
    }

    void failedExtractionIsToldWithItsDetails()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeTripAndSettlement(workspace);
        workspace.makeTool(u"tools/poppler/pdftotext"_s, "exit 3\n");
        const ScanWindow window(path);
        ScanWindow::chooses(robot, workspace.path(u"week.pdf"_s));
        robot.expectContaining(DialogRobot::Warning, u"Fuel Scan Failed"_s,
                               u"\n\nDetails:\nUsing pdftotext: "_s
                                   + workspace.path(u"tools/poppler/pdftotext"_s) + u'\n');
        window.clicks(scanButton);
        QCOMPARE(robot.seen().size(), 2);
        const QString text = robot.seen().last().text;
        QCOMPARE(text.section(u'\n', 0, 0),
                 u"PDF text extraction returned no text and OCR fallback could not start. Verify "
                 "bundled tools exist at tools\\poppler\\pdftoppm.exe, "
                 "tools\\tesseract\\tesseract.exe, and "
                 "tools\\tesseract\\tessdata\\eng.traineddata."_s);
        QVERIFY(text.contains(u"\npdftotext failed with exit code 3. OCR fallback will be "
                              "attempted.\nOCR tool check failed.\n"_s));
        QCOMPARE(window.rows(), QList<QStringList>());
        QCOMPARE(window.statuses, QStringList({scanning, u"Fuel scan failed."_s}));
        QCOMPARE(window.enabledButtons(), QStringList({u"Edit Fuel Rows"_s, scanButton}));
    }

    void cursorIsTheOldOneAfterwards()
    {
        Workspace workspace;
        DialogRobot robot;
        const ScanWindow window(makeTripAndSettlement(workspace));
        ScanWindow::chooses(robot, workspace.path(u"week.pdf"_s));
        robot.expect(DialogRobot::Information, u"Fuel Rows Added"_s, addedTwoText);
        window.clicks(scanButton);
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void realSettlementIsScannedByTheRealTools()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = workspace.makeTrips();
        trip().no(u"4471203"_s).insert(workspace);
        workspace.linkTools();
        QString error;
        QVERIFY2(writePdf(workspace.path(u"week.pdf"_s),
                          {QString::fromLatin1(settlement).split(u'\n')}, PdfMake::Text, error),
                 qPrintable(error));
        const ScanWindow window(path);
        ScanWindow::chooses(robot, workspace.path(u"week.pdf"_s));
        robot.expect(DialogRobot::Information, u"Fuel Rows Added"_s, addedTwoText);
        window.clicks(scanButton);
        QCOMPARE(window.rows(), QList<QStringList>({scannedTruckFuel, scannedReeferFuel}));
    }
};

TEST_CLASS(tst_FuelScan)
#include "tst_FuelScan.moc"
