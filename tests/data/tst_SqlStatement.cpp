#include "data/SqlStatement.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// A file of its own with a small table of loads, held open.
class LoadsFile
{
public:
    LoadsFile()
        : connection(workspace.path(u"loads.db"_s))
    {
        connection.execute(u"CREATE TABLE loads (code TEXT UNIQUE, miles INTEGER)"_s);
    }

    void fill(const QList<qint64> &miles) const
    {
        for (const qint64 value : miles)
            connection.execute(u"INSERT INTO loads (miles) VALUES (?)"_s, {value});
    }

    [[nodiscard]] QList<QStringList> rows(const QString &sql, const QVariantList &values = {}) const
    {
        QList<QStringList> result;
        QString error;
        SqlStatement(connection.database(), sql)
            .forEachRow(values, error,
                        [&result](const SqlStatement &row) { result.append(row.texts()); });
        if (!error.isEmpty())
            QTest::qFail(qPrintable(error), __FILE__, __LINE__);
        return result;
    }

    [[nodiscard]] const QSqlDatabase &database() const { return connection.database(); }
    [[nodiscard]] QString path() const { return workspace.path(u"loads.db"_s); }

private:
    Workspace workspace;
    TestConnection connection;
};

constexpr qint64 smallestInteger = std::numeric_limits<qint64>::min();

} // namespace

class tst_SqlStatement : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(QSqlDatabase::connectionNames(), QStringList()); }

    void isPreparedOnceAndRunWithOtherValues()
    {
        const LoadsFile file;
        SqlStatement insert(file.database(), u"INSERT INTO loads VALUES (?, ?)"_s);
        QString error = u"an old error"_s;
        QVERIFY2(insert.run({u"DOCK1"_s, 412}, error), qPrintable(error));
        QCOMPARE(error, QString());
        QVERIFY2(insert.run({u"YARD"_s, 7}, error), qPrintable(error));
        QCOMPARE(file.rows(u"SELECT code, miles FROM loads ORDER BY miles"_s),
                 QList<QStringList>({{u"YARD"_s, u"7"_s}, {u"DOCK1"_s, u"412"_s}}));
    }

    void rowsAreVisitedAnewAtEachRun()
    {
        const LoadsFile file;
        file.fill({100, 200, 300});
        SqlStatement select(file.database(),
                            u"SELECT miles FROM loads WHERE miles >= ? ORDER BY miles"_s);
        QList<int> miles;
        const auto visit = [&miles](const SqlStatement &row) { miles.append(row.integer(0)); };
        QString error;
        QVERIFY2(select.forEachRow({200}, error, visit), qPrintable(error));
        QCOMPARE(miles, QList<int>({200, 300}));
        QVERIFY2(select.forEachRow({300}, error, visit), qPrintable(error));
        QCOMPARE(miles, QList<int>({200, 300, 300}));
        QVERIFY2(select.forEachRow({400}, error, visit), qPrintable(error));
        QCOMPARE(miles, QList<int>({200, 300, 300}));
    }

    void aRowReadsAsTextNumberAndInteger()
    {
        const LoadsFile file;
        SqlStatement select(file.database(), u"SELECT 'DOCK1', 12.75, 412, NULL, '7.5'"_s);
        int visits = 0;
        QString error;
        QVERIFY(select.forEachRow({}, error, [&visits](const SqlStatement &row) {
            ++visits;
            QCOMPARE(row.texts(), QStringList({u"DOCK1"_s, u"12.75"_s, u"412"_s, u""_s, u"7.5"_s}));
            QCOMPARE(row.text(0), u"DOCK1"_s);
            QCOMPARE(row.number(0), 0.0);
            QCOMPARE(row.number(1), 12.75);
            QCOMPARE(row.integer(2), 412);
            QVERIFY(row.value(3).isNull());
            QCOMPARE(row.number(4), 7.5);
        }));
        QCOMPARE(visits, 1);
    }

    void aFailureHasSqlitesCode()
    {
        const LoadsFile file;
        QString error;
        SqlStatement insert(file.database(), u"INSERT INTO loads (code) VALUES (?)"_s);
        QVERIFY(insert.run({u"DOCK1"_s}, error));
        QCOMPARE(insert.errorCode(), 0);
        QVERIFY(!insert.run({u"DOCK1"_s}, error));
        QCOMPARE(insert.errorCode(), 19); // SQLITE_CONSTRAINT
        const TestConnection other(file.path(), u"other"_s);
        other.execute(u"BEGIN EXCLUSIVE"_s);
        QCOMPARE(SqlStatement(other.database(), u"SELECT 1 FROM nothing"_s).errorCode(), 1);
        TestConnection locked(file.path(), u"locked"_s);
        QCOMPARE(SqlStatement(locked.database(), u"SELECT 1 FROM loads"_s).errorCode(), 5);
    }

    void nullAndQuotesAreStoredAsBound()
    {
        const LoadsFile file;
        const QString text = u"O'Brien \"DOCK\"; DROP TABLE loads -- \u00E9"_s;
        QString error;
        SqlStatement insert(file.database(), u"INSERT INTO loads VALUES (?, ?)"_s);
        QVERIFY2(insert.run({text, QVariant()}, error), qPrintable(error));
        QVERIFY2(insert.run({QVariant(), 5}, error), qPrintable(error));
        QCOMPARE(file.rows(u"SELECT code FROM loads WHERE miles IS NULL"_s),
                 QList<QStringList>({{text}}));
        QCOMPARE(file.rows(u"SELECT miles FROM loads WHERE code IS NULL"_s),
                 QList<QStringList>({{u"5"_s}}));
    }

    void textWithoutContentIsStoredAsAnEmptyTextAndNotAsNull()
    {
        const LoadsFile file;
        QString error;
        SqlStatement insert(file.database(), u"INSERT INTO loads VALUES (?, ?)"_s);
        QVERIFY2(insert.run({QString(), QVariant()}, error), qPrintable(error));
        QCOMPARE(file.rows(u"SELECT typeof(code), typeof(miles) FROM loads"_s),
                 QList<QStringList>({{u"text"_s, u"null"_s}}));
    }

    void badSqlGivesTheDriversTextAtEachRunAndVisitsNothing()
    {
        const LoadsFile file;
        SqlStatement select(file.database(), u"SELEC miles FROM loads"_s);
        int visits = 0;
        for (int i = 0; i < 2; ++i) {
            QString error = u"an old error"_s;
            QVERIFY(!select.forEachRow({}, error, [&visits](const SqlStatement &) { ++visits; }));
            QCOMPARE(error, u"near \"SELEC\": syntax error Unable to execute statement"_s);
        }
        QCOMPARE(visits, 0);
    }

    void aClosedDatabaseIsAnErrorAndNoWarningOnTheConsole()
    {
        const Workspace workspace;
        TestConnection connection(workspace.path(u"loads.db"_s));
        connection.database().close();
        for (const QSqlDatabase &database : {connection.database(), QSqlDatabase()}) {
            SqlStatement select(database, u"SELECT 1"_s);
            int visits = 0;
            QString error;
            QVERIFY(!select.forEachRow({}, error, [&visits](const SqlStatement &) { ++visits; }));
            QCOMPARE(error, u"The database is not open."_s);
            QCOMPARE(visits, 0);
        }
    }

    void aStepThatFailsIsToldApartFromTheEnd()
    {
        const LoadsFile file;
        file.fill({-100, -200, smallestInteger, -300});
        SqlStatement select(file.database(), u"SELECT abs(miles) FROM loads ORDER BY rowid"_s);
        QList<int> miles;
        QString error;
        QVERIFY(!select.forEachRow(
            {}, error, [&miles](const SqlStatement &row) { miles.append(row.integer(0)); }));
        QVERIFY2(error.startsWith("integer overflow"_L1), qPrintable(error));
        QCOMPARE(miles, QList<int>({100, 200}));
    }

    void aFirstStepThatFailsVisitsNothing()
    {
        const LoadsFile file;
        file.fill({smallestInteger, -300});
        SqlStatement select(file.database(), u"SELECT abs(miles) FROM loads ORDER BY rowid"_s);
        QString error;
        int visits = 0;
        QVERIFY(!select.forEachRow({}, error, [&visits](const SqlStatement &) { ++visits; }));
        QVERIFY2(error.startsWith("integer overflow"_L1), qPrintable(error));
        QCOMPARE(visits, 0);
        QVariant value = 5;
        QVERIFY(!select.firstValue({}, value, error));
        QVERIFY2(error.startsWith("integer overflow"_L1), qPrintable(error));
        QVERIFY(!value.isValid());
    }

    void aFailureIsForgottenByTheNextRun()
    {
        const LoadsFile file;
        SqlStatement insert(file.database(), u"INSERT INTO loads (code) VALUES (?)"_s);
        QString error;
        QVERIFY(insert.run({u"DOCK1"_s}, error));
        QVERIFY(!insert.run({u"DOCK1"_s}, error));
        QCOMPARE(error, u"UNIQUE constraint failed: loads.code Unable to fetch row"_s);
        QVERIFY(insert.run({u"YARD"_s}, error));
        QCOMPARE(error, QString());
        QCOMPARE(file.rows(u"SELECT COUNT(*) FROM loads"_s), QList<QStringList>({{u"2"_s}}));
    }

    void aWrongNumberOfValuesIsAnError()
    {
        const LoadsFile file;
        SqlStatement insert(file.database(), u"INSERT INTO loads VALUES (?, ?)"_s);
        QString error;
        QVERIFY(!insert.run({u"DOCK1"_s}, error));
        QVERIFY2(error.contains("Parameter count mismatch"_L1), qPrintable(error));
        QVERIFY(!insert.run({u"DOCK1"_s, 1, 2}, error));
        QVERIFY2(error.contains("Parameter count mismatch"_L1), qPrintable(error));
        QCOMPARE(file.rows(u"SELECT * FROM loads"_s), QList<QStringList>());
    }

    void theFirstValueIsThatOfTheFirstRow()
    {
        const LoadsFile file;
        file.fill({100, 200});
        SqlStatement select(file.database(),
                            u"SELECT miles, code FROM loads WHERE miles > ? ORDER BY miles"_s);
        QVariant value;
        QString error = u"an old error"_s;
        QVERIFY(select.firstValue({50}, value, error));
        QCOMPARE(value, QVariant(100LL));
        QCOMPARE(error, QString());
        QVERIFY(select.firstValue({150}, value, error));
        QCOMPARE(value, QVariant(200LL));
    }

    void noRowGivesAnInvalidFirstValueAndNullAValidOne()
    {
        const LoadsFile file;
        QVariant value = 5;
        QString error;
        QVERIFY(SqlStatement(file.database(), u"SELECT miles FROM loads"_s)
                    .firstValue({}, value, error));
        QVERIFY(!value.isValid());
        QVERIFY(SqlStatement(file.database(), u"SELECT NULL"_s).firstValue({}, value, error));
        QVERIFY(value.isValid());
        QVERIFY(value.isNull());
        QCOMPARE(error, QString());
    }

    void aFailedRunGivesAnInvalidFirstValue()
    {
        const LoadsFile file;
        QVariant value = 5;
        QString error;
        QVERIFY(!SqlStatement(file.database(), u"SELECT pounds FROM loads"_s)
                     .firstValue({}, value, error));
        QCOMPARE(error, u"no such column: pounds Unable to execute statement"_s);
        QVERIFY(!value.isValid());
    }

    void theLastInsertIdIsThatOfTheLastRun()
    {
        const LoadsFile file;
        file.fill({100});
        SqlStatement insert(file.database(), u"INSERT INTO loads (miles) VALUES (?)"_s);
        QString error;
        QVERIFY(insert.run({200}, error));
        QCOMPARE(insert.lastInsertId().toLongLong(), 2);
        QVERIFY(insert.run({300}, error));
        QCOMPARE(insert.lastInsertId().toLongLong(), 3);
    }

    void anotherConnectionWritesOnlyWhenTheRowsAreThrough()
    {
        const LoadsFile file;
        file.fill({100, 200});
        const TestConnection other(file.path(), u"other"_s);
        const QString write = u"INSERT INTO loads (miles) VALUES (300)"_s;
        SqlStatement select(file.database(), u"SELECT miles FROM loads"_s);
        QStringList refusals;
        QString error;
        QVERIFY(select.forEachRow(
            {}, error, [&](const SqlStatement &) { refusals.append(other.tries(write)); }));
        QCOMPARE(refusals, QStringList(2, u"database is locked Unable to fetch row"_s));
        QCOMPARE(other.tries(write), QString());
    }

    void aWriteThatFoundTheFileLockedDoesNotLockItItself()
    {
        const LoadsFile file;
        file.fill({100});
        const TestConnection other(file.path(), u"other"_s);
        const QString write = u"INSERT INTO loads (miles) VALUES (300)"_s;
        SqlStatement select(file.database(), u"SELECT miles FROM loads"_s);
        SqlStatement insert(other.database(), write);
        QString error;
        QVERIFY(select.forEachRow({}, error, [&insert](const SqlStatement &) {
            QString busy;
            QVERIFY(!insert.run({}, busy));
        }));
        QVERIFY2(runSql(file.database(), write, {}, error), qPrintable(error));
        QVERIFY2(insert.run({}, error), qPrintable(error));
    }

    void anotherConnectionWritesAfterTheFirstValue()
    {
        const LoadsFile file;
        file.fill({100, 200});
        const TestConnection other(file.path(), u"other"_s);
        SqlStatement select(file.database(), u"SELECT miles FROM loads"_s);
        QVariant value;
        QString error;
        QVERIFY(select.firstValue({}, value, error));
        QCOMPARE(other.tries(u"INSERT INTO loads (miles) VALUES (300)"_s), QString());
    }

    void anotherConnectionWritesAfterAFailure()
    {
        const LoadsFile file;
        file.fill({-100, smallestInteger, -300});
        const TestConnection other(file.path(), u"other"_s);
        SqlStatement select(file.database(), u"SELECT abs(miles) FROM loads ORDER BY rowid"_s);
        SqlStatement insert(file.database(), u"INSERT INTO loads (code) VALUES (NULL), (?), (?)"_s);
        QString error;
        QVERIFY(!select.forEachRow({}, error, [](const SqlStatement &) {}));
        QVERIFY(!insert.run({u"DOCK1"_s, u"DOCK1"_s}, error));
        QCOMPARE(other.tries(u"INSERT INTO loads (miles) VALUES (300)"_s), QString());
    }

    void aStatementForOneRunNeedsNoObject()
    {
        const LoadsFile file;
        QString error = u"an old error"_s;
        QVERIFY(
            runSql(file.database(), u"INSERT INTO loads VALUES (?, ?)"_s, {u"YARD"_s, 7}, error));
        QCOMPARE(error, QString());
        QCOMPARE(file.rows(u"SELECT * FROM loads"_s), QList<QStringList>({{u"YARD"_s, u"7"_s}}));
        QVERIFY(!runSql(file.database(), u"DELETE FROM stops"_s, {}, error));
        QCOMPARE(error, u"no such table: stops Unable to execute statement"_s);
    }
};

TEST_CLASS(tst_SqlStatement)
#include "tst_SqlStatement.moc"
