#include "ui/ShownText.h"

#include <QCoreApplication>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace ShownText {

namespace {

constexpr qsizetype shownPart = 100;

QChar picture(QChar letter)
{
    if (letter.category() != QChar::Other_Control)
        return letter;
    if (letter < u' ')
        return QChar(0x2400 + letter.unicode());
    return letter == u'\x7f' ? u'\u2421' : QChar(QChar::ReplacementCharacter);
}

} // namespace

QString shortened(const QString &text)
{
    if (text.size() <= longest)
        return text;
    const bool halves = text.at(shownPart).isLowSurrogate();
    QString shown = text.first(halves ? shownPart - 1 : shownPart);
    for (QChar &letter : shown)
        letter = picture(letter);
    return shown
           + QCoreApplication::translate("ShownText", "… (%1 characters, shown in part)")
                 .arg(QLocale(QLocale::English).toString(text.size()));
}

QStringList shortened(const QStringList &texts)
{
    QStringList shown;
    for (const QString &text : texts)
        shown.append(shortened(text));
    return shown;
}

QStringList withoutTooLong(const QStringList &texts)
{
    QStringList kept = texts;
    kept.removeIf([](const QString &text) { return text.size() > longest; });
    return kept;
}

bool isTooLongToEdit(const QString &text)
{
    qsizetype lines = 0;
    qsizetype start = 0;
    for (qsizetype end = 0; start <= text.size(); start = end + 1) {
        end = text.indexOf(u'\n', start);
        if (end < 0)
            end = text.size();
        if (end - start > longestLine || ++lines > mostLines)
            return true;
    }
    return false;
}

QString withPictures(const QString &text)
{
    QString shown = text;
    shown.replace("\r\n"_L1, "\n"_L1).replace(u'\r', u'\n');
    for (QChar &letter : shown) {
        if (letter != u'\n' && letter != u'\t')
            letter = picture(letter);
    }
    return shown;
}

} // namespace ShownText
