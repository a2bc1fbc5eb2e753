#pragma once

#include <QApplication>
#include <QTest>
#include <QToolTip>
#include <QWidget>

/// Moves the mouse to a place in a window, no button held, and gives the tooltip that is up then.
inline QString tipAt(const QWidget &window, const QPoint &place)
{
    QTest::mouseMove(window.windowHandle(), place);
    QCoreApplication::processEvents();
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

/// Qt's own window of a tooltip; null if none is up.
inline QWidget *tipWindow()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->inherits("QTipLabel") && widget->isVisible())
            return widget;
    }
    return nullptr;
}

/// How far right of and below a place in a window, as the screen has it, the tooltip came up.
inline QPoint tipDistance(const QWidget &window, const QPoint &place)
{
    return tipWindow()->pos() - window.mapToGlobal(place);
}
