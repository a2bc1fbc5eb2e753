// What the pages do on a click, each beside its floor. Run it in a folder with the 20-year sample.

#include "app/BrindlepathApp.h"
#include "bench/Floors.h"
#include "bench/Ratio.h"
#include "bench/ShownPage.h"
#include "settlements/ViewPayweekPage.h"

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QSqlDatabase>
#include <QTableWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The payweeks of a year, the last one first, as the box lists them.
QStringList payweeksOfYear(const QComboBox &box, const QString &year)
{
    QStringList payweeks;
    for (int i = 0; i < box.count(); ++i) {
        if (box.itemText(i).endsWith(year))
            payweeks.append(box.itemText(i));
    }
    return payweeks;
}

void benchTripList(const BrindlepathApp &window)
{
    auto *refresh = window.findChild<QPushButton *>(u"refreshTripsButton"_s);
    const QSqlDatabase database = QSqlDatabase::database(u"trips_connection"_s);
    QTableWidget plain;
    plain.resize(1280, 400);
    plain.show();
    print(measured(
        u"Reload of the trip list"_s, 1.3, 15, [refresh] { refresh->click(); },
        [&plain, &database] { Floors::tripList(database, plain); }));
}

void benchPayweek(const BrindlepathApp &window, qsizetype weeksWalked)
{
    auto *page = window.findChild<ViewPayweekPage *>();
    const QSqlDatabase database = QSqlDatabase::database(u"view_payweek_trips_connection"_s);
    const QStringList year =
        payweeksOfYear(*page->findChild<QComboBox *>(u"payweekBox"_s), u"2025"_s);
    const qsizetype from = std::max<qsizetype>(0, year.size() - 1 - weeksWalked);
    const QString payweek = year.at(from);
    const QStringList earlier = year.sliced(from + 1);
    print(measured(
        u"Payweek %1, %2 weeks walked"_s.arg(payweek).arg(earlier.size()), 2.0, 9,
        [page, payweek] { page->showPayweek(payweek); },
        [&] { Floors::payweek(database, payweek, earlier); }));
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    BrindlepathApp window;
    show(window);
    printHeader();
    benchTripList(window);
    for (const qsizetype weeks : {13, 26, 51})
        benchPayweek(window, weeks);
    print(measured(
        u"Refresh of the start screen"_s, 2.0, 25, [&window] { window.refreshStartScreen(); },
        [] { Floors::startScreen(); }));
    return 0;
}
