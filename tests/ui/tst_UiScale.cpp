#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "ui/UiScale.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QTableWidget>
#include <QTest>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace {

QFont pointFont(int points)
{
    QFont font;
    font.setPointSize(points);
    return font;
}

/// A page with one child of each kind, some of them in a group.
struct Page : QWidget
{
    QGroupBox *group = new QGroupBox(this);
    QLabel *label = new QLabel(group);
    QLineEdit *field = new QLineEdit(group);
    QPushButton *button = new QPushButton(group);
    QComboBox *box = new QComboBox(group);
    QTextEdit *pane = new QTextEdit(this);
    QCheckBox *check = new QCheckBox(this);
};

/// Three rows of two columns, every cell with an item.
struct FullTable : QTableWidget
{
    FullTable()
        : QTableWidget(3, 2)
    {
        for (int cell = 0; cell < 6; ++cell)
            setItem(cell / 2, cell % 2, new QTableWidgetItem(u"Lumper"_s));
    }
};

} // namespace

class tst_UiScale : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thePercentIsHeldBetween75And175_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("clamped");
        QTest::newRow("far below") << -5 << 75;
        QTest::newRow("just below") << 74 << 75;
        QTest::newRow("smallest") << 75 << 75;
        QTest::newRow("between") << 110 << 110;
        QTest::newRow("largest") << 175 << 175;
        QTest::newRow("just above") << 176 << 175;
        QTest::newRow("far above") << 500 << 175;
    }

    void thePercentIsHeldBetween75And175()
    {
        QFETCH(const int, percent);
        QFETCH(const int, clamped);
        QCOMPARE(UiScale::clampedPercent(percent), clamped);
    }

    void theSavedPercentIsReadAsItStands()
    {
        const Workspace workspace;
        QCOMPARE(UiScale::savedUiScalePercent(), 100);
        Workspace::saveScale(125);
        QCOMPARE(UiScale::savedUiScalePercent(), 125);
        Workspace::saveScale(40);
        QCOMPARE(UiScale::savedUiScalePercent(), 40);
        QCOMPARE(UiScale::scaledFont(nullptr, UiScale::savedUiScalePercent(), 12).pointSize(), 9);
        Workspace::saveScale(500);
        QCOMPARE(UiScale::savedUiScalePercent(), 500);
        QCOMPARE(UiScale::scaledFont(nullptr, UiScale::savedUiScalePercent(), 12).pointSize(), 21);
    }

    void thePercentIsSavedWithinItsBounds_data() { thePercentIsHeldBetween75And175_data(); }

    void thePercentIsSavedWithinItsBounds()
    {
        QFETCH(const int, percent);
        QFETCH(const int, clamped);
        const Workspace workspace;
        UiScale::saveUiScalePercent(percent);
        QCOMPARE(UiScale::savedUiScalePercent(), clamped);
        // At once on disk, under the key that the next start reads.
        QCOMPARE(workspace.bytes(u"settings/Brindle Path LLC/Brindlepath Desk.conf"_s),
                 "[appearance]\nuiScalePercent=" + QByteArray::number(clamped) + '\n');
    }

    void theApplicationsFontFollowsThePercent_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("points");
        QTest::newRow("smallest is 8 points") << 75 << 8;
        QTest::newRow("rounded down") << 89 << 8;
        QTest::newRow("nine") << 90 << 9;
        QTest::newRow("usual") << 100 << 10;
        QTest::newRow("largest") << 175 << 17;
        QTest::newRow("clamped by the caller") << 200 << 20;
    }

    void theApplicationsFontFollowsThePercent()
    {
        QFETCH(const int, percent);
        QFETCH(const int, points);
        QCOMPARE(UiScale::applicationPointSize(percent), points);
    }

    void aScaledFontHasItsSizeFromTheBaseOrTheWidget_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("base");
        QTest::addColumn<int>("points");
        QTest::newRow("base") << 100 << 10 << 10;
        QTest::newRow("base, smallest") << 75 << 10 << 8;
        QTest::newRow("base, largest") << 175 << 10 << 17;
        QTest::newRow("base, rounded down") << 109 << 12 << 13;
        QTest::newRow("base, clamped below") << 40 << 12 << 9;
        QTest::newRow("base, clamped above") << 500 << 12 << 21;
        QTest::newRow("least base") << 100 << 1 << 8;
        QTest::newRow("the widget's 14 points") << 150 << 0 << 21;
        QTest::newRow("the widget's, base below zero") << 100 << -3 << 14;
    }

    void aScaledFontHasItsSizeFromTheBaseOrTheWidget()
    {
        QFETCH(const int, percent);
        QFETCH(const int, base);
        QFETCH(const int, points);
        const Workspace workspace;
        QWidget widget;
        widget.setFont(pointFont(14));
        QCOMPARE(UiScale::scaledFont(&widget, percent, base).pointSize(), points);
    }

    void aScaledFontKeepsTheWidgetsStyle()
    {
        const Workspace workspace;
        QWidget widget;
        QFont font(u"Monospace"_s, 14);
        font.setItalic(true);
        widget.setFont(font);
        const QFont scaled = UiScale::scaledFont(&widget, 100, 10);
        QCOMPARE(scaled.family(), u"Monospace"_s);
        QVERIFY(scaled.italic());
        QCOMPARE(widget.font().pointSize(), 14);
    }

    void aFontInPixelsCountsAsTenPoints()
    {
        const Workspace workspace;
        QWidget widget;
        QFont font;
        font.setPixelSize(40);
        widget.setFont(font);
        QCOMPARE(UiScale::scaledFont(&widget, 150, 0).pointSize(), 15);
    }

    void withoutAWidgetTheApplicationsFontIsScaled()
    {
        const Workspace workspace;
        const QFont usual = QApplication::font();
        const auto restore = qScopeGuard([&usual] { QApplication::setFont(usual); });
        QApplication::setFont(pointFont(12));
        QCOMPARE(UiScale::scaledFont(nullptr, 150, 0).pointSize(), 18);
    }

    void thePagesChildrenGrowWithThePercent_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("fieldHeight");
        QTest::addColumn<int>("buttonHeight");
        QTest::newRow("75") << 75 << 26 << 28;
        QTest::newRow("93, rounded down") << 93 << 27 << 29;
        QTest::newRow("100") << 100 << 30 << 32;
        QTest::newRow("110") << 110 << 33 << 35;
        QTest::newRow("175") << 175 << 52 << 56;
        QTest::newRow("40 counts as 75") << 40 << 26 << 28;
        QTest::newRow("500 counts as 175") << 500 << 52 << 56;
    }

    void thePagesChildrenGrowWithThePercent()
    {
        QFETCH(const int, percent);
        QFETCH(const int, fieldHeight);
        QFETCH(const int, buttonHeight);
        const Workspace workspace;
        Page page;
        UiScale::applyPageScale(&page, pointFont(13), percent, {});
        QCOMPARE(page.field->minimumHeight(), fieldHeight);
        QCOMPARE(page.button->minimumHeight(), buttonHeight);
        QCOMPARE(page.box->minimumHeight(), buttonHeight);
        QCOMPARE(page.group->minimumHeight(), 0);
        QCOMPARE(page.label->minimumHeight(), 0);
        QCOMPARE(page.pane->minimumHeight(), 0);
        QCOMPARE(page.minimumHeight(), 0);
    }

    void thePagesChildrenTakeTheFont()
    {
        const Workspace workspace;
        Page page;
        page.setFont(pointFont(9));
        UiScale::applyPageScale(&page, pointFont(13), 100, {});
        const QWidgetList children = {page.group,  page.label, page.field,
                                      page.button, page.box,   page.pane};
        for (const QWidget *child : children)
            QCOMPARE(child->font().pointSize(), 13);
        QCOMPARE(page.check->font().pointSize(), 9);
        QCOMPARE(page.font().pointSize(), 9);
    }

    void aLabelWithTheTitleTextIsTheTitle_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("titleText");
        QTest::addColumn<bool>("isTitle");
        QTest::newRow("the same") << u"Trip Entry"_s << u"Trip Entry"_s << true;
        QTest::newRow("within") << u"1. Trip Entry:"_s << u"Trip Entry"_s << true;
        QTest::newRow("other case") << u"Trip entry"_s << u"Trip Entry"_s << false;
        QTest::newRow("a part of it") << u"Trip"_s << u"Trip Entry"_s << false;
        QTest::newRow("no title wanted") << u"Trip Entry"_s << u""_s << false;
        QTest::newRow("no text") << u""_s << u"Trip Entry"_s << false;
    }

    void aLabelWithTheTitleTextIsTheTitle()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, titleText);
        QFETCH(const bool, isTitle);
        const Workspace workspace;
        Page page;
        page.label->setText(text);
        page.button->setText(text);
        UiScale::applyPageScale(&page, pointFont(10), 100, titleText);
        QCOMPARE(page.label->font().bold(), isTitle);
        QCOMPARE(page.label->font().pointSize(), isTitle ? 14 : 10);
        QVERIFY(!page.button->font().bold());
    }

    void theTitleStandsAboveTheFontByAFewPoints_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("points");
        QTest::addColumn<int>("titlePoints");
        QTest::newRow("75") << 75 << 8 << 11;
        QTest::newRow("99, rounded down") << 99 << 9 << 12;
        QTest::newRow("100") << 100 << 10 << 14;
        QTest::newRow("175") << 175 << 17 << 24;
        QTest::newRow("500 counts as 175") << 500 << 17 << 24;
        QTest::newRow("at least 10") << 75 << 5 << 10;
    }

    void theTitleStandsAboveTheFontByAFewPoints()
    {
        QFETCH(const int, percent);
        QFETCH(const int, points);
        QFETCH(const int, titlePoints);
        const Workspace workspace;
        Page page;
        page.label->setText(u"Trip Entry"_s);
        UiScale::applyPageScale(&page, pointFont(points), percent, u"Trip"_s);
        QCOMPARE(page.label->font().pointSize(), titlePoints);
    }

    void aTableGrowsWithThePercent_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("rowHeight");
        QTest::addColumn<int>("headerHeight");
        QTest::newRow("75") << 75 << 22 << 24;
        QTest::newRow("100") << 100 << 24 << 26;
        QTest::newRow("110, rounded down") << 110 << 26 << 28;
        QTest::newRow("175") << 175 << 42 << 45;
        QTest::newRow("40 counts as 75") << 40 << 22 << 24;
        QTest::newRow("500 counts as 175") << 500 << 42 << 45;
    }

    void aTableGrowsWithThePercent()
    {
        QFETCH(const int, percent);
        QFETCH(const int, rowHeight);
        QFETCH(const int, headerHeight);
        const Workspace workspace;
        FullTable table;
        UiScale::applyTableScale(&table, pointFont(8), percent);
        QCOMPARE(table.verticalHeader()->defaultSectionSize(), rowHeight);
        QCOMPARE(table.horizontalHeader()->minimumHeight(), headerHeight);
        for (int row = 0; row < 3; ++row)
            QCOMPARE(table.rowHeight(row), rowHeight);
        table.insertRow(3);
        QCOMPARE(table.rowHeight(3), rowHeight);
    }

    void aTableItsHeadersAndItsItemsTakeTheFont()
    {
        const Workspace workspace;
        FullTable table;
        table.horizontalHeader()->setFont(pointFont(20));
        table.verticalHeader()->setFont(pointFont(20));
        delete table.takeItem(1, 1);
        UiScale::applyTableScale(&table, pointFont(13), 100);
        QCOMPARE(table.font().pointSize(), 13);
        QCOMPARE(table.horizontalHeader()->font().pointSize(), 13);
        QCOMPARE(table.verticalHeader()->font().pointSize(), 13);
        QCOMPARE(table.item(0, 0)->font().pointSize(), 13);
        QCOMPARE(table.item(2, 1)->font().pointSize(), 13);
        QVERIFY(!table.item(1, 1));
    }

    void aColumnsWidthFollowsItsBase_data()
    {
        QTest::addColumn<int>("base");
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("width");
        QTest::newRow("120 at 100") << 120 << 100 << 120;
        QTest::newRow("80 at 75") << 80 << 75 << 60;
        QTest::newRow("90 at 75, a half rounded up") << 90 << 75 << 68;
        QTest::newRow("121 at 75, rounded up") << 121 << 75 << 91;
        QTest::newRow("115 at 75, rounded down") << 115 << 75 << 86;
        QTest::newRow("220 at 175") << 220 << 175 << 385;
        QTest::newRow("never below 60") << 40 << 100 << 60;
        QTest::newRow("120 at 40 as at 75") << 120 << 40 << 90;
        QTest::newRow("120 at 500 as at 175") << 120 << 500 << 210;
    }

    void aColumnsWidthFollowsItsBase()
    {
        QFETCH(const int, base);
        QFETCH(const int, percent);
        QFETCH(const int, width);
        const Workspace workspace;
        FullTable table;
        UiScale::applyColumnWidths(&table, {base, base}, percent);
        QCOMPARE(table.columnWidth(0), width);
        QCOMPARE(table.columnWidth(1), width);
    }

    void theLeastColumnWidthFollowsThePercent_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("least");
        QTest::newRow("100") << 100 << 60;
        QTest::newRow("126, rounded down") << 126 << 60;
        QTest::newRow("127, rounded up") << 127 << 61;
        QTest::newRow("150") << 150 << 72;
        QTest::newRow("500 counts as 175") << 500 << 84;
    }

    void theLeastColumnWidthFollowsThePercent()
    {
        QFETCH(const int, percent);
        QFETCH(const int, least);
        const Workspace workspace;
        FullTable table;
        UiScale::applyColumnWidths(&table, {10}, percent);
        QCOMPARE(table.horizontalHeader()->minimumSectionSize(), least);
        QCOMPARE(table.columnWidth(0), least);
    }

    void columnsCanBeResizedByHand()
    {
        const Workspace workspace;
        FullTable table;
        QHeaderView *header = table.horizontalHeader();
        header->setStretchLastSection(true);
        header->setSectionResizeMode(QHeaderView::Stretch);
        UiScale::applyColumnWidths(&table, {120}, 100);
        QVERIFY(!header->stretchLastSection());
        QCOMPARE(header->sectionResizeMode(0), QHeaderView::Interactive);
        QCOMPARE(header->sectionResizeMode(1), QHeaderView::Interactive);
    }

    void moreOrFewerBasesThanColumnsDoNoHarm()
    {
        const Workspace workspace;
        FullTable table;
        table.setColumnWidth(1, 333);
        UiScale::applyColumnWidths(&table, {120}, 100);
        QCOMPARE(table.columnWidth(1), 333);
        UiScale::applyColumnWidths(&table, {130, 140, 150}, 100);
        QCOMPARE(table.columnWidth(0), 130);
        QCOMPARE(table.columnWidth(1), 140);
        QCOMPARE(table.columnCount(), 2);
        UiScale::applyColumnWidths(nullptr, {120}, 100);
    }
};

TEST_CLASS(tst_UiScale)
#include "tst_UiScale.moc"
