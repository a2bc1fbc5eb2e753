#include "settings/LicenceText.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace LicenceText {

namespace {

QString trimmedText(const QString &path)
{
    QFile file(path);
    // Asked for first, because opening a missing file is reported on the console by some systems.
    if (!file.exists() || !file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    return QString::fromUtf8(file.readAll()).trimmed();
}

} // namespace

QStringList licenceCandidates(const QString &applicationFolder, const QString &currentFolder)
{
    const QDir application(applicationFolder);
    const QDir current(currentFolder);
    return {application.filePath(u"EULA.txt"_s),
            application.filePath(u"License.txt"_s),
            application.filePath(u"LICENSE.txt"_s),
            current.filePath(u"EULA.txt"_s),
            current.filePath(u"License.txt"_s),
            current.filePath(u"LICENSE.txt"_s),
            application.filePath(u"Installer/EULA.txt"_s),
            application.filePath(u"../Installer/EULA.txt"_s),
            application.filePath(u"../../Installer/EULA.txt"_s)};
}

QString firstLicenceText(const QStringList &candidates)
{
    for (const QString &candidate : candidates) {
        QString text = trimmedText(candidate);
        if (!text.isEmpty())
            return text;
    }
    return {};
}

} // namespace LicenceText
