// Shows the real window on the databases of the current directory, goes through its pages as a
// person would, saves a picture of each, and prints the payweek report. The exit status tells
// whether every page had something to show.

#include "app/ApplicationSetup.h"
#include "app/BrindlepathApp.h"

#include <QApplication>
#include <QDir>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QTableWidget>
#include <QTest>
#include <QTextEdit>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize windowSize(1280, 800);

class Tour
{
public:
    explicit Tour(const QString &pictureFolder)
        : folder(pictureFolder)
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

    BrindlepathApp window;
    QString folder;
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
    return Tour(arguments.at(1)).run() ? 0 : 1;
}
