#pragma once

#include <QList>
#include <QStringList>

class QComboBox;
class QTableWidget;

/// A table as a person reads it, row by row from top to bottom; a missing cell reads as "".
QList<QStringList> texts(const QTableWidget *table);

/// The header texts, with their sort arrows.
QStringList headers(const QTableWidget *table);

/// The texts of the column whose header, without its sort arrow, is `header`. An unknown header
/// fails the test.
QStringList column(const QTableWidget *table, const QString &header);

/// The entries that a box offers, from top to bottom.
QStringList offeredBy(const QComboBox *box);
