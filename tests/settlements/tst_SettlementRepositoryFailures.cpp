#include "settlements/SettlementItems.h"
#include "settlements/SettlementRepository.h"
#include "support/RowMakers.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QTest>

#include <functional>
#include <utility>

using namespace Qt::StringLiterals;
using namespace SettlementRepository;

namespace {

const QString week = u"04/18/2026"_s;

using Call = std::function<bool(const QSqlDatabase &, QString &)>;

Call listingNames(int year)
{
    return [year](const QSqlDatabase &database, QString &error) {
        QStringList names;
        return listSettlementItemNames(database, year, names, error);
    };
}

Call loadingItems(const QString &payweek)
{
    return [payweek](const QSqlDatabase &database, QString &error) {
        QList<QStringList> rows;
        double sum = 0.0;
        return loadSettlementItems(database, payweek, rows, sum, sum, error);
    };
}

Call loadingRate(const QString &payweek)
{
    return [payweek](const QSqlDatabase &database, QString &error) {
        double percent = 0.0;
        return loadSettlementApr(database, payweek, percent, error);
    };
}

Call savingRate(const QString &payweek)
{
    return [payweek](const QSqlDatabase &database, QString &error) {
        return saveSettlementApr(database, payweek, 4.0, error);
    };
}

} // namespace

/// What a call tells when it fails, and that it tells nothing when it goes well.
class tst_SettlementRepositoryFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void payweeksOfAFileWithoutATableAreTheDriversText()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        QStringList payweeks = {u"left over"_s};
        QString error;
        workspace.execute(u"DROP TABLE settlement_non_trip_items"_s);
        QVERIFY(!listSettlementPayweeks(file.database(), payweeks, error));
        QVERIFY2(error.contains(u"settlement_non_trip_items"_s), qPrintable(error));
        workspace.execute(u"DROP TABLE trips"_s);
        QVERIFY(!listSettlementPayweeks(file.database(), payweeks, error));
        QVERIFY2(error.contains(u"no such table: trips"_s), qPrintable(error));
        QCOMPARE(payweeks, QStringList());
    }

    void itemNeedsAPayweekAKindAndAName_data()
    {
        QTest::addColumn<QString>("payweek");
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("error");
        QTest::newRow("no payweek")
            << u" "_s << u"x"_s << u""_s << u"Settlement / payweek is required."_s;
        QTest::newRow("no kind") << week << u"x"_s << u""_s
                                 << u"Kind must be revenue or expense."_s;
        QTest::newRow("no name") << week << u"revenue"_s << u" \t"_s << u"Name cannot be blank."_s;
    }

    void itemNeedsAPayweekAKindAndAName()
    {
        QFETCH(const QString, payweek);
        QFETCH(const QString, kind);
        QFETCH(const QString, name);
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        QString error;
        QVERIFY(!addSettlementItem(file.database(), payweek, kind, name, 9.25, error));
        QTEST(error, "error");
        QCOMPARE(file.value(u"SELECT COUNT(*) FROM settlement_non_trip_items"_s), 0);
    }

    void updateNeedsAnItemAKindAndAName()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        QString error;
        QVERIFY(!updateSettlementItem(file.database(), 0, u"x"_s, u""_s, 1.0, error));
        QCOMPARE(error, u"Select a settlement item first."_s);
        QVERIFY(!updateSettlementItem(file.database(), 1, u"x"_s, u""_s, 1.0, error));
        QCOMPARE(error, u"Kind must be revenue or expense."_s);
        QVERIFY(!updateSettlementItem(file.database(), 1, u"expense"_s, u" "_s, 1.0, error));
        QCOMPARE(error, u"Name cannot be blank."_s);
    }

    void itemThatIsGoneCannotBeUpdatedOrDeleted()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        expense(week, u"ELD"_s, 9.25).insert(workspace);
        QString error;
        QVERIFY(!updateSettlementItem(file.database(), 7, u"expense"_s, u"Tolls"_s, 1.0, error));
        QCOMPARE(error, u"No settlement item was updated. It may have already been deleted."_s);
        QVERIFY(!deleteSettlementItem(file.database(), 7, error));
        QCOMPARE(error, u"No settlement item was deleted. It may have already been deleted."_s);
        QCOMPARE(workspace.rows(u"SELECT * FROM settlement_non_trip_items"_s),
                 QList<QStringList>({{u"1"_s, week, u"expense"_s, u"ELD"_s, u"9.25"_s}}));
    }

    void rateThatCannotBeAddedIsTold()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        workspace.execute(u"CREATE TRIGGER no_rate BEFORE INSERT ON settlement_meta "
                          "BEGIN SELECT RAISE(ABORT, 'no room'); END"_s);
        QString error;
        QVERIFY(!saveSettlementApr(file.database(), week, 5.5, error));
        QVERIFY2(error.contains("no room"_L1), qPrintable(error));
        QCOMPARE(workspace.value(u"SELECT COUNT(*) FROM settlement_meta"_s), 0);
    }

    void rateNeedsAPayweekToBeSavedButNotToBeRead()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        QString error;
        double rate = 9.0;
        QVERIFY(!saveSettlementApr(file.database(), u" "_s, 4.0, error));
        QCOMPARE(error, u"Settlement / payweek is required."_s);
        QVERIFY(loadSettlementApr(file.database(), u" "_s, rate, error));
        QCOMPARE(rate, 0.0);
        QCOMPARE(error, QString());
    }

    void callThatGoesWellLeavesNoErrorOfAnEarlierOne_data()
    {
        QTest::addColumn<Call>("call");
        QTest::newRow("payweeks") << Call([](const QSqlDatabase &database, QString &error) {
            QStringList payweeks;
            return listSettlementPayweeks(database, payweeks, error);
        });
        QTest::newRow("items") << loadingItems(week);
        QTest::newRow("items of no payweek") << loadingItems(u" "_s);
        QTest::newRow("added item") << Call([](const QSqlDatabase &database, QString &error) {
            return addSettlementItem(database, week, u"expense"_s, u"Tolls"_s, 1.0, error);
        });
        QTest::newRow("changed item") << Call([](const QSqlDatabase &database, QString &error) {
            return updateSettlementItem(database, 1, u"expense"_s, u"Tolls"_s, 1.0, error);
        });
        QTest::newRow("deleted item") << Call([](const QSqlDatabase &database, QString &error) {
            return deleteSettlementItem(database, 1, error);
        });
        QTest::newRow("names") << listingNames(2026);
        QTest::newRow("names of no year") << listingNames(0);
        QTest::newRow("rate") << loadingRate(week);
        QTest::newRow("rate of no payweek") << loadingRate(u" "_s);
        QTest::newRow("changed rate") << savingRate(week);
        QTest::newRow("first rate") << savingRate(u"04/25/2026"_s);
    }

    void callThatGoesWellLeavesNoErrorOfAnEarlierOne()
    {
        QFETCH(const Call, call);
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        expense(week, u"ELD"_s, 9.25).insert(workspace);
        apr(week, 4.25).insert(workspace);
        QString error = u"left over"_s;
        QVERIFY(call(file.database(), error));
        QCOMPARE(error, QString());
    }

    void closedDatabaseIsToldInWords()
    {
        const QSqlDatabase closed;
        const QString text = u"Trips database is not open."_s;
        QStringList texts;
        QString error;
        double rate = 9.0;
        QVERIFY(!listSettlementPayweeks(closed, texts, error));
        QCOMPARE(std::exchange(error, {}), text);
        QCOMPARE(loaded(closed, week).error, text);
        QVERIFY(!addSettlementItem(closed, {}, {}, {}, 1.0, error));
        QCOMPARE(std::exchange(error, {}), text);
        QVERIFY(!updateSettlementItem(closed, 0, {}, {}, 1.0, error));
        QCOMPARE(std::exchange(error, {}), text);
        QVERIFY(!deleteSettlementItem(closed, 1, error));
        QCOMPARE(std::exchange(error, {}), text);
        QVERIFY(!listSettlementItemNames(closed, 2026, texts, error));
        QCOMPARE(std::exchange(error, {}), text);
        QVERIFY(!loadSettlementApr(closed, week, rate, error));
        QCOMPARE(std::exchange(error, {}), text);
        QVERIFY(!saveSettlementApr(closed, week, 4.0, error));
        QCOMPARE(error, text);
    }

    void missingTablesGiveTheDriversText()
    {
        Workspace workspace;
        const TestConnection file(workspace.makeTrips());
        workspace.execute(u"DROP TABLE settlement_non_trip_items"_s);
        workspace.execute(u"DROP TABLE settlement_meta"_s);
        const QString items = u"no such table: settlement_non_trip_items"_s;
        const QString rates = u"no such table: settlement_meta"_s;
        QString error;
        QStringList names;
        double rate = 9.0;
        QVERIFY(loaded(file.database(), week).error.contains(items));
        QVERIFY(!addSettlementItem(file.database(), week, u"expense"_s, u"ELD"_s, 1.0, error));
        QVERIFY2(error.contains(items), qPrintable(error));
        QVERIFY(!updateSettlementItem(file.database(), 1, u"expense"_s, u"ELD"_s, 1.0, error));
        QVERIFY2(error.contains(items), qPrintable(error));
        QVERIFY(!deleteSettlementItem(file.database(), 1, error));
        QVERIFY2(error.contains(items), qPrintable(error));
        QVERIFY(!listSettlementItemNames(file.database(), 2026, names, error));
        QVERIFY2(error.contains(items), qPrintable(error));
        QVERIFY(!loadSettlementApr(file.database(), week, rate, error));
        QVERIFY2(error.contains(rates), qPrintable(error));
        QVERIFY(!saveSettlementApr(file.database(), week, 4.0, error));
        QVERIFY2(error.contains(rates), qPrintable(error));
    }
};

TEST_CLASS(tst_SettlementRepositoryFailures)
#include "tst_SettlementRepositoryFailures.moc"
