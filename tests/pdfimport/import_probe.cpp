#include "pdfimport/ImportRepository.h"
#include "pdfimport/ReviewedSettlement.h"

#include <QCoreApplication>

// Imports 60 rows into the trips.db in its working directory.
int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const SettlementParseResult settlement = reviewed(QList<FuelReviewRow>(60, truckFuelRow()));
    return ImportRepository::applyImport(settlement).success ? 0 : 1;
}
