#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QVariantList>

class QSqlDatabase;

/// A folder of its own for one test: the current directory while it lives, with database files
/// made from schema/ and a settings store of its own. Any warning that the code under test writes
/// to the console fails the test.
class Workspace
{
public:
    Workspace();
    ~Workspace();
    Q_DISABLE_COPY_MOVE(Workspace)

    [[nodiscard]] QString path(const QString &fileName) const;

    /// Makes a new, empty database and gives its path. The folder of `fileName` is made too.
    QString makeTrips(const QString &fileName = QStringLiteral("trips.db"));
    /// As most drivers' files are, which were made before there were any.
    QString makeTripsWithoutIndexes(const QString &fileName = QStringLiteral("trips.db"));
    QString makeLocations(const QString &fileName = QStringLiteral("locations.db"));

    /// Writes a file and gives its path.
    QString makeFile(const QString &fileName, const QByteArray &content) const;

    /// Lays the machine's Poppler, Tesseract and English language data in tools/, as links.
    void linkTools() const;

    /// Puts a shell script in the place of a program, such as "tools/poppler/pdftotext", and gives
    /// its path.
    QString makeTool(const QString &fileName, const QByteArray &script) const;

    /// A file's bytes, to show that nothing changed in it.
    [[nodiscard]] QByteArray bytes(const QString &fileName) const;

    /// Reads and writes `trips.db` on a connection that is gone when the call returns. A failing
    /// statement fails the test.
    void execute(const QString &sql, const QVariantList &values = {}) const;
    qint64 insert(const QString &sql, const QVariantList &values = {}) const;
    [[nodiscard]] QVariant value(const QString &sql, const QVariantList &values = {}) const;
    [[nodiscard]] QList<QStringList> rows(const QString &sql,
                                          const QVariantList &values = {}) const;

    /// The scale in the settings store, as Settings would have saved it.
    static void saveScale(int percent);

private:
    QString made(const QString &schema, const QString &fileName) const;

    QTemporaryDir folder;
    QString previousFolder;
};
