#include "settings/DatabaseManagement.h"

#include "app/PageParts.h"
#include "data/DatabaseLocator.h"
#include "pdfimport/ImportHistoryRepository.h"
#include "settings/DatabaseFiles.h"

#include <QBoxLayout>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>

using namespace Qt::StringLiterals;

struct DatabaseManagement::Database
{
    QString fileName;
    QString (*pathInUse)();

    QString exportTitle;
    QString suggestedName;
    QString noSource;
    QString exportFailed;
    QString exported;
    QString exportedText;

    QString importTitle;
    QString confirmTitle;
    QString confirmText;
    QString noTarget;
    QString importFailed;
    QString imported;
    QString importedText;
};

namespace {

QString databaseFilter()
{
    return DatabaseManagement::tr("SQLite Database (*.db);;All Files (*)");
}

bool copyOut(const QString &source, const QString &noSource, const QString &target, QString &error)
{
    if (source.trimmed().isEmpty()) {
        error = noSource;
        return false;
    }
    return DatabaseFiles::copyDatabaseFile(source, target, error);
}

bool copyIn(const QString &source, const QString &target, const QString &noTarget, QString &error)
{
    if (target.trimmed().isEmpty()) {
        error = noTarget;
        return false;
    }
    DatabaseLocator::closeAllSqliteConnections();
    return DatabaseFiles::replaceDatabaseFile(source, target, error);
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
    return {
        .fileName = DatabaseLocator::tripsFileName,
        .pathInUse = &DatabaseLocator::currentTripsDatabasePath,
        .exportTitle = tr("Export Trips Database"),
        .suggestedName = u"trips_backup.db"_s,
        .noSource = tr("trips.db is not open or could not be found."),
        .exportFailed = tr("Export Trips Database Failed"),
        .exported = tr("Trips Database Exported"),
        .exportedText = tr("Trips database exported successfully.\n\n%1"),
        .importTitle = tr("Import Trips Database"),
        .confirmTitle = tr("Confirm Trips Database Import"),
        .confirmText = tr("Importing this file will replace the current trips.db used by the "
                          "application.\n\nA safety backup of the existing database will be "
                          "created before replacement.\n\nSource:\n%1\n\nContinue?"),
        .noTarget = tr("Could not determine trips.db target path."),
        .importFailed = tr("Import Trips Database Failed"),
        .imported = tr("Trips Database Imported"),
        .importedText = tr("Trips database imported successfully. Restart the application before "
                           "continuing work."),
    };
}

DatabaseManagement::Database DatabaseManagement::locationsDatabase()
{
    return {
        .fileName = DatabaseLocator::locationsFileName,
        .pathInUse = &DatabaseLocator::currentLocationsDatabasePath,
        .exportTitle = tr("Export Locations Database"),
        .suggestedName = u"locations_backup.db"_s,
        .noSource = tr("locations.db is not open or could not be found."),
        .exportFailed = tr("Export Locations Database Failed"),
        .exported = tr("Locations Database Exported"),
        .exportedText = tr("Locations database exported successfully.\n\n%1"),
        .importTitle = tr("Import Locations Database"),
        .confirmTitle = tr("Confirm Locations Database Import"),
        .confirmText = tr("Importing this file will replace the current locations.db used by the "
                          "application.\n\nA safety backup of the existing database will be "
                          "created before replacement.\n\nSource:\n%1\n\nContinue?"),
        .noTarget = tr("Could not determine locations.db target path."),
        .importFailed = tr("Import Locations Database Failed"),
        .imported = tr("Locations Database Imported"),
        .importedText = tr("Locations database imported successfully. Restart the application "
                           "before continuing work."),
    };
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
        QFileDialog::getSaveFileName(this, database.exportTitle, database.suggestedName,
                                     databaseFilter(), nullptr, QFileDialog::DontConfirmOverwrite);
    if (target.trimmed().isEmpty() || !confirmOverwrite(target))
        return;
    QString error;
    if (!copyOut(database.pathInUse(), database.noSource, target, error)) {
        QMessageBox::critical(this, database.exportFailed, error);
        return;
    }
    logActivity(u"Export"_s, database.fileName, target);
    QMessageBox::information(this, database.exported, database.exportedText.arg(target));
}

void DatabaseManagement::importDatabase(const Database &database)
{
    const QString source =
        QFileDialog::getOpenFileName(this, database.importTitle, {}, databaseFilter());
    if (source.trimmed().isEmpty() || !confirmImport(database, source))
        return;
    const QString target = DatabaseLocator::findDatabaseOrDefaultPath(database.fileName);
    QString error;
    if (!copyIn(source, target, database.noTarget, error)) {
        QMessageBox::critical(this, database.importFailed, error);
        return;
    }
    // For trips this is the log of the new file: the replaced one takes its history along.
    logActivity(u"Import"_s, database.fileName, source);
    QMessageBox::information(this, database.imported, database.importedText);
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
    return QMessageBox::warning(this, database.confirmTitle, database.confirmText.arg(source),
                                QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
           == QMessageBox::Yes;
}
