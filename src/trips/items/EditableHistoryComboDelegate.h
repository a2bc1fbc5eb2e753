#pragma once

#include "trips/grids/OfferedTexts.h"

#include <QStyledItemDelegate>

/// Edits a cell in an editable box that offers the names used before. It holds a copy of the list:
/// a new list takes a new delegate.
class EditableHistoryComboDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    EditableHistoryComboDelegate(const OfferedTexts &offeredNames, QObject *parent);

    [[nodiscard]] QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                        const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;

private:
    OfferedTexts names;
};

/// The box of an item's name, alike in the delegate and in the grid, and its least width in pixels.
QComboBox *makeNameBox(const OfferedTexts &names, const QString &name);
inline constexpr int leastNameBoxWidth = 260;
