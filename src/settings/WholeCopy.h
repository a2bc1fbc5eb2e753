#pragma once

#include "data/OneCallConnection.h"

#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <memory>

/// A copy of a file, made in a folder of its own beside the place that it is for. No half of a copy
/// ever stands in that place, and what stood there stays until the copy is whole and on the disk.
/// The folder goes with the object, and so does a copy that was not put in its place.
class WholeCopy
{
public:
    explicit WholeCopy(const QString &targetPath);

    /// What is to become of the file that is copied. Where it goes, no other program may be about
    /// to write to it.
    enum class Original { Stays, Goes };

    /// Copies what the database at `sourcePath` holds at one moment, what lies in its journal or
    /// its WAL too. A file that is no database is copied as it stands. False if another program
    /// does not let go of the file within five seconds, if what lies beside it cannot be taken in,
    /// or if the copy does not get to the disk.
    bool takeFrom(const QString &sourcePath, Original original = Original::Stays);

    /// Puts the copy in its place, in one step. What stands there is replaced; false if it cannot
    /// be.
    bool putInPlace();

    /// Lets other programs write to the original again, as the end of this does.
    void letGo();

private:
    bool copy(const QString &sourcePath, Original original);
    int askFirst(const QString &sql, QVariant &answer) const;
    bool copyBySqlite(const QString &sourcePath);
    bool copyBytes(const QString &sourcePath);
    [[nodiscard]] QString path() const { return folder.filePath(QStringLiteral("copy")); }

    QString target;
    QTemporaryDir folder;
    QFile source;
    std::unique_ptr<OneCallConnection> connection;
};
