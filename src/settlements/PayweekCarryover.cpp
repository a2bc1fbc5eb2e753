// The walk through the earlier payweeks of a year.

#include "data/DatabaseLocator.h"
#include "settlements/CarryoverRules.h"
#include "settlements/FundLedger.h"
#include "settlements/PayweekReaders.h"
#include "settlements/PayweekRepository.h"

using namespace Qt::StringLiterals;

namespace PayweekRepository {

namespace {

int yearOf(const PayweekKey &payweek)
{
    const QDate date = DomainRules::parsePayweekDate(payweek);
    return date.isValid() ? date.year() : 0;
}

/// Walks the payweeks of a year, the oldest first, with each statement prepared once.
class CarryoverWalk
{
public:
    CarryoverWalk(const QSqlDatabase &database, int year)
        : trips(database)
        , items(database)
        , funds(database)
        , apr(database)
        , ledger(database, year)
    {
    }

    /// The result of a week, interest included. What cannot be read counts as far as it was.
    double weekResult(const PayweekKey &payweek)
    {
        QString ignored;
        PayweekTripTotals tripTotals;
        PayweekSettlementTotals itemTotals;
        trips.load(payweek, nullptr, tripTotals, ignored);
        items.load(payweek, nullptr, itemTotals, ignored);

        PayweekFundSummary emergencyFund;
        PayweekFundSummary performanceBond;
        // As in a fund's summary, a week whose own movements cannot be read has no balance either.
        if (funds.load(
                payweek,
                {{emergencyFundRules, &emergencyFund}, {performanceBondRules, &performanceBond}},
                ignored)) {
            const FundLedger::Balance balance = ledger.through(payweek, yearOf(payweek));
            emergencyFund.balanceThroughPayweek = balance.emergencyFund;
            performanceBond.balanceThroughPayweek = balance.performanceBond;
        }

        const double base = CarryoverRules::fundBase(emergencyFund, performanceBond).interestBase;
        return CarryoverRules::basicSummary(tripTotals, itemTotals).net
               + CarryoverRules::interest(base, apr.load(payweek));
    }

private:
    PayweekTripsReader trips;
    PayweekItemsReader items;
    PayweekFundReader funds;
    PayweekAprReader apr;
    FundLedger ledger;
};

// The payweeks of the year in their order; the selected one is always among them.
QStringList payweeksToWalk(const QStringList &keys, const PayweekKey &payweek, int year)
{
    QStringList walked;
    for (const QString &key : keys) {
        if (year <= 0 || yearOf(key) == year)
            walked.append(key);
    }
    if (!walked.contains(payweek))
        walked.append(payweek);
    DomainRules::sortPayweeksOldestFirst(walked);
    return walked;
}

double carryoverBefore(const QSqlDatabase &database, const PayweekKey &payweek, int year,
                       const QStringList &keys)
{
    const QStringList walked = payweeksToWalk(keys, payweek, year);
    if (walked.constFirst() == payweek)
        return 0.0;
    CarryoverWalk walk(database, year);
    double carryover = 0.0;
    for (const QString &key : walked) {
        if (key == payweek)
            break;
        carryover = CarryoverRules::carriedOn(carryover, walk.weekResult(key));
    }
    return carryover;
}

} // namespace

bool loadPayweekCarryover(const QSqlDatabase &database, const PayweekKey &payweek,
                          const PayweekBasicSummary &basicSummary,
                          const PayweekFundSummary &emergencyFund,
                          const PayweekFundSummary &performanceBond,
                          PayweekCarryoverSummary &result, QString &error)
{
    result = {};
    const PayweekKey key = payweek.trimmed();
    if (!DatabaseLocator::isTripsDatabaseOpen(database, error))
        return false;
    if (key.isEmpty()) {
        error = u"Payweek is blank."_s;
        return false;
    }

    result.settlementYear = yearOf(key);
    result.apr = loadPayweekApr(database, key);
    QStringList keys;
    if (!listCarryoverPayweeks(database, keys, error))
        return false;
    result.previousCarryover = carryoverBefore(database, key, result.settlementYear, keys);

    const CarryoverRules::FundBase funds = CarryoverRules::fundBase(emergencyFund, performanceBond);
    result.fundChange = funds.change;
    result.previousFundBalance = funds.previousBalance;
    result.interestBaseBalance = funds.interestBase;
    result.currentYearFundBalance = funds.total;
    result.interestThisPayweek = CarryoverRules::interest(funds.interestBase, result.apr);
    result.settlementTotalBeforeInterest = basicSummary.net;
    result.settlementTotalAfterInterest = result.interestThisPayweek + basicSummary.net;
    result.netAfterInterest = result.settlementTotalAfterInterest;
    result.adjustedNetAfterCarryover =
        result.previousCarryover + result.settlementTotalAfterInterest;
    result.carryoverForward =
        CarryoverRules::carriedOn(result.previousCarryover, result.settlementTotalAfterInterest);
    return true;
}

} // namespace PayweekRepository
