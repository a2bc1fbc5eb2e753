#pragma once

#include <QSqlDatabase>
#include <QWidget>

#include <functional>

class DataTable;
class QBoxLayout;
class QComboBox;
class QDoubleSpinBox;
class QLabel;
class SettlementItemForm;

/// Where the driver enters what a settlement holds beside its trips: the items of a payweek and its
/// APR. What is saved here shows at the next load of View Payweek.
class EditSettlementPage : public QWidget
{
    Q_OBJECT

public:
    explicit EditSettlementPage(QWidget *parent = nullptr);
    ~EditSettlementPage() override;

    /// Takes a text for the status line. It may stay empty.
    std::function<void(const QString &text)> statusCallback;

    /// Opens the file and shows its newest payweek. A file that does not open gives a
    /// "Database Error" box and leaves what is shown, but none open; a blank path gives one too,
    /// but leaves the file that was open.
    void openDatabase(const QString &path);

private:
    void buildLayout();
    QBoxLayout *buildActions();
    QBoxLayout *buildItemActions();
    QWidget *buildAprBox();
    void connectWidgets();

    void browseForDatabase();
    void refresh();
    void reloadPayweeks();
    void reloadNames();
    void reloadApr();
    void reloadItems();
    void showNoItems(const QString &summaryText);
    void showRows(const QList<QStringList> &rows);
    void showItems(const QString &payweek, const QList<QStringList> &rows, double revenue,
                   double expense);
    void selectItem(int id);
    [[nodiscard]] int rowOfItem(int id) const;
    void loadRow(int row);
    void startNewItem();
    void saveApr();
    void saveItem();
    bool writeItem(int id);
    void deleteItem();

    bool requireOpenDatabase();
    bool requirePayweek();
    [[nodiscard]] QString currentPayweek() const;
    void report(const QString &text) const;

    QSqlDatabase database;
    QComboBox *payweekBox = nullptr;
    QDoubleSpinBox *aprBox = nullptr;
    QLabel *summary = nullptr;
    QLabel *emptyLabel = nullptr;
    DataTable *table = nullptr;
    SettlementItemForm *form = nullptr;
};
