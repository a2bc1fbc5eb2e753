#include "app/BrindlepathApp.h"
#include "app/UiScale.h"

#include <QApplication>
#include <QIcon>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
#ifdef Q_OS_LINUX
    // Unless TZ names it, the C library looks at /etc/localtime again for each local time it
    // computes, and the trip list computes thousands.
    if (!qEnvironmentVariableIsSet("TZ"))
        qputenv("TZ", ":/etc/localtime");
#endif
    const QApplication application(argc, argv);
    QApplication::setOrganizationName(u"Brindle Path LLC"_s);
    QApplication::setApplicationName(u"Brindlepath Desk"_s);

    QFont font = QApplication::font();
    font.setPointSize(UiScale::applicationPointSize(UiScale::savedUiScalePercent()));
    QApplication::setFont(font);

    const QIcon icon(u":/BrindlepathApp/BrindlepathDesk.ico"_s);
    QApplication::setWindowIcon(icon);

    BrindlepathApp window;
    window.setWindowIcon(icon);
    window.show();
    return QApplication::exec();
}
