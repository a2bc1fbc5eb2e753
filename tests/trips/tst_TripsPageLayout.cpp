#include "support/TestProgram.h"
#include "trips/TripsPage.h"
#include "trips/TripsRows.h"
#include "trips/TripsWindow.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollArea>
#include <QSet>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// The different letter sizes among the page's widgets of one kind.
template <typename Widget>
QList<int> pointSizes(const TripsWindow &trips)
{
    QSet<int> sizes;
    for (const Widget *widget : trips.page->findChildren<Widget *>())
        sizes.insert(widget->font().pointSize());
    return sizes.values();
}

} // namespace

/// How the page is laid out, and how it grows with the scale.
class tst_TripsPageLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tabGoesThroughThePageInReadingOrder()
    {
        const Workspace workspace;
        const TripsWindow trips;
        trips.named<QPushButton>("openTripsButton")->setFocus();
        QStringList visited;
        for (int press = 0; press < 30; ++press) {
            visited.append(trips.window.focusWidget()->objectName());
            QTest::keyClick(trips.window.focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(visited, QStringList({u"openTripsButton"_s,
                                       u"refreshTripsButton"_s,
                                       u"payweekFilter"_s,
                                       u"newTripButton"_s,
                                       u"saveTripButton"_s,
                                       u"deleteTripButton"_s,
                                       u"tripList"_s,
                                       u"tripNoField"_s,
                                       u"payweekField"_s,
                                       u"emptyMilesField"_s,
                                       u"loadedMilesField"_s,
                                       u"linehaulField"_s,
                                       u"fusuField"_s,
                                       u"carrierPercentField"_s,
                                       u"stopsAddButton"_s,
                                       u"stopsRemoveButton"_s,
                                       u"stopsSaveButton"_s,
                                       u"stopsGrid"_s,
                                       u"payItemsAddButton"_s,
                                       u"payItemsRemoveButton"_s,
                                       u"payItemsSaveButton"_s,
                                       u"payItemsGrid"_s,
                                       u"costItemsAddButton"_s,
                                       u"costItemsRemoveButton"_s,
                                       u"costItemsSaveButton"_s,
                                       u"costItemsGrid"_s,
                                       u"fuelEditButton"_s,
                                       u"fuelScanButton"_s,
                                       u"fuelGrid"_s,
                                       u"tripDetails"_s}));
    }

    void sectionsStandFromTopToBottom()
    {
        const Workspace workspace;
        const TripsPage page;
        const auto *area = page.findChild<QScrollArea *>();
        QCOMPARE(area->widgetResizable(), true);
        QCOMPARE(area->frameShape(), QFrame::NoFrame);
        QCOMPARE(page.layout()->contentsMargins(), QMargins());
        const auto *sections = qobject_cast<QVBoxLayout *>(area->widget()->layout());
        QCOMPARE(sections->contentsMargins(), QMargins(12, 12, 12, 12));
        QCOMPARE(sections->spacing(), 8);
        const auto *heading = qobject_cast<QLabel *>(sections->itemAt(0)->widget());
        QCOMPARE(heading->text(), u"Trips"_s);
        QCOMPARE(heading->font().pointSize(), 14);
        QCOMPARE(heading->font().bold(), true);
        QStringList titles;
        QList<int> stretches;
        for (int i = 0; i < sections->count(); ++i) {
            if (const auto *group = qobject_cast<QGroupBox *>(sections->itemAt(i)->widget()))
                titles.append(group->title());
            stretches.append(sections->stretch(i));
        }
        QCOMPARE(titles, QStringList({u"Trip Form"_s, u"Stops"_s, u"Pay Items"_s, u"Cost Items"_s,
                                      u"Fuel / DEF Details"_s}));
        QCOMPARE(stretches, QList<int>({0, 0, 2, 1, 2, 2, 2, 2, 0}));
    }

    void actionsStandInARow()
    {
        const Workspace workspace;
        const TripsPage page;
        const auto *row = page.findChild<QScrollArea *>()->widget()->layout()->itemAt(1)->layout();
        QStringList parts;
        for (int i = 0; i < row->count(); ++i) {
            QWidget *widget = row->itemAt(i)->widget();
            const auto *label = qobject_cast<QLabel *>(widget);
            parts.append(label    ? label->text()
                         : widget ? widget->objectName()
                                  : QString::number(row->itemAt(i)->sizeHint().width()));
        }
        QCOMPARE(parts, QStringList({u"openTripsButton"_s, u"refreshTripsButton"_s, u"12"_s,
                                     u"Payweek:"_s, u"payweekFilter"_s, u"12"_s, u"newTripButton"_s,
                                     u"saveTripButton"_s, u"deleteTripButton"_s, u"0"_s}));
        QCOMPARE(page.findChild<QComboBox *>(u"payweekFilter"_s)->minimumWidth(), 150);
    }

    void readyPageHasItsScaleAndSaysSo()
    {
        const Workspace workspace;
        const TripsWindow trips;
        trips.page->makeReady(175);
        QCOMPARE(trips.statuses, QStringList({u"Trips page ready."_s}));
        QCOMPARE(trips.page->font().pointSize(), 17);
    }

    void scaleReachesTheWholePage_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("points");
        QTest::addColumn<int>("fieldHeight");
        QTest::addColumn<int>("buttonHeight");
        QTest::addColumn<int>("rowHeight");
        QTest::addColumn<int>("headerHeight");
        QTest::newRow("75") << 75 << 8 << 26 << 28 << 22 << 24;
        QTest::newRow("100") << 100 << 10 << 30 << 32 << 24 << 26;
        QTest::newRow("175") << 175 << 17 << 52 << 56 << 42 << 45;
        QTest::newRow("below the range") << 40 << 8 << 26 << 28 << 22 << 24;
        QTest::newRow("above the range") << 500 << 17 << 52 << 56 << 42 << 45;
    }

    void scaleReachesTheWholePage()
    {
        Workspace workspace;
        const TripsWindow trips(makeTwoWeeks(workspace));
        QFETCH(const int, percent);
        QFETCH(const int, points);
        trips.page->applyUiScale(percent);
        QCOMPARE(trips.page->font().pointSize(), points);
        QCOMPARE(pointSizes<QLabel>(trips), QList<int>({points}));
        QCOMPARE(pointSizes<QLineEdit>(trips), QList<int>({points}));
        QCOMPARE(pointSizes<QPushButton>(trips), QList<int>({points}));
        QCOMPARE(pointSizes<QComboBox>(trips), QList<int>({points}));
        QCOMPARE(pointSizes<QGroupBox>(trips), QList<int>({points}));
        QCOMPARE(pointSizes<QTextEdit>(trips), QList<int>({points}));
        QTEST(trips.line("tripNoField")->minimumHeight(), "fieldHeight");
        QTEST(trips.named<QPushButton>("saveTripButton")->minimumHeight(), "buttonHeight");
        QTEST(trips.filter()->minimumHeight(), "buttonHeight");
    }

    void scaleReachesTheTripList_data() { scaleReachesTheWholePage_data(); }

    void scaleReachesTheTripList()
    {
        Workspace workspace;
        const TripsWindow trips(makeTwoWeeks(workspace));
        QFETCH(const int, percent);
        QFETCH(const int, points);
        trips.page->applyUiScale(percent);
        const TripList *list = trips.list();
        QCOMPARE(list->font().pointSize(), points);
        QCOMPARE(list->item(0, TripNoColumn)->font().pointSize(), points);
        QCOMPARE(list->horizontalHeader()->font().pointSize(), points);
        QTEST(list->horizontalHeader()->minimumHeight(), "headerHeight");
        QTEST(list->rowHeight(0), "rowHeight");
        trips.clicks(u"Refresh"_s);
        QTEST(list->rowHeight(2), "rowHeight");
    }

    void tripListKeepsRoomForItsRows_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("leastHeight");
        QTest::newRow("75") << 75 << 110;
        QTest::newRow("100") << 100 << 110;
        QTest::newRow("175") << 175 << 192;
        QTest::newRow("above the range") << 500 << 192;
    }

    void tripListKeepsRoomForItsRows()
    {
        const Workspace workspace;
        const TripsWindow trips;
        QFETCH(const int, percent);
        trips.page->applyUiScale(percent);
        QTEST(trips.list()->minimumHeight(), "leastHeight");
    }

    void filterStaysWideEnoughForItsTexts()
    {
        Workspace workspace;
        const TripsWindow trips(makeTwoWeeks(workspace));
        trips.page->applyUiScale(100);
        QVERIFY(trips.filter()->minimumWidth() >= 150);
        trips.page->applyUiScale(175);
        QVERIFY(trips.filter()->minimumWidth()
                > trips.filter()->fontMetrics().horizontalAdvance(u"All Payweeks"_s));
    }

    void detailsGrowWithTheScale()
    {
        Workspace workspace;
        const TripsWindow trips(makeTwoWeeks(workspace));
        trips.clicksTrip(0);
        const auto *details = trips.named<QTextEdit>("tripDetails");
        trips.page->applyUiScale(75);
        const int low = details->minimumHeight();
        trips.page->applyUiScale(175);
        QVERIFY(details->minimumHeight() > low * 3 / 2);
    }
};

TEST_CLASS(tst_TripsPageLayout)
#include "tst_TripsPageLayout.moc"
