#include "locations/LocationRows.h"
#include "locations/LocationsWindow.h"
#include "support/DialogRobot.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"

#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QScrollArea>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QStringList newlyAdded = {u"BUF1"_s,  u"Cold store"_s, u"4 Lake Rd"_s, u"Buffalo"_s, u"NY"_s,
                                u"14201"_s, u"9.5"_s,        u"-78.75"_s,    u""_s};

QStringList codes(const LocationsWindow &places)
{
    return column(places.table(), u"Code"_s);
}

/// The widgets of a layout from top to bottom, or from left to right; a row of its own is "row".
QStringList partsOf(const QLayout *layout)
{
    QStringList parts;
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        if (const auto *button = qobject_cast<QPushButton *>(item->widget()))
            parts.append(button->text());
        else if (item->widget())
            parts.append(QString::fromLatin1(item->widget()->metaObject()->className()));
        else
            parts.append(item->spacerItem() ? u"stretch"_s : u"row"_s);
    }
    return parts;
}

const QLayout *sectionsOf(const LocationsWindow &places)
{
    return places.page->findChild<QScrollArea *>()->widget()->layout();
}

} // namespace

/// A person looks through the places: listing, choosing, sorting, unlocking.
class tst_LocationsPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pageStartsEmptyAndLocked()
    {
        const Workspace workspace;
        const DialogRobot robot;
        const LocationsWindow places;
        QCOMPARE(places.form(), nothing);
        QCOMPARE(places.mode(), u"neither"_s);
        QCOMPARE(places.table()->rowCount(), 0);
        QCOMPARE(places.statuses, QStringList());
        QCOMPARE(robot.seen().size(), 0);
    }

    void sectionsStandFromTopToBottom()
    {
        const Workspace workspace;
        const LocationsWindow places;
        const QLayout *sections = sectionsOf(places);
        QCOMPARE(partsOf(sections), QStringList({u"QLabel"_s, u"row"_s, u"DataTable"_s,
                                                 u"LocationForm"_s, u"row"_s, u"stretch"_s}));
        QCOMPARE(
            partsOf(sections->itemAt(1)->layout()),
            QStringList({u"Open locations.db"_s, u"Refresh"_s, u"New / Clear"_s, u"stretch"_s}));
        QCOMPARE(partsOf(sections->itemAt(4)->layout()),
                 QStringList(
                     {u"Edit Location"_s, u"Save Location"_s, u"Delete Location"_s, u"stretch"_s}));
        QCOMPARE(qobject_cast<const QBoxLayout *>(sections)->stretch(5), 1);
        QCOMPARE(sections->contentsMargins(), QMargins(12, 12, 12, 12));
        QCOMPARE(sections->spacing(), 8);
    }

    void headingIsBoldAndLarger()
    {
        const Workspace workspace;
        const LocationsWindow places;
        const auto *heading = qobject_cast<QLabel *>(sectionsOf(places)->itemAt(0)->widget());
        QCOMPARE(heading->text(), u"Locations"_s);
        QVERIFY(heading->font().bold());
        QCOMPARE(heading->font().pointSize(), places.page->font().pointSize() + 4);
    }

    void pageScrollsWithoutAFrame()
    {
        const Workspace workspace;
        const LocationsWindow places;
        const auto *area = places.page->findChild<QScrollArea *>();
        QCOMPARE(places.page->layout()->contentsMargins(), QMargins());
        QCOMPARE(places.page->layout()->spacing(), 0);
        QCOMPARE(area->frameShape(), QFrame::NoFrame);
        QVERIFY(area->widgetResizable());
    }

    void tableSelectsWholeRowsOfAThumbsHeight()
    {
        const Workspace workspace;
        const LocationsWindow places;
        const QTableWidget *table = places.table();
        QCOMPARE(table->accessibleName(), u"Locations"_s);
        QCOMPARE(table->selectionBehavior(), QTableWidget::SelectRows);
        QCOMPARE(table->selectionMode(), QTableWidget::SingleSelection);
        QCOMPARE(table->minimumHeight(), 360);
        QCOMPARE(table->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
        QCOMPARE(table->sizePolicy().verticalPolicy(), QSizePolicy::MinimumExpanding);
        QCOMPARE(table->verticalHeader()->defaultSectionSize(), 32);
        QCOMPARE(table->verticalHeader()->minimumSectionSize(), 28);
    }

    void headersNameTheNineColumnsBeforeAFileIsOpenAndAfter()
    {
        Workspace workspace;
        const LocationsWindow places;
        const QStringList nine = {u"Code ↕"_s, u"Name ↕"_s,  u"Street ↕"_s,
                                  u"City ↕"_s, u"State ↕"_s, u"Zip ↕"_s,
                                  u"Lat ↕"_s,  u"Lon ↕"_s,   u"Notes ↕"_s};
        QCOMPARE(headers(places.table()), nine);
        places.page->openDatabase(makeLocations(workspace, {albany}));
        QCOMPARE(headers(places.table()), nine);
    }

    void pageWorksWithoutAStatusLine()
    {
        Workspace workspace;
        LocationsWindow places(makeLocations(workspace, {albany}));
        places.page->statusCallback = nullptr;
        places.clicks(u"Refresh"_s);
        places.edits(0);
        QCOMPARE(places.form(), albany);
        QCOMPARE(places.statuses, QStringList());
    }

    void clickedLocationStandsLockedInTheForm()
    {
        Workspace workspace;
        const LocationsWindow places(makeLocations(workspace, {albany, dallas}));
        places.clicksLocation(1);
        QCOMPARE(places.form(), dallas);
        QCOMPARE(places.mode(), u"Edit"_s);
        places.types("locationNameField", u"stray keys"_s);
        QCOMPARE(places.form(), dallas);
        QCOMPARE(places.statuses, QStringList());
    }

    void arrowKeysGoThroughTheLocations()
    {
        Workspace workspace;
        const LocationsWindow places(makeLocations(workspace, {albany, dallas}));
        places.clicksLocation(0);
        QTest::keyClick(places.table(), Qt::Key_Down);
        QCOMPARE(places.form(), dallas);
        QTest::keyClick(places.table(), Qt::Key_Up);
        QCOMPARE(places.form(), albany);
        QCOMPARE(places.selection(), QList<int>({0, 0}));
    }

    void missingCellLeavesItsFieldEmpty()
    {
        Workspace workspace;
        const LocationsWindow places(makeLocations(workspace, {albany}));
        delete places.table()->takeItem(0, 3);
        places.clicksLocation(0);
        QCOMPARE(places.form().at(3), QString());
        QCOMPARE(places.form().at(4), u"NY"_s);
    }

    void locationWithACodeOfBlanksCannotBeEdited()
    {
        Workspace workspace;
        const LocationsWindow places(makeLocations(workspace, {locationWith(0, u"  "_s)}));
        places.clicksLocation(0);
        QCOMPARE(places.form().first(), u"  "_s);
        QCOMPARE(places.mode(), u"neither"_s);
    }

    void editUnlocksTheFormAtItsName()
    {
        Workspace workspace;
        const LocationsWindow places(makeLocations(workspace, {albany}));
        places.edits(0);
        QCOMPARE(places.mode(), u"Save"_s);
        QCOMPARE(places.form(), albany);
        QCOMPARE(places.window.focusWidget()->objectName(), u"locationNameField"_s);
        QCOMPARE(places.statuses, QStringList({u"Editing location: ALB1"_s}));
    }

    void withoutASelectionThereIsNothingToEdit()
    {
        Workspace workspace;
        DialogRobot robot;
        const LocationsWindow places(makeLocations(workspace, {albany}));
        robot.expect(DialogRobot::Information, u"Edit Location"_s,
                     u"Select an existing location before editing."_s);
        places.asksFor("editLocationButton");
        QCOMPARE(robot.seen().size(), 1);
        QCOMPARE(places.mode(), u"neither"_s);
        QCOMPARE(places.statuses, QStringList());
    }

    void clickOnALocationDropsTheChanges()
    {
        Workspace workspace;
        const DialogRobot robot;
        const QString path = makeLocations(workspace, {albany, dallas});
        const LocationsWindow places(path);
        places.edits(0);
        places.types("locationNameField", u"Gate 9"_s);
        places.clicksLocation(1);
        QCOMPARE(places.form(), dallas);
        QCOMPARE(places.mode(), u"Edit"_s);
        places.edits(0);
        places.types("locationNameField", u"Gate 9"_s);
        places.clicksLocation(0);
        QCOMPARE(places.form(), albany);
        QCOMPARE(robot.seen().size(), 0);
        QCOMPARE(stored(path), QList<QStringList>({albany, dallas}));
    }

    void keyThatMovesWithinTheRowDropsTheChangesToo()
    {
        Workspace workspace;
        const LocationsWindow places(makeLocations(workspace, {albany}));
        places.edits(0);
        places.types("locationNameField", u"Gate 9"_s);
        QTest::keyClick(places.table(), Qt::Key_Right);
        QCOMPARE(places.form(), albany);
        QCOMPARE(places.mode(), u"Edit"_s);
    }

    void rowThatIsUnmarkedIsStillTheOneThatIsShown()
    {
        Workspace workspace;
        const LocationsWindow places(makeLocations(workspace, {albany, dallas}));
        places.edits(1);
        places.types("locationNameField", u"Gate 9"_s);
        QTest::keyClick(places.table(), Qt::Key_Space, Qt::ControlModifier);
        QCOMPARE(places.selection(), QList<int>({1})); // current, but not marked
        QCOMPARE(places.form(), dallas);
        QCOMPARE(places.mode(), u"Edit"_s);
    }

    void newClearsTheFormForAnEntry()
    {
        Workspace workspace;
        const LocationsWindow places(makeLocations(workspace, {albany, dallas}));
        places.clicksLocation(1);
        places.clicks(u"New / Clear"_s);
        QCOMPARE(places.form(), nothing);
        QCOMPARE(places.mode(), u"Save"_s);
        QCOMPARE(places.selection(), QList<int>({-1}));
        QCOMPARE(places.window.focusWidget()->objectName(), u"locationCodeField"_s);
        QCOMPARE(places.statuses,
                 QStringList({u"Location form cleared for new location entry."_s}));
        QVERIFY(!places.table()->signalsBlocked());
    }

    void newNeedsNoDatabase()
    {
        const Workspace workspace;
        const DialogRobot robot;
        const LocationsWindow places;
        places.clicks(u"New / Clear"_s);
        QCOMPARE(places.mode(), u"Save"_s);
        QCOMPARE(robot.seen().size(), 0);
    }

    void newEndsAnEditAndForgetsItsLocation()
    {
        Workspace workspace;
        DialogRobot robot;
        const LocationsWindow places(makeLocations(workspace, {albany}));
        places.edits(0);
        places.clicks(u"New / Clear"_s);
        QCOMPARE(places.form(), nothing);
        robot.expect(DialogRobot::Warning, u"Missing Code"_s,
                     u"Select or enter a location code first."_s);
        places.clicks(u"Delete Location"_s);
        QCOMPARE(codes(places), QStringList({u"ALB1"_s}));
    }

    void clickOnALocationEndsAnEntryAndLosesItsText()
    {
        Workspace workspace;
        const QString path = makeLocations(workspace, {albany, dallas});
        const LocationsWindow places(path);
        places.clicksLocation(0);
        places.clicks(u"New / Clear"_s);
        places.types("locationCodeField", u"KC1"_s);
        places.clicksLocation(0);
        QCOMPARE(places.form(), albany);
        QCOMPARE(places.mode(), u"Edit"_s);
        QCOMPARE(stored(path), QList<QStringList>({albany, dallas}));
    }

    void refreshShowsWhatTheFileHoldsByNow()
    {
        Workspace workspace;
        const QString path = makeLocations(workspace, {albany, dallas});
        const LocationsWindow places(path);
        addLocations(path, {newlyAdded});
        TestConnection(path).execute(u"DELETE FROM locations WHERE code = 'ALB1'"_s);
        QCOMPARE(codes(places), QStringList({u"ALB1"_s, u"DAL4"_s}));
        places.clicks(u"Refresh"_s);
        QCOMPARE(texts(places.table()), QList<QStringList>({newlyAdded, dallas}));
        QCOMPARE(places.statuses, QStringList({u"Loaded 2 locations"_s}));
    }

    void refreshLeavesALocationThatIsLookedAt()
    {
        Workspace workspace;
        const QString path = makeLocations(workspace, {albany, dallas});
        const LocationsWindow places(path);
        places.clicksLocation(1);
        TestConnection(path).execute(u"UPDATE locations SET name = 'Gate 9'"_s);
        places.clicks(u"Refresh"_s);
        QCOMPARE(places.form(), dallas);
        QCOMPARE(places.mode(), u"Edit"_s);
        QCOMPARE(column(places.table(), u"Name"_s), QStringList({u"Gate 9"_s, u"Gate 9"_s}));
        places.clicks(u"Edit Location"_s);
        QCOMPARE(places.statuses.last(), u"Editing location: DAL4"_s);
    }

    void refreshLeavesAnEdit()
    {
        Workspace workspace;
        const LocationsWindow places(makeLocations(workspace, {albany, dallas}));
        places.edits(1);
        places.types("locationNameField", u"Gate 9"_s);
        places.clicks(u"Refresh"_s);
        QCOMPARE(places.form().first(2), QStringList({u"DAL4"_s, u"Gate 9"_s}));
        QCOMPARE(places.mode(), u"Save"_s);
    }

    void refreshLeavesAnEntry()
    {
        Workspace workspace;
        const LocationsWindow places(makeLocations(workspace, {albany}));
        places.clicks(u"New / Clear"_s);
        places.types("locationCodeField", u"KC1"_s);
        places.clicks(u"Refresh"_s);
        QCOMPARE(places.form().first(), u"KC1"_s);
        QCOMPARE(places.mode(), u"Save"_s);
    }

    void degreesSortAsNumbersAndStandToTheRight()
    {
        Workspace workspace;
        const LocationsWindow places(makeLocations(workspace, {albany, newlyAdded, dallas}));
        Person::clicksHeader(places.table(), 6);
        QCOMPARE(column(places.table(), u"Lat"_s), QStringList({u"9.5"_s, u"32.5"_s, u"42.65"_s}));
        Person::clicksHeader(places.table(), 7);
        QCOMPARE(column(places.table(), u"Lon"_s),
                 QStringList({u"-96.75"_s, u"-78.75"_s, u"-73.75"_s}));
        QVERIFY(places.table()->item(0, 6)->textAlignment() & Qt::AlignRight);
        QVERIFY(places.table()->item(0, 7)->textAlignment() & Qt::AlignRight);
        QVERIFY(!(places.table()->item(0, 5)->textAlignment() & Qt::AlignRight));
    }

    void refreshKeepsTheSortAndItsArrow()
    {
        Workspace workspace;
        const QString path = makeLocations(workspace, {albany, dallas});
        const LocationsWindow places(path);
        Person::clicksHeader(places.table(), 3);
        Person::clicksHeader(places.table(), 3);
        addLocations(path, {newlyAdded});
        places.clicks(u"Refresh"_s);
        QCOMPARE(column(places.table(), u"City"_s),
                 QStringList({u"Dallas"_s, u"Buffalo"_s, u"Albany"_s}));
        QCOMPARE(headers(places.table()).at(3), u"City ▼"_s);
        QCOMPARE(headers(places.table()).filter(u"↕"_s).size(), 8);
    }

    void clickAfterASortShowsTheRowThatIsSeen()
    {
        Workspace workspace;
        const LocationsWindow places(makeLocations(workspace, {albany, dallas}));
        Person::clicksHeader(places.table(), 0);
        Person::clicksHeader(places.table(), 0);
        places.clicksLocation(0);
        QCOMPARE(places.form(), dallas);
    }

    void columnsAreAsWideAsTheirContents()
    {
        Workspace workspace;
        const QString longName = u"Dock of the long name behind the third gate"_s;
        const QString path = makeLocations(workspace, {albany});
        const LocationsWindow places(path);
        const int before = places.table()->columnWidth(1);
        addLocations(path, {locationWith(1, longName)});
        places.clicks(u"Refresh"_s);
        const int needed = places.table()->fontMetrics().horizontalAdvance(longName);
        QVERIFY(before < needed);
        QVERIFY(places.table()->columnWidth(1) >= needed);
    }

    void noteOfSeveralLinesHidesNoLongerOneOfASingleLine()
    {
        Workspace workspace;
        const QString manyLines = QStringList(40, u"Ring twice"_s).join(u'\n');
        const QString oneLine = u"Back in at the third gate behind the scale, and ring twice"_s;
        const QString path = makeLocations(
            workspace, {locationWith(8, manyLines), coded(u"NEW2"_s, locationWith(8, oneLine))});
        const LocationsWindow places(path);
        QVERIFY(places.table()->columnWidth(8)
                >= places.table()->fontMetrics().horizontalAdvance(oneLine));
    }

    void textStandsAsItIsStored_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("quotes") << u"O'Neil's \"Dock\""_s;
        QTest::newRow("markup") << u"<b>Dock</b> &amp;"_s;
        QTest::newRow("emoji") << u"\U0001F69B Pi\u00F1on"_s;
        QTest::newRow("ten thousand letters") << QString(10'000, u'n');
    }

    void textStandsAsItIsStored()
    {
        QFETCH(const QString, text);
        Workspace workspace;
        const LocationsWindow places(makeLocations(workspace, {locationWith(1, text)}));
        places.clicksLocation(0);
        QCOMPARE(places.table()->item(0, 1)->text(), text);
        QCOMPARE(places.form().at(1), text);
    }
};

TEST_CLASS(tst_LocationsPage)
#include "tst_LocationsPage.moc"
