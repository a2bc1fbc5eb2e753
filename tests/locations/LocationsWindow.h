#pragma once

#include "locations/LocationsPage.h"
#include "support/Person.h"

#include <QLineEdit>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

/// The Locations page in a window, as a person has it before them, and what it told that window.
class LocationsWindow
{
public:
    LocationsWindow()
        : page(new LocationsPage)
    {
        page->statusCallback = [this](const QString &text) { statuses.append(text); };
        window.setCentralWidget(page);
        Person::shows(window);
    }

    /// With the file open and its locations listed; what the page told meanwhile is left out.
    explicit LocationsWindow(const QString &path)
        : LocationsWindow()
    {
        page->openDatabase(path);
        statuses.clear();
    }
    Q_DISABLE_COPY_MOVE(LocationsWindow)

    void clicks(const QString &text) const { Person::clicks(window, text); }
    void clicksLocation(int row) const { Person::clicksCell(table(), row, 0); }
    void types(const char *field, const QString &text) const { Person::types(line(field), text); }

    /// Clicks a location and unlocks it.
    void edits(int row) const
    {
        clicksLocation(row);
        clicks(QStringLiteral("Edit Location"));
    }

    /// Puts nine texts into the form in one piece each, as from the clipboard.
    void pastes(const QStringList &location) const
    {
        const QList<QLineEdit *> fields = lines();
        for (qsizetype i = 0; i < fields.size(); ++i) {
            fields.at(i)->selectAll();
            fields.at(i)->insert(location.at(i));
        }
        notes()->selectAll();
        notes()->insertPlainText(location.last());
    }

    /// What is asked for past a disabled button, as by a tool that drives the page.
    void asksFor(const char *button) const { Q_EMIT named<QPushButton>(button)->clicked(); }

    [[nodiscard]] QTableWidget *table() const { return named<QTableWidget>("locationTable"); }
    [[nodiscard]] QLineEdit *line(const char *field) const { return named<QLineEdit>(field); }
    [[nodiscard]] QPlainTextEdit *notes() const { return named<QPlainTextEdit>("locationNotes"); }
    [[nodiscard]] QList<QLineEdit *> lines() const { return page->findChildren<QLineEdit *>(); }

    /// The form from top to bottom.
    [[nodiscard]] QStringList form() const
    {
        QStringList texts;
        for (const QLineEdit *field : lines())
            texts.append(field->text());
        return texts << notes()->toPlainText();
    }

    /// The rows that are marked, and the current row.
    [[nodiscard]] QList<int> selection() const
    {
        QList<int> rows;
        for (const QModelIndex &row : table()->selectionModel()->selectedRows())
            rows.append(row.row());
        return rows << table()->currentRow();
    }

    /// The state of the page as a person can tell it: by what the form and the buttons allow.
    [[nodiscard]] QString mode() const
    {
        const bool edit = named<QPushButton>("editLocationButton")->isEnabled();
        const bool save = named<QPushButton>("saveLocationButton")->isEnabled();
        if (isLocked() == save)
            return QStringLiteral("the form and Save Location disagree");
        if (!named<QPushButton>("deleteLocationButton")->isEnabled())
            return QStringLiteral("Delete Location is off");
        if (save)
            return edit ? QStringLiteral("Edit and Save") : QStringLiteral("Save");
        return edit ? QStringLiteral("Edit") : QStringLiteral("neither");
    }

    template <typename Widget>
    [[nodiscard]] Widget *named(const char *name) const
    {
        return page->findChild<Widget *>(QLatin1StringView(name));
    }

    QMainWindow window;
    LocationsPage *page;
    QStringList statuses;

private:
    [[nodiscard]] bool isLocked() const
    {
        int locked = notes()->isReadOnly() ? 1 : 0;
        for (const QLineEdit *field : lines())
            locked += field->isReadOnly() ? 1 : 0;
        if (locked != 0 && locked != lines().size() + 1)
            QTest::qFail("Some fields are locked and others are not.", __FILE__, __LINE__);
        return locked > 0;
    }
};
