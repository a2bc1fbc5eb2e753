#include "ui/WheelGuard.h"

#include <QEvent>
#include <QWidget>

namespace {

class WheelGuard : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto *widget = qobject_cast<QWidget *>(watched);
        if (event->type() != QEvent::Wheel || !widget || widget->hasFocus())
            return false;
        event->ignore(); // so that the scroll area around takes it
        return true;
    }
};

} // namespace

void guardFromWheel(QWidget *box)
{
    box->setFocusPolicy(Qt::StrongFocus);
    box->installEventFilter(new WheelGuard(box));
}
