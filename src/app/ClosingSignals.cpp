#include "app/ClosingSignals.h"

#include "pdfimport/tools/ToolProcess.h"

#include <QApplication>
#include <QSocketNotifier>

#ifdef Q_OS_LINUX

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <sys/eventfd.h>
#include <unistd.h>

namespace {

int caught = -1; // an event, readable from the first signal on

// Only what is safe at any point of the program.
void noteSignal(int /*signal*/)
{
    const int error = errno;
    endTools();
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(caught, &one, sizeof one);
    errno = error;
}

} // namespace

void ClosingSignals::catchThem()
{
    caught = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    struct sigaction action = {};
    action.sa_handler = noteSignal;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGTERM, SIGINT})
        ::sigaction(signal, &action, nullptr);
}

void ClosingSignals::closeWindowsOnThem()
{
    // The event is never taken back. What was under way goes on when its box is closed and may open
    // another one, or the main loop may only start then: each loop finds the event and ends.
    auto *notifier = new QSocketNotifier(caught, QSocketNotifier::Read, qApp);
    QObject::connect(notifier, &QSocketNotifier::activated, qApp, [] {
        QApplication::closeAllWindows();
        QCoreApplication::exit();
    });
}

#else

void ClosingSignals::catchThem()
{
}
void ClosingSignals::closeWindowsOnThem()
{
}

#endif
