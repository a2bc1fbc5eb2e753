#include "support/LongTexts.h"
#include "support/TestProgram.h"
#include "ui/FieldText.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

class tst_FieldText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lineKeepsTheWholeOfALongText()
    {
        QLineEdit line;
        for (const QString &text : LongTexts::all) {
            FieldText::show(&line, text);
            QVERIFY(line.text().endsWith(LongTexts::saysSo));
            QVERIFY(line.text().size() < 200);
            QVERIFY(FieldText::of(&line) == text); // QCOMPARE would copy it into its message
        }
    }

    void editorKeepsTheWholeOfALongText()
    {
        QPlainTextEdit editor;
        for (const QString &text : LongTexts::all) {
            FieldText::show(&editor, text);
            QVERIFY(editor.toPlainText().endsWith(LongTexts::saysSo));
            QVERIFY(editor.toPlainText().size() < 200);
            QVERIFY(FieldText::of(&editor) == text);
        }
    }

    void editableBoxKeepsTheWholeOfALongText()
    {
        QComboBox box;
        box.setEditable(true);
        FieldText::show(&box, LongTexts::words);
        QVERIFY(box.currentText().size() < 200);
        QVERIFY(FieldText::of(&box) == LongTexts::words);
        QVERIFY(box.lineEdit()->isReadOnly());
        FieldText::show(&box, u"Detention"_s);
        QCOMPARE(FieldText::of(&box), u"Detention"_s);
        QVERIFY(!box.lineEdit()->isReadOnly());
    }

    void editorKeepsTheWholeWhateverItMakesOfItsCharacters_data()
    {
        QTest::addColumn<QString>("character");
        for (const char16_t character :
             {u'\u00A0', u'\u2028', u'\u2029', u'\uFDD0', u'\uFDD1', u'\uFFFC', u'\uFEFF'})
            QTest::addRow("U+%04X", character) << QString(QChar(character));
    }

    void editorKeepsTheWholeWhateverItMakesOfItsCharacters()
    {
        QFETCH(const QString, character);
        QPlainTextEdit editor;
        const QString text = u"Gate"_s + character + u"4: "_s + QString(30'000, u'x');
        FieldText::show(&editor, text);
        QVERIFY(FieldText::of(&editor) == text);
        FieldText::setReadOnly(&editor, false);
        QVERIFY(editor.isReadOnly());
    }

    void editorLeavesBlanksThatHoldWordsTogether()
    {
        QPlainTextEdit editor;
        FieldText::show(&editor, u"Gate\u00A04\nRing twice"_s);
        QCOMPARE(FieldText::of(&editor), u"Gate\u00A04\nRing twice"_s);
    }

    void lineBrokenWithShiftIsABrokenLine()
    {
        QPlainTextEdit editor;
        FieldText::show(&editor, u"Gate 4"_s);
        editor.moveCursor(QTextCursor::End);
        QTest::keyClick(&editor, Qt::Key_Return, Qt::ShiftModifier);
        QTest::keyClicks(&editor, u"Ring"_s);
        QCOMPARE(FieldText::of(&editor), u"Gate 4\nRing"_s);
    }

    void nameChosenAfterALongOneCanBeEdited()
    {
        QComboBox box;
        box.setEditable(true);
        box.addItem(u"Lumper"_s);
        FieldText::show(&box, LongTexts::words);
        box.setCurrentIndex(-1);
        FieldText::show(&box, LongTexts::words);
        box.setCurrentText(u"Lumper"_s);
        QCOMPARE(FieldText::of(&box), u"Lumper"_s);
        QVERIFY(!box.lineEdit()->isReadOnly());
    }

    void textOfOrdinaryLengthIsShownWholeAndEdited()
    {
        QLineEdit line;
        const QString text(20'000, u'x');
        FieldText::show(&line, text);
        QCOMPARE(line.text(), text);
        line.setText(u"typed"_s);
        QCOMPARE(FieldText::of(&line), u"typed"_s);
    }

    void longTextCannotBeEditedUntilAnotherIsShown()
    {
        QLineEdit line;
        FieldText::show(&line, LongTexts::words);
        FieldText::setReadOnly(&line, false);
        QVERIFY(line.isReadOnly());
        FieldText::show(&line, u"4471203"_s);
        FieldText::setReadOnly(&line, false);
        QVERIFY(!line.isReadOnly());
        QCOMPARE(FieldText::of(&line), u"4471203"_s);
    }
};

TEST_CLASS(tst_FieldText)
#include "tst_FieldText.moc"
