#include "ui/ShownText.h"

using namespace Qt::StringLiterals;

namespace ShownText {

namespace {

QChar picture(QChar letter)
{
    if (letter.category() != QChar::Other_Control || letter == u'\n' || letter == u'\t')
        return letter;
    if (letter < u' ')
        return QChar(0x2400 + letter.unicode());
    return letter == u'\x7f' ? u'\u2421' : QChar(QChar::ReplacementCharacter);
}

} // namespace

QString withPictures(const QString &text)
{
    QString shown = text;
    shown.replace("\r\n"_L1, "\n"_L1).replace(u'\r', u'\n');
    for (QChar &letter : shown)
        letter = picture(letter);
    return shown;
}

} // namespace ShownText
