#include "support/surroundings/OtherProgram.h"

#include <QFileInfo>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

void hasContent(const QString &path)
{
    if (QFileInfo(path).size() == 0)
        QTest::qFail(qPrintable(path + " was not left."_L1), __FILE__, __LINE__);
}

} // namespace

OtherProgram::OtherProgram(const QString &databasePath, const QStringList &statements)
{
    process.start(QStringLiteral(OTHER_PROGRAM), QStringList(databasePath) + statements);
    if (!process.waitForReadyRead())
        QTest::qFail(process.readAllStandardError().constData(), __FILE__, __LINE__);
}

OtherProgram::~OtherProgram()
{
    process.closeWriteChannel();
    process.waitForFinished();
}

void OtherProgram::isKilled()
{
    process.kill();
    process.waitForFinished();
}

void OtherProgram::diesInMidWrite(const QString &databasePath, const QString &table,
                                  const QString &column)
{
    // A cache of one page has to give way to the file before the transaction is over.
    OtherProgram program(databasePath, {u"PRAGMA cache_size = 1"_s, u"BEGIN"_s,
                                        u"UPDATE %1 SET %2 = 'cut off'"_s.arg(table, column)});
    program.isKilled();
    hasContent(databasePath + "-journal"_L1);
}

void OtherProgram::diesInWalMode(const QString &databasePath, const QStringList &statements)
{
    OtherProgram program(databasePath, QStringList(u"PRAGMA journal_mode = WAL"_s) + statements);
    program.isKilled();
    hasContent(databasePath + "-wal"_L1);
}
