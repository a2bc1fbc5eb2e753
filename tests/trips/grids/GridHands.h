#pragma once

#include "support/Person.h"
#include "support/TableReaders.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTableWidget>
#include <QTest>

/// The box that stands in a cell; null without one.
inline QComboBox *boxAt(const QTableWidget *grid, int row, int column)
{
    return qobject_cast<QComboBox *>(grid->cellWidget(row, column));
}

/// Double-clicks a cell and gives the line to type in; null if the cell does not open.
inline QLineEdit *opensCell(QTableWidget *grid, int row, int column)
{
    Person::clicksCell(grid, row, column);
    const QPoint middle = grid->visualItemRect(grid->item(row, column)).center();
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, middle);
    return grid->viewport()->findChild<QLineEdit *>({}, Qt::FindDirectChildrenOnly);
}

/// Replaces the text of a cell and ends with Return. A cell that does not open fails the test.
inline void typesIntoCell(QTableWidget *grid, int row, int column, const QString &text)
{
    QLineEdit *line = opensCell(grid, row, column);
    if (!line) {
        QTest::qFail("The cell cannot be edited.", __FILE__, __LINE__);
        return;
    }
    Person::types(line, text);
    QTest::keyClick(line, Qt::Key_Return);
    // The cell takes the text only after the line has had its turn with the key; then the line
    // goes.
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(line, QEvent::DeferredDelete);
}
