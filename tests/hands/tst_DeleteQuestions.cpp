#include "hands/Desk.h"
#include "support/RowMakers.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// A question that deletes takes more than Return for an answer.
class tst_DeleteQuestions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY2(desktop.failure().isEmpty(), qPrintable(desktop.failure())); }
    void returnDeletesNothing_data();
    void returnDeletesNothing();
    void yesDeletes_data();
    void yesDeletes();

private:
    static void makeRows(Workspace &workspace);
    static int rowsLeft(const Workspace &workspace);
    static void addQuestions();
    void asks(Desk &desk);

    Desktop desktop;
};

// One row for each question.
void tst_DeleteQuestions::makeRows(Workspace &workspace)
{
    workspace.makeTrips();
    expense(u"04/18/2026"_s, u"Permit"_s, 12.0).insert(workspace);
    workspace.execute(u"INSERT INTO settlement_import_log (import_mode) VALUES ('Export')"_s);
    TestConnection(workspace.makeLocations())
        .execute(u"INSERT INTO locations (code) VALUES ('DAL4')"_s);
}

int tst_DeleteQuestions::rowsLeft(const Workspace &workspace)
{
    const TestConnection locations(workspace.path(u"locations.db"_s));
    return workspace
               .value(u"SELECT (SELECT COUNT(*) FROM settlement_non_trip_items) + "
                      "(SELECT COUNT(*) FROM settlement_import_log)"_s)
               .toInt()
           + locations.value(u"SELECT COUNT(*) FROM locations"_s).toInt();
}

void tst_DeleteQuestions::addQuestions()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("title");
    QTest::newRow("settlement item")
        << u"Edit Settlement"_s << QByteArray("settlementItems")
        << QByteArray("deleteSettlementItemButton") << u"Confirm Delete"_s;
    QTest::newRow("location") << u"Locations"_s << QByteArray("locationTable")
                              << QByteArray("deleteLocationButton") << u"Confirm Delete"_s;
    QTest::newRow("activity") << u"Database Activity History"_s << QByteArray("importHistoryGrid")
                              << QByteArray("deleteHistoryButton")
                              << u"Delete Activity History Row"_s;
}

void tst_DeleteQuestions::asks(Desk &desk)
{
    QFETCH(const QString, page);
    QFETCH(const QByteArray, table);
    QFETCH(const QByteArray, button);
    QFETCH(const QString, title);
    desk.goesTo(page);
    desk.clicks({table.constData(), 0, 1});
    desk.clicks(button.constData());
    QTRY_COMPARE(desk.dialog(), title);
}

void tst_DeleteQuestions::returnDeletesNothing_data()
{
    addQuestions();
}

void tst_DeleteQuestions::returnDeletesNothing()
{
    Workspace workspace;
    makeRows(workspace);
    Desk desk(desktop, workspace);
    asks(desk);
    desk.presses("Return");
    QTRY_COMPARE(desk.dialog(), QString());
    QCOMPARE(rowsLeft(workspace), 3);
}

void tst_DeleteQuestions::yesDeletes_data()
{
    addQuestions();
}

void tst_DeleteQuestions::yesDeletes()
{
    Workspace workspace;
    makeRows(workspace);
    Desk desk(desktop, workspace);
    asks(desk);
    desk.clicksButton(u"Yes"_s);
    QTRY_COMPARE(rowsLeft(workspace), 2);
}

TEST_CLASS_WITHOUT_WINDOWS(tst_DeleteQuestions)

#include "tst_DeleteQuestions.moc"
