#pragma once

#include <QList>
#include <QString>

/// Texts of a megabyte, as a damaged file or a paste may hold them.
namespace LongTexts {

inline constexpr qsizetype megabyte = 1 << 20;

inline const QString words = QStringLiteral("pay ").repeated(megabyte / 4);
inline const QString unbroken = QString(megabyte, u'x');
inline const QString lineFeeds = QString(megabyte, u'\n');
inline const QString controlsAndEmoji =
    (QStringLiteral("\U0001F69A") + QChar(0) + QChar(27)).repeated(megabyte / 4);

inline const QList<QString> all = {words, unbroken, lineFeeds, controlsAndEmoji};

/// How a text that is too long says so.
inline const QString saysSo = QStringLiteral("… (1,048,576 characters, shown in part)");

} // namespace LongTexts
