#include "settings/DatabaseManagement.h"

#include "data/DatabaseLocator.h"
#include "pdfimport/history/ImportHistoryRepository.h"
#include "settings/DatabaseFiles.h"
#include "ui/PageParts.h"

#include <QBoxLayout>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>

using namespace Qt::StringLiterals;

struct DatabaseManagement::Database
{
    QString name;
    QString fileName;
    QString (*pathInUse)();
};

namespace {

QString databaseFilter()
{
    return DatabaseManagement::tr("SQLite Database (*.db);;All Files (*)");
}

// The files are what counts: a log that cannot be written spoils no export and no import.
void logActivity(const QString &action, const QString &fileName, const QString &path)
{
    QString ignored;
    ImportHistoryRepository::logDatabaseActivity(action, fileName, path, ignored);
}

} // namespace

DatabaseManagement::Database DatabaseManagement::tripsDatabase()
{
    return {tr("Trips"), DatabaseLocator::tripsFileName,
            &DatabaseLocator::currentTripsDatabasePath};
}

DatabaseManagement::Database DatabaseManagement::locationsDatabase()
{
    return {tr("Locations"), DatabaseLocator::locationsFileName,
            &DatabaseLocator::currentLocationsDatabasePath};
}

DatabaseManagement::DatabaseManagement(QWidget *parent)
    : QGroupBox(parent)
{
    setTitle(tr("Database Management"));
    buildLayout();
}

void DatabaseManagement::buildLayout()
{
    auto *sections = new QVBoxLayout(this);
    sections->setSpacing(10);
    sections->addWidget(PageParts::makeNote(
        tr("Export database backups or import previously exported database files. Import replaces "
           "the selected application database after confirmation."),
        this));
    sections->addWidget(new QLabel(tr("Trips Database"), this));
    sections->addLayout(buildTripsActions());
    sections->addWidget(new QLabel(tr("Locations Database"), this));
    sections->addLayout(buildLocationsActions());
}

QBoxLayout *DatabaseManagement::buildTripsActions()
{
    auto *row = new QHBoxLayout;
    PageParts::addButton(row, tr("Export Trips Database"), u"exportTripsButton"_s, this,
                         &DatabaseManagement::exportTripsDatabase);
    PageParts::addButton(row, tr("Import Trips Database"), u"importTripsButton"_s, this,
                         &DatabaseManagement::importTripsDatabase);
    row->addStretch();
    return row;
}

QBoxLayout *DatabaseManagement::buildLocationsActions()
{
    auto *row = new QHBoxLayout;
    PageParts::addButton(row, tr("Export Locations Database"), u"exportLocationsButton"_s, this,
                         &DatabaseManagement::exportLocationsDatabase);
    PageParts::addButton(row, tr("Import Locations Database"), u"importLocationsButton"_s, this,
                         &DatabaseManagement::importLocationsDatabase);
    row->addStretch();
    return row;
}

void DatabaseManagement::exportTripsDatabase()
{
    exportDatabase(tripsDatabase());
}

void DatabaseManagement::importTripsDatabase()
{
    importDatabase(tripsDatabase());
}

void DatabaseManagement::exportLocationsDatabase()
{
    exportDatabase(locationsDatabase());
}

void DatabaseManagement::importLocationsDatabase()
{
    importDatabase(locationsDatabase());
}

void DatabaseManagement::exportDatabase(const Database &database)
{
    // The dialog's own question would come on top of ours.
    const QString target =
        QFileDialog::getSaveFileName(this, tr("Export %1 Database").arg(database.name),
                                     QFileInfo(database.fileName).baseName() + "_backup.db"_L1,
                                     databaseFilter(), nullptr, QFileDialog::DontConfirmOverwrite);
    if (target.trimmed().isEmpty() || !confirmOverwrite(target))
        return;
    QString error;
    if (!copyOut(database, target, error)) {
        QMessageBox::critical(this, tr("Export %1 Database Failed").arg(database.name), error);
        return;
    }
    logActivity(u"Export"_s, database.fileName, target);
    QMessageBox::information(
        this, tr("%1 Database Exported").arg(database.name),
        tr("%1 database exported successfully.\n\n%2").arg(database.name, target));
}

bool DatabaseManagement::copyOut(const Database &database, const QString &target, QString &error)
{
    const QString source = database.pathInUse();
    if (source.trimmed().isEmpty()) {
        error = tr("%1 is not open or could not be found.").arg(database.fileName);
        return false;
    }
    return DatabaseFiles::copyDatabaseFile(source, target, error);
}

void DatabaseManagement::importDatabase(const Database &database)
{
    const QString source = QFileDialog::getOpenFileName(
        this, tr("Import %1 Database").arg(database.name), {}, databaseFilter());
    if (source.trimmed().isEmpty() || !confirmImport(database, source))
        return;
    QString error;
    QString backup;
    if (!copyIn(database, source, error, backup)) {
        showImportFailure(database, error, backup);
        return;
    }
    // For trips this is the log of the new file: the replaced one takes its history along.
    logActivity(u"Import"_s, database.fileName, source);
    QMessageBox::information(this, tr("%1 Database Imported").arg(database.name),
                             tr("%1 database imported successfully. Restart the application before "
                                "continuing work.")
                                 .arg(database.name));
}

bool DatabaseManagement::copyIn(const Database &database, const QString &source, QString &error,
                                QString &backup)
{
    const QString target = DatabaseLocator::findDatabaseOrDefaultPath(database.fileName);
    if (target.trimmed().isEmpty()) {
        error = tr("Could not determine %1 target path.").arg(database.fileName);
        return false;
    }
    DatabaseLocator::closeAllSqliteConnections();
    return DatabaseFiles::replaceDatabaseFile(source, target, error, &backup);
}

void DatabaseManagement::showImportFailure(const Database &database, const QString &error,
                                           const QString &backup)
{
    QMessageBox box(QMessageBox::Critical, tr("Import %1 Database Failed").arg(database.name),
                    error, QMessageBox::Ok, this);
    if (!backup.isEmpty())
        box.setInformativeText(
            tr("A copy of %1 as it was before is kept as:\n%2").arg(database.fileName, backup));
    box.exec();
}

bool DatabaseManagement::confirmOverwrite(const QString &path)
{
    return !QFile::exists(path)
           || QMessageBox::question(
                  this, tr("Confirm Overwrite"),
                  tr("This file already exists:\n\n%1\n\nOverwrite it?").arg(path),
                  QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
                  == QMessageBox::Yes;
}

bool DatabaseManagement::confirmImport(const Database &database, const QString &source)
{
    return QMessageBox::warning(
               this, tr("Confirm %1 Database Import").arg(database.name),
               tr("Importing this file will replace the current %1 used by the application.\n\n"
                  "A safety backup of the existing database will be created before replacement.\n\n"
                  "Source:\n%2\n\nContinue?")
                   .arg(database.fileName, source),
               QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
           == QMessageBox::Yes;
}
