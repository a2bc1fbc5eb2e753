#pragma once

#include <QStyledItemDelegate>

/// Shows the texts of a table's cells, shortened where they are too long to be laid out. The cell
/// itself keeps the whole text, which no editor would take and which therefore cannot be edited.
class CellPainter : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QString displayText(const QVariant &value, const QLocale &locale) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
};
