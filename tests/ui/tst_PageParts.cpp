#include "app/PageParts.h"
#include "support/DialogRobot.h"
#include "support/Workspace.h"

#include <QFileDialog>
#include <QLayout>
#include <QScrollArea>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_PageParts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void chosenFileIsGiven();
    void dismissedDialogGivesNothing();
    void contentFillsThePageWithoutFrameOrMargin();
    void contentLargerThanThePageScrolls();
};

void tst_PageParts::chosenFileIsGiven()
{
    Workspace workspace;
    const QString path = workspace.makeTrips(u"mine.db"_s);
    DialogRobot robot;
    QWidget page;
    robot.expectFileDialog(u"Open trips.db"_s).choose(path);
    QCOMPARE(PageParts::askForDatabase(&page, u"Open trips.db"_s), path);
    QCOMPARE(robot.seen().constFirst().nameFilters,
             QStringList({u"SQLite Database (*.db)"_s, u"All Files (*.*)"_s}));
}

void tst_PageParts::dismissedDialogGivesNothing()
{
    const Workspace workspace;
    DialogRobot robot;
    QWidget page;
    robot.expectFileDialog(u"Open trips.db"_s).dismiss();
    QCOMPARE(PageParts::askForDatabase(&page, u"Open trips.db"_s), QString());
}

void tst_PageParts::contentFillsThePageWithoutFrameOrMargin()
{
    const Workspace workspace;
    QWidget page;
    auto *content = new QWidget;
    PageParts::fillScrolling(&page, content);
    page.resize(400, 300);
    page.show();
    QCOMPARE(page.layout()->contentsMargins(), QMargins());
    QCOMPARE(page.findChild<QScrollArea *>()->frameShape(), QFrame::NoFrame);
    QTRY_COMPARE(content->size(), QSize(400, 300));
}

void tst_PageParts::contentLargerThanThePageScrolls()
{
    const Workspace workspace;
    QWidget page;
    auto *content = new QWidget;
    content->setMinimumHeight(900);
    PageParts::fillScrolling(&page, content);
    page.resize(400, 300);
    page.show();
    QTRY_COMPARE(content->height(), 900);
    QCOMPARE(page.height(), 300);
}

QTEST_MAIN(tst_PageParts)

#include "tst_PageParts.moc"
