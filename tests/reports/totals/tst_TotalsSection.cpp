#include "reports/totals/TotalsSection.h"
#include "reports/totals/TotalsTable.h"
#include "support/Person.h"
#include "support/ReadingOrder.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "ui/UiScale.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// A section for four rows that has no more height than it asks for.
class Section
{
public:
    Section()
    {
        section->buttonRow()->addWidget(new QPushButton(u"Open Breakdown"_s));
        section->buttonRow()->addStretch();
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(section);
        Person::shows(window);
        window.resize(600, 1);
    }

    [[nodiscard]] QLabel *summary() const { return section->findChild<QLabel *>(); }

    /// Whether the row can be read without scrolling.
    [[nodiscard]] bool shows(int row) const
    {
        return table->viewport()->rect().contains(table->visualItemRect(table->item(row, 1)));
    }

    QWidget window;
    TotalsTable *table =
        new TotalsTable(u"totals"_s, u"Some totals"_s, {u"Name"_s, u"Total"_s}, 1, &window);
    TotalsSection *section =
        new TotalsSection(u"Some Totals"_s, u"Nothing yet."_s, table, 4, &window);
};

QList<QStringList> rows(int count)
{
    return QList<QStringList>(count, {u"a"_s, u"$1.00"_s});
}

} // namespace

class tst_TotalsSection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void summaryButtonsAndTableStandFromTopToBottom()
    {
        const Workspace workspace;
        const Section view;
        QCOMPARE(view.section->title(), u"Some Totals"_s);
        QCOMPARE(partsInReadingOrder(view.section),
                 QStringList({u"Nothing yet."_s, u"Open Breakdown"_s, u"totals"_s}));
        const auto *layout = qobject_cast<QVBoxLayout *>(view.section->layout());
        QCOMPARE(layout->stretch(2), 1);
        QCOMPARE(view.summary()->objectName(), u"totalsSummary"_s);
    }

    void summaryWrapsAndShowsMarkupAsItStands()
    {
        const Workspace workspace;
        const Section view;
        view.section->showTotals(u"<b>Year 2026</b>"_s, rows(1));
        QCOMPARE(view.summary()->text(), u"<b>Year 2026</b>"_s);
        QCOMPARE(view.summary()->textFormat(), Qt::PlainText);
        QVERIFY(view.summary()->wordWrap());
        QCOMPARE(texts(view.table), rows(1));
    }

    void totalsTakeThePlaceOfThoseBefore()
    {
        const Workspace workspace;
        const Section view;
        view.section->showTotals(u"Year 2026"_s, rows(4));
        view.section->showTotals(u"Year 2025"_s, {});
        QCOMPARE(view.summary()->text(), u"Year 2025"_s);
        QCOMPARE(view.table->rowCount(), 0);
    }

    void leastRowsAreAlwaysInSight_data()
    {
        QTest::addColumn<int>("percent");
        QTest::newRow("75") << 75;
        QTest::newRow("100") << 100;
        QTest::newRow("175") << 175;
    }

    void leastRowsAreAlwaysInSight()
    {
        QFETCH(const int, percent);
        const Workspace workspace;
        const Section view;
        UiScale::applyTableScale(view.table, UiScale::scaledFont(view.table, percent, 10), percent);
        view.section->fitTable();
        view.section->showTotals(u"Year 2026"_s, rows(4));
        view.table->setFixedHeight(view.table->minimumHeight());
        QCoreApplication::processEvents();
        QVERIFY(view.shows(3));
        QCOMPARE(view.table->verticalScrollBar()->maximum(), 0);
    }

    void moreRowsScroll()
    {
        const Workspace workspace;
        const Section view;
        view.section->showTotals(u"Year 2026"_s, rows(40));
        view.table->setFixedHeight(view.table->minimumHeight());
        QCoreApplication::processEvents();
        QVERIFY(view.shows(3));
        QVERIFY(!view.shows(4));
        QVERIFY(view.table->verticalScrollBar()->maximum() > 0);
    }
};

TEST_CLASS(tst_TotalsSection)
#include "tst_TotalsSection.moc"
