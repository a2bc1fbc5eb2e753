#include "trips/items/EditableHistoryComboDelegate.h"

#include "ui/FieldText.h"

#include <QComboBox>

namespace {

constexpr int leastNameLength = 18;

} // namespace

QComboBox *makeNameBox(const OfferedTexts &names, const QString &name)
{
    QComboBox *box = names.makeBox(name, leastNameLength);
    box->setMinimumWidth(leastNameBoxWidth);
    return box;
}

EditableHistoryComboDelegate::EditableHistoryComboDelegate(const OfferedTexts &offeredNames,
                                                           QObject *parent)
    : QStyledItemDelegate(parent)
    , names(offeredNames)
{
}

QWidget *EditableHistoryComboDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                                    const QModelIndex &) const
{
    QComboBox *box = makeNameBox(names, {});
    box->setParent(parent);
    return box;
}

void EditableHistoryComboDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    if (auto *box = qobject_cast<QComboBox *>(editor))
        showInBox(box, index.data(Qt::EditRole).toString());
}

void EditableHistoryComboDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                                const QModelIndex &index) const
{
    if (const auto *box = qobject_cast<QComboBox *>(editor))
        model->setData(index, FieldText::of(box).trimmed(), Qt::EditRole);
}
