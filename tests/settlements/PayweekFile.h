#pragma once

#include "settlements/PayweekRepository.h"
#include "settlements/PayweekRows.h"
#include "support/TestConnection.h"

using FundLoader = bool (*)(const QSqlDatabase &, const PayweekRepository::PayweekKey &,
                            PayweekFundSummary &, QString &);

inline const QList<FundLoader> fundLoaders = {PayweekRepository::loadEmergencyFundSummary,
                                              PayweekRepository::loadTireFundSummary,
                                              PayweekRepository::loadPerformanceBondSummary};

inline const QString week = QStringLiteral("01/02/2026");

/// What a call that fails has to clear away.
inline PayweekFundSummary filledFund()
{
    return {.added = 1.0, .withdrawn = 2.0, .netChange = 3.0, .balanceThroughPayweek = 4.0};
}

// The figures of a record in its own order, and the count last.

inline QList<double> figuresOf(const PayweekFundSummary &fund)
{
    return {fund.added, fund.withdrawn, fund.netChange, fund.balanceThroughPayweek};
}

inline QList<double> figuresOf(const PayweekTripTotals &trips)
{
    return {trips.miles, trips.revenue, trips.cost, trips.net, double(trips.tripCount)};
}

inline QList<double> figuresOf(const PayweekSettlementTotals &items)
{
    return {items.revenue, items.expense, double(items.itemCount)};
}

inline QList<double> figuresOf(const PayweekFuelAnalytics &fuel)
{
    return {fuel.truckFuelNetCost,
            fuel.reeferFuelNetCost,
            fuel.defNetCost,
            fuel.totalCostBeforeDiscount,
            fuel.totalDiscounts,
            fuel.netCost,
            fuel.totalGallons,
            fuel.averageNetPricePerGallon,
            double(fuel.detailRowCount)};
}

/// An empty trips.db, and the operations on it that must go well.
class Payweeks
{
public:
    [[nodiscard]] QStringList listed() const
    {
        QStringList keys = {QStringLiteral("left over")};
        const bool read = PayweekRepository::listPayweeks(trips.database(), keys, error);
        expectSuccess(read);
        return keys;
    }

    [[nodiscard]] PayweekFundSummary fund(FundLoader load, const QString &payweek = week) const
    {
        PayweekFundSummary summary = filledFund();
        const bool read = load(trips.database(), payweek, summary, error);
        expectSuccess(read);
        return summary;
    }

    [[nodiscard]] PayweekTripTotals tripTotals(const QString &payweek = week) const
    {
        QList<QStringList> rows;
        PayweekTripTotals totals;
        const bool read =
            PayweekRepository::loadPayweekTrips(trips.database(), payweek, rows, totals, error);
        expectSuccess(read);
        return totals;
    }

    [[nodiscard]] PayweekSettlementTotals itemTotals(const QString &payweek = week) const
    {
        QList<QStringList> rows;
        PayweekSettlementTotals totals;
        const bool read = PayweekRepository::loadPayweekSettlementItems(trips.database(), payweek,
                                                                        rows, totals, error);
        expectSuccess(read);
        return totals;
    }

    [[nodiscard]] PayweekFuelAnalytics fuelOf(const QString &payweek = week) const
    {
        PayweekFuelAnalytics analytics;
        analytics.netCost = 77.0;
        const bool read = PayweekRepository::loadPayweekFuelAnalytics(trips.database(), payweek,
                                                                      analytics, error);
        expectSuccess(read);
        return analytics;
    }

    Workspace workspace;
    TestConnection trips = TestConnection(workspace.makeTrips());
    mutable QString error = QStringLiteral("left over");

private:
    void expectSuccess(bool read) const
    {
        if (!read || !error.isEmpty())
            QTest::qFail(qPrintable(QStringLiteral("Not read: ") + error), __FILE__, __LINE__);
    }
};
