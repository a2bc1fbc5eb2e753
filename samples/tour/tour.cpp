// Shows the real window on copies of the databases of the current directory, goes through its pages
// as a person would, scans the fuel of two sample settlements, saves a picture of each page, and
// prints the payweek reports. The exit status tells whether every page had something to show.

#include "app/ApplicationSetup.h"
#include "app/BrindlepathApp.h"
#include "samples/tour/DialogAnswers.h"
#include "trips/TripColumns.h"

#include <QApplication>
#include <QComboBox>
#include <QDate>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>
#include <QTextStream>
#include <QTimer>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize windowSize(1280, 800);

class Tour
{
public:
    Tour(const QString &pictureFolder, const QString &settlementFolder)
        : folder(pictureFolder)
        , settlements(settlementFolder)
    {
        window.resize(windowSize);
        window.show();
        (void)QTest::qWaitForWindowExposed(&window);
    }

    bool run()
    {
        showStartScreen();
        showTrips();
        showPayweek();
        showTripOfPayweek();
        showScan(u"*[0-9].pdf"_s, u"6-scanned-text"_s);
        showScan(u"*-scanned.pdf"_s, u"7-scanned-page"_s);
        showLocations();
        showSettlement();
        showTotals();
        showReports();
        showSettingsAndHistory();
        return complete;
    }

private:
    template <typename Widget>
    Widget *find(const QString &name)
    {
        auto *widget = window.findChild<Widget *>(name);
        if (!widget)
            qFatal("The window has no %s.", qPrintable(name));
        return widget;
    }

    void require(bool holds, const QString &what)
    {
        if (!holds)
            QTextStream(stderr) << what << Qt::endl;
        complete = complete && holds;
    }

    void goTo(const QString &page)
    {
        auto *navigation = find<QListWidget>(u"navigationList"_s);
        const QList<QListWidgetItem *> rows = navigation->findItems(page, Qt::MatchExactly);
        require(rows.size() == 1, u"There is no page "_s + page);
        for (QListWidgetItem *row : rows)
            QTest::mouseClick(navigation->viewport(), Qt::LeftButton, {},
                              navigation->visualItemRect(row).center());
    }

    static void clickCell(QTableWidget *table, int row, const QString &header)
    {
        for (int column = 0; column < table->columnCount(); ++column) {
            if (!table->horizontalHeaderItem(column)->text().startsWith(header))
                continue;
            const QTableWidgetItem *cell = table->item(row, column);
            table->scrollToItem(cell);
            QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                              table->visualItemRect(cell).center());
            return;
        }
    }

    void picture(const QString &name)
    {
        QTest::qWait(100); // until the layouts have settled
        const QString path = QDir(folder).filePath(name);
        require(window.grab().save(path), u"Could not write "_s + path);
    }

    void showStartScreen()
    {
        require(find<QLabel>(u"startDatabaseValue"_s)->text() == "trips.db"_L1,
                u"No trips.db was found in this folder."_s);
        picture(u"1-start-screen.png"_s);
    }

    void showTrips()
    {
        goTo(u"Trips"_s);
        picture(u"2-trips.png"_s);
        auto *trips = find<QTableWidget>(u"tripList"_s);
        require(trips->rowCount() > 0, u"There are no trips to load."_s);
        clickCell(trips, 0, u"Trip #"_s);
        require(!find<QTextEdit>(u"tripDetails"_s)->toPlainText().isEmpty(),
                u"The trip shows no details."_s);
        picture(u"3-trip-loaded.png"_s);
    }

    void showPayweek()
    {
        clickCell(find<QTableWidget>(u"tripList"_s), 0, u"Payweek"_s);
        const QString report = find<QTextEdit>(u"payweekSummary"_s)->toPlainText();
        require(report.startsWith("Payweek: "_L1), u"The payweek has no report."_s);
        picture(u"4-view-payweek.png"_s);
        QTextStream(stdout) << report << Qt::endl;
    }

    void showTripOfPayweek()
    {
        auto *trips = find<QTableWidget>(u"payweekTrips"_s);
        require(trips->rowCount() > 0, u"The payweek has no trips."_s);
        const QString number = trips->item(0, 0)->text();
        clickCell(trips, 0, u"Trip #"_s);
        require(window.windowTitle().endsWith(number), u"The trip did not open."_s);
        picture(u"5-trip-of-payweek.png"_s);
    }

    // The settlement prints fuel after its discount, so the trip costs what it cost before.
    void showScan(const QString &namePattern, const QString &pictureName)
    {
        const QStringList files = settlements.entryList({namePattern}, QDir::Files);
        if (files.isEmpty()) {
            QTextStream(stdout) << "There are no sample settlements to scan here." << Qt::endl;
            return;
        }
        const QString file = files.constFirst();
        goTo(u"Trips"_s);
        const int row = rowOfPayweek(QDate::fromString(file.left(10), Qt::ISODate));
        require(row >= 0, u"There is no trip of the settlement "_s + file);
        if (row < 0)
            return;
        clickCell(find<QTableWidget>(u"tripList"_s), row, u"Trip #"_s);
        const QString costBefore = totalCost(row);
        DialogAnswers answers([this](const QString &failure) { require(false, failure); });
        answers.choose(settlements.filePath(file));
        answers.press(u"Existing Fuel Rows"_s, u"Yes"_s);
        answers.press(u"Fuel Rows Added"_s, u"OK"_s);
        answers.during([this] { click(u"fuelScanButton"_s); });
        scrollTo(u"fuelTotals"_s);
        picture(pictureName + ".png"_L1);
        click(u"fuelSaveButton"_s);
        click(u"saveTripButton"_s);
        require(totalCost(row) == costBefore,
                u"The scanned trip costs "_s + totalCost(row) + ", not "_L1 + costBefore);
        QTextStream(stdout) << "Scanned " << file << ": total cost " << totalCost(row) << Qt::endl;
        clickCell(find<QTableWidget>(u"tripList"_s), row, u"Payweek"_s);
        picture(pictureName + "-payweek.png"_L1);
        QTextStream(stdout) << find<QTextEdit>(u"payweekSummary"_s)->toPlainText() << Qt::endl;
    }

    void showLocations()
    {
        goTo(u"Locations"_s);
        auto *locations = find<QTableWidget>(u"locationTable"_s);
        require(locations->rowCount() > 0, u"There are no locations."_s);
        clickCell(locations, 0, u"Code"_s);
        picture(u"8-locations.png"_s);
    }

    void showSettlement()
    {
        goTo(u"Edit Settlement"_s);
        auto *items = find<QTableWidget>(u"settlementItems"_s);
        require(items->rowCount() > 0, u"The newest settlement has no items."_s);
        clickCell(items, 0, u"Name"_s);
        picture(u"9-edit-settlement.png"_s);
    }

    void showTotals()
    {
        goTo(u"Totals"_s);
        auto *totals = find<QTableWidget>(u"coreTotals"_s);
        require(totals->rowCount() > 0, u"There are no totals."_s);
        picture(u"10-totals.png"_s);
        dialogPicture(u"11-weekly-breakdown.png"_s, [=] { clickCell(totals, 4, u"Value"_s); });
        dialogPicture(u"12-fuel-breakdown.png"_s, [this] {
            auto *button = find<QPushButton>(u"fuelBreakdownButton"_s);
            find<QWidget>(u"payTotalsPage"_s)
                ->findChild<QScrollArea *>()
                ->ensureWidgetVisible(button);
            QTest::mouseClick(button, Qt::LeftButton);
        });
    }

    void showReports()
    {
        goTo(u"Reports"_s);
        auto *reports = find<QComboBox>(u"reportKind"_s);
        require(find<QTableWidget>(u"reportTable"_s)->columnCount() > 1,
                u"The report has no columns."_s);
        // A chart is as large as its view was when it was drawn.
        QTest::mouseClick(find<QPushButton>(u"refreshReportButton"_s), Qt::LeftButton);
        picture(u"13-report-as-lines.png"_s);
        reports->setCurrentText(u"Revenue vs Cost vs Net"_s);
        picture(u"14-report-as-bars.png"_s);
    }

    void showSettingsAndHistory()
    {
        goTo(u"Settings"_s);
        picture(u"15-settings.png"_s);
        DialogAnswers answers([this](const QString &failure) { require(false, failure); });
        answers.choose(QDir::current().filePath(u"trips_backup.db"_s));
        answers.press(u"Trips Database Exported"_s, u"OK"_s);
        answers.during([this] {
            QTest::mouseClick(find<QPushButton>(u"exportTripsButton"_s), Qt::LeftButton);
        });
        goTo(u"Database Activity History"_s);
        require(find<QTableWidget>(u"importHistoryGrid"_s)->rowCount() == 1,
                u"The history does not tell of the export."_s);
        picture(u"16-history.png"_s);
    }

    /// A picture of the dialog that `action` opens, which is closed then.
    void dialogPicture(const QString &name, const std::function<void()> &action)
    {
        bool shown = false;
        QTimer::singleShot(200, &window, [&, this] {
            if (QWidget *dialog = QApplication::activeModalWidget()) {
                shown = dialog->grab().save(QDir(folder).filePath(name));
                dialog->close();
            }
        });
        action();
        require(shown, u"No dialog came for "_s + name);
    }

    int rowOfPayweek(const QDate &date)
    {
        const auto *trips = find<QTableWidget>(u"tripList"_s);
        for (int row = 0; row < trips->rowCount(); ++row) {
            if (trips->item(row, PayweekColumn)->text() == date.toString(u"MM/dd/yyyy"_s))
                return row;
        }
        return -1;
    }

    QString totalCost(int row)
    {
        return find<QTableWidget>(u"tripList"_s)->item(row, TotalCostColumn)->text();
    }

    void scrollTo(const QString &widget)
    {
        find<QWidget>(u"tripsPage"_s)
            ->findChild<QScrollArea *>()
            ->ensureWidgetVisible(find<QWidget>(widget));
    }

    void click(const QString &button)
    {
        scrollTo(button);
        QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton);
    }

    BrindlepathApp window;
    QString folder;
    QDir settlements;
    bool complete = true;
};

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    setUpApplication();
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 2 || !QDir().mkpath(arguments.at(1))) {
        QTextStream(stderr) << "usage: tour FOLDER-FOR-PICTURES" << Qt::endl;
        return 2;
    }
    const QDir here = QDir::current();
    const QTemporaryDir copies; // a tour leaves no trace in the records it shows
    for (const QString &name : here.entryList({u"*.db"_s}, QDir::Files))
        QFile::copy(here.filePath(name), copies.filePath(name));
    QFile::link(here.filePath(u"tools"_s), copies.filePath(u"tools"_s));
    QDir::setCurrent(copies.path());
    return Tour(here.absoluteFilePath(arguments.at(1)), here.filePath(u"settlements"_s)).run() ? 0
                                                                                               : 1;
}
