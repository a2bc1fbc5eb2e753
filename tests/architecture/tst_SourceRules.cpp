#include "support/TestProgram.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

/// Reads the sources: what the compiler and the linker let pass, but the house does not.
class tst_SourceRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void roomsKnowOnlyWhomTheyMay_data();
    void roomsKnowOnlyWhomTheyMay();
    void nobodyIncludesTheWindow();
    void everyRoomHasItsRow();
    void coresNameNoQtModule();
    void signalsAreConnectedByPointerWithAContext();
    void sqlRunsThroughTheStatementClassOnly();
    void filesHoldAtMost500Lines();
    void functionsHoldAtMost60Lines();
    void foldersHoldAtMost25Files();
};

namespace {

const QDir project(QStringLiteral(PROJECT_DIR));

// A room, and the rooms whose headers it may include besides its own. A room is a folder below
// src/, without the files of its subsystem's core, which are a room of their own: trips_core holds
// the rules and repositories of src/trips and of all its folders.
const QHash<QString, QStringList> mayKnow = {
    {u"data"_s, {}},
    {u"ui"_s, {u"data"_s}},
    {u"locations_core"_s, {u"data"_s}},
    {u"locations"_s, {u"locations_core"_s, u"data"_s, u"ui"_s}},
    {u"pdfimport_core"_s, {u"data"_s}},
    {u"pdfimport/history"_s, {u"pdfimport_core"_s, u"data"_s, u"ui"_s}},
    {u"pdfimport/review"_s, {u"pdfimport_core"_s, u"data"_s, u"ui"_s}},
    {u"pdfimport"_s, {u"pdfimport/review"_s, u"pdfimport_core"_s, u"data"_s, u"ui"_s}},
    {u"trips_core"_s, {u"data"_s}},
    {u"trips/grids"_s, {u"trips_core"_s, u"data"_s, u"ui"_s}},
    {u"trips/stops"_s,
     {u"trips/grids"_s, u"trips_core"_s, u"locations_core"_s, u"data"_s, u"ui"_s}},
    {u"trips/items"_s, {u"trips/grids"_s, u"trips_core"_s, u"data"_s, u"ui"_s}},
    {u"trips/fuel"_s,
     {u"trips/grids"_s, u"trips/items"_s, u"trips_core"_s, u"pdfimport_core"_s, u"data"_s,
      u"ui"_s}},
    {u"trips"_s,
     {u"trips/grids"_s, u"trips/stops"_s, u"trips/items"_s, u"trips/fuel"_s, u"trips_core"_s,
      u"data"_s, u"ui"_s}},
    {u"settlements_core"_s, {u"data"_s}},
    {u"settlements"_s, {u"settlements_core"_s, u"data"_s, u"ui"_s}},
    {u"reports_core"_s, {u"data"_s}},
    {u"reports/charts"_s, {u"reports_core"_s, u"data"_s, u"ui"_s}},
    {u"reports/totals"_s, {u"reports/charts"_s, u"reports_core"_s, u"data"_s, u"ui"_s}},
    {u"reports"_s, {u"reports/charts"_s, u"reports_core"_s, u"data"_s, u"ui"_s}},
    {u"settings_core"_s, {}},
    {u"settings"_s, {u"settings_core"_s, u"pdfimport_core"_s, u"data"_s, u"ui"_s}},
    {u"app_core"_s, {u"data"_s}},
    {u"app"_s,
     {u"app_core"_s, u"settings_core"_s, u"data"_s, u"ui"_s, u"locations"_s, u"pdfimport"_s,
      u"pdfimport/history"_s, u"trips"_s, u"settlements"_s, u"reports"_s, u"reports/totals"_s,
      u"settings"_s}},
};

// All files below the folder, and of the folder itself, that end in one of these.
QStringList filesOf(const QString &folder, const QStringList &endings = {u"*.h"_s, u"*.cpp"_s})
{
    QStringList paths;
    QDirIterator files(project.filePath(folder), endings, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext())
        paths.append(files.next());
    return paths;
}

QStringList ownFiles()
{
    return filesOf(u"src"_s) + filesOf(u"tests"_s) + filesOf(u"samples"_s) + filesOf(u"bench"_s);
}

QString textOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        QTest::qFail(qPrintable(path), __FILE__, __LINE__);
    return QString::fromUtf8(file.readAll());
}

QStringList matchesOf(const QString &pattern, const QString &text)
{
    QStringList found;
    const QRegularExpression expression(pattern, QRegularExpression::MultilineOption);
    for (auto i = expression.globalMatch(text); i.hasNext();)
        found.append(i.next().captured(1));
    return found;
}

// The headers of the product that a file includes, as paths below src/.
QStringList includesOf(const QString &path)
{
    return matchesOf(u"^#include \"([a-z/]+/[A-Za-z]+\\.h)\""_s, textOf(path));
}

// The files of all cores, as paths below src/ without their endings.
QSet<QString> coreFiles()
{
    static const QSet<QString> files = [] {
        QSet<QString> paths;
        for (const QString &path : QStringLiteral(CORE_FILES).split(u':'))
            paths.insert(project.relativeFilePath(path).section(u'.', 0, 0).mid(4));
        return paths;
    }();
    return files;
}

// The room of a file below src/.
QString roomOf(const QString &file)
{
    const QString subsystem = file.section(u'/', 0, 0);
    if (subsystem != "data"_L1 && coreFiles().contains(file.section(u'.', 0, 0)))
        return subsystem + "_core"_L1;
    return file.section(u'/', 0, -2);
}

} // namespace

void tst_SourceRules::roomsKnowOnlyWhomTheyMay_data()
{
    QTest::addColumn<QString>("room");
    for (auto row = mayKnow.cbegin(); row != mayKnow.cend(); ++row)
        QTest::newRow(qPrintable(row.key())) << row.key();
}

void tst_SourceRules::roomsKnowOnlyWhomTheyMay()
{
    QFETCH(const QString, room);
    QStringList strangers;
    for (const QString &path : filesOf(u"src"_s)) {
        const QString file = project.relativeFilePath(path).mid(4);
        if (roomOf(file) != room)
            continue;
        for (const QString &header : includesOf(path)) {
            if (roomOf(header) != room && !mayKnow.value(room).contains(roomOf(header)))
                strangers.append(file + " includes "_L1 + header);
        }
    }
    QCOMPARE(strangers.join(u'\n'), QString());
}

void tst_SourceRules::nobodyIncludesTheWindow()
{
    for (auto row = mayKnow.cbegin(); row != mayKnow.cend(); ++row)
        QVERIFY2(!row->contains(u"app"_s), qPrintable(row.key()));
}

void tst_SourceRules::everyRoomHasItsRow()
{
    QSet<QString> rooms;
    for (const QString &path : filesOf(u"src"_s))
        rooms.insert(roomOf(project.relativeFilePath(path).mid(4)));
    const QStringList rows = mayKnow.keys();
    QCOMPARE(rooms, QSet<QString>(rows.cbegin(), rows.cend()));
}

// A core is not given the folders of Qt's other modules, so that "#include <QWidget>" does not
// compile there; but "#include <QtWidgets/QWidget>" would.
void tst_SourceRules::coresNameNoQtModule()
{
    QStringList found;
    for (const QString &path : filesOf(u"src"_s))
        found += matchesOf(u"^#include <(Qt[A-Za-z]+/.*)>"_s, textOf(path));
    QCOMPARE(found.join(u'\n'), QString());
}

void tst_SourceRules::signalsAreConnectedByPointerWithAContext()
{
    QStringList found;
    for (const QString &path : filesOf(u"src"_s)) {
        const QString text = textOf(path);
        found += matchesOf(u"\\b(SIGNAL|SLOT)\\("_s, text);
        // A lambda as the third argument has no context that could end it.
        found += matchesOf(u"\\b(connect)\\([^,;]+,[^,;]+,\\s*\\["_s, text);
    }
    QCOMPARE(found.join(u'\n'), QString());
}

void tst_SourceRules::sqlRunsThroughTheStatementClassOnly()
{
    QStringList found;
    for (const QString &path : filesOf(u"src"_s)) {
        if (!path.contains("/SqlStatement."_L1) && textOf(path).contains("QSqlQuery"_L1))
            found.append(path);
    }
    QCOMPARE(found.join(u'\n'), QString());
}

void tst_SourceRules::filesHoldAtMost500Lines()
{
    QStringList large;
    for (const QString &path : ownFiles()) {
        const qsizetype lines = textOf(path).count(u'\n');
        if (lines > 500)
            large.append(u"%1: %2 lines"_s.arg(path).arg(lines));
    }
    QCOMPARE(large.join(u'\n'), QString());
}

// A function's braces stand on lines of their own, as clang-format sets them. So do those of a
// class and of an array, but they end with a semicolon.
void tst_SourceRules::functionsHoldAtMost60Lines()
{
    const QString function = u"(^[^\\n]+\\n( *)\\{\\n(?:(?!\\2\\}).*\\n){61,}?\\2\\}$)"_s;
    QStringList large;
    for (const QString &path : ownFiles()) {
        for (const QString &text : matchesOf(function, textOf(path)))
            large.append(path + ": "_L1 + text.section(u'\n', 0, 0));
    }
    QCOMPARE(large.join(u'\n'), QString());
}

void tst_SourceRules::foldersHoldAtMost25Files()
{
    QStringList large;
    QSet<QString> folders;
    for (const QString &path : ownFiles())
        folders.insert(QFileInfo(path).path());
    for (const QString &folder : std::as_const(folders)) {
        const qsizetype files = QDir(folder).entryList(QDir::Files).size();
        if (files > 25)
            large.append(u"%1: %2 files"_s.arg(folder).arg(files));
    }
    QCOMPARE(large.join(u'\n'), QString());
}

TEST_CLASS_WITHOUT_WINDOWS(tst_SourceRules)

#include "tst_SourceRules.moc"
