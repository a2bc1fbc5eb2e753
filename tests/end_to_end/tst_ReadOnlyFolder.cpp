#include "app/BrindlepathApp.h"
#include "support/DialogRobot.h"
#include "support/Person.h"
#include "support/RowMakers.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr uid_t nobody = 65534;

/// Takes away the right to write to the workspace, and from root the power not to care.
class WithoutWriteAccess
{
public:
    explicit WithoutWriteAccess(const Workspace &workspace)
        : folder(QFile::encodeName(workspace.path(u"."_s)))
        , caller(geteuid())
    {
        changeMode(workspace.path(u"trips.db"_s), 0444);
        changeMode(workspace.path(u"locations.db"_s), 0444);
        ::chmod(folder.constData(), 0555);
        if (caller == 0)
            changed = ::seteuid(nobody) == 0;
    }
    ~WithoutWriteAccess()
    {
        if (changed && ::seteuid(caller) != 0)
            qFatal("The test cannot take its rights back.");
        ::chmod(folder.constData(), 0755);
    }
    Q_DISABLE_COPY_MOVE(WithoutWriteAccess)

private:
    static void changeMode(const QString &path, mode_t mode)
    {
        ::chmod(QFile::encodeName(path).constData(), mode);
    }

    QByteArray folder;
    uid_t caller;
    bool changed = false;
};

} // namespace

class tst_ReadOnlyFolder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tripsCanBeReadAndNoFileComesToBe();
    void savingSaysWhyItFailsAndKeepsTheForm();
    void savingALocationSaysWhyItFailsAndKeepsTheForm();
    void olderFileCannotBeBroughtUpToDate();
};

void tst_ReadOnlyFolder::tripsCanBeReadAndNoFileComesToBe()
{
    Workspace workspace;
    workspace.makeTrips();
    workspace.makeLocations();
    trip().no(u"4471203"_s).insert(workspace);
    const WithoutWriteAccess readOnly(workspace);
    const DialogRobot robot;
    const BrindlepathApp window;
    QCOMPARE(column(window.findChild<QTableWidget *>(u"tripList"_s), u"Trip #"_s),
             QStringList({u"4471203"_s}));
    QCOMPARE(QDir().entryList(QDir::Files), QStringList({u"locations.db"_s, u"trips.db"_s}));
    QCOMPARE(robot.seen().size(), 0);
}

void tst_ReadOnlyFolder::savingSaysWhyItFailsAndKeepsTheForm()
{
    Workspace workspace;
    workspace.makeTrips();
    trip().no(u"4471203"_s).insert(workspace);
    const QByteArray before = workspace.bytes(u"trips.db"_s);
    const WithoutWriteAccess readOnly(workspace);
    DialogRobot robot;
    BrindlepathApp window;
    Person::shows(window);
    window.findChild<QListWidget *>(u"navigationList"_s)->setCurrentRow(1);
    Person::clicksCell(window.findChild<QTableWidget *>(u"tripList"_s), 0, 1);
    auto *linehaul = window.findChild<QLineEdit *>(u"linehaulField"_s);
    Person::types(linehaul, u"1500"_s);
    robot.expectContaining(DialogRobot::Critical, u"Update Trip Failed"_s,
                           u"attempt to write a readonly database"_s);
    Person::clicks(window, u"Save Trip / Changes"_s);
    QCOMPARE(linehaul->text(), u"1500"_s);
    QCOMPARE(workspace.bytes(u"trips.db"_s), before);
}

void tst_ReadOnlyFolder::savingALocationSaysWhyItFailsAndKeepsTheForm()
{
    Workspace workspace;
    workspace.makeLocations();
    const QByteArray before = workspace.bytes(u"locations.db"_s);
    const WithoutWriteAccess readOnly(workspace);
    DialogRobot robot;
    BrindlepathApp window;
    Person::shows(window);
    window.findChild<QListWidget *>(u"navigationList"_s)->setCurrentRow(2);
    Person::clicks(window, u"New / Clear"_s);
    auto *code = window.findChild<QLineEdit *>(u"locationCodeField"_s);
    Person::types(code, u"DAL-01"_s);
    robot.expectContaining(DialogRobot::Critical, u"Save Error"_s,
                           u"attempt to write a readonly database"_s);
    Person::clicks(window, u"Save Location"_s);
    QCOMPARE(code->text(), u"DAL-01"_s);
    QVERIFY(!code->isReadOnly());
    QCOMPARE(workspace.bytes(u"locations.db"_s), before);
}

void tst_ReadOnlyFolder::olderFileCannotBeBroughtUpToDate()
{
    Workspace workspace;
    workspace.makeTrips();
    workspace.execute(u"ALTER TABLE trip_stops DROP COLUMN appt_latest"_s);
    trip().no(u"4471203"_s).insert(workspace);
    const WithoutWriteAccess readOnly(workspace);
    DialogRobot robot;
    robot.expectContaining(DialogRobot::Critical, u"Trip Stop Setup Error"_s,
                           u"attempt to write a readonly database"_s);
    const BrindlepathApp window;
    QCOMPARE(window.findChild<QTableWidget *>(u"tripList"_s)->rowCount(), 1);
}

TEST_CLASS(tst_ReadOnlyFolder)

#include "tst_ReadOnlyFolder.moc"
