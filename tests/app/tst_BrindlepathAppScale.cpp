#include "app/ApplicationSetup.h"
#include "app/DeskWindow.h"
#include "settings/SettingsPage.h"
#include "support/Person.h"
#include "support/TestProgram.h"

#include <QApplication>
#include <QComboBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

/// The scale that sizes the whole window.
class tst_BrindlepathAppScale : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fontBefore = QApplication::font(); }
    // Each window sets the font of the saved scale.
    void cleanup() { QApplication::setFont(fontBefore); }

    void scaleIsClampedAndReachesTheWholeWindow();
    void scaleAppliedInSettingsSizesTheWindow();
    void scaleIsToldAsItWasChosen();
    void savedScaleOutsideTheRangeIsClamped();
    void programClampsTheScaleOnlyInItsWindow();

private:
    QFont fontBefore;
};

void tst_BrindlepathAppScale::scaleIsClampedAndReachesTheWholeWindow()
{
    const Workspace workspace;
    BrindlepathApp window;
    window.applyUiScale(500);
    QCOMPARE(QApplication::font().pointSize(), 17);
    QCOMPARE(window.font().pointSize(), 17);
    QCOMPARE(named<QListWidget>(window, "navigationList")->font().pointSize(), 17);
    QCOMPARE(named<QLabel>(window, "statusLabel")->font().pointSize(), 17);
    QCOMPARE(named<QPushButton>(window, "newTripButton")->minimumHeight(), 56);
    window.applyUiScale(40);
    QCOMPARE(QApplication::font().pointSize(), 8);
    QCOMPARE(named<QPushButton>(window, "newTripButton")->minimumHeight(), 28);
    QCOMPARE(named<QTableWidget>(window, "stopsGrid")->columnWidth(3), 165); // as at 75
}

void tst_BrindlepathAppScale::scaleAppliedInSettingsSizesTheWindow()
{
    const Workspace workspace;
    BrindlepathApp window;
    Person::shows(window);
    goTo(window, u"Settings"_s);
    Person::chooses(window.findChild<SettingsPage *>()->findChild<QComboBox *>(), u"150%"_s);
    QCOMPARE(QApplication::font().pointSize(), 10);
    Person::clicks(window, u"Apply"_s);
    QCOMPARE(QApplication::font().pointSize(), 15);
    QCOMPARE(named<QPushButton>(window, "newTripButton")->minimumHeight(), 48);
    QCOMPARE(named<QPushButton>(window, "refreshTotalsButton")->minimumHeight(), 48);
    QCOMPARE(status(window), u"UI scale set to 150%"_s);
}

void tst_BrindlepathAppScale::scaleIsToldAsItWasChosen()
{
    const Workspace workspace;
    const BrindlepathApp window;
    auto *settings = window.findChild<SettingsPage *>();
    Q_EMIT settings->uiScaleChanged(500);
    QCOMPARE(status(window), u"UI scale set to 500%"_s);
    QCOMPARE(QApplication::font().pointSize(), 17);
}

void tst_BrindlepathAppScale::savedScaleOutsideTheRangeIsClamped()
{
    const Workspace workspace;
    Workspace::saveScale(40);
    const BrindlepathApp window;
    QCOMPARE(QApplication::font().pointSize(), 8);
    QCOMPARE(named<QPushButton>(window, "newTripButton")->minimumHeight(), 28);
    QCOMPARE(named<QTableWidget>(window, "stopsGrid")->columnWidth(3), 165); // as at 75
}

void tst_BrindlepathAppScale::programClampsTheScaleOnlyInItsWindow()
{
    const Workspace workspace;
    Workspace::saveScale(500);
    setUpApplication();
    QCOMPARE(QApplication::font().pointSize(), 50);
    const BrindlepathApp window;
    QCOMPARE(QApplication::font().pointSize(), 17);
}

TEST_CLASS(tst_BrindlepathAppScale)

#include "tst_BrindlepathAppScale.moc"
