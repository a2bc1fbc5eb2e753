#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "ui/LongTextView.h"

#include <QClipboard>
#include <QTest>
#include <QTextBlock>

using namespace Qt::StringLiterals;

namespace {

class Shown : public LongTextView
{
public:
    explicit Shown(const QString &text)
        : LongTextView(nullptr)
    {
        showText(text);
    }
};

QList<int> lengthsOfLines(const LongTextView &view)
{
    QList<int> lengths;
    for (QTextBlock line = view.document()->begin(); line.isValid(); line = line.next())
        lengths.append(line.length() - 1);
    return lengths;
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
    const Shown view(u"<b>pay</b>\n\n\twas 0\n"_s);
    QCOMPARE(view.toPlainText(), u"<b>pay</b>\n\n\twas 0\n"_s);
    QVERIFY(view.isReadOnly());
}

void tst_LongTextView::tooLongALineGoesOnInTheNext()
{
    const Shown view(QString(45'000, u'x'));
    QCOMPARE(lengthsOfLines(view), (QList<int>{20'000, 20'000, 5'000}));
}

void tst_LongTextView::aLineIsCutAtABlankWhereItHasOne()
{
    const Shown view(QString(15'000, u'x') + u' ' + QString(15'000, u'y'));
    QCOMPARE(lengthsOfLines(view), (QList<int>{15'001, 15'000}));
    QCOMPARE(view.document()->lastBlock().text().front(), u'y');
}

void tst_LongTextView::aLetterOfTwoHalvesIsNotCut()
{
    const Shown view(u'x' + u"\U0001F69A"_s.repeated(10'000));
    QCOMPARE(lengthsOfLines(view), (QList<int>{19'999, 2}));
}

void tst_LongTextView::tooManyLinesShowAsPicturesOfLineFeeds()
{
    const Shown view(QString(1'000'000, u'\n'));
    const QList<int> lengths = lengthsOfLines(view);
    QVERIFY(lengths.size() < 51'000);
    QCOMPARE(*std::max_element(lengths.cbegin(), lengths.cend()), 20'000);
    QCOMPARE(view.document()->lastBlock().text().back(), u'\u240A');
}

void tst_LongTextView::allLineBreaksAreOne()
{
    const Shown view(u"one\r\ntwo\rthree"_s);
    QCOMPARE(view.toPlainText(), u"one\ntwo\nthree"_s);
}

void tst_LongTextView::wholeTextIsCopiedAsItStands_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("short") << u"pay\nwas 0"_s;
    QTest::newRow("unbroken") << QString(1 << 20, u'x');
    QTest::newRow("words") << u"pay was 0 "_s.repeated(100'000);
    QTest::newRow("lines") << u"pay was 0\n"_s.repeated(60'000);
    QTest::newRow("emoji") << u"\U0001F69A"_s.repeated(50'000);
}

void tst_LongTextView::wholeTextIsCopiedAsItStands()
{
    QFETCH(const QString, text);
    Shown view(text);
    QVERIFY(copiedWhole(view) == text); // QCOMPARE would copy it all into its message
}

void tst_LongTextView::selectionAcrossAnAddedBreakIsCopiedAsItStands()
{
    Shown view(QString(19'999, u'x') + u"abc"_s + QString(999, u'y'));
    QTextCursor cursor = view.textCursor();
    cursor.setPosition(19'998);
    cursor.setPosition(20'003, QTextCursor::KeepAnchor); // one of them the added break
    view.setTextCursor(cursor);
    QCOMPARE(copied(view), u"xabc"_s);
}

TEST_CLASS(tst_LongTextView)

#include "tst_LongTextView.moc"
