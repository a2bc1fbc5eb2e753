#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "trips/stops/StopsWindow.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

const QString morning = u"2026-04-17T08:00:00"_s;
const QString evening = u"2026-04-17T18:00:00"_s;

QCheckBox *windowBox(const StopsGrid &grid, int row)
{
    return qobject_cast<QCheckBox *>(grid.cellWidget(row, StopsGrid::WindowColumn));
}

OfferedTexts offeredCodes()
{
    OfferedTexts codes;
    codes.setList({u"DAL4"_s, u"KC1"_s});
    return codes;
}

/// Gives the grid one stop with a window from 08:00 to 18:00.
void appendWindow(StopsGrid &grid)
{
    grid.appendStop({u"receiver"_s, u"KC1"_s, morning, u"3"_s, true, evening}, offeredCodes());
}

QList<int> columnWidths(const StopsGrid &grid)
{
    QList<int> widths;
    for (int column = 0; column < grid.columnCount(); ++column)
        widths.append(grid.columnWidth(column));
    return widths;
}

} // namespace

class tst_StopsGrid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void columnsTellWhereAndWhen()
    {
        const Workspace workspace;
        const StopsGrid grid;
        QCOMPARE(headers(&grid),
                 QStringList({u"Type"_s, u"Location Code"_s, u"Window"_s, u"Earliest Appointment"_s,
                              u"Latest Appointment"_s, u"Order"_s}));
        QCOMPARE(columnWidths(grid), QList<int>({120, 180, 90, 220, 220, 80}));
        QCOMPARE(grid.minimumHeight(), 90);
        QCOMPARE(grid.selectionBehavior(), QAbstractItemView::SelectRows);
        QCOMPARE(grid.selectionMode(), QAbstractItemView::SingleSelection);
        QCOMPARE(grid.rowCount(), 0);
    }

    void typeIsOneOfTwo()
    {
        const Workspace workspace;
        StopsGrid grid;
        appendWindow(grid);
        const QComboBox *box = boxAt(&grid, 0, StopsGrid::TypeColumn);
        QCOMPARE(offeredBy(box), QStringList({u"shipper"_s, u"receiver"_s}));
        QCOMPARE(box->isEditable(), false);
        QCOMPARE(box->minimumContentsLength(), 8);
        QCOMPARE(box->minimumWidth(), 110);
        QCOMPARE(box->accessibleName(), u"Type"_s);
    }

    void codeIsChosenOrTyped()
    {
        const Workspace workspace;
        StopsGrid grid;
        appendWindow(grid);
        const QComboBox *box = boxAt(&grid, 0, StopsGrid::LocationColumn);
        QCOMPARE(offeredBy(box), QStringList({u"DAL4"_s, u"KC1"_s}));
        QCOMPARE(box->isEditable(), true);
        QCOMPARE(box->insertPolicy(), QComboBox::NoInsert);
        QCOMPARE(box->minimumContentsLength(), 12);
        QCOMPARE(box->minimumWidth(), 180);
        QCOMPARE(box->sizeAdjustPolicy(), QComboBox::AdjustToMinimumContentsLengthWithIcon);
        QCOMPARE(box->accessibleName(), u"Location Code"_s);
    }

    void windowIsACheckBoxOnABlankCell()
    {
        const Workspace workspace;
        StopsGrid grid;
        appendWindow(grid);
        const QCheckBox *box = windowBox(grid, 0);
        QCOMPARE(box->isChecked(), true);
        QCOMPARE(box->toolTip(), u"Check when this stop has an appointment window."_s);
        QCOMPARE(box->styleSheet(), u"margin-left: 8px;"_s);
        QCOMPARE(box->text(), u""_s);
        QCOMPARE(box->accessibleName(), u"Window"_s);
        const QTableWidgetItem *below = grid.item(0, StopsGrid::WindowColumn);
        QCOMPARE(below->text(), u""_s);
        QCOMPARE(below->data(Qt::UserRole).toInt(), 1);
        QVERIFY(!below->flags().testFlag(Qt::ItemIsEditable));
    }

    void typeThatIsNeitherShowsAsShipper_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("shown");
        QTest::newRow("shipper") << u"shipper"_s << u"shipper"_s;
        QTest::newRow("receiver") << u"receiver"_s << u"receiver"_s;
        QTest::newRow("in capitals") << u"RECEIVER"_s << u"receiver"_s;
        QTest::newRow("blanks around") << u"  Receiver "_s << u"receiver"_s;
        QTest::newRow("another") << u"drop yard"_s << u"shipper"_s;
        QTest::newRow("start of one") << u"receive"_s << u"shipper"_s;
        QTest::newRow("blank") << u""_s << u"shipper"_s;
    }

    void typeThatIsNeitherShowsAsShipper()
    {
        const Workspace workspace;
        StopsGrid grid;
        QFETCH(const QString, stored);
        grid.appendStop({.type = stored}, {});
        QTEST(stopRow(&grid, 0).first(), "shown");
        QTEST(grid.stopAt(0).type, "shown");
    }

    void appointmentShowsAsItIsTyped_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("shown");
        QTest::newRow("ISO") << u"2026-04-18T21:56:00"_s << u"04/18/2026 21:56"_s;
        QTest::newRow("with a blank") << u"2026-04-18 21:56"_s << u"04/18/2026 21:56"_s;
        QTest::newRow("as shown") << u"04/18/2026 21:56"_s << u"04/18/2026 21:56"_s;
        QTest::newRow("short") << u"4/8/2026 9:05 PM"_s << u"04/08/2026 21:05"_s;
        QTest::newRow("day alone") << u"2026-04-18"_s << u"04/18/2026 00:00"_s;
        QTest::newRow("words") << u"  call ahead "_s << u"call ahead"_s;
        QTest::newRow("two-digit year") << u"04/18/26 21:56"_s << u"04/18/26 21:56"_s;
        QTest::newRow("blank") << u"  "_s << u""_s;
    }

    void appointmentShowsAsItIsTyped()
    {
        const Workspace workspace;
        StopsGrid grid;
        QFETCH(const QString, stored);
        grid.appendStop({.appointment = stored, .hasWindow = true, .latest = stored}, {});
        QTEST(grid.item(0, StopsGrid::EarliestColumn)->text(), "shown");
        QTEST(grid.item(0, StopsGrid::LatestColumn)->text(), "shown");
    }

    void leftoverLatestIsNotShownWithoutAWindow()
    {
        const Workspace workspace;
        StopsGrid grid;
        grid.appendStop({.appointment = morning, .latest = evening}, {});
        QCOMPARE(grid.item(0, StopsGrid::LatestColumn)->text(), u""_s);
        QCOMPARE(grid.stopAt(0).latest, u""_s);
        QCOMPARE(grid.item(0, StopsGrid::WindowColumn)->data(Qt::UserRole).toInt(), 0);
    }

    void latestFollowsItsWindow()
    {
        const Workspace workspace;
        StopsGrid grid;
        Person::shows(grid);
        appendWindow(grid);
        const QTableWidgetItem *latest = grid.item(0, StopsGrid::LatestColumn);
        QVERIFY(latest->flags().testFlag(Qt::ItemIsEditable));
        clicksCheckBox(windowBox(grid, 0));
        QCOMPARE(latest->text(), u""_s);
        QCOMPARE(latest->flags() & (Qt::ItemIsEditable | Qt::ItemIsSelectable | Qt::ItemIsEnabled),
                 Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        QCOMPARE(grid.item(0, StopsGrid::WindowColumn)->data(Qt::UserRole).toInt(), 0);
        clicksCheckBox(windowBox(grid, 0));
        QVERIFY(latest->flags().testFlag(Qt::ItemIsEditable));
        QCOMPARE(latest->text(), u""_s);
        QCOMPARE(grid.item(0, StopsGrid::WindowColumn)->data(Qt::UserRole).toInt(), 1);
    }

    void windowFindsItsRowAfterRowsHaveMoved()
    {
        const Workspace workspace;
        StopsGrid grid;
        Person::shows(grid);
        for (int row = 0; row < 3; ++row)
            appendWindow(grid);
        grid.removeRow(0);
        clicksCheckBox(windowBox(grid, 1));
        QCOMPARE(grid.item(0, StopsGrid::LatestColumn)->text(), u"04/17/2026 18:00"_s);
        QCOMPARE(grid.item(1, StopsGrid::LatestColumn)->text(), u""_s);
        QCOMPARE(grid.hasWindow(0), true);
        QCOMPARE(grid.hasWindow(1), false);
    }

    void windowIsKeptBelowForARowWithoutItsBox()
    {
        const Workspace workspace;
        StopsGrid grid;
        appendWindow(grid);
        grid.appendStop({}, {});
        for (const int row : {0, 1})
            grid.removeCellWidget(row, StopsGrid::WindowColumn);
        QCOMPARE(grid.hasWindow(0), true);
        QCOMPARE(grid.hasWindow(1), false);
    }

    void rowWithoutItsTypeBoxIsAShipper()
    {
        const Workspace workspace;
        StopsGrid grid;
        appendWindow(grid);
        grid.removeCellWidget(0, StopsGrid::TypeColumn);
        QCOMPARE(grid.stopAt(0).type, u"shipper"_s);
    }

    void rowIsReadTrimmed()
    {
        const Workspace workspace;
        StopsGrid grid;
        Person::shows(grid);
        appendWindow(grid);
        Person::types(boxAt(&grid, 0, StopsGrid::LocationColumn)->lineEdit(), u"  JOP2 "_s);
        typesIntoCell(&grid, 0, StopsGrid::EarliestColumn, u"  4/17/2026 8:00 "_s);
        typesIntoCell(&grid, 0, StopsGrid::LatestColumn, u" noon "_s);
        const TripRows::StopRow stop = grid.stopAt(0);
        QCOMPARE(
            QStringList({stop.type, stop.locationCode, stop.appointment, stop.order, stop.latest}),
            QStringList({u"receiver"_s, u"JOP2"_s, u"4/17/2026 8:00"_s, u"3"_s, u"noon"_s}));
        QCOMPARE(stop.hasWindow, true);
    }

    void orderThatIsNoNumberIsThatOfTheRow_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("order");
        QTest::newRow("number") << u"7"_s << u"7"_s;
        QTest::newRow("blanks around") << u" 12 "_s << u"12"_s;
        QTest::newRow("below zero") << u"-3"_s << u"-3"_s;
        QTest::newRow("words") << u"first"_s << u"1"_s;
        QTest::newRow("fraction") << u"2.5"_s << u"1"_s;
        QTest::newRow("beyond an integer") << u"99999999999"_s << u"1"_s;
        QTest::newRow("blank") << u""_s << u"1"_s;
    }

    void orderThatIsNoNumberIsThatOfTheRow()
    {
        const Workspace workspace;
        StopsGrid grid;
        QFETCH(const QString, typed);
        grid.appendStop({.order = u"0"_s}, {});
        grid.appendStop({.order = typed}, {});
        QCOMPARE(grid.item(1, StopsGrid::OrderColumn)->text(), typed);
        QTEST(grid.stopAt(1).order, "order");
    }

    void renumberingCountsFromZeroWithoutASignal()
    {
        const Workspace workspace;
        StopsGrid grid;
        for (const QString &order : {u"5"_s, u"x"_s, u"0"_s})
            grid.appendStop({.order = order}, {});
        const QSignalSpy changes(&grid, &QTableWidget::itemChanged);
        grid.renumber();
        QCOMPARE(column(&grid, u"Order"_s), QStringList({u"0"_s, u"1"_s, u"2"_s}));
        QCOMPARE(changes.size(), 0);
    }

    void hoursSeeTheStopsAsTheyStand()
    {
        const Workspace workspace;
        StopsGrid grid;
        appendWindow(grid);
        grid.appendStop({.type = u"shipper"_s, .appointment = evening}, {});
        const QList<TripArithmetic::TripStopTiming> stops = grid.stopsFromGrid();
        const QDateTime eight(QDate(2026, 4, 17), QTime(8, 0));
        const QDateTime eighteen(QDate(2026, 4, 17), QTime(18, 0));
        QCOMPARE(stops.size(), 2);
        QCOMPARE(stops.at(0).stopType, u"receiver"_s);
        QCOMPARE(stops.at(0).earliest, eight);
        QCOMPARE(stops.at(0).appointment, eight);
        QCOMPARE(stops.at(0).latest, eighteen);
        QCOMPARE(stops.at(0).hasWindow, true);
        QCOMPARE(stops.at(1).stopType, u"shipper"_s);
        QCOMPARE(stops.at(1).latest, eighteen); // without a window it is the earliest
        QCOMPARE(stops.at(1).hasWindow, false);
    }

    void latestThatCannotBeReadIsTheEarliest()
    {
        const Workspace workspace;
        StopsGrid grid;
        grid.appendStop({.appointment = morning, .hasWindow = true, .latest = u"noon"_s}, {});
        grid.appendStop({.appointment = u"early"_s, .hasWindow = true, .latest = evening}, {});
        const QList<TripArithmetic::TripStopTiming> stops = grid.stopsFromGrid();
        QCOMPARE(stops.at(0).latest, QDateTime(QDate(2026, 4, 17), QTime(8, 0)));
        QVERIFY(!stops.at(1).earliest.isValid());
        QCOMPARE(stops.at(1).latest, QDateTime(QDate(2026, 4, 17), QTime(18, 0)));
    }

    void choosingATypeTellsOfIt()
    {
        const Workspace workspace;
        StopsGrid grid;
        appendWindow(grid);
        const QSignalSpy types(&grid, &StopsGrid::typeChanged);
        Person::chooses(boxAt(&grid, 0, StopsGrid::TypeColumn), u"shipper"_s);
        QCOMPARE(types.size(), 1);
    }

    void columnsAndBoxesFollowTheScale_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<QList<int>>("widths");
        QTest::addColumn<QList<int>>("boxWidths");
        QTest::addColumn<int>("leastHeight");
        QTest::newRow("75") << 75 << QList<int>({90, 135, 68, 165, 165, 60})
                            << QList<int>({90, 135, 0}) << 90;
        QTest::newRow("100") << 100 << QList<int>({120, 180, 90, 220, 220, 80})
                             << QList<int>({110, 180, 0}) << 90;
        QTest::newRow("175") << 175 << QList<int>({210, 315, 158, 385, 385, 140})
                             << QList<int>({110, 180, 0}) << 157;
    }

    void columnsAndBoxesFollowTheScale()
    {
        const Workspace workspace;
        StopsGrid grid;
        QFETCH(const int, percent);
        appendWindow(grid);
        grid.applyScale(grid.font(), percent);
        QTEST(columnWidths(grid), "widths");
        QTEST(QList<int>({grid.cellWidget(0, StopsGrid::TypeColumn)->minimumWidth(),
                          grid.cellWidget(0, StopsGrid::LocationColumn)->minimumWidth(),
                          grid.cellWidget(0, StopsGrid::WindowColumn)->minimumWidth()}),
              "boxWidths");
        QTEST(grid.minimumHeight(), "leastHeight");
    }

    void typesHaveTheirRoomAfterALoadAtAnyScale_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<QList<int>>("widths");
        QTest::newRow("75") << 75 << QList<int>({120, 135, 68, 165, 165, 60});
        QTest::newRow("100") << 100 << QList<int>({120, 180, 90, 220, 220, 80});
        QTest::newRow("175") << 175 << QList<int>({210, 315, 158, 385, 385, 140});
    }

    void typesHaveTheirRoomAfterALoadAtAnyScale()
    {
        const Workspace workspace;
        StopsGrid grid;
        QFETCH(const int, percent);
        Workspace::saveScale(percent);
        grid.rescaleForStops();
        appendWindow(grid);
        QTEST(columnWidths(grid), "widths");
        QCOMPARE(grid.cellWidget(0, StopsGrid::TypeColumn)->minimumWidth(), 110);
    }
};

TEST_CLASS(tst_StopsGrid)
#include "tst_StopsGrid.moc"
