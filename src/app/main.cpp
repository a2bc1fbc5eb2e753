#include "app/ApplicationSetup.h"
#include "app/BrindlepathApp.h"
#include "app/ClosingSignals.h"

#include <QApplication>

#include <cstdlib>

int main(int argc, char *argv[])
{
    ClosingSignals::catchThem();
#ifdef Q_OS_LINUX
    // Unless TZ names it, the C library looks at /etc/localtime again for each local time it
    // computes, and the trip list computes thousands.
    setenv("TZ", ":/etc/localtime", 0);
#endif
    const QApplication application(argc, argv);
    ClosingSignals::closeWindowsOnThem();
    setUpApplication();
    BrindlepathApp window;
    window.setWindowIcon(QApplication::windowIcon());
    window.show();
    return QApplication::exec();
}
