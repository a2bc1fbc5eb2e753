#include "support/TestProgram.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <utility>

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
    void everyPermissionIsUsed();
    void everyTestIsRun();
    void headersOfOthersAreNamedWithoutAFolder();
    void classesOfMocStandUnderNoCondition();
    void signalsAreConnectedByPointerWithAContext();
    void sqlRunsThroughTheStatementClassOnly();
    void filesHoldAtMost500Lines();
    void functionsHoldAtMost60Lines();
    void foldersHoldAtMost25Files();
};

namespace {

const QDir project(QStringLiteral(PROJECT_DIR));

// A room, and the rooms whose headers it may include besides its own. A room is a folder below
// src/, but the files of a core are a room of their own: "trips/fuel_core" are the rules of
// src/trips/fuel, "trips/fuel" its widgets.
const QMap<QString, QStringList> mayKnow = {
    {u"data_core"_s, {}},
    {u"ui"_s, {u"data_core"_s}},
    {u"locations_core"_s, {u"data_core"_s}},
    {u"locations"_s, {u"locations_core"_s, u"data_core"_s, u"ui"_s}},
    {u"pdfimport/tools_core"_s, {}},
    {u"pdfimport_core"_s, {u"pdfimport/tools_core"_s, u"data_core"_s}},
    {u"pdfimport/history_core"_s, {u"pdfimport_core"_s, u"data_core"_s}},
    {u"pdfimport/history"_s, {u"pdfimport/history_core"_s, u"data_core"_s, u"ui"_s}},
    {u"pdfimport/review"_s, {u"pdfimport_core"_s, u"data_core"_s, u"ui"_s}},
    {u"pdfimport"_s, {u"pdfimport/review"_s, u"pdfimport_core"_s, u"ui"_s}},
    {u"trips_core"_s, {u"data_core"_s}},
    {u"trips/grids"_s, {u"data_core"_s, u"ui"_s}},
    {u"trips/stops"_s,
     {u"trips/grids"_s, u"trips_core"_s, u"locations_core"_s, u"data_core"_s, u"ui"_s}},
    {u"trips/items"_s, {u"trips/grids"_s, u"trips_core"_s, u"data_core"_s, u"ui"_s}},
    {u"trips/fuel_core"_s, {u"data_core"_s}},
    {u"trips/fuel"_s,
     {u"trips/fuel_core"_s, u"trips/grids"_s, u"trips/items"_s, u"trips_core"_s,
      u"pdfimport_core"_s, u"data_core"_s, u"ui"_s}},
    {u"trips"_s,
     {u"trips/grids"_s, u"trips/stops"_s, u"trips/items"_s, u"trips/fuel"_s, u"trips_core"_s,
      u"data_core"_s, u"ui"_s}},
    {u"settlements_core"_s, {u"data_core"_s}},
    {u"settlements"_s, {u"settlements_core"_s, u"data_core"_s, u"ui"_s}},
    {u"reports_core"_s, {u"data_core"_s}},
    {u"reports/charts_core"_s, {u"data_core"_s}},
    {u"reports/totals_core"_s, {u"reports/charts_core"_s, u"data_core"_s}},
    {u"reports/charts"_s, {u"reports/charts_core"_s, u"reports_core"_s, u"ui"_s}},
    {u"reports/totals"_s,
     {u"reports/charts"_s, u"reports/charts_core"_s, u"reports/totals_core"_s, u"data_core"_s,
      u"ui"_s}},
    {u"reports"_s, {u"reports/charts"_s, u"reports/charts_core"_s, u"reports_core"_s, u"ui"_s}},
    {u"settings_core"_s, {u"data_core"_s}},
    {u"settings"_s, {u"settings_core"_s, u"pdfimport/history_core"_s, u"data_core"_s, u"ui"_s}},
    {u"app_core"_s, {u"data_core"_s}},
    {u"app"_s,
     {u"app_core"_s, u"settings_core"_s, u"data_core"_s, u"ui"_s, u"locations"_s, u"pdfimport"_s,
      u"pdfimport/tools_core"_s, u"pdfimport/history"_s, u"trips"_s, u"settlements"_s, u"reports"_s,
      u"reports/totals"_s, u"settings"_s}},
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

// The path below src/ of a file of the product.
QString belowSources(const QString &path)
{
    return QDir(project.filePath(u"src"_s)).relativeFilePath(path);
}

// What a file includes in quotes, but for what Qt makes of the window's form.
QStringList includesOf(const QString &path)
{
    QStringList headers = matchesOf(u"^[ \\t]*#[ \\t]*include[ \\t]*\"([^\"]+)\""_s, textOf(path));
    if (belowSources(path) == "app/BrindlepathApp.cpp"_L1)
        headers.removeOne(u"ui_BrindlepathApp.h"_s);
    return headers;
}

// Whether a file belongs to a core: the file itself is listed, or the source of its name.
bool isOfACore(const QString &file)
{
    static const QSet<QString> files = [] {
        QSet<QString> paths;
        for (const QString &path : QStringLiteral(CORE_FILES).split(u':'))
            paths.insert(belowSources(path).section(u'.', 0, 0));
        return paths;
    }();
    return files.contains(file.section(u'.', 0, 0));
}

// The room of a file below src/; of none if there is no such file.
QString roomOf(const QString &file)
{
    if (!QFile::exists(project.filePath("src/"_L1 + file)))
        return {};
    const QString folder = file.section(u'/', 0, -2);
    return isOfACore(file) ? folder + "_core"_L1 : folder;
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
        if (roomOf(belowSources(path)) != room)
            continue;
        for (const QString &header : includesOf(path)) {
            if (roomOf(header) != room && !mayKnow.value(room).contains(roomOf(header)))
                strangers.append(belowSources(path) + " includes "_L1 + header);
        }
    }
    QCOMPARE(strangers.join(u'\n'), QString());
}

void tst_SourceRules::nobodyIncludesTheWindow()
{
    QStringList strangers;
    for (const QString &path : filesOf(u"src"_s)) {
        for (const QString &header : includesOf(path)) {
            if (header.startsWith("app/"_L1) && !belowSources(path).startsWith("app/"_L1))
                strangers.append(belowSources(path) + " includes "_L1 + header);
        }
    }
    QCOMPARE(strangers.join(u'\n'), QString());
}

void tst_SourceRules::everyRoomHasItsRow()
{
    QSet<QString> rooms;
    for (const QString &path : filesOf(u"src"_s))
        rooms.insert(roomOf(belowSources(path)));
    const QStringList rows = mayKnow.keys();
    QCOMPARE(rooms, QSet<QString>(rows.cbegin(), rows.cend()));
}

// So that the table stays a map of the house.
void tst_SourceRules::everyPermissionIsUsed()
{
    QMap<QString, QSet<QString>> known;
    for (const QString &path : filesOf(u"src"_s)) {
        for (const QString &header : includesOf(path))
            known[roomOf(belowSources(path))].insert(roomOf(header));
    }
    QStringList idle;
    for (auto row = mayKnow.cbegin(); row != mayKnow.cend(); ++row) {
        for (const QString &room : *row) {
            if (!known.value(row.key()).contains(room))
                idle.append(row.key() + " does not include "_L1 + room);
        }
    }
    QCOMPARE(idle.join(u'\n'), QString());
}

// A class that its folder's list or its own last line forgets would never run, and no one would
// see.
void tst_SourceRules::everyTestIsRun()
{
    QStringList forgotten;
    for (const QString &path : filesOf(u"tests"_s, {u"tst_*.cpp"_s})) {
        const QString name = QFileInfo(path).baseName().mid(4);
        const QString folder = project.relativeFilePath(path).section(u'/', 0, 1);
        const QString list = textOf(project.filePath(folder + "/CMakeLists.txt"_L1));
        if (!list.contains(QRegularExpression(u"[ /]%1\\b"_s.arg(name)))
            || !textOf(path).contains(
                QRegularExpression(u"\nTEST_CLASS(_WITHOUT_WINDOWS)?\\(tst_%1\\)\n"_s.arg(name))))
            forgotten.append(path);
    }
    QCOMPARE(forgotten.join(u'\n'), QString());
}

// A core is not given the folders of Qt's other modules, so that "#include <QWidget>" does not
// compile there; but "#include <QtWidgets/QWidget>" would. And src/ is searched for <...> too. What
// the system keeps in sys/ has no other name.
void tst_SourceRules::headersOfOthersAreNamedWithoutAFolder()
{
    QStringList found;
    for (const QString &path : filesOf(u"src"_s))
        found += matchesOf(u"^[ \\t]*#[ \\t]*include[ \\t]*<((?!sys/).*/.*)>"_s, textOf(path));
    QCOMPARE(found.join(u'\n'), QString());
}

// moc does not see Qt's macros here and would leave out what stands under one.
void tst_SourceRules::classesOfMocStandUnderNoCondition()
{
    QStringList found;
    for (const QString &path : ownFiles()) {
        const QString text = textOf(path);
        if (text.contains("    Q_OBJECT\n"_L1) && text.contains(QRegularExpression(u"\n *# *if"_s)))
            found.append(path);
    }
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
