#include "data/DatabaseLocator.h"

#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QTextStream(stdout) << DatabaseLocator::findDatabaseNearApplication(
        DatabaseLocator::tripsFileName);
    return 0;
}
