#include "settlements/SettlementRepository.h"

#include "data/DatabaseLocator.h"
#include "data/DomainRules.h"
#include "data/MoneyText.h"
#include "data/SqlStatement.h"

#include <QDate>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace SettlementRepository {

namespace {

constexpr auto selectTripPayweeks = R"(
SELECT DISTINCT TRIM(COALESCE(payweek,'')) AS pw
FROM trips
WHERE TRIM(COALESCE(payweek,'')) <> '')"_L1;

constexpr auto selectItemPayweeks = R"(
SELECT DISTINCT TRIM(COALESCE(settlement_date,'')) AS pw
FROM settlement_non_trip_items
WHERE TRIM(COALESCE(settlement_date,'')) <> '')"_L1;

constexpr auto selectItems = R"(
SELECT id, settlement_date, kind, name, amount
FROM settlement_non_trip_items
WHERE settlement_date = ?
ORDER BY kind ASC, id ASC)"_L1;

constexpr auto insertItem = R"(
INSERT INTO settlement_non_trip_items (settlement_date, kind, name, amount)
VALUES (?, ?, ?, ?))"_L1;

constexpr auto updateItem = R"(
UPDATE settlement_non_trip_items
SET kind = ?, name = ?, amount = ?
WHERE id = ?)"_L1;

constexpr auto deleteItem = R"(
DELETE FROM settlement_non_trip_items
WHERE id = ?)"_L1;

constexpr auto selectNames = R"(
SELECT DISTINCT TRIM(COALESCE(settlement_date,'')), TRIM(COALESCE(name,''))
FROM settlement_non_trip_items
WHERE TRIM(COALESCE(name,'')) <> ''
ORDER BY TRIM(COALESCE(name,'')) COLLATE NOCASE ASC)"_L1;

constexpr auto selectApr = R"(
SELECT CAST(COALESCE(apr,0) AS REAL)
FROM settlement_meta
WHERE TRIM(COALESCE(settlement_date,'')) = ?
LIMIT 1)"_L1;

constexpr auto updateApr = R"(
UPDATE settlement_meta
SET apr = ?
WHERE TRIM(COALESCE(settlement_date,'')) = ?)"_L1;

constexpr auto insertApr = R"(
INSERT INTO settlement_meta (settlement_date, apr)
VALUES (?, ?))"_L1;

enum ItemColumn { IdColumn, PayweekColumn, KindColumn, NameColumn, AmountColumn };

bool fail(const QString &reason, QString &error)
{
    error = reason;
    return false;
}

QString normalizedKind(const QString &kind)
{
    return kind.trimmed().toLower();
}

bool requireKind(const QString &kind, QString &error)
{
    return kind == "revenue"_L1 || kind == "expense"_L1
           || fail(u"Kind must be revenue or expense."_s, error);
}

bool requireName(const QString &name, QString &error)
{
    return !name.isEmpty() || fail(u"Name cannot be blank."_s, error);
}

bool requirePayweek(const QString &payweek, QString &error)
{
    return !payweek.isEmpty() || fail(u"Settlement / payweek is required."_s, error);
}

bool appendPayweeks(const QSqlDatabase &database, const QString &sql, QStringList &payweeks,
                    QSet<QString> &seen, QString &error)
{
    return SqlStatement(database, sql).forEachRow({}, error, [&](const SqlStatement &row) {
        const QString payweek = row.text(0).trimmed();
        if (payweek.isEmpty() || seen.contains(payweek))
            return;
        seen.insert(payweek);
        payweeks.append(payweek);
    });
}

struct DatedPayweek
{
    QString payweek;
    QDate date = DomainRules::parseSettlementDate(payweek);
};

bool isLater(const DatedPayweek &a, const DatedPayweek &b)
{
    return a.date.isValid() && b.date.isValid() ? a.date > b.date : a.payweek > b.payweek;
}

// Dates and other texts together have no order that holds for every three of them, which
// std::sort() would take badly; a merge is at ease with any comparison.
void sortNewestFirst(QStringList &payweeks)
{
    QList<DatedPayweek> dated;
    for (const QString &payweek : std::as_const(payweeks))
        dated.append({payweek});
    std::stable_sort(dated.begin(), dated.end(), isLater);
    std::transform(dated.cbegin(), dated.cend(), payweeks.begin(),
                   [](const DatedPayweek &key) { return key.payweek; });
}

QStringList itemTexts(const SqlStatement &row)
{
    return {row.text(IdColumn), row.text(PayweekColumn), row.text(KindColumn), row.text(NameColumn),
            number2Text(row.number(AmountColumn))};
}

} // namespace

bool listSettlementPayweeks(const QSqlDatabase &database, QStringList &payweeks, QString &error)
{
    payweeks.clear();
    QSet<QString> seen;
    if (!DatabaseLocator::isTripsDatabaseOpen(database, error)
        || !appendPayweeks(database, selectTripPayweeks, payweeks, seen, error)
        || !appendPayweeks(database, selectItemPayweeks, payweeks, seen, error))
        return false;
    sortNewestFirst(payweeks);
    return true;
}

bool loadSettlementItems(const QSqlDatabase &database, const QString &payweek,
                         QList<QStringList> &rows, double &revenueTotal, double &expenseTotal,
                         QString &error)
{
    rows.clear();
    revenueTotal = 0.0;
    expenseTotal = 0.0;
    if (!DatabaseLocator::isTripsDatabaseOpen(database, error))
        return false;
    const QString key = payweek.trimmed();
    if (key.isEmpty())
        return true;
    SqlStatement select(database, selectItems);
    return select.forEachRow({key}, error, [&](const SqlStatement &row) {
        rows.append(itemTexts(row));
        const QString kind = normalizedKind(row.text(KindColumn));
        if (kind == "revenue"_L1)
            revenueTotal += row.number(AmountColumn);
        else if (kind == "expense"_L1)
            expenseTotal += row.number(AmountColumn);
    });
}

bool addSettlementItem(const QSqlDatabase &database, const QString &payweek, const QString &kind,
                       const QString &name, double dollars, QString &error)
{
    const QString key = payweek.trimmed();
    const QString itemKind = normalizedKind(kind);
    const QString itemName = name.trimmed();
    return DatabaseLocator::isTripsDatabaseOpen(database, error) && requirePayweek(key, error)
           && requireKind(itemKind, error) && requireName(itemName, error)
           && runSql(database, insertItem, {key, itemKind, itemName, dollars}, error);
}

bool updateSettlementItem(const QSqlDatabase &database, int id, const QString &kind,
                          const QString &name, double dollars, QString &error)
{
    const QString itemKind = normalizedKind(kind);
    const QString itemName = name.trimmed();
    if (!DatabaseLocator::isTripsDatabaseOpen(database, error))
        return false;
    if (id < 1)
        return fail(u"Select a settlement item first."_s, error);
    if (!requireKind(itemKind, error) || !requireName(itemName, error))
        return false;
    SqlStatement update(database, updateItem);
    if (!update.run({itemKind, itemName, dollars, id}, error))
        return false;
    return update.rowsAffected() > 0
           || fail(u"No settlement item was updated. It may have already been deleted."_s, error);
}

bool deleteSettlementItem(const QSqlDatabase &database, int id, QString &error)
{
    if (!DatabaseLocator::isTripsDatabaseOpen(database, error))
        return false;
    SqlStatement deletion(database, deleteItem);
    if (!deletion.run({id}, error))
        return false;
    return deletion.rowsAffected() > 0
           || fail(u"No settlement item was deleted. It may have already been deleted."_s, error);
}

bool listSettlementItemNames(const QSqlDatabase &database, int year, QStringList &names,
                             QString &error)
{
    names.clear();
    if (!DatabaseLocator::isTripsDatabaseOpen(database, error))
        return false;
    if (year <= 0)
        return true;
    QSet<QString> seen;
    SqlStatement select(database, selectNames);
    return select.forEachRow({}, error, [&](const SqlStatement &row) {
        const QString name = row.text(1).trimmed();
        const QDate date = DomainRules::parseSettlementDate(row.text(0));
        if (name.isEmpty() || !date.isValid() || date.year() != year
            || seen.contains(name.toLower()))
            return;
        seen.insert(name.toLower());
        names.append(name);
    });
}

bool loadSettlementApr(const QSqlDatabase &database, const QString &payweek, double &apr,
                       QString &error)
{
    apr = 0.0;
    if (!DatabaseLocator::isTripsDatabaseOpen(database, error))
        return false;
    const QString key = payweek.trimmed();
    if (key.isEmpty())
        return true;
    QVariant value;
    if (!SqlStatement(database, selectApr).firstValue({key}, value, error))
        return false;
    apr = value.toDouble();
    return true;
}

bool saveSettlementApr(const QSqlDatabase &database, const QString &payweek, double apr,
                       QString &error)
{
    const QString key = payweek.trimmed();
    if (!DatabaseLocator::isTripsDatabaseOpen(database, error) || !requirePayweek(key, error))
        return false;
    SqlStatement update(database, updateApr);
    if (!update.run({apr, key}, error))
        return false;
    return update.rowsAffected() > 0 || runSql(database, insertApr, {key, apr}, error);
}

} // namespace SettlementRepository
