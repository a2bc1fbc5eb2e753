// The start screen of the window: a summary that is read afresh each time it is shown.

#include "app/BrindlepathApp.h"
#include "app/DashboardStats.h"
#include "app/StartScreenText.h"
#include "data/DatabaseLocator.h"
#include "settings/ProductFacts.h"
#include "ui/ShownText.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

constexpr int titleGrowth = 8;
constexpr int welcomeGrowth = 3;
constexpr int captionWidth = 130;

// Without growth the label takes its size from the page, and follows a change of the scale.
QLabel *boldLabel(const QString &text, int growth, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    QFont font = label->font();
    font.setBold(true);
    if (growth > 0)
        font.setPointSize(font.pointSize() + growth);
    label->setFont(font);
    return label;
}

QLabel *summaryRow(QGridLayout *rows, int row, const QString &caption, const QString &name,
                   const QString &text)
{
    QWidget *group = rows->parentWidget();
    auto *captionLabel = boldLabel(caption, 0, group);
    captionLabel->setMinimumWidth(captionWidth);
    auto *value = new QLabel(text, group);
    value->setObjectName(name);
    value->setTextFormat(Qt::PlainText); // a trip number such as "<i>7" is no markup
    rows->addWidget(captionLabel, row, 0);
    rows->addWidget(value, row, 1);
    return value;
}

} // namespace

void BrindlepathApp::buildStartScreen()
{
    startPage = new QWidget(this);
    startPage->setObjectName(u"startPage"_s);
    auto *sections = new QVBoxLayout(startPage);
    sections->setContentsMargins(18, 18, 18, 18);
    sections->setSpacing(14);
    sections->addWidget(boldLabel(ProductFacts::displayName, titleGrowth, startPage));
    sections->addWidget(boldLabel(tr("Welcome back."), welcomeGrowth, startPage));
    sections->addWidget(buildBusinessSummary());
    sections->addWidget(buildRecentActivity());
    sections->addStretch();
    refreshStartScreen();
}

QWidget *BrindlepathApp::buildBusinessSummary()
{
    auto *group = new QGroupBox(tr("Business Summary"), startPage);
    auto *rows = new QGridLayout(group);
    rows->setContentsMargins(12, 12, 12, 12);
    rows->setHorizontalSpacing(18);
    rows->setVerticalSpacing(8);
    rows->setColumnStretch(1, 1);
    startDatabaseValue =
        summaryRow(rows, 0, tr("Database:"), u"startDatabaseValue"_s, tr("No database open"));
    startTripsValue = summaryRow(rows, 1, tr("Trips:"), u"startTripsValue"_s, u"0"_s);
    startLocationsValue = summaryRow(rows, 2, tr("Locations:"), u"startLocationsValue"_s, u"0"_s);
    startPayweekValue =
        summaryRow(rows, 3, tr("Current Payweek:"), u"startPayweekValue"_s, tr("None"));
    startBackupValue =
        summaryRow(rows, 4, tr("Last Backup:"), u"startBackupValue"_s, tr("Not Available"));
    return group;
}

QWidget *BrindlepathApp::buildRecentActivity()
{
    auto *group = new QGroupBox(tr("Recent Activity"), startPage);
    auto *layout = new QVBoxLayout(group);
    layout->setContentsMargins(12, 12, 12, 12);
    startActivityLabel = new QLabel(tr("No recent activity available."), group);
    startActivityLabel->setObjectName(u"startActivityLabel"_s);
    startActivityLabel->setTextFormat(Qt::PlainText);
    startActivityLabel->setWordWrap(true);
    layout->addWidget(startActivityLabel);
    return group;
}

void BrindlepathApp::refreshStartScreen()
{
    const QString path = DatabaseLocator::currentTripsDatabasePath();
    const int trips = DashboardStats::countTableRows(u"trips"_s);
    const int locations = DashboardStats::countLocations();
    const QString payweek = DashboardStats::currentPayweek();
    const QStringList activity = ShownText::shortened(DashboardStats::recentActivity());

    startDatabaseValue->setText(StartScreenText::databaseText(path));
    startTripsValue->setText(StartScreenText::tripsText(trips));
    startLocationsValue->setText(StartScreenText::locationsText(locations));
    startPayweekValue->setText(ShownText::shortened(StartScreenText::payweekText(payweek)));
    startBackupValue->setText(StartScreenText::backupText());
    startActivityLabel->setText(StartScreenText::activityText(activity));
}
