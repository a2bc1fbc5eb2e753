#include "hands/Desk.h"
#include "support/TestProgram.h"

#include <QTest>

/// The empty bar below the menu stays where it is.
class tst_ToolBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY2(desktop.failure().isEmpty(), qPrintable(desktop.failure())); }
    void cannotBeTornOff();
    void hasNoMenuThatCouldHideIt_data();
    void hasNoMenuThatCouldHideIt();

private:
    Desktop desktop;
};

void tst_ToolBar::cannotBeTornOff()
{
    Workspace workspace;
    Desk desk(desktop, workspace);
    const QRect before = desk.place("mainToolBar");
    desk.drags("mainToolBar", {300, 400});
    QCOMPARE(desk.place("mainToolBar"), before);
}

void tst_ToolBar::hasNoMenuThatCouldHideIt_data()
{
    QTest::addColumn<QByteArray>("bar");
    QTest::newRow("on the tool bar") << QByteArray("mainToolBar");
    QTest::newRow("on the menu bar") << QByteArray("menuBar");
}

void tst_ToolBar::hasNoMenuThatCouldHideIt()
{
    QFETCH(const QByteArray, bar);
    Workspace workspace;
    Desk desk(desktop, workspace);
    desk.clicks(bar.constData(), Desktop::Right);
    QVERIFY(!desk.hasListOpen());
}

TEST_CLASS_WITHOUT_WINDOWS(tst_ToolBar)

#include "tst_ToolBar.moc"
