#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// The words that a row under review says where it came from, and where it goes to, with.
namespace FuelReviewWords {

inline const QString deductionFuel = QStringLiteral("Deduction Fuel");
inline const QString manualFuel = QStringLiteral("Manual Fuel");
inline const QString fuelDetail = QStringLiteral("fuel_detail");

} // namespace FuelReviewWords

/// One fuel or DEF row of a settlement, as read or as typed: dollars and gallons. It is a
/// candidate for a person to review, not a fact.
struct FuelReviewRow
{
    /// Its identity within one parse result; 0 before it has one.
    qint32 id = 0;
    /// Whether it takes part in the import.
    bool enabled = true;
    /// Where it came from.
    QString dataset;
    /// The first number of 5 to 9 digits on the line; empty if there is none.
    QString tripNo;
    /// "Truck Fuel", "Reefer Fuel" or "Def".
    QString description;
    QString route;
    double amount = 0.0;
    double cost = 0.0;
    /// As found, which is below zero.
    double discount = 0.0;
    double gallons = 0.0;
    /// The line that it was read from.
    QString sourceLine;
};

/// What one settlement gave.
struct SettlementParseResult
{
    QString pdfPath;
    QString truckNumber;
    /// In the form MM/DD/YYYY; empty if none was found.
    QString payweek;
    QString rawText;
    QStringList pageTexts;
    QStringList logLines;
    QList<FuelReviewRow> rows;
    qint32 nextRowId = 1;

    /// Stores a copy of the row and gives its identity: the row's own, or the next free one if the
    /// row has none (below 1). The identity of a deleted row is not used again.
    qint32 addRow(const FuelReviewRow &row);

    /// Empties all of it and counts identities from 1 again.
    void clear();
};

/// Finds the fuel and DEF charges in the text of a settlement, by plain tests on each line.
/// Everything else on the settlement is passed over. It cannot fail: what is not found stays empty
/// or 0.
namespace SettlementParser {

/// The truck, the payweek and every fuel or DEF line, in the order of the text.
SettlementParseResult parse(const QString &pdfPath, const QString &rawText,
                            const QStringList &pageTexts);

/// Only the fuel and DEF lines of one trip. A blank number finds nothing.
QList<FuelReviewRow> scanTripFuelRows(const QString &tripNumber, const QString &rawText);

} // namespace SettlementParser
