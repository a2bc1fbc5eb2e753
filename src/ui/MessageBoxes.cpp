#include "ui/MessageBoxes.h"

#include <QApplication>
#include <QEvent>
#include <QMessageBox>

namespace {

/// On the application, so that no call that opens a box can forget it.
class PlainMessageBoxes : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Polish) {
            if (auto *box = qobject_cast<QMessageBox *>(watched))
                box->setTextFormat(Qt::PlainText);
        }
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

void keepMessageBoxesPlain()
{
    qApp->installEventFilter(new PlainMessageBoxes(qApp));
}
