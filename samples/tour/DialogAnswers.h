#pragma once

#include <QList>
#include <QString>
#include <QTimer>

#include <functional>

/// Answers the dialogs that one click opens, in their order, as a person would who knows what
/// comes. A dialog that does not come, or another one, is told as a failure and is dismissed.
class DialogAnswers
{
public:
    explicit DialogAnswers(std::function<void(const QString &failure)> tellFailure);

    /// Chooses a file in the next dialog, which must be a file dialog.
    void choose(const QString &path);

    /// Presses a button of the next dialog, which must be a message with this title.
    void press(const QString &title, const QString &button);

    /// Runs the click, and tells which of the dialogs did not come.
    void during(const std::function<void()> &click);

private:
    struct Answer
    {
        QString title;
        QString button;
        QString path;
    };

    void answerOpenDialog();

    std::function<void(const QString &)> fail;
    QList<Answer> answers;
    QTimer timer;
};
