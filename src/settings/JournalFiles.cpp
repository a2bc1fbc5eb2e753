#include "settings/JournalFiles.h"

#include "data/OneCallConnection.h"
#include "data/SqlStatement.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace JournalFiles {

namespace {

constexpr std::array endings = {"-journal"_L1, "-wal"_L1, "-shm"_L1};

} // namespace

QStringList withContent(const QString &databasePath)
{
    QStringList paths;
    for (const QLatin1StringView ending : {"-journal"_L1, "-wal"_L1}) { // "-shm" is an index only
        if (QFileInfo(databasePath + ending).size() > 0)
            paths.append(databasePath + ending);
    }
    return paths;
}

bool finish(const QString &databasePath)
{
    QString error;
    bool isFree = false;
    {
        const OneCallConnection connection(u"database_copy_connection"_s, databasePath, error);
        isFree = runSql(connection.database(), u"SELECT COUNT(*) FROM sqlite_master"_s, {}, error)
                 && runSql(connection.database(), u"BEGIN IMMEDIATE"_s, {}, error);
    }
    return isFree && QFileInfo(databasePath + "-wal"_L1).size() == 0;
}

bool remove(const QString &databasePath)
{
    return std::ranges::all_of(endings, [&](QLatin1StringView ending) {
        return !QFile::exists(databasePath + ending) || QFile::remove(databasePath + ending);
    });
}

bool move(const QString &databasePath, const QString &newPath)
{
    return std::ranges::all_of(endings, [&](QLatin1StringView ending) {
        return !QFile::exists(databasePath + ending)
               || QFile::rename(databasePath + ending, newPath + ending);
    });
}

} // namespace JournalFiles
