#include "settings/FailingFiles.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/syscall.h>

// These stand before those of the C library, for Qt and the C++ library too.
extern "C" int unlink(const char *path) noexcept
{
    if (HeldFile::isHeld(path)) {
        errno = EBUSY;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_unlinkat, AT_FDCWD, path, 0));
}

extern "C" int rename(const char *from, const char *to) noexcept
{
    if (HeldFile::isHeld(to)) {
        errno = EBUSY;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}
