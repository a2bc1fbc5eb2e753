#include "app/ApplicationSetup.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "support/surroundings/DefaultLocale.h"

#include <QApplication>
#include <QIcon>
#include <QLabel>
#include <QMessageBox>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_ApplicationSetup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void applicationGoesByItsNames();
    void figuresAreThoseOfTheTrade();
    void fontFollowsTheSavedScaleUnclamped_data();
    void fontFollowsTheSavedScaleUnclamped();
    void withoutASavedScaleTheFontHasTenPoints();
    void iconComesFromTheResources();
    void messageBoxesShowMarkupAsItStands();
};

void tst_ApplicationSetup::applicationGoesByItsNames()
{
    const Workspace workspace;
    setUpApplication();
    QCOMPARE(QApplication::organizationName(), u"Brindle Path LLC"_s);
    QCOMPARE(QApplication::applicationName(), u"Brindlepath Desk"_s);
}

void tst_ApplicationSetup::figuresAreThoseOfTheTrade()
{
    const Workspace workspace;
    const DefaultLocale desktop(u"fr_CA"_s);
    setUpApplication();
    QCOMPARE(QLocale().toCurrencyString(1234.5), u"$1,234.50"_s);
}

void tst_ApplicationSetup::fontFollowsTheSavedScaleUnclamped_data()
{
    QTest::addColumn<int>("percent");
    QTest::addColumn<int>("pointSize");
    QTest::newRow("below the range") << 40 << 8;
    QTest::newRow("smallest") << 75 << 8;
    QTest::newRow("largest") << 175 << 17;
    QTest::newRow("beyond the range") << 500 << 50;
}

void tst_ApplicationSetup::fontFollowsTheSavedScaleUnclamped()
{
    const Workspace workspace;
    QFETCH(const int, percent);
    Workspace::saveScale(percent);
    setUpApplication();
    QTEST(QApplication::font().pointSize(), "pointSize");
}

void tst_ApplicationSetup::withoutASavedScaleTheFontHasTenPoints()
{
    const Workspace workspace;
    setUpApplication();
    QCOMPARE(QApplication::font().pointSize(), 10);
}

void tst_ApplicationSetup::iconComesFromTheResources()
{
    const Workspace workspace;
    setUpApplication();
    const QList<QSize> sizes = QApplication::windowIcon().availableSizes();
    QVERIFY(sizes.contains(QSize(16, 16)));
    QVERIFY(sizes.contains(QSize(256, 256)));
}

void tst_ApplicationSetup::messageBoxesShowMarkupAsItStands()
{
    const Workspace workspace;
    setUpApplication();
    QMessageBox box(QMessageBox::Question, u"Delete"_s, u"<b>Delete</b> location <i>ALB1?"_s);
    box.show();
    const auto *text = box.findChild<QLabel *>(u"qt_msgbox_label"_s);
    QCOMPARE(text->textFormat(), Qt::PlainText);
    QVERIFY(text->fontMetrics().horizontalAdvance(box.text()) <= text->width());
}

TEST_CLASS(tst_ApplicationSetup)

#include "tst_ApplicationSetup.moc"
