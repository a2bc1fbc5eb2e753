#include "app/BrindlepathApp.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QScopeGuard>
#include <QTest>

using namespace Qt::StringLiterals;

/// The look of the start screen; its figures are in tst_BrindlepathApp and tst_DashboardStats.
class tst_StartScreen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sectionsStandFromTopToBottom();
    void titleAndWelcomeStandOut();
    void onlyTextsWithoutASizeOfTheirOwnFollowTheScale();
    void captionsNameTheirValues();
    void valuesStandBesideTheirCaptions();
    void activityWrapsItsLines();

private:
    static QLabel *labelOf(const QWidget *page, const QString &text);
};

QLabel *tst_StartScreen::labelOf(const QWidget *page, const QString &text)
{
    for (QLabel *label : page->findChildren<QLabel *>()) {
        if (label->text() == text)
            return label;
    }
    QTest::qFail(qPrintable(u"No label "_s + text), __FILE__, __LINE__);
    return nullptr;
}

void tst_StartScreen::sectionsStandFromTopToBottom()
{
    const Workspace workspace;
    const BrindlepathApp window;
    const auto *page = window.findChild<QWidget *>(u"startPage"_s);
    const QLayout *layout = page->layout();
    QCOMPARE(layout->contentsMargins(), QMargins(18, 18, 18, 18));
    QCOMPARE(layout->spacing(), 14);
    QCOMPARE(layout->count(), 5);
    QCOMPARE(qobject_cast<QLabel *>(layout->itemAt(0)->widget())->text(), u"Brindlepath Desk"_s);
    QCOMPARE(qobject_cast<QLabel *>(layout->itemAt(1)->widget())->text(), u"Welcome back."_s);
    QCOMPARE(qobject_cast<QGroupBox *>(layout->itemAt(2)->widget())->title(),
             u"Business Summary"_s);
    QCOMPARE(qobject_cast<QGroupBox *>(layout->itemAt(3)->widget())->title(), u"Recent Activity"_s);
    QVERIFY(layout->itemAt(4)->spacerItem());
}

void tst_StartScreen::titleAndWelcomeStandOut()
{
    const Workspace workspace;
    const int base = QApplication::font().pointSize();
    const BrindlepathApp window;
    const auto *page = window.findChild<QWidget *>(u"startPage"_s);
    const QFont title = labelOf(page, u"Brindlepath Desk"_s)->font();
    const QFont welcome = labelOf(page, u"Welcome back."_s)->font();
    QVERIFY(title.bold());
    QVERIFY(welcome.bold());
    QCOMPARE(title.pointSize(), base + 8);
    QCOMPARE(welcome.pointSize(), base + 3);
}

void tst_StartScreen::onlyTextsWithoutASizeOfTheirOwnFollowTheScale()
{
    const Workspace workspace;
    const QFont fontBefore = QApplication::font();
    const auto restoreFont = qScopeGuard([&fontBefore] { QApplication::setFont(fontBefore); });
    BrindlepathApp window;
    const auto *page = window.findChild<QWidget *>(u"startPage"_s);
    const QLabel *title = labelOf(page, u"Brindlepath Desk"_s);
    const int titleSize = title->font().pointSize();
    window.applyUiScale(175);
    QCOMPARE(title->font().pointSize(), titleSize);
    QCOMPARE(window.findChild<QLabel *>(u"startTripsValue"_s)->font().pointSize(), 17);
    QCOMPARE(labelOf(page, u"Trips:"_s)->font().pointSize(), 17);
}

void tst_StartScreen::captionsNameTheirValues()
{
    const Workspace workspace;
    const BrindlepathApp window;
    const auto *page = window.findChild<QWidget *>(u"startPage"_s);
    const auto *rows = qobject_cast<QGridLayout *>(
        page->findChild<QLabel *>(u"startTripsValue"_s)->parentWidget()->layout());
    QCOMPARE(rows->contentsMargins(), QMargins(12, 12, 12, 12));
    QCOMPARE(rows->horizontalSpacing(), 18);
    QCOMPARE(rows->verticalSpacing(), 8);
    QCOMPARE(rows->columnStretch(1), 1);
    QStringList captions;
    for (int row = 0; row < rows->rowCount(); ++row) {
        const auto *caption = qobject_cast<QLabel *>(rows->itemAtPosition(row, 0)->widget());
        QVERIFY(caption->font().bold());
        QCOMPARE(caption->minimumWidth(), 130);
        captions.append(caption->text());
    }
    QCOMPARE(captions, QStringList({u"Database:"_s, u"Trips:"_s, u"Locations:"_s,
                                    u"Current Payweek:"_s, u"Last Backup:"_s}));
}

void tst_StartScreen::valuesStandBesideTheirCaptions()
{
    const Workspace workspace;
    const BrindlepathApp window;
    const auto *page = window.findChild<QWidget *>(u"startPage"_s);
    const auto *rows = qobject_cast<QGridLayout *>(
        page->findChild<QLabel *>(u"startTripsValue"_s)->parentWidget()->layout());
    QStringList values;
    for (int row = 0; row < rows->rowCount(); ++row)
        values.append(rows->itemAtPosition(row, 1)->widget()->objectName());
    QCOMPARE(values,
             QStringList({u"startDatabaseValue"_s, u"startTripsValue"_s, u"startLocationsValue"_s,
                          u"startPayweekValue"_s, u"startBackupValue"_s}));
}

void tst_StartScreen::activityWrapsItsLines()
{
    const Workspace workspace;
    const BrindlepathApp window;
    const auto *activity = window.findChild<QLabel *>(u"startActivityLabel"_s);
    QVERIFY(activity->wordWrap());
    QCOMPARE(activity->parentWidget()->layout()->contentsMargins(), QMargins(12, 12, 12, 12));
}

TEST_CLASS(tst_StartScreen)

#include "tst_StartScreen.moc"
