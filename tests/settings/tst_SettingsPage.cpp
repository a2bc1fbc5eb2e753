#include "settings/SettingsWindow.h"
#include "support/ReadingOrder.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "ui/UiScale.h"

#include <QApplication>
#include <QFileInfo>
#include <QGroupBox>
#include <QPushButton>
#include <QScopeGuard>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString appearanceNote =
    u"The selected scale is saved and will be reused the next time the program starts. Custom "
    "values from 75% to 175% use the same saved UI scale pipeline as the preset values."_s;
const QString databaseNote =
    u"Export database backups or import previously exported database files. Import replaces the "
    "selected application database after confirmation."_s;
const QString pageNote =
    u"Adjust appearance settings for the app. Use preset values or enter a custom UI scale "
    "percent."_s;

QWidget *contentOf(const SettingsWindow &settings)
{
    return settings.page->findChild<QScrollArea *>()->widget();
}

QGroupBox *groupOf(const SettingsWindow &settings, const QString &title)
{
    for (QGroupBox *group : settings.page->findChildren<QGroupBox *>()) {
        if (group->title() == title)
            return group;
    }
    QTest::qFail(qPrintable(title), __FILE__, __LINE__);
    return nullptr;
}

QLabel *labelOf(const SettingsWindow &settings, const QString &text)
{
    for (QLabel *label : settings.page->findChildren<QLabel *>()) {
        if (label->text() == text)
            return label;
    }
    QTest::qFail(qPrintable(text), __FILE__, __LINE__);
    return nullptr;
}

} // namespace

/// A person chooses how large the program is shown.
class tst_SettingsPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pageReadsFromTopToBottom();
    void pageIsSpacedOut();
    void roomThatIsLeftStaysEmpty();
    void headingIsBoldAndFivePointsLarger();
    void notesWrap();
    void presetsCarryTheirNumbers();
    void customPercentIsHeldBetween75And175InStepsOf5();
    void previewStandsInAFrame();
    void tabGoesThroughThePageInReadingOrder();
    void captionsTakeTheKeyboardToTheirBoxes();
    void wheelOverABoxChangesNothing();
    void largestScaleScrollsAndCoversNothing();

    void savedScaleIsShown_data();
    void savedScaleIsShown();
    void previewHasTheSizeOfThePercent_data();
    void previewHasTheSizeOfThePercent();
    void chosenPresetChangesThePreviewAndNotTheApplicationsScale();
    void choiceThatWasNeverAppliedIsForgotten();
    void percentThatIsNoPresetAndNoStepOf5IsStored();
    void presetIsStored();
    void scaleIsOnDiskBeforeAnyoneIsToldOfIt();
    void appliedTwiceIsAnnouncedTwice();
    void scaleThatCannotBeStoredIsAnnouncedAllTheSame();
    void resetStores100AndAnnouncesItAlsoWhere100WasSet_data();
    void resetStores100AndAnnouncesItAlsoWhere100WasSet();
    void presetsDoNotFollowTheCustomPercent();
    void presetThatIsShownAlreadyCanNotBeChosenAgain();
    void percentOutOfBoundsCannotBeTyped_data();
    void percentOutOfBoundsCannotBeTyped();
};

void tst_SettingsPage::pageReadsFromTopToBottom()
{
    const Workspace workspace;
    const SettingsWindow settings;
    QCOMPARE(partsInReadingOrder(contentOf(settings)),
             QStringList({u"Settings"_s, pageNote, u"Appearance"_s, u"Database Management"_s}));
    QCOMPARE(partsInReadingOrder(groupOf(settings, u"Appearance"_s)),
             QStringList({u"UI Scale:"_s, u"scalePresetBox"_s, u"Custom %:"_s, u"scalePercentBox"_s,
                          u"Apply"_s, u"Reset to 100%"_s, u"Current selected scale: 100%"_s,
                          u"Preview: Brindlepath Desk"_s, appearanceNote}));
    QCOMPARE(partsInReadingOrder(groupOf(settings, u"Database Management"_s)),
             QStringList({databaseNote, u"Trips Database"_s, u"Export Trips Database"_s,
                          u"Import Trips Database"_s, u"Locations Database"_s,
                          u"Export Locations Database"_s, u"Import Locations Database"_s}));
}

void tst_SettingsPage::pageIsSpacedOut()
{
    const Workspace workspace;
    const SettingsWindow settings;
    QCOMPARE(contentOf(settings)->layout()->contentsMargins(), QMargins(18, 18, 18, 18));
    QCOMPARE(contentOf(settings)->layout()->spacing(), 12);
    QCOMPARE(groupOf(settings, u"Appearance"_s)->layout()->spacing(), 10);
    QCOMPARE(groupOf(settings, u"Database Management"_s)->layout()->spacing(), 10);
    // The gap of 12 stands beside the spacing of the row, which is that of its group.
    const QLabel *custom = labelOf(settings, u"Custom %:"_s);
    QCOMPARE(custom->x() - settings.presets()->geometry().right() - 1, 22);
}

void tst_SettingsPage::roomThatIsLeftStaysEmpty()
{
    const Workspace workspace;
    SettingsWindow settings;
    settings.window.resize(1800, 1400);
    Person::shows(settings.window);
    const auto buttons = settings.page->findChildren<QPushButton *>();
    QCOMPARE(buttons.size(), 6);
    for (const QPushButton *button : buttons)
        QCOMPARE(button->size(), button->sizeHint());
    for (const auto &title : {u"Appearance"_s, u"Database Management"_s}) {
        const QGroupBox *group = groupOf(settings, title);
        QCOMPARE(group->height(), group->heightForWidth(group->width()));
    }
}

void tst_SettingsPage::headingIsBoldAndFivePointsLarger()
{
    const Workspace workspace;
    const SettingsWindow settings;
    const QFont heading = labelOf(settings, u"Settings"_s)->font();
    QVERIFY(heading.bold());
    QCOMPARE(heading.pointSize(), QApplication::font().pointSize() + 5);
}

void tst_SettingsPage::notesWrap()
{
    const Workspace workspace;
    const SettingsWindow settings;
    for (const QString &note : {pageNote, appearanceNote, databaseNote})
        QVERIFY2(labelOf(settings, note)->wordWrap(), qPrintable(note));
}

void tst_SettingsPage::presetsCarryTheirNumbers()
{
    const Workspace workspace;
    const SettingsWindow settings;
    QStringList entries;
    for (int i = 0; i < settings.presets()->count(); ++i)
        entries.append(settings.presets()->itemText(i) + u' '
                       + settings.presets()->itemData(i).toString());
    QCOMPARE(entries, QStringList({u"90% 90"_s, u"100% 100"_s, u"110% 110"_s, u"125% 125"_s,
                                   u"150% 150"_s, u"175% 175"_s}));
    QVERIFY(!settings.presets()->isEditable());
}

void tst_SettingsPage::customPercentIsHeldBetween75And175InStepsOf5()
{
    const Workspace workspace;
    const SettingsWindow settings;
    QSpinBox *box = settings.percentBox();
    QCOMPARE(box->minimum(), 75);
    QCOMPARE(box->maximum(), 175);
    QCOMPARE(box->suffix(), u"%"_s);
    QCOMPARE(box->minimumWidth(), 140);
    QTest::keyClick(box, Qt::Key_Up);
    QCOMPARE(settings.choice(),
             QStringList({u"100%"_s, u"105%"_s, u"Current selected scale: 105%"_s}));
}

void tst_SettingsPage::previewStandsInAFrame()
{
    const Workspace workspace;
    const SettingsWindow settings;
    QCOMPARE(settings.preview()->text(), u"Preview: Brindlepath Desk"_s);
    QCOMPARE(settings.preview()->frameShape(), QFrame::StyledPanel);
    QCOMPARE(settings.preview()->margin(), 10);
}

void tst_SettingsPage::tabGoesThroughThePageInReadingOrder()
{
    const Workspace workspace;
    const SettingsWindow settings;
    settings.presets()->setFocus();
    QStringList names;
    for (int i = 0; i < 8; ++i) {
        names.append(QApplication::focusWidget()->objectName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(names,
             QStringList({u"scalePresetBox"_s, u"scalePercentBox"_s, u"applyScaleButton"_s,
                          u"resetScaleButton"_s, u"exportTripsButton"_s, u"importTripsButton"_s,
                          u"exportLocationsButton"_s, u"importLocationsButton"_s}));
}

void tst_SettingsPage::captionsTakeTheKeyboardToTheirBoxes()
{
    const Workspace workspace;
    const SettingsWindow settings;
    QCOMPARE(labelOf(settings, u"UI Scale:"_s)->buddy(), settings.presets());
    QCOMPARE(labelOf(settings, u"Custom %:"_s)->buddy(), settings.percentBox());
}

void tst_SettingsPage::wheelOverABoxChangesNothing()
{
    const Workspace workspace;
    const SettingsWindow settings;
    settings.named<QPushButton>("applyScaleButton")->setFocus();
    Person::turnsWheelOver(settings.presets());
    Person::turnsWheelOver(settings.percentBox());
    QCOMPARE(settings.choice(),
             QStringList({u"100%"_s, u"100%"_s, u"Current selected scale: 100%"_s}));
}

void tst_SettingsPage::largestScaleScrollsAndCoversNothing()
{
    const Workspace workspace;
    const QFont usual = QApplication::font();
    const auto restore = qScopeGuard([&usual] { QApplication::setFont(usual); });
    QFont large = usual;
    large.setPointSize(17);
    QApplication::setFont(large);
    SettingsWindow settings;
    settings.window.resize(1000, 400);
    const auto *area = settings.page->findChild<QScrollArea *>();
    QTRY_VERIFY(area->verticalScrollBar()->maximum() > 0);
    QCOMPARE(area->horizontalScrollBar()->maximum(), 0);
    for (const QLabel *label : settings.page->findChildren<QLabel *>()) {
        QVERIFY2(label->height() >= label->heightForWidth(label->width()),
                 qPrintable(label->text()));
        QVERIFY2(label->width() >= label->minimumSizeHint().width(), qPrintable(label->text()));
    }
}

void tst_SettingsPage::savedScaleIsShown_data()
{
    QTest::addColumn<int>("saved");
    QTest::addColumn<QString>("preset");
    QTest::addColumn<QString>("percent");
    QTest::addColumn<int>("points");
    QTest::newRow("preset") << 125 << u"125%"_s << u"125%"_s << 12;
    QTest::newRow("first preset") << 90 << u"90%"_s << u"90%"_s << 9;
    QTest::newRow("last preset") << 175 << u"175%"_s << u"175%"_s << 17;
    QTest::newRow("between presets") << 120 << u"90%"_s << u"120%"_s << 12;
    QTest::newRow("75 is 8 points, not 7") << 75 << u"90%"_s << u"75%"_s << 8;
    QTest::newRow("40 counts as 75") << 40 << u"90%"_s << u"75%"_s << 8;
    QTest::newRow("500 counts as 175") << 500 << u"175%"_s << u"175%"_s << 17;
}

void tst_SettingsPage::savedScaleIsShown()
{
    QFETCH(const int, saved);
    QFETCH(const QString, preset);
    QFETCH(const QString, percent);
    const Workspace workspace;
    Workspace::saveScale(saved);
    const SettingsWindow settings;
    QCOMPARE(settings.choice(),
             QStringList({preset, percent, "Current selected scale: "_L1 + percent}));
    QTEST(settings.previewPoints(), "points");
    QCOMPARE(UiScale::savedUiScalePercent(), saved);
    QCOMPARE(settings.announced, QList<int>());
}

void tst_SettingsPage::previewHasTheSizeOfThePercent_data()
{
    QTest::addColumn<QString>("percent");
    QTest::addColumn<int>("points");
    QTest::newRow("75") << u"75"_s << 8;
    QTest::newRow("80") << u"80"_s << 8;
    QTest::newRow("89") << u"89"_s << 8;
    QTest::newRow("90") << u"90"_s << 9;
    QTest::newRow("100") << u"100"_s << 10;
    QTest::newRow("125") << u"125"_s << 12;
    QTest::newRow("129") << u"129"_s << 12;
    QTest::newRow("175") << u"175"_s << 17;
}

void tst_SettingsPage::previewHasTheSizeOfThePercent()
{
    QFETCH(const QString, percent);
    const Workspace workspace;
    const SettingsWindow settings;
    settings.types(percent);
    QTEST(settings.previewPoints(), "points");
    QCOMPARE(settings.choice().constLast(), u"Current selected scale: %1%"_s.arg(percent));
}

void tst_SettingsPage::chosenPresetChangesThePreviewAndNotTheApplicationsScale()
{
    const Workspace workspace;
    const QFont usual = QApplication::font();
    const SettingsWindow settings;
    settings.chooses(u"150%"_s);
    QCOMPARE(settings.choice(),
             QStringList({u"150%"_s, u"150%"_s, u"Current selected scale: 150%"_s}));
    QCOMPARE(settings.previewPoints(), 15);
    QCOMPARE(UiScale::savedUiScalePercent(), 100);
    QCOMPARE(settings.announced, QList<int>());
    QCOMPARE(QApplication::font(), usual);
}

void tst_SettingsPage::choiceThatWasNeverAppliedIsForgotten()
{
    const Workspace workspace;
    Workspace::saveScale(110);
    {
        const SettingsWindow settings;
        settings.chooses(u"150%"_s);
        settings.types(u"133"_s);
    }
    const SettingsWindow settings;
    QCOMPARE(settings.choice(),
             QStringList({u"110%"_s, u"110%"_s, u"Current selected scale: 110%"_s}));
}

void tst_SettingsPage::percentThatIsNoPresetAndNoStepOf5IsStored()
{
    const Workspace workspace;
    const SettingsWindow settings;
    settings.types(u"133"_s);
    QCOMPARE(UiScale::savedUiScalePercent(), 100);
    settings.clicks(u"Apply"_s);
    QCOMPARE(UiScale::savedUiScalePercent(), 133);
    QCOMPARE(settings.announced, QList<int>({133}));
    QCOMPARE(settings.choice(),
             QStringList({u"100%"_s, u"133%"_s, u"Current selected scale: 133%"_s}));
    QCOMPARE(settings.previewPoints(), 13);
}

void tst_SettingsPage::presetIsStored()
{
    const Workspace workspace;
    const SettingsWindow settings;
    settings.chooses(u"175%"_s);
    settings.clicks(u"Apply"_s);
    QCOMPARE(UiScale::savedUiScalePercent(), 175);
    QCOMPARE(settings.announced, QList<int>({175}));
}

void tst_SettingsPage::scaleIsOnDiskBeforeAnyoneIsToldOfIt()
{
    const Workspace workspace;
    const SettingsWindow settings;
    QByteArray onDisk;
    connect(settings.page, &SettingsPage::uiScaleChanged, this, [&workspace, &onDisk] {
        onDisk = workspace.bytes(u"settings/Brindle Path LLC/Brindlepath Desk.conf"_s);
    });
    settings.types(u"133"_s);
    settings.clicks(u"Apply"_s);
    QCOMPARE(onDisk, QByteArray("[appearance]\nuiScalePercent=133\n"));
}

void tst_SettingsPage::appliedTwiceIsAnnouncedTwice()
{
    const Workspace workspace;
    const SettingsWindow settings;
    settings.clicks(u"Apply"_s);
    settings.clicks(u"Apply"_s);
    QCOMPARE(settings.announced, QList<int>({100, 100}));
}

void tst_SettingsPage::scaleThatCannotBeStoredIsAnnouncedAllTheSame()
{
    const Workspace workspace;
    workspace.makeFile(u"settings"_s, "a file where the folder of the settings belongs");
    const SettingsWindow settings;
    settings.chooses(u"150%"_s);
    settings.clicks(u"Apply"_s);
    QCOMPARE(settings.announced, QList<int>({150}));
    QCOMPARE(settings.previewPoints(), 15);
    QVERIFY(!QFileInfo(workspace.path(u"settings"_s)).isDir());
}

void tst_SettingsPage::resetStores100AndAnnouncesItAlsoWhere100WasSet_data()
{
    QTest::addColumn<int>("saved");
    QTest::newRow("preset") << 150;
    QTest::newRow("between presets") << 133;
    QTest::newRow("100 already") << 100;
}

void tst_SettingsPage::resetStores100AndAnnouncesItAlsoWhere100WasSet()
{
    QFETCH(const int, saved);
    const Workspace workspace;
    Workspace::saveScale(saved);
    const SettingsWindow settings;
    settings.clicks(u"Reset to 100%"_s);
    QCOMPARE(UiScale::savedUiScalePercent(), 100);
    QCOMPARE(settings.announced, QList<int>({100}));
    QCOMPARE(settings.choice(),
             QStringList({u"100%"_s, u"100%"_s, u"Current selected scale: 100%"_s}));
    QCOMPARE(settings.previewPoints(), 10);
}

void tst_SettingsPage::presetsDoNotFollowTheCustomPercent()
{
    const Workspace workspace;
    const SettingsWindow settings;
    settings.types(u"150"_s);
    settings.clicks(u"Apply"_s);
    QCOMPARE(settings.choice(),
             QStringList({u"100%"_s, u"150%"_s, u"Current selected scale: 150%"_s}));
}

void tst_SettingsPage::presetThatIsShownAlreadyCanNotBeChosenAgain()
{
    const Workspace workspace;
    Workspace::saveScale(120);
    const SettingsWindow settings;
    settings.chooses(u"90%"_s);
    QCOMPARE(settings.choice(),
             QStringList({u"90%"_s, u"120%"_s, u"Current selected scale: 120%"_s}));
}

void tst_SettingsPage::percentOutOfBoundsCannotBeTyped_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("too small") << u"40"_s;
    QTest::newRow("too large") << u"500"_s;
    QTest::newRow("below zero") << u"-7"_s;
    QTest::newRow("no number") << u"huge"_s;
    QTest::newRow("nothing") << u""_s;
}

void tst_SettingsPage::percentOutOfBoundsCannotBeTyped()
{
    QFETCH(const QString, typed);
    const Workspace workspace;
    Workspace::saveScale(110);
    const SettingsWindow settings;
    settings.types(typed);
    settings.clicks(u"Apply"_s);
    QCOMPARE(UiScale::savedUiScalePercent(), 110);
    QCOMPARE(settings.announced, QList<int>({110}));
    QCOMPARE(settings.percentBox()->text(), u"110%"_s);
}

TEST_CLASS(tst_SettingsPage)

#include "tst_SettingsPage.moc"
