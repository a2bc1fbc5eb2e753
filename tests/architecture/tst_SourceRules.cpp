#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

/// Reads the product's own sources: link lines alone do not keep a folder from including another.
class tst_SourceRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void foldersKnowOnlyWhomTheyMay_data();
    void foldersKnowOnlyWhomTheyMay();
    void nobodyIncludesTheWindow();
    void everyFolderHasItsRow();
    void signalsAreConnectedByPointerWithAContext();
    void sqlRunsThroughTheStatementClassOnly();

private:
    static QStringList sourcesOf(const QString &folder);
    static QString textOf(const QString &path);
    static QStringList includedFoldersOf(const QString &path);
};

namespace {

// A folder, and the folders whose headers it may include besides its own. "app" stands for
// the headers of the library `ui` alone, except for the window itself.
const QHash<QString, QStringList> mayKnow = {
    {u"data"_s, {}},
    {u"locations"_s, {u"data"_s, u"app"_s}},
    {u"pdfimport"_s, {u"data"_s, u"app"_s}},
    {u"reports"_s, {u"data"_s, u"app"_s}},
    {u"settlements"_s, {u"data"_s, u"app"_s}},
    {u"settings"_s, {u"data"_s, u"app"_s, u"pdfimport"_s}},
    {u"trips"_s, {u"data"_s, u"app"_s, u"locations"_s, u"pdfimport"_s}},
    {u"app"_s,
     {u"data"_s, u"trips"_s, u"settlements"_s, u"settings"_s, u"locations"_s, u"pdfimport"_s,
      u"reports"_s}},
};

const QStringList headersBelowThePages = {u"app/DataCell.h"_s, u"app/DataTable.h"_s,
                                          u"app/PageParts.h"_s, u"app/UiScale.h"_s,
                                          u"app/WheelGuard.h"_s};

QStringList matchesOf(const QString &pattern, const QString &text)
{
    QStringList found;
    const QRegularExpression expression(pattern, QRegularExpression::MultilineOption);
    for (auto i = expression.globalMatch(text); i.hasNext();)
        found.append(i.next().captured(1));
    return found;
}

} // namespace

QStringList tst_SourceRules::sourcesOf(const QString &folder)
{
    QStringList paths;
    QDirIterator files(QStringLiteral(SOURCE_DIR) + u'/' + folder, {u"*.h"_s, u"*.cpp"_s},
                       QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        paths.append(files.next());
    return paths;
}

QString tst_SourceRules::textOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList tst_SourceRules::includedFoldersOf(const QString &path)
{
    return matchesOf(u"^#include \"([a-z]+/[A-Za-z]+\\.h)\""_s, textOf(path));
}

void tst_SourceRules::foldersKnowOnlyWhomTheyMay_data()
{
    QTest::addColumn<QString>("folder");
    for (auto row = mayKnow.cbegin(); row != mayKnow.cend(); ++row)
        QTest::newRow(qPrintable(row.key())) << row.key();
}

void tst_SourceRules::foldersKnowOnlyWhomTheyMay()
{
    QFETCH(const QString, folder);
    QStringList strangers;
    for (const QString &path : sourcesOf(folder)) {
        for (const QString &header : includedFoldersOf(path)) {
            const QString known = header.section(u'/', 0, 0);
            if (known != folder && !mayKnow.value(folder).contains(known))
                strangers.append(path + " includes "_L1 + header);
        }
    }
    QCOMPARE(strangers, QStringList());
}

void tst_SourceRules::nobodyIncludesTheWindow()
{
    QStringList strangers;
    for (const QString &path : sourcesOf({})) {
        for (const QString &header : includedFoldersOf(path)) {
            if (header.startsWith("app/"_L1) && !headersBelowThePages.contains(header)
                && !path.contains("/app/"_L1))
                strangers.append(path + " includes "_L1 + header);
        }
    }
    QCOMPARE(strangers, QStringList());
}

void tst_SourceRules::everyFolderHasItsRow()
{
    const QStringList folders =
        QDir(QStringLiteral(SOURCE_DIR)).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QVERIFY(folders.contains(u"trips"_s));
    for (const QString &folder : folders)
        QVERIFY2(mayKnow.contains(folder), qPrintable(folder));
}

void tst_SourceRules::signalsAreConnectedByPointerWithAContext()
{
    QStringList found;
    for (const QString &path : sourcesOf({})) {
        const QString text = textOf(path);
        found += matchesOf(u"\\b(SIGNAL|SLOT)\\("_s, text);
        // A lambda as the third argument has no context that could end it.
        found += matchesOf(u"\\b(connect)\\([^,;]+,[^,;]+,\\s*\\["_s, text);
    }
    QCOMPARE(found, QStringList());
}

void tst_SourceRules::sqlRunsThroughTheStatementClassOnly()
{
    QStringList found;
    for (const QString &path : sourcesOf({})) {
        if (!path.contains("/SqlStatement."_L1) && textOf(path).contains("QSqlQuery"_L1))
            found.append(path);
    }
    QCOMPARE(found, QStringList());
}

QTEST_GUILESS_MAIN(tst_SourceRules)

#include "tst_SourceRules.moc"
