#include "support/Person.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "trips/DetailsPane.h"

#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

#include <cmath>

using namespace Qt::StringLiterals;

class tst_DetailsPane : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyPaneKeepsItsLeastHeight()
    {
        const Workspace workspace;
        const DetailsPane pane;
        QCOMPARE(pane.minimumHeight(), 120);
        QCOMPARE(pane.maximumHeight(), QWIDGETSIZE_MAX);
        QCOMPARE(pane.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(pane.verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    }

    void shortTextKeepsTheLeastHeight()
    {
        const Workspace workspace;
        DetailsPane pane;
        pane.setPlainText(u"ID: 7"_s);
        QCOMPARE(pane.minimumHeight(), 120);
    }

    void longTextMakesItAsHighAsIsNeeded()
    {
        const Workspace workspace;
        DetailsPane pane;
        Person::shows(pane);
        pane.setPlainText(linesOfText(40));
        QVERIFY(pane.minimumHeight() > 40 * 8);
        QCOMPARE(pane.minimumHeight(), heightOf(pane));
        QCOMPARE(pane.maximumHeight(), QWIDGETSIZE_MAX);
        pane.resize(400, pane.minimumHeight());
        QCOMPARE(pane.verticalScrollBar()->maximum(), 0);
    }

    void textFromBeforeItWasShownFits()
    {
        const Workspace workspace;
        DetailsPane pane;
        pane.setPlainText(linesOfText(40));
        Person::shows(pane);
        QCOMPARE(pane.minimumHeight(), heightOf(pane));
    }

    void shorterTextMakesItLowAgain()
    {
        const Workspace workspace;
        DetailsPane pane;
        Person::shows(pane);
        pane.setPlainText(linesOfText(40));
        QVERIFY(pane.minimumHeight() > 120);
        pane.clear();
        QCOMPARE(pane.minimumHeight(), 120);
    }

    void largerLettersMakeItHigher()
    {
        const Workspace workspace;
        DetailsPane pane;
        Person::shows(pane);
        pane.setPlainText(linesOfText(40));
        const int before = pane.minimumHeight();
        QFont font = pane.font();
        font.setPointSize(2 * font.pointSize());
        pane.setFont(font);
        QVERIFY(pane.minimumHeight() > before * 3 / 2);
    }

    void textThatWrapsMakesItHigher()
    {
        const Workspace workspace;
        DetailsPane pane;
        Person::shows(pane);
        pane.setPlainText(QStringList(200, u"delivered"_s).join(u' '));
        const int wide = pane.minimumHeight();
        pane.resize(300, 800);
        QVERIFY(pane.minimumHeight() > wide);
    }

    void nothingCanBeTypedIntoIt()
    {
        const Workspace workspace;
        DetailsPane pane;
        Person::shows(pane);
        pane.setPlainText(u"ID: 7"_s);
        QTest::keyClicks(&pane, u"8"_s);
        QCOMPARE(pane.toPlainText(), u"ID: 7"_s);
    }

    void tabMovesOn()
    {
        const Workspace workspace;
        QWidget form;
        auto *rows = new QVBoxLayout(&form);
        auto *pane = new DetailsPane(&form);
        auto *next = new QTextEdit(&form);
        rows->addWidget(pane);
        rows->addWidget(next);
        Person::shows(form);
        pane->setFocus();
        QTest::keyClick(pane, Qt::Key_Tab);
        QCOMPARE(form.focusWidget(), next);
    }

private:
    /// The text with its frame and a margin of 16.
    static int heightOf(const DetailsPane &pane)
    {
        const int textHeight = static_cast<int>(std::ceil(pane.document()->size().height()));
        return 2 * pane.frameWidth() + 16 + textHeight;
    }

    static QString linesOfText(int count)
    {
        return QStringList(count, u"Linehaul: $1000.00"_s).join(u'\n');
    }
};

TEST_CLASS(tst_DetailsPane)
#include "tst_DetailsPane.moc"
