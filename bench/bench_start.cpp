// The start of the program, up to the first painted and settled window, and its peak memory,
// beside an empty Qt window. Each start is a process of its own. Run it in a folder with a sample.

#include "app/BrindlepathApp.h"
#include "bench/Floors.h"
#include "bench/Ratio.h"
#include "data/DatabaseLocator.h"
#include "data/DomainRules.h"
#include "data/SqlStatement.h"

#include <QApplication>
#include <QProcess>
#include <QTableWidget>
#include <QTest>
#include <QTextStream>

#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 11;
constexpr int weeksOfThreeYears = 159;

struct Start
{
    double milliseconds = 0.0;
    double megabytes = 0.0;
};

double peakMegabytes()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

// The child: shows its window, waits until nothing is left to do, and tells its peak memory.
int showAndTell(QWidget &window)
{
    window.resize(1280, 800);
    window.show();
    if (!QTest::qWaitForWindowExposed(&window))
        return 1;
    QApplication::processEvents();
    QTextStream(stdout) << peakMegabytes() << Qt::endl;
    return 0;
}

Start started(const QString &kind)
{
    QProcess child;
    Start start;
    start.milliseconds = millisecondsOf([&child, &kind] {
        child.start(QApplication::applicationFilePath(), {kind});
        child.waitForReadyRead();
    });
    start.megabytes = child.readLine().trimmed().toDouble();
    child.waitForFinished();
    return start;
}

QStringList payweeksNewestFirst(const QSqlDatabase &database)
{
    QStringList payweeks;
    QString error;
    SqlStatement(database, u"SELECT DISTINCT payweek FROM trips"_s)
        .forEachRow({}, error,
                    [&payweeks](const SqlStatement &row) { payweeks.append(row.text(0)); });
    DomainRules::sortPayweeksNewestFirst(payweeks);
    return payweeks;
}

// The floors of what a start loads: the trip list, the newest payweek, the start screen twice.
double floorsOfWhatIsLoaded(const QSqlDatabase &database, const QStringList &payweeks)
{
    const QString newest = payweeks.value(0);
    const QStringList earlier =
        payweeks.sliced(1).filter(QRegularExpression(newest.right(4) + u'$'));
    QTableWidget plain;
    QList<double> times;
    for (int round = 0; round < rounds; ++round) {
        times.append(millisecondsOf([&] {
            Floors::startScreen();
            Floors::tripList(database, plain);
            Floors::payweek(database, newest, earlier);
            Floors::startScreen();
        }));
    }
    return median(times);
}

void compare()
{
    QList<double> emptyTimes;
    QList<double> deskTimes;
    Start empty;
    Start desk;
    for (int round = 0; round < rounds; ++round) {
        empty = started(u"empty"_s);
        desk = started(u"desk"_s);
        emptyTimes.append(empty.milliseconds);
        deskTimes.append(desk.milliseconds);
    }
    const double emptyMs = median(emptyTimes);
    const double deskMs = median(deskTimes);
    QSqlDatabase database;
    QString error;
    DatabaseLocator::openNamedConnection(database, u"floor"_s, DatabaseLocator::tripsFileName,
                                         error);
    const QStringList payweeks = payweeksNewestFirst(database);
    print({u"Start, beside an empty window and the floors"_s, 1.3, deskMs,
           emptyMs + floorsOfWhatIsLoaded(database, payweeks)});
    if (payweeks.size() <= weeksOfThreeYears)
        print({u"Start, beside an empty window alone"_s, 4.0, deskMs, emptyMs});
    QTextStream(stdout) << u"Peak memory: %1 MB, empty window %2 MB, ratio %3 (limit 3)\n"_s
                               .arg(desk.megabytes, 0, 'f', 1)
                               .arg(empty.megabytes, 0, 'f', 1)
                               .arg(desk.megabytes / empty.megabytes, 0, 'f', 2);
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    const QString kind = QApplication::arguments().value(1);
    if (kind == "empty"_L1) {
        QMainWindow window;
        return showAndTell(window);
    }
    if (kind == "desk"_L1) {
        BrindlepathApp window;
        return showAndTell(window);
    }
    compare();
    return 0;
}
