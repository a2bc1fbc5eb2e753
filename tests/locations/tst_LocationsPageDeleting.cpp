#include "data/DatabaseLocator.h"
#include "locations/LocationRows.h"
#include "locations/LocationsWindow.h"
#include "support/DialogRobot.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"

#include <QDialog>
#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

const QString newButton = u"New / Clear"_s;
const QString deleteButton = u"Delete Location"_s;

DialogRobot::Expectation expectQuestion(DialogRobot &robot, const QString &code)
{
    return robot.expect(DialogRobot::Question, u"Confirm Delete"_s,
                        u"Delete location '%1'?"_s.arg(code));
}

/// Does something while the next question is asked.
class WhileAsking : public QObject
{
public:
    explicit WhileAsking(const std::function<void()> &work)
        : action(work)
    {
        qApp->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show && qobject_cast<QDialog *>(watched)) {
            qApp->removeEventFilter(this);
            action();
        }
        return false;
    }

private:
    std::function<void()> action;
};

} // namespace

/// A person deletes places, or thinks better of it.
class tst_LocationsPageDeleting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void deleteAsksFirst_data()
    {
        QTest::addColumn<bool>("dismissed");
        QTest::newRow("no") << false;
        QTest::newRow("closed") << true;
    }

    void deleteAsksFirst()
    {
        QFETCH(const bool, dismissed);
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeLocations(workspace, {albany, dallas});
        const LocationsWindow places(path);
        places.clicksLocation(1);
        auto question = expectQuestion(robot, u"DAL4"_s);
        if (dismissed)
            question.dismiss();
        else
            question.press(u"No"_s);
        places.clicks(deleteButton);
        QCOMPARE(robot.seen().first().buttons, QStringList({u"Yes"_s, u"No"_s}));
        QCOMPARE(robot.seen().first().defaultButton, u"No"_s);
        QCOMPARE(stored(path), QList<QStringList>({albany, dallas}));
        QCOMPARE(places.form(), dallas);
        QCOMPARE(places.mode(), u"Edit"_s);
        QCOMPARE(places.statuses, QStringList());
    }

    void declinedDeleteKeepsAnEdit()
    {
        Workspace workspace;
        DialogRobot robot;
        const LocationsWindow places(makeLocations(workspace, {albany}));
        places.edits(0);
        places.types("locationNameField", u"Gate 9"_s);
        expectQuestion(robot, u"ALB1"_s).press(u"No"_s);
        places.clicks(deleteButton);
        QCOMPARE(places.form().at(1), u"Gate 9"_s);
        QCOMPARE(places.mode(), u"Save"_s);
    }

    void deletedLocationIsGoneAndTheFormEmptyAndLocked()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeLocations(workspace, {albany, dallas});
        const LocationsWindow places(path);
        places.clicksLocation(0);
        expectQuestion(robot, u"ALB1"_s).press(u"Yes"_s);
        places.clicks(deleteButton);
        QCOMPARE(stored(path), QList<QStringList>({dallas}));
        QCOMPARE(texts(places.table()), QList<QStringList>({dallas}));
        QCOMPARE(places.form(), nothing);
        QCOMPARE(places.mode(), u"neither"_s);
        QCOMPARE(places.selection(), QList<int>({-1}));
        QCOMPARE(places.statuses, QStringList({u"Deleted location: ALB1"_s,
                                               u"Location form cleared for new location entry."_s,
                                               u"Loaded 1 locations"_s}));
    }

    void typedCodeIsDeletedWithoutASelection()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeLocations(workspace, {albany, dallas});
        const LocationsWindow places(path);
        places.clicks(newButton);
        places.types("locationCodeField", u" DAL4 "_s);
        expectQuestion(robot, u"DAL4"_s).press(u"Yes"_s);
        places.clicks(deleteButton);
        QCOMPARE(stored(path), QList<QStringList>({albany}));
        QCOMPARE(places.form(), nothing);
        QCOMPARE(places.mode(), u"neither"_s);
    }

    void codeThatIsNotThereCountsAsDeleted()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeLocations(workspace, {albany});
        LocationsWindow places(path);
        places.clicks(newButton);
        places.types("locationCodeField", u"alb1"_s);
        places.statuses.clear();
        expectQuestion(robot, u"alb1"_s).press(u"Yes"_s);
        places.clicks(deleteButton);
        QCOMPARE(stored(path), QList<QStringList>({albany}));
        QCOMPARE(places.statuses.first(), u"Deleted location: alb1"_s);
        QCOMPARE(places.statuses.last(), u"Loaded 1 locations"_s);
    }

    void selectedLocationIsDeletedWhateverTheFormSays()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeLocations(workspace, {albany, dallas});
        const LocationsWindow places(path);
        places.edits(0);
        places.types("locationCodeField", u"DAL4"_s);
        expectQuestion(robot, u"ALB1"_s).press(u"Yes"_s);
        places.clicks(deleteButton);
        QCOMPARE(stored(path), QList<QStringList>({dallas}));
    }

    void withoutACodeThereIsNothingToDelete()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeLocations(workspace, {locationWith(0, u"  "_s)});
        const LocationsWindow places(path);
        const QString text = u"Select or enter a location code first."_s;
        robot.expect(DialogRobot::Warning, u"Missing Code"_s, text);
        places.clicks(deleteButton);
        places.clicksLocation(0);
        robot.expect(DialogRobot::Warning, u"Missing Code"_s, text);
        places.clicks(deleteButton);
        QCOMPARE(robot.seen().size(), 2);
        QCOMPARE(stored(path).size(), 1);
        QCOMPARE(places.statuses, QStringList());
    }

    void codeStoredWithBlanksIsNotTheOneThatIsDeleted()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path =
            makeLocations(workspace, {coded(u" ALB1 "_s, albany), coded(u"ALB1"_s, dallas)});
        const LocationsWindow places(path);
        places.clicksLocation(0);
        QCOMPARE(places.form(), coded(u" ALB1 "_s, albany));
        expectQuestion(robot, u"ALB1"_s).press(u"Yes"_s);
        places.clicks(deleteButton);
        QCOMPARE(stored(path), QList<QStringList>({coded(u" ALB1 "_s, albany)}));
        QCOMPARE(places.statuses.first(), u"Deleted location: ALB1"_s);
    }

    void codeWithQuotesIsDeletedAlone()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString code = u"O'Neil' OR '1' = '1"_s;
        const QString path = makeLocations(workspace, {albany, locationWith(0, code)});
        const LocationsWindow places(path);
        places.clicksLocation(1);
        expectQuestion(robot, code).press(u"Yes"_s);
        places.clicks(deleteButton);
        QCOMPARE(stored(path), QList<QStringList>({albany}));
    }

    void fileThatRefusesADeleteKeepsTheLocation_data()
    {
        QTest::addColumn<QString>("sql");
        QTest::addColumn<QString>("reason");
        QTest::newRow("read-only")
            << u"PRAGMA query_only = ON"_s << u"attempt to write a readonly database"_s;
        QTest::newRow("no table") << u"DROP TABLE locations"_s << u"no such table: locations"_s;
    }

    void fileThatRefusesADeleteKeepsTheLocation()
    {
        QFETCH(const QString, sql);
        QFETCH(const QString, reason);
        Workspace workspace;
        DialogRobot robot;
        LocationsWindow places(makeLocations(workspace, {albany}));
        places.edits(0);
        places.types("locationNameField", u"Gate 9"_s);
        places.statuses.clear();
        onThePagesConnection(sql);
        expectQuestion(robot, u"ALB1"_s).press(u"Yes"_s);
        robot.expectContaining(DialogRobot::Critical, u"Delete Error"_s, reason);
        places.clicks(deleteButton);
        QCOMPARE(texts(places.table()), QList<QStringList>({albany}));
        QCOMPARE(places.form().first(2), QStringList({u"ALB1"_s, u"Gate 9"_s}));
        QCOMPARE(places.mode(), u"Save"_s);
        QCOMPARE(places.statuses, QStringList());
    }

    void lockedFileKeepsTheLocation()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeLocations(workspace, {albany});
        const LocationsWindow places(path);
        onThePagesConnection(u"PRAGMA busy_timeout = 0"_s);
        places.clicksLocation(0);
        {
            const TestConnection other(path);
            other.execute(u"BEGIN IMMEDIATE"_s);
            expectQuestion(robot, u"ALB1"_s).press(u"Yes"_s);
            robot.expectContaining(DialogRobot::Critical, u"Delete Error"_s,
                                   u"database is locked"_s);
            places.clicks(deleteButton);
        }
        QCOMPARE(stored(path), QList<QStringList>({albany}));
        QCOMPARE(places.form(), albany);
        QCOMPARE(places.mode(), u"Edit"_s);
    }

    void fileClosedDuringTheQuestionKeepsTheLocation()
    {
        Workspace workspace;
        DialogRobot robot;
        const QString path = makeLocations(workspace, {albany});
        const LocationsWindow places(path);
        places.clicksLocation(0);
        const WhileAsking closing(&DatabaseLocator::closeAllSqliteConnections);
        expectQuestion(robot, u"ALB1"_s).press(u"Yes"_s);
        robot.expect(DialogRobot::Critical, u"Delete Error"_s,
                     u"Locations database is not open."_s);
        places.clicks(deleteButton);
        QCOMPARE(stored(path), QList<QStringList>({albany}));
        QCOMPARE(places.form(), albany);
        QCOMPARE(places.statuses, QStringList());
    }
};

TEST_CLASS(tst_LocationsPageDeleting)
#include "tst_LocationsPageDeleting.moc"
