#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

/// What a person calls a part of a page; a part without a text goes by its name.
inline QString nameOf(const QWidget *part)
{
    if (const auto *label = qobject_cast<const QLabel *>(part))
        return label->text();
    if (const auto *group = qobject_cast<const QGroupBox *>(part))
        return group->title();
    const auto *button = qobject_cast<const QPushButton *>(part);
    return button ? button->text() : part->objectName();
}

/// The visible parts of a page, row by row from top to bottom and in a row from left to right.
inline QStringList partsInReadingOrder(const QWidget *content)
{
    QList<QWidget *> parts = content->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
    parts.removeIf([](const QWidget *part) { return !part->isVisible(); });
    std::sort(parts.begin(), parts.end(), [](const QWidget *one, const QWidget *other) {
        const QRect left = one->geometry();
        const QRect right = other->geometry();
        const bool inOneRow = left.top() <= right.bottom() && right.top() <= left.bottom();
        return inOneRow ? left.left() < right.left() : left.top() < right.top();
    });
    QStringList names;
    for (const QWidget *part : parts)
        names.append(nameOf(part));
    return names;
}
