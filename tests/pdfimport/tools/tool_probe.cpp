#include "pdfimport/tools/ToolProcess.h"

#include <QCoreApplication>

// Runs the program that its argument names, so that a test can kill the one that runs it.
int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    return runProcess(QCoreApplication::arguments().value(1), {}, {}, 60'000, nullptr, nullptr,
                      nullptr)
               ? 0
               : 1;
}
