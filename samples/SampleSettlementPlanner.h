#pragma once

#include "samples/SampleDraw.h"
#include "samples/SampleRecords.h"

/// Plans what a settlement holds beside the trips: fixed costs, repairs, bonuses, and the three
/// funds, which are paid into every week and never drawn below zero within a year.
class SampleSettlementPlanner
{
public:
    explicit SampleSettlementPlanner(SampleDraw &sharedDraw);

    /// The items of the next week; call it week by week. A breakdown costs more than a week earns.
    QList<SampleSettlementItem> planWeek(const QDate &payweek, bool brokenDown);

private:
    struct Fund
    {
        QString name;
        double weekly = 0.0;
        double balance = 0.0;
    };

    void startYear(int newYear);
    void payIn(Fund &fund);
    void withdraw(Fund &fund, double amount);
    void payFixedCosts();
    void serviceTruck();
    void repairBreakdown();
    void replaceTires();
    void settleYear(const QDate &payweek);
    void addBonuses(const QDate &payweek);
    void add(const QString &kind, const QString &name, double amount);

    SampleDraw &draw;
    int year = 0;
    Fund emergency;
    Fund tires;
    Fund bond;
    QList<SampleSettlementItem> items;
};
