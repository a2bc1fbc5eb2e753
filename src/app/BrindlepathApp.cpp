#include "app/BrindlepathApp.h"

#include "data/DatabaseLocator.h"
#include "locations/LocationsPage.h"
#include "pdfimport/ImportPdfPage.h"
#include "pdfimport/history/ImportHistoryPage.h"
#include "reports/ReportsPage.h"
#include "reports/totals/PayTotalsPage.h"
#include "settings/AboutDialog.h"
#include "settings/ProductFacts.h"
#include "settings/SettingsPage.h"
#include "settlements/EditSettlementPage.h"
#include "settlements/ViewPayweekPage.h"
#include "trips/TripsPage.h"
#include "ui/ShownText.h"
#include "ui/UiScale.h"
#include "ui_BrindlepathApp.h"

#include <QApplication>
#include <QBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>

using namespace Qt::StringLiterals;

namespace {

// The pages that do more than show themselves when they are chosen.
const QString startScreenName = u"Start Screen"_s;
const QString viewPayweekName = u"View Payweek"_s;
const QString importHistoryName = u"Database Activity History"_s;

template <typename Page>
void openWhatIsFound(Page *page, const QString &fileName)
{
    const QString path = DatabaseLocator::findDatabaseNearApplication(fileName);
    if (!path.isEmpty())
        page->openDatabase(path);
}

} // namespace

BrindlepathApp::BrindlepathApp(QWidget *parent)
    : QMainWindow(parent)
    , form(std::make_unique<Ui::BrindlepathAppClass>())
{
    form->setupUi(this);
    setWindowTitle(ProductFacts::displayName);
    buildUi();
    // Connected only now: the first row was selected while the window was built, and that is no
    // choice of a page which a title should follow.
    connect(navigationList, &QListWidget::currentRowChanged, this,
            &BrindlepathApp::onNavigationRowChanged);
    setStatusText(tr("Ready"));
    autoOpenDatabases();
}

BrindlepathApp::~BrindlepathApp() = default;

void BrindlepathApp::buildUi()
{
    QHBoxLayout *centralLayout = buildCentralLayout();
    buildNavigation();
    buildPages();
    buildImportPages(centralLayout->parentWidget());
    buildSettingsPage();
    stackPages();
    fillCentralWidget(centralLayout);
    buildHelpMenu();
    buildStatusLine();
    navigationList->setCurrentRow(0);
    applyUiScale(UiScale::savedUiScalePercent());
}

QHBoxLayout *BrindlepathApp::buildCentralLayout()
{
    auto *layout = new QHBoxLayout(new QWidget(this));
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(8);
    return layout;
}

void BrindlepathApp::buildNavigation()
{
    navigationList = new QListWidget(this);
    navigationList->setObjectName(u"navigationList"_s);
    navigationList->setAccessibleName(tr("Pages"));
    navigationList->setMinimumWidth(190);
    navigationList->setMaximumWidth(260);
}

void BrindlepathApp::buildPages()
{
    pageStack = new QStackedWidget(this);
    pageStack->setObjectName(u"pageStack"_s);
    const auto toStatusLine = [this](const QString &text) { setStatusText(text); };

    buildStartScreen();

    tripsPage = new TripsPage(this);
    tripsPage->makeReady(UiScale::savedUiScalePercent());
    tripsPage->statusCallback = toStatusLine; // only now: that the page is ready is no news
    tripsPage->openPayweekCallback = [this](const QString &payweek) { showPayweek(payweek); };

    locationsPage = new LocationsPage(this);
    locationsPage->statusCallback = toStatusLine;
    editSettlementPage = new EditSettlementPage(this);
    editSettlementPage->statusCallback = toStatusLine;

    viewPayweekPage = new ViewPayweekPage(this);
    viewPayweekPage->statusCallback = toStatusLine;
    viewPayweekPage->openTripCallback = [this](int tripId, const QString &tripNo) {
        showTrip(tripId, tripNo);
    };
    viewPayweekPage->payweekChangedCallback = [this](const QString &payweek) {
        if (pageStack->currentWidget() == viewPayweekPage)
            updateViewPayweekTitle(payweek);
    };

    payTotalsPage = new PayTotalsPage(this);
    payTotalsPage->statusCallback = toStatusLine;
    reportsPage = new ReportsPage(this);
    reportsPage->statusCallback = toStatusLine;
}

void BrindlepathApp::buildImportPages(QWidget *central)
{
    // Never shown: a driver scans fuel on the trip itself. Without a layout around it and hidden,
    // it takes no room and no click.
    importPdfPage = new ImportPdfPage(central);
    importPdfPage->hide();
    importHistoryPage = new ImportHistoryPage(this);
    importHistoryPage->statusCallback = [this](const QString &text) { setStatusText(text); };
    connect(importPdfPage, &ImportPdfPage::importAppliedSuccessfully, importHistoryPage,
            &ImportHistoryPage::refreshHistory);
}

void BrindlepathApp::buildSettingsPage()
{
    settingsPage = new SettingsPage(this);
    connect(settingsPage, &SettingsPage::uiScaleChanged, this, [this](int percent) {
        applyUiScale(percent);
        setStatusText(tr("UI scale set to %1%").arg(percent));
    });
}

// The row of a page in the navigation list is its index in the stack.
void BrindlepathApp::stackPages()
{
    const auto add = [this](const QString &name, QWidget *page) {
        navigationList->addItem(name);
        pageStack->addWidget(page);
    };
    add(startScreenName, startPage);
    add(u"Trips"_s, tripsPage);
    add(u"Locations"_s, locationsPage);
    add(u"Edit Settlement"_s, editSettlementPage);
    add(viewPayweekName, viewPayweekPage);
    add(u"Totals"_s, payTotalsPage);
    add(u"Reports"_s, reportsPage);
    add(importHistoryName, importHistoryPage);
    add(u"Settings"_s, settingsPage);
}

void BrindlepathApp::fillCentralWidget(QHBoxLayout *layout)
{
    auto *splitter = new QSplitter(Qt::Horizontal, this);
    splitter->addWidget(navigationList);
    splitter->addWidget(pageStack);
    splitter->setStretchFactor(0, 0);
    splitter->setStretchFactor(1, 1);
    layout->addWidget(splitter);
    setCentralWidget(layout->parentWidget()); // and with the old one go the widgets of the form
}

void BrindlepathApp::buildHelpMenu()
{
    QMenu *help = menuBar()->addMenu(tr("&Help"));
    QAction *about = help->addAction(tr("&About Brindlepath Desk"));
    connect(about, &QAction::triggered, this, &BrindlepathApp::showAboutDialog);
}

void BrindlepathApp::buildStatusLine()
{
    statusLabel = new QLabel(tr("Ready"), this);
    statusLabel->setObjectName(u"statusLabel"_s);
    statusLabel->setIndent(6);
    statusLabel->setTextFormat(Qt::PlainText); // as the bar shows it, whatever a file holds
    // Permanent, so that the label shows the text and not the label and the bar over each other.
    statusBar()->addPermanentWidget(statusLabel, 1);
}

void BrindlepathApp::setStatusText(const QString &text)
{
    const QString shown = ShownText::shortened(text);
    if (statusLabel)
        statusLabel->setText(shown);
    statusBar()->showMessage(shown, 0);
}

void BrindlepathApp::applyUiScale(int percent)
{
    const int clamped = UiScale::clampedPercent(percent);
    QFont font = QApplication::font();
    font.setPointSize(UiScale::applicationPointSize(clamped));
    QApplication::setFont(font);
    setFont(font);
    navigationList->setFont(font);
    statusLabel->setFont(font);
    tripsPage->applyUiScale(clamped);
    payTotalsPage->applyUiScale(clamped);
}

void BrindlepathApp::autoOpenDatabases()
{
    tripsPage->autoOpen();
    openWhatIsFound(locationsPage, DatabaseLocator::locationsFileName);
    openWhatIsFound(editSettlementPage, DatabaseLocator::tripsFileName);
    openWhatIsFound(viewPayweekPage, DatabaseLocator::tripsFileName);
    openWhatIsFound(payTotalsPage, DatabaseLocator::tripsFileName);
    reportsPage->autoOpen();
    refreshStartScreen();
}

void BrindlepathApp::onNavigationRowChanged(int row)
{
    if (row < 0 || row >= pageStack->count())
        return;
    pageStack->setCurrentIndex(row);
    const QListWidgetItem *item = navigationList->item(row);
    const QString name = item ? item->text() : tr("Unknown");
    if (name == startScreenName) {
        refreshStartScreen();
        setWindowTitle(ProductFacts::displayName);
    } else if (name == viewPayweekName) {
        updateViewPayweekTitle(viewPayweekPage->currentPayweek());
    } else {
        setWindowTitle(ProductFacts::displayName + " - "_L1 + name);
    }
    if (name == importHistoryName)
        importHistoryPage->refreshHistory();
    setStatusText(tr("Current Page: %1").arg(name));
}

void BrindlepathApp::updateViewPayweekTitle(const QString &payweek)
{
    QString title = ProductFacts::displayName + " - "_L1 + viewPayweekName;
    if (const QString week = payweek.trimmed(); !week.isEmpty())
        title += " - "_L1 + ShownText::shortened(week);
    setWindowTitle(title);
}

void BrindlepathApp::showPage(QWidget *page)
{
    const int index = pageStack->indexOf(page);
    if (index < 0)
        return;
    navigationList->setCurrentRow(index);
    pageStack->setCurrentIndex(index);
}

void BrindlepathApp::showPayweek(const QString &payweek)
{
    showPage(viewPayweekPage);
    viewPayweekPage->showPayweek(payweek);
    updateViewPayweekTitle(viewPayweekPage->currentPayweek());
}

void BrindlepathApp::showTrip(int tripId, const QString &tripNo)
{
    showPage(tripsPage);
    const QString number = tripNo.trimmed();
    const QString file = viewPayweekPage->databasePath();
    if (!tripsPage->openTripOfFile(tripId, file))
        setStatusText((file.isEmpty() ? tr("Trip %1 is in a file which View Payweek has not open")
                                      : tr("Trip %1 is not in the file which Trips has open"))
                          .arg(number.isEmpty() ? tr("ID %1").arg(tripId) : number));
    else if (!number.isEmpty())
        setStatusText(tr("Opened trip %1 from View Payweek").arg(number));
}

void BrindlepathApp::showAboutDialog()
{
    AboutDialog dialog(this);
    dialog.exec();
}
