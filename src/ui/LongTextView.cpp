#include "ui/LongTextView.h"

#include "ui/ShownText.h"

#include <QMimeData>

#include <algorithm>

using namespace Qt::StringLiterals;
using ShownText::longestLine;

namespace {

QString withFewLines(QString text)
{
    qsizetype lines = 0;
    for (QChar &letter : text) {
        if (letter == u'\n' && ++lines >= ShownText::mostLines)
            letter = u'\u240A';
    }
    return text;
}

// How much of a line that is too long fits: up to a blank, or else to where no letter is halved.
qsizetype fittingLength(QStringView line)
{
    const qsizetype blank = line.first(longestLine).lastIndexOf(u' ');
    if (blank >= 0)
        return blank + 1;
    return line.at(longestLine).isLowSurrogate() ? longestLine - 1 : longestLine;
}

} // namespace

LongTextView::LongTextView(QWidget *parent)
    : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setTabChangesFocus(true);
}

void LongTextView::showText(const QString &text)
{
    wholeText = ShownText::withPictures(text);
    addedBreaks.clear();
    setPlainText(withShortLines(withFewLines(wholeText)));
}

QString LongTextView::withShortLines(const QString &text)
{
    QString lines;
    lines.reserve(text.size() + text.size() / longestLine);
    for (QStringView line : QStringView(text).split(u'\n')) {
        while (line.size() > longestLine) {
            const qsizetype length = fittingLength(line);
            lines += line.first(length);
            addedBreaks.append(lines.size());
            lines += u'\n';
            line = line.sliced(length);
        }
        lines += line;
        lines += u'\n';
    }
    lines.chop(1);
    return lines;
}

QMimeData *LongTextView::createMimeDataFromSelection() const
{
    const qsizetype start = placeInText(textCursor().selectionStart());
    const qsizetype end = placeInText(textCursor().selectionEnd());
    auto *copied = new QMimeData;
    copied->setText(wholeText.sliced(start, end - start));
    return copied;
}

qsizetype LongTextView::placeInText(qsizetype placeInView) const
{
    const auto later = std::lower_bound(addedBreaks.cbegin(), addedBreaks.cend(), placeInView);
    return placeInView - (later - addedBreaks.cbegin());
}
