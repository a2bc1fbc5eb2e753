// Prints the report of a payweek of a trips.db, without a window.

#include "data/OneCallConnection.h"
#include "settlements/PayweekReport.h"
#include "settlements/PayweekRepository.h"

#include <QCoreApplication>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

bool printReport(const QString &path, const QString &payweek, QString &error)
{
    const OneCallConnection trips(u"payweek_report"_s, path, error);
    PayweekRepository::Payweek read;
    PayweekRepository::Reading reading = {};
    if (!trips.isOpen()
        || !PayweekRepository::loadPayweek(trips.database(), payweek, read, reading, error))
        return false;
    QTextStream(stdout) << payweekReport(read.figures);
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    QString error;
    if (printReport(arguments.value(1), arguments.value(2), error))
        return 0;
    QTextStream(stderr) << error << Qt::endl;
    return 1;
}
