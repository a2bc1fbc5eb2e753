#pragma once

#include <QList>
#include <QString>

/// One row of the import log: a settlement PDF that was imported, or a database file that was
/// exported or imported.
struct ImportHistoryRow
{
    qint32 id = 0;
    /// UTC, "YYYY-MM-DD hh:mm:ss".
    QString createdAt = {};
    QString payweek = {};
    QString truckNumber = {};
    QString pdfName = {};
    QString importMode = {};
    QString countsJson = {};
    QString payloadJson = {};
    QString sourceHash = {};

    /// As the history lists it.
    QString action = {};
    QString database = {};
    QString details = {};
    /// An export or import of a database file. The log has no columns for one: the file's name
    /// stands as the truck, what was done as the mode, and its details as the PDF's name.
    bool isDatabaseActivity = false;
};

/// The log of imports in the `trips.db` near the application. Each call opens a connection of its
/// own and is done with it at its end. A failure gives its reason in `error`.
///
/// A row is a record of what was done, and what keeps a settlement from being imported twice:
/// without it the same settlement can be imported again.
namespace ImportHistoryRepository {

/// Makes the log where the file has none.
bool ensureTable(QString &error);

/// All rows, the newest first; none on a failure.
QList<ImportHistoryRow> loadRows(QString &error);

/// Adds a row on an export or import of a database file. All three texts are trimmed.
bool logDatabaseActivity(const QString &action, const QString &databaseName, const QString &details,
                         QString &error);

/// Removes a row of the log, and nothing else. That it is gone already is no failure.
bool deleteRow(int id, QString &error);

} // namespace ImportHistoryRepository
