#include "support/DialogRobot.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QMetaEnum>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString plain(const QAbstractButton *button)
{
    return button ? button->text().remove(u'&') : QString();
}

DialogRobot::Kind kindOf(const QMessageBox *box)
{
    switch (box->icon()) {
    case QMessageBox::Information:
        return DialogRobot::Information;
    case QMessageBox::Warning:
        return DialogRobot::Warning;
    case QMessageBox::Critical:
        return DialogRobot::Critical;
    case QMessageBox::Question:
        return DialogRobot::Question;
    case QMessageBox::NoIcon:
        break;
    }
    return DialogRobot::OtherDialog;
}

QString worded(DialogRobot::Kind kind, const QString &title, const QString &text)
{
    const auto name = QMetaEnum::fromType<DialogRobot::Kind>().valueToKey(kind);
    return u"%1 \"%2\": \"%3\""_s.arg(QLatin1StringView(name), title, text);
}

void fail(const QString &message)
{
    QTest::qFail(qPrintable(message), __FILE__, __LINE__);
}

} // namespace

void DialogRobot::Expectation::press(const QString &button)
{
    robot->steps.last().button = button;
}

void DialogRobot::Expectation::choose(const QString &path)
{
    robot->steps.last().path = path;
}

void DialogRobot::Expectation::dismiss()
{
    robot->steps.last().dismissed = true;
}

DialogRobot::DialogRobot()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    qApp->installEventFilter(this);
}

DialogRobot::~DialogRobot()
{
    for (const Step &step : std::as_const(steps))
        fail(u"This dialog never came: "_s + worded(step.kind, step.title, step.text));
}

DialogRobot::Expectation DialogRobot::expect(Kind kind, const QString &title, const QString &text)
{
    return add({.kind = kind, .title = title, .text = text});
}

DialogRobot::Expectation DialogRobot::expectContaining(Kind kind, const QString &title,
                                                       const QString &part)
{
    return add({.kind = kind, .title = title, .text = part, .wholeText = false});
}

DialogRobot::Expectation DialogRobot::expectFileDialog(const QString &caption)
{
    return add({.kind = FileDialog, .title = caption});
}

DialogRobot::Expectation DialogRobot::expectDialog(const QString &title)
{
    return add({.kind = OtherDialog, .title = title});
}

DialogRobot::Expectation DialogRobot::add(const Step &step)
{
    steps.append(step);
    return Expectation(this);
}

bool DialogRobot::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show) {
        auto *dialog = qobject_cast<QDialog *>(watched);
        // Answered from the dialog's own loop, which starts to run only after it is shown.
        if (dialog && dialog->isModal())
            QMetaObject::invokeMethod(
                this, [this, shown = QPointer(dialog)] { answer(shown); }, Qt::QueuedConnection);
    }
    return false;
}

void DialogRobot::answer(const QPointer<QDialog> &dialog)
{
    if (!dialog || !dialog->isVisible())
        return;
    const Seen now = described(dialog);
    seenDialogs.append(now);
    if (steps.isEmpty() || !matches(steps.first(), now)) {
        QString message = u"Unexpected dialog: "_s + worded(now.kind, now.title, now.text);
        if (!steps.isEmpty())
            message += u"\n   expected: "_s
                       + worded(steps.first().kind, steps.first().title, steps.first().text);
        fail(message);
        dialog->reject();
        return;
    }
    carryOut(steps.takeFirst(), dialog);
}

DialogRobot::Seen DialogRobot::described(const QDialog *dialog)
{
    Seen seen{.className = QString::fromLatin1(dialog->metaObject()->className()),
              .title = dialog->windowTitle()};
    if (const auto *box = qobject_cast<const QMessageBox *>(dialog)) {
        seen.kind = kindOf(box);
        seen.text = box->text();
        seen.informativeText = box->informativeText();
        seen.defaultButton = plain(box->defaultButton());
        for (const QAbstractButton *button : box->buttons())
            seen.buttons.append(plain(button));
    } else if (const auto *files = qobject_cast<const QFileDialog *>(dialog)) {
        seen.kind = FileDialog;
        seen.nameFilters = files->nameFilters();
        seen.folder = files->directory().path();
        seen.fileName = files->findChild<QLineEdit *>(u"fileNameEdit"_s)->text();
    }
    return seen;
}

bool DialogRobot::matches(const Step &step, const Seen &seen)
{
    return step.kind == seen.kind && step.title == seen.title
           && (step.wholeText ? step.text == seen.text : seen.text.contains(step.text));
}

void DialogRobot::carryOut(const Step &step, QDialog *dialog)
{
    if (step.dismissed) {
        dialog->reject();
        return;
    }
    if (auto *files = qobject_cast<QFileDialog *>(dialog)) {
        files->selectFile(step.path);
        QMetaObject::invokeMethod(files, "accept");
        return;
    }
    for (QAbstractButton *button : dialog->findChildren<QAbstractButton *>()) {
        if (plain(button) == step.button) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    fail(u"The dialog \"%1\" has no button \"%2\"."_s.arg(step.title, step.button));
    dialog->reject();
}
