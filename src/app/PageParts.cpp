#include "app/PageParts.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QScrollArea>
#include <QVBoxLayout>

namespace PageParts {

QString askForDatabase(QWidget *page, const QString &caption)
{
    return QFileDialog::getOpenFileName(
        page, caption, {},
        QCoreApplication::translate("PageParts", "SQLite Database (*.db);;All Files (*.*)"));
}

void fillScrolling(QWidget *page, QWidget *content)
{
    auto *area = new QScrollArea(page);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(content);
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(area);
}

} // namespace PageParts
