#include "support/LongTexts.h"
#include "support/TestProgram.h"
#include "ui/ShownText.h"

using namespace Qt::StringLiterals;

class tst_ShownText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textOfOrdinaryLengthStaysAsItIs()
    {
        const QString text = u"a\n\t"_s + QChar(0) + QString(997, u'x');
        QCOMPARE(text.size(), 1'001);
        QCOMPARE(ShownText::shortened(text.first(1'000)), text.first(1'000));
        QVERIFY(ShownText::shortened(text) != text);
    }

    void longTextShowsItsBeginningAndSaysSo()
    {
        QCOMPARE(ShownText::shortened(LongTexts::unbroken), QString(100, u'x') + LongTexts::saysSo);
    }

    void beginningOfALongTextIsOneLineOfPictures()
    {
        QCOMPARE(ShownText::shortened(LongTexts::lineFeeds),
                 QString(100, u'\u240A') + LongTexts::saysSo);
        QCOMPARE(ShownText::shortened(LongTexts::controlsAndEmoji),
                 u"\U0001F69A\u2400\u241B"_s.repeated(25) + LongTexts::saysSo);
    }

    void noLetterIsHalved()
    {
        const QString text = u'x' + u"\U0001F69A"_s.repeated(500);
        QCOMPARE(ShownText::shortened(text),
                 u'x' + u"\U0001F69A"_s.repeated(49) + u"… (1,001 characters, shown in part)"_s);
    }

    void picturesStandForControlCharactersButNotForTabsAndLineBreaks()
    {
        const QString text = u"a\tb\r\nc\rd\n"_s + QChar(0) + QChar(27) + QChar(127) + QChar(0x85);
        QCOMPARE(ShownText::withPictures(text), u"a\tb\nc\nd\n\u2400\u241B\u2421\uFFFD"_s);
    }

    void editorsTakeLinesUpTo20000CharactersAndUpTo50000OfThem()
    {
        QVERIFY(!ShownText::isTooLongToEdit({}));
        QVERIFY(!ShownText::isTooLongToEdit(QString(20'000, u'x') + u'\n' + QString(20'000, u'x')));
        QVERIFY(ShownText::isTooLongToEdit(u"a\n"_s + QString(20'001, u'x')));
        QVERIFY(!ShownText::isTooLongToEdit(QString(49'999, u'\n')));
        QVERIFY(ShownText::isTooLongToEdit(QString(50'000, u'\n')));
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_ShownText)
#include "tst_ShownText.moc"
