#include "app/StartScreenText.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace StartScreenText {

QString databaseText(const QString &path)
{
    return path.trimmed().isEmpty() ? u"No database open"_s : QFileInfo(path).fileName();
}

QString tripsText(int count)
{
    return count < 0 ? u"Not available"_s : QString::number(count);
}

QString locationsText(int count)
{
    return QString::number(std::max(count, 0));
}

QString payweekText(const QString &payweek)
{
    const QString trimmed = payweek.trimmed();
    return trimmed.isEmpty() ? u"None"_s : trimmed;
}

QString backupText()
{
    return u"Not Available"_s;
}

QString activityText(const QStringList &activity)
{
    if (activity.isEmpty())
        return u"No recent activity available."_s;
    const QString bullet = u"\u2022 "_s;
    return bullet + activity.join(u'\n' + bullet);
}

} // namespace StartScreenText
