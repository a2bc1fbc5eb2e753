#pragma once

#include <QGroupBox>
#include <QStringList>

class QComboBox;
class QLabel;
class QLineEdit;

/// The fields of one settlement item. The label of the selected id is the only place that says
/// which item the page is about.
class SettlementItemForm : public QGroupBox
{
    Q_OBJECT

public:
    explicit SettlementItemForm(QWidget *parent = nullptr);

    /// The id of the item that is edited; 0 for a new one, and for none.
    [[nodiscard]] int selectedItemId() const;
    void setSelectedItemId(int id);

    /// "revenue" or "expense".
    [[nodiscard]] QString kind() const;
    [[nodiscard]] QString name() const;
    /// In dollars; text that is no number is 0.
    [[nodiscard]] double amount() const;

    /// Shows an item. The kind stays as it was where the text is neither of the two; "$" and commas
    /// of the amount are left out.
    void showItem(int id, const QString &kind, const QString &name, const QString &amountText);

    /// Empties the form for a new item and gives the name the focus.
    void startNewItem();

    /// Offers these names from now on and keeps the text that stands there.
    void offerNames(const QStringList &names);

private:
    void buildRows();
    void showName(const QString &name);

    QLabel *idLabel = nullptr;
    QComboBox *kindBox = nullptr;
    QComboBox *nameBox = nullptr;
    QLineEdit *amountField = nullptr;
};
