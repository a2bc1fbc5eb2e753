#pragma once

#include <QWidget>

/// The page of the two things that concern the program as a whole: how large it is shown, and the
/// files that hold its data.
class SettingsPage : public QWidget
{
    Q_OBJECT

public:
    explicit SettingsPage(QWidget *parent = nullptr);

Q_SIGNALS:
    /// A scale of 75 to 175 percent has been stored, be it another one or the same.
    void uiScaleChanged(int percent);
};
