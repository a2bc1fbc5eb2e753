#include "support/Workspace.h"

#include "data/DatabaseLocator.h"
#include "data/SqlStatement.h"
#include "samples/SqlScript.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSettings>
#include <QStandardPaths>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// Opened for one call only: a connection that stays open would count as the trips file in use.
template <typename Work>
void onTrips(const QString &path, Work work)
{
    const QString name = u"workspace"_s;
    QSqlDatabase database;
    QString error;
    if (DatabaseLocator::openNamedConnection(database, name, path, error)) {
        // A test's file need not outlive a power cut, and waiting for the disk is most of its time.
        runSql(database, u"PRAGMA synchronous = OFF"_s, {}, error);
        work(database, error);
    }
    DatabaseLocator::releaseNamedConnection(database, name);
    if (!error.isEmpty())
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
}

// Debian keeps one folder of language data for each major version of Tesseract.
QString englishDataFolder()
{
    const QDir versions(u"/usr/share/tesseract-ocr"_s);
    for (const QString &version : versions.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString folder = versions.filePath(version + "/tessdata"_L1);
        if (QFile::exists(folder + "/eng.traineddata"_L1))
            return folder;
    }
    return {};
}

void makeLink(const QString &from, const QString &link)
{
    QDir().mkpath(QFileInfo(link).path());
    if (!QFile::link(from, link))
        QTest::qFail(qPrintable(u"No link to what should be "_s + link), __FILE__, __LINE__);
}

} // namespace

Workspace::Workspace()
    : previousFolder(QDir::currentPath())
{
    // Of itself the offscreen platform warns whenever the least size of a window changes or a
    // tooltip or a list comes up.
    QTest::failOnWarning(QRegularExpression(
        u"^(?!This plugin does not support (propagateSizeHints|raise|grabbing))"_s));
    QDir::setCurrent(folder.path());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, path(u"settings"_s));
}

Workspace::~Workspace()
{
    QDir::setCurrent(previousFolder);
}

QString Workspace::path(const QString &fileName) const
{
    return folder.filePath(fileName);
}

QString Workspace::makeTrips(const QString &fileName)
{
    return made(u"trips.sql"_s, fileName);
}

QString Workspace::makeTripsWithoutIndexes(const QString &fileName)
{
    QString target = makeTrips(fileName);
    onTrips(target, [](const QSqlDatabase &database, QString &error) {
        QStringList indexes;
        SqlStatement(database,
                     u"SELECT name FROM sqlite_master WHERE type = 'index' AND sql <> ''"_s)
            .forEachRow({}, error,
                        [&indexes](const SqlStatement &row) { indexes.append(row.text(0)); });
        for (const QString &index : std::as_const(indexes))
            runSql(database, u"DROP INDEX "_s + index, {}, error);
    });
    return target;
}

QString Workspace::makeLocations(const QString &fileName)
{
    return made(u"locations.sql"_s, fileName);
}

QString Workspace::made(const QString &schema, const QString &fileName) const
{
    const QString target = path(fileName);
    QDir().mkpath(QFileInfo(target).path());
    QString error;
    if (!runSqlScript(QStringLiteral(BRINDLEPATH_SCHEMA_DIR) + u'/' + schema, target, error))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    return target;
}

QString Workspace::makeFile(const QString &fileName, const QByteArray &content) const
{
    const QString target = path(fileName);
    QDir().mkpath(QFileInfo(target).path());
    QFile file(target);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        QTest::qFail(qPrintable(file.errorString()), __FILE__, __LINE__);
    return target;
}

void Workspace::linkTools() const
{
    for (const QString &tool : {u"tools/poppler/pdftotext"_s, u"tools/poppler/pdftoppm"_s,
                                u"tools/tesseract/tesseract"_s})
        makeLink(QStandardPaths::findExecutable(QFileInfo(tool).fileName()), path(tool));
    makeLink(englishDataFolder(), path(u"tools/tesseract/tessdata"_s));
}

QString Workspace::makeTool(const QString &fileName, const QByteArray &script) const
{
    const QString target = makeFile(fileName, "#!/bin/sh\n" + script);
    if (!QFile::setPermissions(target, QFile::permissions(target) | QFile::ExeOwner))
        QTest::qFail(qPrintable(target), __FILE__, __LINE__);
    return target;
}

QByteArray Workspace::bytes(const QString &fileName) const
{
    QFile file(path(fileName));
    if (!file.open(QIODevice::ReadOnly))
        QTest::qFail(qPrintable(file.errorString()), __FILE__, __LINE__);
    return file.readAll();
}

void Workspace::execute(const QString &sql, const QVariantList &values) const
{
    onTrips(path(DatabaseLocator::tripsFileName),
            [&](const QSqlDatabase &database, QString &error) {
                runSql(database, sql, values, error);
            });
}

qint64 Workspace::insert(const QString &sql, const QVariantList &values) const
{
    qint64 id = 0;
    onTrips(path(DatabaseLocator::tripsFileName),
            [&](const QSqlDatabase &database, QString &error) {
                SqlStatement statement(database, sql);
                if (statement.run(values, error))
                    id = statement.lastInsertId().toLongLong();
            });
    return id;
}

QVariant Workspace::value(const QString &sql, const QVariantList &values) const
{
    QVariant result;
    onTrips(path(DatabaseLocator::tripsFileName),
            [&](const QSqlDatabase &database, QString &error) {
                SqlStatement(database, sql).firstValue(values, result, error);
            });
    return result;
}

QList<QStringList> Workspace::rows(const QString &sql, const QVariantList &values) const
{
    QList<QStringList> result;
    onTrips(path(DatabaseLocator::tripsFileName), [&](const QSqlDatabase &database,
                                                      QString &error) {
        SqlStatement(database, sql).forEachRow(values, error, [&result](const SqlStatement &row) {
            result.append(row.texts());
        });
    });
    return result;
}

void Workspace::saveScale(int percent)
{
    QSettings(u"Brindle Path LLC"_s, u"Brindlepath Desk"_s)
        .setValue(u"appearance/uiScalePercent"_s, percent);
}
