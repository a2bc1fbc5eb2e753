#pragma once

#include <QGroupBox>
#include <QStringList>

class QLineEdit;
class QPlainTextEdit;

/// The fields of one location, in the order of LocationsRepository::LocationField.
class LocationForm : public QGroupBox
{
    Q_OBJECT

public:
    explicit LocationForm(QWidget *parent = nullptr);

    /// The nine texts as they stand in the fields.
    [[nodiscard]] QStringList location() const;
    /// Shows nine texts; a missing one leaves its field empty.
    void showLocation(const QStringList &location);

    /// The code, trimmed.
    [[nodiscard]] QString code() const;

    void setReadOnly(bool readOnly);
    void focusCode();
    void focusName();

private:
    void buildRows();

    /// One for each field before the notes.
    QList<QLineEdit *> fields;
    QPlainTextEdit *notes = nullptr;
};
