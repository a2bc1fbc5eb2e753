#pragma once

#include <QCoreApplication>
#include <QString>

class QWidget;

/// Keeps rows that were never read from being deleted. A save puts the rows of a grid in the place
/// of those in the file, and a grid that could not be filled is empty where the file is not.
class StoredRowsGuard
{
    Q_DECLARE_TR_FUNCTIONS(StoredRowsGuard)

public:
    /// The grid is about to be filled with the rows of a trip; a new one, with an id below 1, has
    /// none to read.
    void startReading(int tripId) { unread = tripId > 0; }
    void finishReading() { unread = false; }

    [[nodiscard]] bool allowsSave() const { return !unread; }

    /// The same; where it does not, a box of this title over `page` says why nothing is saved.
    [[nodiscard]] bool allowsSave(QWidget *page, const QString &title) const;

private:
    bool unread = false;
};
