#include "settings/AppearanceSettings.h"

#include "ui/PageParts.h"
#include "ui/UiScale.h"
#include "ui/WheelGuard.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QLabel>
#include <QSpinBox>

using namespace Qt::StringLiterals;

namespace {

constexpr int presets[] = {90, 100, 110, 125, 150, 175};

} // namespace

AppearanceSettings::AppearanceSettings(QWidget *parent)
    : QGroupBox(parent)
{
    setTitle(tr("Appearance"));
    buildLayout();
    showSavedScale();
    connectWidgets();
}

void AppearanceSettings::buildLayout()
{
    auto *sections = new QVBoxLayout(this);
    sections->setSpacing(10);
    sections->addLayout(buildControls());
    buildPreview();
    sections->addWidget(currentScaleLabel);
    sections->addWidget(previewLabel);
    sections->addWidget(PageParts::makeNote(
        tr("The selected scale is saved and will be reused the next time the program starts. "
           "Custom values from 75% to 175% use the same saved UI scale pipeline as the preset "
           "values."),
        this));
}

QBoxLayout *AppearanceSettings::buildControls()
{
    auto *row = new QHBoxLayout;
    buildPresets();
    row->addWidget(PageParts::makeCaption(tr("UI Scale:"), presetBox));
    row->addWidget(presetBox);
    row->addSpacing(12);
    buildSpinBox();
    row->addWidget(PageParts::makeCaption(tr("Custom %:"), percentBox));
    row->addWidget(percentBox);
    PageParts::addButton(row, tr("Apply"), u"applyScaleButton"_s, this,
                         &AppearanceSettings::applyScale);
    PageParts::addButton(row, tr("Reset to 100%"), u"resetScaleButton"_s, this,
                         &AppearanceSettings::resetScale);
    row->addStretch();
    return row;
}

void AppearanceSettings::buildPresets()
{
    presetBox = new QComboBox(this);
    presetBox->setObjectName(u"scalePresetBox"_s);
    guardFromWheel(presetBox);
    for (const int percent : presets)
        presetBox->addItem(tr("%1%").arg(percent), percent);
}

void AppearanceSettings::buildSpinBox()
{
    percentBox = new QSpinBox(this);
    percentBox->setObjectName(u"scalePercentBox"_s);
    percentBox->setRange(UiScale::smallestPercent, UiScale::largestPercent);
    percentBox->setSuffix(tr("%"));
    percentBox->setSingleStep(5);
    percentBox->setMinimumWidth(140);
    guardFromWheel(percentBox);
}

void AppearanceSettings::buildPreview()
{
    currentScaleLabel = new QLabel(this);
    currentScaleLabel->setObjectName(u"currentScaleLabel"_s);
    previewLabel = new QLabel(tr("Preview: Brindlepath Desk"), this);
    previewLabel->setObjectName(u"scalePreviewLabel"_s);
    previewLabel->setFrameShape(QFrame::StyledPanel);
    previewLabel->setMargin(10);
}

void AppearanceSettings::showSavedScale()
{
    const int saved = UiScale::clampedPercent(UiScale::savedUiScalePercent());
    const int preset = presetBox->findData(saved);
    if (preset >= 0)
        presetBox->setCurrentIndex(preset);
    percentBox->setValue(saved);
    updateScalePreview(saved);
}

// The presets do not follow the spin box: most of its values are none of them.
void AppearanceSettings::connectWidgets()
{
    connect(presetBox, &QComboBox::currentIndexChanged, this, &AppearanceSettings::takePreset);
    connect(percentBox, &QSpinBox::valueChanged, this, &AppearanceSettings::updateScalePreview);
}

int AppearanceSettings::currentPercent() const
{
    return UiScale::clampedPercent(percentBox->value());
}

void AppearanceSettings::takePreset()
{
    percentBox->setValue(UiScale::clampedPercent(presetBox->currentData().toInt()));
    updateScalePreview(currentPercent());
}

void AppearanceSettings::updateScalePreview(int percent)
{
    currentScaleLabel->setText(tr("Current selected scale: %1%").arg(percent));
    QFont font = previewLabel->font();
    font.setPointSize(UiScale::applicationPointSize(percent));
    previewLabel->setFont(font);
}

void AppearanceSettings::applyScale()
{
    const int percent = currentPercent();
    UiScale::saveUiScalePercent(percent);
    updateScalePreview(percent);
    Q_EMIT uiScaleChanged(percent);
}

void AppearanceSettings::resetScale()
{
    presetBox->setCurrentIndex(presetBox->findData(UiScale::defaultPercent));
    percentBox->setValue(UiScale::defaultPercent);
    applyScale();
}
