// Prints the report of a payweek of a trips.db, without a window.

#include "data/OneCallConnection.h"
#include "settlements/PayweekReport.h"
#include "settlements/PayweekRepository.h"

#include <QCoreApplication>
#include <QTextStream>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    QString error;
    const OneCallConnection trips(u"payweek_report"_s, arguments.value(1), error);
    PayweekRepository::Payweek payweek;
    PayweekRepository::Reading reading = {};
    if (!trips.isOpen()
        || !PayweekRepository::loadPayweek(trips.database(), arguments.value(2), payweek, reading,
                                           error)) {
        QTextStream(stderr) << error << Qt::endl;
        return 1;
    }
    QTextStream(stdout) << payweekReport(payweek.figures);
    return 0;
}
