#include "pdfimport/tools/ToolProcess.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>

// Runs the program that its argument names twice, so that a test can kill the one that runs it, or
// ask it to end.
int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    std::signal(SIGTERM, [](int) { endTools(); });
    QString errors;
    for (int run = 0; run < 2; ++run) {
        QString error;
        runProcess(QCoreApplication::arguments().value(1), {}, {}, 60'000, nullptr, &error,
                   nullptr);
        errors += error + u'\n';
    }
    std::fputs(qPrintable(errors), stdout);
    return 0;
}
