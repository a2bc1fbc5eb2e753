#include "ui/MessageBoxes.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace {

/// On the application, so that no call that opens a box can forget it.
class PlainMessageBoxes : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Polish) {
            if (auto *box = qobject_cast<QMessageBox *>(watched)) {
                box->setTextFormat(Qt::PlainText);
                // Which the box forgets for its informative text.
                if (auto *more = box->findChild<QLabel *>(u"qt_msgbox_informativelabel"_s))
                    more->setTextFormat(Qt::PlainText);
            }
        }
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

void keepMessageBoxesPlain()
{
    qApp->installEventFilter(new PlainMessageBoxes(qApp));
}
