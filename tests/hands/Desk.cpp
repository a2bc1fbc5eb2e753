#include "hands/Desk.h"

#include <QDeadlineTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 20'000; // milliseconds, for a machine with other work

void fail(const QString &message)
{
    if (!QTest::currentTestFailed())
        QTest::qFail(qPrintable(message), __FILE__, __LINE__);
}

// One failure is enough: what follows it is not waited for.
template <typename Condition>
bool waitFor(Condition condition)
{
    const QDeadlineTimer end(patience);
    while (!QTest::currentTestFailed() && !end.hasExpired()) {
        if (condition())
            return true;
        QThread::msleep(1);
    }
    return false;
}

QJsonObject questionFor(const Desk::Part &part)
{
    QJsonObject question = {{u"part"_s, QLatin1StringView(part.name)}};
    if (part.row >= 0) {
        question.insert(u"row"_s, part.row);
        question.insert(u"column"_s, part.column);
    }
    return question;
}

QRect rectIn(const QJsonObject &answer, QLatin1StringView key)
{
    const QJsonArray numbers = answer.value(key).toArray();
    return {numbers.at(0).toInt(), numbers.at(1).toInt(), numbers.at(2).toInt(),
            numbers.at(3).toInt()};
}

} // namespace

Desk::Desk(Desktop &personsDesktop, const Workspace &workspace)
    : desktop(personsDesktop)
    , doingsBefore(personsDesktop.doings())
{
    start(workspace);
    const QString address = workspace.path(u"whereabouts"_s);
    const auto connects = [&] {
        socket.connectToServer(address);
        return socket.waitForConnected(100);
    };
    if (!waitFor(connects) || !waitFor([this] { return !windowTitle().isEmpty(); }))
        fail(u"The program never came up: "_s + QString::fromUtf8(program.readAll()));
}

Desk::~Desk()
{
    if (program.state() == QProcess::NotRunning)
        fail(u"The program has ended by itself."_s);
    program.terminate();
    program.waitForFinished();
    const QString said = QString::fromUtf8(program.readAll());
    if (!said.isEmpty())
        fail(u"The program says: "_s + said);
}

void Desk::start(const Workspace &workspace)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(u"DBUS_SESSION_BUS_ADDRESS"_s);
    environment.insert(u"DISPLAY"_s, desktop.display());
    environment.insert(u"HOME"_s, workspace.path(u"home"_s));
    environment.insert(u"XDG_CONFIG_HOME"_s, workspace.path(u"settings"_s));
    environment.insert(u"XDG_RUNTIME_DIR"_s, workspace.path(u"run"_s));
    environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    environment.insert(u"QT_PLUGIN_PATH"_s, QStringLiteral(WHEREABOUTS_FOLDER));
    environment.insert(u"QT_QPA_GENERIC_PLUGINS"_s,
                       "whereabouts:"_L1 + workspace.path(u"whereabouts"_s));
    // Memory that is given out again at once betrays whoever holds on to what has gone.
    environment.insert(u"GLIBC_TUNABLES"_s, u"glibc.malloc.tcache_count=0:glibc.malloc.mxfast=0"_s);
    program.setProcessEnvironment(environment);
    program.setWorkingDirectory(workspace.path(u"."_s));
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(QStringLiteral(PROGRAM), QStringList());
}

QJsonObject Desk::ask(const QJsonObject &question)
{
    socket.write(QJsonDocument(question).toJson(QJsonDocument::Compact) + '\n');
    socket.flush();
    while (!socket.canReadLine()) {
        if (!socket.waitForReadyRead(patience)) {
            fail(u"The program does not answer: "_s + socket.errorString());
            return {};
        }
    }
    return QJsonDocument::fromJson(socket.readLine()).object();
}

QJsonObject Desk::ask(const Part &part)
{
    return ask(questionFor(part));
}

// Where a part is once it is scrolled into sight, enabled, and keeps its place.
QRect Desk::seen(const QJsonObject &question)
{
    QRect before;
    const bool found = waitFor([&] {
        const QJsonObject answer = ask(question);
        const QRect now = rectIn(answer, "place"_L1);
        scrolls(answer);
        const bool settled = !now.isEmpty() && now == before && answer.value(u"enabled"_s).toBool();
        before = now;
        return settled;
    });
    if (!found)
        fail(u"No one finds "_s
             + QString::fromUtf8(QJsonDocument(question).toJson(QJsonDocument::Compact)));
    return before;
}

void Desk::scrolls(const QJsonObject &answer)
{
    const QRect bar = rectIn(answer, "bar"_L1);
    if (bar.isEmpty())
        return;
    clicksAt(bar.center(),
             answer.value(u"below"_s).toBool() ? Desktop::WheelDown : Desktop::WheelUp);
}

void Desk::waitForTheProgram()
{
    const int done = desktop.doings() - doingsBefore;
    int arrived = 0;
    const auto hasArrived = [&] {
        arrived = ask(QJsonObject()).value(u"arrived"_s).toInt();
        return arrived >= done;
    };
    if (!waitFor(hasArrived))
        fail(u"The program got %1 of %2 keys and buttons."_s.arg(arrived).arg(done));
}

// One by one: a hand is never as fast as the X server, which loses clicks that follow too soon.
void Desk::moves(Desktop::Button button, bool down)
{
    desktop.button(button, down);
    waitForTheProgram();
}

void Desk::clicksAt(QPoint place, Desktop::Button button)
{
    desktop.movesTo(place);
    moves(button, true);
    moves(button, false);
}

void Desk::clicks(const Part &part, Desktop::Button button)
{
    clicksAt(seen(questionFor(part)).center(), button);
}

void Desk::doubleClicks(const Part &part)
{
    const QPoint place = seen(questionFor(part)).center();
    clicksAt(place);
    clicksAt(place);
}

void Desk::ticks(const Part &part)
{
    constexpr QPoint toTheMark(16, 0);
    const QRect place = seen(questionFor(part));
    clicksAt(QPoint(place.left(), place.center().y()) + toTheMark);
}

void Desk::drags(const Part &part, QPoint way)
{
    const QRect place = seen(questionFor(part));
    const QPoint handle(place.left() + 4, place.center().y());
    desktop.movesTo(handle);
    moves(Desktop::Left, true);
    constexpr int steps = 10;
    for (int step = 1; step <= steps; ++step)
        desktop.movesTo(handle + way * step / steps);
    moves(Desktop::Left, false);
}

void Desk::clicksButton(const QString &text)
{
    clicksAt(seen({{u"button"_s, text}}).center());
}

void Desk::types(const QByteArray &text)
{
    desktop.types(text);
    waitForTheProgram();
}

void Desk::presses(const QByteArray &keys)
{
    desktop.presses(keys);
    waitForTheProgram();
}

void Desk::clicksEntry(const QString &text)
{
    clicksAt(seen({{u"entry"_s, text}}).center());
}

void Desk::chooses(const Part &box, const QString &entry)
{
    clicks(box);
    clicksEntry(entry);
}

void Desk::goesTo(const QString &page)
{
    for (int row = 0; isThere({"navigationList", row, 0}); ++row) {
        if (text({"navigationList", row, 0}) == page)
            return clicks({"navigationList", row, 0});
    }
    fail(u"There is no page "_s + page);
}

void Desk::tabsTo(const QString &part)
{
    constexpr int many = 100;
    QStringList way;
    while (way.size() < many && !QTest::currentTestFailed()) {
        way.append(focus());
        if (way.constLast() == part)
            return;
        presses("Tab");
    }
    fail(u"Tab does not come to %1, but to: %2"_s.arg(part, way.join(u' ')));
}

QString Desk::text(const Part &part)
{
    return ask(part).value(u"text"_s).toString();
}

bool Desk::isThere(const Part &part)
{
    return ask(part).contains(u"text"_s);
}

QRect Desk::place(const Part &part)
{
    return seen(questionFor(part));
}

QString Desk::focus()
{
    return ask(QJsonObject()).value(u"focus"_s).toString();
}

QString Desk::cell()
{
    return ask(QJsonObject()).value(u"cell"_s).toString();
}

QString Desk::dialog()
{
    return ask(QJsonObject()).value(u"dialog"_s).toString();
}

bool Desk::hasListOpen()
{
    return ask(QJsonObject()).value(u"list"_s).toBool();
}

QString Desk::windowTitle()
{
    return ask(QJsonObject()).value(u"window"_s).toString();
}
