#pragma once

#include <QComboBox>
#include <QStringList>

/// The entries that a box offers, from top to bottom.
inline QStringList offeredBy(const QComboBox *box)
{
    QStringList entries;
    for (int i = 0; i < box->count(); ++i)
        entries.append(box->itemText(i));
    return entries;
}
