#include "data/DatabaseLocator.h"
#include "data/OneCallConnection.h"
#include "data/SqlStatement.h"
#include "samples/SampleBusiness.h"
#include "samples/SampleWriter.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

void writeSamples(const QString &folder, int years)
{
    QString error;
    if (!writeSampleFiles(folder, makeSampleBusiness(years, 1), error))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
}

QStringList locationCodes()
{
    QString error;
    const OneCallConnection connection(u"sample_test"_s,
                                       DatabaseLocator::openLocationsDatabaseConnection, error);
    QStringList codes;
    SqlStatement(connection.database(), u"SELECT code FROM locations ORDER BY code"_s)
        .forEachRow({}, error, [&](const SqlStatement &row) { codes.append(row.text(0)); });
    if (!error.isEmpty())
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    return codes;
}

} // namespace

class tst_SampleWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void sameBusinessGivesTheSameFiles();
    void folderIsMadeIfItIsMissing();
    void existingFileIsNotOverwritten_data();
    void existingFileIsNotOverwritten();
    void aFailureLeavesNeitherFile();
    void aFolderThatCannotBeMadeIsTold();
    void featureIsInTheDefaultYears_data();
    void featureIsInTheDefaultYears();
    void someWeeksEndBelowZeroAndMostDoNot();
    void computedColumnFollowsFromTheRows_data();
    void computedColumnFollowsFromTheRows();
    void fuelCostItemsFollowFromTheFuel();
    void fuelCostItemsComeLastAndByName();
    void stopsAreAtKnownLocations();
    void rowsBelongToATrip_data();
    void rowsBelongToATrip();
    void appointmentsAreStoredAsTheProductStoresThem();

private:
    void copySamples(const Workspace &workspace) const;

    QTemporaryDir defaultSamples;
};

// The three years of the default are written once; a test works on its own copy.
void tst_SampleWriter::initTestCase()
{
    writeSamples(defaultSamples.path(), 3);
}

void tst_SampleWriter::copySamples(const Workspace &workspace) const
{
    for (const QString &file : {u"trips.db"_s, u"locations.db"_s})
        QVERIFY(QFile::copy(defaultSamples.filePath(file), workspace.path(file)));
}

void tst_SampleWriter::sameBusinessGivesTheSameFiles()
{
    const Workspace workspace;

    writeSamples(workspace.path(u"one"_s), 1);
    writeSamples(workspace.path(u"two"_s), 1);

    QVERIFY(workspace.bytes(u"one/trips.db"_s) == workspace.bytes(u"two/trips.db"_s));
    QVERIFY(workspace.bytes(u"one/locations.db"_s) == workspace.bytes(u"two/locations.db"_s));
}

void tst_SampleWriter::folderIsMadeIfItIsMissing()
{
    const Workspace workspace;

    writeSamples(workspace.path(u"new/folder"_s), 1);

    QVERIFY(QFile::exists(workspace.path(u"new/folder/trips.db"_s)));
    QVERIFY(QFile::exists(workspace.path(u"new/folder/locations.db"_s)));
}

void tst_SampleWriter::existingFileIsNotOverwritten_data()
{
    QTest::addColumn<QString>("existing");
    QTest::addColumn<QString>("other");
    QTest::newRow("trips") << u"trips.db"_s << u"locations.db"_s;
    QTest::newRow("locations") << u"locations.db"_s << u"trips.db"_s;
}

void tst_SampleWriter::existingFileIsNotOverwritten()
{
    QFETCH(const QString, existing);
    QFETCH(const QString, other);
    const Workspace workspace;
    const QString path = workspace.makeFile(existing, "my records");

    QString error;
    QCOMPARE(writeSampleFiles(workspace.path({}), makeSampleBusiness(1, 1), error), false);

    QCOMPARE(error, path + " is there already and is not overwritten."_L1);
    QCOMPARE(workspace.bytes(existing), "my records");
    QVERIFY(!QFile::exists(workspace.path(other)));
}

void tst_SampleWriter::aFailureLeavesNeitherFile()
{
    const Workspace workspace;
    SampleBusiness business = makeSampleBusiness(1, 1);
    business.locations.append(business.locations.first());

    QString error;
    QCOMPARE(writeSampleFiles(workspace.path({}), business, error), false);

    QVERIFY2(error.contains("UNIQUE constraint failed: locations.code"_L1), qPrintable(error));
    QVERIFY(!QFile::exists(workspace.path(u"trips.db"_s)));
    QVERIFY(!QFile::exists(workspace.path(u"locations.db"_s)));
}

void tst_SampleWriter::aFolderThatCannotBeMadeIsTold()
{
    const Workspace workspace;
    const QString folder = workspace.makeFile(u"file"_s, "") + "/folder"_L1;

    QString error;
    QCOMPARE(writeSampleFiles(folder, makeSampleBusiness(1, 1), error), false);

    QCOMPARE(error, folder + " could not be made."_L1);
}

void tst_SampleWriter::featureIsInTheDefaultYears_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("where");
    const QString items = u"settlement_non_trip_items"_s;
    for (const char *fund : {"Emergency Fund", "Tire Fund", "Performance Bond"}) {
        QTest::addRow("%s add", fund)
            << items << u"kind = 'expense' AND name = '%1'"_s.arg(QLatin1String(fund));
        QTest::addRow("%s withdrawal", fund)
            << items << u"kind = 'revenue' AND name = '%1 Withdrawal'"_s.arg(QLatin1String(fund));
    }
    QTest::newRow("other revenue") << items << u"kind = 'revenue' AND name = 'Safety Bonus'"_s;
    QTest::newRow("insurance") << items << u"kind = 'expense' AND name LIKE '%Insurance'"_s;
    QTest::newRow("repair") << items << u"kind = 'expense' AND name LIKE '%Repair'"_s;
    for (const char *name : {"Detention", "Layover", "Tarp", "Stop-Off"})
        QTest::newRow(name) << u"trip_pay_items"_s << u"name = '%1'"_s.arg(QLatin1String(name));
    for (const char *name : {"Tolls", "Scale Ticket", "Parking", "Lumper", "DEF"})
        QTest::newRow(name) << u"trip_cost_items"_s << u"name = '%1'"_s.arg(QLatin1String(name));
    for (const char *type : {"Truck Fuel", "Reefer Fuel", "Def"}) {
        QTest::newRow(type) << u"trip_detail_items"_s
                            << u"item_type = '%1' AND discount > 0"_s.arg(QLatin1String(type));
    }
    QTest::newRow("rate") << u"settlement_meta"_s << u"apr > 0"_s;
    QTest::newRow("window") << u"trip_stops"_s
                            << u"has_appointment_window = 1 AND appt_latest > appt"_s;
    QTest::newRow("no window") << u"trip_stops"_s
                               << u"has_appointment_window = 0 AND appt_latest = ''"_s;
    for (const int stops : {2, 3, 4}) {
        QTest::addRow("%d stops", stops)
            << u"trips"_s
            << u"%1 = (SELECT COUNT(*) FROM trip_stops WHERE trip_id = trips.id)"_s.arg(stops);
    }
}

void tst_SampleWriter::featureIsInTheDefaultYears()
{
    QFETCH(const QString, table);
    QFETCH(const QString, where);
    const Workspace workspace;
    copySamples(workspace);

    const QString count = u"SELECT COUNT(*) FROM %1 WHERE %2"_s.arg(table, where);
    QVERIFY(workspace.value(count).toInt() > 0);
}

void tst_SampleWriter::someWeeksEndBelowZeroAndMostDoNot()
{
    const Workspace workspace;
    copySamples(workspace);

    const QString weeks = uR"(
        SELECT COUNT(*) FROM (
            SELECT payweek, SUM(net) AS net FROM (
                SELECT payweek, net_revenue AS net FROM trips
                UNION ALL
                SELECT settlement_date, CASE kind WHEN 'revenue' THEN amount ELSE -amount END
                FROM settlement_non_trip_items)
            GROUP BY payweek)
        WHERE net %1 0)"_s;
    QVERIFY(workspace.value(weeks.arg("<"_L1)).toInt() >= 3);
    QVERIFY(workspace.value(weeks.arg(">"_L1)).toInt() >= 120);
}

void tst_SampleWriter::computedColumnFollowsFromTheRows_data()
{
    QTest::addColumn<QString>("value");
    const QString sum = u"(SELECT COALESCE(SUM(amount), 0) FROM %1 WHERE trip_id = trips.id)"_s;
    QTest::newRow("total_miles") << u"empty_miles + loaded_miles"_s;
    QTest::newRow("carrier_make") << u"linehaul * carrier_pct / 100"_s;
    QTest::newRow("total_revenue") << u"linehaul + fusu + "_s + sum.arg("trip_pay_items"_L1);
    QTest::newRow("total_cost") << sum.arg("trip_cost_items"_L1);
    QTest::newRow("net_revenue") << u"total_revenue - total_cost"_s;
    QTest::newRow("cpm") << u"net_revenue / (empty_miles + loaded_miles) * 100"_s;
    QTest::newRow("trip_hours") << uR"(3 + 24 * (
        (SELECT julianday(CASE has_appointment_window WHEN 1 THEN appt_latest ELSE appt END)
         FROM trip_stops WHERE trip_id = trips.id AND stop_type = 'receiver'
         ORDER BY stop_order DESC LIMIT 1)
      - (SELECT julianday(appt)
         FROM trip_stops WHERE trip_id = trips.id AND stop_type = 'shipper'
         ORDER BY stop_order LIMIT 1)))"_s;
    QTest::newRow("net_per_hour") << u"net_revenue / trip_hours"_s;
}

void tst_SampleWriter::computedColumnFollowsFromTheRows()
{
    QFETCH(const QString, value);
    const Workspace workspace;
    copySamples(workspace);

    const QString column = QString::fromLatin1(QTest::currentDataTag());
    const QString count = u"SELECT COUNT(*) FROM trips WHERE ABS(%1 - (%2)) %3 0.0051"_s;
    QCOMPARE(workspace.value(count.arg(column, value, u">"_s)).toInt(), 0);
    QVERIFY(workspace.value(count.arg(column, value, u"<="_s)).toInt() > 400);
}

void tst_SampleWriter::fuelCostItemsFollowFromTheFuel()
{
    const Workspace workspace;
    copySamples(workspace);

    const QString fromFuel = uR"(
        SELECT trip_id, CASE item_type WHEN 'Def' THEN 'DEF' ELSE item_type END AS item,
               CAST(ROUND(100 * SUM(cost - discount)) AS INTEGER)
        FROM trip_detail_items GROUP BY trip_id, item)"_s;
    const QString fromCost = uR"(
        SELECT trip_id, name, CAST(ROUND(100 * amount) AS INTEGER)
        FROM trip_cost_items WHERE name IN ('DEF', 'Reefer Fuel', 'Truck Fuel'))"_s;
    QCOMPARE(workspace.rows(fromFuel + u" EXCEPT "_s + fromCost), QList<QStringList>());
    QCOMPARE(workspace.rows(fromCost + u" EXCEPT "_s + fromFuel), QList<QStringList>());
    QVERIFY(workspace.rows(fromCost).size() > 900);
}

void tst_SampleWriter::fuelCostItemsComeLastAndByName()
{
    const Workspace workspace;
    copySamples(workspace);

    const QString misplaced = uR"(
        SELECT COUNT(*)
        FROM trip_cost_items early JOIN trip_cost_items late
          ON late.trip_id = early.trip_id AND late.id > early.id
        WHERE early.name IN ('DEF', 'Reefer Fuel', 'Truck Fuel')
          AND (late.name NOT IN ('DEF', 'Reefer Fuel', 'Truck Fuel') OR late.name <= early.name))"_s;
    QCOMPARE(workspace.value(misplaced).toInt(), 0);
}

void tst_SampleWriter::stopsAreAtKnownLocations()
{
    const Workspace workspace;
    copySamples(workspace);

    const QStringList codes = locationCodes();
    const QList<QStringList> used =
        workspace.rows(u"SELECT DISTINCT location_code FROM trip_stops"_s);

    QCOMPARE(codes.size(), 120);
    QVERIFY(used.size() > 60);
    for (const QStringList &row : used)
        QVERIFY2(codes.contains(row.first()), qPrintable(row.first()));
}

void tst_SampleWriter::rowsBelongToATrip_data()
{
    QTest::addColumn<QString>("table");
    for (const char *table :
         {"trip_stops", "trip_pay_items", "trip_cost_items", "trip_detail_items"})
        QTest::newRow(table) << QString::fromLatin1(table);
}

void tst_SampleWriter::rowsBelongToATrip()
{
    QFETCH(const QString, table);
    const Workspace workspace;
    copySamples(workspace);

    const QString count = u"SELECT COUNT(*) FROM %1 WHERE trip_id %2 IN (SELECT id FROM trips)"_s;
    QCOMPARE(workspace.value(count.arg(table, u"NOT"_s)).toInt(), 0);
    QVERIFY(workspace.value(count.arg(table, QString())).toInt() > 0);
}

void tst_SampleWriter::appointmentsAreStoredAsTheProductStoresThem()
{
    const Workspace workspace;
    copySamples(workspace);

    const QString form = u"'[12][09][0-9][0-9]-[01][0-9]-[0-3][0-9]T[0-2][0-9]:[0-5][0-9]:00'"_s;
    QCOMPARE(
        workspace.value(u"SELECT COUNT(*) FROM trip_stops WHERE appt NOT GLOB "_s + form).toInt(),
        0);
    QCOMPARE(workspace
                 .value(u"SELECT COUNT(*) FROM trip_stops "
                        "WHERE appt_latest <> '' AND appt_latest NOT GLOB "_s
                        + form)
                 .toInt(),
             0);
    QCOMPARE(workspace.value(u"SELECT MAX(SUBSTR(payweek,7) || payweek) FROM trips"_s),
             u"202611/20/2026"_s);
}

TEST_CLASS_WITHOUT_WINDOWS(tst_SampleWriter)
#include "tst_SampleWriter.moc"
