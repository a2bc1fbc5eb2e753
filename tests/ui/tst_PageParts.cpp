#include "support/DialogRobot.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "ui/PageParts.h"

#include <QFileDialog>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QScrollArea>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A page with a button that counts how often it was clicked.
class Counter : public QWidget
{
public:
    void count() { ++clicks; }
    int clicks = 0;
};

} // namespace

class tst_PageParts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void headingIsBoldAndFourPointsLarger();
    void captionNamesAFieldAndTakesTheKeyboardThere();
    void noteWrapsAndShowsMarkupAsItStands();
    void buttonStandsAtTheEndOfItsRowAndActs();
    void chosenFileIsGiven();
    void dismissedDialogGivesNothing();
    void contentFillsThePageWithoutFrameOrMargin();
    void contentLargerThanThePageScrolls();
};

void tst_PageParts::headingIsBoldAndFourPointsLarger()
{
    const Workspace workspace;
    QWidget page;
    const QLabel *heading = PageParts::makeHeading(u"Trips"_s, &page);
    QCOMPARE(heading->text(), u"Trips"_s);
    QCOMPARE(heading->parentWidget(), &page);
    QVERIFY(heading->font().bold());
    QCOMPARE(heading->font().pointSize(), page.font().pointSize() + 4);
    QVERIFY(!page.font().bold());
}

void tst_PageParts::captionNamesAFieldAndTakesTheKeyboardThere()
{
    const Workspace workspace;
    QWidget page;
    auto *before = new QLineEdit(&page);
    auto *field = new QLineEdit(&page);
    const QLabel *caption = PageParts::makeCaption(u"&Payweek:"_s, field);
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    before->setFocus();
    QCOMPARE(caption->text(), u"&Payweek:"_s);
    QCOMPARE(caption->buddy(), field);
    QCOMPARE(caption->parentWidget(), &page);
    QTest::keyClick(before, Qt::Key_P, Qt::AltModifier);
    QVERIFY(field->hasFocus());
}

void tst_PageParts::noteWrapsAndShowsMarkupAsItStands()
{
    const Workspace workspace;
    QWidget page;
    const QLabel *note = PageParts::makeNote(u"No <b>items</b> found for this payweek."_s, &page);
    QCOMPARE(note->text(), u"No <b>items</b> found for this payweek."_s);
    QCOMPARE(note->textFormat(), Qt::PlainText);
    QVERIFY(note->wordWrap());
    QVERIFY(note->heightForWidth(60) > note->heightForWidth(600));
    QCOMPARE(note->parentWidget(), &page);
}

void tst_PageParts::buttonStandsAtTheEndOfItsRowAndActs()
{
    const Workspace workspace;
    Counter page;
    auto *row = new QHBoxLayout(&page);
    PageParts::addButton(row, u"First"_s, u"firstButton"_s, &page, &Counter::count);
    QPushButton *button =
        PageParts::addButton(row, u"Refresh"_s, u"refreshButton"_s, &page, &Counter::count);
    page.show();
    QCOMPARE(button->text(), u"Refresh"_s);
    QCOMPARE(button->objectName(), u"refreshButton"_s);
    QCOMPARE(row->indexOf(button), 1);
    QCOMPARE(page.clicks, 0);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(page.clicks, 1);
}

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
    const QWidget *content = PageParts::makeScrollingContent(&page);
    page.resize(400, 300);
    page.show();
    QCOMPARE(page.layout()->contentsMargins(), QMargins());
    QCOMPARE(page.layout()->spacing(), 0);
    QCOMPARE(page.findChild<QScrollArea *>()->frameShape(), QFrame::NoFrame);
    QTRY_COMPARE(content->size(), QSize(400, 300));
}

void tst_PageParts::contentLargerThanThePageScrolls()
{
    const Workspace workspace;
    QWidget page;
    QWidget *content = PageParts::makeScrollingContent(&page);
    content->setMinimumHeight(900);
    page.resize(400, 300);
    page.show();
    QTRY_COMPARE(content->height(), 900);
    QCOMPARE(page.height(), 300);
}

TEST_CLASS(tst_PageParts)

#include "tst_PageParts.moc"
