#pragma once

#include <QByteArray>
#include <QFile>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

// What makes the file system refuse, whoever runs the tests: to root no folder is read-only.

/// While it lives no file can grow beyond `bytes`, as on a disk that is nearly full.
class NearlyFullDisk
{
public:
    explicit NearlyFullDisk(rlim_t bytes)
        : handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &before);
        const rlimit lowered = {bytes, before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &lowered);
    }
    ~NearlyFullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }
    Q_DISABLE_COPY_MOVE(NearlyFullDisk)

private:
    void (*handler)(int);
    rlimit before = {};
};

/// While it lives its file can be read but not removed, as a file that another program holds.
class HeldFile
{
public:
    explicit HeldFile(const QString &path) { heldPath = QFile::encodeName(path); }
    ~HeldFile() { heldPath.clear(); }
    Q_DISABLE_COPY_MOVE(HeldFile)

    [[nodiscard]] static bool isHeld(const char *path) { return heldPath == path; }

private:
    inline static QByteArray heldPath;
};

// Stands before the one of the C library, for Qt too.
extern "C" int unlink(const char *path) noexcept
{
    if (HeldFile::isHeld(path)) {
        errno = EBUSY;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_unlinkat, AT_FDCWD, path, 0));
}
