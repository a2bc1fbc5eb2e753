#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "trips/grids/GridHands.h"
#include "trips/grids/TripGrid.h"

#include <QCheckBox>

using namespace Qt::StringLiterals;

namespace {

/// As large as the line in which a cell is edited, so that one soon comes to lie where it lay.
class RoomyBox : public QComboBox
{
    [[maybe_unused]] qint64 room = 0;
};

/// A grid whose rows are a box and a cell with text.
class BoxedGrid : public TripGrid
{
public:
    BoxedGrid()
        : TripGrid({{u"Name"_s, 120}, {u"Amount"_s, 120}}, 90, nullptr)
    {
        Person::shows(*this);
    }

    void appendRow()
    {
        const int row = rowCount();
        insertRow(row);
        putBox(row, 0, new RoomyBox, {});
        putMoney(row, 1, 0.0);
    }

    void changeBox(int row, QWidget *box = new RoomyBox) { putBox(row, 0, box, {}); }
};

using Emptying = void (*)(BoxedGrid &grid);
using Boxing = QWidget *(*)();

// Rows that went take their boxes along only now.
void letBoxesGo()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

/// What the grids of a trip have in common.
class tst_TripGrid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cellsCanBeEditedWhateverBecameOfEarlierRows_data()
    {
        QTest::addColumn<Emptying>("emptied");
        QTest::newRow("loaded anew") << +[](BoxedGrid &grid) { grid.setRowCount(0); };
        QTest::newRow("row by row") << +[](BoxedGrid &grid) {
            while (grid.rowCount() > 0)
                grid.removeRow(0);
        };
        QTest::newRow("with other boxes") << +[](BoxedGrid &grid) {
            for (int row = 0; row < grid.rowCount(); ++row)
                grid.changeBox(row);
            grid.setRowCount(0);
        };
    }

    void cellsCanBeEditedWhateverBecameOfEarlierRows()
    {
        QFETCH(const Emptying, emptied);
        const Workspace workspace;
        BoxedGrid grid;
        for (int round = 0; round < 100; ++round) {
            emptied(grid);
            for (int row = 0; row < 5; ++row)
                grid.appendRow();
            letBoxesGo();
            typesIntoCell(&grid, 0, 1, u"45"_s);
            QCOMPARE(grid.cellText(0, 1), u"45"_s);
            QCOMPARE(grid.viewport()->findChildren<QLineEdit *>(Qt::FindDirectChildrenOnly).size(),
                     0);
        }
    }

    void tabInABoxGoesFromCellToCellAndThenOutOfTheGrid()
    {
        const Workspace workspace;
        QWidget window;
        auto *layout = new QVBoxLayout(&window);
        auto *before = new QLineEdit;
        auto *grid = new BoxedGrid;
        auto *after = new QLineEdit;
        for (QWidget *part : {static_cast<QWidget *>(before), static_cast<QWidget *>(grid),
                              static_cast<QWidget *>(after)})
            layout->addWidget(part);
        Person::shows(window);
        grid->appendRow();
        grid->appendRow();
        boxAt(grid, 0, 0)->setFocus();
        QTest::keyClick(boxAt(grid, 0, 0), Qt::Key_Tab);
        QVERIFY(grid->hasFocus());
        QCOMPARE(grid->currentIndex(), grid->model()->index(0, 1));
        boxAt(grid, 1, 0)->setFocus();
        QTest::keyClick(boxAt(grid, 1, 0), Qt::Key_Backtab);
        QVERIFY(grid->hasFocus());
        QCOMPARE(grid->currentIndex(), grid->model()->index(0, 1));
        QTest::keyClick(grid, Qt::Key_Tab);
        QVERIFY(after->hasFocus());
        QTest::keyClick(after, Qt::Key_Tab);
        QVERIFY(before->hasFocus());
        boxAt(grid, 0, 0)->setFocus();
        QTest::keyClick(boxAt(grid, 0, 0), Qt::Key_Backtab);
        QVERIFY(before->hasFocus());
    }

    void firstKeyOnTheCellOfABoxReachesTheBox()
    {
        const Workspace workspace;
        BoxedGrid grid;
        grid.appendRow();
        boxAt(&grid, 0, 0)->addItems({u"shipper"_s, u"receiver"_s});
        grid.setCurrentCell(0, 0);
        grid.setFocus();
        QTest::keyClicks(&grid, u"r"_s);
        QCOMPARE(boxAt(&grid, 0, 0)->currentText(), u"receiver"_s);
        QVERIFY(boxAt(&grid, 0, 0)->hasFocus());
    }

    void keyThatABoxMakesNothingOfEndsThere_data()
    {
        QTest::addColumn<Boxing>("makeBox");
        QTest::newRow("a check box") << +[]() -> QWidget * { return new QCheckBox; };
        QTest::newRow("a box that cannot be used") << +[]() -> QWidget * {
            auto *box = new QComboBox;
            box->setEnabled(false);
            return box;
        };
        QTest::newRow("a line that cannot be edited") << +[]() -> QWidget * {
            auto *box = new QComboBox;
            box->setEditable(true);
            box->lineEdit()->setReadOnly(true);
            return box;
        };
    }

    void keyThatABoxMakesNothingOfEndsThere()
    {
        QFETCH(const Boxing, makeBox);
        const Workspace workspace;
        BoxedGrid grid;
        grid.appendRow();
        grid.changeBox(0, makeBox());
        grid.setCurrentCell(0, 0);
        grid.setFocus();
        QTest::keyClicks(&grid, u"4"_s);
        QTest::keyClicks(grid.cellWidget(0, 0), u"4a"_s);
        QCOMPARE(grid.currentIndex(), grid.model()->index(0, 0));
    }

    void firstKeyOnACellIsTypedOnce()
    {
        const Workspace workspace;
        BoxedGrid grid;
        grid.appendRow();
        grid.setCurrentCell(0, 1);
        grid.setFocus();
        QTest::keyClicks(&grid, u"4"_s);
        const auto *line = grid.viewport()->findChild<QLineEdit *>();
        QVERIFY(line);
        QCOMPARE(line->text(), u"4"_s);
    }

    void boxesOfRowsThatWentAreOutOfSightAtOnce()
    {
        const Workspace workspace;
        BoxedGrid grid;
        grid.appendRow();
        const QComboBox *box = boxAt(&grid, 0, 0);
        QVERIFY(box->isVisible());
        grid.setRowCount(0);
        QVERIFY(!box->isVisible());
    }

    void rowTakesAnOpenEditorAlong()
    {
        const Workspace workspace; // fails on what Qt warns of
        BoxedGrid grid;
        grid.appendRow();
        grid.editItem(grid.item(0, 1));
        QCOMPARE(grid.viewport()->findChildren<QLineEdit *>(Qt::FindDirectChildrenOnly).size(), 1);
        grid.removeRow(0);
        letBoxesGo();
        QCOMPARE(grid.viewport()->findChildren<QLineEdit *>(Qt::FindDirectChildrenOnly).size(), 0);
        grid.appendRow();
        typesIntoCell(&grid, 0, 1, u"45"_s);
        QCOMPARE(grid.cellText(0, 1), u"45"_s);
    }

    void rowTakesItsBoxAlong()
    {
        const Workspace workspace;
        BoxedGrid grid;
        grid.appendRow();
        grid.appendRow();
        const QComboBox *second = boxAt(&grid, 1, 0);
        grid.removeRow(0);
        letBoxesGo();
        QCOMPARE(boxAt(&grid, 0, 0), second);
        QCOMPARE(grid.viewport()->findChildren<QComboBox *>().size(), 1);
    }
};

TEST_CLASS(tst_TripGrid)
#include "tst_TripGrid.moc"
