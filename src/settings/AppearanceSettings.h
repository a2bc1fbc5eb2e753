#pragma once

#include <QGroupBox>

class QBoxLayout;
class QComboBox;
class QLabel;
class QSpinBox;

/// Where the driver chooses the UI scale. The choice is shown at once, but it is neither stored nor
/// told to anyone before "Apply" or "Reset to 100%" is pressed.
class AppearanceSettings : public QGroupBox
{
    Q_OBJECT

public:
    explicit AppearanceSettings(QWidget *parent = nullptr);

Q_SIGNALS:
    /// A scale of 75 to 175 percent has been stored, be it another one or the same.
    void uiScaleChanged(int percent);

private:
    void buildLayout();
    QBoxLayout *buildControls();
    void buildPresets();
    void buildSpinBox();
    void buildPreview();
    void showSavedScale();
    void connectWidgets();

    [[nodiscard]] int currentPercent() const;
    void takePreset();
    void updateScalePreview(int percent);
    void applyScale();
    void resetScale();

    QComboBox *presetBox = nullptr;
    QSpinBox *percentBox = nullptr;
    QLabel *currentScaleLabel = nullptr;
    QLabel *previewLabel = nullptr;
};
