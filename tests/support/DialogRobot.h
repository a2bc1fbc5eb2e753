#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>

class QDialog;

/// Answers the modal dialogs that a test says it expects, in their order, from within the
/// dialog's own event loop. A dialog that no one expected fails the test at once with its title
/// and text and is dismissed; an expected one that never came fails it when the robot goes.
///
///     robot.expect(DialogRobot::Warning, u"No Database"_s, u"Open trips.db
///     first."_s).press(u"OK"_s);
class DialogRobot : public QObject
{
    Q_OBJECT

public:
    enum Kind { Information, Warning, Critical, Question, FileDialog, OtherDialog };
    Q_ENUM(Kind)

    /// A dialog as a person saw it. Buttons are named without their mnemonic.
    struct Seen
    {
        Kind kind = OtherDialog;
        QString className = {};
        QString title = {};
        QString text = {};
        QString informativeText = {};
        QStringList buttons = {};
        QString defaultButton = {};
        /// The filters of a file dialog, the folder that it shows, and the name that it proposes.
        QStringList nameFilters = {};
        QString folder = {};
        QString fileName = {};
    };

    /// What to do with an expected dialog; without a word the robot presses "OK".
    class Expectation
    {
    public:
        /// Presses the button with this text.
        void press(const QString &button);
        /// Chooses a file in a file dialog.
        void choose(const QString &path);
        /// Closes the dialog without an answer, as Escape does.
        void dismiss();

    private:
        friend class DialogRobot;
        explicit Expectation(DialogRobot *owner)
            : robot(owner)
        {
        }
        DialogRobot *robot;
    };

    DialogRobot();
    ~DialogRobot() override;

    /// Expects a message box with exactly this title and text.
    Expectation expect(Kind kind, const QString &title, const QString &text);

    /// Expects a message box whose text has `part` in it: for texts that SQLite words.
    Expectation expectContaining(Kind kind, const QString &title, const QString &part);

    /// Expects a file dialog with this caption.
    Expectation expectFileDialog(const QString &caption);

    /// Expects any other dialog with this title.
    Expectation expectDialog(const QString &title);

    /// All dialogs so far, expected or not.
    [[nodiscard]] const QList<Seen> &seen() const { return seenDialogs; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Step
    {
        Kind kind = OtherDialog;
        QString title = {};
        QString text = {};
        bool wholeText = true;
        QString button = QStringLiteral("OK");
        QString path = {};
        bool dismissed = false;
    };

    Expectation add(const Step &step);
    void answer(const QPointer<QDialog> &dialog);
    static Seen described(const QDialog *dialog);
    static bool matches(const Step &step, const Seen &seen);
    static void carryOut(const Step &step, QDialog *dialog);

    QList<Step> steps;
    QList<Seen> seenDialogs;
};
