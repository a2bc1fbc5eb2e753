#include "support/TableReaders.h"

#include <QComboBox>
#include <QTableWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString cellText(const QTableWidget *table, int row, int column)
{
    const QTableWidgetItem *item = table->item(row, column);
    return item ? item->text() : QString();
}

} // namespace

QList<QStringList> texts(const QTableWidget *table)
{
    QList<QStringList> rows;
    for (int row = 0; row < table->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < table->columnCount(); ++column)
            cells.append(cellText(table, row, column));
        rows.append(cells);
    }
    return rows;
}

QStringList headers(const QTableWidget *table)
{
    QStringList labels;
    for (int column = 0; column < table->columnCount(); ++column) {
        const QTableWidgetItem *item = table->horizontalHeaderItem(column);
        labels.append(item ? item->text() : QString());
    }
    return labels;
}

QStringList column(const QTableWidget *table, const QString &header)
{
    QStringList labels = headers(table);
    for (QString &label : labels)
        label = label.remove(u'\u25B2').remove(u'\u25BC').remove(u'\u2195').trimmed();
    const int wanted = static_cast<int>(labels.indexOf(header));
    if (wanted < 0)
        QTest::qFail(qPrintable(u"No column "_s + header), __FILE__, __LINE__);
    QStringList cells;
    for (int row = 0; row < table->rowCount(); ++row)
        cells.append(cellText(table, row, wanted));
    return cells;
}

QStringList offeredBy(const QComboBox *box)
{
    QStringList entries;
    for (int i = 0; i < box->count(); ++i)
        entries.append(box->itemText(i));
    return entries;
}
