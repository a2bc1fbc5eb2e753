#pragma once

#include <QMainWindow>

#include <memory>

class EditSettlementPage;
class ImportHistoryPage;
class ImportPdfPage;
class LocationsPage;
class PayTotalsPage;
class QHBoxLayout;
class QLabel;
class QListWidget;
class QStackedWidget;
class ReportsPage;
class SettingsPage;
class TripsPage;
class ViewPayweekPage;
namespace Ui {
class BrindlepathAppClass;
}

/// The one window: the navigation list, the stacked pages, the Help menu and the status line. It
/// is the only object that knows all pages; what one page asks of another goes through the
/// functions that the window installs in them. Pages live as long as the window.
class BrindlepathApp : public QMainWindow
{
    Q_OBJECT

public:
    /// Builds the window and opens the databases that lie near the application.
    explicit BrindlepathApp(QWidget *parent = nullptr);
    ~BrindlepathApp() override;

    /// Shows the text in the status line until the next one comes.
    void setStatusText(const QString &text);

    /// Sizes the whole window; a percentage outside of 75..175 counts as its nearer end.
    void applyUiScale(int percent);

    /// Opens what is found on each page in turn. What is not found is not reported.
    void autoOpenDatabases();

    /// Reads the figures of the start screen afresh.
    void refreshStartScreen();

    /// Writes the payweek, or nothing for a blank one, into the title of View Payweek.
    void updateViewPayweekTitle(const QString &payweek);

private:
    void buildUi();
    void buildNavigation();
    void buildPages();
    void buildImportPages(QWidget *central);
    void buildSettingsPage();
    void stackPages();
    QHBoxLayout *buildCentralLayout();
    void fillCentralWidget(QHBoxLayout *layout);
    void buildHelpMenu();
    void buildStatusLine();

    void buildStartScreen();
    QWidget *buildBusinessSummary();
    QWidget *buildRecentActivity();

    void onNavigationRowChanged(int row);
    void showPage(QWidget *page);
    void showPayweek(const QString &payweek);
    void showTrip(int tripId, const QString &tripNo);
    void showAboutDialog();

    std::unique_ptr<Ui::BrindlepathAppClass> form;
    QListWidget *navigationList = nullptr;
    QStackedWidget *pageStack = nullptr;
    QLabel *statusLabel = nullptr;

    QWidget *startPage = nullptr;
    QLabel *startDatabaseValue = nullptr;
    QLabel *startTripsValue = nullptr;
    QLabel *startLocationsValue = nullptr;
    QLabel *startPayweekValue = nullptr;
    QLabel *startBackupValue = nullptr;
    QLabel *startActivityLabel = nullptr;

    TripsPage *tripsPage = nullptr;
    LocationsPage *locationsPage = nullptr;
    EditSettlementPage *editSettlementPage = nullptr;
    ViewPayweekPage *viewPayweekPage = nullptr;
    PayTotalsPage *payTotalsPage = nullptr;
    ReportsPage *reportsPage = nullptr;
    ImportPdfPage *importPdfPage = nullptr;
    ImportHistoryPage *importHistoryPage = nullptr;
    SettingsPage *settingsPage = nullptr;
};
