#include "ui/CellPainter.h"

#include "ui/ShownText.h"

QString CellPainter::displayText(const QVariant &value, const QLocale &locale) const
{
    if (value.userType() != QMetaType::QString)
        return QStyledItemDelegate::displayText(value, locale);
    return QStyledItemDelegate::displayText(ShownText::shortened(value.toString()), locale);
}

QWidget *CellPainter::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                   const QModelIndex &index) const
{
    if (index.data(Qt::EditRole).toString().size() > ShownText::longestLine)
        return nullptr;
    return QStyledItemDelegate::createEditor(parent, option, index);
}
