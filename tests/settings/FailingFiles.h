#pragma once

#include <QByteArray>
#include <QFile>

#include <cstdlib>
#include <unistd.h>

// What makes the file system refuse, whoever runs the tests: to root no folder is read-only.

/// While it lives this process has only the rights of other people, even if root runs it.
class Stranger
{
public:
    Stranger()
    {
        if (::geteuid() == 0)
            isStranger = ::setresgid(nobody, nobody, 0) == 0 && ::setresuid(nobody, nobody, 0) == 0;
    }
    ~Stranger()
    {
        if (isStranger && (::setresuid(0, 0, 0) != 0 || ::setresgid(0, 0, 0) != 0))
            std::abort();
    }
    Q_DISABLE_COPY_MOVE(Stranger)

private:
    static constexpr uid_t nobody = 65534;
    bool isStranger = false;
};

/// While it lives its file can be read, but neither removed nor replaced, as a file that another
/// program holds.
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
