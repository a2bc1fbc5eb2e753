#pragma once

#include "app/BrindlepathApp.h"

#include <QApplication>
#include <QStackedWidget>

/// The page of that class, in front and laid out as a click on its name brings it.
template <typename Page>
Page *shownPage(const BrindlepathApp &window)
{
    auto *page = window.findChild<Page *>();
    qobject_cast<QStackedWidget *>(page->parentWidget())->setCurrentWidget(page);
    QApplication::processEvents();
    return page;
}
