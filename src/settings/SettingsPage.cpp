#include "settings/SettingsPage.h"

#include "settings/AppearanceSettings.h"
#include "settings/DatabaseManagement.h"
#include "ui/PageParts.h"

#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

constexpr int headingGrowth = 5;

} // namespace

SettingsPage::SettingsPage(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(u"settingsPage"_s);
    QWidget *inner = PageParts::makeScrollingContent(this);
    auto *sections = new QVBoxLayout(inner);
    sections->setContentsMargins(18, 18, 18, 18);
    sections->setSpacing(12);
    sections->addWidget(PageParts::makeHeading(tr("Settings"), inner, headingGrowth));
    sections->addWidget(PageParts::makeNote(
        tr("Adjust appearance settings for the app. Use preset values or enter a custom UI scale "
           "percent."),
        inner));
    auto *appearance = new AppearanceSettings(inner);
    sections->addWidget(appearance);
    sections->addWidget(new DatabaseManagement(inner));
    sections->addStretch();
    connect(appearance, &AppearanceSettings::uiScaleChanged, this, &SettingsPage::uiScaleChanged);
}
