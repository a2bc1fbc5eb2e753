#pragma once

#include "settlements/SettlementRepository.h"

#include <QList>
#include <QSqlDatabase>
#include <QStringList>

/// What a load of a payweek's items gave, with something in it that the load has to clear away.
struct Loaded
{
    QList<QStringList> rows = {{QStringLiteral("left over")}};
    double revenue = 1.0;
    double expense = 1.0;
    QString error = QStringLiteral("left over");
    bool ok = false;
};

/// Loads the items of a payweek.
inline Loaded loaded(const QSqlDatabase &database, const QString &payweek)
{
    Loaded result;
    result.ok = SettlementRepository::loadSettlementItems(
        database, payweek, result.rows, result.revenue, result.expense, result.error);
    return result;
}
