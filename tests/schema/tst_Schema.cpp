#include "data/DatabaseLocator.h"
#include "data/OneCallConnection.h"
#include "data/SqlStatement.h"
#include "schema/IndexedStatements.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

void fillWithStatements()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("searches");
    for (const auto &[what, sql, searches] : indexedStatements)
        QTest::newRow(what) << QString::fromLatin1(sql) << QString::fromLatin1(searches);
}

/// As many values as the statement wants; which ones does not matter.
QVariantList anyValues(const QString &sql)
{
    return QVariantList(sql.count(u'?'), QString());
}

constexpr int planStepColumn = 3;

/// What SQLite says it will do, one line a step.
QStringList plan(const Workspace &workspace, const QString &sql)
{
    QStringList steps;
    for (const QStringList &row : workspace.rows(u"EXPLAIN QUERY PLAN "_s + sql, anyValues(sql)))
        steps.append(row.at(planStepColumn));
    return steps;
}

/// The searches in a plan as "table index".
QStringList indexSearches(const QStringList &plan)
{
    static const QRegularExpression search(u"^SEARCH (\\w+) USING (?:COVERING )?INDEX (\\w+)"_s);
    QStringList found;
    for (const QString &step : plan) {
        const QRegularExpressionMatch match = search.match(step);
        if (match.hasMatch())
            found.append(match.captured(1) + u' ' + match.captured(2));
    }
    return found;
}

bool readsWholeTable(const QStringList &plan)
{
    return !plan.filter(QRegularExpression(u"^SCAN "_s)).isEmpty();
}

QStringList indexNames(const Workspace &workspace)
{
    QStringList names;
    const QString sql =
        u"SELECT name FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL"_s;
    for (const QStringList &row : workspace.rows(sql))
        names.append(row.first());
    return names;
}

const QString columnsOfTable = uR"(
    SELECT COALESCE(GROUP_CONCAT(TRIM(name || ' ' || type || CASE WHEN "notnull" THEN ' NOT NULL'
        ELSE '' END || CASE WHEN dflt_value IS NULL THEN '' ELSE ' DEFAULT ' || dflt_value END),
        ', '), '')
    FROM pragma_table_info(?))"_s;

/// Runs `sql` on locations.db and gives its first value.
QVariant onLocations(const QString &sql, const QVariantList &values = {})
{
    QString error;
    const OneCallConnection connection(u"schema_test"_s,
                                       DatabaseLocator::openLocationsDatabaseConnection, error);
    QVariant value;
    if (error.isEmpty())
        SqlStatement(connection.database(), sql).firstValue(values, value, error);
    if (!error.isEmpty())
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    return value;
}

} // namespace

class tst_Schema : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyTableHasItsColumns_data();
    void everyTableHasItsColumns();
    void tripsFileHoldsNothingElse();
    void locationsHaveTheirColumns();
    void idsOfPurchasesAndImportsAreNeverUsedAgain();
    void savingALocationTwiceOverwritesIt();
    void aNewLocationNeedsOnlyItsCode();
    void aLocationIsFoundByItsCode();
    void statementFindsItsRowsByAnIndex_data() { fillWithStatements(); }
    void statementFindsItsRowsByAnIndex();
    void statementStillWorksInAFileWithoutIndexes_data() { fillWithStatements(); }
    void statementStillWorksInAFileWithoutIndexes();
    void listsOfWeeksAndYearsReadAnIndexInOrder_data();
    void listsOfWeeksAndYearsReadAnIndexInOrder();
    void everyIndexServesAStatement();

private:
    QTemporaryDir oldFiles;
};

// Dropping the indexes one by one takes its time, so the file without them is made once.
void tst_Schema::initTestCase()
{
    Workspace workspace;
    const QString path = workspace.makeTrips();
    for (const QString &name : indexNames(workspace))
        workspace.execute(u"DROP INDEX "_s + name);
    QVERIFY(QFile::copy(path, oldFiles.filePath(u"trips.db"_s)));
}

void tst_Schema::everyTableHasItsColumns_data()
{
    QTest::addColumn<QString>("columns");
    QTest::newRow("trips") << u"id INTEGER, trip_no TEXT, payweek TEXT, empty_miles REAL, "
                              "loaded_miles REAL, total_miles REAL, linehaul REAL, fusu REAL, "
                              "carrier_pct REAL, carrier_make REAL, total_revenue REAL, "
                              "total_cost REAL, net_revenue REAL, cpm REAL, trip_hours REAL, "
                              "net_per_hour REAL, created_at TEXT"_s;
    QTest::newRow("trip_stops")
        << u"id INTEGER, trip_id INTEGER, stop_type TEXT, location_code TEXT, appt TEXT, "
           "stop_order INTEGER, has_appointment_window INTEGER NOT NULL DEFAULT 0, "
           "appt_latest TEXT NOT NULL DEFAULT ''"_s;
    const QString tripItem = u"id INTEGER, trip_id INTEGER, name TEXT, amount REAL"_s;
    QTest::newRow("trip_pay_items") << tripItem;
    QTest::newRow("trip_cost_items") << tripItem;
    QTest::newRow("trip_detail_items")
        << u"id INTEGER, trip_id INTEGER NOT NULL, group_name TEXT NOT NULL DEFAULT '', "
           "item_type TEXT NOT NULL DEFAULT '', cost REAL NOT NULL DEFAULT 0, "
           "discount REAL NOT NULL DEFAULT 0, gallons REAL NOT NULL DEFAULT 0, "
           "created_at TEXT NOT NULL DEFAULT ''"_s;
    QTest::newRow("trip_trailers") << u"id INTEGER, trip_id INTEGER"_s;
    QTest::newRow("settlement_non_trip_items")
        << u"id INTEGER, settlement_date TEXT, kind TEXT, name TEXT, amount REAL"_s;
    QTest::newRow("settlement_meta") << u"settlement_date TEXT, apr REAL"_s;
    QTest::newRow("settlement_import_log")
        << u"id INTEGER, truck_number TEXT NOT NULL DEFAULT '', "
           "payweek TEXT NOT NULL DEFAULT '', pdf_name TEXT NOT NULL DEFAULT '', "
           "source_hash TEXT NOT NULL DEFAULT '', created_at TEXT NOT NULL DEFAULT '', "
           "import_mode TEXT NOT NULL DEFAULT '', counts_json TEXT NOT NULL DEFAULT '', "
           "payload_json TEXT NOT NULL DEFAULT ''"_s;
}

void tst_Schema::everyTableHasItsColumns()
{
    QFETCH(const QString, columns);
    Workspace workspace;
    workspace.makeTrips();

    const QString table = QString::fromUtf8(QTest::currentDataTag());
    QCOMPARE(workspace.value(columnsOfTable, {table}).toString(), columns);
}

void tst_Schema::tripsFileHoldsNothingElse()
{
    Workspace workspace;
    workspace.makeTrips();

    QCOMPARE(workspace.value(uR"(SELECT GROUP_CONCAT(name) FROM (
                 SELECT name FROM sqlite_master
                 WHERE type <> 'index' AND name <> 'sqlite_sequence' ORDER BY name))"_s),
             u"settlement_import_log,settlement_meta,settlement_non_trip_items,trip_cost_items,"
             "trip_detail_items,trip_pay_items,trip_stops,trip_trailers,trips"_s);
}

void tst_Schema::locationsHaveTheirColumns()
{
    Workspace workspace;
    workspace.makeLocations();

    QCOMPARE(onLocations(columnsOfTable, {u"locations"_s}).toString(),
             u"code TEXT, name TEXT, street TEXT, city TEXT, state TEXT, zip TEXT, lat REAL, "
             "lon REAL, notes TEXT"_s);
}

void tst_Schema::idsOfPurchasesAndImportsAreNeverUsedAgain()
{
    Workspace workspace;
    workspace.makeTrips();

    for (const QString &table : {u"settlement_import_log"_s, u"trip_detail_items"_s}) {
        const QString column = table == "trip_detail_items"_L1 ? u"trip_id"_s : u"truck_number"_s;
        const QString insert = u"INSERT INTO %1 (%2) VALUES (1)"_s.arg(table, column);
        QCOMPARE(workspace.insert(insert), 1);
        workspace.execute(u"DELETE FROM %1"_s.arg(table));
        QCOMPARE(workspace.insert(insert), 2);
    }
}

void tst_Schema::savingALocationTwiceOverwritesIt()
{
    Workspace workspace;
    workspace.makeLocations();

    const QString save = uR"(
        INSERT INTO locations (code, name, street, city, state, zip, lat, lon, notes)
        VALUES (?, ?, '', '', '', '', NULL, NULL, '')
        ON CONFLICT(code) DO UPDATE SET name = excluded.name)"_s;
    onLocations(save, {u"DAL-01"_s, u"Dallas Cold Storage"_s});
    onLocations(save, {u"DAL-01"_s, u"Dallas Steel Yard"_s});

    QCOMPARE(onLocations(u"SELECT COUNT(*) FROM locations"_s).toInt(), 1);
    QCOMPARE(onLocations(u"SELECT name FROM locations"_s).toString(), u"Dallas Steel Yard"_s);
}

void tst_Schema::aNewLocationNeedsOnlyItsCode()
{
    Workspace workspace;
    workspace.makeLocations();

    const QString add = uR"(
        INSERT OR IGNORE INTO locations (code, name, street, city, state, zip, lat, lon, notes)
        VALUES (?, '', '', '', '', '', NULL, NULL, ''))"_s;
    onLocations(add, {u"DAL-01"_s});
    onLocations(add, {u"DAL-01"_s});
    onLocations(add, {u"dal-01"_s});

    QCOMPARE(onLocations(u"SELECT GROUP_CONCAT(code) FROM locations"_s).toString(),
             u"DAL-01,dal-01"_s);
}

void tst_Schema::aLocationIsFoundByItsCode()
{
    Workspace workspace;
    workspace.makeLocations();

    for (const QString &sql : {u"UPDATE locations SET name = '' WHERE code = 'DAL-01'"_s,
                               u"DELETE FROM locations WHERE code = 'DAL-01'"_s}) {
        QString error;
        const OneCallConnection connection(u"schema_test"_s,
                                           DatabaseLocator::openLocationsDatabaseConnection, error);
        QStringList steps;
        SqlStatement(connection.database(), u"EXPLAIN QUERY PLAN "_s + sql)
            .forEachRow({}, error,
                        [&](const SqlStatement &row) { steps.append(row.text(planStepColumn)); });
        QCOMPARE(error, QString());
        QCOMPARE(indexSearches(steps), QStringList{u"locations sqlite_autoindex_locations_1"_s});
    }
}

void tst_Schema::statementFindsItsRowsByAnIndex()
{
    QFETCH(const QString, sql);
    QFETCH(const QString, searches);
    Workspace workspace;
    workspace.makeTrips();

    const QStringList steps = plan(workspace, sql);

    QCOMPARE(indexSearches(steps).join(", "_L1), searches);
    QVERIFY2(!readsWholeTable(steps), qPrintable(steps.join(u'\n')));
}

void tst_Schema::statementStillWorksInAFileWithoutIndexes()
{
    QFETCH(const QString, sql);
    const Workspace workspace;
    QVERIFY(QFile::copy(oldFiles.filePath(u"trips.db"_s), workspace.path(u"trips.db"_s)));

    const QStringList steps = plan(workspace, sql);

    QVERIFY2(readsWholeTable(steps), qPrintable(steps.join(u'\n')));
    workspace.execute(sql, anyValues(sql));
}

void tst_Schema::listsOfWeeksAndYearsReadAnIndexInOrder_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QStringList>("steps");
    QTest::newRow("weeks of the trip list")
        << uR"(SELECT DISTINCT TRIM(COALESCE(payweek,'')) AS pw FROM trips
               WHERE TRIM(COALESCE(payweek,'')) <> '' ORDER BY pw DESC)"_s
        << QStringList{u"SCAN trips USING INDEX ix_trips_payweek"_s};
    QTest::newRow("weeks with settlement items")
        << uR"(SELECT DISTINCT TRIM(COALESCE(settlement_date,'')) AS pw
               FROM settlement_non_trip_items
               WHERE TRIM(COALESCE(settlement_date,'')) <> '')"_s
        << QStringList{u"SCAN settlement_non_trip_items USING INDEX ix_settlement_items_date"_s};
    QTest::newRow("years of the totals")
        << uR"(SELECT DISTINCT SUBSTR(TRIM(COALESCE(payweek,'')), 7, 4) AS year_value FROM trips
               WHERE LENGTH(TRIM(COALESCE(payweek,''))) >= 10
                 AND SUBSTR(TRIM(COALESCE(payweek,'')), 7, 4) GLOB '[0-9][0-9][0-9][0-9]'
               ORDER BY year_value)"_s
        << QStringList{u"SCAN trips USING INDEX ix_trips_payweek_year"_s};
    QTest::newRow("years of the reports")
        << uR"(SELECT DISTINCT SUBSTR(TRIM(COALESCE(payweek,'')), -4) AS y FROM trips
               WHERE TRIM(COALESCE(payweek,'')) <> '' AND LENGTH(TRIM(COALESCE(payweek,''))) >= 4
               ORDER BY y)"_s
        << QStringList{u"SCAN trips USING INDEX ix_trips_payweek_last_four"_s};
}

void tst_Schema::listsOfWeeksAndYearsReadAnIndexInOrder()
{
    QFETCH(const QString, sql);
    QFETCH(const QStringList, steps);
    Workspace workspace;
    workspace.makeTrips();

    // One step means that nothing is sorted afterwards.
    QCOMPARE(plan(workspace, sql), steps);
}

void tst_Schema::everyIndexServesAStatement()
{
    Workspace workspace;
    workspace.makeTrips();

    QSet<QString> used;
    for (const IndexedStatement &statement : indexedStatements) {
        for (const QString &search : QString::fromLatin1(statement.searches).split(", "_L1))
            used.insert(search.section(u' ', 1));
    }

    const QStringList names = indexNames(workspace);
    QCOMPARE(QSet<QString>(names.cbegin(), names.cend()), used);
}

TEST_CLASS_WITHOUT_WINDOWS(tst_Schema)
#include "tst_Schema.moc"
