#pragma once

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QString>

/// Lays out an editor of the Trips page: a row of buttons, then the grid and its labels. What it
/// adds is named after the editor, as in "stopsAddButton".
template <typename Editor>
class TripEditorLayout
{
public:
    explicit TripEditorLayout(Editor *tripEditor)
        : editor(tripEditor)
        , column(new QVBoxLayout(tripEditor))
        , buttons(new QHBoxLayout)
    {
        column->addLayout(buttons);
        buttons->addStretch();
    }

    QPushButton *addButton(const QString &text, QLatin1StringView name, void (Editor::*action)())
    {
        auto *button = new QPushButton(text, editor);
        button->setObjectName(nameOf(name) + QLatin1StringView("Button"));
        QObject::connect(button, &QPushButton::clicked, editor, action);
        buttons->insertWidget(buttons->count() - 1, button);
        return button;
    }

    template <typename Grid>
    Grid *addGrid(Grid *grid)
    {
        grid->setObjectName(nameOf(QLatin1StringView("Grid")));
        grid->setAccessibleName(editor->title());
        column->addWidget(grid, 1);
        return grid;
    }

    QLabel *addLabel(QLatin1StringView name, const QString &text = {})
    {
        auto *label = new QLabel(text, editor);
        label->setObjectName(nameOf(name));
        label->setWordWrap(true);
        column->addWidget(label);
        return label;
    }

private:
    QString nameOf(QLatin1StringView part) const { return editor->objectName() + part; }

    Editor *editor;
    QVBoxLayout *column;
    QHBoxLayout *buttons;
};
