#pragma once

#include "reports/ReportRows.h"
#include "reports/ReportsPage.h"
#include "support/Person.h"

#include <QComboBox>
#include <QGraphicsPixmapItem>
#include <QGraphicsView>
#include <QLabel>
#include <QPixmap>
#include <QStringList>
#include <QTableWidget>

#include <utility>

/// The page in a window, with all that it says on the status line from now on.
struct ReportsWindow
{
    ReportsWindow()
    {
        page.statusCallback = [this](const QString &text) { said.append(text); };
        Person::shows(page);
    }

    [[nodiscard]] QStringList years() const
    {
        QStringList shown;
        for (int i = 0; i < yearBox->count(); ++i)
            shown.append(yearBox->itemText(i));
        return shown;
    }

    [[nodiscard]] QString status() const
    {
        return page.findChild<QLabel *>(QStringLiteral("reportStatus"))->text();
    }

    /// The chart as it lies in the scene; a null one if there is none.
    [[nodiscard]] QPixmap chart() const
    {
        const QList<QGraphicsItem *> items = view->scene()->items();
        if (items.size() != 1)
            return {};
        return qgraphicsitem_cast<QGraphicsPixmapItem *>(items.constFirst())->pixmap();
    }

    /// What has been said since this was asked last.
    QStringList news() { return std::exchange(said, {}); }

    ReportsPage page;
    QStringList said;
    QComboBox *yearBox = page.findChild<QComboBox *>(QStringLiteral("reportYear"));
    QComboBox *reportBox = page.findChild<QComboBox *>(QStringLiteral("reportKind"));
    QGraphicsView *view = page.findChild<QGraphicsView *>(QStringLiteral("reportChart"));
    QTableWidget *table = page.findChild<QTableWidget *>(QStringLiteral("reportTable"));
};

/// Two weeks of 2026 and one of 2025.
inline void insertTwoYears(const Workspace &workspace)
{
    haul(QStringLiteral("01/02/2026"), 1000.0, 400.0, 500.0).insert(workspace);
    haul(QStringLiteral("01/09/2026"), 1000.0, 700.0, 2000.0).insert(workspace);
    haul(QStringLiteral("12/26/2025"), 600.0, 900.0, 300.0).insert(workspace);
}
