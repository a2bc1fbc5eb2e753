#include "trips/grids/StoredRowsGuard.h"

#include <QMessageBox>

bool StoredRowsGuard::allowsSave(QWidget *page, const QString &title) const
{
    if (unread)
        QMessageBox::critical(page, title,
                              tr("Rows of this trip could not be read from the file, and saving "
                                 "would delete them there. Nothing was saved.\n\nLoad the trip "
                                 "again before you save."));
    return !unread;
}
