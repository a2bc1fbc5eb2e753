#pragma once

#include "pdfimport/SettlementParser.h"

/// A fuel stop as the parser finds it, in dollars and gallons.
inline FuelReviewRow truckFuelRow(const QString &tripNo = QStringLiteral("4471203"))
{
    FuelReviewRow row;
    row.dataset = FuelReviewWords::deductionFuel;
    row.tripNo = tripNo;
    row.description = QStringLiteral("Truck Fuel");
    row.route = FuelReviewWords::fuelDetail;
    row.amount = 412.80;
    row.cost = 448.30;
    row.discount = -35.50;
    row.gallons = 118.276;
    row.sourceLine = tripNo + QStringLiteral(" DEDUCTION FUEL 412.80");
    return row;
}

/// The exhaust fluid of the same stop.
inline FuelReviewRow defRow(const QString &tripNo = QStringLiteral("4471203"))
{
    FuelReviewRow row = truckFuelRow(tripNo);
    row.description = QStringLiteral("Def");
    row.amount = 21.35;
    row.cost = 23.10;
    row.discount = -1.75;
    row.gallons = 5.25;
    row.sourceLine = tripNo + QStringLiteral(" DEDUCTION DEF 21.35");
    return row;
}

inline FuelReviewRow switchedOff(FuelReviewRow row)
{
    row.enabled = false;
    return row;
}

inline FuelReviewRow routedTo(const QString &route, FuelReviewRow row)
{
    row.route = route;
    return row;
}

inline FuelReviewRow describedAs(const QString &description, FuelReviewRow row)
{
    row.description = description;
    return row;
}

/// A settlement as it stands when its review is done.
inline SettlementParseResult reviewed(const QList<FuelReviewRow> &rows = {truckFuelRow()})
{
    SettlementParseResult settlement;
    settlement.pdfPath = QStringLiteral("/home/driver/pay/week16.pdf");
    settlement.truckNumber = QStringLiteral("512");
    settlement.payweek = QStringLiteral("04/18/2026");
    settlement.rawText = QStringLiteral("TRUCK 512 SETTLEMENT DATE 26/04/18\n"
                                        "4471203 DEDUCTION FUEL 412.80");
    for (const FuelReviewRow &row : rows)
        settlement.addRow(row);
    return settlement;
}
