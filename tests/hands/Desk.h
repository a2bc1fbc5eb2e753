#pragma once

#include "hands/Desktop.h"
#include "support/Workspace.h"

#include <QJsonObject>
#include <QLocalSocket>
#include <QRect>

/// The program as it is built, started in a workspace on a desktop, and a person before it. A part
/// is named by its object name, a cell by its grid, row and column. Each doing waits until the
/// place of its part is in sight and until the program has got what the hands did; what a person
/// would not find fails the test.
class Desk
{
public:
    Desk(Desktop &personsDesktop, const Workspace &workspace);
    ~Desk();
    Q_DISABLE_COPY_MOVE(Desk)

    /// A part, or a cell of it.
    struct Part
    {
        Part(const char *partName) // so that a name is a part
            : name(partName)
        {
        }
        Part(const char *grid, int gridRow, int gridColumn)
            : name(grid)
            , row(gridRow)
            , column(gridColumn)
        {
        }
        const char *name;
        int row = -1;
        int column = 0;
    };

    void clicks(const Part &part, Desktop::Button button = Desktop::Left);
    void doubleClicks(const Part &part);

    /// Clicks a check box where its mark is.
    void ticks(const Part &part);
    void drags(const Part &part, QPoint way);
    void clicksButton(const QString &text);
    void types(const QByteArray &text);
    void presses(const QByteArray &keys);

    /// Clicks an entry of the list that is open.
    void clicksEntry(const QString &text);

    /// Clicks a box and then an entry of its list.
    void chooses(const Part &box, const QString &entry);

    /// Clicks a page's row of the navigation.
    void goesTo(const QString &page);

    /// Presses Tab until the part has the keyboard.
    void tabsTo(const QString &part);

    [[nodiscard]] QString text(const Part &part);
    [[nodiscard]] bool isThere(const Part &part);
    [[nodiscard]] QRect place(const Part &part);

    /// The name of the part with the keyboard, "grid[row,column]" for the box or the editor in a
    /// cell.
    [[nodiscard]] QString focus();

    /// The current cell of the grid with the keyboard, as "row,column".
    [[nodiscard]] QString cell();

    /// The title of the dialog with the keyboard; empty without one.
    [[nodiscard]] QString dialog();

    /// Whether a list or a menu is open.
    [[nodiscard]] bool hasListOpen();

    [[nodiscard]] QString windowTitle();

private:
    QJsonObject ask(const QJsonObject &question);
    QJsonObject ask(const Part &part);
    QRect seen(const QJsonObject &question);
    void scrolls(const QJsonObject &answer);
    void clicksAt(QPoint place, Desktop::Button button = Desktop::Left);
    void moves(Desktop::Button button, bool down);
    void waitForTheProgram();
    void start(const Workspace &workspace);

    Desktop &desktop;
    QProcess program;
    QLocalSocket socket;
    int doingsBefore;
};
