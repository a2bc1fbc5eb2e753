#pragma once

#include <QGroupBox>

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QPlainTextEdit;
struct FuelReviewRow;

/// The fields of the row that is selected for review: dollars, gallons and texts.
class ReviewRowEditor : public QGroupBox
{
    Q_OBJECT

public:
    explicit ReviewRowEditor(QWidget *parent = nullptr);

    void showRow(const FuelReviewRow &row);
    void clearFields();

    /// The stored row with what the fields say. A number that does not parse is 0.
    [[nodiscard]] FuelReviewRow edited(const FuelReviewRow &stored) const;

Q_SIGNALS:
    /// The person wants the fields in the selected row.
    void saveRequested();

private:
    QBoxLayout *buildUse();
    QBoxLayout *buildTrip();
    QBoxLayout *buildNumbers();
    void buildNotes(QBoxLayout *layout);
    QComboBox *addChoice(QBoxLayout *row, const QString &label, const QString &objectName,
                         const QStringList &entries);
    QLineEdit *addField(QBoxLayout *row, const QString &label, const QString &objectName,
                        int stretch = 0);

    QCheckBox *useBox = nullptr;
    QComboBox *datasetBox = nullptr;
    QComboBox *routeBox = nullptr;
    QLineEdit *tripField = nullptr;
    QLineEdit *descriptionField = nullptr;
    QLineEdit *amountField = nullptr;
    QLineEdit *costField = nullptr;
    QLineEdit *discountField = nullptr;
    QLineEdit *gallonsField = nullptr;
    QPlainTextEdit *notesBox = nullptr;
};
