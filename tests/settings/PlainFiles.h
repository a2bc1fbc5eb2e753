#pragma once

#include "support/Workspace.h"

#include <QDir>
#include <QFile>
#include <QTest>

// Files that are no databases, which are copied all the same.

inline const QByteArray oldData = "the old data";
inline const QByteArray newData = "the new data";
inline const QByteArray muchData(100'000, 'x');

/// Hidden ones too.
inline QStringList entriesOf(const QString &folder)
{
    return QDir(folder).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

/// Rows for a source that is no file.
inline void addSources()
{
    QTest::addColumn<QString>("source");
    QTest::newRow("none") << QStringLiteral("backup.db");
    QTest::newRow("in a folder that is gone") << QStringLiteral("gone/backup.db");
    QTest::newRow("a folder") << QStringLiteral("folder");
    QTest::newRow("a link to nothing") << QStringLiteral("link.db");
    QTest::newRow("no name") << QStringLiteral("");
}

inline void layOutNoSource(const Workspace &workspace)
{
    workspace.makeFile(QStringLiteral("trips.db"), oldData);
    QVERIFY(QDir().mkdir(QStringLiteral("folder")));
    QVERIFY(QFile::link(QStringLiteral("nowhere.db"), QStringLiteral("link.db")));
}

/// Rows for the ways to name the file of layOutOneFile().
inline void addNamesOfTheSameFile()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("the same name") << QStringLiteral("data/trips.db");
    QTest::newRow("another letter case") << QStringLiteral("data/Trips.DB");
    QTest::newRow("a folder in another letter case") << QStringLiteral("DATA/trips.db");
    QTest::newRow("a roundabout way") << QStringLiteral("data/../data/./trips.db");
    QTest::newRow("through a linked folder") << QStringLiteral("linked/trips.db");
}

/// Gives the absolute path of the source.
inline QString layOutOneFile(const Workspace &workspace)
{
    QFile::link(QStringLiteral("data"), QStringLiteral("linked"));
    return workspace.makeFile(QStringLiteral("data/trips.db"), oldData);
}
