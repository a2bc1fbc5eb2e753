#include "reports/charts/TipReaders.h"
#include "reports/totals/BreakdownDialog.h"
#include "support/DialogRobot.h"
#include "support/Person.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "support/surroundings/DefaultLocale.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QScopeGuard>
#include <QScrollBar>
#include <QTest>
#include <QTextEdit>
#include <QVBoxLayout>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

const QString title = u"Net Pay \u2014 Weekly Breakdown \u2014 2026"_s;

const QList<ChartPoint> threeWeeks = {
    {u"04/18/2026"_s, 1234.5}, {u"04/04/2026"_s, -20.00005}, {u"4/11/2026"_s, 0}};

/// The dialog as a person has it open.
class OpenDialog
{
public:
    explicit OpenDialog(const QList<ChartPoint> &points = threeWeeks,
                        const QString &text = u"Three weeks"_s)
        : dialog(title, points, text)
    {
        dialog.show();
        if (!QTest::qWaitForWindowActive(&dialog))
            QTest::qFail("The dialog never came up.", __FILE__, __LINE__);
    }

    BreakdownDialog dialog;
    QLabel *heading = dialog.findChild<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
    QWidget *chart = dialog.findChild<QWidget *>(u"lineChart"_s);
    QTableWidget *table = dialog.findChild<QTableWidget *>(u"breakdownTable"_s);
    QTextEdit *summary = dialog.findChild<QTextEdit *>(u"breakdownSummary"_s);
    QDialogButtonBox *buttons = dialog.findChild<QDialogButtonBox *>();
};

} // namespace

class tst_BreakdownDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void opensAsLargeAsTheSavedScaleSays_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<QSize>("size");
        QTest::newRow("50 opens as 75") << 50 << QSize(675, 510);
        QTest::newRow("75") << 75 << QSize(675, 510);
        QTest::newRow("100") << 100 << QSize(900, 680);
        QTest::newRow("175") << 175 << QSize(1575, 1190);
        QTest::newRow("300 opens as 175") << 300 << QSize(1575, 1190);
    }

    void opensAsLargeAsTheSavedScaleSays()
    {
        QFETCH(const int, percent);
        const Workspace workspace;
        Workspace::saveScale(percent);
        const OpenDialog open;
        QTEST(open.dialog.size(), "size");
    }

    void smallestDialogShowsAWholeRowOfTheTable()
    {
        const Workspace workspace;
        const auto restored =
            qScopeGuard([font = QApplication::font()] { QApplication::setFont(font); });
        QFont small = QApplication::font();
        small.setPointSize(8);
        QApplication::setFont(small);
        Workspace::saveScale(75);
        const OpenDialog open;
        QCOMPARE(open.dialog.size(), QSize(675, 510));
        QVERIFY(open.table->rowHeight(0) <= open.table->viewport()->height());
    }

    void showsHeadingChartTableTextAndButtonsFromTopToBottom()
    {
        const Workspace workspace;
        const OpenDialog open;
        const auto *layout = qobject_cast<QVBoxLayout *>(open.dialog.layout());
        QVERIFY(layout);
        const QWidgetList widgets = {open.heading, open.chart, open.table, open.summary,
                                     open.buttons};
        QCOMPARE(layout->count(), 5);
        for (int i = 0; i < layout->count(); ++i)
            QCOMPARE(layout->itemAt(i)->widget(), widgets.at(i));
    }

    void titleStandsInTheFrameAndAsHeading()
    {
        const Workspace workspace;
        const OpenDialog open;
        QCOMPARE(open.dialog.windowTitle(), title);
        QCOMPARE(open.heading->text(), title);
        QCOMPARE(open.heading->font().pointSize(), open.dialog.font().pointSize() + 3);
        QVERIFY(open.heading->font().bold());
    }

    void markupInTheTitleShowsAsItStands()
    {
        const Workspace workspace;
        const BreakdownDialog dialog(u"<b>Net</b>"_s, threeWeeks, {});
        QCOMPARE(dialog.findChild<QLabel *>()->textFormat(), Qt::PlainText);
    }

    void tableShowsEveryPointInTheOrderGiven()
    {
        const Workspace workspace;
        const OpenDialog open;
        QCOMPARE(headers(open.table), QStringList({u"Payweek"_s, u"Value"_s}));
        QCOMPARE(texts(open.table), QList<QStringList>({{u"04/18/2026"_s, u"1234.5000"_s},
                                                        {u"04/04/2026"_s, u"-20.0001"_s},
                                                        {u"4/11/2026"_s, u"0.0000"_s}}));
    }

    // The first value is the largest, and the last stands just above the smallest.
    void chartShowsThePointsInTheOrderGiven()
    {
        const Workspace workspace;
        const DefaultLocale american(u"en_US"_s);
        const OpenDialog open;
        const QPoint first = open.chart->mapTo(&open.dialog, QPoint(86, 22));
        const QPoint last = open.chart->mapTo(
            &open.dialog, QPoint(open.chart->width() - 74, open.chart->height() - 91));
        QCOMPARE(tipAt(open.dialog, first), u"04/18/2026\n$1,234.50"_s);
        QCOMPARE(tipAt(open.dialog, last), u"4/11/2026\n$0.00"_s);
    }

    void clickOnAHeaderSortsNothing()
    {
        const Workspace workspace;
        const OpenDialog open;
        Person::clicksHeader(open.table, 0);
        Person::clicksHeader(open.table, 1);
        QCOMPARE(column(open.table, u"Payweek"_s),
                 QStringList({u"04/18/2026"_s, u"04/04/2026"_s, u"4/11/2026"_s}));
        QVERIFY(!open.table->isSortingEnabled());
    }

    void tableSelectsRowsAndTakesNoTyping()
    {
        const Workspace workspace;
        const OpenDialog open;
        Person::clicksCell(open.table, 1, 0);
        QCOMPARE(open.table->selectedItems().size(), 2);
        QTest::keyClick(open.table, Qt::Key_F2);
        QTest::keyClicks(open.table, u"9"_s);
        QCOMPARE(open.table->item(1, 0)->text(), u"04/04/2026"_s);
        QCOMPARE(open.table->findChild<QLineEdit *>(), nullptr);
    }

    void severalRowsCanBeSelected()
    {
        const Workspace workspace;
        const OpenDialog open;
        Person::clicksCell(open.table, 0, 0);
        QTest::keyClick(open.table, Qt::Key_Down, Qt::ShiftModifier);
        QTest::keyClick(open.table, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(open.table->selectionModel()->selectedRows().size(), 3);
    }

    void payweeksAreAsWideAsTheWidestOfThem()
    {
        const Workspace workspace;
        const QString longName = u"a payweek that was given a name"_s;
        const OpenDialog brief;
        const OpenDialog open({{u"04/04/2026"_s, 1.0}, {longName, 2.0}});
        const int text = open.table->fontMetrics().horizontalAdvance(longName);
        QVERIFY(open.table->columnWidth(0) > text);
        QVERIFY(open.table->columnWidth(0) < text + 30);
        QVERIFY(brief.table->columnWidth(0) < open.table->columnWidth(0));
    }

    void valuesFillTheWidthAndStandToTheRight()
    {
        const Workspace workspace;
        const OpenDialog open;
        QVERIFY(open.table->horizontalHeader()->stretchLastSection());
        QVERIFY(open.table->verticalHeader()->isHidden());
        QCOMPARE(open.table->columnWidth(0) + open.table->columnWidth(1),
                 open.table->viewport()->width());
        const int right = Qt::AlignRight | Qt::AlignVCenter;
        QCOMPARE(open.table->item(0, 1)->textAlignment(), right);
        QCOMPARE(open.table->horizontalHeaderItem(1)->textAlignment(), right);
    }

    void oddValuesAreNumbersToo()
    {
        const Workspace workspace;
        const OpenDialog open({{u"a"_s, 1e12},
                               {u"b"_s, 0.004},
                               {u"c"_s, std::numeric_limits<double>::quiet_NaN()},
                               {u"d"_s, std::numeric_limits<double>::infinity()}});
        QCOMPARE(column(open.table, u"Value"_s),
                 QStringList({u"1000000000000.0000"_s, u"0.0040"_s, u"0.0000"_s, u"0.0000"_s}));
    }

    void summaryIsPlainTextToRead()
    {
        const Workspace workspace;
        const OpenDialog open(threeWeeks, u"<b>Total</b>\n$1214.50"_s);
        QCOMPARE(open.summary->toPlainText(), u"<b>Total</b>\n$1214.50"_s);
        QVERIFY(open.summary->isReadOnly());
        QTest::keyClicks(open.summary, u"changed"_s);
        QCOMPARE(open.summary->toPlainText(), u"<b>Total</b>\n$1214.50"_s);
    }

    void leastHeightOfTheSummaryDoesNotFollowTheScale_data()
    {
        QTest::addColumn<int>("percent");
        QTest::newRow("75") << 75;
        QTest::newRow("100") << 100;
        QTest::newRow("175") << 175;
    }

    void leastHeightOfTheSummaryDoesNotFollowTheScale()
    {
        QFETCH(const int, percent);
        const Workspace workspace;
        Workspace::saveScale(percent);
        const OpenDialog open;
        QCOMPARE(open.summary->minimumHeight(), 120);
    }

    void longSummaryScrollsInsideItsBox()
    {
        const Workspace workspace;
        const OpenDialog brief;
        const OpenDialog open(threeWeeks, u"04/18/2026   $1234.50\n"_s.repeated(60));
        QCOMPARE(brief.summary->verticalScrollBar()->maximum(), 0);
        QVERIFY(open.summary->verticalScrollBar()->maximum() > 0);
        QCOMPARE(open.summary->height(), brief.summary->height());
        QCOMPARE(open.dialog.size(), QSize(900, 680));
    }

    void tableAndNotTheTextTakesTheSpareHeight()
    {
        const Workspace workspace;
        OpenDialog open(threeWeeks, u"04/18/2026   $1234.50\n"_s.repeated(60));
        const int chart = open.chart->height();
        const int table = open.table->height();
        const int summary = open.summary->height();
        open.dialog.resize(900, 980);
        QTRY_COMPARE(open.table->height(), table + 300);
        QCOMPARE(open.chart->height(), chart);
        QCOMPARE(open.summary->height(), summary);
    }

    void withoutPointsTableIsEmpty()
    {
        const Workspace workspace;
        const OpenDialog open(QList<ChartPoint>{});
        QCOMPARE(open.table->rowCount(), 0);
        QCOMPARE(headers(open.table), QStringList({u"Payweek"_s, u"Value"_s}));
        QVERIFY(open.chart->isVisible());
    }

    void closeButtonEndsItWithRejection()
    {
        const Workspace workspace;
        BreakdownDialog dialog(title, threeWeeks, u"Three weeks"_s);
        dialog.setResult(QDialog::Accepted);
        DialogRobot robot;
        robot.expectDialog(title).press(u"Close"_s);
        QCOMPARE(dialog.exec(), int(QDialog::Rejected));
        QCOMPARE(dialog.findChild<QDialogButtonBox *>()->buttons().size(), 1);
    }

    void escapeEndsItWithRejectionToo()
    {
        const Workspace workspace;
        BreakdownDialog dialog(title, threeWeeks, u"Three weeks"_s);
        DialogRobot robot;
        robot.expectDialog(title).dismiss();
        QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    }

    void everyWidgetHasANameForScreenReaders()
    {
        const Workspace workspace;
        const OpenDialog open;
        QCOMPARE(open.chart->accessibleName(), u"Line chart"_s);
        QCOMPARE(open.table->accessibleName(), u"Values by payweek"_s);
        QCOMPARE(open.summary->accessibleName(), u"Summary"_s);
        QCOMPARE(open.buttons->objectName(), u"buttons"_s);
    }

    void tabGoesFromTheTableOverTheTextToTheButton()
    {
        const Workspace workspace;
        const OpenDialog open;
        Person::clicksCell(open.table, 0, 0);
        QTest::keyClick(open.table, Qt::Key_Tab);
        QVERIFY(open.summary->hasFocus());
        QTest::keyClick(open.summary, Qt::Key_Tab);
        QVERIFY(open.buttons->button(QDialogButtonBox::Close)->hasFocus());
    }

    void dialogIsSizedForTheScale_data()
    {
        QTest::addColumn<QSize>("base");
        QTest::addColumn<int>("percent");
        QTest::addColumn<QSize>("size");
        QTest::newRow("usual scale") << QSize(980, 560) << 100 << QSize(980, 560);
        QTest::newRow("below the smallest") << QSize(980, 560) << 10 << QSize(735, 420);
        QTest::newRow("above the largest") << QSize(980, 560) << 999 << QSize(1715, 980);
        QTest::newRow("parts of a pixel are dropped") << QSize(521, 411) << 175 << QSize(911, 719);
        QTest::newRow("no smaller than this") << QSize(400, 300) << 75 << QSize(320, 240);
        QTest::newRow("just as small as this") << QSize(320, 240) << 100 << QSize(320, 240);
    }

    void dialogIsSizedForTheScale()
    {
        QFETCH(const QSize, base);
        QFETCH(const int, percent);
        const Workspace workspace;
        QDialog dialog;
        sizeDialogForScale(&dialog, base.width(), base.height(), percent);
        QTEST(dialog.size(), "size");
    }

    void missingDialogIsIgnored()
    {
        const Workspace workspace;
        sizeDialogForScale(nullptr, 900, 680, 100);
        QCOMPARE(QApplication::topLevelWidgets(), QWidgetList());
    }
};

TEST_CLASS(tst_BreakdownDialog)
#include "tst_BreakdownDialog.moc"
