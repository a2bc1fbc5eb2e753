#include "hands/Desktop.h"

#include <QFile>
#include <QTest>

#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <csignal>
#include <sys/prctl.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 20'000; // milliseconds, for a machine with other work

// A window of the program fills the screen; a dialog stands in its middle and gets the keyboard.
constexpr char managerSettings[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew></focus>
  <placement><policy>Smart</policy><center>yes</center></placement>
  <applications>
    <application type="normal"><maximized>yes</maximized></application>
  </applications>
</openbox_config>
)";

// What a test starts goes with it, even if it is killed.
void goesWithItsParent(QProcess &process)
{
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
}

void ends(QProcess &process)
{
    process.terminate();
    if (process.state() != QProcess::NotRunning && !process.waitForFinished())
        process.kill();
    process.waitForFinished();
}

} // namespace

Desktop::Desktop()
{
    if (!startServer())
        reason = u"There is no X server. Is Xvfb installed? "_s + server.errorString();
    else if (!startManager())
        reason = u"There is no window manager. Is openbox installed? "_s + manager.errorString();
}

Desktop::~Desktop()
{
    ends(manager);
    if (x)
        XCloseDisplay(x);
    ends(server);
}

// The server looks for a free number itself and tells it as soon as it takes programs.
bool Desktop::startServer()
{
    goesWithItsParent(server);
    server.setStandardErrorFile(QProcess::nullDevice());
    server.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1600x1200x24"_s,
                             u"-nolisten"_s, u"tcp"_s});
    while (!server.canReadLine()) {
        if (!server.waitForReadyRead(patience))
            return false;
    }
    name = u':' + QString::fromLatin1(server.readLine().trimmed());
    x = XOpenDisplay(name.toLatin1().constData());
    return x != nullptr;
}

bool Desktop::startManager()
{
    QFile settings(folder.filePath(u"rc.xml"_s));
    if (!settings.open(QIODevice::WriteOnly) || settings.write(managerSettings) < 0)
        return false;
    settings.close();
    goesWithItsParent(manager);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DISPLAY"_s, name);
    environment.insert(u"HOME"_s, folder.path());
    manager.setProcessEnvironment(environment);
    manager.setProcessChannelMode(QProcess::MergedChannels);
    manager.start(u"openbox"_s, {u"--sm-disable"_s, u"--config-file"_s, settings.fileName()});
    return manager.waitForStarted() && QTest::qWaitFor([this] { return isManaged(); }, patience);
}

bool Desktop::isManaged() const
{
    const Atom property = XInternAtom(x, "_NET_SUPPORTING_WM_CHECK", False);
    Atom type = None;
    int format = 0;
    unsigned long items = 0;
    unsigned long left = 0;
    unsigned char *value = nullptr;
    XGetWindowProperty(x, DefaultRootWindow(x), property, 0, 1, False, XA_WINDOW, &type, &format,
                       &items, &left, &value);
    XFree(value);
    return items == 1;
}

void Desktop::presses(const QByteArray &keys)
{
    QList<KeySym> symbols;
    for (const QByteArray &part : keys.split('+')) {
        const QByteArray symbol = part == "alt"     ? "Alt_L"
                                  : part == "ctrl"  ? "Control_L"
                                  : part == "shift" ? "Shift_L"
                                                    : part;
        symbols.append(XStringToKeysym(symbol.constData()));
    }
    for (const KeySym symbol : std::as_const(symbols))
        key(symbol, true);
    for (auto symbol = symbols.crbegin(); symbol != symbols.crend(); ++symbol)
        key(*symbol, false);
}

void Desktop::types(const QByteArray &text)
{
    for (const char letter : text) {
        const KeySym symbol = letter == '\t'   ? XStringToKeysym("Tab")
                              : letter == '\n' ? XStringToKeysym("Return")
                                               : static_cast<KeySym>(letter); // as in ASCII
        const bool shifted = XkbKeycodeToKeysym(x, XKeysymToKeycode(x, symbol), 0, 0) != symbol;
        if (shifted)
            key(XStringToKeysym("Shift_L"), true);
        key(symbol, true);
        key(symbol, false);
        if (shifted)
            key(XStringToKeysym("Shift_L"), false);
    }
}

void Desktop::movesTo(QPoint place)
{
    XTestFakeMotionEvent(x, 0, place.x(), place.y(), CurrentTime);
    XSync(x, False);
}

void Desktop::button(Button which, bool down)
{
    XTestFakeButtonEvent(x, which, down, CurrentTime);
    XSync(x, False);
    ++count;
}

void Desktop::key(unsigned long symbol, bool down)
{
    XTestFakeKeyEvent(x, XKeysymToKeycode(x, symbol), down, CurrentTime);
    XSync(x, False);
    ++count;
}
