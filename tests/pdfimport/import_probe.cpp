#include "pdfimport/ImportRepository.h"
#include "pdfimport/ReviewedSettlement.h"

#include <QCoreApplication>
#include <QSqlDatabase>

#include <cstdio>

// Imports 60 rows into the trips.db in its working directory as soon as a byte comes, so that
// whoever means to interrupt it need not wait for it to start.
int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const SettlementParseResult settlement = reviewed(QList<FuelReviewRow>(60, truckFuelRow()));
    // Reads the driver, which is half of the first connection's time.
    QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("ahead of time"));
    QSqlDatabase::removeDatabase(QStringLiteral("ahead of time"));
    std::putchar('r');
    std::fflush(stdout);
    std::getchar();
    return ImportRepository::applyImport(settlement).success ? 0 : 1;
}
