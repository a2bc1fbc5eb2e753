#include "app/ApplicationSetup.h"

#include "app/UiScale.h"

#include <QApplication>
#include <QEvent>
#include <QIcon>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace {

/// Makes message boxes show what a file holds as it stands. Of itself Qt would read a trip number
/// such as "<b>7" as markup, and a driver could not tell which trip is about to be deleted.
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

void setUpApplication()
{
    QApplication::setOrganizationName(u"Brindle Path LLC"_s);
    QApplication::setApplicationName(u"Brindlepath Desk"_s);

    QFont font = QApplication::font();
    font.setPointSize(UiScale::applicationPointSize(UiScale::savedUiScalePercent()));
    QApplication::setFont(font);

    QApplication::setWindowIcon(QIcon(u":/BrindlepathApp/BrindlepathDesk.ico"_s));
    qApp->installEventFilter(new PlainMessageBoxes(qApp));
}
