#pragma once

#include "settings/SettingsPage.h"
#include "support/Person.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QSpinBox>

/// The Settings page in a window, as a person has it before them, and the scales it announced.
class SettingsWindow
{
public:
    SettingsWindow()
        : page(new SettingsPage)
    {
        QObject::connect(page, &SettingsPage::uiScaleChanged, page,
                         [this](int percent) { announced.append(percent); });
        window.setCentralWidget(page);
        Person::shows(window);
    }
    Q_DISABLE_COPY_MOVE(SettingsWindow)

    void clicks(const QString &text) const { Person::clicks(window, text); }
    void chooses(const QString &preset) const { Person::chooses(presets(), preset); }
    /// Replaces the whole number, percent sign and all.
    void types(const QString &percent) const
    {
        Person::types(percentBox()->findChild<QLineEdit *>(), percent);
    }

    [[nodiscard]] QComboBox *presets() const { return named<QComboBox>("scalePresetBox"); }
    [[nodiscard]] QSpinBox *percentBox() const { return named<QSpinBox>("scalePercentBox"); }
    [[nodiscard]] QLabel *preview() const { return named<QLabel>("scalePreviewLabel"); }

    /// The three places that tell of the choice: the preset, the custom percent and the label.
    [[nodiscard]] QStringList choice() const
    {
        return {presets()->currentText(), percentBox()->text(),
                named<QLabel>("currentScaleLabel")->text()};
    }
    [[nodiscard]] int previewPoints() const { return preview()->font().pointSize(); }

    template <typename Widget>
    [[nodiscard]] Widget *named(const char *name) const
    {
        return page->findChild<Widget *>(QLatin1StringView(name));
    }

    QMainWindow window;
    SettingsPage *page;
    QList<int> announced;
};
