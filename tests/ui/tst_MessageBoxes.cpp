#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "ui/LongTextView.h"
#include "ui/MessageBoxes.h"
#include "ui/UiScale.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString line = u"Syntax Error (123456): Couldn't find a font for 'F1'\n"_s;

QLabel *textLabel(const QMessageBox &box)
{
    return box.findChild<QLabel *>(u"qt_msgbox_label"_s);
}

LongTextView *textView(const QMessageBox &box)
{
    return box.findChild<LongTextView *>(u"qt_msgbox_label_view"_s);
}

void standsOnTheScreen(const QMessageBox &box)
{
    const QRect screen = box.screen()->availableGeometry();
    QVERIFY2(screen.contains(box.frameGeometry()),
             qPrintable(u"%1x%2"_s.arg(box.width()).arg(box.height())));
    for (const QAbstractButton *button : box.buttons())
        QVERIFY(box.rect().contains({button->mapTo(&box, QPoint()), button->size()}));
}

/// A question as pages ask it, shown.
class Question : public QMessageBox
{
public:
    explicit Question(const QString &text)
        : QMessageBox(QMessageBox::Question, u"Confirm"_s, text, Yes | No)
    {
        setDefaultButton(No);
        open();
    }
};

} // namespace

class tst_MessageBoxes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { setUpMessageBoxes(); }
    void cleanup() { QApplication::setFont(usualFont); }

    void boxShowsMarkupAsItStands();
    void otherLabelsKeepTheirFormat();
    void textThatFitsStandsInItsLabel();
    void largeTextScrollsInABoxOnTheScreen_data();
    void largeTextScrollsInABoxOnTheScreen();
    void informativeTextScrollsToo();
    void bothTextsTogetherStayOnTheScreen();
    void controlCharactersShowAsPictures();
    void returnAnswersWithTheDefaultButton();
    void escapeAnswersAsBefore();
    void keyboardStartsOnTheButtonsAndReachesTheText();

private:
    QFont usualFont = QApplication::font();
};

void tst_MessageBoxes::boxShowsMarkupAsItStands()
{
    const Workspace workspace;
    QMessageBox box(QMessageBox::Warning, u"Trip"_s, u"<b>7"_s);
    box.setInformativeText(u"<i>8"_s);
    box.show();
    QCOMPARE(textLabel(box)->textFormat(), Qt::PlainText);
    QVERIFY(textLabel(box)->textInteractionFlags() & Qt::TextSelectableByMouse);
    QCOMPARE(box.findChild<QLabel *>(u"qt_msgbox_informativelabel"_s)->textFormat(), Qt::PlainText);
}

void tst_MessageBoxes::otherLabelsKeepTheirFormat()
{
    const Workspace workspace;
    QLabel label(u"<b>7</b>"_s);
    label.show();
    QCOMPARE(label.textFormat(), Qt::AutoText);
}

void tst_MessageBoxes::textThatFitsStandsInItsLabel()
{
    const Workspace workspace;
    const Question box(u"Delete Trip 4471203 (ID 7)?\n\nThis will also delete related stops, pay "
                       "items, cost items, fuel/detail rows, and trailers.\n\nContinue?"_s);
    QVERIFY(textLabel(box)->isVisible());
    QCOMPARE(box.findChildren<LongTextView *>().size(), 0);
}

void tst_MessageBoxes::largeTextScrollsInABoxOnTheScreen_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("percent");
    constexpr qsizetype megabyte = 1 << 20;
    for (const int percent : {75, 100, 175}) {
        const auto add = [percent](const char *name, const QString &text) {
            QTest::addRow("%s at %d percent", name, percent) << text << percent;
        };
        add("two screens of lines", line.repeated(60));
        add("60,000 lines", line.repeated(60'000));
        add("a path of 4,000 characters", u"/folder"_s.repeated(571));
        add("words without a line break", u"scan "_s.repeated(megabyte / 5));
        add("no blank at all", QString(3 * megabyte, u'x'));
        add("line feeds alone", QString(megabyte, u'\n'));
        add("NULs", QString(megabyte, QChar()));
        add("emoji", u"\U0001F69A"_s.repeated(megabyte / 2));
        add("markup", u"<table><tr><td>"_s.repeated(megabyte / 15));
    }
}

void tst_MessageBoxes::largeTextScrollsInABoxOnTheScreen()
{
    QFETCH(const QString, text);
    QFETCH(const int, percent);
    const Workspace workspace;
    QApplication::setFont(UiScale::scaledFont(nullptr, percent, 10));
    const Question box(text);
    standsOnTheScreen(box);
    QVERIFY(!textLabel(box)->isVisible());
    QVERIFY(textView(box)->isVisible());
    QVERIFY(box.text() == text); // QCOMPARE would copy the megabytes into its message
}

void tst_MessageBoxes::informativeTextScrollsToo()
{
    const Workspace workspace;
    QMessageBox box(QMessageBox::Critical, u"Import Failed"_s, u"disk I/O error"_s);
    box.setInformativeText(line.repeated(2'000));
    box.show();
    standsOnTheScreen(box);
    QVERIFY(textLabel(box)->isVisible());
    QCOMPARE(box.findChildren<LongTextView *>(u"qt_msgbox_informativelabel_view"_s).size(), 1);
    QCOMPARE(box.informativeText(), line.repeated(2'000));
}

void tst_MessageBoxes::bothTextsTogetherStayOnTheScreen()
{
    const Workspace workspace;
    QMessageBox box(QMessageBox::Critical, u"Import Failed"_s, line.repeated(2'000));
    box.setInformativeText(line.repeated(2'000));
    box.show();
    standsOnTheScreen(box);
    QCOMPARE(box.findChildren<LongTextView *>().size(), 2);
}

void tst_MessageBoxes::controlCharactersShowAsPictures()
{
    const Workspace workspace;
    const QString text = u"stderr: "_s + QChar(0) + QChar(27);
    const Question box(text);
    QCOMPARE(textView(box)->toPlainText(), u"stderr: \u2400\u241B"_s);
    QCOMPARE(box.text(), text);
}

void tst_MessageBoxes::returnAnswersWithTheDefaultButton()
{
    const Workspace workspace;
    Question box(line.repeated(60));
    textView(box)->setFocus();
    QTest::keyClick(textView(box), Qt::Key_Return);
    QCOMPARE(box.result(), int(QMessageBox::No));
}

void tst_MessageBoxes::escapeAnswersAsBefore()
{
    const Workspace workspace;
    QMessageBox box(QMessageBox::Warning, u"Trip"_s, line.repeated(60), QMessageBox::Ok);
    box.open();
    QTest::keyClick(textView(box), Qt::Key_Escape);
    QVERIFY(!box.isVisible());
    QCOMPARE(box.result(), int(QMessageBox::Ok));
}

void tst_MessageBoxes::keyboardStartsOnTheButtonsAndReachesTheText()
{
    const Workspace workspace;
    Question box(line.repeated(60));
    QVERIFY(QTest::qWaitForWindowActive(&box));
    QVERIFY(box.button(QMessageBox::No)->hasFocus());
    QList<QWidget *> reached;
    for (int tab = 0; tab < 3; ++tab) {
        QTest::keyClick(box.focusWidget(), Qt::Key_Tab);
        reached.append(box.focusWidget());
    }
    QCOMPARE(reached, (QList<QWidget *>{textView(box), box.button(QMessageBox::Yes),
                                        box.button(QMessageBox::No)}));
}

TEST_CLASS(tst_MessageBoxes)

#include "tst_MessageBoxes.moc"
