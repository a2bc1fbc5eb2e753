#include "data/DatabaseLocator.h"
#include "pdfimport/history/ImportHistoryRepository.h"
#include "settings/DatabaseFiles.h"

#include <QCoreApplication>
#include <QSqlDatabase>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace DatabaseLocator;

namespace {

bool exportTo(const QString &target, QString &error)
{
    return DatabaseFiles::copyDatabaseFile(currentTripsDatabasePath(), target, error);
}

bool importFrom(const QString &source, QString &error)
{
    const QString target = findDatabaseOrDefaultPath(tripsFileName);
    closeAllSqliteConnections();
    return DatabaseFiles::replaceDatabaseFile(source, target, error);
}

} // namespace

// Exports the trips.db of its working directory to a file ("Export" and its path), or imports one
// ("Import"), with all that the Settings page does once a person has chosen the file. A page has
// the trips open.
int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QString action = application.arguments().at(1);
    const QString file = application.arguments().at(2);
    QSqlDatabase page;
    QString error;
    openNamedConnection(page, u"trips_connection"_s, tripsFileName, error);
    if (action == "Export"_L1 ? !exportTo(file, error) : !importFrom(file, error)) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 1;
    }
    ImportHistoryRepository::logDatabaseActivity(action, tripsFileName, file, error);
    releaseNamedConnection(page, u"trips_connection"_s);
    return 0;
}
