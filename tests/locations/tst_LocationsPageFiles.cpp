#include "data/DatabaseLocator.h"
#include "locations/LocationRows.h"
#include "locations/LocationsWindow.h"
#include "support/DialogRobot.h"
#include "support/TestProgram.h"

using namespace Qt::StringLiterals;

namespace {

const QString saveButton = u"Save Location"_s;

/// Albany in the file that is open first, Dallas in the one behind it.
struct TwoFiles
{
    Workspace workspace;
    DialogRobot robot;
    QString first = makeLocations(workspace, {albany});
    QString second = workspace.makeLocations(u"second.db"_s);
    LocationsWindow places{first};

    TwoFiles() { addLocations(second, {dallas}); }

    DialogRobot::Expectation expectQuestion()
    {
        return robot.expect(DialogRobot::Question, saveButton,
                            u"This location was entered while another file was open:\n\n%1\n\n"
                            "Save it to the file that is open now?\n\n%2"_s.arg(first, second));
    }
};

} // namespace

/// Two files one after the other: the form stays, and asks before it goes into the other.
class tst_LocationsPageFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void locationChangedUnderOneFileIsNotSavedIntoAnother_data() { waysToSayNo(); }
    void locationChangedUnderOneFileIsNotSavedIntoAnother()
    {
        QFETCH(const bool, dismissed);
        TwoFiles files;
        files.places.edits(0);
        files.places.types("locationNameField", u"changed"_s);
        files.places.page->openDatabase(files.second);
        DialogRobot::Expectation question = files.expectQuestion();
        dismissed ? question.dismiss() : question.press(u"No"_s);
        files.places.clicks(saveButton);
        QCOMPARE(files.robot.seen().value(0).defaultButton, u"No"_s);
        QCOMPARE(stored(files.second), QList<QStringList>({dallas}));
        QCOMPARE(files.places.line("locationNameField")->text(), u"changed"_s);
    }

    void locationTypedUnderOneFileIsSavedIntoAnotherWhereTheDriverSaysSo()
    {
        TwoFiles files;
        files.places.clicks(u"New / Clear"_s);
        files.places.pastes(kansas);
        files.places.page->openDatabase(files.second);
        files.expectQuestion().press(u"Yes"_s);
        files.places.clicks(saveButton);
        QCOMPARE(stored(files.second), QList<QStringList>({dallas, kansas}));
        QCOMPARE(stored(files.first), QList<QStringList>({albany}));
    }

    void locationOfTheFileThatIsOpenIsSavedUnasked()
    {
        TwoFiles files;
        files.places.edits(0);
        files.places.page->openDatabase(files.second);
        files.places.edits(0);
        files.places.types("locationNameField", u"changed"_s);
        files.places.clicks(saveButton);
        QCOMPARE(stored(files.second).at(0).at(1), u"changed"_s);
        QCOMPARE(files.robot.seen().size(), 0);
    }

    void newLocationIsSavedUnasked()
    {
        TwoFiles files;
        files.places.edits(0);
        files.places.page->openDatabase(files.second);
        files.places.clicks(u"New / Clear"_s);
        files.places.pastes(kansas);
        files.places.clicks(saveButton);
        QCOMPARE(stored(files.second), QList<QStringList>({dallas, kansas}));
    }

    void locationListedFromAFileThatWasLeftIsStillOfThatFile()
    {
        TwoFiles files;
        {
            const TestConnection second(files.second);
            second.execute(u"ALTER TABLE locations RENAME TO away"_s);
            files.robot.expectContaining(DialogRobot::Critical, u"Query Error"_s, u"locations"_s);
            files.places.page->openDatabase(files.second);
            second.execute(u"ALTER TABLE away RENAME TO locations"_s);
        }
        files.places.edits(0); // the table is still that of the first file
        files.places.types("locationNameField", u"changed"_s);
        files.expectQuestion().press(u"No"_s);
        files.places.clicks(saveButton);
        QCOMPARE(stored(files.second), QList<QStringList>({dallas}));
    }

    void locationClickedWhileNoFileIsOpenIsOfTheFileThatWasListed()
    {
        TwoFiles files;
        const QString away = files.workspace.path(u"away.db"_s);
        QVERIFY(QFile::rename(files.second, away));
        files.robot.expectContaining(DialogRobot::Critical, u"Database Error"_s, u"unable"_s);
        files.places.page->openDatabase(files.second);
        files.places.edits(0);
        files.places.types("locationNameField", u"changed"_s);
        QVERIFY(QFile::rename(away, files.second));
        files.places.page->openDatabase(files.second);
        files.expectQuestion().press(u"No"_s);
        files.places.clicks(saveButton);
        QCOMPARE(stored(files.second), QList<QStringList>({dallas}));
    }

    void locationSelectedInOneFileIsNotDeletedFromAnother()
    {
        TwoFiles files;
        addLocations(files.second, {coded(u"ALB1"_s, kansas)});
        files.places.clicksLocation(0);
        files.places.page->openDatabase(files.second);
        const QString title = u"Delete Location"_s;
        files.robot
            .expect(DialogRobot::Question, title,
                    u"This location was selected while another file was open:\n\n%1\n\nDelete it "
                    "from the file that is open now?\n\n%2"_s.arg(files.first, files.second))
            .press(u"No"_s);
        files.places.clicks(title);
        QCOMPARE(files.robot.seen().value(0).defaultButton, u"No"_s);
        QCOMPARE(stored(files.second).size(), 2);
    }

    void fileReplacedByAnImportIsAnother()
    {
        TwoFiles files;
        files.places.edits(0);
        files.places.types("locationNameField", u"changed"_s);
        DatabaseLocator::closeAllSqliteConnections();
        QVERIFY(QFile::remove(files.first));
        QVERIFY(QFile::copy(files.second, files.first));
        addLocations(files.first, {coded(u"ALB1"_s, kansas)});
        files.places.page->openDatabase(files.first);
        files.robot
            .expect(DialogRobot::Question, saveButton,
                    u"This location was entered while another file was open:\n\n%1 (as it was "
                    "then)\n\nSave it to the file that is open now?\n\n%1"_s.arg(files.first))
            .press(u"No"_s);
        files.places.clicks(saveButton);
        QCOMPARE(stored(files.first).at(0), coded(u"ALB1"_s, kansas));
    }

    void rowsOfAFileReplacedByAnImportAreStillOfThatFile()
    {
        TwoFiles files;
        DatabaseLocator::closeAllSqliteConnections();
        QVERIFY(QFile::remove(files.first));
        QVERIFY(QFile::copy(files.second, files.first));
        {
            const TestConnection imported(files.first);
            imported.execute(u"ALTER TABLE locations RENAME TO away"_s);
            files.robot.expectContaining(DialogRobot::Critical, u"Query Error"_s, u"locations"_s);
            files.places.page->openDatabase(files.first);
            imported.execute(u"ALTER TABLE away RENAME TO locations"_s);
        }
        files.places.edits(0);
        files.robot
            .expect(DialogRobot::Question, saveButton,
                    u"This location was entered while another file was open:\n\n%1 (as it was "
                    "then)\n\nSave it to the file that is open now?\n\n%1"_s.arg(files.first))
            .press(u"No"_s);
        files.places.clicks(saveButton);
        QCOMPARE(stored(files.first), QList<QStringList>({dallas}));
    }

    void entryBegunBeforeAnyFileWasOpenIsOfTheFirstThatIs()
    {
        TwoFiles files;
        delete files.places.page; // two pages would share one connection
        LocationsWindow places;
        places.clicks(u"New / Clear"_s);
        places.page->openDatabase(files.first);
        places.pastes(kansas);
        places.page->openDatabase(files.second);
        files.expectQuestion().press(u"No"_s);
        places.clicks(saveButton);
        QCOMPARE(stored(files.second), QList<QStringList>({dallas}));
    }

    void sameFileByAnotherPathIsTheSame()
    {
        TwoFiles files;
        files.places.edits(0);
        files.places.types("locationNameField", u"changed"_s);
        files.places.page->openDatabase(u"locations.db"_s);
        files.places.clicks(saveButton);
        QCOMPARE(stored(files.first).at(0).at(1), u"changed"_s);
    }

private:
    static void waysToSayNo()
    {
        QTest::addColumn<bool>("dismissed");
        QTest::newRow("no") << false;
        QTest::newRow("closed") << true;
    }
};

TEST_CLASS(tst_LocationsPageFiles)
#include "tst_LocationsPageFiles.moc"
