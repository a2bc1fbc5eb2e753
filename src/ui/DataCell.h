#pragma once

#include <QTableWidgetItem>

#include <optional>

/// A cell of a table, which cannot be changed. It keeps the column's raw text, shows it in a form
/// of its own, and sorts as a number where it is one.
class DataCell : public QTableWidgetItem
{
public:
    /// What a column holds. Files may hold "$1,234.50" or "1.25/mi" where a number belongs; both
    /// read as numbers, and what is none shows as it stands.
    enum class Form { Text, Number, Money, MoneyPerMile, MoneyPerHour };

    /// The raw column text.
    static constexpr int rawTextRole = Qt::UserRole + 1;

    DataCell(Form form, const QString &raw);

    /// Answers the texts and the alignment from members: stored as roles, they would take most of
    /// the time of filling a long table.
    [[nodiscard]] QVariant data(int role) const override;

    bool operator<(const QTableWidgetItem &other) const override;

private:
    QString rawText;
    std::optional<double> number;
    QString shown;
    bool standsRight;
};
