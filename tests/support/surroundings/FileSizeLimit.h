#pragma once

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>

/// Lets no file of this process grow beyond so many bytes, as on a disk without space, for as long
/// as it lives.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(qint64 bytes)
        : signalBefore(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &before);
        rlimit limit = before;
        limit.rlim_cur = static_cast<rlim_t>(bytes);
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, signalBefore);
    }
    Q_DISABLE_COPY_MOVE(FileSizeLimit)

private:
    rlimit before = {};
    void (*signalBefore)(int);
};
