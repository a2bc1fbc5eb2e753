#pragma once

#include "data/SqlStatement.h"

#include <QList>

/// The movements of the two funds that earn interest, read once for a walk through a year: asking
/// the file for the balance of each week anew would compute the date of every row each time.
class FundLedger
{
public:
    struct Balance
    {
        double emergencyFund = 0.0;
        double performanceBond = 0.0;
    };

    /// Reads the rows of `year`, or of all years if it is 0 or less. A failed statement leaves the
    /// ledger empty.
    FundLedger(const QSqlDatabase &database, int year);

    /// The balances from the start of `payweekYear` (of the file if that is 0 or less) through the
    /// payweek, in dollars, not rounded. Zero for a payweek whose digits do not stand where
    /// MM/DD/YYYY has them; a row written so is in no balance either.
    Balance through(const QString &payweek, int payweekYear);

private:
    struct Movement
    {
        int year = 0;
        QString date;
        double emergencyFund = 0.0;
        double performanceBond = 0.0;
    };

    QList<Movement> movements;
    SqlStatement dateOfPayweek;
};
