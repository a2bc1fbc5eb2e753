#include "ui/NameBox.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QWheelEvent>

NameBox::NameBox(QWidget *parent)
    : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    // Qt's completer replaces the text by the entry that equals it in any case, and its popup
    // swallows the click that closes it.
    setCompleter(nullptr);
    setFocusPolicy(Qt::StrongFocus);
}

void NameBox::showPopup()
{
    int nearest = findText(currentText());
    if (nearest < 0)
        nearest = findText(currentText(), Qt::MatchStartsWith);
    QComboBox::showPopup();
    view()->setCurrentIndex(model()->index(nearest, modelColumn(), rootModelIndex()));
}

void NameBox::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        showPopup();
        break;
    default:
        QComboBox::keyPressEvent(event);
    }
}

// For the page around, which scrolls.
void NameBox::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}
