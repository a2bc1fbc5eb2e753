#pragma once

#include "support/TestConnection.h"
#include "support/Workspace.h"

/// The nine texts of a location that is known well.
inline const QStringList albany = {
    QStringLiteral("ALB1"),   QStringLiteral("Dock 1"), QStringLiteral("1 Pier St"),
    QStringLiteral("Albany"), QStringLiteral("NY"),     QStringLiteral("12202"),
    QStringLiteral("42.65"),  QStringLiteral("-73.75"), QStringLiteral("No parking")};
inline const QStringList dallas = {
    QStringLiteral("DAL4"),   QStringLiteral("Yard"),   QStringLiteral("9 Oak Ln"),
    QStringLiteral("Dallas"), QStringLiteral("TX"),     QStringLiteral("75201"),
    QStringLiteral("32.5"),   QStringLiteral("-96.75"), QStringLiteral("Ring twice")};
inline const QStringList kansas = {
    QStringLiteral("KC1"),         QStringLiteral("Cross dock"), QStringLiteral("7 Elm Ave"),
    QStringLiteral("Kansas City"), QStringLiteral("MO"),         QStringLiteral("64101"),
    QStringLiteral("39.125"),      QStringLiteral("-94.5"),      QStringLiteral("Back in")};
inline const QStringList nothing = QStringList(9, QStringLiteral(""));

/// The same location under another code.
inline QStringList coded(const QString &code, const QStringList &location)
{
    return QStringList(code) + location.mid(1);
}

/// A location of which only this is known.
inline QStringList locationWith(int field, const QString &text)
{
    QStringList location = coded(QStringLiteral("NEW1"), nothing);
    location[field] = text;
    return location;
}

/// Stores the texts as they are, blanks included; a blank degree is stored as NULL.
inline void addLocations(const QString &path, const QList<QStringList> &locations)
{
    const TestConnection file(path);
    for (const QStringList &texts : locations) {
        QVariantList values;
        for (const QString &text : texts)
            values.append(text);
        file.execute(QStringLiteral("INSERT INTO locations VALUES (?, ?, ?, ?, ?, ?, "
                                    "NULLIF(?, ''), NULLIF(?, ''), ?)"),
                     values);
    }
}

/// A locations.db that holds these, and its path.
inline QString makeLocations(Workspace &workspace, const QList<QStringList> &locations)
{
    const QString path = workspace.makeLocations();
    addLocations(path, locations);
    return path;
}

/// What the file holds, by code.
inline QList<QStringList> stored(const QString &path)
{
    const TestConnection file(path);
    QList<QStringList> rows;
    QString error;
    if (!SqlStatement(file.database(), QStringLiteral("SELECT * FROM locations ORDER BY code"))
             .forEachRow({}, error, [&](const SqlStatement &row) { rows.append(row.texts()); }))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    return rows;
}

/// Runs a statement, such as a PRAGMA, on the connection that the page holds.
inline void onThePagesConnection(const QString &sql)
{
    QString error;
    const QString name = QStringLiteral("locations_connection");
    if (!runSql(QSqlDatabase::database(name, false), sql, {}, error))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
}
