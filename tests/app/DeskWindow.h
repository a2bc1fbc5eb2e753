#pragma once

#include "app/BrindlepathApp.h"
#include "support/TestConnection.h"
#include "support/Workspace.h"

#include <QLabel>
#include <QListWidget>
#include <QTest>

template <typename Widget>
Widget *named(const BrindlepathApp &window, const char *name)
{
    return window.findChild<Widget *>(QLatin1StringView(name));
}

/// Clicks on a page's row of the navigation.
inline void goTo(const BrindlepathApp &window, const QString &page)
{
    auto *navigation = named<QListWidget>(window, "navigationList");
    QListWidgetItem *row = navigation->findItems(page, Qt::MatchExactly).value(0);
    QVERIFY2(row, qPrintable(page));
    QTest::mouseClick(navigation->viewport(), Qt::LeftButton, {},
                      navigation->visualItemRect(row).center());
}

/// What a label shows.
inline QString textOf(const BrindlepathApp &window, const char *label)
{
    return named<QLabel>(window, label)->text();
}

inline QString status(const BrindlepathApp &window)
{
    return textOf(window, "statusLabel");
}

/// Makes `locations.db` with rows such as "('DAL-01'), ('MEM-02')".
inline void makeLocationsWith(Workspace &workspace, const QString &codes)
{
    const TestConnection file(workspace.makeLocations());
    file.execute(QStringLiteral("INSERT INTO locations (code) VALUES ") + codes);
}
