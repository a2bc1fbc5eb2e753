#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "ui/LongTextView.h"

#include <QClipboard>
#include <QTest>
#include <QTextBlock>

using namespace Qt::StringLiterals;

namespace {

int longestLine(const LongTextView &view)
{
    int longest = 0;
    for (QTextBlock line = view.document()->begin(); line.isValid(); line = line.next())
        longest = qMax(longest, line.length() - 1);
    return longest;
}

QString copied(LongTextView &view)
{
    view.copy();
    return QApplication::clipboard()->text();
}

QString copiedWhole(LongTextView &view)
{
    view.selectAll();
    return copied(view);
}

} // namespace

class tst_LongTextView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shortLinesShowAsTheyStand();
    void tooLongALineGoesOnInTheNext();
    void aLineIsCutAtABlankWhereItHasOne();
    void aLetterOfTwoHalvesIsNotCut();
    void tooManyLinesShowAsPicturesOfLineFeeds();
    void allLineBreaksAreOne();
    void wholeTextIsCopiedAsItStands_data();
    void wholeTextIsCopiedAsItStands();
    void selectionAcrossAnAddedBreakIsCopiedAsItStands();
};

void tst_LongTextView::shortLinesShowAsTheyStand()
{
    const LongTextView view(u"<b>pay</b>\n\n\twas 0\n"_s, nullptr);
    QCOMPARE(view.toPlainText(), u"<b>pay</b>\n\n\twas 0\n"_s);
    QVERIFY(view.isReadOnly());
}

void tst_LongTextView::tooLongALineGoesOnInTheNext()
{
    const LongTextView view(QString(2'500, u'x'), nullptr);
    QCOMPARE(view.toPlainText(),
             QString(1'000, u'x') + u'\n' + QString(1'000, u'x') + u'\n' + QString(500, u'x'));
}

void tst_LongTextView::aLineIsCutAtABlankWhereItHasOne()
{
    const LongTextView view(QString(700, u'x') + u' ' + QString(700, u'y'), nullptr);
    QCOMPARE(view.toPlainText(), QString(700, u'x') + " \n"_L1 + QString(700, u'y'));
}

void tst_LongTextView::aLetterOfTwoHalvesIsNotCut()
{
    const LongTextView view(u'x' + u"\U0001F69A"_s.repeated(600), nullptr);
    QCOMPARE(view.document()->firstBlock().text(), u'x' + u"\U0001F69A"_s.repeated(499));
}

void tst_LongTextView::tooManyLinesShowAsPicturesOfLineFeeds()
{
    const LongTextView view(QString(1'000'000, u'\n'), nullptr);
    QVERIFY(view.blockCount() < 52'000);
    QCOMPARE(longestLine(view), 1'000);
    QCOMPARE(view.document()->lastBlock().text().back(), u'\u240A');
}

void tst_LongTextView::allLineBreaksAreOne()
{
    const LongTextView view(u"one\r\ntwo\rthree"_s, nullptr);
    QCOMPARE(view.toPlainText(), u"one\ntwo\nthree"_s);
}

void tst_LongTextView::wholeTextIsCopiedAsItStands_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("short") << u"pay\nwas 0"_s;
    QTest::newRow("unbroken") << QString(1 << 20, u'x');
    QTest::newRow("words") << u"pay was 0 "_s.repeated(100'000);
    QTest::newRow("lines") << u"pay was 0\n"_s.repeated(60'000);
    QTest::newRow("emoji") << u"\U0001F69A"_s.repeated(5'000);
}

void tst_LongTextView::wholeTextIsCopiedAsItStands()
{
    QFETCH(const QString, text);
    LongTextView view(text, nullptr);
    QVERIFY(copiedWhole(view) == text); // QCOMPARE would copy it all into its message
}

void tst_LongTextView::selectionAcrossAnAddedBreakIsCopiedAsItStands()
{
    LongTextView view(QString(999, u'x') + u"abc"_s + QString(999, u'y'), nullptr);
    QTextCursor cursor = view.textCursor();
    cursor.setPosition(998);
    cursor.setPosition(1'003, QTextCursor::KeepAnchor); // one of them the added break
    view.setTextCursor(cursor);
    QCOMPARE(copied(view), u"xabc"_s);
}

TEST_CLASS(tst_LongTextView)

#include "tst_LongTextView.moc"
