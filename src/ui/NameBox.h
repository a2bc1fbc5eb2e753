#pragma once

#include <QComboBox>

/// An editable box for a name or a code that offers those known and takes any other. What a person
/// types stands in its own letters: nothing completes it, no popup comes up while they type and
/// takes their next click, and neither an arrow key nor the wheel puts an older name in its place.
/// The arrow, by mouse or keyboard, opens the list at the first name that begins with the text.
class NameBox : public QComboBox
{
public:
    explicit NameBox(QWidget *parent = nullptr);

    void showPopup() override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
};
