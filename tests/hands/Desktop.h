#pragma once

#include <QPoint>
#include <QProcess>
#include <QTemporaryDir>

struct _XDisplay;

/// A screen of its own with a window manager, and a person's hands before it. What they do reaches
/// programs through the X server, as from a mouse and a keyboard.
class Desktop
{
public:
    Desktop();
    ~Desktop();
    Q_DISABLE_COPY_MOVE(Desktop)

    /// Why there is no desktop; empty if there is one.
    [[nodiscard]] QString failure() const { return reason; }

    /// The name for DISPLAY, such as ":5".
    [[nodiscard]] QString display() const { return name; }

    enum Button { Left = 1, Middle, Right, WheelUp, WheelDown };

    void movesTo(QPoint place);
    void button(Button which, bool down);

    /// A key by its X name, such as "Return", with others held: "alt+Down", "shift+Tab".
    void presses(const QByteArray &keys);

    /// Types ASCII; a tab and a line end are their keys.
    void types(const QByteArray &text);

    /// How often a key or a button went down or up so far.
    [[nodiscard]] int doings() const { return count; }

private:
    bool startServer();
    bool startManager();
    [[nodiscard]] bool isManaged() const;
    void key(unsigned long symbol, bool down);

    QTemporaryDir folder;
    QProcess server;
    QProcess manager;
    QString name;
    QString reason;
    _XDisplay *x = nullptr;
    int count = 0;
};
