#include "samples/tour/DialogAnswers.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int lookIntervalMs = 50;

QAbstractButton *buttonOf(const QMessageBox &box, const QString &text)
{
    const QList<QAbstractButton *> buttons = box.buttons();
    const auto found = std::find_if(buttons.cbegin(), buttons.cend(), [&text](const auto *button) {
        return button->text().remove(u'&') == text;
    });
    return found == buttons.cend() ? nullptr : *found;
}

} // namespace

DialogAnswers::DialogAnswers(std::function<void(const QString &)> tellFailure)
    : fail(std::move(tellFailure))
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    timer.setInterval(lookIntervalMs);
    QObject::connect(&timer, &QTimer::timeout, &timer, [this] { answerOpenDialog(); });
}

void DialogAnswers::choose(const QString &path)
{
    answers.append({{}, {}, path});
}

void DialogAnswers::press(const QString &title, const QString &button)
{
    answers.append({title, button, {}});
}

void DialogAnswers::during(const std::function<void()> &click)
{
    timer.start();
    click();
    timer.stop();
    for (const Answer &answer : std::as_const(answers))
        fail(u"A dialog did not come: "_s + answer.title + answer.path);
    answers.clear();
}

void DialogAnswers::answerOpenDialog()
{
    auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (!dialog)
        return;
    const Answer answer = answers.isEmpty() ? Answer() : answers.takeFirst();
    if (auto *files = qobject_cast<QFileDialog *>(dialog); files && !answer.path.isEmpty()) {
        files->findChild<QLineEdit *>()->setText(answer.path);
        // Called by name: QFileDialog keeps its accept(), which takes the file, to itself.
        QMetaObject::invokeMethod(files, "accept");
        return;
    }
    const auto *box = qobject_cast<QMessageBox *>(dialog);
    QAbstractButton *button = box ? buttonOf(*box, answer.button) : nullptr;
    if (!button || box->windowTitle() != answer.title) {
        fail(u"Unexpected dialog: "_s + dialog->windowTitle() + u' ' + (box ? box->text() : u""_s));
        dialog->reject();
        return;
    }
    button->click();
}
