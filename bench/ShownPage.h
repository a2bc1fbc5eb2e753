#pragma once

#include "app/BrindlepathApp.h"

#include <QApplication>
#include <QStackedWidget>

/// Shows the window in its usual size, laid out and painted.
inline void show(BrindlepathApp &window)
{
    window.resize(1280, 800);
    window.show();
    QApplication::processEvents();
}

/// The page of that class, in front and laid out as a click on its name brings it.
template <typename Page>
Page *shownPage(const BrindlepathApp &window)
{
    auto *page = window.findChild<Page *>();
    qobject_cast<QStackedWidget *>(page->parentWidget())->setCurrentWidget(page);
    QApplication::processEvents();
    return page;
}
